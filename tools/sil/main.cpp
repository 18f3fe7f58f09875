// sil: one command for people who work with SIL files. Here the command line is taken apart; each command has a file
// of its own beside this one, and core/ has all that needs neither files nor threads.
#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>
#include <memory>

#include "command.h"
#include "core/suggestions.h"
#include "jt.h"

namespace {

using sil::Arguments;
using sil::Command;
using sil::ExitStatus;
using sil::Option;
using sil::Output;

// What the parser fills for a command.
struct Given {
  const Command *command = nullptr;
  CLI::App *parser = nullptr;
  Arguments arguments;
};

void add_option(Given &given, const Option &option) {
  const std::string name(option.name);
  const std::string names = option.letter.empty() ? name : std::string(option.letter) + "," + name;
  std::map<std::string, std::vector<std::string>, std::less<>> &options = given.arguments.options;
  if (option.argument.empty()) {
    given.parser->add_flag_callback(names, [&options, name] { options[name]; });
    return;
  }
  CLI::Option *const added = given.parser->add_option_function<std::vector<std::string>>(
      names, [&options, name](const std::vector<std::string> &values) { options[name] = values; });
  added->expected(1)->allow_extra_args(false)->take_all();
  if (!option.choices.empty()) {
    std::set<std::string> choices;
    for (const std::string &choice : CLI::detail::split(std::string(option.choices), '|'))
      choices.insert(choice);
    added->check(CLI::IsMember(choices));
  }
}

void add_command(CLI::App &parser, const Command &command, Given &given) {
  given.command = &command;
  given.parser = parser.add_subcommand(std::string(command.name));
  given.parser->set_help_flag();
  for (const Option &option : command.options) add_option(given, option);
  for (const Option &option : sil::common_options()) add_option(given, option);
  given.parser->add_option("operands", given.arguments.operands);
}

ExitStatus wrong_use(const std::string &what, const std::string &command) {
  Output output("never");
  output.say(command, what);
  output.say("", "try sil " + (command.empty() ? "" : command + " ") + "--help");
  return sil::kTrouble;
}

ExitStatus print(const std::string &text) {
  Output output("never");
  output.print(text);
  return output.flush() ? sil::kFine : sil::kTrouble;
}

std::string version() {
  return "sil " + std::to_string(JT_VERSION_MAJOR) + "." + std::to_string(JT_VERSION_MINOR) + "." +
         std::to_string(JT_VERSION_PATCH) + "\n";
}

ExitStatus run(const Given &given) {
  const Command &command = *given.command;
  const Arguments &arguments = given.arguments;
  const std::string name(command.name);
  if (arguments.has("--help")) return print(help_of(command));
  const std::size_t count = arguments.operands.size();
  if (count < command.fewest || count > command.most)
    return wrong_use("takes " + std::string(command.operands), name);
  Output output(arguments.value_of("--color", "auto"));
  const ExitStatus status = command.run(arguments, output);
  return output.flush() ? status : sil::kTrouble;
}

bool is_command(const std::string &word) {
  return std::any_of(sil::commands().begin(), sil::commands().end(),
                     [&word](const Command *command) { return command->name == word; });
}

ExitStatus no_such_command(const std::string &word) {
  std::vector<std::string> names;
  for (const Command *command : sil::commands()) names.emplace_back(command->name);
  return wrong_use("there is no command \"" + word + "\"" + sil::did_you_mean(sil::nearest(word, names)), "");
}

ExitStatus run(int argc, char **argv) {
  const std::string first = argc > 1 ? argv[1] : "";
  if (!first.empty() && first[0] != '-' && !is_command(first)) return no_such_command(first);
  CLI::App parser;
  parser.set_help_flag();
  bool wants_help = false;
  bool wants_version = false;
  parser.add_flag("-h,--help", wants_help);
  parser.add_flag("--version", wants_version);
  std::vector<std::unique_ptr<Given>> all;
  for (const Command *command : sil::commands())
    add_command(parser, *command, *all.emplace_back(std::make_unique<Given>()));
  const auto given = [&all] {
    return std::find_if(all.begin(), all.end(), [](const auto &one) { return one->parser->parsed(); });
  };
  try {
    parser.parse(argc, argv);
  } catch (const CLI::ParseError &problem) {
    return wrong_use(problem.what(), given() == all.end() ? "" : std::string((*given())->command->name));
  }
  if (given() != all.end()) return run(**given());
  if (wants_version) return print(version());
  return wants_help ? print(sil::help()) : wrong_use("a command is needed", "");
}

}  // namespace

int main(int argc, char **argv) {
  // A reader that goes away is met where it is written to, not in the middle of a file's change.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return run(argc, argv);
  } catch (const std::exception &problem) {
    return wrong_use(problem.what(), "");
  }
}
