// The node table: which node stands in which slot. A node's slot is its bookmark, fixed for its life; a
// released slot is assigned again lowest first. A bitmap of free slots with a summary bitmap above each level
// finds the lowest one in a few steps however large the table is. Capacity is counted in steps of 512 slots,
// while the storage behind it doubles, so that filling a table costs time linear in its nodes.
//
// Nothing is reported here, and of a node only its address is known. tests/base/node_table_test.cpp compares
// the table with a set of free slots.
#ifndef JT_BASE_NODE_TABLE_H
#define JT_BASE_NODE_TABLE_H

#include <array>
#include <cstdint>
#include <limits>

#include "base/heap.h"
#include "jt.h"

namespace jt_core {

constexpr std::int32_t kTableStep = 512;

// The fields of the table that clients may rely on; they stand in the parser space right after its label.
struct NodeTable {
  jt_node **slots;
  std::int32_t capacity;
  std::int32_t count;
};

// Free slots below the count. Level 0 has a bit for each slot; a bit of a higher level says that the word
// below it is not zero.
struct FreeSlots {
  static constexpr std::uint32_t kLevels = 7;
  std::array<std::uint32_t *, kLevels> levels;
  std::int32_t reserved;  // slots that fit into the storage
  std::uint32_t height;   // levels in use; the highest is one word
  std::uint32_t lowest;   // the first word of level 0 that is not zero; the largest number when none is
  std::int32_t free;      // bits set in level 0
  // The bound, as the two numbers that spare the common cases a look at it: how many slots must stay free, and up
  // to which count the next slot may be taken, which is never more than the capacity.
  std::int32_t least_free;
  std::int32_t end;
  std::int32_t most;   // live slots
  bool bound_reached;  // a slot has been refused because of that
  Heap *heap;          // of the storage
};

constexpr std::int32_t kUnboundedSlots = std::numeric_limits<std::int32_t>::max();

// Answers of assign_slot() that are no slot.
constexpr std::int32_t kNoSlotMemory = -1;
constexpr std::int32_t kTableFull = -2;

// Storage for the first 512 slots, from that heap like all that follows; false without memory.
bool open_node_table(NodeTable &table, FreeSlots &free_slots, Heap &heap);
void close_node_table(NodeTable &table, FreeSlots &free_slots);

// The slot that now holds the node: a free one below the count or, where there is none, one of a table that has
// just grown.
std::int32_t claim_slot(NodeTable &table, FreeSlots &free_slots, jt_node *node);

// The slot that now holds the node. The common case, the next slot behind all others, stands here for the same
// reason as that of allocate_cell().
inline std::int32_t assign_slot(NodeTable &table, FreeSlots &free_slots, jt_node *node) {
  if (free_slots.free > 0 || table.count >= free_slots.end) return claim_slot(table, free_slots, node);
  table.slots[table.count] = node;
  return table.count++;
}

// Lets at most so many slots be live from now on; one that is wanted beyond that is refused as without memory.
void bound_slots(const NodeTable &table, FreeSlots &free_slots, std::int32_t most);

// Makes a live slot free.
void vacate_slot(NodeTable &table, FreeSlots &free_slots, std::int32_t slot);

// Makes every slot free. The cost is that of the table, not of what lives in it.
void vacate_all_slots(NodeTable &table, FreeSlots &free_slots);

// How many slots are live.
inline std::int32_t live_slots(const NodeTable &table, const FreeSlots &free_slots) {
  return table.count - free_slots.free;
}

// Whether this very node stands in the slot.
inline bool holds_node(const NodeTable &table, std::int32_t bookmark, const jt_node *node) {
  // A negative bookmark is larger than any count.
  return static_cast<std::uint32_t>(bookmark) < static_cast<std::uint32_t>(table.count) &&
         table.slots[bookmark] == node;
}

}  // namespace jt_core

#endif
