// From a text to the records of model.h, by the library. Proved by tests/sil_command/json_test.cpp, which loads
// every example.
#ifndef SIL_CORE_LOAD_H
#define SIL_CORE_LOAD_H

#include <optional>
#include <string>
#include <vector>

#include "core/finding_table.h"

#include "core/model.h"

namespace sil {

/// An error or a loss, by its place in the text.
struct Fault {
  std::size_t line = 0;
  std::size_t column = 0;
  Severity severity = Severity::kError;
  std::string code;
};

struct Loaded {
  std::optional<Model> model;  // none: the text does not decode
  std::vector<Fault> faults;   // an error, where it does not; else what was dropped or changed
};

Loaded load(const std::string &text);

}  // namespace sil

#endif
