// The code on the pages of the manual is a part of an example: each piece that a page asks for is there,
// between two marks of its name.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "support/program.h"

namespace jt_test {
namespace {

namespace fs = std::filesystem;

struct Snippet {
  std::string file;
  std::string name;
};

std::vector<Snippet> snippets_of_all_pages() {
  static const std::regex kSnippet(R"(\\snippet (\S+) (.+))");
  std::vector<Snippet> snippets;
  for (const fs::directory_entry &entry : fs::directory_iterator(JT_SOURCE_DIR "/docs")) {
    if (entry.path().extension() != ".md") continue;
    for (const std::string &line : lines_of(read_whole(entry.path().string()))) {
      std::smatch match;
      if (std::regex_match(line, match, kSnippet)) snippets.push_back({match[1], match[2]});
    }
  }
  return snippets;
}

TEST(Snippets, StandBetweenTwoMarksOfAnExample) {
  const std::vector<Snippet> snippets = snippets_of_all_pages();
  EXPECT_GE(snippets.size(), 20U);
  for (const Snippet &snippet : snippets) {
    int marks = 0;
    for (const std::string &line : lines_of(read_whole(JT_SOURCE_DIR "/examples/" + snippet.file))) {
      if (line.find("[" + snippet.name + "]") != std::string::npos) ++marks;
    }
    EXPECT_EQ(marks, 2) << snippet.file << ": " << snippet.name;
  }
}

}  // namespace
}  // namespace jt_test
