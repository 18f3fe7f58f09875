// What the types have to remark on the texts of their values. A text is gone over once more for that, as the
// reader itself does not keep where its numbers stood; all of it is called only when somebody listens, or when
// a text is refused, and stays out of line, so that readers stay small. tests/types/remarks_test.cpp has every
// remark of every type.
#ifndef JT_TYPES_VALUE_REMARKS_H
#define JT_TYPES_VALUE_REMARKS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

#include "types/remarks.h"
#include "types/value_family.h"

namespace jt_core {

// What a type takes, both inclusive.
struct NumberRange {
  std::int32_t least = 0;
  std::int32_t most = std::numeric_limits<std::int32_t>::max();

  bool has(std::int64_t number) const { return least <= number && number <= most; }
};

// What becomes of a number that is outside.
enum class Outside : std::uint8_t { kWarned, kImpossible, kRefused };

// Numbers at the front of a text, each with a character behind it that is passed over, up to the first that is
// refused: that one has no digit or too many, or is outside. False when one is refused.
[[gnu::noinline]] bool remark_numbers(Reading reading, std::string_view text,
                                      std::span<const NumberRange> ranges, Outside outside);

// The numbers in front of the rest of a text, as far as each has a slash behind it.
[[gnu::noinline]] void remark_fields(Reading reading, std::string_view text, std::string_view rest,
                                     NumberRange range = {});

// The same of a text that is refused because the rest does not fit, or because of a name in it that may not
// stand there; where there is no name at all, what is there instead does not fit.
[[gnu::noinline]] void remark_misfit(Reading reading, std::string_view text, std::string_view rest);
[[gnu::noinline]] void remark_unfit_name(Reading reading, std::string_view text, std::string_view name);

// A text of which nothing fits, as it is empty; and one that is no value of the named type from some character
// on, which is reported too. Both refuse it.
[[gnu::noinline]] ReadResult refuse_empty_text(const ValueSink &sink, std::string_view text);
[[gnu::noinline]] void report_misfit(Reading reading, const char *type_name, std::string_view text,
                                     const char *misfit);
inline bool refuse_misfit(Reading reading, const char *type_name, std::string_view text,
                          std::string_view rest) {
  report_misfit(reading, type_name, text, rest.data());
  return false;
}

// A sign, digits, or both.
[[gnu::noinline]] void remark_integer(Reading reading, std::string_view text, bool is_saturated);

// Digits, a point, or both.
[[gnu::noinline]] void remark_real(Reading reading, std::string_view text, float value);

// A timestamp.
[[gnu::noinline]] void remark_calendar(Reading reading, std::string_view text, std::int32_t year,
                                       std::int32_t month);

// An hour and a minute with a colon between them, and any tail.
constexpr std::array<NumberRange, 2> kTimeRanges = {{{0, 23}, {0, 59}}};
[[gnu::noinline]] void remark_time(Reading reading, std::string_view text);

// A mode with percentages behind it, which is refused for one of them or because they are not as many as the
// mode has; or, where it is none, for its name.
constexpr std::size_t kNoMode = 3;  // percentages, which no mode has
constexpr NumberRange kPercentage = {25, 400};
[[gnu::noinline]] void remark_magnification(Reading reading, std::string_view text, std::size_t percentages);

}  // namespace jt_core

#endif
