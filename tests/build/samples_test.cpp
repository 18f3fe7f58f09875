// The sample code in the comments of jt.h and jt.hpp is compiled and run: each stands in a client here, line by
// line, where "..." is a body of the reader's own.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "build/samples_client.h"
#include "jt.hpp"
#include "support/program.h"

namespace jt_test {
namespace {

using Lines = std::vector<std::string>;

std::string without_indent(const std::string &line) {
  const std::size_t begin = line.find_first_not_of(' ');
  return begin == std::string::npos ? "" : line.substr(begin);
}

// All samples of C and C++ in a header, one behind the other; other languages have blocks, too.
Lines samples_of_header(const std::string &header) {
  Lines samples;
  bool inside = false;
  bool code = false;
  for (const std::string &line : lines_of(read_whole(JT_SOURCE_DIR "/include/" + header))) {
    if (line.rfind("/// ```", 0) == 0) {
      inside = !inside;
      code = inside && line.rfind("/// ```c", 0) == 0;
    } else if (code) {
      std::string sample = without_indent(line.substr(std::min<std::size_t>(4, line.size())));
      if (sample.size() > 4 && sample.substr(sample.size() - 4) == " ...")
        sample.replace(sample.size() - 4, 4, " {");
      samples.push_back(sample);
    }
  }
  return samples;
}

// What stands between the marks of a source.
Lines marked_lines_of(const std::string &source) {
  Lines lines;
  bool inside = false;
  for (const std::string &line : lines_of(read_whole(JT_SOURCE_DIR "/tests/build/" + source))) {
    if (without_indent(line).rfind("// [", 0) == 0) {
      inside = !inside;
    } else if (inside) {
      lines.push_back(without_indent(line));
    }
  }
  return lines;
}

constexpr char kJob[] =
    "[ kmt_svc_scan Scan ] one { integer Copies = 1; string Title = a; } two { } end [ service Own ] end";

TEST(Samples, OfTheHeaderStandInTheClientInC) {
  const Lines samples = samples_of_header("jt.h");
  EXPECT_EQ(samples.size(), 21U);
  EXPECT_EQ(samples, marked_lines_of("samples_client.c"));
}

TEST(Samples, OfTheHeaderInCppStandHere) {
  const Lines samples = samples_of_header("jt.hpp");
  EXPECT_EQ(samples.size(), 12U);
  EXPECT_EQ(samples, marked_lines_of("samples_test.cpp"));
}

TEST(Samples, TheOpeningOneWritesATemplate) {
  ::testing::internal::CaptureStdout();
  EXPECT_STREQ(jt_test_opening_sample("[ service Own ] end"), "written");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "[service Own]\nend\n\n");
}

TEST(Samples, TheOpeningOneSaysWhatIsWrong) {
  ::testing::internal::CaptureStdout();
  EXPECT_STREQ(jt_test_opening_sample("[ service"), "refused");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "SYNTAX ERROR: Illegal end of block at ...\n");
}

TEST(Samples, TheOpeningOneOutlivesARefusalWithoutAMessage) {
  ::testing::internal::CaptureStdout();
  EXPECT_STREQ(jt_test_opening_sample("< SIL 4.2.00 ASCII job > [ service Own ] end < /SIL"), "refused");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "the text is cut off\n");
}

TEST(Samples, WalksMeetEverything) {
  jt_parser_space *const space = jt_open_parsing_utility("samples");
  EXPECT_EQ(jt_test_walk_samples(space, jt_decode_template(space, kJob), "Scan"), 14222);
  jt_close_parsing_utility(space);
}

TEST(Samples, TheOneOfAListenerPrintsWhereEachFindingIs) {
  jt_parser_space *const space = jt_open_parsing_utility("samples");
  char name[] = "job.sil";
  const std::string text = "[ kmt_svc_scan S ]\n{ integer a 1; integer b = 2;\n integer b = 3; }\nend";
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(jt_test_finding_sample(space, text.data(), text.size(), name), 0);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(),
            "job.sil:2:12: syntax-expected\njob.sil:3:10: name-duplicate\n");
  jt_close_parsing_utility(space);
}

void complain(std::string_view words) { std::printf("%s\n", std::string(words).c_str()); }

void run_opening_sample(const char *text) {
  // [opening]
  jt::Session session("my program");
  jt::Result<jt::Template> job = session.decode(text);
  if (!job) return complain(job.error().messages().newest_or("the text is cut off"));
  for (const jt::Service &service : job->services()) std::puts(service.c_str());
  if (auto set = job->service("Scan").set("Sides", "TWO_SIDED"); !set) {
    // [opening]
    complain(set.error().messages().newest_or("refused"));
  }
  // [closing]
  jt::Result<jt::Text> result = job->encode();
  // [closing]
  std::fputs(result->c_str(), stdout);
}

TEST(Samples, TheOpeningOneInCppWalksChangesAndWrites) {
  ::testing::internal::CaptureStdout();
  run_opening_sample("[ kmt_svc_scan Scan ] { enum_sided Sides = ONE_SIDED; } end");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(),
            "Scan\n[kmt_svc_scan Scan]\n {\n      enum_sided Sides = TWO_SIDED;\n }\nend\n\n");
}

TEST(Samples, TheOpeningOneInCppSaysWhatIsWrong) {
  ::testing::internal::CaptureStdout();
  run_opening_sample("< SIL 4.2.00 ASCII job > [ service Own ] end < /SIL");
  run_opening_sample("[ service Own ] end");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(),
            "the text is cut off\nOwn\nCALL ERROR: does not exist:Scan ...\n[service Own]\nend\n\n");
}

TEST(Samples, TheOneOfAChainAddsOne) {
  jt::Session session("samples");
  jt::Template job = std::move(session.decode(kJob)).value();
  const jt::Service scanner = job.service("Scan");
  // [chain]
  const auto add_one = [&](std::int64_t copies) { return scanner.set("Copies", copies + 1); };
  if (auto set = scanner.get<std::int32_t>("Copies").and_then(add_one); !set) {
    // [chain]
    FAIL() << "not set";
  }
  EXPECT_EQ(scanner.get<std::int32_t>("Copies").value(), 2);
}

TEST(Samples, TheOneOfFindingsPrintsEach) {
  jt::Session session("samples");
  const std::string text = "[ kmt_svc_scan S ]\n{ integer a = many; integer b 2; } end";
  ::testing::internal::CaptureStdout();
  // [findings]
  jt::Findings findings;
  jt::Result<jt::Template> job = session.decode(text, {}, findings);
  for (const jt::Finding &at : findings)
    std::printf("%zu:%zu: %s\n", at.place().line, at.place().column, at.name().data());
  // [findings]
  EXPECT_FALSE(job);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "2:15: value-malformed\n2:30: syntax-expected\n");
}

}  // namespace
}  // namespace jt_test
