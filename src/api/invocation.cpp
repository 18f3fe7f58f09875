// Calls on the invocations of a service. The service's cursor is its current invocation.
// tests/api/invocation_test.cpp
#include "api/frame.h"
#include "api/node_effects.h"
#include "base/error_store.h"
#include "base/memory.h"
#include "tree/child_index.h"
#include "tree/links.h"
#include "tree/node.h"
#include "tree/node_storage.h"

namespace jt_core {
namespace {

// The invocation of that number, counted from 1; null when there are not so many, or the text is no number.
jt_node *numbered_invocation(const jt_node &service, const char *text) {
  long number = 0;
  if (string_to_integer(text, &number) == 0 || number == 0) return nullptr;
  jt_node *invocation = service.first_child;
  for (; invocation != nullptr && number > 1; --number) invocation = invocation->next_sibling;
  return invocation;
}

}  // namespace
}  // namespace jt_core

extern "C" {

int32_t jt_add_invocation(jt_parser_space *space, int32_t handle, const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_service(handle, service_name);
  if (!at) return 0;
  jt_node &service = at.service();
  jt_node *const invocation = create_typed_node(space, service.name, nullptr, JT_NODE_INVOCATION, &service);
  return jt_core::add_or_destroy(space, service, invocation, add_index_child);
}

int32_t jt_delete_invocation(jt_parser_space *space, int32_t handle, const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_service(handle, service_name);
  return at ? delete_index_child(space, &at.service()) : 0;
}

int32_t jt_first_invocation(jt_parser_space *space, int32_t handle, const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_service(handle, service_name);
  if (!at || at.service().first_child == nullptr) return 0;
  return reset_index(space, &at.service());
}

int32_t jt_next_invocation(jt_parser_space *space, int32_t handle, const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_service(handle, service_name);
  return at ? advance_index(space, &at.service()) : 0;
}

int32_t jt_named_invocation(jt_parser_space *space, int32_t handle, const char *service_name,
                            const char *name_or_number) {
  const jt_core::Frame at = jt_core::Frame(space).in_service(handle, service_name);
  if (!at) return 0;
  jt_node *const named = get_child(space, &at.service(), name_or_number);
  jt_node *const found =
      named != nullptr ? named : jt_core::numbered_invocation(at.service(), name_or_number);
  if (found == nullptr) {
    jt_error(space, jt_core::message::kNoSuchInvocation, name_or_number);
    return 0;
  }
  at.service().cursor = found;
  return 1;
}

char *jt_get_invocation_name(jt_parser_space *space, int32_t handle, const char *service_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_invocation(handle, service_name);
  return at && at.invocation().name != nullptr ? jt_core::copy_text(space, at.invocation().name) : nullptr;
}

}  // extern "C"
