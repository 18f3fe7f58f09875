/*
 * Converts a batch: set_everywhere ATTRIBUTE VALUE FILE... gives each attribute of that name, in whatever
 * service and invocation it stands, that one value, and prints each job. A file that cannot be converted does
 * not stop the others; the exit status tells of it.
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

/* [set everywhere] */
static int set_in_service(jt_parser_space *session, int32_t job, const char *service, const char *name,
                          const char *value) {
  int32_t more = jt_first_invocation(session, job, service);
  for (; more; more = jt_next_invocation(session, job, service)) {
    if (!jt_exists_attribute(session, job, service, name)) continue;
    if (!jt_set_attribute_value_string(session, job, service, name, value)) return 0;
  }
  return 1;
}

static int set_everywhere(jt_parser_space *session, int32_t job, const char *name, const char *value) {
  int is_done = 1;
  char *service = jt_get_first_service_name(session, job);
  while (service != NULL && is_done) {
    is_done = set_in_service(session, job, service, name, value);
    free(service); /* jt_destroy_name() would clear the status of a refusal */
    service = is_done ? jt_get_next_service_name(session, job) : NULL;
  }
  return is_done;
}
/* [set everywhere] */

/* Some refusals come without a message: the newest one may be of something else. */
static const char *why_not(jt_parser_space *session, const char *text) {
  if (text == NULL) return "cannot be read";
  if (jt_last_api_error(session) != JT_OK) return jt_get_recent_error(session);
  return "the text is cut off, or the value is none of its type";
}

/* One session for each file: its history then has no messages of another. */
static int convert(const char *file, const char *name, const char *value) {
  jt_parser_space *session = jt_open_parsing_utility(file);
  if (session == NULL) return 0;
  char *text = read_file(file);
  const int32_t job = text != NULL ? jt_decode_template(session, text) : 0;
  char *result =
      job != 0 && set_everywhere(session, job, name, value) ? jt_encode_template(session, job) : NULL;
  if (result == NULL) fprintf(stderr, "%s: %s\n", file, why_not(session, text));
  if (result != NULL) fputs(result, stdout);
  const int is_done = result != NULL;
  jt_destroy_value_string(session, result);
  jt_close_parsing_utility(session);
  free(text);
  return is_done;
}

int main(int argc, char **argv) {
  if (argc < 4) return fprintf(stderr, "USAGE: set_everywhere ATTRIBUTE VALUE FILE...\n"), EXIT_FAILURE;
  int status = EXIT_SUCCESS;
  for (int i = 3; i < argc; ++i) {
    if (!convert(argv[i], argv[1], argv[2])) status = EXIT_FAILURE;
  }
  return status;
}
