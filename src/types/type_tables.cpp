// The type tables, row by row, and the look-ups in them. To add a type, add its row where the order by name
// wants it and raise the count; the compiler refuses a table that could not be searched.
#include "types/type_tables.h"

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <span>
#include <string_view>

#include "foundation/text.h"
#include "types/enumeration.h"
#include "types/references.h"
#include "types/scalar_types.h"
#include "types/structured_types.h"
#include "types/value_lists.h"

namespace {

template <typename Family>
consteval jt_type type(const char *name) {
  return {name, Family::eval, Family::copy, Family::deval, Family::cmp, Family::kill};
}

// A kind of block: there are no values of it.
consteval jt_type block(const char *name) { return {name, nullptr, nullptr, nullptr, nullptr, nullptr}; }

using BaseEnum = jt::Enumeration<jt::kBaseValues>;
using DocumentEnum = jt::Enumeration<jt::kDocumentValues>;
using EmailEnum = jt::Enumeration<jt::kEmailValues>;
using FaxEnum = jt::Enumeration<jt::kFaxValues>;
using FileEnum = jt::Enumeration<jt::kFileValues>;
using GeneralEnum = jt::Enumeration<jt::kGeneralValues>;
using PrintEnum = jt::Enumeration<jt::kPrintValues>;
using MetadataEnum = jt::Enumeration<jt::kMetadataValues>;
using OcrEnum = jt::Enumeration<jt::kOcrValues>;
using ScanEnum = jt::Enumeration<jt::kScanValues>;
using ValidationEnum = jt::Enumeration<jt::kValidationValues>;

constexpr jt_type kBaseTypes[] = {
    type<jt::FlatType<jt::Boolean>>("boolean"),
    block("description"),
    block("doc_object"),
    type<BaseEnum>("enum_systemidalgorithm"),
    type<BaseEnum>("enum_units"),
    block("generic_service"),
    block("instance"),
    type<jt::FlatType<jt::Integer>>("integer"),
    block("invocation"),
    type<BaseEnum>("kmt_enum_status"),
    type<jt::FlatType<jt::Real>>("real"),
    type<jt::CollectionReference>("ref_collection"),
    type<jt::InvocationReference>("ref_invocation"),
    block("service"),
    block("sil_header"),
    type<jt::StringType>("string"),
    type<jt::FlatType<jt::Rectangle>>("struct_rectangle"),
    type<jt::FlatType<jt::TimeOfDay>>("struct_timeofday"),
    block("template"),
    type<jt::FlatType<jt::Timestamp>>("timestamp"),
    block("unknown_type"),
};

}  // namespace

