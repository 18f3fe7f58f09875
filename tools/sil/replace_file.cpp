// The steps, each of which may be refused; whatever was made by then is taken back.
#include "replace_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <utility>

namespace sil {
namespace {

// The name of the unfinished new file, for the handler of signals; empty where there is none.
constexpr std::size_t kLongestPath = 4096;
char unfinished[kLongestPath];

constexpr std::array kEndingSignals = {SIGINT, SIGTERM, SIGHUP};

extern "C" void end_without_a_trace(int signal) {
  if (unfinished[0] != '\0') unlink(unfinished);
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

class OpenFile {
 public:
  OpenFile() = default;
  OpenFile(const OpenFile &) = delete;
  OpenFile &operator=(const OpenFile &) = delete;
  ~OpenFile() { close_now(); }

  // Takes over what an opening gave; false where that was nothing.
  bool take(int file) {
    file_ = file;
    return file >= 0;
  }

  int get() const { return file_; }

  bool close_now() {
    const int file = file_;
    file_ = -1;
    return file < 0 || close(file) == 0;
  }

 private:
  int file_ = -1;
};

std::string system_problem(const char *step) { return std::string(step) + ": " + std::strerror(errno); }

// The names in a list of attributes, each with a NUL behind it.
std::vector<std::string> names_in(const std::string &list) {
  std::vector<std::string> names;
  for (std::size_t at = 0; at < list.size(); at += names.back().size() + 1)
    names.emplace_back(list.c_str() + at);
  return names;
}

std::vector<std::string> attributes_of(int file) {
  const ssize_t size = flistxattr(file, nullptr, 0);
  if (size <= 0) return {};
  std::string list(static_cast<std::size_t>(size), '\0');
  const ssize_t read = flistxattr(file, list.data(), list.size());
  list.resize(read < 0 ? 0 : static_cast<std::size_t>(read));
  return names_in(list);
}

bool copy_attribute(int from, int to, const char *name) {
  const ssize_t size = fgetxattr(from, name, nullptr, 0);
  if (size < 0) return false;
  std::string value(static_cast<std::size_t>(size), '\0');
  const ssize_t read = fgetxattr(from, name, value.data(), value.size());
  return read >= 0 && fsetxattr(to, name, value.data(), static_cast<std::size_t>(read), 0) == 0;
}

class Replacement {
 public:
  Replacement(std::string path, const Stamp &read, std::string_view text)
      : read_(read), text_(text), target_(std::move(path)) {}

  Replaced run() {
    const bool is_done = follow_links() && check_old() && make_new() && fill_new() && take_place();
    if (!is_done && unfinished[0] != '\0') unlink(unfinished);
    unfinished[0] = '\0';
    return std::move(result_);
  }

 private:
  bool fail(std::string problem) {
    result_.problem = std::move(problem);
    return false;
  }

  bool follow_links() {
    std::error_code problem;
    target_ = std::filesystem::canonical(target_, problem).native();
    return !problem || fail(problem.message());
  }

  bool is_changed() const {
    struct stat facts = {};
    return stat(target_.c_str(), &facts) != 0 || stamp_of(facts) != read_;
  }

  // Opened for writing, as that is what shows whether it may be written.
  bool check_old() {
    if (!old_.take(open(target_.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)))
      return fail(system_problem("cannot be written"));
    if (fstat(old_.get(), &facts_) != 0) return fail(system_problem("cannot be looked at"));
    if (!S_ISREG(facts_.st_mode)) return fail("is no regular file, and cannot be changed in place");
    if (is_changed()) return fail("has changed since it was read, and is left as it is");
    if (facts_.st_nlink > 1)
      result_.notes.emplace_back("has other names (hard links), which keep the old text");
    return true;
  }

  bool make_new() {
    const std::filesystem::path path(target_);
    const std::string pattern = (path.parent_path() / ("." + path.filename().native() + ".XXXXXX")).native();
    if (pattern.size() >= kLongestPath) return fail("has a path that is too long");
    // A signal between the making and the noting of the name would leave the file behind.
    const HeldSignals held;
    std::string name = pattern;
    if (!new_.take(mkostemp(name.data(), O_CLOEXEC)))
      return fail(system_problem("no new file can be made beside it"));
    name.copy(unfinished, name.size());
    unfinished[name.size()] = '\0';
    return true;
  }

  bool fill_new() {
    const int file = new_.get();
    if (!write_all(file, text_)) return fail(system_problem("the new text cannot be written"));
    if (!take_owner(file)) return fail(system_problem("its owner cannot be kept"));
    if (fchmod(file, facts_.st_mode & 07777U) != 0) return fail(system_problem("its mode cannot be kept"));
    copy_attributes(file);
    if (fsync(file) != 0) return fail(system_problem("the new text cannot be synced"));
    return new_.close_now() || fail(system_problem("the new text cannot be written"));
  }

  bool take_owner(int file) const {
    struct stat facts = {};
    if (fstat(file, &facts) != 0) return false;
    if (facts.st_uid == facts_.st_uid && facts.st_gid == facts_.st_gid) return true;
    return fchown(file, facts_.st_uid, facts_.st_gid) == 0;
  }

  void copy_attributes(int file) {
    for (const std::string &name : attributes_of(old_.get()))
      if (!copy_attribute(old_.get(), file, name.c_str()))
        result_.notes.push_back("has lost the attribute " + name);
  }

  bool take_place() {
    if (is_changed()) return fail("has changed since it was read, and is left as it is");
    if (rename(unfinished, target_.c_str()) != 0)
      return fail(system_problem("the new file cannot take its name"));
    unfinished[0] = '\0';
    OpenFile folder;
    const std::filesystem::path parent = std::filesystem::path(target_).parent_path();
    if (!folder.take(open(parent.c_str(), O_RDONLY | O_CLOEXEC)) || fsync(folder.get()) != 0)
      result_.notes.push_back(system_problem("is written, but its folder cannot be synced"));
    return true;
  }

  Stamp read_;
  std::string_view text_;
  std::string target_;
  OpenFile old_;
  OpenFile new_;
  struct stat facts_ = {};
  Replaced result_;
};

}  // namespace

HeldSignals::HeldSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : kEndingSignals) sigaddset(&signals, signal);
  pthread_sigmask(SIG_BLOCK, &signals, &before_);
}

HeldSignals::~HeldSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

Replaced replace_file(const std::string &path, const Stamp &read, std::string_view text) {
  return Replacement(path, read, text).run();
}

void clean_up_on_signals() {
  // What nohup and a shell in the background have told to be ignored stays so.
  for (const int signal : kEndingSignals)
    if (std::signal(signal, end_without_a_trace) == SIG_IGN) std::signal(signal, SIG_IGN);
  // A file that may not grow further is a write that fails, which is said.
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace sil
