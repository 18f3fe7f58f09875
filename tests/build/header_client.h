// What the C client of the public header has found: the declared calls and the declared words (tables, counts
// and the client's word), by name and address.
#ifndef JT_TESTS_BUILD_HEADER_CLIENT_H
#define JT_TESTS_BUILD_HEADER_CLIENT_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef void (*jt_test_function)(void);

struct jt_test_call {
  const char *name;
  jt_test_function address;
};

struct jt_test_word {
  const char *name;
  const void *address;
};

size_t jt_test_call_count(void);
const struct jt_test_call *jt_test_calls(void);
size_t jt_test_word_count(void);
const struct jt_test_word *jt_test_words(void);

#ifdef __cplusplus
}
#endif

#endif
