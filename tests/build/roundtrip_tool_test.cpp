// The installed jt-roundtrip as a user of a shell sees it: every line on both outputs, and the exit status.
#include "support/program.h"

namespace jt_test {
namespace {

constexpr char kUsage[] = "usage: jt-roundtrip FILE | --help | --version\n";
constexpr char kEmptyJob[] = "\n< SIL 4.2.00 ASCII job1 >\n\n\n< /SIL >\n";

ProgramRun tool(std::vector<std::string> words) {
  words.insert(words.begin(), JT_ROUNDTRIP);
  return run_built_program(std::move(words));
}

// What stands behind the name of the tool in a shell's command.
ProgramRun tool_in_shell(const std::string &rest) {
  return run_program({"sh", "-c", JT_EMULATOR " " JT_ROUNDTRIP " " + rest});
}

ProgramRun tool_with_input(std::string_view text) {
  const ScratchDirectory scratch;
  return tool_in_shell("- <" + scratch.write("input.sil", text));
}

TEST(RoundTripTool, PrintsATemplateWithoutDoubtAndNothingElse) {
  const ScratchDirectory scratch;
  const ProgramRun run = tool({scratch.write("job.sil", "< sil 4.2.00 ASCII job1 > < /SIL >")});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out, kEmptyJob);
  EXPECT_EQ(run.err, "");
}

TEST(RoundTripTool, NamesItselfAndTheFileInAMessage) {
  const ScratchDirectory scratch;
  const std::string job = scratch.write("job.sil", "< SIL 4.1 ASCII job1 > < /SIL >");
  const ProgramRun run = tool({job});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, "\n< SIL 4.1 ASCII job1 >\n\n\n< /SIL >\n");
  EXPECT_EQ(run.err, "jt-roundtrip: " + job + ": reading: WARNING: version number mismatch  ...\n");
}

TEST(RoundTripTool, TellsTheMessagesOfReadingOldestFirst) {
  const ProgramRun run = tool_with_input("< SIL 4.1 EBCDIC job1 > < /SIL >");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.err,
            "jt-roundtrip: standard input: reading: WARNING: version number mismatch  ...\n"
            "jt-roundtrip: standard input: reading: SYNTAX ERROR: Non ASCII encoding  ...\n");
}

TEST(RoundTripTool, KeepsTheMessagesOfReadingHoweverManyThereAreOfWriting) {
  const ProgramRun run = tool_with_input(
      "[kmt_svc_scan S] { enum_sided A = NO; enum_sided B = NO; enum_sided C = NO; enum_sided D = NO; } end");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out,
            "[kmt_svc_scan S]\n"
            " {\n"
            "      enum_sided A = NO;\n"
            "      enum_sided B = NO;\n"
            "      enum_sided C = NO;\n"
            "      enum_sided D = NO;\n"
            " }\n"
            "end\n"
            "\n");
  const std::string reading =
      "jt-roundtrip: standard input: reading: WARNING: trying to evaluate as an 'enumerated' type:NO ...\n";
  const std::string writing =
      "jt-roundtrip: standard input: writing: CALL ERROR: Unknown enumerated value ...\n";
  EXPECT_EQ(run.err, reading + reading + reading + reading + writing + writing + writing + writing);
}

TEST(RoundTripTool, SaysThatItMayNotHaveSeenEveryMessage) {
  const ProgramRun run = tool_with_input(
      "[kmt_svc_scan S] { integer A = a; integer B = b; integer C = c; integer D = d; integer E = e; } end");
  EXPECT_EQ(run.exit_status, 1);
  const std::string begin =
      "jt-roundtrip: standard input: reading: SYNTAX ERROR: "
      "trying to evaluate the following value string as -- integer --:  ";
  EXPECT_EQ(run.err,
            "jt-roundtrip: standard input: reading: the last five messages; there may be more before\n" +
                begin + "a ...\n" + begin + "b ...\n" + begin + "c ...\n" + begin + "d ...\n" + begin +
                "e ...\n");
}

TEST(RoundTripTool, RefusesWhatIsNoTemplate) {
  const ProgramRun run = tool_with_input("[ nothing X ] end");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(
      run.err.find("jt-roundtrip: standard input: reading: SYNTAX ERROR: unknown or invalid type:nothing"),
      0U)
      << run.err;
  EXPECT_TRUE(run.err.ends_with("\njt-roundtrip: standard input: not a template\n")) << run.err;
}

TEST(RoundTripTool, SaysSoWhereTheLibraryHasNoMessage) {
  const ProgramRun run = tool_with_input("< SIL 4.2.00 ASCII job1 > <");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "jt-roundtrip: standard input: not a template\n");
}

TEST(RoundTripTool, DoubtsWhatCannotBeReadBack) {
  const ProgramRun run = tool_with_input("[kmt_svc_scan S] { } end (KMT_STATUS_ERROR{\"tray{2\"})");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, "[kmt_svc_scan S]\n {\n }\nend(KMT_STATUS_ERROR{tray{2})\n\n");
  EXPECT_EQ(run.err, "jt-roundtrip: standard input: what was written cannot be read back\n");
}

