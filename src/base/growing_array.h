// An array of plain records that grows at its end, for what a call needs while it runs; it lies in the heap of
// a session.
// tests/base/growing_array_test.cpp
#ifndef JT_BASE_GROWING_ARRAY_H
#define JT_BASE_GROWING_ARRAY_H

#include <cstddef>
#include <type_traits>

#include "base/heap.h"

namespace jt_core {

template <typename Record>
class GrowingArray {
  static_assert(std::is_trivially_copyable_v<Record>);

 public:
  explicit GrowingArray(Heap &heap) : heap_(heap) {}
  ~GrowingArray() { heap_.release(records_); }
  GrowingArray(const GrowingArray &) = delete;
  GrowingArray &operator=(const GrowingArray &) = delete;

  std::size_t size() const { return size_; }
  const Record &operator[](std::size_t at) const { return records_[at]; }

  // Puts a record at a place; places before it that have none get the filling. False without memory.
  bool set(std::size_t at, const Record &record, const Record &filling) {
    if (at >= capacity_ && !reserve(at + 1)) return false;
    while (size_ <= at) records_[size_++] = filling;
    records_[at] = record;
    return true;
  }

 private:
  bool reserve(std::size_t least) {
    constexpr std::size_t kFirst = 64;
    const std::size_t wanted = least < kFirst ? kFirst : least * 2;
    auto *const records = static_cast<Record *>(heap_.reallocate(records_, wanted * sizeof(Record)));
    if (records == nullptr) return false;
    records_ = records;
    capacity_ = wanted;
    return true;
  }

  Heap &heap_;
  Record *records_ = nullptr;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace jt_core

#endif
