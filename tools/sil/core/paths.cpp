// One pass over the text of a path, then one step after another down the template.
#include "core/paths.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "core/suggestions.h"
#include "core/text.h"

namespace sil {
namespace {

struct AspectName {
  std::string_view name;
  Aspect aspect;
};
constexpr std::array kAspects = {
    AspectName{"name", Aspect::kName},
    AspectName{"type", Aspect::kType},
    AspectName{"status", Aspect::kStatus},
    AspectName{"status-text", Aspect::kStatusText},
    AspectName{"compulsory", Aspect::kCompulsory},
    AspectName{"comment", Aspect::kComment},
    AspectName{"version", Aspect::kVersion},
    AspectName{"identifier", Aspect::kIdentifier},
    AspectName{"form", Aspect::kForm},
};

constexpr std::array<std::string_view, 3> kLevels = {"service", "invocation", "attribute"};

std::size_t first_level(Root root) { return root == Root::kHeader ? 2 : 0; }

// ---- Reading a path ----

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  std::variant<Path, PathError> run() {
    const bool good = read_root() && read_steps() && read_value() && read_aspect() && check_end();
    if (good) return std::move(path_);
    return PathError{std::move(problem_), at_};
  }

 private:
  bool is_at(char c) const { return at_ < text_.size() && text_[at_] == c; }
  bool is_at_end() const { return at_ == text_.size(); }

  bool take(char c) {
    const bool is_there = is_at(c);
    if (is_there) ++at_;
    return is_there;
  }

  bool fail(std::string problem) {
    problem_ = std::move(problem);
    return false;
  }

  std::string_view take_until(std::string_view ends) {
    const std::size_t begin = at_;
    at_ = std::min(text_.find_first_of(ends, begin), text_.size());
    return text_.substr(begin, at_ - begin);
  }

  bool read_root() {
    if (text_.empty()) return fail("a path is needed, as 'Scanner/Letter/Copies'");
    for (const auto &[word, root] : {std::pair(std::string_view("@header"), Root::kHeader),
                                     std::pair(std::string_view("@section"), Root::kSection)}) {
      const std::string_view rest = text_.substr(std::min(word.size(), text_.size()));
      if (!same_name(text_.substr(0, word.size()), word)) continue;
      if (!rest.empty() && rest[0] != '/' && rest[0] != '@') continue;
      path_.root = root;
      at_ = word.size();
    }
    return true;
  }

  bool read_steps() {
    bool more = path_.root == Root::kBody ? !is_at('@') : take('/');
    const std::size_t most = kLevels.size() - first_level(path_.root);
    while (more) {
      if (path_.steps.size() == most)
        return fail(path_.root == Root::kHeader ? "in the header are attributes, and nothing in them"
                                                : "a path goes no deeper than service/invocation/attribute");
      if (!read_step()) return false;
      more = take('/');
    }
    return true;
  }

  bool read_step() {
    Step step;
    if (is_at('"')) {
      if (!read_quoted(step.name)) return false;
    } else if (take('*')) {
      step.kind = Step::Kind::kAny;
    } else if (take('#')) {
      step.kind = Step::Kind::kNumber;
      if (!read_number(step.number)) return false;
    } else {
      step.name = take_until("/@[=\"");
      if (step.name.empty()) step.kind = Step::Kind::kUnnamed;
    }
    const std::size_t level = first_level(path_.root) + path_.steps.size();
    const bool is_for_invocations = step.kind == Step::Kind::kNumber || step.kind == Step::Kind::kUnnamed;
    if (is_for_invocations && level != 1)
      return fail(step.kind == Step::Kind::kNumber ? "# counts invocations only"
                                                   : "a name is needed here; only invocations may have none");
    path_.steps.push_back(std::move(step));
    return true;
  }

  bool read_quoted(std::string &name) {
    ++at_;
    while (!is_at_end() && !is_at('"')) {
      const bool is_escape = take('\\');
      if (is_at_end()) break;
      name += is_escape ? unescaped(text_[at_]) : text_[at_];
      ++at_;
    }
    return take('"') || fail("a quote is not closed");
  }

  bool read_number(std::size_t &number) {
    const char *const end = text_.data() + text_.size();
    const auto [behind, problem] = std::from_chars(text_.data() + at_, end, number);
    if (problem != std::errc() || number == 0) return fail("a number from 1 on is needed here");
    at_ = static_cast<std::size_t>(behind - text_.data());
    return true;
  }

  bool read_value() {
    if (!take('[')) return true;
    if (first_level(path_.root) + path_.steps.size() != kLevels.size())
      return fail("only attributes have values to be counted");
    path_.appends = take('+');
    if (!path_.appends && !read_number(path_.value)) return false;
    return take(']') || fail("] is needed here");
  }

