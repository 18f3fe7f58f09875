// Findings in words, one case for each code that a file can show, and how they are printed.
#include "core/findings.h"

#include <gtest/gtest.h>

#include "core/report.h"

namespace sil {
namespace {

// All findings, as lines without the file's name.
std::string said_of(std::string_view text, bool is_redacted = false) {
  const Document document = read_document(text);
  const Lines lines(text);
  Describer describer(document, lines, is_redacted);
  std::string said;
  for (const SourceFinding &told : document.findings)
    said += in_short("f", describer.describe(told)).substr(2);
  return said;
}

// Of what stands in an invocation of a scan service.
std::string said_in_scan(const std::string &attributes) {
  return said_of("[kmt_svc_scan S]\n{\n" + attributes + "\n}\nend\n");
}

TEST(Message, SaysWhatIsMissingBehindWhatAndWhatStandsThere) {
  EXPECT_EQ(said_in_scan("integer A = 2\ninteger B;"),
            "3:14: error: expected `,` or `;` behind `2`, found `integer` [syntax-expected]\n");
  EXPECT_EQ(said_in_scan("integer = 2;"),
            "3:9: error: expected the name of an attribute, found `=` [syntax-expected]\n");
}

TEST(Message, SaysWhatIsNotClosed) {
  EXPECT_EQ(
      said_of("[kmt_svc_scan S]\n{\nend\n"),
      "2:2: error: the invocation is not closed: expected `}` behind `{`, found `end` [syntax-unclosed]\n");
  EXPECT_EQ(said_of("[kmt_svc_scan S]\n{\n}\n"),
            "3:2: error: the service is not closed: expected `end` behind `}`, found the end of the text "
            "[syntax-unclosed]\n");
}

TEST(Message, SaysWhatIsWrongWithAString) {
  EXPECT_EQ(said_in_scan("string A = The\"big\"one;"),
            "3:12: error: a quote in the middle of a word [syntax-string]\n");
  EXPECT_EQ(said_in_scan("string A = \"one\"two;"),
            "3:12: error: a string ends with its closing quote: a blank, a comma or another mark must follow "
            "[syntax-string]\n");
  EXPECT_EQ(said_of("[kmt_svc_scan S]{string A = \"one;\n}\nend\n"),
            "1:29: error: the string is not closed on its line [string-over-lines]\n");
}

TEST(Message, SaysWhatIsTooLong) {
  EXPECT_EQ(
      said_in_scan("integer " + std::string(1024, 'n') + ";"),
      "3:9: error: too long: at most 1023 bytes in a name, 1024 in a value or a text [syntax-length]\n");
}

TEST(Message, SaysWhatIsWrongWithTheFrame) {
  EXPECT_EQ(said_of("\xEF\xBB\xBF[kmt_svc_scan S]end"),
            "1:1: error: the text begins with a byte order mark [text-bom]\n");
  EXPECT_EQ(said_of(std::string_view("[kmt_svc_scan S]\0end", 20)), "1:17: error: a NUL byte [syntax-nul]\n");
  EXPECT_EQ(said_of("< SIL 4.3.00 UTF-8 j > < /SIL >"),
            "1:7: warning: the version is `4.3.00`, not `4.2.00` [header-version]\n"
            "1:14: loss: the encoding is `UTF-8`, and becomes `ASCII` [header-encoding]\n");
  EXPECT_EQ(said_of("< SIL 4.2.00 ASCII j > [kmt_svc_scan S]end\n"),
            "1:43: error: the end marker `< /SIL >` is missing [end-marker]\n");
  EXPECT_EQ(said_of("< SIL 4.2.00 ASCII j > < /SIL > x"),
            "1:33: error: nothing may follow the end marker, found `x` [end-marker]\n");
}

TEST(Message, SaysWhichTypeWasMeant) {
  EXPECT_EQ(said_of("[kmt_svc_sacn S]end"),
            "1:2: error: there is no service type `kmt_svc_sacn`; did you mean \"kmt_svc_scan\", "
            "\"kmt_svc_fax\" or "
            "\"kmt_svc_ocr\"? [service-type-unknown]\n");
  EXPECT_EQ(said_in_scan("enum_colormoed A = X;"),
            "3:1: error: there is no type `enum_colormoed`; did you mean \"enum_colormode\" or "
            "\"enum_bookmode\"? [attribute-type-unknown]\n");
}

TEST(Message, SaysWhichServicesHaveAType) {
  EXPECT_EQ(said_in_scan("enum_printfinish A;"),
            "3:1: error: `enum_printfinish` is no type of `kmt_svc_scan`, but of `kmt_svc_print` "
            "[attribute-type-of-other-service]\n");
}

TEST(Message, SaysWhichNameIsTaken) {
  EXPECT_EQ(said_in_scan("integer A;integer a;"), "3:19: error: the name `a` is taken [name-duplicate]\n");
}

TEST(Message, SaysWhatBecomesOfAValue) {
  EXPECT_EQ(said_in_scan("integer A = many;"),
            "3:13: loss: `many` is no `integer` and is left out; expected a whole number from -2147483648 to "
            "2147483647 [value-malformed]\n");
  EXPECT_EQ(said_in_scan("integer A = -99999999999;"),
            "3:14: loss: `-99999999999` is too large, and becomes -2147483648 [value-saturated]\n");
  EXPECT_EQ(said_in_scan("struct_timeofday A = 23:59xyz;"),
            "3:27: loss: `xyz` is text behind the value, which is ignored [value-tail]\n");
  EXPECT_EQ(said_in_scan("integer A = -;"),
            "3:13: warning: there is no digit in `-`, which is read as 0 [value-empty-number]\n");
  EXPECT_EQ(said_in_scan("timestamp A = 2009/02/30/12/00/00;"),
            "3:23: warning: no calendar or clock has `2009/02/30/12/00/00` [value-impossible]\n");
  EXPECT_EQ(
      said_in_scan("real A = 0.123456789;"),
      "3:10: note: `0.123456789` is kept as a single, and written back as another decimal [value-rounded]\n");
}

TEST(Message, SaysWhichStatusWasMeant) {
  EXPECT_EQ(said_of("[kmt_svc_scan S]end(KMT_STATUS_ABORTET)"),
            "1:21: warning: there is no status `KMT_STATUS_ABORTET`; did you mean \"KMT_STATUS_ABORTED\", "
            "\"KMT_STATUS_IGNORED\" or \"KMT_STATUS_ERROR\"? [status-unknown]\n");
  EXPECT_EQ(
      said_of("[kmt_svc_scan S]end(KMT_STATUS_ABORTED{a b})"),
      "1:40: loss: `a` is lost: of the text behind a status only the last word is kept [status-text-lost]\n");
}

TEST(Message, ShortensWhatIsLongAndEscapesWhatIsNoLetter) {
  EXPECT_EQ(
      said_in_scan("integer A = " + std::string(70, 'x') + ";"),
      "3:13: loss: `" + std::string(60, 'x') +
          "...` is no `integer` and is left out; expected a whole number from -2147483648 to 2147483647 "
          "[value-malformed]\n");
  EXPECT_EQ(
      said_in_scan("integer A = \"\x1b[31m\";"),
      "3:14: loss: `\\x1b[31m` is no `integer` and is left out; expected a whole number from -2147483648 "
      "to 2147483647 [value-malformed]\n");
}

TEST(Message, DoesNotRepeatFreeTextsWhenRedacted) {
  EXPECT_EQ(said_of("[kmt_svc_scan S]end(KMT_STATUS_ABORTED{secret b})", true),
            "1:40: loss: REDACTED is lost: of the text behind a status only the last word is kept "
            "[status-text-lost]\n");
  EXPECT_EQ(said_of("[kmt_svc_scan S]{string A = secret B;}end", true),
            "1:35: error: expected `,` or `;` behind REDACTED, found REDACTED [syntax-expected]\n");
}

// ---- For people ----

std::string shown(std::string_view text, bool is_redacted = false) {
  const Document document = read_document(text);
  const Lines lines(text);
  Describer describer(document, lines, is_redacted);
  const PaintPart plain = [](Part, std::string_view piece) { return std::string(piece); };
  return for_people("f", document, lines, describer.describe(document.findings.at(0)), is_redacted, plain);
}

TEST(ForPeople, ShowsTheLineWithAMarkAndBothPlaces) {
  EXPECT_EQ(shown("[kmt_svc_scan S]\n{\n\tinteger Copies;\n\tinteger COPIES;\n}\nend\n"),
            "f:4:10: error: the name `COPIES` is taken [name-duplicate]\n"
            "    4 |  integer COPIES;\n"
            "      |          ^^^^^^\n"
            "    3 |  integer Copies;\n"
            "      |          ^^^^^^ the first one is here\n");
}

TEST(ForPeople, MarksTheEmptyPlaceWhereSomethingIsMissing) {
  EXPECT_EQ(shown("[kmt_svc_scan S]\n{ integer A = 2\n  integer B;\n}\nend\n"),
            "f:2:16: error: expected `,` or `;` behind `2`, found `integer` [syntax-expected]\n"
            "    2 | { integer A = 2\n"
            "      |                ^\n");
}

TEST(ForPeople, CountsLettersNotBytes) {
  EXPECT_EQ(shown("[kmt_svc_scan S]\n{ string A = \"\xC3\xA4\xE2\x82\xAC\"; integer B = x; }\nend\n"),
            "f:2:35: loss: `x` is no `integer` and is left out; expected a whole number from -2147483648 to "
            "2147483647 "
            "[value-malformed]\n"
            "    2 | { string A = \"\xC3\xA4\xE2\x82\xAC\"; integer B = x; }\n"
            "      |                                ^\n");
}

TEST(ForPeople, CutsALongLineAroundThePlace) {
  const std::string many(80, 'm');
  EXPECT_EQ(
      shown("[kmt_svc_scan S]{string A = \"" + many + "\"; integer B = x; string C = \"" + many + "\";}end"),
      "f:1:125: loss: `x` is no `integer` and is left out; expected a whole number from -2147483648 to "
      "2147483647 "
      "[value-malformed]\n"
      "    1 | ..." +
          std::string(35, 'm') + "\"; integer B = x; string C = \"" + std::string(35, 'm') +
          "...\n"
          "      |    " +
          std::string(50, ' ') + "^\n");
}

TEST(ForPeople, HidesFreeTextsWhenRedacted) {
  EXPECT_EQ(shown("[kmt_svc_scan S]\n{ string A = \"my \xC3\xA4\"; integer B = q; } # mine\nend\n", true),
            "f:2:35: loss: `q` is no `integer` and is left out; expected a whole number from -2147483648 to "
            "2147483647 "
            "[value-malformed]\n"
            "    2 | { string A = xxx xxx; integer B = q; } x xxxx\n"
            "      |                                   ^\n");
}

TEST(AsJson, HasEverythingButTheLine) {
  const std::string_view text = "[kmt_svc_scan S]{integer A;integer a;}end";
  const Document document = read_document(text);
  const Lines lines(text);
  EXPECT_EQ(as_json("f", Describer(document, lines, false).describe(document.findings.at(0))), R"(
  {
    "file": "f",
    "code": "name-duplicate",
    "severity": "error",
    "line": 1,
    "column": 36,
    "begin": 35,
    "end": 36,
    "message": "the name `a` is taken",
    "second": {
      "line": 1,
      "column": 26,
      "begin": 25,
      "end": 26,
      "message": "the first one is here"
    }
  })");
}

}  // namespace
}  // namespace sil
