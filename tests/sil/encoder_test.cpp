// The layout of written text: columns, comments, folding, and the lines of a header.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

const std::string kIndent25 = times(25, ' ');

class Encoder : public DecodeTest {
 protected:
  std::string rewritten(const std::string &text) { return encoded(decode(text)); }

  // A service "A" whose type no look-up knows.
  std::string written_with_service_type(std::string type_name) {
    jt_node *const root = decoded("[ service A ] end");
    jt_node *const service = root->first_child;
    const jt_type *const type = service->type;
    service->type = jt_core::unknown_type();
    service->unresolved_type_name = type_name.data();
    const std::string written = take_text(encode_template(space, root));
    service->type = type;
    service->unresolved_type_name = nullptr;
    return written;
  }

  // What an invocation's content is written back as.
  std::string rewritten_attributes(const std::string &text) {
    const std::string written = rewritten("[ service kmt_svc_scan ] { " + text + " } end");
    const std::string before = "[service kmt_svc_scan]\n {\n";
    const std::string after = " }\nend\n\n";
    EXPECT_EQ(written.substr(0, before.size()), before);
    if (written.size() < before.size() + after.size()) return written;
    EXPECT_EQ(written.substr(written.size() - after.size()), after);
    return written.substr(before.size(), written.size() - before.size() - after.size());
  }
};

// ---- Layout ----

TEST_F(Encoder, WritesAnEmptyTemplateAsAnEmptyText) {
  EXPECT_EQ(encoded(jt_create_template(space)), "");
  EXPECT_EQ(status(), JT_OK);
}

TEST_F(Encoder, WritesEverythingInOneFixedLayout) {
  EXPECT_EQ(
      rewritten(
          "# root\n[ kmt_svc_scan MyScan ] # service\nOne { # invocation\n* integer copies # attribute\n"
          "= 1 , 2 ; ( KMT_STATUS_OVERRIDDEN { 3 } ) boolean b = true ; } ( KMT_STATUS_ERROR ) { } end "
          "( KMT_STATUS_COMPLETED ) [ service kmt_svc_print ] end"),
      "# root\n"
      "[kmt_svc_scan MyScan]\n"
      " # service\n"
      " One{\n"
      "      # invocation\n"
      "    * integer copies =   # attribute\n"
      "                         1, 2;(KMT_STATUS_OVERRIDDEN{3})\n"
      "      boolean b = TRUE;\n"
      " }(KMT_STATUS_ERROR)\n"
      " {\n"
      " }\n"
      "end(KMT_STATUS_COMPLETED)\n"
      "\n"
      "[service kmt_svc_print]\n"
      "end\n"
      "\n");
}

TEST_F(Encoder, PadsAnAttributeCommentToColumn25) {
  EXPECT_EQ(rewritten_attributes("integer a = #c\n 1 ;"),
            "      integer a =        #c\n" + kIndent25 + "1;\n");
}

TEST_F(Encoder, PadsEachLineOfAnAttributeComment) {
  EXPECT_EQ(rewritten_attributes("integer a = #c\n #d\n 1 ;"),
            "      integer a =        #c\n" + kIndent25 + "#d\n" + kIndent25 + "1;\n");
}

TEST_F(Encoder, DoesNotPadACommentBehindColumn25) {
  EXPECT_EQ(rewritten_attributes("integer abcdefgh = #c\n 1 ;"),
            "      integer abcdefgh = #c\n" + kIndent25 + "1;\n");
  EXPECT_EQ(rewritten_attributes("integer abcdefg = #c\n 1 ;"),
            "      integer abcdefg =  #c\n" + kIndent25 + "1;\n");
  EXPECT_EQ(rewritten_attributes("integer abcdefghi = #c\n 1 ;"),
            "      integer abcdefghi = #c\n" + kIndent25 + "1;\n");
}

TEST_F(Encoder, PutsTheSemicolonOfACommentedAttributeWithoutValueAtTheLineStart) {
  EXPECT_EQ(rewritten_attributes("integer a #c\n ; integer b ;"),
            "      integer a =        #c\n;\n      integer b = ;\n");
}

TEST_F(Encoder, IndentsServiceAndInvocationComments) {
  EXPECT_EQ(rewritten("[ service kmt_svc_scan ] #a\n #b\n X { #c\n #d\n } end"),
            "[service kmt_svc_scan]\n #a\n #b\n X{\n      #c\n      #d\n }\nend\n\n");
}

