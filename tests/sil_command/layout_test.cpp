// The layout: its eight rules, what becomes of the examples and of what the library writes, and that nothing but
// white space ever changes.
#include "core/layout.h"

#include "core/load.h"
#include "core/sil_writer.h"
#include "sil_command/generator.h"
#include "support/program.h"

namespace sil {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = JT_SOURCE_DIR;

std::vector<std::string> names_in(const fs::path &folder) {
  std::vector<std::string> names;
  for (const fs::directory_entry &entry : fs::directory_iterator(folder))
    if (entry.path().extension() == ".sil") names.push_back(entry.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string name_of_case(const testing::TestParamInfo<std::string> &about) { return about.param; }

// The text, or which way it could not be laid out.
std::string laid_out(std::string_view text) {
  const LaidOut result = lay_out(read_document(text));
  if (result.result == LaidOut::Result::kMisfit) return "misfit";
  return result.result == LaidOut::Result::kFault ? "fault" : result.text;
}

// Laid out, it is the same template with the same comments on the same elements, and stays as it is.
void expect_same_job(const std::string &text) {
  const std::string once = laid_out(text);
  ASSERT_TRUE(has_same_tokens(read_document(text), once)) << text;
  EXPECT_EQ(laid_out(once), once) << text;
  EXPECT_EQ(load(once).model, load(text).model) << text;
  EXPECT_EQ(once.find("\n\n\n"), std::string::npos) << text;
}

// ---- Files ----

class Example : public testing::TestWithParam<std::string> {
 protected:
  static std::string file(const char *folder) {
    return jt_test::read_whole((kRoot / folder / (GetParam() + ".sil")).string());
  }
};

TEST_P(Example, IsLaidOutAsItsGoldenFile) {
  EXPECT_EQ(laid_out(file("examples")), file("tests/sil_command/layouts"));
}

TEST_P(Example, IsTheSameJob) { expect_same_job(file("examples")); }

// What the library writes: no line but empty ones comes or goes, blanks at line ends do, and a header that is
// folded does.
TEST_P(Example, KeepsWhatTheLibraryWrites) {
  const auto lines_of = [](const std::string &text) {
    std::string lines;
    for (std::string line : jt_test::lines_of(text)) {
      line.erase(line.find_last_not_of(' ') + 1);
      if (!line.empty()) lines += (line == " >" ? "" : "\n") + line;
    }
    return lines;
  };
  const std::string written = file("tests/examples/expected");
  EXPECT_EQ(lines_of(laid_out(written)), lines_of(written));
}

TEST_P(Example, KeepsWhatTheCommandWrites) {
  const std::string written = to_sil(*load(file("examples")).model);
  EXPECT_EQ(laid_out(written), written);
}

INSTANTIATE_TEST_SUITE_P(Examples, Example, testing::ValuesIn(names_in(kRoot / "examples")), name_of_case);

// ---- Rules ----

TEST(Layout, HasNoEmptyFirstLineNoBlanksAtLineEndsAndOneLineFeedAtTheEnd) {
  EXPECT_EQ(laid_out("\n\n \n[kmt_svc_scan S]   \r\nend  \r\n\r\n\r\n"), "[kmt_svc_scan S]\nend\n");
}

TEST(Layout, GivesHeaderSectionAndEndMarkerLinesOfTheirOwn) {
  EXPECT_EQ(laid_out("<?SIL 4.2.00 ASCII j> string A; *string B=\"b\"; <?> [kmt_svc_scan S]end </?>"
                     "[kmt_svc_fax F]end</SIL>"),
            R"(<? SIL 4.2.00 ASCII j >

string A;
* string B = "b";

< ? >

[kmt_svc_scan S]
end

< /? >

[kmt_svc_fax F]
end

< /SIL >
)");
}

TEST(Layout, IndentsByDepth) {
  EXPECT_EQ(laid_out("[kmt_svc_scan S] Letter{integer A=1;*integer B=2;}{}end"),
            R"([kmt_svc_scan S]
 Letter{
      integer A = 1;
    * integer B = 2;
 }
 {
 }
end
)");
}

TEST(Layout, WritesEqualsOnlyWhereItWas) {
  EXPECT_EQ(
      laid_out("[kmt_svc_scan S]{integer A;integer B=;integer C=1,2 , 3;}end"),
      "[kmt_svc_scan S]\n {\n      integer A;\n      integer B = ;\n      integer C = 1, 2, 3;\n }\nend\n");
}

TEST(Layout, PutsAStatusDirectlyBehind) {
  EXPECT_EQ(laid_out("[kmt_svc_scan S]{integer A = 1 ; ( X { a \"b\" c } ) } ( Y ) end ( )"),
            "[kmt_svc_scan S]\n {\n      integer A = 1;(X{a \"b\" c})\n }(Y)\nend()\n");
}

TEST(Layout, KeepsTokensInAStatusApartThatWouldBecomeOthers) {
  EXPECT_EQ(laid_out("[kmt_svc_scan S]{integer A;(X{| | || \"a\" b})}end"),
            "[kmt_svc_scan S]\n {\n      integer A;(X{| | || \"a\" b})\n }\nend\n");
}

// As the library writes values: seventy bytes may stand in front of one.
TEST(Layout, FoldsBeforeAValueBehindColumnSeventy) {
  EXPECT_EQ(laid_out("[kmt_svc_scan S]{string A=\"0123456789\",\"0123456789\",\"0123456789\",\"0123456\",x,y;"
                     "string B=\"0123456789\",\"0123456789\",\"0123456789\",\"01234567\",x,y;}end"),
            R"([kmt_svc_scan S]
 {
      string A = "0123456789", "0123456789", "0123456789", "0123456", x,
                         y;
      string B = "0123456789", "0123456789", "0123456789", "01234567",
                         x, y;
 }
end
)");
}

TEST(Layout, WritesWhatIsTooLongAsItIs) {
  const std::string name(200, 'n');
  EXPECT_EQ(laid_out("[kmt_svc_scan " + name + "]" + name + "{integer " + name + "=1,2;integer A;}end"),
            "[kmt_svc_scan " + name + "\n]\n " + name + "\n {\n      integer " + name +
                "\n                          = 1, 2;\n      integer A;\n }\nend\n");
}

TEST(Layout, LeavesACommentBehindItsTokenAndPutsOthersAtTheIndentOfTheirPlace) {
  EXPECT_EQ(laid_out(R"(# top
[kmt_svc_scan S] # service
# in service
Letter { # invocation
# in invocation
integer A = 1, # one
  # two
2; # A
   # last
}
# before end
end # S
# below
)"),
            R"(# top
[kmt_svc_scan S]  # service
 # in service
 Letter{  # invocation
      # in invocation
      integer A = 1,  # one
                         # two
                         2;  # A
      # last
 }
 # before end
end  # S

# below
)");
}

TEST(Layout, KeepsTheCommentOfAnAttributeWhereTheLibraryWritesIt) {
  EXPECT_EQ(laid_out("[kmt_svc_scan S]{string A= # c\n\"a\";}end"),
            "[kmt_svc_scan S]\n {\n      string A =         # c\n                         \"a\";\n }\nend\n");
}

TEST(Layout, KeepsOneEmptyLineBetweenElementsAndNoneInsideBraces) {
  EXPECT_EQ(laid_out("[kmt_svc_scan S]{\n\n integer A;\n\n\n\ninteger B;\ninteger "
                     "C;\n\n}\n\n{}\nend\n\n\n[kmt_svc_fax F]end"),
            R"([kmt_svc_scan S]
 {
      integer A;

      integer B;
      integer C;
 }

 {
 }
end

[kmt_svc_fax F]
end
)");
}

TEST(Layout, LeavesOutEmptyLinesInsideAnAttribute) {
  EXPECT_EQ(laid_out("[kmt_svc_scan S]{integer\n\nA\n\n=\n\n1\n\n;}end"),
            "[kmt_svc_scan S]\n {\n      integer A = 1;\n }\nend\n");
}

// ---- What is laid out, and what is not ----

TEST(Layout, TakesWhatCannotBeDecodedWhereTokensFit) {
  EXPECT_EQ(laid_out("[kmt_svc_coffee S]{cup A=1;}end [kmt_svc_scan T]{integer A=x;nope B=1;integer a=2;}end"
                     "[kmt_svc_fax t]{integer A=1;}end"),
            R"([kmt_svc_coffee S]
 {
      cup A = 1;
 }
end

[kmt_svc_scan T]
 {
      integer A = x;
      nope B = 1;
      integer a = 2;
 }
end

[kmt_svc_fax t]
 {
      integer A = 1;
 }
end
)");
}

TEST(Layout, RefusesTextsWhoseTokensDoNotFit) {
  for (const char *const text :
       {"", "# nothing\n", "[kmt_svc_scan S]{integer A = 1}end", "[kmt_svc_scan S]{integer A 1;}end",
        "[kmt_svc_scan S]{integer A = 1;", "[kmt_svc_scan S]{integer A = \"1;}end",
        "[kmt_svc_scan S]end < /SIL >", "< SIL 4.2.00 ASCII j > [kmt_svc_scan S]end",
        "\xEF\xBB\xBF[kmt_svc_scan S]end", "Dear all"})
    EXPECT_EQ(laid_out(text), "misfit") << text;
}

// Behind the unknown type nothing is said of syntax for a while.
TEST(Layout, RefusesWhatIsMissingBehindAnotherError) {
  EXPECT_EQ(laid_out("[kmt_svc_coffee S]{integer A = 1 integer B = 2;}end"), "misfit");
  EXPECT_EQ(laid_out("[kmt_svc_scan S]{nope A integer B = 2;}end"), "misfit");
}

TEST(Layout, RefusesANul) { EXPECT_EQ(laid_out(std::string_view("[kmt_svc_scan S]\0end", 20)), "misfit"); }

// ---- Comments and chance ----

constexpr char kEveryToken[] =
    "<? SIL 4.2.00 ASCII job > * string Owner = \"me\", you ; (KMT_STATUS_COMPLETED{a}) < ? > "
    "[ kmt_svc_fax Inner ] end < / ? > [ kmt_svc_scan Scanner ] { } Letter { integer A ; "
    "* integer B = 1 , 2 ; ( KMT_STATUS_OVERRIDDEN { 3 } ) integer C = ; } ( KMT_STATUS_ABORTED { x } ) "
    "{ } end ( KMT_STATUS_ABORTED { y } ) [ kmt_svc_fax Fax ] end < /SIL >";

TEST(Layout, KeepsCommentsOfEachKindAtEveryBoundaryOfTokens) {
  const Document document = read_document(kEveryToken);
  ASSERT_EQ(document.tokens.size(), 86U);
  for (std::size_t boundary = 0; boundary <= document.tokens.size(); ++boundary) {
    for (const char *const comments :
         {" # c\n", "\n# c\n", "\n\n# c\n\n", " # a\n # b\n", "\n# a\n\n# b\r\n", "#\n"}) {
      std::string text;
      for (std::size_t i = 0; i < document.tokens.size(); ++i) {
        text += i == boundary ? comments : " ";
        text += document.piece(document.tokens[i]);
      }
      if (boundary == document.tokens.size()) text += comments;
      expect_same_job(text);
    }
  }
}

TEST(Layout, KeepsTheJobsOfAGenerator) {
  Generator generator(1);
  for (int i = 0; i < 1000; ++i) {
    const std::string job = generator.job();
    ASSERT_TRUE(load(job).model.has_value()) << job;
    expect_same_job(job);
    expect_same_job(generator.scattered(job));
  }
}

TEST(Layout, DoesNotDependOnTheLayoutBefore) {
  Generator generator(2);
  for (const std::string &name : names_in(kRoot / "examples")) {
    const std::string text = jt_test::read_whole((kRoot / "examples" / (name + ".sil")).string());
    for (int i = 0; i < 20; ++i) expect_same_job(generator.scattered(text));
  }
}

}  // namespace
}  // namespace sil
