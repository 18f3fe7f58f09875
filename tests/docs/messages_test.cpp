// The page of messages: it describes every message of the library, in the order of the library's list, and no
// other. An entry of the page is a line that begins with the text of a message as code, with what varies in
// it, and the lines below it that say when it is recorded and what to do.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "support/program.h"

namespace jt_docs {
namespace {

using Texts = std::vector<std::string>;

// As the source spells them, but for quotes.
Texts messages_of(const std::string &header) {
  static const std::regex kConstant(R"re(inline constexpr char k\w+\[\] =\s*"((?:[^"\\]|\\.)*)";)re");
  Texts messages;
  for (std::sregex_iterator at(header.begin(), header.end(), kConstant), end; at != end; ++at) {
    messages.push_back(std::regex_replace((*at)[1].str(), std::regex(R"(\\")"), "\""));
  }
  return messages;
}

Texts entries_of(const std::string &page) {
  static const std::regex kEntry(R"(`([^`]+)`( \+ .*)?)");
  Texts entries;
  for (const std::string &line : jt_test::lines_of(page)) {
    std::smatch match;
    if (std::regex_match(line, match, kEntry)) entries.push_back(match[1]);
  }
  return entries;
}

// A message whose text goes on behind what varies is two constants, one behind the other.
Texts differences(const Texts &messages, const Texts &entries) {
  Texts found;
  auto message = messages.begin();
  for (const std::string &entry : entries) {
    if (message == messages.end() || entry.find(*message) != 0) {
      found.push_back("no message in this place: " + entry);
      continue;
    }
    const std::string rest = entry.substr(message++->size());
    if (rest.empty()) continue;
    const bool goes_on = message != messages.end() && rest.size() > message->size() &&
                         rest.compare(rest.size() - message->size(), rest.npos, *message) == 0;
    if (!goes_on) found.push_back("goes on otherwise: " + entry);
    if (goes_on) ++message;
  }
  for (; message != messages.end(); ++message) found.push_back("not described: " + *message);
  return found;
}

std::string library_header() { return jt_test::read_whole(JT_SOURCE_DIR "/src/base/messages.h"); }

std::string messages_page() { return jt_test::read_whole(JT_SOURCE_DIR "/docs/messages.md"); }

std::size_t count(const std::string &text, const std::string &part) {
  std::size_t times = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++times;
  return times;
}

TEST(Messages, EveryMessageOfTheLibraryIsDescribedInItsPlace) {
  EXPECT_EQ(differences(messages_of(library_header()), entries_of(messages_page())), Texts());
}

TEST(Messages, NoMessageOfTheLibraryIsOverlooked) {
  EXPECT_GE(messages_of(library_header()).size(), 90U);
  EXPECT_EQ(messages_of(library_header()).size(), count(library_header(), "constexpr char k"));
}

TEST(Messages, EachEntrySaysWhenAndWhatToDo) {
  const std::size_t entries = entries_of(messages_page()).size();
  EXPECT_EQ(count(messages_page(), "\n: "), entries);
  EXPECT_EQ(count(messages_page(), "\n  **What to do:** "), entries);
}

TEST(Messages, ReadsConstantsInOneLineAndInTwo) {
  EXPECT_EQ(messages_of("inline constexpr char kOne[] = \"WARNING: one\\n\";\n"
                        "inline constexpr char kTwo[] =\n    \"CALL ERROR: \\\" \";\n"),
            Texts({"WARNING: one\\n", "CALL ERROR: \" "}));
}

TEST(Messages, ReadsEntriesWithAndWithoutADetail) {
  EXPECT_EQ(entries_of("`WARNING: one`\n: When `it` is.\n\n`CALL ERROR: \"` + the name\n: Then.\n"),
            Texts({"WARNING: one", "CALL ERROR: \""}));
}

TEST(Messages, WhatVariesStandsBetweenTwoConstants) {
  EXPECT_EQ(differences({"A: \"", "\" at", "B"}, {"A: \" WHAT \" at", "B"}), Texts());
  EXPECT_EQ(differences({"A: \"", "B"}, {"A: \" WHAT \" at", "B"}),
            Texts({"goes on otherwise: A: \" WHAT \" at"}));
}

TEST(Messages, AMissingDescriptionIsFound) {
  EXPECT_EQ(differences({"A", "B"}, {"A"}), Texts({"not described: B"}));
}

TEST(Messages, ADescriptionOfNoMessageIsFound) {
  EXPECT_EQ(differences({"A"}, {"A", "C"}), Texts({"no message in this place: C"}));
}

TEST(Messages, AnotherOrderIsFound) { EXPECT_FALSE(differences({"A", "B"}, {"B", "A"}).empty()); }

}  // namespace
}  // namespace jt_docs
