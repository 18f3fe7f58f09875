// What the clients need besides jt: the text of a file, and a way out with a message.
#ifndef JT_EXAMPLES_PROGRAM_H
#define JT_EXAMPLES_PROGRAM_H

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

inline std::optional<std::string> read_file(const char *path) {
  if (!std::filesystem::is_regular_file(path)) return {};
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator(file), {});
}

inline void complain(std::string_view message) {
  std::fprintf(stderr, "%.*s\n", static_cast<int>(message.size()), message.data());
}

inline int fail(std::string_view message, int status = 1) { return complain(message), status; }

#endif
