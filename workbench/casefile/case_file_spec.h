// Where a saved data file may go, and in which format.

#pragma once

#include <filesystem>
#include <optional>

#include "host/case_file.h"

namespace workbench {

enum class CaseFileFormat { csv, parquet, duckdb };

// By the extension, letters of either case; nothing for an unknown one.
std::optional<CaseFileFormat> caseFileFormat(const std::filesystem::path& path);

}  // namespace workbench

struct UserCaseFileSpec::State {
  std::filesystem::path path;  // empty until Init succeeded
  workbench::CaseFileFormat format = workbench::CaseFileFormat::csv;
};
