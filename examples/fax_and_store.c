/*
 * Builds a job that faxes a letter and stores it, with a header: fax_and_store IDENTIFIER NUMBER. What was
 * built is read once more before it is printed, because names are written as they are and may not be
 * readable.
 */
#include <stdio.h>
#include <stdlib.h>

#include "jt.h"

typedef struct {
  const char *service, *type, *name, *value;
} attribute_row;

static const attribute_row attributes[] = {
    {"Fax", "enum_transmissionmode", "Mode", "FASTEST_POSSIBLE"},
    {"Fax", "ref_invocation", "Source", "Scanner:Letter"},
    {"Store", "string", "Path", "/faxes"},
    {"Store", "enum_filingprotocol", "Protocol", "SFTP"},
    {"Store", "ref_invocation", "Source", "Scanner:Letter"},
};

/* [make a header] */
static int32_t create_with_header(jt_parser_space *session, const char *identifier) {
  char text[2100]; /* its words may have 2047 bytes */
  const int length = snprintf(text, sizeof text, "< SIL 4.2.00 ASCII %s > < /SIL >", identifier);
  return length < (int)sizeof text ? jt_decode_template(session, text) : 0;
}
/* [make a header] */

static int add_attribute(jt_parser_space *session, int32_t job, const attribute_row *row) {
  return jt_add_attribute(session, job, row->service, row->type, row->name) &&
         jt_add_attribute_value_string(session, job, row->service, row->name, row->value);
}

static int fill(jt_parser_space *session, int32_t job, const char *number) {
  const attribute_row to = {"Fax", "string", "Number", number};
  if (!jt_add_service(session, job, "kmt_svc_scan", "Scanner") ||
      !jt_add_invocation(session, job, "Scanner") ||
      !jt_set_invocation_name(session, job, "Scanner", "Letter") ||
      !jt_add_service(session, job, "kmt_svc_fax", "Fax") || !jt_add_invocation(session, job, "Fax") ||
      !jt_add_service(session, job, "kmt_svc_file", "Store") || !jt_add_invocation(session, job, "Store") ||
      !add_attribute(session, job, &to)) {
    return 0;
  }
  for (size_t i = 0; i < sizeof attributes / sizeof attributes[0]; ++i) {
    if (!add_attribute(session, job, &attributes[i])) return 0;
  }
  return 1;
}

/* [make sure that it can be read] */
static int is_readable(jt_parser_space *session, const char *text) {
  const int32_t job = jt_decode_template(session, text);
  const int is_good = job != 0 && jt_last_api_error(session) == JT_OK;
  if (job != 0) jt_destroy_template(session, job);
  return is_good;
}
/* [make sure that it can be read] */

int main(int argc, char **argv) {
  if (argc != 3) return fprintf(stderr, "USAGE: fax_and_store IDENTIFIER NUMBER\n"), EXIT_FAILURE;
  jt_parser_space *session = jt_open_parsing_utility("fax_and_store");
  if (session == NULL) return EXIT_FAILURE;
  const int32_t job = create_with_header(session, argv[1]);
  char *text = job != 0 && fill(session, job, argv[2]) ? jt_encode_template(session, job) : NULL;
  const int succeeded = text != NULL && is_readable(session, text);
  const char *error = succeeded ? NULL : jt_get_recent_error(session);
  if (succeeded) fputs(text, stdout);
  if (!succeeded) fprintf(stderr, "%s\n", error != NULL ? error : "it cannot be read");
  jt_destroy_value_string(session, text);
  jt_close_parsing_utility(session);
  return succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
}
