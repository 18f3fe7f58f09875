// A listener that writes down what it is told.
#include "core/document.h"

#include <algorithm>
#include <array>

namespace sil {
namespace {

// At the least, on average, in files as people write them. Memory that stays untouched costs nothing.
constexpr std::size_t kBytesOfToken = 4;
constexpr std::size_t kBytesOfElement = 12;

// A session for one text.
class Checker {
 public:
  Checker() : space_(jt_open_parsing_utility("sil")) {}
  Checker(const Checker &) = delete;
  Checker &operator=(const Checker &) = delete;
  ~Checker() { jt_close_parsing_utility(space_); }

  bool check(std::string_view text, const jt_listener &listener) const {
    // An empty view may point nowhere, which is not what the library calls an empty text.
    const char *const begin = text.empty() ? "" : text.data();
    return jt_check_source(space_, begin, text.size(), nullptr, &listener) == 1;
  }

 private:
  jt_parser_space *space_;
};

std::string or_empty(const char *text) { return text == nullptr ? "" : text; }

SourceFinding copy_of(const jt_finding &told) {
  SourceFinding finding;
  finding.code = told.code;
  finding.severity = told.severity;
  finding.range = told.range;
  finding.found = told.found;
  finding.found_is_end = told.found_is_end != 0;
  finding.expected = or_empty(told.expected);
  finding.expected_roles = told.expected_roles;
  if (told.has_second != 0) finding.second = told.second;
  finding.candidates = told.candidates;
  finding.scope = or_empty(told.scope);
  finding.type = or_empty(told.type);
  return finding;
}

class Collector {
 public:
  explicit Collector(Document &document) : document_(document) {
    document.tokens.reserve(document.text.size() / kBytesOfToken);
    document.elements.reserve(document.text.size() / kBytesOfElement);
  }

  jt_listener listener() { return {sizeof(jt_listener), this, open, close, token, finding, nullptr}; }

 private:
  static Collector &from(void *context) { return *static_cast<Collector *>(context); }

  static std::int32_t open(void *context, const jt_source_element *told) {
    Collector &self = from(context);
    SourceElement element;
    element.kind = told->kind;
    element.range = told->range;
    element.parent = self.innermost_;
    element.first_token = static_cast<std::uint32_t>(self.document_.tokens.size());
    self.innermost_ = static_cast<std::uint32_t>(self.document_.elements.size());
    self.document_.elements.push_back(element);
    return 0;
  }

  static std::int32_t close(void *context, const jt_source_element *told) {
    Collector &self = from(context);
    SourceElement &element = self.document_.elements[self.innermost_];
    element.range = told->range;
    element.behind_last_descendant = static_cast<std::uint32_t>(self.document_.elements.size());
    self.end_tokens_of(element);
    self.innermost_ = element.parent;
    return 0;
  }

  // An element may be closed when what follows it is known, and comments have been told by then.
  void end_tokens_of(SourceElement &element) const {
    const std::vector<SourceToken> &tokens = document_.tokens;
    std::size_t behind = tokens.size();
    while (behind > element.first_token && tokens[behind - 1].range.end > element.range.end) --behind;
    element.behind_last_token = static_cast<std::uint32_t>(behind);
  }

  static std::int32_t token(void *context, const jt_source_token *told) {
    Collector &self = from(context);
    self.document_.tokens.push_back({told->range, told->role, self.innermost_});
    return 0;
  }

  static std::int32_t finding(void *context, const jt_finding *told) {
    from(context).document_.findings.push_back(copy_of(*told));
    return 0;
  }

  Document &document_;
  std::uint32_t innermost_ = kNowhere;
};

// Goes along the tokens of a document with those that it is told.
class Comparison {
 public:
  Comparison(const Document &document, std::string_view text) : document_(document), text_(text) {}

  bool run() {
    const jt_listener listener = {sizeof(jt_listener), this, nullptr, nullptr, token, nullptr, nullptr};
    Checker().check(text_, listener);
    return is_same_ && next_ == document_.tokens.size();
  }

 private:
  static std::int32_t token(void *context, const jt_source_token *told) {
    Comparison &self = *static_cast<Comparison *>(context);
    const std::vector<SourceToken> &tokens = self.document_.tokens;
    self.is_same_ = self.next_ < tokens.size() && tokens[self.next_].role == told->role &&
                    self.document_.piece(tokens[self.next_]) ==
                        self.text_.substr(told->range.begin, told->range.end - told->range.begin);
    ++self.next_;
    return self.is_same_ ? 0 : 1;
  }

