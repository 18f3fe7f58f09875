// Calls that change the attributes of the current invocation and their values. A call that fails leaves the
// attribute as it was: tests/api/attribute_mutation_test.cpp and tests/api/override_test.cpp.
#include "api/frame.h"
#include "api/node_effects.h"
#include "base/error_store.h"
#include "base/memory.h"
#include "base/text.h"
#include "tree/child_index.h"
#include "tree/node.h"
#include "tree/node_storage.h"
#include "types/status.h"
#include "types/type_tables.h"

namespace jt_core {
namespace {

constexpr std::uint32_t kOverridden = 6;  // KMT_STATUS_OVERRIDDEN

// The frame of a call that needs a value or its text.
Frame with_value(jt_parser_space *space, const void *value) {
  return Frame(space).needs(value != nullptr, message::kNullValue);
}

// ---- Adding and replacing ---------------------------------------------------------------------------------

std::int32_t add_value(jt_parser_space *space, const Frame &at, jt_node *value) {
  return add_or_destroy(space, at.attribute(), value, add_child);
}

// The old values go only once the new one is there.
std::int32_t replace_values(jt_parser_space *space, const Frame &at, jt_node *value) {
  if (value != nullptr) destroy_children(space, &at.attribute());
  return add_value(space, at, value);
}

std::int32_t set_compulsion(const Frame &at, bool non_compulsory) {
  if (!at) return 0;
  at.attribute().non_compulsory = non_compulsory;
  return 1;
}

// ---- Deleting ---------------------------------------------------------------------------------------------

std::int32_t delete_found(jt_parser_space *space, jt_node *stored) {
  if (stored == nullptr) {
    report(space, message::kNoSuchValue);
    return 0;
  }
  return destroy_node(space, stored);
}

// Whether the attribute's type is known and has the operations that the call needs.
template <typename... Operations>
bool has_operations(jt_parser_space *space, const jt_node &attribute, const char *attribute_name,
                    Operations jt_type::*...operations) {
  if (!has_known_type(attribute)) {
    report(space, message::kUnknownDataType);
    return false;
  }
  const bool complete = ((attribute.type->*operations != nullptr) && ...);
  if (!complete) jt_error(space, message::kNoCompareOfAttribute, attribute_name);
  return complete;
}

// The value that a text denotes, for as long as a call needs it.
jt_value *evaluate(jt_parser_space *space, const jt_type &type, const char *text) {
  char *const copy = copy_text(space, text);
  jt_value *const value = copy != nullptr ? type.eval(space, copy) : nullptr;
  er_free(copy);
  if (value == nullptr) report(space, message::kUnparsableValue, text);
  return value;
}

std::int32_t delete_by_text(jt_parser_space *space, jt_node &attribute, const char *text) {
  jt_value *const value = evaluate(space, *attribute.type, text);
  if (value == nullptr) return 0;
  jt_node *const stored = find_value(attribute, value);
  attribute.type->kill(space, value);
  return delete_found(space, stored);
}

// ---- Overriding -------------------------------------------------------------------------------------------

jt_node *find_overridable(jt_parser_space *space, const Frame &at, const char *attribute_name,
                          const jt_value *old_value) {
  jt_node &attribute = at.attribute();
  if (!has_operations(space, attribute, attribute_name, &jt_type::cmp, &jt_type::copy, &jt_type::deval,
                      &jt_type::kill)) {
    return nullptr;
  }
  if (!attribute.non_compulsory) {
    jt_error(space, message::kCompulsory, attribute_name);
    return nullptr;
  }
  jt_node *const stored = find_value(attribute, old_value);
  if (stored == nullptr) report(space, message::kNoSuchValue);
  return stored;
}

// What makes the copies that nodes keep: the family of a type or, where it has none, the type itself.
class Keeper {
 public:
  Keeper(jt_parser_space &space, const jt_type &type)
      : space_(space), type_(type), family_(family_of(&type)) {}

  ReleasedBy owner() const { return family_ != nullptr ? ReleasedBy::kHeap : ReleasedBy::kType; }

  // Null without memory, or where a client's type gives none.
  jt_value *copy(Heap &heap, const jt_value *value) const {
    if (family_ == nullptr) return type_.copy(&space_, value);
    KeptSink sink(heap);
    return family_->operations->copy(&space_, value, sink);
  }

  // The text of a stored value, which may have none; false without memory for it.
  bool write(Heap &heap, const jt_value *value, char *&kept) const {
    ValueText text;
    kept = nullptr;
    if (family_ == nullptr) return keep_foreign_text(heap, type_.deval(&space_, value), kept);
    if (!family_->write(&space_, value, text)) return true;
    kept = keep_value_text(*family_->operations, &space_, heap, text);
    return kept != nullptr;
  }

 private:
  bool keep_foreign_text(Heap &heap, char *text, char *&kept) const {
    if (text == nullptr) return true;
    kept = keep_text(&space_, heap, text);
    er_free(text);
    return kept != nullptr;
  }

