#include "sil/output.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "foundation/error_store.h"

namespace jt {
namespace {

constexpr std::size_t kFirstRoom = 1024;
constexpr std::size_t kFoldColumn = 70;

thread_local std::size_t column = 0;

void count_columns(std::string_view text) {
  const std::size_t line_feed = text.rfind('\n');
  column = line_feed == std::string_view::npos ? column + text.size() : text.size() - line_feed - 1;
}

}  // namespace

Output::Output(jt_parser_space *space) : space_(space), column_before_(column) {}

Output::~Output() { std::free(text_); }

void Output::append(std::string_view text, std::size_t indent, Layout layout) {
  if (failed_ || text.empty()) return;
  if (layout == Layout::kRaw) {
    write(text);
    count_columns(text);
    return;
  }
  if (column > kFoldColumn) {
    write("\n");
    column = 0;
  }
  write_laid_out(text, indent, layout);
}

// Line by line: the indent belongs in front of every line that the text begins, the last line feed's
// included.
void Output::write_laid_out(std::string_view text, std::size_t indent, Layout layout) {
  while (!text.empty()) {
    indent_line(indent, layout);
    const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
    write(line);
    count_columns(line);
    text.remove_prefix(line.size());
  }
}

void Output::indent_line(std::size_t indent, Layout layout) {
  if (column >= indent || (column > 0 && layout == Layout::kLine)) return;
  write_blanks(indent - column);
  column = indent;
}

bool Output::reserve(std::size_t more) {
  if (failed_) return false;
  if (room_ - length_ > more) return true;
  const std::size_t room = std::max({kFirstRoom, room_ * 2, length_ + more + 1});
  auto *const text = static_cast<char *>(std::realloc(text_, room));
  if (text == nullptr) {
    report(space_, message::kNoOutput);
    failed_ = true;
    return false;
  }
  text_ = text;
  room_ = room;
  return true;
}

void Output::write(std::string_view text) {
  if (!reserve(text.size())) return;
  std::copy_n(text.data(), text.size(), text_ + length_);
  length_ += text.size();
}

void Output::write_blanks(std::size_t count) {
  if (!reserve(count)) return;
  std::memset(text_ + length_, ' ', count);
  length_ += count;
}

char *Output::take() {
  if (!reserve(0)) {
    column = column_before_;
    return nullptr;
  }
  text_[length_] = '\0';
  char *const fitting = static_cast<char *>(std::realloc(text_, length_ + 1));
  char *const text = fitting != nullptr ? fitting : text_;
  text_ = nullptr;
  return text;
}

}  // namespace jt
