# What `cmake --install` puts where, in four components: runtime (the shared library), development (headers, the
# static library, what find_package() and pkg-config read, the pages on the calls), tools (with their pages and
# that on SIL, and what shells complete) and documentation (the manual and the examples). Nothing of it knows the prefix: an installed tree
# may be moved.
include(CMakePackageConfigHelpers)

install(TARGETS ${jt_libraries} jt_cpp EXPORT jt_targets
        ARCHIVE COMPONENT development
        LIBRARY COMPONENT runtime NAMELINK_COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ TYPE INCLUDE COMPONENT development)
if(JT_BUILD_PROGRAMS OR JT_BUILD_TESTS)
  install(TARGETS jt-driver jt-roundtrip sil RUNTIME COMPONENT tools)
  set(completions ${PROJECT_BINARY_DIR}/tools/sil/completions)
  install(FILES ${completions}/sil DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tools)
  install(FILES ${completions}/_sil DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT tools)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/sil/sil.schema.json DESTINATION ${CMAKE_INSTALL_DATADIR}/jt
          COMPONENT tools)
endif()

# For find_package().
string(REPLACE "jt_" "jt::" jt_usual ${jt_usual})
set(cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/jt)
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/jt-config.cmake.in ${PROJECT_BINARY_DIR}/jt-config.cmake
  INSTALL_DESTINATION ${cmake_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/jt-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/jt-config.cmake ${PROJECT_BINARY_DIR}/jt-config-version.cmake
        DESTINATION ${cmake_dir} COMPONENT development)
install(EXPORT jt_targets NAMESPACE jt:: FILE jt-targets.cmake DESTINATION ${cmake_dir} COMPONENT development)

# For pkg-config, which knows the place of the file that it reads: from there the prefix is so many steps up.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
           OUTPUT_VARIABLE to_prefix)
set(pc_prefix "\${pcfiledir}/${to_prefix}")
cmake_path(APPEND pc_libdir "\${prefix}" ${CMAKE_INSTALL_LIBDIR})
cmake_path(APPEND pc_includedir "\${prefix}" ${CMAKE_INSTALL_INCLUDEDIR})
configure_file(${CMAKE_CURRENT_LIST_DIR}/jt.pc.in ${PROJECT_BINARY_DIR}/jt.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/jt.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# Pages of the manual, written by hand or generated: those that are there when it is installed.
function(jt_install_pages section component)
  set(pages "\"${PROJECT_SOURCE_DIR}/docs/man/*.${section}\" \"${PROJECT_BINARY_DIR}/docs/man/*.${section}\"")
  set(place "\"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_MANDIR}/man${section}\"")
  install(CODE "file(GLOB pages ${pages})
  if(pages)
    file(INSTALL \${pages} DESTINATION ${place})
  endif()" COMPONENT ${component})
endfunction()
jt_install_pages(1 tools)
jt_install_pages(3 development)
jt_install_pages(5 tools)

# The manual, if it has been written, and the examples.
install(DIRECTORY ${PROJECT_BINARY_DIR}/docs/html TYPE DOC COMPONENT documentation OPTIONAL)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples TYPE DOC COMPONENT documentation
        PATTERN CMakeLists.txt EXCLUDE)