TEST_F(Encoder, WritesTheRootCommentFirst) {
  EXPECT_EQ(rewritten("[ service A ] end #a\n [ service B ] end #b\n"),
            "#a\n#b\n[service A]\nend\n\n[service B]\nend\n\n");
}

TEST_F(Encoder, WritesAServiceOfUnknownTypeWithItsTypeName) {
  EXPECT_EQ(written_with_service_type("strange_type"), "[strange_type A]\nend\n\n");
}

TEST_F(Encoder, WritesAnAttributeWithoutTypeNameBehindOneBlank) {
  const int32_t handle = decode("[ service kmt_svc_scan ] { } end");
  jt_add_attribute(space, handle, "kmt_svc_scan", nullptr, "a");
  EXPECT_EQ(encoded(handle), "[service kmt_svc_scan]\n {\n a = ;\n }\nend\n\n");
}

TEST_F(Encoder, WritesAttributesOfUnknownTypeAndTheirPendingValues) {
  const int32_t handle = decode("[ service kmt_svc_scan ] { } end");
  jt_add_attribute(space, handle, "kmt_svc_scan", "strange_type", "a");
  jt_add_attribute_value_string(space, handle, "kmt_svc_scan", "a", "x y");
  jt_add_attribute_value_string(space, handle, "kmt_svc_scan", "a", "\"q\"");
  EXPECT_EQ(encoded(handle),
            "[service kmt_svc_scan]\n {\n      strange_type a = x\\ y, \\\"q\\\";\n }\nend\n\n");
  EXPECT_EQ(status(), JT_OK);
}

TEST_F(Encoder, WritesTwiceTheSame) {
  const int32_t handle = decode(
      "<? SIL 4.2.00 ASCII id > # c\n string h = x ; < ? > [ service A ] # d\n end < /? > [ service "
      "kmt_svc_scan ] X { "
      "string a = \"one\" , \"two\" ; } end < /SIL >");
  const std::string first = encoded(handle);
  EXPECT_EQ(encoded(handle), first);
  EXPECT_NE(first, "(none)");
}

TEST_F(Encoder, RefusesANullRoot) {
  EXPECT_EQ(encode_template(space, nullptr), nullptr);
  EXPECT_EQ(status(), JT_SYSTEM_ERROR);
  EXPECT_EQ(messages(), Messages{"SYSTEM ERROR: internal call for encode_template with NULL ..."});
}

TEST_F(Encoder, RefusesANullRootOfNoSession) { EXPECT_EQ(encode_template(nullptr, nullptr), nullptr); }

TEST_F(Encoder, WritesTheSameWithoutASession) {
  jt_node *const root = decoded("[kmt_svc_scan S] { integer copies = 1, 2; string t = \"a b\"; } end");
  EXPECT_EQ(take_text(encode_template(nullptr, root)),
            "[kmt_svc_scan S]\n"
            " {\n"
            "      integer copies = 1, 2;\n"
            "      string t = \"a b\";\n"
            " }\n"
            "end\n\n");
}

TEST_F(Encoder, GrowsWithItsText) {
  std::string text = "[service kmt_svc_scan]\n";
  for (int i = 0; i < 200; ++i) {
    text += " Invocation" + std::to_string(i) + "{\n      string a = \"" +
            times(static_cast<std::size_t>(i), 'v') + "\";\n }\n";
  }
  text += "end\n\n";
  EXPECT_EQ(rewritten(text), text);
}

TEST_F(Encoder, WritesALongCommentWhole) {
  std::string comment;
  for (int i = 0; i < 10; ++i) comment += "#" + times(1022, 'c') + "\n";
  EXPECT_EQ(rewritten(comment + "[ service A ] end"), comment + "[service A]\nend\n\n");
}

// ---- Folding ----

TEST_F(Encoder, FoldsAValuePastColumn70) {
  // 17 columns before the first value, 2 quotes, 2 for the separator: 70 with 49 letters.
  const std::string v49 = times(49, 'v');
  EXPECT_EQ(rewritten_attributes("string a = " + v49 + " , w ;"),
            "      string a = \"" + v49 + "\", \"w\";\n");
  EXPECT_EQ(rewritten_attributes("string a = " + v49 + "v , w ;"),
            "      string a = \"" + v49 + "v\", \n" + kIndent25 + "\"w\";\n");
}

