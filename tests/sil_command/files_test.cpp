// Finding, reading and working side by side.
#include "files.h"

#include <atomic>
#include <thread>

#include "support/program.h"

namespace sil {
namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
 protected:
  std::string put(const std::string &name, const std::string &text = "") const {
    fs::create_directories(fs::path(scratch_.file(name)).parent_path());
    return scratch_.write(name, text);
  }

  // Paths below the folder of the test, with what is wrong with them.
  std::vector<std::string> found(const std::vector<std::string> &operands) const {
    std::vector<std::string> names;
    for (const FoundFile &file : find_files(operands)) {
      const std::string name = fs::path(file.path).lexically_relative(scratch_.file("")).native();
      names.push_back(file.problem.empty() ? name : name + ": " + file.problem);
    }
    return names;
  }

  jt_test::ScratchDirectory scratch_;
};

using Names = std::vector<std::string>;

TEST_F(Files, OfAFolderAreThoseOfSilInTheOrderOfTheirNames) {
  for (const char *name : {"in/b.sil", "in/a.sil", "in/a/z.sil", "in/c.txt", "in/sil"}) put(name);
  EXPECT_EQ(found({scratch_.file("in")}), (Names{"in/a/z.sil", "in/a.sil", "in/b.sil"}));
}

TEST_F(Files, LeaveOutHiddenEntriesAndLinkedFolders) {
  for (const char *name : {"in/a.sil", "in/.b.sil", "in/.c/d.sil", "else/e.sil"}) put(name);
  fs::create_directory_symlink("../else", scratch_.file("in/linked"));
  fs::create_symlink("../else/e.sil", scratch_.file("in/f.sil"));
  EXPECT_EQ(found({scratch_.file("in")}), (Names{"in/a.sil", "in/f.sil"}));
}

TEST_F(Files, ThatAreNamedAreTakenWhateverTheirNames) {
  put("in/.b.txt");
  EXPECT_EQ(found({scratch_.file("in/.b.txt"), scratch_.file("missing")}), (Names{"in/.b.txt", "missing"}));
}

TEST_F(Files, OfAFolderWithoutAnyAreAProblem) {
  fs::create_directory(scratch_.file("empty"));
  EXPECT_EQ(found({scratch_.file("empty")}), Names{"empty: no file *.sil in this folder"});
}

TEST_F(Files, AreReadWhole) {
  const std::string text(300000, 'x');
  EXPECT_EQ(read_file(put("a.sil", text), {}).text, text);
}

TEST_F(Files, ThatCannotBeReadSayWhy) {
  EXPECT_EQ(read_file(scratch_.file("missing"), {}).problem, "No such file or directory");
  EXPECT_EQ(read_file(scratch_.file(""), {}).problem, "Is a directory");
}

TEST_F(Files, GiveTheirResultsInTheirOrderHoweverLongEachTakes) {
  Arguments arguments;
  for (char name = 'a'; name <= 'z'; ++name)
    arguments.operands.push_back(put(std::string(1, name) + ".sil", std::string(1, name)));
  std::string order;
  Output output("never");
  const ExitStatus status = for_each_file(arguments, output, [&order](const File &file) {
    std::this_thread::sleep_for(std::chrono::milliseconds(file.text == "a" ? 50 : 0));
    FileResult result;
    result.status = file.text == "m" ? kFindings : kFine;
    result.afterwards = [&order, text = file.text](Output &) {
      order += text;
      return kFine;
    };
    return result;
  });
  EXPECT_EQ(order, "abcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ(status, kFindings);
}

TEST_F(Files, AreNotReadFarAhead) {
  Arguments arguments;
  for (int i = 0; i < 500; ++i) arguments.operands.push_back(put(std::to_string(i) + ".sil"));
  std::atomic<int> begun = 0;
  int done = 0;
  int furthest = 0;
  Output output("never");
  for_each_file(arguments, output, [&](const File &) {
    ++begun;
    FileResult result;
    result.afterwards = [&](Output &) {
      furthest = std::max(furthest, begun.load() - done++);
      return kFine;
    };
    return result;
  });
  EXPECT_EQ(done, 500);
  EXPECT_LE(furthest, static_cast<int>(2 * std::max(1U, std::thread::hardware_concurrency())) + 1);
}

}  // namespace
}  // namespace sil
