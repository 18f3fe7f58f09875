// The model's attributes, values and statuses.
#include "jt.h"
#include "model.h"

namespace jt_fuzz {
namespace {

// ---- Types ----

struct KnownType {
  const char *name;
  Kind kind;
  bool of_scan;
};

constexpr KnownType kKnownTypes[] = {
    {"integer", Kind::kInteger, false}, {"boolean", Kind::kBoolean, false},
    {"string", Kind::kString, false},   {"enum_colormode", Kind::kColor, true},
    {"service", Kind::kBlock, false},   {"kmt_svc_scan", Kind::kBlock, true},
};

Type type_in(Scope scope, const char *name) {
  for (const KnownType &type : kKnownTypes) {
    if (is_name(type.name, name) && (!type.of_scan || scope == Scope::kScan)) return {type.kind, type.name};
  }
  return {Kind::kUnknown, name != nullptr ? Name(name) : std::nullopt};
}

Type type_named(const char *service, const char *type) {
  return type_in(is_name("kmt_svc_scan", service) ? Scope::kScan : Scope::kBase, type);
}

bool has_values_of(const Type &type) { return type.kind != Kind::kUnknown && type.kind != Kind::kBlock; }

// ---- Values ----

std::optional<std::string> read_integer(const std::string &text) {
  const bool has_sign = text[0] == '-' || text[0] == '+';
  const std::string digits = text.substr(has_sign ? 1 : 0);
  if (digits.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
  const long long magnitude = digits.empty() ? 0 : std::stoll(digits.substr(0, 15));
  const long long number = text[0] == '-' ? -magnitude : magnitude;
  return std::to_string(std::clamp(number, -2147483648LL, 2147483647LL));
}

std::optional<std::string> read_boolean(const std::string &text) {
  if (lower_case(text) == "true") return "TRUE";
  return lower_case(text) == "false" ? std::optional<std::string>("FALSE") : std::nullopt;
}

bool is_color(const std::string &text) { return lower_case(text) == "grayscale"; }

}  // namespace

// ---- Reading attributes -----------------------------------------------------------------------------------

Answer Model::exists_attribute(int32_t handle, const char *service, const char *name) {
  Invocation *const invocation = find_invocation(handle, service);
  return answer_of(invocation != nullptr && invocation->attributes.find(name) != nullptr);
}

Answer Model::first_attribute_name(int32_t handle, const char *service) {
  Invocation *const invocation = find_invocation(handle, service);
  if (invocation == nullptr) return answer_of(Name());
  invocation->attributes.restart();
  return next_attribute_name(handle, service);
}

Answer Model::next_attribute_name(int32_t handle, const char *service) {
  Invocation *const invocation = find_invocation(handle, service);
  const Attribute *const attribute = invocation != nullptr ? invocation->attributes.current() : nullptr;
  if (attribute == nullptr) return answer_of(Name());
  invocation->attributes.advance();
  return answer_of(attribute->name);
}

Answer Model::attribute_type_name(int32_t handle, const char *service, const char *name) {
  const Attribute *const attribute = find_attribute(handle, service, name);
  if (attribute == nullptr) return answer_of(Name());
  if (!attribute->type.name.has_value()) report("CALL ERROR: no type name");
  return answer_of(attribute->type.name);
}

Answer Model::known_datatype(int32_t handle, const char *service, const char *name) {
  const Attribute *const attribute = find_attribute(handle, service, name);
  return answer_of(attribute != nullptr && attribute->type.kind != Kind::kUnknown);
}

Answer Model::is_non_compulsory(int32_t handle, const char *service, const char *name) {
  const Attribute *const attribute = find_attribute(handle, service, name);
  return answer_of(attribute != nullptr && attribute->is_non_compulsory);
}

// A first value is passed before it is known that it cannot be copied; a next one is not.
const Value *Model::first_value(int32_t handle, const char *service, const char *name) {
  Attribute *const attribute = find_attribute(handle, service, name);
  if (attribute == nullptr) return nullptr;
  attribute->values.restart();
  const Value *const value = next_value(handle, service, name);
  if (!attribute->values.items.empty()) attribute->values.cursor = 1;
  return value;
}

const Value *Model::next_value(int32_t handle, const char *service, const char *name) {
  Attribute *const attribute = find_attribute(handle, service, name);
  const Value *const value = attribute != nullptr ? attribute->values.current() : nullptr;
  if (value == nullptr) return nullptr;
  if (attribute->type.kind == Kind::kUnknown) {
    const Name &type = attribute->type.name;
    report("CALL ERROR: unknown data type", type.has_value() ? type->c_str() : nullptr);
    return nullptr;
  }
  attribute->values.advance();
  return value;
}

Answer Model::first_value_string(int32_t handle, const char *service, const char *name) {
  Attribute *const attribute = find_attribute(handle, service, name);
  if (attribute == nullptr) return answer_of(Name());
  attribute->values.restart();
  return next_value_string(handle, service, name);
}

Answer Model::next_value_string(int32_t handle, const char *service, const char *name) {
  Attribute *const attribute = find_attribute(handle, service, name);
  const Value *const value = attribute != nullptr ? attribute->values.current() : nullptr;
  if (value == nullptr) return answer_of(Name());
  attribute->values.advance();
  return encode_value(*value);
}

// ---- Changing attributes ----------------------------------------------------------------------------------

Answer Model::add_attribute(int32_t handle, const char *service, const char *type_name, const char *name) {
  Invocation *const invocation = find_invocation(handle, service);
  if (invocation == nullptr) return "0";
  const Type type = type_in(find_service(handle, service)->scope, type_name);
  if (type.kind == Kind::kUnknown) {
    for (int i = 0; i < 2; ++i) report("WARNING: unknown attribute type:", type_name);
  }
  if (invocation->attributes.find(name) != nullptr) {
    report("SYNTAX ERROR: Trying to save multiple definitions for:", name);
    return "0";
  }
  invocation->attributes.append({{take_slot(), name_from(name)}, type});
  return "1";
}

Answer Model::delete_attribute(int32_t handle, const char *service, const char *name) {
  if (find_attribute(handle, service, name) == nullptr) return "0";
  auto &attributes = find_invocation(handle, service)->attributes;
  const std::size_t place = attributes.place_of(name);
  release(attributes.items[place]);
  attributes.erase(place);
  return "1";
}

Answer Model::set_compulsory(int32_t handle, const char *service, const char *name) {
  Attribute *const attribute = find_attribute(handle, service, name);
  if (attribute != nullptr) attribute->is_non_compulsory = false;
  return answer_of(attribute != nullptr);
}

Answer Model::set_non_compulsory(int32_t handle, const char *service, const char *name) {
  Attribute *const attribute = find_attribute(handle, service, name);
  if (attribute != nullptr) attribute->is_non_compulsory = true;
  return answer_of(attribute != nullptr);
}

std::optional<Value> Model::decode_value(Kind kind, const char *text) {
  if (text == nullptr) return std::nullopt;
  const std::string given = text;
  if (kind == Kind::kString) return Value{-1, given, lower_case(given), true};
  if (kind == Kind::kColor) {
    if (is_color(given)) return Value{-1, "GRAYSCALE", "listed", true};
    report("WARNING: trying to evaluate as an 'enumerated' type:", text);
    return Value{-1, given, "not listed", false};
  }
  if (given.empty()) return std::nullopt;
  const bool is_integer = kind == Kind::kInteger;
  const auto read = is_integer ? read_integer(given) : read_boolean(given);
  if (read.has_value()) return Value{-1, *read, *read, true};
  const std::string type = is_integer ? "integer" : "boolean";
  report("SYNTAX ERROR: trying to evaluate the following value string as -- " + type + " --:\n\n", text);
  return std::nullopt;
}

Answer Model::encode_value(const Value &value) {
  if (!value.is_listed) report("CALL ERROR: Unknown enumerated value");
  return answer_of(value.text);
}

// ---- Values of a type by name ----

bool Model::has_values(const char *service, const char *type) const {
  return has_values_of(type_named(service, type));
}

std::optional<Kind> Model::kind_named(const char *service, const char *type_name, const char *message,
                                      const char *detail) {
  const Type type = type_named(service, type_name);
  if (type.kind == Kind::kUnknown) {
    report(message, detail);
    return std::nullopt;
  }
  if (type.kind != Kind::kBlock) return type.kind;
  report("SYSTEM ERROR: undefined cmp function for", type.name->c_str());
  return std::nullopt;
}

std::optional<Value> Model::decode_named(const char *service, const char *type, const char *text) {
  const auto kind = kind_named(service, type, "CALL ERROR: unknown type decode", text);
  return kind.has_value() ? decode_value(*kind, text) : std::nullopt;
}

Answer Model::copy_named(const char *service, const char *type, const Value *value) {
  const auto kind = kind_named(service, type, "CALL ERROR: unknown type construct a copy");
  return answer_of(kind.has_value() && value != nullptr);
}

// Of equal values and of a value and null.
Answer Model::compare_named(const char *service, const char *type_name, const Value *a, const Value *b) {
  const Type type = type_named(service, type_name);
  if (type.kind == Kind::kUnknown) report("CALL ERROR: unknown type to compare");
  if (type.kind == Kind::kBlock) report("SYSTEM ERROR: no compare function for:", type_name);
  if (!has_values_of(type)) return "-2";
  return std::to_string((a != nullptr ? 1 : 0) - (b != nullptr ? 1 : 0));
}

Answer Model::encode_named(const char *service, const char *type, const Value *value) {
  const auto kind = kind_named(service, type, "CALL ERROR: unknown type encode a value");
  return kind.has_value() && value != nullptr ? encode_value(*value) : answer_of(Name());
}

Answer Model::destroy_named(const char *service, const char *type, const Value *value) {
  if (value == nullptr) {
    report("CALL ERROR: value is null, cannot delete");
    return "0";
  }
  return answer_of(
      kind_named(service, type, "CALL ERROR: no type construct to destroy the value").has_value());
}

// ---- Values of an attribute ----

std::optional<Value> Model::value_for(const Attribute &attribute, const char *text) {
  if (attribute.type.kind == Kind::kBlock) return std::nullopt;
  if (attribute.type.kind == Kind::kUnknown) return Value{-1, text, lower_case(text), true};
  return decode_value(attribute.type.kind, text);
}

std::optional<Value> Model::copy_for(const Attribute &attribute, const Value &value) {
  if (attribute.type.kind == Kind::kUnknown) return std::nullopt;
  if (attribute.type.kind != Kind::kBlock) return value;
  report("SYSTEM ERROR: no copy function for:", attribute.type.name->c_str());
  return std::nullopt;
}

// The new value takes its slot before the old ones leave theirs.
Answer Model::append_value(Attribute *attribute, std::optional<Value> value, bool alone) {
  if (!value.has_value()) return "0";
  value->slot = take_slot();
  if (alone) {
    for (const Value &old : attribute->values.items) release(old);
    attribute->values = {};
  }
  attribute->values.append(*value);
  return "1";
}

Answer Model::add_text(int32_t handle, const char *service, const char *name, const char *text) {
  if (text == nullptr) report("CALL ERROR: value is a NULL pointer");
  Attribute *const attribute = text != nullptr ? find_attribute(handle, service, name) : nullptr;
  return attribute != nullptr ? append_value(attribute, value_for(*attribute, text), false) : "0";
}

Answer Model::set_text(int32_t handle, const char *service, const char *name, const char *text) {
  if (text == nullptr) report("CALL ERROR: value is a NULL pointer");
  Attribute *const attribute = text != nullptr ? find_attribute(handle, service, name) : nullptr;
  return attribute != nullptr ? append_value(attribute, value_for(*attribute, text), true) : "0";
}

Answer Model::add_value(int32_t handle, const char *service, const char *name, const Value *value) {
  if (value == nullptr) report("CALL ERROR: value is a NULL pointer");
  Attribute *const attribute = value != nullptr ? find_attribute(handle, service, name) : nullptr;
  return attribute != nullptr ? append_value(attribute, copy_for(*attribute, *value), false) : "0";
}

Answer Model::set_value(int32_t handle, const char *service, const char *name, const Value *value) {
  if (value == nullptr) report("CALL ERROR: value is a NULL pointer");
  Attribute *const attribute = value != nullptr ? find_attribute(handle, service, name) : nullptr;
  return attribute != nullptr ? append_value(attribute, copy_for(*attribute, *value), true) : "0";
}

Answer Model::delete_equal(Attribute &attribute, const std::string &key) {
  auto &values = attribute.values;
  for (std::size_t place = 0; place < values.items.size(); ++place) {
    if (values.items[place].key != key) continue;
    release(values.items[place]);
    values.erase(place);
    return "1";
  }
  report("CALL ERROR:there is no such value");
  return "0";
}

Answer Model::delete_value(int32_t handle, const char *service, const char *name, const Value *value) {
  if (value == nullptr) report("CALL ERROR: value is a NULL pointer");
  Attribute *const attribute = value != nullptr ? find_attribute(handle, service, name) : nullptr;
  if (attribute == nullptr) return "0";
  const Kind kind = attribute->type.kind;
  if (kind == Kind::kUnknown) report("CALL ERROR: unknown data type:");
  if (kind == Kind::kBlock) report("SYSTEM ERROR: no cmp function for:", name);
  return has_values_of(attribute->type) ? delete_equal(*attribute, value->key) : "0";
}

Answer Model::delete_text(int32_t handle, const char *service, const char *name, const char *text) {
  if (text == nullptr) report("CALL ERROR: value is a NULL pointer");
  Attribute *const attribute = text != nullptr ? find_attribute(handle, service, name) : nullptr;
  if (attribute == nullptr) return "0";
  if (attribute->type.kind == Kind::kBlock) {
    report("SYSTEM ERROR: no cmp function for:", name);
    return "0";
  }
  const auto value = value_for(*attribute, text);
  if (value.has_value()) return delete_equal(*attribute, value->key);
  report("CALL ERROR: unparsable value string", text);
  return "0";
}

Answer Model::override_value(int32_t handle, const char *service, const char *name, const Value *old_value,
                             const Value *new_value) {
  const bool given = old_value != nullptr && new_value != nullptr;
  if (!given) report("CALL ERROR: value is a NULL pointer");
  Attribute *const attribute = given ? find_attribute(handle, service, name) : nullptr;
  if (attribute == nullptr) return "0";
  const Kind kind = attribute->type.kind;
  auto &values = attribute->values.items;
  const auto replaced = std::find_if(values.begin(), values.end(),
                                     [&](const Value &value) { return value.key == old_value->key; });
  if (kind == Kind::kUnknown) {
    report("CALL ERROR: unknown data type:");
  } else if (kind == Kind::kBlock) {
    report("SYSTEM ERROR: no cmp function for:", name);
  } else if (!attribute->is_non_compulsory) {
    report("CALL ERROR: it is a compulsory attribute", name);
  } else if (replaced == values.end()) {
    report("CALL ERROR:there is no such value");
  } else {
    if (!replaced->is_listed) report("CALL ERROR: Unknown enumerated value");
    attribute->overridden = replaced->text;
    attribute->status = Status{6, ""};
    *replaced = {replaced->slot, new_value->text, new_value->key, new_value->is_listed};
    return "1";
  }
  return "0";
}

// ---- Statuses ---------------------------------------------------------------------------------------------

Answer Model::set_status(Node *node, const std::uint32_t *number) {
  if (node == nullptr || number == nullptr) return "0";
  node->status = Status{*number, ""};
  return "1";
}

Answer Model::get_status(const Node *node) const {
  if (node == nullptr || !node->status.has_value()) return "null";
  return std::to_string(node->status->number) + node->status->text;
}

Answer Model::set_service_status(int32_t handle, const char *service, const std::uint32_t *number) {
  return set_status(find_service(handle, service), number);
}

Answer Model::set_invocation_status(int32_t handle, const char *service, const std::uint32_t *number) {
  return set_status(find_invocation(handle, service), number);
}

Answer Model::set_attribute_status(int32_t handle, const char *service, const char *name,
                                   const std::uint32_t *number) {
  return set_status(find_attribute(handle, service, name), number);
}

Answer Model::service_status(int32_t handle, const char *service) {
  return get_status(find_service(handle, service));
}

Answer Model::invocation_status(int32_t handle, const char *service) {
  return get_status(find_invocation(handle, service));
}

Answer Model::attribute_status(int32_t handle, const char *service, const char *name) {
  return get_status(find_attribute(handle, service, name));
}

}  // namespace jt_fuzz
