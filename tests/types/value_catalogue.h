// The eleven value lists: whose types they serve, what their names are, and which names of a number that has
// two are read only. The rows themselves stand in the headers of the lists.
#ifndef JT_TESTS_TYPES_VALUE_CATALOGUE_H
#define JT_TESTS_TYPES_VALUE_CATALOGUE_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "types/list_row.h"
#include "types/value_catalogue_document.h"
#include "types/value_catalogue_ocr_formats.h"
#include "types/value_catalogue_ocr_languages.h"
#include "types/value_catalogue_scan.h"
#include "types/value_catalogue_small.h"

namespace jt_test {

// A name that is read, and the other name of its number, which is written.
struct Alias {
  const char *read;
  const char *written;
};

struct Catalogue {
  std::string name;
  const char *service;
  std::vector<const char *> types;
  std::size_t count;
  std::vector<ListRow> rows;
  std::vector<Alias> aliases{};
};

inline std::ostream &operator<<(std::ostream &out, const Catalogue &list) {
  return out << list.name << " list";
}

inline std::vector<ListRow> rows_of(std::initializer_list<std::span<const ListRow>> parts) {
  std::vector<ListRow> rows;
  for (const auto part : parts) rows.insert(rows.end(), part.begin(), part.end());
  return rows;
}

// What each number of a list is written as.
inline std::map<std::uint32_t, std::string> written_names(const Catalogue &list) {
  std::map<std::uint32_t, std::string> names;
  for (const ListRow &row : list.rows) {
    std::string &written = names[row.number];
    bool read_only = false;
    for (const Alias &alias : list.aliases) read_only = read_only || std::string(alias.read) == row.name;
    if (!read_only) written = row.name;
  }
  return names;
}

inline std::vector<Catalogue> small_catalogues() {
  return {{"Base", "", {"enum_systemidalgorithm", "enum_units", "kmt_enum_status"}, 24, rows_of({kBaseList})},
          {"Email", "kmt_svc_email", {"enum_emailprotocol", "enum_jobpriority"}, 6, rows_of({kEmailList})},
          {"Fax",
           "kmt_svc_fax",
           {"enum_jobpriority", "enum_transmissionmode", "enum_type"},
           8,
           rows_of({kFaxList})},
          {"File",
           "kmt_svc_file",
           {"enum_filingaccess", "enum_filingpolicy", "enum_filingprotocol", "enum_loginsource",
            "enum_namespace", "enum_type"},
           40,
           rows_of({kFileList})},
          {"General",
           "kmt_svc_general",
           {"enum_ConfirmationStatus", "enum_confmethod", "enum_confstage", "enum_encoding", "enum_RVQ",
            "enum_secureTemplateAccessAlgorithm", "enum_type"},
           49,
           rows_of({kGeneralList})},
          {"Metadata", "kmt_dscrpt_metadata", {"enum_metadatamaskingrequired"}, 3, rows_of({kMetadataList})},
          {"Print",
           "kmt_svc_print",
           {"enum_collationType", "enum_printfinish", "enum_printmode", "enum_sidestoprint"},
           20,
           rows_of({kPrintList})},
          {"Validation",
           "kmt_svc_validation",
           {"enum_protocol", "enum_validationtimeoutpolicy"},
           4,
           rows_of({kValidationList})}};
}

inline Catalogue document_catalogue() {
  return {"Document",
          "kmt_document",
          {"enum_compression", "enum_docformat", "enum_documentObjectNamingAlgorithm", "enum_embedfonts",
           "enum_halftonemethod", "enum_halftonescreen", "enum_mixedcompressions", "enum_mixedtype",
           "enum_optimizedforfastwebview", "enum_outputsize", "enum_resolution", "enum_searchabletext",
           "enum_textcompression"},
          161,
          rows_of({kDocumentList}),
          {{"NA_234x229LEF", "NA_229x234LEF"},
           {"NA_288x229LEF", "NA_229x288LEF"},
           {"NA_7.25x10.5LEF", "NA_10.5x7.25LEF"},
           {"NA_8x10LEF", "NA_10x8LEF"},
           {"NA_9x11LEF", "NA_11x9LEF"},
           {"NA_8x10.5LEF", "NA_10.5x8LEF"}}};
}

inline Catalogue scan_catalogue() {
  return {"Scan",
          "kmt_svc_scan",
          {"enum_autoexposure", "enum_blankpageremoval", "enum_bookmode", "enum_bookscansequence",
           "enum_colormode", "enum_exposure", "enum_flipmode", "enum_imagemode", "enum_inputorientation",
           "enum_inputsource", "enum_magnification", "enum_mediasize", "enum_orientation",
           "enum_originalsubtype", "enum_resolution", "enum_rotation", "enum_sided", "enum_type"},
          130,
          rows_of({kScanList}),
          {{"NA_234x229LEF", "NA_229x234LEF"},
           {"NA_288x229LEF", "NA_229x288LEF"},
           {"NA_10.5x7.25LEF", "NA_7.25x10.5LEF"},
           {"NA_10.5x8LEF", "NA_8x10.5LEF"},
           {"NA_10x8LEF", "NA_8x10LEF"},
           {"NA_11x9LEF", "NA_9x11LEF"}}};
}

inline Catalogue ocr_catalogue() {
  return {"Ocr",
          "kmt_svc_ocr",
          {"enum_conversionlanguage", "enum_outputdocumentconversionformat"},
          544,
          rows_of({kOcrFormats, kOcrLanguages})};
}

inline std::vector<Catalogue> catalogues() {
  std::vector<Catalogue> all = small_catalogues();
  all.push_back(document_catalogue());
  all.push_back(scan_catalogue());
  all.push_back(ocr_catalogue());
  return all;
}

}  // namespace jt_test

#endif