  jt_parser_space &space_;
  const jt_type &type_;
  const ValueFamily *family_;
};

// Everything that can fail comes first. A value that has no text leaves no overridden text; one whose text
// could not be copied stays where it is.
std::int32_t override_value(jt_parser_space *space, jt_node &attribute, jt_node &stored,
                            const jt_value *new_value) {
  const Keeper keeper(*space, *attribute.type);
  jt_value *const copy = keeper.copy(heap_of(stored), new_value);
  if (copy == nullptr) {
    report(space, message::kInvalidValue);
    return 0;
  }
  Heap &heap = heap_of(attribute);
  char *replaced = nullptr;
  if (!keeper.write(heap, stored.value, replaced)) {
    release_value(*space, heap_of(stored), *attribute.type, copy, keeper.owner());
    return 0;
  }
  replace_value(*space, attribute, stored, copy, keeper.owner());
  release_text(attribute, attribute.overridden_value);
  attribute.overridden_value = replaced;
  set_owns_heap_blocks(attribute);
  adopt_status(attribute, status_of_number(space, heap, kOverridden));
  return 1;
}

}  // namespace
}  // namespace jt_core

extern "C" {

int32_t jt_add_attribute(jt_parser_space *space, int32_t handle, const char *service_name,
                         const char *type_name, const char *attribute_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_invocation(handle, service_name);
  if (!at) return 0;
  jt_node &invocation = at.invocation();
  jt_node *const attribute =
      create_typed_node(space, type_name, attribute_name, JT_NODE_ATTRIBUTE, &invocation);
  return jt_core::add_or_destroy(space, invocation, attribute, add_unique_child);
}

int32_t jt_delete_attribute(jt_parser_space *space, int32_t handle, const char *service_name,
                            const char *attribute_name) {
  const jt_core::Frame at = jt_core::Frame(space).in_attribute(handle, service_name, attribute_name);
  return at ? destroy_node(space, &at.attribute()) : 0;
}

int32_t jt_add_attribute_value_string(jt_parser_space *space, int32_t handle, const char *service_name,
                                      const char *attribute_name, const char *text) {
  const jt_core::Frame at =
      jt_core::with_value(space, text).in_attribute(handle, service_name, attribute_name);
  return at ? jt_core::add_value(space, at, create_value_node(space, at.attribute().type, text)) : 0;
}

int32_t jt_set_attribute_value_string(jt_parser_space *space, int32_t handle, const char *service_name,
                                      const char *attribute_name, const char *text) {
  const jt_core::Frame at =
      jt_core::with_value(space, text).in_attribute(handle, service_name, attribute_name);
  return at ? jt_core::replace_values(space, at, create_value_node(space, at.attribute().type, text)) : 0;
}

int32_t jt_add_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                               const char *attribute_name, const jt_value *value) {
  const jt_core::Frame at =
      jt_core::with_value(space, value).in_attribute(handle, service_name, attribute_name);
  return at ? jt_core::add_value(space, at, create_value_ptr_node(space, at.attribute().type, value)) : 0;
}

int32_t jt_set_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                               const char *attribute_name, const jt_value *value) {
  const jt_core::Frame at =
      jt_core::with_value(space, value).in_attribute(handle, service_name, attribute_name);
  return at ? jt_core::replace_values(space, at, create_value_ptr_node(space, at.attribute().type, value))
            : 0;
}

int32_t jt_delete_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                  const char *attribute_name, const jt_value *value) {
  const jt_core::Frame at =
      jt_core::with_value(space, value).in_attribute(handle, service_name, attribute_name);
  if (!at || !jt_core::has_operations(space, at.attribute(), attribute_name, &jt_type::cmp)) return 0;
  return jt_core::delete_found(space, jt_core::find_value(at.attribute(), value));
}

int32_t jt_delete_attribute_value_string(jt_parser_space *space, int32_t handle, const char *service_name,
                                         const char *attribute_name, const char *text) {
  const jt_core::Frame at =
      jt_core::with_value(space, text).in_attribute(handle, service_name, attribute_name);
  if (!at) return 0;
  jt_node &attribute = at.attribute();
  if (!jt_core::has_known_type(attribute))
    return jt_core::delete_found(space, jt_core::find_pending_value(attribute, text));
  const bool complete = jt_core::has_operations(space, attribute, attribute_name, &jt_type::eval,
                                                &jt_type::cmp, &jt_type::kill);
  return complete ? jt_core::delete_by_text(space, attribute, text) : 0;
}

int32_t jt_override_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                    const char *attribute_name, const jt_value *old_value,
                                    const jt_value *new_value) {
  const bool given = old_value != nullptr && new_value != nullptr;
  const jt_core::Frame at = jt_core::Frame(space)
                                .needs(given, jt_core::message::kNullValue)
                                .in_attribute(handle, service_name, attribute_name);
  if (!at) return 0;
  jt_node *const stored = jt_core::find_overridable(space, at, attribute_name, old_value);
  return stored != nullptr ? jt_core::override_value(space, at.attribute(), *stored, new_value) : 0;
}

int32_t jt_set_attribute_compulsory(jt_parser_space *space, int32_t handle, const char *service_name,
                                    const char *attribute_name) {
  return jt_core::set_compulsion(jt_core::Frame(space).in_attribute(handle, service_name, attribute_name),
                                 false);
}

int32_t jt_set_attribute_non_compulsory(jt_parser_space *space, int32_t handle, const char *service_name,
                                        const char *attribute_name) {
  return jt_core::set_compulsion(jt_core::Frame(space).in_attribute(handle, service_name, attribute_name),
                                 true);
}

}  // extern "C"
