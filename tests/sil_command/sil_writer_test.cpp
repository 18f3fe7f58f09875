// The text of a template by sil's own writer: where everything stands.
#include "core/sil_writer.h"

#include <gtest/gtest.h>

#include "core/load.h"

namespace sil {
namespace {

std::string written(const std::string &text) { return to_sil(load(text).model.value()); }

TEST(SilWriter, PutsEverythingAtItsColumn) {
  EXPECT_EQ(written("# c\n<? SIL 4.2.00 ASCII x > * integer H = 1; < ? > [kmt_svc_fax F] end < /? >"
                    "[kmt_svc_scan S] # s\nLetter { # i\n* integer A = 1, 2; (KMT_STATUS_IGNORED) string B; }"
                    "(KMT_STATUS_COMPLETED{ok}) { } end < /SIL >"),
            "# c\n"
            "<? SIL 4.2.00 ASCII x >\n"
            "\n"
            "* integer H = 1;\n"
            "\n"
            "< ? >\n"
            "\n"
            "[kmt_svc_fax F]\n"
            "end\n"
            "\n"
            "< /? >\n"
            "\n"
            "[kmt_svc_scan S]\n"
            " # s\n"
            " Letter{\n"
            "      # i\n"
            "    * integer A = 1, 2;(KMT_STATUS_IGNORED)\n"
            "      string B;\n"
            " }(KMT_STATUS_COMPLETED{ok})\n"
            " {\n"
            " }\n"
            "end\n"
            "\n"
            "< /SIL >\n");
}

TEST(SilWriter, BeginsALineWithAValueBehindTheLastColumn) {
  const std::string long_value(30, 'x');
  EXPECT_EQ(written("[kmt_svc_scan S] { string A = " + long_value + "," + long_value + "," + long_value +
                    "; } end"),
            "[kmt_svc_scan S]\n {\n      string A = \"" + long_value + "\", \"" + long_value + "\",\n" +
                std::string(25, ' ') + "\"" + long_value + "\";\n }\nend\n");
}

TEST(SilWriter, PutsTheCommentOfAnAttributeBeforeItsValues) {
  EXPECT_EQ(written("[kmt_svc_scan S] { integer A = # why\n1; integer B # none\n; } end"),
            "[kmt_svc_scan S]\n {\n      integer A =\n" + std::string(25, ' ') + "# why\n" +
                std::string(25, ' ') + "1;\n      integer B\n" + std::string(25, ' ') + "# none\n" +
                std::string(25, ' ') + ";\n }\nend\n");
}

TEST(SilWriter, QuotesStatusesThatAreNoWords) {
  EXPECT_EQ(written("[kmt_svc_scan S] end (\"two words\" {\"}\"})"),
            "[kmt_svc_scan S]\nend(\"two words\"{\"}\"})\n");
}

}  // namespace
}  // namespace sil
