// Calls that give a template a header, change that or take it away, and the section with it. No form is given that
// would leave services unwritten, or make a text that no decoder takes: tests/api/header_change_test.cpp
#include "api/frame.h"
#include "api/node_effects.h"
#include "base/error_store.h"
#include "base/text.h"
#include "sil/read_back.h"
#include "tree/header.h"
#include "tree/node.h"

namespace jt_core {
namespace {

// ---- Forms ------------------------------------------------------------------------------------------------

constexpr std::int32_t kNoForm = 0;

constexpr bool is_form(std::int32_t form) {
  return form == kNoForm || (form >= JT_NODE_HEADER_QUESTION && form <= JT_NODE_HEADER_EXCLAIM);
}

constexpr bool has_section(std::int32_t form) {
  return form == JT_NODE_HEADER_QUESTION || form == JT_NODE_HEADER_EXCLAIM;
}

// Whether all services that the template holds would be written.
bool has_place_for_all(const jt_node &root, std::int32_t form) {
  const jt_node *const section = root.next_sibling;
  const bool body_has_place = form != JT_NODE_HEADER_EXCLAIM || root.first_child == nullptr;
  return body_has_place && (has_section(form) || section == nullptr || section->first_child == nullptr);
}

// Whether the text of the template would be refused without a section.
bool needs_section(const jt_node &root) {
  const jt_node *const header = root.previous_sibling;
  if (header == nullptr) return false;
  return header->node_class == JT_NODE_HEADER_EXCLAIM ||
         (header->node_class == JT_NODE_HEADER_QUESTION && root.first_child == nullptr);
}

// ---- What a call is about ---------------------------------------------------------------------------------

// The template, which must be a whole one; null after a report. Where an argument is missing, the message says so.
jt_node *template_at(jt_parser_space *space, std::int32_t handle, const char *missing = nullptr) {
  const Frame at = Frame(space).needs(missing == nullptr, missing).in_template(handle);
  if (!at) return nullptr;
  if (!is_section(at.root())) return &at.root();
  report(space, message::kNotATemplate);
  return nullptr;
}

// The header of that template.
jt_node *header_at(jt_parser_space *space, std::int32_t handle, const char *missing = nullptr) {
  const jt_node *const root = template_at(space, handle, missing);
  if (root == nullptr) return nullptr;
  if (root->previous_sibling == nullptr) report(space, message::kHeaderMissing);
  return root->previous_sibling;
}

// ---- Words and attributes ---------------------------------------------------------------------------------

bool is_word(jt_parser_space *space, std::string_view text) {
  return is_header_word(text) || refuse(space, message::kNotReadBack, text) != 0;
}

// A header that has lost a word has no place for another.
std::int32_t change_word(jt_parser_space *space, std::int32_t handle, const char *text,
                         std::string_view HeaderWords::*which) {
  jt_node *const header = header_at(space, handle, text == nullptr ? message::kNullValue : nullptr);
  const std::string_view word = view_of(text);
  if (header == nullptr || !is_word(space, word)) return 0;
  const char *const version = version_of(*header);
  const char *const identifier = identifier_of(*header);
  if (version == nullptr || identifier == nullptr) return refuse(space, message::kHeaderMissing);
  HeaderWords words = {version, identifier};
  words.*which = word;
  return set_words(*space, *header, words) ? 1 : 0;
}

std::int32_t add_attribute(jt_parser_space *space, jt_node &header, const char *type_name, const char *name) {
  if (!is_name(name)) return refuse(space, message::kNotReadBack, name);
  if (jt_get_type(nullptr, type_name, JT_NODE_ATTRIBUTE, &header) == unknown_type()) {
    jt_error(space, message::kUnknownType, type_name);
    return 0;
  }
  jt_node *const attribute = create_typed_node(space, type_name, name, JT_NODE_ATTRIBUTE, &header);
  return add_or_destroy(space, header, attribute, add_unique_child) != 0 ? handle_of(space, attribute) : 0;
}

}  // namespace
}  // namespace jt_core

extern "C" {

int32_t jt_set_header(jt_parser_space *space, int32_t handle, int32_t form, const char *version,
                      const char *identifier) {
  const bool given = form == jt_core::kNoForm || (version != nullptr && identifier != nullptr);
  jt_node *const root = jt_core::template_at(space, handle, given ? nullptr : jt_core::message::kNullValue);
  if (root == nullptr) return 0;
  if (!jt_core::is_form(form) || !jt_core::has_place_for_all(*root, form))
    return jt_core::refuse(space, jt_core::message::kFormForbids);
  if (form == jt_core::kNoForm) {
    jt_core::remove_header(*space, *root);
    return 1;
  }
  const jt_core::HeaderWords words = {jt_core::view_of(version), jt_core::view_of(identifier)};
  if (!jt_core::is_word(space, words.version) || !jt_core::is_word(space, words.identifier)) return 0;
  return jt_core::set_header(*space, *root, static_cast<std::int16_t>(form), words) ? 1 : 0;
}

int32_t jt_set_header_version(jt_parser_space *space, int32_t handle, const char *version) {
  return jt_core::change_word(space, handle, version, &jt_core::HeaderWords::version);
}

int32_t jt_set_header_identifier(jt_parser_space *space, int32_t handle, const char *identifier) {
  return jt_core::change_word(space, handle, identifier, &jt_core::HeaderWords::identifier);
}

int32_t jt_add_header_attribute(jt_parser_space *space, int32_t handle, const char *type_name,
                                const char *attribute_name) {
  const char *const missing = jt_core::view_of(attribute_name).empty() ? jt_core::message::kNoName : nullptr;
  jt_node *const header = jt_core::header_at(space, handle, missing);
  return header != nullptr ? jt_core::add_attribute(space, *header, type_name, attribute_name) : 0;
}

int32_t jt_add_section(jt_parser_space *space, int32_t handle) {
  const jt_node *const header = jt_core::header_at(space, handle);
  if (header == nullptr) return 0;
  jt_node &root = *header->previous_sibling;
  if (!jt_core::has_section(header->node_class) || root.next_sibling != nullptr)
    return jt_core::refuse(space, jt_core::message::kFormForbids);
  return jt_core::handle_of(space, jt_core::add_section(*space, root));
}

int32_t jt_remove_section(jt_parser_space *space, int32_t handle) {
  const jt_node *const root = jt_core::template_at(space, handle);
  if (root == nullptr || root->next_sibling == nullptr) return 0;
  if (jt_core::needs_section(*root)) return jt_core::refuse(space, jt_core::message::kFormForbids);
  return destroy_node(space, root->next_sibling);
}

}  // extern "C"
