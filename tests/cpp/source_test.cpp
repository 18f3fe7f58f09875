// Texts with places through jt.hpp: findings that are kept, listeners of every shape, what a listener throws, and
// the same without a session, without memory and from inside a listener.
#include <ranges>
#include <stdexcept>
#include <type_traits>

#include "cpp/bare_client.h"
#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

using jt::Category;
using jt::Finding;
using jt::Findings;
using jt::Severity;

static_assert(std::ranges::forward_range<Findings>);
static_assert(std::ranges::forward_range<const Findings>);
static_assert(std::is_nothrow_move_constructible_v<Findings> && std::is_nothrow_move_assignable_v<Findings>);
static_assert(!std::is_copy_constructible_v<Findings>);
static_assert(jt::Place{2, 1} > jt::Place{1, 9});
static_assert(jt::Range{2, 4}.of("abcdef") == "cd");
static_assert(jt::Range{4, 9}.of("abcdef") == "ef");
static_assert(jt::Range{9, 9}.of("abcdef").empty());
static_assert(name_of(Severity::loss) == "loss");

constexpr std::string_view kTwoFaults =
    "[ kmt_svc_scan Scan ] {\n integer a 1;\n integer b = 2; integer B = 3;\n integer c = many;\n} end";

Words words_of_findings(const Findings &findings) {
  Words words;
  for (const Finding &at : findings) {
    words.push_back(std::to_string(at.place().line) + ":" + std::to_string(at.place().column) + " " +
                    std::string(name_of(at.severity())) + " " + std::string(at.name()));
  }
  return words;
}

const Words kExpected = {"2:11 error syntax-expected", "3:25 error name-duplicate",
                         "4:14 loss value-malformed"};

class SourceInCpp : public CppTest {};

// ---- Findings ----

TEST_F(SourceInCpp, ACheckGivesAllFindings) {
  const auto findings = session.check(kTwoFaults);
  ASSERT_TRUE(findings);
  EXPECT_EQ(words_of_findings(*findings), kExpected);
  EXPECT_EQ(findings->size(), 3U);
  EXPECT_EQ(findings->count(Severity::error), 2U);
  EXPECT_EQ(findings->count(Severity::note), 0U);
}

TEST_F(SourceInCpp, ACheckOfAGoodTextFindsNothing) {
  const auto findings = session.check("[ kmt_svc_scan Scan ] { } end");
  ASSERT_TRUE(findings);
  EXPECT_TRUE(findings->empty());
  EXPECT_EQ(findings->begin(), findings->end());
}

TEST_F(SourceInCpp, AFindingSaysWhatItFoundAndWhatMayStandThere) {
  const auto findings = session.check(kTwoFaults).value();
  const Finding expected = *findings.begin();
  EXPECT_EQ(expected.code(), JT_FINDING_SYNTAX_EXPECTED);
  EXPECT_EQ(expected.found().of(kTwoFaults), "1");
  EXPECT_FALSE(expected.found_is_end());
  EXPECT_EQ(expected.expected(), "= ;");
  EXPECT_FALSE(expected.expects(jt::Role::value));
  EXPECT_FALSE(expected.second());
  EXPECT_EQ(expected.type(), nullptr);
}

TEST_F(SourceInCpp, AFindingShowsTheSecondPlace) {
  const auto findings = session.check(kTwoFaults).value();
  const Finding namesake = *std::next(findings.begin());
  EXPECT_EQ(namesake.range().of(kTwoFaults), "B");
  ASSERT_TRUE(namesake.second());
  EXPECT_EQ(namesake.second()->of(kTwoFaults), "b");
}

TEST_F(SourceInCpp, AFindingNamesTypeScopeAndCandidates) {
  const auto of_value = session.check("[ kmt_svc_scan Scan ] { integer c = many; } end").value();
  EXPECT_STREQ((*of_value.begin()).type(), "integer");
  EXPECT_EQ((*of_value.begin()).candidates(), jt::Candidates::none);
  const auto of_type = session.check("[ kmt_svc_scan Scan ] { enum_siced c = X; } end").value();
  EXPECT_STREQ((*of_type.begin()).scope(), "kmt_svc_scan");
  EXPECT_EQ((*of_type.begin()).candidates(), jt::Candidates::types);
}

