// The eleven value lists: one for the enumerations of each service that has any, and the base list, whose
// names serve statuses, units and the algorithms of system identifiers alike.
// tests/types/enumeration_test.cpp has every name and number.
#ifndef JT_TYPES_VALUE_LISTS_H
#define JT_TYPES_VALUE_LISTS_H

#include <cstdint>

#include "types/value_list.h"

namespace jt_core {

extern const ValueList kBaseValues;
extern const ValueList kDocumentValues;
extern const ValueList kEmailValues;
extern const ValueList kFaxValues;
extern const ValueList kFileValues;
extern const ValueList kGeneralValues;
extern const ValueList kMetadataValues;
extern const ValueList kOcrValues;
extern const ValueList kPrintValues;
extern const ValueList kScanValues;
extern const ValueList kValidationValues;

// One more than the largest number of the base list, which checks it.
constexpr std::uint32_t kBaseNumberEnd = 25;

// Numbers that the structured types know by themselves; the lists check them.
namespace unit {
constexpr std::int32_t kMm = 20;
constexpr std::int32_t kIn = 21;
constexpr std::int32_t kMil = 22;
}  // namespace unit

namespace scan {
constexpr std::int32_t kNone = 94;
constexpr std::int32_t kAutoIso = 111;
constexpr std::int32_t kAutoAna = 112;
constexpr std::int32_t kManIso = 113;
constexpr std::int32_t kManAna = 114;
constexpr std::int32_t kFlipV = 120;
constexpr std::int32_t kFlipH = 121;
constexpr std::int32_t kFlipB = 122;
}  // namespace scan

}  // namespace jt_core

#endif
