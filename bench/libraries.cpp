// The measured libraries, in the order of every table.
#include <cstdio>
#include <cstdlib>

#include "library.h"
#include "writers.h"

namespace bench {
namespace {

constexpr LibraryRow kLibraries[] = {
    {"jt", jt_version, write_sil, make_jt},
    {"pugixml", pugixml_version, write_xml, make_pugixml},
    {"pugixml, converted", pugixml_version, write_xml, make_converting_pugixml},
    {"RapidJSON", rapidjson_version, write_json, make_rapidjson},
    {"cJSON", cjson_version, write_json, make_cjson},
    {"libxml2", libxml2_version, write_xml, make_libxml2},
};

}  // namespace

std::span<const LibraryRow> libraries() { return kLibraries; }

void require(bool holds, std::string_view what) {
  if (holds) return;
  std::fprintf(stderr, "jt_bench: failed at %.*s\n", static_cast<int>(what.size()), what.data());
  std::exit(EXIT_FAILURE);
}

}  // namespace bench
