// A fitted vector autoregression on other windows of its sample, by adding and dropping rows.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/dynamics/fit_parts.h"

namespace engine {

// Works on rows z L of the regressors, L L' = (Z'Z)^-1 over the whole sample, whose products sum to the identity there:
// in these coordinates updating loses next to no digits, however collinear or far from zero the regressors are. The
// targets are the residuals of the whole sample. Refers to both arguments.
class RollingRegression {
 public:
  RollingRegression(const FittedVar& whole, const VarSample& sample);

  // Moves the window to the rows first .. last - 1 of the regression. Costs m^2 for each row that comes or goes. False
  // when the regressors are linearly dependent there.
  bool moveTo(std::size_t first, std::size_t last);

  // K x m.
  Matrix coefficients() const;

  // The whole fit of the window.
  FittedVar fit() const;

 private:
  void fillRow(std::size_t row);
  bool changeRow(std::size_t row, double sign);
  bool sumAgain();

  const FittedVar& whole_;
  VarSample sample_;
  std::size_t size_;  // m
  Matrix root_;       // L; empty when (Z'Z)^-1 is not positive definite to rounding
  Matrix turnedRoot_;
  std::size_t first_ = 0;
  std::size_t last_;
  Matrix inverse_;             // of the window's sums of products of the rows
  Matrix shift_;               // m x K: coefficients of the targets on the rows
  Matrix plainShift_;          // L times it: on the regressors
  std::vector<double> plain_;  // a row of regressors, and of it in the coordinates
  std::vector<double> row_;
  std::vector<double> gain_;
  std::vector<double> plainGain_;
  std::vector<double> errors_;
};

}  // namespace engine
