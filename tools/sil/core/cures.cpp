// Put in, take out, and look again.
#include "core/cures.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace sil {
namespace {

struct Cure {
  std::size_t at;
  std::size_t removed;
  std::string_view put_in;
};

// Elements are in the order in which they begin.
bool begins_statement(const Document &document, std::size_t offset) {
  const auto element =
      std::lower_bound(document.elements.begin(), document.elements.end(), offset,
                       [](const SourceElement &each, std::size_t at) { return each.range.begin < at; });
  return element != document.elements.end() && element->range.begin == offset &&
         (element->kind == JT_SOURCE_ATTRIBUTE || element->kind == JT_SOURCE_SERVICE);
}

bool is_missing_semicolon(const Document &document, const SourceFinding &finding) {
  const bool is_missing = finding.code == JT_FINDING_SYNTAX_EXPECTED &&
                          finding.range.begin == finding.range.end &&
                          finding.expected.find(';') != std::string::npos && !finding.found_is_end;
  return is_missing && begins_statement(document, finding.found.begin) &&
         !document.has_comment_in(finding.range.begin, finding.found.begin);
}

std::vector<Cure> cures_for(const Document &document) {
  std::vector<Cure> cures;
  for (const SourceFinding &finding : document.findings) {
    if (finding.code == JT_FINDING_TEXT_BOM)
      cures.push_back({finding.range.begin, finding.range.end - finding.range.begin, ""});
    if (is_missing_semicolon(document, finding)) cures.push_back({finding.range.begin, 0, ";"});
  }
  return cures;
}

// What is said of a finding wherever it stands.
using Said = std::pair<std::int32_t, std::string>;

std::vector<Said> said_of(std::string_view text, const std::vector<SourceFinding> &findings) {
  std::vector<Said> said;
  said.reserve(findings.size());
  for (const SourceFinding &finding : findings)
    said.emplace_back(finding.code,
                      text.substr(finding.range.begin, finding.range.end - finding.range.begin));
  std::sort(said.begin(), said.end());
  return said;
}

bool is_better(const Document &document, std::string_view text) {
  bool decodes = false;
  const std::vector<Said> now = said_of(text, find_in(text, decodes));
  const std::vector<Said> before = said_of(document.text, document.findings);
  return now.size() < before.size() && std::includes(before.begin(), before.end(), now.begin(), now.end());
}

}  // namespace

Cured cure(const Document &document) {
  std::vector<Cure> cures = cures_for(document);
  std::sort(cures.begin(), cures.end(), [](const Cure &a, const Cure &b) { return a.at > b.at; });
  Cured cured{std::string(document.text), cures.size()};
  for (const Cure &each : cures) cured.text.replace(each.at, each.removed, each.put_in);
  if (cures.empty() || is_better(document, cured.text)) return cured;
  return {std::string(document.text), 0};
}

}  // namespace sil
