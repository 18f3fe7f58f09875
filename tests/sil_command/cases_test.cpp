// `sil` as a person at a shell sees it. Each file of cases/ is one case: after lines that say what it is about come
// parts, each under a line "-- NAME":
//
//     -- cmd             what the shell runs, in a fresh folder
//     -- out             what it prints, and
//     -- err             what it says on standard error; nothing where they are left out
//     -- status          the exit status; 0 where it is left out
//     -- after FILE      what is in a file afterwards
//     -- FILE            a file that is there before
#include <map>

#include "sil_command/shell.h"

namespace jt_test {
namespace {

namespace fs = std::filesystem;

const fs::path kCases = fs::path(JT_SOURCE_DIR) / "tests" / "sil_command" / "cases";

using Parts = std::map<std::string, std::string>;

Parts read_case(const fs::path &path) {
  Parts parts;
  std::string *part = nullptr;
  for (const std::string &line : lines_of(read_whole(path.string()))) {
    if (line.starts_with("-- ")) {
      part = &parts[line.substr(3)];
    } else if (part != nullptr) {
      *part += line + "\n";
    }
  }
  return parts;
}

bool is_about_the_run(const std::string &name) {
  return name == "cmd" || name == "out" || name == "err" || name == "status" || name.starts_with("after ");
}

std::vector<std::string> all_cases() {
  std::vector<std::string> names;
  for (const fs::directory_entry &entry : fs::directory_iterator(kCases))
    if (entry.path().extension() == ".case") names.push_back(entry.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

class SilCommand : public testing::TestWithParam<std::string> {};

TEST_P(SilCommand, DoesWhatTheCaseSays) {
  const ScratchDirectory scratch;
  Parts parts = read_case(kCases / (GetParam() + ".case"));
  ASSERT_TRUE(parts.contains("cmd"));
  for (const auto &[name, text] : parts) {
    if (is_about_the_run(name)) continue;
    fs::create_directories(fs::path(scratch.file(name)).parent_path());
    scratch.write(name, text);
  }
  const ProgramRun run = run_in_shell(scratch.file("."), parts["cmd"]);
  EXPECT_EQ(run.out, parts["out"]);
  EXPECT_EQ(run.err, parts["err"]);
  EXPECT_EQ(std::to_string(run.exit_status) + "\n", parts.contains("status") ? parts["status"] : "0\n");
  for (const auto &[name, text] : parts) {
    if (!name.starts_with("after ")) continue;
    EXPECT_EQ(read_whole(scratch.file(name.substr(6))), text) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, SilCommand, testing::ValuesIn(all_cases()),
                         [](const testing::TestParamInfo<std::string> &about) { return about.param; });

}  // namespace
}  // namespace jt_test
