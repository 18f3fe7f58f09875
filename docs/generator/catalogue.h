// The pages of services with their types and value names, written from the type tables and value lists of the
// library.
#ifndef JT_DOCS_GENERATOR_CATALOGUE_H
#define JT_DOCS_GENERATOR_CATALOGUE_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "jt.h"
#include "types/type_tables.h"
#include "types/value_lists.h"

namespace jt_docs {

struct Name {
  std::string_view text;
  std::uint32_t number;
  std::string_view written;  // the name that is written for the number
};

// All names of a list, by number.
std::vector<Name> names_of(const jt_core::ValueList &list);

// The names of a list with their numbers, in Markdown.
std::string write_names(const jt_core::ValueList &list);

// The page of a service, in Markdown.
std::string write_service(const jt_core::ServiceTypes &service);

}  // namespace jt_docs

#endif
