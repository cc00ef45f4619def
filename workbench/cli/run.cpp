#include "workbench/cli/run.h"

#include <fmt/core.h>

#include <chrono>
#include <cstdio>

#include "workbench/base/errors.h"
#include "workbench/base/standard_streams.h"
#include "workbench/cli/output_files.h"
#include "workbench/cli/report_file.h"
#include "workbench/cli/screen.h"
#include "workbench/commands/common/run_messages.h"
#include "workbench/commands/registry.h"
#include "workbench/dates/date_setup.h"
#include "workbench/session/languages.h"
#include "workbench/session/procedure_module.h"
#include "workbench/session/texts.h"

namespace workbench {

namespace {

class Stopwatch {
 public:
  double seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count(); }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// Standard input is a file to be spared only when one is redirected to it.
void spareInputs(const Job& job, Session& session) {
  for (const std::filesystem::path& file : {job.data.source, job.file}) {
    const std::filesystem::path named = file == kStandardStream ? "/dev/stdin" : file;
    if (named == file ? !file.empty() : std::filesystem::is_regular_file(named)) {
      session.takenFiles.push_back({named, "this run reads it"});
    }
  }
}

int columnOf(const Dataset& dataset, const std::string& name, const char* setting) {
  const int column = dataset.find(name);
  if (column < 0) throw UsageError(fmt::format("'{}': there is no variable {} in the data.", setting, name));
  return column;
}

void prepareSession(const Job& job, Session& session) {
  session.commandText = job.command;
  session.composed = job.file.empty();
  session.baseFolder = job.baseFolder;
  session.dataset = loadDataset(job.data);
  applyDictionary(session.dataset, job.dictionary);
  if (!job.weight.empty()) session.weightColumn = columnOf(session.dataset, job.weight, "weight");
  for (const std::string& name : job.split) columnOf(session.dataset, name, "split");
  session.splitVariables = job.split;
  if (job.dates) defineDates(session.dataset, *job.dates, session.trends);
  if (job.predictPeriods) {
    const long last = static_cast<long>(session.dataset.rowCount);
    definePredict(session.dataset, {.date = {}, .caseNumber = last + *job.predictPeriods, .end = false},
                  session.trends);
  } else if (job.predict) {
    definePredict(session.dataset, *job.predict, session.trends);
  }
}

FinishedRun callProcedure(const Command& command, Session& session, const OutputOptions& options) {
  const ProcedureModule module(installedProcedures() / command.library(), command.entry());
  command.requestSummary(options.summary);
  FinishedRun run{command, session, module.call(session), {}};
  run.outcome = command.outcome(session, run.streams);
  return run;
}

void writeJson(const Session& session, const std::filesystem::path& file) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  session.document.Accept(writer);
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

}  // namespace

int runJob(const Job& job, const OutputOptions& options) {
  const Stopwatch total;
  const Command& command = commandOf(job.command);
  Session session;
  const SessionScope scope(session);
  session.dictionaryFolder = installedDictionaries();
  setLanguage(session, options.language);
  spareInputs(job, session);
  claimOutputFiles(options, session);
  prepareSession(job, session);
  const double load = total.seconds();

  const FinishedRun run = callProcedure(command, session, options);

  const Stopwatch render;
  const std::vector<RunMessage> messages = collectMessages(run);
  showRun(run, messages, options);
  if (!options.trace.empty()) writeOutput(options.trace, run.streams.out + run.streams.err);
  if (!options.json.empty() && session.document.IsObject()) writeJson(session, options.json);
  if (!options.html.empty() && session.document.IsObject()) {
    writeOutput(options.html, reportPage(run, messages, total.seconds()));
    if (options.showsOutput()) showLine(tr("report: ^1", options.html.string()));
  }
  if (options.timings) printTimings(session.clock, load, render.seconds(), total.seconds());
  return run.outcome.exitCode();
}

}  // namespace workbench
