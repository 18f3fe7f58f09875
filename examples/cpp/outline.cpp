// Prints every service, invocation, attribute and value of a template as an indented outline: outline FILE.
#include "jt.hpp"
#include "program.h"

static void print(const jt::Service &service) {
  std::printf("%s: %s\n", service.c_str(), service.type().value().c_str());
  for (const jt::Service &at : service.invocations()) {
    const auto name = at.invocation_name();
    std::printf("  %s\n", name ? name->c_str() : "(unnamed)");
    for (const jt::Text &attribute : at.attributes()) {
      const char *const star = at.is_non_compulsory(attribute) ? " *" : "";
      std::printf("    %s: %s%s\n", attribute.c_str(), at.type_of(attribute).value().c_str(), star);
      for (const jt::Text &value : at.texts(attribute)) std::printf("      %s\n", value.c_str());
    }
  }
}

int main(int argc, char **argv) {
  const auto text = argc == 2 ? read_file(argv[1]) : std::nullopt;
  if (!text) return fail("USAGE: outline FILE");
  const jt::Session session("outline");
  const auto job = session.decode(*text);
  if (!job) return fail(job.error().messages().newest_or("the text is cut off"));
  for (const jt::Service &service : job->services()) print(service);
}
