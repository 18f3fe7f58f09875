// The page of messages: it describes every message of the library, and no other.
#include "messages.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program.h"

namespace jt_docs {
namespace {

using Texts = std::vector<std::string>;

const std::string kRoot = JT_SOURCE_DIR "/";

constexpr char kHeader[] =
    "// ---- First ----\n"
    "inline constexpr char kOne[] = \"WARNING: one\";\n"
    "inline constexpr char kTwo[] =\n"
    "    \"CALL ERROR: \\\" \";\n"
    "// ---- Second ----\n"
    "inline constexpr char kThree[] = \" \\\" three\\n\";\n";

constexpr char kEntries[] =
    "kOne + the name\n"
    "when Something\n"
    "  happens.\n"
    "do   Nothing.\n"
    "\n"
    "kTwo WHAT kThree\n"
    "when Never.\n"
    "do   Wait.\n";

Texts differences_of(const std::string &entries) {
  return differences(parse_header(kHeader), parse_entries(entries));
}

TEST(Messages, EveryMessageOfTheLibraryIsDescribedInItsPlace) {
  const auto messages = parse_header(jt_test::read_whole(kRoot + "src/base/messages.h"));
  const auto entries = parse_entries(jt_test::read_whole(kRoot + "docs/messages.txt"));
  EXPECT_EQ(differences(messages, entries), Texts());
}

TEST(Messages, NoMessageOfTheLibraryIsOverlooked) {
  const std::string header = jt_test::read_whole(kRoot + "src/base/messages.h");
  std::size_t constants = 0;
  for (std::size_t at = header.find("constexpr char k"); at != std::string::npos;
       at = header.find("constexpr char k", at + 1)) {
    ++constants;
  }
  EXPECT_GE(constants, 90U);
  EXPECT_EQ(parse_header(header).size(), constants);
}

TEST(Messages, ReadsConstantsTextsAndChapters) {
  const std::vector<Message> messages = parse_header(kHeader);
  ASSERT_EQ(messages.size(), 3U);
  EXPECT_EQ(messages[1].constant, "kTwo");
  EXPECT_EQ(messages[1].text, "CALL ERROR: \\\" ");
  EXPECT_EQ(messages[1].chapter, "First");
  EXPECT_EQ(messages[2].chapter, "Second");
}

TEST(Messages, ReadsEntriesOverSeveralLines) {
  const std::vector<Entry> entries = parse_entries(kEntries);
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0].detail, "the name");
  EXPECT_EQ(entries[0].when, "Something happens.");
  EXPECT_EQ(entries[0].advice, "Nothing.");
  EXPECT_EQ(entries[1].words, Texts({"kTwo", "WHAT", "kThree"}));
}

TEST(Messages, AMatchingDescriptionHasNoDifferences) { EXPECT_EQ(differences_of(kEntries), Texts()); }

TEST(Messages, AMissingDescriptionIsFound) {
  EXPECT_EQ(differences_of("kTwo WHAT kThree\nwhen Never.\ndo Wait.\n"), Texts({"not described: kOne"}));
}

TEST(Messages, ADescriptionOfNoMessageIsFound) {
  EXPECT_EQ(differences_of(std::string(kEntries) + "\nkFour\nwhen Never.\ndo Wait.\n"),
            Texts({"no such message: kFour"}));
}

TEST(Messages, ADescriptionThatComesTwiceIsFound) {
  EXPECT_EQ(differences_of(std::string(kEntries) + "\nkOne\nwhen Never.\ndo Wait.\n"),
            Texts({"twice: kOne", "twice: kOne"}));
}

TEST(Messages, AnIncompleteDescriptionIsFound) {
  EXPECT_EQ(differences_of("kOne\nwhen Never.\n\nkTwo kThree\nwhen Never.\ndo Wait.\n"),
            Texts({"incomplete: kOne"}));
}

TEST(Messages, AnotherOrderIsFound) {
  EXPECT_EQ(differences_of("kTwo kThree\nwhen Never.\ndo Wait.\n\nkOne\nwhen Never.\ndo Wait.\n"),
            Texts({"not in the order of the header"}));
}

TEST(Messages, ThePageShowsTheTextsAsAClientSeesThem) {
  EXPECT_EQ(write_messages(parse_header(kHeader), parse_entries(kEntries)),
            "## First\n\n"
            "<dl class=\"messages\">\n"
            "<dt>``WARNING: one`` + <em>the name</em></dt>\n"
            "<dd>Something happens. <em>What to do:</em> Nothing.</dd>\n"
            "<dt>``CALL ERROR: \" WHAT \" three\\n``</dt>\n"
            "<dd>Never. <em>What to do:</em> Wait.</dd>\n"
            "</dl>\n");
}

}  // namespace
}  // namespace jt_docs
