#pragma once

#include <QTest>

// Built for another processor, the tests run under qemu's user mode (QUORVANE_EMULATED is set), which is
// several times slower and cannot start processes (Qt's clone with CLONE_VFORK fails there).

/// A test that needs a process stops at this point under the emulator; scripts/test-arm64 runs the tool from
/// the host instead and compares its files with the host's.
#define QUORVANE_SKIP_WITHOUT_PROCESSES()                                                                    \
    do {                                                                                                     \
        if (qEnvironmentVariableIsSet("QUORVANE_EMULATED"))                                                  \
            QSKIP("Starts a process, which the emulator cannot.");                                           \
    } while (false)

/// How long to wait for what takes \a milliseconds here: ten times as long under the emulator.
inline int patience(int milliseconds)
{
    return qEnvironmentVariableIsSet("QUORVANE_EMULATED") ? 10 * milliseconds : milliseconds;
}
