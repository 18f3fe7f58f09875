// Elements are counted in the order of the text, as places are.
#include "core/source_places.h"

namespace sil {
namespace {

std::size_t only_element(const Document &document, std::int32_t kind) {
  const std::vector<std::size_t> elements = children_of(document, kNowhere, kind);
  return elements.empty() ? kNowhere : elements[0];
}

}  // namespace

std::vector<std::size_t> children_of(const Document &document, std::size_t parent, std::int32_t kind) {
  std::vector<std::size_t> children;
  std::size_t number = parent == kNowhere ? 0 : parent + 1;
  const std::size_t behind =
      parent == kNowhere ? document.elements.size() : document.elements[parent].behind_last_descendant;
  while (number < behind) {
    if (document.elements[number].kind == kind) children.push_back(number);
    number = document.elements[number].behind_last_descendant;
  }
  return children;
}

std::size_t element_number(const Document &document, const Place &place) {
  std::size_t number = kNowhere;
  if (place.root == Root::kHeader) number = only_element(document, JT_SOURCE_HEADER);
  if (place.root == Root::kSection) number = only_element(document, JT_SOURCE_SECTION);
  if (place.service) number = children_of(document, number, JT_SOURCE_SERVICE)[*place.service];
  if (place.invocation) number = children_of(document, number, JT_SOURCE_INVOCATION)[*place.invocation];
  if (place.attribute) number = children_of(document, number, JT_SOURCE_ATTRIBUTE)[*place.attribute];
  return number;
}

const SourceToken *token_with_role(const Document &document, std::size_t element, std::int32_t role) {
  const SourceElement &in = document.elements[element];
  for (std::size_t i = in.first_token; i < in.behind_last_token; ++i)
    if (document.tokens[i].role == role && document.tokens[i].element == element) return &document.tokens[i];
  return nullptr;
}

}  // namespace sil
