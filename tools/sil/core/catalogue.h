// What the library knows of services and types, asked the way the commands ask. Proved by
// tests/sil_command/catalogue_test.cpp.
#ifndef SIL_CORE_CATALOGUE_H
#define SIL_CORE_CATALOGUE_H

#include <string>
#include <string_view>
#include <vector>

#include "jt.h"

namespace sil {

/// The services that have types of their own, sorted by name.
std::vector<std::string> services_of_catalogue();

/// The types that may stand behind "[".
bool is_service_type(const std::string &type);
std::vector<std::string> service_types();

/// The service whose types the attributes of a service have: its name where that is one of the catalogue's, else
/// its type where that is; else empty, and there are the built-in types only.
std::string scope_of(const std::string &service_type, const std::string &service_name);

/// The row of a type in a scope; null where there is none.
const jt_type *type_in(const std::string &scope, const std::string &type);

/// The names of the types of values in a scope: its own, then the built-in ones.
std::vector<std::string> types_in(const std::string &scope);

/// The names that the enumerated types of a scope accept.
struct EnumeratedName {
  std::string name;
  unsigned number = 0;
};
std::vector<EnumeratedName> names_in_scope(const std::string &scope);

/// Whether a type's values are numbers with names.
bool is_enumerated(std::string_view type);

/// How a value of that type is written, and between which bounds; empty where nothing is known of it.
std::string form_of(std::string_view type);

}  // namespace sil

#endif
