// Calling the procedures of commands on one dataset.

#pragma once

#include <map>
#include <memory>
#include <string>

#include "workbench/commands/common/command.h"
#include "workbench/edge/procedure_module.h"

namespace workbench {

struct RunnerSettings {
  double scale = 1.0;       // factor of the variables of a command's scaledLists()
  bool complete = false;    // cases that lack one of a command's variables are hidden from its procedure
  bool summary = false;     // procedures write their text summaries
  bool savesCases = false;  // saved files tell the row and the date of every case
  bool predicts = true;     // procedures see the session's PREDICT target
};

// While it lives, its session is the current one.
class CommandRunner {
 public:
  CommandRunner(CallInput input, const RunnerSettings& settings);

  // Parses the command alone; its record holds what the parser found.
  FinishedRun parse(const Command& command, const std::string& text);
  // Parses the command and, if that succeeds, runs it on the cases that it may see. A run that could not be parsed has
  // the parser's messages.
  FinishedRun run(const Command& command, const std::string& text) { return run(command, text, settings_); }
  FinishedRun run(const Command& command, const std::string& text, const RunnerSettings& settings);

  const CallInput& input() const { return session_; }
  const RunnerSettings& settings() const { return settings_; }

 private:
  FinishedRun call(const Command& command, bool parseOnly);

  RunnerSettings settings_;
  std::map<std::string, std::unique_ptr<ProcedureModule>> modules_;  // by library
  Session session_;
  SessionScope scope_{session_};
};

}  // namespace workbench
