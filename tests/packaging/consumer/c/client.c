/*
 * A client of an installed jt, in C: calls, the variables that the library exports, and numbers with a
 * decimal point, for which the library needs its own language's runtime. Its exit status is 0 when all is as
 * it should be.
 */
#include <jt.h>
#include <stdio.h>
#include <string.h>

static const char *const given = "[ kmt_svc_scan Scan ] { real Gamma = 1.5; } end";
static const char *const wanted = "4.250000";

static int round_trip(jt_parser_space *session) {
  const int32_t job = jt_decode_template(session, given);
  if (jt_set_attribute_value_string(session, job, "Scan", "Gamma", "4.25") != 1) return 0;
  char *text = jt_encode_template(session, job);
  const int found = text != NULL && strstr(text, wanted) != NULL;
  jt_destroy_value_string(session, text);
  return found;
}

static int tables(jt_parser_space *session) {
  const jt_type *const type = get_type_from_services(session, "kmt_svc_scan", "enum_sided");
  return type >= scan_type_tab && type < scan_type_tab + MAX_SCAN_TYPES;
}

int main(void) {
  jt_parser_space *session = jt_open_parsing_utility("client in C");
  const int all_well = session != NULL && round_trip(session) && tables(session);
  if (!all_well) fprintf(stderr, "%s\n", jt_get_recent_error(session));
  jt_close_parsing_utility(session);
  return all_well ? 0 : 1;
}
