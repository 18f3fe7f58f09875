// Actions of the body: services with their invocations, attributes, values and statuses. Those of attributes
// serve the header's own attributes too. tests/sil/body_test.cpp has what is accepted,
// tests/sil/body_refusal_test.cpp what is refused.
#include <cstring>

#include "base/error_store.h"
#include "base/memory.h"
#include "sil/actions.h"
#include "sil/decoder.h"
#include "tree/child_index.h"
#include "tree/construction.h"
#include "tree/links.h"
#include "tree/node_storage.h"
#include "tree/session.h"
#include "tree/type_lookup.h"
#include "types/status.h"
#include "types/type_tables.h"

namespace jt_core::action {
namespace {

constexpr std::size_t kMaxValue = JT_MAX_TOKEN_LENGTH;

Outcome accepted_if(bool condition) { return condition ? Outcome::kAccepted : Outcome::kRefused; }

// Whether a block may have the name of one before it.
enum class MaybeDuplicate { kYes, kNo };

// Looking for a name among many blocks would take ever longer where memory for their index is not to be had:
// the text fails then, as it soon would have.
bool is_first_of_name(Decoder &decoder, const jt_node &node) {
  decoder.space->has_lost_index = false;
  decoder.first_of_name = find_namesake(*decoder.top, node);
  if (decoder.first_of_name != nullptr) {
    decoder.trouble = Trouble::kNameTaken;
    report(decoder.space, message::kDuplicateName, node.name);
    return false;
  }
  if (decoder.space->has_lost_index) report(decoder.space, message::kAllocation);
  return !decoder.space->has_lost_index;
}

// Hangs a new node under the innermost block and makes it that block. Its type fits, having just been looked
// up there; an unknown one warns once more.
Outcome open_block(Decoder &decoder, jt_node *node, MaybeDuplicate duplicate = MaybeDuplicate::kYes) {
  if (node == nullptr) return Outcome::kStopped;
  jt_parser_space *const space = decoder.space;
  if (!has_known_type(*node)) {
    report_unknown_type(space, node->node_class, view_of(node->unresolved_type_name));
  }
  const bool may_be_there = duplicate == MaybeDuplicate::kYes && node->name != nullptr;
  if (may_be_there && !is_first_of_name(decoder, *node)) {
    destroy_node(space, node);
    return Outcome::kStopped;
  }
  append_child(*space, *decoder.top, *node);
  decoder.top = node;
  return Outcome::kAccepted;
}

bool is_name(Decoder &decoder, const Token &token) {
  if (token.text.size() <= kMaxName) return true;
  decoder.trouble = Trouble::kTooLong;
  report(decoder.space, message::kNameTooLong, token.text);
  return false;
}

Outcome keep_type(Decoder &decoder, const Token &token, std::int32_t node_class) {
  decoder.type = look_up_type(decoder.space, token.text, node_class, decoder.top);
  return accepted_if(decoder.type != nullptr && decoder.type != unknown_type());
}

Outcome open_invocation(Decoder &decoder, std::string_view name) {
  const char *const type_name = decoder.top->name;
  const jt_type *const type =
      look_up_type(decoder.space, view_of(type_name), JT_NODE_INVOCATION, decoder.top);
  decoder.scope = find_table_of_row(type);
  decoder.name_bits = {};
  return open_block(decoder, make_typed_node(*decoder.space, type, type_name, name, JT_NODE_INVOCATION));
}

MaybeDuplicate remember_name(Decoder &decoder, const jt_node &attribute) {
  std::uint64_t &bits = decoder.name_bits[attribute.key_hash / 64 % decoder.name_bits.size()];
  const std::uint64_t bit = std::uint64_t{1} << attribute.key_hash % 64;
  const bool is_first = (bits & bit) == 0;
  bits |= bit;
  return is_first ? MaybeDuplicate::kNo : MaybeDuplicate::kYes;
}

bool illegal_end(Decoder &decoder) {
  decoder.trouble = Trouble::kBlockEnd;
  report(decoder.space, message::kIllegalEnd, text_from(decoder.cursor, decoder.cursor.position));
  return false;
}

const jt_node &container_of(const Decoder &decoder, State state) {
  return state == State::kAfterService ? *decoder.top->parent : *decoder.top;
}

// A "<" ends the services where a header promises something behind them.
Outcome end_services_of(Decoder &decoder, const jt_node &container) {
  if (!has_header(container)) {
    illegal_end(decoder);
    return Outcome::kStopped;
  }
  restore_token(decoder.cursor);
  return Outcome::kAccepted;
}

}  // namespace

Outcome close_block(Decoder &decoder, const Token & /*token*/) {
  decoder.top = decoder.top->parent;
  return Outcome::kAccepted;
}

Outcome keep_name(Decoder &decoder, const Token &token) {
  return is_name(decoder, token) ? keep_word(decoder, token) : Outcome::kRefused;
}

Outcome keep_word(Decoder &decoder, const Token &token) {
  decoder.kept = token.text;
  return Outcome::kAccepted;
}

// ---- Services and invocations -----------------------------------------------------------------------------

Outcome keep_service_type(Decoder &decoder, const Token &token) {
  return keep_type(decoder, token, JT_NODE_SERVICE);
}

Outcome open_service(Decoder &decoder, const Token & /*token*/) {
  return open_block(decoder,
                    make_typed_node(*decoder.space, decoder.type, nullptr, decoder.kept, JT_NODE_SERVICE));
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

Outcome open_attribute(Decoder &decoder, const Token &token) {
  if (!is_name(decoder, token)) return Outcome::kRefused;
  jt_node *const node = make_typed_node(*decoder.space, decoder.type, nullptr, token.text, JT_NODE_ATTRIBUTE);
  if (node == nullptr) return Outcome::kStopped;
  node->non_compulsory = decoder.non_compulsory;
  return open_block(decoder, node, remember_name(decoder, *node));
}

// An attribute stays the innermost block until the token behind its ";" is known not to be its status.
Outcome close_attribute_and_set_star(Decoder &decoder, const Token &token) {
  close_block(decoder, token);
  return set_star(decoder, token);
}

Outcome close_attribute_and_keep_type(Decoder &decoder, const Token &token) {
  close_block(decoder, token);
  return keep_attribute_type(decoder, token);
}

// A value that its type refuses is left out; decoding goes on.
Outcome add_value(Decoder &decoder, const Token &token) {
  if (token.text.size() > kMaxValue) {
    decoder.trouble = Trouble::kTooLong;
    report(decoder.space, message::kNameTooLong, token.text);
    return Outcome::kStopped;
  }
  const ValueResult value =
      make_value_node(*decoder.space, decoder.top->type, decoder.family, token.text, decoder.remarks);
  if (value.node != nullptr) append_child(*decoder.space, *decoder.top, *value.node);
  return value.status == CreateStatus::kNoMemory ? Outcome::kStopped : Outcome::kAccepted;
}

// ---- Statuses ---------------------------------------------------------------------------------------------

Outcome store_status(Decoder &decoder, const Token &token) {
  const jt_status *status = find_shared_status(token.text);
  if (status == nullptr) {
    decoder.trouble = Trouble::kUnknownStatus;
    status = status_of_name(decoder.space, heap_of(*decoder.top), token.text);
  }
  if (status == nullptr) return Outcome::kStopped;
  adopt_status(*decoder.top, status);
  return Outcome::kAccepted;
}

Outcome begin_status_text(Decoder &decoder, const Token & /*token*/) {
  decoder.kept = {};
  return Outcome::kAccepted;
}

Outcome keep_status_text(Decoder &decoder, const Token &token) {
  if (!decoder.kept.empty()) decoder.trouble = Trouble::kTextReplaced;
  std::memcpy(decoder.kept_storage.data(), token.text.data(), token.text.size());
  decoder.kept = {decoder.kept_storage.data(), token.text.size()};
  return Outcome::kAccepted;
}

Outcome store_status_text(Decoder &decoder, const Token & /*token*/) {
  char *const text = keep_text(decoder.space, heap_of(*decoder.top), decoder.kept);
  if (text == nullptr) {
    report(decoder.space, message::kNoStatusText);
    return Outcome::kStopped;
  }
  decoder.top->overridden_value = text;
  set_owns_heap_blocks(*decoder.top);
  return Outcome::kAccepted;
}

Outcome store_service_text(Decoder &decoder, const Token &token) {
  return !decoder.kept.empty() ? store_status_text(decoder, token) : Outcome::kAccepted;
}

// ---- Endings ----------------------------------------------------------------------------------------------

Outcome end_services(Decoder &decoder, const Token & /*token*/) {
  return end_services_of(decoder, *decoder.top);
}

Outcome close_service_and_end(Decoder &decoder, const Token & /*token*/) {
  return end_services_of(decoder, *decoder.top->parent);
}

bool end_in_body(Decoder &decoder, State state) {
  const bool between_services = state == State::kBetweenServices || state == State::kAfterService;
  return (between_services && !has_header(container_of(decoder, state))) || illegal_end(decoder);
}

void report_in_header_attributes(Decoder &decoder, const Token &token, State /*state*/) {
  report(decoder.space, message::kBadHeaderAttribute, text_at(decoder, token));
}

}  // namespace jt_core::action
