// The catalogue: what the tables say of services, their types and the names of their values. It is constant, so
// these calls need no session. tests/api/catalogue_test.cpp
#include <algorithm>
#include <cstring>

#include "base/memory.h"
#include "base/text.h"
#include "types/type_tables.h"
#include "types/value_form.h"
#include "types/value_lists.h"

namespace jt_core {
namespace {

// The services that templates can name, by name: their order among themselves is nothing to a client.
const ServiceTypes *find_service(const char *name) {
  const std::string_view wanted = view_of(name);
  const auto all = services();
  const auto found = std::find_if(all.begin(), all.end(), [wanted](const ServiceTypes &service) {
    return service.in_templates && same_name(service.name, wanted);
  });
  return found != all.end() ? &*found : nullptr;
}

// Without a service the base list, whose names are statuses, units and algorithms.
const ValueList *find_names(const char *service_name) {
  if (service_name == nullptr) return &kBaseValues;
  const ServiceTypes *const service = find_service(service_name);
  return service != nullptr ? service->values : nullptr;
}

}  // namespace
}  // namespace jt_core

extern "C" {

const char *jt_catalogue_service(int32_t index) {
  const auto all = jt_core::services();
  const bool listed = index >= 0 && static_cast<std::size_t>(index) < all.size() &&
                      all[static_cast<std::size_t>(index)].in_templates;
  return listed ? all[static_cast<std::size_t>(index)].name.data() : nullptr;
}

const jt_type *jt_catalogue_types(const char *service_name, int32_t *count) {
  const jt_core::ServiceTypes *const service = jt_core::find_service(service_name);
  const jt_core::TypeTable *const types =
      service_name == nullptr ? &jt_core::base_types() : (service != nullptr ? &service->types : nullptr);
  if (count != nullptr) *count = types != nullptr ? types->count : 0;
  return types != nullptr ? types->rows : nullptr;
}

char *jt_catalogue_name(const char *service_name, int32_t index, uint32_t *number) {
  const jt_core::ValueList *const names = jt_core::find_names(service_name);
  if (names == nullptr || index < 0 || index >= names->rows) return nullptr;
  if (number != nullptr) *number = names->numbers[index];
  return jt_core::copy_plain_text(jt_core::name_of_row(*names, static_cast<unsigned>(index)));
}

int32_t jt_catalogue_is_written(const char *service_name, int32_t index) {
  const jt_core::ValueList *const names = jt_core::find_names(service_name);
  if (names == nullptr || index < 0 || index >= names->rows) return 0;
  return names->written[names->numbers[index]] == index + 1 ? 1 : 0;
}

const char *jt_catalogue_form(const jt_type *type) { return jt_core::form_of(type); }

int32_t jt_catalogue_range(const jt_type *type, int32_t index, jt_value_range *range) {
  if (range == nullptr || index < 0) return 0;
  jt_value_range found{};
  if (!jt_core::find_range(type, index, found)) return 0;
  const std::size_t size = std::min<std::size_t>(range->size, sizeof(found));
  found.size = range->size;
  std::memcpy(range, &found, size);
  return 1;
}

}  // extern "C"
