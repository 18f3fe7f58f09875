// Where a text that was written is not read back as what was written: each exception that jt.h, the README
// and the manual list has its case here, so that the lists stay true. Everything else is
// round_trip_test.cpp's.
#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

class ReadBack : public DecodeTest {
 protected:
  // What becomes of a text when it is read and written once.
  std::string written(const std::string &text) {
    const int32_t handle = decode(text);
    EXPECT_NE(handle, 0) << text << "\n" << ::testing::PrintToString(messages());
    return handle != 0 ? encoded(handle) : "(refused)";
  }

  // An attribute of a service that knows the types of scanning, as it is written.
  static std::string attribute(const std::string &declaration) {
    return "[kmt_svc_scan A]\n {\n      " + declaration + "\n }\nend\n\n";
  }

  void expect_written_but_refused(const std::string &text, const std::string &expected,
                                  const std::string &message) {
    const std::string once = written(text);
    EXPECT_EQ(once, expected);
    EXPECT_EQ(decode(once), 0) << once;
    EXPECT_EQ(messages().back(), message);
  }

  void expect_written_as(const std::string &text, const std::string &once, const std::string &twice) {
    EXPECT_EQ(written(text), once);
    EXPECT_EQ(written(once), twice);
    EXPECT_EQ(written(twice), twice);
  }

  // A template with one attribute of that type without values: [ kmt_svc_scan A ] { TYPE a; } end
  int32_t template_with(const char *type) {
    const int32_t handle = decode("[ kmt_svc_scan A ] { } end");
    EXPECT_EQ(jt_add_attribute(space, handle, "A", type, "a"), 1);
    return handle;
  }

  template <typename Value>
  void add_value(int32_t handle, const Value &value) {
    EXPECT_EQ(jt_add_attribute_value(space, handle, "A", "a", reinterpret_cast<const jt_value *>(&value)), 1);
  }

  // A value that a client made is written; when that is read the value is missing.
  template <typename Value>
  void expect_lost(const char *type, const Value &value, const std::string &text) {
    const int32_t handle = template_with(type);
    add_value(handle, value);
    const std::string once = encoded(handle);
    EXPECT_EQ(once, attribute(std::string(type) + " a = " + text + ";"));
    EXPECT_EQ(written(once), attribute(std::string(type) + " a = ;"));
  }
};

// ---- Values that were read ----

TEST_F(ReadBack, AnEnumeratedNameThatSpellsEndIsRefused) {
  expect_written_but_refused("[ kmt_svc_scan A ] { enum_mediasize a = \"end\"; } end",
                             attribute("enum_mediasize a = end;"),
                             "SYNTAX ERROR: while parsing for \" ; or VALUE \" at: end;\n }\nend\n\n ...");
}

TEST_F(ReadBack, AReferenceThatSpellsEndIsRefused) {
  for (const std::string type : {"ref_collection", "ref_invocation"}) {
    expect_written_but_refused("[ kmt_svc_scan A ] { " + type + " a = \"End\"; } end",
                               attribute(type + " a = End;"),
                               "SYNTAX ERROR: while parsing for \" ; or VALUE \" at: End;\n }\nend\n\n ...");
  }
}

TEST_F(ReadBack, AStringThatSpellsEndIsTheSame) {
  const std::string text = attribute("string a = \"end\";");
  EXPECT_EQ(written(text), text);
}

TEST_F(ReadBack, AnEmptyNameAmongOthersIsRefused) {
  expect_written_but_refused("[ kmt_svc_scan A ] { enum_mediasize a = \"\", AUTO; } end",
                             attribute("enum_mediasize a = , AUTO;"),
                             "SYNTAX ERROR: while parsing for \" ; or VALUE \" at: , AUTO;\n }\nend\n\n ...");
  expect_written_but_refused("[ kmt_svc_scan A ] { enum_mediasize a = AUTO, \"\"; } end",
                             attribute("enum_mediasize a = AUTO, ;"),
                             "SYNTAX ERROR: while parsing for \"  VALUE  \" at: ;\n }\nend\n\n ...");
}

TEST_F(ReadBack, AnEmptyNameAloneIsNoValue) {
  jt_node *const root = decoded("[ kmt_svc_scan A ] { enum_mediasize a = \"\"; } end");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(values(child(root, {"A"})->first_child->first_child), Messages{""});
  jt_node *const again = decoded(attribute("enum_mediasize a = ;"));
  EXPECT_EQ(take_text(encode_template(space, root)), attribute("enum_mediasize a = ;"));
  EXPECT_EQ(values(child(again, {"A"})->first_child->first_child), Messages{});
}

