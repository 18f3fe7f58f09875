// Reads and writes values as what they are instead of as text: numbers, times, enumerated values.
#include <cstdio>

#include "jt.hpp"

int main() {
  const jt::Session session("typed_values");
  const auto job =
      session.decode(R"([ kmt_svc_scan Scanner ] { integer Copies = 3; enum_sided Sides = TWO_SIDED;
    timestamp Runs = 2030/05/17/09/30/00, 2031/01/02/00/00/00, 2030/11/30/23/59/59; } end)");
  if (!job) return 1;
  const jt::Service scanner = job->service("Scanner");
  if (!scanner.set("Copies", scanner.get<std::int32_t>("Copies").value() + 1)) return 1;
  std::printf("copies %d\n", static_cast<int>(*scanner.get<std::int32_t>("Copies")));
  jt::Value latest;
  for (jt::Value &value : scanner.values("Runs"))
    if (value > latest) latest = std::move(value);
  const auto [second, minute, hour, day, month, year] = *latest.as<jt::Timestamp>();
  std::printf("latest %d-%02d-%02d\n", static_cast<int>(year), static_cast<int>(month),
              static_cast<int>(day));
  const bool both = *scanner.value("Sides") == *scanner.parse("Sides", "two_sided");
  std::printf("both sides %s\n", both ? "yes" : "no");
}
