// What leaves the library: the list of exported symbols, the public header and the built libraries agree, and
// nothing runs at load time and no variable is left but the client's word and a counter of each thread.
#include <algorithm>
#include <map>
#include <set>
#include <sstream>

#include "build/header_client.h"
#include "jt.h"
#include "support/program.h"

namespace jt_test {
namespace {

using Names = std::vector<std::string>;

Names listed_names() { return lines_of(read_whole(JT_SOURCE_DIR "/src/exported_symbols.txt")); }

Names sorted(Names names) {
  std::sort(names.begin(), names.end());
  return names;
}

// The names of one list that the other lacks.
Names without(Names names, const Names &others) {
  const std::set<std::string> known(others.begin(), others.end());
  std::erase_if(names, [&](const std::string &name) { return known.contains(name); });
  return names;
}

// The last word of each line of nm's answer: the name of a symbol.
Names symbols(std::vector<std::string> question) {
  question.insert(question.begin(), JT_NM);
  const ProgramRun run = run_program(question);
  EXPECT_EQ(run.exit_status, 0) << run.err;
  Names names;
  for (const std::string &line : lines_of(run.out)) names.push_back(line.substr(line.rfind(' ') + 1));
  return names;
}

// The symbols of the static library that lie in one of the sections, which nm names by letters.
// Without the compiler's own labels, from which some machines reach variables.
Names static_symbols_in(std::string_view sections) {
  Names names;
  const ProgramRun run = run_program({JT_NM, "--defined-only", "--demangle", JT_STATIC_LIBRARY});
  EXPECT_EQ(run.exit_status, 0) << run.err;
  for (const std::string &line : lines_of(run.out)) {
    std::istringstream words(line);
    std::string address, section, name;
    if (words >> address >> section && std::getline(words >> std::ws, name) && section.size() == 1 &&
        sections.find(section) != sections.npos && !name.starts_with(".L")) {
      names.push_back(name);
    }
  }
  return names;
}

// In bytes, by name without its version.
std::map<std::string, std::size_t> shared_symbol_sizes() {
  const ProgramRun run =
      run_program({JT_NM, "--dynamic", "--defined-only", "--print-size", JT_SHARED_LIBRARY});
  EXPECT_EQ(run.exit_status, 0) << run.err;
  std::map<std::string, std::size_t> sizes;
  for (const std::string &line : lines_of(run.out)) {
    std::istringstream words(line);
    std::string address, section, name;
    std::size_t size = 0;
    if (words >> address >> std::hex >> size >> section >> name) sizes[name.substr(0, name.find('@'))] = size;
  }
  return sizes;
}

TEST(ExportedSymbols, TheListIsSortedAndNamesEachSymbolOnce) {
  const Names names = listed_names();
  const std::set<std::string> each(names.begin(), names.end());
  EXPECT_EQ(names, Names(each.begin(), each.end()));
  EXPECT_EQ(names.size(), 183U);
}

// The version is a symbol, too; one nm shows it with itself as its version, the other does not.
TEST(ExportedSymbols, TheSharedLibraryShowsTheListInItsVersionAndNothingElse) {
  Names expected;
  for (const std::string &name : listed_names()) expected.push_back(name + "@@JT_4");
  const Names shown =
      without(symbols({"--dynamic", "--defined-only", JT_SHARED_LIBRARY}), {"JT_4", "JT_4@@JT_4"});
  EXPECT_EQ(without(shown, expected), Names{}) << "left the library, but are not listed";
  EXPECT_EQ(without(expected, shown), Names{}) << "are listed, but did not leave the library";
}

TEST(ExportedSymbols, TheSharedLibraryIsNamedAfterItsMajorVersion) {
  const ProgramRun run = run_program({JT_READELF, "--dynamic", JT_SHARED_LIBRARY});
  EXPECT_EQ(run.exit_status, 0) << run.err;
  EXPECT_NE(run.out.find("[libjt.so.4]"), run.out.npos) << run.out;
}

// The address sanitizer makes every variable longer, by a guard.
#if defined(__has_feature)
constexpr bool kHasGuards = __has_feature(address_sanitizer);
#else
constexpr bool kHasGuards = false;
#endif

// A program that names a table may hold a copy of it, made by the linker in the size of that day, and the
// library then reads the copy.
TEST(ExportedSymbols, TheTablesHaveTheSizeThatProgramsHaveCopied) {
  const std::map<std::string, std::size_t> rows = {
      {"desksvc_type_tab", 1}, {"doc_type_tab", 14}, {"docman_type_tab", 1}, {"email_type_tab", 3},
      {"fax_type_tab", 4},     {"file_type_tab", 7}, {"gen_type_tab", 8},    {"metadata_type_tab", 2},
      {"notif_type_tab", 1},   {"ocr_type_tab", 3},  {"pport_type_tab", 1},  {"ppware_type_tab", 1},
      {"print_type_tab", 5},   {"qf_type_tab", 1},   {"scan_type_tab", 22},  {"validation_type_tab", 3}};
  const std::map<std::string, std::size_t> sizes = shared_symbol_sizes();
  for (const auto &[name, count] : rows) {
    ASSERT_TRUE(sizes.contains(name)) << name;
    if (kHasGuards) {
      EXPECT_GT(sizes.at(name), count * sizeof(jt_type)) << name;
    } else {
      EXPECT_EQ(sizes.at(name), count * sizeof(jt_type)) << name;
    }
  }
}

TEST(ExportedSymbols, AClientInCFindsEveryListedSymbol) {
  Names names;
  for (std::size_t i = 0; i < jt_test_call_count(); ++i) {
    EXPECT_NE(jt_test_calls()[i].address, nullptr) << jt_test_calls()[i].name;
    names.emplace_back(jt_test_calls()[i].name);
  }
  for (std::size_t i = 0; i < jt_test_word_count(); ++i) {
    EXPECT_NE(jt_test_words()[i].address, nullptr) << jt_test_words()[i].name;
    names.emplace_back(jt_test_words()[i].name);
  }
  EXPECT_EQ(sorted(names), listed_names());
}

TEST(ExportedSymbols, NothingRunsWhenTheLibraryIsLoaded) {
  EXPECT_FALSE(static_symbols_in("T").empty());
  for (const std::string &name : static_symbols_in("tT"))
    EXPECT_EQ(name.find("_GLOBAL__sub_I"), name.npos) << name;
}

TEST(ExportedSymbols, TheOnlyVariablesAreTheClientsWordAndTheColumnOfEachThread) {
  EXPECT_EQ(sorted(static_symbols_in("bBC")),
            (Names{"g_szCurrentLocale", "jt_core::(anonymous namespace)::column"}));
}

}  // namespace
}  // namespace jt_test
