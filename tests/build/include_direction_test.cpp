// The floors of the house: a file includes its own floor, the floors below it and the public header, never a
// floor above; programs see the public header alone; and no two files include each other.
#include <array>
#include <filesystem>
#include <map>
#include <regex>
#include <set>

#include "support/program.h"

namespace jt_test {
namespace {

namespace fs = std::filesystem;

using Includes = std::map<std::string, std::set<std::string>>;

constexpr std::array<std::string_view, 5> kFloors = {"base", "types", "tree", "sil", "api"};

// Each source file below a directory, by its path from there, with the files that it includes in quotes.
Includes includes_below(const fs::path &directory) {
  static const std::regex kInclude(R"re(\s*#\s*include\s*"([^"]+)".*)re");
  static const std::set<std::string> kEndings = {".c", ".cpp", ".h", ".hpp"};
  Includes includes;
  for (const fs::directory_entry &entry : fs::recursive_directory_iterator(directory)) {
    if (!entry.is_regular_file() || kEndings.count(entry.path().extension().string()) == 0) continue;
    std::set<std::string> &included = includes[fs::relative(entry.path(), directory).generic_string()];
    for (const std::string &line : lines_of(read_whole(entry.path().string()))) {
      std::smatch match;
      if (std::regex_match(line, match, kInclude)) included.insert(match[1]);
    }
  }
  return includes;
}

// The number of a path's floor, counted from below; the number of floors for a path that lies on none.
std::size_t floor_of(const std::string &path) {
  const auto *const floor = std::find(kFloors.begin(), kFloors.end(), path.substr(0, path.find('/')));
  return static_cast<std::size_t>(floor - kFloors.begin());
}

TEST(IncludeDirection, EverySourceFileLiesOnAFloor) {
  const Includes includes = includes_below(JT_SOURCE_DIR "/src");
  EXPECT_GT(includes.size(), kFloors.size());
  for (const auto &[file, included] : includes) EXPECT_LT(floor_of(file), kFloors.size()) << file;
}

TEST(IncludeDirection, NoFileIncludesAFloorAbove) {
  for (const auto &[file, included] : includes_below(JT_SOURCE_DIR "/src")) {
    for (const std::string &other : included) {
      EXPECT_TRUE(other == "jt.h" || floor_of(other) <= floor_of(file)) << file << " includes " << other;
    }
  }
}

TEST(IncludeDirection, BaseSeesItselfAndThePublicHeaderAlone) {
  for (const auto &[file, included] : includes_below(JT_SOURCE_DIR "/src/base")) {
    for (const std::string &other : included) {
      EXPECT_TRUE(other == "jt.h" || other.starts_with("base/")) << file << " includes " << other;
    }
  }
}

// What a session holds is known from its floor on; below it a session is a pointer that is handed on.
TEST(IncludeDirection, NothingBelowTheTreeLooksIntoASession) {
  static const std::regex kLook(R"re(space(->|\.)|struct jt_parser_space)re");
  for (const char *floor : {"base", "types"}) {
    const std::string directory = std::string(JT_SOURCE_DIR "/src/") + floor;
    for (const auto &[file, included] : includes_below(directory)) {
      EXPECT_FALSE(std::regex_search(read_whole(directory + "/" + file), kLook)) << file;
    }
  }
}

TEST(IncludeDirection, NoTwoFilesIncludeEachOther) {
  const Includes includes = includes_below(JT_SOURCE_DIR "/src");
  for (const auto &[file, included] : includes) {
    for (const std::string &other : included) {
      const auto back = includes.find(other);
      EXPECT_TRUE(back == includes.end() || back->second.count(file) == 0) << file << " and " << other;
    }
  }
}

// What the clients in C++ share has nothing to do with the library.
TEST(IncludeDirection, ProgramsSeeOnePublicHeaderAlone) {
  const std::string shared = "cpp/program.h";
  const std::set<std::string> in_c = {"jt.h"};
  const std::set<std::string> in_cpp = {"jt.hpp"};
  for (const char *directory : {JT_SOURCE_DIR "/tools", JT_SOURCE_DIR "/examples"}) {
    for (auto [file, included] : includes_below(directory)) {
      if (file.starts_with("sil/")) continue;
      if (file == shared) {
        EXPECT_EQ(included, std::set<std::string>());
      } else {
        included.erase("program.h");
        EXPECT_EQ(included, file.starts_with("cpp/") ? in_cpp : in_c) << file;
      }
    }
  }
}

// The command is of several files; of the library it sees the public headers, and its core sees nothing but itself.
TEST(IncludeDirection, TheCommandSeesThePublicHeadersAloneAndItsCoreItself) {
  const std::string home = JT_SOURCE_DIR "/tools/sil/";
  for (const auto &[file, included] : includes_below(home)) {
    const bool in_core = file.starts_with("core/");
    for (const std::string &other : included) {
      const bool is_own =
          std::filesystem::exists(home + other) || std::filesystem::exists(home + "core/" + other);
      const bool may_see =
          !in_core || other.starts_with("core/") || std::filesystem::exists(home + "core/" + other);
      EXPECT_TRUE(other == "jt.h" || other == "jt.hpp" || (is_own && may_see))
          << file << " includes " << other;
    }
  }
}

TEST(IncludeDirection, TheLayerInCppSeesTheHeaderInCAlone) {
  const Includes includes = includes_below(JT_SOURCE_DIR "/include");
  EXPECT_EQ(includes.at("jt.h"), std::set<std::string>());
  EXPECT_EQ(includes.at("jt.hpp"), std::set<std::string>{"jt.h"});
}

TEST(IncludeDirection, TheLibraryDoesNotSeeTheLayerInCpp) {
  for (const auto &[file, included] : includes_below(JT_SOURCE_DIR "/src")) {
    EXPECT_EQ(included.count("jt.hpp"), 0U) << file;
  }
}

}  // namespace
}  // namespace jt_test
