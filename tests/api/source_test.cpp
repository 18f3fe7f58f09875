// The calls on texts with places, through the public header: which arguments may be missing, older or newer than
// the library, what a listener is told, how it ends a call, and what a call leaves in the session.
#include <array>
#include <cstddef>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "support/guarded_text.h"
#include "support/session.h"

namespace jt_test {
namespace {

using Lines = std::vector<std::string>;

constexpr char kJob[] = "[ kmt_svc_scan Scan ] one { integer Copies = 2; } end";
constexpr char kEncoded[] =
    "[kmt_svc_scan Scan]\n"
    " one{\n"
    "      integer Copies = 2;\n"
    " }\n"
    "end\n\n";
constexpr char kTwoFaults[] = "[ kmt_svc_scan Scan ] { integer a 1; integer b = 2; integer b = 3; } end";
constexpr char kLoss[] = "[ kmt_svc_scan Scan ] { integer a = 1, many; } end";

// Writes down what it is told, and ends the call where it is asked to.
struct Record {
  Lines lines;
  Lines findings;
  std::string ends_at = "nowhere";  // the kind of event that is answered by another result than 0

  int32_t note(const std::string &kind, const std::string &what) {
    lines.push_back(kind + " " + what);
    return kind == ends_at ? 7 : 0;
  }
};

Record &record_of(void *context) { return *static_cast<Record *>(context); }

std::string range_text(jt_range range) {
  return std::to_string(range.begin) + "-" + std::to_string(range.end);
}

std::string element_text(const jt_source_element &element) {
  return std::to_string(element.number) + " kind " + std::to_string(element.kind) + " " +
         range_text(element.range);
}

jt_listener listener_for(Record &record) {
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = &record;
  listener.open = [](void *context, const jt_source_element *element) {
    return record_of(context).note("open", element_text(*element));
  };
  listener.close = [](void *context, const jt_source_element *element) {
    return record_of(context).note("close", element_text(*element));
  };
  listener.token = [](void *context, const jt_source_token *token) {
    return record_of(context).note("token", std::string(token->text, token->length));
  };
  listener.finding = [](void *context, const jt_finding *finding) {
    const std::string place = std::to_string(finding->line) + ":" + std::to_string(finding->column);
    record_of(context).findings.push_back(place + " " + jt_finding_name(finding->code));
    return record_of(context).note("finding", jt_finding_name(finding->code));
  };
  listener.handle = [](void *context, int32_t number, int32_t handle) {
    return record_of(context).note("handle", std::to_string(number) + " is " + std::to_string(handle));
  };
  return listener;
}

jt_source_options options_of(std::size_t most_bytes, bool strict = false) {
  jt_source_options options{};
  options.size = sizeof(options);
  options.most_bytes = most_bytes;
  options.strict = strict ? 1 : 0;
  return options;
}

class SourceTest : public SessionTest {
 protected:
  int32_t decode(std::string_view text, const jt_source_options *options = nullptr) {
    const jt_listener listener = listener_for(record);
    return jt_decode_source(space, text.data(), text.size(), options, &listener);
  }
  int32_t check(std::string_view text, const jt_source_options *options = nullptr) {
    const jt_listener listener = listener_for(record);
    return jt_check_source(space, text.data(), text.size(), options, &listener);
  }

