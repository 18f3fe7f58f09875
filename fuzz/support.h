// What the fuzzers share: a condition that must hold, a text without a byte to spare behind it, a session,
// and what every session must be able to say about itself at any time.
#ifndef JT_FUZZ_SUPPORT_H
#define JT_FUZZ_SUPPORT_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jt.h"

namespace jt_fuzz {

// Stops the fuzzer, which keeps the input, when the condition does not hold.
void check(bool condition, const char *what, std::string_view detail = {});

// A block of the heap that ends with the text's NUL: the sanitizer sees every byte read behind it.
class TightText {
 public:
  explicit TightText(std::string_view text);
  char *get() const { return bytes_.get(); }
  bool holds(std::string_view text) const;

 private:
  std::unique_ptr<char[]> bytes_;
  std::size_t size_;
};

struct FreeText {
  void operator()(char *text) const { er_free(text); }
};
using OwnedText = std::unique_ptr<char, FreeText>;

using Messages = std::vector<std::string>;

// Opened and closed with the object.
class Session {
 public:
  Session() : space(jt_open_parsing_utility("fuzz")) { check(space != nullptr, "a session opens"); }
  ~Session() { jt_close_parsing_utility(space); }
  Session(const Session &) = delete;
  Session &operator=(const Session &) = delete;

  // Newest first; each of them terminated in its room. Leaves the status alone.
  Messages messages() const;

  // The status of a call that made the newest message, or none at all.
  void check_status() const;

  // No slot holds a node.
  bool is_empty() const;

  jt_parser_space *const space;
};

}  // namespace jt_fuzz

#endif