TEST_F(ReadBack, AReferenceOfAColonIsWrittenAsNothing) {
  EXPECT_EQ(written("[ kmt_svc_scan A ] { ref_invocation a = :; } end"), attribute("ref_invocation a = ;"));
  expect_written_but_refused("[ kmt_svc_scan A ] { ref_invocation a = \":\", b; } end",
                             attribute("ref_invocation a = , b;"),
                             "SYNTAX ERROR: while parsing for \" ; or VALUE \" at: , b;\n }\nend\n\n ...");
}

TEST_F(ReadBack, ARealBeyondItsRangeIsMissing) {
  expect_written_as("[ kmt_svc_scan A ] { real a = " + times(40, '9') + "; } end", attribute("real a = inf;"),
                    attribute("real a = ;"));
}

TEST_F(ReadBack, ARealKeepsSixDecimals) {
  EXPECT_EQ(written("[ kmt_svc_scan A ] { real a = 0.00000001, 0.12345678; } end"),
            attribute("real a = 0.000000, 0.123457;"));
}

// ---- Values that a client made ----

TEST_F(ReadBack, AValueOfMoreThan1024BytesIsRefused) {
  const int32_t handle = template_with("string");
  EXPECT_EQ(jt_add_attribute_value_string(space, handle, "A", "a", times(1025, 'x').c_str()), 1);
  const std::string once = encoded(handle);
  EXPECT_EQ(once, attribute("string a = \"" + times(1025, 'x') + "\";"));
  EXPECT_EQ(decode(once), 0);
  EXPECT_EQ(messages(),
            Messages{cut("SYNTAX ERROR: token is longer than allowable length:", times(1025, 'x'))});
}

TEST_F(ReadBack, AValueOf1024BytesIsTheSame) {
  const std::string text = attribute("string a = \"" + times(1024, 'x') + "\";");
  EXPECT_EQ(written(text), text);
}

TEST_F(ReadBack, ValuesOutOfRangeAreMissing) {
  constexpr int32_t kMillimetres = 20;
  constexpr int32_t kManIso = 113;
  expect_lost("struct_rectangle", std::array<int32_t, 5>{1, 1, 1, 1, kMillimetres}, "1/1/1/1/MM");
  expect_lost("struct_magnification", std::array<int32_t, 3>{kManIso, 401, 401}, "MANISO/401");
  expect_lost("struct_timeofday", std::array<int32_t, 2>{24, 0}, "24:0");
  expect_lost("timestamp", std::array<int32_t, 6>{0, 0, 0, 1, 1, 12345}, "12345/01/01/00/00/00");
}

TEST_F(ReadBack, NegativeNumbersOfOtherTypesThanIntegerAreMissing) {
  constexpr int32_t kMillimetres = 20;
  expect_lost("real", -1.5F, "-1.500000");
  expect_lost("struct_gutter", std::array<int32_t, 3>{-1, 1, kMillimetres}, "-1/1/MM");
}

TEST_F(ReadBack, AColonInTheNameOfAReferenceEndsTheName) {
  struct Reference {
    const char *name;
    const char *qualifier;
  };
  const int32_t handle = template_with("ref_invocation");
  add_value(handle, Reference{"b:c", "d"});
  const std::string once = encoded(handle);
  EXPECT_EQ(once, attribute("ref_invocation a = b:c:d;"));
  jt_node *const again = decoded(once);
  Reference read = {};
  std::memcpy(&read, child(again, {"A"})->first_child->first_child->first_child->value, sizeof(read));
  EXPECT_STREQ(read.name, "b");
  EXPECT_STREQ(read.qualifier, "c:d");
}

TEST_F(ReadBack, ANumberWithoutANameIsLeftOut) {
  const int32_t handle = template_with("enum_mediasize");
  add_value(handle, uint32_t{999999});
  EXPECT_EQ(encoded(handle), attribute("enum_mediasize a = ;"));
  const Messages expected = {"CALL ERROR: Unknown enumerated value ...",
                             "MEMORY ERROR: bad value  -- ignored ..."};
  EXPECT_EQ(messages(), expected);
}

// ---- Statuses and the texts behind them ----

