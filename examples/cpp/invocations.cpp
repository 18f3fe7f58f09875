// A service with several invocations: adds them, names them, and goes to one by its name or its number.
// Prints the result.
#include <cstdio>

#include "jt.hpp"

int main() {
  const jt::Session session("invocations");
  const auto job = session.create();
  const auto filing = job ? job->add_service("kmt_svc_file", "Filing") : job.error();
  const auto add_folder = [&](const char *name, const char *path) {
    return filing->add_invocation() && filing->name_invocation(name) &&
           filing->add_attribute("string", "Path") && filing->add("Path", path);
  };
  const auto select = [&](const char *which) { return filing->select_invocation(which).has_value(); };
  if (filing && add_folder("Drafts", "/drafts") && add_folder("Bills", "/bills") &&
      add_folder("Letters", "/letters") && select("bills") && filing->set("Path", "/bills/2030") &&
      select("3") && filing->set("Path", "/letters/2030") && select("Drafts") &&
      filing->remove_invocation()) {
    return std::fputs(job->encode()->c_str(), stdout), 0;
  }
  return std::fprintf(stderr, "%s\n", session.last_report().message().data()), 1;
}
