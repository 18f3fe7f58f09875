// Walking with the first- and next-calls, while the walked list changes. Services, attributes and values
// follow the same rules, so each rule is tested on all three.
#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "support/job.h"

namespace jt_test {
namespace {

// One kind of list. Its calls on the template of the session; values are named by their texts.
struct List {
  const char *name;
  const char *with_a_b_c;
  const char *without;
  std::function<int32_t(jt_parser_space *, int32_t, const char *)> add;
  std::function<int32_t(jt_parser_space *, int32_t, const char *)> remove;
  std::function<char *(jt_parser_space *, int32_t)> first;
  std::function<char *(jt_parser_space *, int32_t)> next;
  std::function<int32_t(jt_parser_space *, int32_t)> refused_add;
};

std::ostream &operator<<(std::ostream &out, const List &list) { return out << list.name; }

List services() {
  return {
      "Services",
      "[ service a ] end [ service b ] end [ service c ] end",
      "< SIL 4.2.00 ASCII job-1 > < /SIL >",
      [](auto *space, auto job, auto *name) { return jt_add_service(space, job, "service", name); },
      [](auto *space, auto job, auto *name) { return jt_delete_service(space, job, name); },
      [](auto *space, auto job) { return jt_get_first_service_name(space, job); },
      [](auto *space, auto job) { return jt_get_next_service_name(space, job); },
      [](auto *space, auto job) { return jt_add_service(space, job, "service", "A"); },
  };
}

List attributes() {
  return {
      "Attributes",
      "[ kmt_svc_scan Scan ] { string a = ; integer b = ; real c = ; } end",
      "[ kmt_svc_scan Scan ] { } end",
      [](auto *space, auto job, auto *name) { return jt_add_attribute(space, job, "Scan", "string", name); },
      [](auto *space, auto job, auto *name) { return jt_delete_attribute(space, job, "Scan", name); },
      [](auto *space, auto job) { return jt_get_first_attribute_name(space, job, "Scan"); },
      [](auto *space, auto job) { return jt_get_next_attribute_name(space, job, "Scan"); },
      [](auto *space, auto job) { return jt_add_attribute(space, job, "Scan", "string", "A"); },
  };
}

List values() {
  return {
      "Values",
      "[ kmt_svc_scan Scan ] { string v = a, b, c; } end",
      "[ kmt_svc_scan Scan ] { string v = ; } end",
      [](auto *space, auto job, auto *text) {
        return jt_add_attribute_value_string(space, job, "Scan", "v", text);
      },
      [](auto *space, auto job, auto *text) {
        return jt_delete_attribute_value_string(space, job, "Scan", "v", text);
      },
      [](auto *space, auto job) { return jt_get_first_attribute_value_string(space, job, "Scan", "v"); },
      [](auto *space, auto job) { return jt_get_next_attribute_value_string(space, job, "Scan", "v"); },
      [](auto *space, auto job) { return jt_add_attribute_value_string(space, job, "Scan", "v", nullptr); },
  };
}

class Cursor : public JobTest, public ::testing::WithParamInterface<List> {
 protected:
  void SetUp() override { decode(GetParam().with_a_b_c); }

  std::string first() { return take_text(GetParam().first(space, job)); }
  std::string next() { return take_text(GetParam().next(space, job)); }
  void add(const char *name) { EXPECT_EQ(GetParam().add(space, job, name), 1); }
  void remove(const char *name) { EXPECT_EQ(GetParam().remove(space, job, name), 1); }

