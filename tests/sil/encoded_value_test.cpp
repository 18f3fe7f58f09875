// Values as they are written: quotes and escapes byte by byte, values that have no text, and texts that are
// written as they are.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

constexpr char kService[] = "kmt_svc_scan";

class EncodedValue : public DecodeTest {
 protected:
  EncodedValue() : handle(jt_decode_template(space, "[ service kmt_svc_scan ] { } end")) {}

  // What stands between "= " and ";" once a fresh attribute of this type has these values.
  std::string written(const char *type, const std::vector<std::string> &texts) {
    jt_delete_attribute(space, handle, kService, "a");
    jt_add_attribute(space, handle, kService, type, "a");
    for (const std::string &text : texts) {
      EXPECT_EQ(jt_add_attribute_value_string(space, handle, kService, "a", text.c_str()), 1) << text;
    }
    return between_equals_and_semicolon(type);
  }

  std::string between_equals_and_semicolon(const char *type) {
    const std::string before = std::string("[service kmt_svc_scan]\n {\n      ") + type + " a = ";
    const std::string after = ";\n }\nend\n\n";
    const std::string text = encoded(handle);
    EXPECT_EQ(text.substr(0, before.size()), before);
    if (text.size() < before.size() + after.size()) return text;
    EXPECT_EQ(text.substr(text.size() - after.size()), after);
    return text.substr(before.size(), text.size() - before.size() - after.size());
  }

  // A value that the type's list does not know, between others that it knows.
  void add_number(const char *attribute, uint32_t number) {
    EXPECT_EQ(
        jt_add_attribute_value(space, handle, kService, attribute, reinterpret_cast<jt_value *>(&number)), 1);
  }

  int32_t handle;
};

// Bytes that are not written as they are, and how they are written.
struct Escape {
  char byte;
  const char *text;
};

constexpr Escape kControls[] = {{'\b', "\\b"}, {'\t', "\\t"}, {'\n', "\\n"},
                                {'\v', "\\v"}, {'\f', "\\f"}, {'\r', "\\r"}};
constexpr Escape kInStrings[] = {{'"', "\\\""}, {'\\', "\\\\"}};
constexpr Escape kInOtherTypes[] = {{' ', "\\ "}, {'!', "\\!"}, {'"', "\\\""},  {'#', "\\#"}, {'$', "\\$"},
                                    {'%', "\\%"}, {'&', "\\&"}, {'(', "\\("},   {')', "\\)"}, {'*', "\\*"},
                                    {',', "\\,"}, {';', "\\;"}, {'<', "\\<"},   {'=', "\\="}, {'>', "\\>"},
                                    {'?', "\\?"}, {'[', "\\["}, {'\\', "\\\\"}, {']', "\\]"}, {'^', "\\^"},
                                    {'{', "\\{"}, {'|', "\\|"}, {'}', "\\}"}};

template <std::size_t kCount>
std::string escaped(char byte, const Escape (&escapes)[kCount]) {
  for (const Escape &escape : kControls) {
    if (escape.byte == byte) return escape.text;
  }
  for (const Escape &escape : escapes) {
    if (escape.byte == byte) return escape.text;
  }
  return std::string(1, byte);
}

TEST_F(EncodedValue, EveryByteOfAString) {
  for (int byte = 1; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    EXPECT_EQ(written("string", {std::string("a") + c + "b"}), "\"a" + escaped(c, kInStrings) + "b\"")
        << byte;
  }
}

TEST_F(EncodedValue, EveryByteOfAReference) {
  for (int byte = 1; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    EXPECT_EQ(written("ref_collection", {std::string("a") + c + "b"}), "a" + escaped(c, kInOtherTypes) + "b")
        << byte;
  }
}

TEST_F(EncodedValue, EveryByteOfAnUnknownEnumeratedName) {
  for (int byte = 1; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    EXPECT_EQ(written("enum_mediasize", {std::string("a") + c + "b"}), "a" + escaped(c, kInOtherTypes) + "b")
        << byte;
  }
}

TEST_F(EncodedValue, EveryByteOfAPendingValue) {
  for (int byte = 1; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    EXPECT_EQ(written("strange_type", {std::string("a") + c + "b"}), "a" + escaped(c, kInOtherTypes) + "b")
        << byte;
  }
}

TEST_F(EncodedValue, EscapesAtBothEnds) {
  EXPECT_EQ(written("string", {"\"x\\"}), "\"\\\"x\\\\\"");
  EXPECT_EQ(written("ref_collection", {" x;"}), "\\ x\\;");
  EXPECT_EQ(written("string", {"\n\n"}), "\"\\n\\n\"");
}