  bool read_aspect() {
    if (!take('@')) return true;
    const std::string_view word = text_.substr(at_);
    const auto *const row = std::find_if(kAspects.begin(), kAspects.end(), [word](const AspectName &name) {
      return same_name(name.name, word);
    });
    if (row == kAspects.end()) return fail_aspect(word);
    path_.aspect = row->aspect;
    if (path_.value != 0 || path_.appends) return fail("a value has no such thing, only its attribute");
    if (!fits(row->aspect)) return fail("there is no @" + std::string(row->name) + " here");
    at_ = text_.size();
    return true;
  }

  bool fail_aspect(std::string_view word) {
    std::vector<std::string> names;
    names.reserve(kAspects.size());
    for (const AspectName &row : kAspects) names.emplace_back(row.name);
    if (path_.root == Root::kBody && path_.steps.empty()) names = {"header", "section", "comment"};
    return fail("@" + std::string(word) + " is not known" + did_you_mean(nearest(word, names)));
  }

  // Whether an element of this depth has that; a template and its section have a comment only.
  bool fits(Aspect aspect) const {
    const bool is_of_header =
        aspect == Aspect::kVersion || aspect == Aspect::kIdentifier || aspect == Aspect::kForm;
    const std::size_t depth = path_.steps.size();
    if (depth == 0) return aspect == Aspect::kComment || (is_of_header && path_.root == Root::kHeader);
    if (aspect == Aspect::kCompulsory) return first_level(path_.root) + depth == kLevels.size();
    return !is_of_header;
  }

  bool check_end() {
    if (!is_at_end()) return fail("nothing more is expected here");
    const bool names_nothing =
        path_.steps.empty() && path_.aspect == Aspect::kNone && path_.root != Root::kBody;
    return !names_nothing || fail("behind it, /NAME or @ and what is meant is needed");
  }

  std::string_view text_;
  std::size_t at_ = 0;
  Path path_;
  std::string problem_;
};

// ---- Going down a template ----

bool has_root(const Model &model, Root root) {
  if (root == Root::kBody) return true;
  return root == Root::kHeader ? model.header.has_value() : model.section.has_value();
}

// Of a root that is there.
const std::vector<Service> &services_of(const Model &model, Root root) {
  return root == Root::kSection ? model.section->services : model.services;
}

// The names of what an element holds, empty ones for invocations that have none.
std::vector<std::string> names_in(const Model &model, const Place &place) {
  std::vector<std::string> names;
  const auto add_all = [&names](const auto &parts) {
    for (const auto &part : parts) names.push_back(part.name);
  };
  const Element element = element_at(model, place);
  if (element.invocation != nullptr) {
    add_all(element.invocation->attributes);
  } else if (element.service != nullptr) {
    for (const Invocation &part : element.service->invocations) names.push_back(part.name.value_or(""));
  } else if (place.root == Root::kHeader) {
    add_all(model.header->attributes);
  } else {
    add_all(services_of(model, place.root));
  }
  return names;
}

std::size_t level_in(const Place &place) {
  if (place.invocation || place.root == Root::kHeader) return 2;
  return place.service ? 1 : 0;
}

Place child_of(Place place, std::size_t number) {
  const std::size_t level = level_in(place);
  (level == 0 ? place.service : level == 1 ? place.invocation : place.attribute) = number;
  return place;
}

std::vector<std::size_t> all_without_name(const std::vector<std::string> &names) {
  std::vector<std::size_t> numbers;
  for (std::size_t i = 0; i < names.size(); ++i)
    if (names[i].empty()) numbers.push_back(i);
  return numbers;
}

// The numbers of the children that a step takes.
std::vector<std::size_t> taken_by(const Step &step, const std::vector<std::string> &names) {
  if (step.kind == Step::Kind::kUnnamed) return all_without_name(names);
  std::vector<std::size_t> numbers;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool is_taken = step.kind == Step::Kind::kAny ||
                          (step.kind == Step::Kind::kNumber && step.number == i + 1) ||
                          (step.kind == Step::Kind::kName && same_name(step.name, names[i]));
    if (is_taken) numbers.push_back(i);
  }
  return numbers;
}

std::string where(const Model &model, const Place &place) {
  const std::string path = path_of(model, place);
  return path.empty() ? "the template" : path;
}

std::string what_is_missing(const Model &model, const Place &place, const Step &step,
                            const std::vector<std::string> &names) {
  const std::string level(kLevels[level_in(place)]);
  const std::string in = " in " + where(model, place);
  const std::string count = std::to_string(names.size());
  switch (step.kind) {
    case Step::Kind::kAny:
      return "there is no " + level + in;
    case Step::Kind::kNumber:
      return "there is no invocation #" + std::to_string(step.number) + in + ", which has " + count;
    case Step::Kind::kUnnamed:
      return "there is no invocation without a name" + in;
    case Step::Kind::kName:
      break;
  }
  return "there is no " + level + " \"" + step.name + "\"" + in + did_you_mean(nearest(step.name, names));
}

