#include "catalogue.h"

#include <algorithm>

#include "types/type_tables.h"

namespace jt_docs {

const std::array<Service, 16> kServices = {{
    {scan_type_tab, MAX_SCAN_TYPES, &jt_core::kScanValues},
    {doc_type_tab, MAX_DOC_TYPES, &jt_core::kDocumentValues},
    {print_type_tab, MAX_LPRNT_TYPES, &jt_core::kPrintValues},
    {fax_type_tab, MAX_FAX_TYPES, &jt_core::kFaxValues},
    {email_type_tab, MAX_EMAIL_TYPES, &jt_core::kEmailValues},
    {file_type_tab, MAX_FILE_TYPES, &jt_core::kFileValues},
    {ocr_type_tab, MAX_OCR_TYPES, &jt_core::kOcrValues},
    {gen_type_tab, MAX_GEN_TYPES, &jt_core::kGeneralValues},
    {metadata_type_tab, MAX_METADATA_TYPES, &jt_core::kMetadataValues},
    {validation_type_tab, MAX_VALIDATION_TYPES, &jt_core::kValidationValues},
    {notif_type_tab, MAX_NOTIF_TYPES, nullptr},
    {docman_type_tab, MAX_DOCMAN_TYPES, nullptr},
    {desksvc_type_tab, MAX_DESKTOP_TYPES, nullptr},
    {ppware_type_tab, MAX_PPWARE_TYPES, nullptr},
    {qf_type_tab, MAX_QF_TYPES, nullptr},
    {pport_type_tab, MAX_PPORT_TYPES, nullptr},
}};

namespace {

std::string code(std::string_view text) { return "`" + std::string(text) + "`"; }

bool is_block(const jt_type &row) { return row.eval == nullptr; }

std::string write_types(const Service &service) {
  std::string text;
  for (std::int32_t i = 0; i < service.count; ++i) {
    if (!is_block(service.rows[i])) text += "- " + code(service.rows[i].name) + "\n";
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
  const std::size_t rows = *std::max_element(list.slots, list.slots + list.last_slot + 1);
  for (std::size_t row = 0; row < rows; ++row) {
    const std::size_t begin = list.begins[row];
    const std::string_view text(list.characters + begin, list.begins[row + 1] - begin);
    names.push_back({text, list.numbers[row], jt_core::find_name(list, list.numbers[row])});
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

// There is one row in its table that stands for the service itself.
std::string name_of(const Service &service) {
  return std::find_if(service.rows, service.rows + service.count, is_block)->name;
}

std::string write_service(const Service &service) {
  const std::string text = "# " + name_of(service) + "\n\n## Types\n\n" + write_types(service);
  if (service.names == nullptr)
    return text + "\nThere are no enumerated types, so there are no value names.\n";
  return text + std::string(kAboutNames) + write_names(*service.names);
}

}  // namespace jt_docs
