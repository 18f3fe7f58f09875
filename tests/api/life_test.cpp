// A job from its first text to the record of how it went: decoded, marked, overridden, given statuses on all
// levels, written, read again; and once more on a device that sends it on.
#include <gtest/gtest.h>

#include <string>

#include "support/job.h"

namespace jt_test {
namespace {

constexpr char kOrder[] =
    "< SIL 4.2.00 ASCII job-17 >\n"
    "string Owner = \"Front desk\";\n"
    "[ kmt_svc_scan MyScan ]\n"
    "# what is scanned\n"
    "first {\n"
    "  enum_colormode Color = GRAYSCALE;\n"
    "  integer Pages = 1, 2, 3;\n"
    "  struct_gutter Gutter = 5/6/MM;\n"
    "}\n"
    "second { string Note = \"a note\"; }\n"
    "end\n"
    "[ kmt_svc_fax MyFax ] { enum_type Priority = normal; } end\n"
    "< /SIL >\n";

constexpr char kRecord[] =
    "\n< SIL 4.2.00 ASCII job-17 >\n\n"
    "string Owner = \"Front desk\";\n"
    "[kmt_svc_scan MyScan]\n"
    " # what is scanned\n"
    " first{\n"
    "    * enum_colormode Color = BLACK_AND_WHITE;(KMT_STATUS_OVERRIDDEN{GRAYSCALE})\n"
    "    * integer Pages = 9, 8, 3;(KMT_STATUS_OVERRIDDEN{2})\n"
    "      struct_gutter Gutter = 5/6/MM;(KMT_STATUS_IGNORED)\n"
    " }(KMT_STATUS_COMPLETED)\n"
    " second{\n"
    "      string Note = \"a note\";\n"
    " }(KMT_STATUS_ABORTED)\n"
    "end(KMT_STATUS_WARNING)\n"
    "\n"
    "[kmt_svc_fax MyFax]\n"
    " {\n"
    "      enum_type Priority = NORMAL;\n"
    " }\n"
    "end\n"
    "\n"
    "\n< /SIL >\n";

// All that the calls tell about the record.
constexpr char kOutline[] =
    "kmt_svc_scan MyScan (KMT_STATUS_WARNING)\n"
    "  first (KMT_STATUS_COMPLETED)\n"
    "    * enum_colormode Color: BLACK_AND_WHITE (KMT_STATUS_OVERRIDDEN)\n"
    "    * integer Pages: 9 8 3 (KMT_STATUS_OVERRIDDEN)\n"
    "    struct_gutter Gutter: 5/6/MM (KMT_STATUS_IGNORED)\n"
    "  second (KMT_STATUS_ABORTED)\n"
    "    string Note: a note\n"
    "kmt_svc_fax MyFax\n"
    "  (none)\n"
    "    enum_type Priority: NORMAL\n";

class Life : public JobTest {
 protected:
  void override_with(const char *service, const char *attribute, const char *type, const char *old_text,
                     const char *new_text) {
    const ClientOwned old_value = value_of(type, old_text);
    const ClientOwned new_value = value_of(type, new_text);
    EXPECT_EQ(jt_override_attribute_value(space, job, service, attribute, old_value.get(), new_value.get()),
              1)
        << attribute;
  }

  // What the device does with the order.
  void work() {
    for (const char *const name : {"Color", "Pages"}) {
      ASSERT_EQ(jt_set_attribute_non_compulsory(space, job, "MyScan", name), 1);
    }
    override_with("MyScan", "Color", "enum_colormode", "grayscale", "BLACK_AND_WHITE");
    override_with("MyScan", "Pages", "integer", "1", "9");
    override_with("MyScan", "Pages", "integer", "2", "8");
    ASSERT_EQ(jt_set_attribute_status(space, job, "MyScan", "Gutter", as_status(7U)), 1);
    ASSERT_EQ(jt_set_invocation_status(space, job, "MyScan", as_status(5U)), 1);
    ASSERT_EQ(jt_named_invocation(space, job, "MyScan", "second"), 1);
    ASSERT_EQ(jt_set_invocation_status(space, job, "MyScan", as_status(1U)), 1);
    ASSERT_EQ(jt_set_service_status(space, job, "MyScan", as_status(19U)), 1);
  }

  // The template as a client sees it that only walks and asks.
  std::string outline() {
    std::string out;
    for (const std::string &service : service_names()) add_service(service.c_str(), out);
    return out;
  }

