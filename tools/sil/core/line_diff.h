// What differs between two texts, line by line, as people and `patch` read it. Proved by
// tests/sil_command/line_diff_test.cpp.
#ifndef SIL_CORE_LINE_DIFF_H
#define SIL_CORE_LINE_DIFF_H

#include <string>
#include <string_view>

namespace sil {

/// A unified diff with three lines around each change, under the file's name; nothing for equal texts. How lines end
/// and a byte order mark cannot be seen in one, and are said in a sentence in front of it.
std::string unified_diff(std::string_view name, std::string_view before, std::string_view after);

}  // namespace sil

#endif
