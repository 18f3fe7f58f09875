// A file as a template, for the commands that work on one file: what is wrong is said here.
#ifndef SIL_READING_H
#define SIL_READING_H

#include <optional>

#include "core/load.h"
#include "core/paths.h"
#include "files.h"

namespace sil {

/// Which losses a command tells of: who reads values wants to know of those that are not what was written.
enum class Losses { kOfValues, kAll };

struct ReadTemplate {
  std::optional<Model> model;
  std::string name;           // of the file, as it is said
  ExitStatus status = kFine;  // what the file makes of the exit status
};

/// Reads and decodes a file. What stops that, and what the decode dropped, is said on standard error.
ReadTemplate read_template(const std::string &path, const Arguments &arguments, Output &output,
                           Losses losses = Losses::kOfValues);

/// What a path names in a template; a path that is wrong or names nothing is said, and gives none.
struct Resolved {
  std::vector<Place> places;
  Path path;
  ExitStatus status = kFine;
};
Resolved resolve_path(const std::string &text, const ReadTemplate &read, Output &output);

/// The faults of a text, a line each: `FILE:LINE:COLUMN: SEVERITY: MEANING [CODE]`.
std::string words_about(const std::string &name, const Loaded &loaded, Losses losses);

}  // namespace sil

#endif
