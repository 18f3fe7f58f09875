// Elements through jt.hpp: everything in a template as objects that are kept and asked, walks that do not
// disturb each other, and elements that are not there, have died, or have lost their session.
#include <algorithm>
#include <iterator>
#include <ranges>
#include <type_traits>

#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

using jt::Category;
using jt::Element;
using jt::ElementKind;

static_assert(std::is_nothrow_default_constructible_v<Element>);
static_assert(std::is_copy_constructible_v<Element> && std::is_copy_assignable_v<Element>);
static_assert(std::ranges::forward_range<jt::Elements>);
static_assert(std::ranges::forward_range<const jt::Elements>);

constexpr const char *kFull =
    "# about the job\n"
    "<? SIL 4.2.00 ASCII job-1 > string Owner = me;\n"
    "< ? > [ service Inside ] { } end < /? >\n"
    "[ kmt_svc_scan Scanner ] first { * integer Pages = 1, 2; (KMT_STATUS_OVERRIDDEN{7}) string Note; } end\n"
    "[ service Own ] { } end (odd)\n"
    "< /SIL >\n";

const Words kNotAHandle = {"CALL ERROR: not a valid handle ...", "SYSTEM ERROR: unknown opaque marker ..."};
const Words kNotATemplate = {"CALL ERROR: not a template ..."};

std::string text_or_none(const jt::Result<jt::Text> &text) { return text ? text->str() : "(none)"; }

Words names_of(const Element &parent) {
  Words names;
  for (const Element &child : parent.children()) names.push_back(text_or_none(child.name()));
  return names;
}

Words texts_of(const Element &attribute) {
  Words texts;
  for (const Element &value : attribute.children()) texts.push_back(text_or_none(value.value_text()));
  return texts;
}

class ElementsInCpp : public CppTest {
 protected:
  ElementsInCpp() : full(decoded(kFull)), root(full.root()) {}

  Element pages() const { return root.find("Scanner").find("first").find("Pages"); }
  bool reported_nothing() const { return says(session.last_report(), Category::none, {}); }

  jt::Template full;
  Element root;
};

// ---- Going about ----

TEST_F(ElementsInCpp, StartAtTheTemplate) {
  EXPECT_TRUE(root);
  EXPECT_EQ(root.get(), full.get());
  EXPECT_EQ(root.kind(), ElementKind::template_or_section);
  EXPECT_EQ(root.root(), root);
  EXPECT_FALSE(root.parent());
  EXPECT_FALSE(root.next_sibling());
  EXPECT_TRUE(reported_nothing());
}

TEST_F(ElementsInCpp, GiveTheirChildrenInOrder) {
  EXPECT_EQ(names_of(root), (Words{"Scanner", "Own"}));
  EXPECT_EQ(names_of(root.find("Scanner").first_child()), (Words{"Pages", "Note"}));
  EXPECT_EQ(texts_of(pages()), (Words{"1", "2"}));
  EXPECT_EQ(texts_of(root.find("Scanner").first_child().find("Note")), Words());
  EXPECT_TRUE(reported_nothing());
}

TEST_F(ElementsInCpp, GoUpAgain) {
  const Element value = pages().first_child();
  EXPECT_EQ(value.parent(), pages());
  EXPECT_EQ(value.next_sibling().parent(), pages());
  EXPECT_EQ(value.root(), root);
}

TEST_F(ElementsInCpp, ReachTheHeader) {
  const Element header = full.header();
  EXPECT_EQ(header, root.header());
  EXPECT_EQ(header.kind(), ElementKind::question_header);
  EXPECT_EQ(names_of(header), Words{"Owner"});
  EXPECT_EQ(header.parent(), root);
  EXPECT_EQ(text_or_none(root.header_version()), "4.2.00");
  EXPECT_EQ(text_or_none(root.header_identifier()), "job-1");
}

TEST_F(ElementsInCpp, ReachTheSection) {
  const Element section = full.section();
  EXPECT_EQ(section, root.section());
  EXPECT_EQ(section.kind(), ElementKind::template_or_section);
  EXPECT_EQ(names_of(section), Words{"Inside"});
  EXPECT_EQ(section.parent(), root);
}

TEST_F(ElementsInCpp, HaveNoHeaderAndNoSectionWhereThereIsNone) {
  const jt::Template bare = session.create().value();
  EXPECT_FALSE(bare.header());
  EXPECT_FALSE(bare.section());
  EXPECT_TRUE(reported_nothing());
  EXPECT_TRUE(failed_silently(bare.root().header_version()));
  EXPECT_TRUE(failed_silently(bare.root().header_identifier()));
}

