// Notes on a job's data that do not depend on its commands.

#pragma once

#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/cli/job.h"
#include "workbench/dataset/dataset.h"

namespace workbench {

std::vector<Notice> jobNotes(const Job& job, const Dataset& dataset);

}  // namespace workbench