  Record record;
};

// ---- The text ---------------------------------------------------------------------------------------------

TEST_F(SourceTest, ATextNeedNotEndInANul) {
  const std::string longer = std::string(kJob) + " and more";
  const int32_t job = jt_decode_source(space, longer.data(), std::strlen(kJob), nullptr, nullptr);
  EXPECT_EQ(job, -100);
  EXPECT_EQ(encoded(job), kEncoded);
  EXPECT_EQ(jt_check_source(space, longer.data(), std::strlen(kJob), nullptr, nullptr), 1);
  EXPECT_EQ(jt_check_source(space, longer.data(), longer.size(), nullptr, nullptr), 0);
}

TEST_F(SourceTest, NothingIsReadBehindTheEnd) {
  const std::string text = kJob;
  GuardedText guarded(text.size());
  for (std::size_t size = 0; size <= text.size(); ++size) {
    const std::string part = text.substr(0, size);
    if (part.empty()) continue;
    const char *const at = guarded.ending_at_guard(part.substr(0, size - 1));
    const_cast<char *>(at)[size - 1] = part.back();
    const int32_t job = jt_decode_source(space, at, size, nullptr, nullptr);
    EXPECT_EQ(job != 0, size == text.size()) << part;
    EXPECT_EQ(jt_check_source(space, at, size, nullptr, nullptr), size == text.size() ? 1 : 0) << part;
  }
}

TEST_F(SourceTest, AnEmptyTextIsRefusedAsEverADecodeRefusesIt) {
  ASSERT_EQ(jt_decode_template(space, ""), 0);
  const Messages expected = messages();
  reopen();
  EXPECT_EQ(decode(""), 0);
  EXPECT_EQ(messages(), expected);
  EXPECT_EQ(record.findings.size(), 1U);
  reopen();
  EXPECT_EQ(check(""), 0);
  EXPECT_EQ(messages(), expected);
}

TEST_F(SourceTest, ANullTextIsRefusedWithoutAMessage) {
  jt_decode_template(space, "[");
  const Messages before = messages();
  EXPECT_EQ(jt_decode_source(space, nullptr, 0, nullptr, nullptr), 0);
  EXPECT_EQ(status(), 0);
  EXPECT_EQ(jt_check_source(space, nullptr, 5, nullptr, nullptr), 0);
  EXPECT_EQ(status(), 0);
  EXPECT_EQ(messages(), before);
}

TEST_F(SourceTest, WithoutASessionNothingIsTold) {
  const jt_listener listener = listener_for(record);
  EXPECT_EQ(jt_decode_source(nullptr, kJob, sizeof(kJob) - 1, nullptr, &listener), 0);
  EXPECT_EQ(jt_check_source(nullptr, kJob, sizeof(kJob) - 1, nullptr, &listener), 0);
  EXPECT_EQ(record.lines, Lines{});
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(SourceTest, ATextWithANulIsRefused) {
  const std::string_view text("[ service S ]\0 end", 18);
  EXPECT_EQ(decode(text), 0);
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: NUL in the text ..."});
  EXPECT_EQ(record.findings, Lines{"1:14 syntax-nul"});
  EXPECT_EQ(live_nodes(space), 0);
}

TEST_F(SourceTest, ACheckReadsANulAsWhiteSpace) {
  const std::string_view text("[ service S ]\0end\n[ service S ] end", 35);
  EXPECT_EQ(check(text), 0);
  EXPECT_EQ(record.findings, (Lines{"1:14 syntax-nul", "2:11 name-duplicate"}));
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: NUL in the text ..."});
}

// ---- Options ----------------------------------------------------------------------------------------------

TEST_F(SourceTest, AStrictDecodeFailsAtTheFirstLoss) {
  const jt_source_options strict = options_of(0, true);
  EXPECT_EQ(decode(kLoss, &strict), 0);
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
  EXPECT_EQ(messages().back(), "SYNTAX ERROR: strict: value-malformed ...");
  EXPECT_EQ(record.findings, Lines{"1:40 value-malformed"});
  EXPECT_EQ(live_nodes(space), 0);
}

TEST_F(SourceTest, AStrictCheckSaysWhatAStrictDecodeWould) {
  const jt_source_options strict = options_of(0, true);
  EXPECT_EQ(check(kLoss, &strict), 0);
  EXPECT_EQ(messages().back(), "SYNTAX ERROR: strict: value-malformed ...");
  EXPECT_EQ(check(kLoss), 1);
}

TEST_F(SourceTest, WarningsPassAStrictDecode) {
  const jt_source_options strict = options_of(0, true);
  EXPECT_NE(decode("[ service Own ] { } end", &strict), 0);
  EXPECT_EQ(record.findings, Lines{"1:11 service-unknown"});
}

TEST_F(SourceTest, ATextMayHaveAsManyBytesAsTheLimit) {
  const std::string text = kJob;
  const jt_source_options enough = options_of(text.size());
  EXPECT_NE(decode(text, &enough), 0);
  const jt_source_options too_few = options_of(text.size() - 1);
  EXPECT_EQ(decode(text, &too_few), 0);
  EXPECT_EQ(status(), JT_MEMORY_ERROR);
  EXPECT_EQ(messages(), Messages{"MEMORY ERROR: limit passed: bytes ..."});
  EXPECT_EQ(record.findings, Lines{"1:53 limit"});
  EXPECT_EQ(check(text, &too_few), 0);
}

// The template, the service, the invocation, the attribute and its value.
TEST_F(SourceTest, ATextMayMakeAsManyNodesAsTheLimit) {
  jt_source_options options = options_of(0);
  options.most_nodes = 5;
  const int32_t job = decode(kJob, &options);
  EXPECT_EQ(job, -100);
  EXPECT_EQ(check(kJob, &options), 1);
  jt_destroy_template(space, job);
  reopen();
  record = {};
  options.most_nodes = 4;
  EXPECT_EQ(decode(kJob, &options), 0);
  EXPECT_EQ(status(), JT_MEMORY_ERROR);
  EXPECT_EQ(messages().back(), "MEMORY ERROR: limit passed: nodes ...");
  EXPECT_EQ(record.findings, Lines{"1:46 limit"});
  EXPECT_EQ(check(kJob, &options), 0);
  EXPECT_EQ(live_nodes(space), 0);
}

TEST_F(SourceTest, ATextMayAskForAsMuchMemoryAsTheLimit) {
  jt_source_options options = options_of(0);
  options.most_heap = 1 << 20;
  EXPECT_NE(decode(kJob, &options), 0);
  reopen();
  options.most_heap = 100;
  EXPECT_EQ(decode(kJob, &options), 0);
  EXPECT_EQ(status(), JT_MEMORY_ERROR);
  EXPECT_EQ(messages().back(), "MEMORY ERROR: limit passed: heap ...");
  EXPECT_EQ(record.findings.back().substr(4), "limit");
  EXPECT_EQ(check(kJob, &options), 0);
  EXPECT_EQ(live_nodes(space), 0);
}

// What only makes a decode faster counts, too: a table of the names among many.
TEST_F(SourceTest, ACheckTakesJustTheMemoryThatADecodeTakes) {
  std::string text;
  for (int i = 0; i < 100; ++i) text += "[ kmt_svc_scan S" + std::to_string(i) + " ] { } end\n";
  jt_source_options options = options_of(0);
  bool has_passed = false;
  for (options.most_heap = 1; options.most_heap < 200'000; options.most_heap += 1009) {
    reopen();
    const bool is_checked = jt_check_source(space, text.data(), text.size(), &options, nullptr) == 1;
    reopen();
    const bool is_decoded = jt_decode_source(space, text.data(), text.size(), &options, nullptr) != 0;
    EXPECT_EQ(is_checked, is_decoded) << options.most_heap;
    EXPECT_TRUE(is_decoded || !has_passed) << options.most_heap;
    has_passed = is_decoded;
  }
  EXPECT_TRUE(has_passed);
}

TEST_F(SourceTest, HandlesAreToldOfADecodeThatSucceedsOnly) {
  std::string text;
  for (int i = 0; i < 100; ++i) text += "[ kmt_svc_scan S" + std::to_string(i) + " ] { } end\n";
  jt_source_options options = options_of(0);
  for (options.most_heap = 1009; options.most_heap < 100'000; options.most_heap += 1009) {
    record = {};
    const int32_t job = decode(text, &options);
    EXPECT_EQ(record.lines.back().starts_with("handle"), job != 0) << options.most_heap;
    jt_destroy_template(space, job);
  }
}

TEST_F(SourceTest, ALimitHoldsForItsCallOnly) {
  jt_source_options options = options_of(0);
  options.most_nodes = 1;
  options.most_heap = 1;
  EXPECT_EQ(decode(kJob, &options), 0);
  EXPECT_NE(jt_decode_template(space, kJob), 0);
  EXPECT_NE(decode(kJob), 0);
}

// What stands behind the size that is given may be anything.
TEST_F(SourceTest, OptionsAreReadAsFarAsTheirSizeSays) {
  jt_source_options options = options_of(1, true);
  options.size = offsetof(jt_source_options, strict);
  EXPECT_NE(decode(kLoss, &options), 0);
  options.size = offsetof(jt_source_options, most_bytes);
  EXPECT_EQ(decode(kLoss, &options), 0);
  EXPECT_EQ(messages().back(), "SYNTAX ERROR: strict: value-malformed ...");
  options.size = 0;
  EXPECT_NE(decode(kLoss, &options), 0);
}

TEST_F(SourceTest, NoByteOfOptionsIsReadBehindTheirSize) {
  const jt_source_options options = options_of(0, true);
  GuardedText guarded(sizeof(options));
  for (std::size_t size = 2 * sizeof(std::size_t); size <= sizeof(options); size += sizeof(std::size_t)) {
    std::string bytes(reinterpret_cast<const char *>(&options), size - 1);
    std::memcpy(bytes.data(), &size, sizeof(size));
    char *const at = guarded.ending_at_guard(bytes);
    at[size - 1] = reinterpret_cast<const char *>(&options)[size - 1];
    EXPECT_NE(
        jt_decode_source(space, kJob, sizeof(kJob) - 1, reinterpret_cast<jt_source_options *>(at), nullptr),
        0)
        << size;
  }
}

TEST_F(SourceTest, LargerOptionsAreReadAsFarAsTheyAreKnown) {
  const struct {
    jt_source_options known;
    std::array<std::size_t, 4> unknown;
  } larger = {{sizeof(larger), 1, 0, 0, 0}, {1, 1, 1, 1}};
  EXPECT_EQ(decode(kLoss, &larger.known), 0);
  EXPECT_EQ(messages().back(), "SYNTAX ERROR: strict: value-malformed ...");
  EXPECT_NE(decode(kJob, &larger.known), 0);
}

// ---- The listener -----------------------------------------------------------------------------------------

TEST_F(SourceTest, EverythingIsToldInTheTextsOrder) {
  EXPECT_EQ(decode("[ service S ] end (odd)"), -100);
  EXPECT_EQ(record.lines,
            (Lines{"open 0 kind 3 0-0", "token [", "token service", "token S", "token ]", "token end",
                   "open 1 kind 7 18-18", "token (", "token odd", "finding status-unknown", "token )",
                   "close 1 kind 7 18-23", "close 0 kind 3 0-23", "handle 0 is -101"}));
}

TEST_F(SourceTest, AListenerNeedNotListenToAll) {
  Record *const kept = &record;
  for (const auto &forget : std::initializer_list<void (*)(jt_listener &)>{
           [](jt_listener &l) { l.open = nullptr; }, [](jt_listener &l) { l.close = nullptr; },
           [](jt_listener &l) { l.token = nullptr; }, [](jt_listener &l) { l.finding = nullptr; },
           [](jt_listener &l) { l.handle = nullptr; },
           [](jt_listener &l) { l = {l.size, nullptr, {}, {}, {}, {}, {}}; }}) {
    jt_listener listener = listener_for(*kept);
    forget(listener);
    EXPECT_NE(jt_decode_source(space, kJob, sizeof(kJob) - 1, nullptr, &listener), 0);
    EXPECT_EQ(jt_check_source(space, kJob, sizeof(kJob) - 1, nullptr, &listener), 1);
  }
}

TEST_F(SourceTest, AListenerIsReadAsFarAsItsSizeSays) {
  jt_listener listener = listener_for(record);
  listener.size = offsetof(jt_listener, close);
  EXPECT_NE(jt_decode_source(space, "[ service S ] end", 17, nullptr, &listener), 0);
  EXPECT_EQ(record.lines, Lines{"open 0 kind 3 0-0"});
  listener.size = 0;
  EXPECT_NE(jt_decode_source(space, "[ service S ] end", 17, nullptr, &listener), 0);
  EXPECT_EQ(record.lines.size(), 1U);
}

TEST_F(SourceTest, ALargerListenerIsReadAsFarAsItIsKnown) {
  const struct {
    jt_listener known;
    std::array<void *, 4> unknown;
  } larger = {listener_for(record), {&record, &record, &record, &record}};
  jt_listener listener = larger.known;
  listener.size = sizeof(larger);
  EXPECT_NE(jt_decode_source(space, "[ service S ] end", 17, nullptr, &listener), 0);
  EXPECT_EQ(record.lines.size(), 8U);
}

TEST_F(SourceTest, AListenerEndsTheCallByAnotherResultThanZero) {
  for (const char *kind : {"open", "close", "token", "finding", "handle"}) {
    reopen();
    record = {{}, {}, kind};
    EXPECT_EQ(decode("[ service S ] end (odd)"), 0) << kind;
    EXPECT_EQ(status(), JT_CALL_ERROR) << kind;
    EXPECT_EQ(messages().back(), "CALL ERROR: ended by the listener ...") << kind;
    EXPECT_EQ(record.lines.back().substr(0, std::strlen(kind)), kind);
    EXPECT_EQ(live_nodes(space), 0) << kind;
  }
}

TEST_F(SourceTest, AListenerEndsACheckToo) {
  for (const char *kind : {"open", "close", "token", "finding"}) {
    record = {{}, {}, kind};
    EXPECT_EQ(check("[ service S ] end (odd)"), 0) << kind;
    EXPECT_EQ(status(), JT_CALL_ERROR) << kind;
    EXPECT_EQ(messages().back(), "CALL ERROR: ended by the listener ...") << kind;
    EXPECT_EQ(record.lines.back().substr(0, std::strlen(kind)), kind);
  }
}

TEST_F(SourceTest, WhatWasOpenedIsClosedWhenADecodeFails) {
  EXPECT_EQ(decode("[ kmt_svc_scan S ] { integer a = ;"), 0);
  EXPECT_EQ(std::count_if(record.lines.begin(), record.lines.end(),
                          [](const std::string &line) { return line.starts_with("open"); }),
            std::count_if(record.lines.begin(), record.lines.end(),
                          [](const std::string &line) { return line.starts_with("close"); }));
}

TEST_F(SourceTest, HandlesNameTheElements) {
  EXPECT_EQ(decode(kJob), -100);
  const Lines handles(record.lines.end() - 4, record.lines.end());
  EXPECT_EQ(handles, (Lines{"handle 0 is -101", "handle 1 is -102", "handle 2 is -103", "handle 3 is -104"}));
  EXPECT_EQ(take_text(jt_element_name(space, -103)), "Copies");
  EXPECT_EQ(take_text(jt_element_value_text(space, -104)), "2");
}

TEST_F(SourceTest, ACheckTellsNoHandles) {
  EXPECT_EQ(check(kJob), 1);
  EXPECT_EQ(record.lines.back(), "close 0 kind 3 0-53");
}

// ---- Places -----------------------------------------------------------------------------------------------

TEST_F(SourceTest, LinesEndAtALineFeedACarriageReturnOrBoth) {
  for (const char *end : {"\n", "\r", "\r\n"}) {
    record = {};
    const std::string text = std::string("[ service S ] end") + end + end + "[ service S ] end";
    EXPECT_EQ(check(text), 0);
    EXPECT_EQ(record.findings, Lines{"3:11 name-duplicate"});
  }
}

TEST_F(SourceTest, ColumnsCountBytes) {
  EXPECT_EQ(check("[ service \xC3\xA4\xC3\xA4 ] end (odd)"), 1);
  EXPECT_EQ(record.findings, Lines{"1:23 status-unknown"});
}

TEST_F(SourceTest, AFindingNamesTheFirstOfTwoNamesakes) {
  jt_range second{};
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = &second;
  listener.finding = [](void *context, const jt_finding *finding) {
    EXPECT_EQ(finding->has_second, 1);
    *static_cast<jt_range *>(context) = finding->second;
    return int32_t{0};
  };
  constexpr char text[] = "[ service Sa ] end [ service SA ] end";
  EXPECT_EQ(jt_check_source(space, text, sizeof(text) - 1, nullptr, &listener), 0);
  EXPECT_EQ(range_text(second), "10-12");
}

// ---- What a check leaves ----------------------------------------------------------------------------------

TEST_F(SourceTest, ADecodeEndsAtTheFirstErrorAndACheckGoesOn) {
  EXPECT_EQ(decode(kTwoFaults), 0);
  EXPECT_EQ(record.findings, Lines{"1:34 syntax-expected"});
  record = {};
  EXPECT_EQ(check(kTwoFaults), 0);
  EXPECT_EQ(record.findings, (Lines{"1:34 syntax-expected", "1:61 name-duplicate"}));
}

TEST_F(SourceTest, ACheckLeavesStatusAndHistoryOfADecode) {
  for (const char *text : {kJob, kTwoFaults, kLoss, "[ service S", "[ service Own ] { } end (odd)"}) {
    reopen();
    jt_decode_template(space, text);
    const std::pair expected(status(), messages());
    reopen();
    jt_check_source(space, text, std::strlen(text), nullptr, nullptr);
    EXPECT_EQ(std::pair(status(), messages()), expected) << text;
    reopen();
    jt_decode_source(space, text, std::strlen(text), nullptr, nullptr);
    EXPECT_EQ(std::pair(status(), messages()), expected) << text;
  }
}

TEST_F(SourceTest, ACheckTakesNoSlotOfTheSession) {
  EXPECT_EQ(check(kJob), 1);
  EXPECT_EQ(check(kTwoFaults), 0);
  EXPECT_EQ(jt_create_template(space), -100);
}

TEST_F(SourceTest, AFailedDecodeLeavesTheSlotsFree) {
  EXPECT_EQ(decode(kTwoFaults), 0);
  EXPECT_EQ(decode(kJob), -100);
}

TEST_F(SourceTest, AnotherSessionTakesCallsInsideAListener) {
  jt_parser_space *other = jt_open_parsing_utility("other");
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = other;
  listener.token = [](void *context, const jt_source_token *) {
    EXPECT_NE(jt_create_template(static_cast<jt_parser_space *>(context)), 0);
    return int32_t{0};
  };
  EXPECT_EQ(jt_check_source(space, kJob, sizeof(kJob) - 1, nullptr, &listener), 1);
  jt_close_parsing_utility(other);
}

TEST_F(SourceTest, MessagesCanBeReadInsideAListenerOnlyBeneathTheCalls) {
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = space;
  listener.finding = [](void *context, const jt_finding *) {
    auto *const session = static_cast<jt_parser_space *>(context);
    EXPECT_STREQ(get_last_error(session), "WARNING: trying to evaluate as an 'enumerated' type:odd ...");
    EXPECT_EQ(jt_get_recent_error(session), nullptr);
    return int32_t{0};
  };
  EXPECT_EQ(jt_check_source(space, "[ service S ] end (odd)", 23, nullptr, &listener), 1);
  EXPECT_EQ(messages().back(), "CALL ERROR: made from inside a listener ...");
}

// ---- Templates --------------------------------------------------------------------------------------------

class TemplateCheckTest : public SourceTest {
 protected:
  TemplateCheckTest() : job(jt_decode_template(space, kJob)) {}

  int32_t job;
};

TEST_F(TemplateCheckTest, OfATemplateThatIsReadBackTellsNothing) {
  const jt_listener listener = listener_for(record);
  EXPECT_EQ(jt_check_template(space, job, &listener), 1);
  EXPECT_EQ(record.lines, Lines{});
  EXPECT_EQ(status(), 0);
}

TEST_F(TemplateCheckTest, TellsTheHandleOfTheElement) {
  jt_add_service(space, job, "service", "two words");
  int32_t element = 0;
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = &element;
  listener.finding = [](void *context, const jt_finding *finding) {
    EXPECT_STREQ(jt_finding_name(finding->code), "name-unsafe");
    EXPECT_EQ(finding->severity, JT_SEVERITY_LOSS);
    EXPECT_EQ(range_text(finding->range), "0-0");
    *static_cast<int32_t *>(context) = finding->element;
    return int32_t{0};
  };
  EXPECT_EQ(jt_check_template(space, job, &listener), 0);
  EXPECT_EQ(take_text(jt_element_name(space, element)), "two words");
  EXPECT_EQ(jt_check_template(space, job, nullptr), 0);
}

TEST_F(TemplateCheckTest, IsEndedByItsListener) {
  jt_add_service(space, job, "service", "two words");
  jt_add_service(space, job, "service", "three words here");
  record.ends_at = "finding";
  const jt_listener listener = listener_for(record);
  EXPECT_EQ(jt_check_template(space, job, &listener), 0);
  EXPECT_EQ(record.lines, Lines{"finding name-unsafe"});
  EXPECT_EQ(messages(), Messages{"CALL ERROR: ended by the listener ..."});
}

TEST_F(TemplateCheckTest, LeavesTheTemplateAsItIs) {
  jt_add_service(space, job, "service", "two words");
  const std::string before = encoded(job);
  EXPECT_EQ(jt_check_template(space, job, nullptr), 0);
  EXPECT_EQ(encoded(job), before);
}

// ---- The names of codes -----------------------------------------------------------------------------------

TEST(FindingName, EveryCodeHasItsName) {
  const std::vector<std::string> expected = {"syntax-expected",
                                             "syntax-unclosed",
                                             "syntax-string",
                                             "string-over-lines",
                                             "syntax-length",
                                             "syntax-nul",
                                             "text-bom",
                                             "block-illegal",
                                             "memory",
                                             "limit",
                                             "header-form",
                                             "header-version",
                                             "header-encoding",
                                             "end-marker",
                                             "service-type-unknown",
                                             "service-unknown",
                                             "attribute-type-unknown",
                                             "attribute-type-of-other-service",
                                             "name-duplicate",
                                             "name-unsafe",
                                             "value-malformed",
                                             "value-out-of-range",
                                             "value-saturated",
                                             "value-tail",
                                             "value-empty-number",
                                             "value-impossible",
                                             "value-unknown-name",
                                             "value-unsafe",
                                             "value-dropped",
                                             "value-rounded",
                                             "status-unknown",
                                             "status-unsafe",
                                             "status-text-lost",
                                             "comment-moves",
                                             "ignore-unused"};
  std::vector<std::string> names;
  for (int32_t code = 0; jt_finding_name(code) != nullptr; ++code) names.emplace_back(jt_finding_name(code));
  EXPECT_EQ(names, expected);
}

TEST(FindingName, OtherNumbersHaveNone) {
  for (const int32_t code : {-1, INT32_MIN, JT_FINDING_IGNORE_UNUSED + 1, INT32_MAX})
    EXPECT_EQ(jt_finding_name(code), nullptr) << code;
}

}  // namespace
}  // namespace jt_test
