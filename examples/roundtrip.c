/*
 * Reads a template and writes it back: the encoded text on standard output, the messages that the session
 * remembers on standard error, oldest first. The exit status is 0 when the template decoded, 1 when it did
 * not and 2 when there was no file to read.
 */
#include <stdio.h>
#include <stdlib.h>

#include "jt.h"

enum { DECODED = 0, NOT_DECODED = 1, NOT_READ = 2 };

/* All bytes of a file and a terminator behind them; null when it cannot be read. The caller frees it. */
static char *read_file(const char *path) {
  FILE *file = fopen(path, "rb");
  if (file == NULL) return NULL;
  size_t capacity = 1 << 16;
  size_t length = 0;
  char *bytes = malloc(capacity);
  while (bytes != NULL) {
    length += fread(bytes + length, 1, capacity - length - 1, file);
    if (length + 1 < capacity) break;
    capacity *= 2;
    char *larger = realloc(bytes, capacity);
    if (larger == NULL) free(bytes);
    bytes = larger;
  }
  if (bytes != NULL && ferror(file)) {
    free(bytes);
    bytes = NULL;
  }
  if (bytes != NULL) bytes[length] = '\0';
  fclose(file);
  return bytes;
}

/* The session hands its messages out newest first. */
static void print_messages(jt_parser_space *space) {
  const char *messages[JT_HISTORY_LENGTH];
  int count = 0;
  jt_get_recent_error(space);
  while (count < JT_HISTORY_LENGTH) {
    const char *message = jt_get_previous_error(space);
    if (message == NULL) break;
    messages[count++] = message;
  }
  while (count > 0) fprintf(stderr, "%s\n", messages[--count]);
}

static void print_encoded(jt_parser_space *space, int32_t handle) {
  char *text = jt_encode_template(space, handle);
  if (text != NULL) fputs(text, stdout);
  jt_destroy_value_string(space, text);
}

static int round_trip(jt_parser_space *space, const char *text) {
  const int32_t handle = jt_decode_template(space, text);
  const int32_t status = jt_last_api_error(space);
  const int cut_off = handle == 0 && (status == JT_OK || status == JT_WARNING);
  if (handle != 0) print_encoded(space, handle);
  print_messages(space);
  if (cut_off) fprintf(stderr, "the text is cut off\n");
  if (handle == 0) return NOT_DECODED;
  jt_destroy_template(space, handle);
  return DECODED;
}

int main(int argc, char **argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: roundtrip FILE\n");
    return NOT_READ;
  }
  char *text = read_file(argv[1]);
  if (text == NULL) {
    perror(argv[1]);
    return NOT_READ;
  }
  jt_parser_space *space = jt_open_parsing_utility("roundtrip");
  const int result = round_trip(space, text);
  jt_close_parsing_utility(space);
  free(text);
  return result;
}
