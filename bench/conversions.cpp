// Numbers by strtol() and strtof(), types and enumerated names by a hash table, structures part by part.
// Ranges are not tested and letters' case counts, so this does a little less than jt's evaluation.
#include "conversions.h"

#include <cstdlib>
#include <cstring>

namespace bench {
namespace {

constexpr const char *kTypes[] = {
    "boolean",          "integer",          "real",          "ref_collection",
    "ref_invocation",   "string",           "struct_gutter", "struct_magnification",
    "struct_rectangle", "struct_timeofday", "timestamp",
};

// Names that occur within structures.
constexpr const char *kNames[] = {"MM", "IN", "MIL", "AUTOISO", "AUTOANA", "NONE", "MANISO", "MANANA"};

bool convert_integer(const char *text, Value &value) {
  char *end = nullptr;
  value.numbers[0] = static_cast<std::int32_t>(std::strtol(text, &end, 10));
  return end != text && *end == '\0';
}

bool convert_real(const char *text, Value &value) {
  char *end = nullptr;
  value.real = std::strtof(text, &end);
  return end != text && *end == '\0';
}

bool convert_boolean(const char *text, Value &value) {
  value.numbers[0] = std::strcmp(text, "TRUE") == 0;
  return value.numbers[0] != 0 || std::strcmp(text, "FALSE") == 0;
}

bool convert_reference(const char *text, Value &value) {
  const char *const colon = std::strchr(text, ':');
  value.reference = {text, colon == nullptr ? nullptr : colon + 1};
  return true;
}

}  // namespace

Converter::Converter() {
  for (const char *const type : kTypes) types_.emplace(type, kind_of(type));
  std::int32_t number = 0;
  for (const std::string_view name : enumerated_names()) names_.emplace(name, ++number);
  for (const char *const name : kNames) names_.emplace(name, ++number);
}

Kind Converter::kind_of_type(std::string_view type) const {
  const auto found = types_.find(type);
  return found == types_.end() ? Kind::kEnumeration : found->second;
}

bool Converter::convert_enumeration(const char *text, Value &value) const {
  const auto found = names_.find(text);
  if (found == names_.end()) return false;
  value.numbers[0] = found->second;
  return true;
}

// A number or one of the names; stands behind it afterwards.
bool Converter::read_number_or_name(const char *&text, std::int32_t &number) const {
  char *end = nullptr;
  number = static_cast<std::int32_t>(std::strtol(text, &end, 10));
  if (end != text) {
    text = end;
    return true;
  }
  const std::size_t length = std::strcspn(text, "/");
  const auto found = names_.find(std::string_view(text, length));
  if (found == names_.end()) return false;
  number = found->second;
  text += length;
  return true;
}

// All structures are parts between slashes; the time of day has a colon.
bool Converter::convert_structure(Kind kind, const char *text, Value &value) const {
  const char separator = kind == Kind::kTimeOfDay ? ':' : '/';
  for (std::int32_t &number : value.numbers) {
    if (!read_number_or_name(text, number)) return false;
    if (*text == '\0') return true;
    if (*text++ != separator) return false;
  }
  return false;
}

bool Converter::convert(Kind kind, const char *text, Value &value) const {
  value.kind = kind;
  switch (kind) {
    case Kind::kString:
      value.text = text;
      return true;
    case Kind::kInteger:
      return convert_integer(text, value);
    case Kind::kReal:
      return convert_real(text, value);
    case Kind::kBoolean:
      return convert_boolean(text, value);
    case Kind::kEnumeration:
      return convert_enumeration(text, value);
    case Kind::kReference:
      return convert_reference(text, value);
    default:
      return convert_structure(kind, text, value);
  }
}

}  // namespace bench
