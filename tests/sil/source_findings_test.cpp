// Every code that a text can have, with its range, line and column, what was found and expected, the second range,
// the candidates and the type; what a check and a decode make of a NUL, of losses when they are strict, of a limit,
// and of a listener that ends the call or makes others.
#include <gtest/gtest.h>

#include "sil/source_texts.h"

namespace jt_test {
namespace {

struct Case {
  const char *name;
  std::string text;
  Lines findings;
};

std::ostream &operator<<(std::ostream &out, const Case &each) { return out << each.text; }

class SourceFindings : public ::testing::TestWithParam<Case> {};

TEST_P(SourceFindings, OfATextAreThese) { EXPECT_EQ(findings_in(GetParam().text), GetParam().findings); }

const Case kCases[] = {
    {"SyntaxExpected", "[kmt_svc_scan S] { integer = 1; } end", {"1:28 error syntax-expected 27-28, a name"}},
    {"MissingSemicolon",
     "[kmt_svc_scan S] { integer a = 1 } end",
     {"1:33 error syntax-expected 32-32, found 33-34, marks , ;"}},
    {"MissingComma",
     "[kmt_svc_scan S] { integer a = 1 2; } end",
     {"1:33 error syntax-expected 32-32, found 33-34, marks , ;"}},
    {"EndAsAName",
     "[kmt_svc_scan S] { integer end; } end",
     {"1:27 error syntax-expected 26-26, found 27-30, a name"}},
    {"InvocationUnclosedAtEnd",
     "[kmt_svc_scan S] { integer a = 1;\nend",
     {"1:34 error syntax-unclosed 33-33, found 34-37, marks } ( *, a type, second 17-18"}},
    {"InvocationUnclosedAtTheTextsEnd",
     "[kmt_svc_scan S]\n{ integer a = 1;",
     {"2:17 error syntax-unclosed 33-33, at the end, second 17-18"}},
    {"InvocationUnclosedAtTheNextOne",
     "[kmt_svc_scan S] { integer a;\nB { } end",
     {"1:30 error syntax-unclosed 29-29, found 30-31, marks } ( *, a type, second 17-18"}},
    {"StatusUnclosed",
     "[kmt_svc_scan S] {} (KMT_STATUS_ERROR",
     {"1:38 error syntax-unclosed 37-37, at the end, second 20-21"}},
    {"StringThatNeverEnds", "[kmt_svc_scan S] { string a = \"x", {"1:31 error syntax-string 30-32"}},
    {"QuoteInsideOfAWord",
     "[kmt_svc_scan S] { string a = x\"y; integer b; } end",
     {"1:31 error syntax-string 30-31"}},
    {"StringOverLines",
     "[kmt_svc_scan S] { string a = \"x;\n string b = \"y\";\n integer c = z; } end",
     {"1:31 error string-over-lines 30-33, found 30-47", "3:14 loss value-malformed 64-65, type integer"}},
    {"StringOverLinesIntoTheLastString",
     "[kmt_svc_scan S] { string a = \"x;\n string b = \"y\"; } end",
     {"1:31 error string-over-lines 30-33, found 30-47"}},
    {"Nul",
     std::string("[kmt_svc_scan S] { integer a\0 = \0\0 1; } end", 43),
     {"1:29 error syntax-nul 28-29", "1:33 error syntax-nul 32-34"}},
    {"SectionWithoutHeader", "[kmt_svc_scan S] end <?>", {"1:22 error block-illegal 21-22"}},
    {"SectionOfTheOtherKind",
     "<! SIL 4.2.00 ASCII id > <?> </!> </SIL>",
     {"1:27 error block-illegal 26-27, a marker"}},
    {"HeaderForm", "< XML 4.2.00 ASCII id > </SIL>", {"1:3 error header-form 2-5, a marker"}},
    {"HeaderVersion", "< SIL 4.1.00 ASCII id > </SIL>", {"1:7 warning header-version 6-12"}},
    {"HeaderEncoding", "< SIL 4.2.00 UTF-8 id > </SIL>", {"1:14 loss header-encoding 13-18"}},
    {"HeaderWithoutVersionIsNoOtherVersion",
     "< SIL ASCII id > </SIL>",
     {"1:16 error syntax-expected 15-16, a identifier"}},
    {"HeaderCutOff", "< SIL 4.2.00 ASCII id", {"1:22 error syntax-expected 21-21, at the end, marks >"}},
    {"SectionCutOff",
     "<? SIL 4.2.00 ASCII id > <?",
     {"1:28 error syntax-expected 27-27, at the end, marks >"}},
    {"SectionsEndCutOff",
     "<? SIL 4.2.00 ASCII id > <?> [kmt_svc_scan S] end <",
     {"1:52 error syntax-expected 51-51, at the end, a marker"}},
    {"EndMarkerMissing",
     "< SIL 4.2.00 ASCII id > [kmt_svc_scan S] end",
     {"1:45 error end-marker 44-44, at the end"}},
    {"EndMarkerMalformed", "< SIL 4.2.00 ASCII id > </SIM>", {"1:26 error end-marker 25-29, a marker"}},
    {"EndMarkerCutOff",
     "< SIL 4.2.00 ASCII id >\n< /SIL",
     {"2:7 error end-marker 30-30, at the end, marks >"}},
    {"ServiceTypeUnknown",
     "[kmt_svc_coffee S] end",
     {"1:2 error service-type-unknown 1-15, a service type, services"}},
    {"ServiceUnknown",
     "[service kmt_svc_coffee] { integer a = 1; } end",
     {"1:10 warning service-unknown 9-23, services"}},
    {"AttributeTypeUnknown",
     "[kmt_svc_scan S] { integr a; } end",
     {"1:20 error attribute-type-unknown 19-25, marks } *, a type, types of kmt_svc_scan"}},
    {"AttributeTypeOfOtherService",
     "[kmt_svc_scan S] { enum_RVQ a; } end",
     {"1:20 error attribute-type-of-other-service 19-27, marks } *, a type, types of kmt_svc_scan"}},
    {"BlockOfUnknownTypeHasNoScope",
     "[kmt_svc_coffee K] { x y; } end [kmt_svc_scan S] { integr a; } end",
     {"1:2 error service-type-unknown 1-15, a service type, services",
      "1:52 error attribute-type-unknown 51-57, marks } *, a type, types of kmt_svc_scan"}},
    {"AttributesNameTaken",
     "[kmt_svc_scan S] { integer a; real A; } end",
     {"1:36 error name-duplicate 35-36, second 27-28"}},
    {"InvocationsNameTaken",
     "[kmt_svc_scan S] A {} a {} end",
     {"1:23 error name-duplicate 22-23, found 24-25, second 17-18"}},
    {"ServicesNameTaken",
     "[kmt_svc_scan S] end [kmt_svc_scan s] end",
     {"1:36 error name-duplicate 35-36, found 36-37, second 14-15"}},
    {"ValueMalformed",
     "[kmt_svc_scan S] { integer a = x; } end",
     {"1:32 loss value-malformed 31-32, type integer"}},
    {"ValueMalformedBehindADigit",
     "[kmt_svc_scan S] { integer a = 1x; } end",
     {"1:33 loss value-malformed 32-33, type integer"}},
    {"ValueOutOfRange",
     "[kmt_svc_scan S] { struct_gutter e = 30/10/MM; } end",
     {"1:38 warning value-out-of-range 37-39, type struct_gutter"}},
    {"ValueSaturated",
     "[kmt_svc_scan S] { integer a = 99999999999; } end",
     {"1:32 loss value-saturated 31-42, type integer"}},
    {"ValueTail",
     "[kmt_svc_scan S] { struct_timeofday b = 23:59xyz; } end",
     {"1:46 loss value-tail 45-48, type struct_timeofday"}},
    {"ValueEmptyNumber",
     "[kmt_svc_scan S] { integer a = -; } end",
     {"1:32 warning value-empty-number 31-32, type integer"}},
    {"ValueImpossible",
     "[kmt_svc_scan S] { timestamp a = 2009/02/30/00/00/00; } end",
     {"1:42 warning value-impossible 41-43, type timestamp"}},
    {"ValueUnknownName",
     "[kmt_svc_scan S] { enum_colormode b = GREY; } end",
     {"1:39 warning value-unknown-name 38-42, names of kmt_svc_scan, type enum_colormode"}},
    {"ValueUnsafe", "[kmt_svc_scan S] { ref_invocation g = :; } end", {"1:39 warning value-unsafe 38-39"}},
    {"ValueRounded",
     "[kmt_svc_scan S] { real c = 1.00000001; } end",
     {"1:29 note value-rounded 28-38, type real"}},
    {"StatusUnknown", "[kmt_svc_scan S] {} (FOO) end", {"1:22 warning status-unknown 21-24, names"}},
    {"StatusTextLost",
     "[kmt_svc_scan S] {} (KMT_STATUS_ERROR {a b}) end",
     {"1:40 loss status-text-lost 39-40"}},
    {"StatusUnsafe",
     "[kmt_svc_scan S] {} (KMT_STATUS_ERROR {\"a b\"}) end",
     {"1:40 warning status-unsafe 39-44"}},
    {"CommentMoves", "[kmt_svc_scan S] { integer # x\n a; } end", {"1:28 note comment-moves 27-30"}},
    {"LinesEndInThreeWays",
     "[kmt_svc_scan S] {\r\n integr a;\r integr b;\n integr c; } end",
     {"2:2 error attribute-type-unknown 21-27, marks } *, a type, types of kmt_svc_scan",
      "3:2 error attribute-type-unknown 32-38, marks } ( *, a type, types of kmt_svc_scan",
      "4:2 error attribute-type-unknown 43-49, marks } ( *, a type, types of kmt_svc_scan"}},
    {"NoText", "", {"1:1 error syntax-expected 0-0, at the end, marks [ <"}},
};

INSTANTIATE_TEST_SUITE_P(Texts, SourceFindings, ::testing::ValuesIn(kCases),
                         [](const ::testing::TestParamInfo<Case> &each) {
                           return std::string(each.param.name);
                         });

// ---- Lengths and marks --------------------------------------------------------------------------------------

TEST(SourceFinding, NameTooLong) {
  EXPECT_EQ(findings_in("[kmt_svc_scan S] { integer " + std::string(1024, 'n') + "; } end"),
            Lines{"1:28 error syntax-length 27-1051"});
}

TEST(SourceFinding, CommentTooLong) {
  EXPECT_EQ(findings_in("#" + std::string(1023, 'c') + "\n[kmt_svc_scan S] end").at(0),
            "1:1 error syntax-length 0-1023");
}

TEST(SourceFinding, ByteOrderMark) {
  EXPECT_EQ(findings_in("\xEF\xBB\xBF[kmt_svc_scan S] end"), Lines{"1:1 error text-bom 0-3"});
}

// ---- NUL ------------------------------------------------------------------------------------------------------

class SourceCall : public SessionTest {
 protected:
  const std::string text = "[kmt_svc_scan S] { integer a = x, 1; } end";
  jt_source_options options{sizeof(jt_source_options), 0, 0, 0, 0};
};

TEST_F(SourceCall, DecodeOfANulFailsWithOneMessage) {
  const std::string with_nuls("[kmt_svc_scan S] \0 end \0", 24);
  const Ear ear;
  EXPECT_EQ(jt_decode_source(space, with_nuls.data(), with_nuls.size(), nullptr, ear.listener()), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: NUL in the text ..."});
  EXPECT_EQ(ear.finding_lines(), Lines{"1:18 error syntax-nul 17-18"});
}

TEST_F(SourceCall, CheckOfANulRecordsTheSameMessage) {
  const std::string with_nuls("[kmt_svc_scan S] \0 end \0", 24);
  EXPECT_EQ(jt_check_source(space, with_nuls.data(), with_nuls.size(), nullptr, nullptr), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: NUL in the text ..."});
}

// ---- Strictness and limits ------------------------------------------------------------------------------------

TEST_F(SourceCall, StrictDecodeFailsAtTheFirstLoss) {
  options.strict = 1;
  const Ear ear;
  EXPECT_EQ(jt_decode_source(space, text.data(), text.size(), &options, ear.listener()), 0);
  EXPECT_EQ(messages().back(), "SYNTAX ERROR: strict: value-malformed ...");
  EXPECT_EQ(ear.finding_lines(), Lines{"1:32 loss value-malformed 31-32, type integer"});
  EXPECT_EQ(live_nodes(space), 0);
}

TEST_F(SourceCall, StrictDecodeTakesWarnings) {
  options.strict = 1;
  const std::string warned = "[kmt_svc_scan S] {} (FOO) end";
  EXPECT_NE(jt_decode_source(space, warned.data(), warned.size(), &options, nullptr), 0);
}

TEST_F(SourceCall, StrictCheckFailsToo) {
  options.strict = 1;
  EXPECT_EQ(jt_check_source(space, text.data(), text.size(), &options, nullptr), 0);
  EXPECT_EQ(messages().back(), "SYNTAX ERROR: strict: value-malformed ...");
}

TEST_F(SourceCall, OfMoreBytesThanAllowedFails) {
  options.most_bytes = 10;
  const Ear ear;
  EXPECT_EQ(jt_decode_source(space, text.data(), text.size(), &options, ear.listener()), 0);
  EXPECT_EQ(messages(), Messages{"MEMORY ERROR: limit passed: bytes ..."});
  EXPECT_EQ(ear.finding_lines(), Lines{"1:11 error limit 10-42"});
}

TEST_F(SourceCall, OfAsManyBytesAsAllowedSucceeds) {
  options.most_bytes = text.size();
  EXPECT_NE(jt_decode_source(space, text.data(), text.size(), &options, nullptr), 0);
}

// ---- Listeners ------------------------------------------------------------------------------------------------

struct Ender {
  jt_parser_space *space;
  int calls = 0;
  int last = 0;  // the call that ends it
  int32_t result_inside = -1;

  int32_t on_call() { return ++calls == last ? 1 : 0; }
};

jt_listener ending(Ender &ender) {
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = &ender;
  listener.open = [](void *context, const jt_source_element *) {
    return static_cast<Ender *>(context)->on_call();
  };
  listener.close = [](void *context, const jt_source_element *) {
    return static_cast<Ender *>(context)->on_call();
  };
  listener.token = [](void *context, const jt_source_token *) {
    return static_cast<Ender *>(context)->on_call();
  };
  listener.finding = [](void *context, const jt_finding *) {
    return static_cast<Ender *>(context)->on_call();
  };
  listener.handle = [](void *context, int32_t, int32_t) { return static_cast<Ender *>(context)->on_call(); };
  return listener;
}

TEST_F(SourceCall, EndsWithAnyCallOfTheListener) {
  Ender all{space};
  const jt_listener counting = ending(all);
  ASSERT_NE(jt_decode_source(space, text.data(), text.size(), nullptr, &counting), 0);
  ASSERT_EQ(all.calls, 29);
  for (int last = 1; last <= all.calls; ++last) {
    reopen();
    Ender ender{space, 0, last};
    const jt_listener listener = ending(ender);
    EXPECT_EQ(jt_decode_source(space, text.data(), text.size(), nullptr, &listener), 0) << last;
    EXPECT_EQ(ender.calls, last);
    EXPECT_EQ(messages().back(), "CALL ERROR: ended by the listener ...");
    EXPECT_EQ(live_nodes(space), 0);
  }
}

TEST_F(SourceCall, TakesNoOthersFromInside) {
  Ender inside{space};
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = &inside;
  listener.open = [](void *context, const jt_source_element *) {
    auto &ender = *static_cast<Ender *>(context);
    ender.result_inside = jt_create_template(ender.space);
    return 0;
  };
  const std::string silent = "[kmt_svc_scan S] end";
  EXPECT_NE(jt_decode_source(space, silent.data(), silent.size(), nullptr, &listener), 0);
  EXPECT_EQ(inside.result_inside, 0);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: made from inside a listener ..."});
}

}  // namespace
}  // namespace jt_test
