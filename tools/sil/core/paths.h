// Paths: how a person names a place in a template, as `Scanner/Letter/Copies[2]`. The grammar:
//
//     path    = [ "@header" | "@section" ] { "/" step } [ "[" ( N | "+" ) "]" ] [ "@" aspect ]
//     step    = name | "*" | "#" N | (nothing)        a service, an invocation, an attribute
//     name    = a word without "/", "@", "[" and "=", or a string in SIL's double quotes
//
// where below "@header" the one step is an attribute, and the first "/" of a path without a root is left out.
// Proved by tests/sil_command/paths_test.cpp.
#ifndef SIL_CORE_PATHS_H
#define SIL_CORE_PATHS_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/model.h"

namespace sil {

enum class Root { kBody, kHeader, kSection };

/// What of an element is meant; of an attribute, kNone means its values.
enum class Aspect {
  kNone,
  kName,
  kType,
  kStatus,
  kStatusText,
  kCompulsory,
  kComment,
  kVersion,
  kIdentifier,
  kForm
};

struct Step {
  enum class Kind { kName, kAny, kNumber, kUnnamed };
  Kind kind = Kind::kName;
  std::string name;
  std::size_t number = 0;
};

struct Path {
  Root root = Root::kBody;
  std::vector<Step> steps;
  std::size_t value = 0;  // which one, from 1; 0 is all of them
  bool appends = false;   // [+], behind the last one
  Aspect aspect = Aspect::kNone;
};

/// Why a text is no path, and where in it.
struct PathError {
  std::string message;
  std::size_t offset = 0;
};

std::variant<Path, PathError> parse_path(std::string_view text);

/// Where the first "=" stands that is neither in quotes nor in brackets: what is before it is a path, what is
/// behind it a value.
std::optional<std::size_t> end_of_path(std::string_view assignment);

/// An element, or one value, by its numbers from 0 in the order of the text.
struct Place {
  Root root = Root::kBody;
  std::optional<std::size_t> service;
  std::optional<std::size_t> invocation;
  std::optional<std::size_t> attribute;
  std::optional<std::size_t> value;
  friend bool operator==(const Place &, const Place &) = default;
};

/// The header, the section or the template itself.
inline Place place_of(Root root) {
  Place place;
  place.root = root;
  return place;
}

/// The element of a place; null where the place is not so deep.
struct Element {
  const Service *service = nullptr;
  const Invocation *invocation = nullptr;
  const Attribute *attribute = nullptr;
  const Value *value = nullptr;
};
Element element_at(const Model &model, const Place &place);

/// All that a path names, in the order of the text. A path with an aspect of the header, or of the template
/// itself, gives one place without numbers.
struct Found {
  std::vector<Place> places;
};

/// Why a path names nothing: a sentence with the longest part found and the nearest names.
struct Missing {
  std::string message;
};

std::variant<Found, Missing> resolve(const Model &model, const Path &path);

/// The path of a place, good for parse_path(). An invocation without a name is `S//` where it is the only one.
std::string path_of(const Model &model, const Place &place);

/// A name as a step of a path.
std::string as_step(std::string_view name);

}  // namespace sil

#endif
