// The program starts itself again under callgrind, which collects between the entry to and the return from
// jt_bench_counted() and says in the end how much it has collected.
#include "instructions.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kWarmLives = 2;
constexpr int kCountedLives = 5;

}  // namespace

// Stays a function of its own, by this name: callgrind looks for it.
extern "C" [[gnu::noinline]] void jt_bench_counted(bench::Library &library, const bench::Task &task,
                                                   bench::Step step) {
  bench::take(library, task, step);
}

namespace bench {
namespace {

std::string own_path() {
  std::array<char, 4096> path = {};
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size() - 1);
  require(length > 0, "finding the program itself");
  return path.data();
}

std::string command(const Task &task, Step counted) {
  return "valgrind --tool=callgrind --callgrind-out-file=/dev/null --collect-atstart=no "
         "--toggle-collect=jt_bench_counted '" +
         own_path() + "' --callgrind '" + task.library->name + "' " + name_of(task.shape) + " " +
         name_of(counted) + " 2>&1";
}

}  // namespace

void run_for_callgrind(const Task &task, Step counted) {
  const std::unique_ptr<Library> library = task.library->make();
  for (int life = 0; life < kWarmLives + kCountedLives; ++life) {
    for (const Step step : kSteps) {
      if (life >= kWarmLives && step == counted) {
        jt_bench_counted(*library, task, step);
      } else {
        take(*library, task, step);
      }
    }
    library->release_text();
  }
}

std::optional<double> count_instructions(const Task &task, Step counted) {
  std::optional<double> instructions;
  FILE *const output = popen(command(task, counted).c_str(), "r");
  require(output != nullptr, "starting callgrind");
  std::array<char, 512> line = {};
  while (std::fgets(line.data(), line.size(), output) != nullptr) {
    constexpr char kTotal[] = "Collected : ";
    const char *const total = std::strstr(line.data(), kTotal);
    if (total != nullptr) instructions = std::strtod(total + std::strlen(kTotal), nullptr) / kCountedLives;
  }
  pclose(output);
  return instructions;
}

}  // namespace bench
