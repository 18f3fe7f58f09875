#include "foundation/piece_pool.h"

#include <algorithm>

#include "foundation/memory.h"
#include "foundation/parser_space.h"

namespace jt {

// Pieces follow the page record, each at a multiple of the unit, up to `used`.
struct alignas(kPieceUnit) Page {
  std::uint32_t bytes;   // the whole page
  std::uint32_t used;    // up to here pieces have been cut
  std::uint32_t live;    // pieces that have not been released
  std::uint32_t sorted;  // released pieces that wait among those of their length
  FreePiece *unsorted;   // the other released pieces
  Page *next;            // among the pages that have unsorted pieces
  Page *previous;
};

namespace {

constexpr std::size_t kFirstPage = 2048;
constexpr std::size_t kLargestPage = 65536;
static_assert(kLargestPage / kPieceUnit < UINT16_MAX, "a tag can hold every distance");
static_assert(alignof(FreePiece) <= kPieceUnit);

std::byte *byte_of(Page *page, std::size_t offset) { return reinterpret_cast<std::byte *>(page) + offset; }

Page *page_of(void *piece, PieceTag tag) {
  return reinterpret_cast<Page *>(static_cast<std::byte *>(piece) - tag.page_units() * kPieceUnit);
}

// ---- Released pieces by length ----

void sort(PiecePool &pool, FreePiece *piece) {
  FreePiece *&first = pool.free[piece->tag.units()];
  piece->sorted = true;
  piece->next = first;
  piece->previous = nullptr;
  if (first != nullptr) first->previous = piece;
  first = piece;
  ++page_of(piece, piece->tag)->sorted;
}

void unsort(PiecePool &pool, FreePiece *piece) {
  (piece->previous != nullptr ? piece->previous->next : pool.free[piece->tag.units()]) = piece->next;
  if (piece->next != nullptr) piece->next->previous = piece->previous;
  --page_of(piece, piece->tag)->sorted;
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
[[gnu::noinline]] Piece take_free(PiecePool &pool, std::size_t units) {
  while (pool.free[units] == nullptr && pool.unsorted != nullptr) sort_pieces_of(pool, pool.unsorted);
  FreePiece *const piece = pool.free[units];
  if (piece == nullptr) return {};
  unsort(pool, piece);
  ++page_of(piece, piece->tag)->live;
  return {piece, piece->tag};
}

// All pieces of the page have been released: none may be found in a list any more.
[[gnu::noinline]] void discard_page(PiecePool &pool, Page *page) {
  drop_unsorted(pool, page);
  for (std::size_t offset = sizeof(Page); page->sorted > 0;) {
    auto *const piece = reinterpret_cast<FreePiece *>(byte_of(page, offset));
    offset += piece->tag.units() * kPieceUnit;
    if (piece->sorted) unsort(pool, piece);
  }
  if (page == pool.current) {
    page->used = sizeof(Page);
  } else {
    er_free(page);
  }
}

// What is left of the current page is given up; it is less than the piece that is wanted. The page holds live
// pieces: an empty one has room for any.
[[gnu::noinline]] Page *open_page(jt_parser_space &space) {
  PiecePool &pool = space.pool;
  const std::size_t bytes = std::clamp(pool.page_bytes, kFirstPage, kLargestPage);
  auto *const page = static_cast<Page *>(take_unset_block(&space, bytes));
  if (page == nullptr) return nullptr;
  *page = {};
  page->bytes = static_cast<std::uint32_t>(bytes);
  page->used = sizeof(Page);
  pool.current = page;
  pool.page_bytes = bytes * 2;
  return page;
}

}  // namespace

Piece take_piece(jt_parser_space &space, std::size_t bytes) {
  PiecePool &pool = space.pool;
  const std::size_t units = (std::max(bytes, sizeof(FreePiece)) + kPieceUnit - 1) / kPieceUnit;
  if (pool.free[units] != nullptr || pool.unsorted != nullptr) {
    const Piece piece = take_free(pool, units);
    if (piece.storage != nullptr) return piece;
  }
  Page *page = pool.current;
  if (page == nullptr || page->bytes - page->used < units * kPieceUnit) page = open_page(space);
  if (page == nullptr) return {};
  const std::size_t offset = page->used;
  page->used += static_cast<std::uint32_t>(units * kPieceUnit);
  ++page->live;
  return {byte_of(page, offset), {units, offset / kPieceUnit}};
}

void release_piece(jt_parser_space &space, void *piece, PieceTag tag) {
  Page *const page = page_of(piece, tag);
  auto *const released = static_cast<FreePiece *>(piece);
  released->tag = tag;
  released->sorted = false;
  add_unsorted(space.pool, page, released);
  if (--page->live == 0) discard_page(space.pool, page);
}

void close_piece_pool(jt_parser_space &space) {
  er_free(space.pool.current);
  space.pool.current = nullptr;
}

}  // namespace jt
