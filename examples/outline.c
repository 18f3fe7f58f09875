/*
 * Prints every service, invocation, attribute and value of a template as an indented outline: outline FILE.
 * Shows the four walks: services, invocations, attributes, values.
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

/* [walk values] */
static void print_values(jt_parser_space *session, int32_t job, const char *service, const char *attribute) {
  char *value = jt_get_first_attribute_value_string(session, job, service, attribute);
  for (; value != NULL; value = jt_get_next_attribute_value_string(session, job, service, attribute)) {
    printf("      %s\n", value);
    jt_destroy_value_string(session, value);
  }
}
/* [walk values] */

/* [walk attributes] */
static void print_attributes(jt_parser_space *session, int32_t job, const char *service) {
  char *name = jt_get_first_attribute_name(session, job, service);
  for (; name != NULL; name = jt_get_next_attribute_name(session, job, service)) {
    char *type = jt_get_attribute_type_name(session, job, service, name);
    const char *star = jt_is_attribute_non_compulsory(session, job, service, name) ? " *" : "";
    printf("    %s: %s%s\n", name, type, star);
    print_values(session, job, service, name);
    jt_destroy_name(session, type);
    jt_destroy_name(session, name);
  }
}
/* [walk attributes] */

/* [walk invocations] */
static void print_service(jt_parser_space *session, int32_t job, const char *service) {
  char *type = jt_get_service_type(session, job, service);
  printf("%s: %s\n", service, type);
  jt_destroy_name(session, type);
  int32_t more = jt_first_invocation(session, job, service);
  for (; more; more = jt_next_invocation(session, job, service)) {
    char *name = jt_get_invocation_name(session, job, service);
    printf("  %s\n", name != NULL ? name : "(unnamed)");
    jt_destroy_name(session, name);
    print_attributes(session, job, service);
  }
}
/* [walk invocations] */

/* [walk services] */
static int print_outline(jt_parser_space *session, const char *text) {
  const int32_t job = jt_decode_template(session, text);
  const int reported = jt_last_api_error(session) != JT_OK;
  const char *error = reported ? jt_get_recent_error(session) : "the text is cut off";
  if (job == 0) fprintf(stderr, "%s\n", error);
  char *service = job == 0 ? NULL : jt_get_first_service_name(session, job);
  for (; service != NULL; service = jt_get_next_service_name(session, job)) {
    print_service(session, job, service);
    jt_destroy_name(session, service);
  }
  return job == 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}
/* [walk services] */

int main(int argc, char **argv) {
  char *text = argc == 2 ? read_file(argv[1]) : NULL;
  jt_parser_space *session = text == NULL ? NULL : jt_open_parsing_utility("outline");
  if (session == NULL) fputs("USAGE: outline FILE\n", stderr);
  const int status = session == NULL ? EXIT_FAILURE : print_outline(session, text);
  jt_close_parsing_utility(session);
  free(text);
  return status;
}
