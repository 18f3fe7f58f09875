// Decoding: the engine that runs the machines of the grammar, and the stages in which it runs them. A failed
// decode leaves nothing. tests/sil/decode_entry_test.cpp has the order of the stages.
#include "base/error_store.h"
#include "sil/decoder.h"
#include "tree/comment.h"
#include "tree/header.h"

namespace jt_core {
namespace {

// ---- The engine -------------------------------------------------------------------------------------------

bool attach_comment(Decoder &decoder, const Token &token, State state) {
  jt_node *const node = facts_of(state).comment == CommentOf::kTop ? decoder.top : decoder.top->parent;
  return append_comment(*decoder.space, *node, token.text);
}

// A token that no row takes: a comment, an error that has been reported, the end of the text, or one that is
// wrong. False when the machine stops there without having finished.
bool on_unmatched_token(Decoder &decoder, const Machine &machine, const Token &token, State &state) {
  if (token.kind == TokenKind::kComment) return attach_comment(decoder, token, state);
  if (token.kind == TokenKind::kError) return false;
  if (token.kind == TokenKind::kEndOfText && machine.at_end != nullptr) {
    const bool may_end = machine.at_end(decoder, state);
    state = State::kFinished;
    return may_end;
  }
  machine.report(decoder, token, state);
  return false;
}

// Runs a machine from a state on. True when it came to kFinished.
bool run_machine(Decoder &decoder, const Machine &machine, State state) {
  while (state != State::kFinished) {
    const Token token = next_token(decoder.space, decoder.cursor);
    const auto &first = machine.first[static_cast<std::size_t>(state)];
    const Row *row = machine.rows + first[static_cast<std::size_t>(token.kind)];
    Outcome outcome = Outcome::kRefused;
    for (; row->from == state; row = row_for(row + 1, state, token.kind)) {
      outcome = row->action != nullptr ? row->action(decoder, token) : Outcome::kAccepted;
      if (outcome != Outcome::kRefused) break;
    }
    if (outcome == Outcome::kStopped) return false;
    if (outcome == Outcome::kAccepted) {
      state = row->to;
    } else if (!on_unmatched_token(decoder, machine, token, state)) {
      return false;
    }
  }
  return true;
}

// ---- The stages -------------------------------------------------------------------------------------------

enum class Prepared { kYes, kNotWanted, kNoMemory };

// Makes `node`, which may be null for want of memory, the innermost block.
Prepared enter(Decoder &decoder, jt_node *node) {
  decoder.top = node;
  decoder.name_bits = {};
  return node != nullptr ? Prepared::kYes : Prepared::kNoMemory;
}

jt_node *header_of(const Decoder &decoder) { return decoder.root->previous_sibling; }

jt_node *section_of(const Decoder &decoder) { return decoder.root->next_sibling; }

Prepared enter_header(Decoder &decoder) { return enter(decoder, add_header(*decoder.space, *decoder.root)); }

Prepared enter_header_attributes(Decoder &decoder) {
  return header_of(decoder) != nullptr ? enter(decoder, header_of(decoder)) : Prepared::kNotWanted;
}

Prepared open_section(Decoder &decoder) {
  if (header_of(decoder) == nullptr || decoder.header_class == JT_NODE_HEADER_PLAIN)
    return Prepared::kNotWanted;
  return enter(decoder, add_section(*decoder.space, *decoder.root));
}

Prepared enter_section(Decoder &decoder) {
  return section_of(decoder) != nullptr ? enter(decoder, section_of(decoder)) : Prepared::kNotWanted;
}

Prepared enter_body(Decoder &decoder) {
  const bool none = header_of(decoder) != nullptr && decoder.header_class == JT_NODE_HEADER_EXCLAIM;
  return none ? Prepared::kNotWanted : enter(decoder, decoder.root);
}

Prepared enter_root(Decoder &decoder) { return enter(decoder, decoder.root); }

struct Stage {
  Prepared (*prepare)(Decoder &decoder);
  const Machine &machine;
  State begin;
};

constexpr Stage kStages[] = {
    {enter_header, kHeaderMachine, State::kHeaderBegin},
    {enter_header_attributes, kHeaderAttributesMachine, State::kInInvocation},
    {open_section, kSectionOpeningMachine, State::kSectionBegin},
    {enter_section, kBodyMachine, State::kBetweenServices},
    {enter_section, kSectionClosingMachine, State::kSectionFilled},
    {enter_body, kBodyMachine, State::kBetweenServices},
    {enter_root, kEndMarkerMachine, State::kMarkerBegin},
};

bool decode_stages(Decoder &decoder) {
  for (const Stage &stage : kStages) {
    const Prepared prepared = stage.prepare(decoder);
    if (prepared == Prepared::kNoMemory) return false;
    if (prepared == Prepared::kYes && !run_machine(decoder, stage.machine, stage.begin)) return false;
  }
  return true;
}

// The buffers stay as they are: clearing them would cost more than decoding a short text.
void begin_decoding(Decoder &decoder, jt_parser_space &space, jt_node &root, const char *text) {
  decoder.space = &space;
  decoder.cursor.position = decoder.cursor.mark = decoder.cursor.begin = text;
  decoder.root = decoder.top = &root;
  decoder.scope = nullptr;
  decoder.type = nullptr;
  decoder.family = nullptr;
  decoder.non_compulsory = false;
  decoder.header_class = JT_NODE_HEADER;
  decoder.version = decoder.kept = {};
}

}  // namespace

void report_expected(Decoder &decoder, const Token &token, State state) {
  report_joined(decoder.space, message::kExpectedBegin, facts_of(state).expectation, message::kExpectedEnd,
                beginning_of(text_at(decoder, token)));
}

const char *text_at(const Decoder &decoder, const Token &token) {
  return text_before(decoder.cursor, token.text.size() + 1);
}

}  // namespace jt_core

extern "C" jt_node *decode_template_string(jt_parser_space *space, const char *text) {
  if (space == nullptr || text == nullptr) return nullptr;
  jt_node *const root = create_typed_node(space, "template", "template", JT_NODE_TEMPLATE, nullptr);
  if (root == nullptr) return nullptr;
  jt_core::Decoder decoder;
  jt_core::begin_decoding(decoder, *space, *root, text);
  if (jt_core::decode_stages(decoder)) return root;
  destroy_all_nodes(space, root);
  return nullptr;
}
