// Changes of a text that leave every byte alone that they do not name. What is wrong with a change is said instead of
// made. Proved by tests/sil_command/edits_test.cpp.
#ifndef SIL_CORE_EDITS_H
#define SIL_CORE_EDITS_H

#include <string>
#include <vector>

#include "core/document.h"
#include "core/model.h"

namespace sil {

/// A text that decodes, as both of its models.
struct Editable {
  const Document &document;
  const Model &model;
};

struct Edited {
  enum class Result {
    kDone,
    kRefused,   // there is no such place, or it cannot be changed so
    kWrongUse,  // what was given says no change
  };
  Result result = Result::kDone;
  std::string text;     // the new one
  std::string problem;  // a sentence
};

/// PATH=VALUE, each a change of the text as it is: values, or with @name, @status, @status-text, @compulsory,
/// @version and @identifier what these name. A path given again adds a value. VALUE is plain text, never SIL.
Edited set_places(const Editable &editable, const std::vector<std::string> &assignments);

struct NewElement {
  std::string path;  // where it shall be; the last step is its name
  std::string type;  // none of an invocation
  bool is_optional = false;
  std::string before;  // the path of what it shall stand before; empty for behind all
  std::vector<std::string> values;
};
Edited add_element(const Editable &editable, const NewElement &wanted);

/// With the comments in it, one on its last line, and those on lines directly above.
Edited remove_elements(const Editable &editable, const std::string &path);

/// A piece of a text, and what takes its place.
struct Replacement {
  jt_range range{};
  std::string text;
};

/// The text with all of them made. They do not overlap; those at one place keep their order.
std::string with_replacements(std::string_view text, std::vector<Replacement> replacements);

/// A value of a type as it is written.
std::string written_value(std::string_view type, std::string_view value);

}  // namespace sil

#endif
