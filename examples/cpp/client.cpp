#include <cstdio>
#include "jt.hpp"

int main(int argc, char **argv) {
  const jt::Session session("client");
  const auto job =
      session.decode(argc > 1 ? argv[1] : "[ kmt_svc_scan Scan ] { enum_sided Sides = ONE_SIDED; } end");
  if (!job) std::puts(job.error().messages().newest_or("the text is cut off").data());
  if (!job || !job->service("Scan").set("Sides", "TWO_SIDED")) return 1;
  std::fputs(job->encode().value().c_str(), stdout);
}
