// Runs a program to its end and keeps what it wrote: for tests of tools, examples and of what was built.
#ifndef JT_TESTS_SUPPORT_PROGRAM_H
#define JT_TESTS_SUPPORT_PROGRAM_H

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jt_test {

// A fresh directory that goes with all its files when the test is over.
class ScratchDirectory {
 public:
  ScratchDirectory() : path_(std::filesystem::path(::testing::TempDir()) / "jt_test_XXXXXX") {
    std::string name = path_.string();
    EXPECT_NE(mkdtemp(name.data()), nullptr) << name;
    path_ = name;
  }
  ~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchDirectory(const ScratchDirectory &) = delete;
  ScratchDirectory &operator=(const ScratchDirectory &) = delete;

  std::string file(std::string_view name) const { return (path_ / name).string(); }

  std::string write(std::string_view name, std::string_view bytes) const {
    std::ofstream(file(name), std::ios::binary) << bytes;
    return file(name);
  }

 private:
  std::filesystem::path path_;
};

inline std::string read_whole(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

struct ProgramRun {
  int exit_status = -1;  // -1: not started or ended by a signal
  std::string out;
  std::string err;
};

// The first word names the program, by its path or to be found along PATH.
inline ProgramRun run_program(std::vector<std::string> words) {
  const ScratchDirectory scratch;
  const std::array<std::string, 2> outputs = {scratch.file("out"), scratch.file("err")};
  std::vector<char *> arguments;
  for (std::string &word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  constexpr int kWritten = O_WRONLY | O_CREAT | O_TRUNC;
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, outputs[0].c_str(), kWritten, 0600);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, outputs[1].c_str(), kWritten, 0600);
  pid_t process = 0;
  const int failure = posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  EXPECT_EQ(failure, 0) << "cannot start " << words[0];
  if (failure != 0) return {};

  int status = 0;
  waitpid(process, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read_whole(outputs[0]), read_whole(outputs[1])};
}

// The same for a program that was built with the tests: its machine may be emulated here.
inline ProgramRun run_built_program(std::vector<std::string> words) {
  std::istringstream emulator(JT_EMULATOR);
  words.insert(words.begin(), std::istream_iterator<std::string>(emulator), {});
  return run_program(std::move(words));
}

// The lines of a text without their ends.
inline std::vector<std::string> lines_of(const std::string &text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return lines;
}

}  // namespace jt_test

#endif
