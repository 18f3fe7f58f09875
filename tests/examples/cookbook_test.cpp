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

TEST(Check, NeedsAFile) {
  const ProgramRun run = run_client("check");
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.err, "USAGE: check FILE\n");
}

}  // namespace
}  // namespace jt_test
