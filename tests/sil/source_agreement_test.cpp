// What a check and a decode with places have in common with the plain decode: result, status, history and tree
// are the same for every text, the first error is found where the plain decode stops, and what is told covers
// the text. Looked at for all examples and for damaged ones; JT_TEST_DAMAGED in the environment says how many
// of those.
#include <gtest/gtest.h>

#include <cstdlib>

#include "sil/source_texts.h"

namespace jt_test {
namespace {

constexpr std::string_view kBlanks = "\b\t\n\v\f\r \0";

// What a text is found to be, or an empty line.
std::string objection_to(const std::string &text);

// ---- Elements and tokens ----

std::string first_overlap(const Ear &ear) {
  std::size_t behind = 0;
  for (const Told &token : ear.tokens) {
    if (token.range.begin < behind || token.range.end <= token.range.begin) return range_text(token.range);
    behind = token.range.end;
  }
  return {};
}

// The first byte that is neither told nor blank.
std::size_t first_untold(const Ear &ear, std::string_view text) {
  std::size_t behind = 0;
  for (const Told &token : ear.tokens) {
    const std::size_t at = text.substr(0, token.range.begin).find_first_not_of(kBlanks, behind);
    if (at != std::string_view::npos) return at;
    behind = token.range.end;
  }
  return text.find_first_not_of(kBlanks, behind);
}

bool all_are_closed(const Ear &ear) {
  int32_t number = 0;
  for (const Opened &element : ear.elements) {
    if (!element.is_closed || element.number != number++) return false;
  }
  return ear.is_nested;
}

bool ranges_lie_in(const Ear &ear, std::size_t size) {
  const auto lies = [size](jt_range range) { return range.begin <= range.end && range.end <= size; };
  for (const Opened &element : ear.elements) {
    if (!lies(element.range)) return false;
  }
  for (const Found &finding : ear.findings) {
    if (!lies(finding.range) || !lies(finding.found)) return false;
  }
  return true;
}

std::string objection_to_told(const Ear &ear, const std::string &text, bool succeeds) {
  if (!first_overlap(ear).empty()) return "overlap at " + first_overlap(ear);
  if (!all_are_closed(ear)) return "elements that are not closed";
  if (!ranges_lie_in(ear, text.size())) return "ranges outside of the text";
  const std::size_t untold = succeeds ? first_untold(ear, text) : std::string::npos;
  return untold != std::string::npos ? "untold at " + std::to_string(untold) : "";
}

// ---- The token of the first error ----

// Reports that end with the text from the byte before the token on.
constexpr std::array<std::string_view, 2> kReportsWithPlace = {"SYNTAX ERROR: while parsing for",
                                                               "SYNTAX ERROR: decoding attribute at:"};

// The text that a report shows, without what says that it goes on.
std::string_view shown_by(std::string_view message) {
  constexpr std::string_view kBehindExpectation = "\" at:";
  const std::size_t quote = message.find('"');
  const bool has_expectation = message.starts_with(kReportsWithPlace[0]);
  const std::string_view rest =
      has_expectation
          ? message.substr(message.find(kBehindExpectation, quote + 1) + kBehindExpectation.size())
          : message.substr(kReportsWithPlace[1].size());
  return rest.ends_with(" ...") ? rest.substr(0, rest.size() - 4) : rest;
}

bool starts_at(std::string_view text, std::size_t at, std::string_view shown) {
  return at <= text.size() && text.substr(at).starts_with(shown);
}

// Whether what the report shows begins where the token does, a byte to the left of it, or one to the right of
// that where a blank follows. Of a token with quotes or escapes the report shows less.
bool is_shown(std::string_view text, jt_range found, std::string_view shown) {
  const std::string_view token = text.substr(found.begin, found.end - found.begin);
  const bool is_shorter = token.find_first_of("\"\\") != std::string_view::npos;
  const bool is_word = token.size() > 1 || token.find_first_of("[]{}()<>=,;*!$%&^?|") != 0;
  const std::size_t before = found.begin > 0 ? found.begin - 1 : 0;
  if (is_shorter) {
    for (std::size_t at = before; at <= found.end + 1; ++at) {
      if (starts_at(text, at, shown)) return true;
    }
    return false;
  }
  const bool blank_follows = is_word && !token.empty() && token != "||" && found.end < text.size() &&
                             kBlanks.find(text[found.end]) != std::string_view::npos;
  return starts_at(text, blank_follows ? found.begin : before, shown);
}

std::string objection_to_place(const std::string &text, const Messages &messages, const Ear &ear) {
  if (messages.empty() || ear.findings.empty()) return {};
  const std::string &message = messages.back();
  const bool has_place = std::any_of(kReportsWithPlace.begin(), kReportsWithPlace.end(),
                                     [&](std::string_view begin) { return message.starts_with(begin); });
  const auto error = std::find_if(ear.findings.begin(), ear.findings.end(),
                                  [](const Found &finding) { return finding.severity == JT_SEVERITY_ERROR; });
  if (!has_place || error == ear.findings.end() || is_shown(text, error->found, shown_by(message))) return {};
  return "stopped elsewhere: " + error->text + " but " + message;
}

// ---- All of it ----

std::string first_error_of(const Ear &ear) {
  for (const Found &finding : ear.findings) {
    if (finding.severity == JT_SEVERITY_ERROR) return finding.text;
  }
  return "none";
}

std::string objection_to(const std::string &text) {
  Ear decode_ear;
  Ear check_ear;
  const Verdict plain = decoded_template(text);
  const Verdict decode = decoded_source(text, decode_ear.listener());
  Verdict check = checked_source(text, check_ear.listener());
  check.written = plain.written;
  if (decode != plain) return "the decode with places differs";
  if (check != plain) return "the check differs";
  if (decode_ear.count_of(JT_SEVERITY_ERROR) != (plain.succeeds ? 0U : 1U)) return "errors of the decode";
  if (plain.succeeds != (check_ear.count_of(JT_SEVERITY_ERROR) == 0)) return "errors of the check";
  if (first_error_of(decode_ear) != first_error_of(check_ear)) return "another first error";
  const std::string decoded = objection_to_told(decode_ear, text, plain.succeeds);
  if (!decoded.empty()) return "decode: " + decoded;
  const std::string checked = objection_to_told(check_ear, text, plain.succeeds);
  if (!checked.empty()) return "check: " + checked;
  return plain.succeeds ? "" : objection_to_place(text, plain.messages, check_ear);
}

std::size_t damaged_count() {
  const char *const count = std::getenv("JT_TEST_DAMAGED");
  return count != nullptr ? std::stoul(count) : 10'000;
}

TEST(SourceAgreement, OfEveryExample) {
  for (const auto &[name, text] : decodable_examples()) EXPECT_EQ(objection_to(text), "") << name;
}

TEST(SourceAgreement, OfEveryRejectedExample) {
  for (const auto &[name, text] : rejected_examples()) EXPECT_EQ(objection_to(text), "") << name;
}

TEST(SourceAgreement, OfEveryBeginningOfAnExample) {
  for (const auto &[name, text] : decodable_examples()) {
    for (std::size_t size = 0; size < text.size() && size < 600; ++size) {
      ASSERT_EQ(objection_to(text.substr(0, size)), "") << name << " cut off at " << size;
    }
  }
}

TEST(SourceAgreement, OfDamagedExamples) {
  std::vector<std::string> texts;
  for (const auto &[name, text] : decodable_examples()) texts.push_back(text);
  for (const auto &[name, text] : rejected_examples()) texts.push_back(text);
  Damage damage(20240229);
  for (std::size_t i = 0; i < damaged_count(); ++i) {
    const std::string text = damage.to(texts[i % texts.size()]);
    const std::string damaged = text.substr(0, text.find('\0'));
    ASSERT_EQ(objection_to(damaged), "") << damaged;
  }
}

}  // namespace
}  // namespace jt_test
