// The node table: which node stands in which slot. A node's slot is its bookmark, fixed for its life; a
// released slot is taken again lowest first. A bitmap of free slots with a summary bitmap above each level
// finds the lowest one in a few steps however large the table is. Capacity is counted in steps of 512 slots,
// while the storage behind it doubles, so that filling a table costs time linear in its nodes.
#ifndef JT_BASE_NODE_TABLE_H
#define JT_BASE_NODE_TABLE_H

#include <array>
#include <cstdint>

#include "jt.h"

namespace jt_core {

constexpr std::int32_t kTableStep = 512;

// The stated fields of the table come first; they stand in the parser space right after its label.
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
  std::int32_t reserved;  // slots that the storage has room for
  std::uint32_t height;   // levels in use; the highest is one word
  std::uint32_t lowest;   // the first word of level 0 that is not zero; the largest number when none is
  std::int32_t free;      // bits set in level 0
};

// Storage for the first 512 slots; false when there is none, without a report.
bool open_node_table(jt_parser_space &space);
void close_node_table(jt_parser_space &space);

// The bookmark of the slot that now holds the node, or -1 after a report.
std::int32_t assign_bookmark(jt_parser_space *space, jt_node *node);

// Makes a live slot free.
void vacate_slot(jt_parser_space &space, std::int32_t bookmark);

// How many slots are live.
std::int32_t live_nodes(const jt_parser_space &space);

// Makes every slot free. The cost is that of the table, not of what lives in it.
void vacate_all_slots(jt_parser_space &space);

// 1 when the slot was live or the bookmark was refused with a report; 0 when it had been released before.
std::int32_t release_bookmark(jt_parser_space *space, std::int32_t bookmark);

// Whether this very node stands in the slot.
inline bool holds_node(const NodeTable &table, std::int32_t bookmark, const jt_node *node) {
  // A negative bookmark is larger than any count.
  return static_cast<std::uint32_t>(bookmark) < static_cast<std::uint32_t>(table.count) &&
         table.slots[bookmark] == node;
}

}  // namespace jt_core

#endif