TEST_F(EncodedValue, EmptyStringIsTwoQuotes) {
  EXPECT_EQ(written("string", {"", "x", ""}), "\"\", \"x\", \"\"");
}

TEST_F(EncodedValue, OfEachScalarType) {
  EXPECT_EQ(written("integer", {"-12", "+007"}), "-12, 7");
  EXPECT_EQ(written("real", {"2.5", "3."}), "2.500000, 3.000000");
  EXPECT_EQ(written("boolean", {"true", "False"}), "TRUE, FALSE");
  EXPECT_EQ(written("timestamp", {"2009/01/02/03/04/05"}), "2009/01/02/03/04/05");
  EXPECT_EQ(written("struct_timeofday", {"09:05"}), "9:5");
  EXPECT_EQ(written("ref_invocation", {"scan1:copy 2", "scan1"}), "scan1:copy\\ 2, scan1");
  EXPECT_EQ(written("ref_collection", {"all pages"}), "all\\ pages");
}

TEST_F(EncodedValue, OfEachStructuredType) {
  EXPECT_EQ(written("struct_rectangle", {"0/0/100/100/mm"}), "0/0/100/100/MM");
  EXPECT_EQ(written("struct_gutter", {"5/6/in"}), "5/6/IN");
  EXPECT_EQ(written("struct_magnification", {"maniso/100", "AUTOISO"}), "MANISO/100, AUTOISO");
  EXPECT_EQ(written("struct_borders", {"1/2/3/4/MM"}), "1/2/3/4/MM/1/2/3/4/MM");
}

TEST_F(EncodedValue, LongerThanAToken) {
  const std::string text = times(5000, '"');
  std::string escaped_text;
  for (int i = 0; i < 5000; ++i) escaped_text += "\\\"";
  EXPECT_EQ(written("string", {text}), "\"" + escaped_text + "\"");
  EXPECT_EQ(written("ref_collection", {text}), escaped_text);
  EXPECT_EQ(written("strange_type", {text}), escaped_text);
}

TEST_F(EncodedValue, LongAndShortOnesInTurn) {
  const std::string fold = ", \n" + times(25, ' ');
  EXPECT_EQ(written("string", {times(3000, 'a'), times(10, 'b'), times(1500, 'c'), times(9000, 'd'), "",
                               times(2999, 'e'), times(9001, 'f')}),
            "\"" + times(3000, 'a') + "\"" + fold + "\"" + times(10, 'b') + "\", \"" + times(1500, 'c') +
                "\"" + fold + "\"" + times(9000, 'd') + "\"" + fold + "\"\", \"" + times(2999, 'e') + "\"" +
                fold + "\"" + times(9001, 'f') + "\"");
}

TEST_F(EncodedValue, OfAnUnknownEnumeratedNameReportsAndIsWritten) {
  EXPECT_EQ(written("enum_mediasize", {"FOO", "iso_a4sef"}), "FOO, ISO_A4SEF");
  EXPECT_EQ(status(), JT_CALL_ERROR);
  EXPECT_EQ(messages().back(), "CALL ERROR: Unknown enumerated value ...");
}

TEST_F(EncodedValue, OfAnEmptyEnumeratedNameIsWrittenAsNothing) {
  const int32_t read = decode("[ service kmt_svc_scan ] { enum_mediasize a = \"\" , AUTO , \"\" ; } end");
  EXPECT_EQ(encoded(read), "[service kmt_svc_scan]\n {\n      enum_mediasize a = , AUTO, ;\n }\nend\n\n");
}

// ---- Values without a text ----

class ValueWithoutText : public EncodedValue {
 protected:
  ValueWithoutText() { jt_add_attribute(space, handle, kService, "enum_mediasize", "a"); }

  void add_name(const char *name) { jt_add_attribute_value_string(space, handle, kService, "a", name); }
  void add_bad() { add_number("a", 999); }
};

TEST_F(ValueWithoutText, IsReportedAndTheEncodingGoesOn) {
  add_name("AUTO");
  add_bad();
  EXPECT_EQ(encoded(handle), "[service kmt_svc_scan]\n {\n      enum_mediasize a = AUTO;\n }\nend\n\n");
  EXPECT_EQ(status(), JT_MEMORY_ERROR);
  EXPECT_EQ(messages(), (Messages{"CALL ERROR: Unknown enumerated value ...",
                                  "MEMORY ERROR: bad value  -- ignored ..."}));
}

