/// \defgroup cpp The calls in C++
///
/// jt in C++20: owners, results and ranges over the calls of jt.h, in this one header.
///
/// ```cpp
/// jt::Session session("my program");
/// jt::Result<jt::Template> job = session.decode(text);
/// if (!job) return complain(job.error().messages().newest_or("the text is cut off"));
/// for (const jt::Service &service : job->services()) std::puts(service.c_str());
/// if (auto set = job->service("Scan").set("Sides", "TWO_SIDED"); !set) ...
/// jt::Result<jt::Text> result = job->encode();
/// ```
///
/// What jt.h says about names, texts, cursors, types and messages holds here too; its name stands behind what
/// is only passed on. The chapters: texts; messages, errors and results; records of values; values; statuses;
/// services; ranges; elements; source; templates; sessions.

/// \defgroup cpp_conventions What holds for every call in C++
///
/// Read this once; the single members do not repeat it.
///
/// **Owners.** Session, Template, Value, Status and Text own one thing each, release it when they go, and can
/// be moved but not copied. One that was moved from, or made without arguments, is empty: it tests false, and
/// each call on it fails. get() shows what jt.h calls it, for use with the calls there; release() gives it
/// up.
///
/// **Order.** Owners may go in any order. When a Session goes, everything in it goes, as in C; a Template, a
/// Service or an Element that is still there then fails each call with `CALL ERROR: no session ...`, and goes
/// silently. Values, Statuses and Texts remain good.
///
/// **Threads.** What was made in a session belongs to the thread of the session, its destruction included.
///
/// **Results.** A call that makes or changes something returns a Result, which must be looked at. A question
/// that is answered by yes or no returns a bool; no is also the answer where the call fails, and
/// Session::last_report() tells the two apart.
///
/// **None.** A call that finds nothing to give (no value, no status, an unnamed invocation) fails with
/// Category::none and without messages. So does one that refuses silently: Session::decode() of a text that
/// is cut off in its end marker or in a section, Service::set() with the empty text for a number. So a
/// message may be missing; Messages::newest_or() says what is to be said then.
///
/// **Texts.** Every TextArgument may be a C text, a std::string, a std::string_view or a Text. A text with a
/// NUL inside is refused before the call, never cut: `CALL ERROR: NUL inside the text:` + what stands before
/// it.
///
/// **Temporaries.** What would be gone before it is used is refused by the compiler: `->` of a temporary
/// result, begin() of a temporary range or of temporary messages, and the services of a temporary template. A
/// temporary result gives its value away instead: `job->encode().value().c_str()` is a text until the end of
/// the expression, as that of any std::string. Results are passed on with Chain::and_then(),
/// Chain::transform() and Chain::or_else().
///
/// **Exceptions.** None is thrown or needed, but those of the standard library where Text::str() makes a
/// std::string, and what a client's listener throws. The header compiles with and without exceptions and RTTI.
///
/// **Cost.** That of the call in jt.h. A text that is given is copied only to put a NUL behind a string_view:
/// on the stack up to 63 bytes, else on the heap. Messages are copied only where something was reported.
#ifndef JT_HPP
#define JT_HPP

#if __cplusplus <= 201703L
#error "jt.hpp needs C++20: compile with -std=c++20, or link the CMake target jt::cpp; jt.h needs neither"
#else

#include <algorithm>
#include <array>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <functional>
#include <iterator>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "jt.h"

namespace jt {

class Session;
class Service;

/// \cond
namespace detail {

struct Free {
  void operator()(void *block) const noexcept { std::free(block); }
};

}  // namespace detail
/// \endcond

// ---- Texts ------------------------------------------------------------------------------------------------

/// \defgroup cpp_texts Texts
/// \{

/// Owns a text that jt handed out: one pointer, no copy. Empty when there is no text.
class Text {
 public:
  /// No text: tests false, and reads as "".
  Text() noexcept = default;

  /// Takes over a block of the heap that ends with NUL, such as a "char *" result of jt.h.
  explicit Text(char *owned) noexcept : block_(owned) {}

  /// The text; "" when there is none.
  const char *c_str() const noexcept { return block_ ? block_.get() : ""; }

  /// The text as a view, good while this owner is. O(length).
  std::string_view view() const noexcept { return c_str(); }
  /// As view().
  operator std::string_view() const noexcept { return view(); }

  /// A copy. May throw std::bad_alloc.
  std::string str() const { return c_str(); }

  /// Whether there is no byte in it.
  bool empty() const noexcept { return *c_str() == '\0'; }

  /// Whether there is a text, be it one without bytes.
  explicit operator bool() const noexcept { return block_ != nullptr; }

  /// The text, null when there is none.
  char *get() const noexcept { return block_.get(); }

  /// Gives the text up; release it with free() or a call of jt.h.
  [[nodiscard]] char *release() noexcept { return block_.release(); }

  /// Same bytes. Names, which know no case, compare with lowercasecmp().
  friend bool operator==(const Text &a, const Text &b) noexcept { return a.view() == b.view(); }
  /// Same bytes.
  friend bool operator==(const Text &a, std::string_view b) noexcept { return a.view() == b; }

 private:
  std::unique_ptr<char, detail::Free> block_;
};

/// \cond
namespace detail {

inline constexpr const char *kNulInside = "CALL ERROR: NUL inside the text:";
inline constexpr const char *kNoMemory = "MEMORY ERROR: allocation error";
inline constexpr const char *kOtherType = "CALL ERROR: value is not of the type:";
inline constexpr const char *kUnknownType = "CALL ERROR: unknown data type:";
inline constexpr const char *kNotInRange = "CALL ERROR: number is not a value of the type:";
inline constexpr std::string_view kNoSession = "CALL ERROR: no session ...";

/// A text of one's own with a NUL behind it: short ones here, long ones on the heap. A NUL inside, or a heap
/// that has nothing to give, leaves the beginning of the text and a problem.
class Name {
 public:
  Name() noexcept {}
  explicit Name(Text &&text) noexcept : long_(text.release()) {}

  explicit Name(std::string_view text) noexcept {
    const std::size_t nul = text.find('\0');
    if (nul != text.npos) problem_ = kNulInside;
    text = text.substr(0, nul);
    char *place = text.size() < kShort ? short_ : take(text.size() + 1);
    if (place == nullptr) {
      problem_ = kNoMemory;
      return;
    }
    text.copy(place, text.size());
    place[text.size()] = '\0';
    is_short_ = place == short_;
  }

  /// A text that may be null, and may have a problem already.
  Name(const char *text, const char *problem) noexcept : Name() {
    if (text != nullptr) *this = Name(std::string_view(text));
    if (problem != nullptr) problem_ = problem;
  }

  Name(const Name &other) noexcept : Name(other.c_str(), other.problem_) {}

  Name(Name &&other) noexcept
      : long_(std::move(other.long_)), problem_(other.problem_), is_short_(other.is_short_) {
    if (is_short_) std::strcpy(short_, other.short_);
  }

  Name &operator=(Name other) noexcept {
    long_ = std::move(other.long_);
    problem_ = other.problem_;
    is_short_ = other.is_short_;
    if (is_short_) std::strcpy(short_, other.short_);
    return *this;
  }

  ~Name() = default;

  const char *c_str() const noexcept { return is_short_ ? short_ : long_.get(); }
  const char *problem() const noexcept { return problem_; }

 private:
  static constexpr std::size_t kShort = 64;

  char *take(std::size_t bytes) noexcept {
    long_ = Text(static_cast<char *>(std::malloc(bytes)));
    return long_.get();
  }

  Text long_;
  const char *problem_ = nullptr;
  bool is_short_ = false;
  char short_[kShort];
};

}  // namespace detail
/// \endcond

/// A text given to a call, made of what the caller has. Lives only as long as the call. What ends with NUL
/// already is used where it is; null is passed on, and means what jt.h says.
class TextArgument {
 public:
  /// Bytes up to the NUL.
  TextArgument(const char *text) noexcept : text_(text) {}

  /// The text where it is; one with a NUL inside has a problem().
  TextArgument(const std::string &text) noexcept : text_(text.c_str()) {
    if (std::strlen(text_) != text.size()) problem_ = detail::kNulInside;
  }

  /// An empty owner is passed on as null.
  TextArgument(const Text &text) noexcept : text_(text.get()) {}

  /// Copied, because nothing says what stands behind its last byte.
  TextArgument(std::string_view text) noexcept
      : copy_(text), text_(copy_.c_str()), problem_(copy_.problem()) {}

  /// It is made for one call and goes with it.
  TextArgument(const TextArgument &) = delete;
  TextArgument &operator=(const TextArgument &) = delete;
  ~TextArgument() = default;

  /// What is handed to the call.
  const char *c_str() const noexcept { return text_; }

  /// The message that the call is refused with, null when there is nothing wrong.
  const char *problem() const noexcept { return problem_; }

 private:
  detail::Name copy_;
  const char *text_;
  const char *problem_ = nullptr;
};

/// \}

// ---- Messages, errors and results -------------------------------------------------------------------------

/// \defgroup cpp_results Messages, errors and results
/// \{

/// What the reports of a call amount to: the category of the last one.
enum class Category : std::int32_t {
  none = JT_OK,                    ///< nothing was reported
  warning = JT_WARNING,            ///< something doubtful was accepted
  call_error = JT_CALL_ERROR,      ///< the caller passed something wrong
  syntax_error = JT_SYNTAX_ERROR,  ///< bad SIL text or bad text of a value
  memory_error = JT_MEMORY_ERROR,  ///< an allocation failed
  system_error = JT_SYSTEM_ERROR,  ///< something does not fit together inside
  unclassified = JT_UNCLASSIFIED   ///< any other words, reported by a client
};

/// Some messages, newest first, as a range of views; at most JT_HISTORY_LENGTH. Owns their texts, one block
/// for all, and can be copied; without memory it is empty. Behind each text stands a NUL. The views last as
/// long as their owner.
class Messages {
 public:
  /// No messages.
  Messages() noexcept = default;

  /// Copies the first JT_HISTORY_LENGTH of them.
  explicit Messages(std::span<const std::string_view> texts) noexcept {
    texts = texts.first(std::min(texts.size(), kMost));
    std::size_t bytes = sizeof(Log);
    for (const std::string_view text : texts) bytes += text.size() + 1;
    void *const block = texts.empty() ? nullptr : std::malloc(bytes);
    if (block == nullptr) return;
    log_.reset(new (block) Log);
    char *place = static_cast<char *>(block) + sizeof(Log);
    for (const std::string_view text : texts) {
      place[text.copy(place, text.size())] = '\0';
      log_->texts[log_->count++] = {place, text.size()};
      place += text.size() + 1;
    }
  }

  /// A copy of the texts; empty without memory.
  Messages(const Messages &other) noexcept : Messages(std::span(other.begin(), other.size())) {}
  /// Takes the texts over and leaves the other empty.
  Messages(Messages &&) noexcept = default;
  /// Takes over a copy, or what was moved.
  Messages &operator=(Messages other) noexcept {
    log_.swap(other.log_);
    return *this;
  }
  ~Messages() = default;

  /// The newest. Not of a temporary, but a range-based for may have one.
  const std::string_view *begin() const &noexcept { return log_ ? log_->texts.data() : nullptr; }
  /// Not of a temporary.
  const std::string_view *begin() const && = delete;
  /// Behind the oldest.
  const std::string_view *end() const noexcept { return begin() + size(); }
  /// How many there are.
  std::size_t size() const noexcept { return log_ ? log_->count : 0; }
  /// Whether there is none.
  bool empty() const noexcept { return size() == 0; }

  /// The message that is so many older than the newest; "" where there are not so many.
  std::string_view operator[](std::size_t age) const noexcept { return age < size() ? begin()[age] : ""; }

  /// The newest message, or the other text where there is none.
  std::string_view newest_or(std::string_view other) const noexcept { return empty() ? other : begin()[0]; }

  /// A copy for a walk in the order in which they were reported: its first message is the oldest.
  Messages oldest_first() const noexcept {
    Messages turned = *this;
    if (turned.log_)
      std::reverse(turned.log_->texts.begin(), turned.log_->texts.begin() + turned.log_->count);
    return turned;
  }

 private:
  static constexpr std::size_t kMost = JT_HISTORY_LENGTH;

  struct Log {
    std::size_t count = 0;
    std::array<std::string_view, kMost> texts;
  };

  std::unique_ptr<Log, detail::Free> log_;
};

/// Why a call failed: the category and the messages that the call recorded.
class Error {
 public:
  /// Nothing was reported.
  Error() noexcept = default;

  /// A category with the messages that led to it.
  Error(Category category, Messages messages) noexcept
      : messages_(std::move(messages)), category_(category) {}

  /// The category of the last report; Category::none where the call failed without one.
  Category category() const noexcept { return category_; }

  /// The messages of the call, newest first, and only those. Of a call that made more than JT_HISTORY_LENGTH,
  /// the newest. Where the whole history is one message over and over, nothing tells how many of them are of
  /// the call; the fewest possible are given then. What a client lets jt.h report between two calls here
  /// counts to the second one, if that reports too.
  const Messages &messages() const &noexcept { return messages_; }
  /// The same of a temporary, moved.
  Messages messages() &&noexcept { return std::move(messages_); }

  /// The newest message, "" when there is none. A NUL stands behind it.
  std::string_view message() const noexcept { return messages_[0]; }

