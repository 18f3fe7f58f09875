// JSON, in the shape of sil.schema.json, as a template; and everything that is wrong with it, each by its JSON
// pointer. What comes out without a finding is written so that it reads back as the same. Proved by
// tests/sil_command/json_test.cpp.
#ifndef SIL_CORE_JSON_IN_H
#define SIL_CORE_JSON_IN_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/json_value.h"
#include "core/model.h"

namespace sil {

struct FromJson {
  std::optional<std::string> text;  // SIL; none where there are findings
  std::vector<JsonFinding> findings;
};

FromJson from_json(std::string_view json);

}  // namespace sil

#endif
