// What the commands ask of the catalogue.
#include "core/catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace sil {
namespace {

TEST(Catalogue, TakesTheScopeFromTheNameThenFromTheType) {
  EXPECT_EQ(scope_of("kmt_svc_scan", "Scanner"), "kmt_svc_scan");
  EXPECT_EQ(scope_of("kmt_svc_scan", "kmt_svc_fax"), "kmt_svc_fax");
  EXPECT_EQ(scope_of("service", "KMT_SVC_FAX"), "KMT_SVC_FAX");
  EXPECT_EQ(scope_of("service", "Sorter"), "");
}

TEST(Catalogue, KnowsTheTypesOfServices) {
  EXPECT_TRUE(is_service_type("kmt_svc_scan"));
  EXPECT_TRUE(is_service_type("service"));
  EXPECT_FALSE(is_service_type("kmt_svc_traikubra"));
  EXPECT_FALSE(is_service_type("kmt_svc_scna"));
}

TEST(Catalogue, HasBuiltInTypesInEveryScope) {
  for (const std::string scope : {"", "kmt_svc_scan", "kmt_svc_fax"}) {
    const std::vector<std::string> types = types_in(scope);
    EXPECT_NE(std::find(types.begin(), types.end(), "integer"), types.end()) << scope;
    EXPECT_NE(type_in(scope, "INTEGER"), nullptr) << scope;
  }
  EXPECT_NE(type_in("kmt_svc_scan", "struct_gutter"), nullptr);
  EXPECT_EQ(type_in("kmt_svc_fax", "struct_gutter"), nullptr);
}

TEST(Catalogue, SaysHowValuesOfEveryTypeAreWritten) {
  std::vector<std::string> scopes = services_of_catalogue();
  scopes.emplace_back();
  for (const std::string &scope : scopes)
    for (const std::string &type : types_in(scope)) EXPECT_NE(form_of(type), "") << scope << " " << type;
}

TEST(Catalogue, SaysTheRangesOfTheLibrary) {
  EXPECT_EQ(form_of("INTEGER"), "a whole number from -2147483648 to 2147483647");
  EXPECT_EQ(form_of("timestamp"), "YYYY/MM/DD/HH/MM/SS, nineteen characters");
  EXPECT_EQ(form_of("struct_timeofday"), "hour:minute; hour 0 to 23; minute 0 to 59");
  EXPECT_EQ(form_of("struct_gutter"), "width/width/unit; width 0 to 25 MM, 0 to 100 IN, 0 to 1000 MIL");
  EXPECT_EQ(form_of("enum_sided"), "a name of the list");
}

TEST(Catalogue, KnowsNoFormOfABlockAndOfWhatIsNoType) {
  EXPECT_EQ(form_of("kmt_svc_scan"), "");
  EXPECT_EQ(form_of("enum_siced"), "");
}

TEST(Catalogue, ListsTheNamesOfAScopeWithTheirNumbers) {
  const std::vector<EnumeratedName> names = names_in_scope("");
  const auto mil =
      std::find_if(names.begin(), names.end(), [](const EnumeratedName &one) { return one.name == "MIL"; });
  ASSERT_NE(mil, names.end());
  EXPECT_EQ(mil->number, 22U);
}

}  // namespace
}  // namespace sil
