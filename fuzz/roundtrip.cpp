// Texts that are read, written, read and written again. What is promised of a template that was decoded:
//
// - It is always written, and written the same each time.
// - Where it is readable, what is written is decoded, is readable again, and is written the same: from the
//   first writing on, or, where the root has a comment and the text a header but no section, from the second.
//   Such a comment is written right behind the header and becomes the header's when it is read again.
//
// Which templates are readable, support/readable.h of the tests says. One that is not may be refused, or lose
// a little of such a text with each reading; that neither harms the session nor stops a later writing from
// being readable.
#include "support/readable.h"

#include "support.h"

namespace {

using jt_fuzz::check;
using jt_fuzz::OwnedText;

bool comment_will_move(const jt_node &root) {
  return root.comment != nullptr && root.previous_sibling != nullptr && root.next_sibling == nullptr;
}

// ---- Reading and writing ----------------------------------------------------------------------------------

struct Reading {
  bool accepted = false;
  bool readable = false;
  bool comment_moves = false;
  std::string written;
};

std::string write(const jt_fuzz::Session &session, int32_t handle) {
  const OwnedText text(jt_encode_template(session.space, handle));
  check(text != nullptr, "what was decoded is encoded");
  return text.get();
}

Reading read(const jt_fuzz::Session &session, std::string_view bytes) {
  const jt_fuzz::TightText text(bytes);
  const int32_t handle = jt_decode_template(session.space, text.get());
  if (handle == 0) return {};
  const jt_node &root = *opaque_to_node(session.space, handle);
  Reading reading = {true, jt_test::is_readable_template(root), comment_will_move(root),
                     write(session, handle)};
  check(write(session, handle) == reading.written, "a template is written the same again", reading.written);
  jt_destroy_template(session.space, handle);
  return reading;
}

// The text of a readable template comes back as it is.
void check_readable(const jt_fuzz::Session &session, const Reading &first) {
  Reading second = read(session, first.written);
  check(second.accepted, "what is readable is read", first.written);
  check(second.readable, "what is readable stays readable", first.written);
  if (first.comment_moves) {
    const Reading third = read(session, second.written);
    check(third.accepted && third.readable && !third.comment_moves, "a moved comment stays", second.written);
    check(third.written == second.written, "a text is stable from its second writing on", third.written);
  } else {
    check(second.written == first.written, "a text is stable from its first writing on", second.written);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  constexpr int kMostReadings = 6;
  const jt_fuzz::Session session;
  std::string text(reinterpret_cast<const char *>(data), size);
  for (int i = 0; i < kMostReadings; ++i) {
    const Reading reading = read(session, text);
    if (!reading.accepted) break;
    if (reading.readable) {
      check_readable(session, reading);
      break;
    }
    text = reading.written;
  }
  check(session.is_empty(), "nothing is left");
  return 0;
}
