# Optimises a library as one: calls from file to file are inlined. Only g++ can do that here, and only a release
# wants it. A shared library is optimised when it is linked. A static one is packed from a single object that has
# been optimised already and is plain again, so that any linker takes it.
function(jt_optimise_whole objects static shared)
  set(plain $<TARGET_OBJECTS:${objects}>)
  target_sources(${shared} PRIVATE ${plain})
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU" OR NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    target_sources(${static} PRIVATE ${plain})
    return()
  endif()
  target_compile_options(${objects} PRIVATE -flto)
  target_link_options(${shared} PRIVATE -flto=auto)

  set(whole ${CMAKE_CURRENT_BINARY_DIR}/${static}_whole.o)
  separate_arguments(flags NATIVE_COMMAND "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_RELEASE}")
  add_custom_command(
    OUTPUT ${whole}
    COMMAND ${CMAKE_CXX_COMPILER} ${flags} -fPIC -flto=auto -flto-partition=one -flinker-output=nolto-rel -r
            -nostdlib -o ${whole} ${plain}
    DEPENDS ${objects} ${plain}
    COMMAND_EXPAND_LISTS VERBATIM)
  set_source_files_properties(${whole} PROPERTIES EXTERNAL_OBJECT ON GENERATED ON)
  target_sources(${static} PRIVATE ${whole})
endfunction()
