// Callgrind writes what it has counted into a numbered file each time it is asked; the sum is one line of it.
#include "callgrind.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace bench {
namespace {

// Names the folder of callgrind's files to the program that runs under it.
constexpr char kFolder[] = "JT_BENCH_CALLGRIND";

[[noreturn]] void start_valgrind(const std::string &folder, char **arguments) {
  setenv(kFolder, folder.c_str(), 1);
  setenv("LD_BIND_NOW", "1", 1);  // looking up functions of libraries is nothing to count
  std::string out_file = "--callgrind-out-file=" + folder + "/out";
  std::string program = std::filesystem::read_symlink("/proc/self/exe");
  std::string words[] = {"valgrind", "-q", "--tool=callgrind", "--instr-atstart=no", "--collect-atstart=no"};
  std::vector<char *> command;
  for (std::string &word : words) command.push_back(word.data());
  command.insert(command.end(), {out_file.data(), program.data()});
  do command.push_back(*++arguments);
  while (*arguments != nullptr);
  execvp(command[0], command.data());
  std::perror("valgrind");
  std::_Exit(127);
}

}  // namespace

std::optional<int> run_under_callgrind(char **arguments) {
  if (RUNNING_ON_VALGRIND != 0) return std::nullopt;
  std::string folder = std::filesystem::temp_directory_path() / "jt_callgrind.XXXXXX";
  if (mkdtemp(folder.data()) == nullptr) return EXIT_FAILURE;
  const pid_t child = fork();
  if (child == 0) start_valgrind(folder, arguments);
  int status = -1;
  if (child > 0) waitpid(child, &status, 0);
  std::filesystem::remove_all(folder);
  return WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE;
}

std::uint64_t InstructionCounter::take() {
  static int files = 0;
  CALLGRIND_DUMP_STATS;
  const std::string path = std::string(std::getenv(kFolder)) + "/out." + std::to_string(++files);
  std::ifstream file(path);
  constexpr char kTotals[] = "totals: ";
  std::uint64_t total = 0;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(kTotals)) total = std::stoull(line.substr(sizeof kTotals - 1));
  }
  std::filesystem::remove(path);
  return total;
}

}  // namespace bench
