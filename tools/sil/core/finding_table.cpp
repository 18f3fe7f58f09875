// One entry for each code.
#include "core/finding_table.h"

#include <array>

#include "core/text.h"

namespace sil {
namespace {

constexpr std::array kPages = {
    FindingPage{
        "syntax-expected", Severity::kError,
        "Something else must stand here. The place is behind the last token that fits, and the message\n"
        "says what may follow it.",
        "[kmt_svc_scan Scanner]\n{\n  integer Copies 2;\n}\nend\n",
        "Put in what is missing, or take out what is too much. Here \"=\" is missing: Copies = 2;"},
    FindingPage{
        "syntax-unclosed", Severity::kError,
        "A service, an invocation, a status or a section is opened and never closed. The second place is\n"
        "where it was opened.",
        "[kmt_svc_scan Scanner]\n{\n  integer Copies = 2;\nend\n",
        "Close an invocation with \"}\", a service with \"end\", a status with \")\"."},
    FindingPage{
        "syntax-string", Severity::kError,
        "A string is not well formed: its closing quote is missing, a quote stands inside a word, or the\n"
        "text ends behind a backslash.",
        "[kmt_svc_scan Scanner]\n{\n  string Title = The\"big\"one;\n}\nend\n",
        "Put the whole text in quotes, and a backslash before each quote in it."},
    FindingPage{
        "string-over-lines", Severity::kError,
        "A string goes on over the end of its line, and what stands behind it then does not fit: most often\n"
        "its closing quote was forgotten. What follows is read as if the string ended with its line.",
        "[kmt_svc_scan Scanner]\n{\n  string Title = \"one;\n  string Note = \"two\";\n}\nend\n",
        "Close the string on its line; a line feed in a text is written \\n."},
    FindingPage{"syntax-length", Severity::kError,
                "A token is too long. Names have at most 1023 bytes, values and texts 1024, comments 1023.",
                "", "Make it shorter; part a long comment into lines."},
    FindingPage{
        "syntax-nul", Severity::kError,
        "There is a NUL byte in the text. No file of SIL has one; it may be in UTF-16, or no SIL at all.", "",
        "Remove the byte, or convert the file to UTF-8."},
    FindingPage{
        "text-bom", Severity::kError,
        "The text begins with a byte order mark, which some editors write. It is read as part of the\n"
        "first word.",
        "\xEF\xBB\xBF[kmt_svc_scan Scanner]\nend\n",
        "Save the file without it, or let sil check --fix remove it."},
    FindingPage{"block-illegal", Severity::kError,
                "A section ends or begins with a mark that is not the header's.",
                "<? SIL 4.2.00 ASCII job >\n< ! >\n< /! >\n[kmt_svc_scan Scanner]\nend\n< /SIL >\n",
                "Write the section with the header's own mark: here < ? > and < /? >."},
    FindingPage{"memory", Severity::kError, "There was not enough memory to read the text.", "",
                "Free memory, or read the file elsewhere."},
    FindingPage{
        "limit", Severity::kError,
        "The text is larger than who reads it allows: in bytes, in elements, or in the memory that it takes.",
        "", "Part the job, or raise the limit."},
    FindingPage{"header-form", Severity::kError,
                "This is no header: the mark that begins one is followed by SIL, or by ? or ! and then SIL.",
                "< SLI 4.2.00 ASCII job >\n< /SIL >\n",
                "Write < SIL 4.2.00 ASCII NAME >, or leave the header out together with the end marker."},
    FindingPage{
        "header-version", Severity::kWarning,
        "The version in the header is not 4.2.00. It is kept; whether a device takes it is not known.",
        "< SIL 4.3.00 ASCII job >\n< /SIL >\n",
        "Write 4.2.00, unless the device is known to want the other."},
    FindingPage{"header-encoding", Severity::kLoss,
                "The encoding in the header is not ASCII. It is read as ASCII, and written back as that.",
                "< SIL 4.2.00 UTF-8 job >\n< /SIL >\n", "Write ASCII."},
    FindingPage{"end-marker", Severity::kError,
                "A text with a header must end with < /SIL >, and one without a header must not.",
                "< SIL 4.2.00 ASCII job >\n[kmt_svc_scan Scanner]\nend\n",
                "Write < /SIL > at the end, or take it out where there is no header."},
    FindingPage{"service-type-unknown", Severity::kError, "There is no such type of service.",
                "[kmt_svc_scna Scanner]\nend\n",
                "Take one of those that sil types lists; here kmt_svc_scan was meant."},
    FindingPage{
        "service-unknown", Severity::kWarning,
        "Neither the name nor the type of this service says which types its attributes may have. Only the\n"
        "built-in ones are known in it.",
        "[service Sorter]\n{\n  integer Bins = 2;\n}\nend\n",
        "Nothing, where the device knows the service. Else write its type: [kmt_svc_print Sorter]."},
    FindingPage{
        "attribute-type-unknown", Severity::kError, "There is no such type, in no service.",
        "[kmt_svc_scan Scanner]\n{\n  enum_siced Sides = TWO_SIDED;\n}\nend\n",
        "Take one of those that sil types SERVICE and sil types built-in list; here enum_sided was meant."},
    FindingPage{"attribute-type-of-other-service", Severity::kError,
                "There is such a type, but not in this service.",
                "[kmt_svc_email Mail]\n{\n  enum_mediasize Size = ISO_A4SEF;\n}\nend\n",
                "Move the attribute to the service that the message names, or choose a type of this one."},
    FindingPage{"name-duplicate", Severity::kError,
                "The name is taken already by a service of the template, an invocation of the service or an\n"
                "attribute of the invocation. The case of letters does not tell names apart.",
                "[kmt_svc_scan Scanner]\n{\n  integer Copies = 1;\n  integer COPIES = 2;\n}\nend\n",
                "Remove one of them, or give it another name."},
    FindingPage{
        "name-unsafe", Severity::kLoss,
        "A name in a template that a program has built cannot be read back: it is empty, has a blank or a\n"
        "mark of the language in it, or is the word \"end\".",
        "", "Choose a name that is one word."},
    FindingPage{"value-malformed", Severity::kLoss,
                "The text does not have the form of its type. The value is left out.",
                "[kmt_svc_scan Scanner]\n{\n  integer Copies = many;\n}\nend\n",
                "Write the value as sil types SERVICE TYPE says."},
    FindingPage{
        "value-out-of-range", Severity::kLoss,
        "A number is beyond the bounds of its type. A rectangle or a magnification is left out; a gutter\n"
        "or borders are kept, and this is a warning then.",
        "[kmt_svc_scan Scanner]\n{\n  struct_magnification Zoom = MANISO/900;\n}\nend\n",
        "Write a number within the bounds, which sil types SERVICE TYPE names."},
    FindingPage{"value-saturated", Severity::kLoss,
                "An integer has more digits than fit. It is read as the nearest one that does.",
                "[kmt_svc_scan Scanner]\n{\n  integer Copies = 99999999999;\n}\nend\n",
                "Write a number from -2147483648 to 2147483647."},
    FindingPage{"value-tail", Severity::kLoss, "Behind the value stands text that is not read and gets lost.",
                "[kmt_svc_scan Scanner]\n{\n  struct_timeofday At = 23:59xyz;\n}\nend\n",
                "Remove the rest, or put a comma before it where it is another value."},
    FindingPage{"value-empty-number", Severity::kWarning, "A number has no digits, and is read as 0.",
                "[kmt_svc_scan Scanner]\n{\n  integer Copies = -;\n}\nend\n", "Write the number, be it 0."},
    FindingPage{"value-impossible", Severity::kWarning,
                "No calendar has this date, or no clock this time. It is kept as it is.",
                "[kmt_svc_scan Scanner]\n{\n  timestamp Due = 2009/02/30/12/00/00;\n}\nend\n",
                "Correct the date."},
    FindingPage{
        "value-unknown-name", Severity::kWarning,
        "The name is in no list of its service. It is kept and written back.",
        "[kmt_svc_scan Scanner]\n{\n  enum_sided Sides = TWO_SIDE;\n}\nend\n",
        "Nothing, where a newer device knows it. Else take a name that sil types SERVICE TYPE lists."},
    FindingPage{
        "value-unsafe", Severity::kWarning,
        "The value is kept, but would be written so that something else, or nothing, is read back. In a\n"
        "template that a program has built this is a loss.",
        "[kmt_svc_scan Scanner]\n{\n  ref_collection Documents = \":\";\n}\nend\n",
        "Choose another value, or a type that can hold this one."},
    FindingPage{"value-dropped", Severity::kLoss, "The value is not kept, and its type does not say why.",
                "[kmt_svc_scan Scanner]\n{\n  kmt_svc_scan Inner = 5;\n}\nend\n",
                "Choose a type that has values; here the type is a kind of block."},
    FindingPage{"value-rounded", Severity::kNote,
                "A real is kept with the precision of a single, and is written back as another decimal.",
                "[kmt_svc_scan Scanner]\n{\n  real Ratio = 0.123456789;\n}\nend\n",
                "Nothing; or write the decimal that is kept, so that nobody wonders."},
    FindingPage{
        "status-unknown", Severity::kWarning, "There is no such status. It is kept and written back.",
        "[kmt_svc_scan Scanner]\nend (KMT_STATUS_DONE)\n",
        "Take a name that sil types built-in kmt_enum_status lists; here KMT_STATUS_COMPLETED was meant."},
    FindingPage{
        "status-unsafe", Severity::kWarning,
        "The name of a status, or the text behind it, is kept, but would be written without its quotes and\n"
        "then be read as something else. In a template that a program has built this is a loss.",
        "[kmt_svc_scan Scanner]\nend (KMT_STATUS_ERROR {\"two words\"})\n",
        "Choose a text that is one word."},
    FindingPage{"status-text-lost", Severity::kLoss,
                "Of several words behind a status only the last one is kept.",
                "[kmt_svc_scan Scanner]\nend (KMT_STATUS_ABORTED {after two tries})\n",
                "Make it one word, such as after_two_tries."},
    FindingPage{"comment-moves", Severity::kNote,
                "The comment is kept, but written elsewhere when the library writes the template.",
                "[kmt_svc_scan Scanner]\n{\n  integer Copies = 2;\n  # behind the attribute\n}\nend\n",
                "Nothing, where the place does not matter; sil format keeps it. Else put it where its "
                "element begins."},
    FindingPage{
        "ignore-unused", Severity::kWarning,
        "A comment \"# sil: ignore CODE\" hides no finding, or names no code that there is. An error cannot\n"
        "be ignored.",
        "[kmt_svc_scan Scanner]\n{\n  # sil: ignore value-saturated\n  integer Copies = 2;\n}\nend\n",
        "Remove the comment, or correct the code."},
};
static_assert(kPages.size() == 35);

constexpr std::array<std::string_view, 4> kSeverities = {"error", "loss", "warning", "note"};

}  // namespace

std::string_view name_of(Severity severity) { return kSeverities[static_cast<std::size_t>(severity)]; }

std::span<const FindingPage> finding_pages() { return kPages; }

const FindingPage *find_page(std::string_view code) {
  for (const FindingPage &page : kPages)
    if (same_name(page.code, code)) return &page;
  return nullptr;
}

std::string text_of_page(const FindingPage &page) {
  std::string text(page.code);
  text.append(" (").append(name_of(page.severity)).append(")\n\n").append(page.meaning).append("\n");
  if (!page.shows.empty()) {
    text += "\nFor example:\n\n";
    for_each_line(page.shows,
                  [&text](std::string_view line) { text.append("    ").append(line).append("\n"); });
  }
  return text.append("\n").append(page.mend).append("\n");
}

}  // namespace sil
