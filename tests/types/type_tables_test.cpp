// The tables of types: every row in its place, with operations or without, and the way from the name of a
// service and a type to the row.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "types/type_tables.h"
#include "types/value_cases.h"

namespace jt_test {
namespace {

bool has_all_operations(const jt_type &type) {
  return type.eval != nullptr && type.copy != nullptr && type.deval != nullptr && type.cmp != nullptr &&
         type.kill != nullptr;
}

bool has_no_operation(const jt_type &type) {
  return type.eval == nullptr && type.copy == nullptr && type.deval == nullptr && type.cmp == nullptr &&
         type.kill == nullptr;
}

// ---- The exported tables ----

struct Table {
  std::string name;
  const jt_type *rows;
  const std::int32_t *count;
  std::vector<std::string> types;
};

std::ostream &operator<<(std::ostream &out, const Table &table) { return out << table.name << " table"; }

std::vector<Table> tables_of_blocks() {
  return {{"Desktop", desksvc_type_tab, &MAX_DESKTOP_TYPES, {"kmt_svc_desktop"}},
          {"DocumentManagement", docman_type_tab, &MAX_DOCMAN_TYPES, {"kmt_svc_docman"}},
          {"Quillform", qf_type_tab, &MAX_QF_TYPES, {"kmt_svc_quillform"}},
          {"Notification", notif_type_tab, &MAX_NOTIF_TYPES, {"kmt_svc_notification"}},
          {"Traikubra", pport_type_tab, &MAX_PPORT_TYPES, {"kmt_svc_traikubra"}},
          {"Paperware", ppware_type_tab, &MAX_PPWARE_TYPES, {"kmt_svc_paperware"}}};
}

std::vector<Table> tables_of_small_services() {
  return {
      {"Email",
       email_type_tab,
       &MAX_EMAIL_TYPES,
       {"enum_emailprotocol", "enum_jobpriority", "kmt_svc_email"}},
      {"Fax",
       fax_type_tab,
       &MAX_FAX_TYPES,
       {"enum_jobpriority", "enum_transmissionmode", "enum_type", "kmt_svc_fax"}},
      {"Print",
       print_type_tab,
       &MAX_LPRNT_TYPES,
       {"enum_collationType", "enum_printfinish", "enum_printmode", "enum_sidestoprint", "kmt_svc_print"}},
      {"Metadata",
       metadata_type_tab,
       &MAX_METADATA_TYPES,
       {"enum_metadatamaskingrequired", "kmt_dscrpt_metadata"}},
      {"Ocr",
       ocr_type_tab,
       &MAX_OCR_TYPES,
       {"enum_conversionlanguage", "enum_outputdocumentconversionformat", "kmt_svc_ocr"}},
      {"Validation",
       validation_type_tab,
       &MAX_VALIDATION_TYPES,
       {"enum_protocol", "enum_validationtimeoutpolicy", "kmt_svc_validation"}}};
}

std::vector<Table> tables_of_large_services() {
  return {{"Document",
           doc_type_tab,
           &MAX_DOC_TYPES,
           {"enum_compression", "enum_docformat", "enum_documentObjectNamingAlgorithm", "enum_embedfonts",
            "enum_halftonemethod", "enum_halftonescreen", "enum_mixedcompressions", "enum_mixedtype",
            "enum_optimizedforfastwebview", "enum_outputsize", "enum_resolution", "enum_searchabletext",
            "enum_textcompression", "kmt_document"}},
          {"File",
           file_type_tab,
           &MAX_FILE_TYPES,
           {"enum_filingaccess", "enum_filingpolicy", "enum_filingprotocol", "enum_loginsource",
            "enum_namespace", "enum_type", "kmt_svc_file"}},
          {"General",
           gen_type_tab,
           &MAX_GEN_TYPES,
           {"enum_ConfirmationStatus", "enum_confmethod", "enum_confstage", "enum_encoding", "enum_RVQ",
            "enum_secureTemplateAccessAlgorithm", "enum_type", "kmt_svc_general"}},
          {"Scan",
           scan_type_tab,
           &MAX_SCAN_TYPES,
           {"enum_autoexposure",
            "enum_blankpageremoval",
            "enum_bookmode",
            "enum_bookscansequence",
            "enum_colormode",
            "enum_exposure",
            "enum_flipmode",
            "enum_imagemode",
            "enum_inputorientation",
            "enum_inputsource",
            "enum_magnification",
            "enum_mediasize",
            "enum_orientation",
            "enum_originalsubtype",
            "enum_resolution",
            "enum_rotation",
            "enum_sided",
            "enum_type",
            "kmt_svc_scan",
            "struct_borders",
            "struct_gutter",
            "struct_magnification"}}};
}

std::vector<Table> all_tables() {
  std::vector<Table> all = tables_of_blocks();
  for (const auto &more : {tables_of_small_services(), tables_of_large_services()}) {
    all.insert(all.end(), more.begin(), more.end());
  }
  return all;
}

class TypeTable : public ::testing::TestWithParam<Table> {};

TEST_P(TypeTable, HasItsRowsInOrder) {
  const Table &table = GetParam();
  ASSERT_EQ(*table.count, static_cast<std::int32_t>(table.types.size()));
  for (std::size_t row = 0; row < table.types.size(); ++row)
    EXPECT_EQ(table.rows[row].name, table.types[row]);
}

TEST_P(TypeTable, IsSortedWithLettersFolded) {
  const Table &table = GetParam();
  for (std::int32_t row = 1; row < *table.count; ++row) {
    EXPECT_LT(lower_case(table.rows[row - 1].name), lower_case(table.rows[row].name));
  }
}

TEST_P(TypeTable, HasOperationsForValuesAndNoneForBlocks) {
  const Table &table = GetParam();
  int blocks = 0;
  for (std::int32_t row = 0; row < *table.count; ++row) {
    const std::string_view name = table.rows[row].name;
    if (name.substr(0, 4) == "kmt_") {
      ++blocks;
      EXPECT_TRUE(has_no_operation(table.rows[row])) << name;
    } else {
      EXPECT_TRUE(has_all_operations(table.rows[row])) << name;
    }
  }
  EXPECT_EQ(blocks, 1);
}

INSTANTIATE_TEST_SUITE_P(Every, TypeTable, ::testing::ValuesIn(all_tables()), case_name<Table>);

TEST(TypeTables, AreSixteen) {
  std::set<const jt_type *> tables;
  for (const Table &table : all_tables()) tables.insert(table.rows);
  EXPECT_EQ(tables.size(), 16U);
}

// ---- The base table ----

struct BaseType {
  std::string name;
  std::ptrdiff_t row;
  bool is_block;
};

std::ostream &operator<<(std::ostream &out, const BaseType &type) { return out << type.name; }

std::vector<BaseType> base_types() {
  return {{"boolean", 0, false},
          {"description", 1, true},
          {"doc_object", 2, true},
          {"enum_systemidalgorithm", 3, false},
          {"enum_units", 4, false},
          {"generic_service", 5, true},
          {"instance", 6, true},
          {"integer", 7, false},
          {"invocation", 8, true},
          {"kmt_enum_status", 9, false},
          {"real", 10, false},
          {"ref_collection", 11, false},
          {"ref_invocation", 12, false},
          {"service", 13, true},
          {"sil_header", 14, true},
          {"string", 15, false},
          {"struct_rectangle", 16, false},
          {"struct_timeofday", 17, false},
          {"template", 18, true},
          {"timestamp", 19, false},
          {"unknown_type", 20, true}};
}

// ---- Services ----

struct Service {
  std::string name;
  const jt_type *rows;
  std::int32_t count;
};

std::ostream &operator<<(std::ostream &out, const Service &service) { return out << service.name; }

std::vector<Service> services() {
  return {{"kmt_document", doc_type_tab, 14},
          {"kmt_svc_general", gen_type_tab, 8},
          {"kmt_svc_fax", fax_type_tab, 4},
          {"kmt_svc_file", file_type_tab, 7},
          {"kmt_svc_scan", scan_type_tab, 22},
          {"kmt_svc_print", print_type_tab, 5},
          {"kmt_svc_notification", notif_type_tab, 1},
          {"kmt_svc_email", email_type_tab, 3},
          {"kmt_svc_ocr", ocr_type_tab, 3},
          {"kmt_svc_docman", docman_type_tab, 1},
          {"kmt_svc_paperware", ppware_type_tab, 1},
          {"kmt_svc_desktop", desksvc_type_tab, 1},
          {"kmt_svc_validation", validation_type_tab, 3},
          {"kmt_dscrpt_metadata", metadata_type_tab, 2}};
}

class TypeLookup : public SessionTest {
 protected:
  const jt_type *find(const std::string &service, const std::string &type) {
    return get_type_from_services(space, service.c_str(), type.c_str());
  }

