// Changing elements through jt.hpp: each member does what its call in jt.h does, fails with its messages, refuses a NUL
// inside, and fails on what is no element any more.
#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

using jt::Category;
using jt::Element;
using jt::ElementKind;

constexpr const char *kText =
    "[ kmt_svc_scan Scanner ] first { * integer Pages = 1, 2; string Note; } end [ service Own ] { } end";

const Words kWrongKind = {"CALL ERROR: not for this kind of element ..."};
const Words kNotAHandle = {"CALL ERROR: not a valid handle ...", "SYSTEM ERROR: unknown opaque marker ..."};

class ChangesInCpp : public CppTest {
 protected:
  ChangesInCpp() : job(decoded(kText)), root(job.root()) {}

  Element scanner() const { return root.find("Scanner"); }
  Element pages() const { return scanner().find("first").find("Pages"); }
  std::string written() const { return job.encode().value().str(); }

  jt::Template job;
  Element root;
};

TEST_F(ChangesInCpp, AreMadeWhereTheElementIs) {
  EXPECT_TRUE(scanner().set_comment("# about it\n"));
  EXPECT_TRUE(pages().set_non_compulsory(false));
  EXPECT_TRUE(pages().set_status("KMT_STATUS_OVERRIDDEN"));
  EXPECT_TRUE(pages().set_status_text(std::string("7")));
  EXPECT_TRUE(pages().first_child().set_value_text("3"));
  EXPECT_EQ(*pages().add_value_text("4").value().value_text(), "4");
  EXPECT_TRUE(scanner().find("first").find("Note").remove());
  EXPECT_TRUE(pages().set_name("Sheets"));
  EXPECT_TRUE(root.find("Own").remove());
  EXPECT_EQ(written(),
            "[kmt_svc_scan Scanner]\n # about it\n first{\n      integer Sheets = 3, 2, "
            "4;(KMT_STATUS_OVERRIDDEN{7})\n"
            " }\nend\n\n");
}

TEST_F(ChangesInCpp, TakeAwayWithNull) {
  const std::string before = written();
  EXPECT_TRUE(pages().set_comment("# c\n"));
  EXPECT_TRUE(pages().set_comment(nullptr));
  EXPECT_TRUE(pages().set_status("KMT_STATUS_ERROR"));
  EXPECT_TRUE(pages().set_status_text("why"));
  EXPECT_TRUE(pages().set_status_text(nullptr));
  EXPECT_TRUE(pages().set_status(nullptr));
  EXPECT_EQ(written(), before);
}

TEST_F(ChangesInCpp, GiveATemplateAHeader) {
  EXPECT_TRUE(root.set_header(ElementKind::question_header, "4.2.00", "job-1"));
  EXPECT_TRUE(root.add_header_attribute("string", "Owner").value().add_value_text("me"));
  EXPECT_TRUE(root.set_header_identifier("job-2"));
  EXPECT_TRUE(root.set_header_version("5"));
  EXPECT_TRUE(root.remove_section());
  const jt::Result<Element> section = root.add_section();
  EXPECT_EQ(*section, root.section());
  EXPECT_TRUE(root.find("Own").remove());
  EXPECT_TRUE(root.find("Scanner").remove());
  EXPECT_EQ(written(), "\n<? SIL 5 ASCII job-2 >\n\nstring Owner = \"me\";\n\n< ? >\n< /? >\n\n\n< /SIL >\n");
  EXPECT_TRUE(root.remove_header());
  EXPECT_EQ(written(), "");
}

TEST_F(ChangesInCpp, FailWithTheMessagesOfTheirCall) {
  const std::string before = written();
  EXPECT_TRUE(says(pages().set_name("Note").error(), Category::syntax_error,
                   {"SYNTAX ERROR: duplicate naming not allowedNote ..."}));
  EXPECT_TRUE(says(pages().set_comment("none").error(), Category::call_error,
                   {"CALL ERROR: would not be read back:none ..."}));
  EXPECT_TRUE(says(root.set_status("KMT_STATUS_ERROR").error(), Category::call_error, kWrongKind));
  EXPECT_TRUE(says(root.remove().error(), Category::call_error, kWrongKind));
  EXPECT_TRUE(says(root.set_header_version("5").error(), Category::call_error,
                   {"CALL ERROR: there is no header ..."}));
  EXPECT_TRUE(says(root.add_section().error(), Category::call_error, {"CALL ERROR: there is no header ..."}));
  EXPECT_TRUE(says(root.remove_section().error(), Category::none, {}));
  EXPECT_EQ(written(), before);
}

TEST_F(ChangesInCpp, AHeaderIsNotTakenAwayByAKindThatIsNoForm) {
  EXPECT_TRUE(root.set_header(ElementKind::plain_header, "4.2.00", "job-1"));
  for (const ElementKind kind :
       {ElementKind::template_or_section, ElementKind::none, ElementKind::unread_header}) {
    EXPECT_TRUE(says(root.set_header(kind, "4.2.00", "job-1").error(), Category::call_error,
                     {"CALL ERROR: form of header does not allow it ..."}));
  }
  EXPECT_TRUE(root.header());
}

TEST_F(ChangesInCpp, RefuseATextWithANulInside) {
  const std::string_view text("a\0b", 3);
  const Words refused = {"CALL ERROR: NUL inside the text:a ..."};
  EXPECT_TRUE(says(pages().set_name(text).error(), Category::call_error, refused));
  EXPECT_TRUE(says(pages().add_value_text(text).error(), Category::call_error, refused));
  EXPECT_TRUE(says(root.add_header_attribute("string", text).error(), Category::call_error, refused));
  EXPECT_TRUE(says(root.set_header(ElementKind::plain_header, "4.2.00", text).error(), Category::call_error,
                   refused));
}

TEST_F(ChangesInCpp, FailOnWhatHasDied) {
  const Element dead = pages();
  EXPECT_TRUE(dead.remove());
  EXPECT_TRUE(says(dead.set_name("New").error(), Category::call_error, kNotAHandle));
  EXPECT_TRUE(says(dead.add_value_text("1").error(), Category::call_error, kNotAHandle));
  EXPECT_TRUE(says(dead.remove().error(), Category::call_error, kNotAHandle));
}

}  // namespace
}  // namespace jt_test
