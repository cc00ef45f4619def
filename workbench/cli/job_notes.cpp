#include "workbench/cli/job_notes.h"

#include "workbench/base/errors.h"
#include "workbench/base/standard_streams.h"
#include "workbench/dataset/load.h"

namespace workbench {

namespace {

// 0 where it cannot be told: standard input is read once.
std::size_t rowsOfSource(const DataRequest& request) {
  if (request.source.empty() || request.source == kStandardStream) return 0;
  try {
    const Dataset count = loadDataset({request.source, "SELECT CAST(count(*) AS DOUBLE) AS n FROM source"});
    return static_cast<std::size_t>(count.columns.at(0).numbers.at(0));
  } catch (const DataError&) {  // a query may name tables of a database that has no single source
    return 0;
  }
}

std::vector<Notice> startNotes(const Job& job, const Dataset& dataset) {
  const bool partly = !job.range.from.empty() || !job.range.to.empty();
  if (partly || job.data.query.empty() || !job.dates || job.dates->start.empty()) return {};
  const std::size_t rows = rowsOfSource(job.data);
  if (rows == 0 || rows == dataset.rowCount) return {};
  return {Notice(
      "job.start-beside-query",
      "The query returns ^1 rows where the data file has ^2, and the start date counts from the first row that it "
      "returns: see that it is the date of that row.",
      dataset.rowCount, rows)};
}

}  // namespace

std::vector<Notice> jobNotes(const Job& job, const Dataset& dataset) {
  std::vector<Notice> notes = startNotes(job, dataset);
  std::string list;
  for (const Transformation& one : job.transformations) {
    list += (list.empty() ? "" : ", ") + one.variable + " (" + one.text() + ")";
  }
  if (!list.empty()) {
    notes.emplace_back(
        "transform.done",
        "Transformed: ^1. Tables, charts, forecasts and saved values are those of the transformed series, "
        "but for what is marked as in levels.",
        list);
  }
  return notes;
}

}  // namespace workbench
