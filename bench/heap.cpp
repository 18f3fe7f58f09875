// The allocating functions of the C library, wrapped. Counting is always on: it costs every library the same.
#include "heap.h"

#include <malloc.h>

namespace {

std::ptrdiff_t in_use = 0;

std::ptrdiff_t size_of(void *block) { return static_cast<std::ptrdiff_t>(malloc_usable_size(block)); }

void *counted(void *block) {
  in_use += size_of(block);
  return block;
}

}  // namespace

extern "C" {

void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *block, std::size_t size);
void __libc_free(void *block);

void *malloc(std::size_t size) { return counted(__libc_malloc(size)); }

void *calloc(std::size_t count, std::size_t size) { return counted(__libc_calloc(count, size)); }

void *realloc(void *block, std::size_t size) {
  in_use -= size_of(block);
  return counted(__libc_realloc(block, size));
}

void free(void *block) {
  in_use -= size_of(block);
  __libc_free(block);
}

}  // extern "C"

namespace bench {

std::ptrdiff_t take_heap_use() {
  const std::ptrdiff_t bytes = in_use;
  in_use = 0;
  return bytes;
}

}  // namespace bench
