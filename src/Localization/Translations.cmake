# The component's texts in six languages, compiled into its resources under /quorvane/sdkimage/i18n. The .ts
# files are refreshed from the sources with `cmake --build <build dir> --target update_translations`.

# lupdate is handed the component's own C++ and QML files by full path: left to itself it resolves the
# target's sources against this file's folder and silently finds none.
get_target_property(quorvane_target_sources QuorvaneSdkImage SOURCES)
set(quorvane_lupdate_sources "")
foreach(source IN LISTS quorvane_target_sources)
  if(source MATCHES "\\.(cpp|h|qml)$" AND NOT source MATCHES "^\\$<")
    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE)
    cmake_path(IS_PREFIX CMAKE_CURRENT_SOURCE_DIR "${source}" NORMALIZE in_sources)
    if(in_sources)
      list(APPEND quorvane_lupdate_sources "${source}")
    endif()
  endif()
endforeach()

set(quorvane_languages de fr es pt_BR ja zh_CN)
list(TRANSFORM quorvane_languages
     REPLACE "(.+)" "${CMAKE_CURRENT_SOURCE_DIR}/Localization/translations/quorvane_sdkimage_\\1.ts"
     OUTPUT_VARIABLE quorvane_ts_files)
# Without locations or obsolete entries a .ts file changes only when a text does.
qt_add_translations(QuorvaneSdkImage
  TS_FILES ${quorvane_ts_files}
  SOURCES ${quorvane_lupdate_sources}
  INCLUDE_DIRECTORIES ${CMAKE_CURRENT_SOURCE_DIR}
  RESOURCE_PREFIX /quorvane/sdkimage/i18n
  OUTPUT_TARGETS QUORVANE_TRANSLATION_TARGETS
  LUPDATE_OPTIONS -locations none -no-obsolete)
