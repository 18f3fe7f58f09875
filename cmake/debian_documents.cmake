# Run by cpack on the installed components, before they are packed: adds the documents that each Debian
# package must have, and compresses what Debian wants compressed. The time is that of SOURCE_DATE_EPOCH, where
# it is set, so that the same sources give the same packages.
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
string(TIMESTAMP year "%Y" UTC)
set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})

function(compress)
  if(ARGN)
    execute_process(COMMAND gzip -9nf ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
  endif()
endfunction()

foreach(component ${CPACK_COMPONENTS_ALL})
  string(TOUPPER ${component} upper)
  set(share ${CPACK_TEMPORARY_DIRECTORY}/${component}${CPACK_PACKAGING_INSTALL_PREFIX}/share)
  set(documents ${share}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  file(WRITE ${documents}/copyright "Copyright ${year} the jt developers. All rights reserved.\n")
  file(WRITE ${documents}/changelog.Debian
       "${CPACK_PACKAGE_NAME} (${version}) unstable; urgency=medium\n\n"
       "  * Version ${CPACK_PACKAGE_VERSION}; changelog.gz says what changed.\n\n"
       " -- ${CPACK_PACKAGE_CONTACT}  ${now}\n")
  configure_file(${CPACK_JT_CHANGELOG} ${documents}/changelog COPYONLY)
  file(GLOB pages ${share}/man/*/*.[1-9])
  compress(${documents}/changelog.Debian ${documents}/changelog ${pages})
endforeach()
