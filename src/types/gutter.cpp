// struct_gutter, and its five operations under their exported names.
// tests/types/gutter_test.cpp
#include <array>

#include "base/error_store.h"
#include "types/exported_operations.h"
#include "types/limits.h"
#include "types/number_text.h"
#include "types/structured_types.h"
#include "types/units.h"
#include "types/value_remarks.h"

namespace jt_core {
bool Gutter::parse(Reading reading, std::string_view text, Value &value) {
  std::string_view rest = text;
  if (!read_field(rest, kFieldSeparator, value.first_width) ||
      !read_field(rest, kFieldSeparator, value.second_width)) {
    return refuse_misfit(reading, "struct_gutter", text, rest);
  }
  const std::array widths = {value.first_width, value.second_width};
  return read_unit(reading, kGutterLimits, {text, rest, widths}, value.unit);
}

bool Gutter::format(jt_parser_space *space, const Value &value, ShortText &text) {
  add_field(value.first_width, text);
  add_field(value.second_width, text);
  return add_unit(space, value.unit, text);
}

std::int32_t Gutter::order(const Value &a, const Value &b) {
  return a.first_width != b.first_width ? order_of(a.first_width, b.first_width)
                                        : order_of(a.second_width, b.second_width);
}

}  // namespace jt_core

namespace {

constexpr jt_core::ValueFamily kGutter = {&jt_core::kOperations<jt_core::FlatType<jt_core::Gutter>>, nullptr};

}  // namespace

extern "C" {

jt_value *eval_gutter(jt_parser_space *space, char *text) {
  return jt_core::eval_value(kGutter, space, text);
}

jt_value *copy_gutter(jt_parser_space *space, const jt_value *value) {
  return jt_core::copy_value(kGutter, space, value);
}

char *deval_gutter(jt_parser_space *space, const jt_value *value) {
  return jt_core::deval_value(kGutter, space, value);
}

int32_t cmp_gutter(jt_parser_space * /*space*/, const jt_value *a, const jt_value *b) {
  return jt_core::compare_values(kGutter, a, b);
}

int32_t kill_gutter(jt_parser_space *space, jt_value *value) { return jt_core::kill_block(space, value); }

}  // extern "C"
