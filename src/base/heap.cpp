#include "base/heap.h"

#include <cstdlib>
#include <cstring>

namespace jt_core {
namespace {

bool is_plain(const Heap &heap) { return heap.allocator.allocate == nullptr; }

// Counts a request, unless the bound refuses it.
bool admits(Heap &heap, std::size_t bytes) {
  if (heap.most != 0 && (heap.bound_reached || bytes > heap.most - heap.asked)) {
    heap.bound_reached = true;
    return false;
  }
  heap.asked += bytes;
  return true;
}

}  // namespace

void *Heap::allocate(std::size_t bytes) {
  if (!admits(*this, bytes)) return nullptr;
  return is_plain(*this) ? std::malloc(bytes) : allocator.allocate(allocator.context, bytes);
}

// Large blocks of the C library's heap are zero without having been written.
void *Heap::allocate_zeroed(std::size_t bytes) {
  if (is_plain(*this)) return admits(*this, bytes) ? std::calloc(1, bytes) : nullptr;
  void *const block = allocate(bytes);
  if (block != nullptr) std::memset(block, 0, bytes);
  return block;
}

void *Heap::reallocate(void *block, std::size_t bytes) {
  if (block == nullptr) return allocate(bytes);
  if (!admits(*this, bytes)) return nullptr;
  return is_plain(*this) ? std::realloc(block, bytes) : allocator.reallocate(allocator.context, block, bytes);
}

void Heap::release(void *block) const {
  if (is_plain(*this)) {
    std::free(block);
  } else if (block != nullptr) {
    allocator.release(allocator.context, block);
  }
}

void *Heap::hand_over(void *block, std::size_t bytes) const {
  if (is_plain(*this)) {
    void *const fitting = std::realloc(block, bytes);
    return fitting != nullptr ? fitting : block;
  }
  void *const copy = std::malloc(bytes);
  if (copy == nullptr) return nullptr;
  std::memcpy(copy, block, bytes);
  release(block);
  return copy;
}

}  // namespace jt_core
