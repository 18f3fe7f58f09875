// The calls on services, their invocations and attributes: each does what its counterpart in jt.h does, and
// says so when it cannot.
#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

using jt::Category;

class Services : public CppTest {};

// ---- Services ----

TEST_F(Services, KnowTheirName) {
  EXPECT_EQ(scanner.name(), "Scanner");
  EXPECT_STREQ(scanner.c_str(), "Scanner");
  EXPECT_STREQ(jt::Service().c_str(), "");
  EXPECT_EQ(job.service(nullptr).name(), "");
}

TEST_F(Services, KeepTheirNameHoweverLong) {
  std::string name(2047, 'x');
  ASSERT_TRUE(job.add_service("kmt_svc_scan", name));
  const jt::Service service = job.service(name);
  name.clear();
  const jt::Service copy = service;
  EXPECT_TRUE(service.exists());
  EXPECT_TRUE(copy.exists());
  EXPECT_EQ(copy.name().size(), 2047U);
}

TEST_F(Services, CopyAndMoveWithTheirName) {
  const std::string long_name(100, 'x');
  for (const std::string &name : {std::string("short"), long_name}) {
    jt::Service service = job.service(name);
    jt::Service moved(std::move(service));
    EXPECT_EQ(moved.name(), name);
    service = moved;
    EXPECT_EQ(service.name(), name);
    service = std::move(moved);
    EXPECT_EQ(service.name(), name);
  }
}

TEST_F(Services, ThatFindNoMemoryForTheirNameAreRefused) {
  fail_allocations(1, Failing::kOnlyOne);
  const jt::Service service = job.service(std::string(100, 'x').c_str());
  EXPECT_EQ(allow_allocations(), 1);
  EXPECT_TRUE(failed(service.type(), Category::memory_error, {"MEMORY ERROR: allocation error ..."}));
}

TEST_F(Services, ExistOrNot) {
  EXPECT_TRUE(scanner.exists());
  EXPECT_TRUE(job.service("SCANNER").exists());
  EXPECT_FALSE(job.service("Fax").exists());
}

TEST_F(Services, HaveAType) {
  EXPECT_EQ(*scanner.type(), "kmt_svc_scan");
  EXPECT_TRUE(
      failed(job.service("Fax").type(), Category::call_error, {"CALL ERROR: does not exist:Fax ..."}));
}

TEST_F(Services, AreAdded) {
  const jt::Result<jt::Service> fax = job.add_service("kmt_svc_fax", "Fax");
  ASSERT_TRUE(fax);
  EXPECT_EQ(fax->name(), "Fax");
  EXPECT_EQ(*fax->type(), "kmt_svc_fax");
}

TEST_F(Services, AreAddedOnlyOnce) {
  EXPECT_TRUE(failed(job.add_service("kmt_svc_fax", "Mail"), Category::syntax_error,
                     {"SYNTAX ERROR: Trying to save multiple definitions for:Mail ..."}));
}

TEST_F(Services, AreRemoved) {
  EXPECT_TRUE(scanner.remove());
  EXPECT_FALSE(scanner.exists());
  EXPECT_TRUE(failed(scanner.remove(), Category::call_error, {"CALL ERROR: does not exist:Scanner ..."}));
}

// ---- Invocations ----

using Invocations = Services;

TEST_F(Invocations, AreWalkedByHand) {
  EXPECT_TRUE(scanner.first_invocation());
  EXPECT_EQ(*scanner.invocation_name(), "first");
  EXPECT_TRUE(scanner.next_invocation());
  EXPECT_TRUE(failed_silently(scanner.invocation_name()));
  EXPECT_FALSE(scanner.next_invocation());
  EXPECT_TRUE(
      failed(scanner.invocation_name(), Category::call_error, {"CALL ERROR: no current invocation ..."}));
}

TEST_F(Invocations, AreSelectedByNameOrNumber) {
  EXPECT_TRUE(scanner.select_invocation("2"));
  EXPECT_EQ(*scanner.get<std::int32_t>("Copies"), 4);
  EXPECT_TRUE(scanner.select_invocation("FIRST"));
  EXPECT_EQ(*scanner.get<std::int32_t>("Copies"), 3);
  EXPECT_TRUE(failed(scanner.select_invocation("third"), Category::call_error,
                     {"CALL ERROR: invocation does not exist:third ..."}));
}

