// The lines of a help, made of the table.
#include <algorithm>

#include "command.h"

namespace sil {
namespace {

constexpr std::string_view kIntroduction =
    "Checks, shows and converts SIL files, the job templates of office devices.\n";
constexpr std::string_view kEnd =
    "FILE may be - for standard input. Exit status: 0 fine; 1 findings, differences,\n"
    "nothing at a path; 2 wrong use, a file not read or written.\n"
    "sil COMMAND --help says more about one; sil(1) says all.\n";

void pad(std::string &line, std::size_t width) {
  line += std::string(std::max(line.size() + 2, width) - line.size(), ' ');
}

// In lines that a terminal shows whole.
std::string wrapped(std::string_view text) {
  constexpr std::size_t kWidth = 79;
  std::string lines;
  while (text.size() > kWidth) {
    const std::size_t end = text.rfind(' ', kWidth);
    lines.append(text.substr(0, end)).append("\n");
    text.remove_prefix(end + 1);
  }
  return lines.append(text).append("\n");
}

std::string line_of(const Option &option) {
  std::string line = "  ";
  if (!option.letter.empty()) line.append(option.letter).append(", ");
  line.append(option.name);
  if (!option.argument.empty()) line.append(" ").append(option.argument);
  pad(line, 22);
  return line.append(option.help).append("\n");
}

}  // namespace

std::string help() {
  std::string text = "usage: sil COMMAND [OPTION...] [OPERAND...]\n\n";
  text += kIntroduction;
  text += "\n";
  for (const Command *command : commands()) {
    std::string line = "  " + std::string(command->name);
    pad(line, 14);
    text += line.append(command->summary).append("\n");
  }
  return text.append("\n  --help, --version\n\n").append(kEnd);
}

std::string help_of(const Command &command) {
  std::string text = "usage: sil " + std::string(command.name) + " [OPTION...]";
  if (!command.operands.empty()) text.append(" ").append(command.operands);
  text.append("\n\n").append(command.summary).append("\n");
  text.append(wrapped(command.text)).append("\n");
  for (const Option &option : command.options) text += line_of(option);
  for (const Option &option : common_options()) text += line_of(option);
  text += "\nexamples:\n";
  for (const Example &example : command.examples) {
    std::string line = "  " + std::string(example.command);
    pad(line, 46);
    text += line.append(example.result).append("\n");
  }
  return text;
}

}  // namespace sil
