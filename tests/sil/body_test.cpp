// Services, invocations and attributes as they may be written: every step that a body can take, seen in what
// it is written back as.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

class Service : public AcceptedText {};

TEST_P(Service, IsKept) { expect_read(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Shapes, Service,
    ::testing::Values(
        Reading{"Bare", "[ service A ] end", "[service A]\nend\n\n", {}},
        Reading{"BlanksNowhere", "[service A]end", "[service A]\nend\n\n", {}},
        Reading{"EndInAnyCase", "[ service A ] EnD", "[service A]\nend\n\n", {}},
        Reading{"TypeInAnyCase", "[ SERVICE A ] end", "[service A]\nend\n\n", {}},
        Reading{"Two", "[ service A ] end [ service B ] end", "[service A]\nend\n\n[service B]\nend\n\n", {}},
        Reading{"EmptyStatus", "[ service A ] end ( )", "[service A]\nend\n\n", {}},
        Reading{"AnotherAfterEmptyStatus",
                "[ service A ] end ( ) [ service B ] end",
                "[service A]\nend\n\n[service B]\nend\n\n",
                {}},
        Reading{
            "Status", "[ service A ] end ( KMT_STATUS_ERROR )", "[service A]\nend(KMT_STATUS_ERROR)\n\n", {}},
        Reading{"AnotherAfterStatus",
                "[ service A ] end ( KMT_STATUS_ERROR ) [ service B ] end",
                "[service A]\nend(KMT_STATUS_ERROR)\n\n[service B]\nend\n\n",
                {}},
        Reading{"StatusWithEmptyBraces",
                "[ service A ] end ( KMT_STATUS_ERROR { } )",
                "[service A]\nend(KMT_STATUS_ERROR)\n\n",
                {}},
        Reading{"StatusTextWord",
                "[ service A ] end ( KMT_STATUS_ERROR { jam } )",
                "[service A]\nend(KMT_STATUS_ERROR{jam})\n\n",
                {}},
        Reading{"StatusTextOfOneLetter",
                "[ service A ] end ( KMT_STATUS_ERROR { x } )",
                "[service A]\nend(KMT_STATUS_ERROR{x})\n\n",
                {}},
        Reading{"StatusTextString",
                "[ service A ] end ( KMT_STATUS_ERROR { \"jam\" } )",
                "[service A]\nend(KMT_STATUS_ERROR{jam})\n\n",
                {}},
        Reading{"StatusTextLastOfThree",
                "[ service A ] end ( KMT_STATUS_ERROR { one \"two\" three } )",
                "[service A]\nend(KMT_STATUS_ERROR{three})\n\n",
                {}},
        Reading{"StatusTextEmptyString",
                "[ service A ] end ( KMT_STATUS_ERROR { \"\" } )",
                "[service A]\nend(KMT_STATUS_ERROR)\n\n",
                {}},
        Reading{"StatusTextLastIsEmpty",
                "[ service A ] end ( KMT_STATUS_ERROR { one \"\" } )",
                "[service A]\nend(KMT_STATUS_ERROR)\n\n",
                {}},
        Reading{"StatusTextIsNotKeptForTheNext",
                "[ service A ] end ( KMT_STATUS_ERROR { jam } ) [ service B ] end ( KMT_STATUS_WARNING { } )",
                "[service A]\nend(KMT_STATUS_ERROR{jam})\n\n[service B]\nend(KMT_STATUS_WARNING)\n\n",
                {}},
        Reading{"NameLikeAType",
                "[ service integer ] { integer a ; } end",
                "[service integer]\n {\n      integer a = ;\n }\nend\n\n",
                {}},
        Reading{"NameOfAnotherService",
                "[ kmt_svc_print kmt_svc_scan ] { struct_gutter g ; } end",
                "[kmt_svc_print kmt_svc_scan]\n {\n      struct_gutter g = ;\n }\nend\n\n",
                {}}),
    case_name<Reading>);

class Invocation : public AcceptedText {};

TEST_P(Invocation, IsKept) {
  const Reading &reading = GetParam();
  expect_read({reading.name, "[ service kmt_svc_scan ] " + reading.text,
               "[service kmt_svc_scan]\n" + reading.written, reading.messages});
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, Invocation,
    ::testing::Values(
        Reading{"Unnamed", "{ } end", " {\n }\nend\n\n", {}},
        Reading{"Named", "X { } end", " X{\n }\nend\n\n", {}},
        Reading{"TwoUnnamed", "{ } { } end", " {\n }\n {\n }\nend\n\n", {}},
        Reading{"NamedAfterUnnamed", "{ } X { } end", " {\n }\n X{\n }\nend\n\n", {}},
        Reading{"UnnamedAfterNamed", "X { } { } end", " X{\n }\n {\n }\nend\n\n", {}},
        Reading{"NamedAfterNamed", "X { } Y { } end", " X{\n }\n Y{\n }\nend\n\n", {}},
        Reading{"ServiceStatusAfterIt",
                "{ } end ( KMT_STATUS_ERROR { jam } )",
                " {\n }\nend(KMT_STATUS_ERROR{jam})\n\n",
                {}},
        Reading{"ServiceAfterIt", "{ } end [ service B ] end", " {\n }\nend\n\n[service B]\nend\n\n", {}}),
    case_name<Reading>);

INSTANTIATE_TEST_SUITE_P(
    Statuses, Invocation,
    ::testing::Values(
        Reading{"Empty", "{ } ( ) end", " {\n }\nend\n\n", {}},
        Reading{"Number", "{ } ( KMT_STATUS_ERROR ) end", " {\n }(KMT_STATUS_ERROR)\nend\n\n", {}},
        Reading{"EmptyBraces", "{ } ( KMT_STATUS_ERROR { } ) end", " {\n }(KMT_STATUS_ERROR{})\nend\n\n", {}},
        Reading{
            "TextWord", "{ } ( KMT_STATUS_ERROR { jam } ) end", " {\n }(KMT_STATUS_ERROR{jam})\nend\n\n", {}},
        Reading{"TextLastOfThree",
                "{ } ( KMT_STATUS_ERROR { one \"two\" three } ) end",
                " {\n }(KMT_STATUS_ERROR{three})\nend\n\n",
                {}},
        Reading{"TextEmptyString",
                "{ } ( KMT_STATUS_ERROR { one \"\" } ) end",
                " {\n }(KMT_STATUS_ERROR{})\nend\n\n",
                {}},
        Reading{"ThenUnnamed", "{ } ( ) { } end", " {\n }\n {\n }\nend\n\n", {}},
        Reading{"ThenNamed",
                "{ } ( KMT_STATUS_ERROR ) X { } end",
                " {\n }(KMT_STATUS_ERROR)\n X{\n }\nend\n\n",
                {}},
        Reading{"TextIsNotKeptForTheNext",
                "{ } ( KMT_STATUS_ERROR { jam } ) { } ( KMT_STATUS_WARNING { } ) end",
                " {\n }(KMT_STATUS_ERROR{jam})\n {\n }(KMT_STATUS_WARNING{})\nend\n\n",
                {}}),
    case_name<Reading>);

class Attribute : public AcceptedText {};

TEST_P(Attribute, IsKept) {
  const Reading &reading = GetParam();
  expect_read({reading.name, "[ service kmt_svc_scan ] { " + reading.text + " } end",
               "[service kmt_svc_scan]\n {\n" + reading.written + " }\nend\n\n", reading.messages});
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, Attribute,
    ::testing::Values(
        Reading{"WithoutValue", "integer a ;", "      integer a = ;\n", {}},
        Reading{"EqualsWithoutValue", "integer a = ;", "      integer a = ;\n", {}},
        Reading{"OneValue", "integer a = 1 ;", "      integer a = 1;\n", {}},
        Reading{"ThreeValues", "integer a = 1 , 2 , 3 ;", "      integer a = 1, 2, 3;\n", {}},
        Reading{"BlanksNowhere",
                "integer a=1,2;*string b=\"x\";",
                "      integer a = 1, 2;\n    * string b = \"x\";\n",
                {}},
        Reading{"WordAndString", "string a = x , \"y z\" ;", "      string a = \"x\", \"y z\";\n", {}},
        Reading{"EmptyString", "string a = \"\" ;", "      string a = \"\";\n", {}},
        Reading{"EndAsAString", "string a = \"end\" ;", "      string a = \"end\";\n", {}},
        Reading{"Two", "integer a ; integer b ;", "      integer a = ;\n      integer b = ;\n", {}},
        Reading{"Star", "* integer a ;", "    * integer a = ;\n", {}},
        Reading{"StarOnlyForTheFirst",
                "* integer a ; integer b ;",
                "    * integer a = ;\n      integer b = ;\n",
                {}},
        Reading{"StarForTheSecond",
                "integer a ; * integer b ;",
                "      integer a = ;\n    * integer b = ;\n",
                {}},
        Reading{
            "StarForBoth", "* integer a ; * integer b ;", "    * integer a = ;\n    * integer b = ;\n", {}},
        Reading{"TypeInAnyCase",
                "INTEGER a ; Enum_MediaSize m = iso_a4sef ;",
                "      integer a = ;\n      enum_mediasize m = ISO_A4SEF;\n",
                {}},
        Reading{"TypeOfEveryService", "enum_units u = mm ;", "      enum_units u = MM;\n", {}}),
    case_name<Reading>);

INSTANTIATE_TEST_SUITE_P(
    Statuses, Attribute,
    ::testing::Values(
        Reading{"Empty", "integer a ; ( )", "      integer a = ;\n", {}},
        Reading{"Number", "integer a ; ( KMT_STATUS_ERROR )", "      integer a = ;(KMT_STATUS_ERROR)\n", {}},
        Reading{"EmptyBraces",
                "integer a ; ( KMT_STATUS_ERROR { } )",
                "      integer a = ;(KMT_STATUS_ERROR{})\n",
                {}},
        Reading{"Text",
                "integer a = 1 ; ( KMT_STATUS_ERROR { x } )",
                "      integer a = 1;(KMT_STATUS_ERROR{x})\n",
                {}},
        Reading{"TextOfAnyToken",
                "integer a ; ( KMT_STATUS_ERROR { [ ( { = end ) || } )",
                "      integer a = ;(KMT_STATUS_ERROR{||})\n",
                {}},
        Reading{"TextEndKeyword",
                "integer a ; ( KMT_STATUS_ERROR { End } )",
                "      integer a = ;(KMT_STATUS_ERROR{End})\n",
                {}},
        Reading{"TextOpenBrace",
                "integer a ; ( KMT_STATUS_ERROR { { } )",
                "      integer a = ;(KMT_STATUS_ERROR{{})\n",
                {}},
        Reading{"TextCloseBraceString",
                "integer a ; ( KMT_STATUS_ERROR { \"}\" } )",
                "      integer a = ;(KMT_STATUS_ERROR{}})\n",
                {}},
        Reading{"TextEmptyString",
                "integer a ; ( KMT_STATUS_ERROR { x \"\" } )",
                "      integer a = ;(KMT_STATUS_ERROR{})\n",
                {}},
        Reading{
            "ThenAttribute", "integer a ; ( ) integer b ;", "      integer a = ;\n      integer b = ;\n", {}},
        Reading{"ThenStar",
                "integer a ; ( KMT_STATUS_ERROR ) * integer b ;",
                "      integer a = ;(KMT_STATUS_ERROR)\n    * integer b = ;\n",
                {}},
        Reading{"StarOnlyForTheFirst",
                "* integer a ; ( ) integer b ;",
                "    * integer a = ;\n      integer b = ;\n",
                {}},
        Reading{"TextIsNotKeptForTheNext",
                "integer a ; ( KMT_STATUS_ERROR { x } ) integer b ; ( KMT_STATUS_ERROR { } )",
                "      integer a = ;(KMT_STATUS_ERROR{x})\n      integer b = ;(KMT_STATUS_ERROR{})\n",
                {}}),
    case_name<Reading>);

INSTANTIATE_TEST_SUITE_P(
    BadValues, Attribute,
    ::testing::Values(
        Reading{"RefusedByItsType",
                "integer a = 12x;",
                "      integer a = ;\n",
                {"SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\n12x ..."}},
        Reading{"RefusedBetweenOthers",
                "integer a = 1 , x , 3 ;",
                "      integer a = 1, 3;\n",
                {"SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\nx ..."}},
        Reading{"RefusedInSilence",
                "timestamp t = \"2009-01-01/00/00/00\" ; integer e = \"\" ;",
                "      timestamp t = ;\n      integer e = ;\n",
                {}},
        Reading{"TypeOfABlock", "service a = 1 , 2 ;", "      service a = ;\n", {}},
        Reading{
            "RefusedWhileOthersFollow",
            "boolean a = maybe ; boolean b = true ;",
            "      boolean a = ;\n      boolean b = TRUE;\n",
            {"SYNTAX ERROR: trying to evaluate the following value string as -- boolean --:\n\nmaybe ..."}}),
    case_name<Reading>);

class Body : public DecodeTest {};

TEST_F(Body, BuildsServiceInvocationAttributeAndValue) {
  jt_node *const root = decoded("[ kmt_svc_scan MyScan ] X { * integer a = 7 ; } end");
  ASSERT_NE(root, nullptr);
  const jt_node *const service = root->first_child;
  ASSERT_NE(service, nullptr);
  EXPECT_EQ(service->node_class, JT_NODE_SERVICE);
  EXPECT_STREQ(service->name, "MyScan");
  EXPECT_STREQ(service->type->name, "kmt_svc_scan");
  EXPECT_EQ(service->parent, root);
  const jt_node *const invocation = service->first_child;
  ASSERT_NE(invocation, nullptr);
  EXPECT_EQ(invocation->node_class, JT_NODE_INVOCATION);
  EXPECT_STREQ(invocation->name, "X");
  const jt_node *const attribute = invocation->first_child;
  ASSERT_NE(attribute, nullptr);
  EXPECT_EQ(attribute->node_class, JT_NODE_ATTRIBUTE);
  EXPECT_STREQ(attribute->name, "a");
  EXPECT_STREQ(attribute->type->name, "integer");
  EXPECT_EQ(attribute->non_compulsory, 1);
  const jt_node *const value = attribute->first_child;
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->node_class, JT_NODE_VALUE);
  EXPECT_EQ(value->name, nullptr);
  EXPECT_EQ(value->type, attribute->type);
  EXPECT_EQ(value->pending_value, nullptr);
  EXPECT_EQ(*reinterpret_cast<const int32_t *>(value->value), 7);
}

