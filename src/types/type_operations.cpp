#include "types/type_operations.h"

namespace jt_core {

bool refuse_value(jt_parser_space *space, std::string_view type_name, std::string_view text) {
  report_joined(space, message::kBadValueBegin, type_name, message::kBadValueEnd, text);
  return false;
}

}  // namespace jt_core