TEST_F(Encoder, FoldsAValueListWhereverItPassesColumn70) {
  const std::string ten = "0123456789";
  EXPECT_EQ(rewritten_attributes("string a = " + ten + "," + ten + "," + ten + "," + ten + "," + ten + "," +
                                 ten + "," + ten + "," + ten + "," + ten + " ;"),
            "      string a = \"0123456789\", \"0123456789\", \"0123456789\", \"0123456789\", \n" +
                kIndent25 + "\"0123456789\", \"0123456789\", \"0123456789\", \"0123456789\", \n" + kIndent25 +
                "\"0123456789\";\n");
}

TEST_F(Encoder, NeverFoldsInsideAValueNorBeforeASemicolonOrStatus) {
  const std::string v200 = times(200, 'v');
  EXPECT_EQ(rewritten_attributes("string a = " + v200 + " ; ( KMT_STATUS_ERROR { " + v200 + " } )"),
            "      string a = \"" + v200 + "\";(KMT_STATUS_ERROR{" + v200 + "})\n");
}

TEST_F(Encoder, FoldsTheEqualsSignBehindALongName) {
  const std::string n56 = times(56, 'n');
  EXPECT_EQ(rewritten_attributes("integer " + n56 + " = 1 ;"),
            "      integer " + n56 + " = \n" + kIndent25 + "1;\n");
  EXPECT_EQ(rewritten_attributes("integer " + n56 + "n = 1 ;"),
            "      integer " + n56 + "n\n" + kIndent25 + " = 1;\n");
}

TEST_F(Encoder, FoldsTheFirstValueBehindALongName) {
  const std::string n53 = times(53, 'n');
  EXPECT_EQ(rewritten_attributes("integer " + n53 + " = 1 ;"), "      integer " + n53 + " = 1;\n");
  EXPECT_EQ(rewritten_attributes("integer " + n53 + "n = 1 ;"),
            "      integer " + n53 + "n = \n" + kIndent25 + "1;\n");
}

TEST_F(Encoder, FoldsACommentBehindALongName) {
  const std::string n54 = times(54, 'n');
  EXPECT_EQ(rewritten_attributes("integer " + n54 + " = #c\n 1 ;"),
            "      integer " + n54 + " = \n" + kIndent25 + "#c\n" + kIndent25 + "1;\n");
}

TEST_F(Encoder, DoesNotFoldWhereNothingIsWritten) {
  const std::string n54 = times(54, 'n');
  EXPECT_EQ(rewritten_attributes("integer " + n54 + " ;"), "      integer " + n54 + " = ;\n");
}

TEST_F(Encoder, DoesNotFoldBeforeAnEmptyValueOfUnknownType) {
  const std::string name = times(57, 'n');
  const int32_t handle = decode("[ service kmt_svc_scan ] { } end");
  jt_add_attribute(space, handle, "kmt_svc_scan", "nosuch", name.c_str());
  const std::string before = "[service kmt_svc_scan]\n {\n      nosuch " + name + " = ";
  const auto add = [&](const char *text) {
    EXPECT_EQ(jt_add_attribute_value_string(space, handle, "kmt_svc_scan", name.c_str(), text), 1);
  };
  add("");
  EXPECT_EQ(encoded(handle), before + ";\n }\nend\n\n");
  add("");
  EXPECT_EQ(encoded(handle), before + ", ;\n }\nend\n\n");
  add("b");
  EXPECT_EQ(encoded(handle), before + ", , \n" + kIndent25 + "b;\n }\nend\n\n");
}

TEST_F(Encoder, FoldsTheNameBehindALongType) {
  const int32_t handle = decode("[ service kmt_svc_scan ] { } end");
  const std::string type = times(64, 't');
  jt_add_attribute(space, handle, "kmt_svc_scan", type.c_str(), "a");
  EXPECT_EQ(encoded(handle), "[service kmt_svc_scan]\n {\n      " + type + " \n      a = ;\n }\nend\n\n");
}

TEST_F(Encoder, FoldsTheBraceBehindALongInvocationName) {
  const std::string n69 = times(69, 'n');
  EXPECT_EQ(rewritten("[ service kmt_svc_scan ] " + n69 + " { } end"),
            "[service kmt_svc_scan]\n " + n69 + "{\n }\nend\n\n");
  EXPECT_EQ(rewritten("[ service kmt_svc_scan ] " + n69 + "n { } end"),
            "[service kmt_svc_scan]\n " + n69 + "n\n {\n }\nend\n\n");
}

TEST_F(Encoder, FoldsTheBracketBehindALongServiceName) {
  const std::string n61 = times(61, 'n');
  EXPECT_EQ(rewritten("[ service " + n61 + " ] end"), "[service " + n61 + "]\nend\n\n");
  EXPECT_EQ(rewritten("[ service " + n61 + "n ] end"), "[service " + n61 + "n\n]\nend\n\n");
}

