// The header stage: the optional "< SIL version encoding identifier >" in its three forms, with the
// attributes that may follow it.
#include "base/error_store.h"
#include "sil/decoder.h"
#include "tree/comment.h"
#include "tree/construction.h"
#include "tree/links.h"

namespace jt_core {
namespace {

constexpr std::string_view kVersion = "4.2.00";
constexpr std::string_view kEncoding = "ASCII";

Outcome no_header(Decoder &decoder, const Token & /*token*/) {
  restore_token(decoder.cursor);
  move_comment(*decoder.top, *decoder.root);
  destroy_node(decoder.space, decoder.top);
  return Outcome::kAccepted;
}

template <std::int16_t HeaderClass>
Outcome set_form(Decoder &decoder, const Token & /*token*/) {
  decoder.header_class = HeaderClass;
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
  if (!same_name(token.text, kVersion)) report(decoder.space, message::kVersionMismatch);
  return Outcome::kAccepted;
}

Outcome check_encoding(Decoder &decoder, const Token &token) {
  if (!same_name(token.text, kEncoding)) report(decoder.space, message::kNotAscii);
  return Outcome::kAccepted;
}

struct HeaderValue {
  std::string_view name;
  std::string_view text;
};

// The header is linked to its three attributes only when it has them all.
bool make_header_attributes(Decoder &decoder) {
  const std::array<HeaderValue, 3> values = {{{"LanguageVersion", decoder.version},
                                              {"CharacterEncoding", kEncoding},
                                              {"InteractionID", decoder.kept}}};
  std::array<jt_node *, 3> attributes{};
  for (std::size_t i = 0; i < values.size(); ++i) {
    attributes[i] = make_header_attribute(*decoder.space, values[i].name, values[i].text);
    if (attributes[i] != nullptr) continue;
    for (jt_node *const made : attributes) destroy_node(decoder.space, made);
    report(decoder.space, message::kNoHeader);
    return false;
  }
  link_header_attributes(*decoder.top, attributes);
  return true;
}

Outcome save_header(Decoder &decoder, const Token & /*token*/) {
  if (!make_header_attributes(decoder)) return Outcome::kStopped;
  decoder.top->node_class = decoder.header_class;
  restore_token(decoder.cursor);
  return decode_header_attributes(decoder, *decoder.top) ? Outcome::kAccepted : Outcome::kStopped;
}

constexpr TokenSet kBehindHeader =
    one_of(TokenKind::kOpenBracket, TokenKind::kLess, TokenKind::kWord, TokenKind::kAsterisk);

// header = [ "<" [ "?" | "!" ] "SIL" version encoding identifier ">" attributes ]
constexpr std::array kRows = {
    Row{State::kHeaderBegin, one_of(TokenKind::kOpenBracket), no_header, State::kFinished},
    Row{State::kHeaderBegin, one_of(TokenKind::kLess), nullptr, State::kHeaderForm},
    Row{State::kHeaderForm, one_of(TokenKind::kExclamation), set_form<JT_NODE_HEADER_EXCLAIM>,
        State::kHeaderWord},
    Row{State::kHeaderForm, one_of(TokenKind::kQuestion), set_form<JT_NODE_HEADER_QUESTION>,
        State::kHeaderWord},
    Row{State::kHeaderForm, one_of(TokenKind::kWord), accept_plain_form, State::kHeaderVersion},
    Row{State::kHeaderWord, one_of(TokenKind::kWord), accept_language, State::kHeaderVersion},
    Row{State::kHeaderVersion, one_of(TokenKind::kWord), keep_version, State::kHeaderEncoding},
    Row{State::kHeaderEncoding, kAnyToken, check_encoding, State::kHeaderIdentifier},
    Row{State::kHeaderIdentifier, one_of(TokenKind::kWord), keep_word, State::kHeaderEnd},
    Row{State::kHeaderEnd, one_of(TokenKind::kGreater), nullptr, State::kHeaderSaved},
    Row{State::kHeaderSaved, kBehindHeader, save_header, State::kFinished},
};

constexpr auto kTable = by_state(kRows);

}  // namespace

constexpr Machine kHeaderMachine = {kTable.rows.data(), kTable.first.data(), nullptr, report_expected};

bool decode_header(Decoder &decoder) {
  jt_node *const header = create_typed_node(decoder.space, "sil_header", "header", JT_NODE_HEADER, nullptr);
  if (header == nullptr) return false;
  link_header(*decoder.root, *header);
  decoder.top = header;
  return run_machine(decoder, kHeaderMachine, State::kHeaderBegin);
}

}  // namespace jt_core
