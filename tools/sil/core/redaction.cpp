// A walk over everything.
#include "core/redaction.h"

#include <algorithm>
#include <array>

#include "core/text.h"

namespace sil {
namespace {

constexpr std::array<std::string_view, 3> kFreeTypes = {"string", "ref_collection", "ref_invocation"};

void redact_comment(MaybeText &comment) {
  if (comment) *comment = "# " + std::string(kRedacted) + "\n";
}

void redact_status(MaybeStatus &status) {
  if (status && status->text) *status->text = kRedacted;
}

void redact_attributes(std::vector<Attribute> &attributes) {
  for (Attribute &attribute : attributes) {
    redact_comment(attribute.comment);
    if (!is_free_text(attribute.type)) continue;
    for (Value &value : attribute.values) value.text = value.written = kRedacted;
    redact_status(attribute.status);
  }
}

void redact_services(std::vector<Service> &services) {
  for (Service &service : services) {
    redact_comment(service.comment);
    redact_status(service.status);
    for (Invocation &invocation : service.invocations) {
      redact_comment(invocation.comment);
      redact_status(invocation.status);
      redact_attributes(invocation.attributes);
    }
  }
}

}  // namespace

bool is_free_text(std::string_view type) {
  return std::any_of(kFreeTypes.begin(), kFreeTypes.end(),
                     [type](std::string_view name) { return same_name(name, type); });
}

void redact(Model &model) {
  redact_comment(model.comment);
  if (model.header) {
    model.header->identifier = kRedacted;
    redact_comment(model.header->comment);
    redact_attributes(model.header->attributes);
  }
  if (model.section) {
    redact_comment(model.section->comment);
    redact_services(model.section->services);
  }
  redact_services(model.services);
}

}  // namespace sil
