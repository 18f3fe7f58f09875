#include "sil/recovery.h"

#include <algorithm>

#include "sil/actions.h"
#include "sil/source.h"
#include "tree/construction.h"
#include "tree/links.h"
#include "types/type_tables.h"

namespace jt_core {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// ---- What stands ahead ------------------------------------------------------------------------------------

// Reads on from a place; what is wrong there is reported when it is read in earnest.
class Lookahead {
 public:
  Lookahead(const SilCursor &cursor, const char *at) {
    cursor_.position = cursor_.mark = at;
    cursor_.begin = cursor.begin;
    cursor_.end = cursor.end;
  }

  // What was read last is not taken along: its buffer is large.
  Lookahead(const Lookahead &other) : Lookahead(other.cursor_, other.cursor_.position) {}
  ~Lookahead() = default;
  Lookahead &operator=(const Lookahead &) = delete;

  Token next() {
    Token token = look_at_token(cursor_);
    while (token.kind == TokenKind::kComment) token = look_at_token(cursor_);
    return token;
  }

  const SilCursor &cursor() const { return cursor_; }

 private:
  SilCursor cursor_;
};

bool is_type_here(const Decoder &decoder, std::string_view name) {
  return find_type_in_scope(decoder.scope, name).type != nullptr;
}

// Where reading goes on behind an error.
enum class Landmark : std::uint8_t {
  kNone,
  kStatement,  // a type in scope, a name, then "=" or ";"
  kSemicolon,
  kOpenBrace,
  kNamedBrace,  // a word and a "{"
  kCloseBrace,
  kCloseParenthesis,
  kEnd,
  kService,  // "[" and two words
  kMarks,    // "<" and what may follow it in marks
  kLess,     // any other "<"
  kGreater,
  kEndOfText
};

using LandmarkSet = std::uint32_t;

template <typename... Landmarks>
constexpr LandmarkSet landmarks(Landmarks... each) {
  return ((LandmarkSet{1} << static_cast<unsigned>(each)) | ...);
}

constexpr LandmarkSet kBlockEnds = landmarks(Landmark::kEnd, Landmark::kService, Landmark::kMarks);

bool is_marks(Lookahead ahead) {
  const Token next = ahead.next();
  return next.kind == TokenKind::kQuestion || next.kind == TokenKind::kExclamation ||
         next.text.starts_with('/');
}

bool is_service(Lookahead ahead) {
  return ahead.next().kind == TokenKind::kWord && ahead.next().kind == TokenKind::kWord;
}

// The word "end" where it is meant as a name or a value.
bool is_misplaced_end(Lookahead ahead) {
  const TokenKind next = ahead.next().kind;
  return next == TokenKind::kSemicolon || next == TokenKind::kComma || next == TokenKind::kEquals;
}

// Behind a word: the text of a status in its braces.
bool is_status_text(Lookahead ahead) {
  TokenKind next = ahead.next().kind;
  if (next != TokenKind::kOpenBrace) return false;
  while (contains(kWordOrString, next = ahead.next().kind)) continue;
  return next == TokenKind::kCloseBrace && ahead.next().kind == TokenKind::kCloseParenthesis;
}

// Behind a word: the rest of the head of a service.
bool is_service_head(Lookahead ahead) {
  return ahead.next().kind == TokenKind::kWord && ahead.next().kind == TokenKind::kCloseBracket;
}

[[gnu::cold]] Landmark landmark_of_word(const Decoder &decoder, std::string_view word, Lookahead ahead) {
  if (is_status_text(ahead)) return Landmark::kNone;
  const TokenKind next = ahead.next().kind;
  if (next == TokenKind::kOpenBrace) return Landmark::kNamedBrace;
  if (next != TokenKind::kWord || !is_type_here(decoder, word)) return Landmark::kNone;
  const TokenKind behind = ahead.next().kind;
  const bool is_statement = behind == TokenKind::kEquals || behind == TokenKind::kSemicolon;
  return is_statement ? Landmark::kStatement : Landmark::kNone;
}

// What begins with this token, behind which the cursor stands.
[[gnu::cold]] Landmark landmark_at(const Decoder &decoder, const Token &token, const SilCursor &cursor) {
  const Lookahead ahead(cursor, cursor.position);
  switch (token.kind) {
    case TokenKind::kSemicolon:
      return Landmark::kSemicolon;
    case TokenKind::kOpenBrace:
      return Landmark::kOpenBrace;
    case TokenKind::kCloseBrace:
      return Landmark::kCloseBrace;
    case TokenKind::kCloseParenthesis:
      return Landmark::kCloseParenthesis;
    case TokenKind::kGreater:
      return Landmark::kGreater;
    case TokenKind::kEnd:
      return is_misplaced_end(ahead) ? Landmark::kNone : Landmark::kEnd;
    case TokenKind::kEndOfText:
      return Landmark::kEndOfText;
    case TokenKind::kOpenBracket:
      return is_service(ahead) ? Landmark::kService : Landmark::kNone;
    case TokenKind::kLess:
      return is_marks(ahead) ? Landmark::kMarks : Landmark::kLess;
    case TokenKind::kWord:
      return landmark_of_word(decoder, token.text, ahead);
    case TokenKind::kAsterisk: {
      Lookahead behind = ahead;
      const Token type = behind.next();
      if (type.kind != TokenKind::kWord) return Landmark::kNone;
      const Landmark found = landmark_of_word(decoder, type.text, behind);
      return found == Landmark::kStatement ? found : Landmark::kNone;
    }
    default:
      return Landmark::kNone;
  }
}

// ---- One recovery -----------------------------------------------------------------------------------------

class Recovery {
 public:
  Recovery(Decoder &decoder, SourceDecoder &source, const Token &token, State &state)
      : decoder_(decoder), source_(source), token_(token), state_(state) {}

