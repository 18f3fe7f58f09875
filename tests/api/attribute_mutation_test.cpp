// Changing attributes and values, for every type that an attribute can have: values given as text and as
// typed values, added, set and deleted; types that nobody knows; and types that are kinds of blocks.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "support/job.h"

namespace jt_test {
namespace {

// A type, a text of it and what is written for it, a text that its comparison takes for the same, and one
// that it does not.
struct Row {
  const char *type;
  const char *text;
  const char *written;
  const char *same;
  const char *other;
  const char *other_written;
};

std::ostream &operator<<(std::ostream &out, const Row &row) { return out << row.type; }

constexpr Row kRows[] = {
    {"boolean", "true", "TRUE", "tRUE", "false", "FALSE"},
    {"integer", "7", "7", "+007", "8", "8"},
    {"real", "2.5", "2.500000", "02.50", "2.6", "2.600000"},
    {"string", "Abc", "Abc", "aBC", "abd", "abd"},
    {"timestamp", "2009/01/02/03/04/05", "2009/01/02/03/04/05", "2009/01/02/03/04/05", "2009/01/02/03/04/06",
     "2009/01/02/03/04/06"},
    {"struct_timeofday", "7:05", "7:5", "07:5", "7:6", "7:6"},
    {"ref_invocation", "Scan1:Copy2", "Scan1:Copy2", "SCAN1:copy2", "Scan1", "Scan1"},
    {"ref_collection", "Folder", "Folder", "FOLDER", "Folders", "Folders"},
    {"enum_systemidalgorithm", "PROPRIETARY", "PROPRIETARY", "proprietary", "MM", "MM"},
    {"enum_units", "mm", "MM", "Mm", "IN", "IN"},
    {"kmt_enum_status", "KMT_STATUS_ERROR", "KMT_STATUS_ERROR", "kmt_status_error", "KMT_STATUS_WARNING",
     "KMT_STATUS_WARNING"},
    {"struct_rectangle", "1/2/100/200/MM", "1/2/100/200/MM", "5/6/100/200/IN", "1/2/100/201/MM",
     "1/2/100/201/MM"},
    {"enum_mediasize", "iso_a4sef", "ISO_A4SEF", "ISO_A4sef", "AUTO", "AUTO"},
    {"enum_colormode", "NA_234x229LEF", "NA_229x234LEF", "NA_229x234LEF", "GRAYSCALE", "GRAYSCALE"},
    {"struct_gutter", "5/6/MM", "5/6/MM", "5/6/IN", "5/7/MM", "5/7/MM"},
    {"struct_magnification", "MANISO/100", "MANISO/100", "maniso/0100", "MANISO/101", "MANISO/101"},
    {"struct_borders", "1/2/3/4/MM", "1/2/3/4/MM/1/2/3/4/MM", "1/2/9/4/IN", "1/2/3/5/MM",
     "1/2/3/5/MM/1/2/3/5/MM"},
};

class AttributeOfAType : public JobTest, public ::testing::WithParamInterface<Row> {
 protected:
  AttributeOfAType() {
    decode_scan("");
    EXPECT_EQ(add_attribute(row.type, "a"), 1);
    EXPECT_TRUE(quiet());
  }
  // The values other, text, text.
  void add_three() {
    for (const char *const text : {row.other, row.text, row.text}) ASSERT_EQ(add_text("a", text), 1);
  }

