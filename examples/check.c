/*
 * Says what jt thinks of templates: check FILE... The exit status is 0 when there is nothing to say, 1 when a
 * template decodes with doubts, 2 when one is refused. The last five messages of each are printed, oldest
 * first, below the name of the file where there is more than one.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

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
/* The session keeps the messages of earlier calls too, so a message of one's own marks where to begin. */
static const char mark[] = "---- from here on";

static void set_mark(jt_parser_space *session) { jt_error(session, mark, ""); }

/* Prints what was reported behind the mark. The session hands its messages out newest first; each stays valid
 * until the next report. A mark that five newer messages have pushed out is not missed. */
static void print_messages(jt_parser_space *session) {
  const char *messages[JT_HISTORY_LENGTH];
  int count = 0;
  jt_get_recent_error(session);
  while (count < JT_HISTORY_LENGTH) {
    const char *message = jt_get_previous_error(session);
    if (message == NULL || strncmp(message, mark, strlen(mark)) == 0) break;
    messages[count++] = message;
  }
  while (count > 0) puts(messages[--count]);
}
/* [print the messages] */

/* [tell doubts from refusal] */
/* The status must be asked for before the messages: reading them resets it. A text that is cut off in its end
 * marker or in the marks of a section is refused without an error, at most with warnings of what stands
 * before. */
static int check(jt_parser_space *session, const char *text) {
  set_mark(session);
  const int32_t job = jt_decode_template(session, text);
  const int32_t status = jt_last_api_error(session);
  print_messages(session);
  if (job == 0 && (status == JT_OK || status == JT_WARNING)) puts("the text is cut off");
  if (job == 0) return REFUSED;
  jt_destroy_template(session, job);
  return status == JT_OK ? FINE : DOUBTFUL;
}
/* [tell doubts from refusal] */

static int check_file(jt_parser_space *session, const char *name) {
  char *text = read_file(name);
  if (text == NULL) fprintf(stderr, "cannot read %s\n", name);
  const int result = text != NULL ? check(session, text) : REFUSED;
  free(text);
  return result;
}

int main(int argc, char **argv) {
  jt_parser_space *session = jt_open_parsing_utility("check");
  if (argc < 2) fputs("USAGE: check FILE...\n", stderr);
  int worst = session != NULL && argc >= 2 ? FINE : REFUSED;
  for (int i = 1; session != NULL && i < argc; ++i) {
    if (argc > 2) printf("%s:\n", argv[i]);
    const int result = check_file(session, argv[i]);
    if (result > worst) worst = result;
  }
  jt_close_parsing_utility(session);
  return worst;
}
