// How a check goes on behind an error: it makes up what is missing, skips what cannot be read, and finds the
// state in which the next statement, block or service can be read. What an element that was refused would have
// opened is opened in its stead, so that what is in it finds its place. The table of states says which repair
// a state has; the repairs are here. tests/sil/recovery_test.cpp has each of them.
#ifndef JT_SIL_RECOVERY_H
#define JT_SIL_RECOVERY_H

#include "sil/decoder.h"

namespace jt_core {

class SourceDecoder;

// Puts the decoder behind the error at the token that was read last, in `state`. False where nothing can
// follow.
[[gnu::cold]] bool recover(Decoder &decoder, SourceDecoder &source, const Token &token, State &state);

// Whether a value, behind which the cursor stands, is followed by what cannot follow one; the text's end and a
// statement are followed by another mistake.
[[gnu::cold]] bool runs_into_error(const Decoder &decoder);

// Whether so many words stand between the cursor and the end of a header. Where not, the version or encoding that
// was read is none.
[[gnu::cold]] bool header_goes_on(const Decoder &decoder, int words);

// Whether all open blocks end with a token, behind which the cursor stands: with the text, the end of a service,
// the next one, or marks.
[[gnu::cold]] bool ends_block_with(const Decoder &decoder, const Token &token);

// Whether a block is opened at a place.
[[gnu::cold]] bool begins_block(const Decoder &decoder, const char *at);

}  // namespace jt_core

#endif
