// Limits of what a session may take for one piece of work, such as a text from a stranger. What goes beyond one
// fails as if there were no memory, with the same messages; afterwards it is known whether a limit was the
// reason. Neither costs anything where no limit is set. tests/tree/limits_test.cpp decodes up to both of them.
#ifndef JT_TREE_LIMITS_H
#define JT_TREE_LIMITS_H

#include <cstdint>

#include "jt.h"

namespace jt_core {

// From now on, beside what the session has.
struct Limits {
  std::uint64_t heap;  // bytes asked for; what is released is not taken off
  std::int32_t nodes;  // alive at a time
};

enum class Limit : std::uint8_t { kNone, kHeap, kNodes };

void set_limits(jt_parser_space &space, const Limits &limits);

// The limit that has been reached so far.
Limit reached_limit(const jt_parser_space &space);

// Takes the limits back. Which of them was reached.
Limit lift_limits(jt_parser_space &space);

}  // namespace jt_core

#endif
