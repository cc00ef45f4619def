// Simulated models with known roots, for measuring how often limits hold.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/arithmetic/philox.h"
#include "engine/dynamics/lag_matrices.h"
#include "engine/dynamics/slope_bias.h"
#include "engine/regression/fitted_var.h"

namespace bench {

enum class Errors { normal, heavyTails, garch };  // heavy tails: t(5); all of variance 1

struct Design {
  std::string name;
  double root = 0.97;     // the largest; the others are .7, .5, .3, -.3 and .2, for two series .7, .3 and -.3
  std::size_t rows = 60;  // n of the regression
  std::size_t fittedLag = 2;
  std::string terms = "CONSTANT";  // or TREND, SEASONAL, EXOGENOUS
  Errors errors = Errors::normal;
  std::size_t series = 3;  // or 2
};

// Lag matrices and covariance of the shocks that the design stands for.
struct TrueModel {
  engine::LagMatrices lags;
  engine::Matrix covariance;
};
TrueModel trueModel(const Design& design);

struct Sample {
  std::vector<std::vector<double>> observed;  // K of n + fittedLag values
  std::vector<std::vector<double>> future;    // K of `horizon`
  std::vector<std::vector<double>> known;     // columns of n + fittedLag + horizon values
};

// Series that mix independent AR(2) processes with the design's roots, shocks correlated by .3 to .5.
Sample simulated(const Design& design, std::size_t horizon, engine::RandomStream& random);

// Least squares on the sample; the columns beside lags and constant are `known`.
engine::FittedVar fitted(const Sample& sample, std::size_t lag);

}  // namespace bench
