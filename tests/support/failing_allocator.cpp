// The wrapped names. __real_malloc and its kin are what the linker makes of the names without the option.
#include "support/failing_allocator.h"

#include <cstddef>

namespace jt_test {
namespace {

struct Plan {
  bool armed = false;
  bool repeated = false;
  int left = 0;  // allocations up to the one that fails, itself included
  int failed = 0;
};

thread_local Plan plan;
thread_local long live = 0;
thread_local long failed_in_all = 0;

bool is_to_fail() {
  if (!plan.armed) return false;
  if (plan.left > 0) --plan.left;
  if (plan.left > 0) return false;
  plan.armed = plan.repeated;
  ++plan.failed;
  ++failed_in_all;
  return true;
}

void *counted(void *block) {
  if (block != nullptr) ++live;
  return block;
}

}  // namespace

void fail_allocations(int number, Failing which) {
  plan = {number > 0, which == Failing::kAllFromThereOn, number, 0};
}

int allow_allocations() {
  plan.armed = false;
  return plan.failed;
}

long live_blocks() { return live; }

long failed_allocations() { return failed_in_all; }

}  // namespace jt_test

extern "C" {

void *__real_malloc(std::size_t bytes);
void *__real_calloc(std::size_t count, std::size_t bytes);
void *__real_realloc(void *block, std::size_t bytes);
void __real_free(void *block);

void *__wrap_malloc(std::size_t bytes) {
  return jt_test::is_to_fail() ? nullptr : jt_test::counted(__real_malloc(bytes));
}

void *__wrap_calloc(std::size_t count, std::size_t bytes) {
  return jt_test::is_to_fail() ? nullptr : jt_test::counted(__real_calloc(count, bytes));
}

void *__wrap_realloc(void *block, std::size_t bytes) {
  if (jt_test::is_to_fail()) return nullptr;
  void *const moved = __real_realloc(block, bytes);
  return block == nullptr ? jt_test::counted(moved) : moved;
}

void __wrap_free(void *block) {
  if (block != nullptr) --jt_test::live;
  __real_free(block);
}

}  // extern "C"
