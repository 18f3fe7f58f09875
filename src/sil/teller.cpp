#include "sil/teller.h"

#include <algorithm>
#include <cstring>

#include "base/error_store.h"
#include "sil/findings.h"
#include "tree/session.h"

namespace jt_core {
namespace {

static_assert(static_cast<int>(Role::kPunctuation) == JT_ROLE_PUNCTUATION);
static_assert(static_cast<int>(Role::kStatusText) == JT_ROLE_STATUS_TEXT);
static_assert(static_cast<int>(Role::kComment) == JT_ROLE_COMMENT);

// A line feed belongs to the carriage return before it.
bool begins_line(std::string_view text, std::size_t offset) {
  const char before = text[offset - 1];
  return before == '\n' || (before == '\r' && (offset == text.size() || text[offset] != '\n'));
}

jt_source_element record_of(const OpenElement &element, std::size_t end) {
  return {sizeof(jt_source_element), element.kind, element.number, {element.begin, end}};
}

}  // namespace

Teller::Teller(jt_parser_space &session, std::string_view text, const jt_listener *listener)
    : session_(session), text_(text) {
  if (listener != nullptr) std::memcpy(&listener_, listener, std::min(listener->size, sizeof(listener_)));
}

template <typename Function, typename... Arguments>
void Teller::call(Function *function, Arguments... arguments) {
  if (!goes_on_) return;
  session_.is_listened_to = true;
  goes_on_ = function(listener_.context, arguments...) == 0;
  session_.is_listened_to = false;
  if (!goes_on_) report(&session_, message::kEndedByListener);
}

void Teller::tell_opened() {
  const OpenElement &element = open_[depth_ - 1];
  const jt_source_element record = record_of(element, element.begin);
  call(listener_.open, &record);
}

void Teller::tell_closed(std::size_t end) {
  const jt_source_element record = record_of(open_[depth_], end);
  call(listener_.close, &record);
}

void Teller::close_down_to(std::size_t depth, std::size_t end) {
  while (depth_ > depth) close(end);
}

void Teller::tell_token(Role role, jt_range range, std::string_view text) {
  const jt_source_token record = {sizeof(record), static_cast<std::int32_t>(role), range, text.data(),
                                  text.size()};
  call(listener_.token, &record);
}

// Findings come nearly in the order of the text, so that counting back is rare and short.
void Teller::count_lines_to(std::size_t offset) {
  for (; counted_ < offset; ++counted_) {
    if (!begins_line(text_, counted_ + 1)) continue;
    ++line_;
    line_begin_ = counted_ + 1;
  }
  while (offset < line_begin_) {
    counted_ = --line_begin_;
    --line_;
    while (line_begin_ > 0 && !begins_line(text_, line_begin_)) --line_begin_;
  }
}

void Teller::finding(jt_finding &finding) {
  if (listener_.finding == nullptr) return;
  finding.size = sizeof(finding);
  count_lines_to(finding.range.begin);
  finding.line = line_;
  finding.column = finding.range.begin - line_begin_ + 1;
  if (finding.expected == nullptr) finding.expected = "";
  call(listener_.finding, static_cast<const jt_finding *>(&finding));
}

void Teller::handle(std::int32_t number, std::int32_t handle) {
  if (wants_handles()) call(listener_.handle, number, handle);
}

}  // namespace jt_core
