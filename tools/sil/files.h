// Files that commands read: named ones, those of folders, and standard input. Proved by
// tests/sil_command/files_test.cpp.
#ifndef SIL_FILES_H
#define SIL_FILES_H

#include <sys/stat.h>

#include <functional>
#include <string>
#include <vector>

#include "command.h"

namespace sil {

/// What a file was like when it was read; another one afterwards tells that it has changed.
struct Stamp {
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;
  timespec changed{};
  timespec modified{};
};
Stamp stamp_of(const struct stat &facts);
bool operator==(const Stamp &a, const Stamp &b);

struct File {
  std::string path;  // "-" is standard input
  std::string name;  // what it is called in what is said about it
  std::string text;
  Stamp stamp;
  std::string problem;  // why there is no text; empty where there is one

  bool is_standard_input() const { return path == "-"; }
};

/// Reads a file as it is now.
File read_file(const std::string &path, const Arguments &arguments);

/// The files that operands mean: a file is itself, a folder all `*.sil` below it in the order of their names.
/// Entries that begin with a dot and linked folders are not entered. What cannot be had, and a folder without
/// such files, has a problem instead.
struct FoundFile {
  std::string path;
  std::string problem;
};
std::vector<FoundFile> find_files(const std::vector<std::string> &operands);

/// What a command makes of a file: results, lines for standard error, each with its own "sil: ", and its status.
struct FileResult {
  std::string results;
  std::string words;
  ExitStatus status = kFine;
  std::function<ExitStatus(Output &)> afterwards;  // made in turn, on the main thread, where there is one
};

/// Reads all files that the operands mean and works on them side by side; hands the results on in the files'
/// order. No more files are in work or waiting than twice the threads. On a terminal a line says how far it is
/// when it takes longer than a second.
ExitStatus for_each_file(const Arguments &arguments, Output &output,
                         const std::function<FileResult(const File &)> &work);

/// The worse of two.
inline ExitStatus worse(ExitStatus a, ExitStatus b) { return a > b ? a : b; }

}  // namespace sil

#endif
