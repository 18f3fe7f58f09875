# The sources of jt, as a part of the project's own.
add_subdirectory(${JT_SOURCE_DIR} _deps/jt-build)
