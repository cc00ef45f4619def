// The commands of a job, run one after the other on the same data.

#pragma once

#include <string>
#include <vector>

#include "workbench/cli/job.h"
#include "workbench/commands/common/command_runner.h"
#include "workbench/commands/common/run_messages.h"

namespace workbench {

// A command that ran, and everything it has to tell.
struct ToldRun {
  FinishedRun run;
  int number = 0;  // from 1; 0 for the only command of its job
  DocumentView view;
  std::vector<RunMessage> messages;

  bool hasOutput() const { return run.record.document.IsObject(); }
};

// All commands are parsed before the first one runs; where one cannot be, the runs are those that could not, and
// nothing has run. A command that fails does not stop those after it. Throws UsageError for an unknown command, and
// when two commands would write one file.
std::vector<ToldRun> runCommands(const Job& job, CommandRunner& runner);

// The runs of those that cannot be parsed, or would write one file; none when all can. Nothing is run.
std::vector<ToldRun> unparsedCommands(const std::vector<std::string>& texts, CommandRunner& runner);

// That of the first run that failed; 0 when none did.
int exitCodeOf(const std::vector<ToldRun>& runs);

}  // namespace workbench
