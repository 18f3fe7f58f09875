// change_value FILE SERVICE ATTRIBUTE VALUE: changes it in the first invocation with it, prints the result.
#include "jt.hpp"
#include "program.h"

int main(int argc, char **argv) {
  const auto text = argc == 5 ? read_file(argv[1]) : std::nullopt;
  if (!text) return fail("USAGE: change_value FILE SERVICE ATTRIBUTE VALUE");
  const jt::Session session("change_value");
  const auto job = session.decode(*text);
  if (!job) return fail(job.error().messages().newest_or("the text is cut off"));
  auto invocations = job->service(argv[2]).invocations();
  auto at = invocations.begin();
  while (at != invocations.end() && !at->has(argv[3])) ++at;
  const bool exists = at != invocations.end(), changed = exists && at->set(argv[3], argv[4]);
  const char *const silent = exists ? "no such value" : "no such attribute";
  if (!changed) return fail(session.last_report().messages().newest_or(silent));
  return std::fputs(job->encode().value().c_str(), stdout), 0;
}
