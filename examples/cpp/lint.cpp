// Prints everything that is wrong in templates, each with its line and a caret below it: lint FILE... The exit
// status is 0 when there is nothing to say, 1 when something was found, 2 when a file cannot be read.
#include "jt.hpp"
#include "program.h"

static void print(const char *name, const std::string &text, const jt::Finding &at) {
  const auto first = [](std::string_view of) { return std::string(of.substr(0, of.find_first_of("\r\n"))); };
  const auto [line, column] = at.place();
  std::printf("%s:%zu:%zu: %s: found %s", name, line, column, name_of(at.severity()).data(),
              at.found_is_end() ? "the end" : first(at.found().of(text)).c_str());
  if (!at.expected().empty()) std::printf(", expected %s", at.expected().data());
  const std::string whole = first(text.substr(at.range().begin + 1 - column));
  std::printf(" [%s]\n  %s\n  %*s\n", at.name().data(), whole.c_str(), static_cast<int>(column), "^");
}

int main(int argc, char **argv) {
  if (argc < 2) return fail("USAGE: lint FILE...", 2);
  const jt::Session session("lint");
  int worst = 0;
  for (int i = 1; i < argc; ++i) {
    const auto text = read_file(argv[i]);
    if (!text) worst = fail(std::string("cannot read ") + argv[i], 2);
    const auto findings = text ? session.check(*text).value() : jt::Findings();
    for (const jt::Finding &at : findings) print(argv[i], *text, at);
    if (!findings.empty()) worst = std::max(worst, 1);
  }
  return worst;
}