  // What the next-calls still give. A walk that does not end is cut after a while.
  Texts rest() {
    Texts texts;
    for (std::string text = next(); text != "(none)" && texts.size() < 20; text = next())
      texts.push_back(text);
    return texts;
  }
};

INSTANTIATE_TEST_SUITE_P(Of, Cursor, ::testing::Values(services(), attributes(), values()),
                         [](const auto &tested) { return std::string(tested.param.name); });

// ---- A list that stays as it is ---------------------------------------------------------------------------

TEST_P(Cursor, AfterADecodeTheNextOneIsTheFirst) {
  EXPECT_EQ(rest(), (Texts{"a", "b", "c"}));
  EXPECT_TRUE(quiet());
}

TEST_P(Cursor, AWalkBeginsWithTheFirst) {
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(rest(), (Texts{"b", "c"}));
  EXPECT_TRUE(quiet());
}

TEST_P(Cursor, TheFirstMayBeAskedForAgain) {
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(next(), "b");
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(next(), "b");
}

TEST_P(Cursor, AWalkThatHasEndedStaysEnded) {
  rest();
  EXPECT_EQ(next(), "(none)");
  EXPECT_EQ(next(), "(none)");
  EXPECT_TRUE(quiet());
}

TEST_P(Cursor, TheFirstBeginsAWalkThatHasEndedAnew) {
  rest();
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(rest(), (Texts{"b", "c"}));
}

TEST_P(Cursor, TwoWalksOverOneListDisturbEachOther) {
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(first(), "a");
  rest();
  EXPECT_EQ(next(), "(none)");
}

TEST_P(Cursor, EncodingDoesNotMoveIt) {
  EXPECT_EQ(first(), "a");
  encoded();
  EXPECT_EQ(next(), "b");
}

TEST_P(Cursor, ATemplateOfTheSameTextHasItsOwn) {
  const int32_t other = jt_decode_template(space, GetParam().with_a_b_c);
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(take_text(GetParam().next(space, other)), "a");
  EXPECT_EQ(next(), "b");
}

// ---- A list that is or becomes empty ----------------------------------------------------------------------

TEST_P(Cursor, AnEmptyListGivesNothing) {
  decode(GetParam().without);
  EXPECT_EQ(first(), "(none)");
  EXPECT_EQ(next(), "(none)");
  EXPECT_TRUE(quiet());
}

TEST_P(Cursor, TheFirstOneAddedIsTheFirstOneRead) {
  decode(GetParam().without);
  add("x");
  add("y");
  EXPECT_EQ(rest(), (Texts{"x", "y"}));
}

TEST_P(Cursor, ALookIntoAnEmptyListDoesNotHideWhatIsAdded) {
  decode(GetParam().without);
  EXPECT_EQ(next(), "(none)");
  add("x");
  EXPECT_EQ(rest(), Texts{"x"});
}

TEST_P(Cursor, WhenAllAreGoneNothingIsLeftToRead) {
  for (const char *const name : {"a", "b", "c"}) remove(name);
  EXPECT_EQ(next(), "(none)");
  EXPECT_EQ(first(), "(none)");
  add("x");
  EXPECT_EQ(rest(), Texts{"x"});
}

TEST_P(Cursor, WhenAllAreGoneFromTheBackNothingIsLeftToRead) {
  for (const char *const name : {"c", "b", "a"}) remove(name);
  EXPECT_EQ(next(), "(none)");
  EXPECT_EQ(first(), "(none)");
}

// ---- Adding during a walk ---------------------------------------------------------------------------------

TEST_P(Cursor, WhatIsAddedDuringAWalkIsReadAtItsEnd) {
  EXPECT_EQ(first(), "a");
  add("d");
  EXPECT_EQ(next(), "b");
  add("e");
  EXPECT_EQ(rest(), (Texts{"c", "d", "e"}));
}

TEST_P(Cursor, AWalkThatHasEndedGoesOnWithWhatIsAdded) {
  rest();
  add("d");
  add("e");
  EXPECT_EQ(rest(), (Texts{"d", "e"}));
}

TEST_P(Cursor, ARefusedAddDoesNotMoveIt) {
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(GetParam().refused_add(space, job), 0);
  EXPECT_EQ(next(), "b");
  rest();
  EXPECT_EQ(GetParam().refused_add(space, job), 0);
  EXPECT_EQ(next(), "(none)");
}

// ---- Deleting during a walk -------------------------------------------------------------------------------

TEST_P(Cursor, DeletingBeforeItDoesNotMoveIt) {
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(next(), "b");
  remove("a");
  EXPECT_EQ(rest(), Texts{"c"});
}

TEST_P(Cursor, DeletingBehindItShortensTheWalk) {
  EXPECT_EQ(first(), "a");
  remove("c");
  EXPECT_EQ(rest(), Texts{"b"});
}

TEST_P(Cursor, DeletingTheOneInTheMiddleUnderItStepsBack) {
  EXPECT_EQ(first(), "a");
  remove("b");
  EXPECT_EQ(rest(), (Texts{"a", "c"}));
}

TEST_P(Cursor, DeletingTheFirstUnderItStepsOn) {
  remove("a");
  EXPECT_EQ(rest(), (Texts{"b", "c"}));
}

TEST_P(Cursor, DeletingTheLastUnderItStepsBack) {
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(next(), "b");
  remove("c");
  EXPECT_EQ(rest(), Texts{"b"});
}

TEST_P(Cursor, DeletingOneAfterTheOtherUnderItStepsBackEachTime) {
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(next(), "b");
  remove("c");
  remove("b");
  EXPECT_EQ(rest(), Texts{"a"});
}

TEST_P(Cursor, DeletingAfterTheEndOfAWalkDoesNotReviveIt) {
  rest();
  remove("c");
  EXPECT_EQ(next(), "(none)");
  remove("a");
  EXPECT_EQ(next(), "(none)");
  EXPECT_EQ(first(), "b");
}

TEST_P(Cursor, WhatIsDeletedAndAddedAgainStandsAtTheEnd) {
  remove("a");
  add("a");
  EXPECT_EQ(rest(), (Texts{"b", "c", "a"}));
}

TEST_P(Cursor, DeletingTheFirstUntilThereIsNoneMeetsThemAll) {
  Texts met;
  for (std::string name = first(); name != "(none)" && met.size() < 20; name = first()) {
    met.push_back(name);
    remove(name.c_str());
  }
  EXPECT_EQ(met, (Texts{"a", "b", "c"}));
}

TEST_P(Cursor, DeletingWhatWasJustReadMeetsThemAll) {
  Texts met;
  for (std::string name = first(); name != "(none)" && met.size() < 20; name = next()) {
    met.push_back(name);
    remove(name.c_str());
  }
  EXPECT_EQ(met, (Texts{"a", "b", "c"}));
}

TEST_P(Cursor, AddingOneForEachThatIsReadDoublesTheList) {
  int added = 0;
  for (std::string name = first(); name != "(none)" && added < 3; name = next()) {
    add(("new" + std::to_string(added++)).c_str());
  }
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(rest(), (Texts{"b", "c", "new0", "new1", "new2"}));
}

// ---- Unnamed ones -----------------------------------------------------------------------------------------

class CursorOverNames : public Cursor {};

INSTANTIATE_TEST_SUITE_P(Of, CursorOverNames, ::testing::Values(services(), attributes()),
                         [](const auto &tested) { return std::string(tested.param.name); });

TEST_P(CursorOverNames, AnUnnamedOneIsPassedWithoutAReport) {
  decode(GetParam().without);
  add("x");
  add("");
  add("y");
  EXPECT_EQ(first(), "x");
  EXPECT_EQ(next(), "(none)");
  EXPECT_EQ(next(), "y");
  EXPECT_EQ(next(), "(none)");
  EXPECT_TRUE(quiet());
}

TEST_P(CursorOverNames, AnUnnamedFirstOneIsPassedToo) {
  decode(GetParam().without);
  add("");
  add("y");
  EXPECT_EQ(first(), "(none)");
  EXPECT_EQ(next(), "y");
  EXPECT_TRUE(quiet());
}

TEST_P(CursorOverNames, UnnamedOnesMayStandSideBySide) {
  decode(GetParam().without);
  EXPECT_EQ(GetParam().add(space, job, nullptr), 1);
  EXPECT_EQ(GetParam().add(space, job, nullptr), 1);
  EXPECT_EQ(GetParam().add(space, job, ""), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(rest(), Texts{});
}

TEST_P(CursorOverNames, NoNameDeletesAnUnnamedOne) {
  add("");
  EXPECT_EQ(GetParam().remove(space, job, ""), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: does not exist: ..."}));
  EXPECT_EQ(GetParam().remove(space, job, nullptr), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: does not exist:(null) ..."}));
}

TEST_P(CursorOverNames, ANameThatWasHandedOutIsACopy) {
  char *const name = GetParam().first(space, job);
  name[0] = 'z';
  EXPECT_EQ(jt_destroy_name(space, name), 1);
  EXPECT_EQ(first(), "a");
}

}  // namespace
}  // namespace jt_test
