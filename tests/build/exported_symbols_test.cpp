// What leaves the library: the list of exported symbols, the public header and the built libraries agree, and
// nothing runs at load time and no variable is left but the client's word and a counter of each thread.
#include <algorithm>
#include <set>
#include <sstream>

#include "build/header_client.h"
#include "support/program.h"

namespace jt_test {
namespace {

using Names = std::vector<std::string>;

Names listed_names() { return lines_of(read_whole(JT_SOURCE_DIR "/src/exported_symbols.txt")); }

Names sorted(Names names) {
  std::sort(names.begin(), names.end());
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
Names static_symbols_in(std::string_view sections) {
  Names names;
  const ProgramRun run = run_program({JT_NM, "--defined-only", "--demangle", JT_STATIC_LIBRARY});
  EXPECT_EQ(run.exit_status, 0) << run.err;
  for (const std::string &line : lines_of(run.out)) {
    std::istringstream words(line);
    std::string address, section, name;
    if (words >> address >> section && std::getline(words >> std::ws, name) && section.size() == 1 &&
        sections.find(section) != sections.npos)
      names.push_back(name);
  }
  return names;
}

TEST(ExportedSymbols, TheListIsSortedAndNamesEachSymbolOnce) {
  const Names names = listed_names();
  const std::set<std::string> each(names.begin(), names.end());
  EXPECT_EQ(names, Names(each.begin(), each.end()));
  EXPECT_EQ(names.size(), 141U);
}

TEST(ExportedSymbols, TheSharedLibraryShowsTheListAndNothingElse) {
  EXPECT_EQ(sorted(symbols({"--dynamic", "--defined-only", JT_SHARED_LIBRARY})), listed_names());
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
            (Names{"g_szCurrentLocale", "jt::(anonymous namespace)::column"}));
}

}  // namespace
}  // namespace jt_test
