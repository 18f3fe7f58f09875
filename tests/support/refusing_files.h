// Calls of the system on files that can be told to fail, or to be interrupted, for executables that are linked with
// --wrap.
#ifndef JT_TESTS_SUPPORT_REFUSING_FILES_H
#define JT_TESTS_SUPPORT_REFUSING_FILES_H

namespace jt_test {

/// The error with which the next call fails; 0 is none. Each is used up by one call.
struct Refusals {
  int fsync = 0;
  int rename = 0;
  int fchown = 0;
  int fsetxattr = 0;
};
Refusals &refusals();

/// The signal that comes before a call does its work, or behind it; 0 is none.
struct Interruptions {
  int before_fsync = 0;
  int before_rename = 0;
  int behind_rename = 0;
};
Interruptions &interruptions();

}  // namespace jt_test

#endif
