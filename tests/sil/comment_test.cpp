// Comments of a body: in every place where one may stand, the node that it is kept with.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

struct Remark {
  const char *name;
  const char *text;
  const char *owner;
};

std::ostream &operator<<(std::ostream &out, const Remark &remark) { return out << remark.text; }

class Comment : public DecodeTest, public ::testing::WithParamInterface<Remark> {};

TEST_P(Comment, IsKeptWithOneNode) {
  EXPECT_NE(decode(GetParam().text), 0);
  EXPECT_EQ(comments(), std::vector<std::string>{GetParam().owner + std::string(": #c\n")})
      << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    OfTheRoot, Comment,
    ::testing::Values(
        Remark{"BeforeEverything", "#c\n[ service A ] end", "0 template"},
        Remark{"BeforeType", "[ #c\n service A ] end", "0 template"},
        Remark{"BeforeName", "[ service #c\n A ] end", "0 template"},
        Remark{"BeforeCloseBracket", "[ service A #c\n ] end", "0 template"},
        Remark{"AfterEnd", "[ service A ] end #c\n", "0 template"},
        Remark{"BeforeTypeOfTheSecond", "[ service A ] end [ #c\n service B ] end", "0 template"},
        Remark{"BeforeServiceStatus", "[ service A ] end ( #c\n KMT_STATUS_ERROR )", "0 template"},
        Remark{"AfterServiceStatusName", "[ service A ] end ( KMT_STATUS_ERROR #c\n )", "0 template"},
        Remark{"InServiceStatusText", "[ service A ] end ( KMT_STATUS_ERROR { #c\n x } )", "0 template"},
        Remark{"AfterServiceStatusText", "[ service A ] end ( KMT_STATUS_ERROR { x } #c\n )", "0 template"},
        Remark{"AfterServiceStatus", "[ service A ] end ( ) #c\n [ service B ] end", "0 template"},
        Remark{"AtTheEndWithoutLineFeed", "[ service A ] end ( )#c", "0 template"},
        Remark{"AfterEndOfAServiceWithInvocation", "[ service A ] X { } end #c\n", "0 template"}),
    case_name<Remark>);

INSTANTIATE_TEST_SUITE_P(
    OfTheService, Comment,
    ::testing::Values(
        Remark{"Open", "[ service A ] #c\n end", "1 A"},
        Remark{"BeforeOpenBrace", "[ service A ] X #c\n { } end", "1 A"},
        Remark{"AfterInvocation", "[ service A ] X { } #c\n end", "1 A"},
        Remark{"AfterInvocationWithAttribute", "[ service A ] X { integer a ; } #c\n end", "1 A"},
        Remark{"BeforeInvocationStatus", "[ service A ] X { } ( #c\n KMT_STATUS_ERROR ) end", "1 A"},
        Remark{"AfterInvocationStatusName", "[ service A ] X { } ( KMT_STATUS_ERROR #c\n ) end", "1 A"},
        Remark{"InInvocationStatusText", "[ service A ] X { } ( KMT_STATUS_ERROR { #c\n } ) end", "1 A"},
        Remark{"AfterInvocationStatusText", "[ service A ] X { } ( KMT_STATUS_ERROR { } #c\n ) end", "1 A"},
        Remark{"AfterInvocationStatus", "[ service A ] X { } ( ) #c\n end", "1 A"},
        Remark{"BeforeOpenBraceOfTheSecond", "[ service A ] X { } Y #c\n { } end", "1 A"}),
    case_name<Remark>);

