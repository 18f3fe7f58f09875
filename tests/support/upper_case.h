// The same name in capitals: of ASCII letters alone, whatever the locale of the process makes of the others.
#ifndef JT_TESTS_SUPPORT_UPPER_CASE_H
#define JT_TESTS_SUPPORT_UPPER_CASE_H

#include <string>

namespace jt_test {

inline std::string upper_case(std::string text) {
  for (char &c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

}  // namespace jt_test

#endif
