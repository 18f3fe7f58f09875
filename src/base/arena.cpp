#include "base/arena.h"

#include <algorithm>
#include <cassert>

namespace jt_core {

namespace {

constexpr std::size_t kFirstPage = 2048;
constexpr std::size_t kMaxPage = 65536;
static_assert(CellHead(kMaxCell / kCellUnit, kMaxPage / kCellUnit).units() == kMaxCell / kCellUnit);
static_assert(CellHead(0, kMaxPage / kCellUnit).page_units() == kMaxPage / kCellUnit);
static_assert(alignof(FreeCell) <= kCellUnit);

std::byte *byte_of(Page *page, std::size_t offset) { return reinterpret_cast<std::byte *>(page) + offset; }

CellHead &head_of(void *cell) { return *static_cast<CellHead *>(cell); }

Page *page_of(void *cell) {
  return reinterpret_cast<Page *>(static_cast<std::byte *>(cell) - head_of(cell).page_units() * kCellUnit);
}

// Calls the function for every cell of the page, in their order.
template <typename Function>
void for_each_cell(Page *page, Function function) {
  for (std::size_t offset = sizeof(Page); offset < page->used;) {
    void *const cell = byte_of(page, offset);
    offset += head_of(cell).units() * kCellUnit;
    function(cell);
  }
}

// ---- Bins -------------------------------------------------------------------------------------------------

void bin(Arena &arena, FreeCell *cell) {
  FreeCell *&first = arena.bins[cell->head.units()];
  cell->head = cell->head.in(CellState::kBinned);
  cell->next = first;
  cell->previous = nullptr;
  if (first != nullptr) first->previous = cell;
  first = cell;
  ++page_of(cell)->binned;
}

void unbin(Arena &arena, FreeCell *cell) {
  assert(cell->head.state() == CellState::kBinned && page_of(cell)->binned > 0);
  (cell->previous != nullptr ? cell->previous->next : arena.bins[cell->head.units()]) = cell->next;
  if (cell->next != nullptr) cell->next->previous = cell->previous;
  --page_of(cell)->binned;
}

// ---- Pending cells ----------------------------------------------------------------------------------------

void add_pending(Arena &arena, Page *page, FreeCell *cell) {
  if (page->pending == nullptr) {
    page->next = arena.pending;
    page->previous = nullptr;
    if (page->next != nullptr) page->next->previous = page;
    arena.pending = page;
  }
  cell->next = page->pending;
  page->pending = cell;
}

void drop_pending(Arena &arena, Page *page) {
  (page->previous != nullptr ? page->previous->next : arena.pending) = page->next;
  if (page->next != nullptr) page->next->previous = page->previous;
  page->pending = nullptr;
}

void bin_cells_of(Arena &arena, Page *page) {
  FreeCell *cell = page->pending;
  drop_pending(arena, page);
  while (cell != nullptr) {
    assert(cell->head.state() == CellState::kPending);
    FreeCell *const next = cell->next;
    bin(arena, cell);
    cell = next;
  }
}

// A released cell of that length, if there is one. Kept out of the way of those who only cut a new one.
void *allocate_released(Arena &arena, std::size_t units) {
  while (arena.bins[units] == nullptr && arena.pending != nullptr) bin_cells_of(arena, arena.pending);
  FreeCell *const cell = arena.bins[units];
  if (cell == nullptr) return nullptr;
  unbin(arena, cell);
  cell->head = cell->head.in(CellState::kLive);
  ++page_of(cell)->live;
  return cell;
}

// ---- Pages ------------------------------------------------------------------------------------------------

// A page as it is when it has just been opened.
void clear(Page *page) { *page = {page->bytes, sizeof(Page), page->arena, page->older}; }

void unlink_page(Page *page) {
  page->newer->older = page->older;
  if (page->older != nullptr) page->older->newer = page->newer;
}

// All cells of the page have been released: none may be found in a list any more.
void discard_page(Arena &arena, Page *page) {
  assert(page->live == 0);
  drop_pending(arena, page);
  if (page->binned > 0) {
    for_each_cell(page, [&arena](void *cell) {
      if (head_of(cell).state() == CellState::kBinned) unbin(arena, static_cast<FreeCell *>(cell));
    });
  }
  if (page == arena.current) {
    clear(page);
  } else {
    unlink_page(page);
    arena.heap->release(page);
  }
}

// What is left of the current page is given up; it is less than the cell that is wanted. The page holds live
// cells: an empty one is long enough for any.
Page *open_page(Arena &arena) {
  const std::size_t bytes = std::clamp(arena.page_bytes, kFirstPage, kMaxPage);
  auto *const page = static_cast<Page *>(arena.heap->allocate(bytes));
  if (page == nullptr) return nullptr;
  page->bytes = static_cast<std::uint32_t>(bytes);
  page->arena = &arena;
  page->older = arena.current;
  clear(page);
  if (arena.current != nullptr) arena.current->newer = page;
  arena.current = page;
  arena.page_bytes = bytes * 2;
  return page;
}

}  // namespace

void *allocate_units(Arena &arena, std::size_t units) {
  if (arena.bins[units] != nullptr || arena.pending != nullptr) {
    void *const cell = allocate_released(arena, units);
    if (cell != nullptr) return cell;
  }
  Page *page = arena.current;
  if (page == nullptr || page->bytes - page->used < units * kCellUnit) page = open_page(arena);
  return page != nullptr ? cut_cell(*page, units) : nullptr;
}

void release_cell(Arena &arena, void *cell) {
  Page *const page = page_of(cell);
  assert(page->arena == &arena && page->live > 0 && head_of(cell).state() == CellState::kLive);
  auto *const released = static_cast<FreeCell *>(cell);
  released->head = released->head.in(CellState::kPending);
  add_pending(arena, page, released);
  if (--page->live == 0) discard_page(arena, page);
}

void flag_page_of(void *cell) { page_of(cell)->flagged = true; }

Arena &arena_of(const void *cell) { return *page_of(const_cast<void *>(cell))->arena; }

// All visits are made before the first page goes.
void release_all_cells(Arena &arena, void (*visit)(Arena &arena, void *cell)) {
  if (arena.current == nullptr) return;
  for (Page *page = arena.current; page != nullptr; page = page->older) {
    if (!page->flagged) continue;
    for_each_cell(page, [&](void *cell) {
      if (head_of(cell).state() == CellState::kLive) visit(arena, cell);
    });
  }
  while (Page *const page = arena.current->older) {
    arena.current->older = page->older;
    arena.heap->release(page);
  }
  clear(arena.current);
  arena.pending = nullptr;
  arena.bins = {};
}

void close_arena(Arena &arena) {
  arena.heap->release(arena.current);
  arena.current = nullptr;
}

}  // namespace jt_core
