// A template to show to strangers: what people wrote freely is replaced, what the language fixes stays. Proved by
// tests/sil_command/redaction_test.cpp.
#ifndef SIL_CORE_REDACTION_H
#define SIL_CORE_REDACTION_H

#include <string_view>

#include "core/model.h"

namespace sil {

inline constexpr std::string_view kRedacted = "REDACTED";

/// Whether values of a type are texts of people: strings and references.
bool is_free_text(std::string_view type);

/// Replaces the values of such types, the texts behind statuses (but the overridden value of other attributes),
/// comments and the header's identifier. Names and types stay.
void redact(Model &model);

}  // namespace sil

#endif
