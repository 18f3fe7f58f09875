// Decoding a text that ends at its NUL. A failed decode leaves nothing. tests/sil/decode_entry_test.cpp
#include "base/error_store.h"
#include "sil/engine.h"
#include "tree/comment.h"

namespace jt_core {
namespace {

bool attach_comment(Decoder &decoder, const Token &token, State state) {
  jt_node *const node = facts_of(state).comment == CommentOf::kTop ? decoder.top : decoder.top->parent;
  return append_comment(*decoder.space, *node, token.text);
}

}  // namespace

Unmatched on_unmatched_token(Decoder &decoder, const Machine &machine, const Token &token, State state) {
  if (token.kind == TokenKind::kComment) {
    return attach_comment(decoder, token, state) ? Unmatched::kGoesOn : Unmatched::kFailed;
  }
  if (token.kind == TokenKind::kError) return Unmatched::kFailed;
  if (token.kind == TokenKind::kEndOfText && machine.at_end != nullptr) {
    return machine.at_end(decoder, state) ? Unmatched::kFinished : Unmatched::kFailed;
  }
  machine.report(decoder, token, state);
  return Unmatched::kFailed;
}

void report_expected(Decoder &decoder, const Token &token, State state) {
  report_joined(decoder.space, message::kExpectedBegin, facts_of(state).expectation, message::kExpectedEnd,
                text_at(decoder, token));
}

std::string_view text_at(const Decoder &decoder, const Token &token) {
  return text_before(decoder.cursor, token.text.size() + 1);
}

}  // namespace jt_core

extern "C" jt_node *decode_template_string(jt_parser_space *space, const char *text) {
  if (space == nullptr || text == nullptr) return nullptr;
  jt_node *const root = create_typed_node(space, "template", "template", JT_NODE_TEMPLATE, nullptr);
  if (root == nullptr) return nullptr;
  jt_core::Decoder decoder;
  jt_core::begin_decoding(decoder, *space, *root, text, nullptr);
  jt_core::Unobserved nobody;
  if (jt_core::run_stages(decoder, nobody)) return root;
  destroy_all_nodes(space, root);
  return nullptr;
}
