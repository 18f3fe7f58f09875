// Setting: each assignment becomes replacements of single tokens.
#include "core/edits.h"

#include <algorithm>
#include <map>
#include <variant>

#include "core/paths.h"
#include "core/source_places.h"
#include "core/text.h"

namespace sil {
namespace {

constexpr std::size_t kMostOfAName = 1023;

Edited refused(std::string problem) { return {Edited::Result::kRefused, "", std::move(problem)}; }

Edited wrong_use(std::string problem) { return {Edited::Result::kWrongUse, "", std::move(problem)}; }

bool is_before(const Replacement &a, const Replacement &b) { return a.range.begin < b.range.begin; }

// What is to become of one element, as all assignments to it say together.
struct Wish {
  std::vector<std::string> values;                   // all of them
  std::vector<std::string> more_values;              // behind the last one
  std::map<std::size_t, std::string> single_values;  // by their numbers from 1
  bool has_values = false;
};

class Setter {
 public:
  explicit Setter(const Editable &editable) : document_(editable.document), model_(editable.model) {}

  Edited run(const std::vector<std::string> &assignments) {
    const bool are_read = std::all_of(assignments.begin(), assignments.end(),
                                      [this](const std::string &assignment) { return read(assignment); });
    const bool are_set = are_read && std::all_of(wishes_.begin(), wishes_.end(), [this](const auto &entry) {
                           return set_values(entry.first, entry.second);
                         });
    if (!are_set) return std::move(failure_);
    if (!has_one_change_each()) return wrong_use("two of the changes are of one place");
    return {Edited::Result::kDone, with_replacements(document_.text, std::move(replacements_)), ""};
  }

 private:
  bool has_one_change_each() {
    std::stable_sort(replacements_.begin(), replacements_.end(), is_before);
    return std::adjacent_find(replacements_.begin(), replacements_.end(),
                              [](const Replacement &a, const Replacement &b) {
                                return b.range.begin < a.range.end ||
                                       (b.range.begin == a.range.begin && b.range.end == a.range.end);
                              }) == replacements_.end();
  }

  bool fail(Edited failure) {
    failure_ = std::move(failure);
    return false;
  }

  bool read(const std::string &assignment) {
    const std::optional<std::size_t> end = end_of_path(assignment);
    if (!end) return fail(wrong_use("\"" + assignment + "\" has no =; 'PATH=VALUE' is needed"));
    const std::string written = assignment.substr(0, *end);
    const std::string value = assignment.substr(*end + 1);
    std::variant<Path, PathError> parsed = parse_path(written);
    if (const PathError *const error = std::get_if<PathError>(&parsed))
      return fail(wrong_use(written + ": " + error->message));
    const Path path = std::get<Path>(std::move(parsed));
    Path to_element = path;
    to_element.value = 0;
    const std::variant<Found, Missing> found = resolve(model_, to_element);
    if (const Missing *const missing = std::get_if<Missing>(&found)) return fail(refused(missing->message));
    const std::vector<Place> &places = std::get<Found>(found).places;
    return std::all_of(places.begin(), places.end(),
                       [&](const Place &place) { return set(place, path, value); });
  }

  bool set(const Place &place, const Path &path, const std::string &value) {
    const std::string name = path_of(model_, place);
    const std::size_t element = element_number(document_, place);
    switch (path.aspect) {
      case Aspect::kNone:
        if (!place.attribute) return fail(refused(name + " has no values; its name is " + name + "@name"));
        return wish_value(element, path, value, name);
      case Aspect::kName:
        return set_name(element, value, name);
      case Aspect::kVersion:
        return set_word(token_with_role(document_, element, JT_ROLE_VERSION), value, "a version");
      case Aspect::kIdentifier:
        return set_word(token_with_role(document_, element, JT_ROLE_IDENTIFIER), value, "an identifier");
      case Aspect::kStatus:
        return set_status(element, value, name);
      case Aspect::kStatusText:
        return set_status_text(element, value, name);
      case Aspect::kCompulsory:
        return set_star(element, value);
      default:
        return fail(refused("types, forms and comments cannot be set"));
    }
  }

  // ---- Values ----

