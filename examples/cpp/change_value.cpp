// Changes one value of a template, keeps everything else and prints the result:
// change_value FILE SERVICE ATTRIBUTE VALUE. The first invocation that has the attribute is the one changed.
#include "jt.hpp"
#include "program.h"

int main(int argc, char **argv) {
  const auto text = argc == 5 ? read_file(argv[1]) : std::nullopt;
  if (!text) return fail("USAGE: change_value FILE SERVICE ATTRIBUTE VALUE");
  const jt::Session session("change_value");
  const auto job = session.decode(*text);
  if (!job) return fail(job.error().messages().newest_or("the text is cut off"));
  auto invocations = job->service(argv[2]).invocations();
  const auto found = std::ranges::find_if(invocations, [&](const auto &at) { return at.has(argv[3]); });
  const bool exists = found != invocations.end(), changed = exists && found->set(argv[3], argv[4]);
  const char *const silent = exists ? "no such value" : "no such attribute";
  if (!changed) return fail(session.last_report().messages().newest_or(silent));
  return std::fputs(job->encode().value().c_str(), stdout), 0;
}
