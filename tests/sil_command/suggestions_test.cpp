// What is suggested for a word that is no name.
#include "core/suggestions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "core/catalogue.h"

namespace sil {
namespace {

using Names = std::vector<std::string>;

TEST(Distance, CountsLettersPutInLeftOutReplacedAndSwapped) {
  EXPECT_EQ(distance("copies", "copies"), 0U);
  EXPECT_EQ(distance("copes", "copies"), 1U);
  EXPECT_EQ(distance("coppies", "copies"), 1U);
  EXPECT_EQ(distance("cobies", "copies"), 1U);
  EXPECT_EQ(distance("ocpies", "copies"), 1U);
  EXPECT_EQ(distance("", "abc"), 3U);
}

TEST(Distance, FoldsLetters) { EXPECT_EQ(distance("COPIES", "copies"), 0U); }

TEST(Nearest, GivesTheNearestFirst) {
  EXPECT_EQ(nearest("enum_siced", {"enum_side", "enum_sided", "enum_type"}),
            (Names{"enum_sided", "enum_side"}));
}

TEST(Nearest, KeepsTheOrderOfEquallyNearOnes) {
  EXPECT_EQ(nearest("cat", {"rat", "bat", "hat", "mat"}), (Names{"rat", "bat", "hat"}));
}

TEST(Nearest, LeavesOutWhatIsFurtherThanAThirdOfTheLength) {
  EXPECT_EQ(nearest("abcde", {"abxye"}), Names{});
  EXPECT_EQ(nearest("abcdef", {"abxyef"}), Names{"abxyef"});
}

TEST(Nearest, SuggestsNothingForTwoLetters) { EXPECT_EQ(nearest("ab", {"ab", "abc"}), Names{}); }

TEST(Nearest, GivesANameOnce) { EXPECT_EQ(nearest("side", {"sided", "sided"}), Names{"sided"}); }

// A letter put in, left out, replaced or swapped with its neighbour, which is what fingers do.
std::string mistyped(std::string word, std::mt19937 &random) {
  const std::string_view letters = "abcdefghijklmnopqrstuvwxyz_0123456789";
  const char letter = letters[random() % letters.size()];
  const std::size_t at = random() % (word.size() - 1);
  switch (random() % 4) {
    case 0:
      return word.insert(at, 1, letter);
    case 1:
      return word.erase(at, 1);
    case 2:
      word[at] = letter;
      return word;
    default:
      std::swap(word[at], word[at + 1]);
      return word;
  }
}

// The types and the names of every scope, each with those that stand beside it.
std::vector<Names> lists_of_the_catalogue() {
  std::vector<Names> lists = {service_types()};
  for (const std::string &scope : services_of_catalogue()) {
    lists.push_back(types_in(scope));
    lists.emplace_back();
    for (const EnumeratedName &name : names_in_scope(scope)) lists.back().push_back(name.name);
  }
  return lists;
}

TEST(Nearest, FindsTheNameThatWasMeantFirstIn95Of100) {
  constexpr int kWords = 1000;
  std::mt19937 random(20);
  const std::vector<Names> lists = lists_of_the_catalogue();
  int found = 0;
  for (int words = 0; words < kWords;) {
    const Names &list = lists[random() % lists.size()];
    if (list.empty()) continue;
    const std::string &meant = list[random() % list.size()];
    if (meant.size() < 4) continue;
    const std::string word = mistyped(meant, random);
    const bool is_a_name =
        std::any_of(list.begin(), list.end(), [&](const auto &name) { return distance(name, word) == 0; });
    if (is_a_name) continue;
    ++words;
    const Names names = nearest(word, list);
    if (!names.empty() && names.front() == meant) ++found;
  }
  EXPECT_GE(found, kWords * 95 / 100);
}

TEST(DidYouMean, JoinsTheNames) {
  EXPECT_EQ(did_you_mean({}), "");
  EXPECT_EQ(did_you_mean({"A"}), "; did you mean \"A\"?");
  EXPECT_EQ(did_you_mean({"A", "B"}), "; did you mean \"A\" or \"B\"?");
  EXPECT_EQ(did_you_mean({"A", "B", "C"}), "; did you mean \"A\", \"B\" or \"C\"?");
}

}  // namespace
}  // namespace sil
