#include "workbench/cli/run.h"

#include <fmt/core.h>

#include <chrono>
#include <cstdio>

#include "workbench/base/errors.h"
#include "workbench/base/standard_streams.h"
#include "workbench/cli/job_notes.h"
#include "workbench/cli/output_files.h"
#include "workbench/cli/report_file.h"
#include "workbench/cli/screen.h"
#include "workbench/commands/common/command_runner.h"
#include "workbench/commands/common/run_messages.h"
#include "workbench/commands/registry.h"
#include "workbench/dates/date_setup.h"
#include "workbench/edge/languages.h"
#include "workbench/edge/procedure_module.h"
#include "workbench/edge/texts.h"

namespace workbench {

namespace {

class Stopwatch {
 public:
  double seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count(); }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// Standard input is a file to be spared only when one is redirected to it.
void spareInputs(const Job& job, CallInput& input) {
  for (const std::filesystem::path& file : {job.data.source, job.file}) {
    const std::filesystem::path named = file == kStandardStream ? "/dev/stdin" : file;
    if (named == file ? !file.empty() : std::filesystem::is_regular_file(named)) {
      input.takenFiles.push_back({named, "this run reads it"});
    }
  }
}

int columnOf(const Dataset& dataset, const std::string& name, const char* setting) {
  const int column = dataset.find(name);
  if (column < 0) throw UsageError(fmt::format("'{}': there is no variable {} in the data.", setting, name));
  return column;
}

void setPredict(const Job& job, CallInput& input) {
  if (job.predictPeriods) {
    const long last = static_cast<long>(input.dataset.rowCount);
    definePredict(input.dataset, {.date = {}, .caseNumber = last + *job.predictPeriods, .end = false}, input.trends);
  } else if (job.predict) {
    definePredict(input.dataset, *job.predict, input.trends);
  }
}

CallInput prepareInput(const Job& job, const OutputOptions& options) {
  CallInput input;
  input.dictionaryFolder = installedDictionaries();
  setLanguage(input, options.language);
  spareInputs(job, input);
  claimOutputFiles(options, input);
  input.composed = job.file.empty();
  input.baseFolder = job.baseFolder;
  input.dataset = loadDataset(job.data);
  applyDictionary(input.dataset, job.dictionary);
  if (!job.weight.empty()) input.weightColumn = columnOf(input.dataset, job.weight, "weight");
  for (const std::string& name : job.split) columnOf(input.dataset, name, "split");
  input.splitVariables = job.split;
  if (job.dates) defineDates(input.dataset, *job.dates, input.trends);
  setPredict(job, input);
  return input;
}

void writeJson(const rapidjson::Document& document, const std::filesystem::path& file) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  document.Accept(writer);
  buffer.Put('\n');
  writeOutput(file, std::string_view(buffer.GetString(), buffer.GetSize()));
}

void printTimings(const StageClock& clock, double load, double render, double total) {
  const auto line = [](const char* stage, double seconds) {
    std::fputs(fmt::format("timing {} {:.6f}\n", stage, seconds).c_str(), stderr);
  };
  line("load", load);
  line("parse", clock.between(StageClock::callStart, StageClock::parseEnd));
  line("validate", clock.between(StageClock::parseEnd, StageClock::validateEnd));
  line("estimate", clock.between(StageClock::validateEnd, StageClock::outputStart));
  line("output", clock.between(StageClock::outputStart, StageClock::outputEnd));
  line("save", clock.between(StageClock::outputEnd, StageClock::callEnd));
  line("render", render);
  line("total", total);
}

// The command, and what its composer lets follow.
FinishedRun runCommand(const Job& job, CommandRunner& runner) {
  auto run = std::make_unique<FinishedRun>(runner.run(commandOf(job.command), job.command));
  while (job.composer != nullptr) {
    const std::optional<NextRun> next = job.composer->next(*run, runner);
    if (!next) break;
    run = std::make_unique<FinishedRun>(runner.run(commandOf(next->text), next->text, next->settings));
  }
  return std::move(*run);
}

std::vector<RunMessage> tellAll(const Job& job, const FinishedRun& run, CommandRunner& runner) {
  std::vector<RunMessage> messages;
  for (std::string& note : jobNotes(job, runner.input().dataset)) {
    messages.push_back({RunMessage::Kind::note, std::move(note)});
  }
  for (RunMessage& message : collectMessages(run, runner)) messages.push_back(std::move(message));
  return messages;
}

}  // namespace

int runJob(const Job& job, const OutputOptions& options) {
  const Stopwatch total;
  commandOf(job.command);  // refuses an unknown one before the data are read
  CommandRunner runner(prepareInput(job, options),
                       {.scale = job.scale, .complete = job.complete, .summary = options.summary});
  const double load = total.seconds();

  const FinishedRun run = runCommand(job, runner);

  const Stopwatch render;
  const std::vector<RunMessage> messages = tellAll(job, run, runner);
  showRun(run, messages, options);
  if (!options.trace.empty()) writeOutput(options.trace, run.streams.out + run.streams.err);
  if (!options.json.empty() && run.record.document.IsObject()) writeJson(run.record.document, options.json);
  if (!options.html.empty() && run.record.document.IsObject()) {
    writeOutput(options.html, reportPage(run, messages, total.seconds()));
    if (options.showsOutput()) showLine(tr("report: ^1", options.html.string()));
  }
  if (options.timings) printTimings(run.record.clock, load, render.seconds(), total.seconds());
  return run.outcome.exitCode();
}

}  // namespace workbench
