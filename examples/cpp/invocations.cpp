// A service with several invocations: adds them, names them, and goes to one by its name or its number.
// Prints the result.
#include "jt.hpp"
#include "program.h"

int main() {
  const jt::Session session("invocations");
  const auto job = session.create();
  const auto filing = job ? job->add_service("kmt_svc_file", "Filing") : job.error();
  const auto add_folder = [&](const char *name, const char *path) {
    return filing->add_invocation() && filing->name_invocation(name) &&
           filing->add_attribute("string", "Path", path);
  };
  const bool done = filing && add_folder("Drafts", "/drafts") && add_folder("Bills", "/bills") &&
                    add_folder("Letters", "/letters") && filing->select_invocation("bills") &&
                    filing->set("Path", "/bills/2030") && filing->select_invocation("3") &&
                    filing->set("Path", "/letters/2030") && filing->select_invocation("Drafts") &&
                    filing->remove_invocation();
  if (!done) return fail(session.history().newest_or("a value was refused"));
  return std::fputs(job->encode().value().c_str(), stdout), 0;
}
