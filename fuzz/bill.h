// What a text costs: to read, write and destroy its template; then to override and delete each of its values
// by a call. And what it may cost.
#ifndef JT_FUZZ_BILL_H
#define JT_FUZZ_BILL_H

#include <string_view>

#include "meter.h"

namespace jt_fuzz {

struct Bill {
  std::size_t text = 0;  // bytes
  bool accepted = false;
  Cost reading = {};  // and writing, and destroying

  std::size_t calls = 0;
  std::size_t arguments = 0;  // bytes of all names and values that the calls were given
  Cost changing = {};
};

Bill bill_of(std::string_view text);

// What must hold of every bill; null when it does.
const char *objection_to(const Bill &bill);

}  // namespace jt_fuzz

#endif
