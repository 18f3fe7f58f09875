// Reading reals: the two ways to do it beside what the C++ or the C library reads, on a million decimals of every
// length, and on those that lie where one of the two roundings turns.
#include "types/real_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdlib>
#include <random>
#include <string>
#include <version>

namespace jt_test {
namespace {

using jt_core::read_real;
using jt_core::read_real_by_integers;

std::size_t decimal_count() {
  const char *const text = std::getenv("JT_TEST_ITEMS");
  return text != nullptr ? std::stoul(text) : 1'000'000;
}

// Read by another hand: the C++ library or, where that reads no decimals, the C library.
double nearest_double(const std::string &text) {
#ifdef __cpp_lib_to_chars
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
#else
  return std::strtod(text.c_str(), nullptr);
#endif
}

std::uint32_t bits_of(float number) { return std::bit_cast<std::uint32_t>(number); }

class RealText : public ::testing::Test {
 protected:
  void SetUp() override {
#ifndef __cpp_lib_to_chars
    if (std::strtod("0.5", nullptr) != 0.5)
      GTEST_SKIP() << "the C library reads another point in this locale";
#endif
  }

  // All that is read here is in the range of singles.
  static void expect_same(const std::string &text) {
    const std::uint32_t expected = bits_of(static_cast<float>(nearest_double(text)));
    ASSERT_EQ(bits_of(read_real_by_integers(text)), expected) << text;
    ASSERT_EQ(bits_of(read_real(text)), expected) << text;
  }

  std::size_t below(std::size_t end) {
    return static_cast<std::size_t>(std::uniform_int_distribution<std::uint64_t>(0, end - 1)(random_));
  }

  // Up to 38 digits before the point, some of them zeros in front, and up to 50 behind it, or no point.
  std::string any_decimal() {
    std::string text = std::string(below(8) == 0 ? below(30) : 0, '0') + digits(below(39));
    if (text.empty() || below(8) != 0)
      text += "." + std::string(below(8) == 0 ? below(30) : 0, '0') + digits(below(20));
    return text == "." ? "0." : text;
  }

  // Halfway between two singles, or up to two half steps of doubles beside that; then that number itself, or
  // one that is as little above or below it as so many digits can say.
  std::string near_halfway() {
    const auto bits = static_cast<std::uint32_t>(below(kHighestSingle) >> below(31));
    const double half = double{std::bit_cast<float>(bits)} / 2 + double{std::bit_cast<float>(bits + 1)} / 2;
    const double low = step(half, -static_cast<int>(below(3)));
    return beside(sum(in_full(low), in_full(below(2) == 0 ? 0 : (step(low, 1) - low) / 2)));
  }

 private:
  static constexpr std::uint32_t kHighestSingle = 0x7F7FFFFF;

  std::string digits(std::size_t count) {
    std::string text(count, '0');
    std::generate(text.begin(), text.end(), [&] { return static_cast<char>('0' + below(10)); });
    return text;
  }

  static double step(double number, int steps) {
    return std::bit_cast<double>(std::bit_cast<std::int64_t>(number) + steps);
  }

  // To the last digit: half the step of the double below half the lowest single takes 204 behind the point.
  static std::string in_full(double number) {
    std::array<char, 300> text;
    auto *const end = text.data() + text.size();
    return {text.data(), std::to_chars(text.data(), end, number, std::chars_format::fixed, 204).ptr};
  }

  static std::string sum(std::string a, std::string b) {
    const std::size_t width = std::max(a.size(), b.size()) + 1;
    a.insert(0, width - a.size(), '0');
    b.insert(0, width - b.size(), '0');
    int carry = 0;
    for (std::size_t i = width; i > 0; --i) {
      if (a[i - 1] == '.') continue;
      carry += a[i - 1] - '0' + b[i - 1] - '0';
      a[i - 1] = static_cast<char>('0' + carry % 10);
      carry /= 10;
    }
    return a;
  }

  std::string beside(std::string text) {
    const std::size_t choice = below(3);
    if (choice == 0) return text;
    if (choice == 1) return text + std::string(below(40), '0') + "1";
    const std::size_t last = text.find_last_not_of("0.");
    --text[last];
    for (std::size_t i = last + 1; i < text.size(); ++i) text[i] = text[i] == '.' ? '.' : '9';
    return text + std::string(below(40), '9');
  }

  std::mt19937_64 random_;
};

TEST_F(RealText, IsReadTheSameEitherWay) {
  const std::size_t count = decimal_count();
  for (std::size_t i = 0; i < count && !HasFatalFailure(); ++i) expect_same(any_decimal());
}

TEST_F(RealText, IsReadTheSameWhereRoundingTurns) {
  const std::size_t count = decimal_count() / 10;
  for (std::size_t i = 0; i < count && !HasFatalFailure(); ++i) expect_same(near_halfway());
}

// ---- Known numbers ----

struct Known {
  std::string text;
  std::uint32_t bits;
};

const std::array kKnown = {
    Known{"", 0}, Known{".", 0}, Known{"0.", 0}, Known{".0", 0}, Known{"5.", 0x40A00000},
    Known{".5", 0x3F000000}, Known{"007.25", 0x40E80000}, Known{"16777217", 0x4B800000},
    Known{"0.1", 0x3DCCCCCD},
    // The nearest double is halfway between two singles, of which the even one is above.
    Known{"1.00000017881393432617187499", 0x3F800002},
    Known{"340282346638528859811704183484516925440", 0x7F7FFFFF},
    Known{"340282356779733623858607532500980858880", 0x7F7FFFFF},
    Known{"340282356779733661637539395458142568448", 0x7F800000}, Known{std::string(39, '9'), 0x7F800000},
    Known{"1" + std::string(39, '0'), 0x7F800000}, Known{std::string(400, '9') + ".5", 0x7F800000},
    Known{std::string(3000, '0') + "1", 0x3F800000}, Known{"0." + std::string(44, '0') + "1", 1},
    Known{"0." + std::string(60, '0') + "1", 0}, Known{"0." + std::string(400, '0') + "1", 0},
    Known{std::string(400, '0') + "." + std::string(400, '0') + "1", 0},
    Known{"0." + std::string(2000, '3'), 0x3EAAAAAB}};

TEST(KnownReal, IsReadEitherWay) {
  for (const Known &known : kKnown) {
    EXPECT_EQ(bits_of(read_real(known.text)), known.bits) << known.text;
    EXPECT_EQ(bits_of(read_real_by_integers(known.text)), known.bits) << known.text;
  }
}

// 1 + 2^-24 + 2^-53 is halfway between two doubles, the lower of which, 1 + 2^-24, is halfway between two singles.
TEST(KnownReal, IsRoundedByEveryDigit) {
  const std::string halfway = "1.00000005960464488641292746251565404236316680908203125";
  const std::string above = halfway + std::string(5000, '0') + "1";
  const std::string bit_above =  // 2^-80 above
      "1.000000059604644886412928289696266595390841680490"
      "72331996285356581211090087890625";
  EXPECT_EQ(bits_of(read_real_by_integers(halfway)), 0x3F800000U);
  EXPECT_EQ(bits_of(read_real_by_integers(bit_above)), 0x3F800001U);
  EXPECT_EQ(bits_of(read_real_by_integers(above)), 0x3F800001U);
  EXPECT_EQ(bits_of(read_real(above)), 0x3F800001U);
}

}  // namespace
}  // namespace jt_test
