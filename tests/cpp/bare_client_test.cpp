// The header works in a program without exceptions and RTTI as it does in this one.
#include "cpp/bare_client.h"
#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

TEST(BareClient, AddsUpTheCopies) { EXPECT_EQ(copies_of(kJob), 7); }

TEST(BareClient, AddsThemUpInMemoryOfItsOwn) { EXPECT_EQ(copies_in_a_pool(kJob), 7); }

TEST(BareClient, IsToldThatATextIsRefused) { EXPECT_EQ(copies_of("["), -1); }

}  // namespace
}  // namespace jt_test
