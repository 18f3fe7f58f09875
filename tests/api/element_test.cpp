// The calls that read any element by its handle, over templates with headers of all three forms and without
// one, decoded and built by calls; what a handle survives; and that none of these calls moves a cursor.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/session.h"
#include "tree/node.h"

namespace jt_test {
namespace {

using Words = std::vector<std::string>;

constexpr char kJob[] =
    "# before all\n"
    "<? SIL 4.2.00 ASCII job-1 > * string Owner = \"The \\\"boss\\\"\"; (KMT_STATUS_WARNING)\n"
    "< ? > # of the section\n"
    "[ kmt_svc_fax Inside ] { integer Retries = 3; } end < /? >\n"
    "[ kmt_svc_scan Scanner ] # of the service\n"
    "one { # of the invocation\n"
    "  * integer Pages = # of the attribute\n"
    "      1, 2; (KMT_STATUS_OVERRIDDEN{7})\n"
    "  string Note;\n"
    "} (odd) { enum_sided Sides = two_sided; }\n"
    "end (KMT_STATUS_ERROR{TrayEmpty})\n"
    "[ service Own ] { } end\n"
    "< /SIL >\n";

class ElementTest : public SessionTest {
 protected:
  ElementTest() : job(jt_decode_template(space, kJob)) { reset_error_status(space); }

  // Down by names.
  int32_t at(int32_t element, const Words &names) {
    for (const std::string &name : names) element = jt_find_child(space, element, name.c_str());
    return element;
  }
  int32_t pages() { return at(job, {"Scanner", "one", "Pages"}); }

  // The element and everything below it, a line each.
  std::string outline(int32_t element, const std::string &indent = "") {
    const std::string name = take_text(jt_element_name(space, element));
    const std::string value = take_text(jt_element_value_text(space, element));
    std::string text =
        indent + std::to_string(jt_element_kind(space, element)) + " " + name + " " + value + "\n";
    for (int32_t child = jt_first_child(space, element); child != 0; child = jt_next_sibling(space, child)) {
      text += outline(child, indent + " ");
    }
    return text;
  }

  // What a call found silently.
  void expect_nothing(int32_t found) {
    EXPECT_EQ(found, 0);
    EXPECT_EQ(status(), 0);
  }
  void expect_no_text(char *text) {
    EXPECT_EQ(take_text(text), "(none)");
    EXPECT_EQ(status(), 0);
  }
  void expect_dead(int32_t element) {
    EXPECT_EQ(jt_element_kind(space, element), -1) << element;
    EXPECT_EQ(status(), -4);
    EXPECT_EQ(messages().back(), "CALL ERROR: not a valid handle ...");
  }

