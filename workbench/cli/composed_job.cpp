#include "workbench/cli/composed_job.h"

#include <charconv>

#include "workbench/base/errors.h"
#include "workbench/cli/screen.h"
#include "workbench/cli/short_form.h"
#include "workbench/edge/texts.h"

namespace workbench {

namespace {

DateComponents readStart(const std::vector<std::string>& words) {
  DateComponents components;
  for (const std::string& word : words) {
    const auto equals = word.find('=');
    const auto unit = equals == std::string::npos ? std::nullopt : unitFromName(word.substr(0, equals));
    std::int64_t value = 0;
    const char* end = word.data() + word.size();
    const bool isNumber =
        equals != std::string::npos && std::from_chars(word.data() + equals + 1, end, value).ptr == end;
    if (!unit || !isNumber) {
      throw UsageError(
          tr("--start: \"^1\" is no part of a date. Write them as UNIT=NUMBER, such as year=1959 quarter=1.", word));
    }
    if (*unit == Unit::year && value >= 0 && value < 100) {
      throw UsageError(tr("--start: \"^1\" is a year of the first century. Did you mean year=^2?", word, 1900 + value));
    }
    components[*unit] = value;
  }
  return components;
}

}  // namespace

Job makeComposedJob(const ComposeOptions& options) {
  Job job;
  job.command = options.composer->compose({options.predictPeriods});
  job.data = {options.data, options.query};
  job.data.format = formatFrom(options.reading);
  job.composer = options.composer;
  job.complete = options.complete;
  job.predictPeriods = options.predictPeriods;
  DatesRequest dates;
  if (!options.start.empty()) dates.start = readStart(options.start);
  dates.column = options.dateColumn;
  if (!dates.start.empty() || !dates.column.empty()) job.dates = std::move(dates);
  if (options.output.showsOutput() && !showsShortForm(job, options.output)) showLine(job.command);
  return job;
}

}  // namespace workbench
