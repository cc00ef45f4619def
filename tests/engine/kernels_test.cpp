// The wide kernels against the plainest loops, bit for bit.

#include "engine/arithmetic/kernels.h"

#include <gtest/gtest.h>

#include "engine/arithmetic/tile_products.h"
#include "engine/regression/var_estimation.h"
#include "tests/engine/numeric_support.h"

namespace engine {
namespace {

// Does the same under every set that the CPU has, and puts the set back that was active before.
template <class Work>
void underEverySet(Work work) {
  const KernelSet& previous = activeKernels();
  for (const KernelSet* kernels : availableKernels()) {
    SCOPED_TRACE(kernels->name);
    activateKernels(*kernels);
    work();
  }
  activateKernels(previous);
}

template <class Real>
Planes<Real> noisePlanes(std::uint64_t seed, std::size_t rows, std::size_t columns) {
  const std::vector<double> values = noise(seed, rows * columns);
  Planes<Real> result(rows, columns);
  for (std::size_t i = 0; i < values.size(); ++i) result.set(i / columns, i % columns, Real(values[i]) / Real(3.0));
  return result;
}

// 300 terms: one whole block of the sum and part of the next.
TEST(Kernels, PlainTilesHaveTheBitsOfPlainLoops) {
  constexpr std::size_t kSteps = 300;
  const auto a = noisePlanes<double>(31, kSteps, 24);
  const auto b = noisePlanes<double>(32, kSteps, 40);
  const auto before = noisePlanes<double>(33, 21, 40);
  Planes<double> expected = before;
  for (std::size_t i = 0; i < 21; ++i) {
    for (std::size_t j = 0; j < 40; ++j) {
      for (std::size_t first = 0; first < kSteps; first += kSummedRows) {
        double sum = 0.0;
        for (std::size_t s = first; s < std::min(first + kSummedRows, kSteps); ++s) sum += a.at(s, i + 2) * b.at(s, j);
        expected.set(i, j, expected.at(i, j) + sum);
      }
    }
  }
  underEverySet([&] {
    for (std::size_t height = 1; height <= 21; ++height) {
      Planes<double> target = before;
      addTileProducts({.steps = kSteps, .factor = 2, .factorCount = height, .last = 40}, a, rowsOf(b), target, 0, 0);
      for (std::size_t i = 0; i < 21; ++i) {
        for (std::size_t j = 0; j < 40; ++j) ASSERT_EQ(target.at(i, j), (i < height ? expected : before).at(i, j));
      }
    }
  });
}

TEST(Kernels, ExtendedTilesAgreeWithEachOtherAndWithExactArithmetic) {
  constexpr std::size_t kSteps = 50;
  const auto a = noisePlanes<DoubleDouble>(34, kSteps, 8);
  const auto b = noisePlanes<DoubleDouble>(35, kSteps, 16);
  std::vector<Planes<DoubleDouble>> results;
  underEverySet([&] {
    results.emplace_back(8, 16);
    addTileProducts({.steps = kSteps, .factorCount = 8, .last = 16}, a, rowsOf(b), results.back(), 0, 0);
  });
  for (std::size_t i = 0; i < 8; ++i) {
    for (std::size_t j = 0; j < 16; ++j) {
      DoubleDouble sum(0.0);
      for (std::size_t s = 0; s < kSteps; ++s) sum = sum + a.at(s, i) * b.at(s, j);
      for (const auto& result : results) {
        EXPECT_EQ(result.at(i, j).hi, results.front().at(i, j).hi);
        EXPECT_EQ(result.at(i, j).lo, results.front().at(i, j).lo);
        // 50 terms of at most 1, each rounded at 2^-104.
        EXPECT_NEAR((result.at(i, j) - sum).hi, 0.0, 50 * std::ldexp(1.0, -102));
      }
    }
  }
}

// In twice the precision from the start, after a start in doubles, and in doubles to the end.
TEST(Kernels, RegressionsHaveTheSameBitsUnderAll) {
  SeriesList walks = noiseSeries(11, 700);
  for (auto& series : walks) {
    for (std::size_t t = 1; t < series.size(); ++t) series[t] += series[t - 1];
  }
  for (const SeriesList& series : {noiseSeries(3, 200), walks, noiseSeries(11, 700)}) {
    std::vector<SeriesList> seen;
    underEverySet([&] {
      const VarEstimation estimation = estimateVar({series, {}}, {.maxLag = 7});
      ASSERT_FALSE(estimation.error);
      seen.emplace_back();
      for (const LagEstimate& estimate : estimation.lags) {
        for (const auto* lists : {&estimate.coefficients, &estimate.residuals, &estimate.covariance}) {
          seen.back().insert(seen.back().end(), lists->begin(), lists->end());
        }
        seen.back().push_back(estimate.inverseDiagonal.values);
      }
    });
    EXPECT_THAT(seen, ::testing::Each(seen.front()));
  }
}

}  // namespace
}  // namespace engine
