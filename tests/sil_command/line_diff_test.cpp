// Differences between texts as unified diffs.
#include "core/line_diff.h"

#include <gtest/gtest.h>

namespace sil {
namespace {

TEST(UnifiedDiff, IsEmptyForEqualTexts) { EXPECT_EQ(unified_diff("f", "a\nb\n", "a\nb\n"), ""); }

TEST(UnifiedDiff, ShowsThreeLinesAroundAChange) {
  EXPECT_EQ(unified_diff("f", "1\n2\n3\n4\n5\n6\n7\n8\n9\n", "1\n2\n3\n4\nfive\n6\n7\n8\n9\n"),
            "--- f\n+++ f\n@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+five\n 6\n 7\n 8\n");
}

TEST(UnifiedDiff, PartsChangesThatAreFarApart) {
  EXPECT_EQ(unified_diff("f", "a\n1\n2\n3\n4\n5\n6\n7\nb\n", "A\n1\n2\n3\n4\n5\n6\n7\nB\n"),
            "--- f\n+++ f\n@@ -1,4 +1,4 @@\n-a\n+A\n 1\n 2\n 3\n@@ -6,4 +6,4 @@\n 5\n 6\n 7\n-b\n+B\n");
}

TEST(UnifiedDiff, FindsTheFewestLines) {
  EXPECT_EQ(unified_diff("f", "a\nb\nc\nd\n", "b\nx\nc\nd\ne\n"),
            "--- f\n+++ f\n@@ -1,4 +1,5 @@\n-a\n b\n+x\n c\n d\n+e\n");
}

TEST(UnifiedDiff, ShowsTextsThatHaveNothingInCommon) {
  EXPECT_EQ(unified_diff("f", "", "a\nb\n"), "--- f\n+++ f\n@@ -0,0 +1,2 @@\n+a\n+b\n");
  EXPECT_EQ(unified_diff("f", "a\n", ""), "--- f\n+++ f\n@@ -1 +0,0 @@\n-a\n");
}

TEST(UnifiedDiff, TellsAMissingLastLineFeed) {
  EXPECT_EQ(unified_diff("f", "a", "a\n"),
            "--- f\n+++ f\n@@ -1 +1 @@\n-a\n\\ No newline at end of file\n+a\n");
}

TEST(UnifiedDiff, SaysInWordsWhatCannotBeSeen) {
  EXPECT_EQ(unified_diff("f", "a\r\nb\r\n", "a\nb\n"), "f: the ends of lines change from CR LF to LF\n");
  EXPECT_EQ(unified_diff("f", "a\rb\n", "a\nb\n"), "f: the ends of lines change from several kinds to LF\n");
  EXPECT_EQ(unified_diff("f",
                         "\xEF\xBB\xBF"
                         "a\n",
                         "a\n"),
            "f: the byte order mark is removed\n");
}

TEST(UnifiedDiff, ShowsTextsThatDifferInMoreLinesThanItCompares) {
  std::string before;
  std::string after;
  for (int i = 0; i < 2000; ++i) {
    before += std::to_string(i) + "\n";
    after += "x" + std::to_string(i) + "\n";
  }
  const std::string diff = unified_diff("f", before, after);
  EXPECT_EQ(diff.substr(0, 34), "--- f\n+++ f\n@@ -1,2000 +1,2000 @@\n");
}

}  // namespace
}  // namespace sil
