// Statuses are values of the base list, held by nodes or handed to clients. Beside the exported operations,
// which are those of every enumeration, the tree needs to look at a status without making one.
#ifndef JT_TYPES_STATUS_H
#define JT_TYPES_STATUS_H

#include <cstdint>
#include <string_view>

#include "jt.h"

namespace jt {

// What get_status_string() gives a copy of, with the same report; it lies in the status or in the list. Empty
// for a number without a name.
std::string_view status_text(jt_parser_space *space, const jt_status *status);

// Finds the number of a status by its name, without a report. A null name has none.
bool find_status_number(const char *name, std::uint32_t &number);

}  // namespace jt

#endif
