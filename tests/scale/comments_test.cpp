// A million lines of comment in every place that keeps comments. They become one comment of the node that
// they belong to, and are written with it.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "scale/scale.h"

namespace jt_test {
namespace {

// A template that is written as it stands here, but for the comment: that stands between the two texts, each
// of its lines indented so far.
struct Place {
  const char *name;
  const char *before;
  std::size_t indent;
  const char *after;
};

std::ostream &operator<<(std::ostream &out, const Place &place) { return out << place.name; }

class Comments : public ScaleTest {
 protected:
  static std::string lines(std::size_t indent) {
    const std::string line = std::string(indent, ' ') + "# a line\n";
    std::string text;
    for (std::size_t i = 0; i < item_count(); ++i) text += line;
    return text;
  }
};

class CommentsAt : public Comments, public ::testing::WithParamInterface<Place> {};

TEST_P(CommentsAt, OfAMillionLinesAreKeptAndWritten) {
  const Place &place = GetParam();
  on_a_small_stack([&] {
    const std::string text = place.before + lines(place.indent) + place.after;
    ASSERT_NO_FATAL_FAILURE(decode(text));
    EXPECT_TRUE(is_written_as(text));
    destroy();
  });
}

INSTANTIATE_TEST_SUITE_P(
    EveryPlace, CommentsAt,
    ::testing::Values(
        Place{"AtTheRoot", "", 0, "[service A]\nend\n\n"}, Place{"InAService", "[service A]\n", 1, "end\n\n"},
        Place{"InAnInvocation", "[kmt_svc_fax A]\n {\n", 6, " }\nend\n\n"},
        Place{"InAnAttribute", "[kmt_svc_fax A]\n {\n      integer a =        # first\n", 25,
              "                         1, 2;\n }\nend\n\n"},
        Place{"InTheHeader", "", 0, "\n< SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n"},
        Place{"InAnAttributeOfTheHeader", "\n< SIL 4.2.00 ASCII id >\n\ninteger a =              # first\n",
              25, "                         1;\n\n< /SIL >\n"},
        Place{"InASection", "\n<? SIL 4.2.00 ASCII id >\n\n\n< ? >\n", 0, "< /? >\n\n\n< /SIL >\n"}),
    [](const auto &place) { return std::string(place.param.name); });

TEST_F(Comments, BehindEachOfManyServicesBelongToTheRoot) {
  on_a_small_stack([&] {
    std::string text;
    std::string comment;
    std::string services;
    for (std::size_t i = 0; i < item_count() / 4; ++i) {
      const std::string service = "[service S" + std::to_string(i) + "]\nend\n\n";
      comment += "# a line\n";
      services += service;
      text += service + "# a line\n";
    }
    ASSERT_NO_FATAL_FAILURE(decode(text));
    EXPECT_TRUE(is_written_as(comment + services));
    destroy();
  });
}

TEST_F(Comments, OfManyNodesStayWithThem) {
  on_a_small_stack([&] {
    std::string text;
    for (std::size_t i = 0; i < item_count() / 4; ++i) {
      const std::string number = std::to_string(i);
      text += "[service S" + number + "]\n # of " + number + "\nend\n\n";
    }
    ASSERT_NO_FATAL_FAILURE(decode(text));
    EXPECT_TRUE(is_written_as(text));
    destroy();
  });
}

TEST_F(Comments, AddedPieceByPiece) {
  on_a_small_stack([&] {
    job = jt_create_template(space);
    for (std::size_t i = 0; i < item_count(); ++i) ASSERT_EQ(add_comment(space, root(), "# a line\n"), 1);
    EXPECT_TRUE(is_written_as(lines(0)));
  });
}

}  // namespace
}  // namespace jt_test
