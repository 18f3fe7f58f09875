// Calls on the attributes of the current invocation: reading them, walking them and their values, adding and
// deleting them.
#include <string>

#include "support/session.h"

namespace jt_test {
namespace {

class AttributeCalls : public SessionTest {
 protected:
  AttributeCalls()
      : handle(jt_decode_template(space,
                                  "[ kmt_svc_scan S ] {\n"
                                  "  integer numbers = 1, 2, 3;\n"
                                  "  * string empty = ;\n"
                                  "  service block = x;\n"
                                  "} end")) {}

  int add(const char *type, const char *name) { return jt_add_attribute(space, handle, "S", type, name); }
  int add_text(const char *name, const char *text) {
    return jt_add_attribute_value_string(space, handle, "S", name, text);
  }
  std::string first_text(const char *name) {
    return take_text(jt_get_first_attribute_value_string(space, handle, "S", name));
  }
  std::string next_text(const char *name) {
    return take_text(jt_get_next_attribute_value_string(space, handle, "S", name));
  }
  // All values, walked from the first on.
  std::string all_texts(const char *name) {
    std::string all;
    for (std::string text = first_text(name); text != "(none)"; text = next_text(name)) all += text + " ";
    return all;
  }
  std::string first_name() { return take_text(jt_get_first_attribute_name(space, handle, "S")); }
  std::string next_name() { return take_text(jt_get_next_attribute_name(space, handle, "S")); }
  std::string type_of(const char *name) {
    return take_text(jt_get_attribute_type_name(space, handle, "S", name));
  }

