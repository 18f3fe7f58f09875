// Typed values: what they are read into and made of, how they compare, and that no value gets where another
// type is expected.
#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

using jt::Category;

class Values : public CppTest {
 protected:
  jt::Value parsed(const char *type, const char *text, const char *service = nullptr) {
    return session.parse(type, text, service).value_or(jt::Value());
  }

  // Puts a C++ value into a new attribute and reads it back, as itself and as text.
  template <jt::Typed T>
  void expect_kept(const T &value, const char *text) {
    ASSERT_TRUE(scanner.add_attribute(jt::type_name_of<T>, "New"));
    ASSERT_TRUE(scanner.add("New", value));
    EXPECT_TRUE(*scanner.get<T>("New") == value);
    EXPECT_EQ(*scanner.text("New"), text);
    EXPECT_TRUE(scanner.set("New", value));
    EXPECT_EQ(words_of(scanner.texts("New")), Words{text});
    EXPECT_TRUE(*scanner.parse("New", text).value().as<T>() == value);
  }
};

// ---- Owners ----

TEST_F(Values, AreEmptyAtFirst) {
  const jt::Value value;
  EXPECT_FALSE(value);
  EXPECT_EQ(value.get(), nullptr);
  EXPECT_EQ(value.type(), nullptr);
  EXPECT_TRUE(has_no_session(value.text()));
  EXPECT_TRUE(has_no_session(value.copy()));
  EXPECT_TRUE(has_no_session(value.as<bool>()));
}

TEST_F(Values, AreParsed) {
  const jt::Result<jt::Value> value = session.parse("integer", "+007");
  EXPECT_EQ(*value->text(), "7");
  EXPECT_STREQ(value->type()->name, "integer");
  EXPECT_EQ(*session.parse("enum_sided", "two_sided", "kmt_svc_scan").value().text(), "TWO_SIDED");
}

TEST_F(Values, AreRefusedWhereTheTypeDoesNotReadThem) {
  EXPECT_TRUE(
      failed(session.parse("integer", "x"), Category::syntax_error,
             {"SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\nx ..."}));
  EXPECT_TRUE(failed(session.parse("enum_sided", "x"), Category::call_error,
                     {"CALL ERROR: unknown type decodex ..."}));
  EXPECT_TRUE(failed(session.parse("service", "x"), Category::system_error,
                     {"SYSTEM ERROR: undefined cmp function forservice ..."}));
  EXPECT_TRUE(failed_silently(session.parse("integer", nullptr)));
}

TEST_F(Values, Copy) {
  const jt::Value value = parsed("string", "words");
  const jt::Result<jt::Value> copy = value.copy();
  EXPECT_EQ(*copy->text(), "words");
  EXPECT_NE(copy->get(), value.get());
}

TEST_F(Values, Move) {
  jt::Value value = parsed("integer", "1");
  jt::Value moved(std::move(value));
  EXPECT_FALSE(value);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(*moved.as<std::int32_t>(), 1);
  value = std::move(moved);
  EXPECT_EQ(*value.text(), "1");
}

TEST_F(Values, StayWhenMovedToThemselves) {
  jt::Value value = parsed("integer", "1");
  jt::Value &same = value;
  value = std::move(same);
  EXPECT_EQ(*value.as<std::int32_t>(), 1);
}

TEST_F(Values, AreTakenOverAndGivenUp) {
  const jt_type *const type = get_type_from_services(session.get(), nullptr, "integer");
  jt::Value value(session, *type, jt_decode_value(session.get(), "integer", "5", nullptr));
  EXPECT_EQ(*value.as<std::int32_t>(), 5);
  EXPECT_EQ(value.type(), type);
  jt_value *const released = value.release();
  EXPECT_FALSE(value);
  EXPECT_EQ(jt_destroy_value(session.get(), "integer", released, nullptr), 1);
}

TEST_F(Values, AreReleasedWhateverTheirType) {
  const long before = live_blocks();
  for (const auto &[type, text] : {std::pair("ref_invocation", "a:b"), std::pair("ref_collection", "a"),
                                   std::pair("string", ""), std::pair("timestamp", "2030/05/17/09/30/00")}) {
    EXPECT_TRUE(parsed(type, text)) << type;
  }
  EXPECT_EQ(live_blocks(), before);
}

// ---- Order ----

using ValueOrder = Values;

