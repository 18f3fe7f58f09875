// What becomes of a changed text: printed, shown as a difference, or written over its file. For every command that
// changes files. Proved by tests/sil_command/cases.
#ifndef SIL_CHANGES_H
#define SIL_CHANGES_H

#include <string>

#include "files.h"

namespace sil {

/// The result for a file whose text becomes another one. With --diff, the difference, and kFindings where there is
/// one. Else the file is replaced, unless nothing changes, with words about what went wrong; standard input's
/// text is printed.
FileResult changed(const File &file, std::string after, const Arguments &arguments);

/// The same at once, for commands that work on one file.
ExitStatus hand_on(const FileResult &result, Output &output);

}  // namespace sil

#endif