extern "C" {

constexpr jt_type desksvc_type_tab[] = {block("kmt_svc_desktop")};

constexpr jt_type doc_type_tab[] = {
    type<DocumentEnum>("enum_compression"),
    type<DocumentEnum>("enum_docformat"),
    type<DocumentEnum>("enum_documentObjectNamingAlgorithm"),
    type<DocumentEnum>("enum_embedfonts"),
    type<DocumentEnum>("enum_halftonemethod"),
    type<DocumentEnum>("enum_halftonescreen"),
    type<DocumentEnum>("enum_mixedcompressions"),
    type<DocumentEnum>("enum_mixedtype"),
    type<DocumentEnum>("enum_optimizedforfastwebview"),
    type<DocumentEnum>("enum_outputsize"),
    type<DocumentEnum>("enum_resolution"),
    type<DocumentEnum>("enum_searchabletext"),
    type<DocumentEnum>("enum_textcompression"),
    block("kmt_document"),
};

constexpr jt_type docman_type_tab[] = {block("kmt_svc_docman")};

constexpr jt_type qf_type_tab[] = {block("kmt_svc_quillform")};

constexpr jt_type email_type_tab[] = {
    type<EmailEnum>("enum_emailprotocol"),
    type<EmailEnum>("enum_jobpriority"),
    block("kmt_svc_email"),
};

constexpr jt_type fax_type_tab[] = {
    type<FaxEnum>("enum_jobpriority"),
    type<FaxEnum>("enum_transmissionmode"),
    type<FaxEnum>("enum_type"),
    block("kmt_svc_fax"),
};

constexpr jt_type file_type_tab[] = {
    type<FileEnum>("enum_filingaccess"),
    type<FileEnum>("enum_filingpolicy"),
    type<FileEnum>("enum_filingprotocol"),
    type<FileEnum>("enum_loginsource"),
    type<FileEnum>("enum_namespace"),
    type<FileEnum>("enum_type"),
    block("kmt_svc_file"),
};

constexpr jt_type gen_type_tab[] = {
    type<GeneralEnum>("enum_ConfirmationStatus"),
    type<GeneralEnum>("enum_confmethod"),
    type<GeneralEnum>("enum_confstage"),
    type<GeneralEnum>("enum_encoding"),
    type<GeneralEnum>("enum_RVQ"),
    type<GeneralEnum>("enum_secureTemplateAccessAlgorithm"),
    type<GeneralEnum>("enum_type"),
    block("kmt_svc_general"),
};

constexpr jt_type print_type_tab[] = {
    type<PrintEnum>("enum_collationType"),
    type<PrintEnum>("enum_printfinish"),
    type<PrintEnum>("enum_printmode"),
    type<PrintEnum>("enum_sidestoprint"),
    block("kmt_svc_print"),
};

constexpr jt_type metadata_type_tab[] = {
    type<MetadataEnum>("enum_metadatamaskingrequired"),
    block("kmt_dscrpt_metadata"),
};

constexpr jt_type notif_type_tab[] = {block("kmt_svc_notification")};

constexpr jt_type ocr_type_tab[] = {
    type<OcrEnum>("enum_conversionlanguage"),
    type<OcrEnum>("enum_outputdocumentconversionformat"),
    block("kmt_svc_ocr"),
};

constexpr jt_type pport_type_tab[] = {block("kmt_svc_traikubra")};

constexpr jt_type ppware_type_tab[] = {block("kmt_svc_paperware")};

constexpr jt_type scan_type_tab[] = {
    type<ScanEnum>("enum_autoexposure"),
    type<ScanEnum>("enum_blankpageremoval"),
    type<ScanEnum>("enum_bookmode"),
    type<ScanEnum>("enum_bookscansequence"),
    type<ScanEnum>("enum_colormode"),
    type<ScanEnum>("enum_exposure"),
    type<ScanEnum>("enum_flipmode"),
    type<ScanEnum>("enum_imagemode"),
    type<ScanEnum>("enum_inputorientation"),
    type<ScanEnum>("enum_inputsource"),
    type<ScanEnum>("enum_magnification"),
    type<ScanEnum>("enum_mediasize"),
    type<ScanEnum>("enum_orientation"),
    type<ScanEnum>("enum_originalsubtype"),
    type<ScanEnum>("enum_resolution"),
    type<ScanEnum>("enum_rotation"),
    type<ScanEnum>("enum_sided"),
    type<ScanEnum>("enum_type"),
    block("kmt_svc_scan"),
    type<jt::FlatType<jt::Borders>>("struct_borders"),
    {"struct_gutter", eval_gutter, copy_gutter, deval_gutter, cmp_gutter, kill_gutter},
    type<jt::FlatType<jt::Magnification>>("struct_magnification"),
};

constexpr jt_type validation_type_tab[] = {
    type<ValidationEnum>("enum_protocol"),
    type<ValidationEnum>("enum_validationtimeoutpolicy"),
    block("kmt_svc_validation"),
};

constexpr int32_t MAX_DESKTOP_TYPES = 1;
constexpr int32_t MAX_DOC_TYPES = 14;
constexpr int32_t MAX_DOCMAN_TYPES = 1;
constexpr int32_t MAX_QF_TYPES = 1;
constexpr int32_t MAX_EMAIL_TYPES = 3;
constexpr int32_t MAX_FAX_TYPES = 4;
constexpr int32_t MAX_FILE_TYPES = 7;
constexpr int32_t MAX_GEN_TYPES = 8;
constexpr int32_t MAX_LPRNT_TYPES = 5;
constexpr int32_t MAX_METADATA_TYPES = 2;
constexpr int32_t MAX_NOTIF_TYPES = 1;
constexpr int32_t MAX_OCR_TYPES = 3;
constexpr int32_t MAX_PPORT_TYPES = 1;
constexpr int32_t MAX_PPWARE_TYPES = 1;
constexpr int32_t MAX_SCAN_TYPES = 22;
constexpr int32_t MAX_VALIDATION_TYPES = 3;

}  // extern "C"

