#include "api/frame.h"

#include "tree/links.h"
#include "tree/node.h"
#include "tree/session.h"

namespace jt_core {

Frame::Frame(jt_parser_space *space) : space_(space), passed_(space != nullptr) {
  reset_error_status(space);
  if (passed_ && space->is_listened_to) fail(message::kFromListener);
}

void Frame::fail(const char *message, const char *detail) {
  jt_error(space_, message, detail);
  passed_ = false;
}

Frame &Frame::needs(bool given, const char *message) {
  if (passed_ && !given) fail(message);
  return *this;
}

Frame &Frame::in_element(std::int32_t handle) {
  if (!passed_) return *this;
  element_ = opaque_to_node(space_, handle);
  if (element_ == nullptr) fail(message::kNotAHandle);
  return *this;
}

// A service, an invocation, an attribute or a value that hangs below nothing is no element of a template, nor is a
// word of a header.
Frame &Frame::in_element_of(std::int32_t handle, ElementKinds kinds) {
  if (!in_element(handle)) return *this;
  const bool placed = is_template(*element_) || is_header(*element_) || element_->parent != nullptr;
  if (!placed || (kinds & kinds_of(element_->node_class)) == 0) fail(message::kWrongKind);
  return *this;
}

Frame &Frame::in_template(std::int32_t handle) {
  in_element(handle);
  if (!passed_) return *this;
  root_ = element_;
  if (!is_template(*root_)) fail(message::kNotATemplate);
  return *this;
}

Frame &Frame::in_service(std::int32_t handle, const char *service) {
  if (!in_template(handle)) return *this;
  service_ = get_child(space_, root_, service);
  if (service_ == nullptr) fail(message::kDoesNotExist, service);
  return *this;
}

Frame &Frame::in_invocation(std::int32_t handle, const char *service) {
  if (!in_service(handle, service)) return *this;
  start_cursor(*service_);
  invocation_ = service_->cursor;
  if (invocation_ == nullptr) fail(message::kNoInvocation);
  return *this;
}

Frame &Frame::in_attribute(std::int32_t handle, const char *service, const char *attribute) {
  if (!in_invocation(handle, service)) return *this;
  attribute_ = get_child(space_, invocation_, attribute);
  if (attribute_ == nullptr) fail(message::kDoesNotExist, attribute);
  return *this;
}

}  // namespace jt_core
