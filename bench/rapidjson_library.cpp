// RapidJSON's document behind the interface of a measured library.
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "library.h"

namespace bench {
namespace {

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

  void release_text() override { text_.reset(); }

  void destroy() override { document_.reset(); }

  Counts count() override {
    Counts counts;
    for (const rapidjson::Value &service : (*document_)["services"].GetArray()) {
      ++counts.services;
      for (const rapidjson::Value &invocation : service["invocations"].GetArray()) {
        ++counts.invocations;
        for (const rapidjson::Value &attribute : invocation["attributes"].GetArray()) {
          ++counts.attributes;
          counts.values += attribute["values"].Size();
        }
      }
    }
    return counts;
  }

 private:
  std::unique_ptr<rapidjson::Document> document_;
  std::unique_ptr<rapidjson::StringBuffer> text_;
};

}  // namespace

std::unique_ptr<Library> make_rapidjson() { return std::make_unique<Rapidjson>(); }

std::string rapidjson_version() { return RAPIDJSON_VERSION_STRING; }

}  // namespace bench
