#include "workbench/base/atomic_file.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "workbench/base/errors.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestNameKept = 200;  // of 255: the folder's own mark must fit beside it

const char* remedyFor(int code) {
  switch (code) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return "Make room or choose another place.";
    case ENOENT:
    case ENOTDIR:
      return "Create its folder first or choose another.";
    case EACCES:
    case EPERM:
    case EROFS:
      return "Choose a place that you may write to.";
    default:
      return "Choose another place.";
  }
}

[[noreturn]] void fail(const fs::path& file, int code) {
  throw OutputError(file.string() + " cannot be written: " + std::strerror(code) + ". " + remedyFor(code));
}

fs::path folderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

std::string stagingPrefix(const fs::path& target) {
  return "." + target.filename().string().substr(0, kLongestNameKept) + ".varmodel-";
}

int openFolder(const fs::path& folder) {
  return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

// Removes a staging folder whose process is gone, which its free lock shows.
void removeIfStale(const fs::path& folder) {
  const int handle = openFolder(folder);
  if (handle < 0) return;
  std::error_code ignored;
  if (flock(handle, LOCK_EX | LOCK_NB) == 0) fs::remove_all(folder, ignored);
  close(handle);
}

void removeStaleFolders(const fs::path& target) {
  const std::string prefix = stagingPrefix(target);
  std::error_code error;
  for (fs::directory_iterator entry(folderOf(target), error), end; !error && entry != end; entry.increment(error)) {
    if (entry->path().filename().string().rfind(prefix, 0) == 0) removeIfStale(entry->path());
  }
}

// Also while another thread writes into it.
void removeEverything(const fs::path& folder) {
  std::error_code error;
  for (int attempt = 0; attempt < 10; ++attempt) {
    fs::remove_all(folder, error);
    if (!error) return;
  }
}

void requireReplaceable(const fs::path& target) {
  const fs::file_status status = fs::status(target);
  if (fs::is_directory(status) || !target.has_filename()) {
    throw OutputError(target.string() + " cannot be written: it is a folder. Name a file in it.");
  }
  if (isSpecialFile(target)) throw OutputError(target.string() + " cannot be replaced: it is not a regular file.");
  if (fs::exists(status) && access(target.c_str(), W_OK) != 0) fail(target, errno);
}

// The folder's entry survives a power cut only when the folder itself is flushed; not every file system can.
void flushFolder(const fs::path& file) {
  const int handle = openFolder(folderOf(file));
  if (handle < 0) return;
  const int code = fsync(handle) == 0 ? 0 : errno;
  close(handle);
  if (code == EIO) fail(file, code);
}

}  // namespace

bool isSpecialFile(const fs::path& target) {
  std::error_code error;
  const fs::file_status status = fs::status(target, error);
  return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

FileSink::FileSink(const fs::path& path, fs::path shown) : shown_(std::move(shown)) {
  file_ = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file_ < 0) fail(shown_, errno);
}

FileSink::~FileSink() {
  if (file_ >= 0) ::close(file_);
}

void FileSink::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file_, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      fail(shown_, errno);
    }
  }
}

void FileSink::close() {
  if (::close(std::exchange(file_, -1)) != 0) fail(shown_, errno);
}

StagedFile::StagedFile(const fs::path& target) : requested_(target) {
  std::error_code error;
  target_ = fs::weakly_canonical(target, error);
  if (error) fail(requested_, error.value());
  requireReplaceable(target_);
  removeStaleFolders(target_);
  makeFolder();
  staged_ = folder_ / target_.filename();
}

// Another process may take the new folder for a stale one until it is locked; then a second attempt is due.
void StagedFile::makeFolder() {
  for (int attempt = 0; attempt < 10; ++attempt) {
    std::string pattern = (folderOf(target_) / (stagingPrefix(target_) + "XXXXXX")).string();
    if (mkdtemp(pattern.data()) == nullptr) fail(requested_, errno);
    folder_ = pattern;
    cleaning_.emplace([folder = folder_] { removeEverything(folder); });
    lock_ = openFolder(folder_);
    if (lock_ >= 0) {
      flock(lock_, LOCK_EX);
      struct stat held {};
      if (fstat(lock_, &held) == 0 && held.st_nlink > 0 && fs::exists(folder_)) return;
    }
    removeFolder();
  }
  fail(requested_, EBUSY);
}

void StagedFile::removeFolder() noexcept {
  std::error_code ignored;
  if (!folder_.empty()) fs::remove_all(folder_, ignored);
  cleaning_.reset();
  folder_.clear();
  if (lock_ >= 0) close(std::exchange(lock_, -1));
}

StagedFile::~StagedFile() {
  removeFolder();
}

void StagedFile::makeDurable() {
  if (durable_) return;
  const int file = open(staged_.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) fail(requested_, errno);
  struct stat previous {};
  int code = stat(target_.c_str(), &previous) == 0 && fchmod(file, previous.st_mode & 07777) != 0 ? errno : 0;
  if (code == 0 && fsync(file) != 0) code = errno;
  close(file);
  if (code != 0) fail(requested_, code);
  durable_ = true;
}

void StagedFile::publish() {
  makeDurable();
  if (rename(staged_.c_str(), target_.c_str()) != 0) fail(requested_, errno);
  removeFolder();
  flushFolder(target_);
}

void writeFileAtomically(const fs::path& target, std::string_view bytes) {
  if (isSpecialFile(target)) {
    FileSink sink(target, target);
    sink.write(bytes);
    sink.close();
    return;
  }
  StagedFile staged(target);
  FileSink sink(staged.path(), target);
  sink.write(bytes);
  sink.close();
  staged.publish();
}

}  // namespace workbench
