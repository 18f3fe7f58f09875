// What stands beside the root of a template: a header with its three words, and a section. A header that is given
// other words, another form, or the template's first section, has all of it or stays as it was.
// tests/api/header_change_test.cpp gives templates headers of every form; tests/faults/call_test.cpp lets every
// allocation fail.
#ifndef JT_TREE_HEADER_H
#define JT_TREE_HEADER_H

#include <cstdint>
#include <string_view>

#include "jt.h"

namespace jt_core {

// What the author writes into a header. Between the two stands the encoding, which is always the same.
struct HeaderWords {
  std::string_view version;
  std::string_view identifier;
};

// The header or section that a decoder reads next, linked to the root; null after reports.
jt_node *add_header(jt_parser_space &space, jt_node &root);
jt_node *add_section(jt_parser_space &space, jt_node &root);

// The version or the identifier of a header; null when it is not there, which is so when a word was moved away.
const char *version_of(const jt_node &header);
const char *identifier_of(const jt_node &header);

// Gives a header its words, which may be texts of the words that it has. False after reports.
bool set_words(jt_parser_space &space, jt_node &header, const HeaderWords &words);

// Gives a template a header of that form, or gives the one that it has that form and those words. A form with a
// section makes one where there is none; a plain form drops it. False after reports.
bool set_header(jt_parser_space &space, jt_node &root, std::int16_t form, const HeaderWords &words);

// Destroys header and section of a template, where it has them.
void remove_header(jt_parser_space &space, jt_node &root);

}  // namespace jt_core

#endif
