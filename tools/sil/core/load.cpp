// One walk over the elements of a decoded template. A text that the library cannot give for want of memory is
// taken for one that is not there.
#include "core/load.h"

#include <cstring>
#include <unordered_map>
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

// What is told during a decode: the faults, and each value as it is written.
struct Told {
  std::vector<Fault> faults;
  std::vector<std::pair<std::int32_t, std::string>> values;  // by the number of the element, in its order
  std::unordered_map<std::int32_t, std::string> written;     // by the handle
  std::size_t next = 0;
  std::int32_t open_value = -1;
};

std::int32_t take_opening(void *told, const jt_source_element *element) {
  if (element->kind == JT_SOURCE_VALUE) static_cast<Told *>(told)->open_value = element->number;
  return 0;
}

std::int32_t take_token(void *told, const jt_source_token *token) {
  if (token->role != JT_ROLE_VALUE) return 0;
  Told &all = *static_cast<Told *>(told);
  all.values.emplace_back(all.open_value, std::string(token->text, token->length));
  return 0;
}

std::int32_t take_finding(void *told, const jt_finding *finding) {
  if (finding->severity != JT_SEVERITY_ERROR && finding->severity != JT_SEVERITY_LOSS) return 0;
  const Severity severity = finding->severity == JT_SEVERITY_ERROR ? Severity::kError : Severity::kLoss;
  static_cast<Told *>(told)->faults.push_back(
      {finding->line, finding->column, severity, jt_finding_name(finding->code)});
  return 0;
}

std::int32_t take_handle(void *told, std::int32_t number, std::int32_t handle) {
  Told &all = *static_cast<Told *>(told);
  while (all.next < all.values.size() && all.values[all.next].first < number) ++all.next;
  if (all.next < all.values.size() && all.values[all.next].first == number)
    all.written.emplace(handle, std::move(all.values[all.next].second));
  return 0;
}

// The numbers themselves, since the text of a real has six decimals.
class Loader {
 public:
  Loader(const jt::Session &session, const Told &told) : space_(session.get()), told_(told) {}

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
      values.push_back({text_or_none(value.value_text()), written_of(value), {}});
    if (!attribute.is_type_unknown() && same_name(text_or_none(attribute.type()), "real"))
      add_numbers(attribute, values);
    return values;
  }

  std::string written_of(const jt::Element &value) const {
    const auto found = told_.written.find(value.get());
    return found == told_.written.end() ? text_or_none(value.value_text()) : found->second;
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
  const Told &told_;
};

}  // namespace

Loaded load(const std::string &text) {
  const jt::Session session("sil");
  Told told;
  const jt_listener listener = {sizeof(jt_listener), &told,        take_opening, nullptr,
                                take_token,          take_finding, take_handle};
  const jt::Template job(session,
                         jt_decode_source(session.get(), text.data(), text.size(), nullptr, &listener));
  Loaded loaded{{}, std::move(told.faults)};
  if (job) loaded.model = Loader(session, told).model_of(job);
  return loaded;
}

}  // namespace sil
