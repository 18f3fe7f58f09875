#include "tree/type_lookup.h"

#include "base/error_store.h"
#include "tree/node.h"
#include "types/type_tables.h"

namespace jt_core {
namespace {

// What a failed look-up means for the class of node.
enum class OnMiss { kRefused, kUnknownService, kUnknownAttribute };

struct Lookup {
  const jt_type *type;
  OnMiss on_miss;
};

// The types of an invocation are those of its service's name or, where the service has a name of its own,
// those of its service's type. The service's name then stands for that type.
const jt_type *find_invocation_type(const jt_node &service, std::string_view type_name) {
  if (const TypeTable *const table = find_service_table(view_of(service.name)))
    return find_type_in_scope(table, type_name).type;
  const TypeTable *const table = find_service_table(view_of(type_name_of(service)));
  if (table == nullptr) return find_base_type(type_name);
  const bool named_after_service =
      type_name.data() != nullptr && service.name != nullptr && same_name(type_name, service.name);
  return named_after_service ? service.type : find_type_in_scope(table, type_name).type;
}

const jt_type *find_service_type(std::string_view type_name) {
  const jt_type *const found = find_base_type(type_name);
  return found != nullptr ? found : find_service_row(type_name);
}

// The types of an invocation were settled when its own type was looked up.
Lookup find_attribute_type(const jt_node &enclosing, std::string_view type_name) {
  if (enclosing.node_class == JT_NODE_INVOCATION) {
    return {find_type_in_scope(find_table_of_row(enclosing.type), type_name).type, OnMiss::kUnknownAttribute};
  }
  if (enclosing.name == nullptr || !same_name(enclosing.name, "header")) return {nullptr, OnMiss::kRefused};
  return {find_base_type(type_name), OnMiss::kUnknownAttribute};
}

Lookup find_type(std::string_view type_name, std::int32_t node_class, const jt_node *enclosing) {
  const auto inside = [&](std::int32_t wanted) {
    return enclosing != nullptr && enclosing->node_class == wanted;
  };
  constexpr Lookup kNothing = {nullptr, OnMiss::kRefused};
  switch (node_class) {
    case JT_NODE_TEMPLATE:
    case JT_NODE_HEADER:
    case JT_NODE_HEADER_QUESTION:
    case JT_NODE_HEADER_PLAIN:
    case JT_NODE_HEADER_EXCLAIM:
      return enclosing == nullptr ? Lookup{find_base_type(type_name), OnMiss::kRefused} : kNothing;
    case JT_NODE_SERVICE:
      return inside(JT_NODE_TEMPLATE) ? Lookup{find_service_type(type_name), OnMiss::kRefused} : kNothing;
    case JT_NODE_INVOCATION:
      return inside(JT_NODE_SERVICE)
                 ? Lookup{find_invocation_type(*enclosing, type_name), OnMiss::kUnknownService}
                 : kNothing;
    case JT_NODE_ATTRIBUTE:
      return enclosing != nullptr ? find_attribute_type(*enclosing, type_name) : kNothing;
    case JT_NODE_VALUE:
      return inside(JT_NODE_ATTRIBUTE) ? Lookup{enclosing->type, OnMiss::kRefused} : kNothing;
    default:
      return kNothing;
  }
}

std::string_view shown(std::string_view type_name) {
  return type_name.data() != nullptr ? type_name : beginning_of(nullptr);
}

}  // namespace

void report_unknown_type(jt_parser_space *space, std::int32_t node_class, std::string_view type_name) {
  report(space, node_class == JT_NODE_INVOCATION ? message::kUnknownService : message::kUnknownAttributeType,
         shown(type_name));
}

const jt_type *look_up_type(jt_parser_space *space, std::string_view type_name, std::int32_t node_class,
                            const jt_node *enclosing) {
  const Lookup lookup = find_type(type_name, node_class, enclosing);
  if (lookup.type != nullptr) return lookup.type;
  if (lookup.on_miss == OnMiss::kRefused) {
    report(space, message::kUnknownType, shown(type_name));
    return nullptr;
  }
  report_unknown_type(space, node_class, type_name);
  return unknown_type();
}

}  // namespace jt_core

extern "C" const jt_type *jt_get_type(jt_parser_space *space, const char *type_name, int32_t node_class,
                                      const jt_node *enclosing) {
  return jt_core::look_up_type(space, jt_core::view_of(type_name), node_class, enclosing);
}
