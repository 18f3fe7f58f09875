// The value list of scanning: media sizes, rotations, sources, originals, magnifications, flips.
// tests/types/enumeration_test.cpp has every row.
#include <array>

#include "types/value_lists.h"
#include "types/value_packing.h"

namespace jt_core {
namespace {

constexpr auto kScan = std::to_array<NamedNumber>({
    {"AUTO", 1},
    {"MIXED", 2},
    {"NA_5.5x7SEF", 3},
    {"NA_5.5x7LEF", 4},
    {"NA_5.5x8.5SEF", 5},
    {"NA_5.5x8.5LEF", 6},
    {"NA_6x9SEF", 7},
    {"NA_7.25x10.5SEF", 8},
    {"NA_8x10SEF", 9},
    {"NA_8x10.5SEF", 10},
    {"NA_8.27x10.63SEF", 11},
    {"NA_8.27x13SEF", 12},
    {"NA_8.46x10.7SEF", 13},
    {"NA_8.46x10.83SEF", 14},
    {"NA_8.46x12.4SEF", 15},
    {"NA_8.5x11SEF", 16},
    {"NA_8.5x11LEF", 17},
    {"NA_9x11SEF", 18},
    {"NA_9x12SEF", 19},
    {"NA_11x17SEF", 20},
    {"NA_8x13SEF", 21},
    {"NA_11x15SEF", 22},
    {"NA_8.5x13SEF", 23},
    {"NA_8.5x14SEF", 24},
    {"JIS_B5LEF", 25},
    {"JIS_B5SEF", 26},
    {"JIS_B6LEF", 27},
    {"JIS_B6SEF", 28},
    {"JP_100x148SEF", 29},
    {"JP_POSTCARDSEF", 30},
    {"NA_12x18SEF", 31},
    {"NA_140x326SEF", 32},
    {"NA_252x358SEF", 33},
    {"NA_5x7SEF", 34},
    {"NA_7.63x10.51SEF", 35},
    {"NA_8.66x13SEF", 36},
    {"NA_8.78x11.69LEF", 37},
    {"NA_8.78x11.69SEF", 38},
    {"NA_10.51x15.28SEF", 39},
    {"NA_A6SEF", 40},
    {"NA_ENVELOPES", 41},
    {"TW_267x389SEF", 42},
    {"TW_8KAISEF", 43},
    {"ISO_A5LEF", 44},
    {"ISO_A5SEF", 45},
    {"ISO_A4LEF", 46},
    {"ISO_A4SEF", 47},
    {"ISO_A3SEF", 48},
    {"ISO_B5SEF", 49},
    {"ISO_B5LEF", 50},
    {"JIS_B4SEF", 51},
    {"ISO_B4SEF", 52},
    {"ISO_216x315SEF", 53},
    {"ISO_216x335SEF", 54},
    {"NA_11x9LEF", 55},
    {"NA_9x11LEF", 55},
    {"NA_10x8LEF", 56},
    {"NA_8x10LEF", 56},
    {"NA_10.5x7.25LEF", 57},
    {"NA_7.25x10.5LEF", 57},
    {"NA_10.5x8LEF", 58},
    {"NA_8x10.5LEF", 58},
    {"NA_229x288LEF", 59},
    {"NA_288x229LEF", 59},
    {"NA_229x234LEF", 60},
    {"NA_234x229LEF", 60},
    {"NA_7.63x10.51LEF", 61},
    {"ISO_A6LEF", 62},
    {"JP_89x127SEF", 63},
    {"JP_102x152SEF", 64},
    {"JP_120x235SEF", 65},
    {"JP_279x378SEF", 66},
    {"JP_COMMERCIAL10LE", 67},
    {"CN_270x390SEF", 68},
    {"CN_195x270SEF", 69},
    {"CN_195x270LEF", 70},
    {"ISO_A6SEF", 71},
    {"ROT_0", 72},
    {"ROT_90", 73},
    {"ROT_180", 74},
    {"ROT_270", 75},
    {"UNKNOWN", 76},
    {"SINGLE_SHEET_FEEDER", 77},
    {"ADH", 78},
    {"DADH", 79},
    {"PLATEN", 80},
    {"TEXT", 81},
    {"LIGHTTEXT", 82},
    {"PHOTO", 83},
    {"MAGAZINE", 84},
    {"HALFTONE", 85},
    {"GRAPHICS", 86},
    {"MAP", 87},
    {"NEWSPAPER_AND_MAGAZINE", 88},
    {"PRINTED_ORIGINAL", 89},
    {"PHOTOCOPY", 90},
    {"PHOTOGRAPH", 91},
    {"INKJET", 92},
    {"SOLID_INK", 93},
    {"NONE", 94},
    {"PORTRAIT", 95},
    {"LANDSCAPE", 96},
    {"HEAD_TO_TOP", 97},
    {"HEAD_TO_FEED_EDGE", 98},
    {"REVERSE_PORTRAIT", 99},
    {"REVERSE_LANDSCAPE", 100},
    {"ONE_SIDED", 101},
    {"ONE_TWOTWO", 102},
    {"TWO_SIDED", 103},
    {"SECOND_SIDE_ROTATION", 104},
    {"OFF", 105},
    {"LEAD_EDGE", 106},
    {"FULL_PAGE", 107},
    {"A_ONLY", 108},
    {"B_ONLY", 109},
    {"BOTH", 110},
    {"AUTOISO", 111},
    {"AUTOANA", 112},
    {"MANISO", 113},
    {"MANANA", 114},
    {"OCCIDENTAL", 115},
    {"ORIENTAL", 116},
    {"BLACK_AND_WHITE", 117},
    {"FULL_COLOR", 118},
    {"GRAYSCALE", 119},
    {"FLIPV", 120},
    {"FLIPH", 121},
    {"FLIPB", 122},
    {"INCLUDE_ALL_PAGES", 123},
    {"OMIT_ALL_BLANK_PAGES", 124},
});
static_assert(kScan.size() == 130);

// Of these sizes the name with the shorter side first is written, although the other one sorts first.
constexpr auto kWrittenSizes = std::to_array<NamedNumber>({
    {"NA_9x11LEF", 55},
    {"NA_8x10LEF", 56},
    {"NA_7.25x10.5LEF", 57},
    {"NA_8x10.5LEF", 58},
});

constexpr auto kPackedScan = pack<kScan>(kWrittenSizes);

static_assert(number_of(kScan, "NONE") == scan::kNone);
static_assert(number_of(kScan, "AUTOISO") == scan::kAutoIso);
static_assert(number_of(kScan, "AUTOANA") == scan::kAutoAna);
static_assert(number_of(kScan, "MANISO") == scan::kManIso);
static_assert(number_of(kScan, "MANANA") == scan::kManAna);
static_assert(number_of(kScan, "FLIPV") == scan::kFlipV);
static_assert(number_of(kScan, "FLIPH") == scan::kFlipH);
static_assert(number_of(kScan, "FLIPB") == scan::kFlipB);

}  // namespace

constinit const ValueList kScanValues = kPackedScan.list();

}  // namespace jt_core
