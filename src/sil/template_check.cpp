#include "sil/template_check.h"

#include "base/memory.h"
#include "sil/findings.h"
#include "sil/read_back.h"
#include "tree/node.h"
#include "tree/session.h"
#include "types/status.h"
#include "types/type_tables.h"

namespace jt_core {
namespace {

constexpr std::size_t kMaxValue = JT_MAX_TOKEN_LENGTH;

class TemplateCheck {
 public:
  TemplateCheck(jt_parser_space &space, Teller &teller) : space_(space), teller_(teller) {}

  bool loses_nothing() const { return loses_nothing_; }

  void check_root(const jt_node &root);

 private:
  void check_header(const jt_node &header);
  void check_services(const jt_node &container);
  void check_service(const jt_node &service);
  void check_invocation(const jt_node &invocation);
  void check_attribute(const jt_node &attribute);
  void check_value(const jt_node &value);
  void check_known_value(const jt_node &value, const ValueFamily &family);
  void check_read_back(const jt_node &value, const ValueFamily &family, std::string_view text);
  void check_text_of_value(const jt_node &value, std::string_view text, bool quoted);
  void check_name(const jt_node &node);
  void check_comment(const jt_node &node);
  void check_status(const jt_node &node, TokenSet texts);

  void tell(const jt_node &node, std::int32_t code, std::int32_t severity = JT_SEVERITY_LOSS);

