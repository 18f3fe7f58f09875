// What a call costs among many siblings: nanoseconds per call for 1,000, 10,000 and 100,000 of them.
#ifndef JT_BENCH_API_COST_H
#define JT_BENCH_API_COST_H

#include <array>
#include <cstddef>
#include <span>
#include <string>

namespace bench {

inline constexpr std::array<std::size_t, 3> kSiblingCounts = {1000, 10000, 100000};

// Finding siblings in an order that no cache foresees: what memory costs rather than the call.
inline constexpr char kScatteredFind[] = "find, scattered";

// The counters of every benchmark here, in the order in which the calls are made; a kind of siblings that a
// call does not exist for has none of that name.
std::span<const char *const> call_names();

// Kinds of siblings: attributes of one invocation, values of one attribute, services of one template.
std::span<const char *const> sibling_kinds();

std::string api_benchmark_name(const std::string &kind, std::size_t count);

void register_api_costs();

}  // namespace bench

#endif
