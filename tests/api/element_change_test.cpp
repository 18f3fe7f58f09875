// The calls that change any element by its handle: for each what may be set, that it is written and read back as the
// same, what is refused, and that a refusal changes nothing.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/session.h"
#include "tree/node.h"

namespace jt_test {
namespace {

using Words = std::vector<std::string>;

constexpr char kJob[] =
    "<? SIL 4.2.00 ASCII job-1 > string Owner = me;\n"
    "< ? > [ kmt_svc_fax Inside ] { integer Retries = 3; } end < /? >\n"
    "[ kmt_svc_scan Scanner ]\n"
    "one { * integer Pages = 1, 2, 3; string Note; }\n"
    "two { enum_sided Sides = two_sided; }\n"
    "{ }\n"
    "end\n"
    "[ service Own ] { integer Copies = 1; } end\n"
    "< /SIL >\n";

// What every call refuses in the same words.
const char *const kWrongKind = "CALL ERROR: not for this kind of element ...";

std::string not_read_back(const std::string &text) {
  return ("CALL ERROR: would not be read back:" + text).substr(0, 251) + " ...";
}

class ElementChange : public SessionTest {
 protected:
  ElementChange() : job(jt_decode_template(space, kJob)), before(encoded(job)) { reset_error_status(space); }

  int32_t at(int32_t element, const Words &names) {
    for (const std::string &name : names) element = jt_find_child(space, element, name.c_str());
    return element;
  }
  int32_t service() { return at(job, {"Scanner"}); }
  int32_t invocation() { return at(job, {"Scanner", "one"}); }
  int32_t pages() { return at(job, {"Scanner", "one", "Pages"}); }
  int32_t page() { return jt_first_child(space, pages()); }
  int32_t owner() { return at(jt_header(space, job), {"Owner"}); }

  // A template that another session would read from the text of this one.
  int32_t read_back() {
    const int32_t again = jt_decode_template(space, encoded(job).c_str());
    EXPECT_NE(again, 0);
    EXPECT_EQ(encoded(again), encoded(job));
    return again;
  }

  std::string status_of(int32_t element) {
    jt_status *const found = jt_element_status(space, element);
    const std::string name = take_text(get_status_string(space, found));
    jt_destroy_status(space, found);
    return name;
  }

  void expect_refused(int32_t result, const std::string &message) {
    EXPECT_EQ(result, 0);
    EXPECT_EQ(status(), message.starts_with("SYNTAX") ? -5 : -4);
    EXPECT_EQ(messages().back(), message);
    EXPECT_EQ(encoded(job), before);
  }

  // A node that hangs nowhere, a word of the header, and the template with what stands beside it.
  std::vector<int32_t> without_a_place() {
    jt_node *const loose =
        create_typed_node(space, "string", "Loose", JT_NODE_ATTRIBUTE, nodes(invocation()));
    return {bookmark_to_opaque(loose->bookmark), jt_header(space, job) - 1};
  }
  std::vector<int32_t> frames() { return {job, jt_header(space, job), jt_section(space, job)}; }
  jt_node *nodes(int32_t element) { return opaque_to_node(space, element); }

