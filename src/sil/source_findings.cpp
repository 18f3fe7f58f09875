// What the observer of a decode finds: in tokens that are accepted, and where decoding ends.
// tests/sil/source_findings_test.cpp
#include <algorithm>

#include "base/error_store.h"
#include "sil/read_back.h"
#include "sil/recovery.h"
#include "sil/source.h"
#include "types/type_tables.h"
#include "types/value_lists.h"

namespace jt_core {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct RemarkCode {
  std::int32_t code;
  std::int32_t severity_when_kept;
};

// By Remark. What is refused is lost.
constexpr std::array<RemarkCode, 8> kRemarkCodes = {{{JT_FINDING_VALUE_MALFORMED, JT_SEVERITY_LOSS},
                                                     {JT_FINDING_VALUE_OUT_OF_RANGE, JT_SEVERITY_WARNING},
                                                     {JT_FINDING_VALUE_SATURATED, JT_SEVERITY_LOSS},
                                                     {JT_FINDING_VALUE_TAIL, JT_SEVERITY_LOSS},
                                                     {JT_FINDING_VALUE_EMPTY_NUMBER, JT_SEVERITY_WARNING},
                                                     {JT_FINDING_VALUE_IMPOSSIBLE, JT_SEVERITY_WARNING},
                                                     {JT_FINDING_VALUE_UNKNOWN_NAME, JT_SEVERITY_WARNING},
                                                     {JT_FINDING_VALUE_ROUNDED, JT_SEVERITY_NOTE}}};

// By LexFault.
constexpr std::array<std::int32_t, 5> kFaultCodes = {JT_FINDING_SYNTAX_STRING, JT_FINDING_SYNTAX_STRING,
                                                     JT_FINDING_SYNTAX_STRING, JT_FINDING_SYNTAX_LENGTH,
                                                     JT_FINDING_SYNTAX_LENGTH};

const char *service_of_table(const TypeTable *table) {
  for (const ServiceTypes &service : services()) {
    if (&service.types == table) return service.name.data();
  }
  return nullptr;
}

// The service whose list of names a family has; null for the list that belongs to none.
const char *service_of_names(const ValueFamily *family) {
  for (const ServiceTypes &service : services()) {
    if (family != nullptr && service.values != nullptr && service.values == family->names) {
      return service.name.data();
    }
  }
  return nullptr;
}

bool is_type_of_a_service(std::string_view name) {
  const auto all = services();
  return std::any_of(all.begin(), all.end(), [name](const ServiceTypes &service) {
    return service.in_templates && find_type_in_scope(&service.types, name).type != nullptr;
  });
}

// A text that is written without quotes is read back as the same, unless it is empty or ends a service. What
// a reference without a name and a qualifier is written as is empty.
bool reads_back_bare(std::string_view text) {
  return !text.empty() && !same_name(text, "end") && text != ":";
}

}  // namespace

// ---- What is found in tokens that are accepted ------------------------------------------------------------

void SourceDecoder::tell(jt_finding &finding) {
  const bool fails = finding.severity == JT_SEVERITY_LOSS && options_.strict != 0 && !has_failed_;
  teller_.finding(finding);
  if (!fails) return;
  report(&space_, message::kStrict, facts_of_code(finding.code).name);
  begin_failure();
  is_refused_ = true;
}

void SourceDecoder::tell_code(std::int32_t code, jt_range range) {
  jt_finding finding = finding_of(code, range);
  tell(finding);
}

void SourceDecoder::tell_trouble(jt_range range) {
  const Trouble trouble = decoder_.trouble;
  decoder_.trouble = Trouble::kNone;
  switch (trouble) {
    case Trouble::kOtherVersion:
      return header_goes_on(decoder_, 2) ? tell_code(JT_FINDING_HEADER_VERSION, range) : void();
    case Trouble::kOtherEncoding:
      return header_goes_on(decoder_, 1) ? tell_code(JT_FINDING_HEADER_ENCODING, range) : void();
    case Trouble::kTextReplaced:
      return tell_code(JT_FINDING_STATUS_TEXT_LOST, previous_word_);
    case Trouble::kUnknownStatus: {
      jt_finding finding = finding_of(JT_FINDING_STATUS_UNKNOWN, range);
      finding.candidates = JT_CANDIDATES_NAMES;
      return tell(finding);
    }
    default:
      return;
  }
}

