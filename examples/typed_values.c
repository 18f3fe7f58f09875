/*
 * Reads and writes values as what they are instead of as text: numbers, times, enumerated values. How a value
 * is laid out stands in the table of the chapter "Values" of jt.h.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "jt.h"

static const char job_text[] =
    "[ kmt_svc_scan Scanner ]\n"
    "{\n"
    "  integer Copies = 3;\n"
    "  enum_sided Sides = TWO_SIDED;\n"
    "  timestamp Runs = 2030/05/17/09/30/00, 2031/01/02/00/00/00, 2030/11/30/23/59/59;\n"
    "}\n"
    "end\n";

/* [read an integer] */
/* An integer is an int32_t. The value is a copy, released with its type. */
static int read_integer(jt_parser_space *session, int32_t job, const char *attribute, int32_t *number) {
  jt_value *value = jt_get_first_attribute_value(session, job, "Scanner", attribute);
  if (value == NULL) return 0;
  memcpy(number, value, sizeof *number);
  return jt_destroy_value(session, "integer", value, NULL);
}
/* [read an integer] */

/* [write an integer] */
static int write_integer(jt_parser_space *session, int32_t job, const char *attribute, int32_t number) {
  return jt_set_attribute_value(session, job, "Scanner", attribute, (const jt_value *)&number);
}
/* [write an integer] */

/* [latest of many] */
typedef struct {
  int32_t second, minute, hour, day, month, year;
} timestamp;

/* The type compares; what is not kept is released. */
static int read_latest(jt_parser_space *session, int32_t job, const char *attribute, timestamp *result) {
  jt_value *latest = jt_get_first_attribute_value(session, job, "Scanner", attribute);
  if (latest == NULL) return 0;
  jt_value *value = jt_get_next_attribute_value(session, job, "Scanner", attribute);
  for (; value != NULL; value = jt_get_next_attribute_value(session, job, "Scanner", attribute)) {
    jt_value *earlier = value;
    if (jt_compare_value(session, "timestamp", value, latest, NULL) > 0) {
      earlier = latest;
      latest = value;
    }
    jt_destroy_value(session, "timestamp", earlier, NULL);
  }
  memcpy(result, latest, sizeof *result);
  return jt_destroy_value(session, "timestamp", latest, NULL);
}
/* [latest of many] */

/* [compare with a name] */
/* The name becomes a value first; its number need not be known. */
static int is_set_to(jt_parser_space *session, int32_t job, const char *attribute, const char *name) {
  char *type = jt_get_attribute_type_name(session, job, "Scanner", attribute);
  jt_value *value = jt_get_first_attribute_value(session, job, "Scanner", attribute);
  jt_value *wanted = jt_decode_value(session, type, name, "kmt_svc_scan");
  const int same = value != NULL && jt_compare_value(session, type, value, wanted, "kmt_svc_scan") == 0;
  if (value != NULL) jt_destroy_value(session, type, value, "kmt_svc_scan");
  if (wanted != NULL) jt_destroy_value(session, type, wanted, "kmt_svc_scan");
  jt_destroy_name(session, type);
  return same;
}
/* [compare with a name] */

int main(void) {
  jt_parser_space *session = jt_open_parsing_utility("typed_values");
  const int32_t job = jt_decode_template(session, job_text);
  int32_t copies = 0;
  timestamp latest = {0};
  const int done =
      read_integer(session, job, "Copies", &copies) && write_integer(session, job, "Copies", copies + 1) &&
      read_integer(session, job, "Copies", &copies) && read_latest(session, job, "Runs", &latest);
  if (done) {
    printf("copies %d\n", (int)copies);
    printf("latest %d-%02d-%02d\n", (int)latest.year, (int)latest.month, (int)latest.day);
    printf("both sides %s\n", is_set_to(session, job, "Sides", "two_sided") ? "yes" : "no");
  }
  jt_close_parsing_utility(session);
  return done ? EXIT_SUCCESS : EXIT_FAILURE;
}