TEST_F(Body, RootIsATemplateNamedTemplate) {
  const jt_node *const root = decoded("[ service A ] end");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->node_class, JT_NODE_TEMPLATE);
  EXPECT_STREQ(root->name, "template");
  EXPECT_STREQ(root->type->name, "template");
}

TEST_F(Body, UnnamedInvocationHasNoName) {
  jt_node *const root = decoded("[ service kmt_svc_scan ] { } end");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(child(root, {"kmt_svc_scan"})->first_child->name, nullptr);
}

TEST_F(Body, StarIsKeptOnItsAttributeAlone) {
  jt_node *const root = decoded("[ service kmt_svc_scan ] X { integer a ; * integer b ; integer c ; } end");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(child(root, {"kmt_svc_scan", "X", "a"})->non_compulsory, 0);
  EXPECT_EQ(child(root, {"kmt_svc_scan", "X", "b"})->non_compulsory, 1);
  EXPECT_EQ(child(root, {"kmt_svc_scan", "X", "c"})->non_compulsory, 0);
}

TEST_F(Body, ValuesStandInTheirOrder) {
  jt_node *const root = decoded("[ service kmt_svc_scan ] X { string a = one , \"two\" , three ; } end");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(values(child(root, {"kmt_svc_scan", "X", "a"})),
            (std::vector<std::string>{"one", "two", "three"}));
}