 private:
  Messages messages_;
  Category category_ = Category::none;
};

template <typename T = void>
class Result;

/// \cond
namespace detail {

template <typename T>
inline constexpr bool kIsResult = false;
template <typename T>
inline constexpr bool kIsResult<Result<T>> = true;

/// Hands the value of a result on, where it has one to hand on.
template <typename Self, typename F>
decltype(auto) hand_on(Self &&self, F &&next) {
  if constexpr (std::is_void_v<typename std::remove_cvref_t<Self>::value_type>) {
    return std::invoke(std::forward<F>(next));
  } else {
    return std::invoke(std::forward<F>(next), *std::forward<Self>(self));
  }
}

template <typename Self, typename F>
auto and_then(Self &&self, F &&next) {
  using Next = std::remove_cvref_t<decltype(hand_on(std::forward<Self>(self), std::forward<F>(next)))>;
  static_assert(kIsResult<Next>, "and_then() is for a function that gives a jt::Result");
  if (!self) return Next(std::forward<Self>(self).error());
  return Next(hand_on(std::forward<Self>(self), std::forward<F>(next)));
}

template <typename Self, typename F>
auto transform(Self &&self, F &&change) {
  using Other = std::remove_cvref_t<decltype(hand_on(std::forward<Self>(self), std::forward<F>(change)))>;
  if (!self) return Result<Other>(std::forward<Self>(self).error());
  if constexpr (std::is_void_v<Other>) {
    hand_on(std::forward<Self>(self), std::forward<F>(change));
    return Result<Other>();
  } else {
    return Result<Other>(hand_on(std::forward<Self>(self), std::forward<F>(change)));
  }
}

template <typename Self, typename F>
auto or_else(Self &&self, F &&other) {
  using Same = std::remove_cvref_t<Self>;
  using Given = std::invoke_result_t<F, decltype(std::forward<Self>(self).error())>;
  static_assert(std::is_same_v<std::remove_cvref_t<Given>, Same>,
                "or_else() is for a function that gives the same jt::Result");
  if (self) return Same(std::forward<Self>(self));
  return Same(std::invoke(std::forward<F>(other), std::forward<Self>(self).error()));
}

}  // namespace detail
/// \endcond

/// What goes on with a result, as std::expected has it in C++23; every Result has it. A result in hand gives
/// its value to the function as it is, a temporary one gives it away. Nothing is recorded by it, no memory is
/// taken, and what the function throws passes through.
///
/// ```cpp
/// const auto add_one = [&](std::int64_t copies) { return scanner.set("Copies", copies + 1); };
/// if (auto set = scanner.get<std::int32_t>("Copies").and_then(add_one); !set) ...
/// ```
template <typename Self>
class Chain {
 public:
  /// The Result of a function that is called with the value, or without arguments for a Result<>. On failure
  /// the function is not called, and its Result has this error.
  template <typename F>
  auto and_then(F &&next) & {
    return detail::and_then(self(), std::forward<F>(next));
  }
  /// As above.
  template <typename F>
  auto and_then(F &&next) const & {
    return detail::and_then(self(), std::forward<F>(next));
  }
  /// As above.
  template <typename F>
  auto and_then(F &&next) && {
    return detail::and_then(std::move(self()), std::forward<F>(next));
  }

  /// A Result of what a function makes of the value, a copy of it where it is a reference, a Result<> where
  /// it is nothing. On failure the function is not called, and the Result has this error.
  template <typename F>
  auto transform(F &&change) & {
    return detail::transform(self(), std::forward<F>(change));
  }
  /// As above.
  template <typename F>
  auto transform(F &&change) const & {
    return detail::transform(self(), std::forward<F>(change));
  }
  /// As above.
  template <typename F>
  auto transform(F &&change) && {
    return detail::transform(std::move(self()), std::forward<F>(change));
  }

  /// On failure the Result of a function that is called with the error, which gives the same kind of Result.
  /// Else this result: a copy of one in hand, so that one of an owner must be moved.
  template <typename F>
  auto or_else(F &&other) & {
    return detail::or_else(self(), std::forward<F>(other));
  }
  /// As above.
  template <typename F>
  auto or_else(F &&other) const & {
    return detail::or_else(self(), std::forward<F>(other));
  }
  /// As above.
  template <typename F>
  auto or_else(F &&other) && {
    return detail::or_else(std::move(self()), std::forward<F>(other));
  }

 private:
  Self &self() noexcept { return static_cast<Self &>(*this); }
  const Self &self() const noexcept { return static_cast<const Self &>(*this); }
};

/// What a call gives, or why it does not. A result in hand can be tested before it is used; using a value
/// that is not there ends the program with std::abort().
///
/// A temporary result gives its value away, and has no `->`, because the address that it would give is gone
/// with the expression: `session.decode(text).value().encode()`.
template <typename T>
class [[nodiscard]] Result : public Chain<Result<T>> {
 public:
  /// What the call gives.
  using value_type = T;

  /// Success with a value.
  Result(T value) noexcept : value_(std::move(value)) {}
  /// Failure, and why.
  Result(Error error) noexcept : error_(std::move(error)) {}

  /// Whether there is a value.
  bool has_value() const noexcept { return value_.has_value(); }
  /// As has_value().
  explicit operator bool() const noexcept { return has_value(); }

  /// The value. Aborts when there is none.
  T &value() &noexcept { return *checked(); }
  /// The value. Aborts when there is none.
  const T &value() const &noexcept { return const_cast<Result *>(this)->value(); }
  /// The value, moved, so that it may be kept by reference. Aborts when there is none.
  T value() &&noexcept { return std::move(value()); }

  /// As value().
  T &operator*() &noexcept { return value(); }
  /// As value().
  const T &operator*() const &noexcept { return value(); }
  /// As value().
  T operator*() &&noexcept { return std::move(value()); }
  /// A member of the value. Aborts when there is none.
  T *operator->() &noexcept { return &value(); }
  /// A member of the value. Aborts when there is none.
  const T *operator->() const &noexcept { return &value(); }
  /// Not of a temporary.
  const T *operator->() const && = delete;

  /// The value, or what is given instead.
  template <typename Other>
  T value_or(Other &&other) const & {
    return value_ ? *value_ : static_cast<T>(std::forward<Other>(other));
  }
  /// The value, moved, or what is given instead.
  template <typename Other>
  T value_or(Other &&other) && {
    return value_ ? std::move(*value_) : static_cast<T>(std::forward<Other>(other));
  }

  /// Why there is no value; Category::none without messages when there is one.
  const Error &error() const &noexcept { return error_; }
  /// Why there is no value, moved, so that its messages can be walked over.
  Error error() &&noexcept { return std::move(error_); }

 private:
  T *checked() noexcept {
    if (!value_) std::abort();
    return &*value_;
  }

  std::optional<T> value_;
  Error error_;
};

/// Whether a call succeeded, and why not.
template <>
class [[nodiscard]] Result<void> : public Chain<Result<void>> {
 public:
  /// A call that gives nothing but success.
  using value_type = void;

  /// Success.
  Result() noexcept = default;
  /// Failure, and why.
  Result(Error error) noexcept : error_(std::move(error)), succeeded_(false) {}

  /// Whether the call succeeded.
  bool has_value() const noexcept { return succeeded_; }
  /// As has_value().
  explicit operator bool() const noexcept { return succeeded_; }

  /// Aborts on failure.
  void value() const noexcept {
    if (!succeeded_) std::abort();
  }
  /// As value().
  void operator*() const noexcept { value(); }

  /// Why the call failed; Category::none without messages when it did not.
  const Error &error() const &noexcept { return error_; }
  /// Why the call failed, moved, so that its messages can be walked over.
  Error error() &&noexcept { return std::move(error_); }

 private:
  Error error_;
  bool succeeded_ = true;
};

/// \cond
namespace detail {

class Walk;

/// What a Session shares with everything made in it: the session itself, null once it is closed, and the
/// history as it was after the last call that reported, which is how the messages of the next are told.
class Space {
 public:
  explicit Space(jt_parser_space *space) noexcept : raw(space), seen_(read_history()) {}

  /// Once after each call: its category, and how many messages are new.
  void note() noexcept {
    category_ = static_cast<Category>(get_error_status(raw));
    fresh_ = 0;
    if (category_ != Category::none) compare_history();
  }

  Category category() const noexcept { return category_; }

  Error report() const noexcept { return {category_, newest(seen_, fresh_)}; }

  /// All messages of the history.
  Messages history() const noexcept {
    const History now = read_history();
    const auto first_free =
        std::find_if(now.begin(), now.end(), [](const Entry &entry) { return !entry[0]; });
    return newest(now, static_cast<std::size_t>(first_free - now.begin()));
  }

  jt_parser_space *raw;
  std::size_t holders = 1;
  Walk *walks = nullptr;

 private:
  using Entry = std::array<char, JT_MESSAGE_SIZE>;
  using History = std::array<Entry, JT_HISTORY_LENGTH>;

  /// A walk of its own, which leaves the client's to begin with the newest again.
  History read_history() const noexcept {
    History now{};
    get_last_error(raw);
    for (Entry &entry : now) {
      const char *const message = get_previous_error(raw);
      if (message == nullptr) break;
      std::strncpy(entry.data(), message, entry.size() - 1);
    }
    get_last_error(raw);
    return now;
  }

  /// The shortest step by which the history before has moved to become the one of now.
  void compare_history() noexcept {
    const History before = std::exchange(seen_, read_history());
    fresh_ = 1;
    while (!std::equal(seen_.begin() + static_cast<std::ptrdiff_t>(fresh_), seen_.end(), before.begin())) {
      ++fresh_;
    }
  }

  static Messages newest(const History &history, std::size_t count) noexcept {
    std::array<std::string_view, JT_HISTORY_LENGTH> texts;
    for (std::size_t i = 0; i < count; ++i) texts[i] = history[i].data();
    return Messages(std::span(texts).first(count));
  }

  Category category_ = Category::none;
  std::size_t fresh_ = 0;
  History seen_;
};

/// A share of a Space, and the steps around every call.
class Link {
 public:
  Link() noexcept = default;
  explicit Link(jt_parser_space *space) noexcept
      : space_(space != nullptr ? new (std::nothrow) Space(space) : nullptr) {}
  Link(const Link &other) noexcept : space_(other.space_) {
    if (space_ != nullptr) ++space_->holders;
  }
  Link(Link &&other) noexcept : space_(std::exchange(other.space_, nullptr)) {}
  Link &operator=(Link other) noexcept {
    std::swap(space_, other.space_);
    return *this;
  }
  ~Link() {
    if (space_ != nullptr) leave(*space_);
  }

  jt_parser_space *raw() const noexcept { return space_ != nullptr ? space_->raw : nullptr; }

  /// The walks that are under way, the newest first; null where there can be none.
  Walk **walks() const noexcept { return space_ != nullptr ? &space_->walks : nullptr; }

  /// From here on every call of all that share it fails.
  jt_parser_space *detach() const noexcept {
    return space_ != nullptr ? std::exchange(space_->raw, nullptr) : nullptr;
  }

  /// Whether the texts can be given to a call; reports the first that cannot.
  template <typename... Arguments>
  bool admits(const Arguments &...arguments) const noexcept {
    return (... && admits_one(arguments));
  }

  /// Reports what this header finds wrong by itself.
  Error refuse(const char *message, const char *detail) const noexcept {
    reset_error_status(raw());
    jt_error(raw(), message, detail);
    return failure();
  }

  Error failure() const noexcept {
    if (raw() == nullptr) return {Category::call_error, Messages(std::span(&kNoSession, 1))};
    space_->note();
    return space_->report();
  }

  bool answer(std::int32_t yes) const noexcept {
    if (raw() != nullptr) space_->note();
    return yes != 0;
  }

  Result<> done(std::int32_t succeeded) const noexcept {
    if (succeeded == 0) return failure();
    answer(succeeded);
    return {};
  }

  /// A result made of a block of the heap and whatever else it takes.
  template <typename Owner, typename Block, typename... More>
  Result<Owner> made(Block *block, const More &...more) const noexcept {
    if (block == nullptr) return failure();
    answer(1);
    return Owner(more..., block);
  }

  Category category() const noexcept { return space_ != nullptr ? space_->category() : Category::none; }
  Error report() const noexcept { return raw() != nullptr ? space_->report() : failure(); }
  Messages history() const noexcept { return raw() != nullptr ? space_->history() : Messages(); }

 private:
  template <typename Argument>
  bool admits_one(const Argument &argument) const noexcept {
    if constexpr (requires { argument.problem(); }) {
      if (argument.problem() == nullptr) return true;
      reset_error_status(raw());
      jt_error(raw(), argument.problem(), argument.c_str() != nullptr ? argument.c_str() : "");
      return false;
    } else {
      return true;
    }
  }

  /// Not inlined: a compiler that sees many shares of one space go takes each for the last and warns.
  [[gnu::noinline]] static void leave(Space &space) noexcept {
    if (--space.holders == 0) delete &space;
  }

  Space *space_ = nullptr;
};

inline Name to_keep(const TextArgument &text) noexcept { return {text.c_str(), text.problem()}; }

inline const char *plain(const TextArgument &text) noexcept { return text.c_str(); }
inline const char *plain(const Name &text) noexcept { return text.c_str(); }
template <typename Record>
const Record *plain(const Record *record) noexcept {
  return record;
}

}  // namespace detail
/// \endcond

/// \}

// ---- Records of values ------------------------------------------------------------------------------------

/// \defgroup cpp_records Records of values
/// \{

/// A unit of the structures.
enum class Unit : std::int32_t {
  millimetre = 20,  ///< MM
  inch = 21,        ///< IN
  mil = 22          ///< MIL: a thousandth of an inch
};

/// How a magnification is meant.
enum class Scaling : std::int32_t {
  none = 94,            ///< NONE
  automatic_iso = 111,  ///< AUTOISO
  automatic_ana = 112,  ///< AUTOANA
  manual_iso = 113,     ///< MANISO/x
  manual_ana = 114      ///< MANANA/x/y
};

/// The type "timestamp". Its members stand in the reverse order of a SIL text, and may be any numbers that a
/// text had.
struct Timestamp {
  std::int32_t second;  ///< Of the minute.
  std::int32_t minute;  ///< Of the hour.
  std::int32_t hour;    ///< Of the day.
  std::int32_t day;     ///< Of the month.
  std::int32_t month;   ///< Of the year.
  std::int32_t year;    ///< In full.

  /// Whether all members are equal, which is more than the type's own comparison may ask for.
  bool operator==(const Timestamp &) const = default;
};

/// The type "struct_timeofday".
struct TimeOfDay {
  std::int32_t hour;    ///< 0 to 23.
  std::int32_t minute;  ///< 0 to 59.

