// Pieces: the storage of nodes. A piece is cut from a page that holds many of them, so a template of
// thousands of nodes costs few blocks of the heap and its nodes lie side by side. A released piece is taken
// again by the next one of its size; a page whose pieces have all been released goes back to the heap. A
// session that builds and destroys, or edits one template, for a year therefore does not grow.
//
// A piece has no header. Its owner keeps the tag that came with it, which says how long the piece is and how
// far it lies behind the start of its page.
#ifndef JT_FOUNDATION_PIECE_POOL_H
#define JT_FOUNDATION_PIECE_POOL_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "jt.h"

namespace jt {

// Lengths and distances are counted in units. Everything that is laid out in a piece is aligned to one.
constexpr std::size_t kPieceUnit = alignof(void *);

// The longest piece. What is longer is better off as a block of its own.
constexpr std::size_t kMaxPiece = 1024;

// One number, so that it is read and written whole.
class PieceTag {
 public:
  constexpr PieceTag() = default;
  constexpr PieceTag(std::size_t units, std::size_t page_units)
      : bits_(static_cast<std::uint32_t>(units | page_units << 16U)) {}

  constexpr std::size_t units() const { return bits_ & 0xFFFFU; }
  constexpr std::size_t page_units() const { return bits_ >> 16U; }  // distance from the start of the page

 private:
  std::uint32_t bits_ = 0;
};

struct Piece {
  void *storage;  // null when there is none; then the tag says nothing
  PieceTag tag;
};

struct Page;

// A released piece. It waits with its page until somebody looks for one, since most pages lose all their
// pieces before that, and then among those of its length. There neighbours are linked both ways: a page that
// goes back to the heap takes its pieces out of their lists.
struct FreePiece {
  PieceTag tag;
  bool sorted;  // waits among those of its length
  FreePiece *next;
  FreePiece *previous;  // while sorted
};

struct PiecePool {
  Page *current;                                             // the page that new pieces are cut from
  std::size_t page_bytes;                                    // size of the next page
  Page *unsorted;                                            // the pages with which pieces wait
  std::array<FreePiece *, kMaxPiece / kPieceUnit + 1> free;  // by length in units
};

// A piece of at least `bytes` bytes (at most kMaxPiece), not zeroed; none after "allocation error".
Piece take_piece(jt_parser_space &space, std::size_t bytes);

void release_piece(jt_parser_space &space, void *piece, PieceTag tag);

// Gives back the page that is kept ready, once every piece has been released.
void close_piece_pool(jt_parser_space &space);

// Whether an address lies inside the piece.
inline bool in_piece(const void *piece, PieceTag tag, const void *address) {
  const auto distance = reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(piece);
  return distance < tag.units() * kPieceUnit;
}

}  // namespace jt

#endif
