// Texts of SIL by chance, the same ones in every run: whole templates, and templates whose tokens stand apart by
// blanks, line ends and comments of every kind.
#ifndef JT_TESTS_SIL_COMMAND_GENERATOR_H
#define JT_TESTS_SIL_COMMAND_GENERATOR_H

#include <random>
#include <string>
#include <vector>

#include "core/document.h"

namespace sil {

class Generator {
 public:
  explicit Generator(unsigned seed) : engine_(seed) {}

  std::size_t below(std::size_t count) { return engine_() % count; }

  /// A template that decodes without a loss, on one line.
  std::string job() {
    const bool has_header = below(4) != 0;
    std::string text = has_header ? "< SIL 4.2.00 ASCII job" + number() + " > " : "";
    for (std::size_t i = has_header ? below(3) : 0; i > 0; --i) text += attribute("Header" + number());
    for (std::size_t i = 1 + below(3); i > 0; --i) text += service();
    return text + (has_header ? "< /SIL >" : "");
  }

  /// The same tokens with other blanks, and with comments among them.
  std::string scattered(const std::string &text) {
    const Document document = read_document(text);
    std::string result = gap(true);
    for (const SourceToken &token : document.tokens) {
      result += document.piece(token);
      result += token.is_comment() ? "\n" + gap(true) : gap(false);
    }
    return result;
  }

 private:
  std::string number() { return std::to_string(next_++); }

  std::string one_of(const std::vector<std::string> &texts) { return texts[below(texts.size())]; }

  std::string service() {
    std::string text =
        "[" + one_of({"kmt_svc_scan", "kmt_svc_print", "kmt_document"}) + " Service" + number() + "] ";
    for (std::size_t i = below(4); i > 0; --i) text += invocation();
    return text + "end" + status() + " ";
  }

  std::string invocation() {
    std::string text = below(2) == 0 ? "{ " : "Invocation" + number() + " { ";
    for (std::size_t i = below(5); i > 0; --i) text += attribute("Attribute" + number());
    return text + "}" + status() + " ";
  }

  std::string attribute(const std::string &name) {
    std::string text = below(3) == 0 ? "* " : "";
    const bool is_number = below(2) == 0;
    text += (is_number ? "integer " : "string ") + name;
    const std::size_t count = below(6);
    if (count > 0) text += " = ";
    for (std::size_t i = 1; i < count; ++i) text += (i > 1 ? ", " : "") + value(is_number);
    return text + ";" + status() + " ";
  }

  std::string value(bool is_number) {
    if (is_number) return std::to_string(below(100000));
    return one_of({"word", "\"two words\"", "\"# none\"", "a\\ b", "\"\"", "\"{;}\"", "\"two\nlines\"",
                   "\"a text that is long enough to bring the next one behind the last column\""});
  }

  std::string status() {
    return one_of({"", "", "(KMT_STATUS_COMPLETED)", "()", "(KMT_STATUS_ABORTED{early})",
                   "(KMT_STATUS_ERROR{\"a b\"})"});
  }

  std::string gap(bool is_at_begin) {
    std::string text = one_of({" ", "\n", "\n\n", "\n\n\n", " \t ", "\r\n", "\r", "\r\n\r\n", "\f"});
    if (below(6) == 0) text += "# " + number() + one_of({"\n", "\r\n", " \n\n", "\f"});
    if (!is_at_begin && below(9) == 0) text = "# " + number() + "\n" + text;
    return text;
  }

  std::mt19937 engine_;
  std::size_t next_ = 1;
};

}  // namespace sil

#endif