TEST_F(ValueOrder, IsThatOfTheType) {
  EXPECT_LT(parsed("integer", "9"), parsed("integer", "10"));
  EXPECT_GT(parsed("integer", "9"), parsed("integer", "-10"));
  EXPECT_EQ(parsed("string", "Words"), parsed("string", "wORDS"));
  EXPECT_LT(parsed("string", "a"), parsed("string", "c"));
  EXPECT_GT(parsed("string", "z"), parsed("string", "a"));
  EXPECT_GT(parsed("timestamp", "2031/01/01/00/00/00"), parsed("timestamp", "2030/05/17/09/30/00"));
}

TEST_F(ValueOrder, IsNoneWhereTheTypeKnowsOnlyEquality) {
  const jt::Value value = parsed("ref_invocation", "a:b");
  EXPECT_EQ(value, parsed("ref_invocation", "A:B"));
  EXPECT_TRUE((value <=> parsed("ref_invocation", "a:c")) == std::partial_ordering::unordered);
  EXPECT_NE(value, parsed("ref_invocation", "a:c"));
}

TEST_F(ValueOrder, IsNoneBetweenTypes) {
  EXPECT_TRUE((parsed("integer", "1") <=> parsed("string", "1")) == std::partial_ordering::unordered);
  EXPECT_NE(parsed("integer", "1"), parsed("string", "1"));
}

TEST_F(ValueOrder, PutsNoValueFirst) {
  EXPECT_LT(jt::Value(), parsed("integer", "-5"));
  EXPECT_GT(parsed("ref_collection", "a"), jt::Value());
  EXPECT_EQ(jt::Value(), jt::Value());
}

// ---- Reading ----

using Reading = Values;

TEST_F(Reading, GivesAValueWithItsType) {
  const jt::Result<jt::Value> sides = scanner.value("Sides");
  EXPECT_EQ(*sides->text(), "TWO_SIDED");
  EXPECT_STREQ(sides->type()->name, "enum_sided");
}

TEST_F(Reading, GivesNumbersAndTruths) {
  EXPECT_EQ(*scanner.get<std::int32_t>("Copies"), 3);
  EXPECT_EQ(*scanner.get<bool>("Fast"), true);
  EXPECT_EQ(*scanner.get<float>("Weight"), 0.5F);
}

TEST_F(Reading, RefusesAnotherType) {
  EXPECT_TRUE(failed(scanner.get<bool>("Copies"), Category::call_error,
                     {"CALL ERROR: value is not of the type:boolean ..."}));
  EXPECT_TRUE(failed(scanner.get<std::int32_t>("Sides"), Category::call_error,
                     {"CALL ERROR: value is not of the type:integer ..."}));
  EXPECT_TRUE(failed(parsed("string", "1").as<std::int32_t>(), Category::call_error,
                     {"CALL ERROR: value is not of the type:integer ..."}));
}

TEST_F(Reading, FailsSilentlyWhereThereIsNoValue) {
  EXPECT_TRUE(failed_silently(job.service("Mail").value("Nothing")));
  EXPECT_TRUE(failed_silently(job.service("Mail").get<std::int32_t>("Nothing")));
}

TEST_F(Reading, SaysWhatIsMissing) {
  EXPECT_TRUE(
      failed(scanner.value("Colour"), Category::call_error, {"CALL ERROR: does not exist:Colour ..."}));
  EXPECT_TRUE(failed(job.service("Fax").value("Copies"), Category::call_error,
                     {"CALL ERROR: does not exist:Fax ..."}));
}

TEST_F(Reading, SaysThatATypeIsUnknown) {
  ASSERT_TRUE(scanner.add_attribute("enum_newer", "Newer"));
  ASSERT_TRUE(scanner.add("Newer", "x"));
  EXPECT_TRUE(
      failed(scanner.value("Newer"), Category::call_error, {"CALL ERROR: unknown data typeenum_newer ..."}));
  EXPECT_TRUE(
      failed(scanner.parse("Newer", "x"), Category::call_error, {"CALL ERROR: unknown data type:Newer ..."}));
}

TEST_F(Reading, FindsTheTypesOfTheServicesNameFirst) {
  const jt::Service print = job.add_service("kmt_svc_scan", "kmt_svc_print").value();
  ASSERT_TRUE(print.add_invocation());
  ASSERT_TRUE(print.add_attribute("enum_sidestoprint", "Sides"));
  ASSERT_TRUE(print.add("Sides", "TWO_SIDED"));
  const jt_type *const row = get_type_from_services(session.get(), "kmt_svc_print", "enum_sidestoprint");
  EXPECT_EQ(print.value("Sides").value().type(), row);
}

