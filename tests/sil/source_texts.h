// Texts to check: the examples, those that are rejected, and both of them damaged by a generator whose seed is
// fixed; and what a decode of a text leaves, to compare a check with.
#ifndef JT_TESTS_SIL_SOURCE_TEXTS_H
#define JT_TESTS_SIL_SOURCE_TEXTS_H

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "support/session.h"
#include "support/source.h"

namespace jt_test {

// By their path below examples/.
inline std::map<std::string, std::string> example_texts(const std::string &below) {
  const std::filesystem::path folder = std::filesystem::path(JT_SOURCE_DIR) / "examples" / below;
  std::map<std::string, std::string> texts;
  for (const auto &entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() != ".sil") continue;
    std::ifstream file(entry.path(), std::ios::binary);
    texts[below + entry.path().filename().string()] = {std::istreambuf_iterator<char>(file), {}};
  }
  return texts;
}

inline std::map<std::string, std::string> decodable_examples() { return example_texts(""); }
inline std::map<std::string, std::string> rejected_examples() { return example_texts("rejected/"); }

// What a call says about a text, in a session of its own.
struct Verdict {
  bool succeeds;
  int32_t status;
  Messages messages;
  std::string written;  // of the tree, where there is one

  bool operator==(const Verdict &) const = default;
};

class OwnSession {
 public:
  OwnSession() : space(jt_open_parsing_utility("own")) {}
  ~OwnSession() { jt_close_parsing_utility(space); }
  OwnSession(const OwnSession &) = delete;
  OwnSession &operator=(const OwnSession &) = delete;

  Verdict verdict(int32_t handle, bool is_tree = true) const {
    const int32_t status = jt_last_api_error(space);
    Verdict found = {handle != 0, status, messages_of(space), {}};
    if (handle != 0 && is_tree) found.written = take_text(jt_encode_template(space, handle));
    return found;
  }

  jt_parser_space *const space;
};

inline Verdict decoded_template(const std::string &text) {
  const OwnSession session;
  return session.verdict(jt_decode_template(session.space, text.c_str()));
}

inline Verdict decoded_source(std::string_view text, const jt_listener *listener) {
  const OwnSession session;
  return session.verdict(jt_decode_source(session.space, text.data(), text.size(), nullptr, listener));
}

inline Verdict checked_source(std::string_view text, const jt_listener *listener) {
  const OwnSession session;
  return session.verdict(jt_check_source(session.space, text.data(), text.size(), nullptr, listener), false);
}

// The findings of a check, as lines.
inline Lines findings_in(std::string_view text) {
  const Ear ear(Ear::For::kFindings);
  checked_source(text, ear.listener());
  return ear.finding_lines();
}

// The tokens of a text that decodes, comments included, in their order.
inline std::vector<Told> tokens_in(std::string_view text) {
  Ear ear;
  checked_source(text, ear.listener());
  return ear.tokens;
}

// Damages texts, the same ones in every run.
class Damage {
 public:
  explicit Damage(std::uint32_t seed) : random_(seed) {}

  std::size_t below(std::size_t limit) { return limit > 0 ? random_() % limit : 0; }

  // One to three changes, each of a byte or of a piece.
  std::string to(std::string text) {
    for (std::size_t left = 1 + below(3); left > 0; --left) change(text);
    return text;
  }

 private:
  void change(std::string &text) {
    static constexpr std::string_view kBytes = "\"\\#[]{}()<>=,;*!?|/ ex0\n\r\b\x01\x80\xff\xef";
    static const std::array<std::string, 22> kPieces = {
        "end",     "[",   "]",  "{",     "}",  "(",    ")", "<", ">", "< /SIL >",    "<?",
        "integer", "a b", "\"", "\"x\"", "\n", "#c\n", "*", ";", ",", "[service X]", " = 1;"};
    const std::size_t at = below(text.size() + 1);
    const std::size_t length = below(12);
    switch (below(7)) {
      case 0:
        text.erase(at, 1);
        break;
      case 1:
        text.erase(at, length);
        break;
      case 2:
        text.insert(at, 1, kBytes[below(kBytes.size())]);
        break;
      case 3:
        if (at < text.size()) text[at] = kBytes[below(kBytes.size())];
        break;
      case 4:
        text.insert(at, kPieces[below(kPieces.size())]);
        break;
      case 5:
        text.insert(at, text.substr(below(text.size() + 1), length * 3));
        break;
      default:
        if (below(8) == 0) text.resize(at);
    }
  }

  std::mt19937 random_;
};

}  // namespace jt_test

#endif
