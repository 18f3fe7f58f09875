// The store of recorded errors: a status and the five newest messages, kept in the session. Every failure of
// the library passes through jt_error() or its counterpart for views, report().
// tests/base/error_store_test.cpp has the history, the statuses and where texts are cut off.
#ifndef JT_BASE_ERROR_STORE_H
#define JT_BASE_ERROR_STORE_H

#include <array>
#include <cstdint>
#include <string_view>

#include "base/messages.h"
#include "jt.h"

namespace jt_core {

struct ErrorStore {
  std::int32_t status;
  std::array<std::array<char, JT_MESSAGE_SIZE>, JT_HISTORY_LENGTH> messages;  // newest first
  std::int32_t previous;  // the message that get_previous_error() hands out next
  bool is_muted;          // nothing is recorded
};

// Where a session keeps its errors; defined with its record, which is not known here.
ErrorStore &errors_of(jt_parser_space &space);

// Records a message with its detail; a null session records nothing.
void report(jt_parser_space *space, std::string_view message, std::string_view detail = {});

// The beginning of a text of which no more will be kept: a detail is often the rest of a whole template. Null
// reads as "(null)".
std::string_view beginning_of(const char *text);

// Records a message whose middle varies: begin, middle and end joined.
void report_joined(jt_parser_space *space, std::string_view begin, std::string_view middle,
                   std::string_view end, std::string_view detail);

}  // namespace jt_core

#endif