TEST_F(SourceInCpp, FindingsOutliveTheirSession) {
  Findings findings;
  {
    const jt::Session other("other");
    EXPECT_FALSE(other.decode(kTwoFaults, {}, findings));
  }
  EXPECT_EQ(words_of_findings(findings), Words{"2:11 error syntax-expected"});
  EXPECT_EQ((*findings.begin()).expected(), "= ;");
}

TEST_F(SourceInCpp, FindingsMove) {
  Findings findings = session.check(kTwoFaults).value();
  Findings taken(std::move(findings));
  EXPECT_EQ(words_of_findings(taken), kExpected);
  findings = session.check("[").value();
  findings = std::move(taken);
  EXPECT_EQ(words_of_findings(findings), kExpected);
}

TEST_F(SourceInCpp, ATextMayHaveANulAndNeedNotEndInOne) {
  const std::string_view with_nul("[ service S ]\0end", 17);
  EXPECT_EQ(words_of_findings(session.check(with_nul).value()), Words{"1:14 error syntax-nul"});
  EXPECT_TRUE(session.decode(std::string_view("[ service S ] end]").substr(0, 17), {}));
  EXPECT_EQ(session.decode(std::string_view(), {}).error().message(),
            "SYNTAX ERROR: while parsing for \"  <  \" at: ...");
}

TEST_F(SourceInCpp, OptionsHoldForDecodesAndChecks) {
  const std::string_view loss = "[ kmt_svc_scan Scan ] { integer c = many; } end";
  EXPECT_TRUE(session.decode(loss, {}));
  const auto strict = session.decode(loss, {.strict = true});
  EXPECT_EQ(strict.error().message(), "SYNTAX ERROR: strict: value-malformed ...");
  EXPECT_TRUE(failed(session.decode(loss, {.most_bytes = 10}), Category::memory_error,
                     {"MEMORY ERROR: limit passed: bytes ..."}));
  EXPECT_EQ(words_of_findings(session.check(loss, {.most_bytes = 10}).value()), Words{"1:11 error limit"});
}

// ---- Listeners ----

struct Listener {
  Words told;

  void open(const jt::SourceElement &element) {
    if (element.kind == jt::SourceKind::service) told.push_back("open " + std::to_string(element.number));
  }
  void close(const jt::SourceElement &element) {
    told.push_back("close " + std::to_string(element.range.end));
  }
  void token(const jt::Token &token) {
    if (token.role == jt::Role::service_name) told.push_back("token " + std::string(token.text));
  }
  void finding(const Finding &finding) { told.emplace_back(finding.name()); }
  void handle(std::int32_t number, std::int32_t handle) {
    told.push_back("handle " + std::to_string(number) + " " + std::to_string(handle));
  }
};

TEST_F(SourceInCpp, AListenerIsToldEverything) {
  const jt::Session fresh("fresh");
  Listener listener;
  ASSERT_TRUE(fresh.decode("[ service S ] end (odd)", {}, listener));
  EXPECT_EQ(listener.told,
            (Words{"open 0", "token S", "status-unknown", "close 23", "close 23", "handle 0 -101"}));
}

TEST_F(SourceInCpp, AFunctionHearsFindings) {
  int count = 0;
  EXPECT_FALSE(session.check(kTwoFaults, {}, [&](const Finding &) { ++count; }));
  EXPECT_EQ(count, 3);
}

TEST_F(SourceInCpp, AListenerThatGivesFalseEndsTheCall) {
  int count = 0;
  const auto ended = session.check(kTwoFaults, {}, [&](const Finding &) { return ++count < 2; });
  EXPECT_EQ(count, 2);
  EXPECT_EQ(ended.error().message(), "CALL ERROR: ended by the listener ...");
}

TEST_F(SourceInCpp, ACheckWithAListenerSucceedsWhereADecodeWould) {
  EXPECT_TRUE(session.check("[ service S ] end (odd)", {}, [](const Finding &) {}));
  const auto refused = session.check("[ service", {}, [](const Finding &) {});
  EXPECT_EQ(refused.error().message(), "SYNTAX ERROR: Illegal end of block at ...");
}

