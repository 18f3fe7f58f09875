#include "sil/output.h"

#include <algorithm>
#include <cstring>

#include "base/error_store.h"

namespace jt_core {
namespace {

constexpr std::size_t kFirstCapacity = 1024;
constexpr std::size_t kFoldColumn = 70;

thread_local std::size_t column = 0;

}  // namespace

Output::Output(jt_parser_space *space, Heap &heap) : space_(space), heap_(heap), column_(column) {}

Output::~Output() { heap_.release(text_); }

// Line by line: the indent belongs in front of every line that the text begins, the last line feed's
// included.
void Output::append(std::string_view text, std::size_t indent, Layout layout) {
  if (text.empty()) return;
  fold_long_line();
  while (!text.empty()) {
    const std::size_t line_feed = text.find('\n');
    const std::string_view line = text.substr(0, std::min(line_feed, text.size() - 1) + 1);
    write_in_line(line, indent, layout);
    if (line_feed != std::string_view::npos) column_ = 0;
    text.remove_prefix(line.size());
  }
}

bool Output::append_value(const ValueText &text, Quoting quoting, std::size_t indent) {
  const std::size_t size = text.size();
  if (size == 0 && quoting == Quoting::kNone) return true;
  fold_long_line();
  indent_line(indent, Layout::kLine);
  if (!has_capacity(max_escaped(size)) && !grow(max_escaped(size))) return false;
  char *end = text_ + length_;
  if (quoting == Quoting::kQuotes) *end++ = '"';
  for (const std::string_view piece : text.pieces) end = write_escaped(end, piece, quoting);
  if (quoting == Quoting::kQuotes) *end++ = '"';
  const auto written = static_cast<std::size_t>(end - (text_ + length_));
  length_ += written;
  column_ += written;
  return true;
}

void Output::fold_long_line() {
  if (column_ <= kFoldColumn) return;
  write("\n");
  column_ = 0;
}

void Output::indent_line(std::size_t indent, Layout layout) {
  if (column_ >= indent || (column_ > 0 && layout == Layout::kLine)) return;
  const std::size_t blanks = indent - column_;
  if (!has_capacity(blanks) && !reserve(blanks)) return;
  std::memset(text_ + length_, ' ', blanks);
  length_ += blanks;
  column_ = indent;
}

bool Output::grow(std::size_t more) {
  if (failed_) return false;
  const std::size_t capacity = std::max({kFirstCapacity, capacity_ * 2, length_ + more + 1});
  auto *const text = static_cast<char *>(heap_.reallocate(text_, capacity));
  if (text == nullptr) return false;
  text_ = text;
  capacity_ = capacity;
  return true;
}

bool Output::reserve(std::size_t more) {
  if (failed_ || has_capacity(more) || grow(more)) return !failed_;
  report(space_, message::kNoOutput);
  failed_ = true;
  return false;
}

char *Output::take() {
  if (!reserve(0)) return nullptr;
  text_[length_] = '\0';
  auto *const text = static_cast<char *>(heap_.hand_over(text_, length_ + 1));
  if (text == nullptr) {
    report(space_, message::kNoOutput);
    return nullptr;
  }
  column = column_;
  text_ = nullptr;
  return text;
}

}  // namespace jt_core
