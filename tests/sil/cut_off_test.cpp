// Texts that end too early, at every place of a text with each form of header: where that is refused without
// an error of its own is what jt.h says, and nowhere else.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

class CutOff : public DecodeTest {
 protected:
  // What stands at the end of each beginning of the text that is refused silently: its last token or two.
  std::vector<std::string> refused_silently(const std::string &text) {
    std::vector<std::string> ends;
    for (std::size_t length = 0; length < text.size(); ++length) {
      const std::string beginning = text.substr(0, length);
      reopen();
      if (decode(beginning) == 0 && status() == JT_OK)
        ends.push_back(beginning.substr(beginning.rfind('>') + 1));
    }
    return ends;
  }
};

TEST_F(CutOff, IsSilentInTheEndMarker) {
  const std::vector<std::string> expected = {" <", " < ", " < /SIL", " < /SIL "};
  EXPECT_EQ(refused_silently("< SIL 4.2.00 ASCII id > < /SIL >"), expected);
}

TEST_F(CutOff, IsSilentInTheMarksOfASectionAndBetweenThem) {
  const std::vector<std::string> expected = {" <",     " < ", " < ?", " < ? ",   "",
                                             " ",      " <",  " < ",  " < /",    " < /?",
                                             " < /? ", " <",  " < ",  " < /SIL", " < /SIL "};
  EXPECT_EQ(refused_silently("<? SIL 4.2.00 ASCII id > < ? > < /? > < /SIL >"), expected);
}

TEST_F(CutOff, IsReportedAmongTheServicesOfASection) {
  const std::vector<std::string> expected = {" <",
                                             " < ",
                                             " < !",
                                             " < ! ",
                                             "",
                                             " ",
                                             " [ service A ] end <",
                                             " [ service A ] end < ",
                                             " [ service A ] end < /",
                                             " [ service A ] end < /!",
                                             " [ service A ] end < /! ",
                                             " <",
                                             " < ",
                                             " < /SIL",
                                             " < /SIL "};
  EXPECT_EQ(refused_silently("<! SIL 4.2.00 ASCII id > < ! > [ service A ] end < /! > < /SIL >"), expected);
}

TEST_F(CutOff, IsAlwaysReportedWithoutAHeader) {
  EXPECT_EQ(refused_silently("[ service integer ] A { integer b = 1, 2; ( X { y } ) } ( X ) end ( X { y } )"),
            std::vector<std::string>());
}

}  // namespace
}  // namespace jt_test