TEST_F(Body, EqualsWithoutValueMakesNoValueNode) {
  jt_node *const root = decoded("[ service kmt_svc_scan ] X { string a = ; } end");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(child(root, {"kmt_svc_scan", "X", "a"})->first_child, nullptr);
}

TEST_F(Body, CursorsStandOnTheFirstChildren) {
  jt_node *const root = decoded(
      "[ service kmt_svc_scan ] X { integer a = 1 , 2 ; integer b ; } Y { } end [ service kmt_svc_print ] "
      "end");
  ASSERT_NE(root, nullptr);
  for (jt_node *const parent : {root, child(root, {"kmt_svc_scan"}), child(root, {"kmt_svc_scan", "X"}),
                                child(root, {"kmt_svc_scan", "X", "a"})}) {
    EXPECT_NE(parent->first_child, nullptr) << parent->name;
    EXPECT_EQ(parent->cursor, parent->first_child) << parent->name;
  }
  for (jt_node *const childless : {child(root, {"kmt_svc_print"}), child(root, {"kmt_svc_scan", "Y"}),
                                   child(root, {"kmt_svc_scan", "X", "b"})}) {
    EXPECT_EQ(childless->cursor, jt_core::not_started()) << childless->name;
  }
}

TEST_F(Body, SameNamesMayStandUnderDifferentParents) {
  EXPECT_NE(decode("[ service A ] X { integer X ; } Y { integer X ; } end [ service X ] X { } end"), 0);
}