 private:
  std::string status_text(jt_status *status) {
    if (status == nullptr) return "\n";
    const std::string name = take_text(get_status_string(space, status));
    EXPECT_EQ(jt_destroy_status(space, status), 1);
    return " (" + name + ")\n";
  }
  void add_service(const char *service, std::string &out) {
    out += take_text(jt_get_service_type(space, job, service)) + " " + service;
    out += status_text(jt_get_service_status(space, job, service));
    for (auto more = jt_first_invocation(space, job, service); more != 0;
         more = jt_next_invocation(space, job, service)) {
      out += "  " + take_text(jt_get_invocation_name(space, job, service));
      out += status_text(jt_get_invocation_status(space, job, service));
      add_attributes(service, out);
    }
    jt_first_invocation(space, job, service);
  }
  void add_attributes(const char *service, std::string &out) {
    for (std::string name = take_text(jt_get_first_attribute_name(space, job, service)); name != "(none)";
         name = take_text(jt_get_next_attribute_name(space, job, service))) {
      const bool starred = jt_is_attribute_non_compulsory(space, job, service, name.c_str()) != 0;
      out += starred ? "    * " : "    ";
      out += take_text(jt_get_attribute_type_name(space, job, service, name.c_str())) + " " + name + ":";
      add_values(service, name.c_str(), out);
      out += status_text(jt_get_attribute_status(space, job, service, name.c_str()));
    }
  }
  void add_values(const char *service, const char *attribute, std::string &out) {
    for (char *text = jt_get_first_attribute_value_string(space, job, service, attribute); text != nullptr;
         text = jt_get_next_attribute_value_string(space, job, service, attribute)) {
      out += " " + take_text(text);
    }
  }
};

TEST_F(Life, AnOrderBecomesARecord) {
  decode(kOrder);
  work();
  EXPECT_TRUE(quiet());
  EXPECT_EQ(encoded(), kRecord);
  EXPECT_EQ(outline(), kOutline);
}

TEST_F(Life, ARecordIsReadBackAsItWas) {
  decode(kRecord);
  EXPECT_EQ(outline(), kOutline);
  EXPECT_EQ(encoded(), kRecord);
}

TEST_F(Life, ARecordOutlivesTheSessionThatWroteIt) {
  decode(kOrder);
  work();
  const std::string record = encoded();
  reopen();
  decode(record);
  EXPECT_EQ(outline(), kOutline);
  EXPECT_EQ(encoded(), record);
}

TEST_F(Life, AnotherDeviceGoesOnWithTheRecord) {
  decode(kRecord);
  override_with("MyScan", "Pages", "integer", "3", "7");
  ASSERT_EQ(jt_set_attribute_compulsory(space, job, "MyScan", "Color"), 1);
  ASSERT_EQ(jt_set_attribute_status(space, job, "MyScan", "Color", as_status(18U)), 1);
  ASSERT_EQ(jt_delete_attribute(space, job, "MyScan", "Gutter"), 1);
  ASSERT_EQ(jt_delete_service(space, job, "MyFax"), 1);
  ASSERT_EQ(jt_named_invocation(space, job, "MyScan", "2"), 1);
  ASSERT_EQ(jt_delete_invocation(space, job, "MyScan"), 1);
  ASSERT_EQ(jt_set_invocation_status(space, job, "MyScan", as_status(18U)), 1);
  ASSERT_EQ(jt_set_service_status(space, job, "MyScan", as_status(5U)), 1);
  EXPECT_EQ(encoded(),
            "\n< SIL 4.2.00 ASCII job-17 >\n\n"
            "string Owner = \"Front desk\";\n"
            "[kmt_svc_scan MyScan]\n"
            " # what is scanned\n"
            " first{\n"
            "      enum_colormode Color = BLACK_AND_WHITE;(KMT_STATUS_ERROR{GRAYSCALE})\n"
            "    * integer Pages = 9, 8, 7;(KMT_STATUS_OVERRIDDEN{3})\n"
            " }(KMT_STATUS_ERROR)\n"
            "end(KMT_STATUS_COMPLETED)\n"
            "\n"
            "\n< /SIL >\n");
}

// An order that is put together by calls alone is the order that a text would have given.
TEST_F(Life, AnOrderMayBeMadeWithoutAText) {
  job = jt_create_template(space);
  ASSERT_EQ(jt_add_service(space, job, "kmt_svc_scan", "Scan"), 1);
  ASSERT_EQ(jt_add_invocation(space, job, "Scan"), 1);
  ASSERT_EQ(jt_set_invocation_name(space, job, "Scan", "only"), 1);
  ASSERT_EQ(add_attribute("enum_colormode", "Color") + add_text("Color", "grayscale"), 2);
  ASSERT_EQ(add_attribute("string", "Note") + add_text("Note", "a \"b\"") + add_text("Note", ""), 3);
  ASSERT_EQ(jt_set_attribute_non_compulsory(space, job, "Scan", "Note"), 1);
  EXPECT_TRUE(quiet());
  const std::string order =
      "[kmt_svc_scan Scan]\n"
      " only{\n"
      "      enum_colormode Color = GRAYSCALE;\n"
      "    * string Note = \"a \\\"b\\\"\", \"\";\n"
      " }\n"
      "end\n\n";
  EXPECT_EQ(encoded(), order);
  const std::string made = outline();
  decode(order);
  EXPECT_EQ(outline(), made);
  EXPECT_EQ(encoded(), order);
}

TEST_F(Life, NothingIsLeftOfAJobThatWasDestroyed) {
  decode(kOrder);
  work();
  ASSERT_EQ(jt_destroy_template(space, job), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(live_nodes(space), 0);
}

}  // namespace
}  // namespace jt_test
