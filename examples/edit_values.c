/*
 * Edits the values of attributes: more of them, fewer of them, others, and the star. Prints the result.
 */
#include <stdio.h>
#include <stdlib.h>

#include "jt.h"

static const char job_text[] =
    "[ kmt_svc_email Mail ]\n"
    "{\n"
    "  string To = \"office@example.org\", \"archive@example.org\";\n"
    "  string Subject = \"Scan\";\n"
    "  string Draft = \"yes\";\n"
    "}\n"
    "end\n";

/* [edit values] */
static int edit(jt_parser_space *session, int32_t job) {
  return jt_add_attribute_value_string(session, job, "Mail", "To", "boss@example.org") &&
         jt_delete_attribute_value_string(session, job, "Mail", "To", "archive@example.org") &&
         jt_set_attribute_value_string(session, job, "Mail", "Subject", "Scan of \"today\"") &&
         jt_set_attribute_non_compulsory(session, job, "Mail", "Subject") &&
         jt_delete_attribute(session, job, "Mail", "Draft");
}
/* [edit values] */

/* [add or set] */
/* The attribute gets this one value, whether it was there before or not. */
static int set_or_add(jt_parser_space *session, int32_t job, const char *type, const char *name,
                      const char *text) {
  return (jt_exists_attribute(session, job, "Mail", name) ||
          jt_add_attribute(session, job, "Mail", type, name)) &&
         jt_set_attribute_value_string(session, job, "Mail", name, text);
}
/* [add or set] */

int main(void) {
  jt_parser_space *session = jt_open_parsing_utility("edit_values");
  const int32_t job = jt_decode_template(session, job_text);
  const int done = edit(session, job) && set_or_add(session, job, "enum_jobpriority", "Priority", "URGENT");
  char *result = done ? jt_encode_template(session, job) : NULL;
  if (result != NULL) fputs(result, stdout);
  jt_destroy_value_string(session, result);
  jt_close_parsing_utility(session);
  return result != NULL ? EXIT_SUCCESS : EXIT_FAILURE;
}
