// What holds before the program runs: which classes can be copied and moved, which can throw, which are
// small, and what counts as a range. The compiler checks; the cases only say that it has.
#include <ranges>
#include <type_traits>

#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

template <typename T>
concept MoveOnly = std::is_nothrow_move_constructible_v<T> && std::is_nothrow_move_assignable_v<T> &&
                   std::is_nothrow_default_constructible_v<T> && std::is_nothrow_destructible_v<T> &&
                   !std::is_copy_constructible_v<T> &&
                   !std::is_copy_assignable_v<T>;

template <typename T>
concept Copyable = std::is_nothrow_copy_constructible_v<T> && std::is_nothrow_copy_assignable_v<T> &&
    std::is_nothrow_move_constructible_v<T> && std::is_nothrow_move_assignable_v<T>;

TEST(OwnerClasses, AreMovedButNotCopied) {
  static_assert(MoveOnly<jt::Session> && MoveOnly<jt::Template> && MoveOnly<jt::Value>);
  static_assert(MoveOnly<jt::Status> && MoveOnly<jt::Text>);
  static_assert(std::is_nothrow_move_constructible_v<jt::Result<jt::Template>>);
  static_assert(!std::is_copy_constructible_v<jt::Result<jt::Template>>);
  SUCCEED();
}

TEST(OtherClasses, AreCopied) {
  static_assert(Copyable<jt::Service> && Copyable<jt::Messages> && Copyable<jt::Error>);
  static_assert(Copyable<jt::Result<>> && Copyable<jt::Result<int>>);
  SUCCEED();
}

TEST(Arguments, AreNotKept) {
  static_assert(!std::is_copy_constructible_v<jt::TextArgument>);
  static_assert(!std::is_move_constructible_v<jt::TextArgument>);
  static_assert(std::is_convertible_v<const char *, const jt::TextArgument &>);
  static_assert(std::is_convertible_v<std::string, const jt::TextArgument &>);
  static_assert(std::is_convertible_v<std::string_view, const jt::TextArgument &>);
  static_assert(std::is_convertible_v<jt::Text, const jt::TextArgument &>);
  static_assert(!std::is_convertible_v<int, const jt::TextArgument &>);
  SUCCEED();
}

TEST(OwnerClasses, AreSmall) {
  static_assert(sizeof(jt::Text) == sizeof(void *));
  static_assert(sizeof(jt::Session) == sizeof(void *));
  static_assert(sizeof(jt::Template) <= 2 * sizeof(void *));
  static_assert(sizeof(jt::Status) == 2 * sizeof(void *));
  static_assert(sizeof(jt::Value) == 3 * sizeof(void *));
  static_assert(sizeof(jt::Error) <= 2 * sizeof(void *));
  static_assert(sizeof(jt::Result<>) <= 3 * sizeof(void *));
  static_assert(sizeof(jt::Result<jt::Template>) <= 5 * sizeof(void *));
  static_assert(sizeof(jt::Service) <= 64 + 6 * sizeof(void *));
  SUCCEED();
}

TEST(OwnerClasses, AreMadeOnPurpose) {
  static_assert(!std::is_convertible_v<char *, jt::Text>);
  static_assert(!std::is_convertible_v<const char *, jt::Session>);
  static_assert(!std::is_convertible_v<jt_parser_space *, jt::Session>);
  static_assert(!std::is_convertible_v<jt::Text, bool>);
  static_assert(!std::is_convertible_v<jt::Template, bool>);
  static_assert(!std::is_convertible_v<jt::Result<>, bool>);
  SUCCEED();
}

TEST(Calls, DoNotThrow) {
  static_assert(noexcept(std::declval<jt::Session>().decode(std::declval<const jt::TextArgument &>())));
  static_assert(noexcept(std::declval<jt::Template>().encode()));
  static_assert(noexcept(std::declval<const jt::Template &>().services()));
  static_assert(noexcept(std::declval<jt::Services &>().begin()));
  static_assert(noexcept(std::declval<jt::Service>().type()));
  static_assert(noexcept(std::declval<jt::Service>().get<bool>(std::declval<const jt::TextArgument &>())));
  static_assert(noexcept(std::declval<jt::Value>().copy()));
  static_assert(noexcept(std::declval<jt::Result<int>>().value()));
  static_assert(noexcept(jt::Session("label")));
  SUCCEED();
}

template <typename Range, typename Element>
concept InputRangeOf = std::ranges::input_range<Range> && !std::ranges::forward_range<Range> &&
                       std::is_same_v<std::ranges::range_reference_t<Range>, Element &> &&
                       std::is_same_v<std::ranges::range_value_t<Range>, Element>;

TEST(WalkClasses, AreInputRanges) {
  static_assert(InputRangeOf<jt::Services, jt::Service>);
  static_assert(InputRangeOf<jt::Invocations, jt::Service>);
  static_assert(InputRangeOf<jt::Attributes, jt::Text>);
  static_assert(InputRangeOf<jt::Texts, jt::Text>);
  static_assert(InputRangeOf<jt::Values, jt::Value>);
  static_assert(std::movable<jt::Services> && std::movable<jt::Values>);
  SUCCEED();
}

