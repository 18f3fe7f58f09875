// The grammar of SIL as tables. A stage of decoding has a machine: rows of "in this state, this token, do
// that, go there", and for each state what it expects and whose a comment is. The first row of a state that
// takes the token and whose action agrees decides; when there is none, the token was wrong. grammar.cpp has
// the tables with the rules that they implement, actions.h what rows do, decode.cpp the engine that runs
// them.
//
// Tables rather than a recursive descent: the depth of a text costs no stack, every state has its one place
// for what it expects, and the pictures in the manual are drawn from what is run. tests/sil/ has a file for
// each machine; tests/docs/machines_test.cpp counts the rows.
#ifndef JT_SIL_GRAMMAR_H
#define JT_SIL_GRAMMAR_H

#include <array>
#include <cstdint>

#include "sil/lexer.h"

namespace jt_core {

struct Decoder;

enum class State : std::uint8_t {
  // The header.
  kHeaderBegin,
  kHeaderForm,
  kHeaderWord,
  kHeaderVersion,
  kHeaderEncoding,
  kHeaderIdentifier,
  kHeaderEnd,
  kHeaderSaved,
  // The opening of the section behind a header with a question mark or an exclamation mark.
  kSectionBegin,
  kSectionForm,
  kSectionOpened,
  kSectionContent,
  // Its closing.
  kSectionFilled,
  kSectionSlash,
  kSectionClosingForm,
  kSectionClosed,
  // The body: services.
  kBetweenServices,
  kServiceType,
  kServiceName,
  kServiceNamed,
  kInService,
  kInvocationNamed,
  kAfterService,
  kServiceStatus,
  kServiceStatusRead,
  kServiceText,
  kServiceTextRead,
  // The body: invocations.
  kInInvocation,
  kAfterInvocation,
  kInvocationStatus,
  kInvocationStatusRead,
  kInvocationText,
  kInvocationTextRead,
  // Attributes, of an invocation or of the header.
  kStarredType,
  kAttributeName,
  kAttributeNamed,
  kFirstValue,
  kAfterValue,
  kNextValue,
  kAfterAttribute,
  kAttributeStatus,
  kAttributeStatusRead,
  kAttributeText,
  kAttributeTextRead,
  // The end marker.
  kMarkerBegin,
  kMarkerWord,
  kMarkerEnd,
  kMarkerRead,
  // The stage has done its work.
  kFinished
};

// What an accepted token is in the text.
enum class Role : std::uint8_t {
  kPunctuation,
  kMarker,  // "SIL", "/SIL", and the mark of a header's form
  kVersion,
  kEncoding,
  kIdentifier,
  kServiceType,
  kServiceName,
  kInvocationName,
  kStar,
  kAttributeType,
  kAttributeName,
  kValue,
  kStatus,
  kStatusText,
  kComment,
  kHeld,      // what it begins shows with the next token
  kNextStage  // it is given back, and read again by the next stage
};

// What begins with an accepted token.
enum class Opens : std::uint8_t {
  kNothing,
  kHeader,
  kSection,
  kService,
  kInvocation,
  kAttribute,
  kValue,
  kStatus
};

// Whose a comment is that stands before the next token.
enum class CommentOf : std::uint8_t { kTop, kParentOfTop };

// How a check goes on behind a token that no row of the state takes (recovery.cpp).
enum class Repair : std::uint8_t {
  kText,         // the beginning of the text
  kFrame,        // inside of marks: behind their ">"
  kServices,     // at the next service
  kServiceHead,  // in the brackets of a service
  kService,      // at the next invocation or the end of the service
  kStatement,    // at the end of the statement, or where the next one begins
  kType,         // with a type that is not known
  kName,         // with a name that will not do
  kStatus,       // behind the status
  kMarker        // not at all: nothing follows
};

struct StateFacts {
  State state;
  const char *expectation;
  CommentOf comment;
  Repair repair;
};

const StateFacts &facts_of(State state);

enum class Outcome : std::uint8_t {
  kAccepted,
  kRefused,  // the row does not take this token after all
  kStopped   // decoding ends; what there was to report has been reported
};

using Action = Outcome (*)(Decoder &decoder, const Token &token);

// A set of token kinds.
using TokenSet = std::uint32_t;

template <typename... Kinds>
constexpr TokenSet one_of(Kinds... kinds) {
  return ((TokenSet{1} << static_cast<unsigned>(kinds)) | ...);
}

constexpr bool contains(TokenSet set, TokenKind kind) {
  return (set >> static_cast<unsigned>(kind) & 1U) != 0;
}

// No row takes a comment, or a token that was an error.
constexpr TokenSet kAnyText = (one_of(TokenKind::kEndOfText) - 1) & ~one_of(TokenKind::kComment);
constexpr TokenSet kAnyToken = kAnyText | one_of(TokenKind::kEndOfText);
constexpr TokenSet kWordOrString = one_of(TokenKind::kWord, TokenKind::kString);

// What may stand as a status, and in the braces behind one of a service or an invocation, or of an attribute.
constexpr TokenSet kStatusName = kAnyText & ~one_of(TokenKind::kCloseParenthesis);
constexpr TokenSet kBlockStatusText = kWordOrString;
constexpr TokenSet kAttributeStatusText = kAnyText & ~one_of(TokenKind::kCloseBrace);

struct Row {
  State from;
  TokenSet tokens;
  Action action;  // null: nothing to do
  State to;
  Role role;
  Opens opens = Opens::kNothing;
  std::uint8_t closes = 0;  // so many elements end here: with the token, or before one that is given back
};

// Behind the last token of a block or an attribute, where its status may stand.
constexpr bool may_have_ended(State state) {
  return state == State::kAfterAttribute || state == State::kAfterInvocation || state == State::kAfterService;
}

constexpr std::size_t kStateCount = static_cast<std::size_t>(State::kFinished);

constexpr std::size_t kTokenKinds = static_cast<std::size_t>(TokenKind::kError) + 1;

// Rows put together by state and closed by a row that takes any token, with the first row for each state and
// token. Rows of one state keep their order.
template <std::size_t Count>
struct RowTable {
  std::array<Row, Count + 1> rows{};
  std::array<std::array<std::uint8_t, kTokenKinds>, kStateCount> first{};
  static_assert(Count < UINT8_MAX);
};

// The next row from `row` on that a token in a state may take.
constexpr const Row *row_for(const Row *row, State state, TokenKind kind) {
  while (row->from != State::kFinished && (row->from != state || !contains(row->tokens, kind))) ++row;
  return row;
}

template <std::size_t... Counts>
consteval RowTable<(Counts + ...)> by_state(const std::array<Row, Counts> &...parts) {
  RowTable<(Counts + ...)> table;
  std::size_t used = 0;
  const auto take_from = [&table, &used](const auto &part, std::size_t state) {
    for (const Row &row : part) {
      if (static_cast<std::size_t>(row.from) == state) table.rows[used++] = row;
    }
  };
  for (std::size_t state = 0; state < kStateCount; ++state) (take_from(parts, state), ...);
  table.rows[used].from = State::kFinished;
  for (std::size_t state = 0; state < kStateCount; ++state) {
    for (std::size_t kind = 0; kind < kTokenKinds; ++kind) {
      const Row *const first =
          row_for(table.rows.data(), static_cast<State>(state), static_cast<TokenKind>(kind));
      table.first[state][kind] = static_cast<std::uint8_t>(first - table.rows.data());
    }
  }
  return table;
}

struct Machine {
  const Row *rows;
  const std::array<std::uint8_t, kTokenKinds> *first;  // row by state and token
  // What the end of the text means in a state; null where it is a token like any other.
  bool (*at_end)(Decoder &decoder, State state);
  // Reports a token that no row takes.
  void (*report)(Decoder &decoder, const Token &token, State state);
};

extern const Machine kHeaderMachine;
extern const Machine kHeaderAttributesMachine;
extern const Machine kSectionOpeningMachine;
extern const Machine kBodyMachine;
extern const Machine kSectionClosingMachine;
extern const Machine kEndMarkerMachine;

}  // namespace jt_core

#endif
