#include "workbench/cli/job_input.h"

#include <utility>

#include "workbench/base/errors.h"
#include "workbench/base/languages.h"
#include "workbench/base/process.h"
#include "workbench/base/standard_streams.h"
#include "workbench/cli/output_files.h"
#include "workbench/cli/screen.h"
#include "workbench/dataset/fingerprint.h"
#include "workbench/dates/case_label.h"
#include "workbench/dates/date_setup.h"
#include "workbench/edge/texts.h"

namespace workbench {

namespace {

// Standard input is a file to be spared only when one is redirected to it.
void spareInputs(const Job& job, CallInput& input) {
  for (const std::filesystem::path& file : {job.data.source, job.file}) {
    const std::filesystem::path named = file == kStandardStream ? standardInputFile() : file;
    std::error_code unknown;
    if (named == file ? !file.empty() : std::filesystem::is_regular_file(named, unknown)) {
      input.takenFiles.push_back({named, phrase("this run reads it")});
    }
  }
  for (std::filesystem::path& file : filesOfQuery(job.data)) {
    input.takenFiles.push_back({std::move(file), phrase("the query of this run reads it")});
  }
}

int columnOf(const Dataset& dataset, const std::string& name, const char* setting) {
  const int column = dataset.find(name);
  if (column < 0)
    throw UsageError(Notice("job.unknown-variable", "'^1': there is no variable ^2 in the data.", setting, name));
  return column;
}

void setPredict(const Job& job, CallInput& input) {
  if (job.predictPeriods) {
    const long last = static_cast<long>(input.dataset.rowCount);
    definePredict(input.dataset, {.date = {}, .caseNumber = last + *job.predictPeriods, .end = false, .period = {}},
                  input.trends);
  } else if (job.predict) {
    definePredict(input.dataset, *job.predict, input.trends);
  }
}

// The number of cases in a season: 4 of quarters. 0 when the cases have none.
int seasonOf(const CallInput& input) {
  const auto calendar = caseCalendar(input.dataset, input.trends);
  if (!calendar || calendar->step != 1) return 0;
  return cycleLength(calendar->first.unit());
}

// What is known before the data are read.
CallInput surroundings(const Job& job, const OutputOptions& options) {
  CallInput input;
  input.dictionaryFolder = installedDictionaries();
  input.language = readLanguage(input.dictionaryFolder, options.language);
  spareInputs(job, input);
  claimOutputFiles(options, input);
  input.composed = job.file.empty();
  input.baseFolder = job.baseFolder;
  input.threads = options.jobs.value_or(job.jobs);
  return input;
}

}  // namespace

JobInput prepareInput(const Job& job, const OutputOptions& options) {
  JobInput input;
  CallInput& call = input.call;
  call = surroundings(job, options);
  if (job.data.unsafe) {
    showWarning(
        Notice("query.unsafe",
               "--unsafe-sql: the query may read and write every file that you may, and reach the network. Give "
               "it only for queries that you have read."));
  }
  call.dataset = loadDataset(job.data);
  input.variables = call.dataset.columns.size();
  input.rows = call.dataset.rowCount;
  if (!options.json.empty() || !options.html.empty()) input.fingerprint = fingerprint(call.dataset);
  applyDictionary(call.dataset, job.dictionary);
  if (!job.weight.empty()) call.weightColumn = columnOf(call.dataset, job.weight, "weight");
  for (const std::string& name : job.split) columnOf(call.dataset, name, "split");
  call.splitVariables = job.split;
  if (job.dates) defineDates(call.dataset, *job.dates, call.trends);
  call.originals = transformVariables(call.dataset, job.transformations, seasonOf(call));
  call.casesBefore = keepRange(call.dataset, call.trends, job.range);
  setPredict(job, call);
  return input;
}

}  // namespace workbench
