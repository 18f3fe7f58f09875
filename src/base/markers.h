// The all-ones markers. Memory that the library fills with ones means "nothing here, on purpose", as opposed
// to a null that was never set: a released slot, an unknown type, a cursor that has not started. Each marker
// has its one name here. tests/tree/construction_test.cpp and tests/base/node_table_test.cpp look for the
// markers where they belong.
#ifndef JT_BASE_MARKERS_H
#define JT_BASE_MARKERS_H

#include <cstdint>

#include "jt.h"

namespace jt_core {

template <typename Record>
inline Record *all_ones() {
  return reinterpret_cast<Record *>(UINTPTR_MAX);
}

// A slot of the node table whose node is gone.
inline jt_node *released_slot() { return all_ones<jt_node>(); }

// A cursor that reads from the first child, whichever that will be.
inline jt_node *not_started() { return all_ones<jt_node>(); }

// The value field of a value node whose type is unknown.
inline jt_value *untyped_value() { return all_ones<jt_value>(); }

inline const jt_type *unknown_type() { return jt_unknown_type(); }

// The number of an enumerated value or a status whose name no list knows; the name follows it.
constexpr std::uint32_t kUnknownNameMarker = 0xFFFFFFFF;

}  // namespace jt_core

#endif
