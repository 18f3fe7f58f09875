// The model's frame, templates, services and invocations; model_attributes.cpp has what is below them.
#include "model.h"

#include "jt.h"

namespace jt_fuzz {
namespace {

// ---- Types ----

constexpr const char *kServiceTypes[] = {"kmt_svc_scan", "kmt_svc_fax", "service", "integer"};

// A service's own name goes before its type; a base type's name is known too, and has no types of its own.
Scope scope_of(const Name &name, const char *type) {
  for (const char *const word : {name.has_value() ? name->c_str() : nullptr, type}) {
    if (is_name("kmt_svc_scan", word)) return Scope::kScan;
    if (is_name("kmt_svc_fax", word)) return Scope::kBase;
  }
  return is_name(name, "integer") || is_name(name, "service") ? Scope::kBase : Scope::kUnknown;
}

// ---- What is written ----

std::string escaped(const std::string &text, Kind kind) {
  const bool quotes = kind == Kind::kString;
  std::string escaped;
  for (const char c : text) {
    if (std::string_view(quotes ? "\"\\" : " !\"#$%&()*,;<=>?[\\]^{|}").find(c) != std::string_view::npos) {
      escaped += '\\';
    }
    escaped += c;
  }
  return quotes ? '"' + escaped + '"' : escaped;
}

std::string name_of_status(const Status &status) {
  switch (status.number) {
    case 1:
      return "KMT_STATUS_ABORTED";
    case 6:
      return "KMT_STATUS_OVERRIDDEN";
    case 18:
      return "KMT_STATUS_ERROR";
    case 20:
      return "MM";
    default:
      return status.text;
  }
}

bool has_name(const Status &status) { return name_of_status(status) != status.text; }

std::string plain_name(const Name &name) { return name.value_or(""); }

}  // namespace

std::string lower_case(std::string_view text) {
  std::string lower(text);
  for (char &c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

bool is_name(const Name &name, const char *wanted) {
  return name.has_value() && wanted != nullptr && lower_case(*name) == lower_case(wanted);
}

Name name_from(const char *text) { return text != nullptr && *text != '\0' ? Name(text) : std::nullopt; }

Answer answer_of(bool result) { return result ? "1" : "0"; }

Answer answer_of(const Name &text) { return text.has_value() ? '"' + *text + '"' : "null"; }

// ---- Messages, slots and the frame ------------------------------------------------------------------------

void Model::report(std::string_view message, const char *detail) {
  const std::pair<std::string_view, int32_t> categories[] = {{"SYNTAX", JT_SYNTAX_ERROR},
                                                             {"SYSTEM", JT_SYSTEM_ERROR},
                                                             {"CALL", JT_CALL_ERROR},
                                                             {"WARNING", JT_WARNING}};
  for (const auto &[word, number] : categories) {
    if (message.substr(0, word.size()) == word) status = number;
  }
  previous_ = 0;
  history.push_front(std::string(message) + (detail != nullptr ? detail : "(null)") + " ...");
  if (history.size() > JT_HISTORY_LENGTH) history.pop_back();
}

Answer Model::recent_error() {
  previous_ = 0;
  return answer_of(history.empty() ? std::nullopt : Name(history.front()));
}

Answer Model::previous_error() {
  return answer_of(previous_ < history.size() ? Name(history[previous_++]) : std::nullopt);
}

// The lowest that is free.
int32_t Model::take_slot() {
  const auto lowest = std::find(slots.begin(), slots.end(), false) - slots.begin();
  slots.resize(std::max(slots.size(), static_cast<std::size_t>(lowest + 1)));
  slots[static_cast<std::size_t>(lowest)] = true;
  return static_cast<int32_t>(lowest);
}

void Model::release(const Value &value) { release_slot(value.slot); }

void Model::release(const Attribute &attribute) {
  for (const Value &value : attribute.values.items) release(value);
  release_slot(attribute.slot);
}

void Model::release(const Invocation &invocation) {
  for (const Attribute &attribute : invocation.attributes.items) release(attribute);
  release_slot(invocation.slot);
}

void Model::release(const Service &service) {
  for (const Invocation &invocation : service.invocations.items) release(invocation);
  release_slot(service.slot);
}

Template *Model::find_template(int32_t handle) {
  const std::int64_t slot = -100 - std::int64_t{handle};
  for (Template &candidate : templates) {
    if (candidate.slot == slot) return &candidate;
  }
  const bool is_node = slot >= 0 && is_live(static_cast<std::size_t>(slot));
  if (!is_node) report("SYSTEM ERROR: unknown opaque marker");
  report(is_node ? "CALL ERROR: not a template" : "CALL ERROR: not a valid handle");
  return nullptr;
}

Service *Model::find_service(int32_t handle, const char *name) {
  Template *const root = find_template(handle);
  if (root == nullptr) return nullptr;
  Service *const service = root->services.find(name);
  if (service == nullptr) report("CALL ERROR: does not exist:", name);
  return service;
}

Invocation *Model::find_invocation(int32_t handle, const char *name) {
  Service *const service = find_service(handle, name);
  if (service == nullptr) return nullptr;
  Invocation *const invocation = service->invocations.current();
  if (invocation == nullptr) report("CALL ERROR: no current invocation");
  return invocation;
}

Attribute *Model::find_attribute(int32_t handle, const char *service, const char *name) {
  Invocation *const invocation = find_invocation(handle, service);
  if (invocation == nullptr) return nullptr;
  Attribute *const attribute = invocation->attributes.find(name);
  if (attribute == nullptr) report("CALL ERROR: does not exist:", name);
  return attribute;
}

bool Model::is_template(int32_t handle) const {
  return std::any_of(templates.begin(), templates.end(),
                     [&](const Template &root) { return root.slot == -100 - std::int64_t{handle}; });
}

const Type *Model::type_of(int32_t handle, const char *service_name, const char *name) {
  for (Template &root : templates) {
    Service *const service =
        root.slot == -100 - std::int64_t{handle} ? root.services.find(service_name) : nullptr;
    Invocation *const invocation = service != nullptr ? service->invocations.current() : nullptr;
    Attribute *const attribute = invocation != nullptr ? invocation->attributes.find(name) : nullptr;
    if (attribute != nullptr) return &attribute->type;
  }
  return nullptr;
}

// ---- Templates --------------------------------------------------------------------------------------------

Answer Model::create_template() {
  templates.push_back({take_slot()});
  return std::to_string(-100 - templates.back().slot);
}

// The text stands in calls.cpp.
Answer Model::decode_example() {
  const std::string handle = create_template();
  Template &root = templates.back();
  Service scan = {{take_slot(), "Scan", Status{20, ""}}, "kmt_svc_scan", Scope::kScan};
  Invocation one = {{take_slot(), "one", Status{18, ""}, "x"}};
  Attribute n2 = {{take_slot(), "n2"}, {Kind::kInteger, "integer"}};
  for (const char *const text : {"1", "2"}) append_value(&n2, value_for(n2, text), false);
  one.attributes.append(std::move(n2));
  Attribute n3 = {{take_slot(), "n3"}, {Kind::kString, "string"}, true};
  for (const char *const text : {"a b", "x"}) append_value(&n3, value_for(n3, text), false);
  report("WARNING: trying to evaluate as an 'enumerated' type:", "odd");
  n3.status = Status{0xFFFFFFFF, "odd"};
  n3.overridden = "why";
  one.attributes.append(std::move(n3));
  Attribute n4 = {{take_slot(), "n4"}, {Kind::kColor, "enum_colormode"}};
  for (const char *const text : {"GRAYSCALE", "other"}) append_value(&n4, value_for(n4, text), false);
  one.attributes.append(std::move(n4));
  scan.invocations.append(std::move(one));
  scan.invocations.append({{take_slot(), std::nullopt}});
  root.services.append(std::move(scan));
  root.services.append({{take_slot(), "Own"}, "service", Scope::kUnknown});
  return handle;
}

Answer Model::decode_refused(const std::string &message) {
  if (!message.empty()) report(message);
  return "0";
}

Answer Model::destroy_template(int32_t handle) {
  const Template *const root = find_template(handle);
  if (root == nullptr) return "0";
  for (const Service &service : root->services.items) release(service);
  release_slot(root->slot);
  templates.erase(templates.begin() + (root - templates.data()));
  return "1";
}

std::string Model::written(const Node &node) {
  if (!node.status.has_value()) return "";
  if (!has_name(*node.status)) report("CALL ERROR: Unknown enumerated value");
  const std::string braces = node.overridden.has_value() ? "{" + *node.overridden + "}" : "";
  return "(" + name_of_status(*node.status) + braces + ")";
}

std::string Model::written(const Attribute &attribute) {
  std::string text = (attribute.is_non_compulsory ? "*" : "") + plain_name(attribute.type.name) +
                     plain_name(attribute.name) + "=";
  for (const Value &value : attribute.values.items) {
    if (&value != attribute.values.items.data()) text += ",";
    text += escaped(value.text, attribute.type.kind);
    if (!value.is_listed) report("CALL ERROR: Unknown enumerated value");
  }
  return text + ";" + written(static_cast<const Node &>(attribute));
}

std::string Model::written(const Invocation &invocation) {
  std::string text = plain_name(invocation.name) + "{";
  for (const Attribute &attribute : invocation.attributes.items) text += written(attribute);
  return text + "}" + written(static_cast<const Node &>(invocation));
}

std::string Model::written(const Service &service) {
  std::string text = "[" + service.type + plain_name(service.name) + "]";
  for (const Invocation &invocation : service.invocations.items) text += written(invocation);
  return text + "end" + written(static_cast<const Node &>(service));
}

// Without the blanks of the layout, and without any others.
Answer Model::encode_template(int32_t handle) {
  const Template *const root = find_template(handle);
  if (root == nullptr) return answer_of(Name());
  std::string text = root->comment;
  for (const Service &service : root->services.items) text += written(service);
  text.erase(std::remove_if(text.begin(), text.end(), [](char c) { return c == ' ' || c == '\n'; }),
             text.end());
  return answer_of(text);
}

// Beneath the calls: without a frame. The handle is one of a template.
Answer Model::add_comment(int32_t handle, const char *text) {
  if (text == nullptr) return "0";
  find_template(handle)->comment += text;
  return "1";
}

// ---- Services and invocations -----------------------------------------------------------------------------

Answer Model::add_service(int32_t handle, const char *type, const char *name) {
  Template *const root = find_template(handle);
  if (root == nullptr) return "0";
  const auto *const known = std::find_if(std::begin(kServiceTypes), std::end(kServiceTypes),
                                         [&](const char *row) { return is_name(row, type); });
  if (known == std::end(kServiceTypes)) {
    report("SYNTAX ERROR: unknown or invalid type:", type);
    return "0";
  }
  if (root->services.find(name) != nullptr) {
    report("SYNTAX ERROR: Trying to save multiple definitions for:", name);
    return "0";
  }
  const Name kept = name_from(name);
  root->services.append({{take_slot(), kept}, *known, scope_of(kept, *known)});
  return "1";
}

Answer Model::delete_service(int32_t handle, const char *name) {
  if (find_service(handle, name) == nullptr) return "0";
  auto &services = find_template(handle)->services;
  const std::size_t place = services.place_of(name);
  release(services.items[place]);
  services.erase(place);
  return "1";
}

Answer Model::exists_service(int32_t handle, const char *name) {
  Template *const root = find_template(handle);
  return answer_of(root != nullptr && root->services.find(name) != nullptr);
}

Answer Model::first_service_name(int32_t handle) {
  Template *const root = find_template(handle);
  if (root == nullptr) return answer_of(Name());
  root->services.restart();
  return next_service_name(handle);
}

Answer Model::next_service_name(int32_t handle) {
  Template *const root = find_template(handle);
  const Service *const service = root != nullptr ? root->services.current() : nullptr;
  if (service == nullptr) return answer_of(Name());
  root->services.advance();
  return answer_of(service->name);
}

Answer Model::service_type(int32_t handle, const char *name) {
  const Service *const service = find_service(handle, name);
  return answer_of(service != nullptr ? Name(service->type) : std::nullopt);
}

Answer Model::add_invocation(int32_t handle, const char *name) {
  Service *const service = find_service(handle, name);
  if (service == nullptr) return "0";
  if (service->scope == Scope::kUnknown) {
    for (int i = 0; i < 2; ++i) report("WARNING: unknown service:", service->name->c_str());
  }
  service->invocations.insert_behind_cursor({{take_slot(), std::nullopt}});
  return "1";
}

Answer Model::delete_invocation(int32_t handle, const char *name) {
  Service *const service = find_service(handle, name);
  if (service == nullptr || service->invocations.current() == nullptr) return "0";
  release(*service->invocations.current());
  service->invocations.erase(service->invocations.cursor);
  return "1";
}

Answer Model::first_invocation(int32_t handle, const char *name) {
  Service *const service = find_service(handle, name);
  if (service == nullptr) return "0";
  service->invocations.restart();
  return answer_of(service->invocations.current() != nullptr);
}

Answer Model::next_invocation(int32_t handle, const char *name) {
  Service *const service = find_service(handle, name);
  if (service == nullptr) return "0";
  service->invocations.advance();
  return answer_of(service->invocations.current() != nullptr);
}

Answer Model::named_invocation(int32_t handle, const char *service_name, const char *name) {
  Service *const service = find_service(handle, service_name);
  if (service == nullptr) return "0";
  auto &invocations = service->invocations;
  std::size_t place = invocations.place_of(name);
  const std::string text = name != nullptr ? name : "";
  if (place == invocations.items.size() && !text.empty() &&
      text.find_first_not_of("0123456789") == std::string::npos) {
    const long long number = std::stoll(text.substr(0, 18));
    place = number > 0 ? static_cast<std::size_t>(number - 1) : place;
  }
  if (place >= invocations.items.size()) {
    report("CALL ERROR: invocation does not exist:", name);
    return "0";
  }
  invocations.cursor = place;
  return "1";
}

Answer Model::invocation_name(int32_t handle, const char *service) {
  const Invocation *const invocation = find_invocation(handle, service);
  return answer_of(invocation != nullptr ? invocation->name : std::nullopt);
}

Answer Model::name_invocation(int32_t handle, const char *service, const char *name, bool may_have_one) {
  if (!name_from(name).has_value()) {
    report("CALL ERROR: no name to set");
    return "0";
  }
  Invocation *const invocation = find_invocation(handle, service);
  if (invocation == nullptr) return "0";
  if (find_service(handle, service)->invocations.find(name) != nullptr) {
    report("SYNTAX ERROR: duplicate naming not allowed", name);
    return "0";
  }
  if (invocation->name.has_value() && !may_have_one) {
    report("CALL ERROR: invocation is already named", invocation->name->c_str());
    return "0";
  }
  invocation->name = name;
  return "1";
}

Answer Model::set_invocation_name(int32_t handle, const char *service, const char *name) {
  return name_invocation(handle, service, name, false);
}

Answer Model::force_invocation_name(int32_t handle, const char *service, const char *name) {
  return name_invocation(handle, service, name, true);
}

}  // namespace jt_fuzz
