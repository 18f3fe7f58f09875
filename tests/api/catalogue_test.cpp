// The catalogue: every service with its types and every name with its number, and what is none.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "jt.h"
#include "support/session.h"

namespace jt_test {
namespace {

using Names = std::vector<std::string>;

Names all_services() {
  Names names;
  for (int32_t i = 0; jt_catalogue_service(i) != nullptr; ++i) names.emplace_back(jt_catalogue_service(i));
  return names;
}

Names names_of_service(const char *service) {
  Names names;
  uint32_t number = 0;
  for (int32_t i = 0;; ++i) {
    const OwnedText name(jt_catalogue_name(service, i, &number));
    if (name == nullptr) return names;
    names.push_back(std::string(name.get()) + " " + std::to_string(number));
  }
}

TEST(Catalogue, HasTheFourteenServices) {
  Names services = all_services();
  std::sort(services.begin(), services.end());
  EXPECT_EQ(services, (Names{"kmt_document", "kmt_dscrpt_metadata", "kmt_svc_desktop", "kmt_svc_docman",
                             "kmt_svc_email", "kmt_svc_fax", "kmt_svc_file", "kmt_svc_general",
                             "kmt_svc_notification", "kmt_svc_ocr", "kmt_svc_paperware", "kmt_svc_print",
                             "kmt_svc_scan", "kmt_svc_validation"}));
}

TEST(Catalogue, HasNoServiceBeforeTheFirstOrFarBehindTheLast) {
  for (const int32_t index : {-1, INT32_MIN, 14, 15, 16, INT32_MAX})
    EXPECT_EQ(jt_catalogue_service(index), nullptr) << index;
}

TEST(Catalogue, HasTheTypesOfAServiceAsTheTableHasThem) {
  int32_t count = -1;
  EXPECT_EQ(jt_catalogue_types("kmt_svc_scan", &count), scan_type_tab);
  EXPECT_EQ(count, 22);
  EXPECT_EQ(jt_catalogue_types("KMT_SVC_FAX", &count), fax_type_tab);
  EXPECT_EQ(count, 4);
  EXPECT_EQ(jt_catalogue_types("kmt_svc_ocr", nullptr), ocr_type_tab);
}

TEST(Catalogue, HasTheBuiltInTypesOfNoService) {
  int32_t count = -1;
  const jt_type *const types = jt_catalogue_types(nullptr, &count);
  ASSERT_EQ(count, 21);
  EXPECT_STREQ(types[0].name, "boolean");
  EXPECT_STREQ(types[20].name, "unknown_type");
}

TEST(Catalogue, HasNoTypesOfWhatIsNoService) {
  for (const char *const service :
       {"", "kmt_svc_coffee", "kmt_svc_traikubra", "kmt_svc_quillform", "service"}) {
    int32_t count = -1;
    EXPECT_EQ(jt_catalogue_types(service, &count), nullptr) << service;
    EXPECT_EQ(count, 0) << service;
  }
}

TEST(Catalogue, HasTheNamesOfAServiceInTheirOrder) {
  EXPECT_EQ(names_of_service("kmt_svc_email"),
            (Names{"LOW 5", "MHS 1", "NORMAL 4", "SMTP 0", "URGENT 3", "XNS 2"}));
  EXPECT_EQ(names_of_service("kmt_svc_FAX"), (Names{"144_BPS 3", "336_BPS 4", "AUTO 0", "FASTEST_POSSIBLE 1",
                                                    "FORCED_4800BAUD 2", "LOW 5", "NORMAL 6", "URGENT 7"}));
}

TEST(Catalogue, HasAsManyNamesAsThereAre) {
  EXPECT_EQ(names_of_service(nullptr).size(), 24U);
  EXPECT_EQ(names_of_service("kmt_document").size(), 161U);
  EXPECT_EQ(names_of_service("kmt_svc_ocr").size(), 544U);
}

TEST(Catalogue, HasSeveralNamesForOneNumber) {
  const Names names = names_of_service("kmt_document");
  EXPECT_EQ(std::count(names.begin(), names.end(), "NA_11x9LEF 21"), 1);
  EXPECT_EQ(std::count(names.begin(), names.end(), "NA_9x11LEF 21"), 1);
}

TEST(Catalogue, HasNoNamesOfAServiceWithoutEnumerationsOrOfNone) {
  for (const char *const service : {"kmt_svc_notification", "kmt_svc_desktop", "kmt_svc_coffee", ""}) {
    EXPECT_EQ(names_of_service(service), Names{}) << service;
  }
}

TEST(Catalogue, LeavesTheNumberAloneWhereThereIsNoName) {
  uint32_t number = 77;
  EXPECT_EQ(jt_catalogue_name("kmt_svc_email", -1, &number), nullptr);
  EXPECT_EQ(jt_catalogue_name("kmt_svc_email", 6, &number), nullptr);
  EXPECT_EQ(number, 77U);
  const OwnedText name(jt_catalogue_name("kmt_svc_email", 0, nullptr));
  EXPECT_STREQ(name.get(), "LOW");
}

}  // namespace
}  // namespace jt_test