TEST_F(ReadBack, OfAStatusTextWithABlankTheLastWordStays) {
  expect_written_as("[ service A ] end ( KMT_STATUS_ERROR { \"Tray Empty\" } )",
                    "[service A]\nend(KMT_STATUS_ERROR{Tray Empty})\n\n",
                    "[service A]\nend(KMT_STATUS_ERROR{Empty})\n\n");
}

TEST_F(ReadBack, OfAnOverriddenTextWithABlankTheLastWordStays) {
  expect_written_as("[ kmt_svc_scan A ] { string a = b; ( KMT_STATUS_OVERRIDDEN { \"Tray Empty\" } ) } end",
                    attribute("string a = \"b\";(KMT_STATUS_OVERRIDDEN{Tray Empty})"),
                    attribute("string a = \"b\";(KMT_STATUS_OVERRIDDEN{Empty})"));
}

TEST_F(ReadBack, AStatusTextWithPunctuationOrThatSpellsEndIsRefused) {
  expect_written_but_refused("[ service A ] end ( KMT_STATUS_ERROR { \"a,b\" } )",
                             "[service A]\nend(KMT_STATUS_ERROR{a,b})\n\n",
                             "SYNTAX ERROR: while parsing for \" } or STRING \" at:a,b})\n\n ...");
  expect_written_but_refused("[ service A ] end ( KMT_STATUS_ERROR { \"end\" } )",
                             "[service A]\nend(KMT_STATUS_ERROR{end})\n\n",
                             "SYNTAX ERROR: while parsing for \" } or STRING \" at:{end})\n\n ...");
}

TEST_F(ReadBack, AStatusWithABlankIsRefused) {
  expect_written_but_refused("[ service A ] end ( \"No paper\" )", "[service A]\nend(No paper)\n\n",
                             "SYNTAX ERROR: while parsing for \" { or ) \" at: paper)\n\n ...");
}

TEST_F(ReadBack, AnEmptyStatusIsNone) {
  expect_written_as("[ service A ] end ( \"\" )", "[service A]\nend()\n\n", "[service A]\nend\n\n");
}

// ---- Comments ----

TEST_F(ReadBack, CommentsOfATemplateMoveOnceToItsHeader) {
  expect_written_as("< SIL 4.2.00 ASCII id > [ service A ] end # c\n < /SIL >",
                    "\n< SIL 4.2.00 ASCII id >\n\n# c\n[service A]\nend\n\n\n< /SIL >\n",
                    "# c\n\n< SIL 4.2.00 ASCII id >\n\n[service A]\nend\n\n\n< /SIL >\n");
}

TEST_F(ReadBack, CommentsBehindTheOnlySectionAreNotWritten) {
  EXPECT_EQ(written("<! SIL 4.2.00 ASCII id > < ! > [ service A ] end < /! > # c\n < /SIL > # d"),
            "\n<! SIL 4.2.00 ASCII id >\n\n\n< ! >\n[service A]\nend\n\n< /! >\n\n\n< /SIL >\n");
}

// ---- Names that a client set ----

TEST_F(ReadBack, ANameWithABlankIsRefused) {
  const int32_t handle = jt_create_template(space);
  EXPECT_EQ(jt_add_service(space, handle, "service", "My Scan"), 1);
  const std::string once = encoded(handle);
  EXPECT_EQ(once, "[service My Scan]\nend\n\n");
  EXPECT_EQ(decode(once), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: while parsing for \" ] \" at: Scan]\nend\n\n ..."});
}

TEST_F(ReadBack, AnAttributeOfUnknownTypeIsRefused) {
  const int32_t handle = template_with("enum_coffee");
  const std::string once = encoded(handle);
  EXPECT_EQ(once, attribute("enum_coffee a = ;"));
  EXPECT_EQ(decode(once), 0);
}

TEST_F(ReadBack, ACommentThatIsNotALineOfOneIsReadAsText) {
  const int32_t handle = template_with("integer");
  jt_node *const service = child(opaque_to_node(space, handle), {"A"});
  EXPECT_EQ(add_comment(space, service, "text "), 1);
  const std::string once = encoded(handle);
  EXPECT_EQ(once, "[kmt_svc_scan A]\n text {\n      integer a = ;\n }\nend\n\n");
  jt_node *const again = decoded(once);
  EXPECT_NE(child(again, {"A", "text"}), nullptr);
}

}  // namespace
}  // namespace jt_test
