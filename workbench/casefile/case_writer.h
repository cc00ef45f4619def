// Writing a dataset of numeric variables as a data file.

#pragma once

#include <filesystem>
#include <string>

#include "workbench/casefile/case_file_format.h"
#include "workbench/dataset/dataset.h"

namespace workbench {

// The file appears complete or not at all. Throws OutputError with place, reason and remedy.
void writeCases(const Dataset& dataset, const CaseFileFormat& format, const std::filesystem::path& target);

// Labels, levels and formats as one JSON object.
std::string metadataJson(const Dataset& dataset);

// Where the metadata stand of a file that has no place for them.
std::filesystem::path metadataFile(const std::filesystem::path& dataFile);

}  // namespace workbench