  bool wish_value(std::size_t element, const Path &path, const std::string &value, const std::string &name) {
    Wish &wish = wishes_[element];
    if (path.appends) {
      wish.more_values.push_back(value);
      return true;
    }
    if (path.value == 0) {
      wish.has_values = true;
      wish.values.push_back(value);
      return true;
    }
    const std::size_t count = children_of(document_, element, JT_SOURCE_VALUE).size();
    if (path.value > count)
      return fail(refused("there is no value " + std::to_string(path.value) + " in " + name + ", which has " +
                          std::to_string(count)));
    wish.single_values[path.value] = value;
    return true;
  }

  bool set_values(std::size_t attribute, const Wish &wish) {
    const std::vector<std::size_t> old = children_of(document_, attribute, JT_SOURCE_VALUE);
    if (wish.has_values && !wish.single_values.empty())
      return fail(wrong_use("one attribute is given all of its values and single ones"));
    const std::string_view type =
        document_.piece(*token_with_role(document_, attribute, JT_ROLE_ATTRIBUTE_TYPE));
    for (const auto &[number, value] : wish.single_values)
      replace(document_.elements[old[number - 1]].range, written_value(type, value));
    std::vector<std::string> values = wish.values;
    values.insert(values.end(), wish.more_values.begin(), wish.more_values.end());
    const std::size_t replaced = wish.has_values ? std::min(old.size(), values.size()) : 0;
    for (std::size_t i = 0; i < replaced; ++i)
      replace(document_.elements[old[i]].range, written_value(type, values[i]));
    values.erase(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(replaced));
    if (wish.has_values && replaced < old.size())
      return remove(document_.elements[old[replaced - 1]].range.end,
                    document_.elements[old.back()].range.end);
    add_values(attribute, old.empty() ? nullptr : &document_.elements[old.back()], type, values);
    return true;
  }

  // Behind a value, behind "=", or behind the name.
  void add_values(std::size_t attribute, const SourceElement *last, std::string_view type,
                  const std::vector<std::string> &values) {
    if (values.empty()) return;
    std::size_t at = last == nullptr ? 0 : last->range.end;
    std::string text;
    if (last == nullptr) {
      const SourceToken *const equals = mark_of(attribute, '=');
      at = equals != nullptr ? equals->range.end
                             : token_with_role(document_, attribute, JT_ROLE_ATTRIBUTE_NAME)->range.end;
      text = equals != nullptr ? " " : " = ";
    }
    for (std::size_t i = 0; i < values.size(); ++i)
      text += (last == nullptr && i == 0 ? "" : ", ") + written_value(type, values[i]);
    put_in(at, text);
  }

  // ---- What else an element has ----

  bool set_word(const SourceToken *token, const std::string &value, const std::string &what) {
    if (!is_bare_word(value) || value.size() > kMostOfAName)
      return fail(refused("\"" + value + "\" cannot be " + what + ": it must be one word"));
    replace(token->range, value);
    return true;
  }

  bool set_name(std::size_t element, const std::string &value, const std::string &name) {
    for (const std::int32_t role : {JT_ROLE_SERVICE_NAME, JT_ROLE_INVOCATION_NAME, JT_ROLE_ATTRIBUTE_NAME})
      if (const SourceToken *const token = token_with_role(document_, element, role))
        return set_word(token, value, "a name");
    return fail(refused(name + " has no name that could be replaced"));
  }

  std::size_t status_of(std::size_t element) const {
    const std::vector<std::size_t> statuses = children_of(document_, element, JT_SOURCE_STATUS);
    return statuses.empty() ? kNowhere : statuses[0];
  }

  bool set_status(std::size_t element, const std::string &value, const std::string &name) {
    const std::size_t status = status_of(element);
    if (value.empty())
      return status == kNowhere ? fail(refused(name + " has no status")) : remove_status(status);
    if (status == kNowhere) {
      put_in(document_.elements[element].range.end, "(" + as_token(value) + ")");
    } else if (const SourceToken *const old = token_with_role(document_, status, JT_ROLE_STATUS)) {
      replace(old->range, as_token(value));
    } else {
      put_in(document_.elements[status].range.begin + 1, as_token(value));
    }
    return true;
  }

  // With the blanks in front of it, but for the end of a comment's line.
  bool remove_status(std::size_t status) {
    const SourceElement &element = document_.elements[status];
    const SourceToken &before = document_.tokens[element.first_token - 1];
    return remove(before.is_comment() ? element.range.begin : before.range.end, element.range.end);
  }

