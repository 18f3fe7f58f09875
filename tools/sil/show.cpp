// `sil show`: the tree for people, or each value with its path.
#include "core/outline.h"
#include "core/redaction.h"
#include "reading.h"

namespace sil {
namespace {

constexpr Option kOptions[] = {
    {"--paths", "", "", "", "each value as PATH=VALUE, quoted for a shell"},
    {"--read", "", "", "", "behind each value what the device keeps, if another"},
    {"--redact", "", "", "", "REDACTED in place of texts, comments, identifier"},
    {"--stdin-name", "", "NAME", "", "what standard input is called in messages"},
};

Colour colour_of(Piece piece) {
  switch (piece) {
    case Piece::kName:
      return Colour::kBold;
    case Piece::kType:
      return Colour::kFaint;
    case Piece::kValue:
      return Colour::kGreen;
    case Piece::kStatus:
      return Colour::kYellow;
    case Piece::kComment:
      return Colour::kBlue;
  }
  return Colour::kBold;
}

ExitStatus run_show(const Arguments &arguments, Output &output) {
  ReadTemplate read = read_template(arguments.operands[0], arguments, output);
  if (!read.model) return read.status;
  if (arguments.has("--redact")) redact(*read.model);
  const bool shows_kept = arguments.has("--read");
  const bool wants_paths = arguments.has("--paths");
  const Painter paint = [&output](Piece piece, std::string_view text) {
    return output.in(colour_of(piece), text);
  };
  if (arguments.operands.size() == 1) {
    output.print(wants_paths ? values_with_paths(*read.model) : outline(*read.model, paint, shows_kept));
    return read.status;
  }
  const Resolved resolved = resolve_path(arguments.operands[1], read, output);
  for (const Place &place : resolved.places)
    output.print(wants_paths ? values_with_paths(*read.model, place)
                             : outline(*read.model, place, paint, shows_kept));
  return worse(read.status, resolved.status);
}

}  // namespace

const Command kShow = {"show",
                       "FILE [PATH]",
                       1,
                       2,
                       "show a template, or what is at a path of it, as a tree",
                       "Names, types, stars (*), values, statuses and comments. A path is "
                       "'SERVICE/INVOCATION/ATTRIBUTE'.",
                       kOptions,
                       {{"sil show job.sil Scanner", "what is to be scanned, and how"},
                        {"sil show --paths job.sil | grep Copies", "where copies are counted"}},
                       run_show};

}  // namespace sil
