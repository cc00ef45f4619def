#include <cerrno>
#include <random>
#include <string_view>

#include "workbench/base/system_files.h"
#include "workbench/base/utf8_path.h"
#include "workbench/base/windows_api.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

constexpr std::intptr_t kNoHandle = -1;  // INVALID_HANDLE_VALUE
constexpr int kAttempts = 100;           // at names that nobody has
// A scanner of viruses or an indexer may hold a new file open for a moment.
constexpr int kReplaceAttempts = 20;
constexpr DWORD kReplacePause = 25;  // milliseconds

HANDLE openPath(const fs::path& path, DWORD access, DWORD share, DWORD flags) {
  return CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING, flags, nullptr);
}

HANDLE openFolder(const fs::path& folder, DWORD access, DWORD share) {
  return openPath(folder, access, share, FILE_FLAG_BACKUP_SEMANTICS);
}

std::string sixCharacters() {
  static constexpr std::string_view kCharacters = "abcdefghijklmnopqrstuvwxyz0123456789";  // case means nothing here
  std::random_device random;
  std::string text;
  for (int place = 0; place < 6; ++place) text += kCharacters[random() % kCharacters.size()];
  return text;
}

// Calls make(path) with new names until it makes one.
template <class Make>
std::optional<fs::path> makeUnique(const fs::path& parent, const std::string& prefix, Make make) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    const fs::path path = parent / pathFromUtf8(prefix + sixCharacters());
    if (make(path)) return path;
    errno = errnoOfLastError();
    if (errno != EEXIST) return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace

int errnoOfLastError() {
  switch (GetLastError()) {
    case ERROR_SUCCESS:
      return 0;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
      return ENOENT;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_PRIVILEGE_NOT_HELD:
      return EACCES;
    case ERROR_WRITE_PROTECT:
      return EROFS;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case ERROR_TOO_MANY_OPEN_FILES:
      return EMFILE;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return ENOMEM;
    case ERROR_DIRECTORY:
      return ENOTDIR;
    case ERROR_NOT_SAME_DEVICE:
      return EXDEV;
    case ERROR_FILENAME_EXCED_RANGE:
      return ENAMETOOLONG;
    default:
      return EIO;
  }
}

fs::path temporaryFolder() {
  std::error_code error;
  const fs::path folder = fs::temp_directory_path(error);
  return error ? fs::path(".") : folder;
}

std::optional<fs::path> makeUniqueFolder(const fs::path& parent, const std::string& prefix) {
  return makeUnique(parent, prefix, [](const fs::path& path) { return CreateDirectoryW(path.c_str(), nullptr) != 0; });
}

std::optional<fs::path> makeUniqueFile(const fs::path& parent, const std::string& prefix) {
  return makeUnique(parent, prefix, [](const fs::path& path) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    return file != INVALID_HANDLE_VALUE && CloseHandle(file) != 0;
  });
}

int writingError(const fs::path& file) {
  const DWORD attributes = GetFileAttributesW(file.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return errnoOfLastError();
  return (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? EACCES : 0;
}

// A new file takes its permissions from the folder, as the one that it replaces did.
int makeFileDurable(const fs::path& file, const fs::path& /*replaced*/) {
  const HANDLE handle = openPath(file, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, 0);
  if (handle == INVALID_HANDLE_VALUE) return errnoOfLastError();
  const int code = FlushFileBuffers(handle) != 0 ? 0 : errnoOfLastError();
  CloseHandle(handle);
  return code;
}

int replaceFile(const fs::path& file, const fs::path& target) {
  for (int attempt = 1;; ++attempt) {
    if (MoveFileExW(file.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) return 0;
    const int code = errnoOfLastError();
    if (code != EACCES || attempt == kReplaceAttempts) return code;
    Sleep(kReplacePause);
  }
}

// MOVEFILE_WRITE_THROUGH has done it.
int flushFolder(const fs::path& /*folder*/) {
  return 0;
}

// An open folder that is not shared for deletion cannot be removed.
bool FolderLock::acquire(const fs::path& folder) {
  handle_ = reinterpret_cast<std::intptr_t>(openFolder(folder, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE));
  return handle_ != kNoHandle;
}

void FolderLock::release() noexcept {
  const std::intptr_t handle = handle_.exchange(kNoHandle);
  if (handle != kNoHandle) CloseHandle(reinterpret_cast<HANDLE>(handle));
}

void removeIfAbandoned(const fs::path& folder) {
  const HANDLE handle = openFolder(folder, DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
  if (handle == INVALID_HANDLE_VALUE) return;
  CloseHandle(handle);
  std::error_code ignored;
  fs::remove_all(folder, ignored);
}

}  // namespace workbench
