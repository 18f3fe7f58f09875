// Any bytes, and what they cost: the edges that the library passes, the bytes that it moves and the heap that
// it holds, while it reads and writes them and while the values are changed by calls, all in proportion to
// what it was given. The costs are counted, so a slow machine finds nothing that is not there.
#include "bill.h"
#include "support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  const jt_fuzz::Bill bill = jt_fuzz::bill_of({reinterpret_cast<const char *>(data), size});
  const char *const objection = jt_fuzz::objection_to(bill);
  jt_fuzz::check(objection == nullptr, "a text costs what its length allows",
                 objection == nullptr ? "" : objection);
  return 0;
}
