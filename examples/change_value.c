/*
 * Changes one value of a template, keeps everything else and prints the result:
 * change_value FILE SERVICE ATTRIBUTE VALUE. The first invocation that has the attribute is the one changed.
 */
#include <stdio.h>
#include <stdlib.h>

#include "jt.h"

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

/* [find an attribute] */
/* Leaves the invocation that has the attribute as the current one. */
static int find_attribute(jt_parser_space *session, int32_t job, const char *service, const char *attribute) {
  int32_t more = jt_first_invocation(session, job, service);
  while (more && !jt_exists_attribute(session, job, service, attribute)) {
    more = jt_next_invocation(session, job, service);
  }
  return more;
}
/* [find an attribute] */

/* [why a call failed] */
/* The status says whether the last call reported anything; an older message of the history is not its own. */
static const char *reason(jt_parser_space *session, const char *without_report) {
  return jt_last_api_error(session) != JT_OK ? jt_get_recent_error(session) : without_report;
}
/* [why a call failed] */

/* [change a value] */
static int change(jt_parser_space *session, const char *text, char **arguments) {
  const char *service = arguments[0], *attribute = arguments[1], *value = arguments[2];
  const int32_t job = jt_decode_template(session, text);
  const int found = job != 0 && find_attribute(session, job, service, attribute);
  const int changed = found && jt_set_attribute_value_string(session, job, service, attribute, value);
  char *result = changed ? jt_encode_template(session, job) : NULL;
  const char *silent = job == 0 ? "the text is cut off" : !found ? "no such attribute" : "no such value";
  if (result != NULL) fputs(result, stdout);
  if (result == NULL) fprintf(stderr, "%s\n", reason(session, silent));
  jt_destroy_value_string(session, result);
  return result != NULL ? EXIT_SUCCESS : EXIT_FAILURE;
}
/* [change a value] */

int main(int argc, char **argv) {
  char *text = argc == 5 ? read_file(argv[1]) : NULL;
  jt_parser_space *session = text == NULL ? NULL : jt_open_parsing_utility("change_value");
  if (session == NULL) fputs("USAGE: change_value FILE SERVICE ATTRIBUTE VALUE\n", stderr);
  const int status = session == NULL ? EXIT_FAILURE : change(session, text, argv + 2);
  jt_close_parsing_utility(session);
  free(text);
  return status;
}
