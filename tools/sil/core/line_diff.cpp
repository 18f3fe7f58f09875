// The shortest way from one list of lines to the other, by going as far as possible with each number of changes. What
// the two begin and end with is left out first.
#include "core/line_diff.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <vector>

namespace sil {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kAround = 3;
// Texts that differ in more lines are shown as one replaced by the other: the way there takes the square of it.
constexpr std::size_t kMostChanges = 1000;

using TextLines = std::vector<std::string_view>;

// Lines with their line feeds, so that a last one without is another line.
TextLines lines_of(std::string_view text) {
  TextLines lines;
  while (!text.empty()) {
    const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
    lines.push_back(text.substr(0, length));
    text.remove_prefix(length);
  }
  return lines;
}

// Lines from one that are not in the other, at the same place.
struct Change {
  std::size_t before;
  std::size_t before_count;
  std::size_t after;
  std::size_t after_count;
};

class Comparison {
 public:
  Comparison(const TextLines &before, const TextLines &after) : before_(before), after_(after) {}

  std::vector<Change> run() {
    begin_ = static_cast<std::size_t>(
        std::mismatch(before_.begin(), before_.end(), after_.begin(), after_.end()).first - before_.begin());
    std::size_t same_at_end = 0;
    const std::size_t shorter = std::min(before_.size(), after_.size());
    while (same_at_end < shorter - begin_ &&
           before_[before_.size() - 1 - same_at_end] == after_[after_.size() - 1 - same_at_end])
      ++same_at_end;
    width_ = static_cast<std::int64_t>(before_.size() - begin_ - same_at_end);
    height_ = static_cast<std::int64_t>(after_.size() - begin_ - same_at_end);
    if (width_ + height_ == 0) return {};
    if (!go_forward())
      return {{begin_, static_cast<std::size_t>(width_), begin_, static_cast<std::size_t>(height_)}};
    return go_back();
  }

 private:
  bool is_same(std::int64_t x, std::int64_t y) const {
    return before_[begin_ + static_cast<std::size_t>(x)] == after_[begin_ + static_cast<std::size_t>(y)];
  }

  // Of each number of changes, how far each diagonal was reached with one change less.
  bool go_forward() {
    const auto most = std::min<std::int64_t>(width_ + height_, kMostChanges);
    std::vector<std::int64_t> reached(2 * static_cast<std::size_t>(most) + 3, 0);
    for (std::int64_t changes = 0; changes <= most; ++changes) {
      history_.emplace_back(std::next(reached.begin(), static_cast<std::ptrdiff_t>(most - changes)),
                            std::next(reached.begin(), static_cast<std::ptrdiff_t>(most + changes + 3)));
      for (std::int64_t k = -changes; k <= changes; k += 2) {
        std::int64_t x = first_x(history_.back(), changes, k);
        while (x < width_ && x - k < height_ && x - k >= 0 && is_same(x, x - k)) ++x;
        reached[static_cast<std::size_t>(most + 1 + k)] = x;
        if (x >= width_ && x - k >= height_) return true;
      }
    }
    return false;
  }

  // Where a diagonal is entered: from above, a line more, or from the left, a line less.
  static std::int64_t first_x(const std::vector<std::int64_t> &reached, std::int64_t changes,
                              std::int64_t k) {
    if (changes == 0) return 0;
    const auto at = [&](std::int64_t diagonal) {
      return reached[static_cast<std::size_t>(diagonal + changes + 1)];
    };
    return is_from_above(reached, changes, k) ? at(k + 1) : at(k - 1) + 1;
  }

  static bool is_from_above(const std::vector<std::int64_t> &reached, std::int64_t changes, std::int64_t k) {
    const auto at = [&](std::int64_t diagonal) {
      return reached[static_cast<std::size_t>(diagonal + changes + 1)];
    };
    return k == -changes || (k != changes && at(k - 1) < at(k + 1));
  }

  std::vector<Change> go_back() {
    std::vector<Change> changes;
    std::int64_t x = width_;
    std::int64_t y = height_;
    for (auto number = static_cast<std::int64_t>(history_.size()) - 1; number > 0; --number) {
      const std::vector<std::int64_t> &reached = history_[static_cast<std::size_t>(number)];
      const bool is_more = is_from_above(reached, number, x - y);
      const std::int64_t entered = first_x(reached, number, x - y);
      y = entered - (x - y) - (is_more ? 1 : 0);
      x = entered - (is_more ? 0 : 1);
      const auto at_x = begin_ + static_cast<std::size_t>(x);
      const auto at_y = begin_ + static_cast<std::size_t>(y);
      changes.push_back({at_x, is_more ? 0U : 1U, at_y, is_more ? 1U : 0U});
    }
    std::reverse(changes.begin(), changes.end());
    return joined(changes);
  }