void SourceDecoder::tell_remarks(const Token &token, jt_range range) {
  const char *const text = teller_.text().data();
  const bool lies_in_text = token.text.data() >= text && token.text.data() <= text + teller_.text().size();
  for (std::size_t i = 0; i < remarks_.count; ++i) {
    const RemarkList::Entry &entry = remarks_.entries[i];
    const RemarkCode &code = kRemarkCodes[static_cast<std::size_t>(entry.remark)];
    const char *const where = entry.where.data();
    jt_finding finding = finding_of(code.code, range);
    if (lies_in_text) {
      finding.range =
          finding.found = {teller_.offset_of(where), teller_.offset_of(where + entry.where.size())};
    }
    finding.severity = entry.refused ? JT_SEVERITY_LOSS : code.severity_when_kept;
    finding.type = decoder_.top->type->name;
    if (entry.remark == Remark::kUnknownName) {
      finding.candidates = JT_CANDIDATES_NAMES;
      finding.scope = service_of_names(decoder_.family);
    }
    tell(finding);
  }
}

// In a statement that is wrong nothing is said of values.
void SourceDecoder::tell_doubtful_value(const Token &token, jt_range range) {
  const bool kept = teller_.innermost()->bookmark >= 0;
  const bool explained = remarks_.count > 0 && remarks_.entries[remarks_.count - 1].refused;
  const bool quoted = decoder_.family != nullptr && decoder_.family->operations->quoted;
  if (is_settled_) tell_remarks(token, range);
  remarks_.count = 0;
  if (!is_settled_) return;
  const jt_node &attribute = *decoder_.top;
  const bool stands_in = !has_known_type(attribute) && attribute.unresolved_type_name == nullptr;
  if (!kept && !explained && !stands_in) tell_code(JT_FINDING_VALUE_DROPPED, range);
  if (kept && !quoted && !reads_back_bare(token.text)) tell_code(JT_FINDING_VALUE_UNSAFE, range);
}

// Statuses and their texts are written without the quotes that they were read with.
void SourceDecoder::tell_status(Role role, const Token &token, jt_range range) {
  if (token.kind == TokenKind::kString && kind_written(token.text) != TokenKind::kWord)
    tell_code(JT_FINDING_STATUS_UNSAFE, range);
  if (role == Role::kStatusText) previous_word_ = range;
}

// Told for the first invocation of a service, where it is found out.
void SourceDecoder::tell_unknown_service() {
  const jt_node &invocation = *decoder_.top;
  if (invocation.node_class != JT_NODE_INVOCATION || has_known_type(invocation)) return;
  const jt_node &service = *invocation.parent;
  const OpenElement *const element = teller_.innermost();
  const bool is_new = element != nullptr && element->kind == JT_SOURCE_INVOCATION &&
                      element->head_end == last_end_ && invocation.first_child == nullptr;
  if (!is_new || service.first_child != &invocation || !has_known_type(service)) return;
  const auto number = static_cast<std::size_t>(teller_.open_at(teller_.depth() - 2).number);
  if (number >= names_.size()) return;
  jt_finding finding = finding_of(JT_FINDING_SERVICE_UNKNOWN, names_[number].name);
  finding.candidates = JT_CANDIDATES_SERVICES;
  tell(finding);
}

// ---- What is found where decoding ends --------------------------------------------------------------------

namespace {

constexpr TokenSet kMarks = one_of(TokenKind::kWord) - 1;

// What a state takes: its marks as a text, its roles as a sum.
void describe_expected(const Machine &machine, State state, jt_finding &finding, char *marks,
                       std::size_t most) {
  TokenSet set = 0;
  const Row *row = machine.rows;
  while (row->from != state && row->from != State::kFinished) ++row;
  for (; row->from == state; ++row) {
    const bool is_mark = row->role == Role::kPunctuation || row->role == Role::kStar ||
                         row->role == Role::kHeld || row->role == Role::kNextStage;
    const bool takes_anything = (row->tokens & kMarks) == (kAnyText & kMarks);
    if (is_mark && !takes_anything) set |= row->tokens & (kMarks | one_of(TokenKind::kEnd));
    if (!is_mark) finding.expected_roles |= std::uint32_t{1} << static_cast<unsigned>(row->role);
  }
  std::size_t length = 0;
  const auto add = [&](std::string_view mark) {
    if (length + mark.size() + 2 > most) return;
    if (length > 0) marks[length++] = ' ';
    length += mark.copy(marks + length, mark.size());
  };
  for (std::size_t kind = 0; kind < kPunctuationBytes.size(); ++kind) {
    if (contains(set, static_cast<TokenKind>(kind))) add(kPunctuationBytes.substr(kind, 1));
  }
  if (contains(set, TokenKind::kEnd)) add("end");
  marks[length] = '\0';
  finding.expected = marks;
}

}  // namespace

