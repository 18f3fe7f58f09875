// One row for each code. What stands in braces is put in.
#include "core/findings.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/catalogue.h"
#include "core/redaction.h"
#include "core/suggestions.h"
#include "core/text.h"

namespace sil {
namespace {

constexpr std::size_t kMostOfAWord = 60;

// {word} is what stands at the range, {value} the token that it is a piece of,
// {found} the token at which a decode stops, {expected} what may stand there.
constexpr std::array<std::string_view, JT_FINDING_IGNORE_UNUSED + 1> kMessages = {
    "expected {expected}{behind}, found {found}",
    "the {block} is not closed: expected {closing}{behind}, found {found}",
    "{string}",
    "the string is not closed on its line",
    "too long: at most {most}",
    "a NUL byte",
    "the text begins with a byte order mark",
    "{word} does not belong here; the header promises no such mark",
    "there is not enough memory",
    "the text is larger than is allowed",
    "no header begins like this: expected {expected}, found {found}",
    "the version is {word}, not `4.2.00`",
    "the encoding is {word}, and becomes `ASCII`",
    "{end}",
    "there is no service type {word}",
    "nothing is known of the service {word}; only built-in types are known in it",
    "there is no type {word}",
    "{word} is no type of {scope}, but of {others}",
    "the name {word} is taken",
    "the name {word} cannot be read back",
    "{word} is no {type} and is left out; expected {form}",
    "{word} is out of the range of {type}: {form}",
    "{value} is too large, and becomes {nearest}",
    "{word} is text behind the value, which is ignored",
    "there is no digit in {word}, which is read as 0",
    "no calendar or clock has {value}",
    "{word} is no name that {scope} knows",
    "the value {word} cannot be read back",
    "{word} is no {type} and is left out; expected {form}",
    "{word} is kept as a single, and written back as another decimal",
    "there is no status {word}",
    "the status {word} cannot be read back",
    "{word} is lost: of the text behind a status only the last word is kept",
    "the library writes this comment at another place",
    "{unused}",
};

struct RoleName {
  std::int32_t role;
  std::string_view name;
};
constexpr std::array kRoleNames = {
    RoleName{JT_ROLE_VERSION, "a version"},
    RoleName{JT_ROLE_ENCODING, "an encoding"},
    RoleName{JT_ROLE_IDENTIFIER, "an identifier"},
    RoleName{JT_ROLE_SERVICE_TYPE, "the type of a service"},
    RoleName{JT_ROLE_SERVICE_NAME, "the name of a service"},
    RoleName{JT_ROLE_INVOCATION_NAME, "the name of an invocation"},
    RoleName{JT_ROLE_STAR, "`*`"},
    RoleName{JT_ROLE_ATTRIBUTE_TYPE, "the type of an attribute"},
    RoleName{JT_ROLE_ATTRIBUTE_NAME, "the name of an attribute"},
    RoleName{JT_ROLE_VALUE, "a value"},
    RoleName{JT_ROLE_STATUS, "a status"},
    RoleName{JT_ROLE_STATUS_TEXT, "a text"},
};

// What is opened by a mark, and what closes it.
struct Block {
  char opening;
  std::string_view name;
  std::string_view closing;
};
constexpr std::array kBlocks = {Block{'[', "service", "end"}, Block{'{', "invocation", "}"},
                                Block{'(', "status", ")"}, Block{'<', "section", "<"}};

std::string in_ticks(std::string_view text) { return "`" + std::string(text) + "`"; }

// "A, B or C"
std::string as_choice(const std::vector<std::string> &parts) {
  std::string text;
  for (std::size_t i = 0; i < parts.size(); ++i)
    text += (i == 0 ? "" : i + 1 == parts.size() ? " or " : ", ") + parts[i];
  return text;
}

std::vector<std::string> words_of(std::string_view text) {
  std::vector<std::string> words;
  for (std::size_t at = text.find_first_not_of(' '); at != std::string_view::npos;) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    words.emplace_back(text.substr(at, end - at));
    at = text.find_first_not_of(' ', end);
  }
  return words;
}

const Block *block_opened_by(std::string_view opening) {
  const auto row = std::find_if(kBlocks.begin(), kBlocks.end(), [&](const Block &block) {
    return !opening.empty() && opening[0] == block.opening;
  });
  // An invocation may begin with its name.
  return row == kBlocks.end() ? &kBlocks[1] : &*row;
}

std::string services_with(const std::string &type) {
  std::vector<std::string> services;
  for (const std::string &service : services_of_catalogue())
    if (type_in(service, type) != nullptr) services.push_back(in_ticks(service));
  return as_choice(services);
}

std::string bad_string(std::string_view piece, std::string_view behind) {
  if (behind.empty() && piece.ends_with('\\')) return "the text ends behind a backslash";
  if (piece.starts_with('"') && piece.size() > 1 && piece.ends_with('"'))
    return "a string ends with its closing quote: a blank, a comma or another mark must follow";
  if (behind.starts_with('"')) return "a quote in the middle of a word";
  return "the string is not closed";
}

std::string_view most_bytes_of(std::string_view piece) {
  if (piece.starts_with('#')) return "1023 bytes in a comment";
  return "1023 bytes in a name, 1024 in a value or a text";
}

std::vector<std::string> candidates_of(std::int32_t kind, const std::string &scope) {
  switch (kind) {
    case JT_CANDIDATES_SERVICES:
      return service_types();
    case JT_CANDIDATES_TYPES:
      return types_in(scope);
    case JT_CANDIDATES_NAMES: {
      std::vector<std::string> names;
      for (EnumeratedName &name : names_in_scope(scope)) names.push_back(std::move(name.name));
      return names;
    }
    default:
      return {};
  }
}

constexpr std::array<std::string_view, 4> kSeverities = {"error", "loss", "warning", "note"};

}  // namespace

