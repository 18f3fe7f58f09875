#include "base/error_store.h"

#include <algorithm>
#include <cstring>

namespace jt_core {
namespace {

struct Category {
  std::string_view prefix;
  std::int32_t status;
};

constexpr std::array<Category, 5> kCategories = {{{"MEMORY ERROR:", JT_MEMORY_ERROR},
                                                  {"SYNTAX ERROR:", JT_SYNTAX_ERROR},
                                                  {"SYSTEM ERROR:", JT_SYSTEM_ERROR},
                                                  {"CALL ERROR:", JT_CALL_ERROR},
                                                  {"WARNING:", JT_WARNING}}};

constexpr std::string_view kNullText = "(null)";
constexpr std::string_view kEllipsis = " ...";
constexpr std::size_t kMaxText = JT_MESSAGE_SIZE - 1;
constexpr std::size_t kMaxBeforeEllipsis = kMaxText - kEllipsis.size();

std::int32_t status_of(std::string_view message) {
  const auto *const found = std::find_if(
      kCategories.begin(), kCategories.end(),
      [&](const Category &category) { return message.substr(0, category.prefix.size()) == category.prefix; });
  return found != kCategories.end() ? found->status : JT_UNCLASSIFIED;
}

// An entry of the history under construction. It is composed before the history shifts, because a message or
// a detail may be a text of the history itself.
struct Entry {
  std::array<char, JT_MESSAGE_SIZE> text{};
  std::size_t length = 0;

  void append(std::string_view part, std::size_t limit) {
    const std::size_t taken = std::min(part.size(), limit - std::min(limit, length));
    std::copy_n(part.data(), taken, text.data() + length);
    length += taken;
  }
};

void record(ErrorStore &errors, std::string_view message, std::string_view detail) {
  Entry entry;
  if (message.size() > kMaxText) {
    entry.append(message, kMaxText);
  } else {
    entry.append(message, kMaxBeforeEllipsis);
    entry.append(detail, kMaxBeforeEllipsis);
    entry.append(kEllipsis, kMaxText);
  }
  std::copy_backward(errors.messages.begin(), errors.messages.end() - 1, errors.messages.end());
  errors.messages[0] = entry.text;
  errors.previous = 0;
}

}  // namespace

std::string_view beginning_of(const char *text) {
  if (text == nullptr) return kNullText;
  constexpr std::size_t kMaxKept = JT_MESSAGE_SIZE;
  const auto *const end = static_cast<const char *>(std::memchr(text, '\0', kMaxKept));
  return {text, end == nullptr ? kMaxKept : static_cast<std::size_t>(end - text)};
}

void report(jt_parser_space *space, std::string_view message, std::string_view detail) {
  if (space == nullptr) return;
  ErrorStore &errors = errors_of(*space);
  if (errors.is_muted) return;
  errors.status = status_of(message);
  record(errors, message, detail);
}

void report_joined(jt_parser_space *space, std::string_view begin, std::string_view middle,
                   std::string_view end, std::string_view detail) {
  if (space == nullptr || errors_of(*space).is_muted) return;
  Entry message;
  for (const std::string_view part : {begin, middle, end}) message.append(part, JT_MESSAGE_SIZE);
  report(space, {message.text.data(), message.length}, detail);
}

}  // namespace jt_core

extern "C" {

int32_t jt_error(jt_parser_space *space, const char *message, const char *detail) {
  if (space == nullptr) return 0;
  if (message == nullptr) {
    jt_core::record(jt_core::errors_of(*space), jt_core::kNullText, jt_core::beginning_of(detail));
    return 0;
  }
  jt_core::report(space, jt_core::beginning_of(message), jt_core::beginning_of(detail));
  return jt_core::errors_of(*space).status;
}

void reset_error_status(jt_parser_space *space) {
  if (space != nullptr) jt_core::errors_of(*space).status = JT_OK;
}

int32_t get_error_status(jt_parser_space *space) {
  return space != nullptr ? jt_core::errors_of(*space).status : JT_OK;
}

const char *get_last_error(jt_parser_space *space) {
  if (space == nullptr) return nullptr;
  jt_core::ErrorStore &errors = jt_core::errors_of(*space);
  errors.previous = 0;
  const auto &newest = errors.messages.front();
  return newest.front() != '\0' ? newest.data() : nullptr;
}

const char *get_previous_error(jt_parser_space *space) {
  if (space == nullptr) return nullptr;
  jt_core::ErrorStore &errors = jt_core::errors_of(*space);
  if (errors.previous >= JT_HISTORY_LENGTH) return nullptr;
  const auto &message = errors.messages[static_cast<std::size_t>(errors.previous)];
  if (message.front() == '\0') return nullptr;
  ++errors.previous;
  return message.data();
}

}  // extern "C"
