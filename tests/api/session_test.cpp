// Opening and closing sessions, the fixed texts, the calls that read messages and the calls that release what
// a client was given.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "support/session.h"

namespace {

using jt_test::Messages;

class SessionCalls : public jt_test::SessionTest {
 protected:
  // A text on the heap, as a client receives one.
  static char *given_text() { return static_cast<char *>(std::memcpy(my_calloc(nullptr, 8, 1), "given", 5)); }

  // The session reports something first, so that a reset can be seen.
  void leave_a_status() {
    jt_error(space, "CALL ERROR: before", "");
    ASSERT_EQ(status(), -4);
  }
};

// ---- Opening and closing ----

TEST(OpenAndClose, OpeningNeedsALabel) { EXPECT_EQ(jt_open_parsing_utility(nullptr), nullptr); }

TEST(OpenAndClose, ALabelMayBeAnything) {
  for (const std::string &label : {std::string(), std::string("nalvrine"), std::string(5000, 'l')}) {
    jt_parser_space *const space = jt_open_parsing_utility(label.c_str());
    ASSERT_NE(space, nullptr);
    EXPECT_EQ(jt_close_parsing_utility(space), 1);
  }
}

TEST(OpenAndClose, ClosingNullIsFine) { EXPECT_EQ(jt_close_parsing_utility(nullptr), 1); }

TEST(OpenAndClose, ANewSessionHasNoStatusAndNoMessages) {
  jt_parser_space *const space = jt_open_parsing_utility("test");
  EXPECT_EQ(jt_last_api_error(space), 0);
  EXPECT_EQ(jt_get_recent_error(space), nullptr);
  EXPECT_EQ(jt_get_previous_error(space), nullptr);
  EXPECT_EQ(jt_close_parsing_utility(space), 1);
}

TEST(OpenAndClose, ManySessionsMayBeOpenAtOnce) {
  std::vector<jt_parser_space *> spaces;
  for (int i = 0; i < 100; ++i) {
    spaces.push_back(jt_open_parsing_utility("test"));
    EXPECT_EQ(jt_create_template(spaces.back()), -100);
  }
  EXPECT_EQ(std::adjacent_find(spaces.begin(), spaces.end()), spaces.end());
  for (jt_parser_space *const space : spaces) EXPECT_EQ(jt_close_parsing_utility(space), 1);
}

constexpr char kBody[] =
    "# comment\n"
    "[ kmt_svc_scan MyScan ]\n"
    "one { integer copies = 1, 2; (kmt_status_completed) *enum_mediasize size = ANSI, other; (odd {text})\n"
    "ref_invocation from = a:b; ref_collection of = c; string s = \"x y\"; timestamp t = 2024/02/29/1/2; }\n"
    "(kmt_status_error {why}) two { } end (kmt_status_aborted {late})\n"
    "[ service MyOwn ] { string s = t; } end\n";

std::string plain() {
  return std::string("< SIL 4.2.00 ASCII id >\nstring note = n;\n") + kBody + "< /SIL >\n";
}
std::string question() {
  return std::string("<? SIL 4.2.00 ASCII id >\nstring note = n;\n< ? >\n") + kBody + "< /? >\n" + kBody +
         "< /SIL >\n";
}
std::string exclaim() {
  return std::string("<! SIL 4.2.00 ASCII id >\nstring note = n;\n< ! >\n") + kBody + "< /! >\n< /SIL >\n";
}

TEST_F(SessionCalls, ClosingTakesTemplatesOfEveryFormAlong) {
  for (const std::string &text : {std::string(kBody), plain(), question(), exclaim()}) {
    SCOPED_TRACE(text);
    ASSERT_NE(jt_decode_template(space, text.c_str()), 0);
    ASSERT_NE(jt_decode_template(space, text.c_str()), 0);
    reopen();
  }
}

TEST_F(SessionCalls, ClosingTakesWhatIsLeftOfATemplateAlong) {
  const int32_t handle = jt_decode_template(space, question().c_str());
  EXPECT_EQ(jt_delete_service(space, handle, "MyScan"), 1);
  EXPECT_EQ(jt_add_service(space, handle, "kmt_svc_print", "P"), 1);
  EXPECT_EQ(jt_add_invocation(space, handle, "P"), 1);
  EXPECT_EQ(jt_add_attribute(space, handle, "P", "mystery", "riddle"), 1);
  EXPECT_EQ(jt_add_attribute_value_string(space, handle, "P", "riddle", "pending"), 1);
  reopen();
  EXPECT_EQ(messages(), Messages());
}

TEST_F(SessionCalls, ClosingTakesNodesOfEveryKindAlong) {
  jt_node *const root = create_typed_node(space, "template", "template", JT_NODE_TEMPLATE, nullptr);
  jt_node *const service = create_typed_node(space, "service", "MyOwn", JT_NODE_SERVICE, root);
  jt_node *const invocation = create_typed_node(space, "MyOwn", "one", JT_NODE_INVOCATION, service);
  jt_node *const attribute = create_typed_node(space, "mystery", "riddle", JT_NODE_ATTRIBUTE, invocation);
  EXPECT_NE(create_value_node(space, jt_unknown_type(), "pending"), nullptr);
  EXPECT_NE(create_value_node(space, get_type_from_services(space, "", "ref_invocation"), "a:b"), nullptr);
  for (const int32_t node_class :
       {JT_NODE_HEADER, JT_NODE_HEADER_QUESTION, JT_NODE_HEADER_PLAIN, JT_NODE_HEADER_EXCLAIM})
    EXPECT_NE(create_typed_node(space, "sil_header", "header", node_class, nullptr), nullptr);
  EXPECT_EQ(add_comment(space, attribute, "# comment"), 1);
  reopen();
}

TEST_F(SessionCalls, AClosedSessionLeavesOthersAlone) {
  jt_parser_space *const other = jt_open_parsing_utility("other");
  const int32_t handle = jt_decode_template(space, kBody);
  EXPECT_EQ(jt_decode_template(other, kBody), handle);
  EXPECT_EQ(jt_close_parsing_utility(other), 1);
  EXPECT_EQ(jt_exists_service(space, handle, "MyScan"), 1);
}

// Decodes and encodes on a session of its own; the last text.
void work_on_a_session(std::string &result) {
  jt_parser_space *const space = jt_open_parsing_utility("thread");
  for (int round = 0; round < 50; ++round) {
    const int32_t handle = jt_decode_template(space, question().c_str());
    result = jt_test::take_text(jt_encode_template(space, handle));
    jt_destroy_template(space, handle);
  }
  jt_close_parsing_utility(space);
}

TEST(Threads, SessionsOnManyThreadsDoNotMeet) {
  std::string expected;
  std::thread(work_on_a_session, std::ref(expected)).join();
  EXPECT_GT(expected.size(), 500U);
  std::vector<std::string> results(4);
  std::vector<std::thread> threads;
  for (std::string &result : results) threads.emplace_back(work_on_a_session, std::ref(result));
  for (std::thread &thread : threads) thread.join();
  for (const std::string &result : results) EXPECT_EQ(result, expected);
}

// ---- The fixed texts ----

TEST_F(SessionCalls, TheVersionIsALineAndANoticeOfOneLine) {
  const std::string text = jt_get_version(space);
  const std::string begin = "VERSION 4.2.00\n";
  ASSERT_EQ(text.substr(0, begin.size()), begin);
  const std::string notice = text.substr(begin.size());
  ASSERT_GE(notice.size(), 2U);
  EXPECT_EQ(notice.find('\n'), notice.size() - 1);
}

TEST_F(SessionCalls, TheCopyrightHasItsShape) {
  const std::string text = jt_get_copyright(space);
  EXPECT_EQ(text.size(), 658U);
  EXPECT_EQ(text.substr(0, 4), "\n-->");
  EXPECT_EQ(text.back(), '\n');
  int lines = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = text.find('\n', at);
    if (end > at) ++lines;
    at = end + 1;
  }
  EXPECT_EQ(lines, 12);
}

