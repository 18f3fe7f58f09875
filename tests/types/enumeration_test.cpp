// The eleven value lists, name by name and number by number, and the enumerated values that they give: known
// names become numbers, unknown ones are kept as they are written.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "types/value_cases.h"
#include "types/value_catalogue.h"
#include "types/value_lists.h"

namespace jt_test {
namespace {

// Every other letter in the other case, starting with the second.
std::string mixed(const std::string &text) {
  std::string changed = lower_case(text);
  const std::string capitals = upper_case(text);
  for (std::size_t i = 0; i < changed.size(); i += 2) changed[i] = capitals[i];
  return changed;
}

std::uint32_t number_read(jt_parser_space *space, const jt_type *type, const std::string &name) {
  const OwnedValue value = evaluated(space, type, name);
  return value != nullptr ? number_of(value.get()) : kMarker;
}

// The library's own list, which alone can tell every name that is read.
const jt_core::ValueList &list_of_library(const std::string &name) {
  static const std::map<std::string, const jt_core::ValueList *> lists = {
      {"Base", &jt_core::kBaseValues},
      {"Document", &jt_core::kDocumentValues},
      {"Email", &jt_core::kEmailValues},
      {"Fax", &jt_core::kFaxValues},
      {"File", &jt_core::kFileValues},
      {"General", &jt_core::kGeneralValues},
      {"Metadata", &jt_core::kMetadataValues},
      {"Ocr", &jt_core::kOcrValues},
      {"Print", &jt_core::kPrintValues},
      {"Scan", &jt_core::kScanValues},
      {"Validation", &jt_core::kValidationValues},
  };
  return *lists.at(name);
}

std::map<std::string, std::uint32_t> rows_of_library(const jt_core::ValueList &list) {
  std::map<std::string, std::uint32_t> rows;
  for (std::size_t slot = 0; slot <= list.last_slot; ++slot) {
    if (list.slots[slot] == 0) continue;
    const std::size_t row = list.slots[slot] - 1U;
    const char *const name = list.characters + list.begins[row];
    rows[std::string(name, list.characters + list.begins[row + 1])] = list.numbers[row];
  }
  return rows;
}

class ValueList : public SessionTest, public ::testing::WithParamInterface<Catalogue> {
 protected:
  ValueList() : list(GetParam()), type(get_type_from_services(space, list.service, list.types.front())) {}

  void SetUp() override {
    ASSERT_NE(type, nullptr);
    ASSERT_EQ(list.rows.size(), list.count);
  }

  void expect_every_name_read(std::string (*spelling)(std::string)) {
    for (const ListRow &row : list.rows) {
      EXPECT_EQ(number_read(space, type, spelling(row.name)), row.number) << spelling(row.name);
    }
    EXPECT_EQ(messages(), Messages{});
  }

