// The exported operations of statuses: those of the base enumerations, over another handle type.
#include "types/status.h"

#include <array>
#include <functional>

#include "base/markers.h"
#include "types/enumeration.h"
#include "types/exported_operations.h"
#include "types/value_lists.h"

namespace jt_core {
namespace {

constexpr ValueFamily kStatuses = {&kOperations<Enumeration>, &kBaseValues};

const jt_value *as_value(const jt_status *status) { return reinterpret_cast<const jt_value *>(status); }

jt_status *as_status(jt_value *value) { return reinterpret_cast<jt_status *>(value); }

// The marker is followed by its empty text.
struct SharedStatus {
  std::uint32_t number;
  char text[4];
};

// One for each number of the list, and the marker.
constexpr std::size_t kShared = kBaseNumberEnd + 1;

constexpr std::array<SharedStatus, kShared> kSharedStatuses = [] {
  std::array<SharedStatus, kShared> statuses{};
  for (std::uint32_t number = 0; number < kBaseNumberEnd; ++number) statuses[number].number = number;
  statuses.back().number = kUnknownNameMarker;
  return statuses;
}();

const jt_status *shared_status(std::size_t entry) {
  return reinterpret_cast<const jt_status *>(&kSharedStatuses[entry]);
}

}  // namespace

std::string_view status_text(jt_parser_space *space, const jt_status *status) {
  const std::string_view text = enumerated_text(space, kBaseValues, as_value(status));
  return text.data() != nullptr ? text : std::string_view("");
}

const jt_status *find_shared_status(std::string_view name) {
  std::uint32_t number = 0;
  return find_number(kBaseValues, name, number) ? shared_status(number) : nullptr;
}

bool is_shared_status(const jt_status *status) {
  const std::less<> before;
  return !before(status, shared_status(0)) && !before(shared_status(kShared - 1), status);
}

const jt_status *status_of_number(jt_parser_space *space, Heap &heap, std::uint32_t number) {
  if (number == kUnknownNameMarker) return shared_status(kShared - 1);
  if (number < kBaseNumberEnd) return shared_status(number);
  KeptSink sink(heap);
  return as_status(store_value(space, sink, &number, sizeof(number)));
}

const jt_status *status_of_name(jt_parser_space *space, Heap &heap, std::string_view name) {
  KeptSink sink(heap);
  return as_status(kStatuses.read(space, name, sink).value);
}

}  // namespace jt_core

extern "C" {

jt_status *get_status(jt_parser_space *space, const char *name) {
  if (name == nullptr) return nullptr;
  jt_core::ValueSink sink = jt_core::heap_sink();
  return jt_core::as_status(jt_core::kStatuses.read(space, name, sink).value);
}

jt_status *copy_status(jt_parser_space *space, const jt_status *status) {
  return jt_core::as_status(jt_core::copy_value(jt_core::kStatuses, space, jt_core::as_value(status)));
}

char *get_status_string(jt_parser_space *space, const jt_status *status) {
  return jt_core::deval_value(jt_core::kStatuses, space, jt_core::as_value(status));
}

int32_t kill_status(jt_parser_space * /*space*/, jt_status *status) { return er_free(status); }

}  // extern "C"
