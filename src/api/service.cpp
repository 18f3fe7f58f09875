// Calls on the services of a template.
// tests/api/service_test.cpp
#include "api/frame.h"
#include "api/node_effects.h"

extern "C" {

int32_t jt_add_service(jt_parser_space *space, int32_t handle, const char *type_name,
                       const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_template(handle);
  if (!at) return 0;
  jt_node *const service = create_typed_node(space, type_name, service_name, JT_NODE_SERVICE, &at.root());
  return jt_core::add_or_destroy(space, at.root(), service, add_unique_child);
}

int32_t jt_delete_service(jt_parser_space *space, int32_t handle, const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_service(handle, service_name);
  return at ? destroy_node(space, &at.service()) : 0;
}

int32_t jt_exists_service(jt_parser_space *space, int32_t handle, const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_template(handle);
  return at && get_child(space, &at.root(), service_name) != nullptr ? 1 : 0;
}

char *jt_get_first_service_name(jt_parser_space *space, int32_t handle) {
  const jt_core::Frame at = jt_core::Frame(space).in_template(handle);
  return at ? first_child_name(space, &at.root()) : nullptr;
}

char *jt_get_next_service_name(jt_parser_space *space, int32_t handle) {
  const jt_core::Frame at = jt_core::Frame(space).in_template(handle);
  return at ? index_child_name(space, &at.root()) : nullptr;
}

char *jt_get_service_type(jt_parser_space *space, int32_t handle, const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_service(handle, service_name);
  return at ? jt_core::copy_type_name(space, at.service(), service_name) : nullptr;
}

}  // extern "C"
