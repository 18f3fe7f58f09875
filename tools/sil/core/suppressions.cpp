// Comments first, then what they cover, then what that hides.
#include "core/suppressions.h"

#include <algorithm>
#include <vector>

#include "core/text.h"

namespace sil {
namespace {

constexpr std::string_view kMark = "sil:";
constexpr std::string_view kVerb = "ignore";

struct Suppression {
  std::int32_t code;   // or -1
  jt_range written;    // where the code stands, or the comment without one
  jt_range statement;  // what it covers; empty where it stands at nothing
  bool is_used = false;
};

bool is_statement(const SourceElement &element) {
  return element.kind != JT_SOURCE_VALUE && element.kind != JT_SOURCE_STATUS;
}

// The next word from an offset on, between blanks and commas.
jt_range next_word(std::string_view text, std::size_t from, std::size_t end) {
  constexpr std::string_view kBetween = " \t,";
  const std::string_view line = text.substr(0, end);
  const std::size_t begin = std::min(line.find_first_not_of(kBetween, from), end);
  return {begin, std::min(line.find_first_of(kBetween, begin), end)};
}

class Reader {
 public:
  explicit Reader(const Document &document) : document_(document) {}

  std::vector<Suppression> run() {
    for (std::size_t i = 0; i < document_.tokens.size(); ++i)
      if (document_.tokens[i].is_comment()) read(i);
    return std::move(found_);
  }

 private:
  void read(std::size_t comment) {
    const jt_range range = document_.tokens[comment].range;
    const jt_range mark = next_word(document_.text, range.begin + 1, range.end);
    const jt_range verb = next_word(document_.text, mark.end, range.end);
    if (document_.piece(mark) != kMark || document_.piece(verb) != kVerb) return;
    const jt_range statement = covered_by(comment);
    jt_range word = next_word(document_.text, verb.end, range.end);
    if (word.begin == word.end) found_.push_back({-1, range, statement});
    for (; word.begin < word.end; word = next_word(document_.text, word.end, range.end))
      found_.push_back({code_named(document_.piece(word)), word, statement});
  }

  jt_range covered_by(std::size_t comment) const {
    const std::vector<SourceToken> &tokens = document_.tokens;
    std::size_t before = comment;
    while (before > 0 && tokens[before - 1].is_comment()) --before;
    std::size_t next = comment;
    while (next < tokens.size() && tokens[next].is_comment()) ++next;
    // Of several comments only the first can stand behind a token.
    const bool is_behind =
        before == comment && before > 0 &&
        count_line_ends(document_.piece(tokens[before - 1].range.end, tokens[comment].range.begin)) == 0;
    if (is_behind) return statement_behind(tokens[before - 1]);
    const SourceElement *const inside = statement_around(tokens[comment]);
    if (inside != nullptr && inside->kind == JT_SOURCE_ATTRIBUTE) return inside->range;
    const SourceElement *const below = next < tokens.size() ? statement_begun_by(tokens[next]) : nullptr;
    if (below != nullptr) return below->range;
    return inside != nullptr ? inside->range : jt_range{};
  }

  // The one that ends with the token, else the one that the token stands in.
  jt_range statement_behind(const SourceToken &token) const {
    const SourceElement *const around = statement_around(token);
    return around != nullptr ? around->range : jt_range{};
  }

  const SourceElement *statement_around(const SourceToken &token) const {
    if (!token.is_in_element()) return nullptr;
    const SourceElement *element = &document_.elements[token.element];
    while (!is_statement(*element) && element->parent != kNowhere)
      element = &document_.elements[element->parent];
    return is_statement(*element) ? element : nullptr;
  }

  const SourceElement *statement_begun_by(const SourceToken &token) const {
    const SourceElement *const element = statement_around(token);
    return element != nullptr && element->range.begin == token.range.begin ? element : nullptr;
  }

  const Document &document_;
  std::vector<Suppression> found_;
};

bool covers(const Suppression &suppression, const SourceFinding &finding) {
  const jt_range &statement = suppression.statement;
  return suppression.code == finding.code && finding.range.begin >= statement.begin &&
         finding.range.end <= statement.end && statement.begin < statement.end;
}

SourceFinding unused(const Suppression &suppression) {
  SourceFinding finding;
  finding.code = JT_FINDING_IGNORE_UNUSED;
  finding.severity = JT_SEVERITY_WARNING;
  finding.range = finding.found = suppression.written;
  return finding;
}

}  // namespace

std::int32_t code_named(std::string_view name) {
  for (std::int32_t code = 0; jt_finding_name(code) != nullptr; ++code)
    if (same_name(jt_finding_name(code), name)) return code;
  return -1;
}

void hide_suppressed(Document &document, bool is_strict) {
  std::vector<Suppression> suppressions = Reader(document).run();
  const std::int32_t hardest = is_strict ? JT_SEVERITY_LOSS : JT_SEVERITY_ERROR;
  std::vector<SourceFinding> &findings = document.findings;
  std::erase_if(findings, [&](const SourceFinding &finding) {
    bool is_hidden = false;
    for (Suppression &suppression : suppressions) {
      if (finding.severity <= hardest || !covers(suppression, finding)) continue;
      is_hidden = suppression.is_used = true;
    }
    return is_hidden;
  });
  for (const Suppression &suppression : suppressions)
    if (!suppression.is_used) findings.push_back(unused(suppression));
  const auto is_before = [](const SourceFinding &a, const SourceFinding &b) {
    return a.range.begin < b.range.begin;
  };
  if (!std::is_sorted(findings.begin(), findings.end(), is_before))
    std::stable_sort(findings.begin(), findings.end(), is_before);
}

}  // namespace sil
