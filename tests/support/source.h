// What a listener is told of a text, as lines that a test can write out: elements, tokens and handles in the
// order in which they are told, and findings with all that is in their records.
#ifndef JT_TESTS_SUPPORT_SOURCE_H
#define JT_TESTS_SUPPORT_SOURCE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "jt.h"

namespace jt_test {

using Lines = std::vector<std::string>;

inline std::string range_text(jt_range range) {
  return std::to_string(range.begin) + "-" + std::to_string(range.end);
}

inline std::string element_name(int32_t kind) {
  constexpr std::array<const char *, 8> kNames = {"?",          "header",    "section", "service",
                                                  "invocation", "attribute", "value",   "status"};
  return kNames.at(static_cast<std::size_t>(kind));
}

inline std::string role_name(int32_t role) {
  constexpr std::array<const char *, 15> kNames = {
      "mark",         "marker",       "version",         "encoding",    "identifier",
      "service type", "service name", "invocation name", "star",        "type",
      "name",         "value",        "status",          "status text", "comment"};
  return kNames.at(static_cast<std::size_t>(role));
}

inline std::string severity_name(int32_t severity) {
  constexpr std::array<const char *, 4> kNames = {"error", "loss", "warning", "note"};
  return kNames.at(static_cast<std::size_t>(severity));
}

inline std::string candidates_name(int32_t candidates) {
  constexpr std::array<const char *, 4> kNames = {"none", "services", "types", "names"};
  return kNames.at(static_cast<std::size_t>(candidates));
}

// "2:3 error syntax-expected 10-12", then what is not as usual: where the decoder stopped, what may stand
// there, the second range, the candidates, the type.
inline std::string finding_text(const jt_finding &finding) {
  std::string text = std::to_string(finding.line) + ":" + std::to_string(finding.column) + " " +
                     severity_name(finding.severity) + " " + jt_finding_name(finding.code) + " " +
                     range_text(finding.range);
  const bool elsewhere = finding.found.begin != finding.range.begin || finding.found.end != finding.range.end;
  if (elsewhere) text += ", found " + range_text(finding.found);
  if (finding.found_is_end != 0) text += ", at the end";
  if (*finding.expected != '\0') text += ", marks " + std::string(finding.expected);
  for (int32_t role = 0; role <= JT_ROLE_COMMENT; ++role) {
    if ((finding.expected_roles >> static_cast<unsigned>(role) & 1U) != 0) text += ", a " + role_name(role);
  }
  if (finding.has_second != 0) text += ", second " + range_text(finding.second);
  if (finding.candidates != JT_CANDIDATES_NONE) text += ", " + candidates_name(finding.candidates);
  if (finding.scope != nullptr) text += " of " + std::string(finding.scope);
  if (finding.type != nullptr) text += ", type " + std::string(finding.type);
  return text;
}

// What can be asked of a finding behind its callback.
struct Found {
  int32_t code;
  int32_t severity;
  jt_range range;
  jt_range found;
  std::size_t line;
  std::string text;
};

struct Told {
  int32_t role;
  jt_range range;
  std::string text;
};

struct Opened {
  int32_t kind;
  int32_t number;
  jt_range range;
  bool is_closed;
};

// Hears everything, or only findings.
class Ear {
 public:
  enum class For { kAll, kFindings };

  explicit Ear(For what = For::kAll) {
    listener_.size = sizeof(listener_);
    listener_.context = this;
    listener_.finding = [](void *ear, const jt_finding *finding) { return self(ear).on_finding(*finding); };
    if (what == For::kFindings) return;
    listener_.open = [](void *ear, const jt_source_element *element) { return self(ear).on_open(*element); };
    listener_.close = [](void *ear, const jt_source_element *element) {
      return self(ear).on_close(*element);
    };
    listener_.token = [](void *ear, const jt_source_token *token) { return self(ear).on_token(*token); };
    listener_.handle = [](void *ear, int32_t number, int32_t handle) {
      self(ear).handles.emplace_back(number, handle);
      return 0;
    };
  }
  Ear(const Ear &) = delete;
  Ear &operator=(const Ear &) = delete;

  const jt_listener *listener() const { return &listener_; }

  Lines finding_lines() const {
    Lines texts;
    for (const Found &finding : findings) texts.push_back(finding.text);
    return texts;
  }

  std::size_t count_of(int32_t severity) const {
    std::size_t count = 0;
    for (const Found &finding : findings) count += finding.severity == severity ? 1 : 0;
    return count;
  }

  Lines lines;  // all but handles, in their order
  std::vector<Found> findings;
  std::vector<Told> tokens;
  std::vector<Opened> elements;
  std::vector<std::pair<int32_t, int32_t>> handles;
  bool is_nested = true;  // every close is that of the element opened last

 private:
  static Ear &self(void *ear) { return *static_cast<Ear *>(ear); }

  int32_t on_open(const jt_source_element &element) {
    lines.push_back("open " + element_name(element.kind) + " " + std::to_string(element.range.begin));
    open_.push_back(elements.size());
    elements.push_back({element.kind, element.number, element.range, false});
    return 0;
  }

  int32_t on_close(const jt_source_element &element) {
    lines.push_back("close " + element_name(element.kind) + " " + range_text(element.range));
    if (open_.empty()) {
      is_nested = false;
      return 0;
    }
    Opened &opened = elements[open_.back()];
    open_.pop_back();
    is_nested = is_nested && opened.number == element.number && opened.kind == element.kind &&
                opened.range.begin == element.range.begin;
    opened.range = element.range;
    opened.is_closed = true;
    return 0;
  }

  int32_t on_token(const jt_source_token &token) {
    const std::string text(token.text, token.length);
    lines.push_back(role_name(token.role) + " " + range_text(token.range) + " " + text);
    tokens.push_back({token.role, token.range, text});
    return 0;
  }

  int32_t on_finding(const jt_finding &finding) {
    const std::string text = finding_text(finding);
    lines.push_back(text);
    findings.push_back({finding.code, finding.severity, finding.range, finding.found, finding.line, text});
    return 0;
  }

  jt_listener listener_{};
  std::vector<std::size_t> open_;
};

}  // namespace jt_test

#endif
