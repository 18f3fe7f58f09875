// The driver of all scenarios, and the sum of what it has done.
#include "faults/scenario.h"

#include <iostream>

namespace jt_test {
namespace {

struct Show {
  World &world;

  std::string operator()(int32_t number) const { return std::to_string(number); }
  std::string operator()(char *text) const { return take_text(text); }
  std::string operator()(void *block) const { return released("block", block != nullptr, er_free(block)); }
  std::string operator()(jt_status *status) const {
    const std::string name = take_text(get_status_string(world.space, status));
    return released(name, status != nullptr, kill_status(world.space, status));
  }
  std::string operator()(jt_node *node) const {
    if (node == nullptr) return "(none)";
    const std::string name = node->name != nullptr ? node->name : "-";
    return released(name, true, destroy_all_nodes(world.space, node));
  }
  std::string operator()(Handle handle) const {
    const std::string text = take_text(jt_encode_template(world.space, handle.number));
    return released(text, handle.number != 0, jt_destroy_template(world.space, handle.number));
  }
  std::string operator()(TypedValue typed) const {
    if (typed.value == nullptr) return "(none)";
    const std::string text = take_text(typed.type->deval(world.space, typed.value));
    return released(text, true, typed.type->kill(world.space, typed.value));
  }

  static std::string released(const std::string &text, bool given, int32_t /*result*/) {
    return given ? text : "(none)";
  }
};

// What a client sees of a call.
struct Outcome {
  std::string result;
  Messages messages;
  int32_t status;
  int failed;
  std::string tree;
  std::ptrdiff_t live;
  int32_t next_handle;
};

Outcome attempt(World &world, const Scenario &scenario, int number, Failing which) {
  if (scenario.before) scenario.before(world);
  world.space->errors = {};
  fail_allocations(number, which);
  const Result result = scenario.call(world);
  const int failed = allow_allocations();
  const int32_t status = jt_last_api_error(world.space);
  const Messages messages = messages_of(world.space);
  const std::string shown = std::visit(Show{world}, result);
  const std::ptrdiff_t live = world.live();
  const int32_t next = jt_create_template(world.space);
  jt_destroy_template(world.space, next);
  return {shown, messages, status, failed, world.tree(), live, next};
}

void expect_same(const Outcome &outcome, const Outcome &expected) {
  EXPECT_EQ(outcome.result, expected.result);
  EXPECT_EQ(outcome.messages, expected.messages);
  EXPECT_EQ(outcome.status, expected.status);
  EXPECT_EQ(outcome.tree, expected.tree);
}

bool begins_with(const std::string &text, const std::string &beginning) {
  return text.compare(0, beginning.size(), beginning) == 0;
}

// The status that the newest message must have left.
int32_t status_after(const Messages &messages) {
  const std::string newest = messages.empty() ? "" : messages.back();
  if (begins_with(newest, "MEMORY ERROR:")) return JT_MEMORY_ERROR;
  if (begins_with(newest, "SYSTEM ERROR:")) return JT_SYSTEM_ERROR;
  return begins_with(newest, "CALL ERROR:") ? JT_CALL_ERROR : JT_SYNTAX_ERROR;
}

// The allocator's own report comes at most once. A table that cannot grow is told in two messages.
void expect_memory_error(const Messages &messages) {
  EXPECT_LE(std::count(messages.begin(), messages.end(), kNoMemory), 1);
  Messages told = messages;
  if (told.size() > 1 && told.back() == kNoBookmark) told.pop_back();
  ASSERT_FALSE(told.empty());
  EXPECT_TRUE(begins_with(told.back(), "MEMORY ERROR:")) << told.back();
}

// One scenario while it runs.
class Driver {
 public:
  explicit Driver(const Scenario &scenario) : scenario_(scenario), reference_(without_failures()) {}

  void run(Failing which) {
    int spared = 0;
    int number = 1;
    for (; !::testing::Test::HasFatalFailure(); ++number) {
      SCOPED_TRACE("allocation " + std::to_string(number) +
                   (which == Failing::kOnlyOne ? " fails" : " and all behind it fail"));
      const Tried tried = try_once(number, which);
      if (tried == Tried::kEnded) break;
      if (tried == Tried::kSpared) ++spared;
    }
    if (which == Failing::kAllFromThereOn) return;
    EXPECT_EQ(spared, allowed_to_spare());
    if (!scenario_.dispensable) {
      EXPECT_EQ(number - 1, static_cast<int>(scenario_.failures.size()));
    }
  }

