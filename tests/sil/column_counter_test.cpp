// The column counter of the encoder: it runs on from one encoding to the next on the same thread, and no
// other thread sees it.
#include <gtest/gtest.h>

#include <thread>
#include <utility>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

// Each of these runs on a thread of its own, whose counter starts at 0.
class ColumnCounter : public DecodeTest {
 protected:
  template <typename Act>
  static void on_a_new_thread(Act act) {
    std::thread(act).join();
  }

  // A template whose text is this comment, which ends no line.
  int32_t template_of(const std::string &comment) {
    const int32_t handle = jt_create_template(space);
    add_comment(space, opaque_to_node(space, handle), comment.c_str());
    return handle;
  }
};

TEST_F(ColumnCounter, RunsOnFromOneEncodingToTheNext) {
  const int32_t handle = template_of(times(71, 'c'));
  on_a_new_thread([&] {
    EXPECT_EQ(encoded(handle), times(71, 'c'));
    EXPECT_EQ(encoded(handle), "\n" + times(71, 'c'));
    EXPECT_EQ(encoded(handle), "\n" + times(71, 'c'));
  });
}

TEST_F(ColumnCounter, StartsAtZeroOnEachThread) {
  const int32_t seventy = template_of(times(70, 'c'));
  on_a_new_thread([&] {
    EXPECT_EQ(encoded(seventy), times(70, 'c'));
    EXPECT_EQ(encoded(seventy), times(70, 'c'));
    EXPECT_EQ(encoded(seventy), "\n" + times(70, 'c'));
  });
}

TEST_F(ColumnCounter, IsAddedUpOverEncodings) {
  const int32_t handle = template_of(times(24, 'c'));
  on_a_new_thread([&] {
    EXPECT_EQ(encoded(handle), times(24, 'c'));
    EXPECT_EQ(encoded(handle), times(24, 'c'));
    EXPECT_EQ(encoded(handle), times(24, 'c'));
    EXPECT_EQ(encoded(handle), "\n" + times(24, 'c'));
    EXPECT_EQ(encoded(handle), times(24, 'c'));
  });
}

TEST_F(ColumnCounter, RunsOnAcrossTemplatesAndSessions) {
  const int32_t comment = template_of(times(71, 'c'));
  jt_parser_space *const other = jt_open_parsing_utility("other");
  const int32_t service = jt_decode_template(other, "[ service A ] end");
  on_a_new_thread([&] {
    EXPECT_EQ(encoded(comment), times(71, 'c'));
    EXPECT_EQ(take_text(jt_encode_template(other, service)), "\n[service A]\nend\n\n");
    EXPECT_EQ(take_text(jt_encode_template(other, service)), "[service A]\nend\n\n");
  });
  jt_close_parsing_utility(other);
}

TEST_F(ColumnCounter, DoesNotCountTheMarkersOfASection) {
  jt_node *const root = decoded("<? SIL 4.2.00 ASCII id > < ? > < /? > [ service B ] end < /SIL >");
  ASSERT_NE(root, nullptr);
  add_comment(space, root->next_sibling, times(71, 'c').c_str());
  on_a_new_thread([&] {
    EXPECT_EQ(take_text(encode_template(space, root)), "\n<? SIL 4.2.00 ASCII id >\n\n\n< ? >\n" +
                                                           times(71, 'c') +
                                                           "< /? >\n\n\n[service B]\nend\n\n\n< /SIL >\n");
  });
}

TEST_F(ColumnCounter, CountsAPartThatIsNotWritten) {
  jt_node *const root = decoded("<! SIL 4.2.00 ASCII id > < ! > < /! > < /SIL >");
  ASSERT_NE(root, nullptr);
  add_comment(space, root, times(71, 'c').c_str());
  const int32_t service = decode("[ service A ] end");
  on_a_new_thread([&] {
    EXPECT_EQ(take_text(encode_template(space, root)),
              "\n<! SIL 4.2.00 ASCII id >\n\n\n< ! >\n< /! >\n\n\n< /SIL >\n");
    EXPECT_EQ(encoded(service), "\n[service A]\nend\n\n");
  });
}

TEST_F(ColumnCounter, StaysWhereItWasWhenAnEncodingFails) {
  const int32_t comment = template_of(times(71, 'c'));
  const int32_t service = decode("[ service A ] end");
  jt_node *const root = decoded("< SIL 4.2.00 ASCII id > < /SIL >");
  ASSERT_NE(root, nullptr);
  add_comment(space, root->previous_sibling, times(71, 'h').c_str());
  jt_node *const version = root->previous_sibling->parent;
  jt_value *const value = std::exchange(version->value, nullptr);
  on_a_new_thread([&] {
    EXPECT_EQ(encode_template(space, root), nullptr);
    EXPECT_EQ(encoded(service), "[service A]\nend\n\n");
    EXPECT_EQ(encoded(comment), times(71, 'c'));
    EXPECT_EQ(encode_template(space, root), nullptr);
    EXPECT_EQ(encoded(service), "\n[service A]\nend\n\n");
  });
  version->value = value;
}

TEST_F(ColumnCounter, IsAtZeroAfterALineFeed) {
  const int32_t handle = template_of(times(100, 'c') + "\n");
  on_a_new_thread([&] {
    EXPECT_EQ(encoded(handle), times(100, 'c') + "\n");
    EXPECT_EQ(encoded(handle), times(100, 'c') + "\n");
  });
}

TEST_F(ColumnCounter, IsNotSharedBetweenThreads) {
  const int32_t handle = template_of(times(71, 'c'));
  on_a_new_thread([&] { EXPECT_EQ(encoded(handle), times(71, 'c')); });
  on_a_new_thread([&] { EXPECT_EQ(encoded(handle), times(71, 'c')); });
}

}  // namespace
}  // namespace jt_test
