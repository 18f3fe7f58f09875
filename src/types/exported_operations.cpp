#include "types/exported_operations.h"

#include "base/error_store.h"

namespace jt_core {

jt_value *eval_value(const ValueFamily &family, jt_parser_space *space, char *text) {
  if (text == nullptr) return nullptr;
  ValueSink sink = heap_sink();
  const ReadResult result = family.read(space, text, sink);
  if (family.operations->cut != nullptr) family.operations->cut(text, result.status);
  return result.value;
}

jt_value *copy_value(const ValueFamily &family, jt_parser_space *space, const jt_value *value) {
  if (value == nullptr) return nullptr;
  ValueSink sink = heap_sink();
  return family.operations->copy(space, value, sink);
}

char *deval_value(const ValueFamily &family, jt_parser_space *space, const jt_value *value) {
  ValueText text;
  const bool written = value != nullptr && family.write(space, value, text);
  return written ? copy_value_text(*family.operations, space, text) : nullptr;
}

std::int32_t compare_values(const ValueFamily &family, const jt_value *a, const jt_value *b) {
  return a == nullptr || b == nullptr ? family.operations->compare_nulls(a, b)
                                      : family.operations->compare(a, b);
}

std::int32_t kill_value(const ValueFamily &family, jt_parser_space *space, jt_value *value) {
  if (value == nullptr) {
    report(space, family.operations->null_to_kill);
    return 0;
  }
  return er_free(value);
}

std::int32_t kill_block(jt_parser_space * /*space*/, jt_value *value) { return er_free(value); }

}  // namespace jt_core