TEST_F(ElementsInCpp, OnlyATemplateHasAHeader) {
  EXPECT_FALSE(pages().header());
  EXPECT_TRUE(says(session.last_report(), Category::call_error, kNotATemplate));
  EXPECT_FALSE(pages().section());
  EXPECT_TRUE(says(session.last_report(), Category::call_error, kNotATemplate));
  EXPECT_TRUE(failed(pages().header_version(), Category::call_error, kNotATemplate));
  EXPECT_TRUE(failed(pages().header_identifier(), Category::call_error, kNotATemplate));
}

// ---- Asking ----

TEST_F(ElementsInCpp, SayWhatTheyAre) {
  EXPECT_EQ(root.find("Scanner").kind(), ElementKind::service);
  EXPECT_EQ(root.find("Scanner").first_child().kind(), ElementKind::invocation);
  EXPECT_EQ(pages().kind(), ElementKind::attribute);
  EXPECT_EQ(pages().first_child().kind(), ElementKind::value);
}

TEST_F(ElementsInCpp, KnowTheFormOfAHeader) {
  EXPECT_EQ(job.header().kind(), ElementKind::plain_header);
  const jt::Template exclaim = decoded("<! SIL 4.2.00 ASCII a > < ! > [ service A ] end < /! > < /SIL >");
  EXPECT_EQ(exclaim.header().kind(), ElementKind::exclaim_header);
}

TEST_F(ElementsInCpp, HaveNamesTypesAndValues) {
  EXPECT_EQ(text_or_none(pages().name()), "Pages");
  EXPECT_EQ(text_or_none(pages().type()), "integer");
  EXPECT_TRUE(failed_silently(pages().value_text()));
  EXPECT_EQ(text_or_none(pages().first_child().value_text()), "1");
  EXPECT_TRUE(failed_silently(pages().first_child().name()));
}

TEST_F(ElementsInCpp, HaveComments) {
  EXPECT_EQ(text_or_none(full.header().comment()), "# about the job\n");
  EXPECT_TRUE(failed_silently(root.comment()));
}

TEST_F(ElementsInCpp, HaveStatusesAndTheTextsBehindThem) {
  EXPECT_EQ(pages().status().value().code(), jt::StatusCode::overridden);
  EXPECT_EQ(text_or_none(pages().status_text()), "7");
  EXPECT_EQ(root.find("Own").status().value().name().value().view(), "odd");
  EXPECT_TRUE(failed_silently(root.find("Own").status_text()));
  EXPECT_TRUE(failed_silently(root.find("Scanner").status()));
}

TEST_F(ElementsInCpp, AnswerByYesOrNo) {
  const Element own = root.find("Own").first_child();
  const Element note = root.find("Scanner").first_child().find("Note");
  EXPECT_TRUE(pages().is_non_compulsory());
  EXPECT_FALSE(note.is_non_compulsory());
  EXPECT_TRUE(pages().is_overridden());
  EXPECT_FALSE(note.is_overridden());
  EXPECT_TRUE(own.is_type_unknown());
  EXPECT_FALSE(note.is_type_unknown());
  EXPECT_TRUE(reported_nothing());
}

TEST_F(ElementsInCpp, AreFoundByNameInAnyCase) {
  EXPECT_EQ(root.find("SCANNER").find(std::string_view("firstly").substr(0, 5)), pages().parent());
  EXPECT_FALSE(root.find("Inside"));
  EXPECT_FALSE(root.find(nullptr));
  EXPECT_TRUE(reported_nothing());
}

TEST_F(ElementsInCpp, RefuseANameWithANulInside) {
  EXPECT_FALSE(root.find(std::string("Scanner\0", 8)));
  EXPECT_TRUE(
      says(session.last_report(), Category::call_error, {"CALL ERROR: NUL inside the text:Scanner ..."}));
}

// ---- Walks ----

TEST_F(ElementsInCpp, NestedWalksOverTheSameChildrenDoNotDisturbEachOther) {
  Words pairs;
  const jt::Elements values = pages().children();
  for (const Element &a : values) {
    for (const Element &b : values)
      pairs.push_back(text_or_none(a.value_text()) + text_or_none(b.value_text()));
  }
  EXPECT_EQ(pairs, (Words{"11", "12", "21", "22"}));
}