// ---- Names that no list knows ----

class UnknownValues : public Values {
 protected:
  // Of the attribute "Sides", once this is its value.
  bool is_unknown(const char *name) {
    EXPECT_TRUE(scanner.set("Sides", name));
    return scanner.value("Sides").value().is_unknown();
  }
};

TEST_F(UnknownValues, AreThoseWhoseNameNoListHas) {
  EXPECT_TRUE(is_unknown("THREE_SIDED"));
  EXPECT_TRUE(is_unknown(""));
  EXPECT_FALSE(is_unknown("TWO_SIDED"));
  EXPECT_FALSE(is_unknown("one_sided"));
}

TEST_F(UnknownValues, KeepTheirNames) {
  EXPECT_TRUE(is_unknown("THREE_SIDED"));
  EXPECT_EQ(*scanner.value("Sides").value().text(), "THREE_SIDED");
}

TEST_F(UnknownValues, AreFoundInAWalk) {
  ASSERT_TRUE(scanner.add("Sides", "THREE_SIDED"));
  std::vector<bool> unknown;
  for (const jt::Value &value : scanner.values("Sides")) unknown.push_back(value.is_unknown());
  EXPECT_EQ(unknown, (std::vector<bool>{false, true}));
}

TEST_F(UnknownValues, AreSoAsCopies) {
  EXPECT_TRUE(is_unknown("THREE_SIDED"));
  EXPECT_TRUE(scanner.value("Sides").value().copy().value().is_unknown());
}

TEST_F(UnknownValues, AreOfTheEnumeratedTypesAlone) {
  EXPECT_FALSE(parsed("integer", "-1").is_unknown());
  EXPECT_FALSE(parsed("string", "\xff\xff\xff\xff").is_unknown());
  EXPECT_FALSE(jt::Value().is_unknown());
  EXPECT_TRUE(parsed("kmt_enum_status", "KMT_STATUS_LATE").is_unknown());
  EXPECT_FALSE(parsed("kmt_enum_status", "KMT_STATUS_ERROR").is_unknown());
}

// ---- Writing ----

using Writing = Values;

TEST_F(Writing, TakesEveryRecord) { expect_kept(jt::Timestamp{1, 2, 3, 4, 5, 2030}, "2030/05/04/03/02/01"); }
TEST_F(Writing, TakesATimeOfDay) { expect_kept(jt::TimeOfDay{20, 5}, "20:5"); }
TEST_F(Writing, TakesARectangle) {
  expect_kept(jt::Rectangle{1, 2, 30, 40, jt::Unit::millimetre}, "1/2/30/40/MM");
}
TEST_F(Writing, TakesAGutter) { expect_kept(jt::Gutter{1, 2, jt::Unit::inch}, "1/2/IN"); }
TEST_F(Writing, TakesAMagnification) {
  expect_kept(jt::Magnification{jt::Scaling::manual_ana, 30, 40}, "MANANA/30/40");
}
TEST_F(Writing, TakesBorders) {
  expect_kept(jt::Borders{{{1, 2, 3, 4}, jt::Unit::mil}, {{5, 6, 7, 8}, jt::Unit::mil}},
              "1/2/3/4/MIL/5/6/7/8/MIL");
}
TEST_F(Writing, TakesAnInteger) { expect_kept(std::int32_t{-2147483647}, "-2147483647"); }
TEST_F(Writing, TakesATruth) { expect_kept(false, "FALSE"); }
TEST_F(Writing, TakesAReal) { expect_kept(0.25F, "0.250000"); }

// ---- Numbers of every class ----

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
constexpr float kLargestReal = std::numeric_limits<float>::max();

class Numbers : public Values {
 protected:
  // Writes a number in both ways, and reads it back as text.
  template <typename T>
  void expect_written(const char *attribute, const T &number, const char *text) {
    EXPECT_TRUE(scanner.set(attribute, number));
    EXPECT_TRUE(scanner.add(attribute, number));
    EXPECT_EQ(words_of(scanner.texts(attribute)), (Words{text, text}));
  }

  template <typename T>
  void expect_refused(const char *attribute, const T &number, const char *message) {
    const std::string before = encoded();
    EXPECT_TRUE(failed(scanner.set(attribute, number), Category::call_error, {message}));
    EXPECT_TRUE(failed(scanner.add(attribute, number), Category::call_error, {message}));
    EXPECT_EQ(encoded(), before);
  }

