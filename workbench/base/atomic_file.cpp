#include "workbench/base/atomic_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "workbench/base/descriptor.h"
#include "workbench/base/errors.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestNameKept = 200;  // of 255: the folder's own mark must fit beside it
const std::string kMark = ".varmodel-";
constexpr std::size_t kUnique = 6;  // characters behind it
constexpr int kMostLinks = 40;      // as many as the system follows

Notice remedyFor(int code) {
  switch (code) {
    case ENOSPC:
    case EFBIG:
#if defined(EDQUOT)
    case EDQUOT:
#endif
      return phrase("Make room or choose another place.");
    case ENOENT:
    case ENOTDIR:
      return phrase("Create its folder first or choose another.");
    case EACCES:
    case EPERM:
    case EROFS:
      return phrase("Choose a place that you may write to.");
    default:
      return phrase("Choose another place.");
  }
}

[[noreturn]] void fail(const fs::path& file, int code) {
  throw OutputError("output.unwritable", "^1 cannot be written: ^2. ^3", file, std::strerror(code), remedyFor(code));
}

fs::path folderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

// As much of the target's name as fits, in whole characters.
std::string stagingPrefix(const fs::path& target) {
  const std::string name = target.filename().string();
  std::size_t length = std::min(name.size(), kLongestNameKept);
  while (length < name.size() && length > 0 && (name[length] & 0xC0) == 0x80) --length;
  return "." + name.substr(0, length) + kMark;
}

bool isStagingFolder(const std::string& name) {
  return name.size() > kMark.size() + kUnique && name.front() == '.' &&
         std::string_view(name).substr(name.size() - kUnique - kMark.size()).starts_with(kMark);
}

// Of any target: a killed run may never be repeated.
void removeStaleFolders(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code unknown;
    if (isStagingFolder(entry->path().filename().string()) && entry->is_directory(unknown) &&
        !entry->is_symlink(unknown)) {
      removeIfAbandoned(entry->path());
    }
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
  std::error_code error;
  const fs::file_status status = fs::status(target, error);
  if (status.type() == fs::file_type::none) fail(target, error.value());
  if (fs::is_directory(status) || !target.has_filename()) {
    throw OutputError("output.folder", "^1 cannot be written: it is a folder. Name a file in it.", target);
  }
  if (isSpecialFile(target)) {
    throw OutputError("output.special-file", "^1 cannot be replaced: it is not a regular file. Name another file.",
                      target);
  }
  if (!fs::exists(status)) return;
  if (const int code = writingError(target)) fail(target, code);
}

}  // namespace

fs::path finalTarget(const fs::path& file, std::error_code& error) {
  fs::path target = fs::absolute(file, error);
  std::error_code unknown;
  for (int link = 0; !error && fs::is_symlink(target, unknown); ++link) {
    if (link == kMostLinks) error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
    if (!error) target = target.parent_path() / fs::read_symlink(target, error);
  }
  return error ? target : fs::weakly_canonical(target, error);
}

bool isSpecialFile(const fs::path& target) {
  std::error_code error;
  const fs::file_status status = fs::status(target, error);
  return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

FileSink::FileSink(const fs::path& path, fs::path shown) : shown_(std::move(shown)) {
  file_ = createFile(path);
  if (file_ < 0) fail(shown_, errno);
}

FileSink::~FileSink() {
  if (file_ >= 0) closeDescriptor(file_);
}

void FileSink::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::ptrdiff_t written = writeSome(file_, bytes);
    if (written < 0) fail(shown_, errno);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

void FileSink::close() {
  if (closeDescriptor(std::exchange(file_, -1)) != 0) fail(shown_, errno);
}

StagedFile::StagedFile(const fs::path& target) : requested_(target) {
  std::error_code error;
  target_ = finalTarget(target, error);
  if (error) fail(requested_, error.value());
  requireReplaceable(target_);
  removeStaleFolders(folderOf(target_));
  makeFolder();
  staged_ = folder_ / target_.filename();
}

// Another process may take the new folder for a stale one until it is locked; then a second attempt is due.
void StagedFile::makeFolder() {
  for (int attempt = 0; attempt < 10; ++attempt) {
    const auto made = makeUniqueFolder(folderOf(target_), stagingPrefix(target_));
    if (!made) fail(requested_, errno);
    folder_ = *made;
    cleaning_.emplace([this, folder = folder_] {
      lock_.release();
      removeEverything(folder);
    });
    if (lock_.acquire(folder_)) return;
    removeFolder();
  }
  fail(requested_, EBUSY);
}

void StagedFile::removeFolder() noexcept {
  std::error_code ignored;
  lock_.release();
  if (!folder_.empty()) fs::remove_all(folder_, ignored);
  cleaning_.reset();
  folder_.clear();
}

StagedFile::~StagedFile() {
  std::error_code lost;
  if (!aside_.empty() && replaceFile(aside_, target_) != 0) fs::copy_file(aside_, target_, lost);
  removeFolder();
}

void StagedFile::setAside() {
  fs::path aside = folder_ / (kMark + "aside");
  const int code = replaceFile(target_, aside);
  if (code == 0) aside_ = std::move(aside);
  if (code != 0 && code != ENOENT) fail(requested_, code);
}

void StagedFile::makeDurable() {
  if (durable_) return;
  if (const int code = makeFileDurable(staged_, target_)) fail(requested_, code);
  durable_ = true;
}

void StagedFile::replaceTarget() {
  makeDurable();
  aside_.clear();
  if (const int code = replaceFile(staged_, target_)) fail(requested_, code);
  removeFolder();
}

void StagedFile::publish() {
  replaceTarget();
  if (const int code = flushFolder(folderOf(target_))) fail(target_, code);
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
