// Notes below tables and charts of VARMODEL: where what they show is defined otherwise than a reader assumes.

#pragma once

#include "workbench/commands/common/command.h"

namespace workbench::varmodel {

// Each definition once, below the first table that it concerns; a scale below every chart that shows values in it.
ItemNotes itemNotes(const FinishedRun& run);

}  // namespace workbench::varmodel
