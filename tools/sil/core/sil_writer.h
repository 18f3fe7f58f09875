// A template as SIL text, in the layout that `sil format` leaves alone. Names, statuses, texts and values stand in
// quotes wherever a bare word would be read otherwise. Proved by tests/sil_command/sil_writer_test.cpp.
#ifndef SIL_CORE_SIL_WRITER_H
#define SIL_CORE_SIL_WRITER_H

#include <string>

#include "core/model.h"

namespace sil {

std::string to_sil(const Model &model);

/// A value as the text that its type reads: a real as the shortest decimal of the same single.
std::string text_of_value(const Value &value);

}  // namespace sil

#endif
