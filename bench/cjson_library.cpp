// cJSON behind the interface of a measured library.
#include <cjson/cJSON.h>

#include "library.h"

namespace bench {
namespace {

// The elements of an array that is a member of an object.
template <typename Visit>
void for_elements(const cJSON *object, const char *member, Visit visit) {
  const cJSON *const array = cJSON_GetObjectItemCaseSensitive(object, member);
  for (const cJSON *element = array == nullptr ? nullptr : array->child; element != nullptr;
       element = element->next) {
    visit(element);
  }
}

class Cjson : public Library {
 public:
  bool parse(const std::string &text) override {
    tree_ = cJSON_ParseWithLength(text.data(), text.size());
    return tree_ != nullptr;
  }

  std::string_view save() override {
    text_ = cJSON_PrintUnformatted(tree_);
    return text_ == nullptr ? std::string_view() : text_;
  }

  void release_text() override { cJSON_free(text_); }

  void destroy() override { cJSON_Delete(tree_); }

  Counts count() override {
    Counts counts;
    for_elements(tree_, "services", [&counts](const cJSON *service) {
      ++counts.services;
      for_elements(service, "invocations", [&counts](const cJSON *invocation) {
        ++counts.invocations;
        for_elements(invocation, "attributes", [&counts](const cJSON *attribute) {
          ++counts.attributes;
          for_elements(attribute, "values", [&counts](const cJSON *) { ++counts.values; });
        });
      });
    });
    return counts;
  }

 private:
  cJSON *tree_ = nullptr;
  char *text_ = nullptr;
};

}  // namespace

std::unique_ptr<Library> make_cjson() { return std::make_unique<Cjson>(); }

std::string cjson_version() { return cJSON_Version(); }

}  // namespace bench
