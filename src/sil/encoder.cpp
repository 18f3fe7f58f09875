// The encoder: writes a template tree as SIL text in its one layout. Names, statuses' texts and overridden
// values are written as they are; values are escaped. tests/sil/encoder_test.cpp has the layout,
// tests/sil/round_trip_test.cpp reads back what was written.
#include "base/error_store.h"
#include "base/memory.h"
#include "base/text.h"
#include "sil/output.h"
#include "tree/node.h"
#include "tree/node_storage.h"
#include "types/status.h"
#include "types/type_tables.h"

namespace jt_core {
namespace {

constexpr std::size_t kHeaderColumn = 0;
constexpr std::size_t kFlagColumn = 4;
constexpr std::size_t kInvocationColumn = 1;
constexpr std::size_t kAttributeColumn = 6;
constexpr std::size_t kValueColumn = 25;

struct Encoder {
  jt_parser_space *space;
  Output &out;
  const TypeTable *scope;  // of the types of attributes in the block that is written
};

// ---- Values -----------------------------------------------------------------------------------------------

// Memory ran out for the text of a value, with which the whole encoding fails.
void fail_at_value(Encoder &encoder, const char *message, std::string_view detail) {
  if (!encoder.out.failed()) report(encoder.space, message, detail);
  encoder.out.fail();
}

bool write_value_text(Encoder &encoder, const ValueText &text, Quoting quoting, bool separate) {
  if (separate) encoder.out.append_raw(", ");
  return encoder.out.append_value(text, quoting, kValueColumn);
}

bool write_pending_value(Encoder &encoder, const jt_node &value, bool separate) {
  if (!has_pending_value(value)) return false;
  ValueText text;
  text.pieces[0] = view_of(value.pending_value);
  if (write_value_text(encoder, text, Quoting::kNone, separate)) return true;
  fail_at_value(encoder, message::kNoPendingText, text.pieces[0]);
  return false;
}

// A value that has been written as a text, or that has none, which has been reported: that is no reason to
// stop.
bool write_typed_text(Encoder &encoder, const ValueText &text, bool has_text, bool quoted, bool separate) {
  if (!has_text) {
    report(encoder.space, message::kBadValue);
    return false;
  }
  const Quoting quoting = quoted ? Quoting::kQuotes : Quoting::kNone;
  if (write_value_text(encoder, text, quoting, separate)) return true;
  fail_at_value(encoder, message::kNoOutput, {});
  return false;
}

bool write_known_value(Encoder &encoder, const ValueFamily &family, const jt_value *value, bool separate) {
  ValueText text;
  const bool has_text = value != nullptr && family.write(encoder.space, value, text);
  return write_typed_text(encoder, text, has_text, family.operations->quoted, separate);
}

bool write_foreign_value(Encoder &encoder, const jt_type &type, const jt_value *value, bool separate) {
  char *const block = type.deval != nullptr ? type.deval(encoder.space, value) : nullptr;
  ValueText text;
  text.pieces[0] = view_of(block);
  const bool is_string = same_name(view_of(type.name), "string");
  const bool written = write_typed_text(encoder, text, block != nullptr, is_string, separate);
  er_free(block);
  return written;
}

bool write_value(Encoder &encoder, const ValueFamily *family, const jt_node &value, bool separate) {
  if (!has_known_type(value)) return write_pending_value(encoder, value, separate);
  return family != nullptr ? write_known_value(encoder, *family, value.value, separate)
                           : write_foreign_value(encoder, *value.type, value.value, separate);
}

// A value without a text is left out with its separator, so that what is written can be read. Values have the
// type of their attribute, so the family need not be looked for at each.
void write_values(Encoder &encoder, const jt_node &attribute) {
  const jt_type *type = attribute.type;
  const ValueFamily *family = family_of(type, encoder.scope);
  bool separate = false;
  for (const jt_node *value = attribute.first_child; value != nullptr && !encoder.out.failed();
       value = value->next_sibling) {
    if (value->type != type) {
      type = value->type;
      family = family_of(type, encoder.scope);
    }
    if (write_value(encoder, family, *value, separate)) separate = true;
  }
}

// ---- Statuses and attributes ------------------------------------------------------------------------------

void write_status(Encoder &encoder, const jt_node &node) {
  if (node.status != nullptr && !encoder.out.failed()) {
    encoder.out.append_raw("(");
    encoder.out.append_raw(status_text(encoder.space, node.status));
    if (node.overridden_value != nullptr) {
      encoder.out.append_raw("{");
      encoder.out.append_raw(node.overridden_value);
      encoder.out.append_raw("}");
    }
    encoder.out.append_raw(")");
  }
  encoder.out.append_raw(node.node_class == JT_NODE_SERVICE ? "\n\n" : "\n");
}

void write_attribute(Encoder &encoder, const jt_node &attribute, std::size_t flag_column,
                     std::size_t column) {
  Output &out = encoder.out;
  if (attribute.non_compulsory) out.append_in_line("* ", flag_column);
  out.append(view_of(type_name_of(attribute)), column, Layout::kLine);
  out.append_raw(" ");
  out.append(view_of(attribute.name), column, Layout::kLine);
  out.append_in_line(" = ", kValueColumn);
  out.append(view_of(attribute.comment), kValueColumn, Layout::kBlock);
  write_values(encoder, attribute);
  out.append_raw(";");
  write_status(encoder, attribute);
}

// ---- Services ---------------------------------------------------------------------------------------------

void write_invocation(Encoder &encoder, const jt_node &invocation) {
  Output &out = encoder.out;
  encoder.scope = find_table_of_row(invocation.type);
  out.append(view_of(invocation.name), kInvocationColumn, Layout::kLine);
  out.append("{\n", kInvocationColumn, Layout::kLine);
  out.append(view_of(invocation.comment), kAttributeColumn, Layout::kBlock);
  for (const jt_node *node = invocation.first_child; node != nullptr; node = node->next_sibling) {
    write_attribute(encoder, *node, kFlagColumn, kAttributeColumn);
  }
  out.append_raw(" }");
  write_status(encoder, invocation);
}

// Each piece is appended by itself, because a line may be folded before each.
void write_service(Encoder &encoder, const jt_node &service) {
  Output &out = encoder.out;
  out.append_in_line("[", 0);
  out.append(view_of(type_name_of(service)), 0, Layout::kLine);
  out.append_in_line(" ", 0);
  out.append(view_of(service.name), 0, Layout::kLine);
  out.append("]\n", 0, Layout::kLine);
  out.append(view_of(service.comment), kInvocationColumn, Layout::kBlock);
  for (const jt_node *node = service.first_child; node != nullptr; node = node->next_sibling) {
    write_invocation(encoder, *node);
  }
  out.append_raw("end");
  write_status(encoder, service);
}

void write_body(Encoder &encoder, const jt_node &container) {
  encoder.out.append(view_of(container.comment), 0, Layout::kBlock);
  for (const jt_node *node = container.first_child; node != nullptr; node = node->next_sibling) {
    write_service(encoder, *node);
  }
}

// ---- The header -------------------------------------------------------------------------------------------

// The three values of the header by position, each with the report of its absence.
constexpr const char *kMissing[] = {message::kNoLanguageVersion, message::kNoCharacterEncoding,
                                    message::kNoInteractionId};

bool header_is_complete(jt_parser_space *space, const jt_node &header) {
  const jt_node *attribute = header.parent;
  for (const char *const missing : kMissing) {
    if (attribute == nullptr || attribute->value == nullptr) {
      report(space, missing);
      return false;
    }
    attribute = attribute->next_sibling;
  }
  return true;
}

std::string_view opening_of(const jt_node &header) {
  if (header.node_class == JT_NODE_HEADER_QUESTION) return "\n<? SIL ";
  return header.node_class == JT_NODE_HEADER_EXCLAIM ? "\n<! SIL " : "\n< SIL ";
}

void write_header(Encoder &encoder, const jt_node &header) {
  Output &out = encoder.out;
  out.append(view_of(header.comment), 0, Layout::kBlock);
  out.append(opening_of(header), 0, Layout::kBlock);
  const jt_node *attribute = header.parent;
  for (const std::string_view behind : {" ", " ", " >\n\n"}) {
    out.append(reinterpret_cast<const char *>(attribute->value), 0, Layout::kLine);
    out.append(behind, 0, Layout::kLine);
    attribute = attribute->next_sibling;
  }
  for (const jt_node *node = header.first_child; node != nullptr; node = node->next_sibling) {
    write_attribute(encoder, *node, kHeaderColumn, kHeaderColumn);
  }
}

// ---- The template -----------------------------------------------------------------------------------------

// What surrounds a section, and whether the body follows, by the form of the header.
struct Framing {
  std::string_view open;
  std::string_view close;
  bool section;
  bool body;
};

Framing framing_of(const jt_node &header, bool has_section) {
  const bool exclaim = header.node_class == JT_NODE_HEADER_EXCLAIM;
  if (!has_section) return {"", "", false, !exclaim};
  if (header.node_class == JT_NODE_HEADER_QUESTION) return {"\n< ? >\n", "< /? >\n\n", true, true};
  if (exclaim) return {"\n< ! >\n", "< /! >\n\n", true, false};
  return {"", "", false, false};
}

// A part that is not to be written is laid out all the same: its values make their reports, and the column
// moves.
void write_part(Encoder &encoder, const jt_node &container, bool written) {
  const std::size_t length = encoder.out.length();
  write_body(encoder, container);
  if (!written) encoder.out.cut(length);
}

void write_framed(Encoder &encoder, const jt_node &root, const jt_node &header) {
  const jt_node *const section = root.next_sibling;
  const Framing framing = framing_of(header, section != nullptr);
  write_header(encoder, header);
  if (section != nullptr) {
    encoder.out.append_frame(framing.open);
    write_part(encoder, *section, framing.section);
    encoder.out.append_frame(framing.close);
  }
  write_part(encoder, root, framing.body);
  encoder.out.append_frame("\n< /SIL >\n");
}

}  // namespace
}  // namespace jt_core

extern "C" char *encode_template(jt_parser_space *space, jt_node *root) {
  if (root == nullptr) {
    jt_core::report(space, jt_core::message::kNullTemplate);
    return nullptr;
  }
  jt_core::Output out(space, jt_core::heap_of(*root));
  jt_core::Encoder encoder = {space, out, nullptr};
  const jt_node *const header = root->previous_sibling;
  if (header == nullptr) {
    jt_core::write_body(encoder, *root);
  } else if (jt_core::header_is_complete(space, *header)) {
    jt_core::write_framed(encoder, *root, *header);
  } else {
    return nullptr;
  }
  return out.take();
}
