// jt, pugixml and RapidJSON behind the interface of a measured library, and the same facts in the format of
// each.
#include "libraries.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <pugixml.hpp>
#include <sstream>
#include <unordered_map>
#include <utility>
#include <vector>

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

class Pugixml : public Library, pugi::xml_writer {
 public:
  bool parse(const std::string &text) override {
    document_ = std::make_unique<pugi::xml_document>();
    return document_->load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
  }

  std::string_view save() override {
    document_->save(*this, "", pugi::format_raw, pugi::encoding_utf8);
    return text_;
  }

  void destroy() override {
    text_ = std::string();
    document_.reset();
  }

 protected:
  std::unique_ptr<pugi::xml_document> document_;

 private:
  void write(const void *data, std::size_t size) override {
    text_.append(static_cast<const char *>(data), size);
  }

  std::string text_;
};

// ---- pugixml with typed values ----

// Made after each parse: what a client of an untyped library does then, and what jt does during its own parse.
// Ranges are not tested, letters' case counts and one list of names serves all services, so this does a little
// less than jt.

enum Kind { kName, kNumbers, kReal, kText };

// A native value. A text is not copied.
struct Value {
  Kind kind;
  union {
    std::array<std::int32_t, 10> numbers;
    float real;
    const char *text;
  };
};

// Of the types in the shapes. Every other one is an enumeration, and so is a boolean.
const std::unordered_map<std::string_view, Kind> kKinds = {{"integer", kNumbers},
                                                           {"ref_invocation", kText},
                                                           {"real", kReal},
                                                           {"string", kText},
                                                           {"struct_borders", kNumbers},
                                                           {"struct_gutter", kNumbers},
                                                           {"struct_magnification", kNumbers},
                                                           {"struct_rectangle", kNumbers},
                                                           {"struct_timeofday", kNumbers}};

struct TextHash : std::hash<std::string_view> {
  using is_transparent = void;
};

using Names = std::unordered_map<std::string, std::int32_t, TextHash, std::equal_to<>>;

// The enumerated names of all shapes, and those that occur within structures. Made when the program starts,
// so that it is not part of the first parse.
const Names kNames = [] {
  std::vector<std::string> all = enumerated_names();
  all.insert(all.end(), {"TRUE", "FALSE", "MM", "MANISO", "MANANA", "NA_11x17SEF", "GWICH'IN"});
  Names names;
  for (const std::string &name : all) names.try_emplace(name, static_cast<std::int32_t>(names.size()));
  return names;
}();

bool convert_name(std::string_view text, std::int32_t &number) {
  const auto found = kNames.find(text);
  number = found == kNames.end() ? -1 : found->second;
  return number >= 0;
}

// All structures are numbers or names between slashes; the time of day has a colon.
bool convert_numbers(const char *text, Value &value) {
  for (std::int32_t &number : value.numbers) {
    char *end = nullptr;
    number = static_cast<std::int32_t>(std::strtol(text, &end, 10));
    if (end == text) {
      const std::size_t length = std::strcspn(text, "/");
      if (!convert_name({text, length}, number)) return false;
      end += length;
    }
    if (*end == '\0') return true;
    if (*end != '/' && *end != ':') return false;
    text = end + 1;
  }
  return false;
}

// Whether the text has the form that its kind wants.
bool convert(const char *text, Value &value) {
  if (value.kind == kName) return convert_name(text, value.numbers[0]);
  if (value.kind == kNumbers) return convert_numbers(text, value);
  value.text = text;
  if (value.kind == kText) return true;
  char *end = nullptr;
  value.real = std::strtof(text, &end);
  return end != text && *end == '\0';
}

// Keeps the native values beside the tree, in document order.
class ConvertingPugixml : public Pugixml {
 public:
  bool parse(const std::string &text) override {
    if (!Pugixml::parse(text)) return false;
    bool converted = true;
    for (const pugi::xml_node service : document_->document_element()) {
      for (const pugi::xml_node invocation : service) {
        for (const pugi::xml_node attribute : invocation) converted = convert_values(attribute) && converted;
      }
    }
    return converted;
  }

  void destroy() override {
    values_ = std::vector<Value>();
    Pugixml::destroy();
  }

 private:
  bool convert_values(pugi::xml_node attribute) {
    const auto found = kKinds.find(attribute.attribute("type").value());
    const Kind kind = found == kKinds.end() ? kName : found->second;
    bool converted = true;
    for (const pugi::xml_node value : attribute.children()) {
      values_.push_back({kind, {}});
      converted = convert(value.child_value(), values_.back()) && converted;
    }
    return converted;
  }

  std::vector<Value> values_;
};

// ---- What is measured ----

template <typename Made>
std::unique_ptr<Library> make() {
  return std::make_unique<Made>();
}

constexpr LibraryRow kLibraries[] = {
    {"jt", &Texts::sil, make<Jt>},
    {"jt, beside another template", &Texts::sil, make<JtBeside>},
    {"jt, a session for each", &Texts::sil, make<JtSession>},
    {"pugixml", &Texts::xml, make<Pugixml>},
    {"pugixml, converted", &Texts::xml, make<ConvertingPugixml>},
    {"RapidJSON", &Texts::json, make<Rapidjson>},
};

// ---- Texts ----

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
      const auto name = invocation.invocation_name();
      inner.append_attribute("name") = name ? name->c_str() : "";
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
