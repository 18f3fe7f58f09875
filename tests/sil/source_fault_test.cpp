// Faults planted into a valid text, one to ten of them, each on a line of its own: a check finds every one on its
// line and nothing else. The texts come from a generator whose seed is fixed.
#include <gtest/gtest.h>

#include <set>

#include "sil/source_texts.h"

namespace jt_test {
namespace {

// A line that is wrong in one way, and the code that says so.
struct Fault {
  int32_t code;
  const char *line;
};

constexpr std::array<Fault, 26> kFaults = {{
    {JT_FINDING_SYNTAX_EXPECTED, "  integer = 1;"},
    {JT_FINDING_SYNTAX_EXPECTED, "  integer F@ 1;"},
    {JT_FINDING_SYNTAX_EXPECTED, "  integer F@ = 1"},
    {JT_FINDING_SYNTAX_EXPECTED, "  integer F@ = 1 2;"},
    {JT_FINDING_SYNTAX_EXPECTED, "  integer F@ = 1,;"},
    {JT_FINDING_SYNTAX_EXPECTED, "  integer F@ = end;"},
    {JT_FINDING_SYNTAX_EXPECTED, "  integer F@ = 1; (KMT_STATUS_ERROR x)"},
    {JT_FINDING_SYNTAX_EXPECTED, "  * * integer F@ = 1;"},
    {JT_FINDING_SYNTAX_EXPECTED, "  integer \"F@\" = 1;"},
    {JT_FINDING_SYNTAX_EXPECTED, "  ;"},
    {JT_FINDING_SYNTAX_STRING, "  string F@ = a\"b;"},
    {JT_FINDING_STRING_OVER_LINES, "  string F@ = \"open;"},
    {JT_FINDING_SYNTAX_LENGTH, nullptr},
    {JT_FINDING_SYNTAX_NUL, "  integer F@ \1= 1;"},
    {JT_FINDING_ATTRIBUTE_TYPE_UNKNOWN, "  integr F@ = 1;"},
    {JT_FINDING_ATTRIBUTE_TYPE_OF_OTHER_SERVICE, "  enum_RVQ F@ = MODEL_03;"},
    {JT_FINDING_NAME_DUPLICATE, "  integer First = 1;"},
    {JT_FINDING_VALUE_MALFORMED, "  integer F@ = x;"},
    {JT_FINDING_VALUE_OUT_OF_RANGE, "  struct_gutter F@ = 30/10/MM;"},
    {JT_FINDING_VALUE_SATURATED, "  integer F@ = 99999999999;"},
    {JT_FINDING_VALUE_TAIL, "  struct_timeofday F@ = 23:59xyz;"},
    {JT_FINDING_VALUE_EMPTY_NUMBER, "  integer F@ = -;"},
    {JT_FINDING_VALUE_IMPOSSIBLE, "  timestamp F@ = 2009/02/30/00/00/00;"},
    {JT_FINDING_VALUE_UNKNOWN_NAME, "  enum_colormode F@ = GREY;"},
    {JT_FINDING_STATUS_UNKNOWN, "  integer F@ = 1; (NO_SUCH_STATUS)"},
    {JT_FINDING_STATUS_TEXT_LOST, "  integer F@ = 1; (KMT_STATUS_ERROR {a b})"},
}};

constexpr std::array<const char *, 8> kValid = {"  integer V@ = 1;",
                                                "  * string V@ = \"some text\", more;",
                                                "  enum_colormode V@ = GRAYSCALE;",
                                                "  boolean V@ = TRUE;",
                                                "  integer V@;",
                                                "  struct_timeofday V@ = 23:59;",
                                                "  real V@ = 2.5; # why",
                                                "  integer V@ = 1, 2; (KMT_STATUS_ERROR {text})"};

std::string numbered(std::string line, std::size_t number) {
  if (const std::size_t at = line.find('@'); at != std::string::npos)
    line.replace(at, 1, std::to_string(number));
  std::replace(line.begin(), line.end(), '\1', '\0');
  return line;
}

std::string line_of_fault(const Fault &fault, std::size_t number) {
  if (fault.line != nullptr) return numbered(fault.line, number);
  return "  integer " + std::string(JT_MAX_TOKEN_LENGTH, 'f') + " = 1;";
}

struct Planted {
  std::string text;
  std::set<std::size_t> lines;
  std::string codes;  // for a report
};

// Statements in some invocations of some services; a fault behind every so many of them.
class Garden {
 public:
  explicit Garden(std::uint32_t seed) : damage_(seed) {}

