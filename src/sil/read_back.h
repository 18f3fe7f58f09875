// What the encoder writes as it stands and the decoder must read as the same: names, statuses and the texts behind
// them, the words of a header, comments. tests/api/element_change_test.cpp sets each of them, and reads back what
// was written.
#ifndef JT_SIL_READ_BACK_H
#define JT_SIL_READ_BACK_H

#include <string_view>

#include "sil/grammar.h"

namespace jt_core {

// The kind of the one token that is read of a text written as it stands; kEndOfText of an empty text, kError where
// another text, or more or less than one token, would be read.
TokenKind kind_written(std::string_view text);

// What may be the name of a service, an invocation or an attribute.
bool is_name(std::string_view text);

// What may be a word of a header.
bool is_header_word(std::string_view text);

// Lines that begin with "#", have at most 1023 bytes and end with a line feed each.
bool is_comment(std::string_view text);

}  // namespace jt_core

#endif
