// The exported operations of statuses: those of the base enumerations, over another handle type.
#include "types/status.h"

#include "types/enumeration.h"
#include "types/value_lists.h"

namespace jt {
namespace {

const jt_value *as_value(const jt_status *status) { return reinterpret_cast<const jt_value *>(status); }

jt_status *as_status(jt_value *value) { return reinterpret_cast<jt_status *>(value); }

}  // namespace

std::string_view status_text(jt_parser_space *space, const jt_status *status) {
  const std::string_view text = enumerated_text(space, kBaseValues, as_value(status));
  return text.data() != nullptr ? text : std::string_view("");
}

bool find_status_number(const char *name, std::uint32_t &number) {
  return name != nullptr && find_number(kBaseValues, name, number);
}

}  // namespace jt

extern "C" {

jt_status *get_status(jt_parser_space *space, const char *name) {
  return jt::as_status(jt::eval_enumerated(space, jt::kBaseValues, name));
}

jt_status *copy_status(jt_parser_space *space, const jt_status *status) {
  return jt::as_status(jt::copy_enumerated(space, jt::as_value(status)));
}

char *get_status_string(jt_parser_space *space, const jt_status *status) {
  return jt::deval_enumerated(space, jt::kBaseValues, jt::as_value(status));
}

int32_t kill_status(jt_parser_space * /*space*/, jt_status *status) { return er_free(status); }

}  // extern "C"
