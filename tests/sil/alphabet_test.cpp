// The alphabet: what each byte is, and that the lexer and the encoder see it alike.
#include "sil/alphabet.h"

#include <gtest/gtest.h>

#include <string>

#include "jt.h"
#include "sil/escape.h"
#include "sil/lexer.h"

namespace jt_test {
namespace {

using jt_core::ByteClass;

TEST(Alphabet, SpacesAreTheBytesEightToThirteenAndTheBlank) {
  for (int byte = 0; byte < 256; ++byte) {
    const bool space = (byte >= 8 && byte <= 13) || byte == ' ';
    EXPECT_EQ(jt_core::class_of(static_cast<char>(byte)) == ByteClass::kSpace, space) << byte;
  }
}

TEST(Alphabet, EveryOtherByteThatIsNoWordIsNamed) {
  std::string others;
  for (int byte = 0; byte < 256; ++byte) {
    const ByteClass what = jt_core::class_of(static_cast<char>(byte));
    if (what != ByteClass::kWord && what != ByteClass::kSpace) others += static_cast<char>(byte);
  }
  EXPECT_EQ(others, std::string(1, '\0') + "!\"#$%&()*,;<=>?[\\]^{|}");
}

// Whatever a byte is, a value of it is read as it was before it was written.
TEST(Alphabet, WhatIsWrittenIsReadAsTheSameByte) {
  jt_core::SilCursor cursor;
  for (int byte = 1; byte < 256; ++byte) {
    for (const jt_core::Quoting quoting : {jt_core::Quoting::kNone, jt_core::Quoting::kQuotes}) {
      const std::string value = std::string("a") + static_cast<char>(byte) + "z";
      char written[16] = {};
      char *end = written;
      if (quoting == jt_core::Quoting::kQuotes) *end++ = '"';
      end = jt_core::write_escaped(end, value, quoting);
      if (quoting == jt_core::Quoting::kQuotes) *end++ = '"';
      *end = '\0';
      cursor.position = cursor.mark = cursor.begin = written;
      EXPECT_EQ(jt_core::next_token(nullptr, cursor).text, value) << byte;
      EXPECT_EQ(jt_core::next_token(nullptr, cursor).kind, jt_core::TokenKind::kEndOfText) << byte;
    }
  }
}

}  // namespace
}  // namespace jt_test
