// Reading what was written: a text that has been written once is read and written again without a change,
// over a corpus that uses everything the language has, over every service with every type, and with what a
// value may hold.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

class RoundTrip : public DecodeTest {
 protected:
  std::string rewritten(const std::string &text) {
    const int32_t handle = decode(text);
    EXPECT_NE(handle, 0) << text << "\n" << ::testing::PrintToString(messages());
    if (handle == 0) return "(refused)";
    const std::string written = encoded(handle);
    jt_destroy_template(space, handle);
    return written;
  }

  void expect_stable(const std::string &text) {
    const std::string once = rewritten(text);
    EXPECT_EQ(rewritten(once), once) << text;
  }
};

class RoundTripOf : public RoundTrip, public ::testing::WithParamInterface<const char *> {};

TEST_P(RoundTripOf, IsStableAfterOneWriting) { expect_stable(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Corpus, RoundTripOf,
    ::testing::Values(
        "[ service A ] end", "[ service A ] end ( ) [ service B ] end ( KMT_STATUS_ERROR )",
        "[ service A ] end ( KMT_STATUS_ERROR { text } ) [ service B ] end ( LATE { \"text\" } )",
        "[ service kmt_svc_scan ] { } { } X { } { } Y { } end",
        "[ service kmt_svc_scan ] { } ( ) X { } ( KMT_STATUS_WARNING ) { } ( KMT_STATUS_WARNING { } ) Y { } "
        "( MM { y } "
        ") end",
        "[ kmt_svc_scan MyScan ] { integer a ; * integer b = ; integer c = 1 ; integer d = -1 , +2 , 3 ; } "
        "end",
        "[ service kmt_svc_scan ] { integer a ; ( ) integer b ; ( KMT_STATUS_IGNORED ) * integer c = 1 ; ( "
        "LATE { } ) "
        "string d = \"x\" ; ( KMT_STATUS_OVERRIDDEN { y } ) } end",
        "# root\n# of two lines\n[ service kmt_svc_scan ] # service\n X { # invocation\n integer a # "
        "attribute\n = # "
        "of two lines\n 1 ; } end",
        "[ # one\n service # two\n A # three\n ] # four\n X # five\n { # six\n * # seven\n integer # eight\n "
        "a # "
        "nine\n = # ten\n 1 # eleven\n , # twelve\n 2 # thirteen\n ; # fourteen\n ( # fifteen\n "
        "KMT_STATUS_ERROR # "
        "sixteen\n { # seventeen\n x # eighteen\n } # nineteen\n ) # twenty\n } # twenty-one\n ( # "
        "twenty-two\n "
        "KMT_STATUS_ERROR # twenty-three\n { # twenty-four\n y # twenty-five\n } # twenty-six\n ) # "
        "twenty-seven\n "
        "end # twenty-eight\n ( # twenty-nine\n KMT_STATUS_ERROR # thirty\n ) # thirty-one",
        "[ service kmt_svc_scan ] { string s = \"\" , \" \" , \"\\\"\" , \"\\\\\" , \"a\\nb\\tc\" , "
        "\"[]{}()<>=,;*#\" "
        "; } end",
        "[ service kmt_svc_scan ] { real r = .5 , 5. , 123456.75 ; boolean b = true , FALSE ; timestamp t = "
        "2009/13/45/99/99/99 ; struct_timeofday d = 09:05 , :7 ; ref_invocation i = scan1:copy2 , scan1 , "
        "\"a b:c d\" "
        "; ref_collection c = \"x y\" ; struct_rectangle g = 0/0/25/25/mm ; } end",
        "[ service kmt_svc_scan ] { struct_gutter g = 5/5/in , 30/1/MM ; struct_magnification m = "
        "manana/50/60 , "
        "maniso/100 , none ; struct_borders b = 1/2/3/4/mm/flipv , 1/2/3/4/mm ; } end",
        "[ service kmt_svc_scan ] { enum_mediasize m = iso_a4sef , NA_234x229LEF , \"no such name\" , "
        "odd\\;name ; "
        "enum_type t = FOO ; } end",
        "[ kmt_document D ] { enum_docformat f = \"PDF/A-1b\" , na_7.25x10.5lef ; } end",
        "[ service Unknown ] { } X { integer a = 1 ; } end ( KMT_STATUS_UNKNOWN )",
        "[ service integer ] { integer a = 1 ; } end",
        "[ service kmt_svc_scan ] { service s = 1 ; template t ; } end", "< SIL 4.2.00 ASCII id > < /SIL >",
        "# h\n< # i\n SIL 4.1 LATIN Job-7 > # j\n * string a = x ; ( LATE { y } ) integer b # b\n = 1 ; [ "
        "service A ] "
        "end < /SIL >",
        "<? SIL 4.2.00 ASCII id > [ service B ] end < /SIL >",
        "<? SIL 4.2.00 ASCII id > < ? > < /? > < /SIL >",
        "<? SIL 4.2.00 ASCII id > integer a = 1 ; < # s\n ? > [ service A ] # a\n end < /? > [ service B ] # "
        "b\n end < "
        "/SIL >",
        "<! SIL 4.2.00 ASCII id > < ! > < /! > < /SIL >",
        "<! SIL 4.2.00 ASCII id > integer a = 1 ; < ! > # s\n [ service A ] { integer a = 1 , 2 ; } end ( "
        "KMT_STATUS_ERROR { x } ) < /! > < /SIL >"));

TEST_F(RoundTrip, OfEveryServiceWithEveryType) {
  const struct {
    const char *service;
    const char *value;
    const jt_type *types;
    int32_t count;
  } services[] = {{"kmt_document", "AUTO", doc_type_tab, MAX_DOC_TYPES},
                  {"kmt_svc_docman", "x", docman_type_tab, MAX_DOCMAN_TYPES},
                  {"kmt_svc_desktop", "x", desksvc_type_tab, MAX_DESKTOP_TYPES},
                  {"kmt_svc_email", "SMTP", email_type_tab, MAX_EMAIL_TYPES},
                  {"kmt_svc_fax", "AUTO", fax_type_tab, MAX_FAX_TYPES},
                  {"kmt_svc_file", "OS/2", file_type_tab, MAX_FILE_TYPES},
                  {"kmt_svc_general", "UCS-2", gen_type_tab, MAX_GEN_TYPES},
                  {"kmt_svc_print", "NONE", print_type_tab, MAX_LPRNT_TYPES},
                  {"kmt_dscrpt_metadata", "MASK_ONLY", metadata_type_tab, MAX_METADATA_TYPES},
                  {"kmt_svc_notification", "x", notif_type_tab, MAX_NOTIF_TYPES},
                  {"kmt_svc_ocr", "HTML_4_0", ocr_type_tab, MAX_OCR_TYPES},
                  {"kmt_svc_paperware", "x", ppware_type_tab, MAX_PPWARE_TYPES},
                  {"kmt_svc_scan", "ROT_90", scan_type_tab, MAX_SCAN_TYPES},
                  {"kmt_svc_validation", "HTTPS", validation_type_tab, MAX_VALIDATION_TYPES}};
  for (const auto &[service, value, types, count] : services) {
    for (int32_t i = 0; i < count; ++i) {
      const std::string begin = std::string("[") + service + " MyService]\n One{\n      ";
      const std::string attribute = std::string(types[i].name) + " a = ";
      const bool enumerated = attribute.rfind("enum_", 0) == 0;
      const std::string text = begin + attribute + (enumerated ? value : "") + ";\n }\nend\n\n";
      EXPECT_EQ(rewritten(text), text);
    }
  }
}

TEST_F(RoundTrip, OfEveryByteInEveryTextType) {
  for (const char *const type : {"string", "ref_collection", "enum_mediasize"}) {
    for (int byte = 1; byte < 256; ++byte) {
      const std::string value = std::string("a\\") + static_cast<char>(byte) + "b";
      expect_stable("[ service kmt_svc_scan ] { " + std::string(type) + " a = " + value + " ; } end");
    }
  }
}

TEST_F(RoundTrip, OfValueListsOfEveryLengthAcrossTheFold) {
  for (std::size_t length = 0; length < 60; ++length) {
    const std::string value = times(length, 'v');
    std::string text = "[ service kmt_svc_scan ] { string a = \"" + value + "\"";
    for (int i = 0; i < 8; ++i) text += ", \"" + value + "\"";
    text += "; } end";
    expect_stable(text);
  }
}

TEST_F(RoundTrip, OfNamesOfEveryLengthAcrossTheFold) {
  for (std::size_t length = 1; length < 90; ++length) {
    const std::string name = times(length, 'n');
    expect_stable("< SIL 4.2.00 ASCII " + name + " > * integer " + name + " # c\n = 1 , 2 ; [ service " +
                  name + " ] # d\n " + name + " { # e\n * integer " + name +
                  " # f\n = 1 , 2 ; } end < /SIL >");
  }
}

TEST_F(RoundTrip, RootCommentBehindAHeaderMovesToTheHeaderAndStaysThere) {
  const std::string once = rewritten("< SIL 4.2.00 ASCII id > [ service A ] end # root\n < /SIL >");
  EXPECT_EQ(once, "\n< SIL 4.2.00 ASCII id >\n\n# root\n[service A]\nend\n\n\n< /SIL >\n");
  const std::string twice = rewritten(once);
  EXPECT_EQ(twice, "# root\n\n< SIL 4.2.00 ASCII id >\n\n[service A]\nend\n\n\n< /SIL >\n");
  EXPECT_EQ(rewritten(twice), twice);
}

TEST_F(RoundTrip, LongestValuesAndNamesAreReadAgain) {
  const std::string name = times(1023, 'n');
  const std::string value = times(1024, 'v');
  expect_stable("[ service kmt_svc_scan ] " + name + " { string " + name + " = " + value + " , " + value +
                " ; } end");
}

}  // namespace
}  // namespace jt_test
