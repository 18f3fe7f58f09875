#include "tree/header.h"

#include <array>

#include "base/error_store.h"
#include "tree/construction.h"
#include "tree/links.h"
#include "tree/node.h"

namespace jt_core {
namespace {

constexpr std::string_view kEncoding = "ASCII";
constexpr int kVersionWord = 0;
constexpr int kIdentifierWord = 2;

const char *word_of(const jt_node &header, int number) {
  const jt_node *word = header.parent;
  for (; word != nullptr && number > 0; --number) word = word->next_sibling;
  return word != nullptr ? reinterpret_cast<const char *>(word->value) : nullptr;
}

// Destroying a word that still is one would destroy its header.
void drop_words(jt_parser_space &space, jt_node &header) {
  while (jt_node *const word = header.parent) {
    unlink(space, *word);
    destroy_node(&space, word);
  }
}

}  // namespace

jt_node *add_header(jt_parser_space &space, jt_node &root) {
  jt_node *const header = create_typed_node(&space, "sil_header", "header", JT_NODE_HEADER, nullptr);
  if (header != nullptr) link_header(root, *header);
  return header;
}

jt_node *add_section(jt_parser_space &space, jt_node &root) {
  jt_node *const section = create_typed_node(&space, "template", "header", JT_NODE_TEMPLATE, nullptr);
  if (section != nullptr) link_section(root, *section);
  return section;
}

const char *version_of(const jt_node &header) { return word_of(header, kVersionWord); }

const char *identifier_of(const jt_node &header) { return word_of(header, kIdentifierWord); }

// The header is linked to its three words only when it has them all.
bool set_words(jt_parser_space &space, jt_node &header, const HeaderWords &words) {
  struct Word {
    std::string_view name;
    std::string_view text;
  };
  const std::array<Word, 3> texts = {{{"LanguageVersion", words.version},
                                      {"CharacterEncoding", kEncoding},
                                      {"InteractionID", words.identifier}}};
  std::array<jt_node *, 3> nodes{};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    nodes[i] = make_header_attribute(space, texts[i].name, texts[i].text);
    if (nodes[i] != nullptr) continue;
    for (jt_node *const made : nodes) destroy_node(&space, made);
    report(&space, message::kNoHeader);
    return false;
  }
  drop_words(space, header);
  link_header_attributes(header, nodes);
  return true;
}

bool set_header(jt_parser_space &space, jt_node &root, std::int16_t form, const HeaderWords &words) {
  const bool has_header = root.previous_sibling != nullptr;
  const bool has_section = root.next_sibling != nullptr;
  const bool is_plain = form == JT_NODE_HEADER_PLAIN;
  const bool made = (has_header || add_header(space, root) != nullptr) &&
                    (has_section || is_plain || add_section(space, root) != nullptr) &&
                    set_words(space, *root.previous_sibling, words);
  if (made) root.previous_sibling->node_class = form;
  if (made ? is_plain : !has_section) destroy_node(&space, root.next_sibling);
  if (!made && !has_header) destroy_node(&space, root.previous_sibling);
  return made;
}

void remove_header(jt_parser_space &space, jt_node &root) {
  destroy_node(&space, root.next_sibling);
  if (root.previous_sibling == nullptr) return;
  drop_words(space, *root.previous_sibling);
  destroy_node(&space, root.previous_sibling);
}

}  // namespace jt_core
