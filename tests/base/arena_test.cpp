// Cells of storage: each is long enough, lies apart from every other, is found again after its release, and
// keeps what is written into it whatever happens to its neighbours.
#include "base/arena.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <set>
#include <vector>

namespace {

// What lies behind its head is the owner's.
struct Cell {
  unsigned char *storage;
  std::size_t bytes;
  unsigned char pattern;

  jt_core::CellHead head() const { return *reinterpret_cast<const jt_core::CellHead *>(storage); }
  unsigned char *begin() const { return storage + sizeof(jt_core::CellHead); }
  unsigned char *end() const { return std::max(begin(), storage + bytes); }
};

// The cells that were visited.
std::vector<void *> visited;

void note(jt_core::Arena & /*arena*/, void *cell) { visited.push_back(cell); }

class Arena : public ::testing::Test {
 protected:
  Arena() : heap(), arena() {
    arena.heap = &heap;
    visited.clear();
  }
  ~Arena() override { jt_core::close_arena(arena); }
  Arena(const Arena &) = delete;
  Arena &operator=(const Arena &) = delete;

  Cell allocate(std::size_t bytes, unsigned char pattern = 0xA5) {
    const Cell cell{static_cast<unsigned char *>(jt_core::allocate_cell(arena, bytes)), bytes, pattern};
    std::fill(cell.begin(), cell.end(), pattern);
    return cell;
  }
  void release(const Cell &cell) {
    EXPECT_TRUE(
        std::all_of(cell.begin(), cell.end(), [&](unsigned char byte) { return byte == cell.pattern; }));
    jt_core::release_cell(arena, cell.storage);
  }

