// Series in so small a unit that the absolute bound of VARMODEL on the determinant of the residual covariance refuses a
// good model, and the unit that passes it.

#pragma once

#include <optional>
#include <string>

#include "workbench/base/notice.h"
#include "workbench/commands/common/command_runner.h"

namespace workbench::varmodel {

// Whether the run stopped at that bound.
bool stoppedAtSingularCovariance(const FinishedRun& run);

// The least power of ten that brings the smallest residual variance of a plain fit of the same model to 1e-2 or more,
// or the next that passes the bound (many or closely related series need more). Nothing when no unit helps.
std::optional<double> fittingScale(const FinishedRun& stopped, CommandRunner& runner);

// "100", "1e+20".
std::string scaleText(double scale);

// What the scale changed in the output, and what not.
Notice scaleNote(const FinishedRun& run);

}  // namespace workbench::varmodel
