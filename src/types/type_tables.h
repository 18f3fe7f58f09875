// The services with their type tables and value lists, and the look-up of types by name. A type name means
// what the table of its service says, or else what the base table says. Tables are constant and sorted by
// name, letters folded. tests/types/type_tables_test.cpp has every row.
#ifndef JT_TYPES_TYPE_TABLES_H
#define JT_TYPES_TYPE_TABLES_H

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "jt.h"
#include "types/value_family.h"
#include "types/value_list.h"

namespace jt_core {

struct TypeTable {
  const jt_type *rows;
  std::int32_t count;
  // Hash table of the names in these rows, and of those that only the base table has: 1 + the row's number,
  // or 0; probed linearly. The base rows are numbered after these.
  std::array<std::uint8_t, 128> slots;
  std::array<std::uint8_t, 48> lengths;   // of the names
  std::array<std::uint8_t, 48> families;  // of the rows: their numbers, 0 for a kind of block
};

// A service that has a table of its own.
struct ServiceTypes {
  std::string_view name;
  std::uint32_t hash;  // of the name
  TypeTable types;
  const ValueList *values;  // that its enumerations share; null when it has none
  bool in_templates;        // false: the table is for clients to list, no look-up goes there
};

// The sixteen services in the order in which they are compared; those that are looked up come first.
std::span<const ServiceTypes> services();

// The built-in types, which every service has beside its own.
const TypeTable &base_types();

// A row of a table with what the library does with its values; both null when there is no such type.
struct TypeEntry {
  const jt_type *type;
  const ValueFamily *family;
};

// Null for an empty name.
const jt_type *find_base_type(std::string_view name);

// The table of one of the fourteen services that have one to look in.
const TypeTable *find_service_table(std::string_view service_name);

// The table that holds such a service's own row; null for any other row.
const TypeTable *find_table_of_row(const jt_type *row);

// The type of that name in a service's table, or else among the built-in types; these alone without a table.
TypeEntry find_type_in_scope(const TypeTable *table, std::string_view type_name);

// What the library does with the values of a type; null for a kind of block, for the unknown type, and for a
// client's own type. A table that is likely to hold the type is looked at first; null where none is.
const ValueFamily *family_of(const jt_type *type, const TypeTable *likely = nullptr);

// The families by number. All from kFirstEnumeration on are enumerations.
enum class FamilyNumber : std::uint8_t {
  kNone,  // of a kind of block, and of all that family_of() does not know
  kBoolean,
  kInteger,
  kReal,
  kTimestamp,
  kTimeOfDay,
  kRectangle,
  kMagnification,
  kBorders,
  kString,
  kInvocationReference,
  kCollectionReference,
  kGutter,
  kFirstEnumeration
};

FamilyNumber family_number_of(const jt_type *type);

// The row that stands for such a service itself.
const jt_type *find_service_row(std::string_view name);

}  // namespace jt_core

#endif
