// A template as JSON, in the shape of sil.schema.json. Proved by tests/sil_command/json_test.cpp.
#ifndef SIL_CORE_JSON_OUT_H
#define SIL_CORE_JSON_OUT_H

#include <string>

#include "core/json_writer.h"
#include "core/model.h"

namespace sil {

std::string to_json(const Model &model);

/// One value: a number, true or false, or a text, by its type.
void write_value(JsonWriter &json, const Attribute &attribute, const Value &value);

}  // namespace sil

#endif
