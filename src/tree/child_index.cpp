#include "tree/child_index.h"

#include <bit>
#include <cstdlib>

#include "tree/node.h"
#include "tree/node_storage.h"
#include "types/value_hash.h"

namespace jt {

namespace {

// The hash stands beside the child: a child of another key need not be fetched from memory.
struct Entry {
  jt_node *child;
  std::uint32_t hash;
};

}  // namespace

// Open addressing with linear probing. Of several children of one key only the first in the list has an
// entry; `hidden` counts the others. Entries are kept dense by closing the gap when one goes, so there are no
// tombstones.
struct ChildIndex {
  std::uint32_t mask;    // entries - 1, a power of two less one
  std::uint32_t used;    // entries that hold a child
  std::uint32_t hidden;  // children with a key, but without an entry
  Entry *entries;
};

namespace {

constexpr int kShortList = 12;

// What a child is found by: its name or, when it is a value, the value of its type or its text.
struct Key {
  std::uint32_t hash;
  bool of_value;  // names and the texts of values never meet
  std::string_view text;
  const jt_type *type;  // null: the text counts
  const jt_value *value;
};

bool is_value(const jt_node &child) { return child.node_class == JT_NODE_VALUE; }

Key key_of_name(std::string_view name) { return {name_hash(name), false, name, nullptr, nullptr}; }

Key key_of_pending(std::string_view text) { return {name_hash(text), true, text, nullptr, nullptr}; }

bool has_key(const jt_node &child) {
  return is_value(child) ? child.value != nullptr : child.name != nullptr;
}

// The hash is not asked for: it is stored with the child once that is known to have a table.
Key key_of(const jt_node &child) {
  if (!is_value(child)) return {child.key_hash, false, child.name, nullptr, nullptr};
  if (!has_known_type(child)) return {child.key_hash, true, view_of(child.pending_value), nullptr, nullptr};
  return {child.key_hash, true, {}, child.type, child.value};
}

bool is_worth(const Key &key, const jt_node &child) {
  if (key.of_value != is_value(child)) return false;
  if (key.type == nullptr) return has_key(child) && same_name(key_of(child).text, key.text);
  return key.type->cmp(nullptr, key.value, child.value) == 0;
}

bool matches(const Key &key, const jt_node &child) {
  return child.key_hash == key.hash && is_worth(key, child);
}

// The hash of a value is only wanted by a table; false when its type has none.
bool set_key_hash(jt_node &child) {
  if (!is_value(child)) return true;
  if (has_known_type(child)) return hash_value(*child.type, child.value, child.key_hash);
  child.key_hash = name_hash(view_of(child.pending_value));
  return true;
}

// The entry with that key, or the empty one where it belongs.
Entry &entry_of(const ChildIndex &index, const Key &key) {
  std::uint32_t at = key.hash & index.mask;
  for (; index.entries[at].child != nullptr; at = (at + 1) & index.mask) {
    const Entry &entry = index.entries[at];
    if (entry.hash == key.hash && is_worth(key, *entry.child)) break;
  }
  return index.entries[at];
}

// The record takes the place of the first entries.
constexpr std::size_t kHead = (sizeof(ChildIndex) + sizeof(Entry) - 1) / sizeof(Entry);

// Blocks of the plain heap: nothing is reported when there are none.
ChildIndex *open_index(std::uint32_t size) {
  void *const block = std::calloc(kHead + size, sizeof(Entry));
  if (block == nullptr) return nullptr;
  auto *const index = static_cast<ChildIndex *>(block);
  index->mask = size - 1;
  index->entries = static_cast<Entry *>(block) + kHead;
  return index;
}

bool comes_before(const jt_node &child, const jt_node &other) {
  const jt_node *next = child.next_sibling;
  while (next != nullptr && next != &other) next = next->next_sibling;
  return next != nullptr;
}

void insert(ChildIndex &index, jt_node &child) {
  const Key key = key_of(child);
  Entry &entry = entry_of(index, key);
  if (entry.child == nullptr) {
    entry = {&child, key.hash};
    ++index.used;
    return;
  }
  ++index.hidden;
  if (child.next_sibling != nullptr && comes_before(child, *entry.child)) entry.child = &child;
}

// Moves every later entry of the run into the gap when that brings it closer to its home.
void close_gap(ChildIndex &index, std::uint32_t gap) {
  for (std::uint32_t at = (gap + 1) & index.mask; index.entries[at].child != nullptr;
       at = (at + 1) & index.mask) {
    const std::uint32_t home = index.entries[at].hash & index.mask;
    if (((at - home) & index.mask) < ((at - gap) & index.mask)) continue;
    index.entries[gap] = index.entries[at];
    gap = at;
  }
  index.entries[gap] = {};
  --index.used;
}

// With this many children or more a table would need more entries than can be counted.
constexpr std::uint32_t kMostIndexed = 1U << 28U;

// A quarter full or more, so that the number of children can double before the index grows.
void build_index(jt_node &parent) {
  drop_index(parent);
  std::uint32_t children = 0;
  for (jt_node *child = parent.first_child; child != nullptr; child = child->next_sibling) {
    if (!set_key_hash(*child) || ++children > kMostIndexed) return;
  }
  parent.index = open_index(std::bit_ceil(children * 2));
  if (parent.index == nullptr) return;
  mark_owner(parent);
  // From the last to the first: whoever comes later is hidden by whoever comes before, without a search.
  for (jt_node *child = parent.last_child; child != nullptr; child = child->previous_sibling) {
    if (!has_key(*child)) continue;
    const Key key = key_of(*child);
    Entry &entry = entry_of(*parent.index, key);
    ++(entry.child == nullptr ? parent.index->used : parent.index->hidden);
    entry = {child, key.hash};
  }
}

// Moves the entries into an index of twice the size. Their keys differ, so no child is looked at.
void grow_index(jt_node &parent) {
  const ChildIndex &old = *parent.index;
  ChildIndex *const index = old.mask < kMostIndexed ? open_index((old.mask + 1) * 2) : nullptr;
  for (std::uint32_t i = 0; index != nullptr && i <= old.mask; ++i) {
    if (old.entries[i].child == nullptr) continue;
    std::uint32_t at = old.entries[i].hash & index->mask;
    while (index->entries[at].child != nullptr) at = (at + 1) & index->mask;
    index->entries[at] = old.entries[i];
  }
  if (index != nullptr) {
    index->used = old.used;
    index->hidden = old.hidden;
  }
  drop_index(parent);
  parent.index = index;
}

jt_node *find_in_list(jt_node &parent, const Key &key, bool hashed) {
  jt_node *child = parent.first_child;
  int passed = 0;
  for (; child != nullptr && !(hashed ? matches(key, *child) : is_worth(key, *child));
       child = child->next_sibling) {
    ++passed;
  }
  if (passed > kShortList) build_index(parent);
  return child;
}

jt_node *find_by_name(jt_node &parent, const Key &key) {
  return parent.index != nullptr ? entry_of(*parent.index, key).child : find_in_list(parent, key, true);
}

}  // namespace

jt_node *find_child(jt_node &parent, std::string_view name) {
  return find_by_name(parent, key_of_name(name));
}

jt_node *find_namesake(jt_node &parent, const jt_node &node) { return find_by_name(parent, key_of(node)); }

jt_node *find_value(jt_node &attribute, const jt_value *value) {
  Key key = {0, true, {}, attribute.type, value};
  const bool hashed = hash_value(*attribute.type, value, key.hash);
  return attribute.index != nullptr && hashed ? entry_of(*attribute.index, key).child
                                              : find_in_list(attribute, key, false);
}

jt_node *find_pending_value(jt_node &attribute, std::string_view text) {
  const Key key = key_of_pending(text);
  return attribute.index != nullptr ? entry_of(*attribute.index, key).child
                                    : find_in_list(attribute, key, false);
}

void index_child(jt_node &parent, jt_node &child) {
  if (parent.index == nullptr || !has_key(child)) return;
  if (!set_key_hash(child)) {
    drop_index(parent);
  } else {
    if (parent.index->used > parent.index->mask / 2) grow_index(parent);
    if (parent.index != nullptr) insert(*parent.index, child);
  }
}

void unindex_child(jt_node &parent, jt_node &child) {
  if (parent.index == nullptr || !has_key(child)) return;
  ChildIndex &index = *parent.index;
  const Key key = key_of(child);
  Entry &entry = entry_of(index, key);
  if (entry.child != &child) {
    --index.hidden;
    return;
  }
  jt_node *next = index.hidden > 0 ? child.next_sibling : nullptr;
  while (next != nullptr && !matches(key, *next)) next = next->next_sibling;
  if (next != nullptr) {
    entry.child = next;
    --index.hidden;
  } else {
    close_gap(index, static_cast<std::uint32_t>(&entry - index.entries));
  }
}

void drop_index(jt_node &node) {
  std::free(node.index);
  node.index = nullptr;
}

}  // namespace jt
