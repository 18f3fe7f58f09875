// The status that a node holds. Only the text of an unknown status needs a block; a number lies in the node.
#include <cstring>

#include "tree/node.h"
#include "tree/node_storage.h"

extern "C" int32_t set_status(jt_parser_space *space, jt_node *node, const jt_status *status) {
  if (space == nullptr || node == nullptr || node == jt::all_ones<jt_node>() || status == nullptr) return 0;
  std::uint32_t number = 0;
  std::memcpy(&number, status, sizeof(number));
  jt::set_status_number(*space, *node, number);
  return 1;
}