TEST_F(ElementsInCpp, WalksLeaveTheCursorsAlone) {
  auto services = full.services();
  auto at = services.begin();
  EXPECT_EQ(names_of(root), (Words{"Scanner", "Own"}));
  EXPECT_STREQ((++at)->c_str(), "Own");
}

TEST_F(ElementsInCpp, PlacesInAWalkCanBeKept) {
  const jt::Elements services = root.children();
  auto at = services.begin();
  const auto first = at++;
  EXPECT_EQ(text_or_none(first->name()), "Scanner");
  EXPECT_EQ(text_or_none((*at).name()), "Own");
  EXPECT_EQ(first, services.begin());
  EXPECT_NE(first, at);
  EXPECT_NE(at, services.end());
  EXPECT_EQ(++at, services.end());
}

#ifdef __cpp_lib_ranges

TEST_F(ElementsInCpp, AlgorithmsTakeTheChildren) {
  const jt::Elements services = root.children();
  const auto own =
      std::ranges::find_if(services, [](const Element &e) { return e.name().value().view() == "Own"; });
  EXPECT_EQ(*own, root.find("Own"));
  EXPECT_EQ(std::ranges::distance(services), 2);
}

#endif

TEST_F(ElementsInCpp, AWalkGoesOnWhenOthersAreDeleted) {
  Words names;
  for (const Element &service : root.children()) {
    names.push_back(text_or_none(service.name()));
    EXPECT_EQ(full.service("Own").remove().has_value(), names.size() == 1);
  }
  EXPECT_EQ(names, Words{"Scanner"});
}

// ---- Elements that are not there ----

TEST_F(ElementsInCpp, AnEmptyOneFailsEachCall) {
  const Element none;
  EXPECT_FALSE(none);
  EXPECT_EQ(none.get(), 0);
  EXPECT_EQ(none.kind(), ElementKind::none);
  EXPECT_TRUE(has_no_session(none.name()));
  EXPECT_TRUE(has_no_session(none.status()));
  EXPECT_FALSE(none.is_non_compulsory() || none.is_type_unknown() || none.is_overridden());
  EXPECT_FALSE(none.root() || none.parent() || none.first_child() || none.find("x"));
  EXPECT_TRUE(none.children().begin() == none.children().end());
}

TEST_F(ElementsInCpp, OneThatWasNotFoundFailsEachCall) {
  const Element none = root.find("Nobody");
  EXPECT_FALSE(none);
  EXPECT_EQ(none.kind(), ElementKind::none);
  EXPECT_TRUE(says(session.last_report(), Category::call_error, kNotAHandle));
  EXPECT_TRUE(failed(none.name(), Category::call_error, kNotAHandle));
  EXPECT_EQ(names_of(none), Words());
}

TEST_F(ElementsInCpp, OneThatHasDiedFailsEachCall) {
  const Element gone = pages();
  ASSERT_TRUE(full.service("Scanner").remove());
  EXPECT_TRUE(gone);
  EXPECT_EQ(gone.kind(), ElementKind::none);
  EXPECT_TRUE(failed(gone.value_text(), Category::call_error, kNotAHandle));
  EXPECT_FALSE(gone.is_overridden());
  EXPECT_TRUE(says(session.last_report(), Category::call_error, kNotAHandle));
}

TEST_F(ElementsInCpp, OneWhoseSessionIsClosedFailsEachCall) {
  const Element kept = pages();
  session = jt::Session();
  EXPECT_EQ(kept.kind(), ElementKind::none);
  EXPECT_TRUE(has_no_session(kept.name()));
  EXPECT_FALSE(kept.parent());
}

TEST_F(ElementsInCpp, AreTheSameByHandleAndSession) {
  const Element by_handle(session, pages().get());
  EXPECT_EQ(by_handle, pages());
  const jt::Session other("other");
  EXPECT_NE(Element(other, pages().get()), pages());
  EXPECT_NE(by_handle, root);
}

TEST_F(ElementsInCpp, TakeNoBlocksButTheirTexts) {
  EXPECT_EQ(blocks_taken([this] {
              for (const Element &child : root.children()) static_cast<void>(child.kind());
            }),
            0);
  EXPECT_EQ(blocks_taken([this] { static_cast<void>(root.first_child().name()); }), 1);
}

}  // namespace
}  // namespace jt_test
