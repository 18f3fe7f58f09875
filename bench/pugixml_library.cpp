// pugixml behind the interface of a measured library, plain and with typed values made after each parse.
#include <pugixml.hpp>
#include <vector>

#include "conversions.h"
#include "library.h"

namespace bench {
namespace {

class StringWriter : public pugi::xml_writer {
 public:
  explicit StringWriter(std::string &text) : text_(text) {}
  void write(const void *data, std::size_t size) override {
    text_.append(static_cast<const char *>(data), size);
  }

 private:
  std::string &text_;
};

class Pugixml : public Library {
 public:
  bool parse(const std::string &text) override {
    document_ = std::make_unique<pugi::xml_document>();
    return document_->load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
  }

  std::string_view save() override {
    StringWriter writer(text_);
    document_->save(writer, "", pugi::format_raw, pugi::encoding_utf8);
    return text_;
  }

  void release_text() override { text_ = std::string(); }

  void destroy() override { document_.reset(); }

  Counts count() override {
    Counts counts;
    for_attributes([&counts](pugi::xml_node attribute) {
      ++counts.attributes;
      for (pugi::xml_node value : attribute.children()) counts.values += value.text() ? 1 : 0;
    });
    for (pugi::xml_node service : document_->document_element().children()) {
      ++counts.services;
      for (pugi::xml_node invocation : service.children()) counts.invocations += invocation ? 1 : 0;
    }
    return counts;
  }

 protected:
  template <typename Visit>
  void for_attributes(Visit visit) {
    for (pugi::xml_node service : document_->document_element().children()) {
      for (pugi::xml_node invocation : service.children()) {
        for (pugi::xml_node attribute : invocation.children()) visit(attribute);
      }
    }
  }

 private:
  std::unique_ptr<pugi::xml_document> document_;
  std::string text_;
};

// The tables of the conversions are made once for all trees.
const Converter &converter() {
  static const Converter the_converter;
  return the_converter;
}

// Keeps the native values beside the tree, in document order.
class ConvertingPugixml : public Pugixml {
 public:
  bool parse(const std::string &text) override {
    if (!Pugixml::parse(text)) return false;
    bool converted = true;
    for_attributes([this, &converted](pugi::xml_node attribute) { converted &= convert_values(attribute); });
    return converted;
  }

  void destroy() override {
    values_ = std::vector<Value>();
    Pugixml::destroy();
  }

 private:
  bool convert_values(pugi::xml_node attribute) {
    const Kind kind = converter_.kind_of_type(attribute.attribute("type").value());
    bool converted = true;
    for (pugi::xml_node value : attribute.children()) {
      converted &= converter_.convert(kind, value.child_value(), values_.emplace_back());
    }
    return converted;
  }

  const Converter &converter_ = converter();
  std::vector<Value> values_;
};

}  // namespace

std::unique_ptr<Library> make_pugixml() { return std::make_unique<Pugixml>(); }

std::unique_ptr<Library> make_converting_pugixml() { return std::make_unique<ConvertingPugixml>(); }

// The header writes 1.13 as 1130.
std::string pugixml_version() {
  return std::to_string(PUGIXML_VERSION / 1000) + "." + std::to_string(PUGIXML_VERSION % 1000 / 10);
}

}  // namespace bench