 private:
  enum class Tried { kFailed, kSpared, kEnded };

  Outcome without_failures() const {
    World world(scenario_.job);
    return attempt(world, scenario_, 0, Failing::kOnlyOne);
  }

  int allowed_to_spare() const {
    if (scenario_.dispensable) return *scenario_.dispensable;
    return static_cast<int>(std::count(scenario_.failures.begin(), scenario_.failures.end(), Messages{}));
  }

  // The first that the library cannot do without, from the failing one on.
  Messages expected_messages(int number, Failing which) const {
    auto failure = scenario_.failures.begin() + (number - 1);
    if (which == Failing::kOnlyOne) return *failure;
    while (failure != scenario_.failures.end() && failure->empty()) ++failure;
    return failure != scenario_.failures.end() ? *failure : Messages{};
  }

  bool listed(int number) const { return static_cast<std::size_t>(number) <= scenario_.failures.size(); }

  Tried try_once(int number, Failing which) {
    const long blocks = live_blocks();
    const Tried tried = try_in_session(number, which);
    EXPECT_EQ(live_blocks(), blocks);
    return tried;
  }

  Tried try_in_session(int number, Failing which) {
    World world(scenario_.job);
    if (scenario_.before) scenario_.before(world);
    const std::string tree = world.tree();
    const std::ptrdiff_t live = world.live();
    const int32_t next_handle = world.next_handle();
    const Outcome outcome = attempt(world, scenario_, number, which);
    if (outcome.failed == 0 || is_spared(outcome, number, which)) {
      expect_same(outcome, reference_);
      return outcome.failed == 0 ? Tried::kEnded : Tried::kSpared;
    }
    expect_failure(outcome, number, which);
    EXPECT_EQ(outcome.tree, tree);
    EXPECT_EQ(outcome.live, live);
    EXPECT_EQ(outcome.next_handle, next_handle);
    expect_same(attempt(world, scenario_, 0, Failing::kOnlyOne), reference_);
    return Tried::kFailed;
  }

  bool is_spared(const Outcome &outcome, int number, Failing which) const {
    if (scenario_.dispensable) return outcome.messages == reference_.messages;
    return listed(number) && expected_messages(number, which).empty();
  }

  void expect_failure(const Outcome &outcome, int number, Failing which) const {
    EXPECT_TRUE(outcome.result == "(none)" || outcome.result == "0") << outcome.result;
    EXPECT_EQ(outcome.status, status_after(outcome.messages));
    if (scenario_.dispensable) {
      expect_memory_error(outcome.messages);
      return;
    }
    ASSERT_TRUE(listed(number));
    EXPECT_EQ(outcome.messages, expected_messages(number, which));
  }

  const Scenario &scenario_;
  const Outcome reference_;
};

class FailureCount : public ::testing::Environment {
 public:
  void TearDown() override {
    std::cout << failed_allocations() << " allocations have failed" << std::endl;
    ::testing::Test::RecordProperty("FailedAllocations", std::to_string(failed_allocations()));
  }
};

[[maybe_unused]] const auto *const kCount = ::testing::AddGlobalTestEnvironment(new FailureCount);

TEST(FailingAllocator, FailsTheOneAllocationThatWasAskedFor) {
  fail_allocations(2, Failing::kOnlyOne);
  void *const first = my_calloc(nullptr, 1, 1);
  void *const second = my_calloc(nullptr, 1, 1);
  void *const third = my_calloc(nullptr, 1, 1);
  EXPECT_EQ(allow_allocations(), 1);
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(second, nullptr);
  EXPECT_NE(third, nullptr);
  er_free(first);
  er_free(third);
}

TEST(FailingAllocator, FailsAllFromThereOn) {
  fail_allocations(1, Failing::kAllFromThereOn);
  EXPECT_EQ(my_calloc(nullptr, 1, 1), nullptr);
  EXPECT_EQ(my_calloc(nullptr, 1, 1), nullptr);
  EXPECT_EQ(allow_allocations(), 2);
}

TEST(FailingAllocator, CountsBlocks) {
  const long blocks = live_blocks();
  void *const block = my_calloc(nullptr, 1, 1);
  EXPECT_EQ(live_blocks(), blocks + 1);
  er_free(block);
  EXPECT_EQ(live_blocks(), blocks);
}

}  // namespace

void expect_whole_failures(const Scenario &scenario) {
  Driver driver(scenario);
  driver.run(Failing::kOnlyOne);
  driver.run(Failing::kAllFromThereOn);
}

}  // namespace jt_test
