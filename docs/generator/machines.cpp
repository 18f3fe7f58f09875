#include "machines.h"

#include <algorithm>
#include <cstring>
#include <regex>
#include <set>
#include <utility>

#include "base/messages.h"
#include "tree/node.h"

namespace jt_docs {

using jt_core::State;
using jt_core::TokenKind;

constexpr std::array<Drawing, 6> kDrawings = {{
    {"header", &jt_core::kHeaderMachine, State::kHeaderBegin},
    {"header_attributes", &jt_core::kHeaderAttributesMachine, State::kInInvocation},
    {"section", &jt_core::kSectionOpeningMachine, State::kSectionBegin},
    {"section_end", &jt_core::kSectionClosingMachine, State::kSectionFilled},
    {"body", &jt_core::kBodyMachine, State::kBetweenServices},
    {"end_marker", &jt_core::kEndMarkerMachine, State::kMarkerBegin},
}};

namespace {

// ---- Names ------------------------------------------------------------------------------------------------

// The compiler knows the enumerator by its name.
template <State state>
std::string_view enumerator() {
  const std::string_view signature = __PRETTY_FUNCTION__;
  const std::size_t begin = signature.find("State::k") + std::string_view("State::k").size();
  return signature.substr(begin, signature.find_first_of(";]", begin) - begin);
}

template <std::size_t... numbers>
auto enumerators(std::index_sequence<numbers...> /*all*/) {
  return std::array{enumerator<static_cast<State>(numbers)>()...};
}

std::string_view enumerator_of(State state) {
  static const auto kNames = enumerators(std::make_index_sequence<jt_core::kStateCount + 1>());
  return kNames[static_cast<std::size_t>(state)];
}

// ---- Tokens -----------------------------------------------------------------------------------------------

// Punctuation is what the lexer makes of its characters.
std::array<std::string, jt_core::kTokenKinds> make_token_names() {
  std::array<std::string, jt_core::kTokenKinds> names;
  const auto name = [&names](TokenKind kind) -> std::string & {
    return names[static_cast<std::size_t>(kind)];
  };
  for (const char *text : {"[", "]", "{", "}", "(", ")", "<", ">", "=", ",",
                           ";", "*", "!", "$", "%", "&", "^", "?", "|", "||"}) {
    jt_core::SilCursor cursor;
    cursor.position = cursor.mark = cursor.begin = text;
    name(jt_core::next_token(nullptr, cursor).kind) = text;
  }
  name(TokenKind::kWord) = "word";
  name(TokenKind::kString) = "string";
  name(TokenKind::kEnd) = "end";
  return names;
}

// Kinds that have a name are those that a row can be about.
std::vector<std::string> named_tokens(jt_core::TokenSet set) {
  static const auto kNames = make_token_names();
  std::vector<std::string> tokens;
  for (std::size_t kind = 0; kind < jt_core::kTokenKinds; ++kind) {
    if (jt_core::contains(set, static_cast<TokenKind>(kind)) && !kNames[kind].empty()) {
      tokens.push_back(kNames[kind]);
    }
  }
  return tokens;
}

std::string joined(const std::vector<std::string> &words) {
  std::string text;
  for (const std::string &word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

// By role, in the order of the enumeration; punctuation says itself what it is.
constexpr auto kRoleNames = std::to_array<std::string_view>(
    {"", "mark", "version", "encoding", "identifier", "type of service", "name of service",
     "name of invocation", "", "type", "name", "value", "status", "text", "comment", "", "read again"});
static_assert(kRoleNames.size() == static_cast<std::size_t>(jt_core::Role::kNextStage) + 1);

// ---- What a state says ------------------------------------------------------------------------------------

// A decoder before an empty text, over a root that is its own parent: enough to ask a machine about a state.
class Question {
 public:
  explicit Question(bool with_header) : space_(create_parser_space("docs")) {
    root_.parent = &root_;
    root_.previous_sibling = with_header ? &header_ : nullptr;
    decoder_.space = space_;
    decoder_.cursor.position = decoder_.cursor.mark = decoder_.cursor.begin = "";
    decoder_.root = decoder_.top = &root_;
  }
  ~Question() { delete_parser_space(space_); }
  Question(const Question &) = delete;
  Question &operator=(const Question &) = delete;

  bool may_end(const jt_core::Machine &machine, State state) {
    return machine.at_end != nullptr && machine.at_end(decoder_, state);
  }

  std::string report_of(const jt_core::Machine &machine, State state) {
    machine.report(decoder_, {TokenKind::kError, {}}, state);
    return get_last_error(space_);
  }

 private:
  jt_parser_space *space_;
  jt_node root_{};
  jt_node header_{};
  jt_core::Decoder decoder_{};
};

// The varying part of the usual report, in its quotes, or all of another one.
std::string expectation(const jt_core::Machine &machine, State state) {
  const std::string report = Question(false).report_of(machine, state);
  const std::size_t begin = report.find(jt_core::message::kExpectedBegin);
  const std::size_t end = report.find(jt_core::message::kExpectedEnd);
  if (begin == 0 && end != std::string::npos) {
    const std::size_t skipped = std::string_view(jt_core::message::kExpectedBegin).size();
    return "\"" + report.substr(skipped, end - skipped) + "\"";
  }
  return report.substr(0, report.rfind(" ..."));
}

std::string_view ending(const jt_core::Machine &machine, State state) {
  if (Question(true).may_end(machine, state)) return "may end here";
  return Question(false).may_end(machine, state) ? "may end here, without a header" : "";
}

// ---- The picture ------------------------------------------------------------------------------------------

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == ' ')
      result += "&#160;";
    else if (std::strchr("&<>]", c) != nullptr)
      result += "&#" + std::to_string(c) + ";";
    else
      result += c;
  }
  return result;
}

std::string small(std::string_view text, std::string_view color) {
  if (text.empty()) return {};
  return "<br/><font point-size=\"9\" color=\"" + std::string(color) + "\">" + escaped(text) + "</font>";
}

// A machine that reports every wrong token alike need not say so in every state.
bool always_reports_the_same(const jt_core::Machine &machine, const std::set<State> &states) {
  std::set<std::string> expectations;
  for (const State state : states) {
    if (state != State::kFinished) expectations.insert(expectation(machine, state));
  }
  return expectations.size() == 1;
}

std::string node_line(const jt_core::Machine &machine, State state, bool with_expectation) {
  const std::string id(enumerator_of(state));
  if (state == State::kFinished)
    return "  " + id + " [shape=doublecircle, label=\"\", width=0.16, height=0.16];\n";
  const std::string_view end = ending(machine, state);
  return "  " + id + " [" + (end.empty() ? "" : "peripheries=2, ") + "label=<<b>" + escaped(name_of(state)) +
         "</b>" + small(with_expectation ? expectation(machine, state) : "", "#555555") +
         small(end, "#1f5f3f") + ">];\n";
}

// The end of a status leads far back; a stand-in beside it keeps the picture free of long arrows.
bool leads_back(const jt_core::Row &row) {
  return row.tokens == jt_core::one_of(TokenKind::kCloseParenthesis);
}

std::string edge_line(const jt_core::Row &row) {
  return "  " + std::string(enumerator_of(row.from)) + " -> " + std::string(enumerator_of(row.to)) +
         (leads_back(row) ? "Again" : "") + " [label=<<b>" + escaped(tokens_of(row)) + "</b>" +
         small(meaning_of(row), "#1f3f7f") + ">];\n";
}

}  // namespace

