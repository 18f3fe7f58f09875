// The engine that runs the machines, and what each state expects and does with a comment.
#include <cstring>

#include "base/error_store.h"
#include "sil/decoder.h"
#include "tree/comment.h"

namespace jt_core {
namespace {

enum class CommentOf : std::uint8_t { kTop, kParentOfTop };

struct StateFacts {
  State state;
  const char *expectation;
  CommentOf comment;
};

constexpr std::array kStates = {
    StateFacts{State::kHeaderBegin, " < ", CommentOf::kTop},
    StateFacts{State::kHeaderForm, " ! ? SIL ", CommentOf::kTop},
    StateFacts{State::kHeaderWord, " SIL ", CommentOf::kTop},
    StateFacts{State::kHeaderVersion, " version ", CommentOf::kTop},
    StateFacts{State::kHeaderEncoding, "", CommentOf::kTop},
    StateFacts{State::kHeaderIdentifier, " ID ", CommentOf::kTop},
    StateFacts{State::kHeaderEnd, " > ", CommentOf::kTop},
    StateFacts{State::kHeaderSaved, "", CommentOf::kTop},
    StateFacts{State::kSectionBegin, " < ", CommentOf::kTop},
    StateFacts{State::kSectionForm, "", CommentOf::kTop},
    StateFacts{State::kSectionOpened, " > ", CommentOf::kTop},
    StateFacts{State::kSectionContent, " [ < ", CommentOf::kTop},
    StateFacts{State::kSectionFilled, "  < ", CommentOf::kTop},
    StateFacts{State::kSectionSlash, " / ", CommentOf::kTop},
    StateFacts{State::kSectionClosingForm, "", CommentOf::kTop},
    StateFacts{State::kSectionClosed, " > ", CommentOf::kTop},
    StateFacts{State::kBetweenServices, "[ or <", CommentOf::kTop},
    StateFacts{State::kServiceType, " TYPE ", CommentOf::kTop},
    StateFacts{State::kServiceName, " SERVICE NAME ", CommentOf::kTop},
    StateFacts{State::kServiceNamed, "]", CommentOf::kTop},
    StateFacts{State::kInService, "{ or end or a NAME", CommentOf::kTop},
    StateFacts{State::kInvocationNamed, " { ", CommentOf::kTop},
    StateFacts{State::kAfterService, "[ or EOF or ( or < ", CommentOf::kParentOfTop},
    StateFacts{State::kServiceStatus, "STATUS or )", CommentOf::kParentOfTop},
    StateFacts{State::kServiceStatusRead, "{ or )", CommentOf::kParentOfTop},
    StateFacts{State::kServiceText, "} or STRING", CommentOf::kParentOfTop},
    StateFacts{State::kServiceTextRead, " ) ", CommentOf::kParentOfTop},
    StateFacts{State::kInInvocation, " * or TYPE or }", CommentOf::kTop},
    StateFacts{State::kAfterInvocation, "{ or END or (", CommentOf::kParentOfTop},
    StateFacts{State::kInvocationStatus, ") or STATUS", CommentOf::kParentOfTop},
    StateFacts{State::kInvocationStatusRead, ") or {", CommentOf::kParentOfTop},
    StateFacts{State::kInvocationText, "{ or STRING", CommentOf::kParentOfTop},
    StateFacts{State::kInvocationTextRead, ")", CommentOf::kParentOfTop},
    StateFacts{State::kStarredType, "TYPE", CommentOf::kTop},
    StateFacts{State::kAttributeName, "NAME", CommentOf::kTop},
    StateFacts{State::kAttributeNamed, "= ;", CommentOf::kTop},
    StateFacts{State::kFirstValue, "; or VALUE", CommentOf::kTop},
    StateFacts{State::kAfterValue, ", or ; ", CommentOf::kTop},
    StateFacts{State::kNextValue, " VALUE ", CommentOf::kTop},
    StateFacts{State::kAfterAttribute, "} or ( or TYPE or * ", CommentOf::kParentOfTop},
    StateFacts{State::kAttributeStatus, "STATUS or )", CommentOf::kParentOfTop},
    StateFacts{State::kAttributeStatusRead, ") or {", CommentOf::kParentOfTop},
    StateFacts{State::kAttributeText, "", CommentOf::kParentOfTop},
    StateFacts{State::kAttributeTextRead, " ) ", CommentOf::kParentOfTop},
    StateFacts{State::kMarkerBegin, " < ", CommentOf::kTop},
    StateFacts{State::kMarkerWord, " /SIL ", CommentOf::kTop},
    StateFacts{State::kMarkerEnd, " > ", CommentOf::kTop},
    StateFacts{State::kMarkerRead, " EOF ", CommentOf::kTop},
};

constexpr bool in_order() {
  for (std::size_t i = 0; i < kStates.size(); ++i) {
    if (kStates[i].state != static_cast<State>(i)) return false;
  }
  return kStates.size() == kStateCount;
}
static_assert(in_order(), "a state's facts stand at its number");

const StateFacts &facts_of(State state) { return kStates[static_cast<std::size_t>(state)]; }

bool attach_comment(Decoder &decoder, const Token &token, State state) {
  jt_node *const node = facts_of(state).comment == CommentOf::kTop ? decoder.top : decoder.top->parent;
  return append_comment(*decoder.space, *node, token.text);
}

// A token that no row takes: a comment, an error that has been reported, the end of the text, or one that is
// wrong. False when the machine stops there without having finished.
[[gnu::noinline]] bool take_unusual(Decoder &decoder, const Machine &machine, const Token &token,
                                    State &state) {
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

}  // namespace

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
    } else if (!take_unusual(decoder, machine, token, state)) {
      return false;
    }
  }
  return true;
}

void report_expected(Decoder &decoder, const Token &token, State state) {
  report_joined(decoder.space, message::kExpectedBegin, facts_of(state).expectation, message::kExpectedEnd,
                beginning_of(text_at(decoder, token)));
}

const char *text_at(const Decoder &decoder, const Token &token) {
  return text_before(decoder.cursor, token.text.size() + 1);
}

Outcome keep_word(Decoder &decoder, const Token &token) {
  decoder.kept = token.text;
  return Outcome::kAccepted;
}

Outcome keep_text(Decoder &decoder, const Token &token) {
  std::memcpy(decoder.kept_storage.data(), token.text.data(), token.text.size());
  decoder.kept = {decoder.kept_storage.data(), token.text.size()};
  return Outcome::kAccepted;
}

}  // namespace jt_core
