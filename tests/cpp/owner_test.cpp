// The owners of sessions and templates: opening, closing, moving, adopting, giving up, and going in any
// order.
#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

using jt::Category;

constexpr const char *kSmall = "[ kmt_svc_scan Scan ] { integer Copies = 1; } end";

// ---- Session ----

TEST(Session, IsEmptyAtFirst) {
  const jt::Session session;
  EXPECT_FALSE(session);
  EXPECT_EQ(session.get(), nullptr);
  EXPECT_TRUE(has_no_session(session.create()));
  EXPECT_EQ(session.version(), "");
  EXPECT_TRUE(session.history().empty());
  EXPECT_EQ(session.last_category(), Category::none);
  EXPECT_TRUE(says(session.last_report(), Category::call_error, {"CALL ERROR: no session ..."}));
}

TEST(Session, Opens) {
  const jt::Session session("label");
  EXPECT_TRUE(session);
  EXPECT_NE(session.get(), nullptr);
}

TEST(Session, IsEmptyWhereItsLabelIsRefused) {
  EXPECT_FALSE(jt::Session(std::string_view("a\0b", 3)));
  EXPECT_FALSE(jt::Session(static_cast<const char *>(nullptr)));
}

TEST(Session, IsEmptyWithoutMemory) {
  fail_allocations(1, Failing::kAllFromThereOn);
  const jt::Session session("label");
  EXPECT_GT(allow_allocations(), 0);
  EXPECT_FALSE(session);
}

TEST(Session, KnowsTheLibrary) {
  const jt::Session session("label");
  EXPECT_EQ(session.version(), "VERSION 4.2.00\njt: reads and writes SIL job templates\n");
  EXPECT_EQ(session.copyright().size(), 658U);
  EXPECT_EQ(session.language_version(), "2.5.0");
}

TEST(Session, ClosesWithAllThatIsInIt) {
  const long before = live_blocks();
  {
    const jt::Session session("label");
    EXPECT_NE(jt_decode_template(session.get(), kSmall), 0);
    EXPECT_GT(live_blocks(), before);
  }
  EXPECT_EQ(live_blocks(), before);
}

TEST(Session, MovesWhileItsTemplateStays) {
  jt::Session session("label");
  const jt::Template job = session.decode(kSmall).value();
  const jt::Session moved(std::move(session));
  EXPECT_FALSE(session);  // NOLINT(bugprone-use-after-move)
  EXPECT_TRUE(moved);
  EXPECT_TRUE(job.service("Scan").exists());
}

TEST(Session, ClosesWhatItHeldWhenAnotherIsMovedIn) {
  jt::Session session("one");
  const jt::Template job = session.decode(kSmall).value();
  session = jt::Session("two");
  EXPECT_TRUE(session);
  EXPECT_TRUE(has_no_session(job.encode()));
}

TEST(Session, StaysWhenMovedToItself) {
  jt::Session session("label");
  jt::Session &same = session;
  session = std::move(same);
  EXPECT_TRUE(session);
  EXPECT_TRUE(session.create());
}

TEST(Session, IsTakenOver) {
  jt_parser_space *const space = jt_open_parsing_utility("raw");
  const jt::Session session(space);
  EXPECT_EQ(session.get(), space);
  EXPECT_FALSE(jt::Session(nullptr));
}

TEST(Session, IsGivenUp) {
  jt::Session session("label");
  const jt::Template job = session.decode(kSmall).value();
  jt_parser_space *const space = session.release();
  EXPECT_FALSE(session);
  EXPECT_TRUE(has_no_session(job.encode()));
  EXPECT_TRUE(jt_exists_service(space, job.get(), "Scan"));
  jt_close_parsing_utility(space);
}

TEST(Session, CanBeClosedEarly) {
  jt::Session session("label");
  session = jt::Session();
  EXPECT_FALSE(session);
}

// ---- Template ----

TEST(Template, IsEmptyAtFirst) {
  const jt::Template job;
  EXPECT_FALSE(job);
  EXPECT_EQ(job.get(), 0);
  EXPECT_TRUE(has_no_session(job.encode()));
  EXPECT_TRUE(has_no_session(job.add_service("kmt_svc_scan", "Scan")));
  EXPECT_FALSE(job.service("Scan").exists());
  EXPECT_EQ(words_of(job.services()), Words());
}

TEST(Template, IsCreatedEmpty) {
  const jt::Session session("label");
  const jt::Result<jt::Template> job = session.create();
  EXPECT_TRUE(job);
  EXPECT_LE(job->get(), -100);
  EXPECT_EQ(*job->encode(), "");
}

TEST(Template, IsDecodedAndEncoded) {
  const jt::Session session("label");
  const jt::Result<jt::Template> job = session.decode(kSmall);
  EXPECT_EQ(*job->encode(), "[kmt_svc_scan Scan]\n {\n      integer Copies = 1;\n }\nend\n\n");
}

