// The text summary of a VARMODEL run.

#pragma once

#include <string>

#include "workbench/base/notice.h"
#include "workbench/commands/common/command.h"

namespace workbench::varmodel {

// As the procedure wrote it; empty when it wrote none.
std::string summaryText(const FinishedRun& run);

// Which of its columns were not computed and therefore mean nothing, and the subcommand that fills them; empty when all
// were.
Notice summaryNote(const FinishedRun& run);

}  // namespace workbench::varmodel
