// The type tables, row by row, and the look-ups in them. To add a type, add its row where the order by name
// wants it and raise the count; the compiler refuses a table that could not be searched.
#include "types/type_tables.h"

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <span>
#include <string_view>

#include "base/text.h"
#include "types/enumeration.h"
#include "types/exported_operations.h"
#include "types/references.h"
#include "types/scalar_types.h"
#include "types/structured_types.h"
#include "types/value_lists.h"

namespace {

// ---- Families ---------------------------------------------------------------------------------------------

template <typename Family>
consteval jt_core::ValueFamily family() {
  return {&jt_core::kOperations<Family>, nullptr};
}

consteval jt_core::ValueFamily enumeration(const jt_core::ValueList &names) {
  return {&jt_core::kOperations<jt_core::Enumeration>, &names};
}

constexpr jt_core::ValueFamily kBoolean = family<jt_core::FlatType<jt_core::Boolean>>();
constexpr jt_core::ValueFamily kInteger = family<jt_core::FlatType<jt_core::Integer>>();
constexpr jt_core::ValueFamily kReal = family<jt_core::FlatType<jt_core::Real>>();
constexpr jt_core::ValueFamily kTimestamp = family<jt_core::FlatType<jt_core::Timestamp>>();
constexpr jt_core::ValueFamily kTimeOfDay = family<jt_core::FlatType<jt_core::TimeOfDay>>();
constexpr jt_core::ValueFamily kRectangle = family<jt_core::FlatType<jt_core::Rectangle>>();
constexpr jt_core::ValueFamily kMagnification = family<jt_core::FlatType<jt_core::Magnification>>();
constexpr jt_core::ValueFamily kBorders = family<jt_core::FlatType<jt_core::Borders>>();
constexpr jt_core::ValueFamily kGutter = family<jt_core::FlatType<jt_core::Gutter>>();
constexpr jt_core::ValueFamily kString = family<jt_core::StringType>();
constexpr jt_core::ValueFamily kInvocationReference = family<jt_core::InvocationReference>();
constexpr jt_core::ValueFamily kCollectionReference = family<jt_core::CollectionReference>();
constexpr jt_core::ValueFamily kBaseEnum = enumeration(jt_core::kBaseValues);
constexpr jt_core::ValueFamily kDocumentEnum = enumeration(jt_core::kDocumentValues);
constexpr jt_core::ValueFamily kEmailEnum = enumeration(jt_core::kEmailValues);
constexpr jt_core::ValueFamily kFaxEnum = enumeration(jt_core::kFaxValues);
constexpr jt_core::ValueFamily kFileEnum = enumeration(jt_core::kFileValues);
constexpr jt_core::ValueFamily kGeneralEnum = enumeration(jt_core::kGeneralValues);
constexpr jt_core::ValueFamily kMetadataEnum = enumeration(jt_core::kMetadataValues);
constexpr jt_core::ValueFamily kOcrEnum = enumeration(jt_core::kOcrValues);
constexpr jt_core::ValueFamily kPrintEnum = enumeration(jt_core::kPrintValues);
constexpr jt_core::ValueFamily kScanEnum = enumeration(jt_core::kScanValues);
constexpr jt_core::ValueFamily kValidationEnum = enumeration(jt_core::kValidationValues);

// Copying, comparing and killing an enumerated value needs no list, so all enumerations share these.
template <const jt_core::ValueFamily &Family>
constexpr const jt_core::ValueFamily &kWithoutList = Family.names != nullptr ? kBaseEnum : Family;

template <const jt_core::ValueFamily &Family>
consteval jt_type type(const char *name) {
  using Own = jt_core::ExportedOperations<Family>;
  using Shared = jt_core::ExportedOperations<kWithoutList<Family>>;
  const auto kill = Family.operations->null_to_kill != nullptr ? Own::kill : jt_core::kill_block;
  return {name, Own::eval, Shared::copy, Own::deval, Shared::cmp, kill};
}

// A kind of block: there are no values of it.
consteval jt_type block(const char *name) { return {name, nullptr, nullptr, nullptr, nullptr, nullptr}; }

constexpr jt_type kBaseTypes[] = {
    type<kBoolean>("boolean"),
    block("description"),
    block("doc_object"),
    type<kBaseEnum>("enum_systemidalgorithm"),
    type<kBaseEnum>("enum_units"),
    block("generic_service"),
    block("instance"),
    type<kInteger>("integer"),
    block("invocation"),
    type<kBaseEnum>("kmt_enum_status"),
    type<kReal>("real"),
    type<kCollectionReference>("ref_collection"),
    type<kInvocationReference>("ref_invocation"),
    block("service"),
    block("sil_header"),
    type<kString>("string"),
    type<kRectangle>("struct_rectangle"),
    type<kTimeOfDay>("struct_timeofday"),
    block("template"),
    type<kTimestamp>("timestamp"),
    block("unknown_type"),
};

}  // namespace

