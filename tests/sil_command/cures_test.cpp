// What is cured, and what is left as it is.
#include "core/cures.h"

#include <gtest/gtest.h>

namespace sil {
namespace {

std::string cured(std::string_view text) { return cure(read_document(text)).text; }

TEST(Cure, PutsInASemicolonBeforeAnElement) {
  EXPECT_EQ(cured("[kmt_svc_scan S]{\n integer A = 1\n integer B = 2\n * integer C;\n}end"),
            "[kmt_svc_scan S]{\n integer A = 1;\n integer B = 2;\n * integer C;\n}end");
}

TEST(Cure, TakesOutAByteOrderMark) {
  EXPECT_EQ(cured("\xEF\xBB\xBF[kmt_svc_scan S]end"), "[kmt_svc_scan S]end");
}

TEST(Cure, IsNoneThatWouldMoveAComment) {
  EXPECT_EQ(cured("[kmt_svc_scan S]{\n integer A = 1 # one\n integer B;\n}end"),
            "[kmt_svc_scan S]{\n integer A = 1 # one\n integer B;\n}end");
}

TEST(Cure, IsNoneWhereSomethingElseMayBeMeant) {
  EXPECT_EQ(cured("[kmt_svc_scan S]{string A = one two;}end"), "[kmt_svc_scan S]{string A = one two;}end");
  EXPECT_EQ(cured("[kmt_svc_scan S]{integer A = 1}end"), "[kmt_svc_scan S]{integer A = 1}end");
}

// The service and the attribute behind the cure would be told of then.
TEST(Cure, IsNoneWhereSomethingNewWouldBeFound) {
  EXPECT_EQ(cured("[kmt_svc_scan S]{\n integer A = 1\n integer B = x;\n}end"),
            "[kmt_svc_scan S]{\n integer A = 1;\n integer B = x;\n}end");
}

TEST(Cure, LeavesATextWithoutMistakesAlone) {
  EXPECT_EQ(cure(read_document("[kmt_svc_scan S]end")).count, 0U);
}

}  // namespace
}  // namespace sil
