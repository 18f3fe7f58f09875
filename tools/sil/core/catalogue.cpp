// The library's lists, and words for what its forms of values are called.
#include "core/catalogue.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

#include "core/text.h"

namespace sil {
namespace {

// Forms that are better said in words. The ranges of a timestamp are those of its digits.
struct Words {
  std::string_view form;
  std::string_view words;
  bool has_ranges;
};
constexpr std::array kWords = {
    Words{"TRUE|FALSE", "TRUE or FALSE", true},
    Words{"integer", "a whole number", true},
    Words{"decimal", "digits with or without a point, no sign, no exponent", true},
    Words{"text", "any text of at most 1024 bytes", true},
    Words{"name", "a name of the list", true},
    Words{"collection", "the name of a collection", true},
    Words{"mode[/percentage[/percentage]]",
          "AUTOISO, AUTOANA, NONE, MANISO/percentage or MANANA/percentage/percentage", true},
    Words{"margin/margin/margin/margin/unit[/side]",
          "margin/margin/margin/margin/unit, then nothing, /FLIPV, /FLIPH, /FLIPB or the other side's", true},
    Words{"year/month/day/hour/minute/second", "YYYY/MM/DD/HH/MM/SS, nineteen characters", false},
};

constexpr std::string_view kEnumeratedPrefix = "enum_";

const char *or_null(const std::string &text) { return text.empty() ? nullptr : text.c_str(); }

void add_types(const char *service, std::vector<std::string> &names) {
  int32_t count = 0;
  const jt_type *const rows = jt_catalogue_types(service, &count);
  for (int32_t i = 0; i < count; ++i)
    if (rows[i].eval != nullptr) names.emplace_back(rows[i].name);
}

// Wherever it is one; a type has the same form in every service.
const jt_type *type_anywhere(const std::string &type) {
  const jt_type *found = type_in("", type);
  for (int32_t i = 0; found == nullptr && jt_catalogue_service(i) != nullptr; ++i)
    found = type_in(jt_catalogue_service(i), type);
  return found;
}

std::string text_of(const jt_value_range &range) {
  const std::string limits = std::to_string(range.least) + " to " + std::to_string(range.most);
  return range.unit == nullptr ? limits : limits + " " + range.unit;
}

// The ranges of each part, in the order in which the parts come first.
std::vector<std::pair<std::string, std::string>> ranges_by_part(const jt_type *type) {
  std::vector<std::pair<std::string, std::string>> parts;
  jt_value_range range{};
  range.size = sizeof(range);
  for (int32_t i = 0; jt_catalogue_range(type, i, &range) != 0; ++i) {
    const auto part =
        std::find_if(parts.begin(), parts.end(), [&](const auto &one) { return one.first == range.part; });
    if (part == parts.end()) {
      parts.emplace_back(range.part, text_of(range));
    } else {
      part->second += ", " + text_of(range);
    }
  }
  return parts;
}

bool is_catalogued(const std::string &service) {
  const std::vector<std::string> all = services_of_catalogue();
  return std::any_of(all.begin(), all.end(),
                     [&](const std::string &name) { return same_name(name, service); });
}

}  // namespace

std::vector<std::string> services_of_catalogue() {
  std::vector<std::string> services;
  for (int32_t i = 0; jt_catalogue_service(i) != nullptr; ++i) services.emplace_back(jt_catalogue_service(i));
  std::sort(services.begin(), services.end());
  return services;
}

bool is_service_type(const std::string &type) {
  return is_catalogued(type) || get_type_from_services(nullptr, nullptr, type.c_str()) != nullptr;
}

std::vector<std::string> service_types() {
  std::vector<std::string> types = services_of_catalogue();
  types.emplace_back("service");
  return types;
}

std::string scope_of(const std::string &service_type, const std::string &service_name) {
  if (is_catalogued(service_name)) return service_name;
  return is_catalogued(service_type) ? service_type : "";
}

const jt_type *type_in(const std::string &scope, const std::string &type) {
  return get_type_from_services(nullptr, or_null(scope), type.c_str());
}

std::vector<std::string> types_in(const std::string &scope) {
  std::vector<std::string> names;
  if (!scope.empty()) add_types(scope.c_str(), names);
  add_types(nullptr, names);
  return names;
}

std::vector<EnumeratedName> names_in_scope(const std::string &scope) {
  std::vector<EnumeratedName> names;
  std::uint32_t number = 0;
  for (int32_t i = 0;; ++i) {
    char *const name = jt_catalogue_name(or_null(scope), i, &number);
    if (name == nullptr) return names;
    names.push_back({name, number});
    std::free(name);
  }
}

bool is_enumerated(std::string_view type) {
  return same_name(type.substr(0, kEnumeratedPrefix.size()), kEnumeratedPrefix) ||
         same_name(type, "kmt_enum_status");
}

std::string form_of(std::string_view type) {
  const jt_type *const row = type_anywhere(std::string(type));
  const char *const form = row == nullptr ? nullptr : jt_catalogue_form(row);
  if (form == nullptr) return "";
  const auto *const words =
      std::find_if(kWords.begin(), kWords.end(), [&](const Words &one) { return one.form == form; });
  std::string text(words == kWords.end() ? form : words->words);
  if (words != kWords.end() && !words->has_ranges) return text;
  for (const auto &[part, ranges] : ranges_by_part(row)) {
    if (part == form) {
      text.append(" from ").append(ranges);
    } else {
      text.append("; ").append(part).append(" ").append(ranges);
    }
  }
  return text;
}

}  // namespace sil
