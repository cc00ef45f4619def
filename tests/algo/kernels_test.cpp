// The wide kernels against the plainest loops, bit for bit.

#include "engine/arithmetic/kernels.h"

#include <gtest/gtest.h>

#include "engine/arithmetic/tile_products.h"
#include "tests/algo/engine_run.h"
#include "tests/engine/numeric_support.h"

namespace varmodel {
namespace {

using engine::kSummedRows;
using engine::noise;
using engine::noiseSeries;
using engine::SeriesList;

// Does the same under every set that the CPU has, and puts the set back that was active before.
template <class Work>
void underEverySet(Work work) {
  const engine::KernelSet& previous = engine::activeKernels();
  for (const engine::KernelSet* kernels : engine::availableKernels()) {
    SCOPED_TRACE(kernels->name);
    engine::activateKernels(*kernels);
    work();
  }
  engine::activateKernels(previous);
}

template <class Real>
engine::Planes<Real> noisePlanes(std::uint64_t seed, std::size_t rows, std::size_t columns) {
  const std::vector<double> values = noise(seed, rows * columns);
  engine::Planes<Real> result(rows, columns);
  for (std::size_t i = 0; i < values.size(); ++i) result.set(i / columns, i % columns, Real(values[i]) / Real(3.0));
  return result;
}

// 300 terms: one whole block of the sum and part of the next.
TEST(Kernels, PlainTilesHaveTheBitsOfPlainLoops) {
  constexpr std::size_t kSteps = 300;
  const auto a = noisePlanes<double>(31, kSteps, 24);
  const auto b = noisePlanes<double>(32, kSteps, 40);
  const auto before = noisePlanes<double>(33, 21, 40);
  engine::Planes<double> expected = before;
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
      engine::Planes<double> target = before;
      engine::addTileProducts({.steps = kSteps, .factor = 2, .factorCount = height, .last = 40}, a, rowsOf(b), target,
                              0, 0);
      for (std::size_t i = 0; i < 21; ++i) {
        for (std::size_t j = 0; j < 40; ++j) ASSERT_EQ(target.at(i, j), (i < height ? expected : before).at(i, j));
      }
    }
  });
}

TEST(Kernels, ExtendedTilesAgreeWithEachOtherAndWithExactArithmetic) {
  constexpr std::size_t kSteps = 50;
  const auto a = noisePlanes<engine::DoubleDouble>(34, kSteps, 8);
  const auto b = noisePlanes<engine::DoubleDouble>(35, kSteps, 16);
  std::vector<engine::Planes<engine::DoubleDouble>> results;
  underEverySet([&] {
    results.emplace_back(8, 16);
    engine::addTileProducts({.steps = kSteps, .factorCount = 8, .last = 16}, a, rowsOf(b), results.back(), 0, 0);
  });
  for (std::size_t i = 0; i < 8; ++i) {
    for (std::size_t j = 0; j < 16; ++j) {
      engine::DoubleDouble sum(0.0);
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
  for (const SeriesList& series : {trending, noiseSeries(11, 700)}) {
    std::vector<std::pair<std::map<std::int32_t, SeriesList>, SeriesList>> seen;
    underEverySet([&] {
      EngineRun run(series, 1, 7);
      ASSERT_EQ(run.start(), 0) << run.trace;
      seen.emplace_back(run.algo.residualsByLag, SeriesList{});
      for (const EquationResult& result : run.results) {
        seen.back().second.push_back(result.coefficients[0]);
        seen.back().second.push_back(result.standardErrors[0]);
      }
    });
    EXPECT_THAT(seen, ::testing::Each(seen.front()));
  }
}

TEST(DoubleDouble, KeepsWhatDoublesLose) {
  const engine::DoubleDouble third = engine::DoubleDouble(1.0) / engine::DoubleDouble(3.0);
  EXPECT_NEAR((third * engine::DoubleDouble(3.0) - engine::DoubleDouble(1.0)).hi, 0.0, std::ldexp(1.0, -104));
  EXPECT_EQ((engine::DoubleDouble(1e16) + engine::DoubleDouble(1.0) - engine::DoubleDouble(1e16)).hi, 1.0);
  const engine::DoubleDouble root = engine::squareRoot(engine::DoubleDouble(2.0));
  EXPECT_NEAR((root * root - engine::DoubleDouble(2.0)).hi, 0.0, std::ldexp(1.0, -102));
  const double e = 134217729.0 / 134217728.0;  // (1 + 2^-27)^2 = 1 + 2^-26 + 2^-54
  EXPECT_EQ(engine::exactProduct(e, e).lo, std::ldexp(1.0, -54));
}

}  // namespace
}  // namespace varmodel
