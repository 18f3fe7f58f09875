#include "tree/limits.h"

#include <algorithm>
#include <limits>

#include "tree/session.h"

namespace jt_core {

void set_limits(jt_parser_space &space, const Limits &limits) {
  Heap &heap = space.heap;
  heap.most = heap.asked + std::min(limits.heap, std::numeric_limits<std::uint64_t>::max() - heap.asked);
  const std::int32_t live = live_slots(space.table, space.free_slots);
  bound_slots(space.table, space.free_slots, live + std::min(limits.nodes, kUnboundedSlots - live));
}

Limit reached_limit(const jt_parser_space &space) {
  if (space.free_slots.bound_reached) return Limit::kNodes;
  return space.heap.bound_reached ? Limit::kHeap : Limit::kNone;
}

Limit lift_limits(jt_parser_space &space) {
  const Limit reached = reached_limit(space);
  bound_slots(space.table, space.free_slots, kUnboundedSlots);
  space.heap.most = 0;
  space.heap.bound_reached = false;
  return reached;
}

}  // namespace jt_core
