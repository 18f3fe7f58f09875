// An arena: the storage of nodes. A cell is cut from a page that holds many of them, so a template of
// thousands of nodes costs few blocks of the heap and its nodes lie side by side. A released cell is
// allocated again by the next one of its size; a page whose cells have all been released goes back to the
// heap. A session that builds and destroys, or edits one template, for a year therefore does not grow.
//
// A session has one arena, not one for each template. Nodes are made before they are linked and may move from
// one template to another, and a template of three services fits into a part of a page: with pages of its own
// it would keep most of them empty. The price is that the cells of one template among others are released one
// by one; all of them at once go with their pages.
//
// A released cell is first put on the list of its page (pending). Only when an allocation finds no cell in
// the bin of its size are the pages drained into the bins. Most pages become empty before that, and go
// without a look at their cells.
//
// A cell begins with a head of a few bytes that says how long it is and where its page begins, so that a page
// can be walked cell by cell. release_all_cells() walks only pages that are flagged as holding a cell whose
// owner has something else to release.
//
// Nothing is reported here, and no session is known: what cannot be had is null.
// tests/base/arena_test.cpp writes into every cell, in any order of use, and reads it again.
#ifndef JT_BASE_ARENA_H
#define JT_BASE_ARENA_H

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>

#include "base/heap.h"

namespace jt_core {

// Lengths and distances are counted in units. Everything that is laid out in a cell is aligned to one.
constexpr std::size_t kCellUnit = alignof(void *);

// The longest cell. What is longer is better off as a block of its own.
constexpr std::size_t kMaxCell = 1024;

// In use; released and on the list of its page; released and in the bin of its size.
enum class CellState : std::uint8_t { kLive, kPending, kBinned };

// What every cell begins with: how long it is and how far it lies behind the start of its page. It is the
// arena's; what follows is the owner's. One number, so that it is read and written whole.
class CellHead {
 public:
  constexpr CellHead() = default;
  constexpr CellHead(std::size_t units, std::size_t page_units, CellState state = CellState::kLive)
      : bits_(static_cast<std::uint32_t>(page_units << kPageShift |
                                         static_cast<std::size_t>(state) << kStateShift | units)) {}

  constexpr std::size_t units() const { return bits_ & kUnits; }
  constexpr std::size_t page_units() const { return bits_ >> kPageShift; }
  constexpr CellState state() const { return static_cast<CellState>(bits_ >> kStateShift & kState); }

  // The same cell in another state.
  constexpr CellHead in(CellState state) const { return {units(), page_units(), state}; }

 private:
  static constexpr std::uint32_t kUnits = 0xFFF;
  static constexpr std::uint32_t kState = 0xF;
  static constexpr std::uint32_t kStateShift = 12;
  static constexpr std::uint32_t kPageShift = 16;

  std::uint32_t bits_ = 0;
};

struct Arena;

// A bin is linked both ways: a page that goes back to the heap takes its cells out of their bins.
struct FreeCell {
  CellHead head;
  FreeCell *next;
  FreeCell *previous;  // while in a bin
};

// Cells follow the page record, each at a multiple of the unit, up to `used`.
struct alignas(kCellUnit) Page {
  std::uint32_t bytes;  // the whole page
  std::uint32_t used;   // up to here cells have been cut
  Arena *arena;
  Page *older;  // among all pages
  Page *newer = nullptr;
  std::uint32_t live = 0;       // cells that have not been released
  std::uint32_t binned = 0;     // released cells that are in the bins
  FreeCell *pending = nullptr;  // the other released cells
  Page *next = nullptr;         // among the pages that have pending cells
  Page *previous = nullptr;
  bool flagged = false;  // see flag_page_of()
};

// All zero but for the heap is an arena without pages.
struct Arena {
  Page *current;                                          // new cells are cut from it; the newest page
  std::size_t page_bytes;                                 // size of the next page
  Page *pending;                                          // the pages that have pending cells
  std::array<FreeCell *, kMaxCell / kCellUnit + 1> bins;  // by length in units
  Heap *heap;                                             // of the pages
};

// A new cell of that many units from a page that has them.
inline void *cut_cell(Page &page, std::size_t units) {
  const std::size_t offset = page.used;
  page.used += static_cast<std::uint32_t>(units * kCellUnit);
  ++page.live;
  void *const cell = reinterpret_cast<std::byte *>(&page) + offset;
  *static_cast<CellHead *>(cell) = {units, offset / kCellUnit};
  return cell;
}

// A cell of that many units from wherever there is one; null without memory.
void *allocate_units(Arena &arena, std::size_t units);

// A cell of at least `bytes` bytes, its head included (at most kMaxCell). Nothing but the head is set; null
// without memory. Where nothing has been released, as in a decode, it is cut from the current page: that stands
// here because every node passes it, and a call for each is 1 % of a decode.
inline void *allocate_cell(Arena &arena, std::size_t bytes) {
  assert(bytes <= kMaxCell);
  const std::size_t units = (std::max(bytes, sizeof(FreeCell)) + kCellUnit - 1) / kCellUnit;
  Page *const page = arena.current;
  const bool is_new = arena.bins[units] == nullptr && arena.pending == nullptr && page != nullptr &&
                      page->bytes - page->used >= units * kCellUnit;
  return is_new ? cut_cell(*page, units) : allocate_units(arena, units);
}

void release_cell(Arena &arena, void *cell);

// release_all_cells() is to visit this cell, as long as its page holds any.
void flag_page_of(void *cell);

// The arena that the cell was allocated in.
Arena &arena_of(const void *cell);

// Releases every cell. Before that `visit` is called for all cells of the flagged pages.
void release_all_cells(Arena &arena, void (*visit)(Arena &arena, void *cell));

// Gives back the page that is kept ready, once every cell has been released.
void close_arena(Arena &arena);

// Whether an address lies inside the cell.
inline bool in_cell(const void *cell, const void *address) {
  const auto distance = reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(cell);
  return distance < static_cast<const CellHead *>(cell)->units() * kCellUnit;
}

}  // namespace jt_core

#endif
