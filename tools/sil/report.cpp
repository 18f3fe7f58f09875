// `sil report`: how jobs went.
#include <utility>

#include "core/json_writer.h"
#include "core/record.h"
#include "core/text.h"
#include "reading.h"

namespace sil {
namespace {

constexpr Option kOptions[] = {
    {"--json", "", "", "", "as JSON"},
    {"--stdin-name", "", "NAME", "", "what standard input is called in messages"},
};

struct Report {
  std::string file;
  std::vector<Entry> entries;
};

// What there is to say beside the name of the outcome.
std::string details_of(const Entry &entry) {
  std::string now;
  for (const std::string &value : entry.now) now += (now.empty() ? "" : ", ") + as_token(printable(value));
  if (entry.before) return ": " + as_token(printable(*entry.before)) + " -> " + now;
  const bool names_all = entry.outcome != Outcome::kFailed && entry.outcome != Outcome::kOther;
  std::string text = names_all ? "" : printable(entry.status);
  if (entry.text) text += (text.empty() ? "" : ", ") + printable(*entry.text);
  return text.empty() ? "" : ": " + text;
}

constexpr Colour kColours[kOutcomes] = {Colour::kGreen,  Colour::kRed,    Colour::kYellow,
                                        Colour::kYellow, Colour::kYellow, Colour::kFaint};

std::string lines_of(const Report &report, const Output &output) {
  std::string lines = output.in(Colour::kBold, printable(report.file)) + "\n";
  if (report.entries.empty()) lines += "  no statuses\n";
  for (const Entry &entry : report.entries) {
    std::string outcome(name_of(entry.outcome));
    outcome.resize(12, ' ');
    lines += "  " + output.in(kColours[static_cast<std::size_t>(entry.outcome)], outcome) +
             printable(entry.path) + details_of(entry) + "\n";
  }
  return lines;
}

void write_entry(JsonWriter &json, const Entry &entry) {
  json.open_object();
  json.member("path", entry.path);
  json.member("outcome", name_of(entry.outcome));
  json.member("status", entry.status);
  if (entry.text) json.member("text", *entry.text);
  if (entry.before) json.member("before", *entry.before);
  if (!entry.now.empty()) {
    json.key("now");
    json.open_array();
    for (const std::string &value : entry.now) json.text(value);
    json.close_array();
  }
  json.close_object();
}

void write_counts(JsonWriter &json, const Counts &counts) {
  for (std::size_t i = 0; i < kOutcomes; ++i) {
    json.key(name_of(static_cast<Outcome>(i)));
    json.number(counts[i]);
  }
}

// The counts of all files, and the reports themselves where they are printed together at the end.
class Summary {
 public:
  void add(const Report &report, const Output &output, bool is_json) {
    ++files_;
    const Counts counts = count(report.entries);
    for (std::size_t i = 0; i < kOutcomes; ++i) total_[i] += counts[i];
    if (is_json) {
      write(report);
    } else {
      lines_ += lines_of(report, output);
    }
  }

  std::string take_lines() { return std::exchange(lines_, {}); }
  bool has_failures() const { return total_[static_cast<std::size_t>(Outcome::kFailed)] != 0; }

  std::string line() const {
    std::string text = std::to_string(files_) + (files_ == 1 ? " file:" : " files:");
    const char *separator = " ";
    for (std::size_t i = 0; i < kOutcomes; ++i) {
      if (total_[i] == 0) continue;
      text.append(separator)
          .append(std::to_string(total_[i]))
          .append(" ")
          .append(name_of(static_cast<Outcome>(i)));
      separator = ", ";
    }
    return text + (*separator == ' ' ? " no statuses\n" : "\n");
  }

  void begin_json() {
    json_.open_object();
    json_.key("files");
    json_.open_array();
  }

  std::string end_json() {
    json_.close_array();
    json_.key("summary");
    json_.open_object();
    json_.key("files");
    json_.number(files_);
    write_counts(json_, total_);
    json_.close_object();
    json_.close_object();
    return json_.take();
  }

 private:
  void write(const Report &report) {
    json_.open_object();
    json_.member("file", report.file);
    json_.key("entries");
    json_.open_array();
    for (const Entry &entry : report.entries) write_entry(json_, entry);
    json_.close_array();
    json_.close_object();
  }

  std::size_t files_ = 0;
  Counts total_{};
  std::string lines_;
  JsonWriter json_;
};

ExitStatus run_report(const Arguments &arguments, Output &output) {
  const bool is_json = arguments.has("--json");
  Summary summary;
  if (is_json) summary.begin_json();
  const ExitStatus status = for_each_file(arguments, output, [&summary, is_json](const File &file) {
    FileResult result;
    const Loaded loaded = load(file.text);
    result.words = words_about(file.name, loaded, Losses::kOfValues);
    result.status = result.words.empty() ? kFine : kFindings;
    if (!loaded.model) return result;
    result.afterwards = [&summary, is_json,
                         report = Report{file.name, record_of(*loaded.model)}](Output &to) {
      summary.add(report, to, is_json);
      to.print(summary.take_lines());
      return kFine;
    };
    return result;
  });
  output.print(is_json ? summary.end_json() : summary.line());
  return worse(status, summary.has_failures() ? kFindings : kFine);
}

}  // namespace

const Command kReport = {
    "report",
    "FILE...",
    1,
    kAnyNumber,
    "print how jobs went: the statuses of templates that came back",
    "What completed, failed, was overridden (with the value before and now) or ignored, and "
    "the texts behind statuses; in the end how many of each. FILE may be a folder. Exit "
    "status 1 where something failed.",
    kOptions,
    {{"sil report returned.sil", "how it went"}, {"sil report --json jobs/ | jq .summary", "how all went"}},
    run_report};

}  // namespace sil
