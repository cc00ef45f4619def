#include "workbench/casefile/case_file_format.h"

#include <algorithm>
#include <array>
#include <vector>

#include "workbench/casefile/case_table.h"
#include "workbench/casefile/case_writer.h"

namespace workbench {

namespace fs = std::filesystem;

namespace {

constexpr std::array<CaseFileFormat, 3> kFormats{
    {{".csv", writeCsv, true}, {".parquet", writeParquet, false}, {".duckdb", writeDatabase, false}}};

// "a, b, c".
std::string extensions() {
  std::string text;
  for (const CaseFileFormat& format : kFormats) text += (text.empty() ? "" : ", ") + std::string(format.extension);
  return text;
}

}  // namespace

const CaseFileFormat* caseFileFormat(const fs::path& path) {
  const std::string extension = path.extension().string();
  const auto* found = std::ranges::find_if(
      kFormats, [&](const CaseFileFormat& format) { return sameName(extension, format.extension); });
  return found == kFormats.end() ? nullptr : found;
}

Notice unusableTarget(const std::string& name, const fs::path& file, std::span<const TakenFile> taken) {
  if (name.empty() || name.find('\0') != std::string::npos) {
    return Notice("save.no-file", "SAVE FILE names no file. Give one, such as 'results.csv'.");
  }
  std::error_code unknown;
  if (fs::is_directory(file, unknown))
    return Notice("save.folder", "SAVE FILE ^1 is a folder. Name a file in it.", name);
  const CaseFileFormat* format = caseFileFormat(file);
  if (format == nullptr) {
    return Notice("save.extension", "SAVE FILE ^1 has no known extension. Use one of ^2.", name, extensions());
  }
  std::vector<fs::path> written = {file};
  if (format->metadataBeside) written.push_back(metadataFile(file));
  for (const fs::path& target : written) {
    if (const auto reason = refusedTarget(target, taken)) return *reason;
  }
  return {};
}

}  // namespace workbench
