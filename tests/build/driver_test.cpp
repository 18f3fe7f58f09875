// The timing driver as a user sees it: its usage line and its six lines, whatever the file holds.
#include <regex>

#include "support/program.h"

namespace jt_test {
namespace {

constexpr char kTemplate[] =
    "< SIL 4.2.00 ASCII job1 >\n"
    "[ kmt_svc_scan MyScan ]\n"
    "{\n"
    "  integer Copies = 2;\n"
    "}\n"
    "end\n"
    "< /SIL >\n";

void expect_six_lines(const std::string &path) {
  static const std::regex kSixLines(
      "Decode = \\d+\nDestroy = \\d+\nDecode = \\d+\nDestroy = \\d+\nEncode = \\d+\nEncode = \\d+\n");
  const ProgramRun run = run_built_program({JT_DRIVER, path});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out, "");
  EXPECT_TRUE(std::regex_match(run.err, kSixLines)) << run.err;
}

void expect_usage(const std::vector<std::string> &words) {
  const ProgramRun run = run_built_program(words);
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "USAGE " JT_DRIVER " <template filename>\n");
}

TEST(Driver, WithoutAnArgumentTellsItsUsage) { expect_usage({JT_DRIVER}); }

TEST(Driver, WithTwoArgumentsTellsItsUsage) { expect_usage({JT_DRIVER, "one", "two"}); }

TEST(Driver, TimesATemplateInSixLines) {
  const ScratchDirectory scratch;
  expect_six_lines(scratch.write("template.sil", kTemplate));
}

TEST(Driver, TimesAnEmptyFileAllTheSame) {
  const ScratchDirectory scratch;
  expect_six_lines(scratch.write("empty.sil", ""));
}

TEST(Driver, TakesAMissingFileForAnEmptyOne) {
  const ScratchDirectory scratch;
  expect_six_lines(scratch.file("missing.sil"));
}

TEST(Driver, TakesADirectoryForAnEmptyFile) { expect_six_lines(::testing::TempDir()); }

TEST(Driver, TimesATemplateThatDoesNotDecode) {
  const ScratchDirectory scratch;
  expect_six_lines(scratch.write("broken.sil", "[ kmt_svc_scan"));
}

}  // namespace
}  // namespace jt_test
