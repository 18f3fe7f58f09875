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

const Block &block_opened_by(std::string_view opening) {
  const auto *const row = std::find_if(kBlocks.begin(), kBlocks.end(), [&](const Block &block) {
    return !opening.empty() && opening[0] == block.opening;
  });
  // An invocation may begin with its name.
  return row == kBlocks.end() ? kBlocks[1] : *row;
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

// ---- Where ----

const SourceToken *token_at(const Document &document, std::size_t offset) {
  const std::vector<SourceToken> &tokens = document.tokens;
  const auto behind =
      std::upper_bound(tokens.begin(), tokens.end(), offset,
                       [](std::size_t at, const SourceToken &token) { return at < token.range.begin; });
  if (behind == tokens.begin() || std::prev(behind)->range.end <= offset) return nullptr;
  return &*std::prev(behind);
}

// The last one that ends there or before and is no comment.
const SourceToken *token_before(const Document &document, std::size_t offset) {
  const std::vector<SourceToken> &tokens = document.tokens;
  auto behind =
      std::upper_bound(tokens.begin(), tokens.end(), offset,
                       [](std::size_t at, const SourceToken &token) { return at < token.range.end; });
  while (behind != tokens.begin() && std::prev(behind)->is_comment()) --behind;
  return behind == tokens.begin() ? nullptr : &*std::prev(behind);
}

// ---- What is put into messages ----

struct Context {
  const Document &document;
  const SourceFinding &told;
  bool is_redacted;

  std::string_view piece() const { return document.piece(told.range); }
  bool is_missing() const { return told.range.begin == told.range.end; }
};

std::string word_for(const Context &in, std::string_view piece, bool is_free) {
  if (in.is_redacted && is_free) return std::string(kRedacted);
  if (piece.size() <= kMostOfAWord) return in_ticks(printable(piece));
  return in_ticks(printable(piece.substr(0, kMostOfAWord)) + "...");
}

// What was not read as a token may be anything.
std::string shown(const Context &in, jt_range range) {
  const SourceToken *const token = token_at(in.document, range.begin);
  return word_for(in, in.document.piece(range), token == nullptr || is_free_token(in.document, *token));
}

std::string_view whole_token(const Context &in) {
  const SourceToken *const token = token_at(in.document, in.told.range.begin);
  return in.document.piece(token == nullptr ? in.told.range : token->range);
}

std::string word(const Context &in) { return shown(in, in.told.range); }

std::string value(const Context &in) { return in_ticks(printable(whole_token(in))); }

std::string found(const Context &in) {
  const bool is_end = in.told.found_is_end || in.told.found.begin == in.told.found.end;
  return is_end ? "the end of the text" : shown(in, in.told.found);
}

std::string expected(const Context &in) {
  std::vector<std::string> parts;
  for (const std::string &mark : words_of(in.told.expected)) parts.push_back(in_ticks(mark));
  const auto has_role = [&](std::int32_t role) {
    return (in.told.expected_roles >> static_cast<unsigned>(role) & 1U) != 0;
  };
  for (const RoleName &row : kRoleNames)
    if (has_role(row.role)) parts.emplace_back(row.name);
  if (has_role(JT_ROLE_MARKER))
    parts.emplace_back(in.told.code == JT_FINDING_END_MARKER ? "`/SIL`" : "`SIL`");
  return parts.empty() ? "something else" : as_choice(parts);
}

std::string behind(const Context &in) {
  const SourceToken *const before = token_before(in.document, in.told.range.begin);
  if (!in.is_missing() || before == nullptr) return "";
  return " behind " + word_for(in, in.document.piece(*before), is_free_token(in.document, *before));
}

std::string type(const Context &in) { return in_ticks(in.told.type); }

std::string form(const Context &in) { return form_of(in.told.type); }

std::string scope(const Context &in) {
  return in.told.scope.empty() ? "the built-in list" : in_ticks(in.told.scope);
}

std::string others(const Context &in) { return services_with(std::string(in.piece())); }

std::string most(const Context &in) { return std::string(most_bytes_of(in.piece())); }

std::string nearest_integer(const Context &in) {
  return whole_token(in).starts_with('-') ? "-2147483648" : "2147483647";
}

std::string wrong_string(const Context &in) {
  return bad_string(in.piece(), in.document.text.substr(in.told.range.end));
}

std::string unused(const Context &in) {
  return (in.piece().starts_with('#') ? "this comment" : word(in)) + " hides nothing";
}

std::string wrong_end(const Context &in) {
  if (in.is_missing() && in.told.expected.empty()) return "the end marker `< /SIL >` is missing";
  const bool is_nothing_expected = in.told.expected.empty() && in.told.expected_roles == 0;
  if (is_nothing_expected) return "nothing may follow the end marker, found " + found(in);
  return "the end marker is `< /SIL >`: expected " + expected(in) + ", found " + found(in);
}

const Block &open_block(const Context &in) {
  return block_opened_by(in.told.second ? in.document.piece(*in.told.second) : "");
}

std::string block(const Context &in) { return std::string(open_block(in).name); }

// The mark that closes the block, unless something else is missing before.
std::string closing(const Context &in) {
  const std::string_view mark = open_block(in).closing;
  const std::vector<std::string> marks = words_of(in.told.expected);
  const bool may_close = marks.empty() || std::find(marks.begin(), marks.end(), mark) != marks.end();
  return may_close ? in_ticks(mark) : expected(in);
}

struct Placeholder {
  std::string_view key;
  std::string (*text)(const Context &);
};
constexpr std::array kPlaceholders = {
    Placeholder{"word", word},
    Placeholder{"value", value},
    Placeholder{"found", found},
    Placeholder{"expected", expected},
    Placeholder{"behind", behind},
    Placeholder{"type", type},
    Placeholder{"form", form},
    Placeholder{"scope", scope},
    Placeholder{"others", others},
    Placeholder{"most", most},
    Placeholder{"nearest", nearest_integer},
    Placeholder{"string", wrong_string},
    Placeholder{"unused", unused},
    Placeholder{"end", wrong_end},
    Placeholder{"block", block},
    Placeholder{"closing", closing},
};

std::string text_for(std::string_view key, const Context &in) {
  return std::find_if(kPlaceholders.begin(), kPlaceholders.end(),
                      [key](const Placeholder &row) { return row.key == key; })
      ->text(in);
}

std::string message_of(const Context &in) {
  std::string message;
  std::string_view rest = kMessages[static_cast<std::size_t>(in.told.code)];
  for (std::size_t at = rest.find('{'); at != std::string_view::npos; at = rest.find('{')) {
    const std::size_t end = rest.find('}', at);
    message += rest.substr(0, at);
    message += text_for(rest.substr(at + 1, end - at - 1), in);
    rest.remove_prefix(end + 1);
  }
  return message.append(rest);
}

std::string label_of_second(const SourceFinding &told) {
  return told.code == JT_FINDING_NAME_DUPLICATE ? "the first one is here" : "opened here";
}

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

const std::vector<std::string> &Describer::suggestions_for(const SourceFinding &told) {
  static const std::vector<std::string> kNothing;
  if (told.candidates == JT_CANDIDATES_NONE) return kNothing;
  const std::string word(document_.piece(told.range));
  const auto [answer, is_new] = answers_.try_emplace(Question{told.candidates, told.scope, word});
  if (!is_new) return answer->second;
  const auto [names, is_first] = candidates_.try_emplace({told.candidates, told.scope});
  if (is_first) names->second = candidates_of(told.candidates, told.scope);
  answer->second = nearest(word, names->second);
  return answer->second;
}

Finding Describer::describe(const SourceFinding &told) {
  Finding finding;
  finding.code = told.code;
  finding.severity = told.severity;
  finding.label = {told.range, lines_.position_of(told.range.begin),
                   message_of({document_, told, is_redacted_})};
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