std::vector<jt_core::Row> rows_of(const jt_core::Machine &machine) {
  const jt_core::Row *end = machine.rows;
  while (end->from != State::kFinished) ++end;
  return {machine.rows, end};
}

std::string name_of(State state) {
  std::string name;
  for (const char c : enumerator_of(state)) {
    const bool capital = c >= 'A' && c <= 'Z';
    if (capital && !name.empty()) name += ' ';
    name += capital ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return name;
}

std::string tokens_of(const jt_core::Row &row) {
  const std::vector<std::string> others = named_tokens(~row.tokens);
  if (others.empty()) return "any";
  return others.size() <= 2 ? "any but " + joined(others) : joined(named_tokens(row.tokens));
}

std::string_view meaning_of(const jt_core::Row &row) {
  return kRoleNames[static_cast<std::size_t>(row.role)];
}

std::string draw(const Drawing &drawing) {
  const std::vector<jt_core::Row> rows = rows_of(*drawing.machine);
  std::set<State> states;
  std::set<State> stand_ins;
  for (const jt_core::Row &row : rows) {
    states.insert({row.from, row.to});
    if (leads_back(row)) stand_ins.insert(row.to);
  }
  std::string text =
      "digraph " + std::string(drawing.name) +
      " {\n"
      "  begin [shape=circle, label=\"\", width=0.14, height=0.14, fillcolor=\"#5b6b8c\"];\n  begin -> " +
      std::string(enumerator_of(drawing.begin)) + ";\n";
  const bool with_expectation = !always_reports_the_same(*drawing.machine, states);
  for (const State state : states) text += node_line(*drawing.machine, state, with_expectation);
  for (const State state : stand_ins) {
    text += "  " + std::string(enumerator_of(state)) +
            "Again [style=\"rounded,dashed\", fillcolor=none, label=\"" + name_of(state) + "\"];\n";
  }
  for (const jt_core::Row &row : rows) text += edge_line(row);
  return text + "}\n";
}

std::string tabulate(const Drawing &drawing) {
  std::string text = "| in the state | token | it is | next state |\n|---|---|---|---|\n";
  for (const jt_core::Row &row : rows_of(*drawing.machine)) {
    const std::string tokens = std::regex_replace(tokens_of(row), std::regex(R"(([|*<>\[\]]))"), R"(\$1)");
    const std::string to = row.to == State::kFinished ? "the end of the stage" : name_of(row.to);
    text += "| " + name_of(row.from) + " | " + tokens + " | " + std::string(meaning_of(row)) + " | " + to +
            " |\n";
  }
  return text;
}

}  // namespace jt_docs
