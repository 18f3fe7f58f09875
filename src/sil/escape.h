// The text of a value as it stands in SIL: strings in quotes, everything else with a backslash before each
// character that would mean something to the lexer.
#ifndef JT_SIL_ESCAPE_H
#define JT_SIL_ESCAPE_H

#include <cstddef>
#include <string_view>

#include "jt.h"

namespace jt {

enum class Quoting { kNone, kQuotes };

// A text escaped into a buffer of the instance or, when it is long, of the heap.
class EscapedText {
 public:
  EscapedText() = default;
  ~EscapedText();
  EscapedText(const EscapedText &) = delete;
  EscapedText &operator=(const EscapedText &) = delete;

  // False when there is no memory, without a report. The view is good until the next call.
  bool escape(std::string_view text, Quoting quoting);
  std::string_view view() const { return view_; }

 private:
  char *reserve(std::size_t bytes);

  char local_[512] = {};
  char *heap_ = nullptr;
  std::size_t heap_room_ = 0;
  std::string_view view_;
};

}  // namespace jt

#endif
