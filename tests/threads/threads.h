// Threads that begin at the same moment, so that what they do overlaps. Each is new, so its first encoding
// begins at column 0.
#ifndef JT_TESTS_THREADS_THREADS_H
#define JT_TESTS_THREADS_THREADS_H

#include <latch>
#include <string>
#include <thread>
#include <vector>

#include "jt.h"
#include "support/session.h"

namespace jt_test {

template <typename... Acts>
void at_once(Acts... acts) {
  std::latch start(sizeof...(acts));
  const auto begin = [&start](auto act) {
    return std::thread([&start, act] {
      start.arrive_and_wait();
      act();
    });
  };
  std::thread threads[] = {begin(acts)...};
  for (std::thread &thread : threads) thread.join();
}

template <typename Act>
void on_a_thread(Act act) {
  at_once(act);
}

// A session of its own for a scope on any thread.
class Session {
 public:
  explicit Session(const char *label = "thread") : space_(jt_open_parsing_utility(label)) {}
  ~Session() { jt_close_parsing_utility(space_); }
  Session(const Session &) = delete;
  Session &operator=(const Session &) = delete;

  operator jt_parser_space *() const { return space_; }

 private:
  jt_parser_space *space_;
};

}  // namespace jt_test

#endif
