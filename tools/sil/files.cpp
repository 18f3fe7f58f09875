// Reading, finding and working side by side.
#include "files.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <filesystem>
#include <map>
#include <mutex>
#include <thread>

#include "replace_file.h"

namespace sil {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSuffix = ".sil";

bool same_time(const timespec &a, const timespec &b) {
  return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

// False with errno.
bool read_all(int file, std::string &text) {
  constexpr std::size_t kPiece = 1 << 18;
  for (;;) {
    const std::size_t size = text.size();
    text.resize(size + kPiece);
    const ssize_t count = read(file, text.data() + size, kPiece);
    text.resize(size + (count > 0 ? static_cast<std::size_t>(count) : 0));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return count == 0;
  }
}

bool is_hidden(const fs::path &path) { return path.filename().native().starts_with('.'); }

void sort_by_name(std::vector<fs::directory_entry> &entries) {
  std::sort(entries.begin(), entries.end(), [](const fs::directory_entry &a, const fs::directory_entry &b) {
    return a.path().native() < b.path().native();
  });
}

// The folders still to be read wait on a list, since they may lie deeper than a stack.
void find_in_folder(const std::string &folder, std::vector<FoundFile> &found) {
  const std::size_t before = found.size();
  std::vector<fs::directory_entry> waiting = {fs::directory_entry(folder)};
  while (!waiting.empty()) {
    const fs::directory_entry entry = waiting.back();
    waiting.pop_back();
    std::error_code problem;
    const bool is_folder = entry.is_directory(problem);
    if (!is_folder) {
      found.push_back({entry.path().native(), ""});
      continue;
    }
    std::vector<fs::directory_entry> entries;
    fs::directory_iterator next(entry.path(), problem);
    for (; !problem && next != fs::directory_iterator(); next.increment(problem)) {
      const fs::directory_entry &child = *next;
      std::error_code ignored;
      const bool is_below = child.is_directory(ignored);
      const bool is_wanted = is_below
                                 ? !child.is_symlink(ignored)
                                 : child.path().native().ends_with(kSuffix) && child.is_regular_file(ignored);
      if (!is_hidden(child.path()) && is_wanted) entries.push_back(child);
    }
    if (problem) found.push_back({entry.path().native(), problem.message()});
    sort_by_name(entries);
    waiting.insert(waiting.end(), entries.rbegin(), entries.rend());
  }
  if (found.size() == before) found.push_back({folder, "no file *.sil in this folder"});
}

// A line on standard error that is written over, and away at the end.
class Progress {
 public:
  explicit Progress(std::size_t count) : count_(count), is_shown_(isatty(STDERR_FILENO) == 1) {}
  Progress(const Progress &) = delete;
  Progress &operator=(const Progress &) = delete;
  ~Progress() { clear(); }

  void show(std::size_t done) {
    if (!is_shown_ || std::chrono::steady_clock::now() - begin_ < std::chrono::seconds(1)) return;
    write_all(STDERR_FILENO, "\r" + std::to_string(done) + " of " + std::to_string(count_) + " files");
    is_there_ = true;
  }

  void clear() {
    if (is_there_) write_all(STDERR_FILENO, "\r\x1b[K");
    is_there_ = false;
  }

 private:
  std::size_t count_;
  bool is_shown_;
  bool is_there_ = false;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

// Threads take the files in their order and leave the results here, where the main thread takes them in the same
// order. Nobody runs further ahead of it than the window.
class Works {
 public:
  Works(const std::vector<FoundFile> &files, const Arguments &arguments,
        const std::function<FileResult(const File &)> &work)
      : files_(files), arguments_(arguments), work_(work) {
    const std::size_t threads =
        std::min<std::size_t>(std::max(1U, std::thread::hardware_concurrency()), files.size());
    window_ = 2 * threads;
    const HeldSignals held;
    for (std::size_t i = 0; i < threads; ++i) threads_.emplace_back([this] { run(); });
  }

  Works(const Works &) = delete;
  Works &operator=(const Works &) = delete;
  ~Works() {
    {
      const std::lock_guard lock(mutex_);
      next_ = files_.size();
    }
    may_go_on_.notify_all();
    for (std::thread &thread : threads_) thread.join();
  }

  // Waits for the result of a file, and says how far it is.
  FileResult take(std::size_t number, Progress &progress) {
    std::unique_lock lock(mutex_);
    while (!done_.wait_for(lock, std::chrono::milliseconds(100), [&] { return results_.contains(number); }))
      progress.show(number);
    FileResult result = std::move(results_.extract(number).mapped());
    taken_ = number + 1;
    may_go_on_.notify_all();
    return result;
  }

 private:
  void run() {
    for (;;) {
      std::unique_lock lock(mutex_);
      may_go_on_.wait(lock, [this] { return next_ == files_.size() || next_ < taken_ + window_; });
      if (next_ == files_.size()) return;
      const std::size_t number = next_++;
      lock.unlock();
      FileResult result = result_of(files_[number]);
      lock.lock();
      results_.emplace(number, std::move(result));
      done_.notify_one();
    }
  }

  FileResult result_of(const FoundFile &found) {
    FileResult result;
    File file;
    file.name = found.path;
    file.problem = found.problem;
    if (file.problem.empty()) file = read_file(found.path, arguments_);
    if (file.problem.empty()) return work_(file);
    result.words = "sil: " + file.name + ": " + file.problem + "\n";
    result.status = kTrouble;
    return result;
  }

  const std::vector<FoundFile> &files_;
  const Arguments &arguments_;
  const std::function<FileResult(const File &)> &work_;
  std::size_t window_ = 0;
  std::mutex mutex_;
  std::condition_variable may_go_on_;
  std::condition_variable done_;
  std::map<std::size_t, FileResult> results_;
  std::size_t next_ = 0;
  std::size_t taken_ = 0;
  std::vector<std::thread> threads_;
};

}  // namespace

Stamp stamp_of(const struct stat &facts) {
  return {facts.st_dev, facts.st_ino, facts.st_size, facts.st_ctim, facts.st_mtim};
}

bool operator==(const Stamp &a, const Stamp &b) {
  return a.device == b.device && a.inode == b.inode && a.size == b.size && same_time(a.changed, b.changed) &&
         same_time(a.modified, b.modified);
}

File read_file(const std::string &path, const Arguments &arguments) {
  File file;
  file.path = path;
  file.name = path == "-" ? arguments.value_of("--stdin-name", "standard input") : path;
  const int opened = path == "-" ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat facts = {};
  const bool is_read = opened >= 0 && fstat(opened, &facts) == 0 && read_all(opened, file.text);
  if (!is_read) file.problem = std::strerror(errno);
  file.stamp = stamp_of(facts);
  if (opened > STDIN_FILENO) close(opened);
  return file;
}

std::vector<FoundFile> find_files(const std::vector<std::string> &operands) {
  std::vector<FoundFile> found;
  for (const std::string &operand : operands) {
    std::error_code ignored;
    if (operand != "-" && fs::is_directory(operand, ignored)) {
      find_in_folder(operand, found);
    } else {
      found.push_back({operand, ""});
    }
  }
  return found;
}

ExitStatus for_each_file(const Arguments &arguments, Output &output,
                         const std::function<FileResult(const File &)> &work) {
  const std::vector<FoundFile> files = find_files(arguments.operands);
  ExitStatus status = kFine;
  Progress progress(files.size());
  Works works(files, arguments, work);
  for (std::size_t i = 0; i < files.size(); ++i) {
    const FileResult result = works.take(i, progress);
    if (!result.words.empty() || !result.results.empty() || result.afterwards) progress.clear();
    output.print(result.results);
    if (!result.words.empty()) output.complain(result.words);
    status = worse(status, result.status);
    if (result.afterwards) status = worse(status, result.afterwards(output));
    progress.show(i + 1);
  }
  return status;
}

}  // namespace sil
