// Writes what the manual takes from the library's own tables into a directory: the pictures of the decoder's
// machines, for Graphviz, and the pages of types and of messages, in Markdown.
//
//   jt-docs SOURCE_DIRECTORY OUTPUT_DIRECTORY
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "catalogue.h"
#include "machines.h"
#include "messages.h"

namespace {

std::string read_whole(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool write_whole(const std::string &path, const std::string &text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) std::fprintf(stderr, "cannot write %s\n", path.c_str());
  return !file.fail();
}

bool write_machines(const std::string &directory) {
  bool written = true;
  for (const jt_docs::Drawing &drawing : jt_docs::kDrawings) {
    const std::string path = directory + "/machine_" + std::string(drawing.name) + ".dot";
    written = write_whole(path, jt_docs::draw(drawing)) && written;
  }
  return written;
}

// The hand-written beginning of the page, then the messages.
bool write_message_page(const std::string &source, const std::string &directory) {
  const auto messages = jt_docs::parse_header(read_whole(source + "/src/base/messages.h"));
  const auto entries = jt_docs::parse_entries(read_whole(source + "/docs/messages.txt"));
  const auto differences = jt_docs::differences(messages, entries);
  for (const std::string &difference : differences) {
    std::fprintf(stderr, "docs/messages.txt: %s\n", difference.c_str());
  }
  return differences.empty() &&
         write_whole(directory + "/messages.md",
                     read_whole(source + "/docs/messages.md") + jt_docs::write_messages(messages, entries));
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: jt-docs SOURCE_DIRECTORY OUTPUT_DIRECTORY\n");
    return EXIT_FAILURE;
  }
  const std::string source = argv[1];
  const std::string directory = argv[2];
  const bool written = write_machines(directory) &&
                       write_whole(directory + "/catalogue.md", jt_docs::write_catalogue()) &&
                       write_message_page(source, directory);
  return written ? EXIT_SUCCESS : EXIT_FAILURE;
}
