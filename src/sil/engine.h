// The engine that runs the machines of the grammar over a text. It is made twice: for a decode that nobody
// listens to, and for one with an observer, which is told of every token and may go on behind an error. So the
// first pays nothing for the second. tests/sil/decode_entry_test.cpp and tests/sil/source_agreement_test.cpp
#ifndef JT_SIL_ENGINE_H
#define JT_SIL_ENGINE_H

#include "sil/stages.h"

namespace jt_core {

// The observer of a decode that nobody listens to.
struct Unobserved {
  static constexpr bool kListens = false;
  using Text = Terminated;
};

enum class Unmatched : std::uint8_t { kGoesOn, kFinished, kFailed };

// A token that no row takes: a comment, an error that has been reported, the end of the text, or one that is
// wrong.
Unmatched on_unmatched_token(Decoder &decoder, const Machine &machine, const Token &token, State state);

// Runs a machine from a state on. True when it came to kFinished.
template <typename Observer>
bool run_machine(Decoder &decoder, const Machine &machine, State state, Observer &observer) {
  while (state != State::kFinished) {
    const Token token = next_token<typename Observer::Text>(decoder.space, decoder.cursor);
    const auto &first = machine.first[static_cast<std::size_t>(state)];
    const Row *row = machine.rows + first[static_cast<std::size_t>(token.kind)];
    Outcome outcome = Outcome::kRefused;
    for (; row->from == state; row = row_for(row + 1, state, token.kind)) {
      outcome = row->action != nullptr ? row->action(decoder, token) : Outcome::kAccepted;
      if (outcome != Outcome::kRefused) break;
    }
    if (outcome == Outcome::kAccepted) {
      state = row->to;
      if constexpr (Observer::kListens) {
        if (!observer.accepted(*row, token)) return false;
      }
      continue;
    }
    const Unmatched unmatched = outcome == Outcome::kStopped
                                    ? Unmatched::kFailed
                                    : on_unmatched_token(decoder, machine, token, state);
    if (unmatched == Unmatched::kFinished) return true;
    if (unmatched == Unmatched::kGoesOn) continue;
    bool goes_on = false;
    if constexpr (Observer::kListens) goes_on = observer.failed(machine, token, outcome, state);
    if (!goes_on) return false;
  }
  return true;
}

template <typename Observer>
bool run_stages(Decoder &decoder, Observer &observer) {
  for (const Stage &stage : kStages) {
    const Prepared prepared = stage.prepare(decoder);
    if (prepared == Prepared::kNoMemory) {
      if constexpr (Observer::kListens) observer.no_memory();
      return false;
    }
    if (prepared == Prepared::kYes && !run_machine(decoder, stage.machine, stage.begin, observer))
      return false;
  }
  return true;
}

}  // namespace jt_core

#endif
