// The page of messages: what src/base/messages.h has, in its order, with what docs/messages.txt says
// about each. Both must have the same messages.
//
// messages.txt is made of entries, separated by empty lines. The first line of an entry names the constant,
// or the constants that stand around something that varies, and behind a "+" what the detail is. The lines
// "when" and "do" say when it is recorded and what to do; lines that begin with a blank go on.
#ifndef JT_DOCS_GENERATOR_MESSAGES_H
#define JT_DOCS_GENERATOR_MESSAGES_H

#include <string>
#include <vector>

namespace jt_docs {

struct Message {
  std::string constant;
  std::string text;
  std::string chapter;
};

// The constants of the header's text, in its order.
std::vector<Message> parse_header(const std::string &header);

struct Entry {
  std::vector<std::string> words;  // constants, and between them what varies
  std::string detail;
  std::string when;
  std::string advice;
};

std::vector<Entry> parse_entries(const std::string &text);

// What is wrong between the two, line by line: missing, unknown, twice, out of order or incomplete.
std::vector<std::string> differences(const std::vector<Message> &messages, const std::vector<Entry> &entries);

// The page in Markdown, of entries without differences.
std::string write_messages(const std::vector<Message> &messages, const std::vector<Entry> &entries);

}  // namespace jt_docs

#endif
