// What is told of a template that would not be read back as it is when it is written: each rule by itself, on a
// template of one service, one invocation and one attribute with a value.
#include <gtest/gtest.h>

#include <string>

#include "support/session.h"
#include "support/source.h"

namespace jt_test {
namespace {

constexpr const char *kText = "[ kmt_svc_scan S ] I { string Title = \"a\"; } end";

class TemplateCheck : public SessionTest {
 protected:
  // Decodes a text, and takes it for the template that the test is about.
  void decode(const std::string &text) {
    handle = jt_decode_template(space, text.c_str());
    ASSERT_NE(handle, 0) << text;
  }

  jt_node *node(int32_t of) { return opaque_to_node(space, of); }
  int32_t service() { return jt_first_child(space, handle); }
  int32_t invocation() { return jt_first_child(space, service()); }
  int32_t attribute() { return jt_first_child(space, invocation()); }
  int32_t value() { return jt_first_child(space, attribute()); }

  // What is told, as "severity code", and about which element.
  Lines told() {
    lines.clear();
    jt_listener listener{};
    listener.size = sizeof(listener);
    listener.context = this;
    listener.finding = [](void *context, const jt_finding *finding) {
      auto &test = *static_cast<TemplateCheck *>(context);
      test.lines.push_back(severity_name(finding->severity) + " " + jt_finding_name(finding->code));
      test.element = finding->element;
      EXPECT_EQ(finding->range.begin, 0U);
      EXPECT_EQ(finding->range.end, 0U);
      return int32_t{0};
    };
    result = jt_check_template(space, handle, &listener);
    return lines;
  }

  void expect_one(const std::string &line, int32_t about) {
    EXPECT_EQ(told(), Lines{line});
    EXPECT_EQ(element, about);
    EXPECT_EQ(result, line.starts_with("loss") ? 0 : 1);
  }

