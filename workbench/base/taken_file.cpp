#include "workbench/base/taken_file.h"

#include "workbench/base/process.h"
#include "workbench/base/standard_streams.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // as many as the system follows

// The file that will be written: a link may lead to one that does not exist yet.
fs::path finalTarget(const fs::path& file) {
  fs::path target = file == kStandardStream ? standardOutputFile() : file;
  std::error_code error;
  for (int link = 0; link < kMostLinks && fs::is_symlink(target, error); ++link) {
    target = target.parent_path() / fs::read_symlink(target, error);
  }
  return fs::weakly_canonical(fs::absolute(target, error), error);
}

bool sameFile(const fs::path& left, const fs::path& right) {
  std::error_code error;
  return !isNullDevice(left) && (left == right || fs::equivalent(left, right, error));
}

}  // namespace

std::optional<Notice> refusedTarget(const fs::path& target, std::span<const TakenFile> taken) {
  for (const auto& [path, use] : taken) {
    if (!sameFile(finalTarget(target), finalTarget(path))) continue;
    const Notice what = target == kStandardStream ? phrase("standard output") : Notice(target);
    const Notice why = target == path ? use : phrase("^1 (as ^2)", use, path);
    return Notice("output.taken", "^1 is not written: ^2. Choose another name.", what, why);
  }
  return std::nullopt;
}

}  // namespace workbench
