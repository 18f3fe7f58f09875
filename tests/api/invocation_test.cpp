// Which invocation is the current one while invocations come, go and are renamed; names and numbers; and
// whose types an invocation may use.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/job.h"

namespace jt_test {
namespace {

class CurrentInvocation : public JobTest {
 protected:
  CurrentInvocation() { decode("[ kmt_svc_scan Scan ] one { } two { } three { } end"); }

  int32_t first() { return jt_first_invocation(space, job, "Scan"); }
  int32_t next() { return jt_next_invocation(space, job, "Scan"); }
  int32_t go_to(const char *name) { return jt_named_invocation(space, job, "Scan", name); }
  int32_t add() { return jt_add_invocation(space, job, "Scan"); }
  int32_t remove() { return jt_delete_invocation(space, job, "Scan"); }
  int32_t rename(const char *name) { return jt_set_invocation_name(space, job, "Scan", name); }
  int32_t force(const char *name) { return jt_force_invocation_name(space, job, "Scan", name); }
  std::string current() { return take_text(jt_get_invocation_name(space, job, "Scan")); }

  void add_named(const char *name) {
    ASSERT_EQ(add(), 1);
    ASSERT_EQ(rename(name), 1);
  }
  void run_out() {
    while (next() != 0) continue;
  }
  // Names in order; "(none)" for an unnamed one. Leaves the first one current.
  Texts all() {
    Texts names;
    for (int32_t more = first(); more != 0; more = next()) names.push_back(current());
    first();
    return names;
  }
};

// ---- Adding -----------------------------------------------------------------------------------------------

TEST_F(CurrentInvocation, OneThatIsAddedHasNoNameAndNoAttributes) {
  ASSERT_EQ(add(), 1);
  EXPECT_EQ(current(), "(none)");
  EXPECT_EQ(take_text(jt_get_first_attribute_name(space, job, "Scan")), "(none)");
  EXPECT_EQ(jt_get_invocation_status(space, job, "Scan"), nullptr);
  EXPECT_TRUE(quiet());
}

TEST_F(CurrentInvocation, OneIsAddedBehindTheFirstWhenNobodyHasChosen) {
  add_named("new");
  EXPECT_EQ(all(), (Texts{"one", "new", "two", "three"}));
}

TEST_F(CurrentInvocation, OneIsAddedThirdBehindTheSecond) {
  ASSERT_EQ(go_to("two"), 1);
  add_named("new");
  EXPECT_EQ(current(), "new");
  EXPECT_EQ(all(), (Texts{"one", "two", "new", "three"}));
}

TEST_F(CurrentInvocation, OneIsAddedAtTheEndBehindTheLast) {
  ASSERT_EQ(go_to("three"), 1);
  add_named("new");
  EXPECT_EQ(next(), 0);
  EXPECT_EQ(all(), (Texts{"one", "two", "three", "new"}));
}

TEST_F(CurrentInvocation, OneIsAddedAtTheEndOfAWalkAndIsCurrent) {
  run_out();
  add_named("new");
  EXPECT_EQ(current(), "new");
  EXPECT_EQ(all(), (Texts{"one", "two", "three", "new"}));
}

TEST_F(CurrentInvocation, AddedOneAfterTheOtherTheyStandInOrder) {
  for (const char *const name : {"x", "y", "z"}) add_named(name);
  EXPECT_EQ(all(), (Texts{"one", "x", "y", "z", "two", "three"}));
}

TEST_F(CurrentInvocation, AddingOneForEachDuringAWalkMeetsTheOldOnesOnly) {
  Texts met;
  for (int32_t more = first(); more != 0 && met.size() < 20; more = next()) {
    met.push_back(current());
    ASSERT_EQ(add(), 1);
  }
  EXPECT_EQ(met, (Texts{"one", "two", "three"}));
  EXPECT_EQ(all(), (Texts{"one", "(none)", "two", "(none)", "three", "(none)"}));
}

TEST_F(CurrentInvocation, OneIsAddedToAServiceWithoutAnyAfterALookIntoIt) {
  decode("[ kmt_svc_scan Scan ] end");
  EXPECT_EQ(first(), 0);
  EXPECT_EQ(next(), 0);
  EXPECT_EQ(remove(), 0);
  EXPECT_TRUE(quiet());
  add_named("only");
  EXPECT_EQ(current(), "only");
  EXPECT_EQ(all(), Texts{"only"});
}

// ---- Deleting ---------------------------------------------------------------------------------------------

TEST_F(CurrentInvocation, OneInTheMiddleIsDeletedAndTheOneBeforeBecomesCurrent) {
  ASSERT_EQ(go_to("two"), 1);
  EXPECT_EQ(remove(), 1);
  EXPECT_EQ(current(), "one");
  EXPECT_EQ(next(), 1);
  EXPECT_EQ(current(), "three");
}

TEST_F(CurrentInvocation, TheLastIsDeletedAndTheOneBeforeBecomesCurrent) {
  ASSERT_EQ(go_to("three"), 1);
  EXPECT_EQ(remove(), 1);
  EXPECT_EQ(current(), "two");
  EXPECT_EQ(next(), 0);
}

TEST_F(CurrentInvocation, TheFirstIsDeletedAndTheNewFirstBecomesCurrent) {
  EXPECT_EQ(remove(), 1);
  EXPECT_EQ(current(), "two");
  EXPECT_EQ(remove(), 1);
  EXPECT_EQ(current(), "three");
  EXPECT_TRUE(quiet());
}

TEST_F(CurrentInvocation, WhenTheOnlyOneIsDeletedThereIsNoCurrentOne) {
  for (int i = 0; i < 3; ++i) EXPECT_EQ(remove(), 1);
  EXPECT_EQ(current(), "(none)");
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: no current invocation ..."}));
  EXPECT_EQ(remove(), 0);
  EXPECT_EQ(first(), 0);
  EXPECT_EQ(next(), 0);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(encoded(), "[kmt_svc_scan Scan]\nend\n\n");
}

TEST_F(CurrentInvocation, AllAreDeletedFromTheBack) {
  ASSERT_EQ(go_to("three"), 1);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(remove(), 1);
  EXPECT_EQ(remove(), 0);
  EXPECT_EQ(encoded(), "[kmt_svc_scan Scan]\nend\n\n");
}

TEST_F(CurrentInvocation, DeletedOnesTakeAlongWhatIsInThem) {
  decode("[ kmt_svc_scan Scan ] one { integer a = 1, 2; } (KMT_STATUS_ERROR{why}) end");
  ASSERT_EQ(remove(), 1);
  EXPECT_EQ(encoded(), "[kmt_svc_scan Scan]\nend\n\n");
  ASSERT_EQ(add(), 1);
  EXPECT_EQ(jt_exists_attribute(space, job, "Scan", "a"), 0);
  EXPECT_EQ(jt_get_invocation_status(space, job, "Scan"), nullptr);
}

TEST_F(CurrentInvocation, AfterTheEndOfAWalkNothingIsDeleted) {
  run_out();
  EXPECT_EQ(remove(), 0);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(all(), (Texts{"one", "two", "three"}));
}

TEST_F(CurrentInvocation, AServiceThatIsAddedAgainBeginsAnew) {
  run_out();
  ASSERT_EQ(jt_delete_service(space, job, "Scan"), 1);
  ASSERT_EQ(jt_add_service(space, job, "kmt_svc_scan", "Scan"), 1);
  EXPECT_EQ(first(), 0);
  add_named("new");
  EXPECT_EQ(all(), Texts{"new"});
}

// ---- Choosing ---------------------------------------------------------------------------------------------

TEST_F(CurrentInvocation, NextAtTheVeryStartGoesToTheSecond) {
  EXPECT_EQ(next(), 1);
  EXPECT_EQ(current(), "two");
}

TEST_F(CurrentInvocation, NextPastTheEndStaysThere) {
  run_out();
  EXPECT_EQ(next(), 0);
  EXPECT_EQ(next(), 0);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(current(), "(none)");
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: no current invocation ..."}));
}

TEST_F(CurrentInvocation, ANameOrANumberRevivesAWalkThatHasEnded) {
  run_out();
  EXPECT_EQ(go_to("TWO"), 1);
  EXPECT_EQ(current(), "two");
  run_out();
  EXPECT_EQ(go_to("3"), 1);
  EXPECT_EQ(current(), "three");
}

TEST_F(CurrentInvocation, WhatIsNotFoundDoesNotReviveAWalk) {
  run_out();
  EXPECT_EQ(go_to("four"), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: invocation does not exist:four ..."}));
  EXPECT_EQ(current(), "(none)");
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: no current invocation ..."}));
}

TEST_F(CurrentInvocation, EachServiceAndEachTemplateHasItsOwn) {
  decode("[ kmt_svc_scan Scan ] one { } two { } end [ kmt_svc_fax Fax ] f1 { } f2 { } end");
  const int32_t other = jt_decode_template(space, "[ kmt_svc_scan Scan ] o1 { } o2 { } end");
  EXPECT_EQ(next(), 1);
  EXPECT_EQ(current(), "two");
  EXPECT_EQ(take_text(jt_get_invocation_name(space, job, "Fax")), "f1");
  EXPECT_EQ(take_text(jt_get_invocation_name(space, other, "Scan")), "o1");
}

TEST_F(CurrentInvocation, WalkingServicesOrAttributesDoesNotMoveIt) {
  ASSERT_EQ(go_to("two"), 1);
  take_text(jt_get_first_service_name(space, job));
  take_text(jt_get_next_service_name(space, job));
  take_text(jt_get_first_attribute_name(space, job, "Scan"));
  encoded();
  EXPECT_EQ(current(), "two");
}

struct Choice {
  const char *text;
  const char *found;  // null: none
};

class NumberedInvocation : public CurrentInvocation, public ::testing::WithParamInterface<Choice> {
 protected:
  NumberedInvocation() { decode("[ kmt_svc_scan Scan ] one { } 3 { } three { } 10 { } end"); }
};

TEST_P(NumberedInvocation, IsFoundOrLeavesTheCurrentOne) {
  const auto [text, found] = GetParam();
  ASSERT_EQ(go_to("three"), 1);
  forget();
  EXPECT_EQ(go_to(text), found != nullptr ? 1 : 0);
  if (found == nullptr) {
    EXPECT_TRUE(
        reports(JT_CALL_ERROR, {std::string("CALL ERROR: invocation does not exist:") + text + " ..."}));
  } else {
    EXPECT_TRUE(quiet());
  }
  EXPECT_EQ(current(), found != nullptr ? found : "three");
}

INSTANTIATE_TEST_SUITE_P(
    Texts, NumberedInvocation,
    ::testing::Values(
        Choice{"1", "one"}, Choice{"2", "3"}, Choice{"02", "3"}, Choice{"0000000000000000000000001", "one"},
        Choice{"3", "3"}, Choice{"03", "three"}, Choice{"4", "10"}, Choice{"004", "10"}, Choice{"10", "10"},
        Choice{"010", nullptr}, Choice{"5", nullptr}, Choice{"007", nullptr}, Choice{"0", nullptr},
        Choice{"000", nullptr}, Choice{"-1", nullptr}, Choice{"+1", nullptr}, Choice{" 1", nullptr},
        Choice{"1 ", nullptr}, Choice{"1.0", nullptr}, Choice{"0x1", nullptr}, Choice{"x2", nullptr},
        Choice{"2x", nullptr}, Choice{"", nullptr}, Choice{"4294967297", nullptr},
        Choice{"4294967298", nullptr}, Choice{"2147483647", nullptr}, Choice{"2147483649", nullptr},
        Choice{"9223372036854775807", nullptr}, Choice{"9223372036854775808", nullptr},
        Choice{"18446744073709551617", nullptr}, Choice{"340282366920938463463374607431768211457", nullptr}));

TEST_F(CurrentInvocation, UnnamedOnesAreCountedButNotFoundByName) {
  decode("[ kmt_svc_scan Scan ] { integer a = 1; } { integer b = 1; } end");
  EXPECT_EQ(go_to("2"), 1);
  EXPECT_EQ(jt_exists_attribute(space, job, "Scan", "b"), 1);
  EXPECT_EQ(go_to(""), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: invocation does not exist: ..."}));
  EXPECT_EQ(jt_exists_attribute(space, job, "Scan", "b"), 1);
}

TEST_F(CurrentInvocation, NumbersFollowTheOrderOfTheDay) {
  ASSERT_EQ(go_to("1"), 1);
  ASSERT_EQ(remove(), 1);
  EXPECT_EQ(go_to("1"), 1);
  EXPECT_EQ(current(), "two");
  add_named("new");
  EXPECT_EQ(go_to("2"), 1);
  EXPECT_EQ(current(), "new");
}

// ---- Naming -----------------------------------------------------------------------------------------------

TEST_F(CurrentInvocation, ANameIsTestedBeforeEverythingElse) {
  for (const char *const name : {static_cast<const char *>(nullptr), ""}) {
    EXPECT_EQ(jt_set_invocation_name(space, 0, "nosuch", name), 0);
    EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: no name to set ..."}));
    EXPECT_EQ(jt_force_invocation_name(space, 0, "nosuch", name), 0);
    EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: no name to set ..."}));
  }
  EXPECT_EQ(all(), (Texts{"one", "two", "three"}));
}

TEST_F(CurrentInvocation, ATakenNameIsReportedBeforeThePresentOne) {
  EXPECT_EQ(rename("Two"), 0);
  EXPECT_TRUE(reports(JT_SYNTAX_ERROR, {"SYNTAX ERROR: duplicate naming not allowedTwo ..."}));
  EXPECT_EQ(rename("ONE"), 0);
  EXPECT_TRUE(reports(JT_SYNTAX_ERROR, {"SYNTAX ERROR: duplicate naming not allowedONE ..."}));
  EXPECT_EQ(rename("four"), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: invocation is already namedone ..."}));
  EXPECT_EQ(all(), (Texts{"one", "two", "three"}));
}

TEST_F(CurrentInvocation, AForcedNameMustBeFreeEvenOfItsOwn) {
  EXPECT_EQ(force("two"), 0);
  EXPECT_TRUE(reports(JT_SYNTAX_ERROR, {"SYNTAX ERROR: duplicate naming not allowedtwo ..."}));
  EXPECT_EQ(force("one"), 0);
  EXPECT_TRUE(reports(JT_SYNTAX_ERROR, {"SYNTAX ERROR: duplicate naming not allowedone ..."}));
  EXPECT_EQ(force("OnE"), 0);
  EXPECT_TRUE(reports(JT_SYNTAX_ERROR, {"SYNTAX ERROR: duplicate naming not allowedOnE ..."}));
  EXPECT_EQ(all(), (Texts{"one", "two", "three"}));
}

TEST_F(CurrentInvocation, AForcedNameIsFoundAndTheOldOneIsFree) {
  EXPECT_EQ(force("four"), 1);
  EXPECT_EQ(go_to("one"), 0);
  EXPECT_EQ(go_to("FOUR"), 1);
  EXPECT_EQ(go_to("two"), 1);
  EXPECT_EQ(force("one"), 1);
  EXPECT_EQ(all(), (Texts{"four", "one", "three"}));
  EXPECT_EQ(encoded(), "[kmt_svc_scan Scan]\n four{\n }\n one{\n }\n three{\n }\nend\n\n");
}

TEST_F(CurrentInvocation, AForcedNameNamesAnUnnamedOne) {
  ASSERT_EQ(add(), 1);
  EXPECT_EQ(force("new"), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(current(), "new");
}

TEST_F(CurrentInvocation, NamesMaySwapByWayOfAThird) {
  EXPECT_EQ(force("spare"), 1);
  EXPECT_EQ(go_to("two") + force("one") + go_to("spare") + force("two"), 4);
  EXPECT_EQ(all(), (Texts{"two", "one", "three"}));
}

TEST_F(CurrentInvocation, TheNameOfADeletedOneIsFree) {
  ASSERT_EQ(go_to("two"), 1);
  ASSERT_EQ(remove(), 1);
  add_named("two");
  EXPECT_EQ(all(), (Texts{"one", "two", "three"}));
}

TEST_F(CurrentInvocation, TheSameNameIsFreeInAnotherService) {
  ASSERT_EQ(jt_add_service(space, job, "kmt_svc_fax", "Fax"), 1);
  ASSERT_EQ(jt_add_invocation(space, job, "Fax"), 1);
  EXPECT_EQ(jt_set_invocation_name(space, job, "Fax", "one"), 1);
  EXPECT_TRUE(quiet());
}

TEST_F(CurrentInvocation, ANameIsKeptAndWrittenAsItIs) {
  std::string name = "a b{\"";
  ASSERT_EQ(force(name.c_str()), 1);
  name.assign(name.size(), '#');
  EXPECT_EQ(current(), "a b{\"");
  EXPECT_EQ(encoded(), "[kmt_svc_scan Scan]\n a b{\"{\n }\n two{\n }\n three{\n }\nend\n\n");
}

TEST_F(CurrentInvocation, ALongNameIsKeptWholeAndCutInReports) {
  const std::string name(3000, 'n');
  ASSERT_EQ(force(name.c_str()), 1);
  EXPECT_EQ(current(), name);
  EXPECT_EQ(rename("x"), 0);
  EXPECT_TRUE(
      reports(JT_CALL_ERROR, {"CALL ERROR: invocation is already named" + std::string(212, 'n') + " ..."}));
}

// ---- Whose types it may use -------------------------------------------------------------------------------

class UnknownService : public JobTest {};

TEST_F(UnknownService, IsNamedInTheWarningAsItIsWrittenNotAsItIsAskedFor) {
  job = jt_create_template(space);
  ASSERT_EQ(jt_add_service(space, job, "service", "MyOwn"), 1);
  ASSERT_EQ(jt_add_invocation(space, job, "mYoWN"), 1);
  EXPECT_TRUE(
      reports(JT_WARNING, {"WARNING: unknown service:MyOwn ...", "WARNING: unknown service:MyOwn ..."}));
}

struct Scope {
  const char *service_type;
  const char *service_name;
  const char *attribute_type;
  bool known;
  bool warned;  // about the service
};

class InvocationScope : public JobTest, public ::testing::WithParamInterface<Scope> {};

TEST_P(InvocationScope, IsTheServicesNameElseItsTypeElseTheBaseTypes) {
  const Scope &scope = GetParam();
  job = jt_create_template(space);
  ASSERT_EQ(jt_add_service(space, job, scope.service_type, scope.service_name), 1);
  EXPECT_TRUE(quiet());
  ASSERT_EQ(jt_add_invocation(space, job, scope.service_name), 1);
  const std::string service_warning = std::string("WARNING: unknown service:") + scope.service_name + " ...";
  EXPECT_TRUE(scope.warned ? reports(JT_WARNING, {service_warning, service_warning}) : quiet());
  ASSERT_EQ(jt_add_attribute(space, job, scope.service_name, scope.attribute_type, "a"), 1);
  const std::string type_warning =
      std::string("WARNING: unknown attribute type:") + scope.attribute_type + " ...";
  EXPECT_TRUE(scope.known ? quiet() : reports(JT_WARNING, {type_warning, type_warning}));
  EXPECT_EQ(jt_known_attribute_datatype(space, job, scope.service_name, "a"), scope.known ? 1 : 0);
  EXPECT_TRUE(quiet());
}

INSTANTIATE_TEST_SUITE_P(
    Of, InvocationScope,
    ::testing::Values(Scope{"kmt_svc_scan", "MyScan", "enum_mediasize", true, false},
                      Scope{"KMT_SVC_SCAN", "MyScan", "ENUM_MEDIASIZE", true, false},
                      Scope{"kmt_svc_scan", "MyScan", "struct_gutter", true, false},
                      Scope{"kmt_svc_scan", "MyScan", "kmt_svc_scan", true, false},
                      Scope{"kmt_svc_scan", "MyScan", "integer", true, false},
                      Scope{"kmt_svc_scan", "MyScan", "service", true, false},
                      Scope{"kmt_svc_scan", "MyScan", "enum_docformat", false, false},
                      Scope{"kmt_svc_scan", "MyScan", "kmt_svc_fax", false, false},
                      Scope{"kmt_svc_scan", "MyScan", "nosuch", false, false},
                      Scope{"kmt_svc_scan", "MyScan", "", false, false},
                      Scope{"service", "kmt_svc_scan", "enum_mediasize", true, false},
                      Scope{"service", "Kmt_Svc_Scan", "enum_mediasize", true, false},
                      Scope{"kmt_svc_fax", "kmt_svc_scan", "enum_mediasize", true, false},
                      Scope{"kmt_svc_fax", "kmt_svc_scan", "enum_transmissionmode", false, false},
                      Scope{"kmt_svc_fax", "MyFax", "enum_transmissionmode", true, false},
                      Scope{"kmt_svc_print", "MyPrint", "enum_mediasize", false, false},
                      Scope{"kmt_document", "MyDocument", "enum_docformat", true, false},
                      Scope{"kmt_dscrpt_metadata", "MyData", "enum_metadatamaskingrequired", true, false},
                      Scope{"kmt_svc_desktop", "MyDesk", "integer", true, false},
                      Scope{"service", "integer", "integer", true, false},
                      Scope{"service", "integer", "enum_mediasize", false, false},
                      Scope{"integer", "MyOwn", "integer", true, true},
                      Scope{"service", "MyOwn", "integer", true, true},
                      Scope{"service", "MyOwn", "enum_units", true, true},
                      Scope{"service", "MyOwn", "enum_mediasize", false, true},
                      Scope{"service", "kmt_svc_traikubra", "integer", true, true},
                      Scope{"service", "kmt_svc_quillform", "kmt_svc_quillform", false, true}));

}  // namespace
}  // namespace jt_test
