// A session as a client may imagine it: a tree of vectors, a set of slots, five messages and a status. Every
// function mirrors the call of its name and answers in words. It is written from the manual in the simplest
// way that is right, and knows a few types only: those that the fuzzer of calls hands out.
//
// Of the three states of a cursor two suffice here. A node gets its cursor on the first child with that
// child, so one that has not started has no children, like one that has run out.
#ifndef JT_FUZZ_MODEL_H
#define JT_FUZZ_MODEL_H

#include <algorithm>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jt_fuzz {

using Name = std::optional<std::string>;
using Answer = std::string;

std::string lower_case(std::string_view text);

// Whatever the case; null is no name.
bool is_name(const Name &name, const char *wanted);

// No name for null and the empty text.
Name name_from(const char *text);

Answer answer_of(bool result);
Answer answer_of(const Name &text);

// ---- The tree ---------------------------------------------------------------------------------------------

enum class Kind { kInteger, kBoolean, kString, kColor, kBlock, kUnknown };

struct Type {
  Kind kind;
  Name name;  // of an unknown type as it was given
};

// The types that the attributes of a service may have.
enum class Scope { kBase, kScan, kUnknown };

struct Status {
  std::uint32_t number;
  std::string text;
};

// What blocks and attributes have in common.
struct Node {
  int32_t slot;
  Name name;
  std::optional<Status> status = {};
  Name overridden = {};
};

// A cursor at the size has run out.
template <typename Child>
struct Children {
  std::vector<Child> items;
  std::size_t cursor = 0;

  // The place of the first child of that name, or the size.
  std::size_t place_of(const char *name) const {
    const auto found = std::find_if(items.begin(), items.end(),
                                    [&](const Child &child) { return is_name(child.name, name); });
    return static_cast<std::size_t>(found - items.begin());
  }

  Child *find(const char *name) {
    const std::size_t place = place_of(name);
    return place < items.size() ? &items[place] : nullptr;
  }

  Child *current() { return cursor < items.size() ? &items[cursor] : nullptr; }
  void restart() { cursor = 0; }
  void advance() { cursor += cursor < items.size() ? 1 : 0; }

  // A cursor that has run out comes to stand on the new child.
  void append(Child child) { items.push_back(std::move(child)); }

  void insert_behind_cursor(Child child) {
    if (cursor < items.size()) ++cursor;
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(cursor), std::move(child));
  }

  void erase(std::size_t place) {
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(place));
    if (cursor > place || (cursor == place && cursor > 0)) --cursor;
  }
};

struct Value {
  int32_t slot;
  std::string text;
  std::string key;  // the same for equal values
  bool is_listed;   // false for an enumerated name that no list knows
};

struct Attribute : Node {
  Type type;
  bool is_non_compulsory = false;
  Children<Value> values = {};
};

struct Invocation : Node {
  Children<Attribute> attributes = {};
};

struct Service : Node {
  std::string type;
  Scope scope;
  Children<Invocation> invocations = {};
};

struct Template {
  int32_t slot;
  std::string comment = {};
  Children<Service> services = {};
};

// ---- The session ------------------------------------------------------------------------------------------

class Model {
 public:
  // What the calls leave behind; the newest message first.
  int32_t status = 0;
  std::deque<std::string> history;
  std::vector<bool> slots;  // whether taken
  std::vector<Template> templates;

  // At the beginning of every call but the few without a frame.
  void begin_call() { status = 0; }

  // What a client recorded itself.
  void note(const char *message) { report(message); }

  // The reports of a call that ran out of memory, of which the model knows nothing.
  void adopt(int32_t left_status, const std::vector<std::string> &messages) {
    status = left_status;
    history.assign(messages.begin(), messages.end());
    previous_ = 0;
  }

  Answer recent_error();
  Answer previous_error();

  Answer create_template();
  Answer decode_example();
  Answer decode_refused(const std::string &report);
  Answer destroy_template(int32_t handle);
  Answer encode_template(int32_t handle);
  Answer add_comment(int32_t handle, const char *text);

  Answer add_service(int32_t handle, const char *type, const char *name);
  Answer delete_service(int32_t handle, const char *service);
  Answer exists_service(int32_t handle, const char *service);
  Answer first_service_name(int32_t handle);
  Answer next_service_name(int32_t handle);
  Answer service_type(int32_t handle, const char *service);

  Answer add_invocation(int32_t handle, const char *service);
  Answer delete_invocation(int32_t handle, const char *service);
  Answer first_invocation(int32_t handle, const char *service);
  Answer next_invocation(int32_t handle, const char *service);
  Answer named_invocation(int32_t handle, const char *service, const char *name);
  Answer invocation_name(int32_t handle, const char *service);
  Answer set_invocation_name(int32_t handle, const char *service, const char *name);
  Answer force_invocation_name(int32_t handle, const char *service, const char *name);

