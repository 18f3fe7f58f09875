// The two exported text routines.
#include "base/text.h"

#include <limits>

#include "jt.h"

extern "C" int32_t string_to_integer(const char *text, long *out) {
  if (text == nullptr || *text == '\0') return 0;
  constexpr long kMax = std::numeric_limits<long>::max();
  long number = 0;
  for (const char *c = text; *c != '\0'; ++c) {
    if (!jt_core::is_digit(*c)) return 0;
    const int digit = *c - '0';
    number = number > (kMax - digit) / 10 ? kMax : number * 10 + digit;
  }
  *out = number;
  return 1;
}

// The end of `a` is compared with the unfolded byte of `b`; clients may rely on the plain difference.
extern "C" int32_t lowercasecmp(const char *a, const char *b) {
  if (a == nullptr || b == nullptr) return (a != nullptr ? 1 : 0) - (b != nullptr ? 1 : 0);
  for (;; ++a, ++b) {
    if (*a == '\0') return -static_cast<unsigned char>(*b);
    if (jt_core::fold(*a) != jt_core::fold(*b)) return jt_core::fold(*a) - jt_core::fold(*b);
  }
}
