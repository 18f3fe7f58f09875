/*
 * Marks the job of a template as finished and prints it: finish_job FILE SERVICE ATTRIBUTE VALUE. Every
 * service and invocation becomes completed; the attribute of the service's first invocation was carried out
 * with another value, which overrides the first one it has.
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

/* [complete a service] */
static void complete(jt_parser_space *session, int32_t job, const char *service) {
  jt_status *completed = get_status(session, "KMT_STATUS_COMPLETED");
  int32_t more = jt_first_invocation(session, job, service);
  for (; more; more = jt_next_invocation(session, job, service)) {
    jt_set_invocation_status(session, job, service, completed);
  }
  jt_set_service_status(session, job, service, completed);
  jt_destroy_status(session, completed);
  jt_first_invocation(session, job, service);
}
/* [complete a service] */

/* What the last call reported, or why it failed where it reported nothing. */
static int complain(jt_parser_space *session, const char *without_report) {
  const int reported = jt_last_api_error(session) != JT_OK;
  fprintf(stderr, "%s\n", reported ? jt_get_recent_error(session) : without_report);
  return 0;
}

/* [override a value] */
/* The types of a service are found by its name or, where it has a name of its own, by its type. */
static int override_value(jt_parser_space *session, int32_t job, const char *service, const char *attribute,
                          const char *text) {
  char *type = jt_get_attribute_type_name(session, job, service, attribute);
  if (type == NULL) return complain(session, "no type");
  char *service_type = jt_get_service_type(session, job, service);
  const char *scope = get_type_from_services(session, service, type) != NULL ? service : service_type;
  jt_value *old_value = jt_get_first_attribute_value(session, job, service, attribute);
  jt_value *new_value = jt_decode_value(session, type, text, scope);
  const int done = old_value != NULL && new_value != NULL &&
                   jt_override_attribute_value(session, job, service, attribute, old_value, new_value);
  if (!done) complain(session, old_value == NULL ? "the attribute has no value" : "no such value");
  if (old_value != NULL) jt_destroy_value(session, type, old_value, scope);
  if (new_value != NULL) jt_destroy_value(session, type, new_value, scope);
  jt_destroy_name(session, service_type);
  jt_destroy_name(session, type);
  return done;
}
/* [override a value] */

static int finish(jt_parser_space *session, const char *text, char **arguments) {
  const int32_t job = jt_decode_template(session, text);
  if (job == 0) complain(session, "the text is cut off");
  char *service = job == 0 ? NULL : jt_get_first_service_name(session, job);
  for (; service != NULL; service = jt_get_next_service_name(session, job)) {
    complete(session, job, service);
    jt_destroy_name(session, service);
  }
  const int done = job != 0 && override_value(session, job, arguments[0], arguments[1], arguments[2]);
  char *result = done ? jt_encode_template(session, job) : NULL;
  if (result != NULL) fputs(result, stdout);
  jt_destroy_value_string(session, result);
  return result != NULL ? EXIT_SUCCESS : EXIT_FAILURE;
}

int main(int argc, char **argv) {
  char *text = argc == 5 ? read_file(argv[1]) : NULL;
  jt_parser_space *session = text == NULL ? NULL : jt_open_parsing_utility("finish_job");
  if (session == NULL) fputs("USAGE: finish_job FILE SERVICE ATTRIBUTE VALUE\n", stderr);
  const int status = session == NULL ? EXIT_FAILURE : finish(session, text, argv + 2);
  jt_close_parsing_utility(session);
  free(text);
  return status;
}
