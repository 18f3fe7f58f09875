// Prints everything that is in a file, an element a line: everything FILE.
#include "jt.hpp"
#include "program.h"

static std::string shown(const char *before, const jt::Result<jt::Text> &text, const char *behind = "") {
  return text ? before + text->str() + behind : std::string();
}

static void print(const jt::Element &element, std::size_t indent = 0) {
  const char *kinds[] = {"", "service ", "invocation ", "attribute ", "value ", "", "<? ", "< ", "<! "};
  if (!element) return;
  const auto kind = static_cast<std::size_t>(element.kind());
  std::string line = shown("", element.comment()) + std::string(indent, ' ') + kinds[kind];
  if (element.is_non_compulsory()) line += "* ";
  line += shown("", element.type()) + shown(" ", element.name()) + shown(" ", element.value_text());
  if (kind == 0) line += shown(" ", element.header_version()) + shown(" ", element.header_identifier());
  if (const auto status = element.status()) line += shown(" (", status->name(), ")");
  std::puts((line + shown(" {", element.status_text(), "}")).c_str());
  if (kind == 0) print(element.header(), indent + 2), print(element.section(), indent + 2);
  for (const jt::Element &child : element.children()) print(child, indent + 2);
}

int main(int argc, char **argv) {
  const auto text = argc == 2 ? read_file(argv[1]) : std::nullopt;
  if (!text) return fail("USAGE: everything FILE");
  const jt::Session session("everything");
  const auto job = session.decode(*text);
  if (!job) return fail(job.error().messages().newest_or("the text is cut off"));
  print(job->root());
}
