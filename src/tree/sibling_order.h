// Which of several equal children comes first in the list. Each child has a number that grows along the list,
// and equal children form a heap with the first of them on top: a pairing heap, where joining two is one
// comparison and taking the top off costs a logarithm of its size, averaged over any sequence of calls. The
// numbers leave gaps, so that a child between two others finds one; where a gap is used up, as few neighbours
// as will do are numbered anew, which costs the square of a logarithm on average.
//
// Children are known by their entry in the index, counted from 1; 0 is none.
// tests/tree/equal_values_test.cpp compares it with a plain list.
#ifndef JT_TREE_SIBLING_ORDER_H
#define JT_TREE_SIBLING_ORDER_H

#include <cstdint>

#include "jt.h"

namespace jt_core {

using EntryNumber = std::uint32_t;
constexpr EntryNumber kNoEntry = 0;

// A child's place in the list and in the heap of its equals.
struct SiblingPlace {
  std::uint64_t order;
  EntryNumber first;     // of the children below it in the heap
  EntryNumber next;      // below the same child
  EntryNumber previous;  // below the same child or, for the first of them, that child
};

// Numbers the children of a list from its first to this one.
void number_siblings(SiblingPlace *places, jt_node *first, const jt_node &last);

// Numbers one that stands behind siblings that have their numbers, and before `after`, if that is not null.
void number_sibling(SiblingPlace *places, jt_node &child, const jt_node *after);

// The top of two heaps, either of which may be none, joined.
EntryNumber join_heaps(SiblingPlace *places, EntryNumber a, EntryNumber b);

// The top of what is left of a heap without one of its children.
EntryNumber leave_heap(SiblingPlace *places, EntryNumber top, EntryNumber child);

}  // namespace jt_core

#endif