  const Document &document_;
  std::string_view text_;
  std::size_t next_ = 0;
  bool is_same_ = true;
};

// What the library cannot read on from without guessing. Other errors are about what tokens mean.
constexpr std::array kMisfits = {
    JT_FINDING_SYNTAX_EXPECTED, JT_FINDING_SYNTAX_UNCLOSED, JT_FINDING_SYNTAX_STRING,
    JT_FINDING_SYNTAX_LENGTH,   JT_FINDING_SYNTAX_NUL,      JT_FINDING_TEXT_BOM,
    JT_FINDING_BLOCK_ILLEGAL,   JT_FINDING_MEMORY,          JT_FINDING_LIMIT,
    JT_FINDING_HEADER_FORM,     JT_FINDING_END_MARKER,      JT_FINDING_STRING_OVER_LINES,
};

bool is_misfit(const SourceFinding &finding) {
  return finding.severity == JT_SEVERITY_ERROR &&
         std::find(kMisfits.begin(), kMisfits.end(), finding.code) != kMisfits.end();
}

bool is_blank(char c) { return c == ' ' || (c >= '\b' && c <= '\r'); }

bool is_all_blank(std::string_view text) { return std::all_of(text.begin(), text.end(), is_blank); }

bool has_skipped_text(const Document &document) {
  std::size_t at = 0;
  for (const SourceToken &token : document.tokens) {
    if (!is_all_blank(document.piece(at, token.range.begin))) return true;
    at = token.range.end;
  }
  return !is_all_blank(document.text.substr(at));
}

// Behind one error the library keeps silent of the next one for a while, but what is not ended shows.
bool is_ended(const Document &document, const SourceElement &element) {
  const auto ends_with = [&](std::size_t behind, char mark) {
    while (behind > element.first_token && document.tokens[behind - 1].is_comment()) --behind;
    return behind > element.first_token && document.is_mark(document.tokens[behind - 1], mark);
  };
  switch (element.kind) {
    case JT_SOURCE_ATTRIBUTE:
      return ends_with(element.behind_last_token, ';') || ends_with(element.behind_last_token, ')');
    case JT_SOURCE_INVOCATION:
      return ends_with(element.behind_last_token, '}') || ends_with(element.behind_last_token, ')');
    case JT_SOURCE_STATUS:
      return ends_with(element.behind_last_token, ')');
    default:
      return true;
  }
}

}  // namespace

std::size_t Document::token_from(std::size_t offset) const {
  const auto found =
      std::lower_bound(tokens.begin(), tokens.end(), offset,
                       [](const SourceToken &token, std::size_t at) { return token.range.begin < at; });
  return static_cast<std::size_t>(found - tokens.begin());
}

bool Document::has_comment_in(std::size_t begin, std::size_t end) const {
  for (std::size_t i = token_from(begin); i < tokens.size() && tokens[i].range.begin < end; ++i)
    if (tokens[i].is_comment()) return true;
  return false;
}

Document read_document(std::string_view text) {
  Document document;
  document.text = text;
  Collector collector(document);
  document.decodes = Checker().check(text, collector.listener());
  return document;
}

std::vector<SourceFinding> find_in(std::string_view text, bool &decodes) {
  std::vector<SourceFinding> findings;
  const auto add = [](void *context, const jt_finding *told) -> std::int32_t {
    static_cast<std::vector<SourceFinding> *>(context)->push_back(copy_of(*told));
    return 0;
  };
  decodes = Checker().check(text, {sizeof(jt_listener), &findings, nullptr, nullptr, nullptr, add, nullptr});
  return findings;
}

bool has_findings(std::string_view text, std::int32_t mildest) {
  struct Search {
    std::int32_t mildest;
    bool has_found = false;
  } search{mildest};
  const auto look = [](void *context, const jt_finding *told) -> std::int32_t {
    Search &self = *static_cast<Search *>(context);
    self.has_found = self.has_found || told->severity <= self.mildest;
    return self.has_found ? 1 : 0;
  };
  Checker().check(text, {sizeof(jt_listener), &search, nullptr, nullptr, nullptr, look, nullptr});
  return search.has_found;
}

bool has_same_tokens(const Document &document, std::string_view text) {
  return Comparison(document, text).run();
}

bool tokens_fit(const Document &document) {
  return std::none_of(document.findings.begin(), document.findings.end(), is_misfit) &&
         !has_skipped_text(document) &&
         std::all_of(document.elements.begin(), document.elements.end(),
                     [&](const SourceElement &element) { return is_ended(document, element); });
}

std::size_t count_line_ends(std::string_view text) {
  std::size_t count = 0;
  char before = '\0';
  for (const char c : text) {
    if (c == '\r' || (c == '\n' && before != '\r')) ++count;
    before = c;
  }
  return count;
}

Lines::Lines(std::string_view text) : text_(text), begins_{0} {
  for (std::size_t at = text.find_first_of("\r\n"); at < text.size(); at = text.find_first_of("\r\n", at)) {
    at += line_end_at(text, at);
    begins_.push_back(at);
  }
}

Lines::Position Lines::position_of(std::size_t offset) const {
  const auto behind = std::upper_bound(begins_.begin(), begins_.end(), offset);
  const auto line = static_cast<std::size_t>(behind - begins_.begin());
  return {line, offset - begins_[line - 1] + 1};
}

jt_range Lines::range_of_line(std::size_t number) const {
  const std::size_t begin = begins_[number - 1];
  return {begin, std::min(text_.find_first_of("\r\n", begin), text_.size())};
}

std::string_view Lines::line(std::size_t number) const {
  const jt_range range = range_of_line(number);
  return text_.substr(range.begin, range.end - range.begin);
}

}  // namespace sil
