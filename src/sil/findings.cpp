#include "sil/findings.h"

#include <array>

namespace jt_core {
namespace {

constexpr auto kFacts = std::to_array<CodeFacts>({
    {JT_FINDING_SYNTAX_EXPECTED, "syntax-expected", JT_SEVERITY_ERROR},
    {JT_FINDING_SYNTAX_UNCLOSED, "syntax-unclosed", JT_SEVERITY_ERROR},
    {JT_FINDING_SYNTAX_STRING, "syntax-string", JT_SEVERITY_ERROR},
    {JT_FINDING_STRING_OVER_LINES, "string-over-lines", JT_SEVERITY_ERROR},
    {JT_FINDING_SYNTAX_LENGTH, "syntax-length", JT_SEVERITY_ERROR},
    {JT_FINDING_SYNTAX_NUL, "syntax-nul", JT_SEVERITY_ERROR},
    {JT_FINDING_TEXT_BOM, "text-bom", JT_SEVERITY_ERROR},
    {JT_FINDING_BLOCK_ILLEGAL, "block-illegal", JT_SEVERITY_ERROR},
    {JT_FINDING_MEMORY, "memory", JT_SEVERITY_ERROR},
    {JT_FINDING_LIMIT, "limit", JT_SEVERITY_ERROR},
    {JT_FINDING_HEADER_FORM, "header-form", JT_SEVERITY_ERROR},
    {JT_FINDING_HEADER_VERSION, "header-version", JT_SEVERITY_WARNING},
    {JT_FINDING_HEADER_ENCODING, "header-encoding", JT_SEVERITY_LOSS},
    {JT_FINDING_END_MARKER, "end-marker", JT_SEVERITY_ERROR},
    {JT_FINDING_SERVICE_TYPE_UNKNOWN, "service-type-unknown", JT_SEVERITY_ERROR},
    {JT_FINDING_SERVICE_UNKNOWN, "service-unknown", JT_SEVERITY_WARNING},
    {JT_FINDING_ATTRIBUTE_TYPE_UNKNOWN, "attribute-type-unknown", JT_SEVERITY_ERROR},
    {JT_FINDING_ATTRIBUTE_TYPE_OF_OTHER_SERVICE, "attribute-type-of-other-service", JT_SEVERITY_ERROR},
    {JT_FINDING_NAME_DUPLICATE, "name-duplicate", JT_SEVERITY_ERROR},
    {JT_FINDING_NAME_UNSAFE, "name-unsafe", JT_SEVERITY_LOSS},
    {JT_FINDING_VALUE_MALFORMED, "value-malformed", JT_SEVERITY_LOSS},
    {JT_FINDING_VALUE_OUT_OF_RANGE, "value-out-of-range", JT_SEVERITY_LOSS},
    {JT_FINDING_VALUE_SATURATED, "value-saturated", JT_SEVERITY_LOSS},
    {JT_FINDING_VALUE_TAIL, "value-tail", JT_SEVERITY_LOSS},
    {JT_FINDING_VALUE_EMPTY_NUMBER, "value-empty-number", JT_SEVERITY_WARNING},
    {JT_FINDING_VALUE_IMPOSSIBLE, "value-impossible", JT_SEVERITY_WARNING},
    {JT_FINDING_VALUE_UNKNOWN_NAME, "value-unknown-name", JT_SEVERITY_WARNING},
    {JT_FINDING_VALUE_UNSAFE, "value-unsafe", JT_SEVERITY_WARNING},
    {JT_FINDING_VALUE_DROPPED, "value-dropped", JT_SEVERITY_LOSS},
    {JT_FINDING_VALUE_ROUNDED, "value-rounded", JT_SEVERITY_NOTE},
    {JT_FINDING_STATUS_UNKNOWN, "status-unknown", JT_SEVERITY_WARNING},
    {JT_FINDING_STATUS_UNSAFE, "status-unsafe", JT_SEVERITY_WARNING},
    {JT_FINDING_STATUS_TEXT_LOST, "status-text-lost", JT_SEVERITY_LOSS},
    {JT_FINDING_COMMENT_MOVES, "comment-moves", JT_SEVERITY_NOTE},
    {JT_FINDING_IGNORE_UNUSED, "ignore-unused", JT_SEVERITY_WARNING},
});

constexpr bool are_in_order() {
  for (std::size_t i = 0; i < kFacts.size(); ++i) {
    if (kFacts[i].code != static_cast<std::int32_t>(i)) return false;
  }
  return kFacts.size() == kCodes;
}
static_assert(are_in_order(), "every code has its row");

}  // namespace

const CodeFacts &facts_of_code(std::int32_t code) { return kFacts[static_cast<std::size_t>(code)]; }

jt_finding finding_of(std::int32_t code, jt_range range) {
  jt_finding finding{};
  finding.code = code;
  finding.severity = facts_of_code(code).severity;
  finding.range = finding.found = range;
  return finding;
}

}  // namespace jt_core

extern "C" const char *jt_finding_name(int32_t code) {
  return code >= 0 && code < jt_core::kCodes ? jt_core::facts_of_code(code).name : nullptr;
}
