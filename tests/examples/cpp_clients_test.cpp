// The clients in examples/cpp: there is one for each client in C, and given the same words the two do the
// same: every byte on both outputs, and the exit status.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "support/program.h"

namespace jt_test {
namespace {

namespace fs = std::filesystem;

const std::string kExamples = JT_SOURCE_DIR "/examples/";

std::set<std::string> stems_of(const std::string &directory, const std::string &ending) {
  std::set<std::string> stems;
  for (const fs::directory_entry &entry : fs::directory_iterator(directory)) {
    if (entry.path().extension() == ending) stems.insert(entry.path().stem().string());
  }
  return stems;
}

std::vector<std::string> templates() {
  std::vector<std::string> files;
  for (const char *folder : {"", "rejected/"}) {
    for (const std::string &stem : stems_of(kExamples + folder, ".sil"))
      files.push_back(kExamples + folder + stem + ".sil");
  }
  return files;
}

void expect_same(const std::string &client, const std::vector<std::string> &arguments) {
  std::vector<std::string> words = {JT_EXAMPLES_BIN_DIR "/" + client};
  words.insert(words.end(), arguments.begin(), arguments.end());
  const ProgramRun in_c = run_built_program(words);
  words[0] = JT_EXAMPLES_BIN_DIR "/cpp/" + client;
  const ProgramRun in_cpp = run_built_program(words);
  const std::string about = client + (arguments.empty() ? "" : " " + arguments[0]);
  EXPECT_NE(in_c.exit_status, -1) << about;
  EXPECT_EQ(in_cpp.exit_status, in_c.exit_status) << about;
  EXPECT_EQ(in_cpp.out, in_c.out) << about;
  EXPECT_EQ(in_cpp.err, in_c.err) << about;
}

TEST(CppClients, AreThereForEachClientInC) {
  EXPECT_EQ(stems_of(kExamples + "cpp", ".cpp"), stems_of(kExamples, ".c"));
}

// Lines may be as long in both. What the clients in C++ share counts as one more.
TEST(CppClients, TakeLittleMoreThanAThirdOfTheLines) {
  std::size_t lines_in_c = 0;
  std::size_t lines_in_cpp = lines_of(read_whole(kExamples + "cpp/program.h")).size();
  for (const std::string &stem : stems_of(kExamples, ".c")) {
    lines_in_c += lines_of(read_whole(kExamples + stem + ".c")).size();
    lines_in_cpp += lines_of(read_whole(kExamples + "cpp/" + stem + ".cpp")).size();
  }
  EXPECT_LT(lines_in_cpp * 100, lines_in_c * 37);
}

TEST(CppClients, WithoutArgumentsDoTheSame) {
  for (const std::string &client : stems_of(kExamples, ".c")) expect_same(client, {});
}

TEST(CppClients, WithoutAFileDoTheSame) {
  for (const char *client : {"check", "everything", "lint", "outline", "roundtrip"}) {
    expect_same(client, {kExamples + "missing.sil"});
    expect_same(client, {JT_SOURCE_DIR});
  }
  for (const char *client : {"change_value", "finish_job"}) {
    expect_same(client, {kExamples + "missing.sil", "Scanner", "Sides", "ONE_SIDED"});
    expect_same(client, {JT_SOURCE_DIR, "Scanner", "Sides", "ONE_SIDED"});
  }
}

TEST(CppClients, DoTheSameWithEveryTemplate) {
  const std::vector<std::string> files = templates();
  EXPECT_GT(files.size(), 50U);
  for (const std::string &file : files) {
    for (const char *client : {"check", "everything", "lint", "outline", "roundtrip"})
      expect_same(client, {file});
  }
}

TEST(CppClients, ChangeTheSameValues) {
  const std::string print = kExamples + "print.sil";
  expect_same("change_value", {print, "printer", "COPIES", "5"});
  expect_same("change_value", {print, "Printer", "Copies", "many"});
  expect_same("change_value", {print, "Printer", "Copies", ""});
  expect_same("change_value", {print, "Printer", "Colour", "5"});
  expect_same("change_value", {print, "Fax", "Copies", "5"});
  expect_same("change_value", {kExamples + "metadata.sil", "Metadata", "MinimumLength", "6"});
  expect_same("change_value", {kExamples + "doubtful_values.sil", "Nobody", "Sides", "5"});
  expect_same("change_value", {kExamples + "doubtful_values.sil", "Scanner", "Colour", "5"});
  expect_same("change_value", {kExamples + "rejected/service_twice.sil", "SCANNER", "Sides", "5"});
  expect_same("change_value", {kExamples + "rejected/section_cut_off.sil", "Scanner", "Sides", "5"});
}

TEST(CppClients, FinishTheSameJobs) {
  const std::string fax = kExamples + "fax.sil";
  expect_same("finish_job", {fax, "Fax", "Retries", "5"});
  expect_same("finish_job", {fax, "Fax", "Retries", "often"});
  expect_same("finish_job", {fax, "Fax", "Colour", "5"});
  const std::string mail = kExamples + "scan_to_mail.sil";
  expect_same("finish_job", {mail, "Scanner", "Original", "PHOTOGRAPH"});
  expect_same("finish_job", {mail, "Scanner", "Sides", "ONE_SIDED"});
  expect_same("finish_job", {kExamples + "rejected/service_twice.sil", "SCANNER", "Sides", "5"});
  expect_same("finish_job", {kExamples + "rejected/end_marker_cut_off.sil", "Scanner", "Sides", "5"});
  expect_same("finish_job", {kExamples + "doubtful_values.sil", "Scanner", "Colour", "5"});
  const ScratchDirectory scratch;
  const std::string empty =
      scratch.write("empty.sil", "[ kmt_svc_scan Scan ] { * integer Copies; * string Name = x; } end");
  expect_same("finish_job", {empty, "Scan", "Copies", "5"});
}

TEST(CppClients, BuildTheSameJobs) {
  expect_same("fax_and_store", {"fax-17", "+49 89 555"});
  expect_same("fax_and_store", {"fax 17", "5"});
  expect_same("fax_and_store", {"fax-17", std::string(1025, '5')});
}

TEST(CppClients, ConvertTheSameFiles) {
  std::vector<std::string> words = {"Sides", "ONE_SIDED", kExamples + "missing.sil"};
  const std::vector<std::string> files = templates();
  words.insert(words.end(), files.begin(), files.end());
  expect_same("set_everywhere", words);
  words[0] = "Copies";
  words[1] = "many";
  expect_same("set_everywhere", words);
}

TEST(CppClients, RefuseTheSameTexts) {
  expect_same("client", {"[ kmt_svc_coffee Kitchen ] end"});
  expect_same("client", {"< SIL 4.2.00 ASCII job > < /SIL"});
}

TEST(CppClients, CheckTheSameFiles) {
  const std::string doubtful = kExamples + "doubtful_values.sil";
  const std::string cut_off = kExamples + "rejected/end_marker_cut_off.sil";
  expect_same("check", {doubtful, kExamples + "copy.sil", doubtful, cut_off});
  expect_same("check", {kExamples + "copy.sil", kExamples + "missing.sil"});
  const ScratchDirectory scratch;
  const std::string warned = scratch.write("warned.sil", "< SIL 4.1 ASCII job > <");
  for (const char *client : {"check", "roundtrip"}) expect_same(client, {warned});
}

TEST(CppClients, FindTheSame) {
  const std::string refused = kExamples + "rejected/service_twice.sil";
  expect_same("lint", {kExamples + "copy.sil", kExamples + "missing.sil", refused});
  const ScratchDirectory scratch;
  for (const std::string_view text :
       {std::string_view("[ service S ]\0 end", 18), std::string_view("\r\n["), std::string_view("\n"),
        std::string_view("\t[ service \"a\nb\" ] end x")}) {
    expect_same("lint", {scratch.write("job.sil", std::string(text))});
  }
}

TEST(CppClients, ListTheSameTypes) {
  for (const char *service :
       {"kmt_document", "kmt_svc_docman", "KMT_SVC_Scan", "kmt_svc_validation", "coffee"}) {
    expect_same("list_types", {service});
  }
}

}  // namespace
}  // namespace jt_test