TEST(TypedClasses, StandForNoOtherTypes) {
  static_assert(jt::Typed<bool> && jt::Typed<std::int32_t> && jt::Typed<float> && jt::Typed<jt::Borders>);
  static_assert(!jt::Typed<char> && !jt::Typed<std::int64_t> && !jt::Typed<double>);
  static_assert(!jt::Typed<const char *> && !jt::Typed<std::string>);
  static_assert(std::is_trivially_copyable_v<jt::Timestamp> && std::is_trivially_copyable_v<jt::Borders>);
  SUCCEED();
}

template <typename T>
concept CanBeSet = requires(const jt::Service &service, const T &value) {
  service.set("Copies", value);
  service.add("Copies", value);
};

TEST(NumberClasses, AreAllThatAreNeitherTruthsNorCharacters) {
  static_assert(jt::Number<short> && jt::Number<unsigned> && jt::Number<long> && jt::Number<unsigned long>);
  static_assert(jt::Number<long long> && jt::Number<unsigned long long> && jt::Number<std::size_t>);
  static_assert(jt::Number<std::int8_t> && jt::Number<std::uint8_t>);
  static_assert(jt::Number<float> && jt::Number<double> && jt::Number<long double>);
  static_assert(!jt::Number<bool> && !jt::Number<char> && !jt::Number<wchar_t> && !jt::Number<char8_t>);
  static_assert(!jt::Number<char16_t> && !jt::Number<char32_t> && !jt::Number<jt::Unit>);
  static_assert(!jt::Number<const char *> && !jt::Number<std::byte>);
  SUCCEED();
}

TEST(NumberClasses, CanBeSet) {
  static_assert(CanBeSet<bool> && CanBeSet<double> && CanBeSet<unsigned long> && CanBeSet<long long>);
  static_assert(!CanBeSet<char> && !CanBeSet<wchar_t> && !CanBeSet<char32_t> && !CanBeSet<jt::Unit>);
  SUCCEED();
}

// ---- What a temporary does not give, because it would be gone before it is used ----

template <typename T>
concept HasArrow = requires {
  std::declval<T>().operator->();
};
template <typename T>
concept HasBegin = requires {
  std::declval<T>().begin();
};
template <typename T>
concept HasServices = requires {
  std::declval<T>().services();
};
template <typename T>
concept HasService = requires {
  std::declval<T>().service("Scanner");
};
template <typename T>
concept AddsServices = requires {
  std::declval<T>().add_service("kmt_svc_scan", "Scanner");
};

TEST(TemporaryResults, HaveNoArrow) {
  static_assert(HasArrow<jt::Result<jt::Text> &> && HasArrow<const jt::Result<jt::Text> &>);
  static_assert(!HasArrow<jt::Result<jt::Text>> && !HasArrow<const jt::Result<jt::Text>>);
  static_assert(!HasArrow<jt::Result<jt::Template>> && !HasArrow<jt::Result<jt::Service>>);
  SUCCEED();
}

TEST(TemporaryResults, GiveTheirValueAndTheirErrorAway) {
  using Texts = jt::Result<jt::Text>;
  static_assert(std::is_same_v<decltype(*std::declval<Texts>()), jt::Text>);
  static_assert(std::is_same_v<decltype(std::declval<Texts>().value()), jt::Text>);
  static_assert(std::is_same_v<decltype(std::declval<Texts>().error()), jt::Error>);
  static_assert(std::is_same_v<decltype(std::declval<jt::Result<>>().error()), jt::Error>);
  static_assert(std::is_same_v<decltype(std::declval<jt::Error>().messages()), jt::Messages>);
  static_assert(std::is_same_v<decltype(*std::declval<Texts &>()), jt::Text &>);
  SUCCEED();
}

TEST(TemporaryWalks, HaveNoBegin) {
  static_assert(HasBegin<jt::Services &> && HasBegin<const jt::Messages &>);
  static_assert(!HasBegin<jt::Services> && !HasBegin<jt::Invocations> && !HasBegin<jt::Attributes>);
  static_assert(!HasBegin<jt::Texts> && !HasBegin<jt::Values>);
  static_assert(!HasBegin<jt::Messages> && !HasBegin<const jt::Messages>);
  SUCCEED();
}

TEST(TemporaryTemplates, AreNotWalked) {
  static_assert(HasServices<const jt::Template &> && HasService<jt::Template &>);
  static_assert(AddsServices<const jt::Template &>);
  static_assert(!HasServices<jt::Template> && !HasServices<const jt::Template>);
  static_assert(!HasService<jt::Template> && !AddsServices<jt::Template>);
  SUCCEED();
}

TEST(Categories, AreTheNumbersOfTheCalls) {
  static_assert(static_cast<int>(jt::Category::none) == 0 && static_cast<int>(jt::Category::warning) == -3);
  static_assert(static_cast<int>(jt::Category::call_error) == -4);
  static_assert(static_cast<int>(jt::Category::syntax_error) == -5);
  static_assert(static_cast<int>(jt::Category::memory_error) == -6);
  static_assert(static_cast<int>(jt::Category::system_error) == -7);
  static_assert(static_cast<int>(jt::Category::unclassified) == -8);
  SUCCEED();
}

}  // namespace
}  // namespace jt_test
