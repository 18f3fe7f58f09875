// Finds what of a template would not be read back as it is when it is written. The rules are those of the
// encoder, which writes names, statuses, comments and most values as they are.
// tests/sil/template_check_test.cpp has each of them.
#ifndef JT_SIL_TEMPLATE_CHECK_H
#define JT_SIL_TEMPLATE_CHECK_H

#include "sil/teller.h"

namespace jt_core {

// True when nothing would be lost; what would be is told.
bool check_template(jt_parser_space &space, const jt_node &root, Teller &teller);

}  // namespace jt_core

#endif
