// Changing a file in place: what is kept, and what is refused with nothing changed.
#include "replace_file.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <cerrno>
#include <csignal>
#include <functional>

#include "support/program.h"
#include "support/refusing_files.h"

namespace sil {
namespace {

namespace fs = std::filesystem;
using jt_test::read_whole;
using jt_test::refusals;

class ReplaceFile : public testing::Test {
 protected:
  // The file as it is now is what was read.
  Replaced replace(const std::string &text) const {
    return replace_file(path_, read_file(path_, {}).stamp, text);
  }

  std::vector<std::string> names_in_folder() const {
    std::vector<std::string> names;
    for (const fs::directory_entry &entry : fs::directory_iterator(scratch_.file(".")))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

  // Nothing changed, nothing left behind.
  void expect_untouched(const Replaced &replaced, const std::string &problem) const {
    EXPECT_EQ(replaced.problem, problem);
    EXPECT_EQ(read_whole(path_), "old");
    EXPECT_EQ(names_in_folder(), std::vector<std::string>{"job.sil"});
  }

  // What happens in a process of a user who is not root, whose result is its exit status.
  static int as_nobody(const std::function<bool()> &act) {
    const pid_t process = fork();
    if (process == 0) {
      constexpr uid_t kNobody = 65534;
      const bool is_nobody = geteuid() != 0 || (setgid(kNobody) == 0 && setuid(kNobody) == 0);
      _exit(is_nobody && act() ? 0 : 1);
    }
    int status = 0;
    waitpid(process, &status, 0);
    return status;
  }

  jt_test::ScratchDirectory scratch_;
  std::string path_ = scratch_.write("job.sil", "old");
};

TEST_F(ReplaceFile, WritesTheNewText) {
  const Replaced replaced = replace("new");
  EXPECT_EQ(replaced.problem, "");
  EXPECT_EQ(replaced.notes, std::vector<std::string>{});
  EXPECT_EQ(read_whole(path_), "new");
  EXPECT_EQ(names_in_folder(), std::vector<std::string>{"job.sil"});
}

TEST_F(ReplaceFile, KeepsTheMode) {
  ASSERT_EQ(chmod(path_.c_str(), 04640), 0);
  EXPECT_EQ(replace("new").problem, "");
  struct stat facts = {};
  stat(path_.c_str(), &facts);
  EXPECT_EQ(facts.st_mode & 07777U, 04640U);
}

TEST_F(ReplaceFile, KeepsTheOwner) {
  if (geteuid() != 0) GTEST_SKIP() << "only root gives files away";
  ASSERT_EQ(chown(path_.c_str(), 65534, 65533), 0);
  EXPECT_EQ(replace("new").problem, "");
  struct stat facts = {};
  stat(path_.c_str(), &facts);
  EXPECT_EQ(facts.st_uid, 65534U);
  EXPECT_EQ(facts.st_gid, 65533U);
}

TEST_F(ReplaceFile, RefusesWhereTheOwnerCannotBeKept) {
  if (geteuid() != 0) GTEST_SKIP() << "only root gives files away";
  ASSERT_EQ(chown(path_.c_str(), 65534, 65533), 0);
  refusals().fchown = EPERM;
  expect_untouched(replace("new"), "its owner cannot be kept: Operation not permitted");
}

TEST_F(ReplaceFile, KeepsExtendedAttributes) {
  if (setxattr(path_.c_str(), "user.origin", "scanner", 7, 0) != 0) GTEST_SKIP() << "no such attributes here";
  EXPECT_EQ(replace("new").notes, std::vector<std::string>{});
  char value[16] = {};
  EXPECT_EQ(getxattr(path_.c_str(), "user.origin", value, sizeof(value)), 7);
  EXPECT_STREQ(value, "scanner");
}

TEST_F(ReplaceFile, SaysWhichAttributesAreLost) {
  if (setxattr(path_.c_str(), "user.origin", "scanner", 7, 0) != 0) GTEST_SKIP() << "no such attributes here";
  refusals().fsetxattr = ENOSPC;
  EXPECT_EQ(replace("new").notes, std::vector<std::string>{"has lost the attribute user.origin"});
  EXPECT_EQ(read_whole(path_), "new");
}

TEST_F(ReplaceFile, FollowsALinkToTheFile) {
  const std::string link = scratch_.file("link.sil");
  fs::create_symlink("job.sil", link);
  EXPECT_EQ(replace_file(link, read_file(link, {}).stamp, "new").problem, "");
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(read_whole(path_), "new");
}

TEST_F(ReplaceFile, SaysThatThereIsAHardLink) {
  const std::string other = scratch_.file("other.sil");
  fs::create_hard_link(path_, other);
  EXPECT_EQ(replace("new").notes,
            std::vector<std::string>{"has other names (hard links), which keep the old text"});
  EXPECT_EQ(read_whole(path_), "new");
  EXPECT_EQ(read_whole(other), "old");
}

TEST_F(ReplaceFile, LeavesAFileThatHasChanged) {
  const Stamp read = read_file(path_, {}).stamp;
  scratch_.write("job.sil", "newer");
  EXPECT_EQ(replace_file(path_, read, "new").problem, "has changed since it was read, and is left as it is");
  EXPECT_EQ(read_whole(path_), "newer");
}

TEST_F(ReplaceFile, LeavesAFileThatIsAnotherOne) {
  const Stamp read = read_file(path_, {}).stamp;
  scratch_.write("other.sil", "old");
  fs::rename(scratch_.file("other.sil"), path_);
  expect_untouched(replace_file(path_, read, "new"), "has changed since it was read, and is left as it is");
}

TEST_F(ReplaceFile, SaysThatThereIsNoFile) {
  const Stamp read = read_file(path_, {}).stamp;
  fs::remove(path_);
  EXPECT_EQ(replace_file(path_, read, "new").problem, "No such file or directory");
}

TEST_F(ReplaceFile, RefusesWhatIsNoRegularFile) {
  const std::string pipe = scratch_.file("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(replace_file(pipe, {}, "new").problem, "is no regular file, and cannot be changed in place");
}

TEST_F(ReplaceFile, RefusesAFileThatMayNotBeWrittenInAFolderThatMay) {
  fs::permissions(scratch_.file("."), fs::perms::all);
  ASSERT_EQ(chmod(path_.c_str(), 0444), 0);
  const int status =
      as_nobody([this] { return replace("new").problem == "cannot be written: Permission denied"; });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(read_whole(path_), "old");
}

TEST_F(ReplaceFile, RefusesWhereTheFolderTakesNoNewFile) {
  fs::permissions(scratch_.file("."), fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
  ASSERT_EQ(chmod(path_.c_str(), 0666), 0);
  if (geteuid() != 0) fs::permissions(scratch_.file("."), fs::perms::owner_read | fs::perms::owner_exec);
  const int status = as_nobody(
      [this] { return replace("new").problem == "no new file can be made beside it: Permission denied"; });
  fs::permissions(scratch_.file("."), fs::perms::owner_all);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(read_whole(path_), "old");
}

TEST_F(ReplaceFile, ChangesNothingWhenTheSyncFails) {
  refusals().fsync = EIO;
  expect_untouched(replace("new"), "the new text cannot be synced: Input/output error");
}

TEST_F(ReplaceFile, ChangesNothingWhenTheRenamingIsRefused) {
  refusals().rename = EBUSY;
  expect_untouched(replace("new"), "the new file cannot take its name: Device or resource busy");
}

TEST_F(ReplaceFile, ChangesNothingWhenTheDiskIsFull) {
  const pid_t process = fork();
  if (process == 0) {
    clean_up_on_signals();
    const rlimit small = {2, 2};
    setrlimit(RLIMIT_FSIZE, &small);
    _exit(replace("new text").problem == "the new text cannot be written: File too large" ? 0 : 1);
  }
  int ended = 0;
  waitpid(process, &ended, 0);
  EXPECT_EQ(ended, 0);
  EXPECT_EQ(read_whole(path_), "old");
  EXPECT_EQ(names_in_folder(), std::vector<std::string>{"job.sil"});
}

// A process that is interrupted where it is told to be; its end as waitpid() tells it.
int end_of_interrupted(int jt_test::Interruptions::*moment, int signal, const std::function<void()> &act) {
  const pid_t process = fork();
  if (process == 0) {
    std::signal(signal, SIG_DFL);
    clean_up_on_signals();
    jt_test::interruptions().*moment = signal;
    act();
    _exit(0);
  }
  int ended = 0;
  waitpid(process, &ended, 0);
  return ended;
}

TEST_F(ReplaceFile, LeavesTheOldTextWhenItIsInterruptedBeforeTheRenaming) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    for (const auto moment :
         {&jt_test::Interruptions::before_fsync, &jt_test::Interruptions::before_rename}) {
      const int ended = end_of_interrupted(moment, signal, [this] { replace("new"); });
      EXPECT_TRUE(WIFSIGNALED(ended) && WTERMSIG(ended) == signal) << ended;
      EXPECT_EQ(read_whole(path_), "old");
      EXPECT_EQ(names_in_folder(), std::vector<std::string>{"job.sil"});
    }
  }
}

TEST_F(ReplaceFile, LeavesTheNewTextWhenItIsInterruptedBehindTheRenaming) {
  const int ended =
      end_of_interrupted(&jt_test::Interruptions::behind_rename, SIGINT, [this] { replace("new"); });
  EXPECT_TRUE(WIFSIGNALED(ended) && WTERMSIG(ended) == SIGINT) << ended;
  EXPECT_EQ(read_whole(path_), "new");
  EXPECT_EQ(names_in_folder(), std::vector<std::string>{"job.sil"});
}

// What nohup and a shell in the background ask for.
TEST_F(ReplaceFile, GoesOnWhereSignalsAreIgnored) {
  const pid_t process = fork();
  if (process == 0) {
    std::signal(SIGHUP, SIG_IGN);
    clean_up_on_signals();
    jt_test::interruptions().before_rename = SIGHUP;
    _exit(replace("new").problem.empty() ? 0 : 1);
  }
  int ended = 0;
  waitpid(process, &ended, 0);
  EXPECT_EQ(ended, 0);
  EXPECT_EQ(read_whole(path_), "new");
}

}  // namespace
}  // namespace sil
