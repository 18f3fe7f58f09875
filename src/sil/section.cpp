// The section stage: the "< ? >" or "< ! >" block behind a header of the same mark. Its services hang under a
// second template node.
#include "base/error_store.h"
#include "sil/decoder.h"
#include "tree/comment.h"
#include "tree/links.h"

namespace jt_core {
namespace {

// The token belongs to the next stage; what was read here is as if it had never been.
Outcome no_section(Decoder &decoder, const Token & /*token*/) {
  restore_token(decoder.cursor);
  move_comment(*decoder.top, *decoder.root);
  destroy_node(decoder.space, decoder.top);
  return Outcome::kAccepted;
}

Outcome end_marker_instead(Decoder &decoder, const Token &token) {
  return same_name(token.text, "/SIL") ? no_section(decoder, token) : Outcome::kRefused;
}

template <std::int32_t HeaderClass>
Outcome accept_form(Decoder &decoder, const Token & /*token*/) {
  return decoder.header_class == HeaderClass ? Outcome::kAccepted : Outcome::kRefused;
}

Outcome decode_services(Decoder &decoder, const Token & /*token*/) {
  jt_node &section = *decoder.root->next_sibling;
  restore_token(decoder.cursor);
  const bool decoded = decode_body(decoder, section);
  decoder.top = &section;
  return decoded ? Outcome::kAccepted : Outcome::kStopped;
}

Outcome accept_slash(Decoder & /*decoder*/, const Token &token) {
  return token.text.substr(0, 1) == "/" ? Outcome::kAccepted : Outcome::kRefused;
}

// section = [ "<" mark ">" services "<" "/" mark ">" ]; the mark is the header's
constexpr std::array kRows = {
    Row{State::kSectionBegin, one_of(TokenKind::kOpenBracket), no_section, State::kFinished},
    Row{State::kSectionBegin, one_of(TokenKind::kLess), nullptr, State::kSectionForm},
    Row{State::kSectionForm, one_of(TokenKind::kQuestion), accept_form<JT_NODE_HEADER_QUESTION>,
        State::kSectionOpened},
    Row{State::kSectionForm, one_of(TokenKind::kExclamation), accept_form<JT_NODE_HEADER_EXCLAIM>,
        State::kSectionOpened},
    Row{State::kSectionForm, kAnyText, end_marker_instead, State::kFinished},
    Row{State::kSectionOpened, one_of(TokenKind::kGreater), nullptr, State::kSectionContent},
    Row{State::kSectionContent, one_of(TokenKind::kLess), nullptr, State::kSectionSlash},
    Row{State::kSectionContent, one_of(TokenKind::kOpenBracket), decode_services, State::kSectionFilled},
    Row{State::kSectionFilled, one_of(TokenKind::kLess), nullptr, State::kSectionSlash},
    Row{State::kSectionSlash, kAnyText, accept_slash, State::kSectionClosingForm},
    Row{State::kSectionClosingForm, one_of(TokenKind::kQuestion), accept_form<JT_NODE_HEADER_QUESTION>,
        State::kSectionClosed},
    Row{State::kSectionClosingForm, one_of(TokenKind::kExclamation), accept_form<JT_NODE_HEADER_EXCLAIM>,
        State::kSectionClosed},
    Row{State::kSectionClosed, one_of(TokenKind::kGreater), nullptr, State::kFinished},
};

bool fail_at_end(Decoder & /*decoder*/, State /*state*/) { return false; }

// Where only the header's own mark will do, another one is an illegal block.
void report_wrong_token(Decoder &decoder, const Token &token, State state) {
  if (state == State::kSectionForm || state == State::kSectionClosingForm) {
    jt_error(decoder.space, message::kIllegalBlock, decoder.cursor.position);
  } else {
    report_expected(decoder, token, state);
  }
}

constexpr auto kTable = by_state(kRows);

}  // namespace

constexpr Machine kSectionMachine = {kTable.rows.data(), kTable.first.data(), fail_at_end,
                                     report_wrong_token};

bool decode_section(Decoder &decoder) {
  jt_node *const section = create_typed_node(decoder.space, "template", "header", JT_NODE_TEMPLATE, nullptr);
  if (section == nullptr) return false;
  link_section(*decoder.root, *section);
  decoder.top = section;
  return run_machine(decoder, kSectionMachine, State::kSectionBegin);
}

}  // namespace jt_core
