// `sil explain`: the page of a finding.
#include "command.h"
#include "core/finding_table.h"
#include "core/suggestions.h"

namespace sil {
namespace {

ExitStatus list_codes(Output &output) {
  for (const FindingPage &page : finding_pages()) {
    std::string line(page.code);
    line.resize(32, ' ');
    output.print(line + std::string(name_of(page.severity)) + "\n");
  }
  return kFine;
}

ExitStatus run_explain(const Arguments &arguments, Output &output) {
  if (arguments.operands.empty()) return list_codes(output);
  const std::string &code = arguments.operands[0];
  if (const FindingPage *const page = find_page(code)) {
    output.print(text_of_page(*page));
    return kFine;
  }
  std::vector<std::string> codes;
  for (const FindingPage &page : finding_pages()) codes.emplace_back(page.code);
  output.say("", "there is no finding \"" + code + "\"" + did_you_mean(nearest(code, codes)));
  return kTrouble;
}

}  // namespace

const Command kExplain = {"explain",
                          "[CODE]",
                          0,
                          1,
                          "say what a finding means and how to mend it",
                          "A file that shows it comes with it. Without CODE the codes are listed.",
                          {},
                          {{"sil explain name-duplicate", "one name twice"}, {"sil explain", "all codes"}},
                          run_explain};

}  // namespace sil
