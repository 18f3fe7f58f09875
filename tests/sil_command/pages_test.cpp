// What is made of the table of commands: each help, sil(1), the completions.
#include "pages.h"

#include "command.h"
#include "support/program.h"

namespace sil {
namespace {

using jt_test::lines_of;

TEST(Help, FitsAScreen) {
  std::vector<std::string> helps = {help()};
  for (const Command *command : commands()) helps.push_back(help_of(*command));
  for (const std::string &text : helps) {
    EXPECT_LE(lines_of(text).size(), 24U) << text;
    for (const std::string &line : lines_of(text)) EXPECT_LE(line.size(), 80U) << line;
  }
}

TEST(Help, OfACommandEndsWithTwoExamples) {
  for (const Command *command : commands()) {
    const std::vector<std::string> lines = lines_of(help_of(*command));
    const std::string begin = "  sil " + std::string(command->name);
    ASSERT_GE(lines.size(), 3U);
    EXPECT_EQ(lines[lines.size() - 3], "examples:");
    EXPECT_NE(lines[lines.size() - 2].find(command->name), std::string::npos) << command->name;
    EXPECT_NE(lines[lines.size() - 1].find(command->name), std::string::npos) << command->name;
  }
}

TEST(ManPage, HasASectionForEachCommandAndEachOption) {
  const std::string page = man_page();
  for (const Command *command : commands()) {
    EXPECT_NE(page.find(".Ss sil " + std::string(command->name)), std::string::npos) << command->name;
    for (const Option &option : command->options)
      EXPECT_NE(page.find("Fl Fl " + std::string(option.name.substr(2))), std::string::npos) << option.name;
  }
}

// What bash offers when these words stand on the line, the last one being completed.
std::string completed(const std::string &words, int last) {
  const jt_test::ScratchDirectory scratch;
  const std::string script = scratch.write("sil.bash", bash_completion());
  return jt_test::run_program({"bash", "-c",
                               ". " + script + "; COMP_WORDS=(" + words + ") COMP_CWORD=" +
                                   std::to_string(last) + "; _sil; echo \"${COMPREPLY[*]}\""})
      .out;
}

TEST(BashCompletion, OffersCommandsOptionsAndChoices) {
  EXPECT_EQ(completed("sil ex", 1), "explain\n");
  EXPECT_EQ(completed("sil get --j", 2), "--json\n");
  EXPECT_EQ(completed("sil show --color n", 3), "never\n");
  EXPECT_EQ(completed("sil get job", 2), "\n");
}

TEST(ZshCompletion, NamesEachCommand) {
  const std::string script = zsh_completion();
  EXPECT_TRUE(script.starts_with("#compdef sil\n"));
  for (const Command *command : commands())
    EXPECT_NE(script.find("    " + std::string(command->name) + ")\n"), std::string::npos) << command->name;
}

}  // namespace
}  // namespace sil