  const Catalogue list;
  const jt_type *const type;
};

TEST_P(ValueList, IsTheCatalogueNameByName) {
  std::map<std::string, std::uint32_t> catalogue;
  for (const ListRow &row : list.rows) catalogue[row.name] = row.number;
  EXPECT_EQ(rows_of_library(list_of_library(list.name)), catalogue);
}

TEST_P(ValueList, EveryTypeReadsEveryName) {
  for (const char *type_name : list.types) {
    const jt_type *const each = get_type_from_services(space, list.service, type_name);
    ASSERT_NE(each, nullptr) << type_name;
    for (const ListRow &row : list.rows) {
      EXPECT_EQ(number_read(space, each, row.name), row.number) << type_name << " " << row.name;
    }
  }
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(ValueList, NamesAreReadInLowerCase) { expect_every_name_read(lower_case); }

TEST_P(ValueList, NamesAreReadInUpperCase) { expect_every_name_read(upper_case); }

TEST_P(ValueList, NamesAreReadInMixedCase) {
  expect_every_name_read([](std::string name) { return mixed(name); });
}

TEST_P(ValueList, EveryNameIsWrittenInTheListsOwnSpelling) {
  const auto names = written_names(list);
  for (const ListRow &row : list.rows) {
    const OwnedValue value = evaluated(space, type, lower_case(row.name));
    ASSERT_NE(value, nullptr) << row.name;
    EXPECT_EQ(take_text(type->deval(space, value.get())), names.at(row.number)) << row.name;
  }
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(ValueList, EveryNumberIsWrittenAsItsName) {
  for (const auto &[number, name] : written_names(list)) {
    const ClientValue value(number);
    EXPECT_EQ(take_text(type->deval(space, value.get())), name) << number;
  }
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(ValueList, NumbersWithoutARowAreNotWritten) {
  const auto names = written_names(list);
  int unknown = 0;
  for (std::uint32_t number = 0; number <= 600; ++number) {
    if (names.contains(number)) continue;
    ++unknown;
    EXPECT_EQ(type->deval(space, ClientValue(number).get()), nullptr) << number;
    ASSERT_FALSE(messages().empty()) << number;
    EXPECT_EQ(messages().back(), kUnknownNumber) << number;
    EXPECT_EQ(status(), JT_CALL_ERROR) << number;
  }
  EXPECT_EQ(unknown, 601 - static_cast<int>(names.size()));
}

TEST_P(ValueList, NumbersBeyondTheSignedRangeAreNotWritten) {
  for (const std::uint32_t number : {0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFEU}) {
    EXPECT_EQ(type->deval(space, ClientValue(number).get()), nullptr) << number;
  }
  EXPECT_EQ(messages(), Messages(3, kUnknownNumber));
}

TEST_P(ValueList, NamesCutShortOrContinuedAreUnknown) {
  std::set<std::string> known;
  for (const ListRow &row : list.rows) known.insert(lower_case(row.name));
  for (const ListRow &row : list.rows) {
    const std::string name = row.name;
    for (const std::string &other : {name.substr(0, name.size() - 1), name + "X", name + " ", " " + name}) {
      if (known.contains(lower_case(other))) continue;
      EXPECT_EQ(number_read(space, type, other), kMarker) << other;
      ASSERT_FALSE(messages().empty()) << other;
      EXPECT_EQ(messages().back(), unknown_name(other));
    }
  }
}

TEST_P(ValueList, AnUnknownNameIsKeptAsItIsWritten) {
  const OwnedValue value = evaluated(space, type, "No_Such Name");
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(number_of(value.get()), kMarker);
  EXPECT_EQ(text_of(value.get()), "No_Such Name");
  EXPECT_EQ(messages(), Messages({"WARNING: trying to evaluate as an 'enumerated' type:No_Such Name ..."}));
  EXPECT_EQ(status(), JT_WARNING);
}

TEST_P(ValueList, AnUnknownNameIsWrittenAsItWasReadWithAReport) {
  const OwnedValue value = evaluated(space, type, "FOO");
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(take_text(type->deval(space, value.get())), "FOO");
  EXPECT_EQ(messages(), Messages({"WARNING: trying to evaluate as an 'enumerated' type:FOO ...",
                                  "CALL ERROR: Unknown enumerated value ..."}));
  EXPECT_EQ(status(), JT_CALL_ERROR);
}

TEST_P(ValueList, TheEmptyTextIsAnUnknownName) {
  const OwnedValue value = evaluated(space, type, "");
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(number_of(value.get()), kMarker);
  EXPECT_EQ(text_of(value.get()), "");
  EXPECT_EQ(take_text(type->deval(space, value.get())), "");
  EXPECT_EQ(messages(), Messages({"WARNING: trying to evaluate as an 'enumerated' type: ...",
                                  "CALL ERROR: Unknown enumerated value ..."}));
}

TEST_P(ValueList, ACopyOfAnUnknownNameHasItsText) {
  const OwnedValue value = evaluated(space, type, "FOO bar");
  const OwnedValue copy = copied(space, type, value.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, value);
  EXPECT_EQ(number_of(copy.get()), kMarker);
  EXPECT_EQ(text_of(copy.get()), "FOO bar");
  EXPECT_EQ(messages(), Messages({unknown_name("FOO bar")}));
}

TEST_P(ValueList, ACopyOfANumberIsItsNumberAlone) {
  for (const std::uint32_t number : {0U, 7U, 0x7FFFFFFFU, 0xFFFFFFFEU}) {
    const OwnedValue copy = copied(space, type, ClientValue(number).get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(number_of(copy.get()), number);
  }
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(ValueList, LongUnknownNamesAreKeptWhole) {
  const std::string name(3000, 'q');
  const OwnedValue value = evaluated(space, type, name);
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(text_of(value.get()), name);
  const OwnedValue copy = copied(space, type, value.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(take_text(type->deval(space, copy.get())), name);
  EXPECT_EQ(messages(), Messages({unknown_name(name), kUnknownNumber}));
}

TEST_P(ValueList, AnyTwoUnknownNamesAreEqual) {
  const OwnedValue foo = evaluated(space, type, "FOO");
  const OwnedValue bar = evaluated(space, type, "BAR");
  EXPECT_EQ(type->cmp(space, foo.get(), bar.get()), 0);
  EXPECT_EQ(type->cmp(space, bar.get(), foo.get()), 0);
}

TEST_P(ValueList, AnUnknownNameIsGreaterThanEveryKnownOne) {
  const OwnedValue unknown = evaluated(space, type, "FOO");
  for (const ListRow &row : list.rows) {
    const OwnedValue known = evaluated(space, type, row.name);
    EXPECT_EQ(type->cmp(space, known.get(), unknown.get()), -1) << row.name;
    EXPECT_EQ(type->cmp(space, unknown.get(), known.get()), 1) << row.name;
  }
}

TEST_P(ValueList, NumbersCompareWithoutASign) {
  const ClientValue one(1U);
  const ClientValue two(2U);
  const ClientValue high(0x80000000U);
  EXPECT_EQ(type->cmp(space, one.get(), two.get()), -1);
  EXPECT_EQ(type->cmp(space, two.get(), one.get()), 1);
  EXPECT_EQ(type->cmp(space, two.get(), two.get()), 0);
  EXPECT_EQ(type->cmp(space, two.get(), high.get()), -1);
  EXPECT_EQ(type->cmp(space, high.get(), two.get()), 1);
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(ValueList, ReadingLeavesTheTextAsItIs) {
  PrivateText known(list.rows.front().name);
  PrivateText unknown("Foo/Bar:Baz");
  const KillValue kill{space, type};
  const OwnedValue first(type->eval(space, known.get()), kill);
  const OwnedValue second(type->eval(space, unknown.get()), kill);
  EXPECT_EQ(known.bytes(), list.rows.front().name);
  EXPECT_EQ(unknown.bytes(), "Foo/Bar:Baz");
}

INSTANTIATE_TEST_SUITE_P(Every, ValueList, ::testing::ValuesIn(catalogues()), case_name<Catalogue>);

// ---- Numbers with two names ----

// A name of a service's type that is read, its number, and the name that is written.
struct PaperSize {
  std::string name;
  const char *service;
  const char *type;
  const char *read;
  std::uint32_t number;
  const char *written;
};

std::ostream &operator<<(std::ostream &out, const PaperSize &size) { return out << size.read; }

class PaperWithTwoNames : public SessionTest, public ::testing::WithParamInterface<PaperSize> {};

TEST_P(PaperWithTwoNames, IsWrittenWithTheOneName) {
  const PaperSize size = GetParam();
  const jt_type *const type = get_type_from_services(space, size.service, size.type);
  ASSERT_NE(type, nullptr);
  const OwnedValue value = evaluated(space, type, size.read);
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(number_of(value.get()), size.number);
  EXPECT_EQ(take_text(type->deval(space, value.get())), size.written);
  EXPECT_EQ(messages(), Messages{});
}

PaperSize scanned(const char *name, const char *read, std::uint32_t number, const char *written) {
  return {name, "kmt_svc_scan", "enum_mediasize", read, number, written};
}

PaperSize output(const char *name, const char *read, std::uint32_t number, const char *written) {
  return {name, "kmt_document", "enum_outputsize", read, number, written};
}

INSTANTIATE_TEST_SUITE_P(Scan, PaperWithTwoNames,
                         ::testing::Values(scanned("First55", "NA_9x11LEF", 55, "NA_9x11LEF"),
                                           scanned("Second55", "NA_11x9LEF", 55, "NA_9x11LEF"),
                                           scanned("First56", "NA_8x10LEF", 56, "NA_8x10LEF"),
                                           scanned("Second56", "NA_10x8LEF", 56, "NA_8x10LEF"),
                                           scanned("First57", "NA_7.25x10.5LEF", 57, "NA_7.25x10.5LEF"),
                                           scanned("Second57", "NA_10.5x7.25LEF", 57, "NA_7.25x10.5LEF"),
                                           scanned("First58", "NA_8x10.5LEF", 58, "NA_8x10.5LEF"),
                                           scanned("Second58", "NA_10.5x8LEF", 58, "NA_8x10.5LEF"),
                                           scanned("First59", "NA_229x288LEF", 59, "NA_229x288LEF"),
                                           scanned("Second59", "NA_288x229LEF", 59, "NA_229x288LEF"),
                                           scanned("First60", "NA_229x234LEF", 60, "NA_229x234LEF"),
                                           scanned("Second60", "NA_234x229LEF", 60, "NA_229x234LEF")),
                         case_name<PaperSize>);

INSTANTIATE_TEST_SUITE_P(Document, PaperWithTwoNames,
                         ::testing::Values(output("First9", "NA_10.5x7.25LEF", 9, "NA_10.5x7.25LEF"),
                                           output("Second9", "NA_7.25x10.5LEF", 9, "NA_10.5x7.25LEF"),
                                           output("First11", "NA_10x8LEF", 11, "NA_10x8LEF"),
                                           output("Second11", "NA_8x10LEF", 11, "NA_10x8LEF"),
                                           output("First21", "NA_11x9LEF", 21, "NA_11x9LEF"),
                                           output("Second21", "NA_9x11LEF", 21, "NA_11x9LEF"),
                                           output("First50", "NA_10.5x8LEF", 50, "NA_10.5x8LEF"),
                                           output("Second50", "NA_8x10.5LEF", 50, "NA_10.5x8LEF"),
                                           output("First60", "NA_229x234LEF", 60, "NA_229x234LEF"),
                                           output("Second60", "NA_234x229LEF", 60, "NA_229x234LEF"),
                                           output("First61", "NA_229x288LEF", 61, "NA_229x288LEF"),
                                           output("Second61", "NA_288x229LEF", 61, "NA_229x288LEF")),
                         case_name<PaperSize>);

// ---- Facts of single lists ----

class EnumerationTest : public SessionTest {
 protected:
  // The text that a name of a service's type is written back as.
  std::string round_trip(const char *service, const char *type_name, const std::string &name) {
    const jt_type *const type = get_type_from_services(space, service, type_name);
    if (type == nullptr) return "(no type)";
    const OwnedValue value = evaluated(space, type, name);
    return take_text(type->deval(space, value.get()));
  }
};

TEST_F(EnumerationTest, WritingGivesTheListsOwnSpelling) {
  EXPECT_EQ(round_trip("kmt_svc_scan", "enum_mediasize", "iso_a4sef"), "ISO_A4SEF");
  EXPECT_EQ(round_trip("kmt_document", "enum_outputsize", "JIS_B6SEF"), "JIS_b6SEF");
  EXPECT_EQ(round_trip("kmt_document", "enum_docformat", "pdf/A-1B"), "PDF/A-1b");
  EXPECT_EQ(round_trip("kmt_svc_general", "enum_type", "VANTUSIMPLEPASSWORD_1"), "VantuSimplePassword_1");
  EXPECT_EQ(round_trip("kmt_svc_ocr", "enum_conversionlanguage", "gwich'in"), "GWICH'IN");
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(EnumerationTest, TypesOfOneServiceAcceptEachOthersNames) {
  EXPECT_EQ(round_trip("kmt_svc_fax", "enum_type", "URGENT"), "URGENT");
  EXPECT_EQ(round_trip("kmt_svc_fax", "enum_transmissionmode", "144_bps"), "144_BPS");
  EXPECT_EQ(round_trip("", "enum_units", "KMT_STATUS_ERROR"), "KMT_STATUS_ERROR");
  EXPECT_EQ(round_trip("", "kmt_enum_status", "MIL"), "MIL");
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(EnumerationTest, ServicesDoNotAcceptEachOthersNames) {
  EXPECT_EQ(round_trip("kmt_svc_fax", "enum_type", "SMTP"), "SMTP");
  EXPECT_EQ(messages(), Messages({unknown_name("SMTP"), kUnknownNumber}));
}

TEST_F(EnumerationTest, OneTypeNameHasTheListOfItsService) {
  const jt_type *const email = get_type_from_services(space, "kmt_svc_email", "enum_jobpriority");
  const jt_type *const fax = get_type_from_services(space, "kmt_svc_fax", "enum_jobpriority");
  EXPECT_EQ(number_read(space, email, "LOW"), 5U);
  EXPECT_EQ(number_read(space, fax, "LOW"), 5U);
  EXPECT_EQ(number_read(space, email, "NORMAL"), 4U);
  EXPECT_EQ(number_read(space, fax, "NORMAL"), 6U);
  EXPECT_EQ(number_read(space, email, "URGENT"), 3U);
  EXPECT_EQ(number_read(space, fax, "URGENT"), 7U);
}

TEST_F(EnumerationTest, BlanksBehindANameBelongToIt) {
  const jt_type *const language = get_type_from_services(space, "kmt_svc_ocr", "enum_conversionlanguage");
  EXPECT_EQ(number_read(space, language, "MAYAN_LANGUAGES  "), 348U);
  EXPECT_EQ(number_read(space, language, "MAYAN_LANGUAGES"), kMarker);
  EXPECT_EQ(messages(), Messages({unknown_name("MAYAN_LANGUAGES")}));
}

TEST_F(EnumerationTest, BytesBeyondAsciiAreNotFolded) {
  EXPECT_EQ(round_trip("kmt_svc_ocr", "enum_conversionlanguage", "\xc4\xe4"), "\xc4\xe4");
  EXPECT_EQ(messages(), Messages({unknown_name("\xc4\xe4"), kUnknownNumber}));
}

TEST_F(EnumerationTest, TheNumbersLeftOutOfTheListsHaveNoName) {
  const jt_type *const language = get_type_from_services(space, "kmt_svc_ocr", "enum_conversionlanguage");
  const jt_type *const size = get_type_from_services(space, "kmt_document", "enum_outputsize");
  EXPECT_EQ(language->deval(space, ClientValue(210U).get()), nullptr);
  EXPECT_EQ(size->deval(space, ClientValue(28U).get()), nullptr);
  EXPECT_EQ(size->deval(space, ClientValue(62U).get()), nullptr);
  EXPECT_EQ(messages(), Messages(3, kUnknownNumber));
}

}  // namespace
}  // namespace jt_test
