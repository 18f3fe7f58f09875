// The clients that the manual's cookbook takes its pieces from: what each of them prints, word for word.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program.h"

namespace jt_test {
namespace {

ProgramRun run_client(const std::string &name, const std::vector<std::string> &arguments = {}) {
  std::vector<std::string> words = {JT_EXAMPLES_BIN_DIR "/" + name};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return run_built_program(words);
}

void expect_output(const ProgramRun &run, int exit_status, const std::string &out) {
  EXPECT_EQ(run.exit_status, exit_status);
  EXPECT_EQ(run.out, out);
  EXPECT_EQ(run.err, "");
}

TEST(TypedValues, ReadsWritesAndComparesValues) {
  expect_output(run_client("typed_values"), 0,
                "copies 4\n"
                "latest 2031-01-02\n"
                "both sides yes\n");
}

TEST(EditValues, AddsDeletesAndReplaces) {
  expect_output(run_client("edit_values"), 0,
                "[kmt_svc_email Mail]\n"
                " {\n"
                "      string To = \"office@example.org\", \"boss@example.org\";\n"
                "    * string Subject = \"Scan of \\\"today\\\"\";\n"
                "      enum_jobpriority Priority = URGENT;\n"
                " }\n"
                "end\n"
                "\n");
}

TEST(Invocations, AddsChoosesAndDeletes) {
  expect_output(run_client("invocations"), 0,
                "[kmt_svc_file Filing]\n"
                " Bills{\n"
                "      string Path = \"/bills/2030\";\n"
                " }\n"
                " Letters{\n"
                "      string Path = \"/letters/2030\";\n"
                " }\n"
                "end\n"
                "\n");
}

TEST(FaxAndStore, PrintsAJobWithAHeader) {
  expect_output(run_client("fax_and_store", {"fax-17", "+49 89 555"}), 0,
                "\n"
                "< SIL 4.2.00 ASCII fax-17 >\n"
                "\n"
                "[kmt_svc_scan Scanner]\n"
                " Letter{\n"
                " }\n"
                "end\n"
                "\n"
                "[kmt_svc_fax Fax]\n"
                " {\n"
                "      string Number = \"+49 89 555\";\n"
                "      enum_transmissionmode Mode = FASTEST_POSSIBLE;\n"
                "      ref_invocation Source = Scanner:Letter;\n"
                " }\n"
                "end\n"
                "\n"
                "[kmt_svc_file Store]\n"
                " {\n"
                "      string Path = \"/faxes\";\n"
                "      enum_filingprotocol Protocol = SFTP;\n"
                "      ref_invocation Source = Scanner:Letter;\n"
                " }\n"
                "end\n"
                "\n"
                "\n"
                "< /SIL >\n");
}

TEST(FaxAndStore, RefusesAnIdentifierThatIsNoWord) {
  const ProgramRun run = run_client("fax_and_store", {"fax 17", "5"});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "SYNTAX ERROR: while parsing for \"  >  \" at:17 > < /SIL > ...\n");
}

TEST(FaxAndStore, DoesNotPrintWhatCannotBeRead) {
  const ProgramRun run = run_client("fax_and_store", {"fax-17", std::string(1025, '5')});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err, "");
}

TEST(SetEverywhere, SetsTheValueInEachInvocationOfEachFile) {
  const ProgramRun run = run_client("set_everywhere", {"Copies", "9", JT_SOURCE_DIR "/examples/copy.sil"});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_NE(run.out.find(" Copies = 9;"), std::string::npos) << run.out;
}

TEST(SetEverywhere, GoesOnBehindAFileThatIsRefused) {
  const std::string refused = JT_SOURCE_DIR "/examples/rejected/word_after_a_string.sil";
  const ProgramRun run =
      run_client("set_everywhere", {"None", "1", refused, JT_SOURCE_DIR "/examples/fax.sil"});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.err.find(refused + ": SYNTAX ERROR: quotes inside a value token at -->"), 0U) << run.err;
  EXPECT_NE(run.out.find("[kmt_svc_fax Fax]"), std::string::npos);
}

TEST(SetEverywhere, SaysWhichFileHasNoSuchValue) {
  const std::string file = JT_SOURCE_DIR "/examples/fax.sil";
  const ProgramRun run = run_client("set_everywhere", {"Retries", "many", file});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(
      run.err,
      file + ": SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\nmany ...\n");
  EXPECT_EQ(run.out, "");
}

