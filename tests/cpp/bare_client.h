// What the client without exceptions does for its test.
#ifndef JT_TESTS_CPP_BARE_CLIENT_H
#define JT_TESTS_CPP_BARE_CLIENT_H

#include <string_view>

namespace jt_test {

// The sum of the values "Copies" in all invocations; -1 when the text is refused.
int copies_of(const char *text);

// The same in a session whose memory is a fixed one.
int copies_in_a_pool(const char *text);

// How many errors a listener hears of in a text.
int errors_in(std::string_view text);

}  // namespace jt_test

#endif