TEST_F(ValueWithoutText, IsLeftOutWithoutASessionToo) {
  add_name("AUTO");
  add_bad();
  EXPECT_EQ(take_text(encode_template(nullptr, opaque_to_node(space, handle))),
            "[service kmt_svc_scan]\n {\n      enum_mediasize a = AUTO;\n }\nend\n\n");
  EXPECT_EQ(messages(), Messages());
}

TEST_F(ValueWithoutText, IsReportedEachTime) {
  add_bad();
  add_bad();
  EXPECT_NE(encoded(handle), "(none)");
  EXPECT_EQ(
      messages(),
      (Messages{"CALL ERROR: Unknown enumerated value ...", "MEMORY ERROR: bad value  -- ignored ...",
                "CALL ERROR: Unknown enumerated value ...", "MEMORY ERROR: bad value  -- ignored ..."}));
}

TEST_F(ValueWithoutText, AloneLeavesNothing) {
  add_bad();
  EXPECT_EQ(between_equals_and_semicolon("enum_mediasize"), "");
}

TEST_F(ValueWithoutText, FirstGoesWithTheSeparatorBehindIt) {
  add_bad();
  add_name("AUTO");
  EXPECT_EQ(between_equals_and_semicolon("enum_mediasize"), "AUTO");
}

TEST_F(ValueWithoutText, LastGoesWithTheSeparatorBeforeIt) {
  add_name("AUTO");
  add_bad();
  EXPECT_EQ(between_equals_and_semicolon("enum_mediasize"), "AUTO");
}

TEST_F(ValueWithoutText, BetweenOthersGoesWithOneSeparator) {
  add_name("AUTO");
  add_bad();
  add_name("MIXED");
  EXPECT_EQ(between_equals_and_semicolon("enum_mediasize"), "AUTO, MIXED");
}

TEST_F(ValueWithoutText, SeveralGoWithTheirSeparators) {
  add_bad();
  add_bad();
  add_name("AUTO");
  add_bad();
  add_bad();
  add_name("MIXED");
  add_bad();
  EXPECT_EQ(between_equals_and_semicolon("enum_mediasize"), "AUTO, MIXED");
}

// ---- Texts that are written as they are ----

TEST_F(EncodedValue, StatusTextIsNotEscaped) {
  const int32_t read = decode("[ service A ] end ( KMT_STATUS_ERROR { \"a \\\"b\\\" } # \\\\\" } )");
  EXPECT_EQ(encoded(read), "[service A]\nend(KMT_STATUS_ERROR{a \"b\" } # \\})\n\n");
}

TEST_F(EncodedValue, UnknownStatusNameIsNotEscaped) {
  const int32_t read = decode("[ service A ] end ( \"a b\" )");
  EXPECT_EQ(encoded(read), "[service A]\nend(a b)\n\n");
  EXPECT_EQ(status(), JT_CALL_ERROR);
  EXPECT_EQ(messages(), (Messages{"WARNING: trying to evaluate as an 'enumerated' type:a b ...",
                                  "CALL ERROR: Unknown enumerated value ..."}));
}

TEST_F(EncodedValue, StatusMarkerWithoutTextIsEmptyParentheses) {
  jt_status *const unknown = get_status(space, "LATE");
  EXPECT_EQ(jt_set_service_status(space, handle, kService, unknown), 1);
  kill_status(space, unknown);
  EXPECT_EQ(encoded(handle), "[service kmt_svc_scan]\n {\n }\nend()\n\n");
  EXPECT_EQ(status(), JT_CALL_ERROR);
}

TEST_F(EncodedValue, OverriddenValueStandsInTheStatus) {
  jt_add_attribute(space, handle, kService, "integer", "a");
  jt_add_attribute_value_string(space, handle, kService, "a", "1");
  jt_set_attribute_non_compulsory(space, handle, kService, "a");
  const int32_t old_number = 1;
  const int32_t new_number = 2;
  EXPECT_EQ(jt_override_attribute_value(space, handle, kService, "a",
                                        reinterpret_cast<const jt_value *>(&old_number),
                                        reinterpret_cast<const jt_value *>(&new_number)),
            1);
  EXPECT_EQ(encoded(handle),
            "[service kmt_svc_scan]\n {\n    * integer a = 2;(KMT_STATUS_OVERRIDDEN{1})\n "
            "}\nend\n\n");
}

}  // namespace
}  // namespace jt_test
