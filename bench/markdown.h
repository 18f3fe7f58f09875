// A table in Markdown, cell by cell; numbers with as many digits as they deserve.
#ifndef JT_BENCH_MARKDOWN_H
#define JT_BENCH_MARKDOWN_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace bench {

class Table {
 public:
  // The first column is text and set to the left, the others to the right.
  explicit Table(std::vector<std::string> titles) : columns_(titles.size()), rows_{std::move(titles)} {}

  void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

  // Padded, so that the text reads as a table as well.
  std::string text() const;

 private:
  std::size_t columns_;
  std::vector<std::vector<std::string>> rows_;
};

std::string number(double value, int decimals);

// Three digits or more: 0.0123, 1.23, 12.3, 123, 1234.
std::string number(double value);

// A dash where there is no number.
std::string number(std::optional<double> value);

}  // namespace bench

#endif
