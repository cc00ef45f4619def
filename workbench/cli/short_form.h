// What a composed job shows in the terminal at first sight: what was found, the main tables, and how to have the rest.

#pragma once

#include <vector>

#include "workbench/cli/job_runs.h"
#include "workbench/cli/options.h"

namespace workbench {

// Whether the job has a short form and nobody asks for more.
bool showsShortForm(const Job& job, const OutputOptions& options);

// On standard output: the headline of the runs that have one, then of each run the tables of the short form and the
// notes that the output must be read with.
void showShortForm(const Job& job, const std::vector<ToldRun>& runs, const OutputOptions& options);

}  // namespace workbench
