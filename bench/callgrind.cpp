// Callgrind writes what it has counted into a numbered file each time it is asked; the sum is one line of it.
#include "callgrind.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace bench {
namespace {

std::string program() { return std::filesystem::read_symlink("/proc/self/exe"); }

// Beside the program; the last run that was made leaves it there.
std::string out_file() { return program() + ".callgrind"; }

}  // namespace

void run_under_callgrind(char **arguments) {
  if (RUNNING_ON_VALGRIND != 0) return;
  setenv("LD_BIND_NOW", "1", 1);  // looking up functions of libraries is nothing to count
  std::string self = program(), out = "--callgrind-out-file=" + out_file();
  char options[][24] = {"valgrind", "-q", "--tool=callgrind", "--instr-atstart=no", "--collect-atstart=no"};
  std::vector<char *> command(std::begin(options), std::end(options));
  command.insert(command.end(), {out.data(), self.data()});
  do command.push_back(*++arguments);
  while (*arguments != nullptr);
  execvp(command[0], command.data());
  std::perror("valgrind");
  std::exit(EXIT_FAILURE);
}

double InstructionCounter::mean() const {
  static int files = 0;
  CALLGRIND_DUMP_STATS;
  const std::string path = out_file() + "." + std::to_string(++files);
  std::ifstream file(path);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  std::filesystem::remove(path);
  const std::string totals = "totals: ";
  return std::stod(text.substr(text.find(totals) + totals.size())) / calls_;
}

}  // namespace bench