TEST_F(SessionCalls, TheNoticesArePlainText) {
  for (const char *const text : {jt_get_version(space), jt_get_copyright(space)}) {
    EXPECT_TRUE(std::all_of(text, text + std::strlen(text),
                            [](char byte) { return byte == '\n' || (byte >= ' ' && byte <= '~'); }));
  }
}

TEST_F(SessionCalls, TheSupportedLanguageVersionIsFixed) {
  EXPECT_STREQ(jt_get_supported_language_version(space), "2.5.0");
}

TEST_F(SessionCalls, TheFixedTextsAreTheSameEveryTime) {
  EXPECT_EQ(jt_get_version(space), jt_get_version(space));
  EXPECT_EQ(jt_get_copyright(space), jt_get_copyright(space));
  EXPECT_EQ(jt_get_supported_language_version(space), jt_get_supported_language_version(space));
}

using TextCall = const char *(*)(jt_parser_space *);
constexpr TextCall kFixedTexts[] = {jt_get_version, jt_get_copyright, jt_get_supported_language_version};

TEST_F(SessionCalls, AFixedTextResetsTheStatusAndRecordsNothing) {
  for (const TextCall call : kFixedTexts) {
    reopen();
    leave_a_status();
    EXPECT_NE(call(space), nullptr);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(messages(), Messages{"CALL ERROR: before ..."});
  }
}

