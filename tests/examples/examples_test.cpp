// Every file of the examples folder, read and written: its messages, its encoded form beside the one in
// expected/, and that reading the encoded form and writing it again changes nothing. Every file of
// examples/rejected is refused with the messages of its INDEX.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "support/program.h"
#include "support/session.h"

namespace jt_test {
namespace {

const std::string kExamples = JT_SOURCE_DIR "/examples/";
const std::string kRejected = JT_SOURCE_DIR "/examples/rejected/";
const std::string kExpected = JT_SOURCE_DIR "/tests/examples/expected/";

std::vector<std::string> templates_in(const std::string &folder) {
  std::set<std::string> names;
  for (const auto &entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".sil") names.insert(entry.path().stem().string());
  }
  return {names.begin(), names.end()};
}

std::string case_name(const ::testing::TestParamInfo<std::string> &info) { return info.param; }

// ---- What is accepted ----

// Messages of reading the file, of writing it, and of reading what was written.
struct Reports {
  Messages reading;
  Messages writing;
  Messages reading_again;
};

// Most examples are read and written without a word.
const std::map<std::string, Reports> kTalkative = {
    // Borders are written with both groups, and a second group is tried as a name first.
    {"copy", {{}, {}, {"WARNING: trying to evaluate as an 'enumerated' type:20/10/30/40/MM ..."}}},
    {"every_type", {{}, {}, {"WARNING: trying to evaluate as an 'enumerated' type:10/20/30/40/MM ..."}}},
    {"doubtful_values",
     {{"WARNING: Value outside range (25 MM) ...",
       "SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\nmany ..."},
      {},
      {"WARNING: Value outside range (25 MM) ..."}}},
    {"future_device",
     {{"WARNING: version number mismatch\n ...", "SYNTAX ERROR: Non ASCII encoding\n ...",
       "WARNING: trying to evaluate as an 'enumerated' type:INFRARED ...",
       "WARNING: unknown service:kmt_svc_quillform ...", "WARNING: unknown service:kmt_svc_quillform ..."},
      {"CALL ERROR: Unknown enumerated value ..."},
      {"WARNING: version number mismatch\n ...",
       "WARNING: trying to evaluate as an 'enumerated' type:INFRARED ...",
       "WARNING: unknown service:kmt_svc_quillform ...", "WARNING: unknown service:kmt_svc_quillform ..."}}},
};

int status_of_newest(const Messages &messages) {
  if (messages.empty()) return JT_OK;
  if (messages.back().rfind("WARNING:", 0) == 0) return JT_WARNING;
  return messages.back().rfind("CALL ERROR:", 0) == 0 ? JT_CALL_ERROR : JT_SYNTAX_ERROR;
}

class ExampleTest : public SessionTest, public ::testing::WithParamInterface<std::string> {
 protected:
  // The handle of a text, after its status and messages in a session of its own have been looked at.
  int32_t decode(const std::string &text, const Messages &expected) {
    reopen();
    const int32_t handle = jt_decode_template(space, text.c_str());
    EXPECT_NE(handle, 0);
    EXPECT_EQ(status(), status_of_newest(expected));
    EXPECT_EQ(messages(), expected);
    return handle;
  }

  const Reports &reports() const {
    static const Reports silent;
    const auto found = kTalkative.find(GetParam());
    return found != kTalkative.end() ? found->second : silent;
  }

