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

int copies_of(const char *text) {
  const jt::Session session("bare client");
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

}  // namespace jt_test