// Neither is reported by the library, and the messages of the decode before are not to blame.
TEST(SetEverywhere, SaysWhatIsWrongWithoutAMessageOfTheLibrary) {
  const std::string doubtful = JT_SOURCE_DIR "/examples/doubtful_values.sil";
  EXPECT_EQ(run_client("set_everywhere", {"Copies", "", doubtful}).err,
            doubtful + ": the text is cut off, or the value is none of its type\n");
  const std::string cut_off = JT_SOURCE_DIR "/examples/rejected/end_marker_cut_off.sil";
  EXPECT_EQ(run_client("set_everywhere", {"Copies", "1", cut_off}).err,
            cut_off + ": the text is cut off, or the value is none of its type\n");
  EXPECT_EQ(run_client("set_everywhere", {"Copies", "1", "/no/such/file"}).err,
            "/no/such/file: cannot be read\n");
}

TEST(Annotate, WritesComments) {
  expect_output(run_client("annotate"), 0,
                "[kmt_svc_scan Scanner]\n"
                " # Both sides, because paper is dear.\n"
                " Letter{\n"
                "      enum_sided Sides = # Was ONE_SIDED.\n"
                "                         TWO_SIDED;\n"
                " }\n"
                "end\n"
                "\n");
}

TEST(TwoThreads, DecodeSideBySide) { expect_output(run_client("two_threads"), 0, "1000 and 1000\n"); }

TEST(Check, HasNothingToSayOfAGoodTemplate) {
  expect_output(run_client("check", {JT_SOURCE_DIR "/examples/copy.sil"}), 0, "");
}

TEST(Check, PrintsTheDoubts) {
  expect_output(
      run_client("check", {JT_SOURCE_DIR "/examples/doubtful_values.sil"}), 1,
      "WARNING: Value outside range (25 MM) ...\n"
      "SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\nmany ...\n");
}

TEST(Check, SaysWhyATemplateIsRefused) {
  expect_output(run_client("check", {JT_SOURCE_DIR "/examples/rejected/service_twice.sil"}), 2,
                "SYNTAX ERROR: Trying to save multiple definitions for:SCANNER ...\n");
}

TEST(Check, SaysThatATextIsCutOff) {
  for (const char *file : {"end_marker_cut_off.sil", "section_cut_off.sil"}) {
    expect_output(run_client("check", {JT_SOURCE_DIR "/examples/rejected/" + std::string(file)}), 2,
                  "the text is cut off\n");
  }
}

TEST(Check, SaysThatATextIsCutOffBehindItsWarnings) {
  const ScratchDirectory scratch;
  const std::string file =
      scratch.write("job.sil", "< SIL 4.1 ASCII job > [ kmt_svc_scan Scan ] { enum_sided Sides = A; } end <");
  expect_output(run_client("check", {file}), 2,
                "WARNING: version number mismatch\n ...\n"
                "WARNING: trying to evaluate as an 'enumerated' type:A ...\n"
                "the text is cut off\n");
}

TEST(Check, PrintsNoMessageOfAnEarlierFile) {
  const std::string doubtful = JT_SOURCE_DIR "/examples/doubtful_values.sil";
  const std::string good = JT_SOURCE_DIR "/examples/copy.sil";
  const std::string refused = JT_SOURCE_DIR "/examples/rejected/service_twice.sil";
  expect_output(run_client("check", {doubtful, good, refused}), 2,
                doubtful + ":\n" +
                    "WARNING: Value outside range (25 MM) ...\n"
                    "SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\n"
                    "many ...\n" +
                    good + ":\n" + refused + ":\n" +
                    "SYNTAX ERROR: Trying to save multiple definitions for:SCANNER ...\n");
}

// The mark that separates them from the earlier file's has been pushed out of the history.
TEST(Check, PrintsTheLastFiveMessagesOfAFileWithMore) {
  const ScratchDirectory scratch;
  const std::string file =
      scratch.write("job.sil", "[ kmt_svc_scan Scan ] { enum_sided Sides = A, B, C, D, E, F; } end");
  const std::string warning = "WARNING: trying to evaluate as an 'enumerated' type:";
  const std::string last_five = warning + "B ...\n" + warning + "C ...\n" + warning + "D ...\n" + warning +
                                "E ...\n" + warning + "F ...\n";
  expect_output(run_client("check", {file, file}), 1, file + ":\n" + last_five + file + ":\n" + last_five);
}

TEST(Check, SaysWhichFileCannotBeRead) {
  const ProgramRun run =
      run_client("check", {JT_SOURCE_DIR "/examples/copy.sil", JT_SOURCE_DIR "/examples/missing.sil"});
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.err, "cannot read " JT_SOURCE_DIR "/examples/missing.sil\n");
}

TEST(Check, NeedsAFile) {
  const ProgramRun run = run_client("check");
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.err, "USAGE: check FILE...\n");
}

}  // namespace
}  // namespace jt_test
