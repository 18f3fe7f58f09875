// `sil json` and `sil from-json`.
#include "core/json_in.h"
#include "core/json_out.h"
#include "core/redaction.h"
#include "reading.h"

namespace sil {
namespace {

constexpr Option kJsonOptions[] = {
    {"--redact", "", "", "", "REDACTED in place of texts, comments, identifier"},
    {"--stdin-name", "", "NAME", "", "what standard input is called in messages"},
};
constexpr Option kFromJsonOptions[] = {
    {"--stdin-name", "", "NAME", "", "what standard input is called in messages"},
};

ExitStatus run_json(const Arguments &arguments, Output &output) {
  ReadTemplate read = read_template(arguments.operands[0], arguments, output, Losses::kAll);
  if (!read.model) return read.status;
  if (arguments.has("--redact")) redact(*read.model);
  output.print(to_json(*read.model));
  return read.status;
}

ExitStatus run_from_json(const Arguments &arguments, Output &output) {
  const File file = read_file(arguments.operands[0], arguments);
  if (!file.problem.empty()) {
    output.say(file.name, file.problem);
    return kTrouble;
  }
  const FromJson result = from_json(file.text);
  for (const JsonFinding &finding : result.findings)
    output.say(file.name, (finding.place.empty() ? "" : finding.place + ": ") + finding.message);
  if (!result.text) return kFindings;
  output.print(*result.text);
  return kFine;
}

}  // namespace

const Command kJson = {
    "json",
    "FILE",
    1,
    1,
    "print a template as JSON",
    "Arrays, since order matters; sil.schema.json says its shape. Numbers and truth are "
    "JSON's own, other values texts as the device keeps them. A file with losses gives its "
    "JSON, and exit status 1.",
    kJsonOptions,
    {{"sil json job.sil | jq '.services[].name'", "the names of all services"},
     {"sil json --redact job.sil >report.json", "to show to strangers"}},
    run_json};

const Command kFromJson = {
    "from-json",
    "FILE",
    1,
    1,
    "write the template that JSON says",
    "Takes what sil json prints. What cannot be a template, and what would not be read back "
    "as it is given, is said with its JSON pointer, and nothing is written.",
    kFromJsonOptions,
    {{"sil from-json job.json >job.sil", "back to SIL"},
     {"sil json a.sil | sil from-json -", "a.sil without its layout"}},
    run_from_json};

}  // namespace sil
