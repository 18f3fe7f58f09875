// Decoding with a listener and checking, with every allocation failing in turn: each of the examples is decoded
// wholly or not at all, the listener is told of the missing memory, what was opened is closed, and nothing is left.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "faults/scenario.h"
#include "support/program.h"

namespace jt_test {
namespace {

// What a listener hears that asks for everything, and takes no memory itself.
struct Told {
  int opened = 0;
  int closed = 0;
  int findings_of_memory = 0;
};

jt_listener listener_for(Told &told) {
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = &told;
  listener.open = [](void *context, const jt_source_element *) {
    ++static_cast<Told *>(context)->opened;
    return int32_t{0};
  };
  listener.close = [](void *context, const jt_source_element *) {
    ++static_cast<Told *>(context)->closed;
    return int32_t{0};
  };
  listener.token = [](void *, const jt_source_token *) { return int32_t{0}; };
  listener.finding = [](void *context, const jt_finding *finding) {
    if (finding->code == JT_FINDING_MEMORY) ++static_cast<Told *>(context)->findings_of_memory;
    return int32_t{0};
  };
  listener.handle = [](void *, int32_t, int32_t) { return int32_t{0}; };
  return listener;
}

int32_t decode(jt_parser_space *space, const std::string &text, Told &told) {
  const jt_listener listener = listener_for(told);
  return jt_decode_source(space, text.data(), text.size(), nullptr, &listener);
}

int32_t check(jt_parser_space *space, const std::string &text, Told &told) {
  const jt_listener listener = listener_for(told);
  return jt_check_source(space, text.data(), text.size(), nullptr, &listener);
}

std::vector<std::string> sil_files(const char *folder) {
  std::vector<std::string> files;
  for (const auto &entry : std::filesystem::directory_iterator(std::string(JT_SOURCE_DIR) + folder)) {
    if (entry.path().extension() == ".sil") files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string file_name(const ::testing::TestParamInfo<std::string> &info) {
  return std::filesystem::path(info.param).stem().string();
}

// One list of names is long enough to want a larger table, which is made up for.
int tables_of_names_in(const std::string &path) {
  return std::filesystem::path(path).stem() == "every_type" ? 1 : 0;
}

class AcceptedSource : public ::testing::TestWithParam<std::string> {};
class EverySource : public ::testing::TestWithParam<std::string> {};

TEST_P(AcceptedSource, IsDecodedWhollyOrNotAtAll) {
  const std::string text = read_whole(GetParam());
  expect_whole_failures({.name = "decoding",
                         .call = [text](World &w) -> Result {
                           Told told;
                           return Handle{decode(w.space, text, told)};
                         },
                         .failures = {},
                         .job = "",
                         .dispensable = tables_of_names_in(GetParam())});
}

TEST_P(AcceptedSource, IsNotCheckedByHalves) {
  const std::string text = read_whole(GetParam());
  expect_whole_failures({.name = "checking",
                         .call = [text](World &w) -> Result {
                           Told told;
                           return check(w.space, text, told);
                         },
                         .failures = {},
                         .dispensable = tables_of_names_in(GetParam())});
}

TEST_P(EverySource, IsDecodedWithOneFindingWhereMemoryIsMissing) {
  const std::string text = read_whole(GetParam());
  for (int number = 1;; ++number) {
    World world("");
    Told told;
    fail_allocations(number, Failing::kAllFromThereOn);
    const int32_t job = decode(world.space, text, told);
    if (allow_allocations() == 0) break;
    EXPECT_EQ(told.findings_of_memory, job == 0 ? 1 : 0) << number;
    EXPECT_EQ(told.opened, told.closed) << number;
  }
}

// Behind the first error a table of names may be missing without anybody noticing; a session may not be there
// at all, which leaves nobody to tell the listener.
TEST_P(EverySource, IsCheckedWithOneFindingWhereMemoryIsMissing) {
  const std::string text = read_whole(GetParam());
  World world(kJob);
  const std::string tree = world.tree();
  const long blocks = live_blocks();
  for (int number = 1;; ++number) {
    Told told;
    fail_allocations(number, Failing::kAllFromThereOn);
    check(world.space, text, told);
    if (allow_allocations() == 0) break;
    EXPECT_LE(told.findings_of_memory, 1) << number;
    EXPECT_EQ(told.opened, told.closed) << number;
    EXPECT_EQ(live_blocks(), blocks) << number;
  }
  EXPECT_EQ(world.tree(), tree);
  Told told;
  EXPECT_EQ(check(world.space, "[ service S ] end", told), 1);
}

INSTANTIATE_TEST_SUITE_P(Source, AcceptedSource, ::testing::ValuesIn(sil_files("/examples")), file_name);
INSTANTIATE_TEST_SUITE_P(SourceOfExamples, EverySource, ::testing::ValuesIn(sil_files("/examples")),
                         file_name);
INSTANTIATE_TEST_SUITE_P(SourceOfRefused, EverySource, ::testing::ValuesIn(sil_files("/examples/rejected")),
                         file_name);

TEST(CheckWithoutMemory, SaysSoWhereNoSessionCanBeMade) {
  World world("");
  Told told;
  fail_allocations(1, Failing::kOnlyOne);
  EXPECT_EQ(check(world.space, "[ service S ] end", told), 0);
  allow_allocations();
  EXPECT_EQ(jt_last_api_error(world.space), JT_MEMORY_ERROR);
  EXPECT_EQ(messages_of(world.space), Messages{kNoMemory});
}

}  // namespace
}  // namespace jt_test
