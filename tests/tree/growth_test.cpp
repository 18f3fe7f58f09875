// A session that works for a year does not grow: what is destroyed or replaced is given back or used again,
// long before the session closes.
#include <gtest/gtest.h>
#include <malloc.h>

#include <string>

#include "tree/tree_session.h"

// There in a program that is built with a sanitizer, null in any other.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace {

// Bytes of the heap in use.
std::size_t heap_bytes() {
  if (__sanitizer_get_current_allocated_bytes != nullptr) return __sanitizer_get_current_allocated_bytes();
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

// Pages come and go, and tables double; what is lost with every round is far more than this.
constexpr std::size_t kSlack = 200000;
constexpr int kWarmUp = 200;
constexpr int kRounds = 4000;

class Growth : public jt_test::TreeTest {
 protected:
  template <typename Round>
  void expect_no_growth(Round round) {
    for (int i = 0; i < kWarmUp; ++i) round(i);
    const std::size_t before = heap_bytes();
    for (int i = 0; i < kRounds; ++i) round(i);
    EXPECT_LT(heap_bytes(), before + kSlack);
  }
};

TEST_F(Growth, DecodingAndDestroyingDoesNotGrowASession) {
  const std::string text = jt_test::question_template();
  expect_no_growth(
      [&](int) { EXPECT_EQ(jt_destroy_template(space, jt_decode_template(space, text.c_str())), 1); });
}

TEST_F(Growth, TemplatesThatOverlapInTimeDoNotGrowASession) {
  const std::string texts[] = {jt_test::question_template(), jt_test::plain_template(),
                               jt_test::exclaim_template()};
  int32_t kept[7] = {};
  expect_no_growth([&](int round) {
    int32_t &handle = kept[round % 7];
    EXPECT_EQ(jt_destroy_template(space, handle), handle != 0 ? 1 : 0);
    handle = jt_decode_template(space, texts[round % 3].c_str());
  });
}

TEST_F(Growth, RefusedTemplatesDoNotGrowASession) {
  const std::string text = jt_test::question_template() + "trailing words";
  expect_no_growth([&](int) { EXPECT_EQ(jt_decode_template(space, text.c_str()), 0); });
}

TEST_F(Growth, EditingOneTemplateDoesNotGrowIt) {
  const int32_t handle = jt_decode_template(space, "[ kmt_svc_scan S ] one { string s = t; } end");
  expect_no_growth([&](int round) {
    const std::string text(static_cast<std::size_t>(round % 300), 'v');
    const std::string name = "name" + std::to_string(round % 1000);
    EXPECT_EQ(jt_set_attribute_value_string(space, handle, "S", "s", text.c_str()), 1);
    EXPECT_EQ(jt_force_invocation_name(space, handle, "S", name.c_str()), 1);
    EXPECT_EQ(jt_add_attribute(space, handle, "S", "mystery", name.c_str()), 1);
    EXPECT_EQ(jt_add_attribute_value_string(space, handle, "S", name.c_str(), text.c_str()), 1);
    EXPECT_EQ(jt_delete_attribute(space, handle, "S", name.c_str()), 1);
  });
}

TEST_F(Growth, NodesOfGrowingLengthDoNotGrowASession) {
  expect_no_growth([&](int round) {
    const std::string name(static_cast<std::size_t>(round % 1500), 'n');
    EXPECT_EQ(destroy_node(space, make("template", name.c_str(), JT_NODE_TEMPLATE, nullptr)), 1);
  });
}

}  // namespace
