// The calls that give a template a header, change it or take it away, and the section with it: every form with and
// without services in section and body, what is written then, and that it is read back as the same.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/session.h"
#include "tree/node.h"

namespace jt_test {
namespace {

constexpr int32_t kNone = 0;
constexpr int32_t kQuestion = JT_NODE_HEADER_QUESTION;
constexpr int32_t kPlain = JT_NODE_HEADER_PLAIN;
constexpr int32_t kExclaim = JT_NODE_HEADER_EXCLAIM;

const char *const kFormForbids = "CALL ERROR: form of header does not allow it ...";
const char *const kNoHeader = "CALL ERROR: there is no header ...";
const char *const kNotATemplate = "CALL ERROR: not a template ...";
const char *const kNullValue = "CALL ERROR: value is a NULL pointer ...";

class HeaderChange : public SessionTest {
 protected:
  HeaderChange() : job(jt_create_template(space)) {}

  int32_t give(int32_t form) { return jt_set_header(space, job, form, "4.2.00", "job-1"); }

  // The text of a template, and that it is read as a template with the same text, without a report.
  void expect_written(const std::string &text) {
    EXPECT_EQ(encoded(job), text);
    const int32_t again = jt_decode_template(space, text.c_str());
    EXPECT_NE(again, 0);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(encoded(again), text);
    jt_destroy_template(space, again);
  }

  void expect_refused(int32_t result, const std::string &message) {
    EXPECT_EQ(result, 0);
    EXPECT_EQ(status(), -4);
    EXPECT_EQ(messages().back(), message);
  }