// ---- What a listener throws ----

struct Thrower {
  const char *at;

  void meet(const char *kind) const {
    if (std::string_view(kind) == at) throw std::runtime_error(kind);
  }
  void open(const jt::SourceElement &) const { meet("open"); }
  void close(const jt::SourceElement &) const { meet("close"); }
  void token(const jt::Token &) const { meet("token"); }
  void finding(const Finding &) const { meet("finding"); }
  void handle(std::int32_t, std::int32_t) const { meet("handle"); }
};

TEST_F(SourceInCpp, WhatAListenerThrowsIsThrownOnBehindTheCall) {
  for (const char *kind : {"open", "close", "token", "finding", "handle"}) {
    const jt::Session fresh("fresh");
    try {
      (void)fresh.decode("[ service S ] end (odd)", {}, Thrower{kind});
      ADD_FAILURE() << kind;
    } catch (const std::runtime_error &thrown) {
      EXPECT_STREQ(thrown.what(), kind);
    }
    EXPECT_EQ(fresh.last_report().message(), "CALL ERROR: ended by the listener ...") << kind;
    EXPECT_EQ(fresh.create().value().get(), -100) << kind;  // nothing was left in the table
  }
}

TEST_F(SourceInCpp, ACheckThrowsOnToo) {
  EXPECT_THROW((void)session.check("[ service S ] end (odd)", {}, Thrower{"finding"}), std::runtime_error);
  EXPECT_TRUE(session.check("[ service S ] end (odd)", {}, Thrower{"handle"}));
  EXPECT_TRUE(job.add_service("service", "two words"));
  EXPECT_THROW((void)job.check(Thrower{"finding"}), std::runtime_error);
}

// ---- Templates ----

TEST_F(SourceInCpp, ATemplateIsCheckedForWhatIsNotReadBack) {
  EXPECT_TRUE(job.check().value().empty());
  ASSERT_TRUE(job.add_service("service", "two words"));
  const auto findings = job.check();
  ASSERT_TRUE(findings);
  ASSERT_EQ(findings->size(), 1U);
  EXPECT_EQ((*findings->begin()).name(), "name-unsafe");
  EXPECT_EQ(job.element_of(*findings->begin()).name().value().str(), "two words");
  EXPECT_FALSE(job.check([](const Finding &) {}));
}

// ---- What is missing ----

TEST_F(SourceInCpp, WithoutASessionAllFail) {
  const jt::Session none;
  EXPECT_TRUE(has_no_session(none.check("[")));
  EXPECT_TRUE(has_no_session(none.decode("[", {})));
  EXPECT_TRUE(has_no_session(none.check("[", {}, [](const Finding &) {})));
  EXPECT_TRUE(has_no_session(jt::Template().check()));
}

TEST_F(SourceInCpp, FromInsideAListenerCallsFail) {
  EXPECT_TRUE(session.check("[ service S ] end (odd)", {}, [&](const Finding &) {
    const auto refused = session.check("[");
    EXPECT_EQ(refused.error().category(), Category::call_error);
    EXPECT_EQ(refused.error().message(), "CALL ERROR: made from inside a listener ...");
  }));
}

TEST_F(SourceInCpp, WithoutMemoryACheckFailsWhole) {
  for (int number = 1;; ++number) {
    const jt::Session fresh("fresh");
    fail_allocations(number, Failing::kAllFromThereOn);
    const auto findings = fresh.check(kTwoFaults);
    if (allow_allocations() == 0) break;
    if (!findings) {
      EXPECT_EQ(findings.error().category(), Category::memory_error) << number;
      continue;
    }
    const Words words = words_of_findings(*findings);
    EXPECT_TRUE(words == kExpected || words.back().ends_with(" error memory")) << number;
  }
}

TEST_F(SourceInCpp, AClientWithoutExceptionsHasListenersToo) { EXPECT_EQ(errors_in(kTwoFaults), 2); }

}  // namespace
}  // namespace jt_test
