// The allocating functions of the C library, wrapped. One thread only measures, so plain numbers do.
#include "heap.h"

#include <malloc.h>

#include <algorithm>

namespace {

bool counting = false;
bench::HeapUse use;

std::ptrdiff_t size_of(void *block) { return static_cast<std::ptrdiff_t>(malloc_usable_size(block)); }

void count_change(std::ptrdiff_t bytes) {
  use.live += bytes;
  use.highest = std::max(use.highest, use.live);
}

void *counted(void *block) {
  if (counting && block != nullptr) {
    ++use.calls;
    count_change(size_of(block));
  }
  return block;
}

}  // namespace

extern "C" {

void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *block, std::size_t size);
void *__libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void *block);

void *malloc(std::size_t size) { return counted(__libc_malloc(size)); }

void *calloc(std::size_t count, std::size_t size) { return counted(__libc_calloc(count, size)); }

void *aligned_alloc(std::size_t alignment, std::size_t size) {
  return counted(__libc_memalign(alignment, size));
}

void *memalign(std::size_t alignment, std::size_t size) { return aligned_alloc(alignment, size); }

int posix_memalign(void **block, std::size_t alignment, std::size_t size) {
  constexpr int kNoMemory = 12;
  *block = aligned_alloc(alignment, size);
  return *block == nullptr ? kNoMemory : 0;
}

void free(void *block) {
  if (counting) use.live -= size_of(block);
  __libc_free(block);
}

void *realloc(void *block, std::size_t size) {
  const std::ptrdiff_t before = counting ? size_of(block) : 0;
  void *const grown = __libc_realloc(block, size);
  if (counting && (grown != nullptr || size == 0)) {
    ++use.calls;
    count_change(size_of(grown) - before);
  }
  return grown;
}

}  // extern "C"

namespace bench {

void start_counting() {
  use = {};
  counting = true;
}

HeapUse stop_counting() {
  counting = false;
  return use;
}

}  // namespace bench
