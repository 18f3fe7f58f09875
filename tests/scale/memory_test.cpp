// Memory grows in step with what there is to keep: of a template that is 64 times as large, an item takes no
// more than a fifth more. A power of two, so that tables that double are equally full.
#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>

#include "scale/scale.h"

namespace jt_test {
namespace {

constexpr std::size_t kTimes = 64;

std::size_t many_items() { return item_count() / 4; }
std::size_t few_items() { return many_items() / kTimes; }

// A template with many items of one kind.
struct Kind {
  const char *name;
  const char *before;
  std::string (*item)(const std::string &number);
  const char *after;
};

std::ostream &operator<<(std::ostream &out, const Kind &kind) { return out << kind.name; }

std::string text_with(const Kind &kind, std::size_t count) {
  std::string text = kind.before;
  for (std::size_t i = 0; i < count; ++i) text += kind.item(std::to_string(1'000'000 + i));
  return text + kind.after;
}

class Memory : public ScaleTest {
 protected:
  std::size_t bytes_per_item(const Kind &kind, std::size_t count) {
    std::size_t bytes = 0;
    on_a_small_stack([&] {
      const std::string text = text_with(kind, count);
      const std::size_t before = heap_in_use();
      ASSERT_NO_FATAL_FAILURE(decode(text));
      bytes = heap_in_use() - before;
    });
    return bytes / count;
  }
};

class MemoryOf : public Memory, public ::testing::WithParamInterface<Kind> {};

TEST_P(MemoryOf, AnItemDoesNotGrowWithTheNumberOfItems) {
  const std::size_t few = bytes_per_item(GetParam(), few_items());
  const std::size_t many = bytes_per_item(GetParam(), many_items());
  EXPECT_LE(many, few + few / 5) << few;
}

TEST_P(MemoryOf, AllItemsServesTheNextTemplateToo) {
  const std::string text = text_with(GetParam(), few_items());
  on_a_small_stack([&] {
    ASSERT_NO_FATAL_FAILURE(decode(text));
    const std::size_t first = heap_in_use();
    for (int i = 0; i < 10; ++i) {
      destroy();
      ASSERT_NO_FATAL_FAILURE(decode(text));
      EXPECT_LE(heap_in_use(), first + kSlack);
    }
  });
}

INSTANTIATE_TEST_SUITE_P(
    EveryKind, MemoryOf,
    ::testing::Values(
        Kind{"Values", "[ kmt_svc_fax A ] { integer v = 1",
             [](const std::string &number) { return "," + number; }, "; } end"},
        Kind{"LongValues", "[ kmt_svc_fax A ] { string v = 1",
             [](const std::string &number) { return "," + number + std::string(93, 'x'); }, "; } end"},
        Kind{"Attributes", "[ kmt_svc_fax A ] {",
             [](const std::string &number) { return "real a" + number + "=1;"; }, "} end"},
        Kind{"Invocations", "[ kmt_svc_fax A ]",
             [](const std::string &number) { return "i" + number + "{}"; }, "end"},
        Kind{"Services", "", [](const std::string &number) { return "[service s" + number + "]end"; }, ""},
        Kind{"Comments", "# first\n[ service A ]",
             [](const std::string &number) { return "# of " + number + "\n"; }, "end"},
        Kind{"Statuses", "[ kmt_svc_fax A ] {",
             [](const std::string &number) {
               return "real a" + number + "=1;(KMT_STATUS_OVERRIDDEN{was" + number + "})";
             },
             "} end"}),
    [](const auto &kind) { return std::string(kind.param.name); });

TEST_F(Memory, OfAnEncodedTextIsItsLength) {
  on_a_small_stack([&] {
    std::string text;
    for (std::size_t i = 0; i < few_items(); ++i) text += "[service S" + std::to_string(i) + "]\nend\n\n";
    ASSERT_NO_FATAL_FAILURE(decode(text));
    const std::size_t before = heap_in_use();
    const OwnedText written(jt_encode_template(space, job));
    EXPECT_LE(heap_in_use(), before + text.size() + kSlack);
    EXPECT_TRUE(same_text(written.get(), text));
  });
}

}  // namespace
}  // namespace jt_test
