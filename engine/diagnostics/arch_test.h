// Lagrange multiplier tests for conditional heteroskedasticity of residuals.

#pragma once

#include <cstddef>
#include <optional>

#include "engine/diagnostics/standardised_residuals.h"
#include "engine/diagnostics/test_statistics.h"

namespace engine {

// Of all equations jointly: the K (K + 1) / 2 distinct products of the residuals of a row, regressed on a constant and
// on the products of the h rows before: n' K (K + 1) R^2 / 2 with n' = n - h and R^2 = 1 - 2 tr(Om Om_0^-1) / (K (K +
// 1)), on h K^2 (K + 1)^2 / 4 degrees of freedom (Doornik & Hendry 1997; Luetkepohl 2005, section 16.5). The residuals
// are centred; standardising them changes nothing but the rounding. Nothing unless n' > K (K + 1) (h + 1) / 2 + 1, or
// when products or residuals are linearly dependent.
std::optional<ChiSquaredTest> multivariateArch(ResidualList residuals, std::size_t h);

// Of one equation (Engle 1982): n' R^2 of the squared residuals on a constant and their own h lags, on h degrees of
// freedom.
std::optional<ChiSquaredTest> univariateArch(const std::vector<double>& residuals, std::size_t h);

}  // namespace engine
