// What a shell has to be told so that it finds `sil` and the examples. JT_SIL_COMMAND in the environment is the
// command in place of the one that was built.
#ifndef JT_TESTS_SIL_COMMAND_SHELL_H
#define JT_TESTS_SIL_COMMAND_SHELL_H

#include "support/program.h"

namespace jt_test {

inline std::string sil_command() {
  const char *const installed = std::getenv("JT_SIL_COMMAND");
  return installed != nullptr ? installed : JT_EMULATOR " " JT_SIL;
}

inline std::string with_sil() {
  return "sil() { " + sil_command() + " \"$@\"; }; export EXAMPLES=" JT_SOURCE_DIR "/examples; ";
}

// Runs what a person types, in that folder.
inline ProgramRun run_in_shell(const std::string &folder, const std::string &typed) {
  return run_program({"sh", "-c", "cd " + folder + " || exit 99; " + with_sil() + typed});
}

}  // namespace jt_test

#endif
