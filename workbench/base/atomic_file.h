// Files that appear under their name complete or not at all.
//
// A staged file is written in a hidden folder beside its target, `.NAME.varmodel-XXXXXX`, which its process keeps
// locked. Publishing makes the bytes durable and renames them over the target. A killed process leaves only such a
// folder; the next staging in that folder removes it, since its lock is free.

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "workbench/base/interruption.h"
#include "workbench/base/system_files.h"

namespace workbench {

// Bytes into a file as they come. Every failure, late ones of close included, throws OutputError.
class FileSink {
 public:
  // Messages name `shown`, the file as the user knows it.
  FileSink(const std::filesystem::path& path, std::filesystem::path shown);
  FileSink(const FileSink&) = delete;
  FileSink& operator=(const FileSink&) = delete;
  ~FileSink();

  void write(std::string_view bytes);
  void close();

 private:
  int file_ = -1;
  std::filesystem::path shown_;
};

class StagedFile {
 public:
  // Throws OutputError when nothing can be written beside the target. A symbolic link stands for the file it names.
  explicit StagedFile(const std::filesystem::path& target);
  StagedFile(const StagedFile&) = delete;
  StagedFile& operator=(const StagedFile&) = delete;
  ~StagedFile();  // unpublished: the target is untouched and nothing is left

  const std::filesystem::path& path() const { return staged_; }  // where to write; does not exist yet
  void makeDurable();  // throws OutputError; separate from publish so that several files can be secured first
  // What stands under the target's name is taken from there; it comes back if this file is given up.
  void setAside();
  void replaceTarget();  // makeDurable, then rename over the target; throws OutputError
  void publish();        // replaceTarget, then make the new name durable; throws OutputError

 private:
  void makeFolder();
  void removeFolder() noexcept;

  std::filesystem::path requested_;  // as the caller named it, for messages
  std::filesystem::path target_;
  std::filesystem::path folder_;
  std::filesystem::path staged_;
  FolderLock lock_;
  bool durable_ = false;
  std::filesystem::path aside_;  // what was set aside; empty when nothing is
  std::optional<DueCleaning> cleaning_;
};

// Writes a whole file; a device or pipe is written directly. Throws OutputError with place, reason and remedy.
void writeFileAtomically(const std::filesystem::path& target, std::string_view bytes);

// The file that a name stands for in the end: a symbolic link may lead to one that does not exist yet. An error when
// there is none, as of links in a circle.
std::filesystem::path finalTarget(const std::filesystem::path& file, std::error_code& error);

// True for an existing target that is neither a regular file nor a folder: it cannot be replaced, only written into.
bool isSpecialFile(const std::filesystem::path& target);

}  // namespace workbench
