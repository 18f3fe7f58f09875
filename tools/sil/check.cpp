// `sil check`: everything that is wrong in files, where, and how to mend it.
#include <algorithm>
#include <array>

#include "changes.h"
#include "core/cures.h"
#include "core/findings.h"
#include "core/report.h"
#include "core/suggestions.h"
#include "core/suppressions.h"
#include "replace_file.h"

namespace sil {
namespace {

constexpr Option kOptions[] = {
    {"--strict", "", "", "", "a loss is an error"},
    {"--notes", "", "", "", "tell what is worth knowing too"},
    {"--ignore", "", "CODE", "", "leave such findings out; may be given again"},
    {"--redact", "", "", "", "do not repeat texts, comments, identifier"},
    {"--format", "", "FORM", "human|short|json", "human, short (a line each) or json"},
    {"--fix", "", "", "", "put in a missing ;, take out a byte order mark"},
    {"--diff", "", "", "", "print what --fix would change"},
    {"--stdin-name", "", "NAME", "", "what standard input is called in messages"},
};

enum class Form { kHuman, kShort, kJson };

struct Wish {
  bool is_strict;
  bool wants_notes;
  bool is_redacted;
  Form form;
  bool fixes;
  // The text or the difference goes to standard output, so findings cannot.
  bool is_standard_output_taken = false;
  std::vector<std::int32_t> ignored = {};
};

struct Counts {
  std::array<std::size_t, 4> of_severity{};
  std::size_t cures = 0;
};

struct Sum {
  Counts counts;
  std::size_t files = 0;
  bool has_json = false;  // an object has been printed
};

bool is_wanted(const SourceFinding &finding, const Wish &wish) {
  if (finding.severity == JT_SEVERITY_NOTE && !wish.wants_notes) return false;
  const bool may_be_ignored = finding.severity > (wish.is_strict ? JT_SEVERITY_LOSS : JT_SEVERITY_ERROR);
  return !may_be_ignored ||
         std::find(wish.ignored.begin(), wish.ignored.end(), finding.code) == wish.ignored.end();
}

Colour colour_of(Part part) {
  switch (part) {
    case Part::kError:
      return Colour::kRed;
    case Part::kWarning:
      return Colour::kYellow;
    case Part::kNote:
      return Colour::kBlue;
    case Part::kPlace:
      return Colour::kFaint;
    case Part::kHelp:
      return Colour::kGreen;
  }
  return Colour::kBold;
}

// The findings of a text, in the form that was asked for; each JSON object with a comma in front of it.
std::string findings_of(const std::string &name, std::string_view text, const Wish &wish,
                        const Output &output, Counts &counts) {
  const bool may_have_suppressions = text.find("sil:") != std::string_view::npos;
  if (!may_have_suppressions &&
      !has_findings(text, wish.wants_notes ? JT_SEVERITY_NOTE : JT_SEVERITY_WARNING))
    return "";
  Document document = read_document(text);
  hide_suppressed(document, wish.is_strict);
  const Lines lines(text);
  Describer describer(document, lines, wish.is_redacted);
  const PaintPart paint = [&](Part part, std::string_view piece) {
    return wish.is_standard_output_taken ? std::string(piece) : output.in(colour_of(part), piece);
  };
  std::string found;
  for (const SourceFinding &told : document.findings) {
    if (!is_wanted(told, wish)) continue;
    Finding finding = describer.describe(told);
    if (wish.is_strict && finding.severity == JT_SEVERITY_LOSS) finding.severity = JT_SEVERITY_ERROR;
    ++counts.of_severity[static_cast<std::size_t>(finding.severity)];
    if (wish.form == Form::kShort) found += in_short(name, finding);
    if (wish.form == Form::kJson) found += "," + as_json(name, finding);
    if (wish.form == Form::kHuman)
      found += for_people(name, document, lines, finding, wish.is_redacted, paint);
  }
  return found;
}

void print_json(std::string &objects, Sum &sum) {
  if (objects.empty()) return;
  if (!sum.has_json) objects.replace(0, 1, "[");
  sum.has_json = true;
}

FileResult check(const File &file, const Arguments &arguments, const Wish &wish, const Output &output,
                 Sum &sum) {
  Counts counts;
  FileResult result;
  std::string findings;
  if (wish.fixes) {
    const Cured cured = cure(read_document(file.text));
    counts.cures = cured.count;
    findings = findings_of(file.name, cured.text, wish, output, counts);
    result = changed(file, cured.text, arguments);
  } else {
    findings = findings_of(file.name, file.text, wish, output, counts);
  }
  const auto &found = counts.of_severity;
  if (found[JT_SEVERITY_ERROR] + found[JT_SEVERITY_LOSS] + found[JT_SEVERITY_WARNING] > 0)
    result.status = worse(result.status, kFindings);
  // What is put together over all files is put together in their order.
  result.afterwards = [=, write = result.afterwards, &wish, &sum](Output &out) mutable {
    const ExitStatus status = write ? write(out) : kFine;
    for (std::size_t i = 0; i < found.size(); ++i) sum.counts.of_severity[i] += counts.of_severity[i];
    sum.counts.cures += counts.cures;
    ++sum.files;
    if (wish.form == Form::kJson) print_json(findings, sum);
    if (findings.empty()) return status;
    wish.is_standard_output_taken ? out.complain(findings) : out.print(findings);
    return status;
  };
  return result;
}

std::string counted(std::size_t count, std::string_view what, std::string_view ending = "s") {
  return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : std::string(ending));
}

std::string summary_of(const Sum &sum, bool is_written) {
  std::string text;
  for (std::size_t i = 0; i < sum.counts.of_severity.size(); ++i) {
    const std::size_t count = sum.counts.of_severity[i];
    if (count == 0) continue;
    text += text.empty() ? "" : ", ";
    text +=
        counted(count, name_of_severity(static_cast<std::int32_t>(i)), i == JT_SEVERITY_LOSS ? "es" : "s");
  }
  if (text.empty()) text = "no findings";
  text += " in " + counted(sum.files, "file");
  if (sum.counts.cures > 0)
    text += ", " + std::to_string(sum.counts.cures) + (is_written ? " cured" : " can be cured");
  return text + "\n";
}

bool read_ignored(const Arguments &arguments, Wish &wish, Output &output) {
  const auto given = arguments.options.find("--ignore");
  if (given == arguments.options.end()) return true;
  for (const std::string &name : given->second) {
    wish.ignored.push_back(code_named(name));
    if (wish.ignored.back() >= 0) continue;
    std::vector<std::string> codes;
    for (std::int32_t code = 0; jt_finding_name(code) != nullptr; ++code)
      codes.emplace_back(jt_finding_name(code));
    output.say("", "there is no finding \"" + name + "\"" + did_you_mean(nearest(name, codes)));
    return false;
  }
  return true;
}

Form form_of(const Arguments &arguments) {
  const std::string form = arguments.value_of("--format", "human");
  return form == "json" ? Form::kJson : form == "short" ? Form::kShort : Form::kHuman;
}

ExitStatus run_check(const Arguments &arguments, Output &output) {
  Wish wish{arguments.has("--strict"), arguments.has("--notes"), arguments.has("--redact"),
            form_of(arguments), arguments.has("--fix") || arguments.has("--diff")};
  const std::vector<std::string> &files = arguments.operands;
  wish.is_standard_output_taken =
      wish.fixes && (arguments.has("--diff") || std::find(files.begin(), files.end(), "-") != files.end());
  if (!read_ignored(arguments, wish, output)) return kTrouble;
  clean_up_on_signals();
  Sum sum;
  const ExitStatus status = for_each_file(
      arguments, output, [&](const File &file) { return check(file, arguments, wish, output, sum); });
  std::string end;
  if (wish.form == Form::kHuman) end = summary_of(sum, !arguments.has("--diff"));
  if (wish.form == Form::kJson) end = sum.has_json ? "\n]\n" : "[]\n";
  wish.is_standard_output_taken ? output.complain(end) : output.print(end);
  return status;
}

}  // namespace

const Command kCheck = {
    "check",
    "FILE...",
    1,
    kAnyNumber,
    "tell everything that is wrong in files",
    "Errors, losses and warnings, and exit status 1 where there is one. A comment \"# sil: "
    "ignore CODE\" above, in or behind a statement hides what is found in it; errors cannot be "
    "hidden. sil explain CODE says more of one. --fix changes a file only where that leaves it "
    "with fewer findings and no new one. Of a folder, all *.sil below it are read.",
    kOptions,
    {{"sil check jobs", "all files of a folder"}, {"sil check --format short job.sil", "for an editor"}},
    run_check};

}  // namespace sil
