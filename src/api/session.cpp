// Session calls: opening and closing, the fixed texts, the recorded errors, and the release of what the
// library has handed over.
// tests/api/session_test.cpp
#include "tree/session.h"
#include "api/frame.h"

namespace {

constexpr char kVersion[] =
    "VERSION 4.2.00\n"
    "jt: reads and writes SIL job templates\n";

constexpr char kCopyright[] =
    "\n"
    "--> jt: reads and writes SIL, the language of job templates.\n"
    "It decodes a template into a tree, lets a client change it, and\n"
    "encodes it again, without losing anything that it was given.\n"
    "You may use it and build upon it in any product, provided that\n"
    "this notice stays with every copy of its source.\n"
    "It comes as it is, without a warranty of any kind. Nobody who\n"
    "wrote it is liable for a job that was scanned, printed, sent\n"
    "or filed in error. A session belongs to one thread at a time;\n"
    "what a call hands over is yours to release.\n"
    "Keep the messages of a failed call: they say what was expected,\n"
    "and where. Send them along with the template.\n"
    "jt, version 4.2.00.\n";

// 658 characters in 12 lines, behind an empty one.
static_assert(sizeof(kCopyright) == 658 + 1);

constexpr char kLanguageVersion[] = "2.5.0";

// A smaller record is of no version of the header; a larger one has members that are not known here.
bool is_complete(const jt_allocator &allocator) {
  return allocator.size >= sizeof(jt_allocator) && allocator.allocate != nullptr &&
         allocator.reallocate != nullptr && allocator.release != nullptr;
}

}  // namespace

extern "C" {

// The client's own word; the library never looks at it.
char *g_szCurrentLocale = nullptr;

jt_parser_space *jt_open_parsing_utility(const char *label) { return create_parser_space(label); }

jt_parser_space *jt_open_session(const char *label, const jt_allocator *allocator) {
  const bool usable = allocator == nullptr || is_complete(*allocator);
  return usable ? jt_core::open_session(label, allocator) : nullptr;
}

int32_t jt_close_parsing_utility(jt_parser_space *space) { return delete_parser_space(space); }

const char *jt_get_version(jt_parser_space *space) { return jt_core::Frame(space) ? kVersion : nullptr; }

const char *jt_get_copyright(jt_parser_space *space) { return jt_core::Frame(space) ? kCopyright : nullptr; }

const char *jt_get_supported_language_version(jt_parser_space *space) {
  return jt_core::Frame(space) ? kLanguageVersion : nullptr;
}

int32_t jt_last_api_error(jt_parser_space *space) { return get_error_status(space); }

const char *jt_get_recent_error(jt_parser_space *space) {
  return jt_core::Frame(space) ? get_last_error(space) : nullptr;
}

const char *jt_get_previous_error(jt_parser_space *space) {
  return jt_core::Frame(space) ? get_previous_error(space) : nullptr;
}

int32_t jt_destroy_value_string(jt_parser_space *space, char *text) {
  return jt_core::Frame(space) ? er_free(text) : 0;
}

int32_t jt_destroy_name(jt_parser_space *space, char *name) {
  return jt_core::Frame(space) ? er_free(name) : 0;
}

int32_t jt_destroy_status(jt_parser_space *space, jt_status *status) {
  return jt_core::Frame(space) ? kill_status(space, status) : 0;
}

}  // extern "C"
