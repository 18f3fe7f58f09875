// libxml2's tree behind the interface of a measured library.
#include <libxml/parser.h>
#include <libxml/tree.h>

#include "library.h"

namespace bench {
namespace {

template <typename Visit>
void for_elements(xmlNodePtr parent, Visit visit) {
  for (xmlNodePtr child = xmlFirstElementChild(parent); child != nullptr;
       child = xmlNextElementSibling(child)) {
    visit(child);
  }
}

class Libxml2 : public Library {
 public:
  bool parse(const std::string &text) override {
    constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_HUGE;
    document_ = xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, kOptions);
    return document_ != nullptr;
  }

  std::string_view save() override {
    int size = 0;
    xmlDocDumpMemory(document_, &text_, &size);
    if (text_ == nullptr) return {};
    return {reinterpret_cast<const char *>(text_), static_cast<std::size_t>(size)};
  }

  void release_text() override { xmlFree(text_); }

  void destroy() override { xmlFreeDoc(document_); }

  Counts count() override {
    Counts counts;
    for_elements(xmlDocGetRootElement(document_), [&counts](xmlNodePtr service) {
      ++counts.services;
      for_elements(service, [&counts](xmlNodePtr invocation) {
        ++counts.invocations;
        for_elements(invocation, [&counts](xmlNodePtr attribute) {
          ++counts.attributes;
          counts.values += xmlChildElementCount(attribute);
        });
      });
    });
    return counts;
  }

 private:
  xmlDocPtr document_ = nullptr;
  xmlChar *text_ = nullptr;
};

}  // namespace

std::unique_ptr<Library> make_libxml2() {
  xmlInitParser();
  return std::make_unique<Libxml2>();
}

std::string libxml2_version() { return LIBXML_DOTTED_VERSION; }

}  // namespace bench
