// Over replace_file().
#include "changes.h"

#include <utility>

#include "core/line_diff.h"
#include "replace_file.h"

namespace sil {
namespace {

ExitStatus replace(const File &file, std::string_view text, Output &output) {
  const Replaced replaced = replace_file(file.path, file.stamp, text);
  for (const std::string &note : replaced.notes) output.say(file.name, note);
  if (replaced.problem.empty()) return kFine;
  output.say(file.name, replaced.problem);
  return kTrouble;
}

}  // namespace

FileResult changed(const File &file, std::string after, const Arguments &arguments) {
  FileResult result;
  const bool is_same = after == file.text;
  if (arguments.has("--diff")) {
    result.results = unified_diff(file.name, file.text, after);
    result.status = is_same ? kFine : kFindings;
  } else if (file.is_standard_input()) {
    result.results = std::move(after);
  } else if (!is_same) {
    File facts;
    facts.path = file.path;
    facts.name = file.name;
    facts.stamp = file.stamp;
    result.afterwards = [facts, text = std::move(after)](Output &output) {
      return replace(facts, text, output);
    };
  }
  return result;
}

ExitStatus hand_on(const FileResult &result, Output &output) {
  output.print(result.results);
  if (!result.words.empty()) output.complain(result.words);
  return result.afterwards ? worse(result.status, result.afterwards(output)) : result.status;
}

}  // namespace sil