  /// Whether all members are equal, which is more than the type's own comparison may ask for.
  bool operator==(const TimeOfDay &) const = default;
};

/// The type "struct_rectangle".
struct Rectangle {
  std::int32_t x;       ///< From the left.
  std::int32_t y;       ///< From the top.
  std::int32_t width;   ///< To the right of x.
  std::int32_t height;  ///< Below y.
  Unit unit;            ///< Of all four.

  /// Whether all members are equal, which is more than the type's own comparison may ask for.
  bool operator==(const Rectangle &) const = default;
};

/// The type "struct_gutter".
struct Gutter {
  std::int32_t first_width;   ///< The first of the two in the text.
  std::int32_t second_width;  ///< The second.
  Unit unit;                  ///< Of both.

  /// Whether all members are equal, which is more than the type's own comparison may ask for.
  bool operator==(const Gutter &) const = default;
};

/// The type "struct_magnification", percentages; MANISO has the same twice, the automatic ones have 0.
struct Magnification {
  Scaling scaling;  ///< How it is meant.
  std::int32_t x;   ///< Per cent across.
  std::int32_t y;   ///< Per cent down.

  /// Whether all members are equal, which is more than the type's own comparison may ask for.
  bool operator==(const Magnification &) const = default;
};

/// The type "struct_borders": four numbers with their unit, for both sides of a sheet.
struct Borders {
  /// The borders of one side of the sheet.
  struct Side {
    std::array<std::int32_t, 4> numbers;  ///< In the order of the text.
    Unit unit;                            ///< Of all four.

    /// Whether all members are equal.
    bool operator==(const Side &) const = default;
  };

  Side first;   ///< The first group of the text.
  Side second;  ///< The second group; where the text has only one, what follows from it.

  /// Whether all members are equal, which is more than the type's own comparison may ask for.
  bool operator==(const Borders &) const = default;
};

/// The name of the jt type that a C++ type stands for; null for all other C++ types.
template <typename T>
inline constexpr const char *type_name_of = nullptr;
/// `boolean`.
template <>
inline constexpr const char *type_name_of<bool> = "boolean";
/// `integer`.
template <>
inline constexpr const char *type_name_of<std::int32_t> = "integer";
/// `real`.
template <>
inline constexpr const char *type_name_of<float> = "real";
/// `timestamp`.
template <>
inline constexpr const char *type_name_of<Timestamp> = "timestamp";
/// `struct_timeofday`.
template <>
inline constexpr const char *type_name_of<TimeOfDay> = "struct_timeofday";
/// `struct_rectangle`.
template <>
inline constexpr const char *type_name_of<Rectangle> = "struct_rectangle";
/// `struct_gutter`.
template <>
inline constexpr const char *type_name_of<Gutter> = "struct_gutter";
/// `struct_magnification`.
template <>
inline constexpr const char *type_name_of<Magnification> = "struct_magnification";
/// `struct_borders`.
template <>
inline constexpr const char *type_name_of<Borders> = "struct_borders";

/// What values of a fixed layout are read into and made of. Strings, enumerated values and references go as
/// text.
template <typename T>
concept Typed = type_name_of<T>
!= nullptr;

/// The numbers that Service::set() and Service::add() take. A bool is a truth, and characters are none:
/// `signed char` and `unsigned char` are small numbers, as in std::int8_t.
template <typename T>
concept Number = std::is_floating_point_v<T> ||
    (std::is_integral_v<T> && sizeof(T) <= sizeof(std::int64_t) && !std::is_same_v<T, bool> &&
     !std::is_same_v<T, char> && !std::is_same_v<T, wchar_t> && !std::is_same_v<T, char8_t> &&
     !std::is_same_v<T, char16_t> && !std::is_same_v<T, char32_t>);

/// What Service::set() and Service::add() make a value of by themselves.
template <typename T>
concept Settable = Typed<T> || Number<T>;

/// \cond
namespace detail {

/// The C++ type of the value that is made of a T: all whole numbers become integers, all others reals.
template <typename T>
struct Made {
  using type = T;
};
template <Number T>
struct Made<T> : std::conditional<std::is_floating_point_v<T>, float, std::int32_t> {};

/// A real knows no sign, and nothing beyond it is a number that can be read back; "not a number" fails both
/// tests.
template <typename T>
constexpr bool can_be_made_of(const T &value) noexcept {
  if constexpr (std::is_floating_point_v<T>) {
    return value >= T{0} && value <= T{std::numeric_limits<float>::max()};
  } else if constexpr (Number<T>) {
    return std::in_range<std::int32_t>(value);
  } else {
    return true;
  }
}

/// The number zero with a sign becomes the one without.
template <typename T>
constexpr typename Made<T>::type made_of(const T &value) noexcept {
  if constexpr (std::is_floating_point_v<T>) {
    return static_cast<float>(value) + 0.0F;
  } else {
    return static_cast<typename Made<T>::type>(value);
  }
}

inline bool is_enumerated(const jt_type &type) noexcept {
  const std::string_view name = type.name;
  return name.starts_with("enum_") || name == "kmt_enum_status";
}

/// What a value of the type holds: a truth is a number there.
template <Typed T>
using Stored = std::conditional_t<std::is_same_v<T, bool>, std::int32_t, T>;

static_assert(sizeof(Timestamp) == 24 && sizeof(TimeOfDay) == 8 && sizeof(Rectangle) == 20);
static_assert(sizeof(Gutter) == 12 && sizeof(Magnification) == 12 && sizeof(Borders) == 40);

/// Values have no alignment of their own that C++ knows of.
template <Typed T>
T read(const jt_value *value) noexcept {
  Stored<T> stored;
  std::memcpy(&stored, value, sizeof(stored));
  return static_cast<T>(stored);
}

inline bool same_type_name(const char *a, const char *b) noexcept { return lowercasecmp(a, b) == 0; }

}  // namespace detail
/// \endcond

/// The types that a service has of its own, sorted by name: of one of the fourteen services of jt.h, any
/// case; none for any other text. The service's own row, a kind of block without operations, is among them.
inline std::span<const jt_type> types_of(const TextArgument &service) noexcept {
  if (service.problem() != nullptr || service.c_str() == nullptr) return {};
  std::int32_t count = 0;
  const jt_type *const types = jt_catalogue_types(service.c_str(), &count);
  return {types, static_cast<std::size_t>(count)};
}

/// \}

// ---- Values -----------------------------------------------------------------------------------------------

/// \defgroup cpp_values Values
/// \{

/// Owns a typed value and knows its type. It is a copy: it may stay when its attribute goes. Made by
/// Service::value(), Service::parse() and Session::parse().
class Value {
 public:
  /// No value: tests false, and each call on it fails.
  Value() noexcept = default;

  /// Takes over a value of jt.h, which must be of that type.
  Value(const Session &session, const jt_type &type, jt_value *owned) noexcept;

  /// Takes the value over and leaves the other empty.
  Value(Value &&other) noexcept
      : link_(std::move(other.link_)), type_(other.type_), value_(other.release()) {}
  /// Releases its value and takes the other one over.
  Value &operator=(Value &&other) noexcept {
    Value taken(std::move(other));
    std::swap(link_, taken.link_);
    std::swap(type_, taken.type_);
    std::swap(value_, taken.value_);
    return *this;
  }

  /// Releases the value, as its type does.
  ~Value() {
    if (value_ != nullptr) type_->kill(nullptr, value_);
  }

  /// The row of its type, null when there is no value.
  const jt_type *type() const noexcept { return value_ != nullptr ? type_ : nullptr; }

  /// The value as text, unquoted; of an enumerated one the name. jt_encode_value()
  Result<Text> text() const noexcept {
    reset_error_status(link_.raw());
    if (value_ == nullptr) return link_.failure();
    return link_.made<Text>(type_->deval(link_.raw(), value_));
  }

  /// Another value equal to it; fails when there is no value. O(its size). jt_copy_value()
  Result<Value> copy() const noexcept {
    reset_error_status(link_.raw());
    if (value_ == nullptr) return link_.failure();
    return link_.made<Value>(type_->copy(link_.raw(), value_), link_, type_);
  }

  /// The value itself. "CALL ERROR: value is not of the type:" + type of T.
  template <Typed T>
  Result<T> as() const noexcept {
    if (value_ == nullptr) return link_.failure();
    if (!detail::same_type_name(type_->name, type_name_of<T>)) {
      return link_.refuse(detail::kOtherType, type_name_of<T>);
    }
    return detail::read<T>(value_);
  }

  /// Whether it is an enumerated value whose name the list of its service does not know; text() is that name.
  /// False for all other values, and for none. No call is made. O(1).
  bool is_unknown() const noexcept {
    std::uint32_t number = 0;
    if (value_ == nullptr || !detail::is_enumerated(*type_)) return false;
    std::memcpy(&number, value_, sizeof(number));
    return number == UINT32_MAX;
  }

  /// Whether there is a value.
  explicit operator bool() const noexcept { return value_ != nullptr; }
  /// The value of jt.h; null when there is none.
  jt_value *get() const noexcept { return value_; }

  /// Gives the value up; release it with jt_destroy_value() or its type's kill().
  [[nodiscard]] jt_value *release() noexcept { return std::exchange(value_, nullptr); }

  /// The order of the type, as jt_compare_value() has it; unordered where the type knows only that they
  /// differ, and for two types. No value comes before any value, and equals no value.
  friend std::partial_ordering operator<=>(const Value &a, const Value &b) noexcept {
    if (!a || !b) return static_cast<bool>(a) <=> static_cast<bool>(b);
    if (a.type_ != b.type_) return std::partial_ordering::unordered;
    const std::int32_t order = a.type_->cmp(nullptr, a.value_, b.value_);
    // A string's order may be any number: the difference of two bytes.
    if (order == kDifferent && !detail::same_type_name(a.type_->name, "string")) {
      return std::partial_ordering::unordered;
    }
    return order <=> 0;
  }
  /// Whether both are of one type and equal there.
  friend bool operator==(const Value &a, const Value &b) noexcept { return (a <=> b) == 0; }

 private:
  friend class detail::Link;
  friend class Service;

  static constexpr std::int32_t kDifferent = -2;

  Value(detail::Link link, const jt_type *type, jt_value *owned) noexcept
      : link_(std::move(link)), type_(type), value_(owned) {}

  detail::Link link_;
  const jt_type *type_ = nullptr;
  jt_value *value_ = nullptr;
};

/// \}

// ---- Statuses ---------------------------------------------------------------------------------------------

/// \defgroup cpp_statuses Statuses
/// \{

/// The numbers of statuses.
enum class StatusCode : std::uint32_t {
  aborted = 1,                             ///< KMT_STATUS_ABORTED
  unknown = 2,                             ///< KMT_STATUS_UNKNOWN
  not_instantiated = 3,                    ///< KMT_STATUS_NOTINSTANTIATED
  instantiated = 4,                        ///< KMT_STATUS_INSTANTIATED
  completed = 5,                           ///< KMT_STATUS_COMPLETED
  overridden = 6,                          ///< KMT_STATUS_OVERRIDDEN
  ignored = 7,                             ///< KMT_STATUS_IGNORED
  undetermined = 8,                        ///< KMT_STATUS_UNDETERMINED
  initialized = 9,                         ///< KMT_STATUS_INITIALIZED
  uninitialized = 10,                      ///< KMT_STATUS_UNINITIALIZED
  filing_protocol_not_running = 11,        ///< KMT_STATUS_FILING_PROTOCOL_NOT_RUNNING
  filing_login_failure = 12,               ///< KMT_STATUS_FILING_LOGIN_FAILURE
  filing_directory_lock_failure = 13,      ///< KMT_STATUS_FILING_DIRECTORY_LOCK_FAILURE
  file_delete_replace_failure = 14,        ///< KMT_STATUS_FILE_DELETE_REPLACE_FAILURE
  hzm_content_file_transfer_failure = 15,  ///< KMT_STATUS_HZM_CONTENT_FILE_TRANSFER_FAILURE
  file_transfer_failure = 16,              ///< KMT_STATUS_FILE_TRANSFER_FAILURE
  misc_filing_error = 17,                  ///< KMT_STATUS_MISC_FILING_ERROR
  error = 18,                              ///< KMT_STATUS_ERROR
  warning = 19,                            ///< KMT_STATUS_WARNING
  other = UINT32_MAX                       ///< a name that no number has
};

/// Owns a status. Made by the status questions of Service, and by Session::status().
class Status {
 public:
  /// No status: tests false, and its code is StatusCode::other.
  Status() noexcept = default;

  /// Takes over a status of jt.h.
  Status(const Session &session, jt_status *owned) noexcept;

  /// Its number; StatusCode::other when there is no status.
  StatusCode code() const noexcept {
    StatusCode code = StatusCode::other;
    if (status_) std::memcpy(&code, status_.get(), sizeof(code));
    return code;
  }

  /// Its name; needs the session to be open. get_status_string()
  Result<Text> name() const noexcept {
    reset_error_status(link_.raw());
    if (!status_ || link_.raw() == nullptr) return link_.failure();
    return link_.made<Text>(get_status_string(link_.raw(), status_.get()));
  }

  /// Whether there is a status.
  explicit operator bool() const noexcept { return status_ != nullptr; }
  /// The status of jt.h; null when there is none.
  jt_status *get() const noexcept { return status_.get(); }

  /// Gives the status up; release it with free() or a call of jt.h.
  [[nodiscard]] jt_status *release() noexcept { return status_.release(); }

 private:
  friend class detail::Link;

  Status(detail::Link link, jt_status *owned) noexcept : link_(std::move(link)), status_(owned) {}

  detail::Link link_;
  std::unique_ptr<jt_status, detail::Free> status_;
};

/// A status given to a call: a number, or a status that there is. An empty Status is refused silently.
class StatusArgument {
 public:
  /// A status by its number.
  StatusArgument(StatusCode code) noexcept : code_(code) {}
  /// A status that there is, good as long as that.
  StatusArgument(const Status &status) noexcept : is_code_(false), status_(status.get()) {}

