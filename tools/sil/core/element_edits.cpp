// Adding and removing whole elements: with the lines that they fill, where they fill lines.
#include <algorithm>
#include <variant>

#include "core/edits.h"
#include "core/paths.h"
#include "core/source_places.h"
#include "core/text.h"

namespace sil {
namespace {

constexpr std::size_t kStarWidth = 2;

Edited refused(std::string problem) { return {Edited::Result::kRefused, "", std::move(problem)}; }

Edited wrong_use(std::string problem) { return {Edited::Result::kWrongUse, "", std::move(problem)}; }

// ---- Lines ----

class LinesAround {
 public:
  explicit LinesAround(const Document &document) : document_(document), text_(document.text) {}

  std::size_t line_begin(std::size_t offset) const {
    const std::size_t line_end = text_.substr(0, offset).find_last_of("\r\n");
    return line_end == std::string_view::npos ? 0 : line_end + 1;
  }

  // Behind the line end, or the end of the text.
  std::size_t behind_line(std::size_t offset) const {
    const std::size_t end = std::min(text_.find_first_of("\r\n", offset), text_.size());
    return end + line_end_at(text_, end);
  }

  bool begins_line(std::size_t offset) const { return is_blank(line_begin(offset), offset); }

  // Whether nothing but a comment follows on the line.
  bool ends_line(std::size_t offset) const {
    const std::size_t at = text_.find_first_not_of(" \t", offset);
    return at >= text_.size() || text_[at] == '#' || line_end_at(text_, at) > 0;
  }

  bool is_empty_line(std::size_t begin) const {
    return begin < text_.size() &&
           is_blank(begin, std::min(text_.find_first_of("\r\n", begin), text_.size()));
  }

  // The begin of the first of the comment lines that touch the line from above.
  std::size_t begin_with_comments(std::size_t begin) const {
    while (begin > 0) {
      const std::size_t end_above = begin - (begin > 1 && text_.substr(begin - 2, 2) == "\r\n" ? 2 : 1);
      const std::size_t above = line_begin(end_above);
      const std::size_t first = text_.find_first_not_of(" \t", above);
      if (first >= end_above || !is_comment_at(first)) break;
      begin = above;
    }
    return begin;
  }

  // How lines end in the text.
  std::string_view line_end() const {
    const std::size_t first = text_.find_first_of("\r\n");
    return first == std::string_view::npos ? "\n" : text_.substr(first, line_end_at(text_, first));
  }

  std::string_view indent_of(std::size_t offset) const {
    return text_.substr(line_begin(offset), offset - line_begin(offset));
  }

 private:
  bool is_blank(std::size_t begin, std::size_t end) const {
    return text_.substr(begin, end - begin).find_first_not_of(" \t") == std::string_view::npos;
  }

  bool is_comment_at(std::size_t offset) const { return document_.has_comment_in(offset, offset + 1); }

  const Document &document_;
  std::string_view text_;
};

// ---- Adding ----

class Adder {
 public:
  Adder(const Editable &editable, const NewElement &wanted)
      : document_(editable.document), model_(editable.model), wanted_(wanted), lines_(document_) {}

  Edited run() {
    if (!read_path() || !find_parent() || !find_successor() || !check()) return std::move(failure_);
    return {Edited::Result::kDone, with_replacements(document_.text, {put_in()}), ""};
  }

 private:
  bool fail(Edited failure) {
    failure_ = std::move(failure);
    return false;
  }

  bool read_path() {
    std::variant<Path, PathError> parsed = parse_path(wanted_.path);
    if (const PathError *const error = std::get_if<PathError>(&parsed))
      return fail(wrong_use(wanted_.path + ": " + error->message));
    path_ = std::get<Path>(std::move(parsed));
    const bool is_plain = path_.aspect == Aspect::kNone && path_.value == 0 && !path_.appends;
    if (!is_plain || path_.steps.empty())
      return fail(wrong_use(wanted_.path + " is no place for an element"));
    name_ = path_.steps.back();
    path_.steps.pop_back();
    if (name_.kind != Step::Kind::kName && name_.kind != Step::Kind::kUnnamed)
      return fail(wrong_use(wanted_.path + ": the last step is the name of what is added"));
    const std::size_t depth = path_.steps.size() + (path_.root == Root::kHeader ? 2 : 0);
    constexpr std::int32_t kKinds[] = {JT_SOURCE_SERVICE, JT_SOURCE_INVOCATION, JT_SOURCE_ATTRIBUTE};
    kind_ = kKinds[depth];
    return true;
  }

