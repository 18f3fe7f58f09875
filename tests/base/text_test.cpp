// The text routines: numbers from digits, the order of names, and the helpers that names are compared and
// hashed with.
#include "base/text.h"

#include <gtest/gtest.h>

#include <climits>
#include <numeric>
#include <string>
#include <vector>

#include "jt.h"

namespace {

// ---- string_to_integer ----

struct Number {
  const char *text;
  long expected;
};

constexpr Number kNumbers[] = {
    {"0", 0},   {"7", 7},
    {"007", 7}, {"0000000000000000000000000000001", 1},
    {"42", 42}, {"1234567890", 1234567890},
};

TEST(StringToInteger, ReadsDecimalDigits) {
  for (const Number &row : kNumbers) {
    SCOPED_TRACE(row.text);
    long number = -1;
    EXPECT_EQ(string_to_integer(row.text, &number), 1);
    EXPECT_EQ(number, row.expected);
  }
}

TEST(StringToInteger, RefusesEverythingElseAndLeavesTheNumberAlone) {
  for (const char *const text : {"", "-7", "+7", " 7", "7 ", "7a", "a7", "1.5", "1e3", "0x10", "\t7", "7\n",
                                 "\xB2", "7\xB9", "/", ":", "12/", "12:"}) {
    SCOPED_TRACE(text);
    long number = 4711;
    EXPECT_EQ(string_to_integer(text, &number), 0);
    EXPECT_EQ(number, 4711);
  }
}

TEST(StringToInteger, RefusesANullText) {
  long number = 4711;
  EXPECT_EQ(string_to_integer(nullptr, &number), 0);
  EXPECT_EQ(number, 4711);
}

TEST(StringToInteger, ReadsUpToTheLargestLong) {
  long number = 0;
  EXPECT_EQ(string_to_integer(std::to_string(LONG_MAX).c_str(), &number), 1);
  EXPECT_EQ(number, LONG_MAX);
  EXPECT_EQ(string_to_integer(std::to_string(LONG_MAX - 1).c_str(), &number), 1);
  EXPECT_EQ(number, LONG_MAX - 1);
}

TEST(StringToInteger, SaturatesBeyondTheLargestLong) {
  std::string next = std::to_string(LONG_MAX);
  ++next.back();
  for (const std::string &text : {next, std::to_string(LONG_MAX) + "0", std::string(20, '9'),
                                  std::string(1000, '9'), "1" + std::string(30, '0')}) {
    SCOPED_TRACE(text);
    long number = 0;
    EXPECT_EQ(string_to_integer(text.c_str(), &number), 1);
    EXPECT_EQ(number, LONG_MAX);
  }
}

TEST(StringToInteger, RefusesALetterBehindTooManyDigits) {
  long number = 4711;
  EXPECT_EQ(string_to_integer((std::string(40, '9') + "x").c_str(), &number), 0);
  EXPECT_EQ(number, 4711);
}

// ---- lowercasecmp ----

TEST(Lowercasecmp, NullComesFirst) {
  EXPECT_EQ(lowercasecmp(nullptr, nullptr), 0);
  EXPECT_EQ(lowercasecmp(nullptr, ""), -1);
  EXPECT_EQ(lowercasecmp("", nullptr), 1);
  EXPECT_EQ(lowercasecmp(nullptr, "a"), -1);
  EXPECT_EQ(lowercasecmp("a", nullptr), 1);
}

TEST(Lowercasecmp, LettersOfEitherCaseAreEqual) {
  EXPECT_EQ(lowercasecmp("", ""), 0);
  EXPECT_EQ(lowercasecmp("ABC", "abc"), 0);
  EXPECT_EQ(lowercasecmp("aBc", "AbC"), 0);
  EXPECT_EQ(lowercasecmp("abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"), 0);
  EXPECT_EQ(lowercasecmp("kmt_svc_scan", "KMT_SVC_SCAN"), 0);
}

TEST(Lowercasecmp, GivesTheDifferenceOfTheFoldedBytes) {
  EXPECT_EQ(lowercasecmp("a", "b"), -1);
  EXPECT_EQ(lowercasecmp("Z", "a"), 25);
  EXPECT_EQ(lowercasecmp("xa", "XC"), -2);
  EXPECT_EQ(lowercasecmp("_", "A"), '_' - 'a');
  EXPECT_EQ(lowercasecmp("A", "["), 'a' - '[');
}

TEST(Lowercasecmp, TheEndOfTheFirstIsComparedWithTheByteAsItStands) {
  EXPECT_EQ(lowercasecmp("abc", "abcd"), -'d');
  EXPECT_EQ(lowercasecmp("abc", "abcD"), -'D');
  EXPECT_EQ(lowercasecmp("", "A"), -'A');
  EXPECT_EQ(lowercasecmp("", "\xFF"), -255);
}

TEST(Lowercasecmp, TheEndOfTheSecondIsComparedWithTheFoldedByte) {
  EXPECT_EQ(lowercasecmp("abcd", "abc"), 'd');
  EXPECT_EQ(lowercasecmp("abcD", "abc"), 'd');
  EXPECT_EQ(lowercasecmp("\xFF", ""), 255);
}

int expected_difference(int a, int b) {
  const auto folded = [](int byte) { return byte >= 'A' && byte <= 'Z' ? byte + 32 : byte; };
  return a == 0 ? -b : folded(a) - folded(b);
}

TEST(Lowercasecmp, NothingButAToZFoldsAndBytesAreUnsigned) {
  for (int a = 0; a < 256; ++a) {
    for (int b = 0; b < 256; ++b) {
      const char first[] = {static_cast<char>(a), '\0'};
      const char second[] = {static_cast<char>(b), '\0'};
      ASSERT_EQ(lowercasecmp(first, second), expected_difference(a, b)) << a << " and " << b;
    }
  }
}

// ---- The helpers inside ----

TEST(TextHelpers, FoldAgreesWithTheOrderOfNames) {
  EXPECT_EQ(jt_core::fold('A'), 'a');
  EXPECT_EQ(jt_core::fold('Z'), 'z');
  EXPECT_EQ(jt_core::fold('@'), '@');
  EXPECT_EQ(jt_core::fold('['), '[');
  EXPECT_EQ(jt_core::fold('\xC4'), 0xC4);
}

TEST(TextHelpers, DigitsAreZeroToNine) {
  for (int byte = 0; byte < 256; ++byte)
    EXPECT_EQ(jt_core::is_digit(static_cast<char>(byte)), byte >= '0' && byte <= '9') << byte;
}

TEST(TextHelpers, CompareNamesOrdersLikeLowercasecmp) {
  const char *const names[] = {"", "a", "A", "ab", "AB", "b", "[", "_", "z", "Z", "\xE4", "\xC4", "abc"};
  const auto sign = [](int number) { return (number > 0) - (number < 0); };
  for (const char *const a : names) {
    for (const char *const b : names) {
      EXPECT_EQ(sign(jt_core::compare_names(a, b)), sign(lowercasecmp(a, b))) << a << " and " << b;
      EXPECT_EQ(jt_core::same_name(a, b), lowercasecmp(a, b) == 0) << a << " and " << b;
    }
  }
}

TEST(TextHelpers, TheSameNameHasTheSameHash) {
  EXPECT_EQ(jt_core::name_hash("Scan"), jt_core::name_hash("sCAN"));
  EXPECT_EQ(jt_core::name_hash(""), jt_core::name_hash(""));
  EXPECT_NE(jt_core::name_hash("scan"), jt_core::name_hash("scam"));
}

// Eight bytes are looked at together, so each length up to three times eight has its own way.
TEST(TextHelpers, ANameOfAnyLengthIsTheSameInCapitals) {
  const std::string small = "abcdefghijklmnopqrstuvwxyz";
  const std::string capitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (std::size_t length = 0; length <= small.size(); ++length) {
    const std::string_view a = std::string_view(small).substr(0, length);
    const std::string_view b = std::string_view(capitals).substr(0, length);
    EXPECT_TRUE(jt_core::same_name(a, a)) << a;
    EXPECT_TRUE(jt_core::same_name(a, b)) << a;
    EXPECT_EQ(jt_core::name_hash(a), jt_core::name_hash(b)) << a;
  }
}

TEST(TextHelpers, ANameOfAnyLengthIsAnotherWhereverOneByteDiffers) {
  const std::string name = "abcdefghijklmnopqrstuvwxyz";
  for (std::size_t length = 1; length <= name.size(); ++length) {
    for (std::size_t at = 0; at < length; ++at) {
      const std::string a = name.substr(0, length);
      std::string b = a;
      b[at] = '-';
      EXPECT_FALSE(jt_core::same_name(a, b)) << a << " and " << b;
      EXPECT_NE(jt_core::name_hash(a), jt_core::name_hash(b)) << a << " and " << b;
    }
  }
}

// How far from their places some names come to lie, on average, in a table that is half full.
double steps_from_home(const std::vector<std::string> &names) {
  std::vector<bool> taken(names.size() * 2);
  std::size_t steps = 0;
  for (const std::string &name : names) {
    std::size_t at = jt_core::name_hash(name) % taken.size();
    for (; taken[at]; at = (at + 1) % taken.size()) ++steps;
    taken[at] = true;
  }
  return static_cast<double>(steps) / static_cast<double>(names.size());
}

std::vector<std::string> names_with_digits(std::string name, std::size_t a, std::size_t b, std::size_t c) {
  constexpr const char *kDigits = "0123456789abcdef";
  std::vector<std::string> names;
  for (std::size_t i = 0; i < 1024; ++i) {
    name[a] = kDigits[i / 256];
    name[b] = kDigits[i / 16 % 16];
    name[c] = kDigits[i % 16];
    names.push_back(name);
  }
  return names;
}

// Wherever three digits tell the names of a family apart, the family must not crowd in one corner of a table.
TEST(TextHelpers, HashesOfNumberedNamesAreSpread) {
  std::vector<double> steps;
  for (const std::size_t length : {3U, 4U, 5U, 7U, 8U, 12U, 14U, 16U, 19U}) {
    const std::string name = std::string("attributes-of-a-job").substr(0, length);
    for (std::size_t a = 0; a + 2 < length; ++a) {
      for (std::size_t b = a + 1; b + 1 < length; ++b) {
        for (const std::size_t c : {b + 1, length - 1}) {
          steps.push_back(steps_from_home(names_with_digits(name, a, b, c)));
          ASSERT_LT(steps.back(), 1) << name << " " << a << " " << b;
        }
      }
    }
  }
  EXPECT_LT(std::accumulate(steps.begin(), steps.end(), 0.0) / static_cast<double>(steps.size()), 0.6);
}

TEST(TextHelpers, ANullTextReadsAsEmpty) {
  EXPECT_EQ(jt_core::view_of(nullptr), "");
  EXPECT_EQ(jt_core::view_of("scan"), "scan");
}

}  // namespace
