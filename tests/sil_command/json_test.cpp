// JSON and back: every example as it was, every value as its type has it, everything that is wrong by its pointer.
#include <filesystem>

#include "core/json_in.h"
#include "core/json_out.h"
#include "core/load.h"
#include "support/program.h"

namespace sil {
namespace {

namespace fs = std::filesystem;

std::string json_of(const std::string &text) {
  const Loaded loaded = load(text);
  return loaded.model ? to_json(*loaded.model) : "";
}

class EveryExample : public testing::TestWithParam<std::string> {};

TEST_P(EveryExample, ComesBackFromJsonAsItWas) {
  const std::string json = json_of(jt_test::read_whole(GetParam()));
  ASSERT_NE(json, "");
  const FromJson written = from_json(json);
  ASSERT_TRUE(written.text.has_value())
      << written.findings.at(0).place << ": " << written.findings.at(0).message;
  EXPECT_EQ(json_of(*written.text), json);
}

std::vector<std::string> examples() {
  std::vector<std::string> paths;
  for (const fs::directory_entry &entry : fs::directory_iterator(JT_SOURCE_DIR "/examples"))
    if (entry.path().extension() == ".sil") paths.push_back(entry.path().string());
  std::sort(paths.begin(), paths.end());
  return paths;
}

INSTANTIATE_TEST_SUITE_P(Json, EveryExample, testing::ValuesIn(examples()),
                         [](const auto &about) { return fs::path(about.param).stem().string(); });

// A template of one attribute, and its values in JSON, on one line.
std::string values_of(const std::string &type, const std::string &values) {
  std::string json = json_of("[kmt_svc_scan S] {" + type + " A = " + values + ";} end");
  json.erase(0, json.find("\"values\""));
  std::erase_if(json, [](char c) { return c == '\n' || c == ' '; });
  return json.substr(9, json.find(']') - 8);
}

TEST(Json, HasNumbersAndTruthOfItsOwn) {
  EXPECT_EQ(values_of("integer", "007, -1, 99999999999"), "[7,-1,2147483647]");
  EXPECT_EQ(values_of("boolean", "true, False"), "[true,false]");
  EXPECT_EQ(values_of("struct_timeofday", "09:05"), "[\"9:5\"]");
}

TEST(Json, HasRealsInTheShortestFormOfTheSameSingle) {
  EXPECT_EQ(values_of("real", "0.1, 2, .00000001, 16777217"), "[0.1,2,1e-08,16777216]");
  EXPECT_EQ(values_of("real", std::string(40, '9')), "[{\"text\":\"inf\"}]");
}

TEST(Json, HasBytesThatAreNoUtf8InBase64) {
  EXPECT_EQ(values_of("string", "\"\xFF\xFE\""), "[{\"base64\":\"//4=\"}]");
  EXPECT_EQ(values_of("string", "\"\xC3\xA4\""), "[\"\xC3\xA4\"]");
}

// The same template from JSON, or the findings, one a line.
std::string written(const std::string &json) {
  const FromJson result = from_json(json);
  if (result.text) return *result.text;
  std::string findings;
  for (const JsonFinding &finding : result.findings)
    findings += finding.place + ": " + finding.message + "\n";
  return findings;
}

std::string with_attribute(const std::string &attribute) {
  return R"({"sil":1,"services":[{"type":"kmt_svc_scan","name":"S","invocations":[{"attributes":[)" +
         attribute + "]}]}]}";
}

std::string with_values(const std::string &type, const std::string &values) {
  return with_attribute(R"({"type":")" + type + R"(","name":"A","values":[)" + values + "]}");
}

std::string written_values(const std::string &type, const std::string &values) {
  const std::string text = written(with_values(type, values));
  const std::size_t begin = text.find(" A");
  return begin == std::string::npos ? text : text.substr(begin + 2, text.find('\n', begin) - begin - 2);
}

constexpr char kAt[] = "/services/0/invocations/0/attributes/0/values/0: ";

TEST(FromJson, TakesAnySpellingOfANumber) {
  EXPECT_EQ(written_values("integer", "2, 2.0, 2e0, 20e-1"), " = 2, 2, 2, 2;");
  EXPECT_EQ(written_values("real", "2, 2.5, 1e-3, 0.1"), " = 2, 2.5, 0.001, 0.1;");
  EXPECT_EQ(written_values("real", R"({"text":"inf"})"), " = 1" + std::string(39, '0') + ";");
}

TEST(FromJson, RefusesNumbersThatTheTypeCannotHold) {
  EXPECT_EQ(written_values("integer", "1.5"),
            kAt + std::string("a whole number from -2147483648 to 2147483647 is needed here\n"));
  EXPECT_EQ(written_values("integer", "2147483648"),
            kAt + std::string("a whole number from -2147483648 to 2147483647 is needed here\n"));
  EXPECT_EQ(written_values("integer", "\"2\""),
            kAt + std::string("a whole number from -2147483648 to 2147483647 is needed here\n"));
  EXPECT_EQ(
      written_values("real", "-1"),
      kAt + std::string(
                "a number that is not negative and fits a single is needed here, or {\"text\":\"inf\"}\n"));
  EXPECT_EQ(
      written_values("real", "1e39"),
      kAt + std::string(
                "a number that is not negative and fits a single is needed here, or {\"text\":\"inf\"}\n"));
  EXPECT_EQ(written_values("boolean", "1"), kAt + std::string("true or false is needed here\n"));
}

TEST(FromJson, QuotesWhatABareWordWouldChange) {
  EXPECT_EQ(written_values("ref_collection", R"("In box", "end", "a\\b", "x\ny", "plain")"),
            R"( = "In box", "end", "a\\b", "x\ny", plain;)");
  EXPECT_EQ(written_values("string", R"("plain", "", "say \"hi\"")"), R"( = "plain", "", "say \"hi\"";)");
  EXPECT_EQ(written_values("string", R"({"base64":"//4="})"), " = \"\xFF\xFE\";");
}

TEST(FromJson, RefusesATextWithANul) {
  EXPECT_EQ(written_values("string", R"("a\u0000b")"), kAt + std::string("no text can hold a NUL\n"));
}

TEST(FromJson, RefusesAValueThatItsTypeDoesNotRead) {
  EXPECT_EQ(
      written_values("struct_timeofday", "\"25:00\""),
      kAt +
          std::string(
              "this is no value of the type struct_timeofday: hour:minute; hour 0 to 23; minute 0 to 59\n"));
  EXPECT_EQ(written_values("timestamp", "\"2009-01-01/00/00/00\""),
            kAt + std::string(
                      "this is no value of the type timestamp: YYYY/MM/DD/HH/MM/SS, nineteen characters\n"));
}

TEST(FromJson, RefusesWhatIsNoJson) {
  EXPECT_EQ(written("{\"sil\":1,\n\"services\":}"), "2:12: this is no JSON\n");
  EXPECT_EQ(written(""), "1:1: this is no JSON\n");
  EXPECT_EQ(written(std::string(100, '[')), ": nested deeper than a template can be\n");
}

TEST(FromJson, RefusesUnknownMembersAndKeysThatComeTwice) {
  EXPECT_EQ(written(R"({"sil":1,"servces":[],"services":[],"header":{"form":"plain","version":"4.2.00",
                       "identifier":"x","attributes":[]}})"),
            "/servces: there is no such member; did you mean \"services\"?\n");
  EXPECT_EQ(written(R"({"sil":1,"sil":1,"services":[]})"),
            "/sil: this key comes twice\n: a header or a service is needed\n");
  EXPECT_EQ(written("[]"), ": an object is needed here\n: a header or a service is needed\n");
}

TEST(FromJson, RefusesUnknownTypesAndNamesThatAreNoWords) {
  EXPECT_EQ(
      written(with_values("enum_siced", "")),
      "/services/0/invocations/0/attributes/0/type: there is no such type in kmt_svc_scan; did you mean "
      "\"enum_sided\"?\n");
  EXPECT_EQ(written(with_attribute(R"({"type":"string","name":"a b","values":[]})")),
            "/services/0/invocations/0/attributes/0/name: a name is one word, without blanks, quotes and "
            "marks of the "
            "language, and not \"end\"\n");
}

TEST(FromJson, RefusesANameThatComesTwice) {
  EXPECT_EQ(written(with_attribute(R"({"type":"string","name":"a","values":[]},
                                      {"type":"string","name":"A","values":[]})")),
            "/services/0/invocations/0/attributes/1/name: this name comes twice\n");
}

TEST(FromJson, RefusesACommentThatWouldNotBeOne) {
  EXPECT_EQ(
      written(with_attribute(R"({"type":"string","name":"a","comment":"no mark\n","values":[]})")),
      "/services/0/invocations/0/attributes/0/comment: lines that begin with # are needed here, each with a "
      "line feed and of at most 1023 bytes\n");
}

TEST(FromJson, RefusesWhatTheFormOfAHeaderDoesNotAllow) {
  const std::string begin = R"({"sil":1,"header":{"form":")";
  const std::string rest = R"(","version":"4.2.00","identifier":"x","attributes":[]},"services":[])";
  EXPECT_EQ(written(begin + "!" + rest + "}"), ": a header of the form \"!\" needs a section\n");
  EXPECT_EQ(written(begin + "?" + rest + "}"), ": a header of the form \"?\" needs a section or services\n");
  EXPECT_EQ(written(begin + "plain" + rest + R"(,"section":{"services":[]}})"),
            "/section: only a header of the form \"?\" or \"!\" has a section\n");
}

TEST(FromJson, WritesTheCommentOfTheTemplateBehindTheFirstService) {
  EXPECT_EQ(written(R"({"sil":1,"comment":"# all\n","services":[
                       {"type":"kmt_svc_scan","name":"A","invocations":[]},
                       {"type":"kmt_svc_fax","name":"B","invocations":[]}]})"),
            "[kmt_svc_scan A]\nend\n\n# all\n\n[kmt_svc_fax B]\nend\n");
}

TEST(FromJson, WritesTheCommentOfATemplateWithoutServicesBehindItsEnd) {
  EXPECT_EQ(
      written(R"({"sil":1,"comment":"# all\n","header":{"form":"plain","version":"4.2.00","identifier":"x",
                       "attributes":[]},"services":[]})"),
      "< SIL 4.2.00 ASCII x >\n\n< /SIL >\n\n# all\n");
}

}  // namespace
}  // namespace sil
