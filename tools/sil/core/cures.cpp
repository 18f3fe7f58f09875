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

bool begins_attribute(const Document &document, std::size_t offset) {
  return std::any_of(document.elements.begin(), document.elements.end(),
                     [offset](const SourceElement &element) {
                       return element.kind == JT_SOURCE_ATTRIBUTE && element.range.begin == offset;
                     });
}

bool begins_service(const Document &document, std::size_t offset) {
  return std::any_of(document.elements.begin(), document.elements.end(),
                     [offset](const SourceElement &element) {
                       return element.kind == JT_SOURCE_SERVICE && element.range.begin == offset;
                     });
}

bool has_comment_between(const Document &document, std::size_t begin, std::size_t end) {
  return std::any_of(document.tokens.begin(), document.tokens.end(), [=](const SourceToken &token) {
    return token.is_comment() && token.range.begin >= begin && token.range.end <= end;
  });
}

bool is_missing_semicolon(const Document &document, const SourceFinding &finding) {
  const bool is_missing = finding.code == JT_FINDING_SYNTAX_EXPECTED &&
                          finding.range.begin == finding.range.end &&
                          finding.expected.find(';') != std::string::npos && !finding.found_is_end;
  return is_missing &&
         (begins_attribute(document, finding.found.begin) || begins_service(document, finding.found.begin)) &&
         !has_comment_between(document, finding.range.begin, finding.found.begin);
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