TEST_F(Body, RefusedValueLeavesTheAttributeWithoutValue) {
  jt_node *const root = decoded("[ service kmt_svc_scan ] X { integer a = 12x; } end");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
  const jt_node *const attribute = child(root, {"kmt_svc_scan", "X", "a"});
  ASSERT_NE(attribute, nullptr);
  EXPECT_EQ(attribute->first_child, nullptr);
}

TEST_F(Body, TakesSlotsInTheOrderOfTheText) {
  decoded("[ service A ] X { string a = one , two ; } end [ service B ] end");
  EXPECT_EQ(slots(9), (std::vector<std::string>{"0 template", "1 A", "2 X", "3 a", "4 (none)", "4 (none)",
                                                "1 B", "free", "free"}));
}

TEST_F(Body, TakesSlotsAfterHeaderAndSection) {
  decoded(
      "<? SIL 4.2.00 ASCII id > integer h = 1 ; < ? > [ service A ] end < /? > [ service B ] { integer a ; } "
      "end "
      "< /SIL >");
  EXPECT_EQ(slots(13), (std::vector<std::string>{"0 template", "6 header", "3 LanguageVersion",
                                                 "3 CharacterEncoding", "3 InteractionID", "3 h", "4 (none)",
                                                 "0 header", "1 A", "1 B", "2 (none)", "3 a", "free"}));
}

TEST_F(Body, RefusedValueTakesNoSlot) {
  decoded("[ service kmt_svc_scan ] X { integer a = 1x , 2 ; } end");
  EXPECT_EQ(slots(6),
            (std::vector<std::string>{"0 template", "1 kmt_svc_scan", "2 X", "3 a", "4 (none)", "free"}));
}

TEST_F(Body, FreeSlotsAreTakenLowestFirst) {
  const int32_t first = decode("[ service A ] end");
  decode("[ service B ] end");
  jt_destroy_template(space, first);
  decode("[ service C ] { } end");
  EXPECT_EQ(slots(5), (std::vector<std::string>{"0 template", "1 C", "0 template", "1 B", "2 (none)"}));
}

TEST_F(Body, ManyInvocationsAreReadAndWritten) {
  std::string text = "[service kmt_svc_scan]\n";
  for (int i = 0; i < 3000; ++i) text += " {\n }\n";
  text += "end\n\n";
  const int32_t handle = decode(text);
  EXPECT_NE(handle, 0);
  EXPECT_EQ(encoded(handle), text);
}

}  // namespace
}  // namespace jt_test
