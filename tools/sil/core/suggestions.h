// "Did you mean": the names nearest to a word that is not one. Proved by
// tests/sil_command/suggestions_test.cpp.
#ifndef SIL_CORE_SUGGESTIONS_H
#define SIL_CORE_SUGGESTIONS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sil {

/// How many letters must be put in, left out, replaced or swapped with their neighbour to make one word of the
/// other, letters folded.
std::size_t distance(std::string_view a, std::string_view b);

/// At most three of the candidates, the nearest first and equally near ones in their own order; none that is
/// further away than a third of the word's length, and none for a word under three letters.
std::vector<std::string> nearest(std::string_view word, const std::vector<std::string> &candidates);

/// `; did you mean "A", "B" or "C"?`, or nothing.
std::string did_you_mean(const std::vector<std::string> &names);

}  // namespace sil

#endif
