// The body machine: services with their invocations, attributes, values and statuses, in a template or in a
// section. The rows of attributes serve the header's own attributes too, which only end differently.
#include <cstring>

#include "base/error_store.h"
#include "base/memory.h"
#include "sil/decoder.h"
#include "tree/child_index.h"
#include "tree/construction.h"
#include "tree/links.h"
#include "tree/node_storage.h"
#include "tree/type_lookup.h"
#include "types/status.h"
#include "types/type_tables.h"

namespace jt_core {
namespace {

constexpr std::size_t kMostName = JT_MAX_TOKEN_LENGTH - 1;
constexpr std::size_t kMostValue = JT_MAX_TOKEN_LENGTH;

Outcome accepted_if(bool condition) { return condition ? Outcome::kAccepted : Outcome::kRefused; }

// ---- Blocks -----------------------------------------------------------------------------------------------

// Whether a block is known to be the first of its name.
enum class Novelty { kUnknown, kFirst };

// Hangs a new node under the innermost block and makes it that block. Its type fits, having just been looked
// up there; an unknown one warns once more.
Outcome open_block(Decoder &decoder, jt_node *node, Novelty novelty = Novelty::kUnknown) {
  if (node == nullptr) return Outcome::kStopped;
  jt_parser_space *const space = decoder.space;
  if (!has_known_type(*node)) {
    report_unknown_type(space, node->node_class, view_of(node->unresolved_type_name));
  }
  const bool may_be_there = novelty == Novelty::kUnknown && node->name != nullptr;
  if (may_be_there && find_namesake(*decoder.top, *node) != nullptr) {
    report(space, message::kDuplicateName, node->name);
    destroy_node(space, node);
    return Outcome::kStopped;
  }
  append_child(*space, *decoder.top, *node);
  decoder.top = node;
  return Outcome::kAccepted;
}

Outcome close_block(Decoder &decoder, const Token & /*token*/) {
  decoder.top = decoder.top->parent;
  return Outcome::kAccepted;
}

bool is_name(const Decoder &decoder, const Token &token) {
  if (token.text.size() <= kMostName) return true;
  report(decoder.space, message::kNameTooLong, token.text);
  return false;
}

Outcome keep_name(Decoder &decoder, const Token &token) {
  return is_name(decoder, token) ? keep_word(decoder, token) : Outcome::kRefused;
}

Outcome keep_type(Decoder &decoder, const Token &token, std::int32_t node_class) {
  decoder.type = look_up_type(decoder.space, token.text, node_class, decoder.top);
  return accepted_if(decoder.type != nullptr && decoder.type != unknown_type());
}

// ---- Services and invocations -----------------------------------------------------------------------------

Outcome keep_service_type(Decoder &decoder, const Token &token) {
  return keep_type(decoder, token, JT_NODE_SERVICE);
}

Outcome open_service(Decoder &decoder, const Token & /*token*/) {
  return open_block(decoder,
                    make_typed_node(*decoder.space, decoder.type, nullptr, decoder.kept, JT_NODE_SERVICE));
}

Outcome open_invocation(Decoder &decoder, std::string_view name) {
  const char *const type_name = decoder.top->name;
  const jt_type *const type =
      look_up_type(decoder.space, view_of(type_name), JT_NODE_INVOCATION, decoder.top);
  decoder.scope = find_table_of_row(type);
  decoder.name_bits = 0;
  return open_block(decoder, make_typed_node(*decoder.space, type, type_name, name, JT_NODE_INVOCATION));
}

Outcome open_named_invocation(Decoder &decoder, const Token & /*token*/) {
  return open_invocation(decoder, decoder.kept);
}

Outcome open_unnamed_invocation(Decoder &decoder, const Token & /*token*/) {
  return open_invocation(decoder, {});
}

Outcome next_unnamed_invocation(Decoder &decoder, const Token &token) {
  close_block(decoder, token);
  return open_invocation(decoder, {});
}

Outcome next_named_invocation(Decoder &decoder, const Token &token) {
  close_block(decoder, token);
  return keep_name(decoder, token);
}

// ---- Attributes and values --------------------------------------------------------------------------------

Outcome set_star(Decoder &decoder, const Token & /*token*/) {
  decoder.non_compulsory = true;
  return Outcome::kAccepted;
}

// Nearly every type is found where the block's own type says; what is wrong with another the look-up knows.
Outcome keep_starred_type(Decoder &decoder, const Token &token) {
  const TypeEntry found = find_type_in_scope(decoder.scope, token.text);
  decoder.type = found.type;
  decoder.family = found.family;
  return decoder.type != nullptr ? Outcome::kAccepted : keep_type(decoder, token, JT_NODE_ATTRIBUTE);
}

Outcome keep_attribute_type(Decoder &decoder, const Token &token) {
  decoder.non_compulsory = false;
  return keep_starred_type(decoder, token);
}

Novelty note_name(Decoder &decoder, const jt_node &attribute) {
  const std::uint64_t bit = std::uint64_t{1} << attribute.key_hash % 64;
  const bool is_first = (decoder.name_bits & bit) == 0;
  decoder.name_bits |= bit;
  return is_first ? Novelty::kFirst : Novelty::kUnknown;
}

Outcome open_attribute(Decoder &decoder, const Token &token) {
  if (!is_name(decoder, token)) return Outcome::kRefused;
  jt_node *const node = make_typed_node(*decoder.space, decoder.type, nullptr, token.text, JT_NODE_ATTRIBUTE);
  if (node == nullptr) return Outcome::kStopped;
  node->non_compulsory = decoder.non_compulsory;
  return open_block(decoder, node, note_name(decoder, *node));
}

// An attribute stays the innermost block until the token behind its ";" is known not to be its status.
template <Action Next>
Outcome close_attribute_and(Decoder &decoder, const Token &token) {
  close_block(decoder, token);
  return Next(decoder, token);
}

// A value that its type refuses is left out; decoding goes on.
Outcome add_value(Decoder &decoder, const Token &token) {
  if (token.text.size() > kMostValue) {
    report(decoder.space, message::kNameTooLong, token.text);
    return Outcome::kStopped;
  }
  const ValueResult value = make_value_node(*decoder.space, decoder.top->type, decoder.family, token.text);
  if (value.node != nullptr) append_child(*decoder.space, *decoder.top, *value.node);
  return value.status == CreateStatus::kNoMemory ? Outcome::kStopped : Outcome::kAccepted;
}

// ---- Statuses ---------------------------------------------------------------------------------------------

Outcome store_status(Decoder &decoder, const Token &token) {
  const jt_status *status = find_shared_status(token.text);
  if (status == nullptr) status = get_status(decoder.space, writable_text(decoder.cursor, token));
  if (status == nullptr) return Outcome::kStopped;
  adopt_status(*decoder.space, *decoder.top, status);
  return Outcome::kAccepted;
}

Outcome begin_status_text(Decoder &decoder, const Token & /*token*/) {
  decoder.kept = {};
  return Outcome::kAccepted;
}

Outcome store_status_text(Decoder &decoder, const Token & /*token*/) {
  char *const text = copy_text(decoder.space, decoder.kept);
  if (text == nullptr) {
    report(decoder.space, message::kNoStatusText);
    return Outcome::kStopped;
  }
  decoder.top->overridden_value = text;
  mark_owner(*decoder.top);
  return Outcome::kAccepted;
}

Outcome store_service_text(Decoder &decoder, const Token &token) {
  return !decoder.kept.empty() ? store_status_text(decoder, token) : Outcome::kAccepted;
}

// ---- Endings ----------------------------------------------------------------------------------------------

bool illegal_end(Decoder &decoder) {
  jt_error(decoder.space, message::kIllegalEnd, decoder.cursor.position);
  return false;
}

const jt_node &container_of(const Decoder &decoder, State state) {
  return state == State::kAfterService ? *decoder.top->parent : *decoder.top;
}

bool end_of_text(Decoder &decoder, State state) {
  const bool between_services = state == State::kBetweenServices || state == State::kAfterService;
  return (between_services && !has_header(container_of(decoder, state))) || illegal_end(decoder);
}

// A "<" ends the services where a header promises something behind them.
template <State In>
Outcome end_services(Decoder &decoder, const Token & /*token*/) {
  if (!has_header(container_of(decoder, In))) {
    illegal_end(decoder);
    return Outcome::kStopped;
  }
  restore_token(decoder.cursor);
  return Outcome::kAccepted;
}

Outcome give_back(Decoder &decoder, const Token & /*token*/) {
  restore_token(decoder.cursor);
  return Outcome::kAccepted;
}

void report_header_attribute(Decoder &decoder, const Token &token, State /*state*/) {
  jt_error(decoder.space, message::kBadHeaderAttribute, text_at(decoder, token));
}

// ---- Tables -----------------------------------------------------------------------------------------------

constexpr TokenSet kOpenBracket = one_of(TokenKind::kOpenBracket);
constexpr TokenSet kCloseBracket = one_of(TokenKind::kCloseBracket);
constexpr TokenSet kOpenBrace = one_of(TokenKind::kOpenBrace);
constexpr TokenSet kCloseBrace = one_of(TokenKind::kCloseBrace);
constexpr TokenSet kOpenParenthesis = one_of(TokenKind::kOpenParenthesis);
constexpr TokenSet kCloseParenthesis = one_of(TokenKind::kCloseParenthesis);
constexpr TokenSet kLess = one_of(TokenKind::kLess);
constexpr TokenSet kWord = one_of(TokenKind::kWord);
constexpr TokenSet kStar = one_of(TokenKind::kAsterisk);
constexpr TokenSet kSemicolon = one_of(TokenKind::kSemicolon);
constexpr TokenSet kStatus = kAnyText & ~kCloseParenthesis;
constexpr TokenSet kAnyStatusText = kAnyText & ~kCloseBrace;

// service = "[" type name "]" { invocation } "end" [ "(" [ status [ "{" text "}" ] ] ")" ]
// invocation = [ name ] "{" { attribute } "}" [ "(" [ status [ "{" text "}" ] ] ")" ]
constexpr std::array kServiceRows = {
    Row{State::kBetweenServices, kOpenBracket, nullptr, State::kServiceType},
    Row{State::kBetweenServices, kLess, end_services<State::kBetweenServices>, State::kFinished},
    Row{State::kServiceType, kWord, keep_service_type, State::kServiceName},
    Row{State::kServiceName, kWord, keep_word, State::kServiceNamed},
    Row{State::kServiceNamed, kCloseBracket, open_service, State::kInService},
    Row{State::kInService, one_of(TokenKind::kEnd), nullptr, State::kAfterService},
    Row{State::kInService, kOpenBrace, open_unnamed_invocation, State::kInInvocation},
    Row{State::kInService, kWord, keep_name, State::kInvocationNamed},
    Row{State::kInvocationNamed, kOpenBrace, open_named_invocation, State::kInInvocation},
    Row{State::kAfterService, kOpenBracket, close_block, State::kServiceType},
    Row{State::kAfterService, kOpenParenthesis, nullptr, State::kServiceStatus},
    Row{State::kAfterService, kLess, end_services<State::kAfterService>, State::kFinished},
    Row{State::kServiceStatus, kCloseParenthesis, close_block, State::kBetweenServices},
    Row{State::kServiceStatus, kStatus, store_status, State::kServiceStatusRead},
    Row{State::kServiceStatusRead, kCloseParenthesis, close_block, State::kBetweenServices},
    Row{State::kServiceStatusRead, kOpenBrace, begin_status_text, State::kServiceText},
    Row{State::kServiceText, kWordOrString, keep_text, State::kServiceText},
    Row{State::kServiceText, kCloseBrace, store_service_text, State::kServiceTextRead},
    Row{State::kServiceTextRead, kCloseParenthesis, close_block, State::kBetweenServices},
    Row{State::kAfterInvocation, kOpenBrace, next_unnamed_invocation, State::kInInvocation},
    Row{State::kAfterInvocation, one_of(TokenKind::kEnd), close_block, State::kAfterService},
    Row{State::kAfterInvocation, kOpenParenthesis, nullptr, State::kInvocationStatus},
    Row{State::kAfterInvocation, kWord, next_named_invocation, State::kInvocationNamed},
    Row{State::kInvocationStatus, kCloseParenthesis, close_block, State::kInService},
    Row{State::kInvocationStatus, kStatus, store_status, State::kInvocationStatusRead},
    Row{State::kInvocationStatusRead, kCloseParenthesis, close_block, State::kInService},
    Row{State::kInvocationStatusRead, kOpenBrace, begin_status_text, State::kInvocationText},
    Row{State::kInvocationText, kWordOrString, keep_text, State::kInvocationText},
    Row{State::kInvocationText, kCloseBrace, store_status_text, State::kInvocationTextRead},
    Row{State::kInvocationTextRead, kCloseParenthesis, close_block, State::kInService},
    Row{State::kInInvocation, kCloseBrace, nullptr, State::kAfterInvocation},
    Row{State::kAfterAttribute, kCloseBrace, close_block, State::kAfterInvocation},
};

// attribute = [ "*" ] type name [ "=" [ value { "," value } ] ] ";" [ "(" [ status [ "{" text "}" ] ] ")" ]
constexpr std::array kAttributeRows = {
    Row{State::kInInvocation, kStar, set_star, State::kStarredType},
    Row{State::kInInvocation, kWord, keep_attribute_type, State::kAttributeName},
    Row{State::kStarredType, kWord, keep_starred_type, State::kAttributeName},
    Row{State::kAttributeName, kWord, open_attribute, State::kAttributeNamed},
    Row{State::kAttributeNamed, one_of(TokenKind::kEquals), nullptr, State::kFirstValue},
    Row{State::kAttributeNamed, kSemicolon, nullptr, State::kAfterAttribute},
    Row{State::kFirstValue, kSemicolon, nullptr, State::kAfterAttribute},
    Row{State::kFirstValue, kWordOrString, add_value, State::kAfterValue},
    Row{State::kAfterValue, one_of(TokenKind::kComma), nullptr, State::kNextValue},
    Row{State::kAfterValue, kSemicolon, nullptr, State::kAfterAttribute},
    Row{State::kNextValue, kWordOrString, add_value, State::kAfterValue},
    Row{State::kAfterAttribute, kOpenParenthesis, nullptr, State::kAttributeStatus},
    Row{State::kAfterAttribute, kWord, close_attribute_and<keep_attribute_type>, State::kAttributeName},
    Row{State::kAfterAttribute, kStar, close_attribute_and<set_star>, State::kStarredType},
    Row{State::kAttributeStatus, kCloseParenthesis, close_block, State::kInInvocation},
    Row{State::kAttributeStatus, kStatus, store_status, State::kAttributeStatusRead},
    Row{State::kAttributeStatusRead, kCloseParenthesis, close_block, State::kInInvocation},
    Row{State::kAttributeStatusRead, kOpenBrace, begin_status_text, State::kAttributeText},
    Row{State::kAttributeText, kAnyStatusText, keep_text, State::kAttributeText},
    Row{State::kAttributeText, kCloseBrace, store_status_text, State::kAttributeTextRead},
    Row{State::kAttributeTextRead, kCloseParenthesis, close_block, State::kInInvocation},
};

// Attributes of the header end where the next stage begins.
constexpr std::array kHeaderRows = {
    Row{State::kInInvocation, kOpenBracket | kLess, give_back, State::kFinished},
    Row{State::kAfterAttribute, kOpenBracket | kLess, give_back, State::kFinished},
};

constexpr auto kBodyTable = by_state(kServiceRows, kAttributeRows);
constexpr auto kHeaderTable = by_state(kHeaderRows, kAttributeRows);

}  // namespace

constexpr Machine kBodyMachine = {kBodyTable.rows.data(), kBodyTable.first.data(), end_of_text,
                                  report_expected};
constexpr Machine kHeaderAttributesMachine = {kHeaderTable.rows.data(), kHeaderTable.first.data(), nullptr,
                                              report_header_attribute};

bool decode_body(Decoder &decoder, jt_node &container) {
  decoder.top = &container;
  return run_machine(decoder, kBodyMachine, State::kBetweenServices);
}

bool decode_header_attributes(Decoder &decoder, jt_node &header) {
  decoder.top = &header;
  decoder.name_bits = 0;
  return run_machine(decoder, kHeaderAttributesMachine, State::kInInvocation);
}

}  // namespace jt_core