TEST_F(Encoder, FoldsTheServiceNameBehindALongType) {
  const std::string t69 = times(69, 't');
  EXPECT_EQ(written_with_service_type(t69.substr(1)), "[" + t69.substr(1) + " A\n]\nend\n\n");
  EXPECT_EQ(written_with_service_type(t69), "[" + t69 + " \nA]\nend\n\n");
  EXPECT_EQ(written_with_service_type(t69 + "t"), "[" + t69 + "t\n A]\nend\n\n");
}

TEST_F(Encoder, FoldsTheHeaderBehindALongVersion) {
  const std::string v64 = times(64, '4');
  EXPECT_EQ(rewritten("< SIL " + v64 + " ASCII id > < /SIL >"),
            "\n< SIL " + v64 + " \nASCII id >\n\n\n< /SIL >\n");
  EXPECT_EQ(rewritten("< SIL " + v64 + "4 ASCII id > < /SIL >"),
            "\n< SIL " + v64 + "4\n ASCII id >\n\n\n< /SIL >\n");
}

TEST_F(Encoder, FoldsTheHeaderBehindALongIdentifier) {
  const std::string i51 = times(51, 'i');
  EXPECT_EQ(rewritten("< SIL 4.2.00 ASCII " + i51 + " > < /SIL >"),
            "\n< SIL 4.2.00 ASCII " + i51 + " >\n\n\n< /SIL >\n");
  EXPECT_EQ(rewritten("< SIL 4.2.00 ASCII " + i51 + "i > < /SIL >"),
            "\n< SIL 4.2.00 ASCII " + i51 + "i\n >\n\n\n< /SIL >\n");
}

TEST_F(Encoder, CountsALineFeedInARawStatusText) {
  EXPECT_EQ(rewritten_attributes("integer a ; ( KMT_STATUS_ERROR { \"x\\ny\" } ) integer b ;"),
            "      integer a = ;(KMT_STATUS_ERROR{x\ny})\n      integer b = ;\n");
}

// ---- Headers ----

TEST_F(Encoder, WritesHeaderAttributesFromColumnZero) {
  EXPECT_EQ(
      rewritten(
          "# h\n< SIL 4.2.00 ASCII id > * integer a = 1 ; ( KMT_STATUS_ERROR { x } ) string b # c\n = y ; "
          "< /SIL >"),
      "# h\n\n< SIL 4.2.00 ASCII id >\n\n* integer a = 1;(KMT_STATUS_ERROR{x})\nstring b =               # "
      "c\n" +
          kIndent25 + "\"y\";\n\n< /SIL >\n");
}

// Only a client makes such a comment: a decoded one ends with a line feed.
TEST_F(Encoder, BeginsTheLineOfTheHeaderBehindACommentWithoutLineFeed) {
  const std::string after = "\n< SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n";
  for (const std::string &comment : {std::string("#c"), times(70, 'c')}) {
    jt_node *const root = decoded("< SIL 4.2.00 ASCII id > < /SIL >");
    add_comment(space, root->previous_sibling, comment.c_str());
    EXPECT_EQ(take_text(encode_template(space, root)), comment + after);
  }
}

TEST_F(Encoder, FoldsTheHeaderBehindALongCommentWithoutLineFeed) {
  jt_node *const root = decoded("< SIL 4.2.00 ASCII id > < /SIL >");
  add_comment(space, root->previous_sibling, times(71, 'c').c_str());
  EXPECT_EQ(take_text(encode_template(space, root)),
            times(71, 'c') + "\n\n< SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n");
}

TEST_F(Encoder, FoldsHeaderAttributesLikeAnyOther) {
  const std::string n62 = times(62, 'n');
  EXPECT_EQ(rewritten("< SIL 4.2.00 ASCII id > integer " + n62 + " = 1 , 2 ; < /SIL >"),
            "\n< SIL 4.2.00 ASCII id >\n\ninteger " + n62 + " = \n" + kIndent25 + "1, 2;\n\n< /SIL >\n");
}

TEST_F(Encoder, WritesHeaderValuesAsTheyAre) {
  EXPECT_EQ(rewritten("< SIL 4'2 ASCII a.b@c > < /SIL >"), "\n< SIL 4'2 ASCII a.b@c >\n\n\n< /SIL >\n");
}

}  // namespace
}  // namespace jt_test
