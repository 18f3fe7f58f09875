// Writes what the manual takes from the library's own tables into a directory: pictures of the decoder's
// machines for Graphviz, and in Markdown their rows, the names of the base types, the findings, and a page for each
// service.
//
//   jt-docs OUTPUT_DIRECTORY
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "catalogue.h"
#include "findings.h"
#include "machines.h"

namespace {

bool write_whole(const std::string &path, const std::string &text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) std::fprintf(stderr, "cannot write %s\n", path.c_str());
  return !file.fail();
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: jt-docs OUTPUT_DIRECTORY\n");
    return EXIT_FAILURE;
  }
  const std::string directory = argv[1];
  bool written = write_whole(directory + "/tables/base_names.md", jt_docs::write_names(jt_core::kBaseValues));
  written &= write_whole(directory + "/tables/findings.md", jt_docs::write_findings());
  for (const jt_docs::Drawing &drawing : jt_docs::kDrawings) {
    const std::string name = "/machine_" + std::string(drawing.name);
    written &= write_whole(directory + "/pictures" + name + ".dot", jt_docs::draw(drawing));
    written &= write_whole(directory + "/tables" + name + ".md", jt_docs::tabulate(drawing));
  }
  for (const jt_core::ServiceTypes &service : jt_core::services()) {
    const std::string path = directory + "/catalogue/" + std::string(service.name) + ".md";
    written &= write_whole(path, jt_docs::write_service(service));
  }
  return written ? EXIT_SUCCESS : EXIT_FAILURE;
}