std::string several_without_name(const Model &model, const Place &place, std::size_t count) {
  return where(model, place) + " has " + std::to_string(count) +
         " invocations without a name; #1, #2 and so on tell them apart";
}

struct Search {
  std::vector<Place> places;
  std::string problem;  // of the first place at which nothing was found
};

Search step_down(const Model &model, const std::vector<Place> &from, const Step &step) {
  Search search;
  for (const Place &place : from) {
    const std::vector<std::string> names = names_in(model, place);
    const std::vector<std::size_t> taken = taken_by(step, names);
    if (step.kind == Step::Kind::kUnnamed && taken.size() > 1)
      return {{}, several_without_name(model, place, taken.size())};
    if (taken.empty() && search.problem.empty()) search.problem = what_is_missing(model, place, step, names);
    for (const std::size_t number : taken) search.places.push_back(child_of(place, number));
  }
  return search;
}

Search pick_value(const Model &model, const std::vector<Place> &attributes, std::size_t number) {
  Search search;
  for (Place place : attributes) {
    const Attribute *const attribute = element_at(model, place).attribute;
    const std::size_t count = attribute != nullptr ? attribute->values.size() : 0;
    if (number <= count) {
      place.value = number - 1;
      search.places.push_back(place);
    } else if (search.problem.empty()) {
      search.problem = "there is no value " + std::to_string(number) + " in " + path_of(model, place) +
                       ", which has " + std::to_string(count);
    }
  }
  return search;
}

std::string step_of_invocation(const Service &service, std::size_t number) {
  const Invocation &invocation = service.invocations[number];
  if (invocation.name) return as_step(*invocation.name);
  const auto unnamed = std::count_if(service.invocations.begin(), service.invocations.end(),
                                     [](const Invocation &other) { return !other.name; });
  return unnamed == 1 ? "" : "#" + std::to_string(number + 1);
}

}  // namespace

std::variant<Path, PathError> parse_path(std::string_view text) { return Parser(text).run(); }

std::optional<std::size_t> end_of_path(std::string_view assignment) {
  bool is_quoted = false;
  for (std::size_t i = 0; i < assignment.size(); ++i) {
    if (assignment[i] == '"') is_quoted = !is_quoted;
    if (is_quoted && assignment[i] == '\\') ++i;
    if (!is_quoted && assignment[i] == '=') return i;
  }
  return {};
}

Element element_at(const Model &model, const Place &place) {
  Element element;
  if (place.root == Root::kHeader) {
    if (place.attribute) element.attribute = &model.header->attributes[*place.attribute];
  } else if (place.service) {
    element.service = &services_of(model, place.root)[*place.service];
    if (place.invocation) {
      element.invocation = &element.service->invocations[*place.invocation];
      if (place.attribute) element.attribute = &element.invocation->attributes[*place.attribute];
    }
  }
  if (place.value && element.attribute != nullptr) element.value = &element.attribute->values[*place.value];
  return element;
}

std::variant<Found, Missing> resolve(const Model &model, const Path &path) {
  if (!has_root(model, path.root))
    return Missing{path.root == Root::kHeader ? "the template has no header" : "the template has no section"};
  Search search{{place_of(path.root)}, ""};
  for (const Step &step : path.steps) {
    search = step_down(model, search.places, step);
    if (search.places.empty()) return Missing{std::move(search.problem)};
  }
  if (path.value != 0) search = pick_value(model, search.places, path.value);
  if (search.places.empty()) return Missing{std::move(search.problem)};
  return Found{std::move(search.places)};
}

std::string as_step(std::string_view name) {
  const bool needs_quotes = name.empty() || name.find_first_of("/@[=\"*#\\") != std::string_view::npos;
  return needs_quotes ? quoted(name) : std::string(name);
}

std::string path_of(const Model &model, const Place &place) {
  std::string path = place.root == Root::kHeader ? "@header" : place.root == Root::kSection ? "@section" : "";
  const Element element = element_at(model, place);
  if (element.service != nullptr) {
    path += (path.empty() ? "" : "/") + as_step(element.service->name);
    if (place.invocation) path += "/" + step_of_invocation(*element.service, *place.invocation);
  }
  if (element.attribute != nullptr) path += "/" + as_step(element.attribute->name);
  if (element.value != nullptr) path += "[" + std::to_string(*place.value + 1) + "]";
  return path;
}

}  // namespace sil
