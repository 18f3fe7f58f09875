// One walk over the elements of a decoded template. A text that the library cannot give for want of memory is
// taken for one that is not there.
#include "core/load.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "core/text.h"
#include "jt.hpp"

namespace sil {
namespace {

MaybeText text_of(const jt::Result<jt::Text> &text) {
  return text ? MaybeText(std::in_place, text->view()) : std::nullopt;
}

std::string text_or_none(const jt::Result<jt::Text> &text) { return text_of(text).value_or(""); }

MaybeStatus status_of(const jt::Element &element) {
  const jt::Result<jt::Status> status = element.status();
  if (!status) return {};
  return Status{text_or_none(status->name()), text_of(element.status_text())};
}

// The numbers themselves, since the text of a real has six decimals.
class Loader {
 public:
  explicit Loader(const jt::Session &session) : space_(session.get()) {}

  Model model_of(const jt::Template &job) const {
    Model model;
    model.comment = text_of(job.root().comment());
    if (const jt::Element header = job.header()) model.header = header_of(job, header);
    if (const jt::Element section = job.section())
      model.section = Section{text_of(section.comment()), services_of(section)};
    model.services = services_of(job.root());
    return model;
  }

 private:
  Header header_of(const jt::Template &job, const jt::Element &element) const {
    Header header;
    const jt::ElementKind kind = element.kind();
    header.form = kind == jt::ElementKind::question_header  ? "?"
                  : kind == jt::ElementKind::exclaim_header ? "!"
                                                            : "plain";
    header.version = text_or_none(job.root().header_version());
    header.identifier = text_or_none(job.root().header_identifier());
    header.comment = text_of(element.comment());
    header.attributes = attributes_of(element);
    return header;
  }

  std::vector<Service> services_of(const jt::Element &parent) const {
    std::vector<Service> services;
    for (const jt::Element &child : parent.children()) {
      services.push_back({text_or_none(child.type()),
                          text_or_none(child.name()),
                          text_of(child.comment()),
                          status_of(child),
                          {}});
      for (const jt::Element &invocation : child.children())
        services.back().invocations.push_back({text_of(invocation.name()), text_of(invocation.comment()),
                                               status_of(invocation), attributes_of(invocation)});
    }
    return services;
  }

  std::vector<Attribute> attributes_of(const jt::Element &parent) const {
    std::vector<Attribute> attributes;
    for (const jt::Element &child : parent.children())
      attributes.push_back({text_or_none(child.type()), text_or_none(child.name()), child.is_non_compulsory(),
                            !child.is_type_unknown(), text_of(child.comment()), status_of(child),
                            values_of(child)});
    return attributes;
  }

  std::vector<Value> values_of(const jt::Element &attribute) const {
    std::vector<Value> values;
    for (const jt::Element &value : attribute.children())
      values.push_back({text_or_none(value.value_text()), {}});
    if (!attribute.is_type_unknown() && same_name(text_or_none(attribute.type()), "real"))
      add_numbers(attribute, values);
    return values;
  }

  void add_numbers(const jt::Element &attribute, std::vector<Value> &values) const {
    jt_node *const node = opaque_to_node(space_, attribute.get());
    reset_index(space_, node);
    for (Value &value : values) {
      jt_value *const number = index_child_value(space_, node);
      if (number == nullptr) continue;
      std::memcpy(&value.real.emplace(), number, sizeof(float));
      jt_destroy_value(space_, "real", number, nullptr);
    }
  }

  jt_parser_space *space_;
};

}  // namespace

Loaded load(const std::string &text) {
  Loaded loaded;
  const jt::Session session("sil");
  const jt::Result<jt::Template> job = session.decode(text);
  for (const std::string_view message : session.history().oldest_first())
    loaded.messages.emplace_back(message);
  if (!job) return loaded;
  loaded.has_losses =
      std::any_of(loaded.messages.begin(), loaded.messages.end(),
                  [](const std::string &message) { return !message.starts_with("WARNING:"); });
  loaded.model = Loader(session).model_of(*job);
  return loaded;
}

}  // namespace sil
