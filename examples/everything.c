/*
 * Prints everything that is in a file: everything FILE. Header, section, comments, types, names, stars,
 * values, statuses and the texts behind them, an element a line.
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

/* [print everything] */
/* What stands in front of the type, by the kind of the element. */
static const char *const kinds[] = {"", "service ", "invocation ", "attribute ", "value ",
                                    "", "<? ",      "< ",          "<! "};

/* A text that an element may have, between two others. */
static void print_text(jt_parser_space *session, const char *before, char *text, const char *behind) {
  if (text != NULL) printf("%s%s%s", before, text, behind);
  jt_destroy_value_string(session, text);
}

static void print_status(jt_parser_space *session, int32_t element) {
  jt_status *status = jt_element_status(session, element);
  if (status != NULL) print_text(session, " (", get_status_string(session, status), ")");
  print_text(session, " {", jt_element_status_text(session, element), "}");
  jt_destroy_status(session, status);
}

static void print_element(jt_parser_space *session, int32_t element, int indent) {
  if (element == 0) return;
  const int32_t kind = jt_element_kind(session, element);
  const int is_template = kind == JT_NODE_TEMPLATE;
  const int starred = (jt_element_flags(session, element) & JT_ELEMENT_NON_COMPULSORY) != 0;
  print_text(session, "", jt_element_comment(session, element), "");
  printf("%*s%s%s", indent, "", kinds[kind], starred ? "* " : "");
  print_text(session, "", jt_element_type(session, element), "");
  print_text(session, " ", jt_element_name(session, element), "");
  print_text(session, " ", jt_element_value_text(session, element), "");
  if (is_template) print_text(session, " ", jt_header_version(session, element), "");
  if (is_template) print_text(session, " ", jt_header_identifier(session, element), "");
  print_status(session, element);
  putchar('\n');
  /* A header and a section are no children. */
  if (is_template) print_element(session, jt_header(session, element), indent + 2);
  if (is_template) print_element(session, jt_section(session, element), indent + 2);
  int32_t child = jt_first_child(session, element);
  for (; child != 0; child = jt_next_sibling(session, child)) print_element(session, child, indent + 2);
}
/* [print everything] */

int main(int argc, char **argv) {
  char *text = argc == 2 ? read_file(argv[1]) : NULL;
  jt_parser_space *session = text == NULL ? NULL : jt_open_parsing_utility("everything");
  if (session == NULL) fputs("USAGE: everything FILE\n", stderr);
  const int32_t job = jt_decode_template(session, text);
  const char *error =
      jt_last_api_error(session) != JT_OK ? jt_get_recent_error(session) : "the text is cut off";
  if (session != NULL && job == 0) fprintf(stderr, "%s\n", error);
  print_element(session, job, 0);
  jt_close_parsing_utility(session);
  free(text);
  return job == 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}
