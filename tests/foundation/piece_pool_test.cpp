// Pieces of storage: each is long enough, lies apart from every other, is found again after its release, and
// keeps what is written into it whatever happens to its neighbours.
#include "foundation/piece_pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <set>
#include <vector>

#include "foundation/parser_space.h"

namespace {

struct Piece {
  unsigned char *storage;
  jt::PieceTag tag;
  std::size_t bytes;
  unsigned char pattern;
};

class PiecePool : public ::testing::Test {
 protected:
  PiecePool() : space() {}
  ~PiecePool() override { jt::close_piece_pool(space); }
  PiecePool(const PiecePool &) = delete;
  PiecePool &operator=(const PiecePool &) = delete;

  Piece take(std::size_t bytes, unsigned char pattern = 0xA5) {
    const auto [storage, tag] = jt::take_piece(space, bytes);
    const Piece piece{static_cast<unsigned char *>(storage), tag, bytes, pattern};
    std::fill_n(piece.storage, bytes, pattern);
    return piece;
  }
  void release(const Piece &piece) {
    EXPECT_TRUE(std::all_of(piece.storage, piece.storage + piece.bytes,
                            [&](unsigned char byte) { return byte == piece.pattern; }));
    jt::release_piece(space, piece.storage, piece.tag);
  }

  jt_parser_space space;
};

TEST_F(PiecePool, APieceIsLongEnoughAndAligned) {
  for (std::size_t bytes = 0; bytes <= jt::kMaxPiece; ++bytes) {
    const Piece piece = take(bytes);
    ASSERT_NE(piece.storage, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(piece.storage) % jt::kPieceUnit, 0U);
    EXPECT_GE(piece.tag.units() * jt::kPieceUnit, bytes);
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
  const std::size_t length = piece.tag.units() * jt::kPieceUnit;
  EXPECT_TRUE(jt::in_piece(piece.storage, piece.tag, piece.storage));
  EXPECT_TRUE(jt::in_piece(piece.storage, piece.tag, piece.storage + length - 1));
  EXPECT_FALSE(jt::in_piece(piece.storage, piece.tag, piece.storage + length));
  EXPECT_FALSE(jt::in_piece(piece.storage, piece.tag, piece.storage - 1));
  EXPECT_FALSE(jt::in_piece(piece.storage, piece.tag, nullptr));
  release(piece);
}

TEST_F(PiecePool, ClosingAPoolThatWasNeverUsedIsFine) {
  jt::close_piece_pool(space);
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
