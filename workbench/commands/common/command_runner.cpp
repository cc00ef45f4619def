#include "workbench/commands/common/command_runner.h"

#include <algorithm>
#include <utility>

#include "workbench/commands/common/analysed_rows.h"
#include "workbench/commands/common/dataset_change.h"
#include "workbench/language/lexer.h"

namespace workbench {

namespace {

std::string withoutLeadingBlanks(const std::string& text) {
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

void withoutPredict(TrendsSettings& trends) {
  trends.predictSet = trends.predictIsDate = false;
  trends.predictCase = 0;
  for (DateVariable& variable : trends.dateVariables) variable.predictThru = kSystemMissing;
}

}  // namespace

CommandRunner::CommandRunner(CallInput input, const RunnerSettings& settings) : settings_(settings) {
  static_cast<CallInput&>(session_) = std::move(input);
}

FinishedRun CommandRunner::call(const Command& command, bool parseOnly) {
  std::unique_ptr<ProcedureModule>& module = modules_[command.library()];
  if (!module) {
    module = std::make_unique<ProcedureModule>(installedProcedures() / command.library(), command.entry());
  }
  session_.parseOnly = parseOnly;
  session_.saveRemedies = command.saveRemedies();
  static_cast<CallRecord&>(session_) = {};
  CapturedStreams streams = module->call(session_);
  FinishedRun run{.command = command,
                  .input = session_,
                  .text = withoutLeadingBlanks(session_.commandText),
                  .record = {},
                  .streams = std::move(streams),
                  .outcome = {}};
  run.record = std::move(static_cast<CallRecord&>(session_));
  const std::size_t blanks = session_.commandText.size() - run.text.size();
  for (auto& [name, place] : run.record.places) place = {place.begin - blanks, place.end - blanks};
  run.outcome = withWhatWasLeft(command.outcome(run.record, run.streams), run.record);
  return run;
}

FinishedRun CommandRunner::parse(const Command& command, const std::string& text) {
  session_.commandText = text;
  command.requestSummary(false);
  return call(command, true);
}

FinishedRun CommandRunner::run(const Command& command, const std::string& text, const RunnerSettings& settings) {
  FinishedRun parsed = parse(command, text);
  if (!parsed.record.parsed) return parsed;

  DatasetChange change(session_.dataset);
  const std::vector<int> columns = columnsOf(session_.dataset, parsed.record, command.caseLists());
  change.hide(columns, hiddenRows(session_.dataset, columns,
                                  {.excludeUserMissing = !command.includesUserMissing(parsed.record),
                                   .dropsIncomplete = settings.complete,
                                   .keepsFuture = command.readsFutureCases()}));
  session_.keptCases.clear();
  if (settings.savesCases) {
    session_.keptCases = completeRows(session_.dataset, columns, !command.includesUserMissing(parsed.record));
  }
  const std::vector<int> scaled = columnsOf(session_.dataset, parsed.record, command.scaledLists());
  change.multiply(scaled, settings.scale);
  session_.savedScale = scaled.empty() ? 1.0 : settings.scale;
  command.requestSummary(settings.summary);
  const TrendsSettings trends = session_.trends;
  if (!settings.predicts) withoutPredict(session_.trends);
  FinishedRun finished = call(command, false);
  session_.trends = trends;
  finished.scale = session_.savedScale;
  finished.complete = settings.complete;
  finished.predicts = settings.predicts;
  return finished;
}

}  // namespace workbench
