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

std::string code(std::string_view text) { return "``" + std::string(text) + "``"; }

bool is_block(const jt_type &row) { return row.eval == nullptr; }

// The row that stands for the service itself.
const jt_type &own_row(const Service &service) {
  return *std::find_if(service.rows, service.rows + service.count, is_block);
}

std::size_t rows_of(const jt_core::ValueList &list) {
  return *std::max_element(list.slots, list.slots + list.last_slot + 1);
}

std::string write_name(const Name &name) {
  const std::string note = name.text == name.written ? "" : " written as " + code(name.written);
  return "<li><span>" + std::to_string(name.number) + "</span> " + code(name.text) + note + "</li>\n";
}

std::string write_names(const jt_core::ValueList &list) {
  std::string text = "<ul class=\"names\">\n";
  for (const Name &name : names_of(list)) text += write_name(name);
  return text + "</ul>\n\n";
}

std::string write_types(const Service &service) {
  std::string text;
  for (std::int32_t i = 0; i < service.count; ++i) {
    if (!is_block(service.rows[i]))
      text += (text.empty() ? "" : ", ") + ("`" + std::string(service.rows[i].name) + "`");
  }
  return text.empty() ? "No types of its own; the base types serve.\n\n" : "Types: " + text + ".\n\n";
}

std::string write_service(const Service &service) {
  const std::string name = own_row(service).name;
  std::string text = "## " + name + " {#" + name + "}\n\n" + std::string(service.purpose) + " Table `" +
                     std::string(service.table_name) + "`, `" + std::string(service.count_name) + "` " +
                     std::to_string(service.count) + ".\n\n" + write_types(service);
  if (service.names != nullptr) {
    text += "Names of its `enum_` types, with their numbers:\n\n" + write_names(*service.names);
  }
  return text;
}

struct BaseType {
  std::string_view name;
  std::string_view text;
};

// An example of each base type of values.
constexpr auto kBaseTypes = std::to_array<BaseType>({
    {"boolean", "TRUE"},
    {"integer", "-17"},
    {"real", "0.750000"},
    {"string", "\"any text\""},
    {"timestamp", "2030/01/31/23/59/00"},
    {"struct_timeofday", "20:5"},
    {"struct_rectangle", "10/10/210/297/MM"},
    {"ref_invocation", "Scanner:Letter"},
    {"ref_collection", "Handouts"},
    {"enum_units", "MM"},
    {"enum_systemidalgorithm", "PROPRIETARY"},
    {"kmt_enum_status", "KMT_STATUS_COMPLETED"},
});

std::string write_base_types() {
  std::string text = "| type | written |\n|---|---|\n";
  for (const BaseType &type : kBaseTypes) {
    text += "| `" + std::string(jt_core::find_base_type(type.name)->name) + "` | `" + std::string(type.text) +
            "` |\n";
  }
  return text + "\nNames of the enumerated ones, which share one list:\n\n" +
         write_names(jt_core::kBaseValues);
}

constexpr std::string_view kIntroduction =
    "# Services, types and value names {#catalogue}\n\n"
    "What the library knows by name. In all of these names capital and small letters are the same; they are\n"
    "written back as they stand here. Each service has one list of names that serves all its `enum_` types: "
    "a\n"
    "name is not checked against the type that it stands under. A name that is in no list is kept as it is, "
    "with\na warning. How the texts of the other types look is told in \\ref values.\n\n"
    "Where two names share a number, one of them is written for both.\n\n[TOC]\n\n"
    "## Base types {#base_types}\n\nThey may be used in every service and in the header.\n\n";

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

std::string write_catalogue() {
  std::string text = std::string(kIntroduction) + write_base_types();
  for (const Service &service : kServices) text += write_service(service);
  return text;
}

}  // namespace jt_docs