  [[gnu::cold]] bool run();

 private:
  [[gnu::cold]] bool on_text();
  [[gnu::cold]] bool on_frame();
  [[gnu::cold]] bool on_services();
  [[gnu::cold]] bool on_service_head();
  [[gnu::cold]] bool on_service();
  [[gnu::cold]] bool on_type();
  [[gnu::cold]] bool on_name();
  [[gnu::cold]] bool skip_status();
  [[gnu::cold]] bool on_statement();
  [[gnu::cold]] bool on_status();

  std::size_t offset() const { return source_.teller().offset_of(begin()); }
  // Where the token begins, and the text as it is written.
  const char *begin() const { return decoder_.cursor.token_begin; }
  std::string_view written() const {
    return {begin(), static_cast<std::size_t>(decoder_.cursor.token_end - begin())};
  }
  TokenKind next_kind() const { return Lookahead(decoder_.cursor, decoder_.cursor.position).next().kind; }
  bool begins_statement() const {
    Lookahead ahead(decoder_.cursor, decoder_.cursor.position);
    const Token next = ahead.next();
    return landmark_at(decoder_, next, ahead.cursor()) == Landmark::kStatement;
  }
  // The beginning of marks of a header or a section that lack their "<".
  bool is_form() const {
    const TokenKind next = next_kind();
    const bool is_mark = token_.kind == TokenKind::kQuestion || token_.kind == TokenKind::kExclamation;
    if (state_ == State::kSectionBegin) return is_mark && next == TokenKind::kGreater;
    return next == TokenKind::kWord && (is_mark || same_name(token_.text, "SIL"));
  }
  // The same of the marks that close a section.
  bool is_closing_form() const {
    const TokenKind next = next_kind();
    return token_.text == "/" && (next == TokenKind::kQuestion || next == TokenKind::kExclamation);
  }
  Landmark landmark() const { return landmark_at(decoder_, token_, decoder_.cursor); }

  // Goes on in a state; the token is read again there, or has been taken.
  bool again(State state) {
    decoder_.cursor.position = begin();
    return taken(state);
  }
  // The token is told as what it is meant as, or passed over.
  void tell(Role role) {
    source_.tell_gap(offset());
    source_.tell_token(role, token_);
  }
  bool passed(State state) {
    source_.skip(decoder_.cursor.token_end);
    return taken(state);
  }
  bool taken(State state) {
    state_ = state;
    return true;
  }
  bool settled(bool goes_on) {
    source_.settle();
    return goes_on;
  }