  int32_t job;
};

// ---- Headers ----------------------------------------------------------------------------------------------

struct Form {
  const char *name;
  const char *text;
  int32_t kind;
  bool has_section;
};

class EveryForm : public SessionTest, public ::testing::WithParamInterface<Form> {};

TEST_P(EveryForm, HasAHeaderWithItsWordsAndAttributes) {
  const int32_t job = jt_decode_template(space, GetParam().text);
  const int32_t header = jt_header(space, job);
  EXPECT_EQ(jt_element_kind(space, header), GetParam().kind);
  EXPECT_EQ(take_text(jt_header_version(space, job)), "4.2.00");
  EXPECT_EQ(take_text(jt_header_identifier(space, job)), "job-9");
  const int32_t owner = jt_first_child(space, header);
  EXPECT_EQ(take_text(jt_element_name(space, owner)), "Owner");
  EXPECT_EQ(jt_next_sibling(space, owner), 0);
  EXPECT_EQ(take_text(jt_element_value_text(space, jt_first_child(space, owner))), "me");
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(EveryForm, HasASectionOrNone) {
  const int32_t job = jt_decode_template(space, GetParam().text);
  const int32_t section = jt_section(space, job);
  EXPECT_EQ(section != 0, GetParam().has_section);
  if (section != 0) {
    EXPECT_EQ(jt_element_kind(space, section), 0);
    EXPECT_EQ(take_text(jt_element_name(space, jt_first_child(space, section))), "Inside");
  }
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(EveryForm, IsClimbedFromItsHeader) {
  const int32_t job = jt_decode_template(space, GetParam().text);
  const int32_t header = jt_header(space, job);
  const int32_t value = jt_first_child(space, jt_first_child(space, header));
  EXPECT_EQ(jt_parent(space, value), jt_first_child(space, header));
  EXPECT_EQ(jt_parent(space, jt_parent(space, value)), header);
  EXPECT_EQ(jt_parent(space, header), job);
  EXPECT_EQ(jt_parent(space, job), 0);
  EXPECT_EQ(jt_root(space, value), job);
  EXPECT_EQ(jt_root(space, header), job);
  EXPECT_EQ(messages(), Messages{});
}

INSTANTIATE_TEST_SUITE_P(
    Elements, EveryForm,
    ::testing::Values(
        Form{"Plain", "< SIL 4.2.00 ASCII job-9 > string Owner = me; < /SIL >", 7, false},
        Form{"Question", "<? SIL 4.2.00 ASCII job-9 > string Owner = me; [ service A ] end < /SIL >", 6,
             false},
        Form{"QuestionWithSection",
             "<? SIL 4.2.00 ASCII job-9 > string Owner = me; < ? > [ service Inside ] end < /? > < /SIL >", 6,
             true},
        Form{"Exclaim",
             "<! SIL 4.2.00 ASCII job-9 > string Owner = me; < ! > [ service Inside ] end < /! > < /SIL >", 8,
             true}),
    [](const auto &tested) { return std::string(tested.param.name); });

TEST_F(ElementTest, TheVersionAndTheIdentifierAreAsTheyWereRead) {
  const int32_t older = jt_decode_template(space, "< SIL 3.1 ASCII Job/17 > < /SIL >");
  EXPECT_EQ(take_text(jt_header_version(space, older)), "3.1");
  EXPECT_EQ(take_text(jt_header_identifier(space, older)), "Job/17");
}

TEST_F(ElementTest, WithoutAHeaderThereIsNeitherHeaderNorSection) {
  for (const int32_t bare : {jt_create_template(space), jt_decode_template(space, "[ service A ] end")}) {
    expect_nothing(jt_header(space, bare));
    expect_nothing(jt_section(space, bare));
    expect_no_text(jt_header_version(space, bare));
    expect_no_text(jt_header_identifier(space, bare));
  }
}

TEST_F(ElementTest, ASectionHasNoHeaderAndNoSectionOfItsOwn) {
  const int32_t section = jt_section(space, job);
  expect_nothing(jt_header(space, section));
  expect_nothing(jt_section(space, section));
  expect_no_text(jt_header_version(space, section));
  expect_no_text(jt_header_identifier(space, section));
}

TEST_F(ElementTest, OnlyATemplateIsAskedForItsHeader) {
  for (const int32_t other : {jt_header(space, job), pages()}) {
    EXPECT_EQ(jt_header(space, other), 0);
    EXPECT_EQ(jt_section(space, other), 0);
    EXPECT_EQ(take_text(jt_header_version(space, other)), "(none)");
    EXPECT_EQ(take_text(jt_header_identifier(space, other)), "(none)");
  }
  EXPECT_EQ(status(), -4);
  EXPECT_EQ(messages(), Messages(5, "CALL ERROR: not a template ..."));
}

// ---- Walks ------------------------------------------------------------------------------------------------

TEST_F(ElementTest, AWalkReachesEverythingInOrder) {
  EXPECT_EQ(outline(job),
            "0 (none) (none)\n"
            " 1 Scanner (none)\n"
            "  2 one (none)\n"
            "   3 Pages (none)\n"
            "    4 (none) 1\n"
            "    4 (none) 2\n"
            "   3 Note (none)\n"
            "  2 (none) (none)\n"
            "   3 Sides (none)\n"
            "    4 (none) TWO_SIDED\n"
            " 1 Own (none)\n"
            "  2 (none) (none)\n");
  EXPECT_EQ(outline(jt_header(space, job)),
            "6 (none) (none)\n"
            " 3 Owner (none)\n"
            "  4 (none) The \"boss\"\n");
  EXPECT_EQ(outline(jt_section(space, job)),
            "0 (none) (none)\n"
            " 1 Inside (none)\n"
            "  2 (none) (none)\n"
            "   3 Retries (none)\n"
            "    4 (none) 3\n");
  EXPECT_EQ(status(), 0);
}

TEST_F(ElementTest, ATemplateBuiltByCallsIsWalkedLikeADecodedOne) {
  const int32_t built = jt_create_template(space);
  EXPECT_EQ(outline(built), "0 (none) (none)\n");
  jt_add_service(space, built, "kmt_svc_scan", "Scanner");
  jt_add_invocation(space, built, "Scanner");
  jt_set_invocation_name(space, built, "Scanner", "one");
  jt_add_attribute(space, built, "Scanner", "integer", "Pages");
  jt_add_attribute_value_string(space, built, "Scanner", "Pages", "5");
  EXPECT_EQ(outline(built),
            "0 (none) (none)\n"
            " 1 Scanner (none)\n"
            "  2 one (none)\n"
            "   3 Pages (none)\n"
            "    4 (none) 5\n");
  EXPECT_EQ(jt_root(space, at(built, {"Scanner", "one", "Pages"})), built);
}

TEST_F(ElementTest, EveryElementKnowsItsParent) {
  const int32_t value = jt_first_child(space, pages());
  EXPECT_EQ(jt_parent(space, value), pages());
  EXPECT_EQ(jt_parent(space, jt_next_sibling(space, value)), pages());
  EXPECT_EQ(jt_parent(space, pages()), at(job, {"Scanner", "one"}));
  EXPECT_EQ(jt_parent(space, at(job, {"Scanner", "one"})), at(job, {"Scanner"}));
  EXPECT_EQ(jt_parent(space, at(job, {"Scanner"})), job);
  expect_nothing(jt_parent(space, job));
}

TEST_F(ElementTest, ASectionIsInItsTemplate) {
  const int32_t section = jt_section(space, job);
  EXPECT_EQ(jt_parent(space, at(section, {"Inside"})), section);
  EXPECT_EQ(jt_parent(space, section), job);
  EXPECT_EQ(jt_root(space, at(section, {"Inside"})), job);
  EXPECT_EQ(jt_root(space, section), job);
}

TEST_F(ElementTest, TheRootOfEveryElementIsTheTemplate) {
  EXPECT_EQ(jt_root(space, job), job);
  EXPECT_EQ(jt_root(space, jt_first_child(space, pages())), job);
  EXPECT_EQ(status(), 0);
}

TEST_F(ElementTest, ATemplateItsHeaderAndItsSectionHaveNoSiblings) {
  const int32_t other = jt_create_template(space);
  for (const int32_t alone : {job, jt_header(space, job), jt_section(space, job), other}) {
    expect_nothing(jt_next_sibling(space, alone));
  }
}

TEST_F(ElementTest, TheLastOneHasNoSibling) {
  expect_nothing(jt_next_sibling(space, at(job, {"Own"})));
  expect_nothing(jt_next_sibling(space, at(job, {"Scanner", "one", "Note"})));
}

TEST_F(ElementTest, WhatHoldsNothingHasNoFirstChild) {
  expect_nothing(jt_first_child(space, at(job, {"Scanner", "one", "Note"})));
  expect_nothing(jt_first_child(space, jt_first_child(space, pages())));
}

TEST_F(ElementTest, TwoWalksOverTheSameChildrenDoNotDisturbEachOther) {
  std::string pairs;
  for (int32_t a = jt_first_child(space, pages()); a != 0; a = jt_next_sibling(space, a)) {
    for (int32_t b = jt_first_child(space, pages()); b != 0; b = jt_next_sibling(space, b)) {
      pairs += take_text(jt_element_value_text(space, a)) + take_text(jt_element_value_text(space, b)) + " ";
    }
  }
  EXPECT_EQ(pairs, "11 12 21 22 ");
}

void ask_everything(jt_parser_space *space, int32_t element) {
  jt_root(space, element);
  jt_parent(space, element);
  jt_find_child(space, element, "Pages");
  jt_element_kind(space, element);
  jt_element_flags(space, element);
  using Text = char *(*)(jt_parser_space *, int32_t);
  for (const Text text : {jt_element_name, jt_element_type, jt_element_value_text, jt_element_comment,
                          jt_element_status_text, jt_header_version, jt_header_identifier}) {
    take_text(text(space, element));
  }
  jt_destroy_status(space, jt_element_status(space, element));
  jt_header(space, element);
  jt_section(space, element);
  for (int32_t child = jt_first_child(space, element); child != 0; child = jt_next_sibling(space, child)) {
    ask_everything(space, child);
  }
}

// One cursor on the second of three, one on the second of two, one that has run out, one on the first.
TEST_F(ElementTest, NoCallMovesACursor) {
  jt_add_service(space, job, "service", "Third");
  take_text(jt_get_first_service_name(space, job));
  jt_named_invocation(space, job, "Scanner", "one");
  for (int i = 0; i < 3; ++i) take_text(jt_get_next_attribute_name(space, job, "Scanner"));
  take_text(jt_get_first_attribute_value_string(space, job, "Scanner", "Pages"));
  const std::string before = encoded(job);
  ask_everything(space, job);
  EXPECT_EQ(take_text(jt_get_next_service_name(space, job)), "Own");
  EXPECT_EQ(take_text(jt_get_invocation_name(space, job, "Scanner")), "one");
  EXPECT_EQ(take_text(jt_get_next_attribute_name(space, job, "Scanner")), "(none)");
  EXPECT_EQ(take_text(jt_get_next_attribute_value_string(space, job, "Scanner", "Pages")), "2");
  EXPECT_EQ(encoded(job), before);
}

TEST_F(ElementTest, ACursorThatHasNotStartedStaysSo) {
  const int32_t built = jt_create_template(space);
  jt_add_service(space, built, "service", "A");
  jt_add_invocation(space, built, "A");
  reset_index(space, opaque_to_node(space, at(built, {"A"})));
  opaque_to_node(space, built)->cursor = jt_core::not_started();
  ask_everything(space, built);
  EXPECT_EQ(opaque_to_node(space, built)->cursor, jt_core::not_started());
}

// ---- By name ----------------------------------------------------------------------------------------------

TEST_F(ElementTest, ChildrenAreFoundInAnyLetterCase) {
  EXPECT_EQ(at(job, {"SCANNER", "ONE", "pages"}), pages());
  EXPECT_NE(pages(), 0);
  EXPECT_EQ(jt_find_child(space, jt_header(space, job), "OWNER"),
            jt_first_child(space, jt_header(space, job)));
}

TEST_F(ElementTest, OnlyTheChildrenThemselvesAreFound) {
  expect_nothing(jt_find_child(space, job, "Inside"));
  expect_nothing(jt_find_child(space, job, "one"));
  expect_nothing(jt_find_child(space, job, "Owner"));
  expect_nothing(jt_find_child(space, jt_header(space, job), "InteractionID"));
  expect_nothing(jt_find_child(space, jt_section(space, job), "Scanner"));
}

TEST_F(ElementTest, ANullOrEmptyNameFindsNothing) {
  for (const int32_t parent : {job, at(job, {"Scanner"}), at(job, {"Own"}), pages()}) {
    expect_nothing(jt_find_child(space, parent, nullptr));
    expect_nothing(jt_find_child(space, parent, ""));
  }
}

TEST_F(ElementTest, ValuesHaveNoNamesToBeFoundBy) {
  expect_nothing(jt_find_child(space, pages(), "1"));
  expect_nothing(jt_find_child(space, jt_first_child(space, pages()), "1"));
}

TEST_F(ElementTest, OneOfManyChildrenIsFound) {
  jt_named_invocation(space, job, "Scanner", "one");
  for (int i = 0; i < 100; ++i) {
    jt_add_attribute(space, job, "Scanner", "integer", ("a" + std::to_string(i)).c_str());
    jt_add_attribute_value_string(space, job, "Scanner", "Note", ("a" + std::to_string(i)).c_str());
  }
  const int32_t found = at(job, {"Scanner", "one", "A77"});
  EXPECT_EQ(take_text(jt_element_name(space, found)), "a77");
  expect_nothing(at(job, {"Scanner", "one", "Note", "a77"}));
}

// ---- What an element is -----------------------------------------------------------------------------------

TEST_F(ElementTest, ServicesInvocationsAndAttributesHaveNames) {
  EXPECT_EQ(take_text(jt_element_name(space, at(job, {"scanner"}))), "Scanner");
  EXPECT_EQ(take_text(jt_element_name(space, at(job, {"scanner", "ONE"}))), "one");
  EXPECT_EQ(take_text(jt_element_name(space, pages())), "Pages");
}

TEST_F(ElementTest, AllElseHasNoName) {
  const int32_t unnamed = jt_next_sibling(space, at(job, {"Scanner", "one"}));
  const int32_t value = jt_first_child(space, pages());
  for (const int32_t element : {job, jt_header(space, job), jt_section(space, job), unnamed, value}) {
    expect_no_text(jt_element_name(space, element));
  }
}

TEST_F(ElementTest, ATypeIsNamedAsTheTablesSpellIt) {
  const int32_t upper = jt_decode_template(space, "[ KMT_SVC_SCAN Scanner ] { INTEGER Pages = 1; } end");
  const int32_t service = at(upper, {"Scanner"});
  const int32_t invocation = jt_first_child(space, service);
  const int32_t attribute = jt_first_child(space, invocation);
  for (const int32_t element : {service, invocation}) {
    EXPECT_EQ(take_text(jt_element_type(space, element)), "kmt_svc_scan");
  }
  for (const int32_t element : {attribute, jt_first_child(space, attribute)}) {
    EXPECT_EQ(take_text(jt_element_type(space, element)), "integer");
  }
}

TEST_F(ElementTest, TemplatesAndHeadersHaveTypesToo) {
  EXPECT_EQ(take_text(jt_element_type(space, job)), "template");
  EXPECT_EQ(take_text(jt_element_type(space, jt_section(space, job))), "template");
  EXPECT_EQ(take_text(jt_element_type(space, jt_header(space, job))), "sil_header");
  EXPECT_EQ(take_text(jt_element_type(space, at(jt_header(space, job), {"Owner"}))), "string");
}

TEST_F(ElementTest, AnInvocationHasTheTypeThatItsAttributesFollow) {
  const int32_t named = jt_decode_template(space, "[ service kmt_svc_fax ] { } end");
  EXPECT_EQ(take_text(jt_element_type(space, at(named, {"kmt_svc_fax"}))), "service");
  const int32_t invocation = jt_first_child(space, at(named, {"kmt_svc_fax"}));
  EXPECT_EQ(take_text(jt_element_type(space, invocation)), "kmt_svc_fax");
}

TEST_F(ElementTest, AnInvocationOfAnUnknownServiceHasThatServicesName) {
  const int32_t own = jt_first_child(space, at(job, {"Own"}));
  EXPECT_EQ(take_text(jt_element_type(space, own)), "Own");
  EXPECT_EQ(jt_element_flags(space, own), JT_ELEMENT_TYPE_UNKNOWN);
}

TEST_F(ElementTest, AnUnknownTypeIsNamedAsItWasGivenForTheValuesToo) {
  jt_named_invocation(space, job, "Scanner", "one");
  jt_add_attribute(space, job, "Scanner", "Mystery", "Odd");
  jt_add_attribute_value_string(space, job, "Scanner", "Odd", "a b");
  const int32_t odd = at(job, {"Scanner", "one", "Odd"});
  const int32_t value = jt_first_child(space, odd);
  EXPECT_EQ(take_text(jt_element_type(space, odd)), "Mystery");
  EXPECT_EQ(take_text(jt_element_type(space, value)), "Mystery");
  EXPECT_EQ(take_text(jt_element_value_text(space, value)), "a b");
  EXPECT_EQ(jt_element_flags(space, odd), JT_ELEMENT_TYPE_UNKNOWN);
  EXPECT_EQ(jt_element_flags(space, value), JT_ELEMENT_TYPE_UNKNOWN);
}

TEST_F(ElementTest, AValueIsShownWithoutQuotesAndEscapes) {
  const int32_t owner = at(jt_header(space, job), {"Owner"});
  EXPECT_EQ(take_text(jt_element_value_text(space, jt_first_child(space, owner))), "The \"boss\"");
}

TEST_F(ElementTest, OnlyAValueHasATextOfOne) {
  const int32_t scanner = at(job, {"Scanner"});
  for (const int32_t element : {job, jt_header(space, job), jt_section(space, job), scanner,
                                jt_first_child(space, scanner), pages()}) {
    expect_no_text(jt_element_value_text(space, element));
  }
}

TEST_F(ElementTest, ANumberWithoutANameHasNoTextButAReport) {
  const int32_t number = 9999;
  jt_named_invocation(space, job, "Scanner", "2");
  jt_set_attribute_value(space, job, "Scanner", "Sides", reinterpret_cast<const jt_value *>(&number));
  const int32_t sides = jt_first_child(space, jt_next_sibling(space, at(job, {"Scanner", "one"})));
  EXPECT_EQ(take_text(jt_element_value_text(space, jt_first_child(space, sides))), "(none)");
  EXPECT_EQ(messages().back(), "CALL ERROR: Unknown enumerated value ...");
}

TEST_F(ElementTest, CommentsStandWithTheirElements) {
  const int32_t scanner = at(job, {"Scanner"});
  EXPECT_EQ(take_text(jt_element_comment(space, jt_header(space, job))), "# before all\n");
  EXPECT_EQ(take_text(jt_element_comment(space, jt_section(space, job))), "# of the section\n");
  EXPECT_EQ(take_text(jt_element_comment(space, scanner)), "# of the service\n");
  EXPECT_EQ(take_text(jt_element_comment(space, jt_first_child(space, scanner))), "# of the invocation\n");
  EXPECT_EQ(take_text(jt_element_comment(space, pages())), "# of the attribute\n");
  expect_no_text(jt_element_comment(space, job));
  expect_no_text(jt_element_comment(space, jt_first_child(space, pages())));
}

TEST_F(ElementTest, ACommentThatWasAppendedIsReadToo) {
  add_comment(space, opaque_to_node(space, pages()), "# and more\n");
  EXPECT_EQ(take_text(jt_element_comment(space, pages())), "# of the attribute\n# and more\n");
}

std::string take_status(jt_parser_space *space, jt_status *status) {
  const std::string name = status != nullptr ? take_text(get_status_string(space, status)) : "(none)";
  jt_destroy_status(space, status);
  return name;
}

TEST_F(ElementTest, StatusesAndTheTextsBehindThem) {
  const auto both = [this](int32_t element) {
    return take_status(space, jt_element_status(space, element)) + " " +
           take_text(jt_element_status_text(space, element));
  };
  EXPECT_EQ(both(at(job, {"Scanner"})), "KMT_STATUS_ERROR TrayEmpty");
  EXPECT_EQ(both(at(job, {"Scanner", "one"})), "odd (none)");
  EXPECT_EQ(both(pages()), "KMT_STATUS_OVERRIDDEN 7");
  EXPECT_EQ(both(at(jt_header(space, job), {"Owner"})), "KMT_STATUS_WARNING (none)");
}

TEST_F(ElementTest, WithoutAStatusThereIsNoneAndNoText) {
  for (const int32_t element : {job, jt_header(space, job), jt_section(space, job), at(job, {"Own"}),
                                jt_first_child(space, pages())}) {
    EXPECT_EQ(jt_element_status(space, element), nullptr);
    EXPECT_EQ(status(), 0);
    expect_no_text(jt_element_status_text(space, element));
  }
}

TEST_F(ElementTest, AnOverrideLeavesTheOldValueAsTheText) {
  const int32_t two = 2;
  const int32_t nine = 9;
  jt_named_invocation(space, job, "Scanner", "one");
  jt_override_attribute_value(space, job, "Scanner", "Pages", reinterpret_cast<const jt_value *>(&two),
                              reinterpret_cast<const jt_value *>(&nine));
  EXPECT_EQ(take_text(jt_element_status_text(space, pages())), "2");
  EXPECT_EQ(outline(pages()),
            "3 Pages (none)\n"
            " 4 (none) 1\n"
            " 4 (none) 9\n");
}

TEST_F(ElementTest, FlagsAddUp) {
  EXPECT_EQ(jt_element_flags(space, pages()), JT_ELEMENT_NON_COMPULSORY + JT_ELEMENT_OVERRIDDEN);
  EXPECT_EQ(jt_element_flags(space, at(job, {"Scanner"})), JT_ELEMENT_OVERRIDDEN);
  EXPECT_EQ(jt_element_flags(space, at(jt_header(space, job), {"Owner"})), JT_ELEMENT_NON_COMPULSORY);
  EXPECT_EQ(jt_element_flags(space, at(job, {"Scanner", "one", "Note"})), 0);
  EXPECT_EQ(jt_element_flags(space, job), 0);
  EXPECT_EQ(status(), 0);
}

// ---- Handles ----------------------------------------------------------------------------------------------

TEST_F(ElementTest, AHandleLivesAsLongAsItsElement) {
  const int32_t service = at(job, {"Scanner"});
  const int32_t attribute = pages();
  const int32_t value = jt_first_child(space, attribute);
  jt_delete_service(space, job, "Own");
  EXPECT_EQ(take_text(jt_element_value_text(space, value)), "1");
  jt_delete_service(space, job, "Scanner");
  for (const int32_t gone : {service, attribute, value}) expect_dead(gone);
  EXPECT_EQ(jt_element_kind(space, job), 0);
}

TEST_F(ElementTest, AHandleOfADeletedInvocationOrAttributeDies) {
  jt_named_invocation(space, job, "Scanner", "one");
  const int32_t note = at(job, {"Scanner", "one", "Note"});
  const int32_t invocation = at(job, {"Scanner", "one"});
  jt_delete_attribute(space, job, "Scanner", "Note");
  expect_dead(note);
  EXPECT_EQ(jt_element_kind(space, invocation), 2);
  jt_delete_invocation(space, job, "Scanner");
  expect_dead(invocation);
}

TEST_F(ElementTest, AHandleOfAReplacedValueDies) {
  jt_named_invocation(space, job, "Scanner", "one");
  const int32_t first = jt_first_child(space, pages());
  const int32_t second = jt_next_sibling(space, first);
  jt_set_attribute_value_string(space, job, "Scanner", "Pages", "8");
  expect_dead(first);
  expect_dead(second);
  EXPECT_EQ(take_text(jt_element_value_text(space, jt_first_child(space, pages()))), "8");
}

TEST_F(ElementTest, EverythingGoesWithTheTemplate) {
  const std::vector<int32_t> all = {job,
                                    jt_header(space, job),
                                    jt_section(space, job),
                                    pages(),
                                    at(jt_section(space, job), {"Inside"}),
                                    at(jt_header(space, job), {"Owner"})};
  jt_destroy_template(space, job);
  for (const int32_t gone : all) expect_dead(gone);
}

TEST_F(ElementTest, AHandleMayNameWhatHasTakenItsSlot) {
  const int32_t own = at(job, {"Own"});
  jt_delete_service(space, job, "Own");
  jt_add_service(space, job, "service", "New");
  EXPECT_EQ(take_text(jt_element_name(space, own)), "New");
}

TEST_F(ElementTest, AHandleOfASectionServesTheOtherCalls) {
  const int32_t section = jt_section(space, job);
  EXPECT_EQ(take_text(jt_get_first_attribute_value_string(space, section, "Inside", "Retries")), "3");
  EXPECT_EQ(jt_set_attribute_value_string(space, section, "Inside", "Retries", "4"), 1);
  EXPECT_NE(encoded(job).find("integer Retries = 4;"), std::string::npos);
}

TEST_F(ElementTest, ASectionIsWrittenWithItsTemplateOnly) {
  EXPECT_EQ(encoded(jt_section(space, job)), "(none)");
  EXPECT_EQ(messages().back(), "SYSTEM ERROR: Language Version is missing ...");
}

TEST_F(ElementTest, TheWholeTemplateIsDestroyedWithItsSection) {
  EXPECT_EQ(jt_destroy_template(space, jt_section(space, job)), 1);
  expect_dead(job);
}

// ---- Nodes of the exported tree ---------------------------------------------------------------------------

int32_t handle_of(const jt_node *node) { return bookmark_to_opaque(node->bookmark); }

TEST_F(ElementTest, AnUnlinkedNodeIsItsOwnRoot) {
  jt_node *const service =
      create_typed_node(space, "service", "Loose", JT_NODE_SERVICE, opaque_to_node(space, job));
  jt_node *const header = create_typed_node(space, "sil_header", "header", JT_NODE_HEADER, nullptr);
  for (const int32_t loose : {handle_of(service), handle_of(header)}) {
    expect_nothing(jt_parent(space, loose));
    expect_nothing(jt_next_sibling(space, loose));
    expect_nothing(jt_first_child(space, loose));
    EXPECT_EQ(jt_root(space, loose), loose);
  }
  EXPECT_EQ(take_text(jt_element_name(space, handle_of(service))), "Loose");
  expect_no_text(jt_element_name(space, handle_of(header)));
  EXPECT_EQ(jt_element_kind(space, handle_of(header)), JT_NODE_HEADER);
}

TEST_F(ElementTest, ALooseValueOfUnknownTypeHasATextAndNoType) {
  const jt_node *const value = create_value_node(space, jt_unknown_type(), "a text");
  EXPECT_EQ(take_text(jt_element_value_text(space, handle_of(value))), "a text");
  expect_no_text(jt_element_type(space, handle_of(value)));
}

TEST_F(ElementTest, AValueNodeWithoutAValueHasANameAndNoText) {
  jt_named_invocation(space, job, "Scanner", "one");
  jt_add_attribute(space, job, "Scanner", "Mystery", "Odd");
  for (const char *const attribute : {"Pages", "Note", "Odd"}) {
    const int32_t parent = at(job, {"Scanner", "one", attribute});
    jt_node *const node = opaque_to_node(space, parent);
    const char *const type = std::string(attribute) == "Odd" ? "Mystery" : "integer";
    ASSERT_EQ(add_child(space, node, create_typed_node(space, type, "Named", JT_NODE_VALUE, node)), 1);
    const int32_t value = jt_find_child(space, parent, "named");
    EXPECT_EQ(jt_element_kind(space, value), JT_NODE_VALUE);
    EXPECT_EQ(take_text(jt_element_name(space, value)), "Named");
    EXPECT_EQ(take_text(jt_element_type(space, value)), take_text(jt_element_type(space, parent)));
    expect_no_text(jt_element_value_text(space, value));
  }
}

constexpr jt_type kMute = {"mute", nullptr, nullptr, nullptr, nullptr, nullptr};

TEST_F(ElementTest, ATypeThatCannotBeWrittenIsReported) {
  opaque_to_node(space, jt_first_child(space, pages()))->type = &kMute;
  EXPECT_EQ(take_text(jt_element_value_text(space, jt_first_child(space, pages()))), "(none)");
  EXPECT_EQ(status(), -7);
  EXPECT_EQ(messages().back(), "SYSTEM ERROR: no deval function for:mute ...");
  opaque_to_node(space, jt_first_child(space, pages()))->type = opaque_to_node(space, pages())->type;
}

TEST_F(ElementTest, AValueNodeWithoutAValueIsNotHandedToItsType) {
  jt_node *const node = opaque_to_node(space, pages());
  jt_node *const value = create_typed_node(space, "integer", "Named", JT_NODE_VALUE, node);
  value->type = &kMute;
  expect_no_text(jt_element_value_text(space, handle_of(value)));
  destroy_node(space, value);
}

// The three words of the header are nodes too. Nothing leads to them, but their handles can be guessed.
TEST_F(ElementTest, TheWordsOfAHeaderStandAlone) {
  const int32_t header = jt_header(space, job);
  for (const int32_t word : {header - 1, header - 2, header - 3}) {
    EXPECT_EQ(jt_element_kind(space, word), JT_NODE_ATTRIBUTE);
    EXPECT_EQ(jt_parent(space, word), header);
    EXPECT_EQ(jt_root(space, word), job);
    expect_nothing(jt_next_sibling(space, word));
    expect_nothing(jt_first_child(space, word));
    expect_nothing(jt_find_child(space, word, "header"));
    expect_no_text(jt_element_value_text(space, word));
  }
  EXPECT_EQ(take_text(jt_element_name(space, header - 1)), "LanguageVersion");
}

TEST_F(ElementTest, WordsWithoutTheirHeaderAreLoose) {
  const int32_t header = jt_header(space, job);
  destroy_node(space, opaque_to_node(space, header));
  expect_nothing(jt_header(space, job));
  expect_no_text(jt_header_version(space, job));
  for (const int32_t word : {header - 1, header - 2, header - 3}) {
    expect_nothing(jt_parent(space, word));
    expect_nothing(jt_next_sibling(space, word));
    EXPECT_EQ(jt_root(space, word), word);
  }
}

TEST_F(ElementTest, AHeaderThatLacksAWordHasNoIdentifier) {
  jt_node *const invocation = opaque_to_node(space, at(job, {"Scanner", "one"}));
  ASSERT_EQ(add_child(space, invocation, opaque_to_node(space, jt_header(space, job) - 3)), 1);
  expect_no_text(jt_header_identifier(space, job));
  EXPECT_EQ(take_text(jt_header_version(space, job)), "4.2.00");
  EXPECT_EQ(jt_parent(space, at(job, {"Scanner", "one", "InteractionID"})), at(job, {"Scanner", "one"}));
}

TEST_F(ElementTest, AHeaderAndASectionThatLostTheirRootBelongTogether) {
  const int32_t header = jt_header(space, job);
  const int32_t section = jt_section(space, job);
  destroy_node(space, opaque_to_node(space, job));
  EXPECT_EQ(jt_header(space, section), header);
  EXPECT_EQ(jt_parent(space, header), section);
  EXPECT_EQ(jt_root(space, header), section);
  expect_nothing(jt_parent(space, section));
  expect_nothing(jt_section(space, section));
  EXPECT_EQ(take_text(jt_header_identifier(space, section)), "job-1");
}

// Its number would be that of another element here.
TEST_F(ElementTest, AnElementOfAnotherSessionIsNotThere) {
  jt_parser_space *const other = jt_open_parsing_utility("other");
  jt_node *const theirs = opaque_to_node(other, jt_create_template(other));
  jt_node *const foreign = create_typed_node(other, "kmt_svc_scan", "theirs", JT_NODE_SERVICE, theirs);
  jt_node *const root = opaque_to_node(space, job);
  ASSERT_EQ(add_child(space, root, foreign), 1);
  ASSERT_EQ(get_child(space, root, "theirs"), foreign);
  expect_nothing(jt_find_child(space, job, "theirs"));
  jt_close_parsing_utility(other);
}

}  // namespace
}  // namespace jt_test
