// How the document of a VARMODEL run is shown: notes where what it holds is defined otherwise than a reader assumes.

#pragma once

#include "workbench/commands/common/command.h"

namespace workbench::varmodel {

// Each definition once, below the first table that it concerns; a scale below every chart that shows values in it. Of a
// run that only chooses the lag for the next one, the table of lags alone is shown.
DocumentView viewOf(const FinishedRun& run);

}  // namespace workbench::varmodel
