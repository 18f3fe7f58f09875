// Names, values, statuses and comments of every length up to their limit, each written as it was read; the
// limits of the header and of statuses, and one byte more; and names longer than any text may have them,
// which only calls can give.
#include <gtest/gtest.h>

#include <string>

#include "scale/scale.h"
#include "sil/template_cases.h"

namespace jt_test {
namespace {

constexpr std::size_t kMostName = 1023;
constexpr std::size_t kMostValue = 1024;
constexpr std::size_t kMostComment = 1022;
constexpr std::size_t kMostString = 1025;
constexpr std::size_t kMostWord = 2047;
constexpr std::size_t kFoldColumn = 70;
constexpr char kTokenTooLong[] =
    "SYNTAX ERROR: token length exceeds JT_MAX_TOKEN_LENGTH (1024) + QUOTES --> ";
constexpr char kNameTooLong[] = "SYNTAX ERROR: token is longer than allowable length:";

// Line feed and indent, where what is to follow begins behind the column that lines are folded at.
std::string fold_behind(std::size_t column) {
  return column > kFoldColumn ? "\n" + times(25, ' ') : std::string();
}

class EveryLength : public ScaleTest {
 protected:
  void expect_fixed(const std::string &text) {
    on_a_small_stack([&] {
      ASSERT_NO_FATAL_FAILURE(decode(text));
      EXPECT_TRUE(is_written_as(text));
    });
  }
};

TEST_F(EveryLength, OfAnAttributeName) {
  std::string text = "[kmt_svc_fax A]\n {\n";
  for (std::size_t length = 1; length <= kMostName; ++length) {
    const std::string before_sign = fold_behind(14 + length);
    const std::string before_value = before_sign.empty() ? fold_behind(17 + length) : "";
    text += "      integer " + times(length, 'n') + before_sign + " = " + before_value + "1;\n";
  }
  expect_fixed(text + " }\nend\n\n");
}

TEST_F(EveryLength, OfAnInvocationName) {
  std::string text = "[kmt_svc_fax A]\n";
  for (std::size_t length = 1; length <= kMostName; ++length)
    text += ' ' + times(length, 'n') + (1 + length > kFoldColumn ? "\n {\n }\n" : "{\n }\n");
  expect_fixed(text + "end\n\n");
}

TEST_F(EveryLength, OfAServiceName) {
  std::string text;
  for (std::size_t length = 1; length <= kMostWord; ++length)
    text += "[service " + times(length, 'n') + (9 + length > kFoldColumn ? "\n]\nend\n\n" : "]\nend\n\n");
  expect_fixed(text);
}

TEST_F(EveryLength, OfAString) {
  std::string text = "[kmt_svc_fax A]\n {\n      string s = \"\"";
  std::size_t column = 19;
  for (std::size_t length = 1; length <= kMostValue; ++length) {
    const std::string fold = fold_behind(column + 2);
    text += ", " + fold + '"' + times(length, 's') + '"';
    column = (fold.empty() ? column + 2 : 25) + length + 2;
  }
  expect_fixed(text + ";\n }\nend\n\n");
}

TEST_F(EveryLength, OfAnEnumeratedNameThatIsInNoList) {
  on_a_small_stack([&] {
    std::string text = "[ kmt_svc_scan A ] { enum_mediasize s = x";
    for (std::size_t length = 2; length <= kMostValue; ++length) text += ", " + times(length, 'x');
    job = jt_decode_template(space, (text + "; } end").c_str());
    ASSERT_NE(job, 0);
    OwnedText value(jt_get_first_attribute_value_string(space, job, "A", "s"));
    for (std::size_t length = 1; length <= kMostValue; ++length) {
      ASSERT_STREQ(value.get(), times(length, 'x').c_str());
      value.reset(jt_get_next_attribute_value_string(space, job, "A", "s"));
    }
    EXPECT_EQ(value, nullptr);
  });
}

TEST_F(EveryLength, OfAComment) {
  std::string text;
  for (std::size_t length = 0; length <= kMostComment; ++length) text += '#' + times(length, 'c') + '\n';
  expect_fixed(text + "[service A]\nend\n\n");
}

TEST_F(EveryLength, OfAStatusText) {
  std::string text;
  for (std::size_t length = 1; length <= kMostWord; ++length)
    text +=
        "[service S" + std::to_string(length) + "]\nend(KMT_STATUS_ERROR{" + times(length, 't') + "})\n\n";
  expect_fixed(text);
}

TEST_F(EveryLength, OfANameThatACallGives) {
  on_a_small_stack([&] {
    ASSERT_NO_FATAL_FAILURE(decode("[ kmt_svc_fax A ] { } end"));
    for (std::size_t length = 1; length <= 3 * kMostName; ++length) {
      const std::string name = times(length, 'n');
      ASSERT_EQ(jt_add_attribute(space, job, "A", "integer", name.c_str()), 1) << length;
      ASSERT_EQ(jt_add_attribute_value_string(space, job, "A", name.c_str(), "7"), 1) << length;
      ASSERT_EQ(jt_force_invocation_name(space, job, "A", name.c_str()), 1) << length;
      ASSERT_EQ(take_text(jt_get_invocation_name(space, job, "A")), name);
    }
    EXPECT_EQ(jt_exists_attribute(space, job, "A", times(3 * kMostName, 'N').c_str()), 1);
    EXPECT_EQ(jt_exists_attribute(space, job, "A", times(3 * kMostName + 1, 'N').c_str()), 0);
  });
}

TEST_F(EveryLength, OfATextThatACallGives) {
  on_a_small_stack([&] {
    ASSERT_NO_FATAL_FAILURE(decode("[ kmt_svc_fax A ] { string s; } end"));
    for (std::size_t length = 0; length <= 3 * kMostValue; ++length) {
      ASSERT_EQ(jt_set_attribute_value_string(space, job, "A", "s", times(length, '"').c_str()), 1) << length;
      ASSERT_EQ(take_text(jt_get_first_attribute_value_string(space, job, "A", "s")), times(length, '"'));
    }
  });
}

// ---- Limits, and one byte more ----------------------------------------------------------------------------

class Limit : public DecodeTest {
 protected:
  // The text is accepted within the two others, and written whole.
  void expect_text(const std::string &before, const std::string &text, const std::string &after) {
    reopen();
    const int32_t handle = decode(before + text + after);
    ASSERT_NE(handle, 0) << ::testing::PrintToString(messages());
    const std::string written = encoded(handle);
    EXPECT_NE(written.find(text), std::string::npos) << written;
  }
  void expect_too_long(const std::string &text, const Messages &messages) {
    reopen();
    expect_refused({"", text, messages});
  }
};

TEST_F(Limit, OfTheWordsOfTheHeaderIsThatOfAnyWord) {
  const std::string word = times(kMostWord, 'w');
  expect_text("< SIL 4.2.00 ASCII ", word, " > < /SIL >");
  expect_text("< SIL ", word, " ASCII id > < /SIL >");
  const std::string longer = word + "w";
  expect_too_long("< SIL 4.2.00 ASCII " + longer + " > < /SIL >", {cut(kTokenTooLong, longer)});
}

TEST_F(Limit, OfANameInTheHeader) {
  const std::string name = times(kMostName, 'n');
  expect_text("< SIL 4.2.00 ASCII id > integer ", name, "; < /SIL >");
  const std::string longer = name + "n";
  expect_too_long("< SIL 4.2.00 ASCII id > integer " + longer + "; < /SIL >",
                  {cut(kNameTooLong, longer), cut("SYNTAX ERROR: decoding attribute at: ", longer)});
}

TEST_F(Limit, OfAValueInTheHeader) {
  const std::string value = times(kMostValue, 'v');
  expect_text("< SIL 4.2.00 ASCII id > string s = ", value, "; < /SIL >");
  const std::string longer = value + "v";
  expect_too_long("< SIL 4.2.00 ASCII id > string s = " + longer + "; < /SIL >", {cut(kNameTooLong, longer)});
}

TEST_F(Limit, OfANameInASection) {
  const std::string name = times(kMostName, 'n');
  expect_text("<! SIL 4.2.00 ASCII id > < ! > [ kmt_svc_fax A ] ", name, "{ } end < /! > < /SIL >");
  const std::string longer = name + "n";
  expect_too_long("<! SIL 4.2.00 ASCII id > < ! > [ kmt_svc_fax A ] " + longer + "{ } end < /! > < /SIL >",
                  {cut(kNameTooLong, longer),
                   cut("SYNTAX ERROR: while parsing for \" { or end or a NAME \" at: ", longer)});
}

// A status is a word or a string, and so is the text behind it, of whichever node.
struct StatusPlace {
  const char *before;
  const char *after;
};

constexpr StatusPlace kStatusPlaces[] = {{"[ service A ] end (", ")"},
                                         {"[ kmt_svc_fax A ] { } (", ") end"},
                                         {"[ kmt_svc_fax A ] { integer a; (", ") } end"}};

TEST_F(Limit, OfAStatusThatIsAWord) {
  const std::string word = times(kMostWord, 'w');
  for (const auto &[before, after] : kStatusPlaces) {
    expect_text(before, word, after);
    expect_too_long(before + word + "w" + after, {cut(kTokenTooLong, word)});
  }
}

TEST_F(Limit, OfAStatusThatIsAString) {
  const std::string text = times(kMostString, 's');
  for (const auto &[before, after] : kStatusPlaces) {
    expect_text(std::string(before) + '"', text, std::string("\"") + after);
    expect_too_long(std::string(before) + '"' + text + "s\"" + after, {cut(kTokenTooLong, text)});
  }
}

TEST_F(Limit, OfATextBehindAStatus) {
  const std::string text = times(kMostString, 's');
  for (const auto &[before, after] : kStatusPlaces) {
    const std::string begin = std::string(before) + "KMT_STATUS_ERROR{\"";
    expect_text(begin, text, std::string("\"}") + after);
    expect_too_long(begin + text + "s\"}" + after, {cut(kTokenTooLong, text)});
  }
}

}  // namespace
}  // namespace jt_test
