# The list of exported symbols as a linker script: what the list does not name stays inside libjt.so, the
# instances of the standard library's templates included, which hidden visibility alone would let out. Every
# symbol carries the version, so that a client never takes it from a library of another major version that
# happens to be in the same process.

function(jt_write_version_script list version script)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(STRINGS ${list} symbols)
  list(JOIN symbols ";\n    " symbols)
  file(CONFIGURE OUTPUT ${script} CONTENT "${version} {\n  global:\n    ${symbols};\n  local:\n    *;\n};\n")
endfunction()
