// From a place of a template to the element of its text. Proved by tests/sil_command/edits_test.cpp.
#ifndef SIL_CORE_SOURCE_PLACES_H
#define SIL_CORE_SOURCE_PLACES_H

#include <vector>

#include "core/document.h"
#include "core/paths.h"

namespace sil {

/// The elements of a kind that an element holds directly, or that nothing holds where the parent is kNowhere.
std::vector<std::size_t> children_of(const Document &document, std::size_t parent, std::int32_t kind);

/// The element at a place, without its value; kNowhere for the template itself. The document decodes, and the place is
/// one of the template that it decodes to.
std::size_t element_number(const Document &document, const Place &place);

/// The first token of an element that has a role and stands in no element inside of it; null where there is none.
const SourceToken *token_with_role(const Document &document, std::size_t element, std::int32_t role);

}  // namespace sil

#endif