TEST(RoundTripTool, DoubtsWhatReadsBackAsSomethingElse) {
  const ProgramRun run = tool_with_input("[kmt_svc_scan S] { } end (KMT_STATUS_ERROR{\"tray 2\"})");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, "[kmt_svc_scan S]\n {\n }\nend(KMT_STATUS_ERROR{tray 2})\n\n");
  EXPECT_EQ(run.err, "jt-roundtrip: standard input: what was written reads back as something else\n");
}

// It moves behind the service when the result is read and written once more.
TEST(RoundTripTool, HasNoDoubtAboutACommentBehindTheHeader) {
  const ProgramRun run = tool_with_input(
      "< SIL 4.2.00 ASCII job1 >\n# said \"once\n[kmt_svc_scan S] { string A = \"# \\\" #\"; } end < /SIL >");
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_NE(run.out.find("# said \"once\n"), run.out.npos) << run.out;
  EXPECT_EQ(run.err, "");
}

TEST(RoundTripTool, HasNoDoubtAboutLongLines) {
  const ProgramRun run = tool({JT_SOURCE_DIR "/examples/long_lines.sil"});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out, read_whole(JT_SOURCE_DIR "/tests/examples/expected/long_lines.sil"));
  EXPECT_EQ(run.err, "");
}

TEST(RoundTripTool, SaysWhereANulEndsTheText) {
  const ProgramRun run = tool_with_input(std::string_view("< SIL 4.2.00 ASCII job1 > < /SIL >\0 end", 39));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, kEmptyJob);
  EXPECT_EQ(
      run.err,
      "jt-roundtrip: standard input: a NUL byte at offset 34 ends the text; what follows it is not read\n");
}

TEST(RoundTripTool, ReadsAFileOfAnyLength) {
  const std::string blanks(200000, ' ');
  const ProgramRun run = tool_with_input("< SIL 4.2.00 ASCII job1 >" + blanks + "< /SIL >");
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out, kEmptyJob);
}

TEST(RoundTripTool, SaysWhyAFileCannotBeRead) {
  const ScratchDirectory scratch;
  const ProgramRun missing = tool({scratch.file("missing.sil")});
  EXPECT_EQ(missing.exit_status, 2);
  EXPECT_EQ(missing.out, "");
  EXPECT_EQ(missing.err, "jt-roundtrip: " + scratch.file("missing.sil") + ": No such file or directory\n");

  const ProgramRun folder = tool({JT_SOURCE_DIR});
  EXPECT_EQ(folder.exit_status, 2);
  EXPECT_EQ(folder.err, "jt-roundtrip: " JT_SOURCE_DIR ": Is a directory\n");
}

TEST(RoundTripTool, SaysWhyTheResultCannotBePrinted) {
  const ProgramRun run = tool_in_shell(JT_SOURCE_DIR "/examples/copy.sil >/dev/full");
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.err, "jt-roundtrip: standard output: No space left on device\n");
}

TEST(RoundTripTool, SaysWhyItsHelpAndVersionCannotBePrinted) {
  for (const char *option : {"--help >/dev/full", "--version >/dev/full"}) {
    const ProgramRun run = tool_in_shell(option);
    EXPECT_EQ(run.exit_status, 2) << option;
    EXPECT_EQ(run.err, "jt-roundtrip: standard output: No space left on device\n") << option;
  }
}

TEST(RoundTripTool, TellsItsVersion) {
  const ProgramRun run = tool({"--version"});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out, "jt-roundtrip 4.3.0\n");
  EXPECT_EQ(run.err, "");
}

TEST(RoundTripTool, HelpsOnStandardOutput) {
  const ProgramRun run = tool({"--help"});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out.find(kUsage), 0U) << run.out;
  EXPECT_NE(run.out.find("Exit status: 0 no doubt; 1 some doubt, or no template;"), run.out.npos) << run.out;
  EXPECT_EQ(run.err, "");
}

TEST(RoundTripTool, TellsItsUsageUnlessThereIsOneFile) {
  const std::vector<std::vector<std::string>> wrong = {{}, {"one", "two"}, {"--"}, {"--help", "one"}};
  for (const std::vector<std::string> &words : wrong) {
    const ProgramRun run = tool(words);
    EXPECT_EQ(run.exit_status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, std::string("jt-roundtrip: wrong use: takes one FILE\n") + kUsage);
  }
}

TEST(RoundTripTool, RefusesAnOptionThatItDoesNotHave) {
  const ProgramRun run = tool({"-v"});
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, std::string("jt-roundtrip: -v: no such option\n") + kUsage);
}

TEST(RoundTripTool, TakesWhatStandsBehindTwoDashesForAFile) {
  const ProgramRun run = tool({"--", "-v"});
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.err, "jt-roundtrip: -v: No such file or directory\n");
}

}  // namespace
}  // namespace jt_test
