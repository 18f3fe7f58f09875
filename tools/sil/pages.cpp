// One walk over the table for each page. What does not come from it stands here.
#include "pages.h"

#include "command.h"
#include "core/text.h"

namespace sil {
namespace {

// ---- sil(1) ----

constexpr std::string_view kManBegin = R"(.Dd November 22, 2026
.Dt SIL 1
.Os jt
.Sh NAME
.Nm sil
.Nd check, show, change and convert SIL files
.Sh SYNOPSIS
)";

constexpr std::string_view kManDescription = R"(.Nm
.Fl Fl help | Fl Fl version
.Sh DESCRIPTION
.Nm
works on files of SIL, the language of job templates, see
.Xr sil 5 .
Results go to standard output, everything else to standard error.
.Pp
A
.Ar file
may be
.Sq -
for standard input.
Where several files are taken, one may be a folder: it stands for all files
.Pa *.sil
below it, in the order of their names; entries that begin with a dot and linked
folders are not entered, but a file that is named is always read.
Files are read side by side; results come in the files' order.
On a terminal a line says how far it is when that takes longer than a second.
.Pp
A file that does not decode is said with the place of its first error.
What reads values also says which of them are not what was written, and then
exits with 1;
.Nm Cm json
says every loss.
.Pp
Control characters in what a file holds are shown as
.Ql \ex1b ,
so that no file can steer a terminal.
.Pp
Every command takes these options:
)";

