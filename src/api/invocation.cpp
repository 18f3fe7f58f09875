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

bool refuse(jt_parser_space *space, const char *message, const char *detail) {
  report(space, message, detail);
  return false;
}

// What a name must meet; only a forced one may replace another.
bool may_be_named(jt_parser_space *space, const Frame &at, const char *name, bool force) {
  if (find_child(at.service(), name) != nullptr) return refuse(space, message::kDuplicateInvocation, name);
  const char *const present = at.invocation().name;
  return force || present == nullptr || refuse(space, message::kAlreadyNamed, present);
}

std::int32_t name_invocation(jt_parser_space *space, const Frame &at, const char *name, bool force) {
  if (!at || !may_be_named(space, at, name, force)) return 0;
  char *const copy = keep_plain_text(heap_of(at.invocation()), name);
  if (copy == nullptr) {
    report(space, message::kNoInvocationName, name);
    return 0;
  }
  rename(at.invocation(), copy);
  return 1;
}

// The name comes first among the checks: a call without one does not get as far as the template.
Frame frame_for_name(jt_parser_space *space, std::int32_t handle, const char *service_name,
                     const char *name) {
  return Frame(space)
      .needs(name != nullptr && *name != '\0', message::kNoName)
      .in_invocation(handle, service_name);
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

int32_t jt_set_invocation_name(jt_parser_space *space, int32_t handle, const char *service_name,
                               const char *name) {
  const jt_core::Frame at = jt_core::frame_for_name(space, handle, service_name, name);
  return jt_core::name_invocation(space, at, name, false);
}

int32_t jt_force_invocation_name(jt_parser_space *space, int32_t handle, const char *service_name,
                                 const char *name) {
  const jt_core::Frame at = jt_core::frame_for_name(space, handle, service_name, name);
  return jt_core::name_invocation(space, at, name, true);
}

}  // extern "C"
