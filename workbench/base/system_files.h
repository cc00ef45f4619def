// What systems do in ways of their own to files and folders. An error is an errno code, 0 for none.

#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace workbench {

// Where short-lived files go.
std::filesystem::path temporaryFolder();

// A new folder or an empty file whose name is the prefix and six more characters; nothing, with errno, when there can
// be none.
std::optional<std::filesystem::path> makeUniqueFolder(const std::filesystem::path& parent, const std::string& prefix);
std::optional<std::filesystem::path> makeUniqueFile(const std::filesystem::path& parent, const std::string& prefix);

// Why the existing file may not be written, or 0.
int writingError(const std::filesystem::path& file);

// The file's bytes onto the disk, with the permissions of the file that it is to replace, if there is one.
int makeFileDurable(const std::filesystem::path& file, const std::filesystem::path& replaced);
// At once: nobody sees the target missing or half.
int replaceFile(const std::filesystem::path& file, const std::filesystem::path& target);
// A new name in the folder survives a power cut only when the folder is flushed; only what the disk itself fails in is
// an error, since not every file system can.
int flushFolder(const std::filesystem::path& folder);

// Keeps a folder that this process made from being taken for one whose process is gone.
class FolderLock {
 public:
  FolderLock() = default;
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;
  ~FolderLock() { release(); }

  // False when another process removed the folder before it was locked.
  bool acquire(const std::filesystem::path& folder);
  // At most once takes effect, whatever the thread. A locked folder cannot be removed on Windows.
  void release() noexcept;

 private:
  std::atomic<std::intptr_t> handle_ = -1;
};

// Removes a folder that no process holds locked, with all that is in it; else leaves it.
void removeIfAbandoned(const std::filesystem::path& folder);

}  // namespace workbench
