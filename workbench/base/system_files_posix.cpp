#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "workbench/base/system_files.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

int openFolder(const fs::path& folder) {
  return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

std::string uniquePattern(const fs::path& parent, const std::string& prefix) {
  return (parent / (prefix + "XXXXXX")).string();
}

}  // namespace

fs::path temporaryFolder() {
  const char* folder = std::getenv("TMPDIR");
  return folder != nullptr && *folder != '\0' ? folder : "/tmp";
}

std::optional<fs::path> makeUniqueFolder(const fs::path& parent, const std::string& prefix) {
  std::string pattern = uniquePattern(parent, prefix);
  if (mkdtemp(pattern.data()) == nullptr) return std::nullopt;
  return pattern;
}

std::optional<fs::path> makeUniqueFile(const fs::path& parent, const std::string& prefix) {
  std::string pattern = uniquePattern(parent, prefix);
  const int file = mkstemp(pattern.data());
  if (file < 0) return std::nullopt;
  close(file);
  return pattern;
}

int writingError(const fs::path& file) {
  return access(file.c_str(), W_OK) == 0 ? 0 : errno;
}

int makeFileDurable(const fs::path& file, const fs::path& replaced) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return errno;
  struct stat previous {};
  int code = stat(replaced.c_str(), &previous) == 0 && fchmod(descriptor, previous.st_mode & 07777) != 0 ? errno : 0;
  if (code == 0 && fsync(descriptor) != 0) code = errno;
  close(descriptor);
  return code;
}

int replaceFile(const fs::path& file, const fs::path& target) {
  return rename(file.c_str(), target.c_str()) == 0 ? 0 : errno;
}

int flushFolder(const fs::path& folder) {
  const int handle = openFolder(folder);
  if (handle < 0) return 0;
  const int code = fsync(handle) == 0 ? 0 : errno;
  close(handle);
  return code == EIO ? code : 0;
}

bool FolderLock::acquire(const fs::path& folder) {
  const int handle = openFolder(folder);
  handle_ = handle;
  if (handle < 0) return false;
  flock(handle, LOCK_EX);
  struct stat held {};
  std::error_code unknown;
  return fstat(handle, &held) == 0 && held.st_nlink > 0 && fs::exists(folder, unknown);
}

void FolderLock::release() noexcept {
  const std::intptr_t handle = handle_.exchange(-1);
  if (handle >= 0) close(static_cast<int>(handle));
}

void removeIfAbandoned(const fs::path& folder) {
  const int handle = openFolder(folder);
  if (handle < 0) return;
  std::error_code ignored;
  if (flock(handle, LOCK_EX | LOCK_NB) == 0) fs::remove_all(folder, ignored);
  close(handle);
}

}  // namespace workbench
