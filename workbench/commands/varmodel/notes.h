// Notes under the output of a VARMODEL command, and hints below its errors.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/commands/common/command.h"
#include "workbench/commands/common/known_messages.h"

namespace workbench::varmodel {

std::vector<Notice> collectNotes(const FinishedRun& run);

// A message or warning of the procedure; null for one that is not known.
const KnownMessage* knownMessage(std::string_view message);

Advice adviceFor(const std::string& message, const FinishedRun& run, CommandRunner& runner);

// Why a failed run left no error message, as far as its trace tells.
Notice silentCause(const CapturedStreams& streams);

}  // namespace workbench::varmodel
