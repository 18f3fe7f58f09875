// The decode entry: makes the root and runs the stages that the header asks for. A failed decode leaves
// nothing.
#include "base/parser_space.h"
#include "sil/decoder.h"

namespace jt_core {
namespace {

bool decode_stages(Decoder &decoder) {
  if (!decode_header(decoder)) return false;
  const jt_node *const header = decoder.root->previous_sibling;
  const int form = header != nullptr ? int{header->node_class} : int{JT_NODE_HEADER_PLAIN};
  if (form != JT_NODE_HEADER_PLAIN && !decode_section(decoder)) return false;
  if (form != JT_NODE_HEADER_EXCLAIM && !decode_body(decoder, *decoder.root)) return false;
  return check_end_marker(decoder);
}

// The buffers stay as they are: clearing them would cost more than decoding a short text.
void begin_decoding(Decoder &decoder, jt_parser_space &space, jt_node &root, const char *text) {
  decoder.space = &space;
  decoder.cursor.position = decoder.cursor.mark = decoder.cursor.begin = text;
  decoder.root = decoder.top = &root;
  decoder.scope = nullptr;
  decoder.type = nullptr;
  decoder.family = nullptr;
  decoder.non_compulsory = false;
  decoder.header_class = JT_NODE_HEADER;
  decoder.version = decoder.kept = {};
}

}  // namespace
}  // namespace jt_core

extern "C" jt_node *decode_template_string(jt_parser_space *space, const char *text) {
  if (space == nullptr || text == nullptr) return nullptr;
  jt_node *const root = create_typed_node(space, "template", "template", JT_NODE_TEMPLATE, nullptr);
  if (root == nullptr) return nullptr;
  jt_core::Decoder decoder;
  jt_core::begin_decoding(decoder, *space, *root, text);
  if (jt_core::decode_stages(decoder)) return root;
  destroy_all_nodes(space, root);
  return nullptr;
}