  /// What is handed to the call.
  const jt_status *get() const noexcept {
    return is_code_ ? reinterpret_cast<const jt_status *>(&code_) : status_;
  }

 private:
  StatusCode code_ = StatusCode::other;
  bool is_code_ = true;
  const jt_status *status_ = nullptr;
};

/// \}

// ---- Services ---------------------------------------------------------------------------------------------

/// \defgroup cpp_services Services
/// \{

/// \cond
namespace detail {

/// The nodes that have a cursor, on one of their children.
enum class Parent : unsigned char { root, service, invocation, attribute };

/// Tells cursors apart by the arguments of the calls that move them. Two may share a number, which costs
/// time: a walk then looks for a place that it has not lost.
inline std::uint64_t cursor_number(Parent parent, std::int32_t handle, const char *service,
                                   const char *attribute) noexcept {
  std::uint64_t number = 0xCBF29CE484222325U;
  const auto add = [&number](std::uint32_t part) { number = (number ^ part) * 0x100000001B3U; };
  add(static_cast<std::uint32_t>(parent));
  add(static_cast<std::uint32_t>(handle));
  for (const char *name : {service, attribute}) {
    for (; name != nullptr && *name != '\0'; ++name) {
      const auto byte = static_cast<unsigned char>(*name);
      add(byte >= 'A' && byte <= 'Z' ? byte + 32U : byte);
    }
    add('\0');
  }
  return number;
}

/// The place of a walk. The tree has one cursor for all walks over the same children; so each that is under
/// way stands in a list of its session, where whoever moves the cursor can tell it that it has lost its
/// place.
class Walk {
 public:
  Walk() noexcept = default;
  /// A copy is a walk that has not begun.
  Walk(const Walk &) noexcept {}
  Walk(Walk &&other) noexcept { take_over(other); }
  Walk &operator=(Walk other) noexcept {
    leave();
    take_over(other);
    return *this;
  }
  ~Walk() { leave(); }

  void begin(const Link &link, std::uint64_t cursor) noexcept {
    leave();
    link_ = link;
    cursor_ = cursor;
    place_ = 0;
    if (link_.walks() != nullptr) join(*link_.walks());
  }

  void leave() noexcept {
    if (!is_under_way()) return;
    *to_this_ = next_;
    if (next_ != nullptr) next_->to_this_ = to_this_;
    to_this_ = nullptr;
  }

  /// Once after each step.
  void count_step() noexcept {
    ++place_;
    is_lost_ = false;
    tell(link_, cursor_, this);
  }

  /// Says that the cursor was moved, to all that stand on it but the one that did it.
  static void tell(const Link &link, std::uint64_t cursor, const Walk *mover = nullptr) noexcept {
    for (Walk *walk = newest(link); walk != nullptr; walk = walk->next_) {
      if (walk != mover && walk->cursor_ == cursor) walk->is_lost_ = true;
    }
  }

  /// The newest one that this one has made lose its place.
  const Walk *loser() const noexcept {
    const Walk *walk = newest(link_);
    while (walk != nullptr && !(walk->is_lost_ && walk->cursor_ == cursor_)) walk = walk->next_;
    return walk;
  }

  bool is_under_way() const noexcept { return to_this_ != nullptr; }
  bool is_lost() const noexcept { return is_lost_; }
  /// How many steps were made.
  std::size_t place() const noexcept { return place_; }

  static Walk *newest(const Link &link) noexcept { return link.walks() != nullptr ? *link.walks() : nullptr; }

 private:
  void join(Walk *&head) noexcept {
    to_this_ = &head;
    next_ = std::exchange(head, this);
    if (next_ != nullptr) next_->to_this_ = &next_;
  }

  void take_over(Walk &other) noexcept {
    if (!other.is_under_way()) return;
    link_ = other.link_;
    cursor_ = other.cursor_;
    place_ = other.place_;
    is_lost_ = other.is_lost_;
    Walk *&to_other = *other.to_this_;
    other.leave();
    join(to_other);
  }

  Link link_;
  std::uint64_t cursor_ = 0;
  std::size_t place_ = 0;
  bool is_lost_ = false;
  Walk *next_ = nullptr;
  Walk **to_this_ = nullptr;
};

template <typename Steps>
class Range;
struct ServiceSteps;
struct InvocationSteps;
struct AttributeSteps;
struct TextSteps;
struct ValueSteps;

}  // namespace detail
/// \endcond

/// A walk over the services of a template.
using Services = detail::Range<detail::ServiceSteps>;
/// A walk over the invocations of a service.
using Invocations = detail::Range<detail::InvocationSteps>;
/// A walk over the names of the attributes of an invocation.
using Attributes = detail::Range<detail::AttributeSteps>;
/// A walk over the values of an attribute as texts.
using Texts = detail::Range<detail::TextSteps>;
/// A walk over the values of an attribute.
using Values = detail::Range<detail::ValueSteps>;

/// A service of a template by its name, which it keeps: up to 63 bytes in itself, else on the heap. Owns
/// nothing of the tree, so it may be copied, and the service need not exist: the calls tell. It acts on the
/// template whose handle it has, and must not be used once that is destroyed.
///
/// There is no class for an invocation: calls on attributes act on the current invocation of the service, as
/// in jt.h, and which one that is, is the tree's to say.
class Service {
 public:
  /// No service: its name is empty, and each call on it fails.
  Service() noexcept = default;

  /// Its name; "" when there is none.
  const char *c_str() const noexcept { return name_.c_str() != nullptr ? name_.c_str() : ""; }
  /// Its name; "" when there is none. The view is good while this Service is.
  std::string_view name() const noexcept { return c_str(); }

  /// Whether the template has such a service. jt_exists_service()
  bool exists() const noexcept { return ask(jt_exists_service); }

  /// The name of its type. jt_get_service_type()
  Result<Text> type() const noexcept { return text_of(jt_get_service_type); }

  /// Destroys it and everything in it. jt_delete_service()
  Result<> remove() const noexcept { return act(jt_delete_service); }

  /// A walk over its invocations. Each step makes one current and gives this service, ready to act on it.
  Invocations invocations() const noexcept;

  /// Adds an unnamed invocation after the current one and makes it current. jt_add_invocation()
  Result<> add_invocation() const noexcept { return act(jt_add_invocation); }

  /// Destroys the current invocation. jt_delete_invocation()
  Result<> remove_invocation() const noexcept { return act(jt_delete_invocation); }

  /// Makes the first invocation current; whether there is one. jt_first_invocation()
  bool first_invocation() const noexcept { return ask(jt_first_invocation); }

  /// Makes the next invocation current; whether there is one. jt_next_invocation()
  bool next_invocation() const noexcept { return ask(jt_next_invocation); }

  /// Makes the invocation of that name, or else of that number from 1, current. jt_named_invocation()
  Result<> select_invocation(const TextArgument &name_or_number) const noexcept {
    return act(jt_named_invocation, name_or_number);
  }

  /// The name of the current invocation. Fails with Category::none when it is unnamed.
  /// jt_get_invocation_name()
  Result<Text> invocation_name() const noexcept { return text_of(jt_get_invocation_name); }

  /// Names the current invocation, which must not have a name. jt_set_invocation_name()
  Result<> name_invocation(const TextArgument &name) const noexcept {
    return act(jt_set_invocation_name, name);
  }

  /// Names the current invocation, whether it has a name or not. jt_force_invocation_name()
  Result<> rename_invocation(const TextArgument &name) const noexcept {
    return act(jt_force_invocation_name, name);
  }

  /// A walk over the names of the attributes of the current invocation.
  Attributes attributes() const noexcept;

  /// Whether the current invocation has such an attribute. jt_exists_attribute()
  bool has(const TextArgument &attribute) const noexcept { return ask(jt_exists_attribute, attribute); }

  /// The name of its type. jt_get_attribute_type_name()
  Result<Text> type_of(const TextArgument &attribute) const noexcept {
    return text_of(jt_get_attribute_type_name, attribute);
  }

  /// Whether its type is known. jt_known_attribute_datatype()
  bool has_known_type(const TextArgument &attribute) const noexcept {
    return ask(jt_known_attribute_datatype, attribute);
  }

  /// Whether it has a star. jt_is_attribute_non_compulsory()
  bool is_non_compulsory(const TextArgument &attribute) const noexcept {
    return ask(jt_is_attribute_non_compulsory, attribute);
  }

  /// Its first value as text, unquoted; of an enumerated one the name. Fails with Category::none when there
  /// is no value. jt_get_first_attribute_value_string()
  Result<Text> text(const TextArgument &attribute) const noexcept {
    leave_first_value(attribute);
    return text_of(jt_get_first_attribute_value_string, attribute);
  }

  /// Its first value. Fails with Category::none when there is none. Costs one look-up for the type's name
  /// more, and for a type that is not a base type another for the service's. jt_get_first_attribute_value()
  Result<Value> value(const TextArgument &attribute) const noexcept;

  /// Its first value, of the type that T stands for: integer, boolean, real or one of the records. Any other
  /// type is refused: "CALL ERROR: value is not of the type:" + type of T. Costs what value() costs.
  template <Typed T>
  Result<T> get(const TextArgument &attribute) const noexcept {
    const Result<Value> found = value(attribute);
    if (!found) return found.error();
    return found->template as<T>();
  }

  /// A walk over its values as texts.
  Texts texts(const TextArgument &attribute) const noexcept;

  /// A walk over its values.
  Values values(const TextArgument &attribute) const noexcept;

  /// A value of the attribute's type from a text, not put into the tree. "CALL ERROR: unknown data type:" +
  /// attribute. Otherwise as jt_decode_value().
  Result<Value> parse(const TextArgument &attribute, const TextArgument &text) const noexcept;

  /// Appends a compulsory attribute without values. jt_add_attribute()
  Result<> add_attribute(const TextArgument &type, const TextArgument &attribute) const noexcept {
    return act(jt_add_attribute, type, attribute);
  }

  /// Destroys it with its values. jt_delete_attribute()
  Result<> remove_attribute(const TextArgument &attribute) const noexcept {
    return act(jt_delete_attribute, attribute);
  }

  /// Appends a value from a text, unquoted; of an enumerated one the name. jt_add_attribute_value_string()
  Result<> add(const TextArgument &attribute, const TextArgument &text) const noexcept {
    return act(jt_add_attribute_value_string, attribute, text);
  }

  /// Makes that the only value. jt_set_attribute_value_string()
  Result<> set(const TextArgument &attribute, const TextArgument &text) const noexcept {
    return act(jt_set_attribute_value_string, attribute, text);
  }

  /// Appends a copy of a value, which must be of the attribute's type: "CALL ERROR: value is not of the
  /// type:" + type of the attribute. The check costs what value() costs. jt_add_attribute_value()
  Result<> add(const TextArgument &attribute, const Value &value) const noexcept {
    return give(jt_add_attribute_value, attribute, value);
  }

  /// Makes a copy of a value the only one; otherwise as add(). jt_set_attribute_value()
  Result<> set(const TextArgument &attribute, const Value &value) const noexcept {
    return give(jt_set_attribute_value, attribute, value);
  }

  /// Appends what makes a value: add("Copies", 2). The attribute must be of the type that T stands for:
  /// "CALL ERROR: value is not of the type:" + type of the attribute. The check costs one look-up for the
  /// type's name.
  ///
  /// Any whole number makes an integer, any other a real, rounded to a float. One that the type does not have
  /// is refused, and nothing changes: "CALL ERROR: number is not a value of the type:" + type of the
  /// attribute. That is a whole number beyond 32 bits with sign, and a real that is negative, infinite,
  /// beyond a float or not a number. jt_add_attribute_value()
  template <Settable T>
  Result<> add(const TextArgument &attribute, const T &value) const noexcept {
    return give_record(jt_add_attribute_value, attribute, value);
  }

  /// Makes that the only value: set("Copies", 2). Otherwise as add(). jt_set_attribute_value()
  template <Settable T>
  Result<> set(const TextArgument &attribute, const T &value) const noexcept {
    return give_record(jt_set_attribute_value, attribute, value);
  }

  /// Appends an attribute and gives it a value, whatever add() takes. One whose value is refused stays,
  /// without one. The result and Session::last_report() are those of the last step that was made.
  /// jt_add_attribute(), then as add()
  template <typename V>
  Result<> add_attribute(const TextArgument &type, const TextArgument &attribute,
                         const V &value) const noexcept requires requires(const Service &service) {
    service.add(attribute, value);
  }
  {
    Result<> added = add_attribute(type, attribute);
    return added ? add(attribute, value) : added;
  }

  /// Destroys the first value that equals the one given as text. jt_delete_attribute_value_string()
  Result<> remove_value(const TextArgument &attribute, const TextArgument &text) const noexcept {
    return act(jt_delete_attribute_value_string, attribute, text);
  }

  /// Destroys the first value that equals the given one, which must be of the attribute's type.
  /// jt_delete_attribute_value()
  Result<> remove_value(const TextArgument &attribute, const Value &value) const noexcept {
    return give(jt_delete_attribute_value, attribute, value);
  }

  /// Replaces the first value that equals the old one, marks the attribute as overridden and keeps the old
  /// value's text. Both must be of the attribute's type, as above. jt_override_attribute_value()
  Result<> override_value(const TextArgument &attribute, const Value &old_value,
                          const Value &new_value) const noexcept {
    return give(jt_override_attribute_value, attribute, old_value, new_value);
  }

  /// Takes the star away. jt_set_attribute_compulsory()
  Result<> set_compulsory(const TextArgument &attribute) const noexcept {
    return act(jt_set_attribute_compulsory, attribute);
  }

  /// Gives it a star. jt_set_attribute_non_compulsory()
  Result<> set_non_compulsory(const TextArgument &attribute) const noexcept {
    return act(jt_set_attribute_non_compulsory, attribute);
  }

