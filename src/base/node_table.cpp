#include "base/node_table.h"

#include <algorithm>
#include <bit>
#include <cassert>

#include "base/markers.h"

namespace jt_core {
namespace {

constexpr std::int32_t kWordBits = 32;
constexpr std::uint32_t kNoWord = UINT32_MAX;
constexpr std::int32_t kMaxTable = INT32_MAX / 4;

std::size_t words_for(std::size_t bits) { return (bits + kWordBits - 1) / kWordBits; }

// Words of all levels of a bitmap over so many slots.
std::size_t bitmap_words(std::size_t slots) {
  std::size_t words = 0;
  for (std::uint32_t level = 0; level < FreeSlots::kLevels; ++level) {
    slots = words_for(slots);
    words += slots;
  }
  return words;
}

// Slots and bitmap lie in one block, so that a table grows whole or not at all.
bool reserve(NodeTable &table, FreeSlots &map, std::int32_t wanted) {
  const auto slots = static_cast<std::size_t>(wanted);
  auto *const block = static_cast<jt_node **>(
      map.heap->allocate_zeroed(slots * sizeof(jt_node *) + bitmap_words(slots) * sizeof(std::uint32_t)));
  if (block == nullptr) return false;
  auto *words = reinterpret_cast<std::uint32_t *>(block + slots);
  auto old_bits = static_cast<std::size_t>(map.reserved);
  std::size_t new_bits = slots;
  map.height = 0;
  for (std::uint32_t *&level : map.levels) {
    if (new_bits > 1) ++map.height;
    old_bits = words_for(old_bits);
    new_bits = words_for(new_bits);
    std::copy_n(level, level != nullptr ? old_bits : 0, words);
    level = words;
    words += new_bits;
  }
  std::copy_n(table.slots, table.count, block);
  map.heap->release(table.slots);
  table.slots = block;
  map.reserved = wanted;
  return true;
}

// 0, or why the table cannot grow.
std::int32_t grow(NodeTable &table, FreeSlots &map) {
  if (live_slots(table, map) >= map.most) {
    map.bound_reached = true;
    return kNoSlotMemory;
  }
  if (table.capacity >= map.reserved) {
    if (table.capacity > kMaxTable) return kTableFull;
    if (!reserve(table, map, table.capacity * 2)) return kNoSlotMemory;
  }
  table.capacity += kTableStep;
  map.end = std::min(table.capacity, map.most);
  return 0;
}

// A word of level 0 is no longer zero: tells the levels above.
void set_free_above(FreeSlots &map, std::uint32_t bit) {
  for (std::uint32_t level = 1; level < FreeSlots::kLevels; ++level) {
    std::uint32_t &word = map.levels[level][bit / kWordBits];
    const bool known_above = word != 0;
    word |= 1U << bit % kWordBits;
    if (known_above) break;
    bit /= kWordBits;
  }
}

void set_free(FreeSlots &map, std::int32_t slot) {
  const auto bit = static_cast<std::uint32_t>(slot);
  const std::uint32_t at = bit / kWordBits;
  map.lowest = std::min(map.lowest, at);
  ++map.free;
  std::uint32_t &word = map.levels[0][at];
  const bool known_above = word != 0;
  word |= 1U << bit % kWordBits;
  if (!known_above) set_free_above(map, at);
}

// The words of level 0 up to this one have become zero. The highest level is one word; each step down follows
// the lowest bit that is set.
std::uint32_t next_lowest(FreeSlots &map, std::uint32_t emptied) {
  std::uint32_t bit = emptied;
  for (std::uint32_t level = 1; level < FreeSlots::kLevels; ++level) {
    std::uint32_t &word = map.levels[level][bit / kWordBits];
    word &= word - 1;
    if (word != 0) break;
    bit /= kWordBits;
  }
  if (map.free == 0) return kNoWord;
  bit = 0;
  for (std::uint32_t level = map.height; level-- > 1;) {
    bit = bit * kWordBits + static_cast<std::uint32_t>(std::countr_zero(map.levels[level][bit]));
  }
  return bit;
}

std::int32_t claim_lowest(FreeSlots &map) {
  assert(map.free > 0 && map.levels[0][map.lowest] != 0);
  std::uint32_t &word = map.levels[0][map.lowest];
  const auto slot = map.lowest * kWordBits + static_cast<std::uint32_t>(std::countr_zero(word));
  word &= word - 1;
  --map.free;
  if (word == 0) map.lowest = next_lowest(map, map.lowest);
  return static_cast<std::int32_t>(slot);
}

}  // namespace

bool open_node_table(NodeTable &table, FreeSlots &free_slots, Heap &heap) {
  free_slots.heap = &heap;
  if (!reserve(table, free_slots, kTableStep)) return false;
  table.capacity = kTableStep;
  free_slots.lowest = kNoWord;
  free_slots.most = kUnboundedSlots;
  free_slots.end = kTableStep;
  return true;
}

void close_node_table(NodeTable &table, FreeSlots &free_slots) {
  Heap *const heap = free_slots.heap;
  heap->release(table.slots);
  table = {};
  free_slots = {};
  free_slots.heap = heap;
}

std::int32_t claim_slot(NodeTable &table, FreeSlots &free_slots, jt_node *node) {
  std::int32_t slot = table.count;
  if (free_slots.free > free_slots.least_free) {
    slot = claim_lowest(free_slots);
    assert(table.slots[slot] == released_slot());
  } else {
    const std::int32_t refused = grow(table, free_slots);
    if (refused < 0) return refused;
    ++table.count;
  }
  table.slots[slot] = node;
  return slot;
}

void bound_slots(const NodeTable &table, FreeSlots &free_slots, std::int32_t most) {
  free_slots.most = most;
  free_slots.least_free = std::max(table.count - most, 0);
  free_slots.end = std::min(table.capacity, most);
  free_slots.bound_reached = false;
}

void vacate_slot(NodeTable &table, FreeSlots &free_slots, std::int32_t slot) {
  assert(slot >= 0 && slot < table.count && table.slots[slot] != released_slot());
  table.slots[slot] = released_slot();
  set_free(free_slots, slot);
}

void vacate_all_slots(NodeTable &table, FreeSlots &free_slots) {
  std::fill_n(table.slots, table.count, released_slot());
  auto bits = static_cast<std::size_t>(table.count);
  for (std::uint32_t *const level : free_slots.levels) {
    std::fill_n(level, bits / kWordBits, UINT32_MAX);
    if (bits % kWordBits > 0) level[bits / kWordBits] = (1U << bits % kWordBits) - 1;
    bits = words_for(bits);
  }
  free_slots.free = table.count;
  free_slots.lowest = table.count > 0 ? 0 : kNoWord;
}

}  // namespace jt_core
