// Services of every type that a service may have, and of those that it may not; what a deleted or refused one
// leaves behind; and services in the different forms of templates.
#include <gtest/gtest.h>

#include <string>

#include "support/job.h"

namespace jt_test {
namespace {

class ChangeServices : public JobTest {
 protected:
  ChangeServices() { job = jt_create_template(space); }

  int32_t add(const char *type, const char *name) { return jt_add_service(space, job, type, name); }
  std::string type_of(const char *name) { return take_text(jt_get_service_type(space, job, name)); }
};

// ---- Types ------------------------------------------------------------------------------------------------

class ServiceType : public ChangeServices, public ::testing::WithParamInterface<const char *> {};

TEST_P(ServiceType, IsAcceptedInAnyLetterCaseAndKeptAsItsTableSpellsIt) {
  std::string shouted = GetParam();
  for (char &c : shouted) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  EXPECT_EQ(add(GetParam(), "One"), 1);
  EXPECT_EQ(add(shouted.c_str(), "Two"), 1);
  EXPECT_EQ(type_of("one"), GetParam());
  EXPECT_EQ(type_of("TWO"), GetParam());
  EXPECT_TRUE(quiet());
  const std::string type = GetParam();
  EXPECT_EQ(encoded(), "[" + type + " One]\nend\n\n[" + type + " Two]\nend\n\n");
}

TEST_P(ServiceType, IsReadBack) {
  ASSERT_EQ(add(GetParam(), "One"), 1);
  const std::string text = encoded();
  decode(text);
  EXPECT_EQ(type_of("One"), GetParam());
  EXPECT_EQ(encoded(), text);
}

INSTANTIATE_TEST_SUITE_P(Base, ServiceType,
                         ::testing::Values("boolean", "description", "doc_object", "enum_systemidalgorithm",
                                           "enum_units", "generic_service", "instance", "integer",
                                           "invocation", "kmt_enum_status", "real", "ref_collection",
                                           "ref_invocation", "service", "sil_header", "string",
                                           "struct_rectangle", "struct_timeofday", "template", "timestamp",
                                           "unknown_type"),
                         [](const auto &tested) { return std::string(tested.param); });
INSTANTIATE_TEST_SUITE_P(OfServices, ServiceType,
                         ::testing::Values("kmt_document", "kmt_svc_general", "kmt_svc_fax", "kmt_svc_file",
                                           "kmt_svc_scan", "kmt_svc_print", "kmt_svc_notification",
                                           "kmt_svc_email", "kmt_svc_ocr", "kmt_svc_docman",
                                           "kmt_svc_paperware", "kmt_svc_desktop", "kmt_svc_validation",
                                           "kmt_dscrpt_metadata"),
                         [](const auto &tested) { return std::string(tested.param); });

class NoServiceType : public ChangeServices, public ::testing::WithParamInterface<const char *> {};

TEST_P(NoServiceType, IsRefusedAlsoForANameThatIsTaken) {
  ASSERT_EQ(add("service", "Taken"), 1);
  const char *const shown = GetParam() != nullptr ? GetParam() : "(null)";
  const Messages refused = {std::string("SYNTAX ERROR: unknown or invalid type:") + shown + " ..."};
  EXPECT_EQ(add(GetParam(), "New"), 0);
  EXPECT_TRUE(reports(JT_SYNTAX_ERROR, refused));
  EXPECT_EQ(add(GetParam(), "Taken"), 0);
  EXPECT_TRUE(reports(JT_SYNTAX_ERROR, refused));
  EXPECT_EQ(encoded(), "[service Taken]\nend\n\n");
  EXPECT_EQ(live_nodes(space), 2);
}

INSTANTIATE_TEST_SUITE_P(Names, NoServiceType,
                         ::testing::Values("nosuch", "", static_cast<const char *>(nullptr), "service ",
                                           "enum_mediasize", "struct_gutter", "kmt_svc_traikubra",
                                           "kmt_svc_quillform", "kmt_svc_nosuch"));

// ---- Names ------------------------------------------------------------------------------------------------

TEST_F(ChangeServices, ATakenNameIsRefusedInAnyLetterCaseAndForAnyType) {
  ASSERT_EQ(add("kmt_svc_scan", "Scan"), 1);
  EXPECT_EQ(add("kmt_svc_scan", "Scan"), 0);
  EXPECT_TRUE(reports(JT_SYNTAX_ERROR, {"SYNTAX ERROR: Trying to save multiple definitions for:Scan ..."}));
  EXPECT_EQ(add("kmt_svc_fax", "sCaN"), 0);
  EXPECT_TRUE(reports(JT_SYNTAX_ERROR, {"SYNTAX ERROR: Trying to save multiple definitions for:sCaN ..."}));
  EXPECT_EQ(encoded(), "[kmt_svc_scan Scan]\nend\n\n");
  EXPECT_EQ(live_nodes(space), 2);
}

TEST_F(ChangeServices, TheNameIsACopy) {
  std::string name = "Scan";
  ASSERT_EQ(add("kmt_svc_scan", name.data()), 1);
  name.assign(name.size(), '#');
  EXPECT_EQ(service_names(), Texts{"Scan"});
}

TEST_F(ChangeServices, ExistenceIsThatOfAName) {
  ASSERT_EQ(add("kmt_svc_scan", "Scan"), 1);
  ASSERT_EQ(add("service", ""), 1);
  EXPECT_EQ(jt_exists_service(space, job, "SCAN"), 1);
  for (const char *const name : {"", "Sca", "Scan ", "kmt_svc_scan", static_cast<const char *>(nullptr)}) {
    EXPECT_EQ(jt_exists_service(space, job, name), 0);
  }
  EXPECT_TRUE(quiet());
}

TEST_F(ChangeServices, ATypeNameIsACopy) {
  ASSERT_EQ(add("kmt_svc_scan", "Scan"), 1);
  char *const name = jt_get_service_type(space, job, "Scan");
  name[0] = 'x';
  EXPECT_EQ(jt_destroy_name(space, name), 1);
  EXPECT_EQ(type_of("Scan"), "kmt_svc_scan");
}

// ---- Deleting ---------------------------------------------------------------------------------------------

TEST_F(ChangeServices, ADeletedOneTakesAlongWhatIsInIt) {
  decode("[ service A ] end [ kmt_svc_scan Scan ] { integer a = 1, 2; } { } end (KMT_STATUS_ERROR{why})");
  EXPECT_EQ(jt_delete_service(space, job, "SCAN"), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(encoded(), "[service A]\nend\n\n");
  ASSERT_EQ(add("kmt_svc_scan", "Scan"), 1);
  EXPECT_EQ(encoded(), "[service A]\nend\n\n[kmt_svc_scan Scan]\nend\n\n");
}

TEST_F(ChangeServices, ADeletedOneLeavesNoNodeBehind) {
  decode("[ kmt_svc_scan Scan ] { integer a = 1, 2; } { } end");
  const int before = live_nodes(space);
  EXPECT_EQ(jt_delete_service(space, job, "Scan"), 1);
  EXPECT_EQ(live_nodes(space), before - 6);
}

TEST_F(ChangeServices, AllMayBeDeleted) {
  decode("[ service a ] end [ service b ] end [ service c ] end");
  for (const char *const name : {"b", "c", "a"}) EXPECT_EQ(jt_delete_service(space, job, name), 1);
  EXPECT_EQ(jt_delete_service(space, job, "a"), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: does not exist:a ..."}));
  EXPECT_EQ(encoded(), "");
}

// ---- Forms of templates -----------------------------------------------------------------------------------

TEST_F(ChangeServices, ATemplateWithAHeaderKeepsItWhenItsServicesChange) {
  decode("< SIL 4.2.00 ASCII job-1 > [ service a ] end < /SIL >");
  ASSERT_EQ(add("kmt_svc_fax", "b"), 1);
  ASSERT_EQ(jt_delete_service(space, job, "a"), 1);
  EXPECT_EQ(encoded(), "\n< SIL 4.2.00 ASCII job-1 >\n\n[kmt_svc_fax b]\nend\n\n\n< /SIL >\n");
}

TEST_F(ChangeServices, TheServicesOfASectionAreOthers) {
  decode("<? SIL 4.2.00 ASCII job-1 > < ? > [ service a ] end < /? > [ service b ] end < /SIL >");
  EXPECT_EQ(service_names(), Texts{"b"});
  EXPECT_EQ(jt_exists_service(space, job, "a"), 0);
  ASSERT_EQ(add("kmt_svc_fax", "a"), 1);
  EXPECT_EQ(encoded(),
            "\n<? SIL 4.2.00 ASCII job-1 >\n\n\n< ? >\n[service a]\nend\n\n< /? >\n\n"
            "[service b]\nend\n\n[kmt_svc_fax a]\nend\n\n\n< /SIL >\n");
}

TEST_F(ChangeServices, WhereASectionIsAllThatIsWrittenOthersAreKeptUnseen) {
  decode("<! SIL 4.2.00 ASCII job-1 > < ! > [ service a ] end < /! > < /SIL >");
  const std::string before = encoded();
  EXPECT_EQ(service_names(), Texts{});
  ASSERT_EQ(add("kmt_svc_fax", "b"), 1);
  EXPECT_EQ(service_names(), Texts{"b"});
  EXPECT_EQ(encoded(), before);
}

}  // namespace
}  // namespace jt_test
