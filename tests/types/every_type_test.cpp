// What every type of value answers to nulls, to the empty text, and about copying and releasing.
#include <gtest/gtest.h>

#include <string>

#include "types/value_cases.h"

namespace jt_test {
namespace {

// A type, a text that it accepts, and how a null compares with a value of it from either side.
struct Type {
  std::string name;
  const char *service;
  const char *type;
  const char *text;
  std::int32_t null_and_value;
  std::int32_t value_and_null;
};

std::ostream &operator<<(std::ostream &out, const Type &type) { return out << type.type; }

Type ordered(const char *name, const char *service, const char *type, const char *text) {
  return {name, service, type, text, -1, 1};
}

Type only_equal(const char *name, const char *service, const char *type, const char *text) {
  return {name, service, type, text, -2, -2};
}

template <typename Case>
class TypeCase : public TypeTest, public ::testing::WithParamInterface<Case> {
 protected:
  TypeCase() : TypeTest(this->GetParam().service, this->GetParam().type) {}
};

using EveryType = TypeCase<Type>;

TEST_P(EveryType, HasItsNameAndAllOperations) {
  EXPECT_STREQ(type->name, GetParam().type);
  EXPECT_NE(type->eval, nullptr);
  EXPECT_NE(type->copy, nullptr);
  EXPECT_NE(type->deval, nullptr);
  EXPECT_NE(type->cmp, nullptr);
  EXPECT_NE(type->kill, nullptr);
}

TEST_P(EveryType, NullTextIsNoValueAndNoReport) {
  EXPECT_EQ(type->eval(space, nullptr), nullptr);
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(EveryType, NullHasNoCopyAndNoReport) {
  EXPECT_EQ(type->copy(space, nullptr), nullptr);
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(EveryType, NullHasNoTextAndNoReport) {
  EXPECT_EQ(type->deval(space, nullptr), nullptr);
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(EveryType, TwoNullsAreEqual) {
  EXPECT_EQ(compared(nullptr, nullptr), 0);
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(EveryType, OneNullComparesAsItsKindOfOrderSays) {
  const OwnedValue value = evaluated(GetParam().text);
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(compared(nullptr, value.get()), GetParam().null_and_value);
  EXPECT_EQ(compared(value.get(), nullptr), GetParam().value_and_null);
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(EveryType, AValueEqualsItself) {
  const OwnedValue value = evaluated(GetParam().text);
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(compared(value.get(), value.get()), 0);
}

TEST_P(EveryType, ACopyIsEqualAndOutlivesItsOriginal) {
  OwnedValue value = evaluated(GetParam().text);
  ASSERT_NE(value, nullptr);
  const OwnedValue copy = copied(value.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, value);
  EXPECT_EQ(compared(value.get(), copy.get()), 0);
  const std::string text = written(value.get());
  value.reset();
  EXPECT_EQ(written(copy.get()), text);
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(EveryType, EveryTextIsNew) {
  const OwnedValue value = evaluated(GetParam().text);
  ASSERT_NE(value, nullptr);
  const OwnedText first(type->deval(space, value.get()));
  const OwnedText second(type->deval(space, value.get()));
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  EXPECT_STREQ(first.get(), second.get());
}

TEST_P(EveryType, ReleasingAValueSucceeds) {
  OwnedValue value = evaluated(GetParam().text);
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(type->kill(space, value.release()), 1);
  EXPECT_EQ(messages(), Messages{});
}

INSTANTIATE_TEST_SUITE_P(
    BuiltIn, EveryType,
    ::testing::Values(ordered("Boolean", "", "boolean", "TRUE"),
                      ordered("SystemIdAlgorithm", "", "enum_systemidalgorithm", "PROPRIETARY"),
                      ordered("Units", "", "enum_units", "MM"), ordered("Integer", "", "integer", "7"),
                      ordered("Status", "", "kmt_enum_status", "KMT_STATUS_COMPLETED"),
                      ordered("Real", "", "real", "2.5"),
                      only_equal("CollectionReference", "", "ref_collection", "a"),
                      only_equal("InvocationReference", "", "ref_invocation", "a:b"),
                      ordered("String", "", "string", "abc"),
                      only_equal("Rectangle", "", "struct_rectangle", "1/2/30/40/MM"),
                      only_equal("TimeOfDay", "", "struct_timeofday", "7:5"),
                      ordered("Timestamp", "", "timestamp", "2009/01/02/03/04/05")),
    case_name<Type>);

INSTANTIATE_TEST_SUITE_P(
    OfServices, EveryType,
    ::testing::Values(only_equal("Borders", "kmt_svc_scan", "struct_borders", "1/2/3/4/MM"),
                      only_equal("Gutter", "kmt_svc_scan", "struct_gutter", "1/2/MM"),
                      only_equal("Magnification", "kmt_svc_scan", "struct_magnification", "MANISO/100"),
                      ordered("Document", "kmt_document", "enum_docformat", "PDF"),
                      ordered("Email", "kmt_svc_email", "enum_emailprotocol", "MHS"),
                      ordered("Fax", "kmt_svc_fax", "enum_type", "NORMAL"),
                      ordered("File", "kmt_svc_file", "enum_filingprotocol", "FTP"),
                      ordered("General", "kmt_svc_general", "enum_encoding", "UTF-8"),
                      ordered("Metadata", "kmt_dscrpt_metadata", "enum_metadatamaskingrequired", "NONE"),
                      ordered("Ocr", "kmt_svc_ocr", "enum_conversionlanguage", "GERMAN"),
                      ordered("Print", "kmt_svc_print", "enum_printfinish", "STAPLE"),
                      ordered("Scan", "kmt_svc_scan", "enum_mediasize", "ISO_A4SEF"),
                      ordered("Validation", "kmt_svc_validation", "enum_protocol", "HTTP")),
    case_name<Type>);

// ---- The empty text ----

struct TypeName {
  std::string name;
  const char *service;
  const char *type;
};

std::ostream &operator<<(std::ostream &out, const TypeName &type) { return out << type.type; }

class ScalarOrStructure : public TypeCase<TypeName> {};

TEST_P(ScalarOrStructure, EmptyTextIsNoValueAndNoReport) {
  EXPECT_EQ(evaluated(""), nullptr);
  EXPECT_EQ(messages(), Messages{});
}

INSTANTIATE_TEST_SUITE_P(Every, ScalarOrStructure,
                         ::testing::Values(TypeName{"Boolean", "", "boolean"},
                                           TypeName{"Integer", "", "integer"}, TypeName{"Real", "", "real"},
                                           TypeName{"CollectionReference", "", "ref_collection"},
                                           TypeName{"InvocationReference", "", "ref_invocation"},
                                           TypeName{"Rectangle", "", "struct_rectangle"},
                                           TypeName{"TimeOfDay", "", "struct_timeofday"},
                                           TypeName{"Timestamp", "", "timestamp"},
                                           TypeName{"Borders", "kmt_svc_scan", "struct_borders"},
                                           TypeName{"Gutter", "kmt_svc_scan", "struct_gutter"},
                                           TypeName{"Magnification", "kmt_svc_scan", "struct_magnification"}),
                         case_name<TypeName>);

// ---- Releasing nothing ----

class OneBlockType : public TypeCase<TypeName> {};

TEST_P(OneBlockType, ReleasingNullSucceedsWithoutAReport) {
  EXPECT_EQ(type->kill(space, nullptr), 1);
  EXPECT_EQ(messages(), Messages{});
}

INSTANTIATE_TEST_SUITE_P(
    Every, OneBlockType,
    ::testing::Values(TypeName{"Boolean", "", "boolean"}, TypeName{"Integer", "", "integer"},
                      TypeName{"Real", "", "real"}, TypeName{"String", "", "string"},
                      TypeName{"Timestamp", "", "timestamp"}, TypeName{"TimeOfDay", "", "struct_timeofday"},
                      TypeName{"Rectangle", "", "struct_rectangle"},
                      TypeName{"Status", "", "kmt_enum_status"}, TypeName{"Units", "", "enum_units"},
                      TypeName{"MediaSize", "kmt_svc_scan", "enum_mediasize"},
                      TypeName{"Borders", "kmt_svc_scan", "struct_borders"},
                      TypeName{"Gutter", "kmt_svc_scan", "struct_gutter"},
                      TypeName{"Magnification", "kmt_svc_scan", "struct_magnification"}),
    case_name<TypeName>);

}  // namespace
}  // namespace jt_test
