// jt and RapidJSON behind the interface of a measured library, and the same facts in the format of each.
#include "libraries.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstdio>
#include <cstdlib>
#include <pugixml.hpp>
#include <sstream>
#include <utility>

#include "jt.hpp"
#include "shapes.h"

namespace bench {
namespace {

// One session for all trees, as in a client that handles one job after the other.
class Jt : public Library {
 public:
  ~Jt() override { jt_close_parsing_utility(space_); }

  bool parse(const std::string &text) override {
    if (space_ == nullptr) space_ = jt_open_parsing_utility("jt_bench");
    job_ = jt_decode_template(space_, text.c_str());
    return job_ != 0;
  }

  std::string_view save() override {
    text_ = jt_encode_template(space_, job_);
    return text_ == nullptr ? std::string_view() : text_;
  }

  void destroy() override {
    free(std::exchange(text_, nullptr));
    jt_destroy_template(space_, job_);
  }

 protected:
  jt_parser_space *space_ = jt_open_parsing_utility("jt_bench");
  int32_t job_ = 0;
  char *text_ = nullptr;
};

// Beside a template that stays.
class JtBeside : public Jt {
 public:
  JtBeside() { require(jt_decode_template(space_, shapes()[0].make().c_str()) != 0, "decoding beside"); }
};

// A session for each tree.
class JtSession : public Jt {
 public:
  void destroy() override {
    free(std::exchange(text_, nullptr));
    jt_close_parsing_utility(std::exchange(space_, nullptr));
  }
};

class Rapidjson : public Library {
 public:
  bool parse(const std::string &text) override {
    document_ = std::make_unique<rapidjson::Document>();
    return !document_->Parse(text.data(), text.size()).HasParseError();
  }

  std::string_view save() override {
    text_ = std::make_unique<rapidjson::StringBuffer>();
    rapidjson::Writer<rapidjson::StringBuffer> writer(*text_);
    if (!document_->Accept(writer)) return {};
    return {text_->GetString(), text_->GetSize()};
  }

  void destroy() override {
    text_.reset();
    document_.reset();
  }

 private:
  std::unique_ptr<rapidjson::Document> document_;
  std::unique_ptr<rapidjson::StringBuffer> text_;
};

template <typename Made>
std::unique_ptr<Library> make() {
  return std::make_unique<Made>();
}

constexpr LibraryRow kLibraries[] = {
    {"jt", &Texts::sil, make<Jt>},
    {"jt, beside another template", &Texts::sil, make<JtBeside>},
    {"jt, a session for each", &Texts::sil, make<JtSession>},
    {"pugixml", &Texts::xml, make_pugixml},
    {"pugixml, converted", &Texts::xml, make_converting_pugixml},
    {"RapidJSON", &Texts::json, make<Rapidjson>},
};

// An element for each service, invocation, attribute and value.
void add_attributes(pugi::xml_node parent, const jt::Service &service) {
  for (const jt::Text &name : service.attributes()) {
    pugi::xml_node attribute = parent.append_child("attribute");
    attribute.append_attribute("type") = service.type_of(name).value().c_str();
    attribute.append_attribute("name") = name.c_str();
    attribute.append_attribute("compulsory") = !service.is_non_compulsory(name);
    for (const jt::Text &value : service.texts(name)) attribute.append_child("value").text() = value.c_str();
  }
}

void add_services(pugi::xml_node parent, const jt::Template &job) {
  for (const jt::Service &service : job.services()) {
    pugi::xml_node at = parent.append_child("service");
    at.append_attribute("type") = service.type().value().c_str();
    at.append_attribute("name") = service.c_str();
    for (const jt::Service &invocation : service.invocations()) {
      pugi::xml_node inner = at.append_child("invocation");
      inner.append_attribute("name") = invocation.invocation_name().value().c_str();
      add_attributes(inner, invocation);
    }
  }
}

using Json = rapidjson::Writer<rapidjson::StringBuffer>;

// Numbers and booleans are JSON's.
void write_value(Json &json, std::string_view type, const char *text) {
  if (type == "integer") {
    json.Int(std::atoi(text));
  } else if (type == "real") {
    json.Double(std::atof(text));
  } else if (type == "boolean") {
    json.Bool(std::string_view(text) == "TRUE");
  } else {
    json.String(text);
  }
}

// An element is an object with its XML attributes as members and its children in an array; an attribute's are
// its values.
void write_element(Json &json, pugi::xml_node element) {
  const bool has_values = std::string_view(element.name()) == "attribute";
  json.StartObject();
  for (const pugi::xml_attribute member : element.attributes()) {
    json.Key(member.name());
    json.String(member.value());
  }
  json.Key(has_values ? "values" : "children");
  json.StartArray();
  for (const pugi::xml_node child : element.children()) {
    if (has_values) write_value(json, element.attribute("type").value(), child.child_value());
    if (!has_values) write_element(json, child);
  }
  json.EndArray();
  json.EndObject();
}

}  // namespace

std::span<const LibraryRow> libraries() { return kLibraries; }

Texts make_texts(const std::string &sil) {
  const jt::Session session("jt_bench");
  const auto job = session.decode(sil);
  require(job && session.last_report().category() == jt::Category::none, "decoding a shape");
  pugi::xml_document document;
  add_services(document.append_child("template"), *job);
  std::ostringstream xml;
  document.save(xml, "", pugi::format_raw, pugi::encoding_utf8);
  rapidjson::StringBuffer json;
  Json writer(json);
  write_element(writer, document.document_element());
  return {job->encode().value().str(), xml.str(), json.GetString()};
}

void require(bool holds, std::string_view what) {
  if (holds) return;
  std::fprintf(stderr, "jt_bench: failed: %.*s\n", static_cast<int>(what.size()), what.data());
  std::exit(EXIT_FAILURE);
}

}  // namespace bench
