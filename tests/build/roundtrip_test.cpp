// The round-trip example: what it prints where, and its exit status.
#include "support/program.h"

namespace jt_test {
namespace {

ProgramRun round_trip(const std::string &path) {
  return run_built_program({JT_EXAMPLES_BIN_DIR "/roundtrip", path});
}

ProgramRun round_trip_of(std::string_view text) {
  const ScratchDirectory scratch;
  return round_trip(scratch.write("template.sil", text));
}

TEST(RoundTrip, PrintsTheEncodedTemplate) {
  const ProgramRun run = round_trip_of("< sil 4.2.00 ASCII job1 > < /SIL >");
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out, "\n< SIL 4.2.00 ASCII job1 >\n\n\n< /SIL >\n");
  EXPECT_EQ(run.err, "");
}

TEST(RoundTrip, PrintsMessagesOldestFirst) {
  const ProgramRun run = round_trip_of("< SIL 4.1 EBCDIC job1 > < /SIL >");
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.err.find("WARNING: version number mismatch"), 0U) << run.err;
  EXPECT_NE(run.err.find("SYNTAX ERROR: Non ASCII encoding"), std::string::npos) << run.err;
}

TEST(RoundTrip, FailsWithAMessageWhenTheTemplateDoesNotDecode) {
  const ProgramRun run = round_trip_of("[ nothing X ] end");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err.find("SYNTAX ERROR: unknown or invalid type:nothing"), 0U) << run.err;
}

TEST(RoundTrip, SaysThatATemplateIsCutOff) {
  const ProgramRun run = round_trip_of("< SIL 4.2.00 ASCII job1 > < /SIL");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "the text is cut off\n");
}

TEST(RoundTrip, SaysThatATemplateIsCutOffBehindItsWarnings) {
  const ProgramRun run = round_trip_of("< SIL 4.1 ASCII job1 > <");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.err, "WARNING: version number mismatch\n ...\nthe text is cut off\n");
}

TEST(RoundTrip, SaysWhyAFileCannotBeRead) {
  const ScratchDirectory scratch;
  const ProgramRun run = round_trip(scratch.file("missing.sil"));
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.err, scratch.file("missing.sil") + ": No such file or directory\n");
}

TEST(RoundTrip, ReadsAFileOfAnyLength) {
  const std::string blanks(200000, ' ');
  const ProgramRun run = round_trip_of("< SIL 4.2.00 ASCII job1 >" + blanks + "< /SIL >");
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out, "\n< SIL 4.2.00 ASCII job1 >\n\n\n< /SIL >\n");
}

}  // namespace
}  // namespace jt_test
