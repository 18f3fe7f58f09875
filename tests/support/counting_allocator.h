// An allocator for sessions that knows its blocks: how many there are, what was asked for, and whether something
// came back that it never gave. It can be told to have nothing to give from some request on. Its own memory is
// that of operator new, which tests that count the blocks of malloc do not see.
#ifndef JT_TESTS_SUPPORT_COUNTING_ALLOCATOR_H
#define JT_TESTS_SUPPORT_COUNTING_ALLOCATOR_H

#include <algorithm>
#include <cstring>
#include <map>
#include <new>

#include "jt.h"

namespace jt_test {

class CountingAllocator {
 public:
  CountingAllocator() = default;
  CountingAllocator(const CountingAllocator &) = delete;
  CountingAllocator &operator=(const CountingAllocator &) = delete;
  ~CountingAllocator() {
    for (const auto &[block, bytes] : blocks_) ::operator delete(block);
  }

  jt_allocator record() { return {sizeof(jt_allocator), this, allocate, reallocate, release}; }

  // The request of that number, counted from 1 and from now on, gives nothing, and all behind it; 0: all give.
  void fail_from(int number) {
    requests_ = 0;
    failing_ = number;
  }

  std::size_t blocks() const { return blocks_.size(); }
  int requests() const { return requests_; }
  std::size_t asked() const { return asked_; }  // bytes, of requests that failed as well
  int reallocated() const { return reallocated_; }
  bool has_failed() const { return failing_ > 0 && requests_ >= failing_; }

  // It was asked for nothing, or was given what it had not given.
  bool was_misused() const { return misused_; }

 private:
  static CountingAllocator &at(void *context) { return *static_cast<CountingAllocator *>(context); }

  static void *allocate(void *context, size_t bytes) { return at(context).give(bytes); }

  static void *reallocate(void *context, void *block, size_t bytes) {
    CountingAllocator &self = at(context);
    ++self.reallocated_;
    const auto old = self.blocks_.find(block);
    if (old == self.blocks_.end()) {
      self.misused_ = true;
      return nullptr;
    }
    void *const moved = self.give(bytes);
    if (moved == nullptr) return nullptr;
    std::memcpy(moved, block, std::min(bytes, old->second));
    release(context, block);
    return moved;
  }

  static void release(void *context, void *block) {
    CountingAllocator &self = at(context);
    if (self.blocks_.erase(block) == 0) {
      self.misused_ = true;
    } else {
      ::operator delete(block);
    }
  }

  // Filled, so that nobody relies on zeros.
  void *give(std::size_t bytes) {
    ++requests_;
    asked_ += bytes;
    if (bytes == 0) misused_ = true;
    if (has_failed()) return nullptr;
    void *const block = ::operator new(bytes);
    std::memset(block, 0xA5, bytes);
    blocks_[block] = bytes;
    return block;
  }

  std::map<void *, std::size_t> blocks_;
  std::size_t asked_ = 0;
  int requests_ = 0;
  int reallocated_ = 0;
  int failing_ = 0;
  bool misused_ = false;
};

}  // namespace jt_test

#endif
