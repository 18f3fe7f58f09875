# The list of exported symbols as a linker script: what the list does not name stays inside libjt.so, the
# instances of the standard library's templates included, which hidden visibility alone would let out.

function(jt_write_version_script list script)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(STRINGS ${list} symbols)
  list(JOIN symbols ";\n    " symbols)
  file(CONFIGURE OUTPUT ${script} CONTENT "{\n  global:\n    ${symbols};\n  local:\n    *;\n};\n")
endfunction()
