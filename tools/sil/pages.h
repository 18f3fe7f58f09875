// What is installed beside the command, made of the same table: sil(1) and the completions. Proved by
// tests/sil_command/pages_test.cpp.
#ifndef SIL_PAGES_H
#define SIL_PAGES_H

#include <string>

namespace sil {

/// sil(1) in mdoc.
std::string man_page();

std::string bash_completion();
std::string zsh_completion();

}  // namespace sil

#endif
