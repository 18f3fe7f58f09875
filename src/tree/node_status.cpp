// The status that a node holds. One with a name of the list is shared by all nodes; only another number and
// the text of an unknown status need a block.
// tests/tree/node_status_test.cpp
#include <cstring>

#include "base/error_store.h"
#include "tree/node.h"
#include "tree/node_storage.h"
#include "types/status.h"

// Of the given status only the number counts.
extern "C" int32_t set_status(jt_parser_space *space, jt_node *node, const jt_status *status) {
  if (space == nullptr || node == nullptr || node == jt_core::all_ones<jt_node>() || status == nullptr)
    return 0;
  std::uint32_t number = 0;
  std::memcpy(&number, status, sizeof(number));
  const jt_status *const stored = jt_core::status_of_number(space, jt_core::heap_of(*node), number);
  if (stored == nullptr) {
    jt_core::report(space, jt_core::message::kNoStatus);
    return 0;
  }
  jt_core::adopt_status(*node, stored);
  return 1;
}
