// What a check finds in every example, decodable and rejected: exactly the lines of findings.txt.
#include <gtest/gtest.h>

#include "sil/source_texts.h"
#include "support/program.h"

namespace jt_test {
namespace {

Lines findings_of(const std::map<std::string, std::string> &texts) {
  Lines lines;
  for (const auto &[name, text] : texts) {
    for (const std::string &finding : findings_in(text)) lines.push_back(name + ":" + finding);
  }
  return lines;
}

// Those of the file, without the lines that begin with "#".
Lines expected_findings(bool in_rejected) {
  Lines lines;
  for (const std::string &line : lines_of(read_whole(JT_SOURCE_DIR "/tests/examples/findings.txt"))) {
    if (!line.empty() && line[0] != '#' && line.starts_with("rejected/") == in_rejected)
      lines.push_back(line);
  }
  return lines;
}

TEST(ExampleFindings, OfDecodableFilesAreThoseOfTheList) {
  EXPECT_EQ(findings_of(decodable_examples()), expected_findings(false));
}

TEST(ExampleFindings, OfRejectedFilesAreThoseOfTheList) {
  EXPECT_EQ(findings_of(rejected_examples()), expected_findings(true));
}

}  // namespace
}  // namespace jt_test
