// Marks the job of a template as finished and prints it: finish_job FILE SERVICE ATTRIBUTE VALUE. Every
// service and invocation becomes completed; the attribute of the service's first invocation was carried out
// with another value, which overrides the first one it has.
#include "jt.hpp"
#include "program.h"

// Null when it is done, else what is wrong where nothing was reported.
static const char *override_value(const jt::Service &service, const char *attribute, const char *text) {
  const auto old_value = service.value(attribute), new_value = service.parse(attribute, text);
  if (!old_value) return "the attribute has no value";
  return new_value && service.override_value(attribute, *old_value, *new_value) ? nullptr : "no such value";
}

int main(int argc, char **argv) {
  const auto text = argc == 5 ? read_file(argv[1]) : std::nullopt;
  if (!text) return fail("USAGE: finish_job FILE SERVICE ATTRIBUTE VALUE");
  const jt::Session session("finish_job");
  const auto job = session.decode(*text);
  if (!job) return fail(job.error().messages().newest_or("the text is cut off"));
  for (const jt::Service &service : job->services()) {
    for (const jt::Service &at : service.invocations())
      (void)at.set_invocation_status(jt::StatusCode::completed);
    (void)service.set_status(jt::StatusCode::completed);
    service.first_invocation();
  }
  const char *const silent = override_value(job->service(argv[2]), argv[3], argv[4]);
  if (silent != nullptr) return fail(session.last_report().messages().newest_or(silent));
  return std::fputs(job->encode().value().c_str(), stdout), 0;
}