  static constexpr const char *kNoInteger = "CALL ERROR: number is not a value of the type:integer ...";
  static constexpr const char *kNoReal = "CALL ERROR: number is not a value of the type:real ...";
};

TEST_F(Numbers, OfEveryWidthBecomeIntegers) {
  expect_written("Copies", std::int8_t{-5}, "-5");
  expect_written("Copies", std::uint8_t{200}, "200");
  expect_written("Copies", short{-300}, "-300");
  expect_written("Copies", 7U, "7");
  expect_written("Copies", -8L, "-8");
  expect_written("Copies", 9UL, "9");
  expect_written("Copies", -10LL, "-10");
  expect_written("Copies", 11ULL, "11");
}

TEST_F(Numbers, ThatAreTheLastToFitAreTaken) {
  expect_written("Copies", std::int64_t{kLargest}, "2147483647");
  expect_written("Copies", std::int64_t{kSmallest}, "-2147483648");
  expect_written("Copies", std::uint32_t{2147483647}, "2147483647");
}

TEST_F(Numbers, BeyondAnIntegerAreRefused) {
  expect_refused("Copies", std::int64_t{kLargest} + 1, kNoInteger);
  expect_refused("Copies", std::int64_t{kSmallest} - 1, kNoInteger);
  expect_refused("Copies", std::uint32_t{2147483648U}, kNoInteger);
  expect_refused("Copies", std::numeric_limits<std::uint64_t>::max(), kNoInteger);
  expect_refused("Copies", std::int64_t{1} << 32, kNoInteger);
}

TEST_F(Numbers, WithAPointBecomeReals) {
  expect_written("Weight", 0.75, "0.750000");
  expect_written("Weight", 1.5F, "1.500000");
  expect_written("Weight", 2.25L, "2.250000");
  EXPECT_TRUE(scanner.set("Weight", 0.1));
  EXPECT_EQ(*scanner.get<float>("Weight"), 0.1F);
}

TEST_F(Numbers, UpToTheLargestRealAreTaken) {
  EXPECT_TRUE(scanner.set("Weight", double{kLargestReal}));
  EXPECT_EQ(*scanner.get<float>("Weight"), kLargestReal);
}

TEST_F(Numbers, OfZeroLoseTheirSign) {
  expect_written("Weight", -0.0, "0.000000");
  expect_written("Weight", -0.0F, "0.000000");
}

TEST_F(Numbers, BelowZeroAreNoReals) {
  expect_refused("Weight", -0.5, kNoReal);
  expect_refused("Weight", -0.5F, kNoReal);
  expect_refused("Weight", -std::numeric_limits<double>::denorm_min(), kNoReal);
}

TEST_F(Numbers, BeyondARealAreRefused) {
  expect_refused("Weight", 2.0 * kLargestReal, kNoReal);
  expect_refused("Weight", std::numeric_limits<double>::infinity(), kNoReal);
  expect_refused("Weight", std::numeric_limits<float>::infinity(), kNoReal);
  expect_refused("Weight", -std::numeric_limits<float>::infinity(), kNoReal);
}

TEST_F(Numbers, ThatAreNoneAreRefused) {
  expect_refused("Weight", std::numeric_limits<double>::quiet_NaN(), kNoReal);
  expect_refused("Weight", std::numeric_limits<float>::quiet_NaN(), kNoReal);
}

TEST_F(Numbers, OfTheOtherKindAreRefused) {
  expect_refused("Copies", 2.0, "CALL ERROR: value is not of the type:integer ...");
  expect_refused("Weight", 2L, "CALL ERROR: value is not of the type:real ...");
  expect_refused("Fast", 1U, "CALL ERROR: value is not of the type:boolean ...");
  expect_refused("Copies", true, "CALL ERROR: value is not of the type:integer ...");
}

TEST_F(Numbers, AreGivenToNewAttributes) {
  EXPECT_TRUE(scanner.add_attribute("integer", "Pages", std::size_t{12}));
  EXPECT_TRUE(scanner.add_attribute("real", "Gamma", 2.2));
  EXPECT_EQ(*scanner.text("Pages"), "12");
  EXPECT_EQ(*scanner.text("Gamma"), "2.200000");
}

