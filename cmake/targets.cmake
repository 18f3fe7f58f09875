# What the targets of jt have in common: language standards and warnings, attached to one target at a time.

set(JT_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(JT_WARNINGS_AS_ERRORS)
  list(APPEND JT_WARNINGS -Werror)
endif()

function(jt_set_defaults target)
  set_target_properties(
    ${target}
    PROPERTIES C_STANDARD 11
               C_STANDARD_REQUIRED ON
               C_EXTENSIONS OFF
               CXX_STANDARD 20
               CXX_STANDARD_REQUIRED ON
               CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE ${JT_WARNINGS})
endfunction()

# A program over the public header: it sees include/ and nothing else of the library.
function(jt_add_program target)
  add_executable(${target} ${ARGN})
  jt_set_defaults(${target})
  target_link_libraries(${target} PRIVATE jt::static)
endfunction()

# What the C compiler has to link beside libjt.a: the library of C++ that the C++ compiler links by itself.
set(JT_CXX_RUNTIME stdc++)
if("c++" IN_LIST CMAKE_CXX_IMPLICIT_LINK_LIBRARIES)
  set(JT_CXX_RUNTIME c++)
endif()