  static std::vector<Change> joined(const std::vector<Change> &changes) {
    std::vector<Change> result;
    for (const Change &change : changes) {
      Change *const last = result.empty() ? nullptr : &result.back();
      if (last == nullptr || last->before + last->before_count != change.before ||
          last->after + last->after_count != change.after) {
        result.push_back(change);
        continue;
      }
      last->before_count += change.before_count;
      last->after_count += change.after_count;
    }
    return result;
  }

  const TextLines &before_;
  const TextLines &after_;
  std::size_t begin_ = 0;
  std::int64_t width_ = 0;
  std::int64_t height_ = 0;
  std::vector<std::vector<std::int64_t>> history_;
};

class Printer {
 public:
  Printer(const TextLines &before, const TextLines &after) : before_(before), after_(after) {}

  std::string run(const std::vector<Change> &changes) {
    for (std::size_t i = 0; i < changes.size();) {
      std::size_t behind = i + 1;
      while (behind < changes.size() &&
             changes[behind].before - (changes[behind - 1].before + changes[behind - 1].before_count) <=
                 2 * kAround)
        ++behind;
      print_hunk({changes.begin() + static_cast<std::ptrdiff_t>(i),
                  changes.begin() + static_cast<std::ptrdiff_t>(behind)});
      i = behind;
    }
    return std::move(out_);
  }

 private:
  void print_hunk(const std::vector<Change> &changes) {
    const Change &first = changes.front();
    const Change &last = changes.back();
    const std::size_t lead = std::min(first.before, kAround);
    const std::size_t end = std::min(last.before + last.before_count + kAround, before_.size());
    const std::size_t after_end = last.after + last.after_count + (end - last.before - last.before_count);
    out_ += "@@ -" + range(first.before - lead, end) + " +" + range(first.after - lead, after_end) + " @@\n";
    std::size_t at = first.before - lead;
    for (const Change &change : changes) {
      print(' ', before_, at, change.before);
      print('-', before_, change.before, change.before + change.before_count);
      print('+', after_, change.after, change.after + change.after_count);
      at = change.before + change.before_count;
    }
    print(' ', before_, at, end);
  }

  static std::string range(std::size_t begin, std::size_t end) {
    const std::size_t count = end - begin;
    const std::string line = std::to_string(count == 0 ? begin : begin + 1);
    return count == 1 ? line : line + "," + std::to_string(count);
  }

  void print(char mark, const TextLines &lines, std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
      (out_ += mark).append(lines[i]);
      if (!lines[i].ends_with('\n')) out_ += "\n\\ No newline at end of file\n";
    }
  }

  const TextLines &before_;
  const TextLines &after_;
  std::string out_;
};

// How lines end in a text, as words.
struct LineEnds {
  bool has_lf = false;
  bool has_crlf = false;
  bool has_cr = false;
  friend bool operator==(const LineEnds &, const LineEnds &) = default;
};

std::string with_line_feeds(std::string_view text, LineEnds &ends) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_crlf = text.substr(i, 2) == "\r\n";
    (is_crlf           ? ends.has_crlf
     : text[i] == '\r' ? ends.has_cr
                       : ends.has_lf) |= text[i] == '\r' || text[i] == '\n';
    result += text[i] == '\r' ? '\n' : text[i];
    if (is_crlf) ++i;
  }
  return result;
}

std::string_view without_mark(std::string_view text) {
  return text.starts_with(kByteOrderMark) ? text.substr(kByteOrderMark.size()) : text;
}

std::string name_of(const LineEnds &ends) {
  if (ends.has_crlf && !ends.has_lf && !ends.has_cr) return "CR LF";
  if (ends.has_cr && !ends.has_lf && !ends.has_crlf) return "CR";
  return ends.has_crlf || ends.has_cr ? "several kinds" : "LF";
}

}  // namespace

std::string unified_diff(std::string_view name, std::string_view before, std::string_view after) {
  std::string out;
  const std::string file(name);
  if (before.starts_with(kByteOrderMark) && !after.starts_with(kByteOrderMark))
    out += file + ": the byte order mark is removed\n";
  LineEnds old_ends;
  LineEnds new_ends;
  const std::string a = with_line_feeds(without_mark(before), old_ends);
  const std::string b = with_line_feeds(without_mark(after), new_ends);
  const bool has_lines = old_ends != LineEnds() && new_ends != LineEnds();
  if (has_lines && !(old_ends == new_ends))
    out += file + ": the ends of lines change from " + name_of(old_ends) + " to " + name_of(new_ends) + "\n";
  const TextLines old_lines = lines_of(a);
  const TextLines new_lines = lines_of(b);
  const std::string hunks = Printer(old_lines, new_lines).run(Comparison(old_lines, new_lines).run());
  if (hunks.empty()) return out;
  return out + "--- " + file + "\n+++ " + file + "\n" + hunks;
}

}  // namespace sil
