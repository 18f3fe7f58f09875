// Damaged texts: every beginning of a template, and every byte of one replaced by bytes that mean something.
// Whatever comes of it, reading ends in order: a refused text leaves no node behind, an accepted one can be
// written and destroyed.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

class DamagedText : public DecodeTest, public ::testing::WithParamInterface<const char *> {
 protected:
  void expect_order(const std::string &text) {
    const int32_t handle = decode(text);
    if (handle != 0) {
      EXPECT_EQ(handle, -100) << text;
      EXPECT_NE(encoded(handle), "(none)") << text;
      EXPECT_EQ(jt_destroy_template(space, handle), 1) << text;
    }
    EXPECT_EQ(live_nodes(space), 0) << text;
  }
};

TEST_P(DamagedText, CutOffAnywhere) {
  const std::string text = GetParam();
  for (std::size_t length = 0; length <= text.size(); ++length) expect_order(text.substr(0, length));
}

TEST_P(DamagedText, WithoutItsBeginning) {
  const std::string text = GetParam();
  for (std::size_t begin = 1; begin <= text.size(); ++begin) expect_order(text.substr(begin));
}

TEST_P(DamagedText, WithAByteMissingAnywhere) {
  const std::string text = GetParam();
  for (std::size_t place = 0; place < text.size(); ++place) {
    std::string damaged = text;
    expect_order(damaged.erase(place, 1));
  }
}

TEST_P(DamagedText, WithAnotherByteAnywhere) {
  const std::string text = GetParam();
  const std::string bytes = "\"\\#[]{}()<>=,;*!?|/ ex0\n\b\x01\x80\xff";
  for (std::size_t place = 0; place < text.size(); ++place) {
    for (const char byte : bytes) {
      std::string damaged = text;
      damaged[place] = byte;
      expect_order(damaged);
    }
  }
}

TEST_P(DamagedText, WithAByteTooManyAnywhere) {
  const std::string text = GetParam();
  for (std::size_t place = 0; place <= text.size(); ++place) {
    for (const char byte : {'"', '\\', '#', '[', '}', ')', '<', ';', '*', ' ', '\xff'}) {
      std::string damaged = text;
      expect_order(damaged.insert(place, 1, byte));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(EveryConstruct, DamagedText,
                         ::testing::Values("[ service kmt_svc_scan ] X { * integer a = 1 , \"2\" ; ( "
                                           "KMT_STATUS_ERROR { x } ) string b ; } ( MM { y } ) { "
                                           "} end ( LATE { z } ) # c\n",
                                           "<? SIL 4.2.00 ASCII id > # h\n integer a = 1 ; ( ) < ? > [ "
                                           "service S ] end < / ? > [ service B ] { } end < "
                                           "/SIL >",
                                           "<! SIL 4.1 LATIN id > < ! > [ kmt_svc_fax F ] { enum_type t = "
                                           "\"a\\n\\\"\" ; } end < /! > < /SIL > # e",
                                           "< SIL 4.2.00 ASCII id > [ service U ] N { struct_timeofday t = "
                                           "1:2 ; ref_invocation r = a\\:b:c ; } end ( ) < "
                                           "/SIL >",
                                           "[ service kmt_svc_scan ] { struct_gutter g = 5/5/in ; "
                                           "struct_magnification m = maniso/100 ; struct_borders b "
                                           "= 1/2/3/4/mm/flipv ; struct_rectangle r = 0/0/25/25/mm ; "
                                           "timestamp t = 2009/01/02/03/04/05 ; } end"));

class Robustness : public DecodeTest {};

TEST_F(Robustness, EveryPairOfTokensInEveryOrder) {
  const char *const tokens[] = {"[",       "]",       "{",   "}",    "(",     ")",    "<",   ">",
                                "=",       ",",       ";",   "*",    "!",     "?",    "||",  "end",
                                "service", "integer", "SIL", "/SIL", "\"s\"", "\"\"", "#c\n"};
  for (const char *const before :
       {"", "[ service A ] ", "[ service A ] { ", "[ service A ] { integer a ; ", "[ service A ] { } ",
        "[ service A ] end ", "< SIL 4.2.00 ASCII id > ", "<? SIL 4.2.00 ASCII id > < ? > ",
        "<! SIL 4.2.00 ASCII id > < ! > < /! > "}) {
    for (const char *const first : tokens) {
      for (const char *const second : tokens) {
        const std::string text = std::string(before) + first + " " + second;
        const int32_t handle = decode(text);
        if (handle != 0) jt_destroy_template(space, handle);
        EXPECT_EQ(live_nodes(space, 16), 0) << text;
      }
    }
  }
}

TEST_F(Robustness, RefusedTextsDoNotUseUpTheSession) {
  for (int i = 0; i < 2000; ++i) EXPECT_EQ(decode("[ service A ] X { integer a = 1 , 2 ; } end foo"), 0);
  EXPECT_EQ(decode("[ service A ] end"), -100);
}

TEST_F(Robustness, DecodedTemplatesDoNotUseUpTheSession) {
  for (int i = 0; i < 2000; ++i) {
    const int32_t handle = decode("[ service A ] X { integer a = 1 , 2 ; } end");
    EXPECT_EQ(handle, -100);
    EXPECT_EQ(jt_destroy_template(space, handle), 1);
  }
}

TEST_F(Robustness, SessionMayBeClosedWithTemplatesInIt) {
  for (const char *const text :
       {"[ service A ] X { integer a = 1 , 2 ; } end", "< SIL 4.2.00 ASCII id > < /SIL >",
        "<? SIL 4.2.00 ASCII id > integer a = 1 ; < ? > [ service A ] end < /? > < /SIL >"}) {
    EXPECT_NE(decode(text), 0);
    reopen();
    EXPECT_EQ(live_nodes(space), 0);
  }
}

}  // namespace
}  // namespace jt_test
