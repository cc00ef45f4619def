// Everything that a run has to tell beside its tables and charts, in reading order.

#pragma once

#include <string>
#include <vector>

#include "workbench/commands/common/command.h"

namespace workbench {

struct RunMessage {
  enum class Kind { error, warning, hint, note };
  Kind kind;
  std::string text;  // in the session's language; may have several lines
};

// The procedure's messages, equal ones once, each with its hint; why the run stopped, if nothing else says so; and the
// notes under the output, if there is output.
std::vector<RunMessage> collectMessages(const FinishedRun& run);

// "error", "warning", "hint" or "note".
const char* labelOf(RunMessage::Kind kind);

}  // namespace workbench
