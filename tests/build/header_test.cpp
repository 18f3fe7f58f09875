// The public header stands on its own as C++, before any other header, and states the version that was built.
#include "jt.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

TEST(PublicHeader, StatesTheVersion) {
  EXPECT_EQ(JT_VERSION_MAJOR, 4);
  EXPECT_EQ(JT_VERSION_MINOR, 3);
  EXPECT_EQ(JT_VERSION_PATCH, 0);
}

TEST(PublicHeader, HidesTheRecords) {
  EXPECT_TRUE(std::is_class_v<jt_type>);
  EXPECT_FALSE((std::is_convertible_v<jt_node *, jt_value *>));
  EXPECT_FALSE((std::is_convertible_v<jt_value *, jt_status *>));
}

TEST(PublicHeader, StandsForAnUnknownTypeWithAllOnes) {
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(jt_unknown_type()), UINTPTR_MAX);
}

}  // namespace
