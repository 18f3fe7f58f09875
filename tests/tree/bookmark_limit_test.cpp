// The largest node table: one that cannot double any more has no further slot to give, and says so. There is
// no memory for one of that size, so the table is only told that it is that large.
#include <gtest/gtest.h>

#include <cstdint>

#include "support/session.h"
#include "tree/bookmarks.h"
#include "tree/session.h"

namespace jt_test {
namespace {

class BookmarkLimit : public SessionTest {
 protected:
  BookmarkLimit() : table(space->table) { space->table.capacity = space->table.count = INT32_MAX / 4 + 1; }
  ~BookmarkLimit() override { space->table = table; }

  const jt_core::NodeTable table;
};

TEST_F(BookmarkLimit, NoSlotIsAssignedBeyondIt) {
  EXPECT_EQ(jt_core::assign_bookmark(space, nullptr), -1);
  EXPECT_EQ(messages(), Messages{"MEMORY ERROR: allocating for book keeping ..."});
}

TEST_F(BookmarkLimit, NoNodeIsMadeBeyondIt) {
  EXPECT_EQ(jt_create_template(space), 0);
  EXPECT_EQ(status(), JT_SYSTEM_ERROR);
  EXPECT_EQ(messages(), (Messages{"MEMORY ERROR: allocating for book keeping ...",
                                  "SYSTEM ERROR: could not assign book mark ..."}));
}

}  // namespace
}  // namespace jt_test
