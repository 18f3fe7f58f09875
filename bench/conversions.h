// Turns texts into native values by the name of their type: what a client of an untyped library does after
// its parse, and what jt does during its own.
#ifndef JT_BENCH_CONVERSIONS_H
#define JT_BENCH_CONVERSIONS_H

#include <array>
#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "facts.h"

namespace bench {

// A native value. A text is not copied; a reference is where its name and its qualifier begin.
struct Value {
  Kind kind;
  union {
    std::array<std::int32_t, 10> numbers;
    float real;
    const char *text;
    std::array<const char *, 2> reference;
  };
};

class Converter {
 public:
  Converter();

  Kind kind_of_type(std::string_view type) const;

  // Whether the text has the form that its kind wants.
  bool convert(Kind kind, const char *text, Value &value) const;

 private:
  bool convert_enumeration(const char *text, Value &value) const;
  bool convert_structure(Kind kind, const char *text, Value &value) const;
  bool read_number_or_name(const char *&text, std::int32_t &number) const;

  std::unordered_map<std::string_view, Kind> types_;
  std::unordered_map<std::string_view, std::int32_t> names_;
};

}  // namespace bench

#endif
