# What `cpack` makes: a Debian package of each component. The package of the shared library is named after its
# major version, so that clients of two of them can live on one machine.
set(JT_PACKAGE_MAINTAINER "The jt developers <jt@example.org>" CACHE STRING "Who answers for the packages")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME jt)
set(CPACK_PACKAGE_CONTACT ${JT_PACKAGE_MAINTAINER})
set(CPACK_COMPONENTS_ALL runtime development tools documentation)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY >=)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(summary "job templates for multifunction office devices")
set(what_it_is
    "jt reads and writes SIL, the plain-text language of job templates for
multifunction office devices. It turns the text into a tree, lets a program
read and change the tree, and writes it back.")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libjt${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)
file(WRITE ${PROJECT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${summary} - library\n${what_it_is}
.
This package holds the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libjt-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libjt${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "jt-doc, jt-tools")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "${summary} - development\n${what_it_is}
.
This package holds the headers, the static library, and what CMake and
pkg-config need to find them.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME jt-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "${summary} - tools\n${what_it_is}
.
This package holds sil, one command to show, change and convert templates
from a shell, jt-roundtrip, which reads a template, prints it as jt
writes it and says what is doubtful about it, jt-driver, which times the
steps, and a page on the language.")

set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_NAME jt-doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOCUMENTATION_DESCRIPTION "${summary} - manual\n${what_it_is}
.
This package holds the manual as web pages, and the examples: templates of
every kind and small clients in C and C++.")

# What only Debian's packages have: it is written between installing and packing.
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/debian_documents.cmake)
set(CPACK_JT_CHANGELOG ${PROJECT_SOURCE_DIR}/CHANGELOG.md)

include(CPack)
