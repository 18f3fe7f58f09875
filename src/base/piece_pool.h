// Pieces: the storage of nodes. A piece is cut from a page that holds many of them, so a template of
// thousands of nodes costs few blocks of the heap and its nodes lie side by side. A released piece is taken
// again by the next one of its size; a page whose pieces have all been released goes back to the heap. A
// session that builds and destroys, or edits one template, for a year therefore does not grow.
//
// A piece begins with a head of a few bytes that says how long it is and where its page begins. All pieces
// can be released at once, which costs little more than the pages do: the heads lead through a page, but only
// where its owner has marked a piece that is to be seen once more.
#ifndef JT_BASE_PIECE_POOL_H
#define JT_BASE_PIECE_POOL_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "jt.h"

namespace jt_core {

// Lengths and distances are counted in units. Everything that is laid out in a piece is aligned to one.
constexpr std::size_t kPieceUnit = alignof(void *);

// The longest piece. What is longer is better off as a block of its own.
constexpr std::size_t kMaxPiece = 1024;

// A released piece waits with its page until somebody looks for one, since most pages lose all their pieces
// before that, and then among those of its length.
enum class PieceState : std::uint8_t { kLive, kUnsorted, kSorted };

// What every piece begins with: how long it is and how far it lies behind the start of its page. It is the
// pool's; what follows is the owner's. One number, so that it is read and written whole.
class PieceHead {
 public:
  constexpr PieceHead() = default;
  constexpr PieceHead(std::size_t units, std::size_t page_units, PieceState state = PieceState::kLive)
      : bits_(static_cast<std::uint32_t>(page_units << kPageShift |
                                         static_cast<std::size_t>(state) << kStateShift | units)) {}

  constexpr std::size_t units() const { return bits_ & kUnits; }
  constexpr std::size_t page_units() const { return bits_ >> kPageShift; }
  constexpr PieceState state() const { return static_cast<PieceState>(bits_ >> kStateShift & kState); }

  // The same piece in another state.
  constexpr PieceHead in(PieceState state) const { return {units(), page_units(), state}; }

 private:
  static constexpr std::uint32_t kUnits = 0xFFF;
  static constexpr std::uint32_t kState = 0xF;
  static constexpr std::uint32_t kStateShift = 12;
  static constexpr std::uint32_t kPageShift = 16;

  std::uint32_t bits_ = 0;
};

struct Page;

// Pieces of one length are linked both ways: a page that goes back to the heap takes its pieces out of their
// lists.
struct FreePiece {
  PieceHead head;
  FreePiece *next;
  FreePiece *previous;  // while sorted
};

struct PiecePool {
  Page *current;                                             // new pieces are cut from it; the newest page
  std::size_t page_bytes;                                    // size of the next page
  Page *unsorted;                                            // the pages with which pieces wait
  std::array<FreePiece *, kMaxPiece / kPieceUnit + 1> free;  // by length in units
};

// A piece of at least `bytes` bytes, its head included (at most kMaxPiece). Nothing but the head is set; null
// after "allocation error".
void *take_piece(jt_parser_space &space, std::size_t bytes);

void release_piece(jt_parser_space &space, void *piece);

// release_all_pieces() is to visit this piece, as long as its page holds any.
void mark_piece(void *piece);

// The session that the piece was taken in.
jt_parser_space &session_of_piece(const void *piece);

// Releases every piece. Before that `visit` is called for those that were marked, and for others on their
// pages.
void release_all_pieces(jt_parser_space &space, void (*visit)(jt_parser_space &space, void *piece));

// Gives back the page that is kept ready, once every piece has been released.
void close_piece_pool(jt_parser_space &space);

// Whether an address lies inside the piece.
inline bool in_piece(const void *piece, const void *address) {
  const auto distance = reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(piece);
  return distance < static_cast<const PieceHead *>(piece)->units() * kPieceUnit;
}

}  // namespace jt_core

#endif
