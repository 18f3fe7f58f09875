/*
 * A C11 client of the shared library: it links every declared symbol and runs one session. Its exit status is
 * 0 when the session did what it should.
 */
#include "build/header_client.h"
#include "jt.h"

int main(void) {
  if (jt_test_calls()[0].address == NULL || jt_test_words()[0].address == NULL) return 1;
  jt_parser_space *space = jt_open_parsing_utility("shared client");
  if (space == NULL) return 1;
  const int32_t handle = jt_create_template(space);
  const int32_t destroyed = jt_destroy_template(space, handle);
  const int32_t closed = jt_close_parsing_utility(space);
  return handle == -100 && destroyed == 1 && closed == 1 ? 0 : 1;
}
