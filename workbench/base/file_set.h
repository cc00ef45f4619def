// Several files that appear in a folder together or not at all.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "workbench/base/notice.h"

namespace workbench {

struct FileText {
  std::string name;
  std::string bytes;
};

// Makes the folder where it is missing and writes the files into it, each complete under its name. Until all are
// complete none appears, and a folder that was made for them goes again. Throws OutputError with place, reason and
// remedy.
void writeFileSet(const std::filesystem::path& folder, const std::vector<FileText>& files);

// Why there can be no such folder, with the remedy: something else has its name. Nothing when there can be.
Notice unusableFolder(const std::filesystem::path& folder);

}  // namespace workbench
