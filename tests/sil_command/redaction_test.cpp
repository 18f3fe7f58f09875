// What is replaced in a template that strangers see, and what stays.
#include "core/redaction.h"

#include <gtest/gtest.h>

#include "core/load.h"
#include "core/sil_writer.h"

namespace sil {
namespace {

std::string redacted(const std::string &text) {
  Model model = load(text).model.value();
  redact(model);
  return to_sil(model);
}

TEST(Redaction, ReplacesStringsAndReferences) {
  EXPECT_EQ(
      redacted("[kmt_svc_scan S] { string A = x, y; ref_collection B = c; ref_invocation C = S:1; } end"),
      "[kmt_svc_scan S]\n {\n      string A = \"REDACTED\", \"REDACTED\";\n"
      "      ref_collection B = REDACTED;\n      ref_invocation C = REDACTED;\n }\nend\n");
}

TEST(Redaction, LeavesNumbersNamesAndTimes) {
  EXPECT_EQ(redacted("[kmt_svc_scan S] { integer A = 7; enum_sided B = TWO_SIDED; } end"),
            "[kmt_svc_scan S]\n {\n      integer A = 7;\n      enum_sided B = TWO_SIDED;\n }\nend\n");
}

TEST(Redaction, ReplacesTextsBehindStatusesButOverriddenNumbers) {
  EXPECT_EQ(redacted("[kmt_svc_scan S] { integer A = 7; (KMT_STATUS_OVERRIDDEN{5}) string B = x; "
                     "(KMT_STATUS_OVERRIDDEN{y}) } (KMT_STATUS_ERROR{me}) end (KMT_STATUS_ERROR{you})"),
            "[kmt_svc_scan S]\n {\n      integer A = 7;(KMT_STATUS_OVERRIDDEN{5})\n"
            "      string B = \"REDACTED\";(KMT_STATUS_OVERRIDDEN{REDACTED})\n"
            " }(KMT_STATUS_ERROR{REDACTED})\nend(KMT_STATUS_ERROR{REDACTED})\n");
}

TEST(Redaction, ReplacesCommentsAndTheIdentifier) {
  EXPECT_EQ(
      redacted("# me\n< SIL 4.2.00 ASCII me > [kmt_svc_scan S] # mine\nend < /SIL > # my end"),
      "# REDACTED\n< SIL 4.2.00 ASCII REDACTED >\n\n[kmt_svc_scan S]\n # REDACTED\nend\n\n# REDACTED\n\n"
      "< /SIL >\n");
}

}  // namespace
}  // namespace sil
