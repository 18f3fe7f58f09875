#include "bill.h"

#include <string>
#include <vector>

#include "support.h"
#include "tree/node.h"
#include "tree/session.h"

namespace jt_fuzz {
namespace {

// ---- Changing ---------------------------------------------------------------------------------------------

// One attribute, by the names that calls know it by.
struct Place {
  jt_parser_space *space;
  int32_t handle;
  std::string service;
  std::string attribute;

  std::size_t bytes() const { return service.size() + attribute.size(); }
};

// A number of calls, and what they were given.
struct Calls {
  std::size_t count = 0;
  std::size_t arguments = 0;

  void add(std::size_t bytes) {
    ++count;
    arguments += bytes;
  }
};

std::vector<std::string> texts_of(const Place &place, Calls &calls) {
  std::vector<std::string> texts;
  OwnedText text(jt_get_first_attribute_value_string(place.space, place.handle, place.service.c_str(),
                                                     place.attribute.c_str()));
  calls.add(place.bytes());
  while (text != nullptr) {
    texts.emplace_back(text.get());
    text.reset(jt_get_next_attribute_value_string(place.space, place.handle, place.service.c_str(),
                                                  place.attribute.c_str()));
    calls.add(place.bytes() + texts.back().size());
  }
  return texts;
}

std::vector<jt_value *> values_of(const Place &place, Calls &calls) {
  std::vector<jt_value *> values;
  jt_value *value =
      jt_get_first_attribute_value(place.space, place.handle, place.service.c_str(), place.attribute.c_str());
  calls.add(place.bytes());
  while (value != nullptr) {
    values.push_back(value);
    value = jt_get_next_attribute_value(place.space, place.handle, place.service.c_str(),
                                        place.attribute.c_str());
    calls.add(place.bytes());
  }
  return values;
}

// Every index below `count` once, far from the one before.
template <typename Visit>
void scattered(std::size_t count, Visit visit) {
  constexpr std::size_t kStride = 7919;
  const std::size_t stride = count % kStride == 0 ? 1 : kStride;
  for (std::size_t i = 0; i < count; ++i) visit(i * stride % count);
}

// All become the value of the first.
void override_all(const Place &place, const jt_type &type, const std::vector<std::string> &texts,
                  Calls &calls) {
  if (type.eval == nullptr || type.kill == nullptr) return;
  const std::vector<jt_value *> values = values_of(place, calls);
  const std::size_t count = std::min(values.size(), texts.size());
  jt_set_attribute_non_compulsory(place.space, place.handle, place.service.c_str(), place.attribute.c_str());
  scattered(count, [&](std::size_t i) {
    jt_override_attribute_value(place.space, place.handle, place.service.c_str(), place.attribute.c_str(),
                                values[i], values[0]);
    calls.add(place.bytes() + texts[i].size() + texts[0].size());
  });
  for (jt_value *const value : values) type.kill(place.space, value);
}

void delete_all(const Place &place, const std::vector<std::string> &texts, Calls &calls) {
  scattered(texts.size(), [&](std::size_t i) {
    jt_delete_attribute_value_string(place.space, place.handle, place.service.c_str(),
                                     place.attribute.c_str(), texts[i].c_str());
    calls.add(place.bytes() + texts[i].size());
  });
}

void add_all(const Place &place, const std::vector<std::string> &texts, Calls &calls) {
  for (const std::string &text : texts) {
    jt_add_attribute_value_string(place.space, place.handle, place.service.c_str(), place.attribute.c_str(),
                                  text.c_str());
    calls.add(place.bytes() + text.size());
  }
}

// The texts are deleted as they were read, overridden, and deleted as they are then.
void change(const Place &place, const jt_node &attribute, Calls &calls) {
  const std::vector<std::string> texts = texts_of(place, calls);
  if (texts.empty()) return;
  delete_all(place, texts, calls);
  add_all(place, texts, calls);
  if (!jt_core::has_known_type(attribute)) return;
  override_all(place, *attribute.type, texts, calls);
  delete_all(place, std::vector<std::string>(texts.size(), texts[0]), calls);
}

// The first invocations: those behind them are reached by no shorter way than their number.
Calls change_all(jt_parser_space *space, int32_t handle) {
  Calls calls;
  for (const jt_node *service = opaque_to_node(space, handle)->first_child; service != nullptr;
       service = service->next_sibling) {
    if (service->name == nullptr || service->first_child == nullptr) continue;
    for (const jt_node *attribute = service->first_child->first_child; attribute != nullptr;
         attribute = attribute->next_sibling) {
      change({space, handle, service->name, attribute->name}, *attribute, calls);
    }
  }
  return calls;
}

// ---- What is allowed --------------------------------------------------------------------------------------

// A cost may be so much, and so much more for each byte that was given and for each call that was made.
struct Bound {
  const char *objection;
  std::uint64_t base;
  std::uint64_t each_byte;
  std::uint64_t each_call;

  bool holds(std::uint64_t cost, std::size_t bytes, std::size_t calls) const {
    return cost <= base + each_byte * bytes + each_call * calls;
  }
};

// About twice what is dearest where a cost is in proportion: `{}{}{}` passes 116 edges for a byte and `x,x,x`
// of an enumerated type moves 1,750 bytes, for both make a report for a byte or two, and a report moves the
// history; short strings take 90 bytes of heap a byte. The base is what the first page, slots and reports
// take.
constexpr Bound kReadingEdges = {"too many edges for its reading", 8000, 230, 0};
constexpr Bound kReadingMoved = {"too many bytes moved for its reading", 64 << 10, 3500, 0};
constexpr Bound kHeap = {"too much heap", 64 << 10, 180, 0};

// A call with short arguments passes 125 edges, and moves 1,450 bytes where it makes a report; each byte of
// an argument may be folded and compared several times.
constexpr Bound kChangingEdges = {"too many edges for its changes", 8000, 30, 300};
constexpr Bound kChangingMoved = {"too many bytes moved for its changes", 64 << 10, 30, 3500};

}  // namespace

Bill bill_of(std::string_view bytes) {
  const TightText text(bytes);
  const Session session;
  Bill bill;
  bill.text = std::char_traits<char>::length(text.get());
  const Meter reading;
  const int32_t handle = jt_decode_template(session.space, text.get());
  bill.accepted = handle != 0;
  if (bill.accepted) {
    const OwnedText written(jt_encode_template(session.space, handle));
    check(written != nullptr, "what was decoded is encoded");
    jt_destroy_template(session.space, handle);
  }
  bill.reading = reading.read();
  if (!bill.accepted) return bill;
  const int32_t again = jt_decode_template(session.space, text.get());
  const Meter changing;
  const Calls calls = change_all(session.space, again);
  bill.changing = changing.read();
  bill.calls = calls.count;
  bill.arguments = calls.arguments;
  return bill;
}

const char *objection_to(const Bill &bill) {
  if (!kReadingEdges.holds(bill.reading.edges, bill.text, 0)) return kReadingEdges.objection;
  if (!kReadingMoved.holds(bill.reading.moved, bill.text, 0)) return kReadingMoved.objection;
  if (!kHeap.holds(bill.reading.heap, bill.text, 0)) return kHeap.objection;
  if (!kChangingEdges.holds(bill.changing.edges, bill.arguments, bill.calls)) return kChangingEdges.objection;
  if (!kChangingMoved.holds(bill.changing.moved, bill.arguments, bill.calls)) return kChangingMoved.objection;
  return nullptr;
}

}  // namespace jt_fuzz
