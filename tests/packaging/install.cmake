# Installs what was built into an empty prefix, looks at it, and moves it: what is used afterwards is not where
# it was installed.
set(first_prefix ${PREFIX}.first)
file(REMOVE_RECURSE ${PREFIX} ${first_prefix})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${first_prefix} OUTPUT_QUIET
                        COMMAND_ERROR_IS_FATAL ANY)
foreach(file bin/jt-driver bin/jt-roundtrip bin/sil share/man/man1/sil.1 share/jt/sil.schema.json
        share/bash-completion/completions/sil share/zsh/vendor-completions/_sil include/jt.h include/jt.hpp)
  if(NOT EXISTS ${first_prefix}/${file})
    message(FATAL_ERROR "${file} is not installed")
  endif()
endforeach()

# What is read as text by the tools of a client names no place of this machine.
file(GLOB_RECURSE texts ${first_prefix}/*.cmake ${first_prefix}/*.pc ${first_prefix}/*.h)
foreach(text ${texts})
  file(READ ${text} content)
  foreach(place ${first_prefix} ${BUILD_DIR} ${SOURCE_DIR})
    string(FIND "${content}" "${place}" position)
    if(NOT position EQUAL -1)
      message(FATAL_ERROR "${text} names ${place}")
    endif()
  endforeach()
endforeach()

file(STRINGS ${first_prefix}/lib/libjt.a for_one_compiler REGEX "gnu.lto_" LIMIT_COUNT 1)
if(for_one_compiler)
  message(FATAL_ERROR "the static library is made for one version of one compiler")
endif()

file(RENAME ${first_prefix} ${PREFIX})
