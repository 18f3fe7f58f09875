// Says what jt thinks of a template: check FILE. The exit status is 0 when there is nothing to say, 1 when
// the template decodes with doubts, 2 when it is refused. The last five messages are printed, oldest first.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "jt.hpp"

static int check(const std::string &text) {
  const jt::Session session("check");
  const auto job = session.decode(text);
  const jt::Messages messages = session.history();
  for (auto at = messages.end(); at != messages.begin();) std::puts((--at)->data());
  return !job ? 2 : session.last_category() == jt::Category::none ? 0 : 1;
}

int main(int argc, char **argv) {
  if (argc == 2 && std::filesystem::is_regular_file(argv[1])) {
    std::ifstream file(argv[1], std::ios::binary);
    return check({std::istreambuf_iterator(file), {}});
  }
  return std::fputs("USAGE: check FILE\n", stderr), 2;
}
