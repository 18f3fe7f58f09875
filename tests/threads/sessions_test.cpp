// Sessions on different threads share nothing: what one thread does with its session has the result that it
// would have alone, whatever another thread does with another session. Meant for the thread sanitizer as
// well.
#include <gtest/gtest.h>

#include <barrier>
#include <string>

#include "support/job.h"
#include "threads/threads.h"

namespace jt_test {
namespace {

constexpr int kRounds = 100;

constexpr char kScanText[] =
    "< SIL 4.2.00 ASCII job-1 >\n"
    "string Owner = \"Front desk\";\n"
    "# of the scan\n"
    "[ kmt_svc_scan Scan ] First {\n"
    "  enum_colormode Color = grayscale, \"no such mode\";\n"
    "  * integer Pages = 1, 2, 3;\n"
    "  struct_gutter Gutter = 30/1/MM;\n"
    "} (KMT_STATUS_COMPLETED) { } end\n"
    "< /SIL >\n";

constexpr char kFaxText[] =
    "[ kmt_svc_fax Fax ] { string To = \"0123456789 0123456789 0123456789 0123456789 0123456789\", b, c;\n"
    "  * integer Pages = 9, 8, 7, 2; } end (KMT_STATUS_ERROR{busy})\n"
    "[ service Unknown ] { } end";

// What one thread saw, in the order in which it happened.
class Transcript {
 public:
  void add(const std::string &text) { text_ += text + '\n'; }
  void add(int32_t number) { add(std::to_string(number)); }
  const std::string &text() const { return text_; }