INSTANTIATE_TEST_SUITE_P(
    OfTheInvocation, Comment,
    ::testing::Values(
        Remark{"Open", "[ service A ] X { #c\n } end", "2 X"},
        Remark{"OpenUnnamed", "[ service A ] { #c\n } end", "2 (none)"},
        Remark{"AfterStar", "[ service A ] X { * #c\n integer a ; } end", "2 X"},
        Remark{"BeforeName", "[ service A ] X { integer #c\n a ; } end", "2 X"},
        Remark{"AfterSemicolon", "[ service A ] X { integer a ; #c\n } end", "2 X"},
        Remark{"AfterSemicolonBeforeStatus", "[ service A ] X { integer a ; #c\n ( KMT_STATUS_ERROR ) } end",
               "2 X"},
        Remark{"BeforeStatusName", "[ service A ] X { integer a ; ( #c\n KMT_STATUS_ERROR ) } end", "2 X"},
        Remark{"AfterStatusName", "[ service A ] X { integer a ; ( KMT_STATUS_ERROR #c\n ) } end", "2 X"},
        Remark{"InStatusText", "[ service A ] X { integer a ; ( KMT_STATUS_ERROR { #c\n } ) } end", "2 X"},
        Remark{"AfterStatusText", "[ service A ] X { integer a ; ( KMT_STATUS_ERROR { } #c\n ) } end", "2 X"},
        Remark{"AfterStatus", "[ service A ] X { integer a ; ( ) #c\n } end", "2 X"},
        Remark{"BeforeNameOfTheSecond", "[ service A ] X { integer a ; integer #c\n b ; } end", "2 X"}),
    case_name<Remark>);

INSTANTIATE_TEST_SUITE_P(
    OfTheAttribute, Comment,
    ::testing::Values(Remark{"BeforeEquals", "[ service A ] X { integer a #c\n = 1 , 2 ; } end", "3 a"},
                      Remark{"BeforeSemicolon", "[ service A ] X { integer a #c\n ; } end", "3 a"},
                      Remark{"BeforeValue", "[ service A ] X { integer a = #c\n 1 , 2 ; } end", "3 a"},
                      Remark{"BeforeComma", "[ service A ] X { integer a = 1 #c\n , 2 ; } end", "3 a"},
                      Remark{"BeforeNextValue", "[ service A ] X { integer a = 1 , #c\n 2 ; } end", "3 a"},
                      Remark{"AfterLastValue", "[ service A ] X { integer a = 1 , 2 #c\n ; } end", "3 a"},
                      Remark{"OfTheSecond", "[ service A ] X { integer a ; integer b #c\n ; } end", "3 b"}),
    case_name<Remark>);

class Comments : public DecodeTest {};

TEST_F(Comments, OfOneNodeJoinInTheirOrder) {
  decoded("[ service A ] X { #one\n * #two\n integer #three\n a ; #four\n } end");
  EXPECT_EQ(comments(), std::vector<std::string>{"2 X: #one\n#two\n#three\n#four\n"});
}

TEST_F(Comments, DoNotTakeTheStatusAwayFromItsAttribute) {
  jt_node *const root = decoded("[ service A ] X { integer a ; #c\n ( KMT_STATUS_ERROR { x } ) } end");
  ASSERT_NE(root, nullptr);
  const jt_node *const attribute = child(root, {"A", "X", "a"});
  EXPECT_EQ(status_text(*attribute), "KMT_STATUS_ERROR");
  EXPECT_STREQ(attribute->overridden_value, "x");
  EXPECT_EQ(child(root, {"A", "X"})->status, nullptr);
}

TEST_F(Comments, SeparateWords) {
  jt_node *const root = decoded("[ service A#c\n]X#d\n{ integer a#e\n= 1#f\n; } end");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(values(child(root, {"A", "X", "a"})), std::vector<std::string>{"1"});
}

TEST_F(Comments, EndAtEveryKindOfLineEnd) {
  decoded("[ service A ] #a\n #b\r #c\v #d\f end");
  EXPECT_EQ(comments(), std::vector<std::string>{"1 A: #a\n#b\n#c\n#d\n"});
}

TEST_F(Comments, KeepEverythingElseOfTheirLine) {
  decoded("[ service A ] # \"quote' \\ [ ] { } # \t\b\x01\x7f\x80\xff \n end");
  EXPECT_EQ(comments(), std::vector<std::string>{"1 A: # \"quote' \\ [ ] { } # \t\b\x01\x7f\x80\xff \n"});
}

TEST_F(Comments, MayBeEmpty) {
  decoded("[ service A ] #\n# end\n end");
  EXPECT_EQ(comments(), std::vector<std::string>{"1 A: #\n# end\n"});
}

}  // namespace
}  // namespace jt_test