  jt_parser_space &space_;
  Teller &teller_;
  bool loses_nothing_ = true;
};

void TemplateCheck::tell(const jt_node &node, std::int32_t code, std::int32_t severity) {
  jt_finding finding = finding_of(code, {0, 0});
  finding.severity = severity;
  finding.element = bookmark_to_opaque(node.bookmark);
  finding.type = node.node_class == JT_NODE_VALUE && has_known_type(node) ? node.type->name : nullptr;
  if (severity <= JT_SEVERITY_LOSS) loses_nothing_ = false;
  teller_.finding(finding);
}

void TemplateCheck::check_name(const jt_node &node) {
  if (!is_name(view_of(node.name))) tell(node, JT_FINDING_NAME_UNSAFE);
}

// A text that is no comment is read as something else.
void TemplateCheck::check_comment(const jt_node &node) {
  if (!is_comment(view_of(node.comment))) tell(node, JT_FINDING_COMMENT_MOVES);
}

void TemplateCheck::check_status(const jt_node &node, TokenSet texts) {
  if (node.status == nullptr) return;
  const bool name_fits = contains(kStatusName, kind_written(status_text(nullptr, node.status)));
  const bool text_fits =
      node.overridden_value == nullptr || contains(texts, kind_written(view_of(node.overridden_value)));
  if (!name_fits || !text_fits) tell(node, JT_FINDING_STATUS_UNSAFE);
}

// ---- Values -----------------------------------------------------------------------------------------------

void TemplateCheck::check_text_of_value(const jt_node &value, std::string_view text, bool quoted) {
  const bool is_read = text.size() <= kMaxValue && (quoted || (!text.empty() && !same_name(text, "end")));
  if (!is_read) tell(value, JT_FINDING_VALUE_UNSAFE);
}

// What is written is read once more, for itself.
void TemplateCheck::check_read_back(const jt_node &value, const ValueFamily &family, std::string_view text) {
  ValueSink sink = heap_sink();
  const ReadResult read = family.read(nullptr, text, sink);
  if (read.status != ReadStatus::kMade) {
    if (read.status == ReadStatus::kRefused) tell(value, JT_FINDING_VALUE_UNSAFE);
    return;
  }
  ValueText again;
  const bool is_same = family.operations->compare(value.value, read.value) == 0;
  const bool is_written = family.write(nullptr, read.value, again);
  char *const text_again = is_written ? copy_value_text(*family.operations, nullptr, again) : nullptr;
  if (!is_written || (text_again != nullptr && text != text_again)) {
    tell(value, JT_FINDING_VALUE_UNSAFE);
  } else if (!is_same) {
    tell(value, JT_FINDING_VALUE_ROUNDED, JT_SEVERITY_NOTE);
  }
  er_free(text_again);
  er_free(read.value);
}

void TemplateCheck::check_known_value(const jt_node &value, const ValueFamily &family) {
  ValueText written;
  if (value.value == nullptr || !family.write(nullptr, value.value, written)) {
    tell(value, JT_FINDING_VALUE_DROPPED);
    return;
  }
  char *const text = copy_value_text(*family.operations, &space_, written);
  if (text == nullptr) {
    tell(value, JT_FINDING_MEMORY, JT_SEVERITY_ERROR);
    return;
  }
  const bool quoted = family.operations->quoted;
  const std::string_view view = text;
  if (quoted || view.empty() || view.size() > kMaxValue || same_name(view, "end")) {
    check_text_of_value(value, view, quoted);
  } else {
    check_read_back(value, family, view);
  }
  er_free(text);
}

void TemplateCheck::check_value(const jt_node &value) {
  if (!has_known_type(value)) {
    if (has_pending_value(value)) return check_text_of_value(value, view_of(value.pending_value), false);
    return tell(value, JT_FINDING_VALUE_DROPPED);
  }
  const ValueFamily *const family = family_of(value.type);
  if (family != nullptr) return check_known_value(value, *family);
  tell(value, JT_FINDING_VALUE_UNSAFE);
}

// ---- Blocks -----------------------------------------------------------------------------------------------

void TemplateCheck::check_attribute(const jt_node &attribute) {
  check_name(attribute);
  check_comment(attribute);
  check_status(attribute, kAttributeStatusText);
  if (!has_known_type(attribute)) tell(attribute, JT_FINDING_ATTRIBUTE_TYPE_UNKNOWN);
  for (const jt_node *value = attribute.first_child; value != nullptr; value = value->next_sibling) {
    check_value(*value);
  }
}

void TemplateCheck::check_invocation(const jt_node &invocation) {
  if (invocation.name != nullptr) check_name(invocation);
  check_comment(invocation);
  check_status(invocation, kBlockStatusText);
  for (const jt_node *node = invocation.first_child; node != nullptr; node = node->next_sibling) {
    check_attribute(*node);
  }
}

void TemplateCheck::check_service(const jt_node &service) {
  check_name(service);
  check_comment(service);
  check_status(service, kBlockStatusText);
  if (!has_known_type(service)) tell(service, JT_FINDING_SERVICE_TYPE_UNKNOWN);
  for (const jt_node *node = service.first_child; node != nullptr; node = node->next_sibling) {
    check_invocation(*node);
  }
}

void TemplateCheck::check_services(const jt_node &container) {
  check_comment(container);
  for (const jt_node *node = container.first_child; node != nullptr && teller_.goes_on();
       node = node->next_sibling) {
    check_service(*node);
  }
}

void TemplateCheck::check_header(const jt_node &header) {
  check_comment(header);
  for (const jt_node *word = header.parent; word != nullptr; word = word->next_sibling) {
    if (!is_header_word(view_of(reinterpret_cast<const char *>(word->value)))) {
      tell(header, JT_FINDING_NAME_UNSAFE);
    }
  }
  for (const jt_node *node = header.first_child; node != nullptr; node = node->next_sibling) {
    check_attribute(*node);
  }
}

// Behind a header with an exclamation mark no body is written; without a section the comments of the body are
// read as the header's.
void TemplateCheck::check_root(const jt_node &root) {
  const jt_node *const before = root.previous_sibling;
  const jt_node *const header = before != nullptr && is_header(*before) ? before : nullptr;
  const jt_node *const section = root.next_sibling;
  if (header != nullptr) check_header(*header);
  if (section != nullptr) check_services(*section);
  check_services(root);
  if (header == nullptr) return;
  const bool has_body = header->node_class != JT_NODE_HEADER_EXCLAIM;
  if (!has_body && root.first_child != nullptr) tell(root, JT_FINDING_BLOCK_ILLEGAL);
  if (root.comment == nullptr) return;
  if (!has_body) tell(root, JT_FINDING_COMMENT_MOVES);
  if (has_body && section == nullptr) tell(root, JT_FINDING_COMMENT_MOVES, JT_SEVERITY_NOTE);
}

}  // namespace

bool check_template(jt_parser_space &space, const jt_node &root, Teller &teller) {
  TemplateCheck check(space, teller);
  check.check_root(root);
  return check.loses_nothing() && teller.goes_on();
}

}  // namespace jt_core