std::string_view name_of_severity(std::int32_t severity) {
  return kSeverities[static_cast<std::size_t>(severity)];
}

bool is_free_token(const Document &document, const SourceToken &token) {
  switch (token.role) {
    case JT_ROLE_IDENTIFIER:
    case JT_ROLE_COMMENT:
    case JT_ROLE_STATUS_TEXT:
      return true;
    case JT_ROLE_VALUE: {
      const SourceElement &attribute = document.elements[document.elements[token.element].parent];
      std::size_t type = attribute.first_token;
      while (document.tokens[type].role != JT_ROLE_ATTRIBUTE_TYPE) ++type;
      return is_free_text(document.piece(document.tokens[type]));
    }
    default:
      return false;
  }
}

// ---- Where ----

const SourceToken *Describer::token_at(std::size_t offset) const {
  const std::vector<SourceToken> &tokens = document_.tokens;
  const auto behind =
      std::upper_bound(tokens.begin(), tokens.end(), offset,
                       [](std::size_t at, const SourceToken &token) { return at < token.range.begin; });
  if (behind == tokens.begin() || std::prev(behind)->range.end <= offset) return nullptr;
  return &*std::prev(behind);
}

const SourceToken *Describer::token_before(std::size_t offset) const {
  const std::vector<SourceToken> &tokens = document_.tokens;
  auto behind =
      std::upper_bound(tokens.begin(), tokens.end(), offset,
                       [](std::size_t at, const SourceToken &token) { return at < token.range.end; });
  while (behind != tokens.begin() && std::prev(behind)->is_comment()) --behind;
  return behind == tokens.begin() ? nullptr : &*std::prev(behind);
}

// ---- What ----

std::string Describer::word_for(std::string_view piece, bool is_free) const {
  if (is_redacted_ && is_free) return std::string(kRedacted);
  if (piece.size() <= kMostOfAWord) return in_ticks(printable(piece));
  return in_ticks(printable(piece.substr(0, kMostOfAWord)) + "...");
}

std::string Describer::shown(jt_range range) const {
  const SourceToken *const token = token_at(range.begin);
  // What was not read as a token may be anything.
  const bool is_free = token == nullptr || is_free_token(document_, *token);
  return word_for(document_.piece(range), is_free);
}

std::string Describer::found_in(const SourceFinding &told) const {
  return told.found_is_end || told.found.begin == told.found.end ? "the end of the text" : shown(told.found);
}

// What the range is a piece of.
std::string_view Describer::whole_token(const SourceFinding &told) const {
  const SourceToken *const token = token_at(told.range.begin);
  return document_.piece(token == nullptr ? told.range : token->range);
}

std::string Describer::expectation_of(const SourceFinding &told) const {
  std::vector<std::string> parts;
  for (const std::string &mark : words_of(told.expected)) parts.push_back(in_ticks(mark));
  for (const RoleName &row : kRoleNames)
    if ((told.expected_roles >> static_cast<unsigned>(row.role) & 1U) != 0) parts.emplace_back(row.name);
  if ((told.expected_roles >> JT_ROLE_MARKER & 1U) != 0)
    parts.emplace_back(told.code == JT_FINDING_END_MARKER ? "`/SIL`" : "`SIL`");
  return parts.empty() ? "something else" : as_choice(parts);
}

