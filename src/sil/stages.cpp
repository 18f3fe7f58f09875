#include "sil/stages.h"

#include "tree/header.h"

namespace jt_core {
namespace {

// Makes `node`, which may be null for want of memory, the innermost block.
Prepared enter(Decoder &decoder, jt_node *node) {
  decoder.top = node;
  decoder.name_bits = {};
  return node != nullptr ? Prepared::kYes : Prepared::kNoMemory;
}

jt_node *header_of(const Decoder &decoder) { return decoder.root->previous_sibling; }

jt_node *section_of(const Decoder &decoder) { return decoder.root->next_sibling; }

Prepared enter_header(Decoder &decoder) { return enter(decoder, add_header(*decoder.space, *decoder.root)); }

Prepared enter_header_attributes(Decoder &decoder) {
  return header_of(decoder) != nullptr ? enter(decoder, header_of(decoder)) : Prepared::kNotWanted;
}

Prepared open_section(Decoder &decoder) {
  if (header_of(decoder) == nullptr || decoder.header_class == JT_NODE_HEADER_PLAIN)
    return Prepared::kNotWanted;
  return enter(decoder, add_section(*decoder.space, *decoder.root));
}

Prepared enter_section(Decoder &decoder) {
  return section_of(decoder) != nullptr ? enter(decoder, section_of(decoder)) : Prepared::kNotWanted;
}

Prepared enter_body(Decoder &decoder) {
  const bool none = header_of(decoder) != nullptr && decoder.header_class == JT_NODE_HEADER_EXCLAIM;
  return none ? Prepared::kNotWanted : enter(decoder, decoder.root);
}

Prepared enter_root(Decoder &decoder) { return enter(decoder, decoder.root); }

}  // namespace

constexpr std::array<Stage, 7> kStages = {{
    {enter_header, kHeaderMachine, State::kHeaderBegin},
    {enter_header_attributes, kHeaderAttributesMachine, State::kInInvocation},
    {open_section, kSectionOpeningMachine, State::kSectionBegin},
    {enter_section, kBodyMachine, State::kBetweenServices},
    {enter_section, kSectionClosingMachine, State::kSectionFilled},
    {enter_body, kBodyMachine, State::kBetweenServices},
    {enter_root, kEndMarkerMachine, State::kMarkerBegin},
}};

// The buffers stay as they are: clearing them would cost more than decoding a short text.
void begin_decoding(Decoder &decoder, jt_parser_space &space, jt_node &root, const char *text,
                    const char *end) {
  decoder.space = &space;
  decoder.trouble = Trouble::kNone;
  decoder.first_of_name = nullptr;
  decoder.cursor.position = decoder.cursor.mark = decoder.cursor.begin = text;
  decoder.cursor.end = end;
  decoder.root = decoder.top = &root;
  decoder.scope = nullptr;
  decoder.type = nullptr;
  decoder.family = nullptr;
  decoder.non_compulsory = false;
  decoder.header_class = JT_NODE_HEADER;
  decoder.version = decoder.kept = {};
  decoder.remarks = nullptr;
}

}  // namespace jt_core
