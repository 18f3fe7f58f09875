// Any bytes, decoded. Whatever comes of it: nothing is read behind the text's NUL, the text stays as it is,
// the messages are whole and fit the status, a refused text leaves no node behind and an accepted one none
// after it has been encoded and destroyed, the same text has the same fate again, and the session goes on.
#include <cstring>

#include "support.h"

namespace {

using jt_fuzz::check;

constexpr char kOrdinary[] =
    "< SIL 4.2.00 ASCII id >\n[kmt_svc_scan Scan]\n{ integer a = 1; }\nend\n< /SIL >\n";

// What is seen of one decoding.
struct Fate {
  bool accepted;
  int32_t status;
  std::string written;
};

Fate decode(jt_fuzz::Session &session, const char *text) {
  const int32_t handle = jt_decode_template(session.space, text);
  session.check_status();
  Fate fate = {handle != 0, jt_last_api_error(session.space), {}};
  if (handle == 0) return fate;
  check(handle == -100, "a session's first node is its template");
  const jt_fuzz::OwnedText written(jt_encode_template(session.space, handle));
  session.check_status();
  check(written != nullptr, "what was decoded is encoded");
  fate.written = written.get();
  check(jt_destroy_template(session.space, handle) == 1, "a template is destroyed");
  return fate;
}

void check_fate(std::string_view bytes) {
  jt_fuzz::Session session;
  const jt_fuzz::TightText text(bytes);
  const Fate first = decode(session, text.get());
  check(session.is_empty(), "nothing is left of a text");
  check(text.holds(bytes), "the text is only read");

  const Fate second = decode(session, text.get());
  check(session.is_empty(), "nothing is left of the same text again");
  check(first.accepted == second.accepted && first.status == second.status, "a text has the same fate again");
  check(first.written == second.written, "a text is written the same again", second.written);

  check(decode(session, kOrdinary).accepted, "the session goes on");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  check_fate({reinterpret_cast<const char *>(data), size});
  return 0;
}
