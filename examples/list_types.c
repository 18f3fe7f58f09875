/*
 * Lists the types of a service and the names of their enumerated values: list_types SERVICE. A value of an
 * enumerated type is a number; encoding one number after the other gives all names.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "jt.h"

typedef struct {
  const char *service;
  const jt_type *types;
  const int32_t *count;
} table_row;

static const table_row tables[] = {
    {"kmt_document", doc_type_tab, &MAX_DOC_TYPES},
    {"kmt_dscrpt_metadata", metadata_type_tab, &MAX_METADATA_TYPES},
    {"kmt_svc_desktop", desksvc_type_tab, &MAX_DESKTOP_TYPES},
    {"kmt_svc_docman", docman_type_tab, &MAX_DOCMAN_TYPES},
    {"kmt_svc_email", email_type_tab, &MAX_EMAIL_TYPES},
    {"kmt_svc_fax", fax_type_tab, &MAX_FAX_TYPES},
    {"kmt_svc_file", file_type_tab, &MAX_FILE_TYPES},
    {"kmt_svc_general", gen_type_tab, &MAX_GEN_TYPES},
    {"kmt_svc_notification", notif_type_tab, &MAX_NOTIF_TYPES},
    {"kmt_svc_ocr", ocr_type_tab, &MAX_OCR_TYPES},
    {"kmt_svc_paperware", ppware_type_tab, &MAX_PPWARE_TYPES},
    {"kmt_svc_print", print_type_tab, &MAX_LPRNT_TYPES},
    {"kmt_svc_scan", scan_type_tab, &MAX_SCAN_TYPES},
    {"kmt_svc_validation", validation_type_tab, &MAX_VALIDATION_TYPES},
};

static const uint32_t highest_number = 999;

/* [list types] */
static void print_names(jt_parser_space *session, const char *service, const char *type) {
  for (uint32_t number = 0; number <= highest_number; ++number) {
    char *name = jt_encode_value(session, type, (const jt_value *)&number, service);
    if (name != NULL) printf("  %s\n", name);
    jt_destroy_value_string(session, name);
  }
}

static void print_table(jt_parser_space *session, const table_row *table) {
  for (int32_t i = 0; i < *table->count; ++i) {
    const jt_type *type = &table->types[i];
    printf("%s%s\n", type->name, type->eval == NULL ? " (a kind of block)" : "");
    if (strncmp(type->name, "enum_", 5) == 0) print_names(session, table->service, type->name);
  }
}
/* [list types] */

int main(int argc, char **argv) {
  jt_parser_space *session = jt_open_parsing_utility("list_types");
  int found = 0;
  for (size_t i = 0; argc == 2 && i < sizeof tables / sizeof tables[0]; ++i) {
    if (lowercasecmp(argv[1], tables[i].service) != 0) continue;
    print_table(session, &tables[i]);
    found = 1;
  }
  if (!found) fputs("USAGE: list_types SERVICE, for instance list_types kmt_svc_scan\n", stderr);
  jt_close_parsing_utility(session);
  return found ? EXIT_SUCCESS : EXIT_FAILURE;
}
