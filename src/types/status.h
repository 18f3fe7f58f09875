// Statuses are values of the base list, held by nodes or handed to clients. Beside the exported operations,
// which are those of every enumeration, the tree needs to look at a status without making one.
#ifndef JT_TYPES_STATUS_H
#define JT_TYPES_STATUS_H

#include <cstdint>

#include "jt.h"

namespace jt {

// The number of a status, or the marker of an unknown one.
std::uint32_t status_number(const jt_status *status);

// Finds the number of a status by its name, without a report. A null name has none.
bool find_status_number(const char *name, std::uint32_t &number);

}  // namespace jt

#endif
