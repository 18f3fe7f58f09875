// Statuses are values of the base list, held by nodes or handed to clients. Beside the exported operations,
// which are those of every enumeration, the tree needs to look at a status without making one.
// tests/types/status_test.cpp
#ifndef JT_TYPES_STATUS_H
#define JT_TYPES_STATUS_H

#include <cstdint>
#include <string_view>

#include "base/heap.h"
#include "jt.h"

namespace jt_core {

// What get_status_string() gives a copy of, with the same report; it lies in the status or in the list. Empty
// for a number without a name.
std::string_view status_text(jt_parser_space *space, const jt_status *status);

// A status without a text that nobody owns; null for a name that the list does not know, or for none.
const jt_status *find_shared_status(std::string_view name);
bool is_shared_status(const jt_status *status);

// A status without a text: a shared one where the number has a name or is the marker, else a new one to be
// kept; null after "allocation error".
const jt_status *status_of_number(jt_parser_space *space, Heap &heap, std::uint32_t number);

// What get_status() gives, to be kept.
const jt_status *status_of_name(jt_parser_space *space, Heap &heap, std::string_view name);

}  // namespace jt_core

#endif