  bool set_status_text(std::size_t element, const std::string &value, const std::string &name) {
    const std::size_t status = status_of(element);
    const SourceToken *const word =
        status == kNowhere ? nullptr : token_with_role(document_, status, JT_ROLE_STATUS);
    if (word == nullptr) return fail(refused(name + " has no status that a text could stand behind"));
    const SourceToken *const opening = mark_of(status, '{');
    if (opening == nullptr) {
      if (!value.empty()) put_in(word->range.end, "{" + as_token(value) + "}");
      return true;
    }
    const SourceToken *const closing = mark_of(status, '}');
    if (value.empty()) return remove(word->range.end, closing->range.end);
    const SourceToken *const first = token_with_role(document_, status, JT_ROLE_STATUS_TEXT);
    if (first == nullptr) {
      put_in(opening->range.end, as_token(value));
      return true;
    }
    const SourceToken *last = closing - 1;
    while (last->is_comment()) --last;
    return remove(first->range.begin, last->range.end, as_token(value));
  }

  // What is behind the star stays in its column where the star begins the line.
  bool set_star(std::size_t element, const std::string &value) {
    const bool is_compulsory = same_name(value, "true");
    if (!is_compulsory && !same_name(value, "false")) return fail(wrong_use("@compulsory is true or false"));
    const SourceToken *const star = token_with_role(document_, element, JT_ROLE_STAR);
    const std::size_t type = token_with_role(document_, element, JT_ROLE_ATTRIBUTE_TYPE)->range.begin;
    if ((star == nullptr) == is_compulsory) return true;
    if (star != nullptr) {
      const bool has_column = indents(star->range.begin) && column(star->range.begin) > 0;
      const bool is_beside = type == star->range.end + 1;
      return has_column && is_beside ? remove(star->range.begin, star->range.end, " ")
                                     : remove(star->range.begin, type);
    }
    const bool has_indent = type >= 2 && document_.text.substr(type - 2, 2) == "  " && indents(type);
    replace({has_indent ? type - 2 : type, type}, "* ");
    return true;
  }

  // Whether nothing but blanks is before an offset on its line.
  bool indents(std::size_t offset) const {
    return document_.text.substr(offset - column(offset), column(offset)).find_first_not_of(" \t") ==
           std::string_view::npos;
  }

  std::size_t column(std::size_t offset) const {
    const std::size_t line_end = document_.text.substr(0, offset).find_last_of("\r\n");
    return line_end == std::string_view::npos ? offset : offset - line_end - 1;
  }

  // ---- Replacements ----

  const SourceToken *mark_of(std::size_t element, char mark) const {
    const SourceElement &in = document_.elements[element];
    for (std::size_t i = in.first_token; i < in.behind_last_token; ++i)
      if (document_.tokens[i].element == element && document_.is_mark(document_.tokens[i], mark))
        return &document_.tokens[i];
    return nullptr;
  }

  void replace(jt_range range, std::string text) { replacements_.push_back({range, std::move(text)}); }

  void put_in(std::size_t at, std::string text) { replace({at, at}, std::move(text)); }

  // Comments are nobody's to remove.
  bool remove(std::size_t begin, std::size_t end, std::string text = "") {
    if (document_.has_comment_in(begin, end))
      return fail(refused("a comment stands in what would be removed; remove that first"));
    replace({begin, end}, std::move(text));
    return true;
  }

  const Document &document_;
  const Model &model_;
  std::map<std::size_t, Wish> wishes_;  // by the number of the attribute
  std::vector<Replacement> replacements_;
  Edited failure_;
};

}  // namespace

std::string with_replacements(std::string_view text, std::vector<Replacement> replacements) {
  std::stable_sort(replacements.begin(), replacements.end(), is_before);
  std::string result;
  std::size_t at = 0;
  for (const Replacement &each : replacements) {
    result += text.substr(at, each.range.begin - at);
    result += each.text;
    at = each.range.end;
  }
  return result.append(text.substr(at));
}

std::string written_value(std::string_view type, std::string_view value) {
  return same_name(type, "string") ? quoted(value) : as_token(value);
}

Edited set_places(const Editable &editable, const std::vector<std::string> &assignments) {
  return Setter(editable).run(assignments);
}

}  // namespace sil