  /// The status of the service. Fails with Category::none when there is none. jt_get_service_status()
  Result<Status> status() const noexcept { return status_of(jt_get_service_status); }

  /// The status of the current invocation. Fails with Category::none when there is none.
  /// jt_get_invocation_status()
  Result<Status> invocation_status() const noexcept { return status_of(jt_get_invocation_status); }

  /// The status of an attribute. Fails with Category::none when there is none. jt_get_attribute_status()
  Result<Status> attribute_status(const TextArgument &attribute) const noexcept {
    return status_of(jt_get_attribute_status, attribute);
  }

  /// Gives the service a status. jt_set_service_status()
  Result<> set_status(const StatusArgument &status) const noexcept {
    return act(jt_set_service_status, status.get());
  }

  /// Gives the current invocation a status. jt_set_invocation_status()
  Result<> set_invocation_status(const StatusArgument &status) const noexcept {
    return act(jt_set_invocation_status, status.get());
  }

  /// Gives an attribute a status. jt_set_attribute_status()
  Result<> set_attribute_status(const TextArgument &attribute, const StatusArgument &status) const noexcept {
    return act(jt_set_attribute_status, attribute, status.get());
  }

 private:
  friend class Template;
  friend struct detail::ServiceSteps;
  friend struct detail::InvocationSteps;
  friend struct detail::AttributeSteps;
  friend struct detail::TextSteps;
  friend struct detail::ValueSteps;

  Service(detail::Link link, std::int32_t handle, detail::Name name) noexcept
      : link_(std::move(link)), handle_(handle), name_(std::move(name)) {}

  std::uint64_t cursor(detail::Parent parent, const char *attribute = nullptr) const noexcept {
    return detail::cursor_number(parent, handle_, c_str(), attribute);
  }

  /// Reading the first value leaves the cursor behind it, wherever a walk over the values was.
  void leave_first_value(const TextArgument &attribute) const noexcept {
    if (detail::Walk::newest(link_) == nullptr) return;
    detail::Walk::tell(link_, cursor(detail::Parent::attribute, attribute.c_str()));
  }

  // One call of jt.h each, unless a text cannot be given to it.

  template <typename Call, typename... Arguments>
  auto call(Call *function, const Arguments &...arguments) const noexcept {
    using Answer = decltype(function(link_.raw(), handle_, name_.c_str(), detail::plain(arguments)...));
    if (!link_.admits(name_, arguments...)) return Answer{};
    return function(link_.raw(), handle_, name_.c_str(), detail::plain(arguments)...);
  }

  template <typename Call, typename... Arguments>
  bool ask(Call *function, const Arguments &...arguments) const noexcept {
    return link_.answer(call(function, arguments...));
  }

  template <typename Call, typename... Arguments>
  Result<> act(Call *function, const Arguments &...arguments) const noexcept {
    return link_.done(call(function, arguments...));
  }

  template <typename Call, typename... Arguments>
  Result<Text> text_of(Call *function, const Arguments &...arguments) const noexcept {
    return link_.made<Text>(call(function, arguments...));
  }

  template <typename Call, typename... Arguments>
  Result<Status> status_of(Call *function, const Arguments &...arguments) const noexcept {
    return link_.made<Status>(call(function, arguments...), link_);
  }

  // The types of an attribute: the base types, else those of the service's name where it is one of the
  // fourteen, else of its type. No service has a type of its own under the name of a base type.

  /// The row of an attribute's type. Null when there is no such attribute, with the report of that, or when
  /// the type is unknown, without one.
  template <typename Attribute>
  const jt_type *row_of(const Attribute &attribute) const noexcept {
    const Text type(call(jt_get_attribute_type_name, attribute));
    if (!type) return nullptr;
    const jt_type *const base = get_type_from_services(link_.raw(), nullptr, type.get());
    if (base != nullptr) return base;
    if (!types_of(name_.c_str()).empty()) {
      return get_type_from_services(link_.raw(), name_.c_str(), type.get());
    }
    const Text scope(call(jt_get_service_type));
    return get_type_from_services(link_.raw(), scope.get(), type.get());
  }

  /// The first or the next value. Without a row there is none, and the call is made for its report alone.
  template <typename Call, typename Attribute>
  Result<Value> value_of(Call *function, const jt_type *row, const Attribute &attribute) const noexcept {
    if (row == nullptr && get_error_status(link_.raw()) != JT_OK) return link_.failure();
    return link_.made<Value>(call(function, attribute), link_, row);
  }

  template <typename Call, typename... Given>
  Result<> give(Call *function, const TextArgument &attribute, const Given &...values) const noexcept {
    const jt_type *const row = row_of(attribute);
    const bool fits = row != nullptr && (... && (!values || values.type() == row));
    if (fits || link_.raw() == nullptr || get_error_status(link_.raw()) != JT_OK) {
      return fits ? act(function, attribute, values.get()...) : link_.failure();
    }
    return link_.refuse(detail::kOtherType, Text(call(jt_get_attribute_type_name, attribute)).c_str());
  }

  template <typename Call, Settable T>
  Result<> give_record(Call *function, const TextArgument &attribute, const T &value) const noexcept {
    using Kept = typename detail::Made<T>::type;
    const Result<Text> type = type_of(attribute);
    if (!type) return type.error();
    if (!detail::same_type_name(type->c_str(), type_name_of<Kept>)) {
      return link_.refuse(detail::kOtherType, type->c_str());
    }
    if (!detail::can_be_made_of(value)) return link_.refuse(detail::kNotInRange, type->c_str());
    const auto stored = static_cast<detail::Stored<Kept>>(detail::made_of(value));
    return act(function, attribute, reinterpret_cast<const jt_value *>(&stored));
  }

  detail::Link link_;
  std::int32_t handle_ = 0;
  detail::Name name_;
};

/// \}

// ---- Ranges -----------------------------------------------------------------------------------------------

/// \defgroup cpp_ranges Ranges
///
/// Input ranges for a range-based for and for the algorithms of std::ranges. begin() starts again with the
/// first; the iterators of one range share its place. An element is good until the next step. A temporary
/// range has no begin(), because the iterator would outlive it; a range-based for keeps it.
///
/// **Walks in walks.** The tree has one cursor for all walks over the same children, and Service::text(),
/// Service::value() and Service::get() move it too. A walk that has lost it so goes back to its own place by
/// itself, so that walks may be nested and take turns: such a step costs O(elements passed), any other one
/// call. Not followed are the calls of jt.h, and children that are added or removed: what comes before the
/// place is counted, not remembered.
///
/// **The current invocation.** A walk over invocations makes its element the current one, and so does an
/// inner walk over the same service; when that ends or its range goes, the element of the walk around it is
/// current again. Left early, a walk leaves its last element current; at the end there is no current one. A
/// client that makes another one current moves the walk there. Attributes and values are walked in the
/// invocation that is current at each step.
///
/// A walk that cannot be made is an empty one. Session::last_report(), asked right behind the loop, says why
/// a walk ended: nothing there when it reached the end. An unnamed service or attribute ends its walk,
/// because the calls of jt.h cannot tell it from the end; a value without a text form ends a walk over texts.
/// \{

/// \cond
namespace detail {

/// A range made of steps: first() and next() give the address of the element, null behind the last.
template <typename Steps>
class Range {
 public:
  class Iterator {
   public:
    using iterator_concept = std::input_iterator_tag;
    using value_type = typename Steps::Element;
    using difference_type = std::ptrdiff_t;

    Iterator() noexcept = default;

    value_type &operator*() const noexcept { return *element_; }
    value_type *operator->() const noexcept { return element_; }
    Iterator &operator++() noexcept {
      element_ = range_->next();
      return *this;
    }
    void operator++(int) noexcept { ++*this; }
    friend bool operator==(const Iterator &at, std::default_sentinel_t) noexcept {
      return at.element_ == nullptr;
    }

   private:
    friend class Range;
    Iterator(Range &range, value_type *element) noexcept : range_(&range), element_(element) {}

    Range *range_ = nullptr;
    value_type *element_ = nullptr;
  };

  explicit Range(Steps steps) noexcept : steps_(std::move(steps)) {}
  Range(const Range &) = default;
  Range(Range &&) noexcept = default;
  Range &operator=(const Range &) = default;
  Range &operator=(Range &&) noexcept = default;
  ~Range() { end_walk(); }

  /// Starts the walk.
  Iterator begin() &noexcept {
    walk_.begin(steps_.link(), steps_.cursor());
    return Iterator(*this, arrive(steps_.first()));
  }
  Iterator begin() && = delete;
  std::default_sentinel_t end() const noexcept { return {}; }

 private:
  using Element = typename Steps::Element;

  Element *next() noexcept {
    if (!walk_.is_lost()) return arrive(steps_.next());
    Element *element = steps_.first();
    for (std::size_t i = 0; i < walk_.place() && element != nullptr; ++i) element = steps_.next();
    return arrive(element);
  }

  Element *arrive(Element *element) noexcept {
    walk_.count_step();
    if (element == nullptr) end_walk();
    return element;
  }

  void end_walk() noexcept {
    if (!walk_.is_under_way()) return;
    walk_.leave();
    if constexpr (requires { steps_.make_current(walk_.place()); }) {
      const Walk *const around = walk_.loser();
      if (around != nullptr) steps_.make_current(around->place());
    }
  }

  Steps steps_;
  Walk walk_;
};

template <typename Owner>
Owner *keep(Owner &element, Result<Owner> found) noexcept {
  if (!found) return nullptr;
  element = *std::move(found);
  return &element;
}

struct ServiceSteps {
  using Element = Service;

  Element *first() noexcept { return take(jt_get_first_service_name); }
  Element *next() noexcept { return take(jt_get_next_service_name); }
  const Link &link() const noexcept { return element.link_; }
  std::uint64_t cursor() const noexcept {
    return cursor_number(Parent::root, element.handle_, nullptr, nullptr);
  }

  template <typename Call>
  Element *take(Call *function) noexcept {
    Text name(function(element.link_.raw(), element.handle_));
    if (!element.link_.answer(name.get() != nullptr)) return nullptr;
    element.name_ = Name(std::move(name));
    return &element;
  }

  Service element;
};

struct InvocationSteps {
  using Element = Service;

  Element *first() noexcept { return service.first_invocation() ? &service : nullptr; }
  Element *next() noexcept { return service.next_invocation() ? &service : nullptr; }
  const Link &link() const noexcept { return service.link_; }
  std::uint64_t cursor() const noexcept { return service.cursor(Parent::service); }

  /// Of that number, counted from 1. Not noted, so that the last report remains that of the walk.
  void make_current(std::size_t number) const noexcept {
    service.call(jt_first_invocation);
    for (std::size_t at = 1; at < number; ++at) service.call(jt_next_invocation);
  }

  Service service;
};

struct AttributeSteps {
  using Element = Text;

  Element *first() noexcept { return keep(element, service.text_of(jt_get_first_attribute_name)); }
  Element *next() noexcept { return keep(element, service.text_of(jt_get_next_attribute_name)); }
  const Link &link() const noexcept { return service.link_; }
  std::uint64_t cursor() const noexcept { return service.cursor(Parent::invocation); }

  Service service;
  Text element{};
};

struct TextSteps {
  using Element = Text;

  Element *first() noexcept {
    return keep(element, service.text_of(jt_get_first_attribute_value_string, attribute));
  }
  Element *next() noexcept {
    return keep(element, service.text_of(jt_get_next_attribute_value_string, attribute));
  }
  const Link &link() const noexcept { return service.link_; }
  std::uint64_t cursor() const noexcept { return service.cursor(Parent::attribute, attribute.c_str()); }

  Service service;
  Name attribute;
  Text element{};
};

struct ValueSteps {
  using Element = Value;

  Element *first() noexcept {
    row = service.row_of(attribute);
    return keep(element, service.value_of(jt_get_first_attribute_value, row, attribute));
  }
  Element *next() noexcept {
    return keep(element, service.value_of(jt_get_next_attribute_value, row, attribute));
  }
  const Link &link() const noexcept { return service.link_; }
  std::uint64_t cursor() const noexcept { return service.cursor(Parent::attribute, attribute.c_str()); }

  Service service;
  Name attribute;
  const jt_type *row = nullptr;
  Value element{};
};

}  // namespace detail
/// \endcond

inline Invocations Service::invocations() const noexcept { return Invocations({*this}); }
inline Attributes Service::attributes() const noexcept { return Attributes({*this}); }
inline Texts Service::texts(const TextArgument &attribute) const noexcept {
  return Texts({*this, detail::to_keep(attribute)});
}
inline Values Service::values(const TextArgument &attribute) const noexcept {
  return Values({*this, detail::to_keep(attribute)});
}

inline Result<Value> Service::parse(const TextArgument &attribute, const TextArgument &text) const noexcept {
  if (!link_.admits(text)) return link_.failure();
  const jt_type *const row = row_of(attribute);
  if (row == nullptr && get_error_status(link_.raw()) != JT_OK) return link_.failure();
  if (row == nullptr) return link_.refuse(detail::kUnknownType, attribute.c_str());
  if (row->eval == nullptr || text.c_str() == nullptr) return link_.failure();
  const std::size_t bytes = std::strlen(text.c_str()) + 1;
  const Text copy(static_cast<char *>(std::malloc(bytes)));
  if (!copy) return link_.refuse(detail::kNoMemory, "");
  std::memcpy(copy.get(), text.c_str(), bytes);
  return link_.made<Value>(row->eval(link_.raw(), copy.get()), link_, row);
}

inline Result<Value> Service::value(const TextArgument &attribute) const noexcept {
  leave_first_value(attribute);
  return value_of(jt_get_first_attribute_value, row_of(attribute), attribute);
}

/// \}

// ---- Elements ---------------------------------------------------------------------------------------------

/// \defgroup cpp_elements Elements
///
/// Everything in a template as objects that can be kept and copied: Template::root() gives the first, which
/// leads to all others. An Element is a session and a handle, and owns nothing; what jt.h says about the life
/// of a handle holds for it. A walk over children() is the iterator's own, so walks do not disturb each
/// other, and no cursor moves.
/// \{

/// What an element is.
enum class ElementKind : std::int32_t {
  none = -1,                                  ///< no element
  template_or_section = JT_NODE_TEMPLATE,     ///< a template, or the section in one
  service = JT_NODE_SERVICE,                  ///< in a template or a section
  invocation = JT_NODE_INVOCATION,            ///< in a service
  attribute = JT_NODE_ATTRIBUTE,              ///< in an invocation or a header
  value = JT_NODE_VALUE,                      ///< in an attribute
  unread_header = JT_NODE_HEADER,             ///< a header that no text gave a form
  question_header = JT_NODE_HEADER_QUESTION,  ///< `<? SIL`
  plain_header = JT_NODE_HEADER_PLAIN,        ///< `< SIL`
  exclaim_header = JT_NODE_HEADER_EXCLAIM     ///< `<! SIL`
};

class Elements;

/// An element of a template. Where there is none to give, an empty one is given.
class Element {
 public:
  /// No element: tests false, and each call on it fails.
  Element() noexcept = default;