constexpr std::string_view kManEnd = R"(.Sh PATHS
A path names a place in a template:
.Pp
.Dl SERVICE/INVOCATION/ATTRIBUTE
.Pp
Names match whatever their case.
Since shells read
.Sq \&[ ,
.Sq *
and
.Sq # ,
a path is best put in single quotes.
.Bl -tag -width "@section/SERVICE"
.It Ql S//A
The only invocation without a name; a mistake where there are several.
.It Ql S/#2/A
The second invocation, counting all of them from 1.
.It Ql S/*/A
Any.
Several places may be named then.
.It Ql S/I/A[2]
The second value.
.It Ql @header/A
An attribute of the header.
.It Ql @section/S/I/A
A place in the section.
.It Ql \(dqa/b\(dq/I/A
A name with a
.Sq /
or an
.Sq @
in it stands in double quotes, with the escapes of
.Xr sil 5 .
.El
.Pp
Behind a place, an
.Sq @
says what of it is meant:
.Ql @type ,
.Ql @status ,
.Ql @status-text ,
.Ql @comment ,
for an attribute
.Ql @compulsory
(false with a star), and for
.Ql @header
also
.Ql @version ,
.Ql @identifier
and
.Ql @form .
.Ql @comment
alone is the comment of the template.
.Pp
What is not there, as a status where there is none, prints nothing, which is no
mistake.
A path that names nothing is one: the longest part that was found and the
nearest names are said.
.Sh ENVIRONMENT
.Bl -tag -width NO_COLOR
.It Ev NO_COLOR
Not empty: no colours unless
.Fl Fl color Cm always
asks for them.
.It Ev TERM
.Ql dumb :
the same.
.El
.Sh FILES
.Bl -tag -width Ds
.It Pa sil.schema.json
In the folder
.Pa share/jt
below where jt is installed: the schema of the JSON.
.El
.Sh EXIT STATUS
.Bl -tag -width Ds -compact
.It 0
All is fine.
.It 1
There are findings (errors, losses, warnings) or differences, nothing is at a
path, a change was refused, or a file is not laid out.
.It 2
Wrong use, or a file could not be read or written.
This goes before 1.
.El
.Pp
When the reader of its output goes away,
.Nm
ends silently, by the signal
.Dv SIGPIPE .
)";

constexpr std::string_view kManSeeAlso = R"(.Sh SEE ALSO
.Xr jt-driver 1 ,
.Xr jt-roundtrip 1 ,
.Xr sil 5
)";

// A text as mdoc takes it: a sentence begins a line, and no line is a request by chance.
std::string as_roff(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == ' ' && result.ends_with('.')) {
      result += '\n';
      continue;
    }
    const bool begins_line = result.empty() || result.back() == '\n';
    if (begins_line && (c == '.' || c == '\'')) result += "\\&";
    if (c == '\\') {
      result += "\\e";
    } else {
      result += c;
    }
  }
  return result;
}

std::string options_in_roff(std::span<const Option> options) {
  std::string text = ".Bl -tag -width \"--format FORMAT\"\n";
  for (const Option &option : options) {
    text += ".It ";
    if (!option.letter.empty()) text.append("Fl ").append(option.letter.substr(1)).append(" , ");
    text.append("Fl Fl ").append(option.name.substr(2));
    if (!option.argument.empty()) text.append(" Ar ").append(option.argument);
    text.append("\n").append(as_roff(option.help)).append(".\n");
  }
  return text + ".El\n";
}

std::string command_in_roff(const Command &command) {
  std::string text = ".Ss sil " + std::string(command.name) + " " + std::string(command.operands) + "\n";
  text += "To " + as_roff(command.summary) + ".\n" + as_roff(command.text) + "\n";
  if (!command.options.empty()) text += options_in_roff(command.options);
  return text;
}

// ---- Completions ----

std::string joined(std::span<const Option> options) {
  std::string words;
  for (const Option &option : options) words.append(" ").append(option.name);
  return words;
}

// The choices of an option, as words.
std::string choices_of(const Option &option) {
  std::string words(option.choices);
  for (char &c : words)
    if (c == '|') c = ' ';
  return words;
}

std::string choices_in_bash() {
  std::string text;
  const auto add = [&text](const Option &option) {
    const std::string line =
        "    " + std::string(option.name) + ") words=\"" + choices_of(option) + "\" ;;\n";
    if (!option.choices.empty() && text.find(line) == std::string::npos) text += line;
  };
  for (const Command *command : commands())
    for (const Option &option : command->options) add(option);
  for (const Option &option : common_options()) add(option);
  return text;
}

// In zsh's descriptions brackets and colons mean something.
std::string in_zsh(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\'') {
      result += "'\\''";
    } else {
      if (c == '[' || c == ']' || c == ':' || c == '\\') result += '\\';
      result += c;
    }
  }
  return result;
}

std::string option_in_zsh(const Option &option) {
  std::string tail = "[" + in_zsh(option.help) + "]";
  if (!option.argument.empty()) {
    tail += ":" + in_zsh(option.argument) + ":";
    if (!option.choices.empty()) tail += "(" + choices_of(option) + ")";
  }
  std::string line = "        '" + std::string(option.name) + tail + "' \\\n";
  if (!option.letter.empty()) line += "        '" + std::string(option.letter) + tail + "' \\\n";
  return line;
}

}  // namespace

std::string man_page() {
  std::string page(kManBegin);
  for (const Command *command : commands()) {
    page += ".Nm Cm " + std::string(command->name) + "\n.Op Ar option ...\n";
    if (!command->operands.empty()) page += ".No " + as_roff(command->operands) + "\n";
  }
  page.append(kManDescription).append(options_in_roff(common_options())).append(".Sh COMMANDS\n");
  for (const Command *command : commands()) page += command_in_roff(*command);
  page.append(kManEnd).append(".Sh EXAMPLES\n");
  for (const Command *command : commands())
    for (const Example &example : command->examples)
      page += ".Dl $ " + as_roff(example.command) + "\n.D1 " + as_roff(example.result) + "\n.Pp\n";
  page.resize(page.size() - std::string_view(".Pp\n").size());
  return page.append(kManSeeAlso);
}

std::string bash_completion() {
  std::string names;
  std::string cases;
  for (const Command *command : commands()) {
    names.append(names.empty() ? "" : " ").append(command->name);
    cases.append("    ")
        .append(command->name)
        .append(") words=\"")
        .append(joined(command->options).append("\" ;;\n"));
  }
  return "# Completion of sil(1) for bash.\n"
         "_sil() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words=\n"
         "  COMPREPLY=()\n"
         "  if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
         "    mapfile -t COMPREPLY < <(compgen -W \"" +
         names +
         " --help --version\" -- \"$current\")\n"
         "    return\n"
         "  fi\n"
         "  case $previous in\n" +
         choices_in_bash() +
         "  esac\n"
         "  if [ -n \"$words\" ]; then\n"
         "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
         "    return\n"
         "  fi\n"
         "  [[ $current == -* ]] || return\n"
         "  case ${COMP_WORDS[1]} in\n" +
         cases +
         "  esac\n"
         "  mapfile -t COMPREPLY < <(compgen -W \"$words" +
         joined(common_options()) +
         "\" -- \"$current\")\n"
         "}\n"
         "complete -o default -F _sil sil\n";
}

std::string zsh_completion() {
  std::string names;
  std::string cases;
  for (const Command *command : commands()) {
    names += "    '" + std::string(command->name) + ":" + in_zsh(command->summary) + "'\n";
    cases += "    " + std::string(command->name) + ")\n      _arguments \\\n";
    for (const Option &option : command->options) cases += option_in_zsh(option);
    for (const Option &option : common_options()) cases += option_in_zsh(option);
    cases += "        '*:file:_files'\n      ;;\n";
  }
  return "#compdef sil\n"
         "# Completion of sil(1) for zsh.\n"
         "_sil() {\n"
         "  local -a names\n"
         "  names=(\n" +
         names +
         "  )\n"
         "  if (( CURRENT == 2 )); then\n"
         "    _describe 'command' names\n"
         "    return\n"
         "  fi\n"
         "  local name=$words[2]\n"
         "  shift words\n"
         "  (( CURRENT-- ))\n"
         "  case $name in\n" +
         cases +
         "  esac\n"
         "}\n"
         "_sil \"$@\"\n";
}

}  // namespace sil
