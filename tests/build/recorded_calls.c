/*
 * Stands in for the library, the processor clock and the system's files, linked with the timing driver:
 * prints every call that the driver makes, with its arguments and its answer, and answers as a library would
 * that takes any text for a template. The clock goes by 1, 2, 3 ... ticks, so that each difference shows
 * which two readings it was made of.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

#include "jt.h"

struct jt_parser_space {
  int32_t templates;
  int encodings;
};
static jt_parser_space the_session;

static const char *name_of(const jt_parser_space *space) { return space == &the_session ? "session" : "?"; }

/* The text in quotes, or null. */
static void print_text(const char *text) {
  if (text == NULL) {
    printf("null");
  } else {
    printf("\"%s\"", text);
  }
}

jt_parser_space *jt_open_parsing_utility(const char *label) {
  printf("open session \"%s\"\n", label);
  return &the_session;
}

int32_t jt_close_parsing_utility(jt_parser_space *space) {
  printf("close %s\n", name_of(space));
  return 1;
}

int32_t jt_decode_template(jt_parser_space *space, const char *text) {
  const int32_t handle = text == NULL ? 0 : -100 - ++space->templates;
  printf("%s: decode ", name_of(space));
  print_text(text);
  printf(" = %d\n", (int)handle);
  return handle;
}

int32_t jt_destroy_template(jt_parser_space *space, int32_t handle) {
  printf("%s: destroy %d\n", name_of(space), (int)handle);
  return handle != 0;
}

char *jt_encode_template(jt_parser_space *space, int32_t handle) {
  static const char *const texts[] = {"first", "second", "third"};
  char *text = NULL;
  if (handle != 0) {
    text = malloc(sizeof "second");
    if (text != NULL) strcpy(text, texts[space->encodings++ % 3]);
  }
  printf("%s: encode %d = ", name_of(space), (int)handle);
  print_text(text);
  printf("\n");
  return text;
}

int32_t jt_destroy_value_string(jt_parser_space *space, char *text) {
  printf("%s: release ", name_of(space));
  print_text(text);
  printf("\n");
  free(text);
  return 1;
}

/* The linker puts these in the place of the functions behind "__wrap_", which stay as those behind "__real_".
 */
int __real_open(const char *path, int flags, ...);
int __wrap_open(const char *path, int flags, ...);
int __real_close(int descriptor);
int __wrap_close(int descriptor);
clock_t __wrap_clock(void);

int __wrap_open(const char *path, int flags, ...) {
  const char *slash = strrchr(path, '/');
  const int descriptor = __real_open(path, flags);
  printf("%s %s\n", descriptor < 0 ? "cannot open" : "open", slash == NULL ? path : slash + 1);
  return descriptor;
}

int __wrap_close(int descriptor) {
  printf("close file\n");
  return __real_close(descriptor);
}

clock_t __wrap_clock(void) {
  static clock_t step = 0;
  static clock_t now = 0;
  now += ++step;
  printf("clock %ld\n", (long)now);
  return now;
}
