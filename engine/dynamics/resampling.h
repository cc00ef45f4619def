// One replication of a bootstrapped vector autoregression: draw shocks, run the model, fit it again.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "engine/arithmetic/philox.h"
#include "engine/dynamics/bias_correction.h"
#include "engine/dynamics/stability_test.h"

namespace engine {

enum class Resample {
  residual,  // rows of residuals drawn with replacement
  wild       // the rows in their order, each times one N(0, 1)
};

// What all replications share. Lags stand oldest first, [A_p .. A_1]; series are less their means when there is a
// constant; the d columns beside the lags (constant, trend, seasons, exogenous series) are replaced by an orthonormal
// basis Q of n x d, Q R = D.
struct ResamplingPlan {
  std::size_t series = 0;      // K
  std::size_t lag = 0;         // p
  std::size_t rows = 0;        // n
  std::size_t terms = 0;       // d
  double degrees = 0.0;        // n - m
  bool correct = false;        // whether estimates are corrected for bias
  std::vector<double> centre;  // K
  std::vector<double> scales;  // K: standard deviations of the shocks
  std::vector<double> start;   // p x K: the observations before the regression's first row
  std::vector<double> known;   // n x K: what the terms add to every row
  std::vector<double> shocks;  // n x K: residuals of the corrected model less their mean, times sqrt(n / (n - m))
  std::vector<double> lags;    // K p x K: element (c, i) is what value c of the past adds to series i
  std::vector<double> bias;    // K x K p
  std::vector<double> basis;   // n x d
  Matrix triangle;             // R, d x d
};

// Nothing when the terms are linearly dependent. `correct` = false draws from the least-squares model and corrects
// nothing; a model with a root on or outside the unit circle is never corrected.
std::optional<ResamplingPlan> resamplingPlan(const FittedVar& fit, const VarSample& sample,
                                             const CorrectedModel& model);

// The estimates of one replication.
struct DrawnModel {
  std::span<double> lags;   // K x K p, oldest first, corrected
  std::span<double> terms;  // d x K: coefficients of Q, corrected
  std::span<double> root;   // K x K: the Cholesky factor of S* = E*'E* / (n - m)
};

class Replication {
 public:
  explicit Replication(const ResamplingPlan& plan);

  // Fills `target` from the stream. False when F* had a root on or outside the unit circle and was left uncorrected. A
  // draw whose regressors are linearly dependent is drawn again.
  bool run(Resample resample, RandomStream& random, const DrawnModel& target);

  // The series of the last run, less their centre: p + n rows of K.
  std::span<const double> path() const { return path_; }

 private:
  void simulate(Resample resample, RandomStream& random);
  void sumProducts();
  bool factorize();
  void solve(const DrawnModel& target) const;
  bool correctLags(const DrawnModel& target);
  void solveTerms(const DrawnModel& target) const;

  const ResamplingPlan& plan_;
  std::size_t window_;            // K (p + 1): a row of lags and the row itself
  std::vector<double> path_;      // (p + n) x K
  std::vector<double> products_;  // window x window; then its Cholesky factor
  std::vector<double> termSums_;  // d x window: Q' times the columns
  std::vector<double> trial_;
  StabilityTest stability_;
};

}  // namespace engine
