// The shared parts of the fuzzers.
#include "support.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/markers.h"
#include "tree/session.h"

namespace jt_fuzz {
namespace {

struct Category {
  std::string_view words;
  int32_t status;
};

constexpr Category kCategories[] = {{"MEMORY ERROR:", JT_MEMORY_ERROR},
                                    {"SYNTAX ERROR:", JT_SYNTAX_ERROR},
                                    {"SYSTEM ERROR:", JT_SYSTEM_ERROR},
                                    {"CALL ERROR:", JT_CALL_ERROR},
                                    {"WARNING:", JT_WARNING}};

int32_t category_of(std::string_view message) {
  for (const auto &[words, status] : kCategories) {
    if (message.substr(0, words.size()) == words) return status;
  }
  return JT_UNCLASSIFIED;
}

}  // namespace

void check(bool condition, const char *what, std::string_view detail) {
  if (condition) return;
  std::fprintf(stderr, "This does not hold: %s\n%.*s\n", what, static_cast<int>(detail.size()),
               detail.data());
  std::abort();
}

TightText::TightText(std::string_view text) : bytes_(new char[text.size() + 1]), size_(text.size()) {
  std::copy(text.begin(), text.end(), bytes_.get());
  bytes_[size_] = '\0';
}

bool TightText::holds(std::string_view text) const {
  return std::string_view(bytes_.get(), size_) == text && bytes_[size_] == '\0';
}

Messages Session::messages() const {
  Messages all;
  get_last_error(space);
  while (const char *const message = get_previous_error(space)) {
    const std::size_t length = strnlen(message, JT_MESSAGE_SIZE);
    check(length > 0 && length < JT_MESSAGE_SIZE, "a message is terminated in its room");
    check(all.size() < JT_HISTORY_LENGTH, "the history has its length");
    all.emplace_back(message, length);
  }
  get_last_error(space);
  return all;
}

void Session::check_status() const {
  const int32_t status = jt_last_api_error(space);
  if (status == JT_OK) return;
  const Messages all = messages();
  check(!all.empty(), "a status comes with a message");
  check(status == category_of(all.front()), "the status is the category of the newest message", all.front());
}

bool Session::is_empty() const {
  const auto &table = space->table;
  return std::all_of(table.slots, table.slots + table.count,
                     [](const jt_node *node) { return node == jt_core::released_slot(); });
}

}  // namespace jt_fuzz
