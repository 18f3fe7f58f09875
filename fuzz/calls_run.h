// One run of the fuzzer of calls: its input, the arguments that are taken from it, and how a call is compared
// with its mirror in the model. Arguments come from short lists that hold what is likely to meet something,
// what meets nothing, and null.
#ifndef JT_FUZZ_CALLS_RUN_H
#define JT_FUZZ_CALLS_RUN_H

#include <cstring>
#include <iterator>
#include <type_traits>

#include "base/markers.h"
#include "model.h"
#include "support.h"
#include "support/failing_allocator.h"
#include "tree/session.h"

namespace jt_fuzz {

// ---- Arguments --------------------------------------------------------------------------------------------

inline constexpr const char *kServices[] = {"Scan",        "SCAN",         "kmt_svc_scan", "Fax",   "Own",
                                            "kmt_svc_fax", "KMT_SVC_SCAN", "integer",      "other", "",
                                            "missing",     nullptr};
inline constexpr const char *kTexts[] = {"1",    "2",     "3",         "+01",       "-7",       "99999999999",
                                         "x",    "X",     "a b",       "\"q\\\"",   "odd;name", "odder",
                                         "true", "FALSE", "GRAYSCALE", "grayscale", "",         nullptr};
inline constexpr int32_t kOddHandles[] = {0,    1,    -1,   -99,  -100, -101,      -102,
                                          -103, -105, -110, -611, -612, INT32_MAX, INT32_MIN};

// The input, byte by byte; zeros behind its end.
class Input {
 public:
  Input(const std::uint8_t *data, std::size_t size) : at_(data), end_(data + size) {}
  bool is_over() const { return at_ == end_; }
  std::uint8_t byte() { return at_ != end_ ? *at_++ : std::uint8_t{0}; }

  template <typename Row, std::size_t Rows>
  const Row &one_of(const Row (&rows)[Rows]) {
    return rows[byte() % Rows];
  }

 private:
  const std::uint8_t *at_;
  const std::uint8_t *end_;
};

// ---- One run ----------------------------------------------------------------------------------------------

// Which allocation fails, and in which of the calls of an operation.
struct Failure {
  int number = 0;  // counted from 1; 0 for none
  jt_test::Failing which = jt_test::Failing::kOnlyOne;
  int calls_before = 0;

  // Most calls allocate once or twice; decoding and encoding do it more often.
  static Failure from(Input &input) {
    constexpr int kMostBefore = 4;
    const std::uint8_t byte = input.byte();
    const auto which = byte % 2 == 0 ? jt_test::Failing::kOnlyOne : jt_test::Failing::kAllFromThereOn;
    return {1 + byte / 2 % 8 + (byte >= 0xF0 ? input.byte() % 64 : 0), which, byte / 16 % kMostBefore};
  }
};

struct Run {
  Run(const std::uint8_t *data, std::size_t size) : input(data, size) {}

  Session session;
  Model model;
  Input input;
  const char *operation = "";
  jt_parser_space *space = nullptr;  // of the call under test: the session's or null
  Failure failure = {};

  // Whether the call under test moves a cursor also where its result could not be allocated.
  bool passes_when_failed = false;

  int32_t handle() {
    const std::uint8_t byte = input.byte();
    if (byte >= 0xF0 || model.templates.empty()) return kOddHandles[byte % std::size(kOddHandles)];
    return -100 - model.templates[byte % model.templates.size()].slot;
  }
  const char *service() { return input.one_of(kServices); }
  const char *text() { return input.one_of(kTexts); }

  // Many names, so that some invocations have many attributes; some of them differ by case only.
  const char *attribute() {
    const std::uint8_t byte = input.byte();
    if (byte >= 0xF0) return byte % 2 == 0 ? nullptr : "";
    name_ = (byte % 2 == 0 ? "n" : "N") + std::to_string(byte / 2 % 40);
    return name_.c_str();
  }

  // Both answer alike, and leave the same behind. With a null session the call fails, and nothing changes.
  template <typename Call, typename Mirror>
  void compare(Call call, Mirror mirror, const Answer &failed) {
    if (failure.number != 0 && space != nullptr && failure.calls_before-- == 0) {
      compare_without_memory(call, mirror, failed);
      return;
    }
    if (space != nullptr) model.begin_call();
    check_answer(call(), space != nullptr ? mirror() : failed);
  }

