// Pictures of the decoder's machines, drawn from the rows that the decoder runs: each state with what it
// reports when no row takes the token, each row with the tokens that it takes.
#ifndef JT_DOCS_GENERATOR_MACHINES_H
#define JT_DOCS_GENERATOR_MACHINES_H

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "sil/decoder.h"

namespace jt_docs {

struct Drawing {
  std::string_view name;  // of the file
  const jt_core::Machine *machine;
  jt_core::State begin;
};

extern const std::array<Drawing, 6> kDrawings;

// The rows without the one that closes the table.
std::vector<jt_core::Row> rows_of(const jt_core::Machine &machine);

// "in service" for kInService.
std::string name_of(jt_core::State state);

// The tokens of a row as they are shown: "{", "word string", "any but )".
std::string tokens_of(const jt_core::Row &row);

// What a word, a string or any token stands for in a row; empty where the tokens speak for themselves.
std::string_view meaning_of(const jt_core::Row &row);

// The picture for Graphviz.
std::string draw(const Drawing &drawing);

// The rows as a table in Markdown, for those who do not see the picture.
std::string tabulate(const Drawing &drawing);

}  // namespace jt_docs

#endif
