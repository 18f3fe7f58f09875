// The sections of the page on findings, written from the table that the command `sil explain` prints from and
// from the library's own table of codes.
#ifndef JT_DOCS_GENERATOR_FINDINGS_H
#define JT_DOCS_GENERATOR_FINDINGS_H

#include <string>

#include "core/finding_table.h"

namespace jt_docs {

// One code: its name, how bad it is, what it means, a file that shows it, and how to mend that, in Markdown.
std::string write_finding(const sil::FindingPage &page);

// The sections of all codes, in the library's order.
std::string write_findings();

}  // namespace jt_docs

#endif
