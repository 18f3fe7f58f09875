// Changes one value of a template, keeps everything else and prints the result:
// change_value FILE SERVICE ATTRIBUTE VALUE. The first invocation that has the attribute is the one changed.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "jt.hpp"

static int change(const jt::Session &session, const std::string &text, char **words) {
  const auto fail = [&](std::string_view other) {
    return std::fprintf(stderr, "%s\n",
                        session.history().empty() ? other.data() : session.history()[0].data()),
           1;
  };
  const auto job = session.decode(text);
  if (!job) return fail("");
  auto invocations = job->service(words[0]).invocations();
  const auto found = std::ranges::find_if(invocations, [&](const auto &at) { return at.has(words[1]); });
  if (found == invocations.end() || !found->set(words[1], words[2])) return fail("no such attribute");
  return std::fputs(job->encode()->c_str(), stdout), 0;
}

int main(int argc, char **argv) {
  if (argc == 5 && std::filesystem::is_regular_file(argv[1])) {
    std::ifstream file(argv[1], std::ios::binary);
    return change(jt::Session("change_value"), {std::istreambuf_iterator(file), {}}, argv + 2);
  }
  return std::fputs("USAGE: change_value FILE SERVICE ATTRIBUTE VALUE\n", stderr), 1;
}
