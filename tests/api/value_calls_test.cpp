// The five calls on values that a client holds: each is one operation of the type that it names.
#include <cstring>
#include <string>

#include "support/session.h"

namespace jt_test {
namespace {

class ValueCalls : public SessionTest {
 protected:
  jt_value *decode(const char *type, const char *text, const char *service = "kmt_svc_scan") {
    return jt_decode_value(space, type, text, service);
  }
  std::string encode(const char *type, const jt_value *value, const char *service = "kmt_svc_scan") {
    return take_text(jt_encode_value(space, type, value, service));
  }
  void destroy(const char *type, jt_value *value, const char *service = "kmt_svc_scan") {
    EXPECT_EQ(jt_destroy_value(space, type, value, service), 1);
  }
};

struct Sample {
  const char *service;
  const char *type;
  const char *text;
  const char *written;
};

constexpr Sample kSamples[] = {
    {"kmt_svc_scan", "integer", "+42", "42"},
    {"kmt_svc_scan", "real", "2.5", "2.500000"},
    {"kmt_svc_scan", "boolean", "true", "TRUE"},
    {"kmt_svc_scan", "string", "A \"b\"", "A \"b\""},
    {"kmt_svc_scan", "timestamp", "2009/01/02/03/04/05", "2009/01/02/03/04/05"},
    {"kmt_svc_scan", "struct_timeofday", "09:05", "9:5"},
    {"kmt_svc_scan", "ref_invocation", "scan1:copy2", "scan1:copy2"},
    {"kmt_svc_scan", "ref_collection", "all:of:it", "all:of:it"},
    {"kmt_svc_scan", "struct_rectangle", "1/2/100/200/MM", "1/2/100/200/MM"},
    {"kmt_svc_scan", "struct_gutter", "1/2/in", "1/2/IN"},
    {"kmt_svc_scan", "struct_magnification", "maniso/100", "MANISO/100"},
    {"kmt_svc_scan", "struct_borders", "1/2/3/4/MM", "1/2/3/4/MM/1/2/3/4/MM"},
    {"kmt_svc_scan", "enum_mediasize", "iso_a4sef", "ISO_A4SEF"},
    {"kmt_svc_scan", "kmt_enum_status", "mm", "MM"},
    {"kmt_svc_scan", "enum_units", "mil", "MIL"},
    {"kmt_svc_scan", "enum_systemidalgorithm", "proprietary", "PROPRIETARY"},
    {"kmt_document", "enum_docformat", "pdf", "PDF"},
    {"kmt_svc_general", "enum_type", "fax", "FAX"},
    {"kmt_svc_fax", "enum_type", "urgent", "URGENT"},
    {"kmt_svc_file", "enum_filingprotocol", "sftp", "SFTP"},
    {"kmt_svc_print", "enum_printmode", "staple", "STAPLE"},
    {"kmt_svc_email", "enum_jobpriority", "low", "LOW"},
    {"kmt_svc_ocr", "enum_conversionlanguage", "english", "ENGLISH"},
    {"kmt_svc_validation", "enum_protocol", "https", "HTTPS"},
    {"kmt_dscrpt_metadata", "enum_metadatamaskingrequired", "mask_only", "MASK_ONLY"},
    {"no such service", "integer", "1", "1"},
    {nullptr, "integer", "1", "1"},
};

class EverySample : public ValueCalls, public ::testing::WithParamInterface<Sample> {};

TEST_P(EverySample, LivesThroughAllFiveCalls) {
  const auto &[service, type, text, written] = GetParam();
  jt_value *const value = decode(type, text, service);
  ASSERT_NE(value, nullptr);
  jt_value *const copy = jt_copy_value(space, type, value, service);
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, value);
  EXPECT_EQ(jt_compare_value(space, type, value, copy, service), 0);
  destroy(type, value, service);
  EXPECT_EQ(encode(type, copy, service), written);
  destroy(type, copy, service);
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(EverySample, NullValuesAreAnsweredWithoutAMessage) {
  const auto &[service, type, text, written] = GetParam();
  EXPECT_EQ(decode(type, nullptr, service), nullptr);
  EXPECT_EQ(jt_copy_value(space, type, nullptr, service), nullptr);
  EXPECT_EQ(encode(type, nullptr, service), "(none)");
  EXPECT_EQ(jt_compare_value(space, type, nullptr, nullptr, service), 0);
  EXPECT_EQ(messages(), Messages{});
}

INSTANTIATE_TEST_SUITE_P(Types, EverySample, ::testing::ValuesIn(kSamples));

class EveryBlock : public ValueCalls, public ::testing::WithParamInterface<const char *> {};

TEST_P(EveryBlock, HasNoOperations) {
  const std::string type = GetParam();
  const int32_t number = 1;
  const auto *const value = reinterpret_cast<const jt_value *>(&number);
  EXPECT_EQ(jt_copy_value(space, type.c_str(), value, type.c_str()), nullptr);
  EXPECT_EQ(jt_encode_value(space, type.c_str(), value, type.c_str()), nullptr);
  EXPECT_EQ(jt_decode_value(space, type.c_str(), "1", type.c_str()), nullptr);
  EXPECT_EQ(jt_destroy_value(space, type.c_str(), const_cast<jt_value *>(value), type.c_str()), 0);
  EXPECT_EQ(jt_compare_value(space, type.c_str(), value, value, type.c_str()), -2);
  const std::string missing = "SYSTEM ERROR: undefined cmp function for" + type + " ...";
  EXPECT_EQ(messages(), (Messages{missing, missing, missing, missing,
                                  "SYSTEM ERROR: no compare function for:" + type + " ..."}));
  EXPECT_EQ(status(), -7);
}

INSTANTIATE_TEST_SUITE_P(Types, EveryBlock,
                         ::testing::Values("description", "doc_object", "generic_service", "instance",
                                           "invocation", "service", "sil_header", "template", "unknown_type",
                                           "kmt_document", "kmt_svc_general", "kmt_svc_fax", "kmt_svc_file",
                                           "kmt_svc_scan", "kmt_svc_print", "kmt_svc_notification",
                                           "kmt_svc_email", "kmt_svc_ocr", "kmt_svc_docman",
                                           "kmt_svc_paperware", "kmt_svc_desktop", "kmt_svc_validation",
                                           "kmt_dscrpt_metadata"),
                         [](const auto &tested) { return std::string(tested.param); });

TEST_F(ValueCalls, AMissingOperationIsReportedWithTheTypesOwnNameAndAMissingComparisonWithTheGivenOne) {
  const int32_t number = 1;
  const auto *const value = reinterpret_cast<const jt_value *>(&number);
  jt_copy_value(space, "TEMPLATE", value, "");
  jt_compare_value(space, "TEMPLATE", value, value, "");
  EXPECT_EQ(messages(), (Messages{"SYSTEM ERROR: undefined cmp function fortemplate ...",
                                  "SYSTEM ERROR: no compare function for:TEMPLATE ..."}));
}

TEST_F(ValueCalls, AnUnknownTypeIsReportedByEachCallInItsOwnWords) {
  int32_t number = 1;
  auto *const value = reinterpret_cast<jt_value *>(&number);
  EXPECT_EQ(jt_copy_value(space, "nosuch", value, ""), nullptr);
  EXPECT_EQ(jt_compare_value(space, "nosuch", value, value, ""), -2);
  EXPECT_EQ(jt_encode_value(space, "nosuch", value, ""), nullptr);
  EXPECT_EQ(jt_decode_value(space, "nosuch", "text", ""), nullptr);
  EXPECT_EQ(jt_destroy_value(space, "nosuch", value, ""), 0);
  EXPECT_EQ(
      messages(),
      (Messages{"CALL ERROR: unknown type construct a copy ...", "CALL ERROR: unknown type to compare ...",
                "CALL ERROR: unknown type encode a value ...", "CALL ERROR: unknown type decodetext ...",
                "CALL ERROR: no type construct to destroy the value ..."}));
  EXPECT_EQ(number, 1);
}

TEST_F(ValueCalls, ANullTypeNameIsUnknown) {
  EXPECT_EQ(jt_decode_value(space, nullptr, nullptr, "kmt_svc_scan"), nullptr);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: unknown type decode(null) ..."});
}

TEST_F(ValueCalls, ATypeOfAnotherServiceIsUnknown) {
  EXPECT_EQ(decode("enum_mediasize", "AUTO", "kmt_svc_fax"), nullptr);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: unknown type decodeAUTO ..."});
}

TEST_F(ValueCalls, WithoutAParserHandleEveryCallFails) {
  int32_t number = 1;
  auto *const value = reinterpret_cast<jt_value *>(&number);
  EXPECT_EQ(jt_copy_value(nullptr, "integer", value, ""), nullptr);
  EXPECT_EQ(jt_compare_value(nullptr, "integer", value, value, ""), 0);
  EXPECT_EQ(jt_encode_value(nullptr, "integer", value, ""), nullptr);
  EXPECT_EQ(jt_decode_value(nullptr, "integer", "1", ""), nullptr);
  EXPECT_EQ(jt_destroy_value(nullptr, "integer", value, ""), 0);
  EXPECT_EQ(jt_destroy_value(nullptr, "integer", nullptr, ""), 0);
  EXPECT_EQ(number, 1);
}

TEST_F(ValueCalls, DestroyingNothingReportsWithoutClearingTheStatusFirst) {
  EXPECT_EQ(jt_destroy_value(space, "nosuch", nullptr, ""), 0);
  EXPECT_EQ(status(), -4);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: value is null, cannot delete ..."});
}

TEST_F(ValueCalls, ATextThatTheTypeRefusesIsReportedUncutAndLeftAsItIs) {
  char text[] = "MANISO/401";
  EXPECT_EQ(decode("struct_magnification", text), nullptr);
  EXPECT_STREQ(text, "MANISO/401");
  EXPECT_EQ(status(), -5);
}

TEST_F(ValueCalls, TheResultOfAComparisonIsPassedThrough) {
  jt_value *const a = decode("string", "a");
  jt_value *const c = decode("string", "C");
  EXPECT_EQ(jt_compare_value(space, "string", a, c, ""), 'a' - 'c');
  EXPECT_EQ(jt_compare_value(space, "string", c, a, ""), 'c' - 'a');
  destroy("string", a);
  destroy("string", c);
}

TEST_F(ValueCalls, ADecodedStringMayBeReleasedAsAText) {
  jt_value *const value = decode("string", "text");
  EXPECT_EQ(jt_destroy_value_string(space, reinterpret_cast<char *>(value)), 1);
}

}  // namespace
}  // namespace jt_test