  bool find_parent() {
    const std::variant<Found, Missing> found = resolve(model_, path_);
    if (const Missing *const missing = std::get_if<Missing>(&found)) return fail(refused(missing->message));
    const std::vector<Place> &places = std::get<Found>(found).places;
    if (places.size() != 1)
      return fail(refused("the path names " + std::to_string(places.size()) + " places"));
    parent_ = element_number(document_, places[0]);
    siblings_ = children_of(document_, parent_, kind_);
    return true;
  }

  bool find_successor() {
    if (wanted_.before.empty()) return true;
    const std::variant<Path, PathError> parsed = parse_path(wanted_.before);
    if (const PathError *const error = std::get_if<PathError>(&parsed))
      return fail(wrong_use(wanted_.before + ": " + error->message));
    const std::variant<Found, Missing> found = resolve(model_, std::get<Path>(parsed));
    if (const Missing *const missing = std::get_if<Missing>(&found)) return fail(refused(missing->message));
    const std::vector<Place> &places = std::get<Found>(found).places;
    successor_ = places.size() == 1 ? element_number(document_, places[0]) : kNowhere;
    const bool is_sibling = std::find(siblings_.begin(), siblings_.end(), successor_) != siblings_.end();
    return is_sibling || fail(refused(wanted_.before + " is not beside " + wanted_.path));
  }

  // Whatever is not a word would be another thing in the text.
  bool check() {
    const bool is_invocation = kind_ == JT_SOURCE_INVOCATION;
    const bool is_attribute = kind_ == JT_SOURCE_ATTRIBUTE;
    if (is_invocation && !wanted_.type.empty()) return fail(wrong_use("an invocation has no type"));
    if (!is_invocation && !is_bare_word(wanted_.type))
      return fail(wrong_use("--type is needed, and is one word"));
    if (!is_attribute && (wanted_.is_optional || !wanted_.values.empty()))
      return fail(wrong_use("only an attribute has a star and values"));
    const bool has_name = name_.kind == Step::Kind::kName;
    if (has_name && !is_bare_word(name_.name))
      return fail(refused("\"" + name_.name + "\" cannot be a name"));
    return true;
  }

  // ---- What it looks like ----

  std::string written() const {
    const std::string end(lines_.line_end());
    switch (kind_) {
      case JT_SOURCE_SERVICE:
        return "[" + wanted_.type + " " + name_.name + "]" + end + "end";
      case JT_SOURCE_INVOCATION:
        return name_.name + "{" + end + indent() + "}";
      default:
        return written_attribute();
    }
  }

  std::string written_attribute() const {
    std::string text = wanted_.is_optional ? "* " : "";
    text += wanted_.type + " " + name_.name;
    for (std::size_t i = 0; i < wanted_.values.size(); ++i)
      text += (i == 0 ? " = " : ", ") + written_value(wanted_.type, wanted_.values[i]);
    return text + ";";
  }

  // As a neighbour that begins its line; else as the layout does it.
  std::string indent() const {
    for (const std::size_t sibling : siblings_) {
      const std::size_t begin = document_.elements[sibling].range.begin;
      if (!lines_.begins_line(begin)) continue;
      const bool has_star = document_.tokens[document_.elements[sibling].first_token].role == JT_ROLE_STAR;
      return std::string(lines_.indent_of(begin)) + (has_star ? "  " : "");
    }
    if (kind_ == JT_SOURCE_SERVICE || path_.root == Root::kHeader) return "";
    return kind_ == JT_SOURCE_INVOCATION ? " " : "      ";
  }

  std::string indented() const {
    std::string indent_text = indent();
    if (wanted_.is_optional && indent_text.size() >= kStarWidth)
      indent_text.resize(indent_text.size() - kStarWidth);
    return indent_text + written();
  }

  // ---- Where it stands ----

  Replacement put_in() const {
    const std::string end(lines_.line_end());
    if (successor_ != kNowhere) {
      const std::size_t begin = document_.elements[successor_].range.begin;
      if (!lines_.begins_line(begin)) return {{begin, begin}, written() + " "};
      const std::size_t at = lines_.begin_with_comments(lines_.line_begin(begin));
      return {{at, at}, indented() + end + (kind_ == JT_SOURCE_SERVICE ? end : "")};
    }
    const std::size_t behind = end_of_predecessor();
    if (!lines_.ends_line(behind)) return {{behind, behind}, " " + written()};
    return behind_line_of(behind);
  }