TEST_F(Invocations, AreAddedAndNamed) {
  EXPECT_TRUE(scanner.add_invocation());
  EXPECT_TRUE(scanner.name_invocation("new"));
  EXPECT_EQ(*scanner.invocation_name(), "new");
  EXPECT_TRUE(failed(scanner.name_invocation("newer"), Category::call_error,
                     {"CALL ERROR: invocation is already namednew ..."}));
}

TEST_F(Invocations, AreRenamed) {
  EXPECT_TRUE(scanner.rename_invocation("other"));
  EXPECT_EQ(*scanner.invocation_name(), "other");
}

TEST_F(Invocations, AreRemoved) {
  EXPECT_TRUE(scanner.remove_invocation());
  EXPECT_EQ(*scanner.get<std::int32_t>("Copies"), 4);
  EXPECT_TRUE(scanner.remove_invocation());
  EXPECT_TRUE(failed_silently(scanner.remove_invocation()));
}

// ---- Attributes ----

using Attributes = Services;

TEST_F(Attributes, ExistOrNot) {
  EXPECT_TRUE(scanner.has("copies"));
  EXPECT_FALSE(scanner.has("Colour"));
}

TEST_F(Attributes, HaveAType) {
  EXPECT_EQ(*scanner.type_of("Sides"), "enum_sided");
  EXPECT_TRUE(
      failed(scanner.type_of("Colour"), Category::call_error, {"CALL ERROR: does not exist:Colour ..."}));
}

TEST_F(Attributes, HaveAKnownTypeOrNot) {
  EXPECT_TRUE(scanner.has_known_type("Sides"));
  EXPECT_TRUE(scanner.add_attribute("enum_newer", "Newer"));
  EXPECT_FALSE(scanner.has_known_type("Newer"));
}

TEST_F(Attributes, HaveAStarOrNot) {
  EXPECT_TRUE(scanner.is_non_compulsory("Note"));
  EXPECT_TRUE(scanner.set_compulsory("Note"));
  EXPECT_FALSE(scanner.is_non_compulsory("Note"));
  EXPECT_TRUE(scanner.set_non_compulsory("Note"));
  EXPECT_TRUE(scanner.is_non_compulsory("Note"));
}

TEST_F(Attributes, AreAddedAndRemoved) {
  EXPECT_TRUE(scanner.add_attribute("integer", "Pages"));
  EXPECT_TRUE(scanner.has("Pages"));
  EXPECT_TRUE(failed(scanner.add_attribute("integer", "Pages"), Category::syntax_error,
                     {"SYNTAX ERROR: Trying to save multiple definitions for:Pages ..."}));
  EXPECT_TRUE(scanner.remove_attribute("Pages"));
  EXPECT_FALSE(scanner.has("Pages"));
}

TEST_F(Attributes, AreAddedWithAValue) {
  EXPECT_TRUE(scanner.add_attribute("string", "Title", "A letter"));
  EXPECT_EQ(*scanner.text("Title"), "A letter");
  EXPECT_TRUE(scanner.add_attribute("integer", "Pages", 12));
  EXPECT_EQ(*scanner.get<std::int32_t>("Pages"), 12);
  EXPECT_TRUE(scanner.add_attribute("enum_sided", "Ways", *scanner.value("Sides")));
  EXPECT_EQ(*scanner.text("Ways"), "TWO_SIDED");
}

TEST_F(Attributes, StayWithoutAValueThatIsRefused) {
  EXPECT_TRUE(
      failed(scanner.add_attribute("integer", "Pages", "many"), Category::syntax_error,
             {"SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\nmany ..."}));
  EXPECT_TRUE(scanner.has("Pages"));
  EXPECT_TRUE(failed_silently(scanner.text("Pages")));
}

TEST_F(Attributes, ThatAreThereGetNoFurtherValueByBeingAdded) {
  EXPECT_TRUE(failed(scanner.add_attribute("integer", "Copies", 9), Category::syntax_error,
                     {"SYNTAX ERROR: Trying to save multiple definitions for:Copies ..."}));
  EXPECT_EQ(words_of(scanner.texts("Copies")), (Words{"3"}));
}

// ---- Values as text ----

using AttributeTexts = Services;

TEST_F(AttributeTexts, AreReadUnquoted) {
  EXPECT_EQ(*scanner.text("Sides"), "TWO_SIDED");
  EXPECT_EQ(*scanner.text("Note"), "one");
  EXPECT_EQ(*job.service("Mail").text("To"), "office@example.org");
}