  // The same for a call that only prepares or follows the one under test: never with a null session.
  template <typename Call, typename Mirror>
  void compare_outside(Call call, Mirror mirror, const Answer &failed) {
    jt_parser_space *const tested = std::exchange(space, session.space);
    compare(call, mirror, failed);
    space = tested;
  }

  // A call that an allocation fails in either fails as a whole, with a report, and works when it is made
  // again; or it can do without, and nothing is seen of it.
  template <typename Call, typename Mirror>
  void compare_without_memory(Call call, Mirror mirror, const Answer &failed) {
    constexpr char kMark[] = "here an allocation is to fail";
    const Failure planned = std::exchange(failure, {});
    jt_error(space, kMark, "");
    model.note(kMark);
    jt_test::fail_allocations(planned.number, planned.which);
    const Answer answer = call();
    jt_test::allow_allocations();
    if (!tells_of_memory(kMark)) {
      model.begin_call();
      check_answer(answer, mirror());
      return;
    }
    if (answer != failed) check(false, operation, "answers " + answer + " although memory ran out");
    session.check_status();
    check_slots();
    if (passes_when_failed) mirror();
    model.adopt(jt_last_api_error(space), session.messages());
    if (!passes_when_failed) compare(call, mirror, failed);
  }

  // Whether memory ran out since the mark. Looks at the store itself: the calls would move its cursor.
  bool tells_of_memory(std::string_view mark) const {
    for (const auto &room : session.space->errors.messages) {
      const std::string_view message = room.data();
      if (message.substr(0, mark.size()) == mark) return false;
      if (message.substr(0, 13) == "MEMORY ERROR:") return true;
    }
    return false;
  }

  void check_answer(const Answer &actual, const Answer &expected) const {
    if (actual != expected) check(false, operation, "answers " + actual + ", not " + expected);
    check_state();
  }

  void check_state() const {
    const jt_parser_space &seen = *session.space;
    if (jt_last_api_error(session.space) != model.status) {
      check(false, operation, "leaves another status than " + std::to_string(model.status));
    }
    for (std::size_t i = 0; i < seen.errors.messages.size(); ++i) {
      const std::string_view expected = i < model.history.size() ? std::string_view(model.history[i]) : "";
      const std::string_view message = seen.errors.messages[i].data();
      if (message != expected)
        check(false, operation, std::string(message) + "\nand not\n" + std::string(expected));
    }
  }

  void check_slots() const {
    const auto &table = session.space->table;
    const auto count = static_cast<std::size_t>(table.count);
    check(count >= model.slots.size(), operation, "takes all its slots");
    for (std::size_t slot = 0; slot < count; ++slot) {
      const bool is_live = table.slots[slot] != jt_core::released_slot();
      if (is_live != model.is_live(slot)) check(false, operation, "slot " + std::to_string(slot));
    }
  }

 private:
  std::string name_;
};

// ---- What calls answer, in the words of the model ---------------------------------------------------------

inline Answer words(int32_t result) { return std::to_string(result); }

inline Answer words(char *text) {
  const OwnedText owned(text);
  return answer_of(text != nullptr ? Name(text) : std::nullopt);
}

// A text that is the library's.
inline Answer words(const char *text) { return answer_of(text != nullptr ? Name(text) : std::nullopt); }

inline Answer words(jt_status *status) {
  if (status == nullptr) return "null";
  std::uint32_t number = 0;
  std::memcpy(&number, status, sizeof(number));
  const bool has_text = number == 0xFFFFFFFF;
  const std::string text = has_text ? reinterpret_cast<const char *>(status) + sizeof(number) : "";
  kill_status(nullptr, status);
  return std::to_string(number) + text;
}

// What a call of that type answers when it fails.
inline Answer failure_of(int32_t) { return "0"; }
inline Answer failure_of(const void *) { return "null"; }

// A call whose mirror takes the same arguments.
template <typename Result, typename... Arguments>
void ask(Run &run, Result (*call)(jt_parser_space *, int32_t, Arguments...),
         Answer (Model::*mirror)(int32_t, Arguments...), int32_t handle,
         std::type_identity_t<Arguments>... arguments) {
  run.compare([&] { return words(call(run.space, handle, arguments...)); },
              [&] { return (run.model.*mirror)(handle, arguments...); }, failure_of(Result{}));
}

}  // namespace jt_fuzz

#endif
