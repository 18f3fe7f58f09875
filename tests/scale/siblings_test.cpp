// A million siblings of every kind: values, attributes, invocations, services, in the body, in a section and
// in the header. They are read, counted, found, deleted, written and destroyed. Where that would take too
// long for what it shows, they are a quarter of a million.
#include <gtest/gtest.h>

#include <string>

#include "scale/scale.h"

namespace jt_test {
namespace {

constexpr char kScanBegin[] = "[kmt_svc_scan Scan]\n {\n";
constexpr char kScanEnd[] = " }\nend\n\n";

std::size_t a_quarter() { return item_count() / 4; }

std::string numbered(const char *prefix, std::size_t number) { return prefix + std::to_string(number); }

// The texts between two others, one for each number.
template <typename Item>
std::string listed(std::size_t count, std::string text, const std::string &end, Item item) {
  for (std::size_t i = 0; i < count; ++i) text += item(i);
  return text + end;
}

// Values as they are written behind "v = ": a line that is longer than 70 columns is folded before the next.
template <typename Item>
std::string values_written(std::size_t count, const std::string &type, Item item) {
  std::string line = "      " + type + " v = ";
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) line += ", ";
    if (line.size() > 70) {
      text += line + '\n';
      line.assign(25, ' ');
    }
    line += item(i);
  }
  return kScanBegin + text + line + ";\n" + kScanEnd;
}

class Siblings : public ScaleTest {
 protected:
  // How many texts a walk gives, and whether they are the expected ones.
  template <typename First, typename Next, typename Item>
  void expect_walk(First first, Next next, Item item) {
    std::size_t count = 0;
    for (char *text = first(); text != nullptr; text = next(), ++count)
      ASSERT_EQ(take_text(text), item(count)) << "at " << count;
    EXPECT_EQ(count, item_count());
  }
  template <typename Item>
  void expect_values(Item item) {
    expect_walk([&] { return jt_get_first_attribute_value_string(space, job, "Scan", "v"); },
                [&] { return jt_get_next_attribute_value_string(space, job, "Scan", "v"); }, item);
  }
  int32_t delete_value(const std::string &text) {
    return jt_delete_attribute_value_string(space, job, "Scan", "v", text.c_str());
  }
};

TEST_F(Siblings, ValuesOfAnInteger) {
  on_a_small_stack([&] {
    const auto item = [](std::size_t i) { return std::to_string(i); };
    const std::string text = values_written(item_count(), "integer", item);
    ASSERT_NO_FATAL_FAILURE(decode(text));
    expect_values(item);
    EXPECT_TRUE(is_written_as(text));
    EXPECT_EQ(delete_value(std::to_string(item_count() - 1)), 1);
    EXPECT_EQ(delete_value(std::to_string(item_count() - 1)), 0);
    EXPECT_EQ(delete_value("0"), 1);
    EXPECT_EQ(take_text(jt_get_first_attribute_value_string(space, job, "Scan", "v")), "1");
    destroy();
  });
}

TEST_F(Siblings, ValuesThatAreAllDeletedByTheirText) {
  on_a_small_stack([&] {
    const auto item = [](std::size_t i) { return "\"v" + std::to_string(i) + '"'; };
    ASSERT_NO_FATAL_FAILURE(decode(values_written(a_quarter(), "string", item)));
    for (std::size_t i = 0; i < a_quarter(); ++i) ASSERT_EQ(delete_value(numbered("V", i)), 1) << i;
    EXPECT_TRUE(is_written_as("[kmt_svc_scan Scan]\n {\n      string v = ;\n }\nend\n\n"));
  });
}

TEST_F(Siblings, ValuesThatAreAllEqual) {
  on_a_small_stack([&] {
    const auto item = [](std::size_t) { return std::string("\"same\""); };
    const std::string text = values_written(item_count(), "string", item);
    ASSERT_NO_FATAL_FAILURE(decode(text));
    EXPECT_TRUE(is_written_as(text));
    for (std::size_t i = 0; i < item_count(); ++i) ASSERT_EQ(delete_value("SAME"), 1) << i;
    EXPECT_EQ(delete_value("same"), 0);
  });
}

