// The two look-ups in a value list.
#include "types/value_list.h"

#include "base/text.h"

namespace jt_core {
std::string_view name_of_row(const ValueList &list, unsigned row) {
  const unsigned begin = list.begins[row];
  return {list.characters + begin, list.begins[row + 1] - begin};
}

bool find_number(const ValueList &list, std::string_view name, std::uint32_t &number) {
  for (std::uint32_t slot = name_hash(name);; ++slot) {
    const unsigned entry = list.slots[slot & list.last_slot];
    if (entry == 0) return false;
    if (same_name(name_of_row(list, entry - 1), name)) {
      number = list.numbers[entry - 1];
      return true;
    }
  }
}

std::string_view find_name(const ValueList &list, std::uint32_t number) {
  const unsigned entry = number < list.number_end ? list.written[number] : 0;
  return entry != 0 ? name_of_row(list, entry - 1) : std::string_view();
}

}  // namespace jt_core
