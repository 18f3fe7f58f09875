// A client without exceptions and without RTTI, which sees nothing but the header under test: compiling it is
// half of the test.
#include "jt.hpp"

#ifdef __cpp_exceptions
#error "this file is to be compiled without exceptions"
#endif
#ifdef __cpp_rtti
#error "this file is to be compiled without RTTI"
#endif

#include "cpp/bare_client.h"

namespace jt_test {

namespace {

// Gives from its beginning to its end and takes nothing back.
struct Pool {
  alignas(std::max_align_t) std::byte bytes[65536];
  std::size_t used = 0;

  void *allocate(std::size_t wanted, std::size_t alignment) noexcept {
    const std::size_t begin = (used + alignment - 1) / alignment * alignment;
    if (wanted > sizeof(bytes) - begin) return nullptr;
    used = begin + wanted;
    return bytes + begin;
  }
  void deallocate(void * /*block*/, std::size_t /*given*/, std::size_t /*alignment*/) noexcept {}
};

int copies_in(const jt::Session &session, const char *text) {
  const auto job = session.decode(text);
  if (!job) return -1;
  int copies = 0;
  for (const jt::Service &service : job->services()) {
    for (const jt::Service &at : service.invocations()) {
      copies += static_cast<int>(at.get<std::int32_t>("Copies").value_or(0));
    }
  }
  return copies;
}

}  // namespace

int copies_of(const char *text) { return copies_in(jt::Session("bare client"), text); }

int copies_in_a_pool(const char *text) {
  Pool pool;
  return copies_in(jt::Session("bare client", jt::allocator_over(pool)), text);
}

int errors_in(std::string_view text) {
  const jt::Session session("bare client");
  int errors = 0;
  const auto checked = session.check(text, {}, [&errors](const jt::Finding &finding) {
    if (finding.severity() == jt::Severity::error) ++errors;
  });
  return checked ? 0 : errors;
}

}  // namespace jt_test