  /// An element of jt.h.
  Element(const Session &session, std::int32_t handle) noexcept;

  /// What it is; ElementKind::none when there is no such element. jt_element_kind()
  ElementKind kind() const noexcept {
    const std::int32_t kind = jt_element_kind(link_.raw(), handle_);
    link_.answer(kind >= 0);
    return link_.raw() != nullptr ? static_cast<ElementKind>(kind) : ElementKind::none;
  }

  /// The name of a service, an invocation or an attribute. Fails with Category::none when there is none.
  /// jt_element_name()
  Result<Text> name() const noexcept { return text_of(jt_element_name); }
  /// The name of its type. Fails with Category::none when there is none. jt_element_type()
  Result<Text> type() const noexcept { return text_of(jt_element_type); }
  /// A value as a text. Fails with Category::none for all other elements. jt_element_value_text()
  Result<Text> value_text() const noexcept { return text_of(jt_element_value_text); }
  /// Its comment, in lines. Fails with Category::none when there is none. jt_element_comment()
  Result<Text> comment() const noexcept { return text_of(jt_element_comment); }
  /// Its status. Fails with Category::none when there is none. jt_element_status()
  Result<Status> status() const noexcept {
    return link_.made<Status>(jt_element_status(link_.raw(), handle_), link_);
  }
  /// The text behind its status. Fails with Category::none when there is none. jt_element_status_text()
  Result<Text> status_text() const noexcept { return text_of(jt_element_status_text); }

  /// Whether it is an attribute with a star. jt_element_flags()
  bool is_non_compulsory() const noexcept { return has_flag(JT_ELEMENT_NON_COMPULSORY); }
  /// Whether nothing is known of its type but the name. jt_element_flags()
  bool is_type_unknown() const noexcept { return has_flag(JT_ELEMENT_TYPE_UNKNOWN); }
  /// Whether there is a text behind its status. jt_element_flags()
  bool is_overridden() const noexcept { return has_flag(JT_ELEMENT_OVERRIDDEN); }

  /// The template that it belongs to. jt_root()
  Element root() const noexcept { return found(jt_root); }
  /// The element that holds it; none of a template. jt_parent()
  Element parent() const noexcept { return found(jt_parent); }
  /// The first of the elements that it holds. jt_first_child()
  Element first_child() const noexcept { return found(jt_first_child); }
  /// The element behind it below the same parent. jt_next_sibling()
  Element next_sibling() const noexcept { return found(jt_next_sibling); }
  /// A walk over the elements that it holds.
  Elements children() const noexcept;
  /// The first child of that name. jt_find_child()
  Element find(const TextArgument &name) const noexcept {
    if (!link_.admits(name)) return at(0);
    return at(jt_find_child(link_.raw(), handle_, name.c_str()));
  }

  /// The header of a template. jt_header()
  Element header() const noexcept { return found(jt_header); }
  /// The section of a template. jt_section()
  Element section() const noexcept { return found(jt_section); }
  /// The version in the header of a template. Fails with Category::none without a header. jt_header_version()
  Result<Text> header_version() const noexcept { return text_of(jt_header_version); }
  /// The identifier in the header of a template. Fails with Category::none without a header.
  /// jt_header_identifier()
  Result<Text> header_identifier() const noexcept { return text_of(jt_header_identifier); }

  /// Gives it a comment, lines of "#..." that end with a line feed each, in place of the one that it has; with null or
  /// "" it has none. jt_set_element_comment()
  Result<> set_comment(const TextArgument &comment) const noexcept {
    return set(jt_set_element_comment, comment);
  }
  /// Names a service, an invocation or an attribute. jt_set_element_name()
  Result<> set_name(const TextArgument &name) const noexcept { return set(jt_set_element_name, name); }
  /// Gives a service, an invocation or an attribute the status of that name; with null it has none, and no text
  /// behind one. jt_set_element_status()
  Result<> set_status(const TextArgument &name) const noexcept { return set(jt_set_element_status, name); }
  /// Puts a text behind the status; with null there is none. jt_set_element_status_text()
  Result<> set_status_text(const TextArgument &text) const noexcept {
    return set(jt_set_element_status_text, text);
  }
  /// Gives an attribute a star, or takes it away. jt_set_element_non_compulsory()
  Result<> set_non_compulsory(bool non_compulsory = true) const noexcept {
    return link_.done(jt_set_element_non_compulsory(link_.raw(), handle_, non_compulsory ? 1 : 0));
  }
  /// Puts another value in the place of this one. jt_set_element_value_text()
  Result<> set_value_text(const TextArgument &text) const noexcept {
    return set(jt_set_element_value_text, text);
  }
  /// Appends a value to an attribute. jt_add_element_value_text()
  Result<Element> add_value_text(const TextArgument &text) const noexcept;
  /// Destroys a service, an invocation, an attribute or a value with everything in it. jt_remove_element()
  Result<> remove() const noexcept { return link_.done(jt_remove_element(link_.raw(), handle_)); }

  /// Gives a template a header of one of the three forms, or its header another form and other words; the attributes
  /// stay. A form with a section makes an empty one. jt_set_header()
  Result<> set_header(ElementKind form, const TextArgument &version,
                      const TextArgument &identifier) const noexcept {
    if (!link_.admits(version, identifier)) return link_.failure();
    // For jt.h the number of a template takes the header away.
    const auto number = form == ElementKind::template_or_section ? -1 : static_cast<std::int32_t>(form);
    return link_.done(jt_set_header(link_.raw(), handle_, number, version.c_str(), identifier.c_str()));
  }
  /// Takes the header of a template away, and an empty section with it. jt_set_header()
  Result<> remove_header() const noexcept {
    return link_.done(jt_set_header(link_.raw(), handle_, 0, nullptr, nullptr));
  }
  /// Gives the header of a template another version. jt_set_header_version()
  Result<> set_header_version(const TextArgument &version) const noexcept {
    return set(jt_set_header_version, version);
  }
  /// Gives the header of a template another identifier. jt_set_header_identifier()
  Result<> set_header_identifier(const TextArgument &identifier) const noexcept {
    return set(jt_set_header_identifier, identifier);
  }
  /// Appends an attribute without values to the header of a template. jt_add_header_attribute()
  Result<Element> add_header_attribute(const TextArgument &type, const TextArgument &name) const noexcept;
  /// Gives a template an empty section. jt_add_section()
  Result<Element> add_section() const noexcept;
  /// Destroys the section of a template. Fails with Category::none where there is none. jt_remove_section()
  Result<> remove_section() const noexcept { return link_.done(jt_remove_section(link_.raw(), handle_)); }

  /// Whether this names an element; no call is made, so it may have died.
  explicit operator bool() const noexcept { return handle_ != 0; }
  /// Its handle, 0 when there is none.
  std::int32_t get() const noexcept { return handle_; }
  /// The same element of the same session, or none of it.
  friend bool operator==(const Element &a, const Element &b) noexcept {
    return a.handle_ == b.handle_ && a.link_.raw() == b.link_.raw();
  }

 private:
  friend class Elements;
  friend class Template;

  Element(detail::Link link, std::int32_t handle) noexcept : link_(std::move(link)), handle_(handle) {}

  Element at(std::int32_t handle) const noexcept {
    link_.answer(handle);
    return {link_, handle};
  }
  Element found(std::int32_t (*call)(jt_parser_space *, std::int32_t)) const noexcept {
    return at(call(link_.raw(), handle_));
  }
  Result<Element> added(std::int32_t handle) const noexcept;
  Result<> set(std::int32_t (*call)(jt_parser_space *, std::int32_t, const char *),
               const TextArgument &text) const noexcept {
    if (!link_.admits(text)) return link_.failure();
    return link_.done(call(link_.raw(), handle_, text.c_str()));
  }
  Result<Text> text_of(char *(*call)(jt_parser_space *, std::int32_t)) const noexcept {
    return link_.made<Text>(call(link_.raw(), handle_));
  }
  bool has_flag(std::int32_t flag) const noexcept {
    const std::int32_t flags = jt_element_flags(link_.raw(), handle_);
    return link_.answer(flags >= 0 && (flags & flag) != 0);
  }

  detail::Link link_;
  std::int32_t handle_ = 0;
};

/// The elements that one holds, as a forward range: any number of walks, which may be copied, left and taken
/// up again. A walk goes on from its element, so that must still be there for the next step; a change of
/// others ends no walk.
class Elements {
 public:
  /// The children of an element.
  explicit Elements(Element parent) noexcept : parent_(std::move(parent)) {}

  /// A place in a walk.
  class Iterator {
   public:
    using iterator_concept = std::forward_iterator_tag;  ///< any number of walks
    using value_type = Element;                          ///< what it stands on
    using difference_type = std::ptrdiff_t;              ///< as every iterator has it

    /// Behind the last.
    Iterator() noexcept = default;
    /// On that element.
    explicit Iterator(Element at) noexcept : at_(std::move(at)) {}

    /// The element.
    Element operator*() const noexcept { return at_; }
    /// A member of the element.
    const Element *operator->() const noexcept { return &at_; }
    /// To the next sibling.
    Iterator &operator++() noexcept {
      at_.handle_ = at_.next_sibling().get();
      return *this;
    }
    /// To the next sibling; gives the place before.
    Iterator operator++(int) noexcept {
      Iterator before = *this;
      ++*this;
      return before;
    }
    /// The same place.
    friend bool operator==(const Iterator &a, const Iterator &b) noexcept { return a.at_ == b.at_; }
    /// Behind the last.
    friend bool operator==(const Iterator &at, std::default_sentinel_t) noexcept { return !at.at_; }

   private:
    Element at_;
  };

  /// On the first. jt_first_child()
  Iterator begin() const noexcept { return Iterator(parent_.first_child()); }
  /// Behind the last.
  std::default_sentinel_t end() const noexcept { return {}; }

 private:
  Element parent_;
};

/// \}

inline Elements Element::children() const noexcept { return Elements(*this); }

inline Result<Element> Element::added(std::int32_t handle) const noexcept {
  if (handle == 0) return link_.failure();
  return at(handle);
}

inline Result<Element> Element::add_value_text(const TextArgument &text) const noexcept {
  if (!link_.admits(text)) return link_.failure();
  return added(jt_add_element_value_text(link_.raw(), handle_, text.c_str()));
}

inline Result<Element> Element::add_header_attribute(const TextArgument &type,
                                                     const TextArgument &name) const noexcept {
  if (!link_.admits(type, name)) return link_.failure();
  return added(jt_add_header_attribute(link_.raw(), handle_, type.c_str(), name.c_str()));
}

inline Result<Element> Element::add_section() const noexcept {
  return added(jt_add_section(link_.raw(), handle_));
}

// ---- Source -----------------------------------------------------------------------------------------------

/// \defgroup cpp_source Source: places and findings
///
/// Where everything stands in a text, and everything that is wrong with it. Session::check() gives all findings
/// of a text; a listener is told of tokens and elements too, and hears what a decode has to say.
///
/// ```cpp
/// jt::Findings findings;
/// jt::Result<jt::Template> job = session.decode(text, {}, findings);
/// for (const jt::Finding &at : findings)
///   std::printf("%zu:%zu: %s\n", at.place().line, at.place().column, at.name().data());
/// ```
///
/// **Texts** are views here, of any length and with any bytes.
///
/// **Listeners** are objects with one or more of these members, or functions of a Finding. A member that gives
/// nothing, or true, lets the call go on; false ends it, and it fails with `CALL ERROR: ended by the listener`.
///
/// ```text
/// open(const jt::SourceElement &)                  an element begins
/// close(const jt::SourceElement &)                 an element has ended
/// token(const jt::Token &)                         a token has been accepted
/// finding(const jt::Finding &)                     something was found
/// handle(std::int32_t number, std::int32_t handle)  of an element, when a decode has succeeded
/// ```
///
/// What a listener throws ends the call in the same way, leaves nothing of it, and is thrown on behind it.
/// \{

/// A piece of a text.
struct Range {
  std::size_t begin = 0;  ///< Its first byte.
  std::size_t end = 0;    ///< The byte behind its last one.

  /// The piece, of the text that was read.
  constexpr std::string_view of(std::string_view text) const noexcept {
    const std::size_t first = std::min(begin, text.size());
    return text.substr(first, end - std::min(begin, end));
  }
  /// The same bytes.
  friend bool operator==(const Range &, const Range &) noexcept = default;
};

/// A place in a text, for people.
struct Place {
  std::size_t line = 0;    ///< Counts from 1.
  std::size_t column = 0;  ///< Counts bytes, from 1.

