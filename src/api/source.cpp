// Calls on texts with places: decoding one that is listened to, and finding everything that is wrong in one.
// tests/api/source_test.cpp
#include <algorithm>
#include <cstring>

#include "api/frame.h"
#include "sil/source.h"
#include "sil/template_check.h"
#include "tree/node.h"
#include "tree/session.h"

namespace jt_core {
namespace {

jt_source_options options_from(const jt_source_options *given) {
  jt_source_options options{};
  if (given != nullptr) std::memcpy(&options, given, std::min(given->size, sizeof(options)));
  return options;
}

// A check makes its nodes in a session of its own, so that the caller's keeps its slots; what is recorded up to
// the first error goes to the caller's.
class CheckSession {
 public:
  explicit CheckSession(jt_parser_space &space) : space_(open_like(space)) {
    if (space_ != nullptr) space_->reports = &errors_of(space);
  }
  ~CheckSession() { delete_parser_space(space_); }
  CheckSession(const CheckSession &) = delete;
  CheckSession &operator=(const CheckSession &) = delete;

  jt_parser_space *get() const { return space_; }

 private:
  static jt_parser_space *open_like(const jt_parser_space &space) {
    const jt_allocator &allocator = space.heap.allocator;
    return jt_open_session("check", allocator.allocate != nullptr ? &allocator : nullptr);
  }

  jt_parser_space *space_;
};

}  // namespace
}  // namespace jt_core

extern "C" {

int32_t jt_decode_source(jt_parser_space *space, const char *text, size_t size,
                         const jt_source_options *options, const jt_listener *listener) {
  if (!jt_core::Frame(space) || text == nullptr) return 0;
  jt_core::Teller teller(*space, {text, size}, listener);
  jt_core::SourceDecoder decoder(*space, teller, jt_core::options_from(options),
                                 jt_core::SourceDecoder::Purpose::kDecode);
  const jt_node *const root = decoder.run();
  return root != nullptr ? bookmark_to_opaque(root->bookmark) : 0;
}

int32_t jt_check_source(jt_parser_space *space, const char *text, size_t size,
                        const jt_source_options *options, const jt_listener *listener) {
  if (!jt_core::Frame(space) || text == nullptr) return 0;
  const jt_core::CheckSession session(*space);
  if (session.get() == nullptr) {
    jt_core::report(space, jt_core::message::kAllocation);
    return 0;
  }
  jt_core::Teller teller(*space, {text, size}, listener);
  jt_core::SourceDecoder decoder(*session.get(), teller, jt_core::options_from(options),
                                 jt_core::SourceDecoder::Purpose::kCheck);
  return decoder.run() != nullptr ? 1 : 0;
}

int32_t jt_check_template(jt_parser_space *space, int32_t handle, const jt_listener *listener) {
  const jt_core::Frame at = jt_core::Frame(space).in_template(handle);
  if (!at) return 0;
  jt_core::Teller teller(*space, {}, listener);
  return jt_core::check_template(*space, at.root(), teller) ? 1 : 0;
}

}  // extern "C"
