// Tells a listener what stands in a text and what was found there: keeps the elements that are open, counts
// elements and lines, and makes the records that the callbacks are given. tests/sil/source_events_test.cpp has
// what is told of every kind of element.
#ifndef JT_SIL_TELLER_H
#define JT_SIL_TELLER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "jt.h"
#include "sil/grammar.h"

namespace jt_core {

// An element that is open.
struct OpenElement {
  std::int32_t kind;
  std::int32_t number;
  std::int32_t bookmark;  // of its node; negative while it has none
  std::size_t begin;
  std::size_t head_end;  // behind the bracket or brace that opens it
};

class Teller {
 public:
  // Callbacks are made in the name of the session, which takes no other calls meanwhile. A null listener hears
  // nothing.
  Teller(jt_parser_space &session, std::string_view text, const jt_listener *listener);

  jt_parser_space &session() const { return session_; }
  std::string_view text() const { return text_; }
  std::size_t offset_of(const char *at) const { return static_cast<std::size_t>(at - text_.data()); }

  // False when the listener has ended the call.
  bool goes_on() const { return goes_on_; }

  void open(std::int32_t kind, std::size_t begin) {
    if (depth_ == kMostOpen) return;
    open_[depth_++] = {kind, count_++, -1, begin, begin};
    if (listener_.open != nullptr) tell_opened();
  }
  void close(std::size_t end) {
    if (depth_ == 0) return;
    --depth_;
    if (listener_.close != nullptr) tell_closed(end);
  }

  // Closes elements until so many are open.
  void close_down_to(std::size_t depth, std::size_t end);

  std::size_t depth() const { return depth_; }
  OpenElement *innermost() { return depth_ > 0 ? &open_[depth_ - 1] : nullptr; }
  const OpenElement &open_at(std::size_t level) const { return open_[level]; }

  void token(Role role, jt_range range, std::string_view text) {
    if (listener_.token != nullptr) tell_token(role, range, text);
  }

  // Fills in what follows from the code and the range: name, severity unless it is given, line and column.
  void finding(jt_finding &finding);

  void handle(std::int32_t number, std::int32_t handle);
  bool wants_handles() const { return listener_.handle != nullptr; }

 private:
  void tell_opened();
  void tell_closed(std::size_t end);
  void tell_token(Role role, jt_range range, std::string_view text);

  template <typename Function, typename... Arguments>
  void call(Function *function, Arguments... arguments);

  void count_lines_to(std::size_t offset);

  // Enough for a value or a status in an attribute, an invocation, a service and a section.
  static constexpr std::size_t kMostOpen = 8;

  jt_parser_space &session_;
  std::string_view text_;
  jt_listener listener_{};
  bool goes_on_ = true;
  std::int32_t count_ = 0;
  std::size_t depth_ = 0;
  std::array<OpenElement, kMostOpen> open_;
  std::size_t counted_ = 0;     // lines have been counted up to here,
  std::size_t line_ = 1;        // this is the line there,
  std::size_t line_begin_ = 0;  // and this where it begins
};

}  // namespace jt_core

#endif