TEST_F(SessionCalls, AFixedTextNeedsASession) {
  for (const TextCall call : kFixedTexts) EXPECT_EQ(call(nullptr), nullptr);
}

// ---- Status and messages ----

TEST_F(SessionCalls, TheStatusIsReadWithoutAReset) {
  leave_a_status();
  EXPECT_EQ(jt_last_api_error(space), -4);
  EXPECT_EQ(jt_last_api_error(space), -4);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: before ..."});
}

TEST_F(SessionCalls, TheStatusOfASuccessIsNone) {
  leave_a_status();
  EXPECT_NE(jt_create_template(space), 0);
  EXPECT_EQ(status(), 0);
}

TEST_F(SessionCalls, TheStatusOfAFailureIsThatOfItsReport) {
  EXPECT_EQ(jt_encode_template(space, 0), nullptr);
  EXPECT_EQ(status(), -4);
  EXPECT_EQ(messages(),
            (Messages{"SYSTEM ERROR: unknown opaque marker ...", "CALL ERROR: not a valid handle ..."}));
}

TEST_F(SessionCalls, TheRecentErrorIsTheNewest) {
  jt_error(space, "CALL ERROR: one", "");
  jt_error(space, "CALL ERROR: two", "");
  EXPECT_STREQ(jt_get_recent_error(space), "CALL ERROR: two ...");
  EXPECT_STREQ(jt_get_recent_error(space), "CALL ERROR: two ...");
}

TEST_F(SessionCalls, ThePreviousErrorsComeNewestFirst) {
  for (const char *const text : {"one", "two", "three", "four", "five", "six"}) jt_error(space, text, "");
  for (const char *const text : {"six ...", "five ...", "four ...", "three ...", "two ..."})
    EXPECT_STREQ(jt_get_previous_error(space), text);
  EXPECT_EQ(jt_get_previous_error(space), nullptr);
  EXPECT_EQ(jt_get_previous_error(space), nullptr);
}

TEST_F(SessionCalls, TheRecentErrorStartsThePreviousOnesAgain) {
  jt_error(space, "one", "");
  jt_error(space, "two", "");
  EXPECT_STREQ(jt_get_previous_error(space), "two ...");
  EXPECT_STREQ(jt_get_previous_error(space), "one ...");
  EXPECT_STREQ(jt_get_recent_error(space), "two ...");
  EXPECT_STREQ(jt_get_previous_error(space), "two ...");
}

TEST_F(SessionCalls, ANewErrorStartsThePreviousOnesAgain) {
  jt_error(space, "one", "");
  EXPECT_STREQ(jt_get_previous_error(space), "one ...");
  jt_error(space, "two", "");
  EXPECT_STREQ(jt_get_previous_error(space), "two ...");
}

TEST_F(SessionCalls, MessagesOutliveTheCallsAfterThem) {
  EXPECT_EQ(jt_encode_template(space, 5), nullptr);
  EXPECT_NE(jt_create_template(space), 0);
  EXPECT_EQ(status(), 0);
  EXPECT_STREQ(jt_get_recent_error(space), "CALL ERROR: not a valid handle ...");
}

