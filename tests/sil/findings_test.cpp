// The table of codes: the name of each, in the order of their numbers, and how bad it is.
#include "sil/findings.h"

#include <gtest/gtest.h>

#include <array>

namespace jt_core {
namespace {

struct Row {
  const char *name;
  int severity;
};

constexpr int kError = 0;
constexpr int kLoss = 1;
constexpr int kWarning = 2;
constexpr int kNote = 3;

constexpr std::array<Row, 35> kRows = {{
    {"syntax-expected", kError},
    {"syntax-unclosed", kError},
    {"syntax-string", kError},
    {"string-over-lines", kError},
    {"syntax-length", kError},
    {"syntax-nul", kError},
    {"text-bom", kError},
    {"block-illegal", kError},
    {"memory", kError},
    {"limit", kError},
    {"header-form", kError},
    {"header-version", kWarning},
    {"header-encoding", kLoss},
    {"end-marker", kError},
    {"service-type-unknown", kError},
    {"service-unknown", kWarning},
    {"attribute-type-unknown", kError},
    {"attribute-type-of-other-service", kError},
    {"name-duplicate", kError},
    {"name-unsafe", kLoss},
    {"value-malformed", kLoss},
    {"value-out-of-range", kLoss},
    {"value-saturated", kLoss},
    {"value-tail", kLoss},
    {"value-empty-number", kWarning},
    {"value-impossible", kWarning},
    {"value-unknown-name", kWarning},
    {"value-unsafe", kWarning},
    {"value-dropped", kLoss},
    {"value-rounded", kNote},
    {"status-unknown", kWarning},
    {"status-unsafe", kWarning},
    {"status-text-lost", kLoss},
    {"comment-moves", kNote},
    {"ignore-unused", kWarning},
}};

TEST(Findings, HaveTheirNamesAndSeverities) {
  for (std::size_t code = 0; code < kRows.size(); ++code) {
    EXPECT_STREQ(jt_finding_name(static_cast<int32_t>(code)), kRows[code].name) << code;
    EXPECT_EQ(facts_of_code(static_cast<int32_t>(code)).severity, kRows[code].severity) << kRows[code].name;
  }
}

TEST(Findings, HaveNoNameOutsideOfTheTable) {
  EXPECT_EQ(jt_finding_name(-1), nullptr);
  EXPECT_EQ(jt_finding_name(35), nullptr);
}

}  // namespace
}  // namespace jt_core
