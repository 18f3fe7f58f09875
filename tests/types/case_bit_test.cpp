// One bit tells a small letter from its capital, and other characters from each other: only letters fold.
// Names that differ in that bit elsewhere may well meet in a table, but they are never the same.
#include <gtest/gtest.h>

#include <string>

#include "support/job.h"

namespace jt_test {
namespace {

constexpr char kAlmostScan[] = "kmt\x7Fsvc_scan";
constexpr char kAlmostColorMode[] =
    "enum\x7F"
    "colormode";

class CaseBit : public JobTest {
 protected:
  CaseBit() { decode_scan(""); }
};

TEST_F(CaseBit, IsOfNoAccountForLettersOnly) {
  EXPECT_NE(get_type_from_services(space, "KMT_SVC_SCAN", "ENUM_COLORMODE"), nullptr);
  EXPECT_EQ(get_type_from_services(space, kAlmostScan, "enum_colormode"), nullptr);
  EXPECT_EQ(get_type_from_services(space, "kmt_svc_scan", kAlmostColorMode), nullptr);
  EXPECT_NE(get_type_from_services(space, kAlmostScan, "integer"), nullptr) << "a base type";
  EXPECT_EQ(get_type_from_services(space, kAlmostScan, "i\x4Eteger\x01"), nullptr);
}

TEST_F(CaseBit, TellsServicesApart) {
  EXPECT_EQ(jt_add_service(space, job, "service", "a_"), 1);
  EXPECT_EQ(jt_add_service(space, job, "service", "A\x7F"), 1);
  EXPECT_EQ(jt_add_service(space, job, "service", "A_"), 0);
  EXPECT_EQ(service_names(), (Texts{"Scan", "a_", "A\x7F"}));
}

TEST_F(CaseBit, TellsAttributesApartAmongFewAndAmongMany) {
  Texts names = {"a@", "a`", "a[", "a{", "a_", "a\x7F", "a\xC4", "a\xE4", "a0", "a\x10"};
  for (const char c : {'\x01', '\x21', '\x02', '\x22', '\x03', '\x23', '\x04', '\x24', '\x05', '\x25'})
    names.push_back(std::string("b") + c);
  for (const std::string &name : names) EXPECT_EQ(add_attribute("integer", name.c_str()), 1) << name;
  for (const std::string &name : names) EXPECT_EQ(add_attribute("integer", name.c_str()), 0) << name;
  EXPECT_EQ(attribute_names(), names);
  for (const std::string &name : names) EXPECT_EQ(delete_attribute(name.c_str()), 1) << name;
  EXPECT_EQ(attribute_names(), Texts{});
}

TEST_F(CaseBit, TellsEnumeratedNamesApart) {
  EXPECT_EQ(add_attribute("enum_mediasize", "size"), 1);
  EXPECT_EQ(add_text("size", "iso_a4sef"), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(add_text("size",
                     "iso\x7F"
                     "a4sef"),
            1);
  EXPECT_EQ(values("size"), (Texts{"ISO_A4SEF",
                                   "iso\x7F"
                                   "a4sef"}));
}

TEST_F(CaseBit, TellsValuesApartAmongMany) {
  EXPECT_EQ(add_attribute("string", "s"), 1);
  for (int i = 0; i < 40; ++i) EXPECT_EQ(add_text("s", std::to_string(i).c_str()), 1);
  EXPECT_EQ(add_text("s", "a_"), 1);
  EXPECT_EQ(add_text("s", "A\x7F"), 1);
  EXPECT_EQ(delete_text("s", "a\x7F"), 1);
  EXPECT_EQ(delete_text("s", "a\x7F"), 0);
  EXPECT_EQ(delete_text("s", "A_"), 1);
}

}  // namespace
}  // namespace jt_test
