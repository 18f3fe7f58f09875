// Comments that hide findings: what they cover, and that a new layout does not change it.
#include "core/suppressions.h"

#include <gtest/gtest.h>

#include "core/layout.h"

namespace sil {
namespace {

// The codes that are left but notes, with the text at each.
std::string visible(std::string_view text, bool is_strict = false) {
  Document document = read_document(text);
  hide_suppressed(document, is_strict);
  std::string said;
  for (const SourceFinding &finding : document.findings)
    if (finding.severity != JT_SEVERITY_NOTE)
      said.append(jt_finding_name(finding.code))
          .append(" ")
          .append(document.piece(finding.range))
          .append("\n");
  return said;
}

// The same before and after the text is laid out.
std::string visible_in_each_layout(std::string_view text) {
  const std::string before = visible(text);
  const LaidOut laid_out = lay_out(read_document(text));
  EXPECT_EQ(laid_out.result, LaidOut::Result::kDone) << text;
  EXPECT_EQ(visible(laid_out.text), before) << laid_out.text;
  return before;
}

constexpr char kBoth[] = "value-malformed x\nvalue-malformed y\n";

std::string in_scan(const std::string &attributes) {
  return "[kmt_svc_scan S]\n{\n" + attributes + "\n}\nend\n";
}

TEST(Suppression, IsNeeded) {
  EXPECT_EQ(visible_in_each_layout(in_scan("integer A = x;\ninteger B = y;")), kBoth);
}

TEST(Suppression, CoversTheStatementThatItStandsAbove) {
  EXPECT_EQ(visible_in_each_layout(in_scan("# sil: ignore value-malformed\ninteger A = x;\ninteger B = y;")),
            "value-malformed y\n");
  EXPECT_EQ(visible_in_each_layout(
                in_scan("# sil: ignore value-malformed\n\n# why\ninteger A =\n\n x; integer B = y;")),
            "value-malformed y\n");
}

TEST(Suppression, CoversTheStatementThatItStandsIn) {
  EXPECT_EQ(visible_in_each_layout(in_scan("integer A = # sil: ignore value-malformed\nx;\ninteger B = y;")),
            "value-malformed y\n");
  EXPECT_EQ(
      visible_in_each_layout(in_scan("integer A = x\n# sil: ignore value-malformed\n;\ninteger B = y;")),
      "value-malformed y\n");
}

TEST(Suppression, CoversTheStatementThatItStandsBehind) {
  EXPECT_EQ(visible_in_each_layout(in_scan("integer A = x; # sil: ignore value-malformed\ninteger B = y;")),
            "value-malformed y\n");
  EXPECT_EQ(visible_in_each_layout(in_scan("integer A = x; integer B = y; # sil: ignore value-malformed")),
            "value-malformed x\n");
}

TEST(Suppression, CoversAWholeBlock) {
  const std::string body = "{\ninteger A = x;\ninteger B = y;\n}\n";
  EXPECT_EQ(visible_in_each_layout("# sil: ignore value-malformed\n[kmt_svc_scan S]\n" + body + "end\n"), "");
  EXPECT_EQ(visible_in_each_layout("[kmt_svc_scan S] # sil: ignore value-malformed\n" + body + "end\n"), "");
  EXPECT_EQ(visible_in_each_layout("[kmt_svc_scan S]\n" + body + "end # sil: ignore value-malformed\n"), "");
  EXPECT_EQ(
      visible_in_each_layout("[kmt_svc_scan S]\n# sil: ignore value-malformed\n" + body + body + "end\n"),
      kBoth);
}

TEST(Suppression, TakesSeveralCodes) {
  EXPECT_EQ(visible_in_each_layout(
                in_scan("# sil: ignore value-malformed, value-saturated\ninteger A = x, 99999999999;")),
            "");
}

TEST(Suppression, OfNothingIsToldItself) {
  EXPECT_EQ(visible_in_each_layout(in_scan("# sil: ignore value-tail\ninteger A = x;")),
            "ignore-unused value-tail\nvalue-malformed x\n");
  EXPECT_EQ(visible_in_each_layout(in_scan("integer A; # sil: ignore")), "ignore-unused # sil: ignore\n");
  EXPECT_EQ(visible_in_each_layout(in_scan("integer A; # sil: ignore value-tial")),
            "ignore-unused value-tial\n");
  EXPECT_EQ(visible_in_each_layout(in_scan("integer A;") + "# sil: ignore value-tail\n"),
            "ignore-unused value-tail\n");
}

TEST(Suppression, CannotHideAnError) {
  EXPECT_EQ(visible_in_each_layout(in_scan("integer A; integer A; # sil: ignore name-duplicate")),
            "name-duplicate A\nignore-unused name-duplicate\n");
}

TEST(Suppression, CannotHideALossWhereThatIsAnError) {
  EXPECT_EQ(visible(in_scan("integer A = x; # sil: ignore value-malformed"), true),
            "value-malformed x\nignore-unused value-malformed\n");
}

TEST(Suppression, IsNoOtherComment) {
  EXPECT_EQ(visible_in_each_layout(in_scan("integer A; # sil ignore value-tail\n# silly: ignore value-tail")),
            "");
}

}  // namespace
}  // namespace sil
