#include "tree/type_lookup.h"

#include "base/error_store.h"
#include "tree/node.h"
#include "types/type_tables.h"

namespace jt_core {
namespace {

// What a failed look-up means for the class of node.
enum class Missing { kRefused, kUnknownService, kUnknownAttribute };

struct Answer {
  const jt_type *type;
  Missing otherwise;
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
Answer find_attribute_type(const jt_node &enclosing, std::string_view type_name) {
  if (enclosing.node_class == JT_NODE_INVOCATION) {
    return {find_type_in_scope(find_table_of_row(enclosing.type), type_name).type,
            Missing::kUnknownAttribute};
  }
  if (enclosing.name == nullptr || !same_name(enclosing.name, "header")) return {nullptr, Missing::kRefused};
  return {find_base_type(type_name), Missing::kUnknownAttribute};
}

Answer find_type(std::string_view type_name, std::int32_t node_class, const jt_node *enclosing) {
  const auto inside = [&](std::int32_t wanted) {
    return enclosing != nullptr && enclosing->node_class == wanted;
  };
  constexpr Answer kNothing = {nullptr, Missing::kRefused};
  switch (node_class) {
    case JT_NODE_TEMPLATE:
    case JT_NODE_HEADER:
    case JT_NODE_HEADER_QUESTION:
    case JT_NODE_HEADER_PLAIN:
    case JT_NODE_HEADER_EXCLAIM:
      return enclosing == nullptr ? Answer{find_base_type(type_name), Missing::kRefused} : kNothing;
    case JT_NODE_SERVICE:
      return inside(JT_NODE_TEMPLATE) ? Answer{find_service_type(type_name), Missing::kRefused} : kNothing;
    case JT_NODE_INVOCATION:
      return inside(JT_NODE_SERVICE)
                 ? Answer{find_invocation_type(*enclosing, type_name), Missing::kUnknownService}
                 : kNothing;
    case JT_NODE_ATTRIBUTE:
      return enclosing != nullptr ? find_attribute_type(*enclosing, type_name) : kNothing;
    case JT_NODE_VALUE:
      return inside(JT_NODE_ATTRIBUTE) ? Answer{enclosing->type, Missing::kRefused} : kNothing;
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
  const Answer answer = find_type(type_name, node_class, enclosing);
  if (answer.type != nullptr) return answer.type;
  if (answer.otherwise == Missing::kRefused) {
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
