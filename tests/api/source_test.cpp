// The calls on texts with places, as calls: null arguments, records of another size, what a session keeps.
#include <gtest/gtest.h>

#include "support/session.h"

namespace jt_test {
namespace {

constexpr char kText[] = "[kmt_svc_scan S] end and more";
constexpr std::size_t kSize = 20;

class SourceCalls : public SessionTest {};

TEST_F(SourceCalls, ReadOnlyAsMuchAsTheyAreTold) {
  EXPECT_EQ(jt_decode_source(space, kText, kSize, nullptr, nullptr), -100);
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(SourceCalls, RefuseNullTexts) {
  EXPECT_EQ(jt_decode_source(space, nullptr, 0, nullptr, nullptr), 0);
  EXPECT_EQ(jt_check_source(space, nullptr, 0, nullptr, nullptr), 0);
}

TEST_F(SourceCalls, RefuseNullSessions) {
  EXPECT_EQ(jt_decode_source(nullptr, kText, kSize, nullptr, nullptr), 0);
  EXPECT_EQ(jt_check_source(nullptr, kText, kSize, nullptr, nullptr), 0);
}

TEST_F(SourceCalls, ACheckMakesNothing) {
  EXPECT_EQ(jt_check_source(space, kText, kSize, nullptr, nullptr), 1);
  EXPECT_EQ(messages(), Messages{});
  EXPECT_EQ(live_nodes(space), 0);
}

TEST_F(SourceCalls, TakeAsMuchOfARecordAsItsSizeSays) {
  jt_source_options options{};
  options.size = offsetof(jt_source_options, most_bytes);
  options.most_bytes = 1;
  jt_listener listener{};
  listener.size = offsetof(jt_listener, finding);
  listener.finding = [](void *, const jt_finding *) { return 1; };
  EXPECT_EQ(jt_check_source(space, "x", 1, &options, &listener), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: while parsing for \"  <  \" at:x ..."});
}

}  // namespace
}  // namespace jt_test