TEST_F(Siblings, ValuesThatAreReplacedByOne) {
  on_a_small_stack([&] {
    const auto item = [](std::size_t) { return std::string("TRUE"); };
    ASSERT_NO_FATAL_FAILURE(decode(values_written(a_quarter(), "boolean", item)));
    EXPECT_EQ(jt_set_attribute_value_string(space, job, "Scan", "v", "false"), 1);
    EXPECT_TRUE(is_written_as("[kmt_svc_scan Scan]\n {\n      boolean v = FALSE;\n }\nend\n\n"));
  });
}

TEST_F(Siblings, Attributes) {
  on_a_small_stack([&] {
    const auto name = [](std::size_t i) { return numbered("Name", i); };
    const auto line = [&](std::size_t i) { return "      integer " + name(i) + " = 7;\n"; };
    const std::string text = listed(item_count(), kScanBegin, kScanEnd, line);
    ASSERT_NO_FATAL_FAILURE(decode(text));
    expect_walk([&] { return jt_get_first_attribute_name(space, job, "Scan"); },
                [&] { return jt_get_next_attribute_name(space, job, "Scan"); }, name);
    EXPECT_TRUE(is_written_as(text));
    destroy();
  });
}

TEST_F(Siblings, AttributesThatAreAllDeleted) {
  on_a_small_stack([&] {
    const auto line = [](std::size_t i) { return "integer " + numbered("Name", i) + ";"; };
    ASSERT_NO_FATAL_FAILURE(decode(listed(a_quarter(), "[ kmt_svc_scan Scan ] {", "} end", line)));
    for (std::size_t i = 0; i < a_quarter(); ++i)
      ASSERT_EQ(jt_delete_attribute(space, job, "Scan", numbered("nAME", i).c_str()), 1) << i;
    EXPECT_TRUE(is_written_as("[kmt_svc_scan Scan]\n {\n }\nend\n\n"));
  });
}

TEST_F(Siblings, AttributesTheLastOfWhichHasTheNameOfTheFirst) {
  on_a_small_stack([&] {
    const auto line = [](std::size_t i) { return "integer " + numbered("Name", i) + ";"; };
    const std::string text = listed(a_quarter(), "[ kmt_svc_scan Scan ] {", "integer NAME0; } end", line);
    EXPECT_EQ(jt_decode_template(space, text.c_str()), 0);
    EXPECT_STREQ(jt_get_recent_error(space),
                 "SYNTAX ERROR: Trying to save multiple definitions for:NAME0 ...");
    EXPECT_EQ(jt_create_template(space), -100) << "every slot is free again";
  });
}

TEST_F(Siblings, Invocations) {
  on_a_small_stack([&] {
    const auto lines = [](std::size_t i) { return ' ' + numbered("Run", i) + "{\n }\n"; };
    const std::string text = listed(a_quarter(), "[kmt_svc_scan Scan]\n", "end\n\n", lines);
    ASSERT_NO_FATAL_FAILURE(decode(text));
    std::size_t count = 0;
    for (int32_t more = jt_first_invocation(space, job, "Scan"); more != 0; ++count) {
      ASSERT_EQ(take_text(jt_get_invocation_name(space, job, "Scan")), numbered("Run", count));
      more = jt_next_invocation(space, job, "Scan");
    }
    EXPECT_EQ(count, a_quarter());
    EXPECT_TRUE(is_written_as(text));
    const std::string last = std::to_string(a_quarter());
    EXPECT_EQ(jt_named_invocation(space, job, "Scan", last.c_str()), 1);
    EXPECT_EQ(take_text(jt_get_invocation_name(space, job, "Scan")), numbered("Run", a_quarter() - 1));
    EXPECT_EQ(jt_named_invocation(space, job, "Scan", "RUN0"), 1);
    destroy();
  });
}

TEST_F(Siblings, InvocationsThatAreAllDeleted) {
  on_a_small_stack([&] {
    const auto lines = [](std::size_t) { return "{}"; };
    ASSERT_NO_FATAL_FAILURE(decode(listed(a_quarter(), "[ kmt_svc_scan Scan ]", "end", lines)));
    for (std::size_t i = 0; i < a_quarter(); ++i) ASSERT_EQ(jt_delete_invocation(space, job, "Scan"), 1);
    EXPECT_EQ(jt_delete_invocation(space, job, "Scan"), 0);
    EXPECT_TRUE(is_written_as("[kmt_svc_scan Scan]\nend\n\n"));
  });
}

