#include "tree/child_index.h"

#include <algorithm>
#include <bit>
#include <cassert>

#include "tree/node.h"
#include "tree/node_storage.h"
#include "tree/session.h"
#include "tree/sibling_order.h"
#include "types/type_tables.h"

namespace jt_core {
namespace {

// The hash stands beside the entry: a child of another key need not be fetched from memory.
struct Slot {
  EntryNumber entry;
  std::uint32_t hash;
};

}  // namespace

// A hash table with open addressing and linear probing, half full at most:
//
//     slots                  hash and entry of the first child of each key, at (hash & mask) or behind it
//       `-- children[entry]  the child; a child knows its entry, so that it is found again in one step
//       `-- places[entry]    the child's place in the list and in the heap of its equals (sibling_order.h)
//
// Every child has an entry. A key has one slot, however many children have it: the slot leads to the first of
// them in the list, the top of their heap. Places are made when two children of one key meet, which names
// hardly ever do. Where a slot goes, the gap behind it is closed, so there are no tombstones.
//
// No walk through the slots is longer than kMaxRun while the hash is the plain one: a run that is longer was
// made on purpose, or by a rare chance, and the table changes to the session's secret hash, with which nobody
// can choose where a key goes.
struct ChildIndex {
  std::uint32_t mask;     // slots - 1, a power of two less one
  EntryNumber entries;    // that have ever been used
  EntryNumber released;   // the first of those that are free again, linked through `next_released`
  const HashKey *secret;  // null: the plain hash
  SiblingPlace *places;   // of each entry; null until there are two children of one key
  Slot *slots;
  union Entry {
    jt_node *child;
    EntryNumber next_released;
  } * children;  // from 1 on
};

namespace {

constexpr int kMaxUnindexed = 12;
constexpr std::uint32_t kMaxRun = 128;

// With this many children or more a table would need more slots than can be counted.
constexpr std::uint32_t kMaxIndexed = 1U << 28U;

// What a child is found by: its name or, when it is a value, the value of its type or its text.
struct Key {
  bool of_value;  // names and the texts of values never meet
  std::string_view text;
  const jt_type *type;  // null: the text counts
  const jt_value *value;
};

// A node of the class that was made without a value is found by its name like any other.
bool is_value(const jt_node &child) { return child.node_class == JT_NODE_VALUE && child.value != nullptr; }

Key key_of_name(std::string_view name) { return {false, name, nullptr, nullptr}; }

Key key_of_pending(std::string_view text) { return {true, text, nullptr, nullptr}; }

bool has_key(const jt_node &child) { return is_value(child) || child.name != nullptr; }

Key key_of(const jt_node &child) {
  if (!is_value(child)) return key_of_name(child.name);
  if (!has_known_type(child)) return key_of_pending(view_of(child.pending_value));
  return {true, {}, child.type, child.value};
}

bool key_equals(const Key &key, const jt_node &child) {
  if (key.of_value != is_value(child)) return false;
  if (key.type == nullptr) return has_key(child) && same_name(key_of(child).text, key.text);
  return key.type->cmp(nullptr, key.value, child.value) == 0;
}

// False where there is no hash: of values of a client's own type, and of a real that is no number.
bool hash_key(const HashKey *secret, const Key &key, std::uint32_t &hash) {
  if (key.type == nullptr) {
    hash = hash_name(secret, key.text);
    return true;
  }
  const ValueFamily *const family = family_of(key.type);
  return family != nullptr && family->operations->hash(secret, key.value, hash);
}

const HashKey &secret_of(jt_parser_space &space) {
  if (!space.has_hash_key) space.hash_key = make_hash_key(&space);
  space.has_hash_key = true;
  return space.hash_key;
}

// Makes the secret hash that of the index, if it is not yet; without memory for it the plain one stays.
void use_secret_hash(jt_node &parent);

// The same for a child that has no entry yet, and whose name has been hashed already; one without a key has
// any.
bool hash_child(const HashKey *secret, const jt_node &child, std::uint32_t &hash) {
  if (is_value(child) || (secret != nullptr && child.name != nullptr))
    return hash_key(secret, key_of(child), hash);
  hash = child.key_hash;
  return true;
}

// ---- The table --------------------------------------------------------------------------------------------

EntryNumber max_entries(std::uint32_t mask) { return (mask + 1) / 2; }

// Nothing is reported when there is no block.
ChildIndex *open_index(Heap &heap, std::uint32_t slots) {
  const std::size_t children = max_entries(slots - 1) + std::size_t{1};
  auto *const index = static_cast<ChildIndex *>(
      heap.allocate_zeroed(sizeof(ChildIndex) + children * sizeof(ChildIndex::Entry) + slots * sizeof(Slot)));
  if (index == nullptr) return nullptr;
  index->mask = slots - 1;
  index->children = reinterpret_cast<ChildIndex::Entry *>(index + 1);
  index->slots = reinterpret_cast<Slot *>(index->children + children);
  return index;
}

bool open_places(Heap &heap, ChildIndex &index) {
  index.places = static_cast<SiblingPlace *>(
      heap.allocate_zeroed((max_entries(index.mask) + std::size_t{1}) * sizeof(SiblingPlace)));
  return index.places != nullptr;
}

void close_index(Heap &heap, ChildIndex *index) {
  if (index != nullptr) heap.release(index->places);
  heap.release(index);
}

// Where a walk through the slots ended, and whether it was longer than it should be.
struct Probe {
  Slot *slot;
  bool too_long;
};

// The slot of that key, or the empty one where it belongs.
Probe probe_for(const ChildIndex &index, const Key &key, std::uint32_t hash) {
  std::uint32_t steps = 0;
  for (std::uint32_t at = hash & index.mask;; at = (at + 1) & index.mask, ++steps) {
    Slot &slot = index.slots[at];
    const bool found =
        slot.entry == kNoEntry || (slot.hash == hash && key_equals(key, *index.children[slot.entry].child));
    if (found) return {&slot, steps > kMaxRun};
  }
}

// Puts the slot of another table where it belongs in this one. Keys of slots differ, so no child is looked
// at.
bool is_placed_too_far(ChildIndex &index, const Slot &slot) {
  std::uint32_t steps = 0;
  std::uint32_t at = slot.hash & index.mask;
  for (; index.slots[at].entry != kNoEntry; at = (at + 1) & index.mask) ++steps;
  index.slots[at] = slot;
  return steps > kMaxRun;
}

// Moves every later slot of the run into the gap when that brings it closer to its home. How long the run is.
std::uint32_t close_gap(ChildIndex &index, std::uint32_t gap) {
  std::uint32_t steps = 0;
  for (std::uint32_t at = (gap + 1) & index.mask; index.slots[at].entry != kNoEntry;
       at = (at + 1) & index.mask, ++steps) {
    const std::uint32_t home = index.slots[at].hash & index.mask;
    if (((at - home) & index.mask) < ((at - gap) & index.mask)) continue;
    index.slots[gap] = index.slots[at];
    gap = at;
  }
  index.slots[gap] = {};
  return steps;
}

// Gives a child an entry, and a place before `after` where children have places.
void allocate_entry(ChildIndex &index, jt_node &child, const jt_node *after) {
  EntryNumber number = index.released;
  if (number != kNoEntry) {
    index.released = index.children[number].next_released;
  } else {
    number = ++index.entries;
  }
  index.children[number].child = &child;
  child.entry = number;
  if (index.places != nullptr) {
    index.places[number] = {};
    number_sibling(index.places, child, after);
  }
}

// The child has no entry any more.
void restore_hash(jt_node &child) { child.key_hash = name_hash(view_of(child.name)); }

void release_entry(ChildIndex &index, jt_node &child) {
  index.children[child.entry].next_released = index.released;
  index.released = child.entry;
  restore_hash(child);
}

// ---- Tables of another size or another hash ---------------------------------------------------------------

ChildIndex *copy_entries(Heap &heap, const ChildIndex &old, std::uint32_t slots, const HashKey *secret) {
  ChildIndex *const index = open_index(heap, slots);
  if (index == nullptr || (old.places != nullptr && !open_places(heap, *index))) {
    close_index(heap, index);
    return nullptr;
  }
  index->entries = old.entries;
  index->released = old.released;
  index->secret = secret;
  std::copy_n(old.children, old.entries + std::size_t{1}, index->children);
  if (old.places != nullptr) std::copy_n(old.places, old.entries + std::size_t{1}, index->places);
  return index;
}

// An index with other slots and perhaps another hash takes the place of the parent's. False without memory;
// then the old one stays.
bool rebuild(jt_node &parent, std::uint32_t slots, const HashKey *secret) {
  ChildIndex &old = *parent.index;
  ChildIndex *const index = copy_entries(heap_of(parent), old, slots, secret);
  if (index == nullptr) return false;
  bool too_far = false;
  for (std::uint32_t i = 0; i <= old.mask; ++i) {
    Slot slot = old.slots[i];
    if (slot.entry == kNoEntry) continue;
    if (secret != old.secret) hash_key(secret, key_of(*old.children[slot.entry].child), slot.hash);
    if (is_placed_too_far(*index, slot)) too_far = true;
  }
  close_index(heap_of(parent), &old);
  parent.index = index;
  if (too_far) use_secret_hash(parent);
  return true;
}

void use_secret_hash(jt_node &parent) {
  if (parent.index->secret == nullptr) {
    rebuild(parent, parent.index->mask + 1, &secret_of(session_of(parent)));
  }
}

// Makes sure of one more entry; false when the parent has no index any more.
bool reserve_entry(jt_node &parent) {
  const ChildIndex &index = *parent.index;
  if (index.released != kNoEntry || index.entries < max_entries(index.mask)) return true;
  const bool may_grow = index.mask < kMaxIndexed;
  if (may_grow && rebuild(parent, (index.mask + 1) * 2, index.secret)) return true;
  drop_index(parent);
  if (may_grow) session_of(parent).has_lost_index = true;
  return false;
}

// Gives a child that has its entry the slot of its key, or a place among those that have the same key. `last`
// is the last child that has an entry.
void enter(jt_node &parent, const jt_node &child, std::uint32_t hash, const jt_node &last) {
  ChildIndex &index = *parent.index;
  const Probe probe = probe_for(index, key_of(child), hash);
  if (probe.slot->entry == kNoEntry) {
    *probe.slot = {child.entry, hash};
  } else {
    if (index.places == nullptr) {
      if (!open_places(heap_of(parent), index)) {
        session_of(parent).has_lost_index = true;
        return drop_index(parent);
      }
      number_siblings(index.places, parent.first_child, last);
    }
    probe.slot->entry = join_heaps(index.places, probe.slot->entry, child.entry);
  }
  if (probe.too_long) use_secret_hash(parent);
}

// Between a quarter and half full.
void build_index(jt_node &parent) {
  std::uint32_t children = 0;
  std::uint32_t hash = 0;
  for (const jt_node *child = parent.first_child; child != nullptr; child = child->next_sibling) {
    const bool indexable = ++children < kMaxIndexed && hash_child(nullptr, *child, hash);
    if (!indexable) return;
  }
  parent.index = open_index(heap_of(parent), std::bit_ceil(children * 2));
  if (parent.index == nullptr) {
    session_of(parent).has_lost_index = true;
    return;
  }
  set_owns_heap_blocks(parent);
  for (jt_node *child = parent.first_child; child != nullptr && parent.index != nullptr;
       child = child->next_sibling) {
    hash_child(parent.index->secret, *child, hash);
    allocate_entry(*parent.index, *child, nullptr);
    if (has_key(*child)) enter(parent, *child, hash, *child);
  }
}

// ---- Finding ----------------------------------------------------------------------------------------------

jt_node *find_in_index(jt_node &parent, const Key &key, std::uint32_t hash) {
  const ChildIndex &index = *parent.index;
  const Probe probe = probe_for(index, key, hash);
  jt_node *const found = probe.slot->entry != kNoEntry ? index.children[probe.slot->entry].child : nullptr;
  if (probe.too_long) use_secret_hash(parent);
  return found;
}

// Where there is no index. A long way makes one for the next search.
template <typename Matches>
jt_node *find_in_list(jt_node &parent, Matches matches) {
  jt_node *child = parent.first_child;
  int passed = 0;
  for (; child != nullptr && !matches(*child); child = child->next_sibling) ++passed;
  if (passed > kMaxUnindexed && parent.index == nullptr) build_index(parent);
  return child;
}

// The hash is the plain one of the name.
jt_node *find_by_name(jt_node &parent, std::string_view name, std::uint32_t hash) {
  const Key key = key_of_name(name);
  if (parent.index == nullptr) {
    return find_in_list(
        parent, [&](const jt_node &child) { return child.key_hash == hash && key_equals(key, child); });
  }
  const HashKey *const secret = parent.index->secret;
  return find_in_index(parent, key, secret == nullptr ? hash : hash_name(secret, name));
}

jt_node *find_by_value(jt_node &attribute, const Key &key) {
  std::uint32_t hash = 0;
  const bool indexed = attribute.index != nullptr && hash_key(attribute.index->secret, key, hash);
  return indexed ? find_in_index(attribute, key, hash)
                 : find_in_list(attribute, [&](const jt_node &child) { return key_equals(key, child); });
}

}  // namespace

jt_node *find_child(jt_node &parent, std::string_view name) {
  return find_by_name(parent, name, name_hash(name));
}

jt_node *find_namesake(jt_node &parent, const jt_node &node) {
  return find_by_name(parent, node.name, node.key_hash);
}

jt_node *find_value(jt_node &attribute, const jt_value *value) {
  return find_by_value(attribute, {true, {}, attribute.type, value});
}

jt_node *find_pending_value(jt_node &attribute, std::string_view text) {
  return find_by_value(attribute, key_of_pending(text));
}

// ---- Keeping the index ------------------------------------------------------------------------------------

void index_child(jt_node &parent, jt_node &child) {
  if (parent.index == nullptr || !reserve_entry(parent)) return;
  ChildIndex &index = *parent.index;
  std::uint32_t hash = 0;
  if (!hash_child(index.secret, child, hash)) return drop_index(parent);
  allocate_entry(index, child, child.next_sibling);
  if (has_key(child)) enter(parent, child, hash, *parent.last_child);
}

void unindex_child(jt_node &parent, jt_node &child) {
  if (parent.index == nullptr) return;
  ChildIndex &index = *parent.index;
  assert(child.entry != kNoEntry && index.children[child.entry].child == &child);
  bool too_long = false;
  if (has_key(child)) {
    std::uint32_t hash = 0;
    hash_key(index.secret, key_of(child), hash);
    const Probe probe = probe_for(index, key_of(child), hash);
    Slot &slot = *probe.slot;
    assert(slot.entry != kNoEntry);
    slot.entry = index.places != nullptr ? leave_heap(index.places, slot.entry, child.entry) : kNoEntry;
    if (slot.entry == kNoEntry) {
      too_long = close_gap(index, static_cast<std::uint32_t>(&slot - index.slots)) > kMaxRun;
    }
  }
  release_entry(index, child);
  if (too_long) use_secret_hash(parent);
}

void drop_index(jt_node &parent) {
  if (parent.index == nullptr) return;
  for (jt_node *child = parent.first_child; child != nullptr; child = child->next_sibling) {
    restore_hash(*child);
  }
  release_index(parent);
}

void release_index(jt_node &parent) {
  if (parent.index != nullptr) close_index(heap_of(parent), parent.index);
  parent.index = nullptr;
}

}  // namespace jt_core

extern "C" jt_node *get_child(jt_parser_space *space, jt_node *parent, const char *name) {
  const bool searchable = space != nullptr && parent != nullptr && parent->node_class != JT_NODE_VALUE;
  return searchable && name != nullptr ? jt_core::find_child(*parent, name) : nullptr;
}
