// What a small program weighs that is linked from the static library as a user would: it gets what it calls,
// not the whole library.
#include <array>
#include <cstdint>
#include <filesystem>

#include "support/program.h"

namespace jt_test {
namespace {

struct Client {
  const char *body;  // of its main function
  std::uintmax_t most_bytes;
};

constexpr char kDecoding[] = "return jt_decode_template(0, \"[ service S ] end\") != 0;";
constexpr char kListening[] = "return jt_decode_source(0, \"[ service S ] end\", 17, 0, 0) != 0;";

// A program that calls nothing takes 14,384 bytes on x86-64.
constexpr Client kClients[] = {
    {"long number; return string_to_integer(\"42\", &number);", 16'000},
    {"return lowercasecmp(\"a\", \"A\");", 16'000},
    {"return jt_get_version(0) != 0;", 20'000},
    {"jt_close_parsing_utility(jt_open_parsing_utility(\"client\")); return 0;", 24'000},
    {"return get_status_string(0, 0) != 0;", 24'000},
    {"kill_status(0, copy_status(0, 0)); return 0;", 24'000},
    {"kill_gutter(0, copy_gutter(0, 0)); return 0;", 32'000},
    {"return eval_gutter(0, \"10/20/MM\") != 0;", 32'000},
    {kDecoding, 152'000},
};

// Makes a program in a directory; false where it does not link.
bool link_client(const ScratchDirectory &scratch, const char *body, const std::vector<std::string> &flags) {
  const std::string text = std::string("#include \"jt.h\"\nint main(void) { ") + body + " }\n";
  const std::string source = scratch.write("client.c", text);
  std::vector<std::string> command = {JT_CC, "-I" JT_SOURCE_DIR "/include", "-o", scratch.file("client"),
                                      source};
  command.push_back(JT_STATIC_LIBRARY);
  command.insert(command.end(), flags.begin(), flags.end());
  const ProgramRun run = run_program(command);
  EXPECT_EQ(run.exit_status, 0) << run.err;
  return run.exit_status == 0;
}

std::uintmax_t stripped_size(const char *body, std::vector<std::string> flags) {
  const ScratchDirectory scratch;
  flags.emplace_back("-s");
  return link_client(scratch, body, flags) ? std::filesystem::file_size(scratch.file("client")) : 0;
}

// The names in a program, with their arguments.
std::string names_in(const char *body) {
  const ScratchDirectory scratch;
  if (!link_client(scratch, body, {"-Wl,--gc-sections", "-lstdc++", "-lm"})) return "";
  const ProgramRun run = run_program({JT_NM, "--demangle", scratch.file("client")});
  EXPECT_EQ(run.exit_status, 0) << run.err;
  return run.out;
}

// Other builds carry a sanitizer's or a debugger's weight, and other machines have larger pages.
class ClientSize : public testing::Test {
 protected:
  void SetUp() override {
    if (!JT_IS_WEIGHED) GTEST_SKIP() << "only a release of g++ for x86-64 is weighed";
  }
};

TEST_F(ClientSize, AProgramGetsWhatItCalls) {
  for (const Client &client : kClients) {
    SCOPED_TRACE(client.body);
    const std::uintmax_t bytes = stripped_size(client.body, {"-Wl,--gc-sections", "-lstdc++", "-lm"});
    EXPECT_GT(bytes, 0U);
    EXPECT_LE(bytes, client.most_bytes);
  }
}

TEST_F(ClientSize, ATextRoutineNeedsNeitherALinkerThatDropsSectionsNorTheRuntimeOfCpp) {
  const std::uintmax_t bytes = stripped_size(kClients[0].body, {});
  EXPECT_GT(bytes, 0U);
  EXPECT_LE(bytes, kClients[0].most_bytes);
}

TEST_F(ClientSize, AProgramThatDecodesAndNeverListensGetsNothingOfTheListener) {
  constexpr std::array<const char *, 4> kOfTheListener = {"SourceDecoder", "Teller", "recover(", "describe_"};
  const std::string decoding = names_in(kDecoding);
  const std::string listening = names_in(kListening);
  for (const char *name : kOfTheListener) {
    EXPECT_EQ(decoding.find(name), decoding.npos) << name;
    EXPECT_NE(listening.find(name), listening.npos) << name;
  }
}

}  // namespace
}  // namespace jt_test