namespace jt {
namespace {

// Clients search the tables too, and may halve their way through: rows are in order.
consteval bool is_table(std::span<const jt_type> rows, std::int32_t count) {
  const auto out_of_order = [](const jt_type &a, const jt_type &b) {
    return compare_names(a.name, b.name) >= 0;
  };
  return std::ssize(rows) == count &&
         std::adjacent_find(rows.begin(), rows.end(), out_of_order) == rows.end();
}

static_assert(is_table(kBaseTypes, 21));
static_assert(is_table(desksvc_type_tab, MAX_DESKTOP_TYPES));
static_assert(is_table(doc_type_tab, MAX_DOC_TYPES));
static_assert(is_table(docman_type_tab, MAX_DOCMAN_TYPES));
static_assert(is_table(qf_type_tab, MAX_QF_TYPES));
static_assert(is_table(email_type_tab, MAX_EMAIL_TYPES));
static_assert(is_table(fax_type_tab, MAX_FAX_TYPES));
static_assert(is_table(file_type_tab, MAX_FILE_TYPES));
static_assert(is_table(gen_type_tab, MAX_GEN_TYPES));
static_assert(is_table(print_type_tab, MAX_LPRNT_TYPES));
static_assert(is_table(metadata_type_tab, MAX_METADATA_TYPES));
static_assert(is_table(notif_type_tab, MAX_NOTIF_TYPES));
static_assert(is_table(ocr_type_tab, MAX_OCR_TYPES));
static_assert(is_table(pport_type_tab, MAX_PPORT_TYPES));
static_assert(is_table(ppware_type_tab, MAX_PPWARE_TYPES));
static_assert(is_table(scan_type_tab, MAX_SCAN_TYPES));
static_assert(is_table(validation_type_tab, MAX_VALIDATION_TYPES));

constexpr std::span<const jt_type> kBase = kBaseTypes;

constexpr const jt_type &row_at(const TypeTable &table, std::size_t number) {
  const auto own = static_cast<std::size_t>(table.count);
  return number < own ? table.rows[number] : kBase[number - own];
}

// Half of the slots or more stay free, so that probing is short and always ends.
consteval void enter(TypeTable &table, std::size_t number) {
  const std::string_view name = row_at(table, number).name;
  std::size_t slot = name_hash(name) % table.slots.size();
  for (; table.slots[slot] != 0; slot = (slot + 1) % table.slots.size()) {
    if (same_name(row_at(table, table.slots[slot] - 1U).name, name)) return;
  }
  table.slots[slot] = static_cast<std::uint8_t>(number + 1);
  table.lengths[number] = static_cast<std::uint8_t>(name.size());
}

template <std::size_t Rows>
consteval TypeTable table(const jt_type (&rows)[Rows]) {
  TypeTable table = {rows, Rows, {}, {}};
  static_assert((Rows + kBase.size()) * 2 <= sizeof(table.slots));
  static_assert(Rows + kBase.size() <= sizeof(table.lengths));
  for (std::size_t number = 0; number < Rows + kBase.size(); ++number) enter(table, number);
  return table;
}

constexpr TypeTable kBaseTable = table(kBaseTypes);

struct Service {
  consteval Service(std::string_view its_name, const TypeTable &its_table)
      : name(its_name), hash(name_hash(its_name)), table(its_table) {}

  std::string_view name;
  std::uint32_t hash;
  TypeTable table;
};

// pport_type_tab and qf_type_tab are for clients to list; no look-up goes there.
constexpr std::array<Service, 14> kServices = {{
    {"kmt_document", table(doc_type_tab)},
    {"kmt_svc_general", table(gen_type_tab)},
    {"kmt_svc_fax", table(fax_type_tab)},
    {"kmt_svc_file", table(file_type_tab)},
    {"kmt_svc_scan", table(scan_type_tab)},
    {"kmt_svc_print", table(print_type_tab)},
    {"kmt_svc_notification", table(notif_type_tab)},
    {"kmt_svc_email", table(email_type_tab)},
    {"kmt_svc_ocr", table(ocr_type_tab)},
    {"kmt_svc_docman", table(docman_type_tab)},
    {"kmt_svc_paperware", table(ppware_type_tab)},
    {"kmt_svc_desktop", table(desksvc_type_tab)},
    {"kmt_svc_validation", table(validation_type_tab)},
    {"kmt_dscrpt_metadata", table(metadata_type_tab)},
}};

const jt_type *find_row(const TypeTable &table, std::string_view name) {
  for (std::uint32_t slot = name_hash(name);; ++slot) {
    const std::size_t entry = table.slots[slot % table.slots.size()];
    if (entry == 0) return nullptr;
    const jt_type &row = row_at(table, entry - 1);
    if (same_name({row.name, table.lengths[entry - 1]}, name)) return &row;
  }
}

bool holds_row(const TypeTable &table, const jt_type *row) {
  return std::less_equal<>()(table.rows, row) && std::less<>()(row, table.rows + table.count);
}

const Service *find_service_of_row(const jt_type *row) {
  return std::find_if(kServices.begin(), kServices.end(),
                      [row](const Service &service) { return holds_row(service.table, row); });
}

}  // namespace

const jt_type *find_base_type(std::string_view name) { return find_row(kBaseTable, name); }

const TypeTable *find_service_table(std::string_view service_name) {
  const std::uint32_t hash = name_hash(service_name);
  const auto *const found = std::find_if(kServices.begin(), kServices.end(), [&](const Service &service) {
    return service.hash == hash && same_name(service.name, service_name);
  });
  return found != kServices.end() ? &found->table : nullptr;
}

// A service's own row is the one row of its table without operations.
const TypeTable *find_table_of_row(const jt_type *row) {
  const Service *const found = find_service_of_row(row);
  return found != kServices.end() && row->eval == nullptr ? &found->table : nullptr;
}

bool is_library_type(const jt_type *type) {
  return holds_row(kBaseTable, type) || find_service_of_row(type) != kServices.end();
}

const jt_type *find_type_in_scope(const TypeTable *table, std::string_view type_name) {
  return find_row(table != nullptr ? *table : kBaseTable, type_name);
}

// The row stands in the service's own table.
const jt_type *find_service_row(std::string_view name) {
  const TypeTable *const table = find_service_table(name);
  return table != nullptr ? find_row(*table, name) : nullptr;
}

}  // namespace jt

extern "C" const jt_type *get_type_from_services(jt_parser_space * /*space*/, const char *service_name,
                                                 const char *type_name) {
  return jt::find_type_in_scope(jt::find_service_table(jt::view_of(service_name)), jt::view_of(type_name));
}
