#include "workbench/commands/common/command_runner.h"

#include <utility>

#include "workbench/commands/common/analysed_rows.h"
#include "workbench/commands/common/dataset_change.h"

namespace workbench {

CommandRunner::CommandRunner(CallInput input, const RunnerSettings& settings) : settings_(settings) {
  static_cast<CallInput&>(session_) = std::move(input);
}

FinishedRun CommandRunner::call(const Command& command, bool parseOnly) {
  std::unique_ptr<ProcedureModule>& module = modules_[command.library()];
  if (!module) {
    module = std::make_unique<ProcedureModule>(installedProcedures() / command.library(), command.entry());
  }
  session_.parseOnly = parseOnly;
  static_cast<CallRecord&>(session_) = {};
  CapturedStreams streams = module->call(session_);
  FinishedRun run{command, session_, session_.commandText, 1.0, false, {}, std::move(streams), {}};
  run.record = std::move(static_cast<CallRecord&>(session_));
  run.outcome = command.outcome(run.record, run.streams);
  return run;
}

FinishedRun CommandRunner::run(const Command& command, const std::string& text, const RunnerSettings& settings) {
  session_.commandText = text;
  command.requestSummary(false);
  FinishedRun parsed = call(command, true);
  if (!parsed.record.parsed) return parsed;

  DatasetChange change(session_.dataset);
  const std::vector<int> columns = columnsOf(session_.dataset, parsed.record, command.caseLists());
  change.hide(columns, hiddenRows(session_.dataset, columns,
                                  {.excludeUserMissing = !command.includesUserMissing(parsed.record),
                                   .dropsIncomplete = settings.complete,
                                   .keepsFuture = command.readsFutureCases()}));
  const std::vector<int> scaled = columnsOf(session_.dataset, parsed.record, command.scaledLists());
  change.multiply(scaled, settings.scale);
  session_.savedScale = scaled.empty() ? 1.0 : settings.scale;
  command.requestSummary(settings.summary);
  FinishedRun finished = call(command, false);
  finished.scale = session_.savedScale;
  finished.complete = settings.complete;
  return finished;
}

}  // namespace workbench
