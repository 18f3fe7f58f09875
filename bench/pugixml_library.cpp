// pugixml behind the interface of a measured library, plain and with typed values made after each parse: what
// a client of an untyped library does then, and what jt does during its own parse. Ranges are not tested,
// letters' case counts and one list of names serves all services, so this does a little less than jt.
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <pugixml.hpp>
#include <unordered_map>
#include <vector>

#include "libraries.h"
#include "shapes.h"

namespace bench {
namespace {

struct StringWriter : pugi::xml_writer {
  std::string text;
  void write(const void *data, std::size_t size) override {
    text.append(static_cast<const char *>(data), size);
  }
};

class Pugixml : public Library {
 public:
  bool parse(const std::string &text) override {
    document_ = std::make_unique<pugi::xml_document>();
    return document_->load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
  }

  std::string_view save() override {
    StringWriter writer;
    document_->save(writer, "", pugi::format_raw, pugi::encoding_utf8);
    text_ = std::move(writer.text);
    return text_;
  }

  void destroy() override {
    text_ = std::string();
    document_.reset();
  }

 protected:
  std::unique_ptr<pugi::xml_document> document_;

 private:
  std::string text_;
};

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

// Every other type is an enumeration, and so is a boolean.
const std::unordered_map<std::string_view, Kind> kKinds = {{"integer", kNumbers},
                                                           {"ref_collection", kText},
                                                           {"ref_invocation", kText},
                                                           {"real", kReal},
                                                           {"string", kText},
                                                           {"struct_gutter", kNumbers},
                                                           {"struct_magnification", kNumbers},
                                                           {"struct_rectangle", kNumbers},
                                                           {"struct_timeofday", kNumbers},
                                                           {"timestamp", kNumbers}};

struct TextHash : std::hash<std::string_view> {
  using is_transparent = void;
};

using Names = std::unordered_map<std::string, std::int32_t, TextHash, std::equal_to<>>;

// The enumerated names of all shapes, and those that occur within structures. Made when the program starts,
// so that it is not part of the first parse.
const Names kNames = [] {
  std::vector<std::string> all = enumerated_names();
  all.insert(all.end(),
             {"TRUE", "FALSE", "MM", "IN", "MIL", "AUTOISO", "AUTOANA", "NONE", "MANISO", "MANANA"});
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

}  // namespace

std::unique_ptr<Library> make_pugixml() { return std::make_unique<Pugixml>(); }

std::unique_ptr<Library> make_converting_pugixml() { return std::make_unique<ConvertingPugixml>(); }

}  // namespace bench
