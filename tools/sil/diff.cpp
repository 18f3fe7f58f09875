// `sil diff`: what differs as a job.
#include "core/difference.h"
#include "core/json_writer.h"
#include "core/text.h"
#include "reading.h"

namespace sil {
namespace {

constexpr Option kOptions[] = {
    {"--json", "", "", "", "a JSON array of path, before, after"},
    {"--stdin-name", "", "NAME", "", "what standard input is called in messages"},
};

std::string with_value(const std::string &path, const MaybeText &value) {
  return printable(value->empty() ? path : path + ": " + *value);
}

void print(const std::vector<Difference> &found, Output &output) {
  for (const Difference &difference : found) {
    std::string line;
    if (!difference.before) {
      line = output.in(Colour::kGreen, "+ " + with_value(difference.path, difference.after));
    } else if (!difference.after) {
      line = output.in(Colour::kRed, "- " + with_value(difference.path, difference.before));
    } else {
      line = "~ " + printable(difference.path) + ": " +
             output.in(Colour::kRed, printable(*difference.before)) + " -> " +
             output.in(Colour::kGreen, printable(*difference.after));
    }
    output.print(line + "\n");
  }
}

void print_json(const std::vector<Difference> &found, Output &output) {
  JsonWriter json;
  json.open_array();
  for (const Difference &difference : found) {
    json.open_object();
    json.member("path", difference.path);
    if (difference.before) json.member("before", *difference.before);
    if (difference.after) json.member("after", *difference.after);
    json.close_object();
  }
  json.close_array();
  output.print(json.take());
}

ExitStatus run_diff(const Arguments &arguments, Output &output) {
  const ReadTemplate a = read_template(arguments.operands[0], arguments, output);
  const ReadTemplate b = read_template(arguments.operands[1], arguments, output);
  if (!a.model || !b.model) return worse(a.status, b.status);
  const std::vector<Difference> found = differences(*a.model, *b.model);
  arguments.has("--json") ? print_json(found, output) : print(found, output);
  return worse(found.empty() ? kFine : kFindings, worse(a.status, b.status));
}

}  // namespace

const Command kDiff = {
    "diff",
    "A B",
    2,
    2,
    "print what differs between two templates as jobs",
    "+ is in B only, - in A only, ~ in both with another value. Named elements are matched by "
    "name, unnamed invocations and values by order; layout, comments and the case of names "
    "do not count. A value is what the device keeps: 09:05 is 9:5.",
    kOptions,
    {{"sil diff sent.sil returned.sil", "what the device changed"},
     {"sil diff --json a.sil b.sil | jq length", "how many differences"}},
    run_diff};

}  // namespace sil