TEST_F(Writing, KnowsEveryWayOfScaling) {
  for (const auto &[scaling, text] :
       {std::pair(jt::Scaling::none, "NONE"), std::pair(jt::Scaling::automatic_iso, "AUTOISO"),
        std::pair(jt::Scaling::automatic_ana, "AUTOANA"), std::pair(jt::Scaling::manual_iso, "MANISO/50"),
        std::pair(jt::Scaling::manual_ana, "MANANA/50/60")}) {
    const jt::Value value = parsed("struct_magnification", text, "kmt_svc_scan");
    EXPECT_EQ(value.as<jt::Magnification>().value().scaling, scaling) << text;
  }
}

TEST_F(Writing, RefusesAnAttributeOfAnotherType) {
  const Words messages = {"CALL ERROR: value is not of the type:integer ..."};
  EXPECT_TRUE(failed(scanner.set("Copies", true), Category::call_error, messages));
  EXPECT_TRUE(failed(scanner.add("Copies", 0.5F), Category::call_error, messages));
  EXPECT_TRUE(failed(scanner.set("Copies", parsed("string", "5")), Category::call_error, messages));
  EXPECT_EQ(words_of(scanner.texts("Copies")), Words{"3"});
}

TEST_F(Writing, SaysWhatIsMissing) {
  EXPECT_TRUE(
      failed(scanner.set("Colour", 1), Category::call_error, {"CALL ERROR: does not exist:Colour ..."}));
  EXPECT_TRUE(failed(scanner.set("Colour", parsed("integer", "5")), Category::call_error,
                     {"CALL ERROR: does not exist:Colour ..."}));
}

TEST_F(Writing, TakesAValueOfTheAttributesType) {
  EXPECT_TRUE(scanner.add("Copies", parsed("integer", "5")));
  EXPECT_EQ(words_of(scanner.texts("Copies")), (Words{"3", "5"}));
  EXPECT_TRUE(scanner.remove_value("Copies", parsed("integer", "3")));
  EXPECT_EQ(words_of(scanner.texts("Copies")), Words{"5"});
  EXPECT_TRUE(scanner.set("Copies", parsed("integer", "6")));
  EXPECT_EQ(words_of(scanner.texts("Copies")), Words{"6"});
}

TEST_F(Writing, RefusesNoValue) {
  EXPECT_TRUE(failed(scanner.set("Copies", jt::Value()), Category::call_error,
                     {"CALL ERROR: value is a NULL pointer ..."}));
}

TEST_F(Writing, RefusesAValueForAnUnknownType) {
  ASSERT_TRUE(scanner.add_attribute("enum_newer", "Newer"));
  EXPECT_TRUE(failed(scanner.set("Newer", parsed("integer", "5")), Category::call_error,
                     {"CALL ERROR: value is not of the type:enum_newer ..."}));
}

TEST_F(Writing, OverridesAValue) {
  const jt::Value one = scanner.parse("Note", "one").value();
  const jt::Value ten = scanner.parse("Note", "ten").value();
  EXPECT_TRUE(scanner.override_value("Note", one, ten));
  EXPECT_EQ(words_of(scanner.texts("Note")), (Words{"ten", "two", "three"}));
  EXPECT_EQ(scanner.attribute_status("Note").value().code(), jt::StatusCode::overridden);
}

TEST_F(Writing, OverridesOnlyWhatHasAStarAndTheType) {
  const jt::Value three = parsed("integer", "3");
  EXPECT_TRUE(failed(scanner.override_value("Copies", three, three), Category::call_error,
                     {"CALL ERROR: it is a compulsory attributeCopies ..."}));
  EXPECT_TRUE(failed(scanner.override_value("Note", parsed("string", "one"), three), Category::call_error,
                     {"CALL ERROR: value is not of the type:string ..."}));
}

TEST_F(Writing, ParsesWithTheTypeOfTheAttribute) {
  EXPECT_EQ(*scanner.parse("Sides", "one_sided").value().text(), "ONE_SIDED");
  EXPECT_TRUE(
      failed(scanner.parse("Copies", "x"), Category::syntax_error,
             {"SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\nx ..."}));
  EXPECT_TRUE(
      failed(scanner.parse("Colour", "x"), Category::call_error, {"CALL ERROR: does not exist:Colour ..."}));
  EXPECT_TRUE(failed_silently(scanner.parse("Copies", nullptr)));
}

