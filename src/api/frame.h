// The frame of every call: the parser handle is tested, the status is cleared, the call's own arguments are
// checked, the handle is resolved to an element, which must be a template if the call is about one, then the
// service, its current invocation and the attribute are found. A call states its own checks and how deep it
// resolves, and then its effect; the first step that fails has recorded its message, and the steps behind it
// do nothing. tests/api/call_frame_test.cpp has the order of the steps for every call.
#ifndef JT_API_FRAME_H
#define JT_API_FRAME_H

#include <cstdint>

#include "base/messages.h"
#include "jt.h"

namespace jt_core {

// A set of node classes.
using ElementKinds = std::uint32_t;

template <typename... Classes>
constexpr ElementKinds kinds_of(Classes... classes) {
  return ((ElementKinds{1} << static_cast<unsigned>(classes)) | ...);
}

// What has a name and a status.
inline constexpr ElementKinds kBlocks = kinds_of(JT_NODE_SERVICE, JT_NODE_INVOCATION, JT_NODE_ATTRIBUTE);

class Frame {
 public:
  explicit Frame(jt_parser_space *space);

  // The call needs this argument; the message says that it is missing.
  Frame &needs(bool given, const char *message);

  // How deep the call resolves: each of these takes the steps of the one before it, and one more.
  Frame &in_element(std::int32_t handle);
  Frame &in_element_of(std::int32_t handle, ElementKinds kinds);  // in its place, and of one of the kinds
  Frame &in_template(std::int32_t handle);
  Frame &in_service(std::int32_t handle, const char *service);
  Frame &in_invocation(std::int32_t handle, const char *service);
  Frame &in_attribute(std::int32_t handle, const char *service, const char *attribute);

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
