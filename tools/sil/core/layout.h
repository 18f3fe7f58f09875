// The one layout of SIL: what `sil format` makes of a file. It is decided on tokens alone, so that what cannot be
// decoded is laid out too, as long as its tokens fit. No token is changed, dropped or moved past another, comments
// included. Proved by tests/sil_command/layout_test.cpp.
#ifndef SIL_CORE_LAYOUT_H
#define SIL_CORE_LAYOUT_H

#include <string>

#include "core/document.h"

namespace sil {

struct LaidOut {
  enum class Result {
    kDone,
    kMisfit,  // the tokens do not fit, as the document's findings say
    kFault,   // the layout would have changed tokens: a mistake in here
  };
  Result result = Result::kDone;
  std::string text;
};

LaidOut lay_out(const Document &document);

}  // namespace sil

#endif
