// A session that comes to keep a block of every kind: what has no room in a node's cell, what grows, what is
// replaced. Each step may fail, and the next ones go on.
#ifndef JT_TESTS_SUPPORT_BUSY_SESSION_H
#define JT_TESTS_SUPPORT_BUSY_SESSION_H

#include <array>
#include <string>

#include "jt.h"

namespace jt_test {

// Comments, values and texts that are longer than a cell, statuses that no list has, and enough attributes and
// equal values for indexes.
inline std::string busy_text() {
  const std::string length(1000, 'l');
  std::string text =
      "# one\n# two\n< SIL 4.2.00 ASCII " + length + " >\n# three\n[ kmt_svc_scan Scan ] # four\n{";
  for (int i = 0; i < 30; ++i) text += "# five\n* integer A" + std::to_string(i) + " = 1;";
  text +=
      "* string Long = \"" + length + "\"; * enum_sided Odd = \"" + length + "\"; (NO_SUCH{" + length + "})";
  text += "* integer Equal = 1";
  for (int i = 0; i < 30; ++i) text += ", 1, " + std::to_string(i);
  text += "; * ref_collection Ref = \"" + length.substr(500) + ":" + length.substr(501) + "\";";
  text += "} (NO_SUCH{why}) { } end (NO_SUCH)\n< /SIL >\n";
  return text;
}

class BusySession {
 public:
  explicit BusySession(jt_parser_space *opened) : space(opened) {}

  void decode() { job = jt_decode_template(space, busy_text().c_str()); }

  void change() {
    const std::string length(2000, 'n');
    const std::array<uint32_t, 2> number = {999, 0};
    const auto *const status = reinterpret_cast<const jt_status *>(number.data());
    for (int round = 0; round < 2; ++round) {
      jt_force_invocation_name(space, job, "Scan", (length + std::to_string(round)).c_str());
      override_text("string", "Long", round == 0 ? std::string(1000, 'l') : length, length);
      override_text("integer", "Equal", "1", "77");
      jt_set_service_status(space, job, "Scan", status);
      jt_set_attribute_status(space, job, "Scan", "A1", status);
      jt_add_attribute(space, job, "Scan", (length + "s").c_str(), (length + std::to_string(round)).c_str());
      jt_add_attribute(space, job, "Scan", "nosuch", "Unknown");
      jt_add_attribute_value_string(space, job, "Scan", "Unknown", length.c_str());
      jt_set_attribute_value_string(space, job, "Scan", "Odd", length.c_str());
      jt_delete_attribute_value_string(space, job, "Scan", "Equal", "7");
      jt_exists_attribute(space, job, "Scan", "Nowhere");
    }
    jt_delete_attribute(space, job, "Scan", "A7");
    jt_add_service(space, job, "service", length.c_str());
  }

  // "" for want of memory.
  std::string encode() {
    char *const text = jt_encode_template(space, job);
    const std::string copy = text != nullptr ? text : "";
    er_free(text);
    return copy;
  }

  jt_parser_space *space;
  int32_t job = 0;

 private:
  void override_text(const char *type, const char *attribute, const std::string &from,
                     const std::string &to) {
    jt_value *const old_value = jt_decode_value(space, type, from.c_str(), nullptr);
    jt_value *const new_value = jt_decode_value(space, type, to.c_str(), nullptr);
    jt_override_attribute_value(space, job, "Scan", attribute, old_value, new_value);
    er_free(old_value);
    er_free(new_value);
  }
};

}  // namespace jt_test

#endif
