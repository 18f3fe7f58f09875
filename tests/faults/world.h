// A session with a template in it, and the ways to bring it where the next node needs a block.
#ifndef JT_TESTS_FAULTS_WORLD_H
#define JT_TESTS_FAULTS_WORLD_H

#include <algorithm>
#include <string>

#include "base/markers.h"
#include "support/failing_allocator.h"
#include "support/session.h"
#include "tree/node.h"
#include "tree/session.h"

namespace jt_test {

inline constexpr char kJob[] =
    "< SIL 4.2.00 ASCII job >\n"
    "[ kmt_svc_scan Scan ]\n"
    "one {\n"
    "  * integer Copies = 1, 2, 3; (KMT_STATUS_COMPLETED)\n"
    "  * enum_mediasize Size = ISO_A4SEF, \"odd size\"; (odd)\n"
    "  string Title = \"a title\";\n"
    "} (KMT_STATUS_ERROR{why})\n"
    "two { } { }\n"
    "end (KMT_STATUS_ERROR)\n"
    "[ service Own ] { } end\n"
    "< /SIL >\n";

struct World {
  // An empty text makes a session without a template.
  explicit World(const std::string &text)
      : space(jt_open_parsing_utility("faults")),
        job(text.empty() ? 0 : jt_decode_template(space, text.c_str())) {}
  ~World() { jt_close_parsing_utility(space); }
  World(const World &) = delete;
  World &operator=(const World &) = delete;

  std::string tree() const { return job != 0 ? take_text(jt_encode_template(space, job)) : ""; }

  jt_node *root() const { return opaque_to_node(space, job); }
  jt_node *service(const char *name) const { return get_child(space, root(), name); }
  jt_node *invocation() const { return service("Scan")->first_child; }
  jt_node *attribute(const char *name) const { return get_child(space, invocation(), name); }

  std::ptrdiff_t live() const {
    const auto &table = space->table;
    return table.count - std::count(table.slots, table.slots + table.count, jt_core::released_slot());
  }

  // The handle that the next node gets.
  int32_t next_handle() const {
    const auto &table = space->table;
    jt_node **const end = table.slots + table.count;
    return bookmark_to_opaque(
        static_cast<int32_t>(std::find(table.slots, end, jt_core::released_slot()) - table.slots));
  }

  jt_parser_space *space;
  int32_t job;
  jt_value *value = nullptr;  // one that a scenario is to release
};

inline jt_node *add_filler(World &world) {
  return create_typed_node(world.space, "template", nullptr, JT_NODE_TEMPLATE, nullptr);
}

// No page has room for another node.
inline void fill_pages(World &world) {
  fail_allocations(1, Failing::kAllFromThereOn);
  while (add_filler(world) != nullptr) continue;
  // A decode that found no header, or no section, has left a cell of the size of one.
  while (create_typed_node(world.space, "template", "header", JT_NODE_TEMPLATE, nullptr) != nullptr) continue;
  allow_allocations();
}

// No slot of the node table is free.
inline void fill_table(World &world) {
  const auto &space = *world.space;
  while (space.free_slots.free > 0 || space.table.count < space.table.capacity) add_filler(world);
}

// An attribute of a type that nobody knows, with one value.
inline void add_odd_attribute(World &world, const char *value = "pending") {
  if (jt_exists_attribute(world.space, world.job, "Scan", "Odd") != 0) return;
  jt_add_attribute(world.space, world.job, "Scan", "nosuch", "Odd");
  jt_add_attribute_value_string(world.space, world.job, "Scan", "Odd", value);
}

inline const jt_value *as_value(const void *record) { return static_cast<const jt_value *>(record); }
inline const jt_status *as_status(const void *record) { return static_cast<const jt_status *>(record); }

inline constexpr int32_t kTwo = 2;
inline constexpr int32_t kFour = 4;
inline const std::string kLong(1100, 'x');  // longer than what lies in a page

}  // namespace jt_test

#endif
