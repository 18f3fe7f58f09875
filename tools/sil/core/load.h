// From a text to the records of model.h, by the library. Proved by tests/sil_command/json_test.cpp, which loads
// every example.
#ifndef SIL_CORE_LOAD_H
#define SIL_CORE_LOAD_H

#include <optional>
#include <string>
#include <vector>

#include "core/model.h"

namespace sil {

struct Loaded {
  std::optional<Model> model;         // none: the text does not decode
  std::vector<std::string> messages;  // of the decode, the oldest first; the library keeps the last five
  bool has_losses = false;            // something written was dropped or changed
};

Loaded load(const std::string &text);

}  // namespace sil

#endif
