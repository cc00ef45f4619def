// The wide kernels against the plainest loops, bit for bit.

#include "algo/kernels.h"

#include <gtest/gtest.h>

#include "algo/tile_products.h"
#include "tests/algo/engine_run.h"
#include "tests/algo/numeric_support.h"

namespace varmodel {
namespace {

// Puts the set back that was active before.
class KernelChoice {
 public:
  explicit KernelChoice(const KernelSet& kernels) : previous_(activeKernels()) { activateKernels(kernels); }
  KernelChoice(const KernelChoice&) = delete;
  KernelChoice& operator=(const KernelChoice&) = delete;
  ~KernelChoice() { activateKernels(previous_); }

 private:
  const KernelSet& previous_;
};

template <class Real>
Planes<Real> noisePlanes(std::uint64_t seed, std::size_t rows, std::size_t columns) {
  Noise source(seed);
  Planes<Real> result(rows, columns);
  for (std::size_t i = 0; i < rows; ++i) {
    for (std::size_t j = 0; j < columns; ++j) {
      if constexpr (Planes<Real>::kExtended) {
        result.set(i, j, Real(source.next(), std::ldexp(source.next(), -54)));
      } else {
        result.set(i, j, source.next());
      }
    }
  }
  return result;
}

double plainSum(const Planes<double>& a, const Planes<double>& b, std::size_t i, std::size_t j, std::size_t first,
                std::size_t last) {
  double sum = 0.0;
  for (std::size_t s = first; s < last; ++s) sum += a.at(s, i) * b.at(s, j);
  return sum;
}

// 300 terms: one whole block of the sum and part of the next.
TEST(Kernels, PlainTilesHaveTheBitsOfPlainLoops) {
  constexpr std::size_t kSteps = 300;
  const auto a = noisePlanes<double>(31, kSteps, 24);
  const auto b = noisePlanes<double>(32, kSteps, 40);
  for (const KernelSet* kernels : availableKernels()) {
    SCOPED_TRACE(kernels->name);
    const KernelChoice choice(*kernels);
    for (std::size_t height = 1; height <= 21; ++height) {
      Planes<double> target = noisePlanes<double>(33, height, 40);
      const Planes<double> before = target;
      addTileProducts({.steps = kSteps, .factor = 2, .factorCount = height, .last = 40}, a, rowsOf(b), target, 0, 0);
      for (std::size_t i = 0; i < height; ++i) {
        for (std::size_t j = 0; j < 40; ++j) {
          const double first = before.at(i, j) + plainSum(a, b, i + 2, j, 0, kSummedRows);
          ASSERT_EQ(target.at(i, j), first + plainSum(a, b, i + 2, j, kSummedRows, kSteps)) << i << ' ' << j;
        }
      }
    }
  }
}

TEST(Kernels, ExtendedTilesAgreeWithEachOtherAndWithExactArithmetic) {
  constexpr std::size_t kSteps = 50;
  const auto a = noisePlanes<DoubleDouble>(34, kSteps, 8);
  const auto b = noisePlanes<DoubleDouble>(35, kSteps, 16);
  std::vector<Planes<DoubleDouble>> results;
  for (const KernelSet* kernels : availableKernels()) {
    const KernelChoice choice(*kernels);
    results.emplace_back(8, 16);
    addTileProducts({.steps = kSteps, .factorCount = 8, .last = 16}, a, rowsOf(b), results.back(), 0, 0);
  }
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

// Two runs of the engine, one short on digits so that it takes twice the precision, under every set.
TEST(Kernels, TheEngineGivesTheSameBitsUnderAll) {
  SeriesList trending = {macroSeries().at("realgdp"), macroSeries().at("realcons"), macroSeries().at("realinv")};
  SeriesList stationary;
  for (std::uint64_t seed = 41; seed < 52; ++seed) stationary.push_back(noise(seed, 700));
  for (const SeriesList& series : {trending, stationary}) {
    std::vector<std::vector<EquationResult>> results;
    std::vector<std::map<std::int32_t, SeriesList>> residuals;
    for (const KernelSet* kernels : availableKernels()) {
      const KernelChoice choice(*kernels);
      EngineRun run(series, 1, 7);
      ASSERT_EQ(run.start(), 0) << run.trace;
      results.push_back(run.results);
      residuals.push_back(run.algo.residualsByLag);
    }
    for (std::size_t k = 1; k < results.size(); ++k) {
      EXPECT_EQ(residuals[k], residuals[0]);
      for (std::size_t i = 0; i < series.size(); ++i) {
        EXPECT_EQ(results[k][i].coefficients, results[0][i].coefficients);
        EXPECT_EQ(results[k][i].standardErrors, results[0][i].standardErrors);
      }
    }
  }
}

TEST(DoubleDouble, KeepsWhatDoublesLose) {
  const DoubleDouble third = DoubleDouble(1.0) / DoubleDouble(3.0);
  EXPECT_NEAR((third * DoubleDouble(3.0) - DoubleDouble(1.0)).hi, 0.0, std::ldexp(1.0, -104));
  EXPECT_EQ((DoubleDouble(1e16) + DoubleDouble(1.0) - DoubleDouble(1e16)).hi, 1.0);
  const DoubleDouble root = squareRoot(DoubleDouble(2.0));
  EXPECT_NEAR((root * root - DoubleDouble(2.0)).hi, 0.0, std::ldexp(1.0, -102));
  const double e = 134217729.0 / 134217728.0;  // (1 + 2^-27)^2 = 1 + 2^-26 + 2^-54
  EXPECT_EQ(exactProduct(e, e).lo, std::ldexp(1.0, -54));
}

}  // namespace
}  // namespace varmodel
