// A session with one template, for tests of the calls that read and change it: short names for the calls on
// the service "Scan", the texts and names that a walk gives, and the reports since the last look.
#ifndef JT_TESTS_SUPPORT_JOB_H
#define JT_TESTS_SUPPORT_JOB_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "jt.h"
#include "support/session.h"

namespace jt_test {

using Texts = std::vector<std::string>;

struct DestroyValue {
  jt_parser_space *space;
  std::string type;
  std::string service;
  void operator()(jt_value *value) const { jt_destroy_value(space, type.c_str(), value, service.c_str()); }
};

// A typed value that the client owns; released when it goes out of scope.
using ClientOwned = std::unique_ptr<jt_value, DestroyValue>;

// A value of numbers that no type has made.
template <std::size_t kFields>
const jt_value *as_value(const int32_t (&fields)[kFields]) {
  return reinterpret_cast<const jt_value *>(fields);
}
inline const jt_value *as_value(const uint32_t &number) {
  return reinterpret_cast<const jt_value *>(&number);
}
inline const jt_status *as_status(const uint32_t &number) {
  return reinterpret_cast<const jt_status *>(&number);
}

// What a template with this one service and these attributes is written as.
inline std::string scan_with(const std::string &attributes) {
  return "[kmt_svc_scan Scan]\n {\n" + attributes + " }\nend\n\n";
}

class JobTest : public SessionTest {
 protected:
  JobTest() { forget(); }

  // Only what is recorded from here on is seen by reports(). At most four reports, for the history is short.
  void forget() { jt_error(space, "here the test looks again", ""); }

  // Whether the call before left this status, and recorded just this since the last look.
  ::testing::AssertionResult reports(int32_t expected_status, const Messages &expected) {
    const int32_t found_status = status();
    Messages found = messages();
    const auto mark = std::find(found.rbegin(), found.rend(), "here the test looks again ...");
    found.erase(found.begin(), mark.base());
    forget();
    if (found_status == expected_status && found == expected) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "status " << found_status << ", recorded " << ::testing::PrintToString(found);
  }
  ::testing::AssertionResult quiet() { return reports(JT_OK, {}); }

  void decode(const std::string &text) {
    job = jt_decode_template(space, text.c_str());
    ASSERT_NE(job, 0) << ::testing::PrintToString(messages());
    forget();
  }
  void decode_scan(const std::string &attributes) {
    decode("[ kmt_svc_scan Scan ] { " + attributes + " } end");
  }
  std::string encoded() { return SessionTest::encoded(job); }

  Texts service_names() {
    return walk([&] { return jt_get_first_service_name(space, job); },
                [&] { return jt_get_next_service_name(space, job); });
  }
  Texts attribute_names() {
    return walk([&] { return jt_get_first_attribute_name(space, job, "Scan"); },
                [&] { return jt_get_next_attribute_name(space, job, "Scan"); });
  }
  Texts values(const char *attribute) {
    return walk([&] { return jt_get_first_attribute_value_string(space, job, "Scan", attribute); },
                [&] { return jt_get_next_attribute_value_string(space, job, "Scan", attribute); });
  }

  int32_t add_attribute(const char *type, const char *name) {
    return jt_add_attribute(space, job, "Scan", type, name);
  }
  int32_t delete_attribute(const char *name) { return jt_delete_attribute(space, job, "Scan", name); }
  int32_t add_text(const char *name, const char *text) {
    return jt_add_attribute_value_string(space, job, "Scan", name, text);
  }
  int32_t set_text(const char *name, const char *text) {
    return jt_set_attribute_value_string(space, job, "Scan", name, text);
  }
  int32_t delete_text(const char *name, const char *text) {
    return jt_delete_attribute_value_string(space, job, "Scan", name, text);
  }
  int32_t add_value(const char *name, const jt_value *value) {
    return jt_add_attribute_value(space, job, "Scan", name, value);
  }
  int32_t set_value(const char *name, const jt_value *value) {
    return jt_set_attribute_value(space, job, "Scan", name, value);
  }
  int32_t delete_value(const char *name, const jt_value *value) {
    return jt_delete_attribute_value(space, job, "Scan", name, value);
  }
  int32_t override_value(const char *name, const jt_value *old_value, const jt_value *new_value) {
    return jt_override_attribute_value(space, job, "Scan", name, old_value, new_value);
  }

  // A value of a type of the scan service or of a base type.
  ClientOwned value_of(const char *type, const char *text) {
    return ClientOwned(jt_decode_value(space, type, text, "kmt_svc_scan"),
                       DestroyValue{space, type, "kmt_svc_scan"});
  }

  std::string first_text(const char *name) {
    return take_text(jt_get_first_attribute_value_string(space, job, "Scan", name));
  }
  std::string next_text(const char *name) {
    return take_text(jt_get_next_attribute_value_string(space, job, "Scan", name));
  }

  int32_t job = 0;

 private:
  template <typename First, typename Next>
  static Texts walk(First first, Next next) {
    Texts texts;
    for (char *text = first(); text != nullptr; text = next()) texts.push_back(take_text(text));
    return texts;
  }
};

}  // namespace jt_test

#endif