  /// In the order of the text.
  friend auto operator<=>(const Place &, const Place &) noexcept = default;
};

/// What an element of a text is.
enum class SourceKind : std::int32_t {
  header = JT_SOURCE_HEADER,          ///< with the attributes of the header
  section = JT_SOURCE_SECTION,        ///< from its opening marks to its closing ones
  service = JT_SOURCE_SERVICE,        ///< from its bracket on
  invocation = JT_SOURCE_INVOCATION,  ///< from its name or its brace on
  attribute = JT_SOURCE_ATTRIBUTE,    ///< from its star or its type on
  value = JT_SOURCE_VALUE,            ///< one of an attribute
  status = JT_SOURCE_STATUS           ///< from its parenthesis on
};

/// An element of a text.
struct SourceElement {
  SourceKind kind;      ///< What it is.
  std::int32_t number;  ///< Elements count from 0 in the order in which they are opened.
  Range range;          ///< Where it stands; empty when it is opened.
};

/// The part that a token plays.
enum class Role : std::int32_t {
  punctuation = JT_ROLE_PUNCTUATION,          ///< the word "end" of a service is one
  marker = JT_ROLE_MARKER,                    ///< "SIL", "/SIL", "/", and the "?" or "!" of a form
  version = JT_ROLE_VERSION,                  ///< of the header, as the next two
  encoding = JT_ROLE_ENCODING,                ///< ASCII
  identifier = JT_ROLE_IDENTIFIER,            ///< of the interaction
  service_type = JT_ROLE_SERVICE_TYPE,        ///< the first word in brackets
  service_name = JT_ROLE_SERVICE_NAME,        ///< the second one
  invocation_name = JT_ROLE_INVOCATION_NAME,  ///< in front of a brace
  star = JT_ROLE_STAR,                        ///< of an attribute that is not compulsory
  attribute_type = JT_ROLE_ATTRIBUTE_TYPE,    ///< the first word of an attribute
  attribute_name = JT_ROLE_ATTRIBUTE_NAME,    ///< the second one
  value = JT_ROLE_VALUE,                      ///< of an attribute
  status = JT_ROLE_STATUS,                    ///< the name in parentheses
  status_text = JT_ROLE_STATUS_TEXT,          ///< a word in the braces of a status
  comment = JT_ROLE_COMMENT                   ///< from "#" to the end of its line
};

/// A token of a text; its text lasts as long as the listener is being told.
struct Token {
  Role role;              ///< The part that it plays.
  Range range;            ///< As it is written, with its quotes and escapes.
  std::string_view text;  ///< What it means, without them.
};

/// How bad a finding is.
enum class Severity : std::int32_t {
  error = JT_SEVERITY_ERROR,      ///< a decode fails
  loss = JT_SEVERITY_LOSS,        ///< something that is written is dropped or changed
  warning = JT_SEVERITY_WARNING,  ///< nothing is lost, but it is hardly what was meant
  note = JT_SEVERITY_NOTE         ///< worth knowing
};

/// The word for a severity, such as "error".
constexpr std::string_view name_of(Severity severity) noexcept {
  constexpr std::string_view kNames[] = {"error", "loss", "warning", "note"};
  return kNames[static_cast<std::size_t>(severity) & 3];
}

/// What the names are that may have been meant.
enum class Candidates : std::int32_t {
  none = JT_CANDIDATES_NONE,          ///< none are known
  services = JT_CANDIDATES_SERVICES,  ///< those of jt_catalogue_service()
  types = JT_CANDIDATES_TYPES,        ///< those of jt_catalogue_types() for the scope, and the built-in ones
  names = JT_CANDIDATES_NAMES         ///< those of jt_catalogue_name() for the scope
};

/// Something that was found in a text: a view, which lasts as long as its Findings, or as the listener is being
/// told. A NUL stands behind each of its texts.
class Finding {
 public:
  /// What jt.h tells.
  explicit Finding(const jt_finding &record) noexcept : record_(&record) {}

  /// JT_FINDING_...
  std::int32_t code() const noexcept { return record_->code; }
  /// Its name, such as "syntax-expected". jt_finding_name()
  std::string_view name() const noexcept { return jt_finding_name(code()); }
  /// How bad it is.
  Severity severity() const noexcept { return static_cast<Severity>(record_->severity); }
  /// Where it is; empty, behind the last token, where one is missing.
  Range range() const noexcept { return made(record_->range); }
  /// Line and column of the range.
  Place place() const noexcept { return {record_->line, record_->column}; }
  /// The token at which a decode stops; in other findings the range.
  Range found() const noexcept { return made(record_->found); }
  /// Whether that is the end of the text.
  bool found_is_end() const noexcept { return record_->found_is_end != 0; }
  /// The marks that may stand there, with blanks between them.
  std::string_view expected() const noexcept { return record_->expected; }
  /// Whether a token of that role may stand there.
  bool expects(Role role) const noexcept {
    return (record_->expected_roles >> static_cast<unsigned>(role) & 1) != 0;
  }
  /// The first of two namesakes, or the opening of what is not closed.
  std::optional<Range> second() const noexcept {
    return record_->has_second != 0 ? std::optional(made(record_->second)) : std::nullopt;
  }
  /// What the names are that may have been meant.
  Candidates candidates() const noexcept { return static_cast<Candidates>(record_->candidates); }
  /// The service whose types or names may be meant; null: those of none.
  const char *scope() const noexcept { return record_->scope; }
  /// The type of a value that it is about; null where it is about none.
  const char *type() const noexcept { return record_->type; }

  /// The record of jt.h.
  const jt_finding &get() const noexcept { return *record_; }

 private:
  static Range made(jt_range range) noexcept { return {range.begin, range.end}; }

  const jt_finding *record_;
};

/// Owns findings in the order in which they were told, as a forward range. It is a listener: what it is told it
/// adds, in one block of the heap each, and without memory it ends the call.
class Findings {
  struct Entry;

 public:
  /// No findings.
  Findings() noexcept = default;
  /// Takes the findings over and leaves the other empty.
  Findings(Findings &&other) noexcept { swap(other); }
  /// Takes the findings over.
  Findings &operator=(Findings &&other) noexcept {
    Findings taken(std::move(other));
    swap(taken);
    return *this;
  }
  ~Findings() {
    while (first_ != nullptr) std::free(std::exchange(first_, first_->next));
  }

  /// Adds a copy. False without memory.
  bool finding(const Finding &told) noexcept {
    const char *const texts[] = {told.get().expected, told.get().scope, told.get().type};
    std::size_t bytes = sizeof(Entry);
    for (const char *const text : texts) bytes += text != nullptr ? std::strlen(text) + 1 : 0;
    void *const block = std::malloc(bytes);
    if (block == nullptr) {
      lacked_memory_ = true;
      return false;
    }
    append(*new (block) Entry{told.get(), nullptr}, static_cast<char *>(block) + sizeof(Entry));
    return true;
  }

  /// A place in a walk.
  class Iterator {
   public:
    using iterator_concept = std::forward_iterator_tag;  ///< any number of walks
    using value_type = Finding;                          ///< what it stands on
    using difference_type = std::ptrdiff_t;              ///< as every iterator has it

    /// Behind the last.
    Iterator() noexcept = default;

    /// The finding.
    Finding operator*() const noexcept { return Finding(at_->record); }
    /// To the next one.
    Iterator &operator++() noexcept {
      at_ = at_->next;
      return *this;
    }
    /// To the next one; gives the place before.
    Iterator operator++(int) noexcept { return std::exchange(*this, Iterator(at_->next)); }
    /// The same place.
    friend bool operator==(const Iterator &a, const Iterator &b) noexcept { return a.at_ == b.at_; }
    /// Behind the last.
    friend bool operator==(const Iterator &at, std::default_sentinel_t) noexcept { return at.at_ == nullptr; }

   private:
    friend class Findings;

    explicit Iterator(const Entry *at) noexcept : at_(at) {}

    const Entry *at_ = nullptr;
  };

  /// The first. Not of a temporary, but a range-based for may have one.
  Iterator begin() const &noexcept { return Iterator(first_); }
  /// Not of a temporary.
  Iterator begin() const && = delete;
  /// Behind the last.
  std::default_sentinel_t end() const noexcept { return {}; }
  /// How many there are.
  std::size_t size() const noexcept { return size_; }
  /// Whether there is none.
  bool empty() const noexcept { return size_ == 0; }
  /// How many are just as bad as that. O(size()).
  std::size_t count(Severity severity) const noexcept {
    std::size_t found = 0;
    for (const Finding finding : *this) found += finding.severity() == severity ? 1 : 0;
    return found;
  }
  /// Whether one could not be added.
  bool lacked_memory() const noexcept { return lacked_memory_; }

 private:
  struct Entry {
    jt_finding record;
    Entry *next;
  };

  void append(Entry &entry, char *place) noexcept {
    for (const char **text : {&entry.record.expected, &entry.record.scope, &entry.record.type}) {
      if (*text == nullptr) continue;
      const std::size_t size = std::strlen(*text) + 1;
      std::memcpy(place, *text, size);
      *text = std::exchange(place, place + size);
    }
    (last_ != nullptr ? last_->next : first_) = &entry;
    last_ = &entry;
    ++size_;
  }

  void swap(Findings &other) noexcept {
    std::swap(first_, other.first_);
    std::swap(last_, other.last_);
    std::swap(size_, other.size_);
    std::swap(lacked_memory_, other.lacked_memory_);
  }

  Entry *first_ = nullptr;
  Entry *last_ = nullptr;
  std::size_t size_ = 0;
  bool lacked_memory_ = false;
};

/// How a text is decoded. What is 0 is no limit.
struct SourceOptions {
  bool strict = false;         ///< The first loss fails the decode, "SYNTAX ERROR: strict: " + its name.
  std::size_t most_bytes = 0;  ///< Of text.
  std::size_t most_nodes = 0;  ///< That the decode may make.
  std::size_t most_heap = 0;   ///< Bytes of memory that the decode may ask for.
};

/// \cond
namespace detail {

inline jt_source_options record_of(const SourceOptions &options) noexcept {
  return {sizeof(jt_source_options), options.strict ? 1 : 0, options.most_bytes, options.most_nodes,
          options.most_heap};
}

inline SourceElement made_of(const jt_source_element &told) noexcept {
  return {static_cast<SourceKind>(told.kind), told.number, {told.range.begin, told.range.end}};
}

inline Token made_of(const jt_source_token &told) noexcept {
  return {static_cast<Role>(told.role), {told.range.begin, told.range.end}, {told.text, told.length}};
}

template <typename Listener>
concept HearsOpen = requires(Listener &to, const SourceElement &element) {
  to.open(element);
};
template <typename Listener>
concept HearsClose = requires(Listener &to, const SourceElement &element) {
  to.close(element);
};
template <typename Listener>
concept HearsToken = requires(Listener &to, const Token &token) {
  to.token(token);
};
template <typename Listener>
concept HearsFinding = requires(Listener &to, const Finding &finding) {
  to.finding(finding);
};
template <typename Listener>
concept HearsHandle = requires(Listener &to, std::int32_t number) {
  to.handle(number, number);
};
template <typename Listener>
concept IsFunctionOfFinding = std::invocable<Listener &, const Finding &>;

/// Stands between the functions of jt.h and a listener, of which only those members are called for that it has.
template <typename Listener>
class Ear {
  static_assert(
      HearsOpen<Listener> || HearsClose<Listener> || HearsToken<Listener> || HearsFinding<Listener> ||
          HearsHandle<Listener> || IsFunctionOfFinding<Listener>,
      "a listener has one of the members open, close, token, finding and handle, with their arguments");

 public:
  explicit Ear(Listener &listener) noexcept : listener_(listener) {
    record_.size = sizeof(record_);
    record_.context = this;
    if constexpr (HearsOpen<Listener>) {
      record_.open = [](void *ear, const jt_source_element *told) {
        return answer(ear, [told](Listener &to) { return to.open(made_of(*told)); });
      };
    }
    if constexpr (HearsClose<Listener>) {
      record_.close = [](void *ear, const jt_source_element *told) {
        return answer(ear, [told](Listener &to) { return to.close(made_of(*told)); });
      };
    }
    if constexpr (HearsToken<Listener>) {
      record_.token = [](void *ear, const jt_source_token *told) {
        return answer(ear, [told](Listener &to) { return to.token(made_of(*told)); });
      };
    }
    if constexpr (HearsFinding<Listener>) {
      record_.finding = [](void *ear, const jt_finding *told) {
        return answer(ear, [told](Listener &to) { return to.finding(Finding(*told)); });
      };
    } else if constexpr (IsFunctionOfFinding<Listener>) {
      record_.finding = [](void *ear, const jt_finding *told) {
        return answer(ear, [told](Listener &to) { return std::invoke(to, Finding(*told)); });
      };
    }
    if constexpr (HearsHandle<Listener>) {
      record_.handle = [](void *ear, std::int32_t number, std::int32_t handle) {
        return answer(ear, [number, handle](Listener &to) { return to.handle(number, handle); });
      };
    }
  }
  Ear(const Ear &) = delete;
  Ear &operator=(const Ear &) = delete;
  ~Ear() = default;

  const jt_listener *record() const noexcept { return &record_; }

  /// Throws what the listener has thrown.
  void throw_on() const {
    if (thrown_ != nullptr) std::rethrow_exception(thrown_);
  }

 private:
  template <typename Tell>
  static std::int32_t answer(void *ear, Tell tell) noexcept {
    Ear &self = *static_cast<Ear *>(ear);
#ifdef __cpp_exceptions
    try {
      return goes_on(self.listener_, tell) ? 0 : 1;
    } catch (...) {
      self.thrown_ = std::current_exception();
      return 1;
    }
#else
    return goes_on(self.listener_, tell) ? 0 : 1;
#endif
  }

  template <typename Tell>
  static bool goes_on(Listener &listener, Tell tell) {
    if constexpr (std::is_void_v<decltype(tell(listener))>) {
      tell(listener);
      return true;
    } else {
      return tell(listener);
    }
  }

  Listener &listener_;
  jt_listener record_{};
  std::exception_ptr thrown_;
};

/// What stands for a view of nothing, which is a text without bytes.
inline const char *bytes_of(std::string_view text) noexcept {
  return text.data() != nullptr ? text.data() : "";
}

}  // namespace detail
/// \endcond

/// \}

// ---- Templates --------------------------------------------------------------------------------------------

/// \defgroup cpp_templates Templates
/// \{

/// Owns a template: a node tree in its session, under a handle. Made by Session::decode() and
/// Session::create(). Calls that change the tree are const, as they are through any handle.
class Template {
 public:
  /// No template: tests false, and each call on it fails.
  Template() noexcept = default;

