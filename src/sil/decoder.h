// The state of one decoding, which the actions of all machines share, and what they ask of it.
//
// The open blocks need no stack of their own: `top` is the innermost one, and its parent link leads to the
// next. tests/sil/robustness_test.cpp decodes damaged texts and finds no node left over.
#ifndef JT_SIL_DECODER_H
#define JT_SIL_DECODER_H

#include <array>
#include <cstdint>
#include <string_view>

#include "sil/grammar.h"
#include "tree/node.h"

namespace jt_core {

struct Remarks;
struct TypeTable;
struct ValueFamily;

// What an action has to say of a token beside its outcome, for those who want to know more than the report.
enum class Trouble : std::uint8_t {
  kNone,
  kNameTaken,      // by a sibling
  kTooLong,        // for a name or a value
  kBlockEnd,       // the text or its services end where they may not
  kOtherVersion,   // than the library's
  kOtherEncoding,  // than ASCII
  kUnknownStatus,  // that the list of statuses does not have
  kTextReplaced    // a word behind a status, by the next one
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
  // bit unset is the first of its name: most are, and need not be looked for. The bits are many, so that an
  // invocation of usual size is decoded without an index over its attributes.
  std::array<std::uint64_t, 16> name_bits;
  std::int16_t header_class;
  std::string_view version;  // of the header
  std::string_view kept;     // a name, a status text, the header's identifier
  std::array<char, kMaxTokenText> kept_storage;
  Trouble trouble;         // of the last token that had any
  jt_node *first_of_name;  // the sibling whose name was taken again
  Remarks *remarks;        // who hears what the readers of values remark, or null
};

// The text from the token on, for the detail of a report.
std::string_view text_at(const Decoder &decoder, const Token &token);

// The usual report of a wrong token: what the state expected, and where.
void report_expected(Decoder &decoder, const Token &token, State state);

// Whether the text has a header, so that an end marker must close it.
inline bool has_header(const jt_node &container) { return container.previous_sibling != nullptr; }

}  // namespace jt_core

#endif
