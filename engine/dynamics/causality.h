// What leads what: Wald tests on the lags of some series in the equations of others, and on covariances of shocks.

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "engine/diagnostics/test_statistics.h"
#include "engine/regression/fitted_var.h"

namespace engine {

// The lags 1..testedLags of the n1 `causes` in the equations of the n2 `effects` are jointly zero: b' (S_ee x
// (Z'Z)^-1_cc)^-1 b / (testedLags n1 n2), with S = E'E / (n - m); the second degrees of freedom are the caller's.
// Granger 1969. With testedLags = p - d of a model that has d lags more than needed it is the test of Toda & Yamamoto
// (1995), which holds for d-fold integrated series too. Nothing when S or (Z'Z)^-1 is singular there.
std::optional<FTest> exclusionTest(const FittedVar& fit, std::span<const std::size_t> causes,
                                   std::span<const std::size_t> effects, std::size_t testedLags,
                                   double denominatorDegrees);

// K series. An absent test could not be computed.
struct GrangerCausality {
  std::vector<std::vector<std::optional<FTest>>> pairs;  // [cause][effect], F(testedLags, n - m); absent for itself
  std::vector<std::optional<FTest>> othersOnEach;        // [effect]: all others jointly, F(testedLags (K - 1), n - m)
  std::vector<std::optional<FTest>> eachOnOthers;        // [cause]: on all others, F(testedLags (K - 1), K (n - m))
};
GrangerCausality grangerCausality(const FittedVar& fit, std::size_t testedLags);

// The shock of `series` is uncorrelated with those of the others: n c' (2 C D+ (S x S) D+' C')^-1 c for the covariances
// c, chi-squared on K - 1 (Luetkepohl 2005, section 3.6.3). With R^2 of the regression of its residuals on the others'
// that is n R^2 / (1 + R^2). Nothing when the residuals are linearly dependent or K = 1.
std::optional<ChiSquaredTest> instantaneousCausality(const FittedVar& fit, std::size_t series);

}  // namespace engine
