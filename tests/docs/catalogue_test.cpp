// The pages of services with their types and value names: everything that the tables have is on them.
#include "catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/program.h"

namespace jt_docs {
namespace {

using Service = jt_core::ServiceTypes;

bool is_on_page(const Service &service, const std::string &part) {
  return write_service(service).find(part) != std::string::npos;
}

const Service &service_of(const jt_type *table) {
  const auto services = jt_core::services();
  return *std::find_if(services.begin(), services.end(),
                       [table](const Service &service) { return service.types.rows == table; });
}

TEST(Catalogue, HasEveryTypeOfEveryTable) {
  for (const Service &service : jt_core::services()) {
    for (std::int32_t i = 0; i < service.types.count; ++i) {
      const std::string name = service.types.rows[i].name;
      const bool is_service = service.types.rows[i].eval == nullptr;
      EXPECT_TRUE(is_on_page(service, is_service ? "# " + name + "\n" : "- `" + name + "`\n")) << name;
    }
  }
}

TEST(Catalogue, NamesAServiceAsATemplateDoes) {
  EXPECT_TRUE(is_on_page(service_of(fax_type_tab), "# kmt_svc_fax\n"));
}

TEST(Catalogue, SaysWhereAServiceHasNoTypesOrNames) {
  const Service &service = service_of(docman_type_tab);
  EXPECT_TRUE(is_on_page(service, "None; the base types serve.\n"));
  EXPECT_TRUE(is_on_page(service, "there are no value names"));
}

TEST(Catalogue, HasEveryNameOfEveryList) {
  EXPECT_EQ(names_of(jt_core::kBaseValues).size(), 24U);
  EXPECT_EQ(names_of(jt_core::kDocumentValues).size(), 161U);
  EXPECT_EQ(names_of(jt_core::kEmailValues).size(), 6U);
  EXPECT_EQ(names_of(jt_core::kFaxValues).size(), 8U);
  EXPECT_EQ(names_of(jt_core::kFileValues).size(), 40U);
  EXPECT_EQ(names_of(jt_core::kGeneralValues).size(), 49U);
  EXPECT_EQ(names_of(jt_core::kMetadataValues).size(), 3U);
  EXPECT_EQ(names_of(jt_core::kOcrValues).size(), 544U);
  EXPECT_EQ(names_of(jt_core::kPrintValues).size(), 20U);
  EXPECT_EQ(names_of(jt_core::kScanValues).size(), 130U);
  EXPECT_EQ(names_of(jt_core::kValidationValues).size(), 4U);
}

TEST(Catalogue, ShowsEveryNameWithItsNumber) {
  for (const Service &service : jt_core::services()) {
    if (service.values == nullptr) continue;
    for (const Name &name : names_of(*service.values)) {
      const std::string item = "- `" + std::string(name.text) + "` " + std::to_string(name.number);
      EXPECT_TRUE(is_on_page(service, item)) << name.text;
    }
  }
}

TEST(Catalogue, ShowsWhichOfTwoNamesIsWritten) {
  const Service &service = service_of(scan_type_tab);
  EXPECT_TRUE(is_on_page(service, "- `NA_11x9LEF` 55, written as `NA_9x11LEF`\n"));
  EXPECT_TRUE(is_on_page(service, "- `NA_9x11LEF` 55\n"));
}

TEST(Catalogue, LeadsToEveryService) {
  const std::string page = jt_test::read_whole(JT_SOURCE_DIR "/docs/catalogue.md");
  for (const Service &service : jt_core::services()) {
    const std::string link =
        "| [" + std::string(service.name) + "](catalogue/" + std::string(service.name) + ".md) |";
    EXPECT_NE(page.find(link), std::string::npos) << link;
  }
}

TEST(Catalogue, TellsOfEveryBaseType) {
  const std::string page = jt_test::read_whole(JT_SOURCE_DIR "/docs/catalogue.md");
  for (const char *name :
       {"boolean", "integer", "real", "string", "timestamp", "struct_timeofday", "struct_rectangle",
        "ref_invocation", "ref_collection", "enum_units", "enum_systemidalgorithm", "kmt_enum_status"}) {
    EXPECT_NE(get_type_from_services(nullptr, nullptr, name), nullptr) << name;
    EXPECT_NE(page.find("| `" + std::string(name) + "` |"), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace jt_docs
