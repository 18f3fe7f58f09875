// The page of findings: a section for each, made of the table whose facts tests/sil_command/finding_table_test.cpp
// holds against the library.
#include "findings.h"

#include <gtest/gtest.h>

#include <string>

#include "support/program.h"

namespace jt_docs {
namespace {

TEST(Findings, ASectionHasMeaningFileAndCure) {
  const sil::FindingPage page = {"name-odd", sil::Severity::kLoss, "A [name] is odd.",
                                 "[ service odd ]\nend\n", "Write \"*\"."};
  EXPECT_EQ(write_finding(page),
            "## name-odd\n"
            "\n"
            "**loss.** A \\[name\\] is odd.\n"
            "\n"
            "```text\n"
            "[ service odd ]\n"
            "end\n"
            "```\n"
            "\n"
            "**What to do:** Write \"\\*\".\n"
            "\n");
}

TEST(Findings, ASectionWithoutAFileHasNoBlock) {
  EXPECT_EQ(write_finding({"memory", sil::Severity::kError, "None left.", "", "Free some."}),
            "## memory\n\n**error.** None left.\n\n**What to do:** Free some.\n\n");
}

TEST(Findings, AByteOrderMarkIsShown) {
  const sil::FindingPage page = {"text-bom", sil::Severity::kError, "A mark.", "\xEF\xBB\xBF[\n",
                                 "Remove it."};
  EXPECT_NE(write_finding(page).find("```text\n\\xEF\\xBB\\xBF[\n```"), std::string::npos);
}

TEST(Findings, ThePageHasAllSections) {
  std::size_t sections = 0;
  for (const std::string &line : jt_test::lines_of(write_findings()))
    sections += line.starts_with("## ") ? 1 : 0;
  EXPECT_EQ(sections, 35U);
}

}  // namespace
}  // namespace jt_docs
