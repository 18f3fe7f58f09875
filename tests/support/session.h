// A fixture that opens a session for each test and closes it afterwards, and the few questions that most
// tests ask of a session: which messages it holds, which status, how many nodes are alive.
#ifndef JT_TESTS_SUPPORT_SESSION_H
#define JT_TESTS_SUPPORT_SESSION_H

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "jt.h"

namespace jt_test {

using Messages = std::vector<std::string>;

// The recorded messages, oldest first. The status is left as it is.
inline Messages messages_of(jt_parser_space *space) {
  Messages messages;
  get_last_error(space);
  while (const char *message = get_previous_error(space)) messages.emplace_back(message);
  get_last_error(space);
  std::reverse(messages.begin(), messages.end());
  return messages;
}

// Slots of the node table that hold a node, asked through the handles that clients use. Leaves one message
// and a status behind when there are free slots, so it is asked last.
inline int live_nodes(jt_parser_space *space, int highest_bookmark = 64) {
  int live = 0;
  for (int bookmark = 0; bookmark <= highest_bookmark; ++bookmark) {
    if (opaque_to_node(space, bookmark_to_opaque(bookmark)) != nullptr) ++live;
  }
  return live;
}

struct FreeText {
  void operator()(char *text) const { er_free(text); }
};

// A text that the library handed over; released when it goes out of scope.
using OwnedText = std::unique_ptr<char, FreeText>;

// The text as a std::string, released; "(none)" for null.
inline std::string take_text(char *text) {
  const OwnedText owned(text);
  return owned ? std::string(owned.get()) : std::string("(none)");
}

class SessionTest : public ::testing::Test {
 protected:
  SessionTest() : space(jt_open_parsing_utility("test")) {}
  ~SessionTest() override { jt_close_parsing_utility(space); }
  SessionTest(const SessionTest &) = delete;
  SessionTest &operator=(const SessionTest &) = delete;

  Messages messages() { return messages_of(space); }
  int status() { return jt_last_api_error(space); }

  // A session without history, for a second act within one test.
  void reopen() {
    jt_close_parsing_utility(space);
    space = jt_open_parsing_utility("test");
  }

  std::string encoded(int32_t handle) { return take_text(jt_encode_template(space, handle)); }

  jt_parser_space *space;
};

}  // namespace jt_test

#endif
