// Lays tables out.
#include "markdown.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace bench {
namespace {

std::string padded(const std::string &cell, std::size_t width, bool left) {
  const std::string blanks(width - std::min(width, cell.size()), ' ');
  return left ? cell + blanks : blanks + cell;
}

std::string rule(std::size_t width, bool left) {
  return left ? std::string(width, '-') : std::string(width - 1, '-') + ":";
}

}  // namespace

std::string Table::text() const {
  std::vector<std::size_t> widths(columns_, 3);
  for (const auto &row : rows_) {
    for (std::size_t i = 0; i < columns_; ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  std::string result;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    for (std::size_t i = 0; i < columns_; ++i)
      result += "| " + padded(rows_[row][i], widths[i], i == 0) + " ";
    result += "|\n";
    if (row != 0) continue;
    for (std::size_t i = 0; i < columns_; ++i) result += "| " + rule(widths[i], i == 0) + " ";
    result += "|\n";
  }
  return result;
}

std::string number(double value, int decimals) {
  std::array<char, 64> text = {};
  std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
  return text.data();
}

std::string number(double value) {
  constexpr int kMost = 4;
  if (value <= 0) return "0";
  return number(value, std::clamp(2 - static_cast<int>(std::floor(std::log10(value))), 0, kMost));
}

std::string number(std::optional<double> value) { return value ? number(*value) : "-"; }

}  // namespace bench
