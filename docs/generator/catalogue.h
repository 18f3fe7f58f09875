// The pages of services with their types and value names, written from the type tables and value lists of the
// library.
#ifndef JT_DOCS_GENERATOR_CATALOGUE_H
#define JT_DOCS_GENERATOR_CATALOGUE_H

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "jt.h"
#include "types/value_lists.h"

namespace jt_docs {

struct Service {
  const jt_type *rows;
  std::int32_t count;
  const jt_core::ValueList *names;  // null: the service has no enumerated types
};

extern const std::array<Service, 16> kServices;

struct Name {
  std::string_view text;
  std::uint32_t number;
  std::string_view written;  // the name that is written for the number
};

// All names of a list, by number.
std::vector<Name> names_of(const jt_core::ValueList &list);

// The names of a list with their numbers, in Markdown.
std::string write_names(const jt_core::ValueList &list);

// What the service is called in a template.
std::string name_of(const Service &service);

// The page of a service, in Markdown.
std::string write_service(const Service &service);

}  // namespace jt_docs

#endif