  [[gnu::cold]] void skip_token();
  [[gnu::cold]] Landmark skip_to(LandmarkSet wanted);
  [[gnu::cold]] bool leave_to(std::int32_t node_class);
  [[gnu::cold]] bool stand_in(const jt_type *type, std::string_view name, std::int32_t node_class);
  [[gnu::cold]] bool stand_in_attribute(std::string_view name);
  [[gnu::cold]] bool stand_in_invocation(std::string_view name);
  [[gnu::cold]] bool stand_in_service();
  [[gnu::cold]] bool go_on_at(Landmark found);
  [[gnu::cold]] bool is_in(std::int32_t node_class) const;
  [[gnu::cold]] bool ends_header() const;

  Decoder &decoder_;
  SourceDecoder &source_;
  Token token_;
  State &state_;
};

void Recovery::skip_token() {
  if (token_.kind == TokenKind::kError) {
    const char *const end = decoder_.cursor.end;
    const char *const least = std::min(begin() + 1, end);
    decoder_.cursor.position = std::find_if(least, end, [](char c) { return c == '\n' || c == '\r'; });
    decoder_.cursor.token_end = decoder_.cursor.position;
  }
  if (token_.kind != TokenKind::kComment) source_.skip(decoder_.cursor.token_end);
}

// Skips tokens, beginning with the one that was read last, to one of the landmarks; it is the last token then.
// A quote that is not closed ends with its line; a brace that is skipped takes the one that closes it along.
Landmark Recovery::skip_to(LandmarkSet wanted) {
  wanted |= landmarks(Landmark::kEndOfText);
  std::size_t depth = 0;
  for (;;) {
    const Landmark found = landmark();
    const bool closes_skipped = token_.kind == TokenKind::kCloseBrace && depth > 0;
    const bool is_wanted = (wanted >> static_cast<unsigned>(found) & 1U) != 0 && found != Landmark::kNone;
    if (is_wanted && !closes_skipped) return found;
    if (token_.kind == TokenKind::kOpenBrace) ++depth;
    if (closes_skipped) --depth;
    skip_token();
    token_ = look_at_token(decoder_.cursor);
  }
}

bool Recovery::is_in(std::int32_t node_class) const {
  const jt_node *node = decoder_.top;
  while (node != nullptr && node->node_class != node_class) node = node->parent;
  return node != nullptr;
}

// How many elements stay open when a node of a class is the innermost block.
std::size_t depth_of_class(const Teller &teller, std::int32_t node_class) {
  const std::int32_t most = node_class == JT_NODE_TEMPLATE     ? JT_SOURCE_SECTION
                            : node_class == JT_NODE_SERVICE    ? JT_SOURCE_SERVICE
                            : node_class == JT_NODE_INVOCATION ? JT_SOURCE_INVOCATION
                            : node_class == JT_NODE_ATTRIBUTE  ? JT_SOURCE_ATTRIBUTE
                                                               : JT_SOURCE_HEADER;
  std::size_t depth = 0;
  while (depth < teller.depth() && teller.open_at(depth).kind <= most) ++depth;
  return depth;
}

// Closes blocks until one of the class is the innermost; without one the innermost stays.
bool Recovery::leave_to(std::int32_t node_class) {
  if (is_in(node_class)) {
    while (decoder_.top->node_class != node_class) decoder_.top = decoder_.top->parent;
  }
  source_.teller().close_down_to(depth_of_class(source_.teller(), node_class), source_.last_end());
  return true;
}

bool Recovery::stand_in(const jt_type *type, std::string_view name, std::int32_t node_class) {
  jt_node *const node = make_typed_node(*decoder_.space, type, nullptr, name, node_class);
  if (node == nullptr) return false;
  append_child(*decoder_.space, *decoder_.top, *node);
  decoder_.top = node;
  source_.remember_node();
  return true;
}

bool Recovery::stand_in_attribute(std::string_view name) {
  return stand_in(decoder_.type != nullptr ? decoder_.type : unknown_type(), name, JT_NODE_ATTRIBUTE);
}

bool Recovery::stand_in_invocation(std::string_view name) {
  decoder_.name_bits = {};
  const std::string_view service = view_of(decoder_.top->name);
  decoder_.scope = find_service_table(service);
  const jt_type *const type =
      decoder_.scope != nullptr ? find_type_in_scope(decoder_.scope, service).type : nullptr;
  return stand_in(type != nullptr ? type : unknown_type(), name, JT_NODE_INVOCATION);
}

bool Recovery::stand_in_service() {
  return stand_in(decoder_.type != nullptr ? decoder_.type : unknown_type(), decoder_.kept, JT_NODE_SERVICE);
}

// ---- The repairs ------------------------------------------------------------------------------------------

// In front of everything a byte order mark is passed over, anything else up to where something can begin. Marks
// without their "<" are read as if they had it.
bool Recovery::on_text() {
  if (token_.text.starts_with(kByteOrderMark)) {
    decoder_.cursor.position = begin() + kByteOrderMark.size();
    source_.skip(decoder_.cursor.position);
    return settled(taken(state_));
  }
  constexpr LandmarkSet kWanted =
      landmarks(Landmark::kService, Landmark::kMarks, Landmark::kLess, Landmark::kEndOfText);
  while (!is_form() && (kWanted >> static_cast<unsigned>(landmark()) & 1U) == 0) {
    skip_token();
    token_ = look_at_token(decoder_.cursor);
  }
  if (token_.kind == TokenKind::kEndOfText) return false;
  if (!is_form()) return settled(again(state_));
  const bool in_header = state_ == State::kHeaderBegin;
  source_.tell_gap(offset());
  source_.teller().open(in_header ? JT_SOURCE_HEADER : JT_SOURCE_SECTION, offset());
  return again(in_header ? State::kHeaderForm : State::kSectionForm);
}

// The stage has what it can get: up to its ">", or to what can only stand behind that.
bool Recovery::on_frame() {
  if (state_ == State::kHeaderSaved) return again(State::kFinished);
  const bool is_second = state_ == State::kHeaderForm || state_ == State::kSectionForm;
  if (is_second && token_.kind == TokenKind::kLess) return passed(state_);
  if (state_ == State::kSectionFilled && is_closing_form()) return again(State::kSectionSlash);
  const LandmarkSet attributes = state_ == State::kHeaderEnd ? landmarks(Landmark::kStatement) : 0;
  const Landmark found = skip_to(
      attributes | landmarks(Landmark::kGreater, Landmark::kService, Landmark::kMarks, Landmark::kLess));
  if (found == Landmark::kEndOfText) return false;
  if (decoder_.header_class == JT_NODE_HEADER) decoder_.header_class = JT_NODE_HEADER_PLAIN;
  if (is_header(*decoder_.top)) decoder_.top->node_class = decoder_.header_class;
  if (found != Landmark::kGreater) return settled(again(State::kFinished));
  tell(Role::kPunctuation);
  return settled(taken(State::kFinished));
}

// Marks that no header promises are passed over. A service without its bracket is read as if it had it.
bool Recovery::on_services() {
  leave_to(JT_NODE_TEMPLATE);
  const State begin = state_ == State::kSectionContent ? State::kSectionContent : State::kBetweenServices;
  if (token_.kind == TokenKind::kWord && is_service_head({decoder_.cursor, decoder_.cursor.position})) {
    if (begin == State::kSectionContent) return again(State::kFinished);
    source_.teller().open(JT_SOURCE_SERVICE, offset());
    return again(State::kServiceType);
  }
  const bool has_end = has_header(*decoder_.top);
  const bool in_section = decoder_.top != decoder_.root && begin == State::kBetweenServices;
  if (in_section && is_closing_form()) return again(State::kFinished);
  if (!has_end && token_.kind == TokenKind::kLess) skip_to(landmarks(Landmark::kGreater, Landmark::kService));
  const LandmarkSet ends = has_end ? landmarks(Landmark::kMarks) : 0;
  const Landmark found = skip_to(landmarks(Landmark::kService) | ends);
  return found != Landmark::kEndOfText && settled(again(begin));
}

bool Recovery::on_service_head() {
  const bool is_text = contains(kWordOrString | one_of(TokenKind::kEnd), token_.kind);
  const TokenKind next = next_kind();
  if (state_ == State::kServiceType && is_text) {
    decoder_.type = unknown_type();
    tell(Role::kServiceType);
    return taken(State::kServiceName);
  }
  if (state_ == State::kServiceName && is_text && next == TokenKind::kCloseBracket) {
    decoder_.kept = written();
    tell(Role::kServiceName);
    return taken(State::kServiceNamed);
  }
  if (state_ == State::kServiceNamed && is_text && next == TokenKind::kCloseBracket) return passed(state_);
  if (state_ == State::kServiceType) decoder_.type = unknown_type();
  if (state_ != State::kServiceNamed) {
    source_.forget_name();
    decoder_.kept = decoder_.type != unknown_type() ? view_of(decoder_.type->name) : std::string_view();
  }
  const bool is_closed = token_.kind == TokenKind::kCloseBracket;
  if (is_closed) tell(Role::kPunctuation);
  if (!stand_in_service()) return false;
  if (is_closed) return settled(taken(State::kInService));
  state_ = State::kInService;
  return on_service();
}

bool Recovery::go_on_at(Landmark found) {
  switch (found) {
    case Landmark::kOpenBrace:
    case Landmark::kNamedBrace:
    case Landmark::kEnd:
      leave_to(JT_NODE_SERVICE);
      return again(State::kInService);
    case Landmark::kService:
    case Landmark::kMarks:
      leave_to(JT_NODE_TEMPLATE);
      return settled(again(State::kBetweenServices));
    default:
      return false;
  }
}

bool Recovery::on_service() {
  constexpr LandmarkSet kWanted =
      kBlockEnds | landmarks(Landmark::kOpenBrace, Landmark::kNamedBrace, Landmark::kStatement);
  const bool is_text = contains(kWordOrString, token_.kind);
  const bool is_named = state_ == State::kInvocationNamed;
  if (is_named && token_.kind == TokenKind::kOpenBrace) {
    tell(Role::kPunctuation);
    return stand_in_invocation(decoder_.kept) && settled(taken(State::kInInvocation));
  }
  if (is_named && is_text && next_kind() == TokenKind::kOpenBrace && landmark() != Landmark::kStatement) {
    return passed(state_);
  }
  // A name that will not do has ended the invocation before it already.
  if (decoder_.top->node_class == JT_NODE_SERVICE && state_ == State::kAfterInvocation) {
    leave_to(JT_NODE_SERVICE);
    state_ = State::kInService;
  }
  if (!is_named && is_text && next_kind() == TokenKind::kOpenBrace) {
    leave_to(JT_NODE_SERVICE);
    source_.teller().open(JT_SOURCE_INVOCATION, offset());
    tell(Role::kInvocationName);
    decoder_.kept = written();
    return taken(State::kInvocationNamed);
  }
  const Landmark found = skip_to(kWanted | (is_named ? landmarks(Landmark::kCloseBrace) : LandmarkSet{0}));
  if (found != Landmark::kStatement && found != Landmark::kCloseBrace) return go_on_at(found);
  if (state_ == State::kAfterInvocation) return settled(again(State::kInInvocation));
  if (!is_named) source_.teller().open(JT_SOURCE_INVOCATION, offset());
  if (!stand_in_invocation(is_named ? decoder_.kept : std::string_view())) return false;
  return settled(again(State::kInInvocation));
}

// What can stand in no attribute of a header: a section or a service whose first mark is missing, and what is in
// services.
bool Recovery::ends_header() const {
  const Landmark here = landmark();
  const bool is_mark = token_.kind == TokenKind::kQuestion || token_.kind == TokenKind::kExclamation;
  return is_mark || here == Landmark::kOpenBrace || here == Landmark::kNamedBrace || here == Landmark::kEnd ||
         (token_.kind == TokenKind::kWord && is_service_head({decoder_.cursor, decoder_.cursor.position}));
}

// A type that is not known is taken with its statement; what closes or opens a block ends the invocation.
bool Recovery::on_type() {
  const bool in_header = !is_in(JT_NODE_INVOCATION);
  if (token_.kind == TokenKind::kSemicolon && decoder_.top->node_class == JT_NODE_ATTRIBUTE) {
    return settled(passed(State::kAfterAttribute));
  }
  if (decoder_.top->node_class == JT_NODE_ATTRIBUTE) decoder_.top = decoder_.top->parent;
  const bool is_starred = state_ == State::kStarredType;
  source_.teller().close_down_to(
      depth_of_class(source_.teller(), in_header ? JT_NODE_HEADER : JT_NODE_INVOCATION) +
          (is_starred ? 1 : 0),
      source_.last_end());
  const bool is_text = contains(kWordOrString, token_.kind);
  if (in_header && ends_header()) return again(State::kFinished);
  if (is_text && begins_statement()) return passed(is_starred ? State::kStarredType : State::kInInvocation);
  if (is_text && next_kind() == TokenKind::kWord) {
    if (!is_starred) {
      source_.teller().open(JT_SOURCE_ATTRIBUTE, offset());
      decoder_.non_compulsory = false;
    }
    decoder_.type = unknown_type();
    decoder_.family = nullptr;
    tell(Role::kAttributeType);
    return taken(State::kAttributeName);
  }
  const Landmark here = landmark();
  const bool ends_invocation = here == Landmark::kOpenBrace || here == Landmark::kNamedBrace ||
                               here == Landmark::kEnd || here == Landmark::kService ||
                               here == Landmark::kMarks;
  if (!in_header && ends_invocation) return again(State::kAfterInvocation);
  return on_statement();
}

bool Recovery::on_name() {
  const bool is_text = contains(kWordOrString | one_of(TokenKind::kEnd), token_.kind);
  const TokenKind next = next_kind();
  const bool goes_on = next == TokenKind::kEquals || next == TokenKind::kSemicolon;
  if (is_text && goes_on) {
    const std::string_view name = written().substr(0, JT_MAX_TOKEN_LENGTH - 1);
    tell(Role::kAttributeName);
    return stand_in_attribute(name) && taken(State::kAttributeNamed);
  }
  if (token_.kind == TokenKind::kEquals) return stand_in_attribute({}) && again(State::kAttributeNamed);
  return on_statement();
}

// The status of an attribute that is not there.
bool Recovery::skip_status() {
  token_ = look_at_token(decoder_.cursor);
  const Landmark found =
      skip_to(landmarks(Landmark::kCloseParenthesis, Landmark::kStatement, Landmark::kCloseBrace,
                        Landmark::kEnd, Landmark::kService, Landmark::kMarks));
  if (found == Landmark::kEndOfText) return false;
  return settled(found == Landmark::kCloseParenthesis ? passed(State::kInInvocation)
                                                      : again(State::kInInvocation));
}

// The rest of a statement is skipped.
bool Recovery::on_statement() {
  constexpr LandmarkSet kWanted =
      landmarks(Landmark::kSemicolon, Landmark::kStatement, Landmark::kService, Landmark::kMarks);
  constexpr LandmarkSet kWantedInBody = kWanted | landmarks(Landmark::kEnd, Landmark::kCloseBrace);
  const bool in_header = !is_in(JT_NODE_INVOCATION);
  const bool is_value = state_ == State::kFirstValue || state_ == State::kNextValue;
  if (is_value && token_.kind == TokenKind::kWord && token_.text.size() > JT_MAX_TOKEN_LENGTH) {
    return passed(State::kAfterValue);
  }
  const Landmark found = skip_to(in_header ? kWanted : kWantedInBody);
  if (found == Landmark::kEndOfText) return false;
  if (found == Landmark::kSemicolon && decoder_.top->node_class == JT_NODE_ATTRIBUTE) {
    tell(Role::kPunctuation);
    return settled(taken(State::kAfterAttribute));
  }
  leave_to(in_header ? std::int32_t{decoder_.header_class} : JT_NODE_INVOCATION);
  if (found == Landmark::kSemicolon) {
    skip_token();
    return next_kind() == TokenKind::kOpenParenthesis ? skip_status() : settled(taken(State::kInInvocation));
  }
  const bool ends_block = found != Landmark::kStatement && found != Landmark::kCloseBrace;
  if (!in_header && ends_block) return again(State::kAfterInvocation);
  return settled(again(State::kInInvocation));
}

bool Recovery::on_status() {
  constexpr LandmarkSet kWantedInHeader =
      landmarks(Landmark::kCloseParenthesis, Landmark::kStatement, Landmark::kSemicolon, Landmark::kService,
                Landmark::kMarks);
  constexpr LandmarkSet kWanted = kWantedInHeader | landmarks(Landmark::kEnd, Landmark::kNamedBrace);
  const bool in_header = !is_in(JT_NODE_SERVICE);
  const std::int32_t of = decoder_.top->node_class;
  const State behind = of == JT_NODE_SERVICE      ? State::kBetweenServices
                       : of == JT_NODE_INVOCATION ? State::kInService
                                                  : State::kInInvocation;
  const Landmark found = skip_to(in_header ? kWantedInHeader : kWanted);
  if (found == Landmark::kEndOfText) return false;
  const bool is_taken = found == Landmark::kCloseParenthesis || found == Landmark::kSemicolon;
  if (is_taken) tell(Role::kPunctuation);
  decoder_.top = decoder_.top->parent;
  source_.teller().close(source_.last_end());
  source_.teller().close(source_.last_end());
  if (is_taken) return settled(taken(behind));
  const bool ends_invocation = behind == State::kInInvocation && found != Landmark::kStatement;
  return ends_invocation && !in_header ? again(State::kAfterInvocation) : settled(again(behind));
}

// Repairs hand a token on to each other; one that none of them has an end for is skipped.
bool Recovery::run() {
  if (source_.is_stuck_at(offset())) {
    skip_token();
    return taken(state_);
  }
  switch (facts_of(state_).repair) {
    case Repair::kText:
      return on_text();
    case Repair::kFrame:
      return on_frame();
    case Repair::kServices:
      return on_services();
    case Repair::kServiceHead:
      return on_service_head();
    case Repair::kService:
      return on_service();
    case Repair::kType:
      return on_type();
    case Repair::kName:
      return on_name();
    case Repair::kStatement:
      return on_statement();
    case Repair::kStatus:
      return on_status();
    case Repair::kMarker:
      return false;
  }
  return false;
}

}  // namespace

