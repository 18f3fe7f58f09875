// Value calls: one operation of a type, named by the type's name and the service that defines it.
// tests/api/value_test.cpp calls each of them for every type.
#include "api/frame.h"
#include "base/error_store.h"
#include "base/memory.h"

namespace jt_core {
namespace {

// A call asks for an operation; all but the comparison share one message for a missing one, whichever it is.
template <typename Operation>
const jt_type *type_with(jt_parser_space *space, const char *service_name, const char *type_name,
                         Operation jt_type::*operation, const char *unknown, const char *detail = "") {
  if (!Frame(space)) return nullptr;
  const jt_type *const type = get_type_from_services(space, service_name, type_name);
  if (type == nullptr) {
    jt_error(space, unknown, detail);
    return nullptr;
  }
  if (type->*operation != nullptr) return type;
  jt_error(space, message::kNoOperation, type->name);
  return nullptr;
}

}  // namespace
}  // namespace jt_core

extern "C" {

jt_value *jt_copy_value(jt_parser_space *space, const char *type_name, const jt_value *value,
                        const char *service_name) {
  const jt_type *const type = jt_core::type_with(space, service_name, type_name, &jt_type::copy,
                                                 jt_core::message::kUnknownTypeToCopy);
  return type != nullptr ? type->copy(space, value) : nullptr;
}

int32_t jt_compare_value(jt_parser_space *space, const char *type_name, const jt_value *a, const jt_value *b,
                         const char *service_name) {
  constexpr int32_t kIncomparable = -2;
  if (!jt_core::Frame(space)) return 0;
  const jt_type *const type = get_type_from_services(space, service_name, type_name);
  if (type == nullptr) {
    jt_core::report(space, jt_core::message::kUnknownTypeToCompare);
    return kIncomparable;
  }
  if (type->cmp == nullptr) {
    jt_error(space, jt_core::message::kNoCompare, type_name);
    return kIncomparable;
  }
  return type->cmp(space, a, b);
}

char *jt_encode_value(jt_parser_space *space, const char *type_name, const jt_value *value,
                      const char *service_name) {
  const jt_type *const type = jt_core::type_with(space, service_name, type_name, &jt_type::deval,
                                                 jt_core::message::kUnknownTypeToEncode);
  return type != nullptr ? type->deval(space, value) : nullptr;
}

// Every type that has one of eval and deval has both, and it is the latter that clients see missing. The type
// may write into the text that it reads, so it is given a copy.
jt_value *jt_decode_value(jt_parser_space *space, const char *type_name, const char *text,
                          const char *service_name) {
  const jt_type *const type = jt_core::type_with(space, service_name, type_name, &jt_type::deval,
                                                 jt_core::message::kUnknownTypeToDecode, text);
  if (type == nullptr || text == nullptr) return nullptr;
  char *const copy = jt_core::copy_text(space, text);
  if (copy == nullptr) return nullptr;
  jt_value *const value = type->eval(space, copy);
  er_free(copy);
  return value;
}

// A missing value is reported even before the parser handle is looked at, and leaves the status to that
// report.
int32_t jt_destroy_value(jt_parser_space *space, const char *type_name, jt_value *value,
                         const char *service_name) {
  if (value == nullptr) {
    jt_core::report(space, jt_core::message::kNullValueToDestroy);
    return 0;
  }
  const jt_type *const type = jt_core::type_with(space, service_name, type_name, &jt_type::kill,
                                                 jt_core::message::kUnknownTypeToDestroy);
  return type != nullptr ? type->kill(space, value) : 0;
}

}  // extern "C"
