// Everything that a run has to tell beside its tables and charts, in reading order.

#pragma once

#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/commands/common/command.h"

namespace workbench {

class CommandRunner;

struct RunMessage {
  enum class Kind { error, warning, hint, note };
  RunMessage(Kind which, const Notice& notice, bool quietly = true, bool above = false);

  Kind kind;
  std::string id;     // names it for good, whatever its words
  std::string text;   // in the session's language; may have several lines
  bool shownQuietly;  // of warnings: also with -q; of notes: also where only the main tables are shown
  bool aboveOutput;   // a note that the output must be read with
  int command = 0;    // the number of its command in a job of several

  // With that number in front.
  std::string shown() const;
};

// The procedure's messages, equal ones once, each with its hint; why the run stopped, if nothing else says so; and the
// notes on its output, if there is output.
std::vector<RunMessage> collectMessages(const FinishedRun& run, CommandRunner& runner);

// "error", "warning", "hint" or "note".
const char* labelOf(RunMessage::Kind kind);

}  // namespace workbench
