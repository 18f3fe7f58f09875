// Decoding a text with its places: the observer that sees every token, tells a listener what stands where, and
// what is wrong with it. A decode ends at the first error; a check goes on behind it (recovery.h), in a
// session of its own. tests/sil/source_events_test.cpp and tests/sil/source_findings_test.cpp
#ifndef JT_SIL_SOURCE_H
#define JT_SIL_SOURCE_H

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "base/growing_array.h"
#include "sil/engine.h"
#include "sil/findings.h"
#include "sil/teller.h"
#include "types/remarks.h"

namespace jt_core {

// Where the name of an element stands, by the element's number.
struct NamedPlace {
  std::int32_t bookmark;
  jt_range name;
};

// What the readers of a value remark on one text; more than these are not possible.
struct RemarkList : Remarks {
  struct Entry {
    Remark remark;
    bool refused;
    std::string_view where;
  };
  RemarkList();

  std::array<Entry, 16> entries;
  std::size_t count = 0;
};

class SourceDecoder {
 public:
  static constexpr bool kListens = true;
  using Text = Bounded;

  enum class Purpose : std::uint8_t { kDecode, kCheck };

  // The session is the one that the nodes are made in, the teller speaks for the caller's.
  SourceDecoder(jt_parser_space &space, Teller &teller, const jt_source_options &options, Purpose purpose);

  // The root of the text; null when it is in error. A check leaves its nodes to its session.
  jt_node *run();

  // ---- For the engine ----

  // A row has taken the token. False: decoding ends.
  bool accepted(const Row &row, const Token &token);

  // No row has taken the token, or decoding was stopped there. True: it goes on, in the state.
  [[gnu::cold]] bool failed(const Machine &machine, const Token &token, Outcome outcome, State &state);

  [[gnu::cold]] void no_memory();

  // ---- For recovery ----

  Teller &teller() { return teller_; }
  std::size_t last_end() const { return last_end_; }

  // Whether repairs have been tried at a place so often that none of them will do.
  [[gnu::cold]] bool is_stuck_at(std::size_t offset);

  // Text up to there is passed over; of what stands in front of the last token the comments are told.
  [[gnu::cold]] void skip(const char *end);
  void tell_token(Role role, const Token &token) {
    const jt_range range = range_of();
    teller_.token(role, range, token.text);
    if (role == Role::kServiceName || role == Role::kInvocationName || role == Role::kAttributeName)
      name_ = range;
    last_end_ = range.end;
  }
  void tell_gap(std::size_t end) {
    if (decoder_.cursor.has_comments) tell_comments(end);
  }
  void remember_node() {
    OpenElement *const element = teller_.innermost();
    if (element != nullptr && element->bookmark < 0) remember_node_of(*element);
  }
  void settle() { is_settled_ = true; }
  void forget_name() { name_ = {}; }  // the next node has none in the text

 private:
  // Tokens and elements (source.cpp).
  jt_range range_of() const {
    return {teller_.offset_of(decoder_.cursor.token_begin), teller_.offset_of(decoder_.cursor.token_end)};
  }
  bool accept_silently(const Row &row);
  [[gnu::cold]] void tell_comments(std::size_t end);
  [[gnu::cold]] void tell_comment(const char *begin, const char *end);
  [[gnu::cold]] void tell_nuls(std::size_t end);
  void tell_held(Opens opens) {
    if (held_ != kNothing) tell_held_mark(opens);
  }
  [[gnu::cold]] void tell_held_mark(Opens opens);
  void remember_node_of(OpenElement &element);
  void remember_value(OpenElement &element);
  void remember_name(const OpenElement &element);
  [[gnu::cold]] void tell_handles();
  bool takes_lines_along() const {
    const char *const begin = decoder_.cursor.token_begin;
    const auto size = static_cast<std::size_t>(decoder_.cursor.token_end - begin);
    return std::memchr(begin, '\n', size) != nullptr || std::memchr(begin, '\r', size) != nullptr;
  }
  [[gnu::cold]] void shorten_string();
  [[gnu::cold]] bool re_read_string(std::size_t line_end, State &state);
  [[gnu::cold]] std::int32_t report_no_memory();
  [[gnu::cold]] void begin_failure();
  [[gnu::cold]] bool is_within_limits();
  jt_node *decode();
  bool ends() const { return is_refused_ || !teller_.goes_on(); }

  // Findings (source_findings.cpp).
  [[gnu::cold]] void tell(jt_finding &finding);
  [[gnu::cold]] void tell_code(std::int32_t code, jt_range range);
  [[gnu::cold]] void tell_trouble(jt_range range);
  [[gnu::cold]] void tell_remarks(const Token &token, jt_range range);
  // Most values are words of which nothing is remarked.
  void tell_value(const Token &token, jt_range range) {
    const bool is_plain = token.kind == TokenKind::kWord && token.text != ":" && remarks_.count == 0;
    if (!is_plain || teller_.innermost()->bookmark < 0) tell_doubtful_value(token, range);
  }
  [[gnu::cold]] void tell_doubtful_value(const Token &token, jt_range range);
  [[gnu::cold]] void tell_status(Role role, const Token &token, jt_range range);
  [[gnu::cold]] void tell_unknown_service();
  [[gnu::cold]] bool is_worth_telling(const jt_finding &finding) const;
  [[gnu::cold]] jt_finding error_at(const Machine &machine, const Token &token, Outcome outcome, State state);
  [[gnu::cold]] void describe_wrong_token(const Machine &machine, const Token &token, State state,
                                          jt_finding &finding);
  [[gnu::cold]] void describe_end(const Token &token, State state, jt_finding &finding);
  [[gnu::cold]] void describe_unclosed(State state, jt_finding &finding);
  [[gnu::cold]] void describe_type(const Token &token, jt_finding &finding) const;
  [[gnu::cold]] void describe_bad_string(jt_finding &finding);
  [[gnu::cold]] bool is_missing_before(const Token &token, State state, std::size_t begin) const;
  [[gnu::cold]] std::size_t end_of_line(std::size_t offset) const;
  [[gnu::cold]] std::size_t number_of_namesake() const;
  [[gnu::cold]] void describe_taken_name(State state, jt_finding &finding);

  jt_parser_space &space_;
  Teller &teller_;
  Decoder decoder_;
  jt_source_options options_;
  Purpose purpose_;
  RemarkList remarks_;
  GrowingArray<NamedPlace> names_;         // by the element's number
  GrowingArray<std::int32_t> element_of_;  // by bookmark, of a check; not of its limits
  jt_range name_{};                        // the last token that was a name
  jt_range last_string_{};                 // that ran over lines
  jt_range previous_word_{};               // the last word behind a status
  std::size_t last_end_ = 0;               // behind the last token
  std::size_t held_ = kNothing;            // the begin of a token that was held back
  std::size_t next_nul_ = kNothing;
  std::size_t repaired_ = kNothing;  // where a repair was tried last,
  int repairs_ = 0;                  // and how often there
  const jt_node *last_value_ = nullptr;
  bool comments_stay_ = true;    // those that stand before the next token
  bool has_failed_ = false;      // a decode has
  bool ran_over_lines_ = false;  // the last token, a string, did into an error
  bool is_refused_ = false;      // and nothing more is read
  bool is_settled_ = true;       // an element has been read whole since the last error

  static constexpr std::size_t kNothing = static_cast<std::size_t>(-1);

  char expected_[96];
};

}  // namespace jt_core

#endif
