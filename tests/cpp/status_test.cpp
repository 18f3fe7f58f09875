// Statuses as owners: every number with its name, names without a number, moving, adopting and giving up.
#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

using jt::Category;
using jt::StatusCode;

struct Row {
  StatusCode code;
  const char *name;
};

constexpr std::array<Row, 19> kRows = {{
    {StatusCode::aborted, "KMT_STATUS_ABORTED"},
    {StatusCode::unknown, "KMT_STATUS_UNKNOWN"},
    {StatusCode::not_instantiated, "KMT_STATUS_NOTINSTANTIATED"},
    {StatusCode::instantiated, "KMT_STATUS_INSTANTIATED"},
    {StatusCode::completed, "KMT_STATUS_COMPLETED"},
    {StatusCode::overridden, "KMT_STATUS_OVERRIDDEN"},
    {StatusCode::ignored, "KMT_STATUS_IGNORED"},
    {StatusCode::undetermined, "KMT_STATUS_UNDETERMINED"},
    {StatusCode::initialized, "KMT_STATUS_INITIALIZED"},
    {StatusCode::uninitialized, "KMT_STATUS_UNINITIALIZED"},
    {StatusCode::filing_protocol_not_running, "KMT_STATUS_FILING_PROTOCOL_NOT_RUNNING"},
    {StatusCode::filing_login_failure, "KMT_STATUS_FILING_LOGIN_FAILURE"},
    {StatusCode::filing_directory_lock_failure, "KMT_STATUS_FILING_DIRECTORY_LOCK_FAILURE"},
    {StatusCode::file_delete_replace_failure, "KMT_STATUS_FILE_DELETE_REPLACE_FAILURE"},
    {StatusCode::hzm_content_file_transfer_failure, "KMT_STATUS_HZM_CONTENT_FILE_TRANSFER_FAILURE"},
    {StatusCode::file_transfer_failure, "KMT_STATUS_FILE_TRANSFER_FAILURE"},
    {StatusCode::misc_filing_error, "KMT_STATUS_MISC_FILING_ERROR"},
    {StatusCode::error, "KMT_STATUS_ERROR"},
    {StatusCode::warning, "KMT_STATUS_WARNING"},
}};

class Statuses : public CppTest {};

TEST_F(Statuses, HaveANumberAndAName) {
  for (const Row &row : kRows) {
    const jt::Result<jt::Status> status = session.status(row.name);
    EXPECT_EQ(status->code(), row.code) << row.name;
    EXPECT_EQ(*status->name(), row.name);
  }
}

TEST_F(Statuses, AreFoundInAnyCase) {
  EXPECT_EQ(session.status("kmt_status_error").value().code(), StatusCode::error);
}

TEST_F(Statuses, KeepANameThatNoNumberHas) {
  const jt::Result<jt::Status> status = session.status("KMT_STATUS_PAUSED");
  EXPECT_TRUE(says(session.last_report(), Category::warning,
                   {"WARNING: trying to evaluate as an 'enumerated' type:KMT_STATUS_PAUSED ..."}));
  EXPECT_EQ(status->code(), StatusCode::other);
  EXPECT_EQ(*status->name(), "KMT_STATUS_PAUSED");
}

TEST_F(Statuses, AreNotMadeOfNull) { EXPECT_TRUE(failed_silently(session.status(nullptr))); }

TEST_F(Statuses, AreEmptyAtFirst) {
  const jt::Status status;
  EXPECT_FALSE(status);
  EXPECT_EQ(status.get(), nullptr);
  EXPECT_EQ(status.code(), StatusCode::other);
  EXPECT_TRUE(has_no_session(status.name()));
}

TEST_F(Statuses, Move) {
  jt::Status status = session.status("KMT_STATUS_ERROR").value();
  jt::Status moved(std::move(status));
  EXPECT_FALSE(status);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(moved.code(), StatusCode::error);
  status = std::move(moved);
  EXPECT_EQ(*status.name(), "KMT_STATUS_ERROR");
}

TEST_F(Statuses, StayWhenMovedToThemselves) {
  jt::Status status = session.status("KMT_STATUS_ERROR").value();
  jt::Status &same = status;
  status = std::move(same);
  EXPECT_EQ(*status.name(), "KMT_STATUS_ERROR");
}

TEST_F(Statuses, AreTakenOverAndGivenUp) {
  jt::Status status(session, get_status(session.get(), "KMT_STATUS_ERROR"));
  EXPECT_EQ(status.code(), StatusCode::error);
  EXPECT_NE(status.get(), nullptr);
  jt_status *const released = status.release();
  EXPECT_FALSE(status);
  EXPECT_EQ(jt_destroy_status(session.get(), released), 1);
}

}  // namespace
}  // namespace jt_test