  Planted planted(std::size_t faults, bool side_by_side) {
    Planted text;
    line_ = 1;
    for (int service = 0; service < 2; ++service) {
      add(text, "[ kmt_svc_scan S" + std::to_string(service) + " ]");
      for (int invocation = 0; invocation < 3; ++invocation) {
        add(text, "I" + std::to_string(invocation) + " {");
        add(text, "  integer First = 1;");
        const std::size_t here = std::min(faults, side_by_side ? 2 : 1 + damage_.below(2));
        for (std::size_t fault = 0; fault < here; ++fault) {
          if (fault == 0 || !side_by_side) add_valid(text, 1 + damage_.below(3));
          add_fault(text);
        }
        faults -= here;
        add_valid(text, 1 + damage_.below(3));
        add(text, "}");
      }
      add(text, "end");
    }
    return text;
  }

 private:
  void add(Planted &text, const std::string &line) {
    text.text += line + "\n";
    ++line_;
  }

  void add_valid(Planted &text, std::size_t count) {
    for (; count > 0; --count) add(text, numbered(kValid[damage_.below(kValid.size())], ++number_));
  }

  void add_fault(Planted &text) {
    const Fault &fault = kFaults[damage_.below(kFaults.size())];
    text.lines.insert(line_);
    text.codes += std::string(" ") + jt_finding_name(fault.code);
    add(text, line_of_fault(fault, ++number_));
  }

  Damage damage_;
  std::size_t line_ = 1;
  std::size_t number_ = 0;
};

std::set<std::size_t> lines_found(const std::string &text) {
  std::set<std::size_t> lines;
  const Ear ear(Ear::For::kFindings);
  checked_source(text, ear.listener());
  for (const Found &finding : ear.findings) {
    if (finding.severity != JT_SEVERITY_NOTE) lines.insert(finding.line);
  }
  return lines;
}

struct Score {
  std::size_t files = 0;
  std::size_t complete = 0;  // every fault was found on its line
  std::size_t exact = 0;     // and nothing else

  double complete_share() const { return static_cast<double>(complete) / static_cast<double>(files); }
  double exact_share() const { return static_cast<double>(exact) / static_cast<double>(files); }
};

void judge(const Planted &planted, Score &score) {
  const std::set<std::size_t> found = lines_found(planted.text);
  ++score.files;
  if (std::includes(found.begin(), found.end(), planted.lines.begin(), planted.lines.end())) ++score.complete;
  if (std::includes(planted.lines.begin(), planted.lines.end(), found.begin(), found.end())) ++score.exact;
}

TEST(SourceFault, EachAloneIsFoundWithItsCode) {
  for (const Fault &fault : kFaults) {
    const std::string text = "[ kmt_svc_scan S ]\n{\n  integer First = 1;\n" + line_of_fault(fault, 1) +
                             "\n  string Last = \"text\";\n}\nend\n";
    const Ear ear(Ear::For::kFindings);
    checked_source(text, ear.listener());
    ASSERT_EQ(ear.findings.size(), 1U) << text << ::testing::PrintToString(ear.finding_lines());
    EXPECT_STREQ(jt_finding_name(ear.findings[0].code), jt_finding_name(fault.code)) << text;
    EXPECT_EQ(ear.findings[0].line, 4U) << text;
  }
}

TEST(SourceFault, TheTextsWithoutFaultsHaveNoFindings) {
  Garden garden(1);
  for (int i = 0; i < 100; ++i) {
    const Planted planted = garden.planted(0, false);
    EXPECT_EQ(lines_found(planted.text), std::set<std::size_t>()) << planted.text;
  }
}

TEST(SourceFault, OneToTenInAFileAreAllFoundAndNothingElse) {
  Garden garden(2);
  Score score;
  for (std::size_t i = 0; i < 2000; ++i) judge(garden.planted(1 + i % 10, false), score);
  EXPECT_GE(score.complete_share(), 0.99);
  EXPECT_GE(score.exact_share(), 0.95);
}

TEST(SourceFault, NeighboursAreBothFound) {
  Garden garden(3);
  Score score;
  for (std::size_t i = 0; i < 2000; ++i) judge(garden.planted(2 + i % 10 / 2 * 2, true), score);
  EXPECT_GE(score.complete_share(), 0.90);
}

}  // namespace
}  // namespace jt_test
