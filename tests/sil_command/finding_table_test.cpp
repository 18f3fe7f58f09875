// The pages of findings: the library's own codes, and texts in which it finds them.
#include "core/finding_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "core/text.h"
#include "jt.h"
#include "sil/findings.h"

namespace sil {
namespace {

TEST(FindingPages, AreFoundByTheirCodesWhateverTheCase) {
  ASSERT_NE(find_page("name-duplicate"), nullptr);
  EXPECT_EQ(find_page("Name-Duplicate"), find_page("name-duplicate"));
  EXPECT_EQ(find_page("name"), nullptr);
}

TEST(FindingPages, SayMeaningAndCureInLinesThatATerminalShows) {
  for (const FindingPage &page : finding_pages()) {
    EXPECT_FALSE(page.meaning.empty()) << page.code;
    EXPECT_FALSE(page.mend.empty()) << page.code;
    for_each_line(text_of_page(page),
                  [&page](std::string_view line) { EXPECT_LE(line.size(), 110U) << page.code; });
  }
}

TEST(FindingPages, HaveTheCodesOfTheLibraryInItsOrder) {
  std::int32_t code = 0;
  for (const FindingPage &page : finding_pages()) {
    ASSERT_NE(jt_finding_name(code), nullptr) << page.code;
    EXPECT_EQ(page.code, jt_finding_name(code));
    ++code;
  }
  EXPECT_EQ(jt_finding_name(code), nullptr);
}

TEST(FindingPages, HaveTheSeveritiesOfTheLibrary) {
  std::int32_t code = 0;
  for (const FindingPage &page : finding_pages())
    EXPECT_EQ(static_cast<std::int32_t>(page.severity), jt_core::facts_of_code(code++).severity) << page.code;
  EXPECT_EQ(static_cast<std::int32_t>(Severity::kError), JT_SEVERITY_ERROR);
  EXPECT_EQ(static_cast<std::int32_t>(Severity::kLoss), JT_SEVERITY_LOSS);
  EXPECT_EQ(static_cast<std::int32_t>(Severity::kWarning), JT_SEVERITY_WARNING);
  EXPECT_EQ(static_cast<std::int32_t>(Severity::kNote), JT_SEVERITY_NOTE);
}

// A name that is unsafe is one of a template that a program has built, memory and limits are the reader's; a text that
// is too long or has a NUL in it cannot be shown.
TEST(FindingPages, HaveATextUnlessNoneCanShowTheFinding) {
  constexpr std::array<std::string_view, 5> kWithoutText = {"memory", "limit", "name-unsafe", "syntax-length",
                                                            "syntax-nul"};
  for (const FindingPage &page : finding_pages()) {
    const bool has_none =
        std::find(kWithoutText.begin(), kWithoutText.end(), page.code) != kWithoutText.end();
    EXPECT_EQ(page.shows.empty(), has_none) << page.code;
  }
}

struct Told {
  std::string code;
  std::int32_t severity;
};

std::int32_t keep(void *told, const jt_finding *finding) {
  static_cast<std::vector<Told> *>(told)->push_back({jt_finding_name(finding->code), finding->severity});
  return 0;
}

std::vector<Told> findings_of(std::string_view text) {
  std::vector<Told> told;
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = &told;
  listener.finding = keep;
  jt_parser_space *const space = jt_open_parsing_utility("pages");
  jt_check_source(space, text.data(), text.size(), nullptr, &listener);
  jt_close_parsing_utility(space);
  return told;
}

// Where the same finding is told twice, for two words, that is one thing to explain.
void expect_only(std::string_view text, std::string_view code, Severity severity) {
  const std::vector<Told> told = findings_of(text);
  EXPECT_FALSE(told.empty()) << code;
  for (const Told &finding : told) {
    EXPECT_EQ(finding.code, code);
    EXPECT_EQ(finding.severity, static_cast<std::int32_t>(severity)) << code;
  }
}

// Suppressions are sil's own: the library finds nothing in the text of that page.
TEST(FindingPages, ShowATextInWhichTheLibraryFindsThatAndNothingElse) {
  for (const FindingPage &page : finding_pages())
    if (!page.shows.empty() && page.code != "ignore-unused")
      expect_only(page.shows, page.code, page.severity);
  EXPECT_TRUE(findings_of(find_page("ignore-unused")->shows).empty());
}

TEST(FindingPages, AreThereForATextThatCannotBeShown) {
  expect_only("#" + std::string(1023, '-') + "\n[kmt_svc_scan Scanner] end", "syntax-length",
              Severity::kError);
  expect_only(std::string("[kmt_svc_scan\0Scanner] end", 26), "syntax-nul", Severity::kError);
}

TEST(FindingPages, AreLaidOutAsPlainText) {
  EXPECT_EQ(text_of_page(*find_page("value-empty-number")),
            "value-empty-number (warning)\n"
            "\n"
            "A number has no digits, and is read as 0.\n"
            "\n"
            "For example:\n"
            "\n"
            "    [kmt_svc_scan Scanner]\n"
            "    {\n"
            "      integer Copies = -;\n"
            "    }\n"
            "    end\n"
            "\n"
            "Write the number, be it 0.\n");
}

}  // namespace
}  // namespace sil
