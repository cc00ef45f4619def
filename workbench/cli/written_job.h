// A job file that does again what a run did.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "workbench/cli/job_runs.h"
#include "workbench/cli/run_description.h"

namespace workbench {

// As TOML; `file` is where it will lie, which the data's path then starts from.
std::string writtenJob(const RunDescription& description, const std::vector<ToldRun>& runs,
                       const std::filesystem::path& file);

}  // namespace workbench
