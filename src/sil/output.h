// The encoder's output: a growing text with the layout rules of columns. The column is counted from the last
// line feed on. There is one counter for each thread, and it goes on from one encoding to the next, because
// the layout of a text depends on where the last one ended. tests/sil/column_counter_test.cpp has the
// counter, tests/sil/encoder_test.cpp the columns.
#ifndef JT_SIL_OUTPUT_H
#define JT_SIL_OUTPUT_H

#include <cstddef>
#include <string_view>

#include "base/heap.h"
#include "jt.h"
#include "sil/escape.h"
#include "types/value_family.h"

namespace jt_core {

enum class Layout {
  kLine,   // indented at the beginning of each line
  kBlock,  // also padded up to the indent on a line that has begun
};

class Output {
 public:
  // The text grows in the heap of a session and is handed over when it is taken.
  Output(jt_parser_space *space, Heap &heap);
  ~Output();
  Output(const Output &) = delete;
  Output &operator=(const Output &) = delete;

  // Appends a text that is laid out. A long line is folded before it, never within.
  void append(std::string_view text, std::size_t indent, Layout layout);

  // The same for a text within a line: it is not empty and holds no line feed.
  void append_in_line(std::string_view text, std::size_t indent) {
    fold_long_line();
    write_in_line(text, indent, Layout::kLine);
  }

  // Appends the text of a value, escaped. False when there is no memory for it, which is the caller's to
  // report.
  bool append_value(const ValueText &text, Quoting quoting, std::size_t indent);

  // Appends a text as it is.
  void append_raw(std::string_view text) {
    write(text);
    count_columns(text);
  }

  // Appends a text of the frame around the laid out parts, which counts no columns.
  void append_frame(std::string_view text) { write(text); }

  std::size_t length() const { return length_; }

  // Gives up what was appended behind a length.
  void cut(std::size_t length) { length_ = length; }

  // Memory ran out, and that has been reported; later appends do nothing.
  bool failed() const { return failed_; }
  void fail() { failed_ = true; }

  // The whole text as one block that the caller owns, or null after a failure. Only a text that is handed
  // over moves the thread's column: one that never was does not shape the next.
  char *take();

 private:
  bool has_capacity(std::size_t more) const { return capacity_ - length_ > more && !failed_; }
  bool grow(std::size_t more);
  bool reserve(std::size_t more);

  void write(std::string_view text) {
    if (!has_capacity(text.size()) && !reserve(text.size())) return;
    text.copy(text_ + length_, text.size());
    length_ += text.size();
  }

  void count_columns(std::string_view text) {
    const std::size_t line_feed = text.rfind('\n');
    column_ = line_feed == std::string_view::npos ? column_ + text.size() : text.size() - line_feed - 1;
  }

  void write_in_line(std::string_view text, std::size_t indent, Layout layout) {
    indent_line(indent, layout);
    write(text);
    column_ += text.size();
  }

  void fold_long_line();
  void indent_line(std::size_t indent, Layout layout);

  jt_parser_space *space_;
  Heap &heap_;
  std::size_t column_;
  char *text_ = nullptr;
  std::size_t length_ = 0;
  std::size_t capacity_ = 0;
  bool failed_ = false;
};

}  // namespace jt_core

#endif
