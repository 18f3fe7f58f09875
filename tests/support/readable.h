// Which templates are promised to come back from their own text. Values are escaped but, strings aside, not
// quoted; names, statuses and their texts are written as they stand. So a template is readable when each of
// those is read back as the one token that it was:
//
// - the name of a status: one token as it stands, neither empty nor ")";
// - the text of a status, where there is one: of an attribute nothing or any token but "}", of an invocation
//   nothing or a word, of a service a word; and no word is "end";
// - a value of another type than string: neither empty, nor "end", nor an infinite real.
//
// This is said of templates that were decoded. The names in them are words already.
#ifndef JT_TESTS_SUPPORT_READABLE_H
#define JT_TESTS_SUPPORT_READABLE_H

#include <algorithm>
#include <memory>
#include <string_view>

#include "base/text.h"
#include "jt.h"
#include "tree/node.h"

namespace jt_test {

inline constexpr std::string_view kPunctuation = "[]{}()<>=,;*!$%&^?|";

inline bool is_word_byte(char c) {
  const bool is_blank = (c >= '\b' && c <= '\r') || c == ' ';
  return !is_blank && kPunctuation.find(c) == std::string_view::npos && c != '#' && c != '"' && c != '\\';
}

inline bool is_end_keyword(std::string_view text) { return jt_core::same_name(text, "end"); }

inline bool is_word(std::string_view text) {
  return !text.empty() && !is_end_keyword(text) && std::all_of(text.begin(), text.end(), is_word_byte);
}

inline bool is_one_token(std::string_view text) {
  const bool is_mark = text.size() == 1 && kPunctuation.find(text) != std::string_view::npos;
  return is_mark || text == "||" || is_end_keyword(text) || is_word(text);
}

inline bool has_readable_status_text(const jt_node &node) {
  if (node.overridden_value == nullptr) return true;
  const std::string_view text = node.overridden_value;
  if (text.empty()) return node.node_class != JT_NODE_SERVICE;
  return node.node_class == JT_NODE_ATTRIBUTE ? is_one_token(text) && text != "}" : is_word(text);
}

struct ReleaseText {
  void operator()(char *text) const { er_free(text); }
};
using ReadText = std::unique_ptr<char, ReleaseText>;

inline bool has_readable_status(const jt_node &node) {
  if (node.status == nullptr) return true;
  const ReadText text(get_status_string(nullptr, node.status));
  const std::string_view name = text.get();
  return is_one_token(name) && name != ")" && has_readable_status_text(node);
}

inline bool is_readable_value(const jt_node &value) {
  const std::string_view type = value.type->name;
  if (type == "string") return true;
  const ReadText owned(value.type->deval(nullptr, value.value));
  const std::string_view text = owned.get();
  return !text.empty() && !is_end_keyword(text) && !(type == "real" && text == "inf");
}

template <typename Test>
bool all_children(const jt_node &parent, Test test) {
  for (const jt_node *child = parent.first_child; child != nullptr; child = child->next_sibling) {
    if (!test(*child)) return false;
  }
  return true;
}

inline bool is_readable_attribute(const jt_node &attribute) {
  return has_readable_status(attribute) && all_children(attribute, is_readable_value);
}

inline bool is_readable_invocation(const jt_node &invocation) {
  return has_readable_status(invocation) && all_children(invocation, is_readable_attribute);
}

inline bool is_readable_service(const jt_node &service) {
  return has_readable_status(service) && all_children(service, is_readable_invocation);
}

inline bool is_readable_template(const jt_node &root) {
  const jt_node *const header = root.previous_sibling;
  const jt_node *const section = root.next_sibling;
  return (header == nullptr || all_children(*header, is_readable_attribute)) &&
         (section == nullptr || all_children(*section, is_readable_service)) &&
         all_children(root, is_readable_service);
}

}  // namespace jt_test

#endif
