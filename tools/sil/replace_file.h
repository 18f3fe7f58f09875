// Changing a file in place, so that there is never half of one: the new text is written beside it, synced, given
// mode, owner and attributes of the old file, and takes its name. Proved by tests/sil_command/replace_file_test.cpp.
#ifndef SIL_REPLACE_FILE_H
#define SIL_REPLACE_FILE_H

#include <csignal>
#include <string>
#include <string_view>
#include <vector>

#include "files.h"

namespace sil {

struct Replaced {
  std::string problem;  // why nothing was changed; empty where it was
  std::vector<std::string>
      notes;  // what is to be known although it was: a hard link, attributes that are lost
};

/// Links are followed to the file that they lead to. Refused, with nothing changed: a file that may not be
/// written, be its folder writable or not; one that is no regular file; one that has changed since `read`; and
/// whatever the system refuses, a new file in the folder and the renaming of it included. One call at a time.
Replaced replace_file(const std::string &path, const Stamp &read, std::string_view text);

/// From then on a signal that ends the process takes an unfinished new file away with it.
void clean_up_on_signals();

/// Holds the signals back that would end the program, from this thread and those that it starts. A thread that is
/// started so never sees them: whoever writes files is the one to clean up.
class HeldSignals {
 public:
  HeldSignals();
  HeldSignals(const HeldSignals &) = delete;
  HeldSignals &operator=(const HeldSignals &) = delete;
  ~HeldSignals();

 private:
  sigset_t before_;
};

}  // namespace sil

#endif
