// The two trees side by side; an element that one of them has alone is one difference, with all that it holds.
#include "core/difference.h"

#include <algorithm>

#include "core/outline.h"
#include "core/paths.h"
#include "core/sil_writer.h"
#include "core/text.h"

namespace sil {
namespace {

std::string name_of(const Invocation &invocation) { return invocation.name.value_or(""); }
template <typename T>
std::string name_of(const T &element) {
  return element.name;
}

// What an element is in a line.
std::string summary_of(const Service &service) { return service.type; }
std::string summary_of(const Invocation & /*invocation*/) { return ""; }
std::string summary_of(const Attribute &attribute) {
  std::string text;
  for (const Value &value : attribute.values)
    text += (text.empty() ? "" : ", ") + shown_value(attribute, text_of_value(value));
  return text;
}

template <typename T>
struct Keyed {
  std::string key;
  std::string step;  // of a path
  const T *element;
};

// Elements with what matches them: their names, or which of the unnamed ones they are.
template <typename T>
std::vector<Keyed<T>> keyed(const std::vector<T> &elements) {
  const auto all_unnamed = std::count_if(elements.begin(), elements.end(),
                                         [](const T &element) { return name_of(element).empty(); });
  std::vector<Keyed<T>> all;
  std::size_t unnamed = 0;
  for (const T &element : elements) {
    const std::string name = name_of(element);
    if (!name.empty()) {
      all.push_back({name, as_step(name), &element});
      continue;
    }
    const std::string number = all_unnamed == 1 ? "" : "#" + std::to_string(all.size() + 1);
    all.push_back({"#" + std::to_string(++unnamed), number, &element});
  }
  return all;
}

template <typename T>
const T *find_key(const std::vector<Keyed<T>> &all, const std::string &key) {
  for (const Keyed<T> &one : all)
    if (same_name(one.key, key)) return one.element;
  return nullptr;
}

class Comparison {
 public:
  void compare(const Model &a, const Model &b) {
    compare_headers(a.header, b.header);
    compare_sections(a.section, b.section);
    compare_all("", a.services, b.services);
  }

  std::vector<Difference> take() { return std::move(found_); }

 private:
  void add(std::string path, MaybeText before, MaybeText after) {
    if (before != after) found_.push_back({std::move(path), std::move(before), std::move(after)});
  }

  void compare_headers(const std::optional<Header> &a, const std::optional<Header> &b) {
    if (a.has_value() != b.has_value())
      return add("@header", a ? MaybeText("") : std::nullopt, b ? MaybeText("") : std::nullopt);
    if (!a) return;
    add("@header@form", a->form, b->form);
    add("@header@version", a->version, b->version);
    add("@header@identifier", a->identifier, b->identifier);
    compare_all("@header/", a->attributes, b->attributes);
  }

  void compare_sections(const std::optional<Section> &a, const std::optional<Section> &b) {
    if (a.has_value() != b.has_value())
      return add("@section", a ? MaybeText("") : std::nullopt, b ? MaybeText("") : std::nullopt);
    if (a) compare_all("@section/", a->services, b->services);
  }

  template <typename T>
  void compare_all(const std::string &in, const std::vector<T> &a, const std::vector<T> &b) {
    const std::vector<Keyed<T>> before = keyed(a);
    const std::vector<Keyed<T>> after = keyed(b);
    for (const Keyed<T> &one : before) {
      const T *const other = find_key(after, one.key);
      if (other != nullptr) {
        compare(in + one.step, *one.element, *other);
      } else {
        add(in + one.step, summary_of(*one.element), {});
      }
    }
    for (const Keyed<T> &one : after)
      if (find_key(before, one.key) == nullptr) add(in + one.step, {}, summary_of(*one.element));
  }

  void compare(const std::string &path, const Service &a, const Service &b) {
    compare_types(path, a.type, b.type);
    compare_statuses(path, a.status, b.status);
    compare_all(path + "/", a.invocations, b.invocations);
  }

  void compare(const std::string &path, const Invocation &a, const Invocation &b) {
    compare_statuses(path, a.status, b.status);
    compare_all(path + "/", a.attributes, b.attributes);
  }

  void compare(const std::string &path, const Attribute &a, const Attribute &b) {
    compare_types(path, a.type, b.type);
    add(path + "@compulsory", a.is_optional ? "false" : "true", b.is_optional ? "false" : "true");
    compare_statuses(path, a.status, b.status);
    if (a.values.size() == 1 && b.values.size() == 1) return compare_values(path, a, 0, b);
    for (std::size_t i = 0; i < std::max(a.values.size(), b.values.size()); ++i)
      compare_values(path + "[" + std::to_string(i + 1) + "]", a, i, b);
  }

  void compare_values(const std::string &path, const Attribute &a, std::size_t number, const Attribute &b) {
    const Value *const before = number < a.values.size() ? &a.values[number] : nullptr;
    const Value *const after = number < b.values.size() ? &b.values[number] : nullptr;
    if (before != nullptr && after != nullptr && before->text == after->text) return;
    add(path, before != nullptr ? MaybeText(shown_value(a, text_of_value(*before))) : std::nullopt,
        after != nullptr ? MaybeText(shown_value(b, text_of_value(*after))) : std::nullopt);
  }

  void compare_types(const std::string &path, const std::string &a, const std::string &b) {
    if (!same_name(a, b)) add(path + "@type", a, b);
  }

  void compare_statuses(const std::string &path, const MaybeStatus &a, const MaybeStatus &b) {
    const auto text = [](const MaybeStatus &status) {
      return status ? MaybeText(shown_status(*status)) : std::nullopt;
    };
    add(path + "@status", text(a), text(b));
  }

  std::vector<Difference> found_;
};

}  // namespace

std::vector<Difference> differences(const Model &a, const Model &b) {
  Comparison comparison;
  comparison.compare(a, b);
  return comparison.take();
}

}  // namespace sil
