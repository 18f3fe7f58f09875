// The page of findings: it has every code of the library, in its order and as bad as the library says, and each
// file that is said to show a finding does.
#include "findings.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "jt.h"
#include "sil/findings.h"
#include "support/program.h"

namespace jt_docs {
namespace {

std::set<std::string> findings_in(std::string_view text) {
  std::set<std::string> found;
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = &found;
  listener.finding = [](void *context, const jt_finding *finding) {
    static_cast<std::set<std::string> *>(context)->insert(jt_finding_name(finding->code));
    return int32_t{0};
  };
  jt_parser_space *const space = jt_open_parsing_utility("docs");
  jt_check_source(space, text.data(), text.size(), nullptr, &listener);
  jt_close_parsing_utility(space);
  return found;
}

TEST(Findings, EveryCodeHasASectionInTheOrderOfTheLibrary) {
  std::int32_t code = 0;
  for (const sil::FindingPage &page : sil::finding_pages()) {
    ASSERT_NE(jt_finding_name(code), nullptr) << page.code;
    EXPECT_EQ(page.code, jt_finding_name(code++));
  }
  EXPECT_EQ(jt_finding_name(code), nullptr);
}

TEST(Findings, AreAsBadAsTheLibrarySays) {
  std::int32_t code = 0;
  for (const sil::FindingPage &page : sil::finding_pages())
    EXPECT_EQ(static_cast<std::int32_t>(page.severity), jt_core::facts_of_code(code++).severity) << page.code;
}

// Those of `sil` are found by the command alone.
TEST(Findings, EachFileShowsJustWhatItIsSaidToShow) {
  for (const sil::FindingPage &page : sil::finding_pages()) {
    if (page.shows.empty() || page.code == "ignore-unused") continue;
    EXPECT_EQ(findings_in(page.shows), std::set<std::string>{std::string(page.code)}) << page.code;
  }
}

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
