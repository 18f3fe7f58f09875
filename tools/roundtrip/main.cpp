// jt-roundtrip: prints a template as jt writes it, and says everything that is doubtful about the way there:
// the messages of reading, then those of writing, then whether the result reads back as what it is. The exit
// status tells whether there was any doubt, so that a script can ask. Proved by
// tests/build/roundtrip_tool_test.cpp.
#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "jt.h"

namespace {

enum ExitStatus { kNoDoubt = 0, kDoubt = 1, kTrouble = 2 };

constexpr char kUsage[] = "usage: jt-roundtrip FILE | --help | --version\n";
constexpr char kHelp[] =
    "\n"
    "Reads the SIL template in FILE (- is standard input), prints it as jt writes it,\n"
    "and says on standard error what is doubtful about it.\n"
    "\n"
    "Exit status: 0 no doubt; 1 some doubt, or no template; 2 nothing read or printed.\n";

// Recorded before a call, so that its own messages are those up to this one. No message of the library begins
// like it.
constexpr char kMark[] = "jt-roundtrip: next call";

struct CloseSession {
  void operator()(jt_parser_space *space) const { jt_close_parsing_utility(space); }
};
using Session = std::unique_ptr<jt_parser_space, CloseSession>;

struct FreeText {
  void operator()(char *text) const { std::free(text); }
};
using Text = std::unique_ptr<char, FreeText>;

Session open_session() { return Session(jt_open_parsing_utility("jt-roundtrip")); }

void say(const std::string &about, std::string_view what) {
  std::fprintf(stderr, "jt-roundtrip: %s: %.*s\n", about.c_str(), static_cast<int>(what.size()), what.data());
}

// Some messages hold line feeds.
std::string on_one_line(std::string message) {
  std::replace(message.begin(), message.end(), '\n', ' ');
  return message;
}

// The messages behind the last mark, the oldest first.
std::vector<std::string> messages_of_call(jt_parser_space *space) {
  std::vector<std::string> messages;
  jt_get_recent_error(space);
  while (const char *message = jt_get_previous_error(space)) {
    if (std::string_view(message).starts_with(kMark)) break;
    messages.push_back(on_one_line(message));
  }
  std::reverse(messages.begin(), messages.end());
  return messages;
}

// A written text without its comments, with one blank for white space of any length: what must not change
// when it is read and written once more. Comments may: one behind the header moves behind the first service.
std::string essence_of(std::string_view text) {
  std::string essence;
  bool quoted = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!quoted && text[at] == '#') at = std::min(text.find('\n', at), text.size() - 1);
    const bool blank = !quoted && std::isspace(static_cast<unsigned char>(text[at])) != 0;
    if (!blank) {
      essence += text[at];
    } else if (!essence.empty() && essence.back() != ' ') {
      essence += ' ';
    }
    if (text[at] == '"') quoted = !quoted;
    if (quoted && text[at] == '\\' && at + 1 < text.size()) essence += text[++at];
  }
  return essence;
}

bool print(const char *text) {
  if (std::fputs(text, stdout) >= 0 && std::fflush(stdout) == 0) return true;
  say("standard output", std::strerror(errno));
  return false;
}

// One template on its way through the library. Every doubt is said when it arises.
class RoundTrip {
 public:
  explicit RoundTrip(std::string name) : name_(std::move(name)) {}

  ExitStatus run(const std::string &text) {
    if (const std::size_t nul = text.find('\0'); nul != std::string::npos)
      doubt("a NUL byte at offset " + std::to_string(nul) + " ends the text; what follows it is not read");
    const Session session = open_session();
    const int32_t job = jt_decode_template(session.get(), text.c_str());
    tell_messages(session.get(), "reading: ");
    if (job == 0) {
      doubt("not a template");
      return kDoubt;
    }
    jt_error(session.get(), kMark, "");
    const Text written(jt_encode_template(session.get(), job));
    const bool printed = written == nullptr || print(written.get());
    tell_messages(session.get(), "writing: ");
    read_back(written.get());
    if (!printed) return kTrouble;
    return doubtful_ ? kDoubt : kNoDoubt;
  }

 private:
  void doubt(const std::string &what) {
    say(name_, what);
    doubtful_ = true;
  }

  void tell_messages(jt_parser_space *space, const std::string &step) {
    const std::vector<std::string> messages = messages_of_call(space);
    if (messages.size() == JT_HISTORY_LENGTH)
      doubt(step + "the last five messages; there may be more before");
    for (const std::string &message : messages) doubt(step + message);
  }

  // In a session of its own, whose messages are about the copy.
  void read_back(const char *written) {
    if (written == nullptr) return doubt("cannot be written");
    const Session session = open_session();
    const int32_t copy = jt_decode_template(session.get(), written);
    if (copy == 0) return doubt("what was written cannot be read back");
    const Text again(jt_encode_template(session.get(), copy));
    if (again == nullptr || essence_of(again.get()) != essence_of(written))
      doubt("what was written reads back as something else");
  }

  std::string name_;
  bool doubtful_ = false;
};

// All bytes up to the end; false, with errno, when they cannot be read.
bool read_whole(std::FILE *file, std::string &bytes) {
  char piece[1 << 16];
  errno = 0;
  while (const std::size_t count = std::fread(piece, 1, sizeof piece, file)) bytes.append(piece, count);
  return std::ferror(file) == 0;
}

ExitStatus round_trip(const std::string &path) {
  const bool standard_input = path == "-";
  const std::string name = standard_input ? "standard input" : path;
  std::FILE *file = standard_input ? stdin : std::fopen(path.c_str(), "rb");
  std::string text;
  const bool is_read = file != nullptr && read_whole(file, text);
  if (!is_read) say(name, std::strerror(errno));
  if (file != nullptr) std::fclose(file);
  return is_read ? RoundTrip(name).run(text) : kTrouble;
}

ExitStatus print_version() {
  const std::string version = std::to_string(JT_VERSION_MAJOR) + "." + std::to_string(JT_VERSION_MINOR) +
                              "." + std::to_string(JT_VERSION_PATCH);
  return print(("jt-roundtrip " + version + "\n").c_str()) ? kNoDoubt : kTrouble;
}

ExitStatus print_help() { return print((std::string(kUsage) + kHelp).c_str()) ? kNoDoubt : kTrouble; }

ExitStatus wrong_use(const std::string &about, std::string_view what) {
  say(about, what);
  std::fputs(kUsage, stderr);
  return kTrouble;
}

}  // namespace

int main(int argc, char **argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  if (words == std::vector<std::string>{"--help"}) return print_help();
  if (words == std::vector<std::string>{"--version"}) return print_version();
  const bool only_files = !words.empty() && words[0] == "--";
  if (only_files) words.erase(words.begin());
  if (words.size() != 1) return wrong_use("wrong use", "takes one FILE");
  if (!only_files && words[0].size() > 1 && words[0][0] == '-') return wrong_use(words[0], "no such option");
  return round_trip(words[0]);
}
