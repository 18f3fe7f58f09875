#include "findings.h"

#include <regex>

namespace jt_docs {
namespace {

// A byte order mark would be invisible on a page.
std::string shown(std::string_view text) {
  return std::regex_replace(std::string(text), std::regex("^\xEF\xBB\xBF"), R"(\xEF\xBB\xBF)");
}

// What Markdown and the reader of these pages would take for marks of their own.
std::string in_markdown(std::string_view text) {
  return std::regex_replace(std::string(text), std::regex(R"([\\<>{}\[\]*_`#])"), R"(\$&)");
}

}  // namespace

std::string write_finding(const sil::FindingPage &page) {
  std::string text = "## " + std::string(page.code) + "\n\n**" + std::string(name_of(page.severity)) +
                     ".** " + in_markdown(page.meaning) + "\n\n";
  if (!page.shows.empty()) text += "```text\n" + shown(page.shows) + "```\n\n";
  return text + "**What to do:** " + in_markdown(page.mend) + "\n\n";
}

std::string write_findings() {
  std::string text;
  for (const sil::FindingPage &page : sil::finding_pages()) text += write_finding(page);
  return text;
}

}  // namespace jt_docs