bool recover(Decoder &decoder, SourceDecoder &source, const Token &token, State &state) {
  return Recovery(decoder, source, token, state).run();
}

bool runs_into_error(const Decoder &decoder) {
  Lookahead ahead(decoder.cursor, decoder.cursor.position);
  const Token token = ahead.next();
  const bool may_follow = token.kind == TokenKind::kComma || token.kind == TokenKind::kSemicolon ||
                          token.kind == TokenKind::kEndOfText;
  return !may_follow && landmark_at(decoder, token, ahead.cursor()) != Landmark::kStatement;
}

bool header_goes_on(const Decoder &decoder, int words) {
  Lookahead ahead(decoder.cursor, decoder.cursor.position);
  for (; words > 0; --words) {
    if (!contains(kWordOrString, ahead.next().kind)) return false;
  }
  return ahead.next().kind == TokenKind::kGreater;
}

bool ends_block_with(const Decoder &decoder, const Token &token) {
  const Landmark found = landmark_at(decoder, token, decoder.cursor);
  return found == Landmark::kEndOfText || found == Landmark::kEnd || found == Landmark::kService ||
         found == Landmark::kMarks;
}

bool begins_block(const Decoder &decoder, const char *at) {
  return Lookahead(decoder.cursor, at).next().kind == TokenKind::kOpenBrace;
}

}  // namespace jt_core
