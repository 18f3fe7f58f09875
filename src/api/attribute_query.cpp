// Calls that read the attributes of the current invocation. What is handed over is a copy that the caller
// owns: tests/api/attribute_query_test.cpp.
#include "api/frame.h"
#include "api/node_effects.h"
#include "tree/node.h"

extern "C" {

int32_t jt_exists_attribute(jt_parser_space *space, int32_t handle, const char *service_name,
                            const char *attribute_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_invocation(handle, service_name);
  return at && get_child(space, &at.invocation(), attribute_name) != nullptr ? 1 : 0;
}

char *jt_get_first_attribute_name(jt_parser_space *space, int32_t handle, const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_invocation(handle, service_name);
  return at ? first_child_name(space, &at.invocation()) : nullptr;
}

char *jt_get_next_attribute_name(jt_parser_space *space, int32_t handle, const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_invocation(handle, service_name);
  return at ? index_child_name(space, &at.invocation()) : nullptr;
}

jt_value *jt_get_first_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                       const char *attribute_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_attribute(handle, service_name, attribute_name);
  return at ? first_child_value(space, &at.attribute()) : nullptr;
}

jt_value *jt_get_next_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                      const char *attribute_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_attribute(handle, service_name, attribute_name);
  return at ? index_child_value(space, &at.attribute()) : nullptr;
}

char *jt_get_first_attribute_value_string(jt_parser_space *space, int32_t handle, const char *service_name,
                                          const char *attribute_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_attribute(handle, service_name, attribute_name);
  return at ? first_child_value_string(space, &at.attribute()) : nullptr;
}

char *jt_get_next_attribute_value_string(jt_parser_space *space, int32_t handle, const char *service_name,
                                         const char *attribute_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_attribute(handle, service_name, attribute_name);
  return at ? index_child_value_string(space, &at.attribute()) : nullptr;
}

char *jt_get_attribute_type_name(jt_parser_space *space, int32_t handle, const char *service_name,
                                 const char *attribute_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_attribute(handle, service_name, attribute_name);
  return at ? jt_core::copy_type_name(space, at.attribute(), attribute_name) : nullptr;
}

int32_t jt_known_attribute_datatype(jt_parser_space *space, int32_t handle, const char *service_name,
                                    const char *attribute_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_attribute(handle, service_name, attribute_name);
  return at && jt_core::has_known_type(at.attribute()) ? 1 : 0;
}

int32_t jt_is_attribute_non_compulsory(jt_parser_space *space, int32_t handle, const char *service_name,
                                       const char *attribute_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_attribute(handle, service_name, attribute_name);
  return at && at.attribute().non_compulsory ? 1 : 0;
}

}  // extern "C"
