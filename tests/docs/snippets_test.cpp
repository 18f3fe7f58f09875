// The code on the pages of the manual is a part of an example: each piece that a page asks for is there,
// between two marks of its name. Sphinx itself finds an example that is missing.
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

// A page names the file in the line of the directive, and behind it where the piece starts and ends.
std::vector<Snippet> snippets_of_all_pages() {
  static const std::regex kSnippet(
      R"re(```\{literalinclude\} /examples/(\S+)\n:language: \S+\n:start-after: "\[(.+)\]"\n:end-before: "\[(.+)\]"\n)re");
  std::vector<Snippet> snippets;
  for (const fs::directory_entry &entry : fs::directory_iterator(JT_SOURCE_DIR "/docs")) {
    if (entry.path().extension() != ".md") continue;
    const std::string page = read_whole(entry.path().string());
    for (std::sregex_iterator at(page.begin(), page.end(), kSnippet), end; at != end; ++at) {
      EXPECT_EQ((*at)[2], (*at)[3]);
      snippets.push_back({(*at)[1], (*at)[2]});
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