  int32_t handle;
};

// ---- Names and types ----

TEST_F(AttributeCalls, ExistenceIsAskedWithoutAMessage) {
  EXPECT_EQ(jt_exists_attribute(space, handle, "S", "NUMBERS"), 1);
  EXPECT_EQ(jt_exists_attribute(space, handle, "S", "nosuch"), 0);
  EXPECT_EQ(jt_exists_attribute(space, handle, "S", nullptr), 0);
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(AttributeCalls, AWalkGivesTheNamesInOrder) {
  EXPECT_EQ(next_name(), "numbers");
  EXPECT_EQ(first_name(), "numbers");
  EXPECT_EQ(next_name(), "empty");
  EXPECT_EQ(next_name(), "block");
  EXPECT_EQ(next_name(), "(none)");
  EXPECT_EQ(status(), 0);
}

TEST_F(AttributeCalls, AddingRevivesAWalkThatHasEnded) {
  first_name();
  next_name();
  next_name();
  EXPECT_EQ(next_name(), "(none)");
  EXPECT_EQ(add("integer", "new"), 1);
  EXPECT_EQ(next_name(), "new");
}

TEST_F(AttributeCalls, DeletingAtTheCursorMovesTheWalkBack) {
  EXPECT_EQ(first_name(), "numbers");
  EXPECT_EQ(jt_delete_attribute(space, handle, "S", "empty"), 1);
  EXPECT_EQ(next_name(), "numbers");
  EXPECT_EQ(next_name(), "block");
}

TEST_F(AttributeCalls, DeletingWhileWalkingReachesEveryAttribute) {
  std::string walked;
  for (std::string name = first_name(); name != "(none)"; name = first_name()) {
    walked += name + " ";
    ASSERT_EQ(jt_delete_attribute(space, handle, "S", name.c_str()), 1);
  }
  EXPECT_EQ(walked, "numbers empty block ");
  EXPECT_EQ(encoded(handle), "[kmt_svc_scan S]\n {\n }\nend\n\n");
}

TEST_F(AttributeCalls, ATypeHasItsName) {
  EXPECT_EQ(type_of("numbers"), "integer");
  EXPECT_EQ(jt_known_attribute_datatype(space, handle, "S", "numbers"), 1);
}

TEST_F(AttributeCalls, ATypeOfTheServiceIsWrittenAsItsTableDoes) {
  EXPECT_EQ(add("ENUM_MEDIASIZE", "size"), 1);
  EXPECT_EQ(type_of("size"), "enum_mediasize");
}

TEST_F(AttributeCalls, AnUnknownTypeIsKeptAsItWasWritten) {
  EXPECT_EQ(add("Enum_Future", "new"), 1);
  EXPECT_EQ(status(), -3);
  EXPECT_EQ(messages(), (Messages{"WARNING: unknown attribute type:Enum_Future ...",
                                  "WARNING: unknown attribute type:Enum_Future ..."}));
  EXPECT_EQ(type_of("new"), "Enum_Future");
  EXPECT_EQ(jt_known_attribute_datatype(space, handle, "S", "new"), 0);
  EXPECT_EQ(status(), 0);
}

TEST_F(AttributeCalls, ANullTypeLeavesNoTypeName) {
  EXPECT_EQ(add(nullptr, "new"), 1);
  EXPECT_EQ(type_of("new"), "(none)");
  EXPECT_EQ(messages(),
            (Messages{"WARNING: unknown attribute type:(null) ...",
                      "WARNING: unknown attribute type:(null) ...", "CALL ERROR: no type name ..."}));
}

TEST_F(AttributeCalls, ASecondAttributeOfOneNameIsRefused) {
  EXPECT_EQ(add("integer", "new"), 1);
  EXPECT_EQ(add("string", "NEW"), 0);
  EXPECT_EQ(status(), -5);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: Trying to save multiple definitions for:NEW ..."});
  EXPECT_EQ(type_of("new"), "integer");
}

TEST_F(AttributeCalls, TheStarIsReadAndSet) {
  EXPECT_EQ(jt_is_attribute_non_compulsory(space, handle, "S", "empty"), 1);
  EXPECT_EQ(jt_is_attribute_non_compulsory(space, handle, "S", "numbers"), 0);
  EXPECT_EQ(jt_set_attribute_compulsory(space, handle, "S", "empty"), 1);
  EXPECT_EQ(jt_set_attribute_non_compulsory(space, handle, "S", "numbers"), 1);
  EXPECT_EQ(jt_is_attribute_non_compulsory(space, handle, "S", "empty"), 0);
  EXPECT_EQ(jt_is_attribute_non_compulsory(space, handle, "S", "numbers"), 1);
}

TEST_F(AttributeCalls, ANewAttributeIsCompulsory) {
  EXPECT_EQ(add("integer", "new"), 1);
  EXPECT_EQ(jt_is_attribute_non_compulsory(space, handle, "S", "new"), 0);
}

TEST_F(AttributeCalls, AttributesAreThoseOfTheCurrentInvocation) {
  ASSERT_EQ(jt_add_invocation(space, handle, "S"), 1);
  EXPECT_EQ(jt_exists_attribute(space, handle, "S", "numbers"), 0);
  ASSERT_EQ(jt_first_invocation(space, handle, "S"), 1);
  EXPECT_EQ(jt_exists_attribute(space, handle, "S", "numbers"), 1);
}

// ---- Values ----

TEST_F(AttributeCalls, AWalkGivesTheValuesAsText) {
  EXPECT_EQ(next_text("numbers"), "1");
  EXPECT_EQ(first_text("numbers"), "1");
  EXPECT_EQ(next_text("numbers"), "2");
  EXPECT_EQ(next_text("numbers"), "3");
  EXPECT_EQ(next_text("numbers"), "(none)");
  EXPECT_EQ(status(), 0);
}

TEST_F(AttributeCalls, AWalkGivesTheValuesThemselves) {
  int32_t sum = 0;
  jt_value *value = jt_get_first_attribute_value(space, handle, "S", "numbers");
  while (value != nullptr) {
    sum = sum * 10 + *reinterpret_cast<const int32_t *>(value);
    jt_destroy_value(space, "integer", value, "S");
    value = jt_get_next_attribute_value(space, handle, "S", "numbers");
  }
  EXPECT_EQ(sum, 123);
  EXPECT_EQ(status(), 0);
}

TEST_F(AttributeCalls, AnAttributeWithoutValuesHasNone) {
  EXPECT_EQ(jt_get_first_attribute_value(space, handle, "S", "empty"), nullptr);
  EXPECT_EQ(jt_get_next_attribute_value(space, handle, "S", "empty"), nullptr);
  EXPECT_EQ(first_text("empty"), "(none)");
  EXPECT_EQ(next_text("empty"), "(none)");
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(AttributeCalls, AddingAValueRevivesAWalkThatHasEnded) {
  first_text("numbers");
  next_text("numbers");
  next_text("numbers");
  EXPECT_EQ(next_text("numbers"), "(none)");
  EXPECT_EQ(add_text("numbers", "4"), 1);
  EXPECT_EQ(next_text("numbers"), "4");
}

TEST_F(AttributeCalls, AValueOfUnknownTypeIsOnlyText) {
  add("future", "new");
  EXPECT_EQ(add_text("new", "as Written"), 1);
  reset_error_status(space);
  EXPECT_EQ(first_text("new"), "as Written");
  EXPECT_EQ(status(), 0);
  EXPECT_EQ(jt_get_first_attribute_value(space, handle, "S", "new"), nullptr);
  EXPECT_EQ(messages().back(), "CALL ERROR: unknown data typefuture ...");
}

TEST_F(AttributeCalls, AValueThatTheTypeRefusesIsNotAdded) {
  EXPECT_EQ(add_text("numbers", "1x"), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: trying to evaluate the following value string as -- integer "
                                 "--:\n\n1x ..."});
  EXPECT_EQ(jt_set_attribute_value_string(space, handle, "S", "numbers", "1x"), 0);
  EXPECT_EQ(first_text("numbers"), "1");
}

TEST_F(AttributeCalls, ABlocksTypeTakesNoValues) {
  EXPECT_EQ(add_text("block", "x"), 0);
  EXPECT_EQ(messages(), Messages{});
  EXPECT_EQ(first_text("block"), "(none)");
}

TEST_F(AttributeCalls, SettingReplacesAllValues) {
  EXPECT_EQ(jt_set_attribute_value_string(space, handle, "S", "numbers", "+007"), 1);
  EXPECT_EQ(first_text("numbers"), "7");
  EXPECT_EQ(next_text("numbers"), "(none)");
}

TEST_F(AttributeCalls, TheCallersTextIsLeftAsItIs) {
  EXPECT_EQ(add("ref_invocation", "r"), 1);
  char text[] = "scan1:copy2";
  EXPECT_EQ(add_text("r", text), 1);
  EXPECT_STREQ(text, "scan1:copy2");
  EXPECT_EQ(first_text("r"), "scan1:copy2");
}

// ---- Typed values ----

class TypedValueCalls : public AttributeCalls {
 protected:
  jt_value *number(const char *text) { return jt_decode_value(space, "integer", text, "S"); }
  void release(jt_value *value) { jt_destroy_value(space, "integer", value, "S"); }

  jt_value *const one = number("1");
  jt_value *const two = number("2");
  jt_value *const nine = number("9");

  ~TypedValueCalls() override {
    release(one);
    release(two);
    release(nine);
  }
};

TEST_F(TypedValueCalls, ACopyIsAdded) {
  EXPECT_EQ(jt_add_attribute_value(space, handle, "S", "numbers", nine), 1);
  EXPECT_EQ(encoded(handle),
            "[kmt_svc_scan S]\n {\n      integer numbers = 1, 2, 3, 9;\n    * string empty = ;\n"
            "      service block = ;\n }\nend\n\n");
}

TEST_F(TypedValueCalls, ACopyReplacesAllValues) {
  EXPECT_EQ(jt_set_attribute_value(space, handle, "S", "numbers", nine), 1);
  EXPECT_EQ(first_text("numbers"), "9");
  EXPECT_EQ(next_text("numbers"), "(none)");
}

TEST_F(TypedValueCalls, AnAttributeOfUnknownTypeTakesNone) {
  add("future", "new");
  const Messages before = messages();
  EXPECT_EQ(jt_add_attribute_value(space, handle, "S", "new", one), 0);
  EXPECT_EQ(jt_set_attribute_value(space, handle, "S", "new", one), 0);
  EXPECT_EQ(status(), 0);
  EXPECT_EQ(messages(), before);
}

TEST_F(TypedValueCalls, ABlocksTypeCannotCopy) {
  EXPECT_EQ(jt_add_attribute_value(space, handle, "S", "block", one), 0);
  EXPECT_EQ(messages(), Messages{"SYSTEM ERROR: no copy function for:service ..."});
}

TEST_F(TypedValueCalls, TheFirstEqualValueIsDeleted) {
  EXPECT_EQ(jt_add_attribute_value(space, handle, "S", "numbers", two), 1);
  EXPECT_EQ(jt_delete_attribute_value(space, handle, "S", "numbers", two), 1);
  EXPECT_EQ(all_texts("numbers"), "1 3 2 ");
}

TEST_F(TypedValueCalls, AValueThatIsNotThereCannotBeDeleted) {
  EXPECT_EQ(jt_delete_attribute_value(space, handle, "S", "numbers", nine), 0);
  EXPECT_EQ(jt_delete_attribute_value(space, handle, "S", "empty", nine), 0);
  EXPECT_EQ(jt_delete_attribute_value_string(space, handle, "S", "empty", "x"), 0);
  EXPECT_EQ(messages(),
            (Messages{"CALL ERROR:there is no such value ...", "CALL ERROR:there is no such value ...",
                      "CALL ERROR:there is no such value ..."}));
}

TEST_F(TypedValueCalls, DeletingNeedsAKnownTypeThatCompares) {
  add("future", "new");
  EXPECT_EQ(jt_delete_attribute_value(space, handle, "S", "new", one), 0);
  EXPECT_EQ(jt_delete_attribute_value(space, handle, "S", "block", one), 0);
  EXPECT_EQ(jt_delete_attribute_value_string(space, handle, "S", "BLOCK", "x"), 0);
  const Messages all = messages();
  EXPECT_EQ(Messages(all.end() - 3, all.end()),
            (Messages{"CALL ERROR: unknown data type: ...", "SYSTEM ERROR: no cmp function for:block ...",
                      "SYSTEM ERROR: no cmp function for:BLOCK ..."}));
}

TEST_F(TypedValueCalls, ATextDeletesTheFirstValueThatItDenotes) {
  EXPECT_EQ(jt_delete_attribute_value_string(space, handle, "S", "numbers", "+02"), 1);
  EXPECT_EQ(all_texts("numbers"), "1 3 ");
}

TEST_F(TypedValueCalls, ATextThatDenotesNoneDeletesNone) {
  EXPECT_EQ(jt_delete_attribute_value_string(space, handle, "S", "numbers", "2x"), 0);
  EXPECT_EQ(messages(), (Messages{"SYNTAX ERROR: trying to evaluate the following value string as -- integer "
                                  "--:\n\n2x ...",
                                  "CALL ERROR: unparsable value string2x ..."}));
}

TEST_F(TypedValueCalls, AnEvalThatCutsItsTextIsReportedWithTheWholeOne) {
  add("struct_magnification", "zoom");
  EXPECT_EQ(jt_delete_attribute_value_string(space, handle, "S", "zoom", "MANISO/401"), 0);
  EXPECT_EQ(messages().back(), "CALL ERROR: unparsable value stringMANISO/401 ...");
}

TEST_F(TypedValueCalls, TextsOfUnknownTypeAreDeletedInAnyLetterCase) {
  add("future", "new");
  add_text("new", "One");
  add_text("new", "ONE");
  EXPECT_EQ(jt_delete_attribute_value_string(space, handle, "S", "new", "oNE"), 1);
  EXPECT_EQ(first_text("new"), "ONE");
  EXPECT_EQ(next_text("new"), "(none)");
}

TEST_F(TypedValueCalls, AmongManyTheFirstEqualValueIsDeleted) {
  jt_set_attribute_value_string(space, handle, "S", "numbers", "0");
  for (int i = 1; i < 100; ++i) ASSERT_EQ(add_text("numbers", std::to_string(i % 50).c_str()), 1);
  for (int i = 49; i > 1; --i) {
    ASSERT_EQ(jt_delete_attribute_value_string(space, handle, "S", "numbers", std::to_string(i).c_str()), 1);
  }
  EXPECT_EQ(all_texts("numbers").substr(0, 12), "0 1 0 1 2 3 ");
  for (int i = 0; i < 50; ++i) {
    ASSERT_EQ(jt_delete_attribute_value_string(space, handle, "S", "numbers", std::to_string(i).c_str()), 1);
  }
  EXPECT_EQ(all_texts("numbers"), "0 1 ");
}

TEST_F(TypedValueCalls, AmongManyTextsOfUnknownTypeTheFirstIsDeleted) {
  add("future", "new");
  for (int i = 0; i < 60; ++i) ASSERT_EQ(add_text("new", ("V" + std::to_string(i % 30)).c_str()), 1);
  ASSERT_EQ(jt_delete_attribute_value_string(space, handle, "S", "new", "v20"), 1);
  ASSERT_EQ(jt_delete_attribute_value_string(space, handle, "S", "new", "v20"), 1);
  EXPECT_EQ(jt_delete_attribute_value_string(space, handle, "S", "new", "v20"), 0);
  EXPECT_EQ(jt_delete_attribute_value_string(space, handle, "S", "new", "v29"), 1);
}

// ---- Overriding ----

class Overriding : public TypedValueCalls {
 protected:
  int override_with(const char *name, const jt_value *old_value, const jt_value *new_value) {
    return jt_override_attribute_value(space, handle, "S", name, old_value, new_value);
  }
};

TEST_F(Overriding, ACompulsoryAttributeCannotBeOverridden) {
  EXPECT_EQ(override_with("numbers", one, nine), 0);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: it is a compulsory attributenumbers ..."});
  EXPECT_EQ(first_text("numbers"), "1");
}

TEST_F(Overriding, TheValueIsReplacedInItsPlaceAndTheOldOneKeptAsText) {
  jt_set_attribute_non_compulsory(space, handle, "S", "numbers");
  EXPECT_EQ(override_with("numbers", two, nine), 1);
  EXPECT_EQ(status(), 0);
  EXPECT_EQ(encoded(handle),
            "[kmt_svc_scan S]\n {\n    * integer numbers = 1, 9, 3;(KMT_STATUS_OVERRIDDEN{2})\n"
            "    * string empty = ;\n      service block = ;\n }\nend\n\n");
}

TEST_F(Overriding, OnlyTheValueReplacedLastIsKept) {
  jt_set_attribute_non_compulsory(space, handle, "S", "numbers");
  EXPECT_EQ(override_with("numbers", two, nine), 1);
  EXPECT_EQ(override_with("numbers", nine, one), 1);
  EXPECT_EQ(encoded(handle),
            "[kmt_svc_scan S]\n {\n    * integer numbers = 1, 1, 3;(KMT_STATUS_OVERRIDDEN{9})\n"
            "    * string empty = ;\n      service block = ;\n }\nend\n\n");
}

TEST_F(Overriding, AValueThatIsNotThereCannotBeOverridden) {
  jt_set_attribute_non_compulsory(space, handle, "S", "numbers");
  EXPECT_EQ(override_with("numbers", nine, one), 0);
  EXPECT_EQ(messages(), Messages{"CALL ERROR:there is no such value ..."});
}

TEST_F(Overriding, NeedsAKnownTypeWithOperations) {
  add("future", "new");
  EXPECT_EQ(override_with("new", one, nine), 0);
  EXPECT_EQ(messages().back(), "CALL ERROR: unknown data type: ...");
  EXPECT_EQ(override_with("block", one, nine), 0);
  EXPECT_EQ(messages().back(), "SYSTEM ERROR: no cmp function for:block ...");
}

TEST_F(Overriding, AValueWithoutATextLeavesNoOverriddenText) {
  ASSERT_EQ(add("enum_mediasize", "size"), 1);
  const int32_t nameless = 5000;
  const int32_t a4 = 46;
  const auto *const old_value = reinterpret_cast<const jt_value *>(&nameless);
  ASSERT_EQ(jt_add_attribute_value(space, handle, "S", "size", old_value), 1);
  jt_set_attribute_non_compulsory(space, handle, "S", "size");
  EXPECT_EQ(override_with("size", old_value, reinterpret_cast<const jt_value *>(&a4)), 1);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: Unknown enumerated value ..."});
  EXPECT_EQ(first_text("size"), "ISO_A4LEF");
  EXPECT_NE(encoded(handle).find("ISO_A4LEF;(KMT_STATUS_OVERRIDDEN)\n"), std::string::npos);
}

TEST_F(Overriding, AnOverriddenValueIsFoundAmongMany) {
  jt_set_attribute_non_compulsory(space, handle, "S", "numbers");
  for (int i = 10; i < 60; ++i) ASSERT_EQ(add_text("numbers", std::to_string(i).c_str()), 1);
  jt_value *const fifty = number("50");
  EXPECT_EQ(override_with("numbers", fifty, nine), 1);
  EXPECT_EQ(override_with("numbers", fifty, nine), 0);
  EXPECT_EQ(jt_delete_attribute_value(space, handle, "S", "numbers", nine), 1);
  EXPECT_EQ(jt_delete_attribute_value(space, handle, "S", "numbers", nine), 0);
  release(fifty);
}

}  // namespace
}  // namespace jt_test
