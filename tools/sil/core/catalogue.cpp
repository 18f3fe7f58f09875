// The library's lists, and the one that it does not have: how values are written.
#include "core/catalogue.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

#include "core/text.h"

namespace sil {
namespace {

struct Form {
  std::string_view type;
  std::string_view form;
};
constexpr std::array kForms = {
    Form{"boolean", "TRUE or FALSE"},
    Form{"integer", "a whole number from -2147483648 to 2147483647"},
    Form{"real", "digits with or without a point, no sign, no exponent"},
    Form{"string", "any text of at most 1024 bytes"},
    Form{"timestamp", "YYYY/MM/DD/HH/MM/SS, nineteen characters"},
    Form{"struct_timeofday", "H:M from 0:0 to 23:59"},
    Form{"ref_invocation", "NAME or NAME:QUALIFIER"},
    Form{"ref_collection", "the name of a collection"},
    Form{"struct_rectangle",
         "X/Y/WIDTH/HEIGHT/UNIT; at most 350/500/350/500/MM, width and height from 25 on"},
    Form{"struct_gutter", "FRONT/BACK/UNIT; at most 25 MM, 100 IN, 1000 MIL"},
    Form{"struct_borders",
         "A/B/C/D/UNIT, then nothing, /FLIPV, /FLIPH, /FLIPB or the other side's; at most 50 MM"},
    Form{"struct_magnification", "AUTOISO, AUTOANA, NONE, MANISO/P or MANANA/P/P; P from 25 to 400"},
};

constexpr std::string_view kEnumeratedPrefix = "enum_";

const char *or_null(const std::string &text) { return text.empty() ? nullptr : text.c_str(); }

void add_types(const char *service, std::vector<std::string> &names) {
  int32_t count = 0;
  const jt_type *const rows = jt_catalogue_types(service, &count);
  for (int32_t i = 0; i < count; ++i)
    if (rows[i].eval != nullptr) names.emplace_back(rows[i].name);
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

std::string_view form_of(std::string_view type) {
  for (const Form &row : kForms)
    if (same_name(row.type, type)) return row.form;
  return is_enumerated(type) ? "a name of the list" : "";
}

}  // namespace sil
