// The three writers: each escapes as its format wants, and quotes or tags as little as a person would who
// knows the format well.
#include "writers.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace bench {
namespace {

struct Escape {
  char byte;
  const char *text;
};

constexpr Escape kSilEscapes[] = {{'"', "\\\""}, {'\\', "\\\\"}, {'\n', "\\n"}, {'\t', "\\t"}};
constexpr Escape kXmlEscapes[] = {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}};
constexpr Escape kJsonEscapes[] = {{'"', "\\\""}, {'\\', "\\\\"}, {'\n', "\\n"}, {'\t', "\\t"}};

template <std::size_t size>
std::string escaped(std::string_view text, const Escape (&escapes)[size]) {
  std::string result;
  for (const char byte : text) {
    const auto *const escape = std::ranges::find(escapes, byte, &Escape::byte);
    if (escape == std::end(escapes)) {
      result += byte;
    } else {
      result += escape->text;
    }
  }
  return result;
}

std::string joined(const std::vector<std::string> &parts) {
  std::string result;
  for (const std::string &part : parts) {
    if (!result.empty()) result += ',';
    result += part;
  }
  return result;
}

// Commas part a value from the next in SIL with a blank behind each.
std::string sil_values(const Attribute &attribute) {
  const bool quoted = kind_of(attribute.type) == Kind::kString;
  std::string result;
  for (const std::string &value : attribute.values) {
    if (!result.empty()) result += ", ";
    result += quoted ? '"' + escaped(value, kSilEscapes) + '"' : value;
  }
  return result;
}

std::string sil_attribute(const Attribute &attribute) {
  return std::string(attribute.compulsory ? "      " : "    * ") + attribute.type + " " + attribute.name +
         " = " + sil_values(attribute) + ";\n";
}

std::string sil_service(const Service &service) {
  std::string result = std::string("\n[") + service.type + " " + service.name + "]\n";
  for (const Invocation &invocation : service.invocations) {
    result += " " + invocation.name + "{\n";
    for (const Attribute &attribute : invocation.attributes) result += sil_attribute(attribute);
    result += " }\n";
  }
  return result + "end\n";
}

std::string xml_attribute(const Attribute &attribute) {
  std::string result = std::string("<attribute type=\"") + attribute.type + "\" name=\"" + attribute.name +
                       "\" compulsory=\"" + (attribute.compulsory ? "true" : "false") + "\">";
  for (const std::string &value : attribute.values) {
    result += "<value>" + escaped(value, kXmlEscapes) + "</value>";
  }
  return result + "</attribute>";
}

std::string xml_service(const Service &service) {
  std::string result = std::string("<service type=\"") + service.type + "\" name=\"" + service.name + "\">";
  for (const Invocation &invocation : service.invocations) {
    result += "<invocation name=\"" + invocation.name + "\">";
    for (const Attribute &attribute : invocation.attributes) result += xml_attribute(attribute);
    result += "</invocation>";
  }
  return result + "</service>";
}

std::string json_value(const std::string &value, Kind kind) {
  if (kind == Kind::kInteger || kind == Kind::kReal) return value;
  if (kind == Kind::kBoolean) return value == "TRUE" ? "true" : "false";
  return '"' + escaped(value, kJsonEscapes) + '"';
}

std::string json_attribute(const Attribute &attribute) {
  const Kind kind = kind_of(attribute.type);
  std::vector<std::string> values;
  for (const std::string &value : attribute.values) values.push_back(json_value(value, kind));
  return std::string("{\"type\":\"") + attribute.type + "\",\"name\":\"" + attribute.name +
         "\",\"compulsory\":" + (attribute.compulsory ? "true" : "false") + ",\"values\":[" + joined(values) +
         "]}";
}

std::string json_invocation(const Invocation &invocation) {
  std::vector<std::string> attributes;
  for (const Attribute &attribute : invocation.attributes) attributes.push_back(json_attribute(attribute));
  return "{\"name\":\"" + invocation.name + "\",\"attributes\":[" + joined(attributes) + "]}";
}

std::string json_service(const Service &service) {
  std::vector<std::string> invocations;
  for (const Invocation &invocation : service.invocations) invocations.push_back(json_invocation(invocation));
  return std::string("{\"type\":\"") + service.type + "\",\"name\":\"" + service.name +
         "\",\"invocations\":[" + joined(invocations) + "]}";
}

}  // namespace

std::string write_sil(const Facts &facts) {
  std::string result = "< SIL 4.2.00 ASCII " + facts.identifier + " >\n";
  for (const Service &service : facts.services) result += sil_service(service);
  return result + "< /SIL >\n";
}

std::string write_xml(const Facts &facts) {
  std::string result = "<?xml version=\"1.0\"?><template version=\"4.2.00\" encoding=\"ASCII\" id=\"" +
                       facts.identifier + "\">";
  for (const Service &service : facts.services) result += xml_service(service);
  return result + "</template>\n";
}

std::string write_json(const Facts &facts) {
  std::vector<std::string> services;
  for (const Service &service : facts.services) services.push_back(json_service(service));
  return "{\"version\":\"4.2.00\",\"encoding\":\"ASCII\",\"id\":\"" + facts.identifier + "\",\"services\":[" +
         joined(services) + "]}\n";
}

}  // namespace bench