  jt_core::Heap heap;
  jt_core::Arena arena;
};

TEST_F(Arena, ACellIsLongEnoughAndAligned) {
  for (std::size_t bytes = 0; bytes <= jt_core::kMaxCell; ++bytes) {
    const Cell cell = allocate(bytes);
    ASSERT_NE(cell.storage, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(cell.storage) % jt_core::kCellUnit, 0U);
    EXPECT_GE(cell.head().units() * jt_core::kCellUnit, bytes);
    release(cell);
  }
}

TEST_F(Arena, CellsDoNotOverlap) {
  std::vector<Cell> cells;
  for (int i = 0; i < 5000; ++i)
    cells.push_back(allocate(static_cast<std::size_t>(i) % 200, static_cast<unsigned char>(i)));
  for (const Cell &cell : cells) release(cell);
}

TEST_F(Arena, AReleasedCellIsAllocatedAgainByTheNextOfItsLength) {
  const Cell kept = allocate(96);
  const Cell first = allocate(96);
  const Cell second = allocate(200);
  release(first);
  release(second);
  const Cell long_again = allocate(200);
  const Cell short_again = allocate(96);
  EXPECT_EQ(long_again.storage, second.storage);
  EXPECT_EQ(short_again.storage, first.storage);
  for (const Cell &cell : {kept, long_again, short_again}) release(cell);
}

TEST_F(Arena, AnArenaThatIsFilledAndEmptiedStaysUsable) {
  for (int round = 0; round < 20; ++round) {
    std::vector<Cell> cells;
    for (int i = 0; i < 3000; ++i) cells.push_back(allocate(100 + static_cast<std::size_t>(round)));
    if (round % 2 == 1) std::reverse(cells.begin(), cells.end());
    for (const Cell &cell : cells) release(cell);
  }
}

TEST_F(Arena, KnowsWhatLiesInACell) {
  const Cell cell = allocate(64);
  const std::size_t length = cell.head().units() * jt_core::kCellUnit;
  EXPECT_TRUE(jt_core::in_cell(cell.storage, cell.storage));
  EXPECT_TRUE(jt_core::in_cell(cell.storage, cell.storage + length - 1));
  EXPECT_FALSE(jt_core::in_cell(cell.storage, cell.storage + length));
  EXPECT_FALSE(jt_core::in_cell(cell.storage, cell.storage - 1));
  EXPECT_FALSE(jt_core::in_cell(cell.storage, nullptr));
  release(cell);
}

TEST_F(Arena, ReleasesAllCellsAtOnce) {
  for (int round = 0; round < 3; ++round) {
    for (std::size_t i = 0; i < 5000; ++i) allocate(i % 200);
    jt_core::release_all_cells(arena, note);
  }
  EXPECT_EQ(visited, std::vector<void *>());
}

TEST_F(Arena, ReleasesNoneWhereNoneWasEverAllocated) {
  jt_core::release_all_cells(arena, note);
  EXPECT_EQ(visited, std::vector<void *>());
}

TEST_F(Arena, VisitsTheCellsOfFlaggedPagesBeforeTheyGo) {
  std::vector<void *> flagged;
  for (std::size_t i = 0; i < 5000; ++i) {
    const Cell cell = allocate(1024);
    if (i % 1000 != 0) continue;
    jt_core::flag_page_of(cell.storage);
    flagged.push_back(cell.storage);
  }
  jt_core::release_all_cells(arena, note);
  for (void *const cell : flagged) EXPECT_EQ(std::count(visited.begin(), visited.end(), cell), 1);
  EXPECT_LT(visited.size(), 500U);  // cells on other pages are not looked at
}

TEST_F(Arena, DoesNotVisitACellThatWasReleasedBefore) {
  const Cell kept = allocate(100);
  const Cell pending = allocate(100);
  const Cell binned = allocate(200);
  for (const Cell &cell : {kept, pending, binned}) jt_core::flag_page_of(cell.storage);
  release(binned);
  allocate(300);
  release(pending);
  jt_core::release_all_cells(arena, note);
  EXPECT_EQ(std::count(visited.begin(), visited.end(), kept.storage), 1);
  EXPECT_EQ(std::count(visited.begin(), visited.end(), pending.storage), 0);
  EXPECT_EQ(std::count(visited.begin(), visited.end(), binned.storage), 0);
}

TEST_F(Arena, ForgetsReleasedCellsWithAllOthers) {
  std::vector<Cell> cells;
  for (int i = 0; i < 3000; ++i) cells.push_back(allocate(100));
  for (std::size_t i = 0; i < cells.size(); i += 3) release(cells[i]);
  allocate(100);
  jt_core::release_all_cells(arena, note);
  std::set<unsigned char *> places;
  for (int i = 0; i < 3000; ++i) EXPECT_TRUE(places.insert(allocate(100).storage).second);
  jt_core::release_all_cells(arena, note);
}

TEST_F(Arena, AFlagIsForgottenWithAllCells) {
  jt_core::flag_page_of(allocate(100).storage);
  jt_core::release_all_cells(arena, note);
  visited.clear();
  allocate(100);
  jt_core::release_all_cells(arena, note);
  EXPECT_EQ(visited, std::vector<void *>());
}

TEST_F(Arena, KnowsTheArenaOfACell) {
  const Cell cell = allocate(100);
  EXPECT_EQ(&jt_core::arena_of(cell.storage), &arena);
  release(cell);
}

TEST_F(Arena, ClosingAnArenaThatWasNeverUsedIsFine) {
  jt_core::close_arena(arena);
  EXPECT_EQ(arena.current, nullptr);
}

TEST_F(Arena, KeepsEveryCellIntactInAnyOrderOfUse) {
  std::mt19937 random(7);
  std::vector<Cell> live;
  std::set<unsigned char *> places;
  for (int step = 0; step < 200000; ++step) {
    const unsigned odds = (step / 20000) % 2 == 0 ? 6 : 3;
    if (live.empty() || random() % 10 < odds) {
      live.push_back(
          allocate(random() % (random() % 20 == 0 ? 1025 : 160), static_cast<unsigned char>(random())));
      ASSERT_TRUE(places.insert(live.back().storage).second);
    } else {
      std::swap(live[random() % live.size()], live.back());
      places.erase(live.back().storage);
      release(live.back());
      live.pop_back();
    }
  }
  for (const Cell &cell : live) release(cell);
}

}  // namespace
