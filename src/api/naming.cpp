// Calls that name what stands in a template. Names are unique below a parent, and the index over its children follows.
// tests/api/invocation_test.cpp names invocations, tests/api/element_change_test.cpp whatever has a name.
#include "api/frame.h"
#include "api/node_effects.h"
#include "base/memory.h"
#include "base/text.h"
#include "sil/read_back.h"
#include "tree/child_index.h"
#include "tree/links.h"
#include "tree/node.h"
#include "tree/node_storage.h"

namespace jt_core {
namespace {

const char *missing_name(const char *name) { return view_of(name).empty() ? message::kNoName : nullptr; }

std::int32_t give_name(jt_parser_space *space, jt_node &node, const char *name) {
  char *const copy = keep_plain_text(heap_of(node), name);
  if (copy == nullptr) return refuse(space, message::kNoInvocationName, name);
  rename(node, copy);
  return 1;
}

// The name comes first among the checks: a call without one does not get as far as the template. Only a forced name
// may replace another.
std::int32_t name_invocation(jt_parser_space *space, std::int32_t handle, const char *service,
                             const char *name, bool force) {
  const char *const missing = missing_name(name);
  const Frame at = Frame(space).needs(missing == nullptr, missing).in_invocation(handle, service);
  if (!at) return 0;
  if (find_child(at.service(), name) != nullptr) return refuse(space, message::kDuplicateInvocation, name);
  const char *const present = at.invocation().name;
  if (present != nullptr && !force) return refuse(space, message::kAlreadyNamed, present);
  return give_name(space, at.invocation(), name);
}

// Another name of a service may mean other types for the attributes in it. The service as it would be is looked at.
bool keeps_types(jt_node node, char *name) {
  if (node.node_class != JT_NODE_SERVICE || node.first_child == nullptr) return true;
  node.name = name;
  return jt_get_type(nullptr, name, JT_NODE_INVOCATION, &node) == node.first_child->type;
}

std::int32_t name_element(jt_parser_space *space, jt_node &node, const char *name) {
  if (!is_name(name) || !keeps_types(node, const_cast<char *>(name)))
    return refuse(space, message::kNotReadBack, name);
  const jt_node *const namesake = find_child(*node.parent, name);
  if (namesake != nullptr && namesake != &node) return refuse(space, message::kDuplicateInvocation, name);
  return give_name(space, node, name);
}

}  // namespace
}  // namespace jt_core

extern "C" {

int32_t jt_set_invocation_name(jt_parser_space *space, int32_t handle, const char *service_name,
                               const char *name) {
  return jt_core::name_invocation(space, handle, service_name, name, false);
}

int32_t jt_force_invocation_name(jt_parser_space *space, int32_t handle, const char *service_name,
                                 const char *name) {
  return jt_core::name_invocation(space, handle, service_name, name, true);
}

int32_t jt_set_element_name(jt_parser_space *space, int32_t element, const char *name) {
  const char *const missing = jt_core::missing_name(name);
  const jt_core::Frame at =
      jt_core::Frame(space).needs(missing == nullptr, missing).in_element_of(element, jt_core::kBlocks);
  return at ? jt_core::name_element(space, at.element(), name) : 0;
}

}  // extern "C"