TEST(Template, SaysWhyATextIsRefused) {
  const jt::Session session("label");
  EXPECT_TRUE(failed(session.decode("[ kmt_svc_coffee Cup ] end"), Category::syntax_error,
                     {"SYNTAX ERROR: while parsing for \"  TYPE  \" at:kmt_svc_coffee Cup ] end ...",
                      "SYNTAX ERROR: unknown or invalid type:kmt_svc_coffee ..."}));
}

TEST(Template, IsNotMadeOfANullText) {
  const jt::Session session("label");
  EXPECT_TRUE(failed_silently(session.decode(nullptr)));
}

TEST(Template, IsDestroyedWithItsOwner) {
  const jt::Session session("label");
  std::int32_t handle = 0;
  {
    const jt::Template job = session.decode(kSmall).value();
    handle = job.get();
    EXPECT_NE(opaque_to_node(session.get(), handle), nullptr);
  }
  EXPECT_EQ(opaque_to_node(session.get(), handle), nullptr);
}

TEST(Template, Moves) {
  const jt::Session session("label");
  jt::Template job = session.decode(kSmall).value();
  const std::int32_t handle = job.get();
  jt::Template moved(std::move(job));
  EXPECT_FALSE(job);  // NOLINT(bugprone-use-after-move)
  EXPECT_TRUE(has_no_session(job.encode()));
  EXPECT_EQ(moved.get(), handle);
  job = std::move(moved);
  EXPECT_EQ(job.get(), handle);
  EXPECT_TRUE(job.encode());
}

TEST(Template, DestroysWhatItHeldWhenAnotherIsMovedIn) {
  const jt::Session session("label");
  jt::Template job = session.decode(kSmall).value();
  const std::int32_t handle = job.get();
  job = session.create().value();
  EXPECT_NE(job.get(), handle);
  EXPECT_EQ(opaque_to_node(session.get(), handle), nullptr);
}

TEST(Template, StaysWhenMovedToItself) {
  const jt::Session session("label");
  jt::Template job = session.decode(kSmall).value();
  jt::Template &same = job;
  job = std::move(same);
  EXPECT_TRUE(job.encode());
}

TEST(Template, IsTakenOver) {
  const jt::Session session("label");
  const jt::Template job(session, jt_decode_template(session.get(), kSmall));
  EXPECT_TRUE(job.service("Scan").exists());
}

TEST(Template, IsGivenUp) {
  const jt::Session session("label");
  jt::Template job = session.decode(kSmall).value();
  const std::int32_t handle = job.release();
  EXPECT_FALSE(job);
  EXPECT_EQ(jt_destroy_template(session.get(), handle), 1);
}

// ---- Order ----

TEST(Order, OfATemplateAndItsSessionIsFree) {
  jt::Template job;
  jt::Service scan;
  {
    const jt::Session session("label");
    job = session.decode(kSmall).value();
    scan = job.service("Scan");
    EXPECT_TRUE(scan.exists());
  }
  EXPECT_TRUE(job);
  EXPECT_TRUE(has_no_session(job.encode()));
  EXPECT_FALSE(scan.exists());
  EXPECT_TRUE(has_no_session(scan.type()));
  EXPECT_TRUE(has_no_session(scan.value("Copies")));
  EXPECT_TRUE(has_no_session(scan.parse("Copies", "1")));
  EXPECT_TRUE(has_no_session(scan.set("Copies", 1)));
  EXPECT_TRUE(has_no_session(scan.status()));
  EXPECT_EQ(words_of(scan.attributes()), Words());
}

TEST(Order, OfValuesAndTheirSessionIsFree) {
  jt::Value value;
  jt::Status status;
  jt::Text text;
  {
    const jt::Session session("label");
    value = session.parse("integer", "7").value();
    status = session.status("KMT_STATUS_IGNORED").value();
    text = session.create().value().encode().value();
  }
  EXPECT_EQ(*value.as<std::int32_t>(), 7);
  EXPECT_EQ(*value.text(), "7");
  EXPECT_EQ(*value.copy(), value);
  EXPECT_EQ(status.code(), jt::StatusCode::ignored);
  EXPECT_TRUE(has_no_session(status.name()));
  EXPECT_TRUE(text);
}

TEST(Order, OfWalksAndTheirSessionIsFree) {
  jt::Session session("label");
  const jt::Template job = session.decode(kSmall).value();
  jt::Attributes attributes = job.service("Scan").attributes();
  auto at = attributes.begin();
  EXPECT_EQ(*at, "Copies");
  session = jt::Session();
  ++at;
  EXPECT_TRUE(at == attributes.end());
}

TEST(Order, LeaksNothing) {
  const long before = live_blocks();
  {
    jt::Template job;
    jt::Value value;
    {
      const jt::Session session("label");
      job = session.decode(kSmall).value();
      value = job.service("Scan").value("Copies").value();
      EXPECT_FALSE(job.service("Fax").type());
    }
  }
  EXPECT_EQ(live_blocks(), before);
}

}  // namespace
}  // namespace jt_test
