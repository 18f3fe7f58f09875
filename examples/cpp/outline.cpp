// Prints every service, invocation, attribute and value of a template as an indented outline: outline FILE.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "jt.hpp"

static void print(const jt::Service &service) {
  std::printf("%s: %s\n", service.c_str(), service.type()->c_str());
  for (const jt::Service &at : service.invocations()) {
    const auto name = at.invocation_name();
    std::printf("  %s\n", name ? name->c_str() : "(unnamed)");
    for (const jt::Text &attribute : at.attributes()) {
      const char *const star = at.is_non_compulsory(attribute) ? " *" : "";
      std::printf("    %s: %s%s\n", attribute.c_str(), at.type_of(attribute)->c_str(), star);
      for (const jt::Text &value : at.texts(attribute)) std::printf("      %s\n", value.c_str());
    }
  }
}

static int print_outline(const std::string &text) {
  const jt::Session session("outline");
  const auto job = session.decode(text);
  if (!job) return std::fprintf(stderr, "%s\n", job.error().message().data()), 1;
  for (const jt::Service &service : job->services()) print(service);
  return 0;
}

int main(int argc, char **argv) {
  if (argc == 2 && std::filesystem::is_regular_file(argv[1])) {
    std::ifstream file(argv[1], std::ios::binary);
    return print_outline({std::istreambuf_iterator(file), {}});
  }
  return std::fputs("USAGE: outline FILE\n", stderr), 1;
}