std::string Describer::value_for(std::string_view key, const SourceFinding &told) const {
  const std::string_view piece = document_.piece(told.range);
  if (key == "word") return shown(told.range);
  if (key == "found") return found_in(told);
  if (key == "expected") return expectation_of(told);
  if (key == "type") return in_ticks(told.type);
  if (key == "form") return form_of(told.type);
  if (key == "scope") return told.scope.empty() ? "the built-in list" : in_ticks(told.scope);
  if (key == "others") return services_with(std::string(piece));
  if (key == "most") return std::string(most_bytes_of(piece));
  if (key == "nearest") return whole_token(told).starts_with('-') ? "-2147483648" : "2147483647";
  if (key == "value") return in_ticks(printable(whole_token(told)));
  if (key == "string") return bad_string(piece, document_.text.substr(told.range.end));
  if (key == "unused")
    return piece.starts_with('#') ? "this comment hides nothing" : shown(told.range) + " hides nothing";
  if (key == "behind") {
    const SourceToken *const before = token_before(told.range.begin);
    if (told.range.begin != told.range.end || before == nullptr) return "";
    return " behind " + word_for(document_.piece(*before), is_free_token(document_, *before));
  }
  if (key == "end") {
    if (piece.empty() && told.expected.empty()) return "the end marker `< /SIL >` is missing";
    if (told.expected.empty() && told.expected_roles == 0)
      return "nothing may follow the end marker, found " + found_in(told);
    return "the end marker is `< /SIL >`: expected " + expectation_of(told) + ", found " + found_in(told);
  }
  const Block *const block = block_opened_by(told.second ? document_.piece(*told.second) : "");
  if (key == "block") return std::string(block->name);
  const std::vector<std::string> marks = words_of(told.expected);
  const bool may_close =
      marks.empty() || std::find(marks.begin(), marks.end(), block->closing) != marks.end();
  return may_close ? in_ticks(block->closing) : expectation_of(told);
}

std::string Describer::message_of(const SourceFinding &told) const {
  std::string message;
  std::string_view rest = kMessages[static_cast<std::size_t>(told.code)];
  for (std::size_t at = rest.find('{'); at != std::string_view::npos; at = rest.find('{')) {
    const std::size_t end = rest.find('}', at);
    message += rest.substr(0, at);
    message += value_for(rest.substr(at + 1, end - at - 1), told);
    rest.remove_prefix(end + 1);
  }
  return message.append(rest);
}

const std::vector<std::string> &Describer::suggestions_for(const SourceFinding &told) {
  std::string word(document_.piece(told.range));
  const auto [answer, is_new] = answers_.try_emplace(Question{told.candidates, told.scope, word});
  if (!is_new || told.candidates == JT_CANDIDATES_NONE) return answer->second;
  const auto [names, is_first] = candidates_.try_emplace({told.candidates, told.scope});
  if (is_first) names->second = candidates_of(told.candidates, told.scope);
  answer->second = nearest(word, names->second);
  return answer->second;
}

std::string Describer::label_of_second(const SourceFinding &told) const {
  return told.code == JT_FINDING_NAME_DUPLICATE ? "the first one is here" : "opened here";
}

Finding Describer::describe(const SourceFinding &told) {
  Finding finding;
  finding.code = told.code;
  finding.severity = told.severity;
  finding.label = {told.range, lines_.position_of(told.range.begin), message_of(told)};
  finding.suggestions = suggestions_for(told);
  if (told.second)
    finding.second = {*told.second, lines_.position_of(told.second->begin), label_of_second(told)};
  return finding;
}

// ---- Lines ----

std::string in_short(std::string_view file, const Finding &finding) {
  const Lines::Position at = finding.label.at;
  std::string line = printable(file);
  line.append(":").append(std::to_string(at.line)).append(":").append(std::to_string(at.column)).append(": ");
  line.append(name_of_severity(finding.severity)).append(": ").append(finding.label.text);
  line.append(did_you_mean(finding.suggestions));
  return line.append(" [").append(jt_finding_name(finding.code)).append("]\n");
}

std::string findings_in_short(std::string_view file, const Document &document) {
  const Lines lines(document.text);
  Describer describer(document, lines, false);
  std::string text;
  for (const SourceFinding &told : document.findings)
    if (told.severity != JT_SEVERITY_NOTE) text += in_short(file, describer.describe(told));
  return text;
}

}  // namespace sil