  const Row &row = GetParam();
};

TEST_P(AttributeOfAType, TakesTexts) {
  std::string text = row.text;
  EXPECT_EQ(add_text("a", text.data()), 1);
  EXPECT_EQ(add_text("a", row.other), 1);
  EXPECT_EQ(text, row.text);
  text.assign(text.size(), '#');
  EXPECT_EQ(values("a"), (Texts{row.written, row.other_written}));
  EXPECT_TRUE(quiet());
}

TEST_P(AttributeOfAType, TakesCopiesOfTypedValues) {
  {
    const ClientOwned value = value_of(row.type, row.text);
    const ClientOwned other = value_of(row.type, row.other);
    EXPECT_EQ(add_value("a", value.get()), 1);
    EXPECT_EQ(add_value("a", other.get()), 1);
    EXPECT_EQ(add_value("a", value.get()), 1);
  }
  EXPECT_EQ(values("a"), (Texts{row.written, row.other_written, row.written}));
  EXPECT_TRUE(quiet());
}

TEST_P(AttributeOfAType, TakesBackWhatItHasGiven) {
  ASSERT_EQ(add_text("a", row.text), 1);
  const ClientOwned value(jt_get_first_attribute_value(space, job, "Scan", "a"),
                          DestroyValue{space, row.type, "kmt_svc_scan"});
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(set_value("a", value.get()), 1);
  EXPECT_EQ(add_value("a", value.get()), 1);
  EXPECT_EQ(values("a"), (Texts{row.written, row.written}));
  EXPECT_TRUE(quiet());
}

TEST_P(AttributeOfAType, IsSetToOneText) {
  add_three();
  std::string text = row.text;
  EXPECT_EQ(set_text("a", text.data()), 1);
  EXPECT_EQ(text, row.text);
  EXPECT_EQ(values("a"), Texts{row.written});
  EXPECT_EQ(set_text("a", row.other), 1);
  EXPECT_EQ(values("a"), Texts{row.other_written});
  EXPECT_TRUE(quiet());
}

TEST_P(AttributeOfAType, IsSetToOneTypedValue) {
  add_three();
  const ClientOwned value = value_of(row.type, row.text);
  EXPECT_EQ(set_value("a", value.get()), 1);
  EXPECT_EQ(values("a"), Texts{row.written});
  EXPECT_TRUE(quiet());
}

TEST_P(AttributeOfAType, LosesTheFirstValueThatATextMeans) {
  add_three();
  std::string same = row.same;
  EXPECT_EQ(delete_text("a", same.data()), 1);
  EXPECT_EQ(same, row.same);
  EXPECT_EQ(values("a"), (Texts{row.other_written, row.written}));
  EXPECT_EQ(delete_text("a", row.same), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(delete_text("a", row.same), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR:there is no such value ..."}));
  EXPECT_EQ(values("a"), Texts{row.other_written});
}

TEST_P(AttributeOfAType, LosesTheFirstValueThatEqualsATypedOne) {
  add_three();
  const ClientOwned same = value_of(row.type, row.same);
  EXPECT_EQ(delete_value("a", same.get()), 1);
  EXPECT_EQ(values("a"), (Texts{row.other_written, row.written}));
  EXPECT_EQ(delete_value("a", same.get()), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(delete_value("a", same.get()), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR:there is no such value ..."}));
  EXPECT_EQ(values("a"), Texts{row.other_written});
}

TEST_P(AttributeOfAType, FindsAValueAmongManyAsAmongFew) {
  for (int i = 0; i < 100; ++i) ASSERT_EQ(add_text("a", row.other), 1);
  ASSERT_EQ(add_text("a", row.text), 1);
  for (int i = 0; i < 100; ++i) ASSERT_EQ(add_text("a", row.other), 1);
  EXPECT_EQ(delete_text("a", row.same), 1);
  EXPECT_EQ(delete_text("a", row.same), 0);
  EXPECT_EQ(values("a"), Texts(200, row.other_written));
}

TEST_P(AttributeOfAType, IsOverriddenByATypedValue) {
  add_three();
  ASSERT_EQ(jt_set_attribute_non_compulsory(space, job, "Scan", "a"), 1);
  const ClientOwned same = value_of(row.type, row.same);
  const ClientOwned other = value_of(row.type, row.other);
  EXPECT_EQ(override_value("a", same.get(), other.get()), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(values("a"), (Texts{row.other_written, row.other_written, row.written}));
  const std::string text = encoded();
  const std::string ending = std::string(";(KMT_STATUS_OVERRIDDEN{") + row.written + "})\n }\nend\n\n";
  ASSERT_GT(text.size(), ending.size());
  EXPECT_EQ(text.substr(text.size() - ending.size()), ending);
}

INSTANTIATE_TEST_SUITE_P(Each, AttributeOfAType, ::testing::ValuesIn(kRows),
                         [](const auto &tested) { return std::string(tested.param.type); });

// ---- Texts that a type refuses ----------------------------------------------------------------------------

struct Refused {
  const char *type;
  const char *valid;
  const char *text;
  int32_t status;
  Messages messages;
};

const std::vector<Refused> &refused_texts() {
  static const std::vector<Refused> all = {
      {"integer", "7", "", JT_OK, {}},
      {"timestamp", "2009/01/02/03/04/05", "2009-01-01/00/00/00", JT_OK, {}},
      {"struct_gutter",
       "5/5/MM",
       "5/5/FOO",
       JT_WARNING,
       {"WARNING: trying to evaluate as an 'enumerated' type:FOO ..."}},
      {"integer",
       "7",
       "12a",
       JT_SYNTAX_ERROR,
       {"SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\n12a ..."}},
      {"struct_rectangle",
       "0/0/25/25/MM",
       "351/0/100/100/MM",
       JT_SYNTAX_ERROR,
       {"SYNTAX ERROR: Value outside range ...",
        "SYNTAX ERROR: trying to evaluate the following value string as -- struct_rectangle "
        "--:\n\n351/0/100/100/MM ..."}},
      {"struct_magnification",
       "AUTOISO",
       "AUTOISO/100",
       JT_SYNTAX_ERROR,
       {"SYNTAX ERROR: trying to evaluate the following value string as -- struct_magnification "
        "--:\n\nAUTOISO ..."}},
  };
  return all;
}

class RefusedText : public JobTest, public ::testing::WithParamInterface<Refused> {
 protected:
  RefusedText() {
    decode_scan("");
    EXPECT_EQ(add_attribute(refused.type, "a"), 1);
    EXPECT_EQ(add_attribute("integer", "after"), 1);
    forget();
  }
  const Refused &refused = GetParam();
  std::string text = refused.text;
};

TEST_P(RefusedText, IsNotAdded) {
  EXPECT_EQ(add_text("a", text.data()), 0);
  EXPECT_TRUE(reports(refused.status, refused.messages));
  EXPECT_EQ(text, refused.text);
  EXPECT_EQ(values("a"), Texts{});
}

TEST_P(RefusedText, ReplacesNothing) {
  ASSERT_EQ(add_text("a", refused.valid), 1);
  forget();
  EXPECT_EQ(set_text("a", text.data()), 0);
  EXPECT_TRUE(reports(refused.status, refused.messages));
  EXPECT_EQ(values("a"), Texts{refused.valid});
}

TEST_P(RefusedText, DeletesNothingAndIsShownUncut) {
  EXPECT_EQ(delete_text("a", text.data()), 0);
  Messages expected = refused.messages;
  expected.push_back(std::string("CALL ERROR: unparsable value string") + refused.text + " ...");
  EXPECT_TRUE(reports(JT_CALL_ERROR, expected));
  EXPECT_EQ(text, refused.text);
}

INSTANTIATE_TEST_SUITE_P(Texts, RefusedText, ::testing::ValuesIn(refused_texts()));

// ---- Enumerated names that no list knows ------------------------------------------------------------------

class UnknownName : public JobTest {
 protected:
  UnknownName() { decode_scan("enum_mediasize a = AUTO, FOO, BAR;"); }
};

TEST_F(UnknownName, IsAddedAndSetWithAWarning) {
  EXPECT_EQ(add_text("a", "Baz"), 1);
  EXPECT_TRUE(reports(JT_WARNING, {"WARNING: trying to evaluate as an 'enumerated' type:Baz ..."}));
  EXPECT_EQ(values("a"), (Texts{"AUTO", "FOO", "BAR", "Baz"}));
  forget();
  EXPECT_EQ(set_text("a", ""), 1);
  EXPECT_TRUE(reports(JT_WARNING, {"WARNING: trying to evaluate as an 'enumerated' type: ..."}));
  EXPECT_EQ(values("a"), Texts{""});
}

TEST_F(UnknownName, MeansAnyOther) {
  EXPECT_EQ(delete_text("a", "BAR"), 1);
  EXPECT_TRUE(reports(JT_WARNING, {"WARNING: trying to evaluate as an 'enumerated' type:BAR ..."}));
  EXPECT_EQ(values("a"), (Texts{"AUTO", "BAR"}));
  const ClientOwned other = value_of("enum_mediasize", "QUX");
  EXPECT_EQ(delete_value("a", other.get()), 1);
  EXPECT_EQ(values("a"), Texts{"AUTO"});
}

TEST_F(UnknownName, IsKeptAsTheTextThatWasOverridden) {
  ASSERT_EQ(jt_set_attribute_non_compulsory(space, job, "Scan", "a"), 1);
  const ClientOwned foo = value_of("enum_mediasize", "FOO");
  const ClientOwned mixed = value_of("enum_mediasize", "MIXED");
  forget();
  EXPECT_EQ(override_value("a", foo.get(), mixed.get()), 1);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: Unknown enumerated value ..."}));
  EXPECT_EQ(encoded(), scan_with("    * enum_mediasize a = AUTO, MIXED, BAR;(KMT_STATUS_OVERRIDDEN{FOO})\n"));
}

TEST_F(UnknownName, IsCopiedWithItsText) {
  const ClientOwned foo = value_of("enum_mediasize", "F O");
  forget();
  EXPECT_EQ(set_value("a", foo.get()), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(encoded(), scan_with("      enum_mediasize a = F\\ O;\n"));
}

// ---- Types that nobody knows ------------------------------------------------------------------------------

class UnknownType : public JobTest {
 protected:
  UnknownType() {
    decode_scan("");
    EXPECT_EQ(add_attribute("future", "a"), 1);
    forget();
  }
  const ClientOwned number = value_of("integer", "5");
};

TEST_F(UnknownType, KeepsTextsAsTheyAre) {
  std::string text = "a:b/c d";
  EXPECT_EQ(add_text("a", text.data()), 1);
  EXPECT_EQ(text, "a:b/c d");
  text.assign(text.size(), '#');
  EXPECT_EQ(add_text("a", ""), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(values("a"), (Texts{"a:b/c d", ""}));
  EXPECT_EQ(set_text("a", "only"), 1);
  EXPECT_EQ(values("a"), Texts{"only"});
  EXPECT_EQ(encoded(), scan_with("      future a = only;\n"));
}

TEST_F(UnknownType, TakesNoTypedValuesAndSaysNothing) {
  ASSERT_EQ(add_text("a", "x"), 1);
  EXPECT_EQ(add_value("a", number.get()), 0);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(set_value("a", number.get()), 0);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(values("a"), Texts{"x"});
}

TEST_F(UnknownType, LosesTheFirstTextThatIsTheSameInAnyLetterCase) {
  for (const char *const text : {"One", "two", "ONE"}) ASSERT_EQ(add_text("a", text), 1);
  EXPECT_EQ(delete_text("a", "oNE"), 1);
  EXPECT_EQ(values("a"), (Texts{"two", "ONE"}));
  EXPECT_EQ(delete_text("a", "one"), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(delete_text("a", "one"), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR:there is no such value ..."}));
  EXPECT_EQ(delete_text("a", ""), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR:there is no such value ..."}));
  EXPECT_EQ(values("a"), Texts{"two"});
}

TEST_F(UnknownType, LosesAnEmptyText) {
  ASSERT_EQ(add_text("a", "x"), 1);
  ASSERT_EQ(add_text("a", ""), 1);
  EXPECT_EQ(delete_text("a", ""), 1);
  EXPECT_EQ(values("a"), Texts{"x"});
}

TEST_F(UnknownType, ComparesNoTypedValues) {
  ASSERT_EQ(add_text("a", "5"), 1);
  EXPECT_EQ(delete_value("a", number.get()), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: unknown data type: ..."}));
  EXPECT_EQ(override_value("a", number.get(), number.get()), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: unknown data type: ..."}));
  ASSERT_EQ(jt_set_attribute_non_compulsory(space, job, "Scan", "a"), 1);
  EXPECT_EQ(override_value("a", number.get(), number.get()), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: unknown data type: ..."}));
  EXPECT_EQ(values("a"), Texts{"5"});
}

// ---- Types that are kinds of blocks -----------------------------------------------------------------------

class BlockType : public JobTest, public ::testing::WithParamInterface<const char *> {
 protected:
  BlockType() {
    decode_scan("");
    EXPECT_EQ(add_attribute(GetParam(), "Name"), 1);
    EXPECT_TRUE(quiet());
  }
  const ClientOwned number = value_of("integer", "5");
};

TEST_P(BlockType, IsKnown) {
  EXPECT_EQ(jt_known_attribute_datatype(space, job, "Scan", "Name"), 1);
  EXPECT_EQ(take_text(jt_get_attribute_type_name(space, job, "Scan", "Name")), GetParam());
  EXPECT_TRUE(quiet());
}

TEST_P(BlockType, TakesNoTextsAndSaysNothing) {
  EXPECT_EQ(add_text("Name", "x"), 0);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(set_text("Name", "x"), 0);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(encoded(), scan_with(std::string("      ") + GetParam() + " Name = ;\n"));
}

TEST_P(BlockType, CannotCopyTypedValues) {
  const std::string message = std::string("SYSTEM ERROR: no copy function for:") + GetParam() + " ...";
  EXPECT_EQ(add_value("Name", number.get()), 0);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {message}));
  EXPECT_EQ(set_value("Name", number.get()), 0);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {message}));
}

TEST_P(BlockType, CannotCompareAndShowsTheNameAsTheCallerWroteIt) {
  EXPECT_EQ(delete_value("nAME", number.get()), 0);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {"SYSTEM ERROR: no cmp function for:nAME ..."}));
  EXPECT_EQ(delete_text("NAME", "x"), 0);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {"SYSTEM ERROR: no cmp function for:NAME ..."}));
  EXPECT_EQ(override_value("name", number.get(), number.get()), 0);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {"SYSTEM ERROR: no cmp function for:name ..."}));
}

INSTANTIATE_TEST_SUITE_P(Each, BlockType,
                         ::testing::Values("description", "doc_object", "generic_service", "instance",
                                           "invocation", "service", "sil_header", "template", "unknown_type",
                                           "kmt_svc_scan"),
                         [](const auto &tested) { return std::string(tested.param); });

}  // namespace
}  // namespace jt_test
