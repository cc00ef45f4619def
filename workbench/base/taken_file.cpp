#include "workbench/base/taken_file.h"

#include "workbench/base/atomic_file.h"
#include "workbench/base/process.h"
#include "workbench/base/standard_streams.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

fs::path fileOf(const fs::path& named) {
  std::error_code unknown;
  return finalTarget(named == kStandardStream ? standardOutputFile() : named, unknown);
}

bool sameFile(const fs::path& left, const fs::path& right) {
  std::error_code error;
  return !isNullDevice(left) && (left == right || fs::equivalent(left, right, error));
}

}  // namespace

std::optional<Notice> refusedTarget(const fs::path& target, std::span<const TakenFile> taken) {
  for (const auto& [path, use] : taken) {
    if (!sameFile(fileOf(target), fileOf(path))) continue;
    const Notice what = target == kStandardStream ? phrase("standard output") : Notice(target);
    const Notice why = target == path ? use : phrase("^1 (as ^2)", use, path);
    return Notice("output.taken", "^1 is not written: ^2. Choose another name.", what, why);
  }
  return std::nullopt;
}

}  // namespace workbench
