// Pieces of storage: each is long enough, lies apart from every other, is found again after its release, and
// keeps what is written into it whatever happens to its neighbours.
#include "base/piece_pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <set>
#include <vector>

#include "base/parser_space.h"

namespace {

// What lies behind its head is the owner's.
struct Piece {
  unsigned char *storage;
  std::size_t bytes;
  unsigned char pattern;

  jt_core::PieceHead head() const { return *reinterpret_cast<const jt_core::PieceHead *>(storage); }
  unsigned char *begin() const { return storage + sizeof(jt_core::PieceHead); }
  unsigned char *end() const { return std::max(begin(), storage + bytes); }
};

// The pieces that were visited.
std::vector<void *> visited;

void note(jt_parser_space & /*space*/, void *piece) { visited.push_back(piece); }

class PiecePool : public ::testing::Test {
 protected:
  PiecePool() : space() { visited.clear(); }
  ~PiecePool() override { jt_core::close_piece_pool(space); }
  PiecePool(const PiecePool &) = delete;
  PiecePool &operator=(const PiecePool &) = delete;

  Piece take(std::size_t bytes, unsigned char pattern = 0xA5) {
    const Piece piece{static_cast<unsigned char *>(jt_core::take_piece(space, bytes)), bytes, pattern};
    std::fill(piece.begin(), piece.end(), pattern);
    return piece;
  }
  void release(const Piece &piece) {
    EXPECT_TRUE(
        std::all_of(piece.begin(), piece.end(), [&](unsigned char byte) { return byte == piece.pattern; }));
    jt_core::release_piece(space, piece.storage);
  }

