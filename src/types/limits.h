// The limits of numbers with a unit, all inclusive: the types test them, and the catalogue tells them. tests/types/gutter_test.cpp and the files beside it go to each limit; tests/api/value_form_test.cpp has what
// the catalogue tells.
#ifndef JT_TYPES_LIMITS_H
#define JT_TYPES_LIMITS_H

#include <array>
#include <cstdint>

#include "base/messages.h"
#include "types/units.h"
#include "types/value_lists.h"

namespace jt_core {

inline constexpr WarningLimits kGutterLimits = {{{unit::kMm, 25, message::kGutterRangeMm},
                                                 {unit::kIn, 100, message::kGutterRangeIn},
                                                 {unit::kMil, 1000, message::kGutterRangeMil}}};

inline constexpr WarningLimits kBordersLimits = {{{unit::kMm, 50, message::kBordersRangeMm},
                                                  {unit::kIn, 200, message::kBordersRangeIn},
                                                  {unit::kMil, 2000, message::kBordersRangeMil}}};

// A position may reach as far as a size.
struct RectangleLimit {
  std::int32_t unit;
  std::int32_t most_across;  // x and width
  std::int32_t most_down;    // y and height
  std::int32_t least_size;
};

inline constexpr std::array<RectangleLimit, 3> kRectangleLimits = {
    {{unit::kMm, 350, 500, 25}, {unit::kIn, 1400, 2000, 100}, {unit::kMil, 14000, 20000, 1000}}};

}  // namespace jt_core

#endif
