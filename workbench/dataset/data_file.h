// How messages call a data file.

#pragma once

#include <filesystem>

#include "workbench/base/notice.h"

namespace workbench {

inline Notice dataFile(const std::filesystem::path& source) {
  return phrase("data file ^1", source);
}

}  // namespace workbench