  int32_t handle = 0;
  int32_t result = -1;
  int32_t element = 0;
  Lines lines;
};

TEST_F(TemplateCheck, SaysNothingOfWhatIsReadBack) {
  decode(
      "< SIL 4.2.00 ASCII id > string Owner = \"me\"; [ kmt_svc_scan S ] # a\n I { integer N = 1; } end < "
      "/SIL >");
  EXPECT_EQ(told(), Lines{});
  EXPECT_EQ(result, 1);
}

TEST_F(TemplateCheck, TellsNoOneWhereThereIsNoListener) {
  decode(kText);
  EXPECT_EQ(jt_check_template(space, handle, nullptr), 1);
  EXPECT_EQ(jt_set_invocation_name(space, handle, "S", "I"), 0);
  ASSERT_EQ(add_comment(space, node(service()), "no comment\n"), 1);
  EXPECT_EQ(jt_check_template(space, handle, nullptr), 0);
}

TEST_F(TemplateCheck, FailsWithoutATemplate) {
  EXPECT_EQ(jt_check_template(space, -100, nullptr), 0);
  EXPECT_STREQ(jt_get_recent_error(space), "CALL ERROR: not a valid handle ...");
}

TEST_F(TemplateCheck, EndsWhereTheListenerEndsIt) {
  decode("[ kmt_svc_scan S ] end [ kmt_svc_scan T ] end");
  for (int32_t child = service(); child != 0; child = jt_next_sibling(space, child)) {
    ASSERT_EQ(add_comment(space, node(child), "no comment\n"), 1);
  }
  int count = 0;
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = &count;
  listener.finding = [](void *context, const jt_finding *) { return ++*static_cast<int *>(context); };
  EXPECT_EQ(jt_check_template(space, handle, &listener), 0);
  EXPECT_EQ(count, 1);
  EXPECT_STREQ(jt_get_recent_error(space), "CALL ERROR: ended by the listener ...");
}

// ---- Names, comments and statuses -------------------------------------------------------------------------

TEST_F(TemplateCheck, ANameOfTwoWordsIsUnsafe) {
  decode("[ kmt_svc_scan S ] { } end");
  ASSERT_EQ(jt_set_invocation_name(space, handle, "S", "two words"), 1);
  expect_one("loss name-unsafe", invocation());
}

TEST_F(TemplateCheck, TheNameEndIsUnsafe) {
  decode(kText);
  ASSERT_EQ(jt_add_attribute(space, handle, "S", "string", "end"), 1);
  expect_one("loss name-unsafe", jt_next_sibling(space, attribute()));
}

TEST_F(TemplateCheck, AServiceNameOfPunctuationIsUnsafe) {
  decode(kText);
  ASSERT_EQ(jt_add_service(space, handle, "kmt_svc_scan", "]"), 1);
  expect_one("loss name-unsafe", jt_next_sibling(space, service()));
}

TEST_F(TemplateCheck, ATextThatIsNoCommentIsReadAsSomethingElse) {
  decode(kText);
  ASSERT_EQ(add_comment(space, node(attribute()), "# fine\nnot fine\n"), 1);
  expect_one("loss comment-moves", attribute());
}

TEST_F(TemplateCheck, CommentsBehindAHeaderWithoutASectionMove) {
  decode("< SIL 4.2.00 ASCII id > [ kmt_svc_scan S ] end < /SIL >");
  ASSERT_EQ(add_comment(space, node(handle), "# here\n"), 1);
  expect_one("note comment-moves", handle);
}

TEST_F(TemplateCheck, CommentsBehindAnExclamationMarkAreNotWritten) {
  decode("<! SIL 4.2.00 ASCII id > < ! > < /! > < /SIL >");
  ASSERT_EQ(add_comment(space, node(handle), "# here\n"), 1);
  expect_one("loss comment-moves", handle);
}

TEST_F(TemplateCheck, AStatusOfTwoWordsIsUnsafe) {
  decode("[ kmt_svc_scan S ] end (\"not done\")");
  expect_one("loss status-unsafe", service());
}

TEST_F(TemplateCheck, AnEmptyStatusIsUnsafe) {
  decode("[ kmt_svc_scan S ] { } (\"\") end");
  expect_one("loss status-unsafe", invocation());
}

TEST_F(TemplateCheck, ATextOfTwoWordsBehindAStatusIsUnsafe) {
  decode("[ kmt_svc_scan S ] { string Title; (KMT_STATUS_ERROR {\"two words\"}) } end");
  expect_one("loss status-unsafe", attribute());
}

// ---- Values -----------------------------------------------------------------------------------------------

TEST_F(TemplateCheck, TheValueEndIsUnsafe) {
  decode("[ kmt_svc_scan S ] { enum_colormode Mode = \"end\"; } end");
  expect_one("loss value-unsafe", value());
}

TEST_F(TemplateCheck, AnEmptyEnumeratedNameIsUnsafe) {
  decode("[ kmt_svc_scan S ] { enum_colormode Mode = \"\"; } end");
  expect_one("loss value-unsafe", value());
}

TEST_F(TemplateCheck, AnInfiniteRealIsUnsafe) {
  decode("[ kmt_svc_scan S ] { real Size = " + std::string(40, '9') + "; } end");
  expect_one("loss value-unsafe", value());
}

TEST_F(TemplateCheck, AStringOver1024BytesIsUnsafe) {
  decode(kText);
  const std::string text(1025, 'x');
  ASSERT_EQ(jt_add_attribute_value_string(space, handle, "S", "Title", text.c_str()), 1);
  expect_one("loss value-unsafe", jt_next_sibling(space, value()));
}

TEST_F(TemplateCheck, ARealOfMoreThanSixDecimalsIsRounded) {
  decode("[ kmt_svc_scan S ] { real Size = 0.0000001; } end");
  expect_one("note value-rounded", value());
}

// ---- Types and headers ------------------------------------------------------------------------------------

TEST_F(TemplateCheck, ServicesBehindAnExclamationMarkAreNotWritten) {
  decode("<! SIL 4.2.00 ASCII id > < ! > < /! > < /SIL >");
  ASSERT_EQ(jt_add_service(space, handle, "kmt_svc_scan", "S"), 1);
  expect_one("loss block-illegal", handle);
}

TEST_F(TemplateCheck, TheSectionIsLookedThroughToo) {
  decode("<? SIL 4.2.00 ASCII id > < ? > [ kmt_svc_scan S ] end (\"a b\") < /? > < /SIL >");
  expect_one("loss status-unsafe", jt_first_child(space, jt_section(space, handle)));
}

TEST_F(TemplateCheck, AttributesOfTheHeaderAreLookedThroughToo) {
  decode("< SIL 4.2.00 ASCII id > string Owner = \"me\"; (\"a b\") < /SIL >");
  expect_one("loss status-unsafe", jt_first_child(space, jt_header(space, handle)));
}

}  // namespace
}  // namespace jt_test