  Answer exists_attribute(int32_t handle, const char *service, const char *attribute);
  Answer first_attribute_name(int32_t handle, const char *service);
  Answer next_attribute_name(int32_t handle, const char *service);
  Answer attribute_type_name(int32_t handle, const char *service, const char *attribute);
  Answer known_datatype(int32_t handle, const char *service, const char *attribute);
  Answer is_non_compulsory(int32_t handle, const char *service, const char *attribute);
  const Value *first_value(int32_t handle, const char *service, const char *attribute);
  const Value *next_value(int32_t handle, const char *service, const char *attribute);
  Answer first_value_string(int32_t handle, const char *service, const char *attribute);
  Answer next_value_string(int32_t handle, const char *service, const char *attribute);

  Answer add_attribute(int32_t handle, const char *service, const char *type, const char *name);
  Answer delete_attribute(int32_t handle, const char *service, const char *attribute);
  Answer set_compulsory(int32_t handle, const char *service, const char *attribute);
  Answer set_non_compulsory(int32_t handle, const char *service, const char *attribute);
  Answer add_text(int32_t handle, const char *service, const char *attribute, const char *text);
  Answer set_text(int32_t handle, const char *service, const char *attribute, const char *text);
  Answer delete_text(int32_t handle, const char *service, const char *attribute, const char *text);
  Answer add_value(int32_t handle, const char *service, const char *attribute, const Value *value);
  Answer set_value(int32_t handle, const char *service, const char *attribute, const Value *value);
  Answer delete_value(int32_t handle, const char *service, const char *attribute, const Value *value);
  Answer override_value(int32_t handle, const char *service, const char *attribute, const Value *old_value,
                        const Value *new_value);

  Answer set_service_status(int32_t handle, const char *service, const std::uint32_t *number);
  Answer set_invocation_status(int32_t handle, const char *service, const std::uint32_t *number);
  Answer set_attribute_status(int32_t handle, const char *service, const char *attribute,
                              const std::uint32_t *number);
  Answer service_status(int32_t handle, const char *service);
  Answer invocation_status(int32_t handle, const char *service);
  Answer attribute_status(int32_t handle, const char *service, const char *attribute);

  // Values outside the tree, of a type that has some; null when the text is null or refused.
  std::optional<Value> decode_value(Kind kind, const char *text);
  Answer encode_value(const Value &value);

  // The same for a type by its name and a service's, with the reports of one that has no values.
  bool has_values(const char *service, const char *type) const;
  std::optional<Value> decode_named(const char *service, const char *type, const char *text);
  Answer copy_named(const char *service, const char *type, const Value *value);
  Answer compare_named(const char *service, const char *type, const Value *a, const Value *b);
  Answer encode_named(const char *service, const char *type, const Value *value);
  Answer destroy_named(const char *service, const char *type, const Value *value);

  bool is_template(int32_t handle) const;
  bool is_live(std::size_t slot) const { return slot < slots.size() && slots[slot]; }

  // The attribute's type, when there is one, without a report.
  const Type *type_of(int32_t handle, const char *service, const char *attribute);

 private:
  std::optional<Kind> kind_named(const char *service, const char *type, const char *message,
                                 const char *detail = "");
  void report(std::string_view message, const char *detail = "");
  int32_t take_slot();
  void release_slot(int32_t slot) { slots[static_cast<std::size_t>(slot)] = false; }
  void release(const Value &value);
  void release(const Attribute &attribute);
  void release(const Invocation &invocation);
  void release(const Service &service);

  std::size_t previous_ = 0;  // the message that previous_error() gives next

  Template *find_template(int32_t handle);
  Service *find_service(int32_t handle, const char *name);
  Invocation *find_invocation(int32_t handle, const char *service);
  Attribute *find_attribute(int32_t handle, const char *service, const char *name);

  Answer name_invocation(int32_t handle, const char *service, const char *name, bool may_have_one);
  Answer append_value(Attribute *attribute, std::optional<Value> value, bool alone);
  std::optional<Value> value_for(const Attribute &attribute, const char *text);
  std::optional<Value> copy_for(const Attribute &attribute, const Value &value);
  Answer delete_equal(Attribute &attribute, const std::string &key);
  Answer set_status(Node *node, const std::uint32_t *number);
  Answer get_status(const Node *node) const;

  std::string written(const Node &node);
  std::string written(const Attribute &attribute);
  std::string written(const Invocation &invocation);
  std::string written(const Service &service);
};

}  // namespace jt_fuzz

#endif
