// What a template says of how its job went: each status with its place. Proved by
// tests/sil_command/cases/report_*.
#ifndef SIL_CORE_RECORD_H
#define SIL_CORE_RECORD_H

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/model.h"

namespace sil {

enum class Outcome { kCompleted, kFailed, kOverridden, kIgnored, kWarning, kOther };
inline constexpr std::size_t kOutcomes = 6;
std::string_view name_of(Outcome outcome);

/// How something went, by the name of its status.
Outcome outcome_of(std::string_view status);

struct Entry {
  std::string path;
  Outcome outcome = Outcome::kOther;
  std::string status;
  MaybeText text;                // behind the status of a service or an invocation
  MaybeText before;              // the value of an attribute that was overridden
  std::vector<std::string> now;  // an attribute's values
};

/// Each element that has a status, in the order of the text.
std::vector<Entry> record_of(const Model &model);

using Counts = std::array<std::size_t, kOutcomes>;

/// How many entries of each outcome there are.
Counts count(const std::vector<Entry> &entries);

}  // namespace sil

#endif
