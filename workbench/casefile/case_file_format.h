// Where a saved data file may go, and in which format. The formats are described in docs/saved-file.md.

#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "workbench/base/notice.h"
#include "workbench/base/taken_file.h"
#include "workbench/dataset/dataset.h"

namespace workbench {

struct CaseFileFormat {
  std::string_view extension;
  // Writes a new file at the path, or into a device. Throws DuckdbError.
  void (*write)(const Dataset& dataset, const std::string& metadata, const std::filesystem::path& file);
  bool metadataBeside;  // it has no place for metadata, which stand in a file of their own
};

// By the extension, letters of either case; null for an unknown one.
const CaseFileFormat* caseFileFormat(const std::filesystem::path& path);

// Why no data file can be saved at `file`, which the user named `name`; "" when one can.
Notice unusableTarget(const std::string& name, const std::filesystem::path& file, std::span<const TakenFile> taken);

}  // namespace workbench
