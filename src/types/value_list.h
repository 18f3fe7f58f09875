// A value list as it is used: the names and numbers that all enumerations of one service accept. It is found
// by name through a hash table and by number through an index, both laid out at compile time
// (value_packing.h), and never changes. tests/types/enumeration_test.cpp looks up every name and number.
#ifndef JT_TYPES_VALUE_LIST_H
#define JT_TYPES_VALUE_LIST_H

#include <cstdint>
#include <string_view>

namespace jt_core {

struct ValueList {
  const char *characters;        // of all names, in the order of the rows
  const std::uint16_t *begins;   // of each row's name, and the end of the last; rows are sorted by name
  const std::uint16_t *numbers;  // of each row
  const std::uint16_t *slots;    // hash table: row + 1, or 0; probed linearly
  const std::uint16_t *written;  // by number: 1 + the row whose name is written for it, or 0
  std::uint16_t last_slot;       // the number of slots is a power of 2
  std::uint16_t number_end;
  std::uint16_t rows;
};

// The name of a row, which is not terminated.
std::string_view name_of_row(const ValueList &list, unsigned row);

// Finds the number of a name, letters folded.
bool find_number(const ValueList &list, std::string_view name, std::uint32_t &number);

// The name that is written for a number; empty when no row has the number.
std::string_view find_name(const ValueList &list, std::uint32_t number);

}  // namespace jt_core

#endif
