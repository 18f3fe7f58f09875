// The facts of a generated template, independent of any format: what every writer writes down and every
// library is to find again. The five shapes are generated from the same rows, so that a figure of one shape
// can be held against the same figure of another.
#ifndef JT_BENCH_FACTS_H
#define JT_BENCH_FACTS_H

#include <array>
#include <compare>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

// What a value is, whatever the name of its type: decides how a format writes it and what it converts to.
enum class Kind {
  kString,
  kInteger,
  kReal,
  kBoolean,
  kEnumeration,
  kRectangle,
  kTimestamp,
  kTimeOfDay,
  kMagnification,
  kGutter,
  kReference,
};

struct Attribute {
  const char *type;
  std::string name;
  bool compulsory;
  std::vector<std::string> values;
};

struct Invocation {
  std::string name;
  std::vector<Attribute> attributes;
};

struct Service {
  const char *type;
  std::string name;
  std::vector<Invocation> invocations;
};

struct Facts {
  std::string identifier;
  std::vector<Service> services;
};

struct Counts {
  std::size_t services = 0;
  std::size_t invocations = 0;
  std::size_t attributes = 0;
  std::size_t values = 0;
  auto operator<=>(const Counts &) const = default;
};

Counts count(const Facts &facts);

enum class Shape { kTypical, kMedium, kLarge, kWide, kLong };

inline constexpr std::array kShapes = {Shape::kTypical, Shape::kMedium, Shape::kLarge, Shape::kWide,
                                       Shape::kLong};

const char *name_of(Shape shape);

Facts make_facts(Shape shape);

// The kind that the name of a type stands for.
Kind kind_of(std::string_view type);

// The names of enumerated values that occur in any shape, each once.
std::vector<std::string_view> enumerated_names();

}  // namespace bench

#endif
