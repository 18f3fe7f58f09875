// A finding as people read it, with its line and a mark under the place, and as JSON. Proved by
// tests/sil_command/findings_test.cpp and the cases of `sil check`.
#ifndef SIL_CORE_REPORT_H
#define SIL_CORE_REPORT_H

#include <functional>
#include <string>
#include <string_view>

#include "core/findings.h"

namespace sil {

/// The parts of a report that have a colour of their own.
enum class Part { kError, kWarning, kNote, kPlace, kHelp };
using PaintPart = std::function<std::string(Part, std::string_view)>;

/// The message, the line with a caret under the range, what may have been meant, the second place.
std::string for_people(std::string_view file, const Document &document, const Lines &lines,
                       const Finding &finding, bool is_redacted, const PaintPart &paint);

/// An object on lines of its own, without a line feed behind it.
std::string as_json(std::string_view file, const Finding &finding);

}  // namespace sil

#endif
