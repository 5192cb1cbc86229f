# The component is built folder by folder: each engine folder is a static library of its own that names the
# folders it may use, and the configure step refuses a source that includes a header from any other of ours.
# The pages and the editor shell, which make up the QML module, are checked against their own lists.

# quorvane_check_includes(DIR ALLOW dirs... [FILES files...]) — every quoted include of a source under
# src/DIR (not its subfolders) resolves into DIR, one of the allowed folders, one of the allowed files, or
# nothing of ours. Paths are relative to src/.
function(quorvane_check_includes dir)
  cmake_parse_arguments(arg "" "" "ALLOW;FILES" ${ARGN})
  set(root ${PROJECT_SOURCE_DIR}/src)
  set(allowed ${dir} ${arg_ALLOW})
  file(GLOB sources ${root}/${dir}/*.h ${root}/${dir}/*.cpp)
  foreach(source IN LISTS sources)
    file(STRINGS ${source} lines REGEX "^#include \"")
    get_filename_component(here ${source} DIRECTORY)
    foreach(line IN LISTS lines)
      string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" header "${line}")
      if(EXISTS ${here}/${header})
        get_filename_component(resolved ${here}/${header} ABSOLUTE)
      elseif(EXISTS ${root}/${header})
        get_filename_component(resolved ${root}/${header} ABSOLUTE)
      else()
        continue() # generated (moc, QML registration)
      endif()
      file(RELATIVE_PATH relative ${root} ${resolved})
      get_filename_component(folder ${relative} DIRECTORY)
      if(NOT folder IN_LIST allowed AND NOT relative IN_LIST arg_FILES)
        file(RELATIVE_PATH shown ${PROJECT_SOURCE_DIR} ${source})
        message(FATAL_ERROR "${shown} includes \"${header}\" from ${folder}/, which ${dir}/ may not use "
                            "(it may use: ${arg_ALLOW} ${arg_FILES}).")
      endif()
    endforeach()
  endforeach()
endfunction()

# quorvane_add_module(TARGET SOURCES... [DEPENDS targets...] [LIBRARIES libs...] [FILES headers...]) — the
# folder's own static library. DEPENDS are other modules (their folders may be included), LIBRARIES anything
# else it links, FILES single headers of ours it may include from elsewhere (header-only value types).
function(quorvane_add_module target)
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS;LIBRARIES;FILES" ${ARGN})
  qt_add_library(${target} STATIC ${arg_SOURCES})
  file(RELATIVE_PATH dir ${PROJECT_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR})
  set_target_properties(${target} PROPERTIES QUORVANE_FOLDER ${dir} POSITION_INDEPENDENT_CODE ON)
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>)
  target_link_libraries(${target} PUBLIC ${arg_DEPENDS} ${arg_LIBRARIES})
  target_compile_features(${target} INTERFACE cxx_std_17)
  quorvane_apply_warnings(${target})
  set(allowed)
  foreach(dependency IN LISTS arg_DEPENDS)
    if(TARGET ${dependency})
      get_target_property(folder ${dependency} QUORVANE_FOLDER)
      if(folder)
        list(APPEND allowed ${folder})
      endif()
    endif()
  endforeach()
  quorvane_check_includes(${dir} ALLOW ${allowed} FILES ${arg_FILES})
  set_property(GLOBAL APPEND PROPERTY QUORVANE_MODULES ${target})
endfunction()
