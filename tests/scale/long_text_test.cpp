// Texts of a hundred megabytes: a template of everything, over and over; white space, comments and refusals
// that go on and on; one name and one value of that length, which only calls can give.
#include <gtest/gtest.h>

#include <string>

#include "scale/scale.h"
#include "sil/template_cases.h"

namespace jt_test {
namespace {

constexpr char kTokenTooLong[] =
    "SYNTAX ERROR: token length exceeds JT_MAX_TOKEN_LENGTH (1024) + QUOTES --> ";
constexpr char kCommentTooLong[] = "SYNTAX ERROR: comment longer than JT_MAX_TOKEN_LENGTH -->";
constexpr char kNoEnd[] = "SYNTAX ERROR: while parsing for \"  EOF  \" at:";

std::size_t bytes() { return megabytes() * 1'000'000; }

// A service as it is written, with something of everything.
std::string service(std::size_t number) {
  const std::string digits = std::to_string(number);
  return "[kmt_svc_scan Scan" + digits +
         "]\n"
         " # of the service\n"
         " First{\n"
         "      # of the invocation\n"
         "      enum_colormode Color = GRAYSCALE;(KMT_STATUS_COMPLETED)\n"
         "    * integer Pages = 1, 2, 3;(KMT_STATUS_OVERRIDDEN{4})\n"
         "      string Note = \"a \\\"quoted\\\" text\\n\", \"" +
         times(500, 'x') +
         "\";\n"
         "      struct_gutter Gutter = 5/6/IN;\n"
         " }(KMT_STATUS_ERROR{why-" +
         digits +
         "})\n"
         " {\n"
         " }\n"
         "end(KMT_STATUS_ABORTED{late})\n\n";
}

class LongText : public ScaleTest {
 protected:
  // The newest message; a text that is refused leaves nothing behind.
  std::string refusal_of(const std::string &text) {
    EXPECT_EQ(jt_decode_template(space, text.c_str()), 0);
    const char *const message = jt_get_recent_error(space);
    EXPECT_EQ(jt_create_template(space), -100);
    return message != nullptr ? message : "(none)";
  }
};

TEST_F(LongText, IsReadAndWrittenAgain) {
  on_a_small_stack([&] {
    std::string text;
    std::size_t services = 0;
    while (text.size() < bytes()) text += service(services++);
    ASSERT_NO_FATAL_FAILURE(decode(text));
    EXPECT_EQ(count_children(root()), services);
    const std::string last = "SCAN" + std::to_string(services - 1);
    EXPECT_EQ(jt_named_invocation(space, job, last.c_str(), "first"), 1);
    EXPECT_EQ(take_text(jt_get_first_attribute_value_string(space, job, last.c_str(), "Note")),
              "a \"quoted\" text\n");
    EXPECT_TRUE(is_written_as(text));
    destroy();
  });
}

TEST_F(LongText, OfWhiteSpaceIsPassedOver) {
  on_a_small_stack([&] {
    const std::string blanks(bytes() / 2, ' ');
    const std::string lines(bytes() / 2, '\n');
    ASSERT_NO_FATAL_FAILURE(decode(blanks + "[ service A ] end" + lines));
    EXPECT_TRUE(is_written_as("[service A]\nend\n\n"));
  });
}

TEST_F(LongText, OfOneWordIsRefusedWithItsBeginning) {
  on_a_small_stack([&] {
    EXPECT_EQ(refusal_of("[ service " + times(bytes(), 'w')), cut(kTokenTooLong, times(300, 'w')));
  });
}

TEST_F(LongText, OfOneStringIsRefusedWithItsBeginning) {
  on_a_small_stack([&] {
    EXPECT_EQ(refusal_of("[ kmt_svc_fax A ] { string s = \"" + times(bytes(), 's')),
              cut(kTokenTooLong, times(300, 's')));
  });
}

TEST_F(LongText, OfOneCommentIsRefusedWithItsBeginning) {
  on_a_small_stack(
      [&] { EXPECT_EQ(refusal_of("#" + times(bytes(), 'c')), cut(kCommentTooLong, "#" + times(300, 'c'))); });
}

TEST_F(LongText, BehindTheEndMarkerIsShownByItsBeginning) {
  on_a_small_stack([&] {
    EXPECT_EQ(refusal_of("< SIL 4.2.00 ASCII id > < /SIL > ;" + times(bytes(), ' ') + ";"),
              cut(kNoEnd, " ;" + times(300, ' ')));
  });
}

TEST_F(LongText, WithoutItsEndMarkerLeavesNothingBehind) {
  on_a_small_stack([&] {
    std::string text = "< SIL 4.2.00 ASCII id >";
    for (std::size_t i = 0; text.size() < bytes() / 4; ++i) text += service(i);
    EXPECT_EQ(refusal_of(text), "SYNTAX ERROR: Illegal end of block at ...");
  });
}

TEST_F(LongText, OfAValueIsKeptAndWritten) {
  on_a_small_stack([&] {
    ASSERT_NO_FATAL_FAILURE(decode("[ kmt_svc_fax A ] { string s; } end"));
    const std::string value(bytes() / 4, '"');
    EXPECT_EQ(jt_add_attribute_value_string(space, job, "A", "s", value.c_str()), 1);
    const OwnedText kept(jt_get_first_attribute_value_string(space, job, "A", "s"));
    EXPECT_TRUE(same_text(kept.get(), value));
    std::string escaped = "\\\"";
    while (escaped.size() < value.size() * 2) escaped += escaped.substr(0, value.size() * 2 - escaped.size());
    EXPECT_TRUE(is_written_as("[kmt_svc_fax A]\n {\n      string s = \"" + escaped + "\";\n }\nend\n\n"));
  });
}

TEST_F(LongText, OfANameIsKeptAndWritten) {
  on_a_small_stack([&] {
    const std::string name(bytes() / 4, 'n');
    job = jt_create_template(space);
    EXPECT_EQ(jt_add_service(space, job, "service", name.c_str()), 1);
    EXPECT_EQ(jt_exists_service(space, job, times(bytes() / 4, 'N').c_str()), 1);
    EXPECT_EQ(jt_exists_service(space, job, times(bytes() / 4 - 1, 'n').c_str()), 0);
    EXPECT_TRUE(is_written_as("[service " + name + "\n]\nend\n\n"));
  });
}

}  // namespace
}  // namespace jt_test
