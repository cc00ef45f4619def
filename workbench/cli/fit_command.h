// Composing a command text from the options of `varmodel fit`.

#pragma once

#include <string>

#include "workbench/cli/options.h"

namespace workbench {

// Asks for every statistic and chart that these options can produce.
std::string composeCommand(const FitOptions& options);

}  // namespace workbench
