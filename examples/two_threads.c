/*
 * Decodes on two threads at once. A session belongs to one thread at a time, and sessions on different
 * threads share nothing: each thread opens its own, and there is nothing to lock.
 */
#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>

#include "jt.h"

/* [a session for each thread] */
typedef struct {
  const char *text;
  int decoded;
} work;

static void *decode_often(void *argument) {
  work *mine = argument;
  jt_parser_space *session = jt_open_parsing_utility("worker");
  for (int i = 0; session != NULL && i < 1000; ++i) {
    const int32_t job = jt_decode_template(session, mine->text);
    if (job != 0 && jt_destroy_template(session, job)) ++mine->decoded;
  }
  jt_close_parsing_utility(session);
  return NULL;
}
/* [a session for each thread] */

int main(void) {
  work works[] = {{"[ kmt_svc_scan Scan ] { integer Copies = 2; } end", 0},
                  {"[ kmt_svc_print Print ] { enum_printmode Where = LOCAL; } end", 0}};
  pthread_t threads[2];
  int started = 0;
  while (started < 2 && pthread_create(&threads[started], NULL, decode_often, &works[started]) == 0)
    ++started;
  for (int i = 0; i < started; ++i) pthread_join(threads[i], NULL);
  printf("%d and %d\n", works[0].decoded, works[1].decoded);
  return started == 2 ? EXIT_SUCCESS : EXIT_FAILURE;
}
