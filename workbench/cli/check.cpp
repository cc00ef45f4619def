#include "workbench/cli/check.h"

#include <utility>

#include "workbench/cli/job_input.h"
#include "workbench/cli/job_runs.h"
#include "workbench/cli/output_files.h"
#include "workbench/cli/screen.h"
#include "workbench/commands/common/command_runner.h"
#include "workbench/commands/registry.h"
#include "workbench/dates/case_label.h"
#include "workbench/edge/texts.h"
#include "workbench/language/command_list.h"

namespace workbench {

namespace {

std::string rowsText(const CallInput& input) {
  const std::size_t rows = input.dataset.rowCount;
  if (input.trends.dateVariables.empty()) return tr("^1 rows without dates", rows);
  return tr("^1 rows, ^2 to ^3", rows, caseLabel(input.dataset, input.trends, 0),
            caseLabel(input.dataset, input.trends, static_cast<std::int64_t>(rows) - 1));
}

}  // namespace

int checkJob(const Job& job, const OutputOptions& options) {
  const std::vector<std::string> texts = splitCommands(job.command);
  for (const std::string& text : texts) commandOf(text);
  JobInput input = prepareInput(job, withOutputsOf(job, options));
  CommandRunner runner(std::move(input.call),
                       {.scale = job.scale, .complete = job.complete, .summary = options.summary});
  const std::vector<ToldRun> failed = unparsedCommands(texts, runner);
  for (const ToldRun& told : failed) showRun(told, options);
  if (!failed.empty()) return exitCodeOf(failed);
  if (options.showsOutput()) {
    showLine(tr("Nothing speaks against running ^1: ^2, commands: ^3.", job.file.string(), rowsText(runner.input()),
                texts.size()));
  }
  return 0;
}

}  // namespace workbench
