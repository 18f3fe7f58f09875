// `# sil: ignore CODE`: comments that hide findings. One covers the whole statement that it stands above, in or behind,
// which does not change when the text is laid out anew. Proved by tests/sil_command/suppressions_test.cpp.
#ifndef SIL_CORE_SUPPRESSIONS_H
#define SIL_CORE_SUPPRESSIONS_H

#include <string_view>

#include "core/document.h"

namespace sil {

/// Leaves the document the findings that no comment hides, and one for each code of a comment that hides nothing, in
/// the order of the text. Errors cannot be hidden; with `is_strict`, losses cannot either.
void hide_suppressed(Document &document, bool is_strict);

/// The code of a name, or -1.
std::int32_t code_named(std::string_view name);

}  // namespace sil

#endif