TEST_F(Writing, ParsesNothingWithoutMemory) {
  fail_allocations(2, Failing::kOnlyOne);
  const jt::Result<jt::Value> value = scanner.parse("Copies", "5");
  EXPECT_EQ(allow_allocations(), 1);
  EXPECT_TRUE(failed(value, Category::memory_error, {"MEMORY ERROR: allocation error ..."}));
}

// ---- Types ----

using Types = Values;

TEST_F(Types, OfEveryServiceAreTheTablesOfTheLibrary) {
  const std::array<std::pair<const char *, std::span<const jt_type>>, 14> tables = {{
      {"kmt_document", {doc_type_tab, static_cast<std::size_t>(MAX_DOC_TYPES)}},
      {"kmt_dscrpt_metadata", {metadata_type_tab, static_cast<std::size_t>(MAX_METADATA_TYPES)}},
      {"kmt_svc_desktop", {desksvc_type_tab, static_cast<std::size_t>(MAX_DESKTOP_TYPES)}},
      {"kmt_svc_docman", {docman_type_tab, static_cast<std::size_t>(MAX_DOCMAN_TYPES)}},
      {"kmt_svc_email", {email_type_tab, static_cast<std::size_t>(MAX_EMAIL_TYPES)}},
      {"kmt_svc_fax", {fax_type_tab, static_cast<std::size_t>(MAX_FAX_TYPES)}},
      {"kmt_svc_file", {file_type_tab, static_cast<std::size_t>(MAX_FILE_TYPES)}},
      {"kmt_svc_general", {gen_type_tab, static_cast<std::size_t>(MAX_GEN_TYPES)}},
      {"kmt_svc_notification", {notif_type_tab, static_cast<std::size_t>(MAX_NOTIF_TYPES)}},
      {"kmt_svc_ocr", {ocr_type_tab, static_cast<std::size_t>(MAX_OCR_TYPES)}},
      {"kmt_svc_paperware", {ppware_type_tab, static_cast<std::size_t>(MAX_PPWARE_TYPES)}},
      {"kmt_svc_print", {print_type_tab, static_cast<std::size_t>(MAX_LPRNT_TYPES)}},
      {"kmt_svc_scan", {scan_type_tab, static_cast<std::size_t>(MAX_SCAN_TYPES)}},
      {"kmt_svc_validation", {validation_type_tab, static_cast<std::size_t>(MAX_VALIDATION_TYPES)}},
  }};
  for (const auto &[service, types] : tables) {
    EXPECT_EQ(jt::types_of(service).data(), types.data()) << service;
    EXPECT_EQ(jt::types_of(service).size(), types.size()) << service;
    for (const jt_type &type : types) {
      EXPECT_EQ(get_type_from_services(nullptr, service, type.name), &type) << type.name;
      EXPECT_EQ(get_type_from_services(nullptr, nullptr, type.name), nullptr) << type.name;
    }
  }
}

TEST_F(Types, AreFoundInAnyCase) { EXPECT_FALSE(jt::types_of("KMT_SVC_Scan").empty()); }

TEST_F(Types, OfAnythingElseAreNone) {
  EXPECT_TRUE(jt::types_of("service").empty());
  EXPECT_TRUE(jt::types_of("").empty());
  EXPECT_TRUE(jt::types_of(nullptr).empty());
}

TEST_F(Types, NameTheirNumbers) {
  const jt_type *const sided = get_type_from_services(session.get(), "kmt_svc_scan", "enum_sided");
  const jt::Result<jt::Value> value = scanner.value("Sides");
  std::uint32_t number = 0;
  std::memcpy(&number, value->get(), sizeof(number));
  EXPECT_EQ(*session.name_of(*sided, number), "TWO_SIDED");
  const jt_type *const status = get_type_from_services(session.get(), nullptr, "kmt_enum_status");
  EXPECT_EQ(*session.name_of(*status, 5), "KMT_STATUS_COMPLETED");
}

TEST_F(Types, NameNoOtherNumbers) {
  const jt_type *const sided = get_type_from_services(session.get(), "kmt_svc_scan", "enum_sided");
  const jt_type *const integer = get_type_from_services(session.get(), nullptr, "integer");
  EXPECT_TRUE(failed(session.name_of(*sided, 9999), Category::call_error,
                     {"CALL ERROR: Unknown enumerated value ..."}));
  EXPECT_TRUE(failed_silently(session.name_of(*sided, UINT32_MAX)));
  EXPECT_TRUE(failed_silently(session.name_of(*integer, 1)));
}

}  // namespace
}  // namespace jt_test
