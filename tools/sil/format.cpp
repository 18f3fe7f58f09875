// `sil format`: the one layout.
#include "changes.h"
#include "core/findings.h"
#include "core/layout.h"
#include "replace_file.h"

namespace sil {
namespace {

constexpr Option kOptions[] = {
    {"--write", "-w", "", "", "change the files in place"},
    {"--check", "", "", "", "print the names of files that would change"},
    {"--diff", "", "", "", "print what would change"},
    {"--stdin-name", "", "NAME", "", "what standard input is called in messages"},
};

FileResult format(const File &file, const Arguments &arguments) {
  FileResult result;
  const Document document = read_document(file.text);
  LaidOut laid_out = lay_out(document);
  if (laid_out.result == LaidOut::Result::kMisfit) {
    result.words = findings_in_short(file.name, document);
    if (result.words.empty())
      result.words = "sil: " + file.name + ": tokens are missing, so it is not laid out\n";
    result.status = kFindings;
    return result;
  }
  if (laid_out.result == LaidOut::Result::kFault) {
    result.words = "sil: " + file.name +
                   ": the layout would change tokens, which is a fault of sil; nothing is written\n";
    result.status = kTrouble;
    return result;
  }
  if (arguments.has("--check")) {
    if (laid_out.text == file.text) return result;
    result.results = file.name + "\n";
    result.status = kFindings;
    return result;
  }
  if (arguments.has("--write") || arguments.has("--diff"))
    return changed(file, std::move(laid_out.text), arguments);
  result.results = std::move(laid_out.text);
  return result;
}

ExitStatus run_format(const Arguments &arguments, Output &output) {
  const int ways = static_cast<int>(arguments.has("--write")) + static_cast<int>(arguments.has("--check")) +
                   static_cast<int>(arguments.has("--diff"));
  if (ways > 1) {
    output.say("format", "takes one of --write, --check and --diff");
    return kTrouble;
  }
  clean_up_on_signals();
  return for_each_file(arguments, output, [&](const File &file) { return format(file, arguments); });
}

}  // namespace

const Command kFormat = {
    "format",
    "FILE...",
    1,
    kAnyNumber,
    "lay files out in the one layout, losslessly",
    "To standard output, unless an option says otherwise. What has errors is laid out too as "
    "long as its tokens fit; else its findings are said. --check and --diff exit 1 where a "
    "file would change, and print nothing of one that would not. Of a folder, all *.sil "
    "below it are read.",
    kOptions,
    {{"sil format --write jobs", "lay all files of a folder out"},
     {"sil format --check jobs", "for a build that insists on it"}},
    run_format};

}  // namespace sil