  std::string text() const { return read_whole(kExamples + GetParam() + ".sil"); }
  std::string expected() const { return read_whole(kExpected + GetParam() + ".sil"); }
};

TEST_P(ExampleTest, IsReadWithTheseMessages) { decode(text(), reports().reading); }

TEST_P(ExampleTest, IsWrittenAsExpected) {
  const int32_t handle = decode(text(), reports().reading);
  EXPECT_EQ(encoded(handle), expected());
  EXPECT_EQ(status(), status_of_newest(reports().writing));
}

TEST_P(ExampleTest, IsWrittenWithTheseMessages) {
  const int32_t handle = decode(text(), reports().reading);
  encoded(handle);
  Messages all = reports().reading;
  all.insert(all.end(), reports().writing.begin(), reports().writing.end());
  if (all.size() > JT_HISTORY_LENGTH) all.erase(all.begin(), all.end() - JT_HISTORY_LENGTH);
  EXPECT_EQ(messages(), all);
}

TEST_P(ExampleTest, IsWrittenTheSameAgain) {
  const int32_t handle = decode(text(), reports().reading);
  const std::string once = encoded(handle);
  EXPECT_EQ(encoded(handle), once);
}

TEST_P(ExampleTest, StaysAsItWasWritten) {
  const int32_t handle = decode(expected(), reports().reading_again);
  EXPECT_EQ(encoded(handle), expected());
}

TEST_P(ExampleTest, LeavesNoNodeWhenDestroyed) {
  const int32_t handle = decode(text(), reports().reading);
  EXPECT_EQ(jt_destroy_template(space, handle), 1);
  constexpr int kMoreThanAnyExample = 512;
  EXPECT_EQ(live_nodes(space, kMoreThanAnyExample), 0);
}

INSTANTIATE_TEST_SUITE_P(Files, ExampleTest, ::testing::ValuesIn(templates_in(kExamples)), case_name);

TEST(Examples, AllHaveAnExpectedText) { EXPECT_EQ(templates_in(kExamples), templates_in(kExpected)); }

TEST(Examples, AreEnoughToChooseFrom) { EXPECT_GE(templates_in(kExamples).size(), 16U); }

TEST(Examples, ThatTalkExist) {
  for (const auto &[name, reports] : kTalkative) {
    EXPECT_TRUE(std::filesystem::exists(kExamples + name + ".sil")) << name;
  }
}

// ---- What is rejected ----

// A field of the INDEX without its escapes.
std::string unescaped(const std::string &field) {
  std::string text;
  for (std::size_t i = 0; i < field.size(); ++i) {
    const bool escape = field[i] == '\\' && i + 1 < field.size();
    if (escape) ++i;
    text += escape && field[i] == 'n' ? '\n' : field[i];
  }
  return text;
}

std::vector<std::string> fields_of(const std::string &line) {
  std::vector<std::string> fields;
  for (std::size_t begin = 0; begin <= line.size();) {
    const std::size_t end = std::min(line.find('\t', begin), line.size());
    fields.push_back(unescaped(line.substr(begin, end - begin)));
    begin = end + 1;
  }
  return fields;
}

// Messages of each file, oldest first. The INDEX names the newest first and then the older ones, or none.
std::map<std::string, Messages> read_index() {
  std::map<std::string, Messages> index;
  for (const std::string &line : lines_of(read_whole(kRejected + "INDEX"))) {
    if (line.front() == '#') continue;
    const std::vector<std::string> fields = fields_of(line);
    Messages messages(fields.begin() + 1, fields.end());
    if (!messages.empty()) std::rotate(messages.begin(), messages.begin() + 1, messages.end());
    index[std::filesystem::path(fields[0]).stem().string()] = messages;
  }
  return index;
}

class RejectedTest : public SessionTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(RejectedTest, LeavesItsMessagesAndNoNode) {
  const std::string text = read_whole(kRejected + GetParam() + ".sil");
  EXPECT_EQ(jt_decode_template(space, text.c_str()), 0);
  EXPECT_EQ(status(), read_index()[GetParam()].empty() ? JT_OK : JT_SYNTAX_ERROR);
  EXPECT_EQ(messages(), read_index()[GetParam()]);
  EXPECT_EQ(live_nodes(space), 0);
}

INSTANTIATE_TEST_SUITE_P(Files, RejectedTest, ::testing::ValuesIn(templates_in(kRejected)), case_name);

TEST(Rejected, SomeAreRefusedWithoutAMessage) {
  const std::map<std::string, Messages> index = read_index();
  EXPECT_EQ(index.at("end_marker_cut_off"), Messages{});
  EXPECT_EQ(index.at("section_cut_off"), Messages{});
}

TEST(Rejected, AllStandInTheIndex) {
  std::vector<std::string> indexed;
  for (const auto &[name, messages] : read_index()) indexed.push_back(name);
  EXPECT_EQ(indexed, templates_in(kRejected));
  EXPECT_GE(indexed.size(), 20U);
}

}  // namespace
}  // namespace jt_test
