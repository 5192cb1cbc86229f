# Strict warnings for our own sources only: code that Qt generates (moc, QML compiler) is not held to them.
function(quorvane_apply_warnings target)
  set(flags -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-align
            -Woverloaded-virtual)
  if(QUORVANE_WERROR)
    list(APPEND flags -Werror)
  endif()
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    if(QUORVANE_WARNINGS AND source MATCHES "\\.cpp$" AND NOT IS_ABSOLUTE "${source}")
      set_property(SOURCE ${source} APPEND PROPERTY COMPILE_OPTIONS ${flags})
    endif()
  endforeach()
  if(QUORVANE_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer
                                             -fno-sanitize-recover=undefined)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()
