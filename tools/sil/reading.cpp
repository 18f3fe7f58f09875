// Reading, decoding and finding, with what is said when they fail.
#include "reading.h"

#include <algorithm>
#include <variant>

#include "core/text.h"

namespace sil {

std::string words_about(const std::string &name, const Loaded &loaded, Losses losses) {
  std::string words;
  for (const Fault &fault : loaded.faults) {
    const bool is_said =
        fault.severity == Severity::kError || losses == Losses::kAll || fault.code.starts_with("value-");
    if (!is_said) continue;
    const FindingPage *const page = find_page(fault.code);
    const std::string_view meaning = page != nullptr ? page->meaning : "";
    std::string sentence(meaning.substr(0, meaning.find_first_of(".:")));
    std::replace(sentence.begin(), sentence.end(), '\n', ' ');
    words += printable(name) + ":" + std::to_string(fault.line) + ":" + std::to_string(fault.column) + ": " +
             std::string(name_of(fault.severity)) + ": " + sentence + " [" + fault.code + "]\n";
  }
  return words.empty() && !loaded.model ? "sil: " + name + ": the text cannot be read\n" : words;
}

ReadTemplate read_template(const std::string &path, const Arguments &arguments, Output &output,
                           Losses losses) {
  ReadTemplate read;
  const File file = read_file(path, arguments);
  read.name = file.name;
  if (!file.problem.empty()) {
    output.say(file.name, file.problem);
    read.status = kTrouble;
    return read;
  }
  Loaded loaded = load(file.text);
  const std::string words = words_about(file.name, loaded, losses);
  if (!words.empty()) output.complain(words);
  read.status = words.empty() ? kFine : kFindings;
  read.model = std::move(loaded.model);
  return read;
}

Resolved resolve_path(const std::string &text, const ReadTemplate &read, Output &output) {
  Resolved resolved;
  std::variant<Path, PathError> path = parse_path(text);
  if (const PathError *const error = std::get_if<PathError>(&path)) {
    output.say(text, error->message + " (at byte " + std::to_string(error->offset + 1) + ")");
    resolved.status = kTrouble;
    return resolved;
  }
  resolved.path = std::get<Path>(std::move(path));
  std::variant<Found, Missing> found = resolve(*read.model, resolved.path);
  if (const Missing *const missing = std::get_if<Missing>(&found)) {
    output.say(read.name, missing->message);
    resolved.status = kFindings;
    return resolved;
  }
  resolved.places = std::get<Found>(std::move(found)).places;
  return resolved;
}

}  // namespace sil
