// What a header decides about the written text: which parts of a template are written, and that it is refused
// when one of its three values is missing.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

// A template with a section and a body, whose header is then given each class.
struct HeaderForm {
  const char *name;
  int16_t node_class;
  bool section;
  const char *written;
};

std::ostream &operator<<(std::ostream &out, const HeaderForm &form) { return out << form.name; }

class EncodedHeaderForm : public DecodeTest, public ::testing::WithParamInterface<HeaderForm> {};

TEST_P(EncodedHeaderForm, DecidesWhichPartsAreWritten) {
  const HeaderForm &form = GetParam();
  jt_node *const root = decoded(
      form.section ? "<? SIL 4.2.00 ASCII id > < ? > [ service S ] end < /? > [ service B ] end < /SIL >"
                   : "<? SIL 4.2.00 ASCII id > [ service B ] end < /SIL >");
  ASSERT_NE(root, nullptr);
  root->previous_sibling->node_class = form.node_class;
  EXPECT_EQ(take_text(encode_template(space, root)), form.written);
}

INSTANTIATE_TEST_SUITE_P(
    EveryForm, EncodedHeaderForm,
    ::testing::Values(
        HeaderForm{"QuestionWithSection", JT_NODE_HEADER_QUESTION, true,
                   "\n<? SIL 4.2.00 ASCII id >\n\n\n< ? >\n[service S]\nend\n\n< /? >\n\n[service B]\nend\n\n"
                   "\n< /SIL >\n"},
        HeaderForm{"QuestionAlone", JT_NODE_HEADER_QUESTION, false,
                   "\n<? SIL 4.2.00 ASCII id >\n\n[service B]\nend\n\n\n< /SIL >\n"},
        HeaderForm{"ExclaimWithSection", JT_NODE_HEADER_EXCLAIM, true,
                   "\n<! SIL 4.2.00 ASCII id >\n\n\n< ! >\n[service S]\nend\n\n< /! >\n\n\n< /SIL >\n"},
        HeaderForm{"ExclaimAlone", JT_NODE_HEADER_EXCLAIM, false,
                   "\n<! SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n"},
        HeaderForm{"PlainWithSection", JT_NODE_HEADER_PLAIN, true,
                   "\n< SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n"},
        HeaderForm{"PlainAlone", JT_NODE_HEADER_PLAIN, false,
                   "\n< SIL 4.2.00 ASCII id >\n\n[service B]\nend\n\n\n< /SIL >\n"},
        HeaderForm{"UnfinishedWithSection", JT_NODE_HEADER, true,
                   "\n< SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n"},
        HeaderForm{"UnfinishedAlone", JT_NODE_HEADER, false,
                   "\n< SIL 4.2.00 ASCII id >\n\n[service B]\nend\n\n\n< /SIL >\n"}),
    case_name<HeaderForm>);

class UnwrittenPart : public DecodeTest {
 protected:
  // A template whose section and body each hold one value that makes a report when it is written.
  jt_node *decoded_with_reports() {
    jt_node *const root = decoded(
        "<? SIL 4.2.00 ASCII id > < ? > [ service kmt_svc_scan ] { enum_type a = one ; } end < /? > [ "
        "service "
        "kmt_svc_print ] { enum_printmode a = two ; } end < /SIL >");
    reset_error_status(space);
    return root;
  }

  const Messages read = {"WARNING: trying to evaluate as an 'enumerated' type:one ...",
                         "WARNING: trying to evaluate as an 'enumerated' type:two ..."};
};

TEST_F(UnwrittenPart, MakesItsReportsAllTheSame) {
  for (const int16_t node_class : {JT_NODE_HEADER_PLAIN, JT_NODE_HEADER_EXCLAIM, JT_NODE_HEADER_QUESTION}) {
    reopen();
    jt_node *const root = decoded_with_reports();
    ASSERT_NE(root, nullptr);
    root->previous_sibling->node_class = node_class;
    EXPECT_NE(take_text(encode_template(space, root)), "(none)");
    EXPECT_EQ(status(), JT_CALL_ERROR);
    EXPECT_EQ(messages(), (Messages{read[0], read[1], "CALL ERROR: Unknown enumerated value ...",
                                    "CALL ERROR: Unknown enumerated value ..."}))
        << node_class;
  }
}

TEST_F(UnwrittenPart, IsTheSectionOfARootWithoutHeader) {
  jt_node *const root = decoded_with_reports();
  ASSERT_NE(root, nullptr);
  jt_node *const header = root->previous_sibling;
  root->previous_sibling = nullptr;
  EXPECT_EQ(take_text(encode_template(space, root)),
            "[service kmt_svc_print]\n {\n      enum_printmode a = two;\n }\nend\n\n");
  EXPECT_EQ(messages(), (Messages{read[0], read[1], "CALL ERROR: Unknown enumerated value ..."}));
  root->previous_sibling = header;
}

// One of a header's three values taken away, or with it all that follow.
class MissingHeaderValue : public DecodeTest {
 protected:
  MissingHeaderValue() : root(decoded("< SIL 4.2.00 ASCII id > [ service A ] end < /SIL >")) {
    for (jt_node *node = root->previous_sibling->parent; node != nullptr; node = node->next_sibling) {
      attributes.push_back(node);
    }
  }

  void expect_missing(const char *message) {
    EXPECT_EQ(encode_template(space, root), nullptr);
    EXPECT_EQ(messages(), Messages{message});
    EXPECT_EQ(status(), JT_SYSTEM_ERROR);
    reset_error_status(space);
  }

  void expect_missing_without_value(std::size_t number, const char *message) {
    jt_value *const value = attributes.at(number)->value;
    attributes.at(number)->value = nullptr;
    expect_missing(message);
    attributes.at(number)->value = value;
  }

  jt_node *root;
  std::vector<jt_node *> attributes;
};

TEST_F(MissingHeaderValue, LanguageVersionWithoutValue) {
  expect_missing_without_value(0, "SYSTEM ERROR: Language Version is missing ...");
}

TEST_F(MissingHeaderValue, CharacterEncodingWithoutValue) {
  expect_missing_without_value(1, "SYSTEM ERROR: Character Encoding is missing ...");
}

TEST_F(MissingHeaderValue, InteractionIdWithoutValue) {
  expect_missing_without_value(2, "SYSTEM ERROR: InteractionID is missing ...");
}

TEST_F(MissingHeaderValue, NoAttributeAtAll) {
  jt_node *const header = root->previous_sibling;
  header->parent = nullptr;
  expect_missing("SYSTEM ERROR: Language Version is missing ...");
  header->parent = attributes.at(0);
}

TEST_F(MissingHeaderValue, NoSecondAttribute) {
  attributes.at(0)->next_sibling = nullptr;
  expect_missing("SYSTEM ERROR: Character Encoding is missing ...");
  attributes.at(0)->next_sibling = attributes.at(1);
}

TEST_F(MissingHeaderValue, NoThirdAttribute) {
  attributes.at(1)->next_sibling = nullptr;
  expect_missing("SYSTEM ERROR: InteractionID is missing ...");
  attributes.at(1)->next_sibling = attributes.at(2);
}

TEST_F(MissingHeaderValue, IsFoundByPlaceNotByName) {
  attributes.at(0)->name[0] = 'X';
  EXPECT_EQ(take_text(encode_template(space, root)),
            "\n< SIL 4.2.00 ASCII id >\n\n[service A]\nend\n\n\n< /SIL >\n");
}

}  // namespace
}  // namespace jt_test
