// The type tables and the look-up of types by name. A type name means what the table of its service says, or
// else what the base table says. Tables are constant and sorted by name, letters folded.
#ifndef JT_TYPES_TYPE_TABLES_H
#define JT_TYPES_TYPE_TABLES_H

#include <array>
#include <cstdint>
#include <string_view>

#include "jt.h"

namespace jt {

struct TypeTable {
  const jt_type *rows;
  std::int32_t count;
  // Hash table of the names in these rows, and of those that only the base table has: 1 + the row's number,
  // or 0; probed linearly. The base rows are numbered after these.
  std::array<std::uint8_t, 128> slots;
  std::array<std::uint8_t, 48> lengths;  // of the names
};

// Each find answers null for an empty name.
const jt_type *find_base_type(std::string_view name);

// The table of one of the fourteen services that have one to look in.
const TypeTable *find_service_table(std::string_view service_name);

// The table that holds such a service's own row; null for any other row.
const TypeTable *find_table_of_row(const jt_type *row);

// Whether the type is a row of one of the tables in which types are looked up, not a client's own.
bool is_library_type(const jt_type *type);

// The type of that name in a service's table, or else among the built-in types; these alone without a table.
const jt_type *find_type_in_scope(const TypeTable *table, std::string_view type_name);

// The row that stands for such a service itself.
const jt_type *find_service_row(std::string_view name);

}  // namespace jt

#endif
