#include "messages.h"

#include <algorithm>
#include <iterator>
#include <regex>
#include <sstream>

namespace jt_docs {
namespace {

std::vector<std::string> words_of(const std::string &line) {
  std::istringstream stream(line);
  return {std::istream_iterator<std::string>(stream), {}};
}

bool is_constant(const std::string &word) { return word.size() > 1 && word[0] == 'k'; }

const Message *find_message(const std::vector<Message> &messages, const std::string &constant) {
  const auto found = std::find_if(messages.begin(), messages.end(),
                                  [&](const Message &message) { return message.constant == constant; });
  return found != messages.end() ? &*found : nullptr;
}

// The texts of constants as a client sees them, but for line feeds; what varies between them as it is.
std::string shown_text(const std::vector<Message> &messages, const Entry &entry) {
  std::string text;
  for (const std::string &word : entry.words) {
    const Message *const message = find_message(messages, word);
    text += message != nullptr ? std::regex_replace(message->text, std::regex(R"(\\")"), "\"") : word;
  }
  return text;
}

void add_field(Entry &entry, std::string *&field, const std::string &line) {
  const std::size_t blank = line.find(' ');
  const std::string key = line.substr(0, blank);
  if (key == "when") field = &entry.when;
  if (key == "do") field = &entry.advice;
  if (field != nullptr)
    *field += (field->empty() ? "" : " ") + line.substr(line.find_first_not_of(' ', blank));
}

Entry parse_entry(const std::vector<std::string> &lines) {
  Entry entry;
  const std::size_t plus = lines[0].find(" + ");
  entry.words = words_of(lines[0].substr(0, plus));
  if (plus != std::string::npos) entry.detail = lines[0].substr(plus + 3);
  std::string *field = nullptr;
  for (std::size_t i = 1; i < lines.size(); ++i) add_field(entry, field, lines[i]);
  return entry;
}

}  // namespace

std::vector<Message> parse_header(const std::string &header) {
  static const std::regex kLine(
      R"re(// ---- ([^\n]*) ----|inline constexpr char (k\w+)\[\] =\s*"((?:[^"\\]|\\.)*)";)re");
  std::vector<Message> messages;
  std::string chapter;
  for (std::sregex_iterator at(header.begin(), header.end(), kLine), end; at != end; ++at) {
    if ((*at)[1].matched) {
      chapter = (*at)[1];
    } else {
      messages.push_back({(*at)[2], (*at)[3], chapter});
    }
  }
  return messages;
}

std::vector<Entry> parse_entries(const std::string &text) {
  std::vector<Entry> entries;
  std::vector<std::string> lines;
  std::istringstream stream(text + "\n\n");
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty()) {
      lines.push_back(line);
    } else if (!lines.empty()) {
      entries.push_back(parse_entry(lines));
      lines.clear();
    }
  }
  return entries;
}

std::vector<std::string> differences(const std::vector<Message> &messages,
                                     const std::vector<Entry> &entries) {
  std::vector<std::string> found;
  std::vector<std::string> described;
  for (const Entry &entry : entries) {
    if (entry.when.empty() || entry.advice.empty()) found.push_back("incomplete: " + entry.words[0]);
    std::copy_if(entry.words.begin(), entry.words.end(), std::back_inserter(described), is_constant);
  }
  for (const std::string &constant : described) {
    if (find_message(messages, constant) == nullptr) found.push_back("no such message: " + constant);
    if (std::count(described.begin(), described.end(), constant) > 1) found.push_back("twice: " + constant);
  }
  for (const Message &message : messages) {
    const bool missing = std::find(described.begin(), described.end(), message.constant) == described.end();
    if (missing) found.push_back("not described: " + message.constant);
  }
  const bool same_order = std::equal(
      messages.begin(), messages.end(), described.begin(), described.end(),
      [](const Message &message, const std::string &constant) { return message.constant == constant; });
  if (found.empty() && !same_order) found.emplace_back("not in the order of the header");
  return found;
}

std::string write_messages(const std::vector<Message> &messages, const std::vector<Entry> &entries) {
  std::string text;
  std::string chapter;
  for (const Entry &entry : entries) {
    const Message &first = *find_message(messages, entry.words[0]);
    if (first.chapter != chapter) {
      text +=
          (chapter.empty() ? "" : "</dl>\n\n") + ("## " + first.chapter + "\n\n<dl class=\"messages\">\n");
      chapter = first.chapter;
    }
    text += "<dt>``" + shown_text(messages, entry) + "``" +
            (entry.detail.empty() ? "" : " + <em>" + entry.detail + "</em>") + "</dt>\n<dd>" + entry.when +
            " <em>What to do:</em> " + entry.advice + "</dd>\n";
  }
  return text + "</dl>\n";
}

}  // namespace jt_docs
