#include "engine/dynamics/stability_test.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/arithmetic/scaled_addition.h"

namespace engine {
namespace {

constexpr int kMostSquarings = 60;  // a modulus of 1 - 1e-16 shows after 57

// The sign of the determinant of the k x k matrix, which is overwritten: elimination with partial pivoting.
bool hasPositiveDeterminant(std::span<double> a, std::size_t k) {
  bool positive = true;
  for (std::size_t c = 0; c < k; ++c) {
    std::size_t pivot = c;
    for (std::size_t r = c + 1; r < k; ++r) {
      if (std::abs(a[r * k + c]) > std::abs(a[pivot * k + c])) pivot = r;
    }
    if (a[pivot * k + c] == 0.0) return false;
    if (pivot != c) {
      std::swap_ranges(&a[pivot * k], &a[pivot * k] + k, &a[c * k]);
      positive = !positive;
    }
    positive = positive == (a[c * k + c] > 0.0);
    for (std::size_t r = c + 1; r < k; ++r) {
      const double factor = a[r * k + c] / a[c * k + c];
      for (std::size_t j = c; j < k; ++j) a[r * k + j] -= factor * a[c * k + j];
    }
  }
  return positive;
}

}  // namespace

StabilityTest::StabilityTest(std::vector<double> scales, std::size_t lag)
    : scales_(std::move(scales)),
      lag_(lag),
      power_(scales_.size() * lag * scales_.size() * lag),
      next_(power_.size()) {}

bool StabilityTest::mayBeStable(std::span<const double> lags) {
  const std::size_t k = scales_.size();
  const std::span<double> sum(next_.data(), k * k);
  for (std::size_t i = 0; i < k; ++i) {
    for (std::size_t j = 0; j < k; ++j) {
      double value = i == j ? 1.0 : 0.0;
      for (std::size_t l = 0; l < lag_; ++l) value -= lags[i * k * lag_ + l * k + j];
      sum[i * k + j] = value * scales_[j] / scales_[i];
    }
  }
  return hasPositiveDeterminant(sum, k);
}

// The state runs from the oldest lag to the newest: ones above the diagonal, the lags in the last K rows.
void StabilityTest::fillCompanion(std::span<const double> lags) {
  const std::size_t k = scales_.size();
  const std::size_t size = k * lag_;
  std::ranges::fill(power_, 0.0);
  for (std::size_t i = 0; i + k < size; ++i) power_[i * size + i + k] = 1.0;
  for (std::size_t i = 0; i < k; ++i) {
    for (std::size_t c = 0; c < size; ++c) {
      power_[(size - k + i) * size + c] = lags[i * size + c] * scales_[c % k] / scales_[i];
    }
  }
}

void StabilityTest::square() {
  const std::size_t size = scales_.size() * lag_;
  for (std::size_t i = 0; i < size; ++i) {
    double* const target = next_.data() + i * size;
    std::fill_n(target, size, 0.0);
    for (std::size_t c = 0; c < size; ++c) {
      const double factor = power_[i * size + c];
      if (factor == 0.0) continue;
      addScaled(factor, power_.data() + c * size, target, size);
    }
  }
  std::swap(power_, next_);
}

bool StabilityTest::isStable(std::span<const double> lags) {
  if (lag_ == 0) return true;
  if (!mayBeStable(lags)) return false;
  fillCompanion(lags);
  const std::size_t size = scales_.size() * lag_;
  for (int count = 0; count < kMostSquarings; ++count) {
    square();
    double squares = 0.0;
    double trace = 0.0;
    for (const double value : power_) squares += value * value;
    for (std::size_t i = 0; i < size; ++i) trace += power_[i * size + i];
    if (squares < 1.0) return true;
    if (!(std::abs(trace) <= static_cast<double>(size)) || !std::isfinite(squares)) return false;
  }
  return false;
}

}  // namespace engine