extern "C" {

constexpr jt_type desksvc_type_tab[] = {block("kmt_svc_desktop")};

constexpr jt_type doc_type_tab[] = {
    type<kDocumentEnum>("enum_compression"),
    type<kDocumentEnum>("enum_docformat"),
    type<kDocumentEnum>("enum_documentObjectNamingAlgorithm"),
    type<kDocumentEnum>("enum_embedfonts"),
    type<kDocumentEnum>("enum_halftonemethod"),
    type<kDocumentEnum>("enum_halftonescreen"),
    type<kDocumentEnum>("enum_mixedcompressions"),
    type<kDocumentEnum>("enum_mixedtype"),
    type<kDocumentEnum>("enum_optimizedforfastwebview"),
    type<kDocumentEnum>("enum_outputsize"),
    type<kDocumentEnum>("enum_resolution"),
    type<kDocumentEnum>("enum_searchabletext"),
    type<kDocumentEnum>("enum_textcompression"),
    block("kmt_document"),
};

constexpr jt_type docman_type_tab[] = {block("kmt_svc_docman")};

constexpr jt_type qf_type_tab[] = {block("kmt_svc_quillform")};

constexpr jt_type email_type_tab[] = {
    type<kEmailEnum>("enum_emailprotocol"),
    type<kEmailEnum>("enum_jobpriority"),
    block("kmt_svc_email"),
};

constexpr jt_type fax_type_tab[] = {
    type<kFaxEnum>("enum_jobpriority"),
    type<kFaxEnum>("enum_transmissionmode"),
    type<kFaxEnum>("enum_type"),
    block("kmt_svc_fax"),
};

constexpr jt_type file_type_tab[] = {
    type<kFileEnum>("enum_filingaccess"),
    type<kFileEnum>("enum_filingpolicy"),
    type<kFileEnum>("enum_filingprotocol"),
    type<kFileEnum>("enum_loginsource"),
    type<kFileEnum>("enum_namespace"),
    type<kFileEnum>("enum_type"),
    block("kmt_svc_file"),
};

constexpr jt_type gen_type_tab[] = {
    type<kGeneralEnum>("enum_ConfirmationStatus"),
    type<kGeneralEnum>("enum_confmethod"),
    type<kGeneralEnum>("enum_confstage"),
    type<kGeneralEnum>("enum_encoding"),
    type<kGeneralEnum>("enum_RVQ"),
    type<kGeneralEnum>("enum_secureTemplateAccessAlgorithm"),
    type<kGeneralEnum>("enum_type"),
    block("kmt_svc_general"),
};

constexpr jt_type print_type_tab[] = {
    type<kPrintEnum>("enum_collationType"),
    type<kPrintEnum>("enum_printfinish"),
    type<kPrintEnum>("enum_printmode"),
    type<kPrintEnum>("enum_sidestoprint"),
    block("kmt_svc_print"),
};

constexpr jt_type metadata_type_tab[] = {
    type<kMetadataEnum>("enum_metadatamaskingrequired"),
    block("kmt_dscrpt_metadata"),
};

constexpr jt_type notif_type_tab[] = {block("kmt_svc_notification")};

constexpr jt_type ocr_type_tab[] = {
    type<kOcrEnum>("enum_conversionlanguage"),
    type<kOcrEnum>("enum_outputdocumentconversionformat"),
    block("kmt_svc_ocr"),
};

constexpr jt_type pport_type_tab[] = {block("kmt_svc_traikubra")};

constexpr jt_type ppware_type_tab[] = {block("kmt_svc_paperware")};

constexpr jt_type scan_type_tab[] = {
    type<kScanEnum>("enum_autoexposure"),
    type<kScanEnum>("enum_blankpageremoval"),
    type<kScanEnum>("enum_bookmode"),
    type<kScanEnum>("enum_bookscansequence"),
    type<kScanEnum>("enum_colormode"),
    type<kScanEnum>("enum_exposure"),
    type<kScanEnum>("enum_flipmode"),
    type<kScanEnum>("enum_imagemode"),
    type<kScanEnum>("enum_inputorientation"),
    type<kScanEnum>("enum_inputsource"),
    type<kScanEnum>("enum_magnification"),
    type<kScanEnum>("enum_mediasize"),
    type<kScanEnum>("enum_orientation"),
    type<kScanEnum>("enum_originalsubtype"),
    type<kScanEnum>("enum_resolution"),
    type<kScanEnum>("enum_rotation"),
    type<kScanEnum>("enum_sided"),
    type<kScanEnum>("enum_type"),
    block("kmt_svc_scan"),
    type<kBorders>("struct_borders"),
    {"struct_gutter", eval_gutter, copy_gutter, deval_gutter, cmp_gutter, kill_gutter},
    type<kMagnification>("struct_magnification"),
};

constexpr jt_type validation_type_tab[] = {
    type<kValidationEnum>("enum_protocol"),
    type<kValidationEnum>("enum_validationtimeoutpolicy"),
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

namespace jt_core {
namespace {

// Clients may search the exported tables by halves (binary search), so the rows must be sorted.
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

// ---- The families of the rows -----------------------------------------------------------------------------

struct KnownFamily {
  decltype(jt_type::eval) eval;
  ValueFamily family;
};

template <const ValueFamily &Family>
consteval KnownFamily known() {
  return {ExportedOperations<Family>::eval, Family};
}

// By number; the first stands for a kind of block.
constexpr std::array kFamilies = {
    KnownFamily{nullptr, {}},
    known<kBoolean>(),
    known<kInteger>(),
    known<kReal>(),
    known<kTimestamp>(),
    known<kTimeOfDay>(),
    known<kRectangle>(),
    known<kMagnification>(),
    known<kBorders>(),
    known<kString>(),
    known<kInvocationReference>(),
    known<kCollectionReference>(),
    KnownFamily{eval_gutter, kGutter},
    known<kBaseEnum>(),
    known<kDocumentEnum>(),
    known<kEmailEnum>(),
    known<kFaxEnum>(),
    known<kFileEnum>(),
    known<kGeneralEnum>(),
    known<kMetadataEnum>(),
    known<kOcrEnum>(),
    known<kPrintEnum>(),
    known<kScanEnum>(),
    known<kValidationEnum>(),
};

consteval bool is_numbered(FamilyNumber number, const ValueFamily &family) {
  const ValueFamily &found = kFamilies[static_cast<std::size_t>(number)].family;
  return found.operations == family.operations && found.names == family.names;
}

static_assert(is_numbered(FamilyNumber::kBoolean, kBoolean) &&
              is_numbered(FamilyNumber::kInteger, kInteger) && is_numbered(FamilyNumber::kReal, kReal) &&
              is_numbered(FamilyNumber::kTimestamp, kTimestamp) &&
              is_numbered(FamilyNumber::kTimeOfDay, kTimeOfDay) &&
              is_numbered(FamilyNumber::kRectangle, kRectangle) &&
              is_numbered(FamilyNumber::kMagnification, kMagnification) &&
              is_numbered(FamilyNumber::kBorders, kBorders) && is_numbered(FamilyNumber::kString, kString) &&
              is_numbered(FamilyNumber::kInvocationReference, kInvocationReference) &&
              is_numbered(FamilyNumber::kCollectionReference, kCollectionReference) &&
              is_numbered(FamilyNumber::kGutter, kGutter) &&
              is_numbered(FamilyNumber::kFirstEnumeration, kBaseEnum));

// The exported rows cannot say their family, so it is told while compiling from the operation that they
// export.
consteval std::uint8_t family_number(const jt_type &row) {
  const auto *const found = std::find_if(kFamilies.begin(), kFamilies.end(),
                                         [&](const KnownFamily &known) { return known.eval == row.eval; });
  return static_cast<std::uint8_t>(found - kFamilies.begin());
}

const ValueFamily *family_at(std::uint8_t number) {
  return number != 0 ? &kFamilies[number].family : nullptr;
}

// ---- Tables -----------------------------------------------------------------------------------------------

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

template <std::size_t kRows>
consteval TypeTable table(const jt_type (&rows)[kRows]) {
  TypeTable table = {rows, kRows, {}, {}, {}};
  static_assert((kRows + kBase.size()) * 2 <= sizeof(table.slots));
  static_assert(kRows + kBase.size() <= sizeof(table.lengths));
  for (std::size_t number = 0; number < kRows + kBase.size(); ++number) {
    enter(table, number);
    table.families[number] = family_number(row_at(table, number));
  }
  return table;
}

constexpr TypeTable kBaseTable = table(kBaseTypes);

template <std::size_t kRows>
consteval ServiceTypes service(const jt_type (&rows)[kRows], std::string_view name,
                               const ValueList *values = nullptr, bool in_templates = true) {
  return {name, name_hash(name), table(rows), values, in_templates};
}

constexpr std::array<ServiceTypes, 16> kServices = {{
    service(doc_type_tab, "kmt_document", &kDocumentValues),
    service(gen_type_tab, "kmt_svc_general", &kGeneralValues),
    service(fax_type_tab, "kmt_svc_fax", &kFaxValues),
    service(file_type_tab, "kmt_svc_file", &kFileValues),
    service(scan_type_tab, "kmt_svc_scan", &kScanValues),
    service(print_type_tab, "kmt_svc_print", &kPrintValues),
    service(notif_type_tab, "kmt_svc_notification"),
    service(email_type_tab, "kmt_svc_email", &kEmailValues),
    service(ocr_type_tab, "kmt_svc_ocr", &kOcrValues),
    service(docman_type_tab, "kmt_svc_docman"),
    service(ppware_type_tab, "kmt_svc_paperware"),
    service(desksvc_type_tab, "kmt_svc_desktop"),
    service(validation_type_tab, "kmt_svc_validation", &kValidationValues),
    service(metadata_type_tab, "kmt_dscrpt_metadata", &kMetadataValues),
    service(pport_type_tab, "kmt_svc_traikubra", nullptr, false),
    service(qf_type_tab, "kmt_svc_quillform", nullptr, false),
}};

constexpr std::span<const ServiceTypes> kServicesInTemplates = std::span(kServices).first(14);
static_assert(kServicesInTemplates.back().in_templates && !kServices[14].in_templates);

TypeEntry find_entry(const TypeTable &table, std::string_view name) {
  for (std::uint32_t slot = name_hash(name);; ++slot) {
    const std::size_t entry = table.slots[slot % table.slots.size()];
    if (entry == 0) return {nullptr, nullptr};
    const jt_type &row = row_at(table, entry - 1);
    if (same_name({row.name, table.lengths[entry - 1]}, name))
      return {&row, family_at(table.families[entry - 1])};
  }
}

bool holds_row(const TypeTable &table, const jt_type *row) {
  return std::less_equal<>()(table.rows, row) && std::less<>()(row, table.rows + table.count);
}

const ServiceTypes *find_service_of_row(const jt_type *row) {
  const auto *const found =
      std::find_if(kServices.begin(), kServices.end(),
                   [row](const ServiceTypes &service) { return holds_row(service.types, row); });
  return found != kServices.end() ? found : nullptr;
}

const ValueFamily *family_in(const TypeTable &table, const jt_type *row) {
  return family_at(table.families[static_cast<std::size_t>(row - table.rows)]);
}

}  // namespace

std::span<const ServiceTypes> services() { return kServices; }

const TypeTable &base_types() { return kBaseTable; }

const jt_type *find_base_type(std::string_view name) { return find_entry(kBaseTable, name).type; }

const TypeTable *find_service_table(std::string_view service_name) {
  const std::uint32_t hash = name_hash(service_name);
  for (const ServiceTypes &service : kServicesInTemplates) {
    if (service.hash == hash && same_name(service.name, service_name)) return &service.types;
  }
  return nullptr;
}

// A service's own row is the one row of its table without operations.
const TypeTable *find_table_of_row(const jt_type *row) {
  const ServiceTypes *const found = find_service_of_row(row);
  return found != nullptr && found->in_templates && row->eval == nullptr ? &found->types : nullptr;
}

const ValueFamily *family_of(const jt_type *type, const TypeTable *likely) {
  if (likely != nullptr && holds_row(*likely, type)) return family_in(*likely, type);
  if (holds_row(kBaseTable, type)) return family_in(kBaseTable, type);
  const ServiceTypes *const service = find_service_of_row(type);
  return service != nullptr ? family_in(service->types, type) : nullptr;
}

FamilyNumber family_number_of(const jt_type *type) {
  const ValueFamily *const family = family_of(type);
  std::uint8_t number = family != nullptr ? kFamilies.size() - 1 : 0;
  while (number > 0 && family_at(number) != family) --number;
  return static_cast<FamilyNumber>(number);
}

TypeEntry find_type_in_scope(const TypeTable *table, std::string_view type_name) {
  return find_entry(table != nullptr ? *table : kBaseTable, type_name);
}

// The row stands in the service's own table.
const jt_type *find_service_row(std::string_view name) {
  const TypeTable *const table = find_service_table(name);
  return table != nullptr ? find_entry(*table, name).type : nullptr;
}

}  // namespace jt_core

extern "C" const jt_type *get_type_from_services(jt_parser_space * /*space*/, const char *service_name,
                                                 const char *type_name) {
  return jt_core::find_type_in_scope(jt_core::find_service_table(jt_core::view_of(service_name)),
                                     jt_core::view_of(type_name))
      .type;
}
