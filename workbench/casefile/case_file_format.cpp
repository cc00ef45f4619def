#include "workbench/casefile/case_file_format.h"

#include <vector>

#include "workbench/casefile/case_writer.h"
#include "workbench/dataset/dataset.h"

namespace workbench {

namespace fs = std::filesystem;

std::optional<CaseFileFormat> caseFileFormat(const fs::path& path) {
  const std::string extension = path.extension().string();
  if (sameName(extension, ".csv")) return CaseFileFormat::csv;
  if (sameName(extension, ".parquet")) return CaseFileFormat::parquet;
  if (sameName(extension, ".duckdb")) return CaseFileFormat::duckdb;
  return std::nullopt;
}

std::string unusableTarget(const std::string& name, const fs::path& file, std::span<const TakenFile> taken) {
  if (name.empty() || name.find('\0') != std::string::npos) return "SAVE FILE names no file.";
  if (fs::is_directory(file)) return "SAVE FILE " + name + " is a folder. Name a file in it.";
  const std::optional<CaseFileFormat> format = caseFileFormat(file);
  if (!format) return "SAVE FILE " + name + " has no known extension. Use .csv, .parquet or .duckdb.";
  std::vector<fs::path> written = {file};
  if (*format == CaseFileFormat::csv) written.push_back(metadataFile(file));
  for (const fs::path& target : written) {
    if (const auto reason = refusedTarget(target, taken)) return *reason;
  }
  return "";
}

}  // namespace workbench
