// The page of services, types and value names: everything that the tables have is on it.
#include "catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace jt_docs {
namespace {

bool is_on_page(const std::string &part) {
  static const std::string kPage = write_catalogue();
  return kPage.find(part) != std::string::npos;
}

TEST(Catalogue, HasEveryTypeOfEveryTable) {
  for (const Service &service : kServices) {
    for (std::int32_t i = 0; i < service.count; ++i) {
      const std::string name = service.rows[i].name;
      const bool is_service = service.rows[i].eval == nullptr;
      EXPECT_TRUE(is_on_page(is_service ? "## " + name + " {#" : "`" + name + "`")) << name;
    }
  }
}

TEST(Catalogue, HasEveryTableOnce) {
  for (const Service &service : kServices) {
    const auto same = [&](const Service &other) { return other.rows == service.rows; };
    EXPECT_EQ(std::count_if(kServices.begin(), kServices.end(), same), 1) << service.table_name;
  }
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
  for (const Service &service : kServices) {
    if (service.names == nullptr) continue;
    for (const Name &name : names_of(*service.names)) {
      const std::string number = "<li><span>" + std::to_string(name.number) + "</span> ";
      EXPECT_TRUE(is_on_page(number + "``" + std::string(name.text) + "``")) << name.text;
    }
  }
}

TEST(Catalogue, ShowsWhichOfTwoNamesIsWritten) {
  EXPECT_TRUE(is_on_page("<li><span>55</span> ``NA_11x9LEF`` written as ``NA_9x11LEF``</li>"));
  EXPECT_TRUE(is_on_page("<li><span>55</span> ``NA_9x11LEF``</li>"));
}

TEST(Catalogue, ShowsHowABaseTypeIsWritten) { EXPECT_TRUE(is_on_page("| `struct_timeofday` | `20:5` |\n")); }

}  // namespace
}  // namespace jt_docs
