// What README.md shows is what there is: the clients in its fenced blocks are examples/client.c and its
// counterpart in C++, the message is one that a client prints, its figures are no better than those that were
// measured, and every file and folder that it leads to exists.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "support/program.h"

namespace jt_test {
namespace {

const std::string kRoot = JT_SOURCE_DIR "/";

// The text between the first fence of that language and the fence that ends it.
std::string fenced_block(const std::string &text, const std::string &language) {
  const std::string fence = "\n```" + language + "\n";
  const std::size_t found = text.find(fence);
  if (found == std::string::npos) return "(no fence)";
  const std::size_t begin = found + fence.size();
  const std::size_t end = text.find("\n```\n", begin);
  return end == std::string::npos ? "(no end)" : text.substr(begin, end + 1 - begin);
}

// The targets of the links that stay inside the repository.
std::vector<std::string> links_of(const std::string &text) {
  std::vector<std::string> links;
  for (std::size_t at = text.find("]("); at != std::string::npos; at = text.find("](", at + 2)) {
    const std::string link = text.substr(at + 2, text.find(')', at) - at - 2);
    if (link.find("://") == std::string::npos) links.push_back(link);
  }
  return links;
}

TEST(Readme, ShowsTheClientOfTheExamples) {
  EXPECT_EQ(fenced_block(read_whole(kRoot + "README.md"), "c"), read_whole(kRoot + "examples/client.c"));
}

TEST(Readme, ShowsTheSameClientInCpp) {
  EXPECT_EQ(fenced_block(read_whole(kRoot + "README.md"), "cpp"),
            read_whole(kRoot + "examples/cpp/client.cpp"));
}

TEST(Readme, ShowsAClientOfSixteenLines) {
  EXPECT_EQ(lines_of(read_whole(kRoot + "examples/client.c")).size(), 16U);
}

TEST(Readme, ShowsAMessageAsItIs) {
  const ProgramRun run = run_built_program({JT_EXAMPLES_BIN_DIR "/client", "[ kmt_svc_coffee Kitchen ] end"});
  EXPECT_EQ(run.out, "SYNTAX ERROR: while parsing for \"  TYPE  \" at:kmt_svc_coffee Kitchen ] end ...\n");
  EXPECT_NE(read_whole(kRoot + "README.md").find("  " + run.out), std::string::npos);
}

// The rows of jt in the table of times: name, parse, save, destroy, two ratios, heap; of an attribute, but
// for the long list.
TEST(Readme, PromisesNoMoreThanWasMeasured) {
  static const std::regex kJt(R"(\| ([a-z, ]+): jt \| ([\d.]+) \|(?: [\d.]+ \|){2} 1 \| 1 \| (\d+) \|.*)");
  int rows = 0;
  for (const std::string &line : lines_of(read_whole(kRoot + "docs/performance.md"))) {
    std::smatch match;
    if (!std::regex_match(line, match, kJt)) continue;
    ++rows;
    EXPECT_LT(std::stod(match[3]), 600) << line;
    if (match[1] == "typical") {
      EXPECT_LT(std::stod(match[2]), 150) << line;
    }
  }
  EXPECT_EQ(rows, 6);
}

TEST(Readme, LeadsToWhatExists) {
  const std::vector<std::string> links = links_of(read_whole(kRoot + "README.md"));
  EXPECT_GE(links.size(), 4U);
  for (const std::string &link : links) EXPECT_TRUE(std::filesystem::exists(kRoot + link)) << link;
}

}  // namespace
}  // namespace jt_test
