// Decodes on two threads at once. A session belongs to one thread at a time, and sessions on different
// threads share nothing: each thread opens its own, and there is nothing to lock.
#include <cstdio>
#include <functional>
#include <thread>

#include "jt.hpp"

static void decode_often(const char *text, int &decoded) {
  const jt::Session session("worker");
  for (int i = 0; i < 1000; ++i) decoded += session.decode(text).has_value();
}

int main() {
  int scans = 0, prints = 0;
  std::thread one(decode_often, "[ kmt_svc_scan Scan ] { integer Copies = 2; } end", std::ref(scans));
  std::thread other(decode_often, "[ kmt_svc_print Print ] { enum_printmode Where = LOCAL; } end",
                    std::ref(prints));
  one.join();
  other.join();
  std::printf("%d and %d\n", scans, prints);
}
