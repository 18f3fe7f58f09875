// The stages of decoding a text, one behind the other: the header, its attributes, the section's opening, its
// services and its closing, the body, the end marker. Each runs one machine of the grammar on the node that it
// fills. tests/sil/decode_entry_test.cpp has their order.
#ifndef JT_SIL_STAGES_H
#define JT_SIL_STAGES_H

#include <array>

#include "sil/decoder.h"

namespace jt_core {

enum class Prepared { kYes, kNotWanted, kNoMemory };

struct Stage {
  Prepared (*prepare)(Decoder &decoder);
  const Machine &machine;
  State begin;
};

extern const std::array<Stage, 7> kStages;

// A decoder at the beginning of a text that ends at its NUL, or at an end that is not null.
void begin_decoding(Decoder &decoder, jt_parser_space &space, jt_node &root, const char *text,
                    const char *end);

}  // namespace jt_core

#endif