  jt_parser_space space;
};

TEST_F(PiecePool, APieceIsLongEnoughAndAligned) {
  for (std::size_t bytes = 0; bytes <= jt_core::kMaxPiece; ++bytes) {
    const Piece piece = take(bytes);
    ASSERT_NE(piece.storage, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(piece.storage) % jt_core::kPieceUnit, 0U);
    EXPECT_GE(piece.head().units() * jt_core::kPieceUnit, bytes);
    release(piece);
  }
}

TEST_F(PiecePool, PiecesDoNotOverlap) {
  std::vector<Piece> pieces;
  for (int i = 0; i < 5000; ++i)
    pieces.push_back(take(static_cast<std::size_t>(i) % 200, static_cast<unsigned char>(i)));
  for (const Piece &piece : pieces) release(piece);
}

TEST_F(PiecePool, AReleasedPieceIsTakenAgainByTheNextOfItsLength) {
  const Piece kept = take(96);
  const Piece first = take(96);
  const Piece second = take(200);
  release(first);
  release(second);
  const Piece long_again = take(200);
  const Piece short_again = take(96);
  EXPECT_EQ(long_again.storage, second.storage);
  EXPECT_EQ(short_again.storage, first.storage);
  for (const Piece &piece : {kept, long_again, short_again}) release(piece);
}

TEST_F(PiecePool, APoolThatIsFilledAndEmptiedStaysUsable) {
  for (int round = 0; round < 20; ++round) {
    std::vector<Piece> pieces;
    for (int i = 0; i < 3000; ++i) pieces.push_back(take(100 + static_cast<std::size_t>(round)));
    if (round % 2 == 1) std::reverse(pieces.begin(), pieces.end());
    for (const Piece &piece : pieces) release(piece);
  }
}

TEST_F(PiecePool, KnowsWhatLiesInAPiece) {
  const Piece piece = take(64);
  const std::size_t length = piece.head().units() * jt_core::kPieceUnit;
  EXPECT_TRUE(jt_core::in_piece(piece.storage, piece.storage));
  EXPECT_TRUE(jt_core::in_piece(piece.storage, piece.storage + length - 1));
  EXPECT_FALSE(jt_core::in_piece(piece.storage, piece.storage + length));
  EXPECT_FALSE(jt_core::in_piece(piece.storage, piece.storage - 1));
  EXPECT_FALSE(jt_core::in_piece(piece.storage, nullptr));
  release(piece);
}

TEST_F(PiecePool, ReleasesAllPiecesAtOnce) {
  for (int round = 0; round < 3; ++round) {
    for (std::size_t i = 0; i < 5000; ++i) take(i % 200);
    jt_core::release_all_pieces(space, note);
  }
  EXPECT_EQ(visited, std::vector<void *>());
}

TEST_F(PiecePool, ReleasesNoneWhereNoneWasEverTaken) {
  jt_core::release_all_pieces(space, note);
  EXPECT_EQ(visited, std::vector<void *>());
}

TEST_F(PiecePool, VisitsTheMarkedPiecesBeforeTheyGo) {
  std::vector<void *> marked;
  for (std::size_t i = 0; i < 5000; ++i) {
    const Piece piece = take(1024);
    if (i % 1000 != 0) continue;
    jt_core::mark_piece(piece.storage);
    marked.push_back(piece.storage);
  }
  jt_core::release_all_pieces(space, note);
  for (void *const piece : marked) EXPECT_EQ(std::count(visited.begin(), visited.end(), piece), 1);
  EXPECT_LT(visited.size(), 500U);  // pieces on other pages are not looked at
}

TEST_F(PiecePool, DoesNotVisitAPieceThatWasReleasedBefore) {
  const Piece kept = take(100);
  const Piece waiting = take(100);
  const Piece sorted = take(200);
  for (const Piece &piece : {kept, waiting, sorted}) jt_core::mark_piece(piece.storage);
  release(sorted);
  take(300);
  release(waiting);
  jt_core::release_all_pieces(space, note);
  EXPECT_EQ(std::count(visited.begin(), visited.end(), kept.storage), 1);
  EXPECT_EQ(std::count(visited.begin(), visited.end(), waiting.storage), 0);
  EXPECT_EQ(std::count(visited.begin(), visited.end(), sorted.storage), 0);
}

TEST_F(PiecePool, ForgetsReleasedPiecesWithAllOthers) {
  std::vector<Piece> pieces;
  for (int i = 0; i < 3000; ++i) pieces.push_back(take(100));
  for (std::size_t i = 0; i < pieces.size(); i += 3) release(pieces[i]);
  take(100);
  jt_core::release_all_pieces(space, note);
  std::set<unsigned char *> places;
  for (int i = 0; i < 3000; ++i) EXPECT_TRUE(places.insert(take(100).storage).second);
  jt_core::release_all_pieces(space, note);
}

TEST_F(PiecePool, AMarkIsForgottenWithAllPieces) {
  jt_core::mark_piece(take(100).storage);
  jt_core::release_all_pieces(space, note);
  visited.clear();
  take(100);
  jt_core::release_all_pieces(space, note);
  EXPECT_EQ(visited, std::vector<void *>());
}

TEST_F(PiecePool, ClosingAPoolThatWasNeverUsedIsFine) {
  jt_core::close_piece_pool(space);
  EXPECT_EQ(space.pool.current, nullptr);
}

TEST_F(PiecePool, KeepsEveryPieceIntactInAnyOrderOfUse) {
  std::mt19937 random(7);
  std::vector<Piece> live;
  std::set<unsigned char *> places;
  for (int step = 0; step < 200000; ++step) {
    const unsigned odds = (step / 20000) % 2 == 0 ? 6 : 3;
    if (live.empty() || random() % 10 < odds) {
      live.push_back(
          take(random() % (random() % 20 == 0 ? 1025 : 160), static_cast<unsigned char>(random())));
      ASSERT_TRUE(places.insert(live.back().storage).second);
    } else {
      std::swap(live[random() % live.size()], live.back());
      places.erase(live.back().storage);
      release(live.back());
      live.pop_back();
    }
  }
  for (const Piece &piece : live) release(piece);
}

}  // namespace
