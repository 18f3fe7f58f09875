// What is suggested for a word that is no name.
#include "core/suggestions.h"

#include <gtest/gtest.h>

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

TEST(DidYouMean, JoinsTheNames) {
  EXPECT_EQ(did_you_mean({}), "");
  EXPECT_EQ(did_you_mean({"A"}), "; did you mean \"A\"?");
  EXPECT_EQ(did_you_mean({"A", "B"}), "; did you mean \"A\" or \"B\"?");
  EXPECT_EQ(did_you_mean({"A", "B", "C"}), "; did you mean \"A\", \"B\" or \"C\"?");
}

}  // namespace
}  // namespace sil
