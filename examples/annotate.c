/*
 * Puts comments on a service and on an attribute, for which there is no jt_ call: the tree beneath the calls
 * is exported too. Prints the result.
 */
#include <stdio.h>
#include <stdlib.h>

#include "jt.h"

static const char job_text[] = "[ kmt_svc_scan Scanner ] { enum_sided Sides = TWO_SIDED; } end";

/* [annotate] */
/* A handle leads to the root; from there it goes down by name. The node of an unnamed invocation is reached
 * through its service's cursor, which the library keeps to itself; a named one is found like any child. */
static int annotate(jt_parser_space *session, int32_t job) {
  jt_node *root = opaque_to_node(session, job);
  jt_node *service = get_child(session, root, "Scanner");
  jt_node *invocation = get_child(session, service, "Letter");
  jt_node *sides = get_child(session, invocation, "Sides");
  return add_comment(session, service, "# Both sides, because paper is dear.\n") &&
         add_comment(session, sides, "# Was ONE_SIDED.\n");
}
/* [annotate] */

int main(void) {
  jt_parser_space *session = jt_open_parsing_utility("annotate");
  const int32_t job = jt_decode_template(session, job_text);
  const int done = jt_set_invocation_name(session, job, "Scanner", "Letter") && annotate(session, job);
  char *result = done ? jt_encode_template(session, job) : NULL;
  if (result != NULL) fputs(result, stdout);
  jt_destroy_value_string(session, result);
  jt_close_parsing_utility(session);
  return result != NULL ? EXIT_SUCCESS : EXIT_FAILURE;
}