  /// Takes over a template of jt.h.
  Template(const Session &session, std::int32_t owned) noexcept;

  /// Takes the template over and leaves the other empty.
  Template(Template &&other) noexcept : link_(std::move(other.link_)), handle_(other.release()) {}
  /// Destroys its template and takes the other one over.
  Template &operator=(Template &&other) noexcept {
    Template taken(std::move(other));
    std::swap(link_, taken.link_);
    std::swap(handle_, taken.handle_);
    return *this;
  }

  /// Destroys the template, if its session is still open.
  ~Template() {
    if (handle_ != 0) jt_destroy_template(link_.raw(), handle_);
  }

  /// The template as SIL text; "" of an empty template without a header. O(length of the text).
  /// jt_encode_template()
  Result<Text> encode() const noexcept { return link_.made<Text>(jt_encode_template(link_.raw(), handle_)); }

  /// The service of that name, which need not be there; no call is made.
  Service service(const TextArgument &name) const &noexcept {
    return {link_, handle_, detail::to_keep(name)};
  }
  /// Not of a temporary, which is destroyed before the service is used.
  Service service(const TextArgument &name) const && = delete;

  /// A walk over the services.
  Services services() const &noexcept { return Services({Service(link_, handle_, detail::Name())}); }
  /// Not of a temporary, which is destroyed before the walk begins.
  Services services() const && = delete;

  /// Appends a service without invocations. jt_add_service()
  Result<Service> add_service(const TextArgument &type, const TextArgument &name) const &noexcept {
    if (!link_.admits(type, name)) return link_.failure();
    const Result<> added = link_.done(jt_add_service(link_.raw(), handle_, type.c_str(), name.c_str()));
    if (!added) return added.error();
    return service(name);
  }
  /// Not of a temporary, which is destroyed before the service is used.
  Result<Service> add_service(const TextArgument &type, const TextArgument &name) const && = delete;

  /// What of it would not be read back as it is when it is written: the findings have no places, but elements.
  /// It fails where it cannot be looked for. O(size of the template). jt_check_template()
  Result<Findings> check() const noexcept {
    Findings findings;
    const Result<> is_safe = check(findings);
    if (findings.lacked_memory()) return link_.refuse(detail::kNoMemory, "");
    if (!is_safe && findings.empty()) return is_safe.error();
    return findings;
  }
  /// Tells a listener the same. Succeeds where nothing would be lost. Throws what the listener throws.
  /// jt_check_template()
  template <typename Listener>
  Result<> check(Listener &&listener) const {
    detail::Ear<std::remove_reference_t<Listener>> ear(listener);
    const Result<> is_safe = link_.done(jt_check_template(link_.raw(), handle_, ear.record()));
    ear.throw_on();
    return is_safe;
  }
  /// The element of this template that a finding is about; empty where it is about none. No call is made.
  Element element_of(const Finding &finding) const noexcept { return {link_, finding.get().element}; }

  /// The template as an element, from which all others are reached; no call is made.
  Element root() const noexcept { return {link_, handle_}; }
  /// Its header; empty when there is none. jt_header()
  Element header() const noexcept { return root().header(); }
  /// Its section; empty when there is none. jt_section()
  Element section() const noexcept { return root().section(); }

  /// Whether there is a template.
  explicit operator bool() const noexcept { return handle_ != 0; }

  /// The handle, 0 when there is none.
  std::int32_t get() const noexcept { return handle_; }

  /// Gives the template up; it goes with its session, or with jt_destroy_template().
  [[nodiscard]] std::int32_t release() noexcept { return std::exchange(handle_, 0); }

 private:
  friend class Session;

  Template(detail::Link link, std::int32_t handle) noexcept : link_(std::move(link)), handle_(handle) {}

  detail::Link link_;
  std::int32_t handle_ = 0;
};

/// \}

// ---- Sessions ---------------------------------------------------------------------------------------------

/// \defgroup cpp_sessions Sessions
/// \{

/// \cond
namespace detail {

/// The three functions of jt_allocator over a resource. In front of each block stands how long it is, because only
/// the resource asks for that when it takes a block back.
template <typename Resource>
struct BlocksOf {
  static constexpr std::size_t kAlignment = alignof(std::max_align_t);
  static constexpr std::size_t kFront = std::max(kAlignment, sizeof(std::size_t));

  static void *allocate(void *context, std::size_t bytes) noexcept {
    void *const front = bytes <= SIZE_MAX - kFront ? take(context, bytes + kFront) : nullptr;
    if (front == nullptr) return nullptr;
    std::memcpy(front, &bytes, sizeof(bytes));
    return static_cast<std::byte *>(front) + kFront;
  }

  static void *reallocate(void *context, void *block, std::size_t bytes) noexcept {
    void *const moved = allocate(context, bytes);
    if (moved == nullptr) return nullptr;
    std::memcpy(moved, block, std::min(bytes, length_of(block)));
    release(context, block);
    return moved;
  }

  static void release(void *context, void *block) noexcept {
    static_cast<Resource *>(context)->deallocate(front_of(block), length_of(block) + kFront, kAlignment);
  }

 private:
  static std::byte *front_of(void *block) noexcept { return static_cast<std::byte *>(block) - kFront; }

  static std::size_t length_of(void *block) noexcept {
    std::size_t bytes = 0;
    std::memcpy(&bytes, front_of(block), sizeof(bytes));
    return bytes;
  }

#ifdef __cpp_exceptions
  static void *take(void *context, std::size_t bytes) noexcept {
    try {
      return static_cast<Resource *>(context)->allocate(bytes, kAlignment);
    } catch (...) {
      return nullptr;
    }
  }
#else
  static void *take(void *context, std::size_t bytes) noexcept {
    return static_cast<Resource *>(context)->allocate(bytes, kAlignment);
  }
#endif
};

}  // namespace detail
/// \endcond

/// An allocator for a session over a `std::pmr::memory_resource`, or over anything else with its allocate(bytes,
/// alignment) and deallocate(block, bytes, alignment). The resource must outlive the session. An allocate() that
/// throws has no memory to give. jt_allocator
template <typename Resource>
jt_allocator allocator_over(Resource &resource) noexcept {
  using Blocks = detail::BlocksOf<Resource>;
  return {sizeof(jt_allocator), &resource, Blocks::allocate, Blocks::reallocate, Blocks::release};
}

/// Owns a session. It may be moved while what was made in it stays.
class Session {
 public:
  /// No session: tests false, and each call on it fails with "CALL ERROR: no session ...".
  Session() noexcept = default;

  /// Opens a session; without memory, and with a null label or a NUL inside it, an empty one.
  /// jt_open_parsing_utility()
  explicit Session(const TextArgument &label) noexcept
      : Session(label.problem() == nullptr ? jt_open_parsing_utility(label.c_str()) : nullptr) {}

  /// The same with memory of its own: what the session keeps comes from the allocator, Values, Statuses and Texts do
  /// not. jt_open_session()
  Session(const TextArgument &label, const jt_allocator &allocator) noexcept
      : Session(label.problem() == nullptr ? jt_open_session(label.c_str(), &allocator) : nullptr) {}

  /// Takes over a session of jt.h.
  explicit Session(jt_parser_space *owned) noexcept : link_(owned) {
    if (link_.raw() == nullptr) jt_close_parsing_utility(owned);
  }

  /// Takes the session over and leaves the other empty.
  Session(Session &&) noexcept = default;
  /// Closes its session and takes the other one over.
  Session &operator=(Session &&other) noexcept {
    Session taken(std::move(other));
    std::swap(link_, taken.link_);
    return *this;
  }

  /// Closes the session. jt_close_parsing_utility()
  ~Session() { jt_close_parsing_utility(link_.detach()); }

  /// Reads a text of SIL. A null text, and one that is cut off in its end marker or in a section, fails
  /// without a message about that. O(length of the text). jt_decode_template()
  Result<Template> decode(const TextArgument &text) const noexcept {
    if (!link_.admits(text)) return link_.failure();
    return template_of(jt_decode_template(link_.raw(), text.c_str()));
  }

  /// Reads a text of SIL that may have any bytes and need not end with NUL. O(length of the text).
  /// jt_decode_source()
  Result<Template> decode(std::string_view text, const SourceOptions &options) const noexcept {
    const jt_source_options asked = detail::record_of(options);
    return template_of(jt_decode_source(get(), detail::bytes_of(text), text.size(), &asked, nullptr));
  }
  /// The same, and tells a listener where everything stands. Throws what the listener throws.
  template <typename Listener>
  Result<Template> decode(std::string_view text, const SourceOptions &options, Listener &&listener) const {
    const jt_source_options asked = detail::record_of(options);
    detail::Ear<std::remove_reference_t<Listener>> ear(listener);
    Result<Template> made =
        template_of(jt_decode_source(get(), detail::bytes_of(text), text.size(), &asked, ear.record()));
    ear.throw_on();
    return made;
  }

  /// Everything that is wrong in a text. It fails where it cannot be looked for: without a session, without
  /// memory, from inside a listener. A text that a decode would refuse has an error among its findings, or, where
  /// the options are strict, a loss. O(length of the text). jt_check_source()
  Result<Findings> check(std::string_view text, const SourceOptions &options = {}) const noexcept {
    Findings findings;
    const Result<> decodes = check(text, options, findings);
    if (findings.lacked_memory()) return link_.refuse(detail::kNoMemory, "");
    if (!decodes && findings.empty()) return decodes.error();
    return findings;
  }
  /// Tells a listener everything that is wrong in a text. Succeeds where a decode with these options would, and
  /// fails with the error of that. Throws what the listener throws. jt_check_source()
  template <typename Listener>
  Result<> check(std::string_view text, const SourceOptions &options, Listener &&listener) const {
    const jt_source_options asked = detail::record_of(options);
    detail::Ear<std::remove_reference_t<Listener>> ear(listener);
    const Result<> decodes =
        link_.done(jt_check_source(get(), detail::bytes_of(text), text.size(), &asked, ear.record()));
    ear.throw_on();
    return decodes;
  }

  /// A new empty template. jt_create_template()
  Result<Template> create() const noexcept { return template_of(jt_create_template(link_.raw())); }

  /// A value from a text, unquoted. The type is a base type or one of the service, which is one of the
  /// fourteen of jt.h. jt_decode_value()
  Result<Value> parse(const TextArgument &type, const TextArgument &text,
                      const TextArgument &service = nullptr) const noexcept {
    if (!link_.admits(type, text, service)) return link_.failure();
    const jt_type *const row = get_type_from_services(link_.raw(), service.c_str(), type.c_str());
    return link_.made<Value>(jt_decode_value(link_.raw(), type.c_str(), text.c_str(), service.c_str()), link_,
                             row);
  }

  /// The name of a number in the list of an enumerated type. "CALL ERROR: Unknown enumerated value" where the
  /// number has none, Category::none where the type is not an enumerated one.
  Result<Text> name_of(const jt_type &type, std::uint32_t number) const noexcept {
    reset_error_status(link_.raw());
    if (!detail::is_enumerated(type) || number == UINT32_MAX || link_.raw() == nullptr)
      return link_.failure();
    return link_.made<Text>(type.deval(link_.raw(), reinterpret_cast<const jt_value *>(&number)));
  }

  /// A status from its name, any case. A name that no number has is kept, with Category::warning.
  /// get_status()
  Result<Status> status(const TextArgument &name) const noexcept {
    reset_error_status(link_.raw());
    if (!link_.admits(name) || link_.raw() == nullptr) return link_.failure();
    return link_.made<Status>(get_status(link_.raw(), name.c_str()), link_);
  }

  /// The category of what the last call through this header reported, be it one that succeeded. Unlike in
  /// jt.h, no question resets it.
  Category last_category() const noexcept { return link_.category(); }

  /// The same with its messages.
  Error last_report() const noexcept { return link_.report(); }

  /// All messages that the session remembers. jt_get_previous_error()
  Messages history() const noexcept { return link_.history(); }

  /// The version of the library, in two lines; "" without a session. jt_get_version()
  std::string_view version() const noexcept { return fixed_text(jt_get_version); }

  /// A notice; "" without a session. jt_get_copyright()
  std::string_view copyright() const noexcept { return fixed_text(jt_get_copyright); }

  /// The version of the language; "" without a session. jt_get_supported_language_version()
  std::string_view language_version() const noexcept { return fixed_text(jt_get_supported_language_version); }

  /// Whether there is a session.
  explicit operator bool() const noexcept { return get() != nullptr; }
  /// The session of jt.h; null when there is none.
  jt_parser_space *get() const noexcept { return link_.raw(); }

  /// Gives the session up, with every template in it: for their owners it is closed. Close it with
  /// jt_close_parsing_utility().
  [[nodiscard]] jt_parser_space *release() noexcept { return link_.detach(); }

 private:
  friend class Value;
  friend class Status;
  friend class Template;
  friend class Element;

  Result<Template> template_of(std::int32_t handle) const noexcept {
    if (handle == 0) return link_.failure();
    link_.answer(1);
    return Template(link_, handle);
  }

  std::string_view fixed_text(const char *(*function)(jt_parser_space *)) const noexcept {
    const char *const text = function(get());
    return link_.answer(text != nullptr) ? text : "";
  }

  detail::Link link_;
};

inline Value::Value(const Session &session, const jt_type &type, jt_value *owned) noexcept
    : Value(session.link_, &type, owned) {}

inline Status::Status(const Session &session, jt_status *owned) noexcept : Status(session.link_, owned) {}

inline Template::Template(const Session &session, std::int32_t owned) noexcept
    : Template(session.link_, owned) {}

inline Element::Element(const Session &session, std::int32_t handle) noexcept
    : Element(session.link_, handle) {}

/// \}

}  // namespace jt

#endif  // C++20

#endif
