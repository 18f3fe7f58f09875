/* The sample code of jt.h, between two marks of its name each, as a C compiler takes it. What stands there for
   a body of the reader's own counts here. */
#include "build/samples_client.h"

#include <stdio.h>
#include <stdlib.h>

#include "jt.h"

const char *jt_test_opening_sample(const char *text) {
  // [opening]
  jt_parser_space *session = jt_open_parsing_utility("my program");
  int32_t job = jt_decode_template(session, text);
  if (job == 0) puts(jt_last_api_error(session) ? jt_get_recent_error(session) : "the text is cut off");
  // read and change it
  char *result = jt_encode_template(session, job);
  // [opening]
  if (result != NULL) fputs(result, stdout);
  const int written = result != NULL;
  // [closing]
  free(result);
  jt_close_parsing_utility(session);
  // [closing]
  return written ? "written" : "refused";
}

int jt_test_walk_samples(jt_parser_space *s, int32_t job, const char *service) {
  int count = 0;
  {
    const char *const name = service;
    // [invocations]
    for (int32_t more = jt_first_invocation(s, job, name); more; more = jt_next_invocation(s, job, name)) {
      // [invocations]
      count += 100;
    }
  }
  jt_first_invocation(s, job, service);
  // [attributes]
  for (char *name = jt_get_first_attribute_name(s, job, service); name != NULL;
       free(name), name = jt_get_next_attribute_name(s, job, service)) {
    // [attributes]
    count += 10;
  }
  // [elements]
  for (int32_t child = jt_first_child(s, job); child != 0; child = jt_next_sibling(s, child)) {
    // [elements]
    count += 1;
  }
  // [changes]
  int32_t copies = jt_find_child(s, jt_first_child(s, jt_find_child(s, job, "Scan")), "Copies");
  if (jt_set_element_value_text(s, jt_first_child(s, copies), "2") == 0) puts(jt_get_recent_error(s));
  // [changes]
  // [catalogue]
  for (int32_t i = 0; jt_catalogue_service(i) != NULL; ++i) {
    // [catalogue]
    count += 1000;
  }
  const jt_type *type = get_type_from_services(s, "kmt_svc_scan", "struct_gutter");
  // [ranges]
  jt_value_range range = {.size = sizeof range};
  for (int32_t i = 0; jt_catalogue_range(type, i, &range); ++i) puts(range.part);
  // [ranges]
  return count;
}

// [source]
static int32_t print_finding(void *context, const jt_finding *finding) {
  printf("%s:%zu:%zu: %s\n", (const char *)context, finding->line, finding->column,
         jt_finding_name(finding->code));
  return 0;
}
// [source]

int jt_test_finding_sample(jt_parser_space *s, const char *text, size_t size, char *name) {
  const jt_listener listener = {.size = sizeof listener, .context = name, .finding = print_finding};
  return jt_check_source(s, text, size, NULL, &listener);
}
