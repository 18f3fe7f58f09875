// The types of several numbers and a name in one text, separated by slashes. What a family has to state is
// described with FlatType. Numbers are digits without a sign; an empty number is 0.
// tests/types/borders_test.cpp, tests/types/gutter_test.cpp, tests/types/magnification_test.cpp and
// tests/types/rectangle_test.cpp
#ifndef JT_TYPES_STRUCTURED_TYPES_H
#define JT_TYPES_STRUCTURED_TYPES_H

#include <array>
#include <cstdint>

#include "types/flat_type.h"

namespace jt_core {

// "width/width/unit". Units are written, but two gutters of the same widths are equal.
struct Gutter {
  struct Value {
    std::int32_t first_width;
    std::int32_t second_width;
    std::int32_t unit;
  };
  static constexpr auto kOfNulls = equality_of_nulls;
  static bool parse(Reading reading, std::string_view text, Value &value);
  static bool format(jt_parser_space *space, const Value &value, ShortText &text);
  static std::int32_t order(const Value &a, const Value &b);
  static std::array<std::int32_t, 2> compared(const Value &value) {
    return {value.first_width, value.second_width};
  }
};

// "x/y/width/height/unit". Only the sizes are compared.
struct Rectangle {
  struct Value {
    std::int32_t x;
    std::int32_t y;
    std::int32_t width;
    std::int32_t height;
    std::int32_t unit;
  };
  static constexpr auto kOfNulls = equality_of_nulls;
  static bool parse(Reading reading, std::string_view text, Value &value);
  static bool format(jt_parser_space *space, const Value &value, ShortText &text);
  static std::int32_t order(const Value &a, const Value &b);
  static std::array<std::int32_t, 2> compared(const Value &value) { return {value.width, value.height}; }
};

// "mode", "mode/percentage" or "mode/percentage/percentage": the mode decides which.
struct Magnification {
  struct Value {
    std::int32_t mode;
    std::int32_t first;
    std::int32_t second;
  };
  static constexpr auto kOfNulls = equality_of_nulls;
  static bool parse(Reading reading, std::string_view text, Value &value);
  static bool format(jt_parser_space *space, const Value &value, ShortText &text);
  static std::int32_t order(const Value &a, const Value &b);
  static void cut(char *text, ReadStatus status);
  static std::array<std::int32_t, 3> compared(const Value &value);
};

// Four margins with their unit for each side of a sheet: "a/b/c/d/unit/e/f/g/h/unit". The second side may be
// left out, or be a flip of the first. Sides count as equal by the first, second and fourth margin of the
// first one.
struct Borders {
  struct Side {
    std::array<std::int32_t, 4> margins;
    std::int32_t unit;
  };
  struct Value {
    Side first;
    Side second;
  };
  static constexpr auto kOfNulls = equality_of_nulls;
  static bool parse(Reading reading, std::string_view text, Value &value);
  static bool format(jt_parser_space *space, const Value &value, ShortText &text);
  static std::int32_t order(const Value &a, const Value &b);
  static std::array<std::int32_t, 3> compared(const Value &value) {
    return {value.first.margins[0], value.first.margins[1], value.first.margins[3]};
  }
};

}  // namespace jt_core

#endif
