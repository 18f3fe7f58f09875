// `sil get`: what is at a path, for scripts.
#include "core/json_out.h"
#include "core/sil_writer.h"
#include "reading.h"

namespace sil {
namespace {

constexpr Option kOptions[] = {
    {"--null", "-0", "", "", "a NUL behind each value instead of a line feed"},
    {"--json", "", "", "", "a JSON array"},
    {"--stdin-name", "", "NAME", "", "what standard input is called in messages"},
};

// The last line feed of a comment is the end of its line.
MaybeText comment_lines(const MaybeText &comment) {
  return comment ? MaybeText(comment->substr(0, comment->find_last_not_of('\n') + 1)) : comment;
}

template <typename T>
MaybeText aspect_of(const T &element, Aspect aspect) {
  const MaybeStatus &status = element.status;
  switch (aspect) {
    case Aspect::kStatus:
      if (status) return status->name;
      return {};
    case Aspect::kStatusText:
      if (status) return status->text;
      return {};
    default:
      return comment_lines(element.comment);
  }
}

// Of the header, the section or the template.
MaybeText aspect_of_root(const Model &model, Root root, Aspect aspect) {
  if (root == Root::kBody) return comment_lines(model.comment);
  if (root == Root::kSection) return comment_lines(model.section->comment);
  const Header &header = *model.header;
  switch (aspect) {
    case Aspect::kVersion:
      return header.version;
    case Aspect::kIdentifier:
      return header.identifier;
    case Aspect::kForm:
      return header.form;
    default:
      return comment_lines(header.comment);
  }
}

MaybeText name_of(const Element &element) {
  if (element.attribute != nullptr) return element.attribute->name;
  return element.invocation != nullptr ? element.invocation->name : element.service->name;
}

MaybeText aspect_at(const Model &model, const Place &place, Aspect aspect) {
  const Element element = element_at(model, place);
  if (aspect == Aspect::kName) return name_of(element);
  const bool is_type = aspect == Aspect::kType;
  if (element.attribute != nullptr) {
    if (aspect == Aspect::kCompulsory) return element.attribute->is_optional ? "false" : "true";
    return is_type ? element.attribute->type : aspect_of(*element.attribute, aspect);
  }
  if (element.invocation != nullptr)
    return is_type ? element.service->type : aspect_of(*element.invocation, aspect);
  if (element.service != nullptr)
    return is_type ? element.service->type : aspect_of(*element.service, aspect);
  return aspect_of_root(model, place.root, aspect);
}

// One result after the other, in the form that was asked for.
class Printer {
 public:
  Printer(const Arguments &arguments, Output &output)
      : output_(output), end_(arguments.has("--null") ? '\0' : '\n'), is_json_(arguments.has("--json")) {
    if (is_json_) json_.open_array();
  }

  void add(const MaybeText &text, bool is_truth) {
    if (!text) return;
    if (!is_json_) return print(*text);
    is_truth ? json_.raw(*text) : json_.text(*text);
  }

  void add(const Attribute &attribute, const Value &value) {
    is_json_ ? write_value(json_, attribute, value) : print(value.written);
  }

  void end() {
    if (!is_json_) return;
    json_.close_array();
    output_.print(json_.take());
  }

 private:
  void print(const std::string &text) { output_.print(text + end_); }

  Output &output_;
  char end_;
  bool is_json_;
  JsonWriter json_;
};

// The values of an attribute, or the one that is meant; false of what has none of its own.
bool add_values(const Model &model, const Place &place, Printer &printer) {
  const Element element = element_at(model, place);
  if (element.attribute == nullptr) return false;
  if (element.value != nullptr) {
    printer.add(*element.attribute, *element.value);
    return true;
  }
  for (const Value &value : element.attribute->values) printer.add(*element.attribute, value);
  return true;
}

ExitStatus has_no_values(const std::string &file, const std::string &path, bool is_invocation,
                         Output &output) {
  std::string sentence = path;
  sentence.append(" has no values itself; those in it are at '").append(path);
  output.say(file, sentence.append(is_invocation ? "/*'" : "/*/*'"));
  return kFindings;
}

ExitStatus run_get(const Arguments &arguments, Output &output) {
  const ReadTemplate read = read_template(arguments.operands[0], arguments, output);
  if (!read.model) return read.status;
  const Resolved resolved = resolve_path(arguments.operands[1], read, output);
  if (resolved.status != kFine) return resolved.status;
  if (resolved.path.appends) {
    output.say(arguments.operands[1], "[+] is a place for a new value, and has none");
    return kTrouble;
  }
  Printer printer(arguments, output);
  const Aspect aspect = resolved.path.aspect;
  for (const Place &place : resolved.places) {
    if (aspect != Aspect::kNone) {
      printer.add(aspect_at(*read.model, place, aspect), aspect == Aspect::kCompulsory);
    } else if (!add_values(*read.model, place, printer)) {
      return has_no_values(read.name, path_of(*read.model, place), place.invocation.has_value(), output);
    }
  }
  printer.end();
  return read.status;
}

}  // namespace

const Command kGet = {
    "get",
    "FILE PATH",
    2,
    2,
    "print the values at a path, one a line",
    "Without quotes and escapes. A path is 'SERVICE/INVOCATION/ATTRIBUTE'; * is any, "
    "S//A the only unnamed invocation, #2 the second one, A[2] the second value, and "
    "@name, @type, @status, @status-text, @compulsory, @comment follow an element. More: sil(1).",
    kOptions,
    {{"sil get job.sil 'Scanner/Letter/Copies'", "how many"},
     {"sil get job.sil '*/*@status'", "how each invocation went"}},
    run_get};

}  // namespace sil
