#include "catalogue.h"

#include <algorithm>

#include "types/type_tables.h"

namespace jt_docs {

namespace {

std::string code(std::string_view text) { return "`" + std::string(text) + "`"; }

bool is_block(const jt_type &row) { return row.eval == nullptr; }

std::string write_types(const jt_core::ServiceTypes &service) {
  std::string text;
  for (std::int32_t i = 0; i < service.types.count; ++i) {
    if (!is_block(service.types.rows[i])) text += "- " + code(service.types.rows[i].name) + "\n";
  }
  if (text.empty()) return "None; the base types serve.\n";
  return ":::{container} names\n" + text + ":::\n";
}

constexpr std::string_view kAboutNames =
    "\n## Value names\n\n"
    "They serve all `enum_` types of the service alike. Which name is meant for which type is not known, and "
    "not\n"
    "checked. Behind each name stands its number.\n\n";

}  // namespace

std::vector<Name> names_of(const jt_core::ValueList &list) {
  std::vector<Name> names;
  for (unsigned row = 0; row < list.rows; ++row) {
    names.push_back(
        {jt_core::name_of_row(list, row), list.numbers[row], jt_core::find_name(list, list.numbers[row])});
  }
  std::stable_sort(names.begin(), names.end(),
                   [](const Name &a, const Name &b) { return a.number < b.number; });
  return names;
}

std::string write_names(const jt_core::ValueList &list) {
  std::string text = ":::{container} names\n";
  for (const Name &name : names_of(list)) {
    const std::string note = name.text == name.written ? "" : ", written as " + code(name.written);
    text += "- " + code(name.text) + " " + std::to_string(name.number) + note + "\n";
  }
  return text + ":::\n";
}

std::string write_service(const jt_core::ServiceTypes &service) {
  const std::string text = "# " + std::string(service.name) + "\n\n## Types\n\n" + write_types(service);
  if (service.values == nullptr)
    return text + "\nThere are no enumerated types, so there are no value names.\n";
  return text + std::string(kAboutNames) + write_names(*service.values);
}

}  // namespace jt_docs
