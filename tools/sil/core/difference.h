// What differs between two templates as jobs: named elements are matched by their names, invocations without one
// and values by their order. Comments, layout and the case of names are nothing. Values are equal when the library
// writes them as the same bytes. Proved by tests/sil_command/cases/diff_*.
#ifndef SIL_CORE_DIFFERENCE_H
#define SIL_CORE_DIFFERENCE_H

#include <string>
#include <vector>

#include "core/model.h"

namespace sil {

struct Difference {
  std::string path;
  MaybeText before;  // none: it is in the second one only
  MaybeText after;   // none: it is in the first one only
  friend bool operator==(const Difference &, const Difference &) = default;
};

/// In the order of the first template, then what only the second one has, element by element.
std::vector<Difference> differences(const Model &a, const Model &b);

}  // namespace sil

#endif
