// Says what jt thinks of a template: check FILE. The exit status is 0 when there is nothing to say, 1 when
// the template decodes with doubts, 2 when it is refused. The last five messages are printed, oldest first.
#include "jt.hpp"
#include "program.h"

int main(int argc, char **argv) {
  const auto text = argc == 2 ? read_file(argv[1]) : std::nullopt;
  if (!text) return fail("USAGE: check FILE", 2);
  const jt::Session session("check");
  const auto job = session.decode(*text);
  for (const std::string_view message : session.history().oldest_first()) std::puts(message.data());
  return !job ? 2 : session.last_category() == jt::Category::none ? 0 : 1;
}
