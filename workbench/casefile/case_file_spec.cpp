#include "workbench/casefile/case_file_spec.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "workbench/base/taken_file.h"
#include "workbench/casefile/case_writer.h"
#include "workbench/dataset/dataset.h"
#include "workbench/session/session.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

// Why no case file can have this path; "" when one can.
std::string unusable(const std::string& path, const fs::path& full, bool forWriting) {
  if (!forWriting) return "Saved files can only be written here.";
  if (path.empty() || path.find('\0') != std::string::npos) return "SAVE FILE names no file.";
  if (fs::is_directory(full)) return "SAVE FILE " + path + " is a folder. Name a file in it.";
  if (!caseFileFormat(full)) {
    return "SAVE FILE " + path + " has no known extension. Use .csv, .parquet or .duckdb.";
  }
  std::vector<fs::path> written = {full};
  if (*caseFileFormat(full) == CaseFileFormat::csv) written.push_back(metadataFile(full));
  for (const fs::path& target : written) {
    if (const auto reason = refusedTarget(target, currentSession().takenFiles)) return *reason;
  }
  return "";
}

}  // namespace

std::optional<CaseFileFormat> caseFileFormat(const fs::path& path) {
  const std::string extension = path.extension().string();
  if (sameName(extension, ".csv")) return CaseFileFormat::csv;
  if (sameName(extension, ".parquet")) return CaseFileFormat::parquet;
  if (sameName(extension, ".duckdb")) return CaseFileFormat::duckdb;
  return std::nullopt;
}

}  // namespace workbench

UserCaseFileSpec::UserCaseFileSpec() : state_(std::make_unique<State>()) {}
UserCaseFileSpec::~UserCaseFileSpec() = default;

bool UserCaseFileSpec::Init(const std::string& path, bool, bool forWriting) {
  workbench::Session& session = workbench::currentSession();
  const std::filesystem::path full = session.baseFolder / path;
  const std::string reason = workbench::unusable(path, full, forWriting);
  if (!reason.empty()) {
    session.saveError = reason;
    return false;
  }
  *state_ = {full, *workbench::caseFileFormat(full)};
  return true;
}

bool UserCaseFileSpec::IsInit() const {
  return !state_->path.empty();
}
