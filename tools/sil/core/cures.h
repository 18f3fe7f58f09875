// The two cures that are sure: a missing ";" before an element, and a byte order mark. Proved by
// tests/sil_command/cures_test.cpp.
#ifndef SIL_CORE_CURES_H
#define SIL_CORE_CURES_H

#include <string>

#include "core/document.h"

namespace sil {

struct Cured {
  std::string text;       // as it was where nothing could be cured
  std::size_t count = 0;  // of cures
};

/// A cure that would move a comment is left out; all of them are, unless the cured text has fewer findings and none
/// that is new.
Cured cure(const Document &document);

}  // namespace sil

#endif
