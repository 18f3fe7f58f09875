// The table of commands: what `sil` does, from which the command line, every help, the man page and the completions
// are made. A command is a function over what was given; its row says what may be given.
#ifndef SIL_COMMAND_H
#define SIL_COMMAND_H

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "output.h"

namespace sil {

enum ExitStatus { kFine = 0, kFindings = 1, kTrouble = 2 };

/// What was given on the command line, as the command's row allows.
struct Arguments {
  std::vector<std::string> operands;
  std::map<std::string, std::vector<std::string>, std::less<>> options;  // by their long names

  bool has(std::string_view option) const { return options.contains(option); }
  /// The last one that was given.
  std::string value_of(std::string_view option, std::string_view otherwise) const {
    const auto found = options.find(option);
    return std::string(found == options.end() ? otherwise : std::string_view(found->second.back()));
  }
};

struct Option {
  std::string_view name;      // "--json"
  std::string_view letter;    // "-0", or nothing
  std::string_view argument;  // "NAME" as the help calls it; nothing where it takes none
  std::string_view choices;   // "auto|always|never": what the argument may be; nothing where that is free
  std::string_view help;      // a line
};

struct Example {
  std::string_view command;
  std::string_view result;  // what it does
};

struct Command {
  std::string_view name;
  std::string_view operands;  // "FILE PATH", as the help shows them
  std::size_t fewest;         // of operands
  std::size_t most;
  std::string_view summary;  // a line
  std::string_view text;     // what there is to know beyond that, in sentences
  std::span<const Option> options;
  Example examples[2];
  ExitStatus (*run)(const Arguments &, Output &);
};

inline constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

/// All commands, in the order of the help.
std::span<const Command *const> commands();

/// What every command takes, and those that read a file.
std::span<const Option> common_options();

extern const Command kCheck, kFormat, kSet, kAdd, kRemove, kShow, kReport, kGet, kDiff, kJson, kFromJson,
    kTypes, kExplain;

/// The lines of `sil --help`, and of a command's.
std::string help();
std::string help_of(const Command &command);

}  // namespace sil

#endif
