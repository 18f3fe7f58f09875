#include "sil/source.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

#include "base/error_store.h"
#include "sil/findings.h"
#include "sil/recovery.h"
#include "tree/child_index.h"
#include "tree/limits.h"
#include "tree/session.h"
#include "types/type_tables.h"
#include "types/value_lists.h"

namespace jt_core {
namespace {

// By Opens.
constexpr std::array<std::int32_t, 8> kKinds = {0,
                                                JT_SOURCE_HEADER,
                                                JT_SOURCE_SECTION,
                                                JT_SOURCE_SERVICE,
                                                JT_SOURCE_INVOCATION,
                                                JT_SOURCE_ATTRIBUTE,
                                                JT_SOURCE_VALUE,
                                                JT_SOURCE_STATUS};

// A limit of 0 is none.
Limits limits_of(const jt_source_options &options) {
  constexpr std::size_t kMostNodes = std::numeric_limits<std::int32_t>::max();
  const std::size_t nodes = options.most_nodes != 0 ? std::min(options.most_nodes, kMostNodes) : kMostNodes;
  const std::uint64_t heap =
      options.most_heap != 0 ? options.most_heap : std::numeric_limits<std::uint64_t>::max();
  return {heap, static_cast<std::int32_t>(nodes)};
}

bool is_element_of(std::int32_t kind, std::int32_t node_class) {
  switch (kind) {
    case JT_SOURCE_HEADER:
      return node_class >= JT_NODE_HEADER;
    case JT_SOURCE_SECTION:
      return node_class == JT_NODE_TEMPLATE;
    case JT_SOURCE_SERVICE:
      return node_class == JT_NODE_SERVICE;
    case JT_SOURCE_INVOCATION:
      return node_class == JT_NODE_INVOCATION;
    case JT_SOURCE_ATTRIBUTE:
      return node_class == JT_NODE_ATTRIBUTE;
    default:
      return false;
  }
}

constexpr std::uint64_t one_of_states(std::initializer_list<State> states) {
  std::uint64_t set = 0;
  for (const State state : states) set |= std::uint64_t{1} << static_cast<unsigned>(state);
  return set;
}
static_assert(kStateCount < 64);

// The encoder puts the comments of a block, and those of an attribute's values, in front of the first one, and
// those of a header in front of the header.
constexpr std::uint64_t kPlacesOfComments =
    one_of_states({State::kHeaderBegin, State::kFirstValue, State::kInInvocation, State::kInService,
                   State::kBetweenServices, State::kSectionContent});

// Whether a comment that stands before the next token is written back where it stands.
bool keeps_comments(const Decoder &decoder, State state) {
  const bool is_place = (kPlacesOfComments >> static_cast<unsigned>(state) & 1U) != 0;
  return is_place && decoder.top->first_child == nullptr && !is_header(*decoder.top);
}

// Whether an element other than a value has been read whole, or so far that only its status may follow; or the
// head of a block.
bool settles(const Row &row) {
  const bool ends_head = row.to == State::kInInvocation || row.to == State::kInService;
  return ends_head || may_have_ended(row.to) || (row.closes > 0 && row.opens != Opens::kValue);
}

const char *end_of_comment(const char *at, const char *end) {
  return std::find_if(at, end, [](char c) { return c >= '\n' && c <= '\r'; });
}

}  // namespace

RemarkList::RemarkList() {
  add = [](Remarks &remarks, Remark remark, bool refused, std::string_view where) {
    auto &list = static_cast<RemarkList &>(remarks);
    if (list.count < list.entries.size()) list.entries[list.count++] = {remark, refused, where};
  };
}

// The decoder is set when it begins, and marks are written before they are told.
// cppcheck-suppress uninitMemberVar
SourceDecoder::SourceDecoder(jt_parser_space &space, Teller &teller, const jt_source_options &options,
                             Purpose purpose)
    : space_(space),
      teller_(teller),
      options_(options),
      purpose_(purpose),
      names_(space.heap),
      element_of_(teller.session().heap) {
  const std::string_view text = teller.text();
  next_nul_ = std::min(text.find('\0'), text.size());
}

// ---- Tokens -----------------------------------------------------------------------------------------------

void SourceDecoder::tell_nuls(std::size_t end) {
  const std::string_view text = teller_.text();
  while (next_nul_ < end) {
    const std::size_t behind = std::min(text.find_first_not_of('\0', next_nul_), text.size());
    tell_code(JT_FINDING_SYNTAX_NUL, {next_nul_, behind});
    next_nul_ = std::min(text.find('\0', behind), text.size());
  }
}

void SourceDecoder::tell_comment(const char *begin, const char *end) {
  const jt_range range = {teller_.offset_of(begin), teller_.offset_of(end)};
  teller_.token(Role::kComment, range, {begin, static_cast<std::size_t>(end - begin)});
  if (!comments_stay_) tell_code(JT_FINDING_COMMENT_MOVES, range);
}

// Between two tokens there is nothing but white space and comments.
void SourceDecoder::tell_comments(std::size_t end) {
  decoder_.cursor.has_comments = false;
  const char *const text = teller_.text().data();
  const char *at = text + last_end_;
  while ((at = std::find(at, text + end, '#')) != text + end) {
    const char *const behind = end_of_comment(at, text + end);
    tell_comment(at, behind);
    at = behind;
  }
}

// A mark that was held back stands alone in front of this token.
void SourceDecoder::tell_held_mark(Opens opens) {
  const jt_range mark = {held_, held_ + 1};
  held_ = kNothing;
  if (opens == Opens::kSection) teller_.open(JT_SOURCE_SECTION, mark.begin);
  teller_.token(Role::kPunctuation, mark, teller_.text().substr(mark.begin, 1));
}

// The node of the innermost element, once it has been made.
void SourceDecoder::remember_node_of(OpenElement &element) {
  if (element.kind == JT_SOURCE_VALUE) return remember_value(element);
  if (!is_element_of(element.kind, decoder_.top->node_class)) return;
  element.bookmark = decoder_.top->bookmark;
  element.head_end = last_end_;
  last_value_ = nullptr;
  remember_name(element);
}

// A value that was refused has no node.
void SourceDecoder::remember_value(OpenElement &element) {
  const jt_node *const value = decoder_.top->last_child;
  if (value == last_value_) return;
  last_value_ = value;
  element.bookmark = value->bookmark;
  if (teller_.wants_handles()) remember_name(element);
}

void SourceDecoder::remember_name(const OpenElement &element) {
  const NamedPlace place = {element.bookmark, name_};
  const bool is_indexed = purpose_ == Purpose::kDecode ||
                          element_of_.set(static_cast<std::size_t>(element.bookmark), element.number, -1);
  if (!is_indexed || !names_.set(static_cast<std::size_t>(element.number), place, {-1, {0, 0}})) {
    report(&space_, message::kAllocation);
    no_memory();
    is_refused_ = true;
  }
}

// Nothing of it is told: the next stage reads it again, or the next token says what it is, or it is the end.
bool SourceDecoder::accept_silently(const Row &row) {
  if (row.role == Role::kHeld) {
    tell_gap(range_of().begin);
    held_ = range_of().begin;
    last_end_ = range_of().end;
  } else if (row.role == Role::kNextStage) {
    tell_held(row.opens);
    for (int i = 0; i < row.closes; ++i) teller_.close(last_end_);
  }
  return !ends();
}

// A string that takes lines along and runs into an error has ended with its first line: what closes it was
// meant to open another one.
void SourceDecoder::shorten_string() {
  const jt_range range = range_of();
  const std::size_t line_end = end_of_line(range.begin);
  if (!runs_into_error(decoder_)) return;
  ran_over_lines_ = true;
  last_string_ = {range.begin, line_end};
  decoder_.cursor.token_end = teller_.text().data() + line_end;
}

bool SourceDecoder::accepted(const Row &row, const Token &token) {
  if (may_have_ended(row.from) && row.opens != Opens::kStatus) teller_.close(last_end_);
  if (row.role >= Role::kHeld || token.kind == TokenKind::kEndOfText) return accept_silently(row);
  if (token.kind == TokenKind::kString && row.opens == Opens::kValue && takes_lines_along()) shorten_string();
  const jt_range range = range_of();
  tell_held(row.opens);
  tell_gap(range.begin);
  if (row.opens != Opens::kNothing && row.opens != Opens::kSection) {
    teller_.open(kKinds[static_cast<std::size_t>(row.opens)], range.begin);
  }
  tell_token(row.role, token);
  remember_node();
  if (next_nul_ < range.end) tell_nuls(range.end);
  if (decoder_.trouble != Trouble::kNone) tell_trouble(range);
  if (row.opens == Opens::kValue) tell_value(token, range);
  if (row.role == Role::kStatus || row.role == Role::kStatusText) tell_status(row.role, token, range);
  if (decoder_.top->node_class == JT_NODE_INVOCATION && !has_known_type(*decoder_.top))
    tell_unknown_service();
  for (int i = 0; i < row.closes; ++i) teller_.close(last_end_);
  if (!is_settled_) is_settled_ = settles(row);
  comments_stay_ = keeps_comments(decoder_, row.to);
  return !ends();
}

bool SourceDecoder::failed(const Machine &machine, const Token &token, Outcome outcome, State &state) {
  jt_finding finding = error_at(machine, token, outcome, state);
  tell_held(Opens::kNothing);
  if (ran_over_lines_) decoder_.cursor.has_comments = false;
  tell_gap(teller_.offset_of(decoder_.cursor.token_begin));
  if (is_worth_telling(finding)) tell(finding);
  begin_failure();
  is_settled_ = false;
  remarks_.count = 0;
  decoder_.trouble = Trouble::kNone;
  const bool can_follow = finding.code != JT_FINDING_MEMORY && finding.code != JT_FINDING_LIMIT &&
                          token.kind != TokenKind::kEndOfText;
  if (purpose_ == Purpose::kDecode || !can_follow || ends()) return false;
  if (finding.code == JT_FINDING_STRING_OVER_LINES) return re_read_string(finding.range.end, state);
  return recover(decoder_, *this, token, state);
}

bool SourceDecoder::is_stuck_at(std::size_t offset) {
  constexpr int kMostRepairs = 4;
  repairs_ = offset == repaired_ ? repairs_ + 1 : 1;
  repaired_ = offset;
  return repairs_ > kMostRepairs;
}

void SourceDecoder::skip(const char *end) {
  tell_gap(range_of().begin);
  last_end_ = std::max(last_end_, teller_.offset_of(end));
}

// What was taken for a string ends where its line does.
bool SourceDecoder::re_read_string(std::size_t line_end, State &state) {
  decoder_.cursor.position = teller_.text().data() + line_end;
  last_end_ = line_end;
  ran_over_lines_ = false;
  if (state == State::kFirstValue || state == State::kNextValue) state = State::kAfterValue;
  return true;
}

// From here on the reports are none that a decode would make.
void SourceDecoder::begin_failure() {
  has_failed_ = true;
  if (purpose_ == Purpose::kDecode) return;
  space_.reports = nullptr;
  space_.errors.is_muted = true;
}

// There is no memory, or no more than the options allow, which is reported: the code of what is found.
std::int32_t SourceDecoder::report_no_memory() {
  const Limit reached = reached_limit(space_);
  if (reached == Limit::kNone) return JT_FINDING_MEMORY;
  report(&space_, message::kLimit, reached == Limit::kHeap ? "heap" : "nodes");
  return JT_FINDING_LIMIT;
}

void SourceDecoder::no_memory() {
  tell_code(report_no_memory(), {last_end_, last_end_});
  begin_failure();
}

// ---- The whole text ---------------------------------------------------------------------------------------

bool SourceDecoder::is_within_limits() {
  const std::size_t size = teller_.text().size();
  if (options_.most_bytes != 0 && size > options_.most_bytes) {
    report(&space_, message::kLimit, "bytes");
    tell_code(JT_FINDING_LIMIT, {options_.most_bytes, size});
    return false;
  }
  if (next_nul_ == size) return true;
  report(&space_, message::kNul);
  if (purpose_ == Purpose::kDecode) tell_nuls(next_nul_ + 1);
  begin_failure();
  return purpose_ == Purpose::kCheck;
}

void SourceDecoder::tell_handles() {
  for (std::size_t number = 0; number < names_.size(); ++number) {
    if (names_[number].bookmark >= 0) {
      teller_.handle(static_cast<std::int32_t>(number), bookmark_to_opaque(names_[number].bookmark));
    }
  }
}

// A check ends with the nodes that it made.
jt_node *SourceDecoder::run() {
  if (!is_within_limits()) return nullptr;
  if (options_.most_nodes != 0 || options_.most_heap != 0) set_limits(space_, limits_of(options_));
  jt_node *root = decode();
  const bool has_passed = reached_limit(space_) != Limit::kNone;
  if (has_passed && !has_failed_) no_memory();
  lift_limits(space_);
  if (root != nullptr && purpose_ == Purpose::kCheck) destroy_all_nodes(&space_, root);
  return root;
}

// What went on without the memory that it wanted, as an index does, has passed the limit all the same.
jt_node *SourceDecoder::decode() {
  jt_node *const root = create_typed_node(&space_, "template", "template", JT_NODE_TEMPLATE, nullptr);
  if (root == nullptr) {
    no_memory();
    return nullptr;
  }
  const std::string_view text = teller_.text();
  begin_decoding(decoder_, space_, *root, text.data(), text.data() + text.size());
  decoder_.remarks = &remarks_;
  const bool decoded = run_stages(decoder_, *this);
  tell_held(Opens::kNothing);
  teller_.close_down_to(0, last_end_);
  if (decoded) {
    tell_gap(text.size());
    tell_nuls(text.size());
  }
  const bool is_whole = decoded && !has_failed_ && reached_limit(space_) == Limit::kNone;
  if (is_whole && purpose_ == Purpose::kDecode) tell_handles();
  const bool succeeds = is_whole && teller_.goes_on();
  if (!succeeds) destroy_all_nodes(&space_, root);
  return succeeds ? root : nullptr;
}

}  // namespace jt_core
