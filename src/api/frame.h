// The frame of every call: the parser handle is tested, the status is cleared, the call's own arguments are
// checked, the template handle is resolved, then the service, its current invocation and the attribute are
// found. A call states its own checks and how deep it resolves, and then its effect; the first step that
// fails has recorded its message, and the steps behind it do nothing. tests/api/call_frame_test.cpp has the
// order of the steps for every call.
#ifndef JT_API_FRAME_H
#define JT_API_FRAME_H

#include <cstdint>

#include "base/messages.h"
#include "jt.h"

namespace jt_core {

class Frame {
 public:
  explicit Frame(jt_parser_space *space);

  // The call needs this argument; the message says that it is missing.
  Frame &needs(bool given, const char *message);

  // How deep the call resolves: each of these takes the steps of the one before it, and one more.
  Frame &in_template(std::int32_t handle);
  Frame &in_service(std::int32_t handle, const char *service);
  Frame &in_invocation(std::int32_t handle, const char *service);
  Frame &in_attribute(std::int32_t handle, const char *service, const char *attribute);

  // Every step so far has been taken.
  explicit operator bool() const { return passed_; }

  jt_node &root() const { return *root_; }
  jt_node &service() const { return *service_; }
  jt_node &invocation() const { return *invocation_; }
  jt_node &attribute() const { return *attribute_; }

 private:
  void fail(const char *message, const char *detail = "");

  jt_parser_space *space_;
  jt_node *root_ = nullptr;
  jt_node *service_ = nullptr;
  jt_node *invocation_ = nullptr;
  jt_node *attribute_ = nullptr;
  bool passed_;
};

}  // namespace jt_core

#endif
