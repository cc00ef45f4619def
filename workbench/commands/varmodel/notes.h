// Notes under the output of a VARMODEL command, and hints below its errors.

#pragma once

#include <string>
#include <vector>

#include "workbench/commands/common/command.h"

namespace workbench::varmodel {

std::vector<std::string> collectNotes(const FinishedRun& run);

Advice adviceFor(const std::string& message, const FinishedRun& run, CommandRunner& runner);

// Why a failed run left no error message, as far as its trace tells.
std::string silentCause(const CapturedStreams& streams);

}  // namespace workbench::varmodel
