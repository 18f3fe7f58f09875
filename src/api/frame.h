// The frame of every call: the parser handle is tested, the status is cleared, the call's own arguments are
// checked, the template handle is resolved, then the service, its current invocation and the attribute are
// found. A call names the steps that it takes, in this order, and what it then does; the first step that
// fails has recorded its message, and the steps behind it do nothing.
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
  Frame &in_template(std::int32_t handle);
  Frame &in_element(std::int32_t handle);
  Frame &in_service(const char *name);
  Frame &in_invocation();
  Frame &in_attribute(const char *name);

  // Every step so far has been taken.
  explicit operator bool() const { return passed_; }

  jt_node &root() const { return *root_; }
  jt_node &element() const { return *element_; }
  jt_node &service() const { return *service_; }
  jt_node &invocation() const { return *invocation_; }
  jt_node &attribute() const { return *attribute_; }

 private:
  void fail(const char *message, const char *detail = "");

  jt_parser_space *space_;
  jt_node *root_ = nullptr;
  jt_node *element_ = nullptr;
  jt_node *service_ = nullptr;
  jt_node *invocation_ = nullptr;
  jt_node *attribute_ = nullptr;
  bool passed_;
};

}  // namespace jt_core

#endif
