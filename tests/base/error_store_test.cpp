// The store of recorded errors: how a message is classified, composed and cut, how the history shifts, and
// how it is read back.
#include "base/error_store.h"

#include <gtest/gtest.h>

#include <string>

#include "support/session.h"
#include "tree/session.h"

namespace {

using jt_test::Messages;

class ErrorStore : public jt_test::SessionTest {
 protected:
  std::string newest() {
    const char *const text = get_last_error(space);
    return text != nullptr ? text : "(no message)";
  }

  std::string stored(const std::string &message, const std::string &detail) {
    jt_error(space, message.c_str(), detail.c_str());
    return newest();
  }
};

// ---- Classification ----

struct Classified {
  const char *message;
  int32_t status;
};

constexpr Classified kClassified[] = {
    {"MEMORY ERROR: a", -6},
    {"SYNTAX ERROR: b", -5},
    {"SYSTEM ERROR: c", -7},
    {"CALL ERROR: d", -4},
    {"WARNING: e", -3},
    {"f", -8},
    // The prefix alone is enough, and nothing need follow the colon.
    {"MEMORY ERROR:", -6},
    {"SYNTAX ERROR:x", -5},
    {"SYSTEM ERROR:there is no type name", -7},
    {"CALL ERROR:", -4},
    {"WARNING:", -3},
    // One byte less is another text.
    {"MEMORY ERROR", -8},
    {"SYNTAX ERROR", -8},
    {"SYSTEM ERROR", -8},
    {"CALL ERROR", -8},
    {"WARNING", -8},
    // Letters are compared as they are.
    {"Memory Error: x", -8},
    {"Syntax Error: x", -8},
    {"System Error: x", -8},
    {"Call Error: x", -8},
    {"Warning: x", -8},
    {"warning: x", -8},
    // Only the beginning counts.
    {" WARNING: x", -8},
    {"an ERROR: CALL ERROR: x", -8},
    {"MEMORY ERROR: CALL ERROR: WARNING:", -6},
    {"", -8},
};

TEST_F(ErrorStore, EachPrefixSetsItsStatus) {
  for (const Classified &row : kClassified) {
    SCOPED_TRACE(row.message);
    reset_error_status(space);
    EXPECT_EQ(jt_error(space, row.message, ""), row.status);
    EXPECT_EQ(get_error_status(space), row.status);
    EXPECT_EQ(jt_last_api_error(space), row.status);
    EXPECT_EQ(newest(), std::string(row.message) + " ...");
  }
}

TEST_F(ErrorStore, AClientCanNameTheStatuses) {
  EXPECT_EQ(jt_error(space, "MEMORY ERROR: x", ""), JT_MEMORY_ERROR);
  EXPECT_EQ(jt_error(space, "SYNTAX ERROR: x", ""), JT_SYNTAX_ERROR);
  EXPECT_EQ(jt_error(space, "SYSTEM ERROR: x", ""), JT_SYSTEM_ERROR);
  EXPECT_EQ(jt_error(space, "CALL ERROR: x", ""), JT_CALL_ERROR);
  EXPECT_EQ(jt_error(space, "WARNING: x", ""), JT_WARNING);
  EXPECT_EQ(jt_error(space, "x", ""), JT_UNCLASSIFIED);
}

TEST_F(ErrorStore, ALaterReportReplacesTheStatus) {
  jt_error(space, "CALL ERROR: first", "");
  jt_error(space, "WARNING: second", "");
  EXPECT_EQ(get_error_status(space), -3);
}

TEST_F(ErrorStore, ANewSessionHasNoStatusAndNoMessages) {
  EXPECT_EQ(get_error_status(space), 0);
  EXPECT_EQ(get_last_error(space), nullptr);
  EXPECT_EQ(get_previous_error(space), nullptr);
}

// ---- Composition ----

TEST_F(ErrorStore, AnEmptyDetailLeavesMessageAndEllipsis) {
  EXPECT_EQ(jt_error(space, "CALL ERROR: bad session handle", ""), -4);
  EXPECT_EQ(newest(), "CALL ERROR: bad session handle ...");
}

TEST_F(ErrorStore, TheDetailFollowsWithoutSeparator) {
  EXPECT_EQ(stored("CALL ERROR: does not exist:", "scan"), "CALL ERROR: does not exist:scan ...");
  EXPECT_EQ(stored("MEMORY ERROR: Allocating for ", "scan"), "MEMORY ERROR: Allocating for scan ...");
}

TEST_F(ErrorStore, ANullDetailIsWrittenOut) {
  EXPECT_EQ(jt_error(space, "WARNING: unknown service:", nullptr), -3);
  EXPECT_EQ(newest(), "WARNING: unknown service:(null) ...");
}

TEST_F(ErrorStore, ANullMessageIsWrittenOutAndKeepsTheStatus) {
  jt_error(space, "CALL ERROR: before", "");
  EXPECT_EQ(jt_error(space, nullptr, "detail"), 0);
  EXPECT_EQ(get_error_status(space), -4);
  EXPECT_EQ(messages(), (Messages{"CALL ERROR: before ...", "(null)detail ..."}));
}

TEST_F(ErrorStore, ANullMessageInAFreshSessionLeavesTheStatusAtNone) {
  EXPECT_EQ(jt_error(space, nullptr, ""), 0);
  EXPECT_EQ(get_error_status(space), 0);
  EXPECT_EQ(newest(), "(null) ...");
}

TEST_F(ErrorStore, NullMessageAndNullDetailAreBothWrittenOut) {
  EXPECT_EQ(jt_error(space, nullptr, nullptr), 0);
  EXPECT_EQ(newest(), "(null)(null) ...");
}

TEST_F(ErrorStore, ANullMessageTakesALongDetailUpToTheLimit) {
  jt_error(space, nullptr, std::string(1000, 'd').c_str());
  EXPECT_EQ(newest(), "(null)" + std::string(245, 'd') + " ...");
}

TEST_F(ErrorStore, PercentSignsAreText) {
  EXPECT_EQ(stored("CALL ERROR: %s %d %n", "100%"), "CALL ERROR: %s %d %n100% ...");
}

TEST_F(ErrorStore, LineFeedsAndHighBytesAreKept) {
  EXPECT_EQ(stored("SYNTAX ERROR: \n\n", "\xC3\xA4\xFF"), "SYNTAX ERROR: \n\n\xC3\xA4\xFF ...");
}

TEST_F(ErrorStore, ADetailThatFillsTheLimitIsWhole) {
  const std::string message = "CALL ERROR: ";
  const std::string detail(251 - message.size(), 'd');
  EXPECT_EQ(stored(message, detail), message + detail + " ...");
}

TEST_F(ErrorStore, ADetailBeyondTheLimitIsCut) {
  const std::string message = "CALL ERROR: ";
  const std::string detail(252 - message.size(), 'd');
  EXPECT_EQ(stored(message, detail), message + std::string(251 - message.size(), 'd') + " ...");
}

TEST_F(ErrorStore, TheRestOfALongTextAsDetailIsCut) {
  EXPECT_EQ(stored("a", std::string(100000, 'd')), "a" + std::string(250, 'd') + " ...");
}

struct Length {
  std::size_t message;  // bytes of the message
  std::size_t kept;     // bytes of the message in the entry
  std::size_t detail;   // bytes of a long detail in the entry
  bool ellipsis;
};

constexpr Length kLengths[] = {
    {248, 248, 3, true},  {249, 249, 2, true},  {250, 250, 1, true},  {251, 251, 0, true},
    {252, 251, 0, true},  {253, 251, 0, true},  {254, 251, 0, true},  {255, 251, 0, true},
    {256, 255, 0, false}, {257, 255, 0, false}, {300, 255, 0, false}, {1000, 255, 0, false},
};

TEST_F(ErrorStore, MessagesAroundTheLimitsAreCutWhereTheyShouldBe) {
  for (const Length &row : kLengths) {
    SCOPED_TRACE(row.message);
    const std::string expected =
        std::string(row.kept, 'm') + std::string(row.detail, 'd') + (row.ellipsis ? " ..." : "");
    EXPECT_EQ(stored(std::string(row.message, 'm'), "dddddddd"), expected);
    EXPECT_LE(newest().size(), 255U);
  }
}

TEST_F(ErrorStore, ALongMessageIsClassifiedAllTheSame) {
  const std::string message = "SYSTEM ERROR: " + std::string(286, 'm');
  EXPECT_EQ(jt_error(space, message.c_str(), "detail"), -7);
  EXPECT_EQ(newest(), message.substr(0, 255));
}

TEST_F(ErrorStore, AnEntryLeavesNothingOfALongerOneBehind) {
  for (int i = 0; i < 6; ++i) jt_error(space, std::string(300, 'm').c_str(), "");
  EXPECT_EQ(stored("short", ""), "short ...");
}

// ---- Texts of the history itself ----

TEST_F(ErrorStore, TheNewestMessageMayBeTheDetail) {
  jt_error(space, "CALL ERROR: first", "");
  jt_error(space, "WARNING: again: ", get_last_error(space));
  EXPECT_EQ(messages(), (Messages{"CALL ERROR: first ...", "WARNING: again: CALL ERROR: first ... ..."}));
}

TEST_F(ErrorStore, TheOldestMessageMayBeTheDetailThatPushesItOut) {
  for (const char *const text : {"one", "two", "three", "four", "five"}) jt_error(space, text, "");
  const char *oldest = nullptr;
  while (const char *const older = get_previous_error(space)) oldest = older;
  ASSERT_STREQ(oldest, "one ...");
  jt_error(space, "six, and before: ", oldest);
  EXPECT_EQ(messages(),
            (Messages{"two ...", "three ...", "four ...", "five ...", "six, and before: one ... ..."}));
}

TEST_F(ErrorStore, EveryMessageOfTheHistoryMayBeTheDetail) {
  for (int steps = 1; steps <= 5; ++steps) {
    SCOPED_TRACE(steps);
    reopen();
    for (const char *const text : {"one", "two", "three", "four", "five"}) jt_error(space, text, "");
    const char *detail = nullptr;
    for (int i = 0; i < steps; ++i) detail = get_previous_error(space);
    const std::string expected = "x" + std::string(detail) + " ...";
    jt_error(space, "x", detail);
    EXPECT_EQ(newest(), expected);
  }
}

TEST_F(ErrorStore, AMessageOfTheHistoryMayBeReportedAgain) {
  jt_error(space, "CALL ERROR: first", "");
  jt_error(space, "WARNING: second", "");
  get_previous_error(space);
  EXPECT_EQ(jt_error(space, get_previous_error(space), ""), -4);
  EXPECT_EQ(messages(),
            (Messages{"CALL ERROR: first ...", "WARNING: second ...", "CALL ERROR: first ... ..."}));
}

TEST_F(ErrorStore, MessageAndDetailMayBothBeInTheHistory) {
  jt_error(space, "one", "");
  jt_error(space, "two", "");
  const char *const two = get_previous_error(space);
  const char *const one = get_previous_error(space);
  jt_error(space, one, two);
  EXPECT_EQ(newest(), "one ...two ... ...");
}

TEST_F(ErrorStore, ADetailMayPointIntoTheMiddleOfAMessage) {
  jt_error(space, "CALL ERROR: does not exist:", "scan");
  jt_error(space, "again: ", get_last_error(space) + 27);
  EXPECT_EQ(newest(), "again: scan ... ...");
}

// ---- The history ----

TEST_F(ErrorStore, LastAndThenPreviousGiveTheSameNewestMessage) {
  jt_error(space, "one", "");
  jt_error(space, "two", "");
  EXPECT_STREQ(get_last_error(space), "two ...");
  EXPECT_STREQ(get_previous_error(space), "two ...");
  EXPECT_STREQ(get_previous_error(space), "one ...");
  EXPECT_EQ(get_previous_error(space), nullptr);
}

TEST_F(ErrorStore, PreviousStartsAtTheNewestMessageWithoutAskingForTheLast) {
  jt_error(space, "one", "");
  jt_error(space, "two", "");
  EXPECT_STREQ(get_previous_error(space), "two ...");
}

TEST_F(ErrorStore, FiveMessagesAreKept) {
  for (const char *const text : {"one", "two", "three", "four", "five"}) jt_error(space, text, "");
  for (const char *const text : {"five ...", "four ...", "three ...", "two ...", "one ..."})
    EXPECT_STREQ(get_previous_error(space), text);
  EXPECT_EQ(get_previous_error(space), nullptr);
}

TEST_F(ErrorStore, TheSixthMessagePushesTheFirstOut) {
  for (const char *const text : {"one", "two", "three", "four", "five", "six"}) jt_error(space, text, "");
  EXPECT_EQ(messages(), (Messages{"two ...", "three ...", "four ...", "five ...", "six ..."}));
}

TEST_F(ErrorStore, PastTheEndPreviousStaysThere) {
  jt_error(space, "one", "");
  get_previous_error(space);
  EXPECT_EQ(get_previous_error(space), nullptr);
  EXPECT_EQ(get_previous_error(space), nullptr);
}

TEST_F(ErrorStore, PastTheFifthMessagePreviousStaysThere) {
  for (int i = 0; i < 5; ++i) jt_error(space, "x", "");
  for (int i = 0; i < 5; ++i) ASSERT_NE(get_previous_error(space), nullptr);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(get_previous_error(space), nullptr);
}

TEST_F(ErrorStore, AskingForTheLastStartsPreviousAgain) {
  jt_error(space, "one", "");
  jt_error(space, "two", "");
  while (get_previous_error(space) != nullptr) continue;
  get_last_error(space);
  EXPECT_STREQ(get_previous_error(space), "two ...");
}

TEST_F(ErrorStore, AReportStartsPreviousAgain) {
  jt_error(space, "one", "");
  jt_error(space, "two", "");
  get_previous_error(space);
  jt_error(space, "three", "");
  EXPECT_STREQ(get_previous_error(space), "three ...");
  EXPECT_STREQ(get_previous_error(space), "two ...");
}

TEST_F(ErrorStore, ANullMessageStartsPreviousAgain) {
  jt_error(space, "one", "");
  get_previous_error(space);
  jt_error(space, nullptr, "");
  EXPECT_STREQ(get_previous_error(space), "(null) ...");
}

TEST_F(ErrorStore, ResettingTheStatusLeavesTheMessages) {
  jt_error(space, "CALL ERROR: one", "");
  jt_error(space, "CALL ERROR: two", "");
  EXPECT_STREQ(get_previous_error(space), "CALL ERROR: two ...");
  reset_error_status(space);
  EXPECT_EQ(get_error_status(space), 0);
  EXPECT_STREQ(get_previous_error(space), "CALL ERROR: one ...");
  EXPECT_STREQ(get_last_error(space), "CALL ERROR: two ...");
}

TEST_F(ErrorStore, ReadingTheMessagesKeepsTheStatus) {
  jt_error(space, "CALL ERROR: one", "");
  get_last_error(space);
  get_previous_error(space);
  get_previous_error(space);
  EXPECT_EQ(get_error_status(space), -4);
}

TEST_F(ErrorStore, ReadTextsLieInTheSession) {
  jt_error(space, "one", "");
  const char *const text = get_last_error(space);
  EXPECT_EQ(get_previous_error(space), text);
  EXPECT_EQ(get_last_error(space), text);
}

TEST_F(ErrorStore, SessionsDoNotShareMessages) {
  jt_parser_space *const other = jt_open_parsing_utility("other");
  jt_error(space, "CALL ERROR: mine", "");
  EXPECT_EQ(get_last_error(other), nullptr);
  EXPECT_EQ(get_error_status(other), 0);
  jt_error(other, "WARNING: yours", "");
  EXPECT_EQ(newest(), "CALL ERROR: mine ...");
  EXPECT_EQ(get_error_status(space), -4);
  jt_close_parsing_utility(other);
}

// ---- Without a session ----

TEST_F(ErrorStore, AReportWithoutASessionIsDropped) {
  EXPECT_EQ(jt_error(nullptr, "CALL ERROR: x", "y"), 0);
  EXPECT_EQ(jt_error(nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(ErrorStore, ReadingWithoutASessionGivesNothing) {
  reset_error_status(nullptr);
  EXPECT_EQ(get_error_status(nullptr), 0);
  EXPECT_EQ(get_last_error(nullptr), nullptr);
  EXPECT_EQ(get_previous_error(nullptr), nullptr);
}

// ---- Reports from inside the library ----

TEST_F(ErrorStore, AReportMayEndBeforeItsTextDoes) {
  const std::string_view text = "scan and more";
  jt_core::report(space, "CALL ERROR: does not exist:", text.substr(0, 4));
  EXPECT_EQ(newest(), "CALL ERROR: does not exist:scan ...");
  EXPECT_EQ(get_error_status(space), -4);
}

TEST_F(ErrorStore, AReportWithoutDetailHasNone) {
  jt_core::report(space, "WARNING: x");
  EXPECT_EQ(newest(), "WARNING: x ...");
}

TEST_F(ErrorStore, AJoinedReportIsOneMessage) {
  jt_core::report_joined(space, "SYNTAX ERROR: as -- ", "integer", " --:\n\n", "12a");
  EXPECT_EQ(newest(), "SYNTAX ERROR: as -- integer --:\n\n12a ...");
  EXPECT_EQ(get_error_status(space), -5);
}

TEST_F(ErrorStore, AJoinedReportIsCutLikeAnyOther) {
  const std::string middle(400, 'm');
  jt_core::report_joined(space, "SYNTAX ERROR: as -- ", middle, " --:\n\n", "12a");
  EXPECT_EQ(newest(), "SYNTAX ERROR: as -- " + std::string(235, 'm'));
}

TEST_F(ErrorStore, ReportsWithoutASessionAreDropped) {
  jt_core::report(nullptr, "CALL ERROR: x");
  jt_core::report_joined(nullptr, "CALL ERROR: ", "x", "y", "z");
  EXPECT_EQ(messages(), Messages());
}

}  // namespace
