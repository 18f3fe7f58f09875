// Marks the job of a template as finished and prints it: finish_job FILE SERVICE ATTRIBUTE VALUE. Every
// service and invocation becomes completed; the attribute of the service's first invocation was carried out
// with another value, which overrides the first one it has.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "jt.hpp"

static bool override_value(const jt::Service &service, const char *attribute, const char *text) {
  const auto old_value = service.value(attribute), new_value = service.parse(attribute, text);
  return old_value && new_value && service.override_value(attribute, *old_value, *new_value);
}

static int finish(const jt::Session &session, const std::string &text, char **words) {
  const auto job = session.decode(text);
  for (const jt::Service &service : job ? job->services() : jt::Template().services()) {
    for (const jt::Service &at : service.invocations())
      (void)at.set_invocation_status(jt::StatusCode::completed);
    (void)service.set_status(jt::StatusCode::completed);
    service.first_invocation();
  }
  if (job && override_value(job->service(words[0]), words[1], words[2])) {
    return std::fputs(job->encode()->c_str(), stdout), 0;
  }
  const jt::Messages messages = session.history();
  return std::fprintf(stderr, "%s\n", messages.empty() ? "the attribute has no value" : messages[0].data()),
         1;
}

int main(int argc, char **argv) {
  if (argc == 5 && std::filesystem::is_regular_file(argv[1])) {
    std::ifstream file(argv[1], std::ios::binary);
    return finish(jt::Session("finish_job"), {std::istreambuf_iterator(file), {}}, argv + 2);
  }
  return std::fputs("USAGE: finish_job FILE SERVICE ATTRIBUTE VALUE\n", stderr), 1;
}
