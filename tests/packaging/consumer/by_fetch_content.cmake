# The sources of jt, declared as a download that is already there.
include(FetchContent)
set(FETCHCONTENT_FULLY_DISCONNECTED ON)
set(FETCHCONTENT_SOURCE_DIR_JT ${JT_SOURCE_DIR})
FetchContent_Declare(jt URL https://example.org/jt.tar.gz)
FetchContent_MakeAvailable(jt)
