// Converts a batch: set_everywhere ATTRIBUTE VALUE FILE... gives each attribute of that name that one value.
#include "jt.hpp"
#include "program.h"

// [convert a batch]
static jt::Result<jt::Text> convert(const jt::Session &session, const std::string &text, char **words) {
  const auto job = session.decode(text);
  if (!job) return job.error();
  for (const jt::Service &service : job->services()) {
    for (const jt::Service &with_invocation : service.invocations()) {
      if (!with_invocation.has(words[1])) continue;
      if (auto set = with_invocation.set(words[1], words[2]); !set) return set.error();
    }
  }
  return job->encode();
}
// [convert a batch]

int main(int argc, char **argv) {
  if (argc < 4) return fail("USAGE: set_everywhere ATTRIBUTE VALUE FILE...");
  const jt::Session session("set_everywhere");
  int status = 0;
  for (int i = 3; i < argc; ++i) {
    const auto text = read_file(argv[i]);
    const auto job = text ? convert(session, *text, argv) : jt::Error();
    const char *const silent =
        text ? "the text is cut off, or the value is none of its type" : "cannot be read";
    if (job) std::fputs(job->c_str(), stdout);
    if (!job) status = fail(argv[i] + (": " + std::string(job.error().messages().newest_or(silent))));
  }
  return status;
}
