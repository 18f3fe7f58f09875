// What the five machines of the decoder share: the state of one decoding, the names of all states, and the
// shape of their tables. A machine is a table of rows "in this state, this token, do that, go there". The
// first row of a state that takes the token and whose action agrees decides; when there is none, the token
// was wrong.
//
// The open blocks need no stack of their own: `top` is the innermost one, and its parent link leads to the
// next.
#ifndef JT_SIL_DECODER_H
#define JT_SIL_DECODER_H

#include <array>
#include <cstdint>
#include <string_view>

#include "sil/lexer.h"
#include "tree/node.h"

namespace jt_core {

struct TypeTable;
struct ValueFamily;

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
  // The section behind a header with a question mark or an exclamation mark.
  kSectionBegin,
  kSectionForm,
  kSectionOpened,
  kSectionContent,
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
  // The machine has done its work.
  kFinished
};

struct Decoder {
  jt_parser_space *space;
  SilCursor cursor;
  jt_node *root;
  jt_node *top;
  const TypeTable *scope;     // of the types of attributes in the innermost block
  const jt_type *type;        // of the block or attribute whose name comes next
  const ValueFamily *family;  // of the values of the attribute that is read
  bool non_compulsory;        // of the attribute whose name comes next
  // A bit is set for the hash of each attribute of the innermost block so far. An attribute that finds its
  // bit unset is the first of its name: most are, and need not be looked for.
  std::uint64_t name_bits;
  std::int16_t header_class;
  std::string_view version;  // of the header
  std::string_view kept;     // a name, a status text, the header's identifier
  std::array<char, kMostTokenText> kept_storage;
};

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

struct Row {
  State from;
  TokenSet tokens;
  Action action;  // null: nothing to do
  State to;
};

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
extern const Machine kSectionMachine;
extern const Machine kBodyMachine;
extern const Machine kEndMarkerMachine;

// Runs a machine from a state on. True when it came to kFinished.
bool run_machine(Decoder &decoder, const Machine &machine, State state);

// The usual report of a wrong token: what the state expected, and where.
void report_expected(Decoder &decoder, const Token &token, State state);

// The text from the token on, for the detail of a report.
const char *text_at(const Decoder &decoder, const Token &token);

// Whether the text has a header, so that an end marker must close it.
inline bool has_header(const jt_node &container) { return container.previous_sibling != nullptr; }

// Keeps the token's text for later: as it stands in the SIL text, or a copy where that may be another.
Outcome keep_word(Decoder &decoder, const Token &token);
Outcome keep_text(Decoder &decoder, const Token &token);

// The stages, in their order. Each reports what is wrong and returns whether decoding goes on.
bool decode_header(Decoder &decoder);
bool decode_section(Decoder &decoder);
bool decode_body(Decoder &decoder, jt_node &container);
bool decode_header_attributes(Decoder &decoder, jt_node &header);
bool check_end_marker(Decoder &decoder);

}  // namespace jt_core

#endif