  const jt_type *find_base(const std::string &type) { return find("", type); }
};

using EveryBaseType = Each<TypeLookup, BaseType>;

TEST_P(EveryBaseType, StandsInItsRow) {
  const jt_type *const first = find_base("boolean");
  const jt_type *const type = find_base(GetParam().name);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(type, nullptr);
  EXPECT_EQ(type - first, GetParam().row);
  EXPECT_EQ(type->name, GetParam().name);
}

TEST_P(EveryBaseType, HasOperationsUnlessItIsABlock) {
  const jt_type *const type = find_base(GetParam().name);
  ASSERT_NE(type, nullptr);
  EXPECT_EQ(has_all_operations(*type), !GetParam().is_block);
  EXPECT_EQ(has_no_operation(*type), GetParam().is_block);
}

TEST_P(EveryBaseType, IsFoundInAnyCase) {
  std::string mixed = GetParam().name;
  mixed.front() = upper_case(mixed).front();
  EXPECT_NE(find_base(GetParam().name), nullptr);
  EXPECT_EQ(find_base(upper_case(GetParam().name)), find_base(GetParam().name));
  EXPECT_EQ(find_base(mixed), find_base(GetParam().name));
}

TEST_P(EveryBaseType, IsFoundInEveryService) {
  const jt_type *const type = find_base(GetParam().name);
  ASSERT_NE(type, nullptr);
  for (const Service &service : services())
    EXPECT_EQ(find(service.name, GetParam().name), type) << service.name;
}

INSTANTIATE_TEST_SUITE_P(Every, EveryBaseType, ::testing::ValuesIn(base_types()), case_name<BaseType>);

using EveryService = Each<TypeLookup, Service>;

TEST_P(EveryService, HasTheTypesOfItsTable) {
  const Service &service = GetParam();
  for (std::int32_t row = 0; row < service.count; ++row) {
    EXPECT_EQ(find(service.name, service.rows[row].name), &service.rows[row]);
  }
}

TEST_P(EveryService, IsFoundInAnyCase) {
  const Service &service = GetParam();
  std::string mixed = service.name;
  mixed.front() = 'K';
  for (std::int32_t row = 0; row < service.count; ++row) {
    EXPECT_EQ(find(upper_case(service.name), service.rows[row].name), &service.rows[row]);
    EXPECT_EQ(find(mixed, service.rows[row].name), &service.rows[row]);
  }
}

TEST_P(EveryService, HasItsTypesInAnyCase) {
  const Service &service = GetParam();
  for (std::int32_t row = 0; row < service.count; ++row) {
    const std::string name = service.rows[row].name;
    EXPECT_EQ(find(service.name, upper_case(name)), &service.rows[row]);
    EXPECT_EQ(find(service.name, lower_case(name)), &service.rows[row]);
  }
}

TEST_P(EveryService, HasNoTypesOfOtherServices) {
  const Service &own = GetParam();
  for (const Service &other : services()) {
    for (std::int32_t row = 0; row < other.count; ++row) {
      const std::string name = other.rows[row].name;
      const bool is_own = std::any_of(own.rows, own.rows + own.count,
                                      [&name](const jt_type &type) { return type.name == name; });
      EXPECT_EQ(find(own.name, name) != nullptr, is_own) << name;
    }
  }
}

TEST_P(EveryService, HasNoTypeWithoutARowAndReportsNothing) {
  const std::string service = GetParam().name;
  EXPECT_EQ(find(service, "no_such_type"), nullptr);
  EXPECT_EQ(find(service, ""), nullptr);
  EXPECT_EQ(find(service, "aaa"), nullptr);
  EXPECT_EQ(find(service, "zzz"), nullptr);
  EXPECT_EQ(find(service, "integers"), nullptr);
  EXPECT_EQ(find(service, "intege"), nullptr);
  EXPECT_EQ(get_type_from_services(space, service.c_str(), nullptr), nullptr);
  EXPECT_EQ(messages(), Messages{});
  EXPECT_EQ(status(), JT_OK);
}

INSTANTIATE_TEST_SUITE_P(Every, EveryService, ::testing::ValuesIn(services()), case_name<Service>);

// ---- Outside the services ----

TEST_F(TypeLookup, TwoServicesHaveATableButOnlyBaseTypes) {
  for (const char *service : {"kmt_svc_traikubra", "kmt_svc_quillform"}) {
    EXPECT_EQ(find(service, service), nullptr) << service;
    EXPECT_EQ(find(service, "enum_type"), nullptr) << service;
    for (const BaseType &type : base_types()) {
      EXPECT_NE(find(service, type.name), nullptr) << service;
      EXPECT_EQ(find(service, type.name), find_base(type.name)) << service;
    }
  }
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(TypeLookup, UnknownServicesHaveBaseTypesOnly) {
  for (const char *service : {"no_such_service", "kmt_svc_sca", "kmt_svc_scanner", "service", ""}) {
    EXPECT_EQ(find(service, "enum_mediasize"), nullptr) << service;
    EXPECT_EQ(find(service, "kmt_svc_scan"), nullptr) << service;
    EXPECT_NE(find(service, "integer"), nullptr) << service;
  }
}

TEST_F(TypeLookup, NoServiceHasBaseTypesOnly) {
  EXPECT_NE(get_type_from_services(space, nullptr, "integer"), nullptr);
  EXPECT_EQ(get_type_from_services(space, nullptr, "integer"), find_base("integer"));
  EXPECT_EQ(get_type_from_services(space, nullptr, "enum_mediasize"), nullptr);
  EXPECT_EQ(get_type_from_services(space, nullptr, nullptr), nullptr);
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(TypeLookup, StructuresOfTheScannerAreItsOwn) {
  for (const char *type : {"struct_borders", "struct_gutter", "struct_magnification"}) {
    for (const Service &service : services()) {
      EXPECT_EQ(find(service.name, type) != nullptr, service.name == "kmt_svc_scan") << service.name << type;
    }
    EXPECT_EQ(find_base(type), nullptr) << type;
  }
}

TEST_F(TypeLookup, AScanTypeIsNotFoundForThePrinter) {
  EXPECT_EQ(find("kmt_svc_print", "enum_mediasize"), nullptr);
}

TEST_F(TypeLookup, OneNameIsAnotherTypeInAnotherService) {
  EXPECT_EQ(find("kmt_svc_fax", "enum_type"), &fax_type_tab[2]);
  EXPECT_EQ(find("kmt_svc_file", "enum_type"), &file_type_tab[5]);
  EXPECT_EQ(find("kmt_svc_general", "enum_type"), &gen_type_tab[6]);
  EXPECT_EQ(find("kmt_svc_scan", "enum_type"), &scan_type_tab[17]);
  EXPECT_EQ(find("kmt_svc_email", "enum_jobpriority"), &email_type_tab[1]);
  EXPECT_EQ(find("kmt_svc_fax", "enum_jobpriority"), &fax_type_tab[0]);
  EXPECT_EQ(find("kmt_document", "enum_resolution"), &doc_type_tab[10]);
  EXPECT_EQ(find("kmt_svc_scan", "enum_resolution"), &scan_type_tab[14]);
}

TEST_F(TypeLookup, TypesWithCapitalsAreFoundBesideEachOther) {
  EXPECT_EQ(find("kmt_svc_general", "enum_encoding"), &gen_type_tab[3]);
  EXPECT_EQ(find("kmt_svc_general", "enum_RVQ"), &gen_type_tab[4]);
  EXPECT_EQ(find("kmt_svc_general", "enum_rvq"), &gen_type_tab[4]);
}

// The row of the service itself has no operations.
const jt_type *own_row(const jt_type *rows, const char *service) {
  while (std::string_view(rows->name) != service) ++rows;
  EXPECT_EQ(rows->eval, nullptr);
  return rows;
}

TEST(TableOfRow, IsFoundByTheRowOfAServiceInTemplates) {
  const jt_core::TypeTable *const table = jt_core::find_table_of_row(own_row(fax_type_tab, "kmt_svc_fax"));
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->rows, fax_type_tab);
}

TEST(TableOfRow, IsNotFoundByTheRowOfAServiceThatIsOnlyListed) {
  EXPECT_EQ(jt_core::find_table_of_row(own_row(pport_type_tab, "kmt_svc_traikubra")), nullptr);
  EXPECT_EQ(jt_core::find_table_of_row(own_row(qf_type_tab, "kmt_svc_quillform")), nullptr);
}

}  // namespace
}  // namespace jt_test
