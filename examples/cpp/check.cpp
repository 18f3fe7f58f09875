// Says what jt thinks of templates: check FILE... The exit status is 0 when there is nothing to say, 1 when a
// template decodes with doubts, 2 when one is refused. The last five messages of each are printed, oldest
// first, below the name of the file where there is more than one.
#include "jt.hpp"
#include "program.h"

static int check(const jt::Session &session, const char *name) {
  const auto text = read_file(name);
  if (!text) return fail(std::string("cannot read ") + name, 2);
  const auto job = session.decode(*text);
  const jt::Messages messages = session.last_report().messages().oldest_first();
  for (const std::string_view message : messages) std::puts(message.data());
  if (!job && session.last_category() >= jt::Category::warning) std::puts("the text is cut off");
  return !job ? 2 : messages.empty() ? 0 : 1;
}

int main(int argc, char **argv) {
  if (argc < 2) return fail("USAGE: check FILE...", 2);
  const jt::Session session("check");
  int worst = 0;
  for (int i = 1; i < argc; ++i) {
    if (argc > 2) std::printf("%s:\n", argv[i]);
    worst = std::max(worst, check(session, argv[i]));
  }
  return worst;
}
