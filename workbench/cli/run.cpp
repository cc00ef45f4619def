#include "workbench/cli/run.h"

#include <fmt/core.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <utility>

#include "workbench/base/errors.h"
#include "workbench/base/standard_streams.h"
#include "workbench/cli/composed_job.h"
#include "workbench/cli/exports.h"
#include "workbench/cli/job_input.h"
#include "workbench/cli/job_runs.h"
#include "workbench/cli/progress_line.h"
#include "workbench/cli/report_file.h"
#include "workbench/cli/run_description.h"
#include "workbench/cli/run_record.h"
#include "workbench/cli/screen.h"
#include "workbench/cli/short_form.h"
#include "workbench/cli/written_job.h"
#include "workbench/commands/registry.h"
#include "workbench/dates/date_setup.h"
#include "workbench/edge/texts.h"
#include "workbench/language/command_list.h"

namespace workbench {

namespace {

class Stopwatch {
 public:
  double seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count(); }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

double secondsOf(const std::vector<ToldRun>& runs, StageClock::Mark from, StageClock::Mark to) {
  double seconds = 0.0;
  for (const ToldRun& told : runs) seconds += told.run.record.clock.between(from, to);
  return seconds;
}

StageSeconds stagesOf(const std::vector<ToldRun>& runs) {
  return {{"parse", secondsOf(runs, StageClock::callStart, StageClock::parseEnd)},
          {"validate", secondsOf(runs, StageClock::parseEnd, StageClock::validateEnd)},
          {"estimate", secondsOf(runs, StageClock::validateEnd, StageClock::outputStart)},
          {"output", secondsOf(runs, StageClock::outputStart, StageClock::outputEnd)},
          {"save", secondsOf(runs, StageClock::outputEnd, StageClock::callEnd)}};
}

std::string traceOf(const std::vector<ToldRun>& runs) {
  std::string text;
  for (const ToldRun& told : runs) text += told.run.streams.out + told.run.streams.err;
  return text;
}

bool hasOutput(const std::vector<ToldRun>& runs) {
  return std::any_of(runs.begin(), runs.end(), [](const ToldRun& one) { return one.hasOutput(); });
}

void tellFiles(const Exports& exports, const std::vector<ToldRun>& runs, const OutputOptions& options,
               bool reportWritten) {
  if (reportWritten && !options.html.empty() && hasOutput(runs) && options.showsOutput())
    showLine(tr("report: ^1", options.html.string()));
  if (options.showsOutput() && !exports.tables.empty())
    showLine(tr("tables: ^1 (files: ^2)", options.tables.string(), exports.tables.size()));
  if (options.showsOutput() && !exports.charts.empty())
    showLine(tr("charts: ^1 (files: ^2)", options.charts.string(), exports.charts.size()));
  if (!exports.problem.empty()) showWarning(exports.problem);
}

struct OutputFile {
  const std::filesystem::path& target;
  std::function<std::string()> content;
};

// Why a file could not be written; empty when it was.
Notice faultOfWriting(const OutputFile& file) {
  try {
    writeOutput(file.target, file.content());
    return {};
  } catch (const OutputError& error) {
    return error.notice();
  }
}

// Files first, standard output last: whoever stops reading it loses no file. What could not be written.
std::vector<Notice> writeFiles(RunDescription& description, const std::vector<ToldRun>& runs,
                               const OutputOptions& options, const std::vector<TakenFile>& taken) {
  description.exports = writeExports(runs, options, taken);
  std::vector<OutputFile> files = {{options.trace, [&] { return traceOf(runs); }}};
  if (hasOutput(runs)) {
    files.push_back({options.json, [&] { return runRecord(description, runs); }});
    files.push_back({options.writtenJob, [&] { return writtenJob(description, runs, options.writtenJob); }});
    files.push_back({options.html, [&] { return reportPage(description, runs); }});
  }
  std::vector<Notice> faults;
  for (const bool standard : {false, true}) {
    for (const OutputFile& file : files) {
      if (file.target.empty() || (file.target == kStandardStream) != standard) continue;
      if (Notice fault = faultOfWriting(file); !fault.empty()) faults.push_back(std::move(fault));
    }
  }
  return faults;
}

// The last of them ends the run.
void tellFaults(const std::vector<Notice>& faults) {
  if (faults.empty()) return;
  for (std::size_t i = 0; i + 1 < faults.size(); ++i) showError(faults[i]);
  throw OutputError(faults.back());
}

// None where only errors are wanted.
std::unique_ptr<ProgressLine> progressLine(const OutputOptions& options) {
  return options.verbosity == Verbosity::quiet ? nullptr : std::make_unique<ProgressLine>();
}

void show(const Job& job, const std::vector<ToldRun>& runs, const OutputOptions& options) {
  const bool isShort = showsShortForm(job, options);
  if (isShort && options.showsOutput()) showShortForm(job, runs, options);
  for (const ToldRun& told : runs) isShort ? showRest(told, options) : showRun(told, options);
}

void print(const StageSeconds& stages) {
  for (const auto& [stage, seconds] : stages) {
    std::fputs(fmt::format("timing {} {:.6f}\n", stage, seconds).c_str(), stderr);
  }
}

}  // namespace

int runJob(Job job, const OutputOptions& options) {
  const Stopwatch total;
  if (!job.command.empty()) {
    for (const std::string& text : splitCommands(job.command)) commandOf(text);  // an unknown one needs no data
  }
  JobInput input = prepareInput(job, options);
  if (job.composer && job.predict) {
    job.predictPeriods = static_cast<long>(periodsAhead(input.call.dataset, input.call.trends));
    job.predict = std::nullopt;
    composeCommand(job, options);
  }
  RunDescription description = describeRun(job, options, input);
  auto progress = progressLine(options);
  input.call.progress = [&](double share) {
    if (progress) progress->show(share);
    return true;
  };
  CommandRunner runner(
      std::move(input.call),
      {.scale = job.scale, .complete = job.complete, .summary = options.summary, .savesCases = job.savesCases});
  const double load = total.seconds();
  const std::vector<ToldRun> runs = runCommands(job, runner);
  progress.reset();

  const Stopwatch render;
  StageSeconds stages = stagesOf(runs);
  stages.insert(stages.begin(), {"load", load});
  if (options.timings) description.seconds = stages;
  std::vector<Notice> faults = writeFiles(description, runs, options, runner.input().takenFiles);
  show(job, runs, options);
  tellFiles(description.exports, runs, options, faults.empty());
  if (!description.exports.failure.empty()) faults.push_back(description.exports.failure);
  tellFaults(faults);
  stages.push_back({"render", render.seconds()});
  stages.push_back({"total", total.seconds()});
  if (options.timings) print(stages);
  return exitCodeOf(runs);
}

}  // namespace workbench
