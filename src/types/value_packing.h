// Lays out a value list at compile time: rows in a readable order become rows sorted by name, one run of
// characters, a hash table of the names and an index of the numbers. Packed lists are plain numbers: besides
// the few pointers of its ValueList, a list needs no work when the library is loaded.
// tests/types/enumeration_test.cpp finds every row in its packed list.
#ifndef JT_TYPES_VALUE_PACKING_H
#define JT_TYPES_VALUE_PACKING_H

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "base/text.h"
#include "types/value_list.h"

namespace jt_core {

struct NamedNumber {
  std::string_view name;
  std::uint16_t number;
};

using NamedNumbers = std::span<const NamedNumber>;

consteval std::uint32_t number_of(NamedNumbers rows, std::string_view name) {
  return std::find_if(rows.begin(), rows.end(), [&](const NamedNumber &row) { return row.name == name; })
      ->number;
}

template <std::size_t Rows>
consteval std::array<NamedNumber, Rows> sorted_by_name(const std::array<NamedNumber, Rows> &rows) {
  auto sorted = rows;
  std::sort(sorted.begin(), sorted.end(),
            [](const NamedNumber &a, const NamedNumber &b) { return compare_names(a.name, b.name) < 0; });
  return sorted;
}

consteval bool has_unique_names(NamedNumbers sorted) {
  return std::adjacent_find(sorted.begin(), sorted.end(), [](const NamedNumber &a, const NamedNumber &b) {
           return same_name(a.name, b.name);
         }) == sorted.end();
}

consteval std::size_t count_characters(NamedNumbers rows) {
  std::size_t count = 0;
  for (const NamedNumber &row : rows) count += row.name.size();
  return count;
}

consteval std::size_t end_of_numbers(NamedNumbers rows) {
  std::size_t end = 0;
  for (const NamedNumber &row : rows) end = std::max<std::size_t>(end, row.number + std::size_t{1});
  return end;
}

// At most three slots in four are taken, so that probing stays short and always ends.
consteval std::size_t count_slots(std::size_t rows) { return std::bit_ceil(rows * 4 / 3 + 1); }

template <std::size_t Rows, std::size_t Characters, std::size_t Numbers>
struct PackedList {
  std::array<std::uint16_t, Rows + 1> begins{};
  std::array<std::uint16_t, Rows> numbers{};
  std::array<std::uint16_t, count_slots(Rows)> slots{};
  std::array<std::uint16_t, Numbers> written{};
  std::array<char, Characters> characters{};

  constexpr ValueList list() const {
    return {characters.data(), begins.data(),
            numbers.data(),    slots.data(),
            written.data(),    static_cast<std::uint16_t>(slots.size() - 1),
            Numbers,           Rows};
  }

  consteval void add_row(std::size_t row, const NamedNumber &named) {
    numbers[row] = named.number;
    begins[row + 1] = static_cast<std::uint16_t>(begins[row] + named.name.size());
    std::copy(named.name.begin(), named.name.end(), characters.begin() + begins[row]);
    const auto entry = static_cast<std::uint16_t>(row + 1);
    if (written[named.number] == 0) written[named.number] = entry;
    std::size_t slot = name_hash(named.name) % slots.size();
    while (slots[slot] != 0) slot = (slot + 1) % slots.size();
    slots[slot] = entry;
  }
};

// Where names share a number, the name that sorts first is written, unless `preferred` has another one.
template <const auto &Rows>
consteval auto pack(NamedNumbers preferred = {}) {
  constexpr auto kRows = sorted_by_name(Rows);
  static_assert(has_unique_names(kRows));
  PackedList<kRows.size(), count_characters(kRows), end_of_numbers(kRows)> packed;
  for (std::size_t row = 0; row < kRows.size(); ++row) packed.add_row(row, kRows[row]);
  for (const NamedNumber &named : preferred) {
    const auto row = std::find_if(kRows.begin(), kRows.end(), [&](const NamedNumber &candidate) {
      return candidate.name == named.name && candidate.number == named.number;
    });
    packed.written[row->number] = static_cast<std::uint16_t>(row - kRows.begin() + 1);
  }
  return packed;
}

}  // namespace jt_core

#endif
