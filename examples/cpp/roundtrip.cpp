// Reads a template and writes it back: the encoded text on standard output, the messages that the session
// remembers on standard error, oldest first. The exit status is 0 when the template decoded, 1 when it did
// not and 2 when there was no file to read.
#include <cerrno>
#include <sstream>

#include "jt.hpp"
#include "program.h"

int main(int argc, char **argv) {
  if (argc != 2) return fail("usage: roundtrip FILE", 2);
  std::ostringstream text;
  errno = 0;
  text << std::ifstream(argv[1], std::ios::binary).rdbuf();
  if (errno != 0) return std::perror(argv[1]), 2;
  const jt::Session session("roundtrip");
  const auto job = session.decode(text.str());
  if (job) std::fputs(job->encode().value().c_str(), stdout);
  for (const std::string_view message : session.history().oldest_first()) complain(message);
  if (!job && job.error().category() >= jt::Category::warning) complain("the text is cut off");
  return job ? 0 : 1;
}
