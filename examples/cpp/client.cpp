#include <cstdio>
#include "jt.hpp"

int main() {
  const jt::Session session("client");
  const auto job = session.decode("[ kmt_svc_scan Scan ] { enum_sided Sides = ONE_SIDED; } end");
  if (!job) std::puts(job.error().message().data());
  if (!job || !job->service("Scan").set("Sides", "TWO_SIDED")) return 1;
  std::fputs(job->encode()->c_str(), stdout);
}
