// Writing to the two standard streams.
#include "output.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include "core/text.h"

namespace sil {
namespace {

constexpr std::size_t kPiece = 1 << 16;

struct Code {
  Colour colour;
  std::string_view code;
};
constexpr std::array kCodes = {Code{Colour::kRed, "31"},    Code{Colour::kGreen, "32"},
                               Code{Colour::kYellow, "33"}, Code{Colour::kBlue, "34"},
                               Code{Colour::kBold, "1"},    Code{Colour::kFaint, "2"}};

bool wants_colour(std::string_view when) {
  if (when != "auto") return when == "always";
  const char *const none = std::getenv("NO_COLOR");
  const char *const terminal = std::getenv("TERM");
  if (none != nullptr && *none != '\0') return false;
  return isatty(STDOUT_FILENO) == 1 && terminal != nullptr && std::string_view(terminal) != "dumb";
}

// As if the signal had not been held back: the shell sees what it is used to.
[[noreturn]] void end_with_the_pipe() {
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
  std::_Exit(128 + SIGPIPE);
}

}  // namespace

Output::Output(std::string_view when) : has_colour_(wants_colour(when)) {}

void Output::print(std::string_view text) {
  results_ += text;
  if (results_.size() >= kPiece) flush();
}

void Output::say(std::string_view about, std::string_view what) {
  std::string line = "sil: ";
  if (!about.empty()) line.append(printable(about)).append(": ");
  complain(line.append(printable(what)).append("\n"));
}

void Output::complain(std::string_view lines) {
  flush();
  write_all(STDERR_FILENO, lines);
}

bool Output::flush() {
  const std::string results = std::move(results_);
  results_.clear();
  if (has_failed_ || write_all(STDOUT_FILENO, results)) return !has_failed_;
  if (errno == EPIPE) end_with_the_pipe();
  has_failed_ = true;
  say("standard output", std::strerror(errno));
  return false;
}

std::string Output::in(Colour colour, std::string_view text) const {
  std::string result;
  for (const Code &row : kCodes)
    if (has_colour_ && row.colour == colour) result.append("\x1b[").append(row.code).append("m");
  return result.append(text).append(has_colour_ ? "\x1b[0m" : "");
}

bool write_all(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    // The bytes are the caller's, which outlive the call.
    // cppcheck-suppress invalidLifetime
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace sil
