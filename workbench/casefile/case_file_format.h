// Where a saved data file may go, and in which format.

#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "workbench/base/taken_file.h"

namespace workbench {

enum class CaseFileFormat { csv, parquet, duckdb };

// By the extension, letters of either case; nothing for an unknown one.
std::optional<CaseFileFormat> caseFileFormat(const std::filesystem::path& path);

// Why no data file can be saved at `file`, which the user named `name`; "" when one can.
std::string unusableTarget(const std::string& name, const std::filesystem::path& file,
                           std::span<const TakenFile> taken);

}  // namespace workbench