  // A service has an empty line in front of it, and so have what follows it and what follows the header's line.
  Replacement behind_line_of(std::size_t offset) const {
    const std::string end(lines_.line_end());
    const std::size_t at = offset == 0 ? 0 : lines_.behind_line(offset);
    const bool is_line_open = at > 0 && document_.text[at - 1] != '\n' && document_.text[at - 1] != '\r';
    std::string text = is_line_open ? end : "";
    const bool is_service = kind_ == JT_SOURCE_SERVICE;
    const bool is_first_of_header = path_.root == Root::kHeader && siblings_.empty();
    if ((is_service && at > 0) || is_first_of_header) text += end;
    text += indented() + end;
    if (is_service && at < document_.text.size() && !lines_.is_empty_line(at)) text += end;
    return {{at, at}, text};
  }

  // The last sibling, else the mark behind which the first one would stand; 0 where there is none.
  std::size_t end_of_predecessor() const {
    if (!siblings_.empty()) return document_.elements[siblings_.back()].range.end;
    if (parent_ == kNowhere) return end_of_frame();
    const SourceElement &parent = document_.elements[parent_];
    constexpr std::string_view kOpenings = "]{>";
    std::size_t i = parent.first_token;
    while (document_.tokens[i].element != parent_ || document_.tokens[i].role != JT_ROLE_PUNCTUATION ||
           kOpenings.find(document_.text[document_.tokens[i].range.begin]) == std::string_view::npos)
      ++i;
    return document_.tokens[i].range.end;
  }

  // Of the header and the section.
  std::size_t end_of_frame() const {
    std::size_t end = 0;
    for (const std::int32_t kind : {JT_SOURCE_HEADER, JT_SOURCE_SECTION})
      for (const std::size_t part : children_of(document_, kNowhere, kind))
        end = document_.elements[part].range.end;
    return end;
  }

  const Document &document_;
  const Model &model_;
  const NewElement &wanted_;
  LinesAround lines_;
  Path path_;
  Step name_;
  std::int32_t kind_ = 0;
  std::size_t parent_ = kNowhere;
  std::size_t successor_ = kNowhere;
  std::vector<std::size_t> siblings_;
  Edited failure_;
};

// ---- Removing ----

jt_range removed_range(const Document &document, const LinesAround &lines, const SourceElement &element) {
  jt_range range = element.range;
  const bool begins_line = lines.begins_line(range.begin);
  if (lines.ends_line(range.end)) {
    if (!begins_line) {
      // What stands before it keeps its line end.
      const std::size_t line_end =
          std::min(document.text.find_first_of("\r\n", range.end), document.text.size());
      const std::size_t before = document.text.find_last_not_of(" \t", range.begin - 1);
      return {before + 1, line_end};
    }
    range.begin = lines.begin_with_comments(lines.line_begin(range.begin));
    range.end = lines.behind_line(range.end);
    const bool is_behind_empty_line =
        range.begin == 0 || lines.is_empty_line(lines.line_begin(range.begin - 1));
    if (is_behind_empty_line && lines.is_empty_line(range.end)) range.end = lines.behind_line(range.end);
    return range;
  }
  range.end = document.text.find_first_not_of(" \t", range.end);
  return range;
}

}  // namespace

Edited add_element(const Editable &editable, const NewElement &wanted) {
  return Adder(editable, wanted).run();
}

Edited remove_elements(const Editable &editable, const std::string &path_text) {
  const std::variant<Path, PathError> parsed = parse_path(path_text);
  if (const PathError *const error = std::get_if<PathError>(&parsed))
    return wrong_use(path_text + ": " + error->message);
  const Path &path = std::get<Path>(parsed);
  const bool is_plain =
      path.aspect == Aspect::kNone && path.value == 0 && !path.appends && !path.steps.empty();
  if (!is_plain)
    return wrong_use(path_text +
                     " is no service, invocation or attribute; sil set PATH@status= removes a status");
  const std::variant<Found, Missing> found = resolve(editable.model, path);
  if (const Missing *const missing = std::get_if<Missing>(&found)) return refused(missing->message);
  const LinesAround lines(editable.document);
  std::vector<Replacement> removals;
  for (const Place &place : std::get<Found>(found).places) {
    const SourceElement &element = editable.document.elements[element_number(editable.document, place)];
    removals.push_back({removed_range(editable.document, lines, element), ""});
    // Two neighbours may share the empty line between them, or a line.
    const std::size_t count = removals.size();
    if (count > 1 && removals[count - 1].range.begin < removals[count - 2].range.end)
      removals[count - 1].range.begin = removals[count - 2].range.end;
  }
  return {Edited::Result::kDone, with_replacements(editable.document.text, std::move(removals)), ""};
}

}  // namespace sil
