// The pictures of the decoder's machines: every state and every row of the tables is in them, with its tokens
// and with what the decoder reports.
#include "machines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "support/program.h"

namespace jt_docs {
namespace {

using jt_core::State;
using jt_core::TokenKind;

const Drawing &drawing_of(std::string_view name) {
  return *std::find_if(kDrawings.begin(), kDrawings.end(),
                       [name](const Drawing &drawing) { return drawing.name == name; });
}

std::size_t count_lines_with(const std::string &text, const std::string &part) {
  const std::vector<std::string> lines = jt_test::lines_of(text);
  return static_cast<std::size_t>(std::count_if(lines.begin(), lines.end(), [&](const std::string &line) {
    return line.find(part) != std::string::npos;
  }));
}

bool is_drawn(const std::string &name, const std::string &part) {
  return count_lines_with(draw(drawing_of(name)), part) == 1;
}

TEST(Machines, EveryStateOfTheDecoderIsDrawn) {
  std::string pictures;
  for (const Drawing &drawing : kDrawings) pictures += draw(drawing);
  for (std::size_t state = 0; state < jt_core::kStateCount; ++state) {
    std::string name = name_of(static_cast<State>(state));
    for (std::size_t blank = name.find(' '); blank != std::string::npos; blank = name.find(' ', blank)) {
      name.replace(blank, 1, "&#160;");
    }
    EXPECT_GE(count_lines_with(pictures, "<b>" + name + "</b>"), 1U) << name;
  }
}

TEST(Machines, EveryRowIsAnArrow) {
  for (const Drawing &drawing : kDrawings) {
    const std::size_t rows = rows_of(*drawing.machine).size();
    EXPECT_EQ(count_lines_with(draw(drawing), " -> "), rows + 1) << drawing.name;
  }
}

TEST(Machines, TablesHaveAsManyRowsAsTheyAreKnownToHave) {
  EXPECT_EQ(rows_of(jt_core::kHeaderMachine).size(), 11U);
  EXPECT_EQ(rows_of(jt_core::kHeaderAttributesMachine).size(), 23U);
  EXPECT_EQ(rows_of(jt_core::kSectionOpeningMachine).size(), 7U);
  EXPECT_EQ(rows_of(jt_core::kSectionClosingMachine).size(), 5U);
  EXPECT_EQ(rows_of(jt_core::kBodyMachine).size(), 53U);
  EXPECT_EQ(rows_of(jt_core::kEndMarkerMachine).size(), 3U);
}

TEST(Machines, AnArrowLeadsFromStateToStateWithItsTokens) {
  EXPECT_TRUE(is_drawn("body", "  InService -> AfterService [label=<<b>end</b>>];"));
  EXPECT_TRUE(is_drawn("end_marker", "  MarkerEnd -> MarkerRead [label=<<b>&#62;</b>>];"));
}

TEST(Machines, TheEndOfAStatusLeadsToAStandIn) {
  EXPECT_TRUE(is_drawn("body", "  ServiceTextRead -> BetweenServicesAgain [label=<<b>)</b>>];"));
  EXPECT_TRUE(is_drawn("body", "  BetweenServicesAgain [style=\"rounded,dashed\""));
}

TEST(Machines, EveryWordHasAMeaning) {
  for (const Drawing &drawing : kDrawings) {
    for (const jt_core::Row &row : rows_of(*drawing.machine)) {
      if (!jt_core::contains(row.tokens, TokenKind::kWord)) continue;
      EXPECT_NE(meaning_of(row), "") << name_of(row.from) << " -> " << name_of(row.to);
    }
  }
}

TEST(Machines, StatesAreNamedInWords) {
  EXPECT_EQ(name_of(State::kHeaderBegin), "header begin");
  EXPECT_EQ(name_of(State::kAttributeStatusRead), "attribute status read");
}

TEST(Machines, TokensAreShownAsTheyAreWritten) {
  const auto shown = [](jt_core::TokenSet tokens) {
    return tokens_of({State::kHeaderBegin, tokens, nullptr, State::kFinished, jt_core::Role::kPunctuation});
  };
  EXPECT_EQ(shown(jt_core::one_of(TokenKind::kOpenBracket, TokenKind::kLess)), "[ <");
  EXPECT_EQ(shown(jt_core::kWordOrString), "word string");
  EXPECT_EQ(shown(jt_core::one_of(TokenKind::kEnd)), "end");
  EXPECT_EQ(shown(jt_core::kAnyText), "any");
  EXPECT_EQ(shown(jt_core::kAnyToken & ~jt_core::one_of(TokenKind::kCloseBrace)), "any but }");
}

TEST(Machines, StatesShowWhatTheDecoderReports) {
  EXPECT_TRUE(is_drawn("body", "\"{&#160;or&#160;end&#160;or&#160;a&#160;NAME\""));
  EXPECT_TRUE(is_drawn("header", "\"&#160;version&#160;\""));
  EXPECT_TRUE(is_drawn("section", "SYNTAX&#160;ERROR:&#160;Illegal&#160;Block"));
  EXPECT_TRUE(is_drawn("section_end", "SYNTAX&#160;ERROR:&#160;Illegal&#160;Block"));
}

TEST(Machines, AReportThatIsAlwaysTheSameIsNotRepeated) {
  EXPECT_EQ(count_lines_with(draw(drawing_of("header_attributes")), "ERROR"), 0U);
}

TEST(Machines, StatesShowWhereTheTextMayEnd) {
  EXPECT_EQ(count_lines_with(draw(drawing_of("body")), "may&#160;end&#160;here,&#160;without"), 2U);
  EXPECT_EQ(count_lines_with(draw(drawing_of("section")), "may&#160;end"), 0U);
  EXPECT_TRUE(is_drawn("end_marker", ">may&#160;end&#160;here</font>"));
}

TEST(Machines, EveryRowIsALineOfTheTable) {
  for (const Drawing &drawing : kDrawings) {
    EXPECT_EQ(count_lines_with(tabulate(drawing), "| "), rows_of(*drawing.machine).size() + 1)
        << drawing.name;
  }
}

TEST(Machines, TheTableShowsTokensAndWhatTheyAre) {
  const std::string table = tabulate(drawing_of("end_marker"));
  EXPECT_NE(table.find("| marker word | any | mark | marker end |\n"), std::string::npos) << table;
}

TEST(Machines, TheTableKeepsTokensApartFromItsOwnMarks) {
  const std::string table = tabulate(drawing_of("body"));
  EXPECT_NE(table.find("| \\* |"), std::string::npos);
  EXPECT_NE(table.find("| \\[ |"), std::string::npos);
}

}  // namespace
}  // namespace jt_docs
