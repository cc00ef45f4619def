// The files of one run, of which none may be written over another.

#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include "workbench/base/notice.h"

namespace workbench {

struct TakenFile {
  std::filesystem::path path;  // "-" for standard output
  Notice use;                  // "this run reads it", "--json is written to it"
};

// Why the target must not be written: it is one of the taken files, under whatever name. Nothing when it may be, and
// for the null device, which takes everything.
std::optional<Notice> refusedTarget(const std::filesystem::path& target, std::span<const TakenFile> taken);

}  // namespace workbench
