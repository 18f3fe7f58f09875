// Decoding and encoding whole templates: every file of the examples, those that are refused too, and the
// reports of each kind of allocation on the way.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "faults/scenario.h"
#include "support/program.h"

namespace jt_test {
namespace {

std::vector<std::string> sil_files(const char *folder) {
  std::vector<std::string> files;
  for (const auto &entry : std::filesystem::directory_iterator(std::string(JT_SOURCE_DIR) + folder)) {
    if (entry.path().extension() == ".sil") files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string file_name(const ::testing::TestParamInfo<std::string> &info) {
  return std::filesystem::path(info.param).stem().string();
}

Scenario decoding(const std::string &text) {
  return {.name = "decoding",
          .call = [text](World &w) -> Result { return Handle{jt_decode_template(w.space, text.c_str())}; },
          .failures = {},
          .job = "",
          .dispensable = 0};
}

// The last allocation only makes the text fit.
Scenario encoding(const std::string &text) {
  return {.name = "encoding",
          .call = [](World &w) -> Result { return jt_encode_template(w.space, w.job); },
          .failures = {},
          .job = text,
          .dispensable = 1};
}

void add_fillers(World &world, int count) {
  while (world.live() < count) add_filler(world);
}

class Accepted : public ::testing::TestWithParam<std::string> {};
class Refused : public ::testing::TestWithParam<std::string> {};

// One list is long enough to be searched with a table, and then to want a larger one, which is made up for: the
// attributes of the first service of this file.
Scenario decoding_file(const std::string &path) {
  Scenario scenario = decoding(read_whole(path));
  if (std::filesystem::path(path).stem() == "every_type") scenario.dispensable = 1;
  return scenario;
}

TEST_P(Accepted, DecodesWhollyOrNotAtAll) { expect_whole_failures(decoding_file(GetParam())); }

// Pages begin at every node in turn.
TEST_P(Accepted, DecodesWhollyOrNotAtAllWhereverAPageBegins) {
  Scenario scenario = decoding_file(GetParam());
  for (int fillers = 1; fillers < 20; ++fillers) {
    SCOPED_TRACE(fillers);
    scenario.before = [fillers](World &w) { add_fillers(w, fillers); };
    expect_whole_failures(scenario);
  }
}

TEST_P(Accepted, DecodesWhollyOrNotAtAllWhereverTheTableEnds) {
  Scenario scenario = decoding_file(GetParam());
  for (int fillers = 512 - 20; fillers <= 512; ++fillers) {
    SCOPED_TRACE(fillers);
    scenario.before = [fillers](World &w) { add_fillers(w, fillers); };
    expect_whole_failures(scenario);
  }
}

TEST_P(Accepted, EncodesWhollyOrNotAtAll) { expect_whole_failures(encoding(read_whole(GetParam()))); }

TEST_P(Refused, LeavesNothing) { expect_whole_failures(decoding(read_whole(GetParam()))); }

INSTANTIATE_TEST_SUITE_P(Faults, Accepted, ::testing::ValuesIn(sil_files("/examples")), file_name);
INSTANTIATE_TEST_SUITE_P(Faults, Refused, ::testing::ValuesIn(sil_files("/examples/rejected")), file_name);

// ---- Each kind of allocation
// --------------------------------------------------------------------------------

Scenario decoding_of(const std::string &name, const std::string &text,
                     const std::vector<Messages> &failures) {
  Scenario scenario = decoding(text);
  scenario.name = name;
  scenario.failures = failures;
  scenario.dispensable.reset();
  return scenario;
}

Scenario encoding_of(const std::string &name, const std::string &text,
                     const std::vector<Messages> &failures) {
  Scenario scenario = encoding(text);
  scenario.name = name;
  scenario.failures = failures;
  scenario.dispensable.reset();
  return scenario;
}

const Messages kNoRoot = {kNoMemory, "MEMORY ERROR: Allocating for the node:template ..."};
const Messages kNoOutput = {"MEMORY ERROR: while allocating for encoding ..."};
const Messages kGoesOn = {};
constexpr char kNoName[] = "CALL ERROR: Unknown enumerated value ...";

const std::string kLongText(600, 'x');  // longer than the encoder's own room

std::string after_header(const std::string &text) {
  return "< SIL 4.2.00 ASCII job >\n" + text + "< /SIL >\n";
}

class Template : public ::testing::TestWithParam<Scenario> {};

TEST_P(Template, FailsWithTheMessagesOfWhatIsMissing) { expect_whole_failures(GetParam()); }

std::vector<Scenario> decoding_scenarios() {
  constexpr char kNoHeader[] = "MEMORY ERROR: Saving the header\n ...";
  return {
      decoding_of("Root", "[ service S ] end", {kNoRoot}),
      decoding_of("Comment", "# why\n[ service S ] end",
                  {kNoRoot, {kNoMemory, "MEMORY ERROR: allocating for the comment:# why\n ..."}}),
      decoding_of("LongerComment", "# why\n# not\n[ service S ] end",
                  {kNoRoot,
                   {kNoMemory, "MEMORY ERROR: allocating for the comment:# why\n ..."},
                   {kNoMemory, "MEMORY ERROR: allocating for the comment:# not\n ..."}}),
      decoding_of("Header", after_header(""), {kNoRoot}),
      decoding_of("LongIdentifier", "< SIL 4.2.00 ASCII " + kLong + " >\n< /SIL >\n",
                  {kNoRoot,
                   {kNoMemory, "MEMORY ERROR: Allocating for InteractionID ...", kNoHeader},
                   {kNoMemory, kNoHeader}}),
      decoding_of("StatusText", "[ service S ] end (KMT_STATUS_ERROR{why})",
                  {kNoRoot, {kNoMemory, "MEMORY ERROR: duplicating ..."}}),
      decoding_of("Status", "[ service S ] end (odd)",
                  {kNoRoot,
                   {"WARNING: trying to evaluate as an 'enumerated' type:odd ...", kNoMemory,
                    "MEMORY ERROR: allocating value :odd ..."}}),
      decoding_of("LongName", "[ service " + kLong + " ] end",
                  {kNoRoot, {kNoMemory, cut_message("MEMORY ERROR: Allocating for " + kLong)}}),
      decoding_of(
          "LongValue", "[ kmt_svc_scan S ] { string a = \"" + std::string(1000, 'x') + "\"; } end",
          {kNoRoot,
           {kNoMemory, cut_message("MEMORY ERROR: allocating for a value node" + std::string(1000, 'x'))}}),
  };
}

std::vector<Scenario> encoding_scenarios() {
  return {
      encoding_of("Output", "[ service S ] { } end", {kNoOutput, kGoesOn}),
      encoding_of("LongOutput", "[ service " + kLong + " ] { } end", {kNoOutput, kNoOutput, kGoesOn}),
      encoding_of("HeaderAndSection",
                  "<? SIL 4.2.00 ASCII job >\n< ? >\n< /? >\n[ service S ] { } end\n< /SIL >",
                  {kNoOutput, kGoesOn}),
      encoding_of("Value", "[ kmt_svc_scan S ] { integer a = 1; } end", {kNoOutput, kGoesOn}),
      encoding_of("EnumeratedValue", "[ kmt_svc_scan S ] { enum_units a = MM; } end", {kNoOutput, kGoesOn}),
      encoding_of("LongEnumeratedValue", "[ kmt_svc_scan S ] { enum_units a = " + kLongText + "; } end",
                  {kNoOutput, {kNoName, "MEMORY ERROR: while allocating for encoding ..."}, kGoesOn}),
      encoding_of("LongString", "[ kmt_svc_scan S ] { string a = " + kLongText + "; } end",
                  {kNoOutput, kNoOutput, kGoesOn}),
      encoding_of("StatusName", "[ service S ] { } end (KMT_STATUS_ERROR)", {kNoOutput, kGoesOn}),
  };
}

Scenario encoding_a_pending_value() {
  Scenario scenario = encoding_of("PendingValue", kJob, {});
  scenario.job = "[ kmt_svc_scan Scan ] { } end";
  scenario.before = [](World &w) { add_odd_attribute(w, kLongText.c_str()); };
  scenario.failures = {kNoOutput, {cut_message("MEMORY ERROR: while duplicating" + kLongText)}, kGoesOn};
  return scenario;
}

INSTANTIATE_TEST_SUITE_P(Decoding, Template, ::testing::ValuesIn(decoding_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Encoding, Template, ::testing::ValuesIn(encoding_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(EncodingOfUnknownTypes, Template, ::testing::Values(encoding_a_pending_value()),
                         scenario_name);

// Looking for a name among many builds a table; without it the look-up is only slower.
// Its text would be one long line, behind which the next text is folded.
TEST(FailedEncoding, LeavesTheColumnWhereItWas) {
  World world("");
  const int32_t long_line = jt_create_template(world.space);
  add_comment(world.space, opaque_to_node(world.space, long_line), kLong.c_str());
  const int32_t service = jt_decode_template(world.space, "[ service A ] end");
  std::thread([&] {  // its column is at 0
    int number = 1;
    for (;; ++number) {
      fail_allocations(number, Failing::kAllFromThereOn);
      const OwnedText text(jt_encode_template(world.space, long_line));
      if (allow_allocations() == 0 || text != nullptr) break;
      EXPECT_EQ(take_text(jt_encode_template(world.space, service)), "[service A]\nend\n\n") << number;
    }
    EXPECT_GT(number, 1);
    EXPECT_EQ(take_text(jt_encode_template(world.space, service)), "\n[service A]\nend\n\n");
  })
      .join();
}

// The table itself cannot be done without, each of its growths can.
TEST(LongTemplate, IsDecodedWhereATableOfNamesCannotGrow) {
  std::string text;
  for (int i = 0; i < 100; ++i) text += "[ kmt_svc_scan S" + std::to_string(i) + " ] { } end\n";
  Scenario scenario = decoding(text);
  scenario.dispensable = 3;
  expect_whole_failures(scenario);
}

}  // namespace
}  // namespace jt_test
