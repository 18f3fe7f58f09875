// The wrapped names are those that the linker is told to wrap in jt_metered's users.
#include "meter.h"

#include <sanitizer/allocator_interface.h>

#include <algorithm>
#include <cstring>

namespace {

std::uint64_t edges = 0;
std::uint64_t moved = 0;
std::size_t held = 0;
std::size_t most_held = 0;

void count_block(const volatile void * /*block*/, std::size_t bytes) {
  held += bytes;
  most_held = std::max(most_held, held);
  moved += bytes;
}

void count_release(const volatile void *block) {
  if (block != nullptr) held -= __sanitizer_get_allocated_size(block);
}

}  // namespace

namespace jt_fuzz {

Meter::Meter() {
  static const int kInstalled = __sanitizer_install_malloc_and_free_hooks(count_block, count_release);
  static_cast<void>(kInstalled);
  held = most_held = 0;
  edges_ = edges;
  moved_ = moved;
  held_ = held;
}

Cost Meter::read() const { return {edges - edges_, moved - moved_, most_held - held_}; }

}  // namespace jt_fuzz

extern "C" {

void *__real_memcpy(void *to, const void *from, std::size_t bytes);
void *__real_memmove(void *to, const void *from, std::size_t bytes);
void *__real_memset(void *to, int byte, std::size_t bytes);
void *__real_memchr(const void *text, int byte, std::size_t bytes);
int __real_memcmp(const void *a, const void *b, std::size_t bytes);
std::size_t __real_strlen(const char *text);

void __wrap___sanitizer_cov_trace_pc_guard(std::uint32_t * /*guard*/) { ++edges; }
void __wrap___sanitizer_cov_trace_pc_guard_init(std::uint32_t * /*begin*/, std::uint32_t * /*end*/) {}

void *__wrap_memcpy(void *to, const void *from, std::size_t bytes) {
  moved += bytes;
  return __real_memcpy(to, from, bytes);
}

void *__wrap_memmove(void *to, const void *from, std::size_t bytes) {
  moved += bytes;
  return __real_memmove(to, from, bytes);
}

void *__wrap_memset(void *to, int byte, std::size_t bytes) {
  moved += bytes;
  return __real_memset(to, byte, bytes);
}

void *__wrap_memchr(const void *text, int byte, std::size_t bytes) {
  void *const found = __real_memchr(text, byte, bytes);
  moved += found != nullptr
               ? static_cast<std::size_t>(static_cast<char *>(found) - static_cast<const char *>(text))
               : bytes;
  return found;
}

int __wrap_memcmp(const void *a, const void *b, std::size_t bytes) {
  moved += bytes;
  return __real_memcmp(a, b, bytes);
}

std::size_t __wrap_strlen(const char *text) {
  const std::size_t length = __real_strlen(text);
  moved += length;
  return length;
}

}  // extern "C"
