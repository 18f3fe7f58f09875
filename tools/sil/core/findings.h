// What the library finds, in words: a message made of the code and its data, what may have been meant, and the second
// place. Proved by tests/sil_command/findings_test.cpp.
#ifndef SIL_CORE_FINDINGS_H
#define SIL_CORE_FINDINGS_H

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "core/document.h"

namespace sil {

/// A place in the text, with what is to be said of it.
struct Label {
  jt_range range{};
  Lines::Position at{};
  std::string text;
};

struct Finding {
  std::int32_t code = 0;      // JT_FINDING_...
  std::int32_t severity = 0;  // JT_SEVERITY_...
  Label label;
  std::vector<std::string> suggestions;  // what may have been meant, the likeliest first
  std::optional<Label> second;
};

/// "error", "loss", "warning", "note".
std::string_view name_of_severity(std::int32_t severity);

/// Puts findings into words. It keeps what it looked up, so one is made for each text.
class Describer {
 public:
  /// With `is_redacted`, texts that people wrote freely are not repeated.
  Describer(const Document &document, const Lines &lines, bool is_redacted)
      : document_(document), lines_(lines), is_redacted_(is_redacted) {}

  Finding describe(const SourceFinding &told);

 private:
  using Question = std::tuple<std::int32_t, std::string, std::string>;

  const std::vector<std::string> &suggestions_for(const SourceFinding &told);

  const Document &document_;
  const Lines &lines_;
  bool is_redacted_;
  std::map<std::pair<std::int32_t, std::string>, std::vector<std::string>> candidates_;
  std::map<Question, std::vector<std::string>> answers_;
};

/// The lines of a finding: `FILE:LINE:COLUMN: SEVERITY: MESSAGE [CODE]`.
std::string in_short(std::string_view file, const Finding &finding);

/// All findings of a document but notes, each on a line.
std::string findings_in_short(std::string_view file, const Document &document);

/// Whether people wrote the token freely: strings, references, texts behind statuses, comments, the identifier.
bool is_free_token(const Document &document, const SourceToken &token);

}  // namespace sil

#endif
