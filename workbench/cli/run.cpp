#include "workbench/cli/run.h"

#include <fmt/core.h>

#include <chrono>

#include "workbench/base/atomic_file.h"
#include "workbench/base/errors.h"
#include "workbench/casefile/case_file_spec.h"
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

void refuseOverwriting(const std::filesystem::path& target, const Session& session) {
  if (target.empty()) return;
  if (const auto reason = refusedTarget(target, session.protectedPaths)) throw UsageError(*reason);
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
  if (!job.data.source.empty()) session.protectedPaths.push_back(job.data.source);
  if (!job.file.empty()) session.protectedPaths.push_back(job.file);
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
  writeFileAtomically(file, std::string_view(buffer.GetString(), buffer.GetSize()));
}

void printTimings(const StageClock& clock, double load, double render, double total) {
  const auto line = [](const char* stage, double seconds) { fmt::print(stderr, "timing {} {:.6f}\n", stage, seconds); };
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
  prepareSession(job, session);
  refuseOverwriting(options.html, session);
  refuseOverwriting(options.json, session);
  refuseOverwriting(options.trace, session);
  const double load = total.seconds();

  const FinishedRun run = callProcedure(command, session, options);

  const Stopwatch render;
  const std::vector<RunMessage> messages = collectMessages(run);
  showRun(run, messages, options);
  if (!options.trace.empty()) writeFileAtomically(options.trace, run.streams.out + run.streams.err);
  if (!options.json.empty() && session.document.IsObject()) writeJson(session, options.json);
  if (!options.html.empty() && session.document.IsObject()) {
    writeFileAtomically(options.html, reportPage(run, messages, total.seconds()));
    if (options.verbosity != Verbosity::quiet) fmt::print("{}\n", tr("report: ^1", options.html.string()));
  }
  if (options.timings) printTimings(session.clock, load, render.seconds(), total.seconds());
  return run.outcome.exitCode();
}

}  // namespace workbench