TEST_F(SessionCalls, ReadingMessagesClearsTheStatus) {
  leave_a_status();
  EXPECT_NE(jt_get_recent_error(space), nullptr);
  EXPECT_EQ(status(), 0);
  leave_a_status();
  EXPECT_NE(jt_get_previous_error(space), nullptr);
  EXPECT_EQ(status(), 0);
}

TEST_F(SessionCalls, WithoutASessionThereIsNothingToRead) {
  EXPECT_EQ(jt_last_api_error(nullptr), 0);
  EXPECT_EQ(jt_get_recent_error(nullptr), nullptr);
  EXPECT_EQ(jt_get_previous_error(nullptr), nullptr);
}

TEST_F(SessionCalls, ACallWithoutASessionTouchesNoOtherSession) {
  leave_a_status();
  for (const TextCall call : kFixedTexts) call(nullptr);
  jt_get_recent_error(nullptr);
  jt_get_previous_error(nullptr);
  EXPECT_EQ(jt_destroy_name(nullptr, nullptr), 0);
  EXPECT_EQ(jt_create_template(nullptr), 0);
  EXPECT_EQ(status(), -4);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: before ..."});
}

// ---- Releasing what was given ----

TEST_F(SessionCalls, TextsAreReleased) {
  EXPECT_EQ(jt_destroy_value_string(space, given_text()), 1);
  EXPECT_EQ(jt_destroy_name(space, given_text()), 1);
  EXPECT_EQ(status(), 0);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(SessionCalls, ReleasingNullSucceeds) {
  EXPECT_EQ(jt_destroy_value_string(space, nullptr), 1);
  EXPECT_EQ(jt_destroy_name(space, nullptr), 1);
  EXPECT_EQ(jt_destroy_status(space, nullptr), 1);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(SessionCalls, StatusesAreReleased) {
  EXPECT_EQ(jt_destroy_status(space, get_status(space, "KMT_STATUS_ERROR")), 1);
  EXPECT_EQ(jt_destroy_status(space, get_status(space, "NO_SUCH_STATUS")), 1);
}

TEST_F(SessionCalls, ReleasingResetsTheStatus) {
  leave_a_status();
  jt_destroy_value_string(space, nullptr);
  EXPECT_EQ(status(), 0);
  leave_a_status();
  jt_destroy_name(space, nullptr);
  EXPECT_EQ(status(), 0);
  leave_a_status();
  jt_destroy_status(space, nullptr);
  EXPECT_EQ(status(), 0);
}

TEST_F(SessionCalls, WithoutASessionNothingIsReleased) {
  char *const text = given_text();
  EXPECT_EQ(jt_destroy_value_string(nullptr, text), 0);
  EXPECT_EQ(jt_destroy_name(nullptr, text), 0);
  EXPECT_STREQ(text, "given");
  EXPECT_EQ(er_free(text), 1);
  jt_status *const given = get_status(space, "MM");
  EXPECT_EQ(jt_destroy_status(nullptr, given), 0);
  EXPECT_EQ(jt_test::take_text(get_status_string(space, given)), "MM");
  EXPECT_EQ(jt_destroy_status(space, given), 1);
}

TEST_F(SessionCalls, ANameFromATemplateIsReleasedEitherWay) {
  const int32_t handle = jt_decode_template(space, kBody);
  EXPECT_EQ(jt_destroy_name(space, jt_get_first_service_name(space, handle)), 1);
  EXPECT_EQ(jt_destroy_value_string(space, jt_get_first_service_name(space, handle)), 1);
  EXPECT_EQ(er_free(jt_get_first_service_name(space, handle)), 1);
}

// ---- The word of the client's own ----

TEST(Locale, TheWordIsNullAtTheStart) { EXPECT_EQ(g_szCurrentLocale, nullptr); }

TEST_F(SessionCalls, NothingDependsOnTheLocaleWord) {
  char word[] = "xx_YY";
  g_szCurrentLocale = word;
  const int32_t handle = jt_decode_template(space, kBody);
  EXPECT_NE(handle, 0);
  EXPECT_NE(encoded(handle), "(none)");
  EXPECT_EQ(g_szCurrentLocale, word);
  EXPECT_STREQ(word, "xx_YY");
  g_szCurrentLocale = nullptr;
}

}  // namespace
