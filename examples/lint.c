/*
 * Prints everything that is wrong in templates, each with its line and a caret below it: lint FILE... The exit
 * status is 0 when there is nothing to say, 1 when something was found, 2 when a file cannot be read.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "jt.h"

enum { FINE = 0, FOUND = 1, UNREAD = 2 };

struct source {
  const char *name;
  char *text;
  size_t size;
  int findings;
};

/* All bytes of a file and a terminator behind them; null when it cannot be read. */
static char *read_file(const char *name, size_t *size) {
  FILE *file = fopen(name, "rb");
  if (file == NULL) return NULL;
  fseek(file, 0, SEEK_END);
  const long length = ftell(file);
  rewind(file);
  char *text = length >= 0 && length < INT32_MAX ? calloc((size_t)length + 1, 1) : NULL;
  *size = text != NULL ? fread(text, 1, (size_t)length, file) : 0;
  fclose(file);
  if (text != NULL && *size == (size_t)length) return text;
  free(text);
  return NULL;
}

/* [print a finding] */
static int length_of_line(const char *line) { return (int)strcspn(line, "\r\n"); }

static void print_found(const struct source *source, const jt_finding *finding) {
  const char *found = source->text + finding->found.begin;
  const int size = (int)(finding->found.end - finding->found.begin);
  const int length = size < length_of_line(found) ? size : length_of_line(found);
  printf("found %.*s", finding->found_is_end ? 7 : length, finding->found_is_end ? "the end" : found);
  if (finding->expected[0] != '\0') printf(", expected %s", finding->expected);
}

/* A line with place and words, the line of the text, and a caret below the column. */
static int32_t print_finding(void *context, const jt_finding *finding) {
  static const char *const severities[] = {"error", "loss", "warning", "note"};
  struct source *source = context;
  const char *line = source->text + finding->range.begin + 1 - finding->column;
  printf("%s:%zu:%zu: %s: ", source->name, finding->line, finding->column, severities[finding->severity]);
  print_found(source, finding);
  printf(" [%s]\n  %.*s\n  %*s\n", jt_finding_name(finding->code), length_of_line(line), line,
         (int)finding->column, "^");
  return ++source->findings, 0;
}
/* [print a finding] */

static int lint(jt_parser_space *session, const char *name) {
  struct source source = {.name = name};
  source.text = read_file(name, &source.size);
  if (source.text == NULL) return fprintf(stderr, "cannot read %s\n", name), UNREAD;
  const jt_listener listener = {.size = sizeof listener, .context = &source, .finding = print_finding};
  const int32_t decodes = jt_check_source(session, source.text, source.size, NULL, &listener);
  free(source.text);
  return decodes && source.findings == 0 ? FINE : FOUND;
}

int main(int argc, char **argv) {
  jt_parser_space *session = jt_open_parsing_utility("lint");
  if (argc < 2) fputs("USAGE: lint FILE...\n", stderr);
  int worst = session != NULL && argc >= 2 ? FINE : UNREAD;
  for (int i = 1; session != NULL && i < argc; ++i) {
    const int result = lint(session, argv[i]);
    if (result > worst) worst = result;
  }
  jt_close_parsing_utility(session);
  return worst;
}
