// Writes what is installed beside sil into two folders: pages_writer FOR_MAN FOR_SHELLS. Runs while jt is built.
#include <cstdio>
#include <fstream>
#include <string>

#include "pages.h"

namespace {

bool write(const std::string &path, const std::string &text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) std::fprintf(stderr, "cannot write %s\n", path.c_str());
  return static_cast<bool>(file);
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 3) return 2;
  const std::string shells = argv[2];
  const bool is_done = write(std::string(argv[1]) + "/sil.1", sil::man_page()) &&
                       write(shells + "/sil", sil::bash_completion()) &&
                       write(shells + "/_sil", sil::zsh_completion());
  return is_done ? 0 : 1;
}
