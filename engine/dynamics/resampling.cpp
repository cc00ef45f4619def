#include "engine/dynamics/resampling.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "engine/arithmetic/scaled_addition.h"

namespace engine {
namespace {

constexpr int kMostTries = 1000;

}  // namespace

Replication::Replication(const ResamplingPlan& plan)
    : plan_(plan),
      window_(plan.series * (plan.lag + 1)),
      path_((plan.lag + plan.rows) * plan.series),
      products_(window_ * window_),
      termSums_(plan.terms * window_),
      trial_(plan.series * plan.series * plan.lag),
      stability_(plan.scales, plan.lag) {}

void Replication::simulate(Resample resample, RandomStream& random) {
  const std::size_t k = plan_.series;
  const std::size_t past = k * plan_.lag;
  std::ranges::copy(plan_.start, path_.begin());
  for (std::size_t r = 0; r < plan_.rows; ++r) {
    double* const now = path_.data() + past + r * k;
    const std::size_t row = resample == Resample::residual ? random.below(plan_.rows) : r;
    const double factor = resample == Resample::residual ? 1.0 : random.normal();
    for (std::size_t i = 0; i < k; ++i) now[i] = plan_.known[r * k + i] + factor * plan_.shocks[row * k + i];
    for (std::size_t c = 0; c < past; ++c) {
      const double value = now[c - past];
      for (std::size_t i = 0; i < k; ++i) now[i] += value * plan_.lags[c * k + i];
    }
  }
}

// The cross-products of all columns from those with the newest: going one lag back adds one row and drops another.
void Replication::sumProducts() {
  const std::size_t k = plan_.series;
  const std::size_t newest = k * plan_.lag;
  std::ranges::fill(products_, 0.0);
  std::ranges::fill(termSums_, 0.0);
  for (std::size_t r = 0; r < plan_.rows; ++r) {
    const double* const row = path_.data() + r * k;
    for (std::size_t i = 0; i < k; ++i) {
      addScaled(row[newest + i], row, products_.data() + (newest + i) * window_, window_);
    }
    for (std::size_t d = 0; d < plan_.terms; ++d) {
      addScaled(plan_.basis[r * plan_.terms + d], row, termSums_.data() + d * window_, window_);
    }
  }
  const double* const last = path_.data() + (plan_.rows - 1) * k;
  for (std::size_t i = newest; i-- > 0;) {
    for (std::size_t j = 0; j <= i; ++j) {
      const double shifted = products_[(i + k) * window_ + j + k];
      products_[i * window_ + j] = shifted + (path_[i] * path_[j] - last[i + k] * last[j + k]);
    }
  }
}

// Overwrites the lower triangle of the products, less what the terms explain, with its Cholesky factor.
bool Replication::factorize() {
  const double tolerance = static_cast<double>(window_) * std::numeric_limits<double>::epsilon();
  for (std::size_t i = 0; i < window_; ++i) {
    double* const row = products_.data() + i * window_;
    const double whole = row[i];
    for (std::size_t d = 0; d < plan_.terms; ++d) {
      addScaled(-termSums_[d * window_ + i], termSums_.data() + d * window_, row, i + 1);
    }
    for (std::size_t j = 0; j <= i; ++j) {
      const double* const other = products_.data() + j * window_;
      double value = row[j];
      for (std::size_t c = 0; c < j; ++c) value -= row[c] * other[c];
      if (j < i) {
        row[j] = value / other[j];
      } else {
        if (!(value > tolerance * whole) || !std::isfinite(value)) return false;
        row[i] = std::sqrt(value);
      }
    }
  }
  return true;
}

// B = L21 L11^-1 and the root of S from the trailing block.
void Replication::solve(const DrawnModel& target) const {
  const std::size_t k = plan_.series;
  const std::size_t past = k * plan_.lag;
  const double scale = 1.0 / std::sqrt(plan_.degrees);
  for (std::size_t i = 0; i < k; ++i) {
    double* const b = target.lags.data() + i * past;
    const double* const row = products_.data() + (past + i) * window_;
    std::copy_n(row, past, b);
    for (std::size_t c = past; c-- > 0;) {
      const double* const factor = products_.data() + c * window_;
      b[c] /= factor[c];
      addScaled(-b[c], factor, b, c);
    }
    for (std::size_t j = 0; j < k; ++j) target.root[i * k + j] = j <= i ? row[past + j] * scale : 0.0;
  }
}

bool Replication::correctLags(const DrawnModel& target) {
  if (!plan_.correct) return true;
  if (!stability_.isStable(target.lags)) return false;
  for (int percent = 100; percent > 0; --percent) {
    for (std::size_t i = 0; i < trial_.size(); ++i) trial_[i] = target.lags[i] - 0.01 * percent * plan_.bias[i];
    if (!stability_.isStable(trial_)) continue;
    std::ranges::copy(trial_, target.lags.begin());
    break;
  }
  return true;
}

// With an orthonormal basis the coefficients of the terms are the sums left over by the lags.
void Replication::solveTerms(const DrawnModel& target) const {
  const std::size_t k = plan_.series;
  const std::size_t past = k * plan_.lag;
  for (std::size_t d = 0; d < plan_.terms; ++d) {
    const double* const sums = termSums_.data() + d * window_;
    for (std::size_t i = 0; i < k; ++i) {
      double value = sums[past + i];
      for (std::size_t c = 0; c < past; ++c) value -= sums[c] * target.lags[i * past + c];
      target.terms[d * k + i] = value;
    }
  }
}

bool Replication::run(Resample resample, RandomStream& random, const DrawnModel& target) {
  for (int tries = 0; tries < kMostTries; ++tries) {
    simulate(resample, random);
    sumProducts();
    if (!factorize()) continue;
    solve(target);
    const bool corrected = correctLags(target);
    solveTerms(target);
    return corrected;
  }
  throw std::runtime_error("no replication could be fitted: its series are linearly dependent");
}

}  // namespace engine
