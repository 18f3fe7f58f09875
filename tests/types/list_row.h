// A name and its number, as the catalogue of value lists writes them out.
#ifndef JT_TESTS_TYPES_LIST_ROW_H
#define JT_TESTS_TYPES_LIST_ROW_H

#include <cstdint>

namespace jt_test {

struct ListRow {
  const char *name;
  std::uint32_t number;
};

}  // namespace jt_test

#endif