 private:
  std::string text_;
};

// Changes the pages of the service's first invocation in every way that there is.
void edit(jt_parser_space *space, int32_t job, const char *service, Transcript &transcript) {
  const uint32_t two = 2;
  const uint32_t twenty = 20;
  const uint32_t ignored = 7;
  transcript.add(jt_first_invocation(space, job, service));
  transcript.add(jt_add_attribute(space, job, service, "boolean", "Added"));
  transcript.add(jt_add_attribute(space, job, service, "boolean", "ADDED"));
  transcript.add(jt_add_attribute_value_string(space, job, service, "Added", "true"));
  transcript.add(jt_add_attribute_value_string(space, job, service, "Added", "perhaps"));
  transcript.add(jt_override_attribute_value(space, job, service, "Pages", as_value(two), as_value(twenty)));
  transcript.add(jt_delete_attribute_value_string(space, job, service, "Pages", "3"));
  transcript.add(jt_set_service_status(space, job, service, as_status(ignored)));
  transcript.add(jt_add_service(space, job, "kmt_svc_print", "Print"));
  transcript.add(jt_add_invocation(space, job, "Print"));
  transcript.add(jt_force_invocation_name(space, job, "Print", "run"));
  transcript.add(jt_delete_service(space, job, "Unknown"));
  transcript.add(jt_last_api_error(space));
}

// One life of a session: everything that it gives, as text.
std::string life(const char *text, const char *service) {
  const Session space;
  Transcript transcript;
  const int32_t job = jt_decode_template(space, text);
  transcript.add(jt_last_api_error(space));
  transcript.add(take_text(jt_encode_template(space, job)));
  edit(space, job, service, transcript);
  transcript.add(take_text(jt_encode_template(space, job)));
  transcript.add(jt_decode_template(space, "[ service A ] end ]"));
  for (const std::string &message : messages_of(space)) transcript.add(message);
  transcript.add(jt_destroy_template(space, job));
  transcript.add(jt_create_template(space));
  return transcript.text();
}

// Many lives on one thread; the columns run on from one to the next.
std::string lives(const char *text, const char *service) {
  std::string all;
  for (int round = 0; round < kRounds; ++round) all += life(text, service);
  return all;
}

struct Seen {
  std::string scan;
  std::string fax;
};

Seen seen_alone() {
  Seen seen;
  on_a_thread([&] { seen.scan = lives(kScanText, "Scan"); });
  on_a_thread([&] { seen.fax = lives(kFaxText, "Fax"); });
  return seen;
}

TEST(Sessions, OfTwoThreadsSeeWhatEachWouldSeeAlone) {
  const Seen alone = seen_alone();
  Seen together;
  at_once([&] { together.scan = lives(kScanText, "Scan"); }, [&] { together.fax = lives(kFaxText, "Fax"); });
  EXPECT_EQ(together.scan, alone.scan);
  EXPECT_EQ(together.fax, alone.fax);
  EXPECT_NE(alone.scan.find("    * integer Pages = 1, 20;(KMT_STATUS_OVERRIDDEN{2})\n"), std::string::npos);
  EXPECT_NE(alone.fax.find("[kmt_svc_print Print]\n run{\n }\nend\n\n"), std::string::npos);
}

TEST(Sessions, OfFourThreadsWithTheSameTextSeeTheSame) {
  const Seen alone = seen_alone();
  std::string seen[4];
  const auto act = [&](int i) { return [&seen, i] { seen[i] = lives(kScanText, "Scan"); }; };
  at_once(act(0), act(1), act(2), act(3));
  for (const std::string &one : seen) EXPECT_EQ(one, alone.scan);
}

TEST(Sessions, OfTwoThreadsHaveMessagesOfTheirOwn) {
  Messages failing;
  Messages working;
  const auto decode = [](const char *text, Messages &messages, int32_t expected) {
    const Session space;
    for (int round = 0; round < kRounds; ++round) {
      EXPECT_EQ(jt_decode_template(space, text) != 0 ? 1 : 0, expected);
      EXPECT_EQ(jt_last_api_error(space), expected == 1 ? JT_OK : JT_SYNTAX_ERROR);
    }
    messages = messages_of(space);
  };
  at_once([&] { decode("[ service A ] end ]", failing, 0); },
          [&] { decode("[ service B ] end", working, 1); });
  EXPECT_EQ(working, Messages{});
  EXPECT_EQ(failing, Messages(5, "SYNTAX ERROR: while parsing for \" [ or EOF or ( or <  \" at: ] ..."));
}

TEST(Sessions, OfOneThreadAreNotToldOfEachOthersErrors) {
  const Session one;
  const Session other;
  EXPECT_EQ(jt_decode_template(one, "]"), 0);
  EXPECT_NE(jt_decode_template(other, "[ service B ] end"), 0);
  EXPECT_EQ(jt_last_api_error(one), JT_SYNTAX_ERROR);
  EXPECT_EQ(jt_last_api_error(other), JT_OK);
  EXPECT_EQ(messages_of(other), Messages{});
}

TEST(Sessions, OfOneThreadAreUsedInTurnWithTheResultsOfEachAlone) {
  const Session one;
  const Session other;
  const int32_t scan = jt_decode_template(one, "[ kmt_svc_scan S ] { } end");
  const int32_t fax = jt_decode_template(other, "[ kmt_svc_fax F ] { } end");
  for (int round = 0; round < kRounds; ++round) {
    const std::string name = "a" + std::to_string(round);
    EXPECT_EQ(jt_add_attribute(one, scan, "S", "integer", name.c_str()), 1);
    EXPECT_EQ(jt_add_attribute(other, fax, "F", "integer", name.c_str()), 1);
    EXPECT_EQ(jt_delete_attribute(one, scan, "S", name.c_str()), 1);
  }
  EXPECT_EQ(jt_exists_attribute(one, scan, "S", "a0"), 0);
  EXPECT_EQ(jt_exists_attribute(other, fax, "F", "a99"), 1);
  EXPECT_EQ(take_text(jt_encode_template(one, scan)), "[kmt_svc_scan S]\n {\n }\nend\n\n");
}

TEST(Sessions, AreOpenedAndClosedAtOnce) {
  const auto open_and_close = [] {
    for (int round = 0; round < 10 * kRounds; ++round) {
      const Session space;
      ASSERT_EQ(jt_create_template(space), -100);
    }
  };
  at_once(open_and_close, open_and_close, open_and_close);
}

TEST(Sessions, AreClosedWithTheirTemplatesAtOnce) {
  const auto leave_templates = [] {
    for (int round = 0; round < kRounds; ++round) {
      const Session space;
      ASSERT_EQ(jt_decode_template(space, kScanText), -100);
      ASSERT_NE(jt_decode_template(space, kScanText), 0);
    }
  };
  at_once(leave_templates, leave_templates);
}

TEST(Sessions, GrowAtOnce) {
  const auto grow = [] {
    const Session space;
    const int32_t job = jt_decode_template(space, "[ kmt_svc_fax F ] { } end");
    for (int i = 0; i < 20 * kRounds; ++i)
      ASSERT_EQ(jt_add_attribute(space, job, "F", "integer", ("a" + std::to_string(i)).c_str()), 1);
    for (int i = 0; i < 20 * kRounds; ++i)
      ASSERT_EQ(jt_delete_attribute(space, job, "F", ("A" + std::to_string(i)).c_str()), 1);
  };
  at_once(grow, grow);
}

// ---- One session, handed on -------------------------------------------------------------------------------

TEST(Session, IsHandedFromThreadToThread) {
  const Session space;
  int32_t job = 0;
  std::string written;
  on_a_thread([&] { job = jt_decode_template(space, "[ kmt_svc_fax F ] { } end"); });
  on_a_thread([&] { EXPECT_EQ(jt_add_attribute(space, job, "F", "integer", "a"), 1); });
  on_a_thread([&] { written = take_text(jt_encode_template(space, job)); });
  on_a_thread([&] { EXPECT_EQ(jt_destroy_template(space, job), 1); });
  EXPECT_EQ(written, "[kmt_svc_fax F]\n {\n      integer a = ;\n }\nend\n\n");
}

TEST(Session, LeavesItsMessagesToTheNextThread) {
  const Session space;
  on_a_thread([&] { EXPECT_EQ(jt_decode_template(space, "]"), 0); });
  on_a_thread([&] { EXPECT_EQ(jt_last_api_error(space), JT_SYNTAX_ERROR); });
  EXPECT_EQ(messages_of(space), Messages{"SYNTAX ERROR: while parsing for \"  <  \" at:] ..."});
}

TEST(Session, IsClosedByAnotherThread) {
  jt_parser_space *const space = jt_open_parsing_utility("handed on");
  EXPECT_NE(jt_decode_template(space, kScanText), 0);
  on_a_thread([&] { EXPECT_EQ(jt_close_parsing_utility(space), 1); });
}

TEST(Session, OfEachThreadIsExchangedInEveryRound) {
  const Session spaces[2];
  const int32_t jobs[2] = {jt_decode_template(spaces[0], "[ kmt_svc_fax F ] { } end"),
                           jt_decode_template(spaces[1], "[ kmt_svc_fax F ] { } end")};
  std::barrier round_over(2);
  const auto take_turns = [&](int first) {
    return [&, first] {
      for (int round = 0; round < kRounds; ++round) {
        const int mine = (first + round) % 2;
        const std::string name = "a" + std::to_string(round);
        EXPECT_EQ(jt_add_attribute(spaces[mine], jobs[mine], "F", "integer", name.c_str()), 1);
        round_over.arrive_and_wait();
      }
    };
  };
  at_once(take_turns(0), take_turns(1));
  const std::string one = take_text(jt_encode_template(spaces[0], jobs[0]));
  EXPECT_EQ(take_text(jt_encode_template(spaces[1], jobs[1])), one);
  EXPECT_NE(one.find("      integer a99 = ;\n"), std::string::npos);
}

TEST(Session, IsNotNeededToReleaseWhatItGaveOnAnotherThread) {
  const Session space;
  const int32_t job = jt_decode_template(space, kScanText);
  char *text = nullptr;
  on_a_thread([&] { text = jt_encode_template(space, job); });
  on_a_thread([&] { std::free(text); });
  EXPECT_EQ(jt_exists_service(space, job, "Scan"), 1);
}

}  // namespace
}  // namespace jt_test
