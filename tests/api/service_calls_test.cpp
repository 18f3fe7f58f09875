// Calls on services and on invocations: adding, finding, walking, naming, deleting, and what each does to the
// cursor that it walks with.
#include <string>
#include <vector>

#include "support/session.h"

namespace jt_test {
namespace {

class ServiceCalls : public SessionTest {
 protected:
  void add_services(const std::vector<const char *> &names) {
    for (const char *const name : names) ASSERT_EQ(jt_add_service(space, handle, "service", name), 1);
  }

  std::string first_name() { return take_text(jt_get_first_service_name(space, handle)); }
  std::string next_name() { return take_text(jt_get_next_service_name(space, handle)); }

  int32_t handle = jt_create_template(space);
};

TEST_F(ServiceCalls, TheFirstTemplateOfASessionHasHandleMinus100) { EXPECT_EQ(handle, -100); }

TEST_F(ServiceCalls, AServiceMayBeOfAnyBaseTypeOrOfAServicesOwnType) {
  add_services({"plain"});
  EXPECT_EQ(jt_add_service(space, handle, "KMT_SVC_FAX", "MyFax"), 1);
  EXPECT_EQ(take_text(jt_get_service_type(space, handle, "plain")), "service");
  EXPECT_EQ(take_text(jt_get_service_type(space, handle, "myfax")), "kmt_svc_fax");
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(ServiceCalls, AnUnknownServiceTypeIsRefused) {
  for (const char *const type : {"nosuch", "kmt_svc_traikubra", "kmt_svc_quillform", "enum_mediasize"}) {
    EXPECT_EQ(jt_add_service(space, handle, type, "s"), 0);
    EXPECT_EQ(status(), -5);
  }
  EXPECT_EQ(messages(), (Messages{"SYNTAX ERROR: unknown or invalid type:nosuch ...",
                                  "SYNTAX ERROR: unknown or invalid type:kmt_svc_traikubra ...",
                                  "SYNTAX ERROR: unknown or invalid type:kmt_svc_quillform ...",
                                  "SYNTAX ERROR: unknown or invalid type:enum_mediasize ..."}));
  EXPECT_EQ(jt_exists_service(space, handle, "s"), 0);
}

TEST_F(ServiceCalls, ANullServiceTypeIsRefused) {
  EXPECT_EQ(jt_add_service(space, handle, nullptr, "s"), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: unknown or invalid type:(null) ..."});
}

TEST_F(ServiceCalls, ASecondServiceOfOneNameIsRefusedInAnyLetterCase) {
  add_services({"Scan"});
  EXPECT_EQ(jt_add_service(space, handle, "service", "sCAN"), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: Trying to save multiple definitions for:sCAN ..."});
  EXPECT_EQ(encoded(handle), "[service Scan]\nend\n\n");
}

TEST_F(ServiceCalls, ServicesWithoutNamesStandBesideEachOther) {
  add_services({"", ""});
  EXPECT_EQ(jt_add_service(space, handle, "service", nullptr), 1);
  EXPECT_EQ(encoded(handle), "[service ]\nend\n\n[service ]\nend\n\n[service ]\nend\n\n");
}

TEST_F(ServiceCalls, AWalkOverServicesWithoutNamesLooksLikeItsEnd) {
  add_services({"", ""});
  EXPECT_EQ(next_name(), "(none)");
  EXPECT_EQ(status(), 0);
}

TEST_F(ServiceCalls, ExistenceIsAskedWithoutAMessage) {
  add_services({"Scan"});
  EXPECT_EQ(jt_exists_service(space, handle, "SCAN"), 1);
  EXPECT_EQ(jt_exists_service(space, handle, "scanner"), 0);
  EXPECT_EQ(jt_exists_service(space, handle, nullptr), 0);
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(ServiceCalls, AWalkGivesTheNamesInOrder) {
  add_services({"one", "two", "three"});
  EXPECT_EQ(first_name(), "one");
  EXPECT_EQ(next_name(), "two");
  EXPECT_EQ(next_name(), "three");
  EXPECT_EQ(next_name(), "(none)");
  EXPECT_EQ(status(), 0);
}

TEST_F(ServiceCalls, AddingRevivesAWalkThatHasEnded) {
  add_services({"one"});
  EXPECT_EQ(first_name(), "one");
  EXPECT_EQ(next_name(), "(none)");
  add_services({"two"});
  EXPECT_EQ(next_name(), "two");
}

TEST_F(ServiceCalls, AddingDoesNotMoveAWalkThatIsUnderWay) {
  add_services({"one", "two"});
  EXPECT_EQ(first_name(), "one");
  add_services({"three"});
  EXPECT_EQ(next_name(), "two");
  EXPECT_EQ(next_name(), "three");
}

TEST_F(ServiceCalls, DeletingTheServiceAtTheCursorMovesTheWalkBack) {
  add_services({"one", "two", "three"});
  EXPECT_EQ(first_name(), "one");
  EXPECT_EQ(jt_delete_service(space, handle, "two"), 1);
  EXPECT_EQ(next_name(), "one");
  EXPECT_EQ(next_name(), "three");
}

TEST_F(ServiceCalls, ATemplateWithoutServicesHasNoNames) {
  EXPECT_EQ(first_name(), "(none)");
  EXPECT_EQ(next_name(), "(none)");
  EXPECT_EQ(status(), 0);
}

TEST_F(ServiceCalls, ADeletedServiceIsGone) {
  add_services({"one", "two"});
  EXPECT_EQ(jt_delete_service(space, handle, "ONE"), 1);
  EXPECT_EQ(jt_exists_service(space, handle, "one"), 0);
  EXPECT_EQ(jt_delete_service(space, handle, "one"), 0);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: does not exist:one ..."});
}

// ---- Invocations ----

class InvocationCalls : public SessionTest {
 protected:
  explicit InvocationCalls(const char *text = "[ kmt_svc_scan S ] one { } two { } { } end")
      : handle(jt_decode_template(space, text)) {}

  int first() { return jt_first_invocation(space, handle, "S"); }
  int next() { return jt_next_invocation(space, handle, "S"); }
  int go_to(const char *name) { return jt_named_invocation(space, handle, "S", name); }
  std::string name() { return take_text(jt_get_invocation_name(space, handle, "S")); }
  std::string body() { return encoded(handle); }

  int32_t handle;
};

TEST_F(InvocationCalls, AWalkGoesFromTheFirstPastTheLast) {
  EXPECT_EQ(first(), 1);
  EXPECT_EQ(name(), "one");
  EXPECT_EQ(next(), 1);
  EXPECT_EQ(name(), "two");
  EXPECT_EQ(next(), 1);
  EXPECT_EQ(name(), "(none)");
  EXPECT_EQ(next(), 0);
  EXPECT_EQ(status(), 0);
}

TEST_F(InvocationCalls, PastTheLastThereIsNoCurrentInvocationUntilOneIsChosen) {
  EXPECT_EQ(first(), 1);
  EXPECT_EQ(next() + next() + next(), 2);
  EXPECT_EQ(name(), "(none)");
  EXPECT_EQ(messages(), Messages{"CALL ERROR: no current invocation ..."});
  EXPECT_EQ(next(), 0);
  EXPECT_EQ(go_to("two"), 1);
  EXPECT_EQ(name(), "two");
}

TEST_F(InvocationCalls, FirstRevivesAWalk) {
  EXPECT_EQ(next() + next() + next(), 2);
  EXPECT_EQ(first(), 1);
  EXPECT_EQ(name(), "one");
}

TEST_F(InvocationCalls, AServiceWithoutInvocationsHasNoFirst) {
  jt_add_service(space, handle, "service", "Empty");
  EXPECT_EQ(jt_first_invocation(space, handle, "Empty"), 0);
  EXPECT_EQ(jt_next_invocation(space, handle, "Empty"), 0);
  EXPECT_EQ(jt_delete_invocation(space, handle, "Empty"), 0);
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(InvocationCalls, ANumberCountsAllInvocationsFromOne) {
  EXPECT_EQ(go_to("2"), 1);
  EXPECT_EQ(name(), "two");
  EXPECT_EQ(go_to("003"), 1);
  EXPECT_EQ(name(), "(none)");
}

TEST_F(InvocationCalls, ANameThatIsANumberComesBeforeTheNumber) {
  EXPECT_EQ(go_to("3"), 1);
  EXPECT_EQ(jt_set_invocation_name(space, handle, "S", "1"), 1);
  EXPECT_EQ(first(), 1);
  EXPECT_EQ(go_to("1"), 1);
  EXPECT_EQ(name(), "1");
}

TEST_F(InvocationCalls, WhatIsNeitherNameNorNumberLeavesTheCurrentOne) {
  EXPECT_EQ(go_to("TWO"), 1);
  EXPECT_EQ(go_to("0"), 0);
  EXPECT_EQ(go_to("4"), 0);
  EXPECT_EQ(go_to("-1"), 0);
  EXPECT_EQ(go_to("x2"), 0);
  EXPECT_EQ(go_to("99999999999999999999999"), 0);
  EXPECT_EQ(messages(), (Messages{"CALL ERROR: invocation does not exist:0 ...",
                                  "CALL ERROR: invocation does not exist:4 ...",
                                  "CALL ERROR: invocation does not exist:-1 ...",
                                  "CALL ERROR: invocation does not exist:x2 ...",
                                  "CALL ERROR: invocation does not exist:99999999999999999999999 ..."}));
  EXPECT_EQ(name(), "two");
}

TEST_F(InvocationCalls, ANullOrEmptyNameNamesNone) {
  EXPECT_EQ(go_to(nullptr), 0);
  EXPECT_EQ(go_to(""), 0);
  EXPECT_EQ(messages(), (Messages{"CALL ERROR: invocation does not exist:(null) ...",
                                  "CALL ERROR: invocation does not exist: ..."}));
}

TEST_F(InvocationCalls, AddingInsertsBehindTheCurrentOneAndMakesItCurrent) {
  EXPECT_EQ(go_to("two"), 1);
  EXPECT_EQ(jt_add_invocation(space, handle, "S"), 1);
  EXPECT_EQ(jt_set_invocation_name(space, handle, "S", "new"), 1);
  EXPECT_EQ(body(), "[kmt_svc_scan S]\n one{\n }\n two{\n }\n new{\n }\n {\n }\nend\n\n");
}

TEST_F(InvocationCalls, AddingAfterAWalkHasEndedAppends) {
  EXPECT_EQ(next() + next() + next(), 2);
  EXPECT_EQ(jt_add_invocation(space, handle, "S"), 1);
  EXPECT_EQ(jt_set_invocation_name(space, handle, "S", "last"), 1);
  EXPECT_EQ(body(), "[kmt_svc_scan S]\n one{\n }\n two{\n }\n {\n }\n last{\n }\nend\n\n");
}

TEST_F(InvocationCalls, TheFirstInvocationOfAServiceBecomesCurrent) {
  jt_add_service(space, handle, "kmt_svc_fax", "F");
  EXPECT_EQ(jt_add_invocation(space, handle, "F"), 1);
  EXPECT_EQ(jt_set_invocation_name(space, handle, "F", "only"), 1);
  EXPECT_EQ(take_text(jt_get_invocation_name(space, handle, "F")), "only");
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(InvocationCalls, AnInvocationOfAnUnknownServiceWarnsTwice) {
  jt_add_service(space, handle, "service", "Foo");
  EXPECT_EQ(jt_add_invocation(space, handle, "Foo"), 1);
  EXPECT_EQ(status(), -3);
  EXPECT_EQ(messages(), (Messages{"WARNING: unknown service:Foo ...", "WARNING: unknown service:Foo ..."}));
}

TEST_F(InvocationCalls, DeletingTheFirstMakesTheNextCurrent) {
  EXPECT_EQ(first(), 1);
  EXPECT_EQ(jt_delete_invocation(space, handle, "S"), 1);
  EXPECT_EQ(name(), "two");
}

TEST_F(InvocationCalls, DeletingALaterOneMakesTheOneBeforeItCurrent) {
  EXPECT_EQ(go_to("3"), 1);
  EXPECT_EQ(jt_delete_invocation(space, handle, "S"), 1);
  EXPECT_EQ(name(), "two");
}

TEST_F(InvocationCalls, AllInvocationsMayBeDeleted) {
  for (int i = 0; i < 3; ++i) EXPECT_EQ(jt_delete_invocation(space, handle, "S"), 1);
  EXPECT_EQ(jt_delete_invocation(space, handle, "S"), 0);
  EXPECT_EQ(messages(), Messages{});
  EXPECT_EQ(body(), "[kmt_svc_scan S]\nend\n\n");
}

TEST_F(InvocationCalls, NothingIsDeletedWhereNoneIsCurrent) {
  EXPECT_EQ(next() + next() + next(), 2);
  EXPECT_EQ(jt_delete_invocation(space, handle, "S"), 0);
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(InvocationCalls, ANamedInvocationKeepsItsName) {
  EXPECT_EQ(jt_set_invocation_name(space, handle, "S", "other"), 0);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: invocation is already namedone ..."});
  EXPECT_EQ(name(), "one");
}

TEST_F(InvocationCalls, ANameIsTakenOnlyOnceInAService) {
  EXPECT_EQ(go_to("3"), 1);
  EXPECT_EQ(jt_set_invocation_name(space, handle, "S", "ONE"), 0);
  EXPECT_EQ(jt_force_invocation_name(space, handle, "S", "ONE"), 0);
  EXPECT_EQ(messages(), (Messages{"SYNTAX ERROR: duplicate naming not allowedONE ...",
                                  "SYNTAX ERROR: duplicate naming not allowedONE ..."}));
  EXPECT_EQ(name(), "(none)");
}

TEST_F(InvocationCalls, ItsOwnNameIsADuplicate) {
  EXPECT_EQ(first(), 1);
  EXPECT_EQ(jt_set_invocation_name(space, handle, "S", "one"), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: duplicate naming not allowedone ..."});
}

TEST_F(InvocationCalls, AForcedNameReplacesThePresentOne) {
  EXPECT_EQ(first(), 1);
  EXPECT_EQ(jt_force_invocation_name(space, handle, "S", "renamed"), 1);
  EXPECT_EQ(jt_force_invocation_name(space, handle, "S", "renamed again"), 1);
  EXPECT_EQ(name(), "renamed again");
  EXPECT_EQ(go_to("one"), 0);
  EXPECT_EQ(go_to("RENAMED AGAIN"), 1);
  EXPECT_EQ(jt_set_invocation_name(space, handle, "S", "one"), 0);
  EXPECT_EQ(status(), -4);
}

TEST_F(InvocationCalls, AForcedNameIsFoundAmongMany) {
  for (int i = 0; i < 100; ++i) {
    ASSERT_EQ(jt_add_invocation(space, handle, "S"), 1);
    ASSERT_EQ(jt_set_invocation_name(space, handle, "S", ("n" + std::to_string(i)).c_str()), 1);
  }
  EXPECT_EQ(go_to("n50"), 1);
  EXPECT_EQ(jt_force_invocation_name(space, handle, "S", "fifty"), 1);
  EXPECT_EQ(go_to("n50"), 0);
  EXPECT_EQ(go_to("Fifty"), 1);
  EXPECT_EQ(name(), "fifty");
}

}  // namespace
}  // namespace jt_test