TEST_F(Siblings, Services) {
  on_a_small_stack([&] {
    const auto name = [](std::size_t i) { return numbered("Service", i); };
    const auto lines = [&](std::size_t i) { return "[kmt_svc_fax " + name(i) + "]\nend\n\n"; };
    const std::string text = listed(item_count(), "", "", lines);
    ASSERT_NO_FATAL_FAILURE(decode(text));
    expect_walk([&] { return jt_get_first_service_name(space, job); },
                [&] { return jt_get_next_service_name(space, job); }, name);
    EXPECT_TRUE(is_written_as(text));
    destroy();
  });
}

TEST_F(Siblings, ServicesThatAreAllDeletedTheLastOneFirst) {
  on_a_small_stack([&] {
    const auto service = [](std::size_t i) { return "[ service " + numbered("S", i) + " ] end "; };
    ASSERT_NO_FATAL_FAILURE(decode(listed(a_quarter(), "", "", service)));
    for (std::size_t i = a_quarter(); i-- > 0;)
      ASSERT_EQ(jt_delete_service(space, job, numbered("s", i).c_str()), 1) << i;
    EXPECT_TRUE(is_written_as(""));
  });
}

TEST_F(Siblings, ServicesOfASection) {
  on_a_small_stack([&] {
    const auto lines = [](std::size_t i) { return "[service " + numbered("S", i) + "]\nend\n\n"; };
    const std::string text =
        listed(a_quarter(), "\n<! SIL 4.2.00 ASCII id >\n\n\n< ! >\n", "< /! >\n\n\n< /SIL >\n", lines);
    ASSERT_NO_FATAL_FAILURE(decode(text));
    EXPECT_EQ(count_children(root()), 0U);
    EXPECT_EQ(count_children(root()->next_sibling), a_quarter());
    EXPECT_TRUE(is_written_as(text));
    destroy();
  });
}

TEST_F(Siblings, AttributesOfTheHeader) {
  on_a_small_stack([&] {
    const auto line = [](std::size_t i) { return "integer " + numbered("Name", i) + " = 7;\n"; };
    const std::string text = listed(item_count(), "\n< SIL 4.2.00 ASCII id >\n\n", "\n< /SIL >\n", line);
    ASSERT_NO_FATAL_FAILURE(decode(text));
    EXPECT_EQ(count_children(root()->previous_sibling), item_count());
    EXPECT_NE(get_child(space, root()->previous_sibling, "NAME0"), nullptr);
    EXPECT_TRUE(is_written_as(text));
    destroy();
  });
}

TEST_F(Siblings, AttributesWithStatuses) {
  on_a_small_stack([&] {
    const auto line = [](std::size_t i) {
      return "    * string " + numbered("a", i) + " = \"x\";(KMT_STATUS_OVERRIDDEN{" + numbered("was", i) +
             "})\n";
    };
    const std::string text = listed(a_quarter(), kScanBegin, kScanEnd, line);
    ASSERT_NO_FATAL_FAILURE(decode(text));
    EXPECT_TRUE(is_written_as(text));
    destroy();
  });
}

TEST_F(Siblings, TextsOfStatusesThatHaveNoNumber) {
  on_a_small_stack([&] {
    const auto lines = [](std::size_t i) {
      return "[service " + numbered("S", i) + "]\nend(" + numbered("Late", i) + ")\n\n";
    };
    const std::string text = listed(a_quarter(), "", "", lines);
    job = jt_decode_template(space, text.c_str());
    EXPECT_EQ(jt_last_api_error(space), JT_WARNING);
    ASSERT_NE(job, 0);
    OwnedText written(jt_encode_template(space, job));
    EXPECT_TRUE(same_text(written.get(), text));
    destroy();
  });
}

TEST_F(Siblings, TemplatesOfOneSession) {
  on_a_small_stack([&] {
    for (std::size_t i = 0; i < item_count(); ++i)
      ASSERT_EQ(jt_create_template(space), -100 - static_cast<int32_t>(i));
    EXPECT_EQ(jt_destroy_template(space, -100), 1);
    EXPECT_EQ(jt_destroy_template(space, -99 - static_cast<int32_t>(item_count())), 1);
    EXPECT_EQ(jt_create_template(space), -100) << "the lowest free slot comes first";
  });
}

}  // namespace
}  // namespace jt_test