TEST_F(AttributeTexts, FailSilentlyWhereThereIsNoValue) {
  EXPECT_TRUE(failed_silently(job.service("Mail").text("Nothing")));
  EXPECT_TRUE(
      failed(scanner.text("Colour"), Category::call_error, {"CALL ERROR: does not exist:Colour ..."}));
}

TEST_F(AttributeTexts, AreAddedSetAndRemoved) {
  EXPECT_TRUE(scanner.add("Note", "four"));
  EXPECT_EQ(words_of(scanner.texts("Note")), (Words{"one", "two", "three", "four"}));
  EXPECT_TRUE(scanner.remove_value("Note", "TWO"));
  EXPECT_EQ(words_of(scanner.texts("Note")), (Words{"one", "three", "four"}));
  EXPECT_TRUE(scanner.set("Note", "only"));
  EXPECT_EQ(words_of(scanner.texts("Note")), (Words{"only"}));
}

TEST_F(AttributeTexts, AreRefusedByTheType) {
  EXPECT_TRUE(
      failed(scanner.set("Copies", "many"), Category::syntax_error,
             {"SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\nmany ..."}));
  EXPECT_TRUE(failed(scanner.remove_value("Note", "ten"), Category::call_error,
                     {"CALL ERROR:there is no such value ..."}));
  EXPECT_TRUE(failed(scanner.set("Copies", nullptr), Category::call_error,
                     {"CALL ERROR: value is a NULL pointer ..."}));
}

// ---- Statuses ----

using AttributeStatuses = Services;

TEST_F(AttributeStatuses, AreReadWhereTheyStand) {
  EXPECT_EQ(scanner.status().value().code(), jt::StatusCode::error);
  EXPECT_TRUE(failed_silently(scanner.invocation_status()));
  EXPECT_TRUE(scanner.select_invocation("2"));
  EXPECT_EQ(scanner.invocation_status().value().code(), jt::StatusCode::completed);
  EXPECT_TRUE(failed_silently(scanner.attribute_status("Copies")));
}

TEST_F(AttributeStatuses, AreSetByTheirNumber) {
  EXPECT_TRUE(scanner.set_status(jt::StatusCode::aborted));
  EXPECT_TRUE(scanner.set_invocation_status(jt::StatusCode::ignored));
  EXPECT_TRUE(scanner.set_attribute_status("Copies", jt::StatusCode::warning));
  EXPECT_EQ(scanner.status().value().code(), jt::StatusCode::aborted);
  EXPECT_EQ(scanner.invocation_status().value().code(), jt::StatusCode::ignored);
  EXPECT_EQ(scanner.attribute_status("Copies").value().code(), jt::StatusCode::warning);
}

TEST_F(AttributeStatuses, AreSetToOneThatThereIs) {
  const jt::Status status = session.status("KMT_STATUS_IGNORED").value();
  EXPECT_TRUE(scanner.set_status(status));
  EXPECT_TRUE(scanner.set_invocation_status(status));
  EXPECT_TRUE(scanner.set_attribute_status("Copies", status));
  EXPECT_EQ(scanner.status().value().code(), jt::StatusCode::ignored);
  EXPECT_TRUE(failed_silently(scanner.set_status(jt::Status())));
}

// ---- Cost ----

using Cost = Services;

TEST_F(Cost, OfACallIsThatOfItsCounterpart) {
  jt_parser_space *const space = session.get();
  const std::int32_t handle = job.get();
  const int direct =
      blocks_taken([&] { er_free(jt_get_first_attribute_value_string(space, handle, "Scanner", "Sides")); });
  EXPECT_EQ(blocks_taken([&] { (void)scanner.has("Sides"); }), 0);
  EXPECT_EQ(blocks_taken([&] { EXPECT_TRUE(scanner.set_compulsory("Sides")); }), 0);
  const int through_this = blocks_taken([&] { (void)scanner.text("Sides"); });
  EXPECT_EQ(through_this, direct);
}

TEST_F(Cost, OfAServiceWithAShortNameIsNoBlock) {
  EXPECT_EQ(blocks_taken([&] { (void)jt::Service(job.service("Scanner")).exists(); }), 0);
}

}  // namespace
}  // namespace jt_test
