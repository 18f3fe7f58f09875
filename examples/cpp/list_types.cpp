// Lists the types of a service and the names of their enumerated values: list_types SERVICE. A value of an
// enumerated type is a number; naming one number after the other gives all names.
#include <cstdio>

#include "jt.hpp"

int main(int argc, char **argv) {
  const jt::Session session("list_types");
  const auto types = jt::types_of(argc == 2 ? argv[1] : "");
  for (const jt_type &type : types) {
    std::printf("%s%s\n", type.name, type.eval == nullptr ? " (a kind of block)" : "");
    for (std::uint32_t number = 0; number <= 999; ++number) {
      if (const auto name = session.name_of(type, number)) std::printf("  %s\n", name->c_str());
    }
  }
  if (types.empty()) std::fputs("USAGE: list_types SERVICE, for instance list_types kmt_svc_scan\n", stderr);
  return types.empty() ? 1 : 0;
}
