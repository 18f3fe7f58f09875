// Puts comments on a service and on an attribute, for which there is no call: the tree beneath the calls is
// there for C++ as well. Prints the result.
#include <cstdio>

#include "jt.hpp"

int main() {
  const jt::Session session("annotate");
  const auto job = session.decode("[ kmt_svc_scan Scanner ] { enum_sided Sides = TWO_SIDED; } end");
  if (!job || !job->service("Scanner").name_invocation("Letter")) return 1;
  jt_parser_space *const space = session.get();
  jt_node *const service = get_child(space, opaque_to_node(space, job->get()), "Scanner");
  jt_node *const sides = get_child(space, get_child(space, service, "Letter"), "Sides");
  const bool done = add_comment(space, service, "# Both sides, because paper is dear.\n") &&
                    add_comment(space, sides, "# Was ONE_SIDED.\n");
  if (done) std::fputs(job->encode().value().c_str(), stdout);
  return done ? 0 : 1;
}
