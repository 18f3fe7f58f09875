// The eleven value lists: whose types they serve, and what value_catalogue.txt says of their names.
#ifndef JT_TESTS_TYPES_VALUE_CATALOGUE_H
#define JT_TESTS_TYPES_VALUE_CATALOGUE_H

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <map>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace jt_test {

struct ListRow {
  std::string name;
  std::uint32_t number;
  std::string written;  // the name that is written for the number
};

struct Catalogue {
  std::string name;
  const char *service;
  std::vector<const char *> types;
  std::size_t count;
  std::vector<ListRow> rows{};
};

inline std::ostream &operator<<(std::ostream &out, const Catalogue &list) {
  return out << list.name << " list";
}

// What each number of a list is written as.
inline std::map<std::uint32_t, std::string> written_names(const Catalogue &list) {
  std::map<std::uint32_t, std::string> names;
  for (const ListRow &row : list.rows) names[row.number] = row.written;
  return names;
}

// The rows of all lists, by the name of the list. A line that is no row ends the program.
inline std::map<std::string, std::vector<ListRow>> read_rows() {
  std::map<std::string, std::vector<ListRow>> rows;
  std::ifstream file(JT_SOURCE_DIR "/tests/types/value_catalogue.txt");
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.starts_with('#')) continue;
    std::istringstream words(line);
    std::string list, arrow;
    ListRow row;
    const bool named = bool(words >> list >> row.number >> std::quoted(row.name));
    row.written = row.name;
    if (words >> arrow && arrow == "->") words >> std::quoted(row.written);
    if (!named || !words.eof()) {
      std::fprintf(stderr, "value_catalogue.txt: %s\n", line.c_str());
      std::exit(EXIT_FAILURE);
    }
    rows[list].push_back(row);
  }
  return rows;
}

inline std::vector<Catalogue> catalogues() {
  std::vector<Catalogue> lists = {
      {"Base", "", {"enum_systemidalgorithm", "enum_units", "kmt_enum_status"}, 24},
      {"Document",
       "kmt_document",
       {"enum_compression", "enum_docformat", "enum_documentObjectNamingAlgorithm", "enum_embedfonts",
        "enum_halftonemethod", "enum_halftonescreen", "enum_mixedcompressions", "enum_mixedtype",
        "enum_optimizedforfastwebview", "enum_outputsize", "enum_resolution", "enum_searchabletext",
        "enum_textcompression"},
       161},
      {"Email", "kmt_svc_email", {"enum_emailprotocol", "enum_jobpriority"}, 6},
      {"Fax", "kmt_svc_fax", {"enum_jobpriority", "enum_transmissionmode", "enum_type"}, 8},
      {"File",
       "kmt_svc_file",
       {"enum_filingaccess", "enum_filingpolicy", "enum_filingprotocol", "enum_loginsource", "enum_namespace",
        "enum_type"},
       40},
      {"General",
       "kmt_svc_general",
       {"enum_ConfirmationStatus", "enum_confmethod", "enum_confstage", "enum_encoding", "enum_RVQ",
        "enum_secureTemplateAccessAlgorithm", "enum_type"},
       49},
      {"Metadata", "kmt_dscrpt_metadata", {"enum_metadatamaskingrequired"}, 3},
      {"Ocr", "kmt_svc_ocr", {"enum_conversionlanguage", "enum_outputdocumentconversionformat"}, 544},
      {"Print",
       "kmt_svc_print",
       {"enum_collationType", "enum_printfinish", "enum_printmode", "enum_sidestoprint"},
       20},
      {"Scan",
       "kmt_svc_scan",
       {"enum_autoexposure", "enum_blankpageremoval", "enum_bookmode", "enum_bookscansequence",
        "enum_colormode", "enum_exposure", "enum_flipmode", "enum_imagemode", "enum_inputorientation",
        "enum_inputsource", "enum_magnification", "enum_mediasize", "enum_orientation",
        "enum_originalsubtype", "enum_resolution", "enum_rotation", "enum_sided", "enum_type"},
       130},
      {"Validation", "kmt_svc_validation", {"enum_protocol", "enum_validationtimeoutpolicy"}, 4},
  };
  const auto rows = read_rows();
  for (Catalogue &list : lists) list.rows = rows.at(list.name);
  return lists;
}

}  // namespace jt_test

#endif
