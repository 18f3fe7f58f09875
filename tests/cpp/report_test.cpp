// Which messages a failed call is given: its own, all of them, and no others.
#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

using jt::Category;

class Reports : public CppTest {
 protected:
  jt::Result<jt::Text> missing(const char *name) { return job.service(name).type(); }
};

TEST_F(Reports, HoldTheMessagesOfTheCallAlone) {
  EXPECT_TRUE(failed(missing("A"), Category::call_error, {"CALL ERROR: does not exist:A ..."}));
  EXPECT_TRUE(failed(missing("B"), Category::call_error, {"CALL ERROR: does not exist:B ..."}));
}

TEST_F(Reports, HoldTheNewestMessageFirst) {
  const jt::Template stale(session, -100000);
  EXPECT_TRUE(failed(stale.encode(), Category::call_error,
                     {"CALL ERROR: not a valid handle ...", "SYSTEM ERROR: unknown opaque marker ..."}));
}

TEST_F(Reports, TellTheSameMessageAgainFromTheOneBefore) {
  for (int i = 0; i < 8; ++i) {
    EXPECT_TRUE(failed(missing("A"), Category::call_error, {"CALL ERROR: does not exist:A ..."}));
  }
}

TEST_F(Reports, TellTwoMessagesFromTheSameTwoBefore) {
  const jt::Template stale(session, -100000);
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(stale.encode().error().messages().size(), 2U);
  }
}

TEST_F(Reports, AreNotMixedWithWarningsOfCallsThatSucceeded) {
  EXPECT_TRUE(scanner.set("Sides", "ANOTHER_WAY"));
  EXPECT_TRUE(failed(missing("A"), Category::call_error, {"CALL ERROR: does not exist:A ..."}));
}

TEST_F(Reports, OfASuccessCanBeAskedFor) {
  EXPECT_TRUE(scanner.set("Sides", "ANOTHER_WAY"));
  EXPECT_EQ(session.last_category(), Category::warning);
  EXPECT_TRUE(says(session.last_report(), Category::warning,
                   {"WARNING: trying to evaluate as an 'enumerated' type:ANOTHER_WAY ..."}));
}

TEST_F(Reports, AreGoneWithTheNextCall) {
  EXPECT_FALSE(missing("A"));
  EXPECT_TRUE(scanner.exists());
  EXPECT_EQ(session.last_category(), Category::none);
  EXPECT_TRUE(says(session.last_report(), Category::none, {}));
}

TEST_F(Reports, StayWhenAnOwnerGoes) {
  jt::Result<jt::Template> other = session.create();
  EXPECT_FALSE(missing("A"));
  other = jt::Error();
  EXPECT_TRUE(says(session.last_report(), Category::call_error, {"CALL ERROR: does not exist:A ..."}));
}

TEST_F(Reports, MayBeOfACallThatFailsSilently) { EXPECT_TRUE(failed_silently(scanner.set("Copies", ""))); }

TEST_F(Reports, CountWhatAClientReportsToTheNextCallThatReports) {
  jt_error(session.get(), "CALL ERROR: mine:", "x");
  EXPECT_TRUE(failed(missing("A"), Category::call_error,
                     {"CALL ERROR: does not exist:A ...", "CALL ERROR: mine:x ..."}));
}

TEST_F(Reports, LeaveOutWhatAnAdoptedSessionHadBefore) {
  jt_parser_space *const space = jt_open_parsing_utility("other");
  jt_error(space, "CALL ERROR: before", "");
  const jt::Session adopted(space);
  EXPECT_TRUE(failed(adopted.decode("nonsense"), Category::syntax_error,
                     {"SYNTAX ERROR: while parsing for \"  <  \" at:nonsense ..."}));
}

TEST_F(Reports, HaveTheCategoryOfTheLastMessage) {
  EXPECT_EQ(session.decode("[").error().category(), Category::syntax_error);
  jt_error(session.get(), "other words", "");
  EXPECT_EQ(static_cast<int>(Category::unclassified), jt_last_api_error(session.get()));
}

TEST_F(Reports, FillTheHistory) {
  for (const char *name : {"A", "B", "C", "D", "E", "F"}) EXPECT_FALSE(missing(name));
  EXPECT_EQ(words_of(session.history()),
            (Words{"CALL ERROR: does not exist:F ...", "CALL ERROR: does not exist:E ...",
                   "CALL ERROR: does not exist:D ...", "CALL ERROR: does not exist:C ...",
                   "CALL ERROR: does not exist:B ..."}));
}

TEST_F(Reports, AreReadFromTheOldestOnAsWell) {
  for (const char *name : {"A", "B", "C"}) EXPECT_FALSE(missing(name));
  EXPECT_EQ(words_of(session.history().oldest_first()),
            (Words{"CALL ERROR: does not exist:A ...", "CALL ERROR: does not exist:B ...",
                   "CALL ERROR: does not exist:C ..."}));
  EXPECT_TRUE(jt::Messages().oldest_first().empty());
}

TEST_F(Reports, GiveTheNewestOrAnotherText) {
  EXPECT_EQ(session.history().newest_or("nothing"), "nothing");
  EXPECT_FALSE(missing("A"));
  EXPECT_FALSE(missing("B"));
  EXPECT_EQ(session.history().newest_or("nothing"), "CALL ERROR: does not exist:B ...");
}

TEST_F(Reports, LeaveTheHistoryEmptyAtFirst) { EXPECT_TRUE(session.history().empty()); }

TEST_F(Reports, LeaveTheClientsOwnWalkAtTheNewest) {
  EXPECT_FALSE(missing("A"));
  EXPECT_FALSE(missing("B"));
  EXPECT_STREQ(jt_get_previous_error(session.get()), "CALL ERROR: does not exist:B ...");
  EXPECT_STREQ(jt_get_previous_error(session.get()), "CALL ERROR: does not exist:A ...");
}

TEST_F(Reports, GoOnWithoutMemoryForTheirMessages) {
  fail_allocations(1, Failing::kAllFromThereOn);
  const jt::Result<jt::Text> type = missing("A");
  allow_allocations();
  EXPECT_TRUE(failed(type, Category::call_error, {}));
}

}  // namespace
}  // namespace jt_test
