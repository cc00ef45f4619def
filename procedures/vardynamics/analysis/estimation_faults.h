// Why a model cannot be estimated, told to the user.

#pragma once

#include <cstdint>

#include "engine/regression/var_estimation.h"
#include "procedures/vardynamics/analysis/lag_range.h"
#include "procedures/vardynamics/analysis/model.h"

namespace vardynamics {

ModelShape shapeOf(const ModelData& data);

// Throws UserError when the lag is above the largest usable one; `setting` is the parameter that asked for it.
void requireUsableLag(const ModelShape& shape, std::int32_t lag, const char* setting);

// Throws the UserError of a fit that failed: it names the series or regressors that cause it.
[[noreturn]] void refuse(const ModelData& data, const engine::FitError& error);

// The residuals are linearly dependent to rounding, so that their covariance has no factor.
[[noreturn]] void refuseDependentShocks();

}  // namespace vardynamics
