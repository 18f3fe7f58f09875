// `sil` as a process among others: interrupted while it writes, at work for longer than a second on a terminal, over
// thousands of files.
#include <signal.h>

#include <chrono>
#include <thread>

#include "sil_command/shell.h"

namespace jt_test {
namespace {

namespace fs = std::filesystem;

const std::string kOld = "[kmt_svc_scan S] { integer Copies = 2; } end\n";
const std::string kNew = "[kmt_svc_scan S]\n {\n      integer Copies = 2;\n }\nend\n";

std::string number_of(int number) {
  const std::string digits = std::to_string(number);
  return std::string(5 - digits.size(), '0') + digits;
}

// ---- Interrupted ------------------------------------------------------------------------------------------

pid_t start_writing(const std::string &folder) {
  const pid_t process = fork();
  if (process == 0) {
    signal(SIGINT, SIG_DFL);
    const std::string command = "exec " + sil_command() + " format --write " + folder;
    execlp("sh", "sh", "-c", command.c_str(), nullptr);
    _exit(99);
  }
  return process;
}

// How many files of a folder have the new text. All others have the old one, and there are no others.
int count_new(const std::string &folder) {
  int count = 0;
  for (const fs::directory_entry &entry : fs::directory_iterator(folder)) {
    const std::string text = read_whole(entry.path().string());
    EXPECT_TRUE(text == kOld || text == kNew) << entry.path() << ": " << text;
    EXPECT_EQ(entry.path().extension(), ".sil") << entry.path();
    count += text == kNew ? 1 : 0;
  }
  return count;
}

TEST(Interrupted, WritingLeavesEachFileWhole) {
  constexpr int kFiles = 200;
  int interrupted = 0;
  // An emulated program takes ten times as long to begin.
  for (int delay = 2; delay <= 2000 && (delay <= 38 || interrupted == 0); delay += delay < 38 ? 4 : 100) {
    const ScratchDirectory folder;
    for (int i = 0; i < kFiles; ++i) folder.write(number_of(i) + ".sil", kOld);
    const pid_t process = start_writing(folder.file("."));
    std::this_thread::sleep_for(std::chrono::milliseconds(delay));
    kill(process, SIGINT);
    int ended = 0;
    waitpid(process, &ended, 0);
    EXPECT_TRUE(WIFSIGNALED(ended) ? WTERMSIG(ended) == SIGINT : WEXITSTATUS(ended) == 0) << ended;
    const int count = count_new(folder.file("."));
    if (count > 0 && count < kFiles) ++interrupted;
  }
  EXPECT_GE(interrupted, 1);
}

// ---- A terminal -------------------------------------------------------------------------------------------

// The second file is a pipe, which holds the work up.
std::string on_slow_files(const std::string &before, const std::string &behind) {
  return "mkfifo slow.sil; (sleep 1.6; cat fast.sil >slow.sil) & " + before + sil_command() +
         " check fast.sil slow.sil" + behind + "; wait";
}

TEST(Progress, StandsOnATerminalAfterASecondAndGoesAway) {
  const ScratchDirectory folder;
  folder.write("fast.sil", kOld);
  const ProgramRun run =
      run_in_shell(folder.file("."), on_slow_files("script -qec '", "' /dev/null </dev/null"));
  EXPECT_NE(run.out.find("\r1 of 2 files"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("files\r\x1b[Kno findings in 2 files"), std::string::npos) << run.out;
}

TEST(Progress, IsNotThereElsewhere) {
  const ScratchDirectory folder;
  folder.write("fast.sil", kOld);
  const ProgramRun run = run_in_shell(folder.file("."), on_slow_files("", ""));
  EXPECT_EQ(run.out + run.err, "no findings in 2 files\n");
}

// ---- Many files -------------------------------------------------------------------------------------------

TEST(TenThousandFiles, AreCheckedAndToldInTheirOrder) {
  constexpr int kFiles = 10000;
  const ScratchDirectory folder;
  std::string expected;
  for (int i = 0; i < kFiles; ++i) {
    const bool is_broken = i % 1000 == 7;
    const std::string name = number_of(i) + ".sil";
    folder.write(name, is_broken ? "[kmt_svc_scan S] { integer Copies 2; } end\n" : kOld);
    if (is_broken)
      expected +=
          "./" + name + ":1:34: error: expected `=` or `;` behind `Copies`, found `2` [syntax-expected]\n";
  }
  const ProgramRun run = run_in_shell(folder.file("."), "sil check --format short .");
  EXPECT_EQ(run.out, expected);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.exit_status, 1);
}

}  // namespace
}  // namespace jt_test
