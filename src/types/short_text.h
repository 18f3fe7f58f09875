// The text of a value under construction. No flat value needs more than this: the longest text is that
// of borders, eight numbers and two names, and a value's text form has to stay a single block.
// tests/types/borders_test.cpp writes the longest one.
#ifndef JT_TYPES_SHORT_TEXT_H
#define JT_TYPES_SHORT_TEXT_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace jt_core {

// What a real is written as, which lies in the buffer: six decimals; "inf" for an infinite number.
std::string_view write_real(std::array<char, 64> &buffer, float number);

class ShortText {
 public:
  void add(std::string_view part) {
    const std::size_t taken = std::min(part.size(), text_.size() - length_);
    std::copy_n(part.begin(), taken, text_.data() + length_);
    length_ += taken;
  }

  void add_number(std::int32_t number);

  // At least so many characters, filled with zeros behind the sign.
  void add_padded(std::int32_t number, std::size_t width);

  std::string_view view() const { return {text_.data(), length_}; }

 private:
  std::array<char, 256> text_;
  std::size_t length_ = 0;
};

}  // namespace jt_core

#endif
