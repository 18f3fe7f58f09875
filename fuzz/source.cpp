// Any bytes, decoded with a listener and checked. The text ends where an unreadable page begins, so that reading
// one byte behind it ends the process. Whatever comes of it: result, status and messages are those of the plain
// decode, a refused text has an error and an accepted one none, tokens are told in their order and do not overlap,
// all that is opened is closed; and a template of which a check tells nothing is read back as it is written.
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

#include "support.h"

namespace {

using jt_fuzz::check;

// Readable pages with an unreadable one behind them.
class Guarded {
 public:
  explicit Guarded(std::string_view text) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    room_ = (text.size() / page + 1) * page;
    mapped_ = static_cast<char *>(
        mmap(nullptr, room_ + page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    check(mapped_ != MAP_FAILED && mprotect(mapped_ + room_, page, PROT_NONE) == 0, "there is a guard");
    size_ = room_ + page;
    begin_ = mapped_ + room_ - text.size();
    std::copy(text.begin(), text.end(), begin_);
  }
  ~Guarded() { munmap(mapped_, size_); }
  Guarded(const Guarded &) = delete;
  Guarded &operator=(const Guarded &) = delete;

  const char *get() const { return begin_; }

 private:
  std::size_t room_ = 0;
  std::size_t size_ = 0;
  char *mapped_ = nullptr;
  char *begin_ = nullptr;
};

// Looks at what is told while it is told.
struct Listener {
  std::size_t size;  // of the text
  std::size_t behind = 0;
  std::vector<jt_source_element> open;
  std::int32_t opened = 0;
  std::size_t errors = 0;
  std::size_t handles = 0;
};

Listener &of(void *context) { return *static_cast<Listener *>(context); }

void check_range(const Listener &listener, jt_range range) {
  check(range.begin <= range.end && range.end <= listener.size, "ranges lie in the text");
}

std::int32_t on_open(void *context, const jt_source_element *element) {
  check(element->number == of(context).opened++, "elements are numbered in their order");
  check_range(of(context), element->range);
  of(context).open.push_back(*element);
  return 0;
}

std::int32_t on_close(void *context, const jt_source_element *element) {
  check(!of(context).open.empty(), "what is closed has been opened");
  const jt_source_element last = of(context).open.back();
  of(context).open.pop_back();
  check(last.number == element->number && last.kind == element->kind, "elements are nested");
  check(last.range.begin == element->range.begin, "an element stays where it begins");
  check_range(of(context), element->range);
  return 0;
}

std::int32_t on_token(void *context, const jt_source_token *token) {
  check_range(of(context), token->range);
  check(token->range.begin >= of(context).behind && token->range.begin < token->range.end,
        "tokens do not overlap");
  of(context).behind = token->range.end;
  return 0;
}

std::int32_t on_finding(void *context, const jt_finding *finding) {
  check_range(of(context), finding->range);
  check_range(of(context), finding->found);
  check(finding->line >= 1 && finding->column >= 1, "a finding has a line and a column");
  if (finding->has_second != 0) check_range(of(context), finding->second);
  if (finding->severity == JT_SEVERITY_ERROR) ++of(context).errors;
  return 0;
}

std::int32_t on_handle(void *context, std::int32_t number, std::int32_t handle) {
  check(number < of(context).opened && handle < 0, "a handle is that of an element");
  ++of(context).handles;
  return 0;
}

jt_listener record_for(Listener &listener) {
  return {sizeof(jt_listener), &listener, on_open, on_close, on_token, on_finding, on_handle};
}

std::int32_t count_finding(void *context, const jt_finding * /*finding*/) {
  ++*static_cast<int *>(context);
  return 0;
}

// A template of which nothing is told is read back as it is written.
void check_promise(const jt_fuzz::Session &session, std::int32_t handle, const char *written) {
  int findings = 0;
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = &findings;
  listener.finding = count_finding;
  const bool loses_nothing = jt_check_template(session.space, handle, &listener) == 1;
  check(loses_nothing || findings > 0, "a loss is told");
  if (findings > 0) return;
  const std::int32_t again = jt_decode_template(session.space, written);
  check(again != 0, "what loses nothing is read back");
  const jt_fuzz::OwnedText rewritten(jt_encode_template(session.space, again));
  check(rewritten != nullptr && std::string_view(rewritten.get()) == written, "as it was written");
  check(jt_destroy_template(session.space, again) == 1, "a template is destroyed");
}

struct Fate {
  bool accepted;
  std::int32_t status;
  jt_fuzz::Messages messages;
  std::string written;

  bool operator==(const Fate &) const = default;
};

Fate fate_of(const jt_fuzz::Session &session, std::int32_t handle, bool is_tree) {
  session.check_status();
  Fate fate = {handle != 0, jt_last_api_error(session.space), session.messages(), {}};
  if (handle != 0 && is_tree) {
    const jt_fuzz::OwnedText written(jt_encode_template(session.space, handle));
    check(written != nullptr, "what was decoded is encoded");
    fate.written = written.get();
    check_promise(session, handle, written.get());
    check(jt_destroy_template(session.space, handle) == 1, "a template is destroyed");
  }
  check(session.is_empty(), "nothing is left of a text");
  return fate;
}

Fate decoded(const Guarded &text, std::size_t size, Listener &listener) {
  const jt_fuzz::Session session;
  const jt_listener record = record_for(listener);
  return fate_of(session, jt_decode_source(session.space, text.get(), size, nullptr, &record), true);
}

Fate checked(const Guarded &text, std::size_t size, Listener &listener) {
  const jt_fuzz::Session session;
  const jt_listener record = record_for(listener);
  return fate_of(session, jt_check_source(session.space, text.get(), size, nullptr, &record), false);
}

Fate plain(std::string_view bytes) {
  const jt_fuzz::Session session;
  const jt_fuzz::TightText text(bytes);
  return fate_of(session, jt_decode_template(session.space, text.get()), true);
}

void check_source(std::string_view bytes) {
  const Guarded text(bytes);
  Listener decoding{bytes.size(), 0, {}, 0, 0, 0};
  Listener checking{bytes.size(), 0, {}, 0, 0, 0};
  const Fate decode = decoded(text, bytes.size(), decoding);
  Fate once = checked(text, bytes.size(), checking);
  check(decoding.open.empty() && checking.open.empty(), "all that is opened is closed");
  check(decoding.errors == (decode.accepted ? 0U : 1U), "a decode has an error when it fails");
  check((checking.errors == 0) == once.accepted, "a check has an error when it fails");
  check(checking.handles == 0, "a check tells no handles");
  once.written = decode.written;
  check(once == decode, "a check leaves what a decode leaves");
  if (bytes.find('\0') == std::string_view::npos) check(decode == plain(bytes), "both decodes agree");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  check_source({reinterpret_cast<const char *>(data), size});
  return 0;
}
