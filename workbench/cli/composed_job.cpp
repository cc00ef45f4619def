#include "workbench/cli/composed_job.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "workbench/base/errors.h"
#include "workbench/base/whole_number.h"
#include "workbench/cli/screen.h"
#include "workbench/cli/short_form.h"
#include "workbench/dates/date_text.h"

namespace workbench {

namespace {

struct UnitWord {
  Unit unit;
  std::string value;
};

// "year=1959"; nothing for what has no unit before an equals sign.
std::optional<UnitWord> unitWord(const std::string& word) {
  const auto equals = word.find('=');
  const auto unit = equals == std::string::npos ? std::nullopt : unitFromName(word.substr(0, equals));
  return unit ? std::optional(UnitWord{*unit, word.substr(equals + 1)}) : std::nullopt;
}

constexpr std::int64_t kLargestNumber = 4'294'967'295;  // of a case; of periods more would be refused later

DateComponents readStart(const std::vector<std::string>& words) {
  DateComponents components;
  for (const std::string& word : words) {
    const auto component = unitWord(word);
    const auto value = component ? wholeNumber(component->value, "--start", kLargestNumber) : std::nullopt;
    if (!value) {
      throw UsageError("option.start-part",
                       "--start: \"^1\" is no part of a date. Write them as UNIT=NUMBER, such as year=1959 quarter=1.",
                       word);
    }
    if (component->unit == Unit::year && *value >= 0 && *value < 100) {
      throw UsageError("option.start-century", "--start: \"^1\" is a year of the first century. Did you mean year=^2?",
                       word, 1900 + *value);
    }
    components[component->unit] = *value;
  }
  return components;
}

void readDates(const std::vector<std::string>& words, DatesRequest& dates) {
  if (words.size() == 1 && !unitWord(words.front())) {
    dates.column = words.front();
    return;
  }
  for (const std::string& word : words) {
    const auto component = unitWord(word);
    if (!component) {
      throw UsageError("option.dates-part",
                       "--dates: \"^1\" is no part of a date. Name one column, or write parts as UNIT=COLUMN, such as "
                       "year=YEAR quarter=Q.",
                       word);
    }
    dates.variables[component->unit] = component->value;
  }
}

std::optional<DatesRequest> datesFrom(const ComposeOptions& options) {
  if (options.start.empty() && options.dates.empty()) return std::nullopt;
  DatesRequest dates;
  dates.start = readStart(options.start);
  readDates(options.dates, dates);
  dates.sort = options.sort;
  dates.fillGaps = options.fillGaps;
  dates.holidays = options.holidays;
  dates.exchangesDayAndMonth = options.exchangesDayAndMonth;
  return dates;
}

Transformation readTransformation(const std::string& word) {
  const auto equals = word.find('=');
  if (equals != std::string::npos) return transformationOf(word.substr(0, equals), word.substr(equals + 1));
  throw UsageError("option.transform",
                   "--transform: \"^1\" names no transformation. Write VARIABLE=HOW, such as realgdp=dlog*100.", word);
}

bool namesPeriod(const std::string& text) {
  constexpr std::array kUnits{Unit::year, Unit::quarter, Unit::month, Unit::week, Unit::day};
  return std::ranges::any_of(kUnits, [&](Unit unit) { return readPeriod(text, unit).has_value(); });
}

// A number is so many periods, but one of four digits is a year where the cases are years. Anything else is a period.
void readPredict(const std::string& text, Job& job) {
  if (text.empty()) return;
  const auto number = wholeNumber(text, "--predict", kLargestNumber);
  if (number && text.size() != 4) {
    job.predictPeriods = static_cast<long>(*number);
    return;
  }
  if (!number && !namesPeriod(text)) {
    throw UsageError("option.predict",
                     "--predict takes a number of periods, or a period such as 2011Q3; \"^1\" is neither.", text);
  }
  job.predict = PredictRequest{};
  job.predict->period = text;
  job.predict->periodsUnlessYear = number;
}

}  // namespace

Job makeComposedJob(const ComposeOptions& options) {
  Job job;
  job.data = {options.data, options.query};
  job.data.unsafe = options.unsafeSql;
  job.data.format = formatFrom(options.reading);
  job.composer = options.composer;
  job.complete = options.complete;
  job.savesCases = options.savesCases;
  job.dates = datesFrom(options);
  job.range = options.range;
  for (const std::string& word : options.transformations) job.transformations.push_back(readTransformation(word));
  readPredict(options.predict, job);
  if (!job.predict) composeCommand(job, options.output);
  return job;
}

void composeCommand(Job& job, const OutputOptions& options) {
  job.command = job.composer->compose({job.predictPeriods});
  if (options.showsOutput() && !showsShortForm(job, options)) showLine(job.command);
}

}  // namespace workbench
