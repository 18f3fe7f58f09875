#include "base/piece_pool.h"

#include <algorithm>

#include "base/memory.h"
#include "base/parser_space.h"

namespace jt_core {

// Pieces follow the page record, each at a multiple of the unit, up to `used`.
struct alignas(kPieceUnit) Page {
  std::uint32_t bytes;  // the whole page
  std::uint32_t used;   // up to here pieces have been cut
  jt_parser_space *space;
  Page *older;  // among all pages
  Page *newer = nullptr;
  std::uint32_t live = 0;         // pieces that have not been released
  std::uint32_t sorted = 0;       // released pieces that wait among those of their length
  FreePiece *unsorted = nullptr;  // the other released pieces
  Page *next = nullptr;           // among the pages that have unsorted pieces
  Page *previous = nullptr;
  bool marked = false;  // has held a marked piece
};

namespace {

constexpr std::size_t kFirstPage = 2048;
constexpr std::size_t kLargestPage = 65536;
static_assert(PieceHead(kMaxPiece / kPieceUnit, kLargestPage / kPieceUnit).units() == kMaxPiece / kPieceUnit);
static_assert(PieceHead(0, kLargestPage / kPieceUnit).page_units() == kLargestPage / kPieceUnit);
static_assert(alignof(FreePiece) <= kPieceUnit);

std::byte *byte_of(Page *page, std::size_t offset) { return reinterpret_cast<std::byte *>(page) + offset; }

PieceHead &head_of(void *piece) { return *static_cast<PieceHead *>(piece); }

Page *page_of(void *piece) {
  return reinterpret_cast<Page *>(static_cast<std::byte *>(piece) - head_of(piece).page_units() * kPieceUnit);
}

// Calls the function for every piece of the page, in their order.
template <typename Function>
void for_each_piece(Page *page, Function function) {
  for (std::size_t offset = sizeof(Page); offset < page->used;) {
    void *const piece = byte_of(page, offset);
    offset += head_of(piece).units() * kPieceUnit;
    function(piece);
  }
}

// ---- Released pieces by length ----

void sort(PiecePool &pool, FreePiece *piece) {
  FreePiece *&first = pool.free[piece->head.units()];
  piece->head = piece->head.in(PieceState::kSorted);
  piece->next = first;
  piece->previous = nullptr;
  if (first != nullptr) first->previous = piece;
  first = piece;
  ++page_of(piece)->sorted;
}

void unsort(PiecePool &pool, FreePiece *piece) {
  (piece->previous != nullptr ? piece->previous->next : pool.free[piece->head.units()]) = piece->next;
  if (piece->next != nullptr) piece->next->previous = piece->previous;
  --page_of(piece)->sorted;
}

// ---- Released pieces that wait with their pages ----

void add_unsorted(PiecePool &pool, Page *page, FreePiece *piece) {
  if (page->unsorted == nullptr) {
    page->next = pool.unsorted;
    page->previous = nullptr;
    if (page->next != nullptr) page->next->previous = page;
    pool.unsorted = page;
  }
  piece->next = page->unsorted;
  page->unsorted = piece;
}

void drop_unsorted(PiecePool &pool, Page *page) {
  (page->previous != nullptr ? page->previous->next : pool.unsorted) = page->next;
  if (page->next != nullptr) page->next->previous = page->previous;
  page->unsorted = nullptr;
}

void sort_pieces_of(PiecePool &pool, Page *page) {
  FreePiece *piece = page->unsorted;
  drop_unsorted(pool, page);
  while (piece != nullptr) {
    FreePiece *const next = piece->next;
    sort(pool, piece);
    piece = next;
  }
}

// A released piece of that length, if there is one. Kept out of the way of those who only cut a new one.
[[gnu::noinline]] void *take_free(PiecePool &pool, std::size_t units) {
  while (pool.free[units] == nullptr && pool.unsorted != nullptr) sort_pieces_of(pool, pool.unsorted);
  FreePiece *const piece = pool.free[units];
  if (piece == nullptr) return nullptr;
  unsort(pool, piece);
  piece->head = piece->head.in(PieceState::kLive);
  ++page_of(piece)->live;
  return piece;
}

// ---- Pages ----

// A page as it is when it has just been opened.
void clear(Page *page) { *page = {page->bytes, sizeof(Page), page->space, page->older}; }

void unlink_page(Page *page) {
  page->newer->older = page->older;
  if (page->older != nullptr) page->older->newer = page->newer;
}

// All pieces of the page have been released: none may be found in a list any more.
[[gnu::noinline]] void discard_page(PiecePool &pool, Page *page) {
  drop_unsorted(pool, page);
  if (page->sorted > 0) {
    for_each_piece(page, [&pool](void *piece) {
      if (head_of(piece).state() == PieceState::kSorted) unsort(pool, static_cast<FreePiece *>(piece));
    });
  }
  if (page == pool.current) {
    clear(page);
  } else {
    unlink_page(page);
    er_free(page);
  }
}

// What is left of the current page is given up; it is less than the piece that is wanted. The page holds live
// pieces: an empty one has room for any.
[[gnu::noinline]] Page *open_page(jt_parser_space &space) {
  PiecePool &pool = space.pool;
  const std::size_t bytes = std::clamp(pool.page_bytes, kFirstPage, kLargestPage);
  auto *const page = static_cast<Page *>(allocate_unset_block(&space, bytes));
  if (page == nullptr) return nullptr;
  page->bytes = static_cast<std::uint32_t>(bytes);
  page->space = &space;
  page->older = pool.current;
  clear(page);
  if (pool.current != nullptr) pool.current->newer = page;
  pool.current = page;
  pool.page_bytes = bytes * 2;
  return page;
}

}  // namespace

void *take_piece(jt_parser_space &space, std::size_t bytes) {
  PiecePool &pool = space.pool;
  const std::size_t units = (std::max(bytes, sizeof(FreePiece)) + kPieceUnit - 1) / kPieceUnit;
  if (pool.free[units] != nullptr || pool.unsorted != nullptr) {
    void *const piece = take_free(pool, units);
    if (piece != nullptr) return piece;
  }
  Page *page = pool.current;
  if (page == nullptr || page->bytes - page->used < units * kPieceUnit) page = open_page(space);
  if (page == nullptr) return nullptr;
  const std::size_t offset = page->used;
  page->used += static_cast<std::uint32_t>(units * kPieceUnit);
  ++page->live;
  void *const piece = byte_of(page, offset);
  head_of(piece) = {units, offset / kPieceUnit};
  return piece;
}

void release_piece(jt_parser_space &space, void *piece) {
  Page *const page = page_of(piece);
  auto *const released = static_cast<FreePiece *>(piece);
  released->head = released->head.in(PieceState::kUnsorted);
  add_unsorted(space.pool, page, released);
  if (--page->live == 0) discard_page(space.pool, page);
}

void mark_piece(void *piece) { page_of(piece)->marked = true; }

jt_parser_space &session_of_piece(const void *piece) { return *page_of(const_cast<void *>(piece))->space; }

// All visits are made before the first page goes.
void release_all_pieces(jt_parser_space &space, void (*visit)(jt_parser_space &space, void *piece)) {
  PiecePool &pool = space.pool;
  if (pool.current == nullptr) return;
  for (Page *page = pool.current; page != nullptr; page = page->older) {
    if (!page->marked) continue;
    for_each_piece(page, [&](void *piece) {
      if (head_of(piece).state() == PieceState::kLive) visit(space, piece);
    });
  }
  while (Page *const page = pool.current->older) {
    pool.current->older = page->older;
    er_free(page);
  }
  clear(pool.current);
  pool.unsorted = nullptr;
  pool.free = {};
}

void close_piece_pool(jt_parser_space &space) {
  er_free(space.pool.current);
  space.pool.current = nullptr;
}

}  // namespace jt_core
