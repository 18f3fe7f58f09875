// An excerpt of a line and its marks are built byte by byte, so that they stay below each other.
#include "core/report.h"

#include <algorithm>

#include "core/json_writer.h"
#include "core/suggestions.h"
#include "core/text.h"

namespace sil {
namespace {

constexpr std::size_t kWidth = 100;  // of an excerpt, in bytes
constexpr std::size_t kLead = 50;    // bytes before the place, where the line is longer
constexpr std::size_t kNumberWidth = 5;
constexpr std::string_view kCut = "...";
constexpr char kHidden = 'x';

bool continues_letter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

Part part_of(std::int32_t severity) {
  if (severity <= JT_SEVERITY_LOSS) return Part::kError;
  return severity == JT_SEVERITY_WARNING ? Part::kWarning : Part::kNote;
}

class Excerpt {
 public:
  Excerpt(const Document &document, const Lines &lines, const Label &label, bool is_redacted)
      : document_(document),
        label_(label),
        line_(lines.range_of_line(label.at.line)),
        is_redacted_(is_redacted) {
    choose_window();
    for (std::size_t at = begin_; at < end_; ++at) add(at);
    if (end_ < line_.end) shown_ += kCut;
    if (marks_.find('^') == std::string::npos) marks_ += '^';
  }

  std::string run(const PaintPart &paint, Part part) const {
    std::string number = std::to_string(label_.at.line);
    number.insert(0, kNumberWidth - std::min(kNumberWidth, number.size()), ' ');
    const std::string gutter = number + " | ";
    const std::string below = std::string(number.size(), ' ') + " | ";
    return paint(Part::kPlace, gutter) + shown_ + "\n" + paint(Part::kPlace, below) + paint(part, marks_);
  }

 private:
  void choose_window() {
    begin_ = line_.begin;
    end_ = line_.end;
    if (end_ - begin_ <= kWidth) return;
    begin_ =
        std::max(begin_, std::min(label_.range.begin - std::min(label_.range.begin, kLead), end_ - kWidth));
    while (begin_ > line_.begin && continues_letter(document_.text[begin_])) --begin_;
    end_ = std::min(begin_ + kWidth, end_);
    while (end_ < line_.end && continues_letter(document_.text[end_])) ++end_;
    if (begin_ == line_.begin) return;
    shown_ = kCut;
    marks_.assign(kCut.size(), ' ');
  }

  void add(std::size_t at) {
    const char c = document_.text[at];
    const bool is_marked =
        at >= label_.range.begin && at < std::max(label_.range.end, label_.range.begin + 1);
    const std::string piece = is_hidden(at) ? std::string(1, kHidden) : c == '\t' ? " " : printable({&c, 1});
    shown_ += piece;
    if (continues_letter(c) && !is_hidden(at)) return;
    const bool is_before = at < label_.range.begin;
    if (is_before || is_marked) marks_.append(piece.size(), is_before ? ' ' : '^');
  }

  // Tokens that people wrote, and what could not be read.
  bool is_hidden(std::size_t at) {
    if (!is_redacted_ || document_.text[at] == ' ' || document_.text[at] == '\t') return false;
    const std::vector<SourceToken> &tokens = document_.tokens;
    const auto behind = std::upper_bound(
        tokens.begin(), tokens.end(), at,
        [](std::size_t offset, const SourceToken &token) { return offset < token.range.begin; });
    if (behind == tokens.begin() || std::prev(behind)->range.end <= at) return true;
    return is_free_token(document_, *std::prev(behind));
  }

  const Document &document_;
  const Label &label_;
  jt_range line_;
  bool is_redacted_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::string shown_;
  std::string marks_;
};

std::string place_of(std::string_view file, const Label &label) {
  return printable(file) + ":" + std::to_string(label.at.line) + ":" + std::to_string(label.at.column);
}

void write_label(JsonWriter &json, const Label &label) {
  json.key("line");
  json.number(label.at.line);
  json.key("column");
  json.number(label.at.column);
  json.key("begin");
  json.number(label.range.begin);
  json.key("end");
  json.number(label.range.end);
  json.member("message", label.text);
}

}  // namespace

std::string for_people(std::string_view file, const Document &document, const Lines &lines,
                       const Finding &finding, bool is_redacted, const PaintPart &paint) {
  const Part part = part_of(finding.severity);
  std::string text = paint(Part::kPlace, place_of(file, finding.label)) + ": ";
  text += paint(part, name_of_severity(finding.severity)) + ": " + finding.label.text;
  text += " [" + std::string(jt_finding_name(finding.code)) + "]\n";
  text += Excerpt(document, lines, finding.label, is_redacted).run(paint, part) + "\n";
  const std::string meant = did_you_mean(finding.suggestions);
  const std::string margin(kNumberWidth + 1, ' ');
  if (!meant.empty())
    text += margin + paint(Part::kHelp, "= " + meant.substr(meant.find_first_not_of("; "))) + "\n";
  if (!finding.second) return text;
  text += Excerpt(document, lines, *finding.second, is_redacted).run(paint, Part::kNote);
  return text + " " + finding.second->text + "\n";
}

std::string as_json(std::string_view file, const Finding &finding) {
  JsonWriter json;
  json.open_object();
  json.member("file", file);
  json.member("code", jt_finding_name(finding.code));
  json.member("severity", name_of_severity(finding.severity));
  write_label(json, finding.label);
  if (!finding.suggestions.empty()) {
    json.key("suggestions");
    json.open_array();
    for (const std::string &name : finding.suggestions) json.text(name);
    json.close_array();
  }
  if (finding.second) {
    json.key("second");
    json.open_object();
    write_label(json, *finding.second);
    json.close_object();
  }
  json.close_object();
  std::string text;
  for_each_line(json.take(), [&text](std::string_view line) { text.append("\n  ").append(line); });
  return text;
}

}  // namespace sil