  int32_t job;
};

// ---- Every form, with and without services ----------------------------------------------------------------

struct Written {
  const char *name;
  int32_t form;
  bool service_in_section;
  bool service_in_body;
  const char *text;
};

class EveryHeader : public HeaderChange, public ::testing::WithParamInterface<Written> {
 protected:
  void build(const Written &wanted) {
    if (wanted.service_in_body) jt_add_service(space, job, "kmt_svc_scan", "Scan");
    ASSERT_EQ(give(wanted.form), 1);
    if (!wanted.service_in_section) return;
    const int32_t section = jt_section(space, job);
    ASSERT_EQ(jt_add_service(space, section, "service", "Inside"), 1);
    ASSERT_EQ(jt_add_invocation(space, section, "Inside"), 1);
    ASSERT_EQ(jt_add_attribute(space, section, "Inside", "integer", "Count"), 1);
    ASSERT_EQ(jt_add_attribute_value_string(space, section, "Inside", "Count", "3"), 1);
  }
};

TEST_P(EveryHeader, IsWrittenAndReadBackAsTheSame) {
  build(GetParam());
  EXPECT_EQ(encoded(job), GetParam().text);
  const int32_t again = jt_decode_template(space, GetParam().text);
  ASSERT_NE(again, 0);
  EXPECT_EQ(encoded(again), GetParam().text);
  const int32_t header = jt_header(space, job);
  EXPECT_EQ(jt_element_kind(space, jt_header(space, again)), jt_element_kind(space, header));
  EXPECT_EQ(jt_section(space, again) != 0, jt_section(space, job) != 0);
}

INSTANTIATE_TEST_SUITE_P(
    Headers, EveryHeader,
    ::testing::Values(
        Written{"Plain", kPlain, false, false, "\n< SIL 4.2.00 ASCII job-1 >\n\n\n< /SIL >\n"},
        Written{"PlainWithBody", kPlain, false, true,
                "\n< SIL 4.2.00 ASCII job-1 >\n\n[kmt_svc_scan Scan]\nend\n\n\n< /SIL >\n"},
        Written{"Question", kQuestion, false, false,
                "\n<? SIL 4.2.00 ASCII job-1 >\n\n\n< ? >\n< /? >\n\n\n< /SIL >\n"},
        Written{
            "QuestionWithBody", kQuestion, false, true,
            "\n<? SIL 4.2.00 ASCII job-1 >\n\n\n< ? >\n< /? >\n\n[kmt_svc_scan Scan]\nend\n\n\n< /SIL >\n"},
        Written{"QuestionWithSection", kQuestion, true, false,
                "\n<? SIL 4.2.00 ASCII job-1 >\n\n\n< ? >\n[service Inside]\n {\n      integer Count = 3;\n "
                "}\nend\n\n"
                "< /? >\n\n\n< /SIL >\n"},
        Written{"QuestionWithBoth", kQuestion, true, true,
                "\n<? SIL 4.2.00 ASCII job-1 >\n\n\n< ? >\n[service Inside]\n {\n      integer Count = 3;\n "
                "}\nend\n\n"
                "< /? >\n\n[kmt_svc_scan Scan]\nend\n\n\n< /SIL >\n"},
        Written{"Exclaim", kExclaim, false, false,
                "\n<! SIL 4.2.00 ASCII job-1 >\n\n\n< ! >\n< /! >\n\n\n< /SIL >\n"},
        Written{"ExclaimWithSection", kExclaim, true, false,
                "\n<! SIL 4.2.00 ASCII job-1 >\n\n\n< ! >\n[service Inside]\n {\n      integer Count = 3;\n "
                "}\nend\n\n"
                "< /! >\n\n\n< /SIL >\n"}),
    [](const auto &tested) { return std::string(tested.param.name); });

TEST_F(HeaderChange, AnEmptyTemplateHasNoneUntilItIsGivenOne) {
  EXPECT_EQ(jt_header(space, job), 0);
  EXPECT_EQ(give(kPlain), 1);
  EXPECT_EQ(jt_element_kind(space, jt_header(space, job)), kPlain);
  EXPECT_EQ(take_text(jt_header_version(space, job)), "4.2.00");
  EXPECT_EQ(take_text(jt_header_identifier(space, job)), "job-1");
  EXPECT_EQ(jt_section(space, job), 0);
  EXPECT_EQ(messages(), Messages{});
}

// ---- From one form to another -----------------------------------------------------------------------------

TEST_F(HeaderChange, AChangeOfFormKeepsTheAttributes) {
  give(kPlain);
  const int32_t owner = jt_add_header_attribute(space, job, "string", "Owner");
  jt_add_element_value_text(space, owner, "the boss");
  for (const int32_t form : {kQuestion, kExclaim, kPlain}) {
    EXPECT_EQ(jt_set_header(space, job, form, "4.2.00", "job-2"), 1) << form;
    EXPECT_EQ(jt_first_child(space, jt_header(space, job)), owner);
    EXPECT_EQ(take_text(jt_header_identifier(space, job)), "job-2");
    EXPECT_EQ(jt_section(space, job) != 0, form != kPlain);
  }
  expect_written("\n< SIL 4.2.00 ASCII job-2 >\n\nstring Owner = \"the boss\";\n\n< /SIL >\n");
}

TEST_F(HeaderChange, AChangeOfFormKeepsASectionWithServices) {
  give(kQuestion);
  jt_add_service(space, jt_section(space, job), "service", "Inside");
  EXPECT_EQ(give(kExclaim), 1);
  EXPECT_EQ(give(kQuestion), 1);
  expect_written("\n<? SIL 4.2.00 ASCII job-1 >\n\n\n< ? >\n[service Inside]\nend\n\n< /? >\n\n\n< /SIL >\n");
}

TEST_F(HeaderChange, ADecodedHeaderIsChangedLikeOneOfTheCalls) {
  job = jt_decode_template(
      space, "# mine\n< SIL 3.1 ASCII old > * integer N = 1; (odd{why}) [ service A ] end < /SIL >");
  reset_error_status(space);
  EXPECT_EQ(jt_set_header(space, job, kQuestion, "4.2.00", "new"), 1);
  EXPECT_EQ(status(), 0);
  EXPECT_EQ(take_text(jt_element_comment(space, jt_header(space, job))), "# mine\n");
  EXPECT_EQ(take_text(jt_header_identifier(space, job)), "new");
  EXPECT_EQ(encoded(job),
            "# mine\n\n<? SIL 4.2.00 ASCII new >\n\n* integer N = 1;(odd{why})\n\n< ? >\n< /? >\n\n"
            "[service A]\nend\n\n\n< /SIL >\n");
}

TEST_F(HeaderChange, NoFormLeavesServicesUnwritten) {
  give(kQuestion);
  jt_add_service(space, job, "service", "Body");
  expect_refused(give(kExclaim), kFormForbids);
  jt_delete_service(space, job, "Body");
  jt_add_service(space, jt_section(space, job), "service", "Inside");
  expect_refused(give(kPlain), kFormForbids);
  expect_refused(give(kNone), kFormForbids);
  EXPECT_EQ(encoded(job),
            "\n<? SIL 4.2.00 ASCII job-1 >\n\n\n< ? >\n[service Inside]\nend\n\n< /? >\n\n\n< /SIL >\n");
}

TEST_F(HeaderChange, OnlyTheThreeFormsAndNoneAreForms) {
  for (const int32_t form : {-1, 1, 2, 3, 4, 5, 9, INT32_MAX, INT32_MIN})
    expect_refused(give(form), kFormForbids);
  EXPECT_EQ(encoded(job), "");
}

// ---- Taking it away ---------------------------------------------------------------------------------------

TEST_F(HeaderChange, TakenAwayItGoesWithAttributesAndEmptySection) {
  jt_add_service(space, job, "service", "Body");
  const std::string bare = encoded(job);
  const int32_t free_slot = jt_create_template(space);
  jt_destroy_template(space, free_slot);
  for (const int32_t form : {kPlain, kQuestion}) {
    give(form);
    jt_add_header_attribute(space, job, "string", "Owner");
    EXPECT_EQ(jt_set_header(space, job, kNone, nullptr, nullptr), 1);
    EXPECT_EQ(jt_header(space, job), 0);
    EXPECT_EQ(jt_section(space, job), 0);
    EXPECT_EQ(encoded(job), bare);
    EXPECT_EQ(jt_create_template(space), free_slot);
    jt_destroy_template(space, free_slot);
  }
}

TEST_F(HeaderChange, TakingAwayWhatIsNotThereIsFine) {
  EXPECT_EQ(jt_set_header(space, job, kNone, nullptr, nullptr), 1);
  EXPECT_EQ(messages(), Messages{});
}

// ---- Words ------------------------------------------------------------------------------------------------

TEST_F(HeaderChange, WordsAreGivenOneByOne) {
  give(kPlain);
  EXPECT_EQ(jt_set_header_version(space, job, "5"), 1);
  EXPECT_EQ(jt_set_header_identifier(space, job, "Job/17"), 1);
  EXPECT_EQ(encoded(job), "\n< SIL 5 ASCII Job/17 >\n\n\n< /SIL >\n");
  EXPECT_EQ(jt_set_header_version(space, job, "4.2.00"), 1);
  expect_written("\n< SIL 4.2.00 ASCII Job/17 >\n\n\n< /SIL >\n");
}

TEST_F(HeaderChange, WordsThatWouldNotBeReadBackAreRefused) {
  give(kPlain);
  const std::string before = encoded(job);
  for (const std::string word :
       {"", "two words", "a\"b", "a\\b", "#x", "end", "END", "=", "||", "a>b", "a\n", "\t"}) {
    const std::string message = "CALL ERROR: would not be read back:" + word + " ...";
    expect_refused(jt_set_header_version(space, job, word.c_str()), message);
    expect_refused(jt_set_header_identifier(space, job, word.c_str()), message);
    expect_refused(jt_set_header(space, job, kQuestion, word.c_str(), "id"), message);
    expect_refused(jt_set_header(space, job, kQuestion, "4.2.00", word.c_str()), message);
    EXPECT_EQ(encoded(job), before);
  }
}

TEST_F(HeaderChange, AWordHasAtMost2047Bytes) {
  give(kPlain);
  const std::string longest(2047, 'w');
  EXPECT_EQ(jt_set_header_identifier(space, job, longest.c_str()), 1);
  expect_written("\n< SIL 4.2.00 ASCII " + longest + "\n >\n\n\n< /SIL >\n");
  EXPECT_EQ(jt_set_header_identifier(space, job, (longest + "w").c_str()), 0);
  EXPECT_EQ(take_text(jt_header_identifier(space, job)), longest);
}

TEST_F(HeaderChange, NullWordsAreRefusedBeforeTheHandleIsLookedAt) {
  expect_refused(jt_set_header(space, 0, kPlain, nullptr, "id"), kNullValue);
  expect_refused(jt_set_header(space, 0, kPlain, "4.2.00", nullptr), kNullValue);
  expect_refused(jt_set_header_version(space, 0, nullptr), kNullValue);
  expect_refused(jt_set_header_identifier(space, 0, nullptr), kNullValue);
}

TEST_F(HeaderChange, WithoutAHeaderThereIsNothingToChange) {
  expect_refused(jt_set_header_version(space, job, "4.2.00"), kNoHeader);
  expect_refused(jt_set_header_identifier(space, job, "id"), kNoHeader);
  expect_refused(jt_add_header_attribute(space, job, "string", "Owner"), kNoHeader);
  expect_refused(jt_add_section(space, job), kNoHeader);
}

TEST_F(HeaderChange, AWordMayBeTheOneThatItReplaces) {
  give(kPlain);
  const char *const identifier =
      reinterpret_cast<const char *>(opaque_to_node(space, jt_header(space, job) - 3)->value);
  ASSERT_STREQ(identifier, "job-1");
  EXPECT_EQ(jt_set_header(space, job, kQuestion, "4.2.00", identifier), 1);
  EXPECT_EQ(take_text(jt_header_identifier(space, job)), "job-1");
}

TEST_F(HeaderChange, AHeaderThatHasLostAWordIsGivenAllOfThem) {
  give(kPlain);
  jt_node *const identifier = opaque_to_node(space, jt_header(space, job) - 3);
  jt_node *const other = create_typed_node(space, "sil_header", "header", JT_NODE_HEADER, nullptr);
  ASSERT_EQ(add_child(space, other, identifier), 1);
  expect_refused(jt_set_header_version(space, job, "5"), kNoHeader);
  EXPECT_EQ(give(kPlain), 1);
  expect_written("\n< SIL 4.2.00 ASCII job-1 >\n\n\n< /SIL >\n");
}

// ---- Attributes -------------------------------------------------------------------------------------------

TEST_F(HeaderChange, AttributesAreAddedChangedAndRemoved) {
  give(kPlain);
  const int32_t owner = jt_add_header_attribute(space, job, "string", "Owner");
  const int32_t count = jt_add_header_attribute(space, job, "INTEGER", "Count");
  EXPECT_NE(jt_add_element_value_text(space, owner, "me"), 0);
  EXPECT_NE(jt_add_element_value_text(space, count, "1"), 0);
  EXPECT_NE(jt_add_element_value_text(space, count, "2"), 0);
  EXPECT_EQ(jt_set_element_non_compulsory(space, count, 1), 1);
  EXPECT_EQ(jt_set_element_comment(space, count, "# how many\n"), 1);
  EXPECT_EQ(jt_set_element_status(space, count, "KMT_STATUS_IGNORED"), 1);
  expect_written(
      "\n< SIL 4.2.00 ASCII job-1 >\n\nstring Owner = \"me\";\n"
      "* integer Count =        # how many\n                         1, 2;(KMT_STATUS_IGNORED)\n\n< /SIL "
      ">\n");
  EXPECT_EQ(jt_remove_element(space, owner), 1);
  EXPECT_EQ(jt_set_element_name(space, count, "owner"), 1);
  EXPECT_EQ(jt_find_child(space, jt_header(space, job), "Owner"), count);
}

TEST_F(HeaderChange, AnAttributeHasABaseTypeAndANewName) {
  give(kPlain);
  jt_add_header_attribute(space, job, "string", "Owner");
  const std::string before = encoded(job);
  EXPECT_EQ(jt_add_header_attribute(space, job, "string", "OWNER"), 0);
  EXPECT_EQ(messages().back(), "SYNTAX ERROR: Trying to save multiple definitions for:OWNER ...");
  EXPECT_EQ(jt_add_header_attribute(space, job, "enum_sided", "Sides"), 0);
  EXPECT_EQ(messages().back(), "SYNTAX ERROR: unknown or invalid type:enum_sided ...");
  EXPECT_EQ(jt_add_header_attribute(space, job, nullptr, "Sides"), 0);
  EXPECT_EQ(messages().back(), "SYNTAX ERROR: unknown or invalid type:(null) ...");
  expect_refused(jt_add_header_attribute(space, job, "string", "two words"),
                 "CALL ERROR: would not be read back:two words ...");
  expect_refused(jt_add_header_attribute(space, job, "string", std::string(1024, 'n').c_str()),
                 "CALL ERROR: would not be read back:" + std::string(216, 'n') + " ...");
  expect_refused(jt_add_header_attribute(space, 0, "string", ""), "CALL ERROR: no name to set ...");
  expect_refused(jt_add_header_attribute(space, 0, "string", nullptr), "CALL ERROR: no name to set ...");
  EXPECT_EQ(encoded(job), before);
}

// ---- Sections ---------------------------------------------------------------------------------------------

TEST_F(HeaderChange, ASectionIsRemovedAndAddedAgain) {
  jt_add_service(space, job, "service", "Body");
  give(kQuestion);
  jt_add_service(space, jt_section(space, job), "service", "Inside");
  EXPECT_EQ(jt_remove_section(space, job), 1);
  expect_written("\n<? SIL 4.2.00 ASCII job-1 >\n\n[service Body]\nend\n\n\n< /SIL >\n");
  const int32_t section = jt_add_section(space, job);
  EXPECT_NE(section, 0);
  EXPECT_EQ(section, jt_section(space, job));
  EXPECT_EQ(jt_set_element_comment(space, section, "# inside\n"), 1);
  expect_written(
      "\n<? SIL 4.2.00 ASCII job-1 >\n\n\n< ? >\n# inside\n< /? >\n\n[service Body]\nend\n\n\n< /SIL >\n");
}

TEST_F(HeaderChange, ASectionStaysWhereTheTextNeedsIt) {
  give(kQuestion);
  expect_refused(jt_remove_section(space, job), kFormForbids);
  give(kExclaim);
  expect_refused(jt_remove_section(space, job), kFormForbids);
  EXPECT_NE(jt_section(space, job), 0);
}

TEST_F(HeaderChange, ASectionIsAddedOnceAndNotToAPlainHeader) {
  give(kQuestion);
  expect_refused(jt_add_section(space, job), kFormForbids);
  give(kPlain);
  expect_refused(jt_add_section(space, job), kFormForbids);
  EXPECT_EQ(jt_section(space, job), 0);
}

TEST_F(HeaderChange, WithoutASectionThereIsNoneToRemove) {
  EXPECT_EQ(jt_remove_section(space, job), 0);
  EXPECT_EQ(status(), 0);
}

TEST_F(HeaderChange, ASectionIsNoWholeTemplate) {
  give(kQuestion);
  const std::string before = encoded(job);
  const int32_t section = jt_section(space, job);
  expect_refused(jt_set_header(space, section, kPlain, "4.2.00", "id"), kNotATemplate);
  expect_refused(jt_set_header(space, section, kNone, nullptr, nullptr), kNotATemplate);
  expect_refused(jt_set_header_version(space, section, "5"), kNotATemplate);
  expect_refused(jt_set_header_identifier(space, section, "id"), kNotATemplate);
  expect_refused(jt_add_header_attribute(space, section, "string", "Owner"), kNotATemplate);
  expect_refused(jt_add_section(space, section), kNotATemplate);
  expect_refused(jt_remove_section(space, section), kNotATemplate);
  EXPECT_EQ(encoded(job), before);
}

TEST_F(HeaderChange, TheHandleOfASectionIsThatOfItsTemplateForServicesOnly) {
  give(kQuestion);
  const int32_t section = jt_section(space, job);
  EXPECT_EQ(jt_add_service(space, section, "service", "Inside"), 1);
  EXPECT_EQ(take_text(jt_encode_template(space, section)), "(none)");
  EXPECT_EQ(messages().back(), "SYSTEM ERROR: Language Version is missing ...");
  EXPECT_EQ(jt_destroy_template(space, section), 1);
  EXPECT_EQ(jt_element_kind(space, job), -1);
}

}  // namespace
}  // namespace jt_test
