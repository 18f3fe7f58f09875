// The distance row by row: three rows are all that a swap looks back.
#include "core/suggestions.h"

#include <algorithm>
#include <utility>

#include "core/text.h"

namespace sil {
namespace {

constexpr std::size_t kMost = 3;
constexpr std::size_t kShortest = 3;

bool is_swap(std::string_view a, std::size_t i, std::string_view b, std::size_t j) {
  return i > 1 && j > 1 && folded(a[i - 1]) == folded(b[j - 2]) && folded(a[i - 2]) == folded(b[j - 1]);
}

}  // namespace

std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before(b.size() + 1);
  std::vector<std::size_t> last(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    before.swap(last);
    last.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (folded(a[i - 1]) == folded(b[j - 1]) ? 0 : 1);
      row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
      if (is_swap(a, i, b, j)) row[j] = std::min(row[j], before[j - 2] + 1);
    }
  }
  return row[b.size()];
}

std::vector<std::string> nearest(std::string_view word, const std::vector<std::string> &candidates) {
  if (word.size() < kShortest) return {};
  const std::size_t furthest = word.size() / 3;
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const std::string &candidate : candidates) {
    const std::size_t difference =
        std::max(word.size(), candidate.size()) - std::min(word.size(), candidate.size());
    if (difference > furthest) continue;
    const std::size_t away = distance(word, candidate);
    if (away <= furthest) near.emplace_back(away, candidate);
  }
  std::stable_sort(near.begin(), near.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
  std::vector<std::string> names;
  for (auto &[away, name] : near) {
    const bool is_new = std::find(names.begin(), names.end(), name) == names.end();
    if (is_new && names.size() < kMost) names.push_back(std::move(name));
  }
  return names;
}

std::string did_you_mean(const std::vector<std::string> &names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool is_last = i + 1 == names.size();
    text += i == 0 ? "; did you mean \"" : is_last ? "\" or \"" : "\", \"";
    text += names[i];
  }
  return text.empty() ? text : text + "\"?";
}

}  // namespace sil
