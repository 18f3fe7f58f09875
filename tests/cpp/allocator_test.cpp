// Sessions with an allocator of their own: over the three functions of jt.h, and over a memory resource, which may
// throw.
#include <memory_resource>
#include <new>

#include "cpp/cpp_session.h"
#include "support/counting_allocator.h"

namespace jt_test {
namespace {

using jt::Category;

// Gives what operator new gives, as long as it may, and counts the bytes that it has not got back.
class CountingResource : public std::pmr::memory_resource {
 public:
  std::size_t bytes = 0;
  int left = 1000000;  // requests

 private:
  void *do_allocate(std::size_t wanted, std::size_t alignment) override {
    if (left-- <= 0) throw std::bad_alloc();
    bytes += wanted;
    return ::operator new (wanted, std::align_val_t{alignment});
  }
  void do_deallocate(void *block, std::size_t given, std::size_t alignment) override {
    bytes -= given;
    ::operator delete (block, std::align_val_t{alignment});
  }
  bool do_is_equal(const std::pmr::memory_resource &other) const noexcept override { return this == &other; }
};

TEST(SessionAllocator, GivesWhatTheSessionKeeps) {
  CountingAllocator allocator;
  {
    const jt::Session session("label", allocator.record());
    EXPECT_TRUE(session);
    EXPECT_EQ(allocator.blocks(), 3U);
    EXPECT_TRUE(session.decode(kJob));
    EXPECT_EQ(allocator.blocks(), 4U);
  }
  EXPECT_EQ(allocator.blocks(), 0U);
  EXPECT_FALSE(allocator.was_misused());
}

TEST(SessionAllocator, LeavesAnEmptySessionWhereItHasNothing) {
  CountingAllocator allocator;
  allocator.fail_from(1);
  EXPECT_FALSE(jt::Session("label", allocator.record()));
  EXPECT_FALSE(jt::Session("label", jt_allocator{}));
  EXPECT_FALSE(jt::Session(std::string_view("a\0b", 3), allocator.record()));
}

TEST(SessionAllocator, MayBeOverAMemoryResource) {
  CountingResource resource;
  std::string text;
  jt::Text kept;
  {
    const jt::Session session("label", jt::allocator_over(resource));
    const auto job = session.decode(kJob);
    ASSERT_TRUE(job);
    EXPECT_GT(resource.bytes, 4096U);
    text = job->encode().value_or(jt::Text()).str();
    kept = job->encode().value_or(jt::Text());
  }
  EXPECT_EQ(resource.bytes, 0U);
  EXPECT_NE(text.find("office@example.org"), std::string::npos);
  EXPECT_NE(kept.view().find("office@example.org"), std::string_view::npos);
}

TEST(SessionAllocator, TheTextIsTheSameAsThatOfAnySession) {
  const auto encoded_twice = [](const jt::Session &session) {
    const auto job = session.decode(kJob);
    const std::string first = job->encode().value_or(jt::Text()).str();
    return first + job->encode().value_or(jt::Text()).str();
  };
  CountingResource resource;
  const std::string text = encoded_twice(jt::Session("label", jt::allocator_over(resource)));
  EXPECT_NE(text, "");
  EXPECT_EQ(text, encoded_twice(jt::Session("label")));
}

TEST(SessionAllocator, BlocksOfAMemoryResourceAreAlignedAsThoseOfMalloc) {
  CountingResource resource;
  const jt_allocator allocator = jt::allocator_over(resource);
  for (std::size_t bytes = 1; bytes < 100; bytes += 7) {
    void *const block = allocator.allocate(allocator.context, bytes);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0U);
    allocator.release(allocator.context, block);
  }
  EXPECT_EQ(resource.bytes, 0U);
}

TEST(SessionAllocator, AMemoryResourceThatThrowsIsOneWithoutMemory) {
  CountingResource resource;
  const jt::Session session("label", jt::allocator_over(resource));
  resource.left = 0;
  EXPECT_TRUE(
      failed(session.decode(kJob), Category::memory_error,
             {"MEMORY ERROR: Allocating for the node:template ...", "MEMORY ERROR: allocation error ..."}));
  resource.left = 1000;
  const auto job = session.decode(kJob);
  ASSERT_TRUE(job);
  resource.left = 0;
  EXPECT_TRUE(
      failed(job->encode(), Category::memory_error, {"MEMORY ERROR: while allocating for encoding ..."}));
}

TEST(SessionAllocator, ARequestThatNoMemoryResourceCouldMeetIsRefused) {
  CountingResource resource;
  const jt_allocator allocator = jt::allocator_over(resource);
  EXPECT_EQ(allocator.allocate(allocator.context, SIZE_MAX), nullptr);
  EXPECT_EQ(allocator.allocate(allocator.context, SIZE_MAX - 1), nullptr);
}

}  // namespace
}  // namespace jt_test
