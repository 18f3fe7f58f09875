// Actions of what frames the body: the header, the section's marks and the end marker.
// tests/sil/header_test.cpp, tests/sil/section_test.cpp and tests/sil/end_marker_test.cpp have each place
// where one may be wrong.
#include "base/error_store.h"
#include "sil/actions.h"
#include "sil/decoder.h"
#include "tree/comment.h"
#include "tree/header.h"

namespace jt_core::action {
namespace {

constexpr std::string_view kVersion = "4.2.00";
constexpr std::string_view kEncoding = "ASCII";

// The node under construction turns out not to be in the text.
Outcome drop_top(Decoder &decoder) {
  restore_token(decoder.cursor);
  move_comment(*decoder.top, *decoder.root);
  destroy_node(decoder.space, decoder.top);
  return Outcome::kAccepted;
}

Outcome accepted_if(bool condition) { return condition ? Outcome::kAccepted : Outcome::kRefused; }

}  // namespace

// ---- The header -------------------------------------------------------------------------------------------

Outcome set_question_form(Decoder &decoder, const Token & /*token*/) {
  decoder.header_class = JT_NODE_HEADER_QUESTION;
  return Outcome::kAccepted;
}

Outcome set_exclaim_form(Decoder &decoder, const Token & /*token*/) {
  decoder.header_class = JT_NODE_HEADER_EXCLAIM;
  return Outcome::kAccepted;
}

Outcome accept_language(Decoder & /*decoder*/, const Token &token) {
  return same_name(token.text, "SIL") ? Outcome::kAccepted : Outcome::kRefused;
}

Outcome accept_plain_form(Decoder &decoder, const Token &token) {
  decoder.header_class = JT_NODE_HEADER_PLAIN;
  return accept_language(decoder, token);
}

Outcome keep_version(Decoder &decoder, const Token &token) {
  decoder.version = token.text;
  if (!same_name(token.text, kVersion)) {
    decoder.trouble = Trouble::kOtherVersion;
    report(decoder.space, message::kVersionMismatch);
  }
  return Outcome::kAccepted;
}

Outcome check_encoding(Decoder &decoder, const Token &token) {
  if (!same_name(token.text, kEncoding)) {
    decoder.trouble = Trouble::kOtherEncoding;
    report(decoder.space, message::kNotAscii);
  }
  return Outcome::kAccepted;
}

Outcome no_header(Decoder &decoder, const Token & /*token*/) { return drop_top(decoder); }

Outcome save_header(Decoder &decoder, const Token & /*token*/) {
  if (!set_words(*decoder.space, *decoder.top, {decoder.version, decoder.kept})) return Outcome::kStopped;
  decoder.top->node_class = decoder.header_class;
  restore_token(decoder.cursor);
  return Outcome::kAccepted;
}

// ---- The section ------------------------------------------------------------------------------------------

Outcome no_section(Decoder &decoder, const Token & /*token*/) { return drop_top(decoder); }

Outcome end_marker_instead(Decoder &decoder, const Token &token) {
  return same_name(token.text, "/SIL") ? drop_top(decoder) : Outcome::kRefused;
}

Outcome accept_question_form(Decoder &decoder, const Token & /*token*/) {
  return accepted_if(decoder.header_class == JT_NODE_HEADER_QUESTION);
}

Outcome accept_exclaim_form(Decoder &decoder, const Token & /*token*/) {
  return accepted_if(decoder.header_class == JT_NODE_HEADER_EXCLAIM);
}

Outcome accept_slash(Decoder & /*decoder*/, const Token &token) {
  return accepted_if(token.text.starts_with('/'));
}

Outcome give_back(Decoder &decoder, const Token & /*token*/) {
  restore_token(decoder.cursor);
  return Outcome::kAccepted;
}

bool end_in_section(Decoder & /*decoder*/, State /*state*/) { return false; }

// Where only the header's own mark will do, another one is an illegal block.
void report_in_section(Decoder &decoder, const Token &token, State state) {
  if (state == State::kSectionForm || state == State::kSectionClosingForm) {
    report(decoder.space, message::kIllegalBlock, text_from(decoder.cursor, decoder.cursor.position));
  } else {
    report_expected(decoder, token, state);
  }
}

// ---- The end marker ---------------------------------------------------------------------------------------

Outcome accept_end_marker(Decoder & /*decoder*/, const Token &token) {
  return accepted_if(same_name(token.text, "/SIL"));
}

bool end_in_marker(Decoder &decoder, State state) {
  if (!has_header(*decoder.root) || state == State::kMarkerRead) return true;
  if (state == State::kMarkerBegin) report(decoder.space, message::kMissingEndMarker);
  return false;
}

}  // namespace jt_core::action
