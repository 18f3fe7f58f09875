// `sil set`, `sil add` and `sil remove`: changes that leave everything alone that they do not name.
#include "changes.h"
#include "core/edits.h"
#include "core/findings.h"
#include "core/load.h"
#include "replace_file.h"

namespace sil {
namespace {

constexpr Option kDiff{"--diff", "", "", "", "print what would change"};
constexpr Option kStdinName{"--stdin-name", "", "NAME", "", "what standard input is called in messages"};

constexpr Option kSetOptions[] = {kDiff, kStdinName};
constexpr Option kAddOptions[] = {
    {"--type", "", "TYPE", "", "the type of a service or an attribute"},
    {"--star", "", "", "", "an attribute that is not compulsory"},
    {"--before", "", "PATH", "", "what it shall stand before; else behind all"},
    kDiff,
    kStdinName,
};

using Edit = std::function<Edited(const Editable &)>;

// The findings for which a changed text is refused.
std::string objections_to(const std::string &name, const std::string &text) {
  const Document document = read_document(text);
  const Lines lines(text);
  Describer describer(document, lines, false);
  std::string objections;
  for (const SourceFinding &told : document.findings)
    if (told.severity <= JT_SEVERITY_LOSS) objections += in_short(name, describer.describe(told));
  return objections;
}

// A file that decodes, changed as a whole or not at all.
ExitStatus edit(const Arguments &arguments, Output &output, const Edit &make) {
  const File file = read_file(arguments.operands[0], arguments);
  if (!file.problem.empty()) {
    output.say(file.name, file.problem);
    return kTrouble;
  }
  const Loaded loaded = load(file.text);
  const Document document = read_document(file.text);
  if (!loaded.model || !document.decodes) {
    output.complain(findings_in_short(file.name, document));
    output.say(file.name, "not changed, since it cannot be decoded");
    return kFindings;
  }
  Edited edited = make({document, *loaded.model});
  if (edited.result != Edited::Result::kDone) {
    output.say(file.name, edited.problem);
    return edited.result == Edited::Result::kWrongUse ? kTrouble : kFindings;
  }
  const std::string objections = objections_to(file.name, edited.text);
  if (!objections.empty()) {
    output.complain(objections);
    output.say(file.name, "not changed, since that is what it would become");
    return kFindings;
  }
  clean_up_on_signals();
  return hand_on(changed(file, std::move(edited.text), arguments), output);
}

ExitStatus run_set(const Arguments &arguments, Output &output) {
  const std::vector<std::string> assignments(arguments.operands.begin() + 1, arguments.operands.end());
  return edit(arguments, output, [&](const Editable &editable) { return set_places(editable, assignments); });
}

ExitStatus run_add(const Arguments &arguments, Output &output) {
  NewElement wanted;
  wanted.path = arguments.operands[1];
  wanted.type = arguments.value_of("--type", "");
  wanted.is_optional = arguments.has("--star");
  wanted.before = arguments.value_of("--before", "");
  wanted.values.assign(arguments.operands.begin() + 2, arguments.operands.end());
  return edit(arguments, output, [&](const Editable &editable) { return add_element(editable, wanted); });
}

ExitStatus run_remove(const Arguments &arguments, Output &output) {
  return edit(arguments, output,
              [&](const Editable &editable) { return remove_elements(editable, arguments.operands[1]); });
}

}  // namespace

const Command kSet = {
    "set",
    "FILE PATH=VALUE...",
    2,
    kAnyNumber,
    "replace values, names, stars and statuses in place",
    "VALUE is plain text. A path given again makes a list; A[2]= replaces one value, A[+]= appends "
    "one. @name, @compulsory (true or false), @status and @status-text follow an element, @version "
    "and @identifier @header; @status= removes. Nothing else of the file changes, and nothing at "
    "all where the result would have an error or a loss.",
    kSetOptions,
    {{"sil set job.sil 'Scanner/Letter/Copies=2'", "two copies"},
     {"sil set job.sil 'M//To[+]=a@b.org' --diff", "one more address, shown only"}},
    run_set};

const Command kAdd = {
    "add",
    "FILE PATH [VALUE...]",
    2,
    kAnyNumber,
    "add an attribute, an invocation or a service in place",
    "The last step of PATH is its name; 'SERVICE/' is an invocation without one. It is laid out like "
    "its neighbours. Nothing changes where the result would have an error or a loss.",
    kAddOptions,
    {{"sil add job.sil S/Letter/Copies --type integer 2", "an attribute"},
     {"sil add job.sil Fax --type kmt_svc_fax", "a service"}},
    run_add};

const Command kRemove = {
    "remove",
    "FILE PATH",
    2,
    2,
    "remove an attribute, an invocation or a service in place",
    "With the comments in it, one on its last line, and those on lines directly above. * removes "
    "all. Nothing changes where the result would have an error or a loss.",
    kSetOptions,
    {{"sil remove job.sil 'Scanner/Letter/Copies'", "an attribute"},
     {"sil remove job.sil 'Fax' --diff", "what would go with a service"}},
    run_remove};

}  // namespace sil
