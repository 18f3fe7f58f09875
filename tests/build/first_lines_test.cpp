// The first lines of the library's files: each says what the file is for and names a test that proves it. A
// header and its implementation may do so once, in either.
#include <regex>
#include <set>

#include "support/program.h"

namespace jt_test {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = JT_SOURCE_DIR;

std::vector<fs::path> source_files() {
  std::vector<fs::path> files;
  for (const fs::directory_entry &entry : fs::recursive_directory_iterator(kRoot / "src")) {
    const fs::path ending = entry.path().extension();
    if (ending == ".h" || ending == ".cpp") files.push_back(entry.path());
  }
  return files;
}

// The comment with which a file begins; empty where it begins with something else or is not there.
std::string first_lines_of(const fs::path &file) {
  std::string comment;
  if (!fs::exists(file)) return comment;
  for (const std::string &line : lines_of(read_whole(file.string()))) {
    if (!line.starts_with("//")) break;
    comment += line + "\n";
  }
  return comment;
}

// Whatever a comment names below tests/.
std::set<std::string> tests_in(const std::string &comment) {
  static const std::regex kTest(R"re(\btests/[a-z_]+/\w+\.\w+)re");
  std::set<std::string> tests;
  for (std::sregex_iterator match(comment.begin(), comment.end(), kTest), end; match != end; ++match)
    tests.insert(match->str());
  return tests;
}

// The first lines of a file and of its counterpart.
std::string first_lines_of_pair(fs::path file) {
  return first_lines_of(file.replace_extension(".h")) + first_lines_of(file.replace_extension(".cpp"));
}

TEST(FirstLines, AreThere) {
  EXPECT_GT(source_files().size(), 50U);
  for (const fs::path &file : source_files()) EXPECT_NE(first_lines_of_pair(file), "") << file;
}

TEST(FirstLines, NameATest) {
  for (const fs::path &file : source_files()) {
    const std::set<std::string> tests = tests_in(first_lines_of_pair(file));
    EXPECT_TRUE(std::any_of(tests.begin(), tests.end(), [](const std::string &test) {
      return test.ends_with("_test.cpp");
    })) << file;
  }
}

TEST(FirstLines, NameOnlyTestsThatExist) {
  for (const fs::path &file : source_files()) {
    for (const std::string &test : tests_in(first_lines_of(file)))
      EXPECT_TRUE(fs::is_regular_file(kRoot / test)) << file << " names " << test;
  }
}

}  // namespace
}  // namespace jt_test
