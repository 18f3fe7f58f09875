#include "base/node_table.h"

#include <algorithm>
#include <bit>

#include "base/markers.h"
#include "base/memory.h"
#include "base/parser_space.h"

namespace jt_core {
namespace {

constexpr std::int32_t kWordBits = 32;
constexpr std::uint32_t kNoWord = UINT32_MAX;
constexpr std::int32_t kLargestTable = INT32_MAX / 4;

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
bool reserve(jt_parser_space &space, std::int32_t wanted) {
  NodeTable &table = space.table;
  FreeSlots &map = space.free_slots;
  const auto slots = static_cast<std::size_t>(wanted);
  auto *const block = static_cast<jt_node **>(
      allocate_block(&space, slots * sizeof(jt_node *) + bitmap_words(slots) * sizeof(std::uint32_t)));
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
  er_free(table.slots);
  table.slots = block;
  map.reserved = wanted;
  return true;
}

[[gnu::noinline]] bool grow(jt_parser_space &space) {
  NodeTable &table = space.table;
  const bool room = table.capacity < space.free_slots.reserved;
  if (!room && (table.capacity > kLargestTable || !reserve(space, table.capacity * 2))) return false;
  table.capacity += kTableStep;
  return true;
}

// A word of level 0 is no longer zero: tells the levels above.
[[gnu::noinline]] void set_free_above(FreeSlots &map, std::uint32_t bit) {
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
[[gnu::noinline]] std::uint32_t next_lowest(FreeSlots &map, std::uint32_t emptied) {
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

std::int32_t take_lowest_free(FreeSlots &map) {
  std::uint32_t &word = map.levels[0][map.lowest];
  const auto slot = map.lowest * kWordBits + static_cast<std::uint32_t>(std::countr_zero(word));
  word &= word - 1;
  --map.free;
  if (word == 0) map.lowest = next_lowest(map, map.lowest);
  return static_cast<std::int32_t>(slot);
}

}  // namespace

bool open_node_table(jt_parser_space &space) {
  if (!reserve(space, kTableStep)) return false;
  space.table.capacity = kTableStep;
  space.free_slots.lowest = kNoWord;
  return true;
}

void close_node_table(jt_parser_space &space) {
  er_free(space.table.slots);
  space.table = {};
  space.free_slots = {};
}

std::int32_t assign_bookmark(jt_parser_space *space, jt_node *node) {
  if (space == nullptr) return -1;
  NodeTable &table = space->table;
  std::int32_t slot = table.count;
  if (space->free_slots.free > 0) {
    slot = take_lowest_free(space->free_slots);
  } else if (table.count == table.capacity && !grow(*space)) {
    report(space, message::kNoNodeTable);
    return -1;
  } else {
    ++table.count;
  }
  table.slots[slot] = node;
  return slot;
}

std::int32_t live_nodes(const jt_parser_space &space) { return space.table.count - space.free_slots.free; }

void vacate_slot(jt_parser_space &space, std::int32_t bookmark) {
  space.table.slots[bookmark] = released_slot();
  set_free(space.free_slots, bookmark);
}

void vacate_all_slots(jt_parser_space &space) {
  const NodeTable &table = space.table;
  FreeSlots &map = space.free_slots;
  std::fill_n(table.slots, table.count, released_slot());
  auto bits = static_cast<std::size_t>(table.count);
  for (std::uint32_t *const level : map.levels) {
    std::fill_n(level, bits / kWordBits, UINT32_MAX);
    if (bits % kWordBits > 0) level[bits / kWordBits] = (1U << bits % kWordBits) - 1;
    bits = words_for(bits);
  }
  map.free = table.count;
  map.lowest = table.count > 0 ? 0 : kNoWord;
}

std::int32_t release_bookmark(jt_parser_space *space, std::int32_t bookmark) {
  if (space == nullptr) return 1;
  NodeTable &table = space->table;
  if (table.slots == nullptr || bookmark < 0 || bookmark >= table.count) {
    report(space, message::kBadBookmark);
    return 1;
  }
  if (table.slots[bookmark] == released_slot()) return 0;
  vacate_slot(*space, bookmark);
  return 1;
}

}  // namespace jt_core
