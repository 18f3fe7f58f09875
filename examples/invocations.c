/*
 * A service with several invocations: adds them, names them, and goes to one by its name or its number. Every
 * call on attributes acts on the current invocation. Prints the result.
 */
#include <stdio.h>
#include <stdlib.h>

#include "jt.h"

/* [add invocations] */
/* A new invocation is the current one, so its name and its attributes come right behind. */
static int add_folder(jt_parser_space *session, int32_t job, const char *name, const char *path) {
  return jt_add_invocation(session, job, "Filing") && jt_set_invocation_name(session, job, "Filing", name) &&
         jt_add_attribute(session, job, "Filing", "string", "Path") &&
         jt_add_attribute_value_string(session, job, "Filing", "Path", path);
}
/* [add invocations] */

/* [choose an invocation] */
static int change_path(jt_parser_space *session, int32_t job, const char *which, const char *path) {
  return jt_named_invocation(session, job, "Filing", which) &&
         jt_set_attribute_value_string(session, job, "Filing", "Path", path);
}
/* [choose an invocation] */

/* [delete some] */
/* What follows a deleted invocation is not current by itself: the one before it is, or a new first one. */
static int delete_invocation(jt_parser_space *session, int32_t job, const char *which) {
  return jt_named_invocation(session, job, "Filing", which) && jt_delete_invocation(session, job, "Filing");
}
/* [delete some] */

int main(void) {
  jt_parser_space *session = jt_open_parsing_utility("invocations");
  const int32_t job = jt_create_template(session);
  const int done =
      jt_add_service(session, job, "kmt_svc_file", "Filing") &&
      add_folder(session, job, "Drafts", "/drafts") && add_folder(session, job, "Bills", "/bills") &&
      add_folder(session, job, "Letters", "/letters") && change_path(session, job, "bills", "/bills/2030") &&
      change_path(session, job, "3", "/letters/2030") && delete_invocation(session, job, "Drafts");
  char *result = done ? jt_encode_template(session, job) : NULL;
  if (result != NULL) fputs(result, stdout);
  const char *error = done ? NULL : jt_get_recent_error(session);
  if (!done) fprintf(stderr, "%s\n", error != NULL ? error : "a value was refused");
  jt_destroy_value_string(session, result);
  jt_close_parsing_utility(session);
  return result != NULL ? EXIT_SUCCESS : EXIT_FAILURE;
}
