// What pages show of `sil` at a shell is what a shell shows. In their blocks of `console`, a line with "$ " in front is
// typed, one with "> " goes on with it, and the lines behind are all that is seen then. A page is one sitting, in a
// folder with the examples; `cat` of a file that is not there yet is the making of it.
#include "sil_command/shell.h"

namespace jt_test {
namespace {

namespace fs = std::filesystem;

struct Typed {
  std::string command;
  std::string seen;
};

std::vector<Typed> typed_on(const std::string &page) {
  std::vector<Typed> all;
  bool is_console = false;
  for (const std::string &line : lines_of(page)) {
    if (line.starts_with("```")) {
      is_console = line == "```console";
    } else if (is_console && line.starts_with("$ ")) {
      all.push_back({line.substr(2), ""});
    } else if (is_console && line.starts_with("> ")) {
      all.back().command += "\n" + line.substr(2);
    } else if (is_console) {
      all.back().seen += line + "\n";
    }
  }
  return all;
}

// The name of the file that is to be made; nothing for every other command.
std::string made_by(const std::string &command, const ScratchDirectory &folder) {
  const std::string name = command.starts_with("cat ") ? command.substr(4) : "";
  const bool is_name = !name.empty() && name.find_first_of(" |<>") == std::string::npos;
  return is_name && !fs::exists(folder.file(name)) ? name : "";
}

class Page : public testing::TestWithParam<const char *> {};

TEST_P(Page, ShowsWhatIsSeen) {
  const ScratchDirectory folder;
  for (const fs::directory_entry &entry : fs::directory_iterator(JT_SOURCE_DIR "/examples"))
    if (entry.path().extension() == ".sil") fs::copy(entry.path(), folder.file("."));
  const std::vector<Typed> all = typed_on(read_whole(JT_SOURCE_DIR "/" + std::string(GetParam())));
  EXPECT_GE(all.size(), 5U);
  int status = 0;
  for (const Typed &typed : all) {
    const std::string name = made_by(typed.command, folder);
    if (!name.empty()) folder.write(name, typed.seen);
    const ProgramRun run =
        run_in_shell(folder.file("."), "exec 2>&1; (exit " + std::to_string(status) + ")\n" + typed.command);
    EXPECT_EQ(run.out, typed.seen) << "$ " << typed.command;
    status = run.exit_status;
  }
}

INSTANTIATE_TEST_SUITE_P(Manual, Page, testing::Values("README.md", "docs/sil.md", "docs/sil_in_scripts.md"),
                         [](const testing::TestParamInfo<const char *> &about) {
                           return fs::path(about.param).stem().string();
                         });

TEST(Manual, HasAPictureOfTheFileThatItShows) {
  const std::string shown = "$ cat broken.sil\n" + read_whole(JT_SOURCE_DIR "/docs/pictures/broken.sil") +
                            "$ sil check broken.sil\n";
  EXPECT_NE(read_whole(JT_SOURCE_DIR "/docs/sil.md").find(shown), std::string::npos);
}

}  // namespace
}  // namespace jt_test
