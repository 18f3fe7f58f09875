/*
 * Builds a scan-to-mail job from nothing and prints it. Every call tells whether it succeeded; here the first
 * failure ends the work and its message is printed.
 */
#include <stdio.h>
#include <stdlib.h>

#include "jt.h"

typedef struct {
  const char *service, *type, *name, *value;
} attribute_row;

static const attribute_row attributes[] = {
    {"Scanner", "enum_inputsource", "InputSource", "DADH"},
    {"Scanner", "enum_mediasize", "MediaSize", "ISO_A4SEF"},
    {"Scanner", "enum_sided", "Sides", "TWO_SIDED"},
    {"Mail", "enum_emailprotocol", "Protocol", "SMTP"},
    {"Mail", "string", "To", "office@example.org"},
    {"Mail", "string", "Subject", "Your \"scan\""},
    {"Mail", "ref_invocation", "Attachment", "Scanner:Letter"},
};

/* [build] */
static int add_service(jt_parser_space *session, int32_t job, const char *type, const char *name) {
  return jt_add_service(session, job, type, name) && jt_add_invocation(session, job, name);
}

static int add_attribute(jt_parser_space *session, int32_t job, const attribute_row *row) {
  return jt_add_attribute(session, job, row->service, row->type, row->name) &&
         jt_add_attribute_value_string(session, job, row->service, row->name, row->value);
}

/* A number need not go through text: an integer value is an int32_t. */
static int add_copies(jt_parser_space *session, int32_t job) {
  const int32_t copies = 2;
  return jt_add_attribute(session, job, "Mail", "integer", "Copies") &&
         jt_add_attribute_value(session, job, "Mail", "Copies", (const jt_value *)&copies) &&
         jt_set_attribute_non_compulsory(session, job, "Mail", "Copies");
}

static int fill(jt_parser_space *session, int32_t job) {
  if (!add_service(session, job, "kmt_svc_scan", "Scanner")) return 0;
  if (!jt_set_invocation_name(session, job, "Scanner", "Letter")) return 0;
  if (!add_service(session, job, "kmt_svc_email", "Mail")) return 0;
  for (size_t i = 0; i < sizeof attributes / sizeof attributes[0]; ++i) {
    if (!add_attribute(session, job, &attributes[i])) return 0;
  }
  return add_copies(session, job);
}
/* [build] */

int main(void) {
  jt_parser_space *session = jt_open_parsing_utility("build_scan_to_mail");
  if (session == NULL) return EXIT_FAILURE;
  const int32_t job = jt_create_template(session);
  char *text = fill(session, job) ? jt_encode_template(session, job) : NULL;
  const int succeeded = text != NULL;
  const char *error = succeeded ? NULL : jt_get_recent_error(session);
  if (succeeded) fputs(text, stdout);
  if (!succeeded) fprintf(stderr, "%s\n", error != NULL ? error : "a value was refused");
  jt_destroy_value_string(session, text);
  jt_close_parsing_utility(session);
  return succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
}
