// Callgrind writes what it has counted into a numbered file each time it is asked; the sum is one line of it.
#include "callgrind.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
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
  std::string words[] = {"valgrind",
                         "-q",
                         "--tool=callgrind",
                         "--instr-atstart=no",
                         "--collect-atstart=no",
                         "--callgrind-out-file=" + out_file(),
                         program()};
  std::vector<char *> command;
  for (std::string &word : words) command.push_back(word.data());
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
  constexpr char kTotals[] = "totals: ";
  double total = 0;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(kTotals)) total = std::stod(line.substr(sizeof kTotals - 1));
  }
  std::filesystem::remove(path);
  return total / calls_;
}

}  // namespace bench
