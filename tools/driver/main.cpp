// The round-trip timing driver: decodes and destroys one template file twice, decodes it a third time,
// encodes it twice, and prints the processor time of each step in ticks of the standard clock. It never
// prints the template or a message: its six lines come in the same order whatever the file holds, and it
// always exits with 0.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "jt.h"

namespace {

// The file's bytes and a terminator behind them; null for a file that is empty or cannot be read, which the
// library then meets as a null text. The caller frees it.
char *read_file(const char *path) {
  const int descriptor = open(path, O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return nullptr;
  struct stat status {};
  char *bytes = nullptr;
  if (fstat(descriptor, &status) == 0 && status.st_size > 0) {
    const auto size = static_cast<std::size_t>(status.st_size);
    bytes = static_cast<char *>(std::calloc(size + 1, 1));
    if (bytes != nullptr && read(descriptor, bytes, size) < 0) {
      std::free(bytes);
      bytes = nullptr;
    }
  }
  close(descriptor);
  return bytes;
}

// Runs a step between two readings of the clock and prints their difference.
template <typename Step>
auto timed(const char *name, Step step) {
  const std::clock_t before = std::clock();
  const auto result = step();
  const std::clock_t after = std::clock();
  std::fprintf(stderr, "%s = %ld\n", name, static_cast<long>(after - before));
  return result;
}

void decode_and_destroy(jt_parser_space *space, const char *text) {
  const int32_t handle = timed("Decode", [&] { return jt_decode_template(space, text); });
  timed("Destroy", [&] { return jt_destroy_template(space, handle); });
}

void encode(jt_parser_space *space, int32_t handle) {
  jt_destroy_value_string(space, timed("Encode", [&] { return jt_encode_template(space, handle); }));
}

void run(const char *path) {
  jt_parser_space *const space = jt_open_parsing_utility("nalvrine");
  char *const text = read_file(path);
  decode_and_destroy(space, text);
  decode_and_destroy(space, text);
  const int32_t handle = jt_decode_template(space, text);
  encode(space, handle);
  encode(space, handle);
  jt_destroy_template(space, handle);
  std::free(text);
  jt_close_parsing_utility(space);
}

}  // namespace

int main(int argc, char **argv) {
  if (argc == 2) {
    run(argv[1]);
  } else {
    std::fprintf(stderr, "USAGE %s <template filename>\n", argc > 0 ? argv[0] : "jt-driver");
  }
  return 0;
}
