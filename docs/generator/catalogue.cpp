#include "catalogue.h"

#include <algorithm>

#include "types/type_tables.h"

namespace jt_docs {

const std::array<Service, 16> kServices = {{
    {"Scans originals.", "scan_type_tab", "MAX_SCAN_TYPES", scan_type_tab, MAX_SCAN_TYPES,
     &jt_core::kScanValues},
    {"Makes a document of what was scanned.", "doc_type_tab", "MAX_DOC_TYPES", doc_type_tab, MAX_DOC_TYPES,
     &jt_core::kDocumentValues},
    {"Prints documents.", "print_type_tab", "MAX_LPRNT_TYPES", print_type_tab, MAX_LPRNT_TYPES,
     &jt_core::kPrintValues},
    {"Faxes documents.", "fax_type_tab", "MAX_FAX_TYPES", fax_type_tab, MAX_FAX_TYPES, &jt_core::kFaxValues},
    {"Mails documents.", "email_type_tab", "MAX_EMAIL_TYPES", email_type_tab, MAX_EMAIL_TYPES,
     &jt_core::kEmailValues},
    {"Files documents on a server.", "file_type_tab", "MAX_FILE_TYPES", file_type_tab, MAX_FILE_TYPES,
     &jt_core::kFileValues},
    {"Reads text out of images.", "ocr_type_tab", "MAX_OCR_TYPES", ocr_type_tab, MAX_OCR_TYPES,
     &jt_core::kOcrValues},
    {"What concerns the whole job: confirmation, access to the template.", "gen_type_tab", "MAX_GEN_TYPES",
     gen_type_tab, MAX_GEN_TYPES, &jt_core::kGeneralValues},
    {"Describes what is asked for at the panel.", "metadata_type_tab", "MAX_METADATA_TYPES",
     metadata_type_tab, MAX_METADATA_TYPES, &jt_core::kMetadataValues},
    {"Has a server check what was entered.", "validation_type_tab", "MAX_VALIDATION_TYPES",
     validation_type_tab, MAX_VALIDATION_TYPES, &jt_core::kValidationValues},
    {"Notifies somebody.", "notif_type_tab", "MAX_NOTIF_TYPES", notif_type_tab, MAX_NOTIF_TYPES, nullptr},
    {"Manages documents.", "docman_type_tab", "MAX_DOCMAN_TYPES", docman_type_tab, MAX_DOCMAN_TYPES, nullptr},
    {"A service of its own name.", "desksvc_type_tab", "MAX_DESKTOP_TYPES", desksvc_type_tab,
     MAX_DESKTOP_TYPES, nullptr},
    {"A service of its own name.", "ppware_type_tab", "MAX_PPWARE_TYPES", ppware_type_tab, MAX_PPWARE_TYPES,
     nullptr},
    {"Only a table: no template can name this service.", "qf_type_tab", "MAX_QF_TYPES", qf_type_tab,
     MAX_QF_TYPES, nullptr},
    {"Only a table: no template can name this service.", "pport_type_tab", "MAX_PPORT_TYPES", pport_type_tab,
     MAX_PPORT_TYPES, nullptr},
}};

namespace {

std::string code(std::string_view text) { return "`" + std::string(text) + "`"; }

bool is_block(const jt_type &row) { return row.eval == nullptr; }

// The row that stands for the service itself.
const jt_type &own_row(const Service &service) {
  return *std::find_if(service.rows, service.rows + service.count, is_block);
}

std::size_t rows_of(const jt_core::ValueList &list) {
  return *std::max_element(list.slots, list.slots + list.last_slot + 1);
}

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
  for (std::size_t row = 0; row < rows_of(list); ++row) {
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

std::string name_of(const Service &service) { return own_row(service).name; }

std::string write_service(const Service &service) {
  const std::string text = "# " + name_of(service) + "\n\n" + std::string(service.purpose) +
                           " In C its table is " + code(service.table_name) + ", with " +
                           std::to_string(service.count) + " rows, " + code(service.count_name) +
                           ".\n\n## Types\n\n" + write_types(service);
  if (service.names == nullptr)
    return text + "\nThere are no enumerated types, so there are no value names.\n";
  return text + std::string(kAboutNames) + write_names(*service.names);
}

}  // namespace jt_docs
