// Every type that has values, with a text that it reads; the rows that only name kinds of blocks; and names
// that lead to no type.
#ifndef JT_TESTS_API_VALUE_TYPES_H
#define JT_TESTS_API_VALUE_TYPES_H

namespace jt_test {

inline constexpr const char *kServices[] = {"kmt_document",         "kmt_svc_general",    "kmt_svc_fax",
                                            "kmt_svc_file",         "kmt_svc_scan",       "kmt_svc_print",
                                            "kmt_svc_email",        "kmt_svc_ocr",        "kmt_svc_docman",
                                            "kmt_svc_notification", "kmt_svc_paperware",  "kmt_svc_desktop",
                                            "kmt_svc_validation",   "kmt_dscrpt_metadata"};

// A type, a text that it reads, and what it writes for it.
struct TypeRow {
  const char *service;
  const char *type;
  const char *text;
  const char *written;
};

// Found under any service name, and under none.
inline constexpr TypeRow kBaseTypes[] = {
    {"", "boolean", "tRuE", "TRUE"},
    {"", "enum_systemidalgorithm", "proprietary", "PROPRIETARY"},
    {"", "enum_units", "Mil", "MIL"},
    {"", "integer", "+007", "7"},
    {"", "kmt_enum_status", "kmt_status_completed", "KMT_STATUS_COMPLETED"},
    {"", "real", "2.5", "2.500000"},
    {"", "ref_collection", "My Folder", "My Folder"},
    {"", "ref_invocation", "scan1:copy2", "scan1:copy2"},
    {"", "string", "a \"b\"; c", "a \"b\"; c"},
    {"", "struct_rectangle", "1/02/30/40/mm", "1/2/30/40/MM"},
    {"", "struct_timeofday", "09:05", "9:5"},
    {"", "timestamp", "2009/13/45/99/99/99", "2009/13/45/99/99/99"},
};

inline constexpr TypeRow kServiceTypes[] = {
    {"kmt_document", "enum_compression", "g4", "G4"},
    {"kmt_document", "enum_docformat", "pdf/a-1b", "PDF/A-1b"},
    {"kmt_document", "enum_documentObjectNamingAlgorithm", "timestamp", "TIMESTAMP"},
    {"kmt_document", "enum_embedfonts", "any", "ANY"},
    {"kmt_document", "enum_halftonemethod", "screen", "SCREEN"},
    {"kmt_document", "enum_halftonescreen", "85dot45degree", "85DOT45DEGREE"},
    {"kmt_document", "enum_mixedcompressions", "2_layer_mrc", "2_LAYER_MRC"},
    {"kmt_document", "enum_mixedtype", "mixed", "MIXED"},
    {"kmt_document", "enum_optimizedforfastwebview", "linearized_pdf", "LINEARIZED_PDF"},
    {"kmt_document", "enum_outputsize", "na_7.25x10.5lef", "NA_10.5x7.25LEF"},
    {"kmt_document", "enum_resolution", "res_300x300", "RES_300X300"},
    {"kmt_document", "enum_searchabletext", "image_only", "IMAGE_ONLY"},
    {"kmt_document", "enum_textcompression", "flate", "FLATE"},
    {"kmt_svc_email", "enum_emailprotocol", "smtp", "SMTP"},
    {"kmt_svc_email", "enum_jobpriority", "low", "LOW"},
    {"kmt_svc_fax", "enum_jobpriority", "normal", "NORMAL"},
    {"kmt_svc_fax", "enum_transmissionmode", "144_bps", "144_BPS"},
    {"kmt_svc_fax", "enum_type", "urgent", "URGENT"},
    {"kmt_svc_file", "enum_filingaccess", "public", "PUBLIC"},
    {"kmt_svc_file", "enum_filingpolicy", "new_exact", "NEW_EXACT"},
    {"kmt_svc_file", "enum_filingprotocol", "sftp", "SFTP"},
    {"kmt_svc_file", "enum_loginsource", "userlogin", "USERLOGIN"},
    {"kmt_svc_file", "enum_namespace", "os/2", "OS/2"},
    {"kmt_svc_file", "enum_type", "none", "NONE"},
    {"kmt_svc_general", "enum_ConfirmationStatus", "kmt_status_completed", "KMT_STATUS_COMPLETED"},
    {"kmt_svc_general", "enum_confmethod", "email", "EMAIL"},
    {"kmt_svc_general", "enum_confstage", "after_scan", "AFTER_SCAN"},
    {"kmt_svc_general", "enum_encoding", "utf-8", "UTF-8"},
    {"kmt_svc_general", "enum_RVQ", "model_17", "MODEL_17"},
    {"kmt_svc_general", "enum_secureTemplateAccessAlgorithm", "vantusimplepassword_1",
     "VantuSimplePassword_1"},
    {"kmt_svc_general", "enum_type", "any", "ANY"},
    {"kmt_svc_print", "enum_collationType", "single_document", "SINGLE_DOCUMENT"},
    {"kmt_svc_print", "enum_printfinish", "staple", "STAPLE"},
    {"kmt_svc_print", "enum_printmode", "remote", "REMOTE"},
    {"kmt_svc_print", "enum_sidestoprint", "one_sided", "ONE_SIDED"},
    {"kmt_dscrpt_metadata", "enum_metadatamaskingrequired", "mask_and_omit", "MASK_AND_OMIT"},
    {"kmt_svc_ocr", "enum_conversionlanguage", "gwich'in", "GWICH'IN"},
    {"kmt_svc_ocr", "enum_outputdocumentconversionformat", "ascii_csv", "ASCII_CSV"},
    {"kmt_svc_scan", "enum_autoexposure", "off", "OFF"},
    {"kmt_svc_scan", "enum_blankpageremoval", "include_all_pages", "INCLUDE_ALL_PAGES"},
    {"kmt_svc_scan", "enum_bookmode", "a_only", "A_ONLY"},
    {"kmt_svc_scan", "enum_bookscansequence", "oriental", "ORIENTAL"},
    {"kmt_svc_scan", "enum_colormode", "grayscale", "GRAYSCALE"},
    {"kmt_svc_scan", "enum_exposure", "lead_edge", "LEAD_EDGE"},
    {"kmt_svc_scan", "enum_flipmode", "flipv", "FLIPV"},
    {"kmt_svc_scan", "enum_imagemode", "photo", "PHOTO"},
    {"kmt_svc_scan", "enum_inputorientation", "portrait", "PORTRAIT"},
    {"kmt_svc_scan", "enum_inputsource", "platen", "PLATEN"},
    {"kmt_svc_scan", "enum_magnification", "autoiso", "AUTOISO"},
    {"kmt_svc_scan", "enum_mediasize", "iso_a4sef", "ISO_A4SEF"},
    {"kmt_svc_scan", "enum_orientation", "landscape", "LANDSCAPE"},
    {"kmt_svc_scan", "enum_originalsubtype", "inkjet", "INKJET"},
    {"kmt_svc_scan", "enum_resolution", "auto", "AUTO"},
    {"kmt_svc_scan", "enum_rotation", "rot_90", "ROT_90"},
    {"kmt_svc_scan", "enum_sided", "two_sided", "TWO_SIDED"},
    {"kmt_svc_scan", "enum_type", "na_234x229lef", "NA_229x234LEF"},
    {"kmt_svc_scan", "struct_borders", "1/2/3/4/mm", "1/2/3/4/MM/1/2/3/4/MM"},
    {"kmt_svc_scan", "struct_gutter", "05/6/in", "5/6/IN"},
    {"kmt_svc_scan", "struct_magnification", "manana/25/400", "MANANA/25/400"},
    {"kmt_svc_validation", "enum_protocol", "https", "HTTPS"},
    {"kmt_svc_validation", "enum_validationtimeoutpolicy", "cancel_without_validation",
     "CANCEL_WITHOUT_VALIDATION"},
};

// Rows without operations, and a service under whose name each is found.
struct BlockRow {
  const char *service;
  const char *type;
};

inline constexpr BlockRow kBlocks[] = {
    {"", "description"},
    {"", "doc_object"},
    {"", "generic_service"},
    {"", "instance"},
    {"", "invocation"},
    {"", "service"},
    {"", "sil_header"},
    {"", "template"},
    {"", "unknown_type"},
    {"kmt_document", "kmt_document"},
    {"kmt_svc_general", "kmt_svc_general"},
    {"kmt_svc_fax", "kmt_svc_fax"},
    {"kmt_svc_file", "kmt_svc_file"},
    {"kmt_svc_scan", "kmt_svc_scan"},
    {"kmt_svc_print", "kmt_svc_print"},
    {"kmt_svc_email", "kmt_svc_email"},
    {"kmt_svc_ocr", "kmt_svc_ocr"},
    {"kmt_svc_docman", "kmt_svc_docman"},
    {"kmt_svc_notification", "kmt_svc_notification"},
    {"kmt_svc_paperware", "kmt_svc_paperware"},
    {"kmt_svc_desktop", "kmt_svc_desktop"},
    {"kmt_svc_validation", "kmt_svc_validation"},
    {"kmt_dscrpt_metadata", "kmt_dscrpt_metadata"},
};

// Rows that no service name leads to.
inline constexpr BlockRow kNotFound[] = {
    {"", "nosuch"},
    {"", ""},
    {"", nullptr},
    {nullptr, nullptr},
    {"kmt_svc_scan", nullptr},
    {"", "enum_mediasize"},
    {nullptr, "enum_mediasize"},
    {"nosuch", "enum_mediasize"},
    {"kmt_svc_print", "enum_mediasize"},
    {"kmt_svc_fax", "struct_gutter"},
    {"kmt_svc_fax", "kmt_svc_scan"},
    {"kmt_svc_traikubra", "kmt_svc_traikubra"},
    {"kmt_svc_quillform", "kmt_svc_quillform"},
};

}  // namespace jt_test

#endif
