// What the compiler says of jt.hpp: nothing in C++20; before C++20 one error, and no others in its wake.
#include <algorithm>

#include "support/program.h"

namespace jt_test {
namespace {

// The errors of compiling the header by itself.
std::vector<std::string> errors_in(const std::string &standard) {
  const ProgramRun run = run_program(
      {JT_CXX, "-std=" + standard, "-fsyntax-only", "-x", "c++", JT_SOURCE_DIR "/include/jt.hpp"});
  EXPECT_EQ(run.exit_status == 0, run.err.find("error:") == std::string::npos) << run.err;
  std::vector<std::string> lines = lines_of(run.err);
  const auto is_other = [](const std::string &line) { return line.find("error:") == std::string::npos; };
  lines.erase(std::remove_if(lines.begin(), lines.end(), is_other), lines.end());
  return lines;
}

TEST(CppHeader, CompilesAsCpp20) { EXPECT_EQ(errors_in("c++20"), std::vector<std::string>()); }

TEST(CppHeader, IsRefusedInAnEarlierModeWithOneError) {
  for (const char *standard : {"c++14", "c++17", "gnu++17"}) {
    const std::vector<std::string> errors = errors_in(standard);
    ASSERT_EQ(errors.size(), 1U) << standard;
    EXPECT_NE(errors[0].find("jt.hpp needs C++20: compile with -std=c++20"), std::string::npos) << errors[0];
  }
}

}  // namespace
}  // namespace jt_test
