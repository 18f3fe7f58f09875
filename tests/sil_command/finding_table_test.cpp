// The pages of findings.
#include "core/finding_table.h"

#include <gtest/gtest.h>

#include "core/text.h"

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

TEST(FindingPages, HaveAFileBesidePrograms) {
  for (const FindingPage &page : finding_pages()) {
    const bool needs_none = page.code.ends_with("-unsafe") || page.code == "memory" || page.code == "limit" ||
                            page.code == "syntax-length" || page.code == "syntax-nul";
    EXPECT_EQ(page.shows.empty(), needs_none) << page.code;
  }
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
