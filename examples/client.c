#include <stdio.h>
#include "jt.h"

int main(int argc, char **argv) {
  jt_parser_space *session = jt_open_parsing_utility("client");
  if (session == NULL) return 1;
  const char *sil = argc > 1 ? argv[1] : "[ kmt_svc_scan Scan ] { enum_sided Sides = ONE_SIDED; } end";
  int32_t job = jt_decode_template(session, sil);
  if (job == 0) puts(jt_last_api_error(session) ? jt_get_recent_error(session) : "the text is cut off");
  jt_set_attribute_value_string(session, job, "Scan", "Sides", "TWO_SIDED");
  char *text = jt_encode_template(session, job);
  if (text != NULL) fputs(text, stdout);
  jt_destroy_value_string(session, text);
  jt_close_parsing_utility(session);
  return job == 0;
}
