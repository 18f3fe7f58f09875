/*
 * Says what jt thinks of a template: check FILE. The exit status is 0 when there is nothing to say, 1 when
 * the template decodes with doubts, 2 when it is refused. The last five messages are printed, oldest first.
 */
#include <stdio.h>
#include <stdlib.h>

#include "jt.h"

enum { FINE = 0, DOUBTFUL = 1, REFUSED = 2 };

/* All bytes of a file and a terminator behind them; null when it cannot be read. */
static char *read_file(const char *name) {
  FILE *file = fopen(name, "rb");
  if (file == NULL) return NULL;
  fseek(file, 0, SEEK_END);
  const long size = ftell(file);
  rewind(file);
  char *text = size >= 0 && size < INT32_MAX ? calloc((size_t)size + 1, 1) : NULL;
  const size_t read = text != NULL ? fread(text, 1, (size_t)size, file) : 0;
  fclose(file);
  if (text != NULL && read == (size_t)size) return text;
  free(text);
  return NULL;
}

/* [print the messages] */
/* The session hands its messages out newest first; each stays valid until the next report. */
static void print_messages(jt_parser_space *session) {
  const char *messages[JT_HISTORY_LENGTH];
  int count = 0;
  jt_get_recent_error(session);
  while (count < JT_HISTORY_LENGTH) {
    const char *message = jt_get_previous_error(session);
    if (message == NULL) break;
    messages[count++] = message;
  }
  while (count > 0) puts(messages[--count]);
}
/* [print the messages] */

/* [tell doubts from refusal] */
/* The status must be asked for before the messages: reading them resets it. */
static int check(jt_parser_space *session, const char *text) {
  const int32_t job = jt_decode_template(session, text);
  const int32_t status = jt_last_api_error(session);
  print_messages(session);
  if (job == 0) return REFUSED;
  jt_destroy_template(session, job);
  return status == JT_OK ? FINE : DOUBTFUL;
}
/* [tell doubts from refusal] */

int main(int argc, char **argv) {
  char *text = argc == 2 ? read_file(argv[1]) : NULL;
  jt_parser_space *session = text != NULL ? jt_open_parsing_utility("check") : NULL;
  if (session == NULL) fputs("USAGE: check FILE\n", stderr);
  const int result = session != NULL ? check(session, text) : REFUSED;
  jt_close_parsing_utility(session);
  free(text);
  return result;
}