// The number of the element that has the first node of a name. What stands in for one that is not whole may have
// none.
std::size_t SourceDecoder::number_of_namesake() const {
  const std::int32_t bookmark = decoder_.first_of_name->bookmark;
  if (purpose_ == Purpose::kCheck) {
    const auto at = static_cast<std::size_t>(bookmark);
    const bool is_known = at < element_of_.size() && element_of_[at] >= 0;
    return is_known ? static_cast<std::size_t>(element_of_[at]) : kNothing;
  }
  std::size_t number = 0;
  while (number < names_.size() && names_[number].bookmark != bookmark) ++number;
  return number < names_.size() ? number : kNothing;
}

void SourceDecoder::describe_taken_name(State state, jt_finding &finding) {
  finding.code = JT_FINDING_NAME_DUPLICATE;
  if (state != State::kAttributeName) finding.range = name_;
  const std::size_t first = number_of_namesake();
  if (first == kNothing || names_[first].name.end == 0) return;
  finding.has_second = 1;
  finding.second = names_[first].name;
}

// The text ends, or a service or its end begins, where a block or a status is still open.
// An element of which only the status may be missing is closed.
void SourceDecoder::describe_unclosed(State state, jt_finding &finding) {
  const OpenElement *block = nullptr;
  const std::size_t closed = may_have_ended(state) ? 1 : 0;
  for (std::size_t level = 0; level + closed < teller_.depth(); ++level) {
    const OpenElement &element = teller_.open_at(level);
    const bool is_block = element.kind == JT_SOURCE_SERVICE || element.kind == JT_SOURCE_INVOCATION;
    if ((is_block && element.bookmark >= 0) || element.kind == JT_SOURCE_STATUS) block = &element;
  }
  if (block == nullptr) return;
  finding.code = JT_FINDING_SYNTAX_UNCLOSED;
  finding.has_second = 1;
  finding.second = {block->begin, std::max(block->head_end, block->begin + 1)};
}

void SourceDecoder::describe_type(const Token &token, jt_finding &finding) const {
  finding.code = is_type_of_a_service(token.text) ? JT_FINDING_ATTRIBUTE_TYPE_OF_OTHER_SERVICE
                                                  : JT_FINDING_ATTRIBUTE_TYPE_UNKNOWN;
  finding.candidates = JT_CANDIDATES_TYPES;
  finding.scope = service_of_table(decoder_.scope);
}

// A mark is missing where only marks can follow, and in the midst of something where the next statement or line
// begins too early. Between statements and blocks nothing is missing: what stands there does not belong there.
bool SourceDecoder::is_missing_before(const Token &token, State state, std::size_t begin) const {
  const Repair repair = facts_of(state).repair;
  const bool mark_follows = state == State::kServiceNamed || state == State::kInvocationNamed ||
                            state == State::kAttributeNamed || state == State::kAfterValue;
  const bool is_between = repair == Repair::kText || repair == Repair::kType || repair == Repair::kService ||
                          repair == Repair::kServices;
  if (token.kind == TokenKind::kEndOfText) return last_end_ > 0;
  if (mark_follows || is_between) return mark_follows;
  const std::string_view gap = teller_.text().substr(last_end_, begin - last_end_);
  return token.kind == TokenKind::kEnd || token.kind == TokenKind::kCloseBrace ||
         gap.find_first_of("\r\n") != std::string_view::npos;
}

void SourceDecoder::describe_wrong_token(const Machine &machine, const Token &token, State state,
                                         jt_finding &finding) {
  const Repair repair = facts_of(state).repair;
  const bool ends_block = ends_block_with(decoder_, token);
  const bool is_word = token.kind == TokenKind::kWord;
  const bool in_service = repair == Repair::kService || repair == Repair::kServiceHead;
  describe_expected(machine, state, finding, expected_, sizeof(expected_));
  if (repair == Repair::kMarker) finding.code = JT_FINDING_END_MARKER;
  if (state == State::kHeaderForm || state == State::kHeaderWord) finding.code = JT_FINDING_HEADER_FORM;
  if (state == State::kSectionForm || state == State::kSectionClosingForm) {
    finding.code = JT_FINDING_BLOCK_ILLEGAL;
  }
  if (state == State::kServiceType && is_word) {
    finding.code = JT_FINDING_SERVICE_TYPE_UNKNOWN;
    finding.candidates = JT_CANDIDATES_SERVICES;
  } else if (ends_block && repair != Repair::kServices && !(token.kind == TokenKind::kEnd && in_service)) {
    describe_unclosed(state, finding);
  } else if (repair == Repair::kType && (is_word || token.kind == TokenKind::kOpenBrace)) {
    const char *const behind = decoder_.cursor.position;
    if (token.kind == TokenKind::kOpenBrace || begins_block(decoder_, behind)) {
      describe_unclosed(state, finding);
    } else if (find_type_in_scope(decoder_.scope, token.text).type == nullptr) {
      describe_type(token, finding);
    }
  }
  const bool can_be_missing =
      finding.code == JT_FINDING_SYNTAX_EXPECTED || finding.code == JT_FINDING_END_MARKER;
  const bool is_unclosed = finding.code == JT_FINDING_SYNTAX_UNCLOSED;
  if (is_unclosed || (can_be_missing && is_missing_before(token, state, finding.range.begin))) {
    finding.range = {last_end_, last_end_};
  }
}

