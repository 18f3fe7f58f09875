// What the timing driver does with the library, call by call, through a stand-in that prints the calls.
#include "support/program.h"

namespace jt_test {
namespace {

TEST(DriverCalls, ReadTheFileOnceAndTimeWhatIsPrinted) {
  const ScratchDirectory scratch;
  const ProgramRun run = run_built_program({JT_DRIVER_ON_RECORD, scratch.write("job.sil", "a { text } end")});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out,
            "open session \"nalvrine\"\n"
            "open job.sil\n"
            "close file\n"
            "clock 1\n"
            "session: decode \"a { text } end\" = -101\n"
            "clock 3\n"
            "clock 6\n"
            "session: destroy -101\n"
            "clock 10\n"
            "clock 15\n"
            "session: decode \"a { text } end\" = -102\n"
            "clock 21\n"
            "clock 28\n"
            "session: destroy -102\n"
            "clock 36\n"
            "session: decode \"a { text } end\" = -103\n"
            "clock 45\n"
            "session: encode -103 = \"first\"\n"
            "clock 55\n"
            "session: release \"first\"\n"
            "clock 66\n"
            "session: encode -103 = \"second\"\n"
            "clock 78\n"
            "session: release \"second\"\n"
            "session: destroy -103\n"
            "close session\n");
  EXPECT_EQ(run.err, "Decode = 2\nDestroy = 4\nDecode = 6\nDestroy = 8\nEncode = 10\nEncode = 12\n");
}

constexpr char kCallsWithoutAText[] =
    "clock 1\n"
    "session: decode null = 0\n"
    "clock 3\n"
    "clock 6\n"
    "session: destroy 0\n"
    "clock 10\n"
    "clock 15\n"
    "session: decode null = 0\n"
    "clock 21\n"
    "clock 28\n"
    "session: destroy 0\n"
    "clock 36\n"
    "session: decode null = 0\n"
    "clock 45\n"
    "session: encode 0 = null\n"
    "clock 55\n"
    "session: release null\n"
    "clock 66\n"
    "session: encode 0 = null\n"
    "clock 78\n"
    "session: release null\n"
    "session: destroy 0\n"
    "close session\n";

TEST(DriverCalls, PassANullTextWhereTheFileIsEmpty) {
  const ScratchDirectory scratch;
  const ProgramRun run = run_built_program({JT_DRIVER_ON_RECORD, scratch.write("empty.sil", "")});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out,
            std::string("open session \"nalvrine\"\nopen empty.sil\nclose file\n") + kCallsWithoutAText);
}

TEST(DriverCalls, PassANullTextWhereThereIsNoFile) {
  const ScratchDirectory scratch;
  const ProgramRun run = run_built_program({JT_DRIVER_ON_RECORD, scratch.file("missing.sil")});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out,
            std::string("open session \"nalvrine\"\ncannot open missing.sil\n") + kCallsWithoutAText);
}

TEST(DriverCalls, AreNoneWithoutAnArgument) {
  const ProgramRun run = run_built_program({JT_DRIVER_ON_RECORD});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out, "");
}

}  // namespace
}  // namespace jt_test