  int32_t job;
  std::string before;
};

// ---- Comments ---------------------------------------------------------------------------------------------

TEST_F(ElementChange, AnyElementButAValueHasAComment) {
  const std::vector<int32_t> all = {job,       jt_header(space, job), jt_section(space, job),
                                    service(), invocation(),          pages(),
                                    owner(),   at(job, {"Own"})};
  for (const int32_t element : all) {
    EXPECT_EQ(jt_set_element_comment(space, element, "# one\n#two # more\n"), 1);
    EXPECT_EQ(take_text(jt_element_comment(space, element)), "# one\n#two # more\n");
  }
  EXPECT_EQ(status(), 0);
  const int32_t again = read_back();
  for (const int32_t element :
       {again, jt_header(space, again), jt_section(space, again), at(again, {"Scanner"}),
        at(again, {"Scanner", "one"}), at(again, {"Scanner", "one", "Pages"}),
        at(jt_header(space, again), {"Owner"}), at(again, {"Own"})}) {
    EXPECT_EQ(take_text(jt_element_comment(space, element)), "# one\n#two # more\n");
  }
}

TEST_F(ElementChange, ACommentIsReplacedAndTakenAway) {
  jt_set_element_comment(space, pages(), "# a long one that comes first\n");
  EXPECT_EQ(jt_set_element_comment(space, pages(), "# b\n"), 1);
  EXPECT_EQ(take_text(jt_element_comment(space, pages())), "# b\n");
  for (const char *const none : {static_cast<const char *>(nullptr), ""}) {
    jt_set_element_comment(space, pages(), "# c\n");
    EXPECT_EQ(jt_set_element_comment(space, pages(), none), 1);
    EXPECT_EQ(take_text(jt_element_comment(space, pages())), "(none)");
  }
  EXPECT_EQ(jt_set_element_comment(space, pages(), nullptr), 1);
  EXPECT_EQ(encoded(job), before);
}

TEST_F(ElementChange, ACommentMayBePartOfTheOneThatItReplaces) {
  jt_set_element_comment(space, pages(), "# one\n# two\n");
  EXPECT_EQ(jt_set_element_comment(space, pages(), nodes(pages())->comment + 6), 1);
  EXPECT_EQ(take_text(jt_element_comment(space, pages())), "# two\n");
}

TEST_F(ElementChange, ALineOfACommentHasAtMost1023Bytes) {
  const std::string longest = "#" + std::string(1022, 'c') + "\n";
  EXPECT_EQ(jt_set_element_comment(space, pages(), (longest + longest).c_str()), 1);
  EXPECT_EQ(take_text(jt_element_comment(space, at(read_back(), {"Scanner", "one", "Pages"}))),
            longest + longest);
  jt_set_element_comment(space, pages(), nullptr);
  const std::string longer = "#" + std::string(1023, 'c') + "\n";
  expect_refused(jt_set_element_comment(space, pages(), longer.c_str()), not_read_back(longer));
}

TEST_F(ElementChange, WhatIsNoLineOfACommentIsRefused) {
  for (const std::string text : {"one", "# one", "\n", "# one\ntwo\n", "# one\n\n", " # one\n", "# one\r\n",
                                 "# one\vtwo\n", "# one\ftwo\n", "# one\n# two"}) {
    expect_refused(jt_set_element_comment(space, pages(), text.c_str()), not_read_back(text));
  }
}

TEST_F(ElementChange, AValueAndWhatHasNoPlaceHaveNoComment) {
  expect_refused(jt_set_element_comment(space, page(), "# one\n"), kWrongKind);
  for (const int32_t element : without_a_place())
    expect_refused(jt_set_element_comment(space, element, "# one\n"), kWrongKind);
}

// ---- Names ------------------------------------------------------------------------------------------------

TEST_F(ElementChange, ServicesInvocationsAndAttributesAreNamed) {
  EXPECT_EQ(jt_set_element_name(space, service(), "Skanner"), 1);
  EXPECT_EQ(jt_set_element_name(space, at(job, {"Skanner", "one"}), "first"), 1);
  EXPECT_EQ(jt_set_element_name(space, at(job, {"Skanner", "first", "Pages"}), "Blatt\xE4"), 1);
  EXPECT_EQ(jt_set_element_name(space, owner(), "Boss"), 1);
  EXPECT_EQ(jt_set_element_name(space, at(jt_section(space, job), {"Inside"}), "Outside"), 1);
  EXPECT_EQ(status(), 0);
  EXPECT_EQ(encoded(job),
            "\n<? SIL 4.2.00 ASCII job-1 >\n\nstring Boss = \"me\";\n\n"
            "< ? >\n[kmt_svc_fax Outside]\n {\n      integer Retries = 3;\n }\nend\n\n< /? >\n\n"
            "[kmt_svc_scan Skanner]\n first{\n    * integer Blatt\xE4 = 1, 2, 3;\n      string Note = ;\n }\n"
            " two{\n      enum_sided Sides = TWO_SIDED;\n }\n {\n }\nend\n\n"
            "[service Own]\n {\n      integer Copies = 1;\n }\nend\n\n\n< /SIL >\n");
  read_back();
}

TEST_F(ElementChange, AnUnnamedInvocationIsNamed) {
  const int32_t unnamed = jt_next_sibling(space, at(job, {"Scanner", "two"}));
  EXPECT_EQ(jt_set_element_name(space, unnamed, "three"), 1);
  EXPECT_EQ(at(job, {"Scanner", "three"}), unnamed);
}

TEST_F(ElementChange, AmongManySiblingsANewNameIsFoundAndTheOldOneIsFree) {
  for (int i = 0; i < 100; ++i)
    jt_add_attribute(space, job, "Scanner", "integer", ("a" + std::to_string(i)).c_str());
  const int32_t element = at(invocation(), {"a77"});
  EXPECT_EQ(jt_set_element_name(space, element, "renamed"), 1);
  EXPECT_EQ(at(invocation(), {"RENAMED"}), element);
  EXPECT_EQ(at(invocation(), {"a77"}), 0);
  EXPECT_EQ(jt_add_attribute(space, job, "Scanner", "integer", "a77"), 1);
  EXPECT_EQ(jt_set_element_name(space, element, "a77"), 0);
  EXPECT_EQ(jt_set_element_name(space, element, "a78"), 0);
}

TEST_F(ElementChange, ANameOfASiblingIsRefusedInAnyCase) {
  expect_refused(jt_set_element_name(space, service(), "OWN"),
                 "SYNTAX ERROR: duplicate naming not allowedOWN ...");
  expect_refused(jt_set_element_name(space, invocation(), "Two"),
                 "SYNTAX ERROR: duplicate naming not allowedTwo ...");
  expect_refused(jt_set_element_name(space, pages(), "note"),
                 "SYNTAX ERROR: duplicate naming not allowednote ...");
}

TEST_F(ElementChange, TheSameNameInOtherLettersIsNoOthers) {
  EXPECT_EQ(jt_set_element_name(space, pages(), "PAGES"), 1);
  EXPECT_EQ(take_text(jt_element_name(space, pages())), "PAGES");
}

TEST_F(ElementChange, ANameThatWouldNotBeReadBackIsRefused) {
  for (const std::string name :
       {"two words", "a\"b", "a\\b", "#a", "a#b", "end", "End", "{", "a{", "||", "a\n", "\b"}) {
    for (const int32_t element : {service(), invocation(), pages(), owner()})
      expect_refused(jt_set_element_name(space, element, name.c_str()), not_read_back(name));
  }
}

TEST_F(ElementChange, ANameHasAtMost1023Bytes) {
  const std::string longest(1023, 'n');
  const std::string longer(1024, 'n');
  for (const int32_t element : {service(), invocation(), pages()})
    expect_refused(jt_set_element_name(space, element, longer.c_str()), not_read_back(longer));
  for (const int32_t element : {pages(), invocation(), service()})
    EXPECT_EQ(jt_set_element_name(space, element, longest.c_str()), 1);
  EXPECT_NE(at(read_back(), {longest, longest, longest}), 0);
}

TEST_F(ElementChange, ANullOrEmptyNameIsRefusedBeforeTheHandleIsLookedAt) {
  expect_refused(jt_set_element_name(space, 0, nullptr), "CALL ERROR: no name to set ...");
  expect_refused(jt_set_element_name(space, 0, ""), "CALL ERROR: no name to set ...");
}

TEST_F(ElementChange, WhatHasNoNameIsNotNamed) {
  std::vector<int32_t> others = frames();
  others.push_back(page());
  for (const int32_t element : without_a_place()) others.push_back(element);
  for (const int32_t element : others) expect_refused(jt_set_element_name(space, element, "New"), kWrongKind);
}

// Under "Scanner" the service's type decides which types its attributes have, under the name of another one that name.
TEST_F(ElementChange, AServiceIsNotNamedSoThatItsAttributesHaveOtherTypes) {
  expect_refused(jt_set_element_name(space, service(), "kmt_svc_fax"), not_read_back("kmt_svc_fax"));
  expect_refused(jt_set_element_name(space, at(job, {"Own"}), "kmt_svc_print"),
                 not_read_back("kmt_svc_print"));
  EXPECT_EQ(jt_set_element_name(space, service(), "kmt_svc_scan"), 1);
  read_back();
}

TEST_F(ElementChange, AServiceWithoutInvocationsMayHaveAnyName) {
  jt_add_service(space, job, "service", "Empty");
  EXPECT_EQ(jt_set_element_name(space, at(job, {"Empty"}), "kmt_svc_print"), 1);
  read_back();
}

TEST_F(ElementChange, AnInvocationWithoutTypesOfItsOwnHasTheNewNameOfItsServiceForAType) {
  const int32_t own = at(job, {"Own"});
  EXPECT_EQ(jt_set_element_name(space, own, "Mine"), 1);
  EXPECT_EQ(take_text(jt_element_type(space, jt_first_child(space, own))), "Mine");
  EXPECT_EQ(take_text(jt_element_type(space, jt_first_child(space, at(read_back(), {"Mine"})))), "Mine");
}

// ---- Statuses ---------------------------------------------------------------------------------------------

TEST_F(ElementChange, ServicesInvocationsAndAttributesHaveAStatus) {
  for (const int32_t element : {service(), invocation(), pages(), owner()}) {
    EXPECT_EQ(jt_set_element_status(space, element, "kmt_status_completed"), 1);
    EXPECT_EQ(jt_set_element_status_text(space, element, "why"), 1);
  }
  EXPECT_EQ(status(), 0);
  const int32_t again = read_back();
  for (const int32_t element :
       {at(again, {"Scanner"}), at(again, {"Scanner", "one"}), at(again, {"Scanner", "one", "Pages"}),
        at(jt_header(space, again), {"Owner"})}) {
    EXPECT_EQ(status_of(element), "KMT_STATUS_COMPLETED");
    EXPECT_EQ(take_text(jt_element_status_text(space, element)), "why");
  }
}

TEST_F(ElementChange, AnUnknownStatusIsKeptWithAWarning) {
  EXPECT_EQ(jt_set_element_status(space, pages(), "TonerLow"), 1);
  EXPECT_EQ(status(), -3);
  EXPECT_EQ(messages().back(), "WARNING: trying to evaluate as an 'enumerated' type:TonerLow ...");
  EXPECT_EQ(status_of(at(read_back(), {"Scanner", "one", "Pages"})), "TonerLow");
}

TEST_F(ElementChange, AStatusIsReplacedAndItsTextStays) {
  jt_set_element_status(space, pages(), "first");
  jt_set_element_status_text(space, pages(), "why");
  EXPECT_EQ(jt_set_element_status(space, pages(), "KMT_STATUS_ERROR"), 1);
  EXPECT_NE(encoded(job).find("1, 2, 3;(KMT_STATUS_ERROR{why})\n"), std::string::npos);
}

TEST_F(ElementChange, ANullStatusTakesStatusAndTextAway) {
  jt_set_element_status(space, pages(), "odd");
  jt_set_element_status_text(space, pages(), "why");
  EXPECT_EQ(jt_set_element_status(space, pages(), nullptr), 1);
  EXPECT_EQ(jt_element_flags(space, pages()), JT_ELEMENT_NON_COMPULSORY);
  EXPECT_EQ(jt_set_element_status(space, pages(), nullptr), 1);
  EXPECT_EQ(encoded(job), before);
}

TEST_F(ElementChange, EveryStatusIsReadBackOrRefused) {
  const std::vector<int32_t> all = {service(), invocation(), pages()};
  for (const char *const name : {"end", "=", "{", "(", "}", "||", "|", "[", ";", "a-b", "\xC3\xA4"}) {
    for (const int32_t element : all) EXPECT_EQ(jt_set_element_status(space, element, name), 1) << name;
    const int32_t again = read_back();
    EXPECT_EQ(status_of(at(again, {"Scanner"})), name);
  }
  for (const int32_t element : all) jt_set_element_status(space, element, nullptr);
  for (const std::string name :
       {"", ")", "two words", "a=", "|||", "\"a\"", "a\\=", "#a", "a#", " a", "a ", "()"}) {
    for (const int32_t element : all)
      expect_refused(jt_set_element_status(space, element, name.c_str()), not_read_back(name));
  }
}

TEST_F(ElementChange, AStatusAndItsTextHaveAtMost2047Bytes) {
  const std::string longest(2047, 's');
  EXPECT_EQ(jt_set_element_status(space, service(), longest.c_str()), 1);
  EXPECT_EQ(jt_set_element_status_text(space, service(), longest.c_str()), 1);
  EXPECT_EQ(take_text(jt_element_status_text(space, at(read_back(), {"Scanner"}))), longest);
  EXPECT_EQ(jt_set_element_status(space, service(), (longest + "s").c_str()), 0);
  EXPECT_EQ(jt_set_element_status_text(space, service(), (longest + "s").c_str()), 0);
  EXPECT_EQ(take_text(jt_element_status_text(space, service())), longest);
}

TEST_F(ElementChange, ATextNeedsAStatusToStandBehind) {
  expect_refused(jt_set_element_status_text(space, pages(), "why"), "CALL ERROR: there is no status ...");
  const uint32_t unknown = UINT32_MAX;
  jt_set_attribute_status(space, job, "Scanner", "Pages", reinterpret_cast<const jt_status *>(&unknown));
  before = encoded(job);
  expect_refused(jt_set_element_status_text(space, pages(), "why"), "CALL ERROR: there is no status ...");
}

TEST_F(ElementChange, ATextIsTakenAwayAndItsStatusStays) {
  jt_set_element_status(space, pages(), "KMT_STATUS_OVERRIDDEN");
  before = encoded(job);
  EXPECT_EQ(jt_set_element_status_text(space, pages(), "7"), 1);
  EXPECT_EQ(jt_element_flags(space, pages()) & JT_ELEMENT_OVERRIDDEN, JT_ELEMENT_OVERRIDDEN);
  EXPECT_EQ(jt_set_element_status_text(space, pages(), nullptr), 1);
  EXPECT_EQ(jt_set_element_status_text(space, service(), nullptr), 1);
  EXPECT_EQ(encoded(job), before);
}

struct TextCase {
  const char *text;
  bool of_service;
  bool of_invocation;
  bool of_attribute;
};

TEST_F(ElementChange, EveryTextIsReadBackOrRefused) {
  const std::vector<int32_t> all = {service(), invocation(), pages()};
  for (const int32_t element : all) jt_set_element_status(space, element, "KMT_STATUS_ERROR");
  before = encoded(job);
  for (const TextCase &tested : std::vector<TextCase>{{"why", true, true, true},
                                                      {"", false, true, true},
                                                      {"end", false, false, true},
                                                      {"=", false, false, true},
                                                      {"||", false, false, true},
                                                      {"{", false, false, true},
                                                      {")", false, false, true},
                                                      {"}", false, false, false},
                                                      {"two words", false, false, false},
                                                      {"\"a\"", false, false, false},
                                                      {"#a", false, false, false},
                                                      {"a,b", false, false, false}}) {
    const bool allowed[] = {tested.of_service, tested.of_invocation, tested.of_attribute};
    for (std::size_t i = 0; i < all.size(); ++i) {
      SCOPED_TRACE(std::string(tested.text) + " of " + std::to_string(i));
      if (!allowed[i]) {
        expect_refused(jt_set_element_status_text(space, all[i], tested.text), not_read_back(tested.text));
        continue;
      }
      EXPECT_EQ(jt_set_element_status_text(space, all[i], tested.text), 1);
      const int32_t again = read_back();
      const int32_t read[] = {at(again, {"Scanner"}), at(again, {"Scanner", "one"}),
                              at(again, {"Scanner", "one", "Pages"})};
      EXPECT_EQ(take_text(jt_element_status_text(space, read[i])), tested.text);
      jt_set_element_status_text(space, all[i], nullptr);
    }
  }
}

TEST_F(ElementChange, WhatHasNoStatusIsGivenNone) {
  std::vector<int32_t> others = frames();
  others.push_back(page());
  for (const int32_t element : without_a_place()) others.push_back(element);
  for (const int32_t element : others) {
    expect_refused(jt_set_element_status(space, element, "KMT_STATUS_ERROR"), kWrongKind);
    expect_refused(jt_set_element_status(space, element, nullptr), kWrongKind);
    expect_refused(jt_set_element_status_text(space, element, "why"), kWrongKind);
  }
}

// ---- Stars ------------------------------------------------------------------------------------------------

TEST_F(ElementChange, AnAttributeIsGivenAStarAndLosesIt) {
  EXPECT_EQ(jt_set_element_non_compulsory(space, owner(), 7), 1);
  EXPECT_EQ(jt_set_element_non_compulsory(space, pages(), 0), 1);
  const int32_t again = read_back();
  EXPECT_EQ(jt_element_flags(space, at(jt_header(space, again), {"Owner"})), JT_ELEMENT_NON_COMPULSORY);
  EXPECT_EQ(jt_element_flags(space, at(again, {"Scanner", "one", "Pages"})), 0);
}

TEST_F(ElementChange, OnlyAnAttributeHasAStar) {
  std::vector<int32_t> others = frames();
  for (const int32_t element : {service(), invocation(), page()}) others.push_back(element);
  for (const int32_t element : without_a_place()) others.push_back(element);
  for (const int32_t element : others)
    expect_refused(jt_set_element_non_compulsory(space, element, 1), kWrongKind);
}

// ---- Values -----------------------------------------------------------------------------------------------

TEST_F(ElementChange, AValueIsReplacedInItsPlace) {
  const int32_t second = jt_next_sibling(space, page());
  EXPECT_EQ(jt_set_element_value_text(space, second, "+042"), 1);
  EXPECT_EQ(take_text(jt_element_value_text(space, second)), "42");
  EXPECT_NE(encoded(job).find("integer Pages = 1, 42, 3;"), std::string::npos);
  EXPECT_EQ(jt_set_element_value_text(space, jt_first_child(space, owner()), "the \"boss\""), 1);
  EXPECT_NE(encoded(job).find("string Owner = \"the \\\"boss\\\"\";"), std::string::npos);
  read_back();
}

TEST_F(ElementChange, AnEnumeratedValueMayBeUnknown) {
  const int32_t sides = jt_first_child(space, at(job, {"Scanner", "two", "Sides"}));
  EXPECT_EQ(jt_set_element_value_text(space, sides, "three_sided"), 1);
  EXPECT_EQ(status(), -3);
  EXPECT_EQ(take_text(jt_element_value_text(space, sides)), "three_sided");
}

TEST_F(ElementChange, AmongManyValuesTheNewOneIsFound) {
  for (int i = 4; i < 100; ++i)
    jt_add_attribute_value_string(space, job, "Scanner", "Pages", std::to_string(i).c_str());
  EXPECT_EQ(jt_delete_attribute_value_string(space, job, "Scanner", "Pages", "50"), 1);
  EXPECT_EQ(jt_set_element_value_text(space, page(), "1000"), 1);
  EXPECT_EQ(jt_delete_attribute_value_string(space, job, "Scanner", "Pages", "1"), 0);
  EXPECT_EQ(jt_delete_attribute_value_string(space, job, "Scanner", "Pages", "1000"), 1);
}

TEST_F(ElementChange, AValueThatItsTypeRefusesStays) {
  expect_refused(jt_set_element_value_text(space, page(), "many"),
                 "SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\nmany ...");
  EXPECT_EQ(jt_set_element_value_text(space, page(), ""), 0);
  EXPECT_EQ(status(), 0);
  EXPECT_EQ(encoded(job), before);
}

TEST_F(ElementChange, AValueOfUnknownTypeIsTheTextItself) {
  jt_add_attribute(space, job, "Scanner", "nosuch", "Odd");
  const int32_t odd = at(invocation(), {"Odd"});
  const int32_t value = jt_add_element_value_text(space, odd, "first");
  EXPECT_EQ(take_text(jt_element_value_text(space, value)), "first");
  EXPECT_EQ(jt_set_element_value_text(space, value, "second, with more"), 1);
  EXPECT_EQ(take_text(jt_element_value_text(space, value)), "second, with more");
  EXPECT_EQ(jt_delete_attribute_value_string(space, job, "Scanner", "Odd", "SECOND, with more"), 1);
}

TEST_F(ElementChange, ANullValueIsRefusedBeforeTheHandleIsLookedAt) {
  expect_refused(jt_set_element_value_text(space, 0, nullptr), "CALL ERROR: value is a NULL pointer ...");
  expect_refused(jt_add_element_value_text(space, 0, nullptr), "CALL ERROR: value is a NULL pointer ...");
}

TEST_F(ElementChange, OnlyAValueIsReplacedByAText) {
  std::vector<int32_t> others = frames();
  for (const int32_t element : {service(), invocation(), pages()}) others.push_back(element);
  for (const int32_t element : without_a_place()) others.push_back(element);
  for (const int32_t element : others)
    expect_refused(jt_set_element_value_text(space, element, "1"), kWrongKind);
}

TEST_F(ElementChange, AValueWithoutATextHasNothingToReplace) {
  jt_node *const attribute = nodes(pages());
  jt_node *const value = create_typed_node(space, "integer", "named", JT_NODE_VALUE, attribute);
  ASSERT_EQ(add_child(space, attribute, value), 1);
  EXPECT_EQ(jt_set_element_value_text(space, bookmark_to_opaque(value->bookmark), "1"), 0);
  EXPECT_EQ(messages().back(), kWrongKind);
}

TEST_F(ElementChange, AValueIsAppended) {
  const int32_t value = jt_add_element_value_text(space, pages(), "4");
  EXPECT_EQ(jt_parent(space, value), pages());
  EXPECT_EQ(jt_next_sibling(space, value), 0);
  EXPECT_NE(encoded(job).find("integer Pages = 1, 2, 3, 4;"), std::string::npos);
  const int32_t retries = at(jt_section(space, job), {"Inside"});
  EXPECT_NE(jt_add_element_value_text(space, at(jt_first_child(space, retries), {"Retries"}), "5"), 0);
  read_back();
}

TEST_F(ElementChange, OnlyAnAttributeTakesValues) {
  expect_refused(jt_add_element_value_text(space, pages(), "many"),
                 "SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\nmany ...");
  std::vector<int32_t> others = frames();
  for (const int32_t element : {service(), invocation(), page()}) others.push_back(element);
  for (const int32_t element : without_a_place()) others.push_back(element);
  for (const int32_t element : others)
    expect_refused(jt_add_element_value_text(space, element, "1"), kWrongKind);
}

// ---- Removing ---------------------------------------------------------------------------------------------

TEST_F(ElementChange, ServicesInvocationsAttributesAndValuesAreRemoved) {
  for (const int32_t element : {page(), at(job, {"Scanner", "one", "Note"}), at(job, {"Scanner", "two"}),
                                at(job, {"Own"}), owner(), at(jt_section(space, job), {"Inside"})}) {
    EXPECT_EQ(jt_remove_element(space, element), 1);
    EXPECT_EQ(jt_element_kind(space, element), -1);
  }
  EXPECT_EQ(encoded(job),
            "\n<? SIL 4.2.00 ASCII job-1 >\n\n\n< ? >\n< /? >\n\n"
            "[kmt_svc_scan Scanner]\n one{\n    * integer Pages = 2, 3;\n }\n {\n }\nend\n\n\n< /SIL >\n");
  read_back();
}

TEST_F(ElementChange, ARemovedInvocationIsNotCurrentAnyMore) {
  jt_named_invocation(space, job, "Scanner", "two");
  EXPECT_EQ(jt_remove_element(space, at(job, {"Scanner", "two"})), 1);
  EXPECT_EQ(take_text(jt_get_invocation_name(space, job, "Scanner")), "one");
}

TEST_F(ElementChange, TemplatesHeadersAndSectionsAreNotRemovedLikeThat) {
  for (const int32_t element : frames()) expect_refused(jt_remove_element(space, element), kWrongKind);
  for (const int32_t element : without_a_place())
    expect_refused(jt_remove_element(space, element), kWrongKind);
}

}  // namespace
}  // namespace jt_test
