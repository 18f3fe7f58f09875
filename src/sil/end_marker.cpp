// The last stage: "< /SIL >" and nothing behind it, where there is a header; else nothing at all.
#include "base/error_store.h"
#include "sil/decoder.h"

namespace jt_core {
namespace {

Outcome accept_marker(Decoder & /*decoder*/, const Token &token) {
  return same_name(token.text, "/SIL") ? Outcome::kAccepted : Outcome::kRefused;
}

constexpr std::array kRows = {
    Row{State::kMarkerBegin, one_of(TokenKind::kLess), nullptr, State::kMarkerWord},
    Row{State::kMarkerWord, kAnyText, accept_marker, State::kMarkerEnd},
    Row{State::kMarkerEnd, one_of(TokenKind::kGreater), nullptr, State::kMarkerRead},
};

bool end_of_text(Decoder &decoder, State state) {
  if (!has_header(*decoder.root) || state == State::kMarkerRead) return true;
  if (state == State::kMarkerBegin) report(decoder.space, message::kMissingEndMarker);
  return false;
}

constexpr auto kTable = by_state(kRows);

}  // namespace

constexpr Machine kEndMarkerMachine = {kTable.rows.data(), kTable.first.data(), end_of_text, report_expected};

bool check_end_marker(Decoder &decoder) {
  decoder.top = decoder.root;
  return run_machine(decoder, kEndMarkerMachine, State::kMarkerBegin);
}

}  // namespace jt_core
