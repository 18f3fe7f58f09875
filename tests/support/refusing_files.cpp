// What --wrap leads the calls to.
#include "support/refusing_files.h"

#include <sys/types.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <utility>

extern "C" {
int __real_fsync(int file);
int __real_rename(const char *from, const char *to);
int __real_fchown(int file, uid_t user, gid_t group);
int __real_fsetxattr(int file, const char *name, const void *value, std::size_t size, int flags);
}

namespace jt_test {

Refusals &refusals() {
  static Refusals all;
  return all;
}

Interruptions &interruptions() {
  static Interruptions all;
  return all;
}

namespace {

void interrupt(int signal) {
  if (signal != 0) std::raise(signal);
}

bool refuses(int &problem) {
  errno = problem;
  return std::exchange(problem, 0) != 0;
}

}  // namespace
}  // namespace jt_test

extern "C" {

int __wrap_fsync(int file) {
  jt_test::interrupt(jt_test::interruptions().before_fsync);
  return jt_test::refuses(jt_test::refusals().fsync) ? -1 : __real_fsync(file);
}

int __wrap_rename(const char *from, const char *to) {
  jt_test::interrupt(jt_test::interruptions().before_rename);
  const int result = jt_test::refuses(jt_test::refusals().rename) ? -1 : __real_rename(from, to);
  jt_test::interrupt(jt_test::interruptions().behind_rename);
  return result;
}

int __wrap_fchown(int file, uid_t user, gid_t group) {
  return jt_test::refuses(jt_test::refusals().fchown) ? -1 : __real_fchown(file, user, group);
}

int __wrap_fsetxattr(int file, const char *name, const void *value, std::size_t size, int flags) {
  return jt_test::refuses(jt_test::refusals().fsetxattr) ? -1
                                                         : __real_fsetxattr(file, name, value, size, flags);
}
}
