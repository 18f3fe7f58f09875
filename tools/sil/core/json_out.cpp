// Member by member, in the order of the text.
#include "core/json_out.h"

#include "core/text.h"

namespace sil {
namespace {

void write_text(JsonWriter &json, std::string_view name, const MaybeText &text) {
  if (text) json.member(name, *text);
}

void write_status(JsonWriter &json, const MaybeStatus &status) {
  if (!status) return;
  json.key("status");
  json.open_object();
  json.member("name", status->name);
  write_text(json, "text", status->text);
  json.close_object();
}

void write_attributes(JsonWriter &json, const std::vector<Attribute> &attributes) {
  json.key("attributes");
  json.open_array();
  for (const Attribute &attribute : attributes) {
    json.open_object();
    json.member("type", attribute.type);
    json.member("name", attribute.name);
    if (attribute.is_optional) {
      json.key("optional");
      json.raw("true");
    }
    write_text(json, "comment", attribute.comment);
    write_status(json, attribute.status);
    json.key("values");
    json.open_array();
    for (const Value &value : attribute.values) write_value(json, attribute, value);
    json.close_array();
    json.close_object();
  }
  json.close_array();
}

void write_invocations(JsonWriter &json, const std::vector<Invocation> &invocations) {
  json.key("invocations");
  json.open_array();
  for (const Invocation &invocation : invocations) {
    json.open_object();
    write_text(json, "name", invocation.name);
    write_text(json, "comment", invocation.comment);
    write_status(json, invocation.status);
    write_attributes(json, invocation.attributes);
    json.close_object();
  }
  json.close_array();
}

void write_services(JsonWriter &json, const std::vector<Service> &services) {
  json.key("services");
  json.open_array();
  for (const Service &service : services) {
    json.open_object();
    json.member("type", service.type);
    json.member("name", service.name);
    write_text(json, "comment", service.comment);
    write_status(json, service.status);
    write_invocations(json, service.invocations);
    json.close_object();
  }
  json.close_array();
}

void write_header(JsonWriter &json, const Header &header) {
  json.key("header");
  json.open_object();
  json.member("form", header.form);
  json.member("version", header.version);
  json.member("identifier", header.identifier);
  write_text(json, "comment", header.comment);
  write_attributes(json, header.attributes);
  json.close_object();
}

void write_section(JsonWriter &json, const Section &section) {
  json.key("section");
  json.open_object();
  write_text(json, "comment", section.comment);
  write_services(json, section.services);
  json.close_object();
}

}  // namespace

void write_value(JsonWriter &json, const Attribute &attribute, const Value &value) {
  if (value.real) return json.real(*value.real);
  if (attribute.is_type_known && same_name(attribute.type, "integer")) return json.raw(value.text);
  if (attribute.is_type_known && same_name(attribute.type, "boolean"))
    return json.raw(same_name(value.text, "true") ? "true" : "false");
  json.text(value.text);
}

std::string to_json(const Model &model) {
  JsonWriter json;
  json.open_object();
  json.key("sil");
  json.raw("1");
  write_text(json, "comment", model.comment);
  if (model.header) write_header(json, *model.header);
  if (model.section) write_section(json, *model.section);
  write_services(json, model.services);
  json.close_object();
  return json.take();
}

}  // namespace sil
