// Least squares with 200 decimal digits: what the engine's digits are counted against.

#pragma once

#include <boost/multiprecision/cpp_bin_float.hpp>
#include <cstddef>
#include <vector>

#include "tests/engine/numeric_support.h"

namespace engine {

using Exact = boost::multiprecision::number<boost::multiprecision::cpp_bin_float<200>, boost::multiprecision::et_off>;

// Of lag P on the rows P .. T - 1; coefficients in the engine's order, one vector an equation.
struct ExactFit {
  std::vector<std::vector<Exact>> coefficients;
  std::vector<std::vector<Exact>> standardErrors;
  std::vector<std::vector<Exact>> residuals;
  Exact determinant;           // of the residual covariance, divisor n
  Exact condition;             // reciprocal 1-norm, of the centred regressors scaled to unit diagonal; 0 when singular
  bool withoutSpread = false;  // a regressor beside the constant differs from its mean by rounding at most
};

// By the normal equations: the digits that they lose are twice those of the data's condition, and 200 are many more.
ExactFit fitExactly(const SeriesList& endogenous, const SeriesList& exogenous, std::size_t maxLag);

}  // namespace engine
