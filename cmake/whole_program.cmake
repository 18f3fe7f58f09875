# Optimising across files: calls from file to file are inlined. Only g++ can do that here, and only a release
# wants it.
function(jt_can_optimise_whole answer)
  set(${answer} OFF PARENT_SCOPE)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_BUILD_TYPE STREQUAL "Release")
    set(${answer} ON PARENT_SCOPE)
  endif()
endfunction()

# A shared library is optimised when it is linked.
function(jt_optimise_at_link library)
  foreach(objects ${ARGN})
    target_compile_options(${objects} PRIVATE -flto)
  endforeach()
  target_link_options(${library} PRIVATE -O2 -flto=auto)
endfunction()

# Makes one object of an object library whose files are compiled for optimising at link, and sets `variable` to
# its name. The object has been optimised already and is plain, so that any linker takes it.
function(jt_optimise_to_one_object variable objects)
  set(whole ${CMAKE_CURRENT_BINARY_DIR}/${objects}_whole.o)
  separate_arguments(flags NATIVE_COMMAND "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_RELEASE}")
  add_custom_command(
    OUTPUT ${whole}
    COMMAND ${CMAKE_CXX_COMPILER} ${flags} -O2 -fPIC -ffunction-sections -fdata-sections -flto=auto
            -flto-partition=one -flinker-output=nolto-rel -r -nostdlib -o ${whole} $<TARGET_OBJECTS:${objects}>
    DEPENDS ${objects} $<TARGET_OBJECTS:${objects}>
    COMMAND_EXPAND_LISTS VERBATIM)
  set_source_files_properties(${whole} PROPERTIES EXTERNAL_OBJECT ON GENERATED ON)
  set(${variable} ${whole} PARENT_SCOPE)
endfunction()
