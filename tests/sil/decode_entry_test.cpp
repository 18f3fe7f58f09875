// The two entries beneath the calls that read and write a whole template: null arguments, what they return,
// and what stays behind.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

class DecodeEntry : public DecodeTest {};

TEST_F(DecodeEntry, NullTextGivesNothingWithoutAReport) {
  EXPECT_EQ(decode_template_string(space, nullptr), nullptr);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(status(), JT_OK);
  EXPECT_EQ(live_nodes(space), 0);
}

TEST_F(DecodeEntry, NullSessionGivesNothing) {
  EXPECT_EQ(decode_template_string(nullptr, "[ service A ] end"), nullptr);
  EXPECT_EQ(decode_template_string(nullptr, nullptr), nullptr);
}

TEST_F(DecodeEntry, GivesTheRoot) {
  jt_node *const root = decode_template_string(space, "[ service A ] end");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root, opaque_to_node(space, -100));
  EXPECT_EQ(root->bookmark, 0);
  EXPECT_EQ(take_text(encode_template(space, root)), "[service A]\nend\n\n");
  EXPECT_EQ(destroy_all_nodes(space, root), 1);
  EXPECT_EQ(live_nodes(space), 0);
}

TEST_F(DecodeEntry, DoesNotResetTheStatus) {
  jt_error(space, "WARNING: before", "");
  ASSERT_NE(decode_template_string(space, "[ service A ] end"), nullptr);
  EXPECT_EQ(status(), JT_WARNING);
}

TEST_F(DecodeEntry, StatusIsThatOfTheNewestReport) {
  EXPECT_NE(decode("[ service kmt_svc_scan ] { integer a = x ; } end ( LATE )"), 0);
  EXPECT_EQ(status(), JT_WARNING);
  EXPECT_EQ(
      messages(),
      (Messages{"SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\nx ...",
                "WARNING: trying to evaluate as an 'enumerated' type:LATE ..."}));
}

// ---- Unknown services: how often they warn ----

class UnknownService : public DecodeTest {};

TEST_F(UnknownService, WarnsTwiceForEachInvocation) {
  const std::string warning = "WARNING: unknown service:Foo ...";
  EXPECT_NE(decode("[ service Foo ] { } { } end"), 0);
  EXPECT_EQ(status(), JT_WARNING);
  EXPECT_EQ(messages(), (Messages{warning, warning, warning, warning}));
}

TEST_F(UnknownService, WarnsTwiceForANamedInvocation) {
  const std::string warning = "WARNING: unknown service:Foo ...";
  EXPECT_NE(decode("[ service Foo ] X { } end"), 0);
  EXPECT_EQ(messages(), (Messages{warning, warning}));
}

TEST_F(UnknownService, DoesNotWarnWithoutInvocation) {
  EXPECT_NE(decode("[ service Foo ] end"), 0);
  EXPECT_EQ(status(), JT_OK);
  EXPECT_TRUE(messages().empty());
}

TEST_F(UnknownService, LeavesItsNameOnTheInvocation) {
  jt_node *const root = decoded("[ service Foo ] X { } end");
  ASSERT_NE(root, nullptr);
  const jt_node *const invocation = child(root, {"Foo", "X"});
  EXPECT_EQ(invocation->type, jt_core::unknown_type());
  EXPECT_STREQ(invocation->unresolved_type_name, "Foo");
}

TEST_F(UnknownService, HasTheBaseTypesAlone) {
  EXPECT_NE(decode("[ service Foo ] { integer a ; struct_rectangle b ; } end"), 0);
  EXPECT_EQ(decode("[ service Foo ] { struct_gutter a ; } end"), 0);
  EXPECT_EQ(messages().back(),
            "SYNTAX ERROR: while parsing for \"  * or TYPE or } \" at:struct_gutter a ; } end ...");
}

TEST_F(UnknownService, IncludesTheTwoWhoseTablesAreNotLookedIn) {
  for (const char *const name : {"kmt_svc_traikubra", "kmt_svc_quillform"}) {
    reopen();
    EXPECT_NE(decode(std::string("[ service ") + name + " ] { integer a ; } end"), 0);
    const std::string warning = std::string("WARNING: unknown service:") + name + " ...";
    EXPECT_EQ(messages(), (Messages{warning, warning}));
  }
}

// ---- Known services ----

class KnownService : public DecodeTest, public ::testing::WithParamInterface<const char *> {};

TEST_P(KnownService, IsFoundByItsName) {
  EXPECT_NE(decode(std::string("[ service ") + GetParam() + " ] { integer a ; } X { } end"), 0);
  EXPECT_TRUE(messages().empty());
}

TEST_P(KnownService, IsFoundByItsType) {
  EXPECT_NE(decode(std::string("[ ") + GetParam() + " My ] { integer a ; } X { } end"), 0);
  EXPECT_TRUE(messages().empty());
}

TEST_P(KnownService, MayHaveItsTypeAsName) {
  EXPECT_NE(decode(std::string("[ ") + GetParam() + " " + GetParam() + " ] { integer a ; } X { } end"), 0);
  EXPECT_TRUE(messages().empty());
}

INSTANTIATE_TEST_SUITE_P(EachOfFourteen, KnownService,
                         ::testing::Values("kmt_document", "kmt_svc_general", "kmt_svc_fax", "kmt_svc_file",
                                           "kmt_svc_scan", "kmt_svc_print", "kmt_svc_notification",
                                           "kmt_svc_email", "kmt_svc_ocr", "kmt_svc_docman",
                                           "kmt_svc_paperware", "kmt_svc_desktop", "kmt_svc_validation",
                                           "kmt_dscrpt_metadata"));

class ServiceScope : public DecodeTest {};

TEST_F(ServiceScope, IsTheTypeOfANamedService) {
  EXPECT_NE(decode("[ kmt_svc_scan MyScan ] { struct_gutter a = 1/2/MM ; enum_mediasize m = AUTO ; } end"),
            0);
  EXPECT_TRUE(messages().empty());
}

TEST_F(ServiceScope, IsTheNameBeforeTheType) {
  EXPECT_NE(decode("[ kmt_svc_print KMT_SVC_SCAN ] { struct_gutter a ; } end"), 0);
  EXPECT_EQ(decode("[ kmt_svc_print KMT_SVC_SCAN ] { enum_printmode a ; } end"), 0);
}

TEST_F(ServiceScope, IsABaseTypeOfThatName) {
  EXPECT_NE(decode("[ service Integer ] { boolean a ; } end"), 0);
  EXPECT_TRUE(messages().empty());
}

TEST_F(ServiceScope, MayBeEveryBaseTypeAsType) {
  for (const char *const type :
       {"boolean",          "description",      "doc_object", "enum_systemidalgorithm",
        "enum_units",       "generic_service",  "instance",   "integer",
        "invocation",       "kmt_enum_status",  "real",       "ref_collection",
        "ref_invocation",   "service",          "sil_header", "string",
        "struct_rectangle", "struct_timeofday", "template",   "timestamp",
        "unknown_type"}) {
    EXPECT_NE(decode(std::string("[ ") + type + " kmt_svc_scan ] { } end"), 0) << type;
  }
  EXPECT_TRUE(messages().empty());
}

}  // namespace
}  // namespace jt_test
