#include "tree/sibling_order.h"

#include <algorithm>

#include "tree/node.h"

namespace jt_core {
namespace {

constexpr std::uint64_t kGap = std::uint64_t{1} << 32U;
constexpr unsigned kOrderBits = 63;
constexpr std::uint64_t kMaxOrder = (std::uint64_t{1} << kOrderBits) - 1;

std::uint64_t &order_of(SiblingPlace *places, const jt_node &child) { return places[child.entry].order; }

// The siblings around a child whose numbers lie in one range, itself included.
struct Window {
  jt_node *first;
  jt_node *last;
  std::uint64_t count = 1;

  void widen(SiblingPlace *places, std::uint64_t low, std::uint64_t high) {
    for (; first->previous_sibling != nullptr; ++count, first = first->previous_sibling) {
      if (order_of(places, *first->previous_sibling) < low) break;
    }
    for (; last->next_sibling != nullptr; ++count, last = last->next_sibling) {
      if (order_of(places, *last->next_sibling) > high) break;
    }
  }

  void number(SiblingPlace *places, std::uint64_t low, std::uint64_t high) const {
    const std::uint64_t gap = (high - low) / count;
    std::uint64_t order = low + gap / 2;
    for (jt_node *child = first;; child = child->next_sibling, order += gap) {
      order_of(places, *child) = order;
      if (child == last) return;
    }
  }
};

// Ranges of twice the size each are tried until one is sparse enough: each step may be two thirds as dense as
// the one before, which is what bounds the cost.
void renumber_around(SiblingPlace *places, jt_node &child, std::uint64_t neighbour) {
  Window window = {&child, &child};
  double most = 1;
  for (unsigned bits = 1;; ++bits) {
    const std::uint64_t mask = (std::uint64_t{1} << bits) - 1;
    const std::uint64_t low = neighbour & ~mask;
    most *= 4.0 / 3.0;
    window.widen(places, low, low | mask);
    if (bits == kOrderBits || static_cast<double>(window.count) <= most) {
      window.number(places, low, low | mask);
      return;
    }
  }
}

// Links a child of a heap, with what is below it, under another.
void put_below(SiblingPlace *places, EntryNumber above, EntryNumber below) {
  SiblingPlace &top = places[above];
  places[below].previous = above;
  places[below].next = top.first;
  if (top.first != kNoEntry) places[top.first].previous = below;
  top.first = below;
}

// Takes the first one off a list of heaps.
EntryNumber take_first(SiblingPlace *places, EntryNumber &list) {
  const EntryNumber heap = list;
  if (heap == kNoEntry) return kNoEntry;
  list = places[heap].next;
  places[heap].next = places[heap].previous = kNoEntry;
  return heap;
}

// Joins the heaps of a list two by two, and then all of them from the last pair to the first.
EntryNumber join_list(SiblingPlace *places, EntryNumber list) {
  EntryNumber pairs = kNoEntry;
  while (const EntryNumber heap = take_first(places, list)) {
    const EntryNumber pair = join_heaps(places, heap, take_first(places, list));
    places[pair].next = pairs;
    pairs = pair;
  }
  EntryNumber top = kNoEntry;
  while (const EntryNumber pair = take_first(places, pairs)) top = join_heaps(places, top, pair);
  return top;
}

}  // namespace

void number_siblings(SiblingPlace *places, jt_node *first, const jt_node &last) {
  std::uint64_t order = 0;
  for (jt_node *child = first;; child = child->next_sibling) {
    order_of(places, *child) = order += kGap;
    if (child == &last) return;
  }
}

void number_sibling(SiblingPlace *places, jt_node &child, const jt_node *after) {
  const jt_node *const before = child.previous_sibling;
  const std::uint64_t low = before != nullptr ? order_of(places, *before) : 0;
  const std::uint64_t high = after != nullptr ? order_of(places, *after) : kMaxOrder;
  const std::uint64_t step = std::min(kGap, (high - low) / 2);
  if (step > 0) {
    order_of(places, child) = low + step;
  } else {
    renumber_around(places, child, low);
  }
}

EntryNumber join_heaps(SiblingPlace *places, EntryNumber a, EntryNumber b) {
  if (a == kNoEntry || b == kNoEntry) return a | b;
  if (places[b].order < places[a].order) std::swap(a, b);
  put_below(places, a, b);
  return a;
}

EntryNumber leave_heap(SiblingPlace *places, EntryNumber top, EntryNumber child) {
  const SiblingPlace place = places[child];
  const EntryNumber below = join_list(places, place.first);
  if (child == top) return below;
  SiblingPlace &previous = places[place.previous];
  (previous.first == child ? previous.first : previous.next) = place.next;
  if (place.next != kNoEntry) places[place.next].previous = place.previous;
  return join_heaps(places, top, below);
}

}  // namespace jt_core