// An end of a text where its header promises more is one of the marker that is missing.
void SourceDecoder::describe_end(const Token &token, State state, jt_finding &finding) {
  if (token.kind == TokenKind::kLess) {
    finding.code = JT_FINDING_BLOCK_ILLEGAL;
    return;
  }
  finding.range = {last_end_, last_end_};
  if (state == State::kBetweenServices || state == State::kAfterService) {
    finding.code = JT_FINDING_END_MARKER;
  } else {
    describe_unclosed(state, finding);
  }
}

void SourceDecoder::describe_bad_string(jt_finding &finding) {
  const std::size_t stopped = teller_.offset_of(decoder_.cursor.position);
  finding.code = kFaultCodes[static_cast<std::size_t>(decoder_.cursor.fault)];
  finding.range.end = finding.found.end = stopped;
  const std::size_t line_end = end_of_line(finding.range.begin);
  const bool is_string = decoder_.cursor.fault != LexFault::kCommentTooLong && line_end < stopped;
  if (!is_string) return;
  finding.code = JT_FINDING_STRING_OVER_LINES;
  finding.range.end = line_end;
}

std::size_t SourceDecoder::end_of_line(std::size_t offset) const {
  return std::min(teller_.text().find_first_of("\r\n", offset), teller_.text().size());
}

jt_finding SourceDecoder::error_at(const Machine &machine, const Token &token, Outcome outcome, State state) {
  jt_finding finding = finding_of(JT_FINDING_SYNTAX_EXPECTED, range_of());
  finding.found_is_end = token.kind == TokenKind::kEndOfText ? 1 : 0;
  if (decoder_.trouble == Trouble::kNameTaken) {
    describe_taken_name(state, finding);
  } else if (decoder_.trouble == Trouble::kTooLong) {
    finding.code = JT_FINDING_SYNTAX_LENGTH;
  } else if (decoder_.trouble == Trouble::kBlockEnd) {
    describe_end(token, state, finding);
  } else if (outcome == Outcome::kStopped || token.kind == TokenKind::kComment) {
    finding.code = report_no_memory();
  } else if (ran_over_lines_) {
    finding.code = JT_FINDING_STRING_OVER_LINES;
    finding.range = last_string_;
  } else if (token.kind == TokenKind::kError) {
    describe_bad_string(finding);
  } else if (state == State::kHeaderBegin && token.text.starts_with(kByteOrderMark)) {
    finding.code = JT_FINDING_TEXT_BOM;
    finding.range.end = finding.range.begin + kByteOrderMark.size();
  } else {
    describe_wrong_token(machine, token, state, finding);
  }
  return finding;
}

// Nothing is said of what the scope of a block would decide, where that is not known, nor of a name that nobody
// wrote before; but a decode that fails always has its finding.
bool SourceDecoder::is_worth_telling(const jt_finding &finding) const {
  if (!has_failed_) return true;
  if (finding.code == JT_FINDING_NAME_DUPLICATE && finding.has_second == 0) return false;
  const bool asks_scope = finding.code == JT_FINDING_ATTRIBUTE_TYPE_UNKNOWN ||
                          finding.code == JT_FINDING_ATTRIBUTE_TYPE_OF_OTHER_SERVICE;
  const jt_node &block =
      decoder_.top->node_class == JT_NODE_ATTRIBUTE ? *decoder_.top->parent : *decoder_.top;
  const bool has_no_scope = block.node_class == JT_NODE_INVOCATION && !has_known_type(block);
  return is_settled_ && !(asks_scope && has_no_scope);
}

}  // namespace jt_core
