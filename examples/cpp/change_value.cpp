// Changes one value of a template, keeps everything else and prints the result:
// change_value FILE SERVICE ATTRIBUTE VALUE. The first invocation that has the attribute is the one changed.
#include "jt.hpp"
#include "program.h"

int main(int argc, char **argv) {
  const auto text = argc == 5 ? read_file(argv[1]) : std::nullopt;
  if (!text) return fail("USAGE: change_value FILE SERVICE ATTRIBUTE VALUE");
  const jt::Session session("change_value");
  const auto job = session.decode(*text);
  auto invocations = job ? job->service(argv[2]).invocations() : jt::Service().invocations();
  const auto found = std::ranges::find_if(invocations, [&](const auto &at) { return at.has(argv[3]); });
  const bool changed = found != invocations.end() && found->set(argv[3], argv[4]);
  if (!changed) return fail(session.history().newest_or("no such attribute"));
  return std::fputs(job->encode()->c_str(), stdout), 0;
}
