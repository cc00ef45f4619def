#include "workbench/cli/exports.h"

#include <algorithm>

#include "workbench/base/errors.h"
#include "workbench/base/file_set.h"
#include "workbench/base/utf8_path.h"
#include "workbench/edge/texts.h"
#include "workbench/export/chart_files.h"
#include "workbench/export/table_files.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

std::vector<ExportedDocument> exportedDocuments(const std::vector<ToldRun>& runs) {
  std::vector<ExportedDocument> documents;
  for (const ToldRun& told : runs) {
    if (!told.hasOutput()) continue;
    documents.push_back({.document = &told.run.record.document,
                         .ids = itemIds(told.run),
                         .view = told.view,
                         .shapes = told.run.command.tidyShapes(told.run),
                         .procedure = told.run.command.name(),
                         .command = std::max(told.number, 1)});
  }
  return documents;
}

// The paths of the files, after they were written.
std::vector<std::string> write(const fs::path& folder, const std::vector<FileText>& files,
                               const std::vector<TakenFile>& taken) {
  std::vector<std::string> paths;
  if (files.empty()) return paths;
  for (const FileText& file : files) {
    const fs::path path = folder / pathFromUtf8(file.name);
    if (const auto reason = refusedTarget(path, taken)) throw OutputError(*reason);
    paths.push_back(path.string());
  }
  writeFileSet(folder, files);
  return paths;
}

}  // namespace

Exports writeExports(const std::vector<ToldRun>& runs, const OutputOptions& options, std::vector<TakenFile> taken) {
  Exports exports;
  const std::vector<ExportedDocument> documents = exportedDocuments(runs);
  if (documents.empty()) return exports;
  for (const ToldRun& told : runs)
    for (const fs::path& file : told.run.record.savedFiles) taken.push_back({file, "this run saved it"});
  try {
    if (!options.tables.empty()) {
      const auto formats = options.tableFormats.empty() ? std::vector<std::string>{"csv"} : options.tableFormats;
      exports.tables = write(options.tables, tableFiles(documents, formats, currentLanguage()), taken);
    }
    if (!options.charts.empty()) {
      const auto formats = options.chartFormats.empty() ? std::vector<std::string>{"svg"} : options.chartFormats;
      const ChartFiles drawn = chartFiles(documents, formats, currentLanguage());
      exports.problem = drawn.problem;
      exports.charts = write(options.charts, drawn.files, taken);
    }
  } catch (const OutputError& error) {
    exports.failure = error.notice();
  }
  return exports;
}

}  // namespace workbench
