// The model of a text: that it loses nothing, and what belongs to what.
#include "core/document.h"

#include "support/program.h"

namespace sil {
namespace {

constexpr char kJob[] = "# top\n[kmt_svc_scan S] { * integer A = 1; # c\n integer B; (X) } end";

std::string kind_and_text(const Document &document, const SourceElement &element) {
  return std::to_string(element.kind) + " " + std::string(document.piece(element.range));
}

TEST(Document, HoldsTheTokensInOrder) {
  const Document document = read_document(kJob);
  std::string tokens;
  for (const SourceToken &token : document.tokens) tokens += std::string(document.piece(token)) + "|";
  EXPECT_EQ(tokens, "# top|[|kmt_svc_scan|S|]|{|*|integer|A|=|1|;|# c|integer|B|;|(|X|)|}|end|");
}

TEST(Document, HoldsElementsAsATree) {
  const Document document = read_document(kJob);
  ASSERT_EQ(document.elements.size(), 6U);
  EXPECT_EQ(document.elements[0].parent, kNowhere);
  EXPECT_EQ(document.elements[1].parent, 0U);
  EXPECT_EQ(kind_and_text(document, document.elements[2]), "5 * integer A = 1;");
  EXPECT_EQ(kind_and_text(document, document.elements[3]), "6 1");
  EXPECT_EQ(document.elements[3].parent, 2U);
  EXPECT_EQ(kind_and_text(document, document.elements[4]), "5 integer B; (X)");
  EXPECT_EQ(kind_and_text(document, document.elements[5]), "7 (X)");
}

TEST(Document, CountsTheTokensAndDescendantsOfAnElement) {
  const Document document = read_document(kJob);
  const SourceElement &first = document.elements[2];
  EXPECT_EQ(first.first_token, 6U);
  EXPECT_EQ(first.behind_last_token, 12U);
  EXPECT_EQ(first.behind_last_descendant, 4U);
}

TEST(Document, KeepsFindings) {
  const Document document = read_document("[kmt_svc_scan S]{integer A; integer a;}end");
  ASSERT_EQ(document.findings.size(), 1U);
  EXPECT_EQ(document.findings[0].code, JT_FINDING_NAME_DUPLICATE);
  EXPECT_EQ(document.piece(*document.findings[0].second), "A");
  EXPECT_FALSE(document.decodes);
}

TEST(Document, IsEmptyForAnEmptyText) {
  const Document document = read_document({});
  EXPECT_TRUE(document.tokens.empty());
  EXPECT_FALSE(document.decodes);
}

TEST(Document, KnowsTheSameTokens) {
  const Document document = read_document(kJob);
  EXPECT_TRUE(has_same_tokens(document, "# top\n[kmt_svc_scan S]\n{*integer A=1;# c\ninteger B;(X)}end\n"));
  EXPECT_FALSE(has_same_tokens(document, "# top\n[kmt_svc_scan S]\n{*integer A=1;# C\ninteger B;(X)}end\n"));
  EXPECT_FALSE(has_same_tokens(document, "# top\n[kmt_svc_scan S]\n{*integer A=1;# c\ninteger B;(X)}\n"));
  EXPECT_FALSE(has_same_tokens(document, std::string(kJob) + " # more"));
}

TEST(Lines, EndAtEachKindOfLineEnd) {
  const Lines lines("a\nbc\r\n\rd");
  ASSERT_EQ(lines.count(), 4U);
  EXPECT_EQ(lines.line(1), "a");
  EXPECT_EQ(lines.line(2), "bc");
  EXPECT_EQ(lines.line(3), "");
  EXPECT_EQ(lines.line(4), "d");
}

TEST(Lines, TellTheLineAndColumnOfAnOffset) {
  const Lines lines("a\nbc\r\nd");
  EXPECT_EQ(lines.position_of(0).line, 1U);
  EXPECT_EQ(lines.position_of(3).line, 2U);
  EXPECT_EQ(lines.position_of(3).column, 2U);
  EXPECT_EQ(lines.position_of(7).line, 3U);
  EXPECT_EQ(lines.position_of(7).column, 2U);
}

TEST(CountLineEnds, TakesCarriageReturnAndLineFeedForOne) {
  EXPECT_EQ(count_line_ends("\r\n \n\r x"), 3U);
  EXPECT_EQ(count_line_ends(" \f"), 0U);
}

}  // namespace
}  // namespace sil
