# Cross build for 64-bit ARM (Debian's aarch64-linux-gnu multiarch packages). Tests and programs run through
# qemu; the host's Qt tools (moc, rcc, qmlcachegen, qsb, lrelease) generate the sources.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/bin/qemu-aarch64-static)

# Libraries and headers come from the target's multiarch folders; programs run during the build are the host's.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
# pkg-config (through which Qt finds xkbcommon, for one) must not answer with the host's libraries.
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/aarch64-linux-gnu/pkgconfig:/usr/share/pkgconfig)
