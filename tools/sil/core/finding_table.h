// The page of each finding: what it means, a file that shows it, how to mend it. `sil explain` prints a page, and the
// manual is made of them. Proved by tests/sil_command/finding_table_test.cpp.
#ifndef SIL_CORE_FINDING_TABLE_H
#define SIL_CORE_FINDING_TABLE_H

#include <span>
#include <string>
#include <string_view>

namespace sil {

enum class Severity { kError, kLoss, kWarning, kNote };
std::string_view name_of(Severity severity);

struct FindingPage {
  std::string_view code;
  Severity severity;
  std::string_view meaning;
  std::string_view shows;  // SIL; nothing where no file can show it
  std::string_view mend;
};

/// All of them, in the order of the library's codes.
std::span<const FindingPage> finding_pages();

/// The page of a code; null where there is no such code.
const FindingPage *find_page(std::string_view code);

/// A page as plain text.
std::string text_of_page(const FindingPage &page);

}  // namespace sil

#endif
