// The type tables and the look-up of types by name. A type name means what the table of its service says, or
// else what the base table says. Tables are constant and sorted by name, letters folded.
#ifndef JT_TYPES_TYPE_TABLES_H
#define JT_TYPES_TYPE_TABLES_H

#include <cstdint>

#include "jt.h"

namespace jt {

struct TypeTable {
  const jt_type *rows;
  std::int32_t count;
};

// The built-in types and the kinds of blocks that belong to no service.
TypeTable base_types();

// Each find answers null for a null name.
const jt_type *find_type_in_table(const jt_type *table, std::int32_t rows, const char *name);
const jt_type *find_base_type(const char *name);

// The table of one of the fourteen services that have one to look in.
const TypeTable *find_service_table(const char *service_name);

// The row that stands for such a service itself.
const jt_type *find_service_row(const char *name);

}  // namespace jt

#endif
