// Types of the tests' own, for what no type of the tables does: operations that are missing, operations that
// give nothing, and a count of how often values are made and released.
#ifndef JT_TESTS_TREE_ODD_TYPES_H
#define JT_TESTS_TREE_ODD_TYPES_H

#include <cstring>
#include <string>

#include "jt.h"

namespace jt_test {

struct OddCalls {
  int made;      // by eval and copy
  int released;  // by kill
  jt_parser_space *space;
};

inline OddCalls odd_calls{};

inline jt_value *new_odd_value(jt_parser_space *space, const char *text) {
  const std::size_t bytes = std::strlen(text) + 1;
  void *const block = my_calloc(space, bytes, 1);
  std::memcpy(block, text, bytes);
  ++odd_calls.made;
  odd_calls.space = space;
  return static_cast<jt_value *>(block);
}

inline const char *odd_text(const jt_value *value) { return reinterpret_cast<const char *>(value); }

inline bool odd_is(const jt_value *value, const char *text) {
  return std::strcmp(odd_text(value), text) == 0;
}

// Cuts its text, like some types of the tables do.
inline jt_value *eval_odd(jt_parser_space *space, char *text) {
  if (text == nullptr || std::strcmp(text, "refused") == 0) return nullptr;
  jt_value *const value = new_odd_value(space, text);
  *text = '\0';
  return value;
}

inline jt_value *copy_odd(jt_parser_space *space, const jt_value *value) {
  return odd_is(value, "uncopyable") ? nullptr : new_odd_value(space, odd_text(value));
}

inline char *deval_odd(jt_parser_space *space, const jt_value *value) {
  if (odd_is(value, "unspeakable")) return nullptr;
  const std::string text = "<" + std::string(odd_text(value)) + ">";
  return static_cast<char *>(std::memcpy(my_calloc(space, text.size() + 1, 1), text.c_str(), text.size()));
}

inline int32_t cmp_odd(jt_parser_space * /*space*/, const jt_value *a, const jt_value *b) {
  return std::strcmp(odd_text(a), odd_text(b)) == 0 ? 0 : -2;
}

inline int32_t kill_odd(jt_parser_space * /*space*/, jt_value *value) {
  ++odd_calls.released;
  return er_free(value);
}

// A value that needs no release.
inline jt_value *eval_static(jt_parser_space * /*space*/, char * /*text*/) {
  static char text[] = "static";
  return reinterpret_cast<jt_value *>(text);
}

inline constexpr jt_type kOdd = {"odd", eval_odd, copy_odd, deval_odd, cmp_odd, kill_odd};
inline constexpr jt_type kOddWithoutEval = {"odd_without_eval", nullptr, copy_odd,
                                            deval_odd,          cmp_odd, kill_odd};
inline constexpr jt_type kOddWithoutCopy = {"odd_without_copy", eval_odd, nullptr,
                                            deval_odd,          cmp_odd,  kill_odd};
inline constexpr jt_type kOddWithoutDeval = {
    "odd_without_deval", eval_odd, copy_odd, nullptr, cmp_odd, kill_odd};
inline constexpr jt_type kOddWithoutKill = {"odd_without_kill", eval_static, nullptr,
                                            deval_odd,          cmp_odd,     nullptr};

}  // namespace jt_test

#endif
