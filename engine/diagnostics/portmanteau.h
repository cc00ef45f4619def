// Portmanteau tests for residual autocorrelation, in any units.

#pragma once

#include <cstddef>
#include <optional>

#include "engine/diagnostics/standardised_residuals.h"
#include "engine/diagnostics/test_statistics.h"

namespace engine {

// Adjusted Q = n^2 sum over j = 1..h of tr(C_j' C_0^-1 C_j C_0^-1) / (n - j), C_j = sum of e(t) e(t-j)' / n, on K^2 (h
// - lag) degrees of freedom (Hosking 1980; Luetkepohl 2005, section 4.4.3). Nothing unless lag < h < n, or when the
// residuals are linearly dependent.
std::optional<ChiSquaredTest> portmanteau(ResidualList residuals, std::size_t lag, std::size_t h);

// Of one equation (Ljung & Box 1978): Q = n (n + 2) * sum over j = 1..h of r(j)^2 / (n - j), r(j) about the mean, on h
// - lag degrees of freedom. Nothing unless lag < h < n, or for residuals that do not vary.
std::optional<ChiSquaredTest> ljungBoxTest(const std::vector<double>& residuals, std::size_t lag, std::size_t h);

}  // namespace engine
