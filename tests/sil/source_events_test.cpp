// What a listener is told of each kind of element and token, in which order and with which ranges; and which
// handles it is told at the end of a decode.
#include <gtest/gtest.h>

#include <cstring>

#include "sil/source_texts.h"

namespace jt_test {
namespace {

struct Telling {
  const char *name;
  std::string text;
  Lines lines;
};

std::ostream &operator<<(std::ostream &out, const Telling &telling) { return out << telling.text; }

class SourceEvents : public SessionTest, public ::testing::WithParamInterface<Telling> {};

TEST_P(SourceEvents, OfADecodeAreThese) {
  const Ear ear;
  const std::string &text = GetParam().text;
  jt_decode_source(space, text.data(), text.size(), nullptr, ear.listener());
  EXPECT_EQ(ear.lines, GetParam().lines);
}

const Telling kTellings[] = {
    {"PlainHeader",
     "< SIL 4.2.00 ASCII id > string Owner = me; < /SIL >",
     {"open header 0",        "mark 0-1 <",          "marker 2-5 SIL",    "version 6-12 4.2.00",
      "encoding 13-18 ASCII", "identifier 19-21 id", "mark 22-23 >",      "open attribute 24",
      "type 24-30 string",    "name 31-36 Owner",    "mark 37-38 =",      "open value 39",
      "value 39-41 me",       "close value 39-41",   "mark 41-42 ;",      "close attribute 24-42",
      "close header 0-42",    "mark 43-44 <",        "marker 45-49 /SIL", "mark 50-51 >"}},
    {"SectionAndBody",
     "<? SIL 4.2.00 ASCII id > <?> [kmt_svc_scan S] end </?> [kmt_svc_scan T] end </SIL>",
     {"open header 0",        "mark 0-1 <",
      "marker 1-2 ?",         "marker 3-6 SIL",
      "version 7-13 4.2.00",  "encoding 14-19 ASCII",
      "identifier 20-22 id",  "mark 23-24 >",
      "close header 0-24",    "open section 25",
      "mark 25-26 <",         "marker 26-27 ?",
      "mark 27-28 >",         "open service 29",
      "mark 29-30 [",         "service type 30-42 kmt_svc_scan",
      "service name 43-44 S", "mark 44-45 ]",
      "mark 46-49 end",       "close service 29-49",
      "mark 50-51 <",         "marker 51-52 /",
      "marker 52-53 ?",       "mark 53-54 >",
      "close section 25-54",  "open service 55",
      "mark 55-56 [",         "service type 56-68 kmt_svc_scan",
      "service name 69-70 T", "mark 70-71 ]",
      "mark 72-75 end",       "close service 55-75",
      "mark 76-77 <",         "marker 77-81 /SIL",
      "mark 81-82 >"}},
    {"StatusesEndWhatTheyFollow",
     "[kmt_svc_scan S] A { *integer n = 1, \"2\" ; (X {a}) } (Y) end (Z)",
     {"open service 0",
      "mark 0-1 [",
      "service type 1-13 kmt_svc_scan",
      "service name 14-15 S",
      "mark 15-16 ]",
      "open invocation 17",
      "invocation name 17-18 A",
      "mark 19-20 {",
      "open attribute 21",
      "star 21-22 *",
      "type 22-29 integer",
      "name 30-31 n",
      "mark 32-33 =",
      "open value 34",
      "value 34-35 1",
      "close value 34-35",
      "mark 35-36 ,",
      "open value 37",
      "value 37-40 2",
      "close value 37-40",
      "mark 41-42 ;",
      "open status 43",
      "mark 43-44 (",
      "status 44-45 X",
      "1:45 warning status-unknown 44-45, names",
      "mark 46-47 {",
      "status text 47-48 a",
      "mark 48-49 }",
      "mark 49-50 )",
      "close status 43-50",
      "close attribute 21-50",
      "mark 51-52 }",
      "open status 53",
      "mark 53-54 (",
      "status 54-55 Y",
      "1:55 warning status-unknown 54-55, names",
      "mark 55-56 )",
      "close status 53-56",
      "close invocation 17-56",
      "mark 57-60 end",
      "open status 61",
      "mark 61-62 (",
      "status 62-63 Z",
      "1:63 warning status-unknown 62-63, names",
      "mark 63-64 )",
      "close status 61-64",
      "close service 0-64"}},
    {"CommentsComeBeforeTheTokenThatFollows",
     "# a\n[ # b\nkmt_svc_scan S] { # c\n integer n = # d\n 1; # e\n } end # f\n",
     {"comment 0-3 # a",
      "open service 4",
      "mark 4-5 [",
      "comment 6-9 # b",
      "2:3 note comment-moves 6-9",
      "service type 10-22 kmt_svc_scan",
      "service name 23-24 S",
      "mark 24-25 ]",
      "open invocation 26",
      "mark 26-27 {",
      "comment 28-31 # c",
      "open attribute 33",
      "type 33-40 integer",
      "name 41-42 n",
      "mark 43-44 =",
      "comment 45-48 # d",
      "open value 50",
      "value 50-51 1",
      "close value 50-51",
      "mark 51-52 ;",
      "close attribute 33-52",
      "comment 53-56 # e",
      "5:5 note comment-moves 53-56",
      "mark 58-59 }",
      "close invocation 26-59",
      "mark 60-63 end",
      "close service 4-63",
      "comment 64-67 # f",
      "6:8 note comment-moves 64-67"}},
    {"AllThatIsOpenIsClosedWhereADecodeFails",
     "[kmt_svc_scan S] { integer n = &",
     {"open service 0", "mark 0-1 [", "service type 1-13 kmt_svc_scan", "service name 14-15 S",
      "mark 15-16 ]", "open invocation 17", "mark 17-18 {", "open attribute 19", "type 19-26 integer",
      "name 27-28 n", "mark 29-30 =", "1:32 error syntax-expected 31-32, marks ;, a value",
      "close attribute 19-30", "close invocation 17-30", "close service 0-30"}},
};

INSTANTIATE_TEST_SUITE_P(Texts, SourceEvents, ::testing::ValuesIn(kTellings),
                         [](const ::testing::TestParamInfo<Telling> &telling) {
                           return std::string(telling.param.name);
                         });

TEST(SourceToken, TextIsWithoutQuotesAndEscapes) {
  Ear ear;
  decoded_source("[kmt_svc_scan S] { string t = \"a\\\"b\\n\"; } end", ear.listener());
  ASSERT_EQ(ear.tokens.size(), 12U);
  EXPECT_EQ(ear.tokens[8].text, "a\"b\n");
  EXPECT_EQ(range_text(ear.tokens[8].range), "30-38");
}

class SourceHandles : public SessionTest {
 protected:
  // Kind and name of each element that has a handle, in the order of the numbers.
  Lines named_elements(const std::string &text) {
    Ear ear;
    jt_decode_source(space, text.data(), text.size(), nullptr, ear.listener());
    Lines found;
    for (const auto &[number, handle] : ear.handles) {
      found.push_back(std::to_string(number) + " kind " + std::to_string(jt_element_kind(space, handle)) +
                      " " + take_text(jt_element_name(space, handle)));
    }
    return found;
  }
};

TEST_F(SourceHandles, AreThoseOfTheElements) {
  const std::string kind_of_value = std::to_string(JT_NODE_VALUE);
  EXPECT_EQ(
      named_elements("[kmt_svc_scan S] A { integer n = 1; integer m; } (X) end"),
      (Lines{"0 kind " + std::to_string(JT_NODE_SERVICE) + " S",
             "1 kind " + std::to_string(JT_NODE_INVOCATION) + " A",
             "2 kind " + std::to_string(JT_NODE_ATTRIBUTE) + " n", "3 kind " + kind_of_value + " (none)",
             "4 kind " + std::to_string(JT_NODE_ATTRIBUTE) + " m"}));
}

TEST_F(SourceHandles, AreNotToldOfARefusedValue) {
  Ear ear;
  const std::string text = "[kmt_svc_scan S] { integer n = 1, x, 2; } end";
  ASSERT_NE(jt_decode_source(space, text.data(), text.size(), nullptr, ear.listener()), 0);
  std::vector<int32_t> numbers;
  for (const auto &[number, handle] : ear.handles) numbers.push_back(number);
  EXPECT_EQ(numbers, (std::vector<int32_t>{0, 1, 2, 3, 5}));
}

TEST_F(SourceHandles, AreNotToldByACheck) {
  Ear ear;
  checked_source("[kmt_svc_scan S] { integer n = 1; } end", ear.listener());
  EXPECT_EQ(ear.handles.size(), 0U);
}

TEST_F(SourceHandles, AreNotToldOfADecodeThatFails) {
  Ear ear;
  decoded_source("[kmt_svc_scan S] { integer n = 1; } en", ear.listener());
  EXPECT_EQ(ear.handles.size(), 0U);
}

}  // namespace
}  // namespace jt_test
