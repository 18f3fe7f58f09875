# An installed jt, found. Neither another major version nor a later minor one will do.
foreach(version 3 5 4.99)
  find_package(jt ${version} CONFIG QUIET)
  if(jt_FOUND)
    message(FATAL_ERROR "jt ${jt_VERSION} says that it can stand for ${version}")
  endif()
endforeach()
find_package(jt 4.0 CONFIG REQUIRED)
# A second time changes nothing: two parts of a project may both ask for it.
find_package(jt 4.3.0 CONFIG REQUIRED)
cmake_path(IS_PREFIX CMAKE_PREFIX_PATH ${jt_DIR} NORMALIZE is_there)
if(NOT is_there)
  message(FATAL_ERROR "found ${jt_DIR}, not what is in ${CMAKE_PREFIX_PATH}")
endif()
