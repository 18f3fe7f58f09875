// Calls that read and set the status of a service, of its current invocation, or of an attribute of that.
// What is read is a copy that the caller owns: tests/api/status_test.cpp.
#include "api/frame.h"
#include "tree/node.h"

extern "C" {

int32_t jt_set_service_status(jt_parser_space *space, int32_t handle, const char *service_name,
                              const jt_status *status) {
  const jt_core::Frame at = jt_core::Frame(space).in_service(handle, service_name);
  return at ? set_status(space, &at.service(), status) : 0;
}

int32_t jt_set_invocation_status(jt_parser_space *space, int32_t handle, const char *service_name,
                                 const jt_status *status) {
  const jt_core::Frame at = jt_core::Frame(space).in_invocation(handle, service_name);
  return at ? set_status(space, &at.invocation(), status) : 0;
}

int32_t jt_set_attribute_status(jt_parser_space *space, int32_t handle, const char *service_name,
                                const char *attribute_name, const jt_status *status) {
  const jt_core::Frame at = jt_core::Frame(space).in_attribute(handle, service_name, attribute_name);
  return at ? set_status(space, &at.attribute(), status) : 0;
}

jt_status *jt_get_service_status(jt_parser_space *space, int32_t handle, const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_service(handle, service_name);
  return at ? copy_status(space, at.service().status) : nullptr;
}

jt_status *jt_get_invocation_status(jt_parser_space *space, int32_t handle, const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_invocation(handle, service_name);
  return at ? copy_status(space, at.invocation().status) : nullptr;
}

jt_status *jt_get_attribute_status(jt_parser_space *space, int32_t handle, const char *service_name,
                                   const char *attribute_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_attribute(handle, service_name, attribute_name);
  return at ? copy_status(space, at.attribute().status) : nullptr;
}

}  // extern "C"
