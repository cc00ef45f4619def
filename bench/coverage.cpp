// How often forecast limits hold, by simulation: the engine's beside those that leave estimation out.
//
// Usage: coverage [SAMPLES]   prints the table of docs/accuracy.md, one line a design

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "bench/coverage_design.h"
#include "engine/dynamics/forecast_limits.h"

namespace {

constexpr std::size_t kHorizons[] = {1, 4, 8};
constexpr std::size_t kLongest = 8;
constexpr double kLevel = 95.0;
constexpr std::size_t kRules = 3;       // plain with the normal quantile, plain with Student's t, the engine's
constexpr double kNormalDegrees = 1e9;  // Student's t is normal there

struct Tally {
  double covered = 0.0;  // mean over the samples of the share of the series that is covered
  double squares = 0.0;
  double width = 0.0;
};

using Tallies = Tally[kRules][3];

engine::KnownTerms termsOf(const bench::Design& design) {
  return {design.terms == "TREND" ? 2u : 1u, design.terms == "SEASONAL" ? 4u : 1u};
}

void count(const bench::Sample& sample, const engine::Matrix& values, const engine::Matrix& errors, double degrees,
           Tally (&tallies)[3]) {
  const engine::ForecastLimits limits = engine::studentLimits(values, errors, degrees, kLevel);
  for (std::size_t c = 0; c < 3; ++c) {
    const std::size_t h = kHorizons[c] - 1;
    double share = 0.0;
    for (std::size_t i = 0; i < values.columns; ++i) {
      const double actual = sample.future[i][h];
      const double part = 1.0 / static_cast<double>(values.columns);
      share += limits.lower(h, i) <= actual && actual <= limits.upper(h, i) ? part : 0.0;
      tallies[c].width += (limits.upper(h, i) - limits.lower(h, i)) * part;
    }
    tallies[c].covered += share;
    tallies[c].squares += share * share;
  }
}

void countSample(const bench::Design& design, const bench::Sample& sample, Tallies& tallies) {
  const engine::FittedVar fit = bench::fitted(sample, design.fittedLag);
  const engine::VarSample data{sample.observed, sample.known};
  const engine::KnownTerms terms = termsOf(design);
  const auto forecast =
      engine::analyticForecast(fit, data, kLongest, design.terms == "EXOGENOUS" ? nullptr : &terms).value();
  const engine::Matrix plain = engine::standardErrors(
      engine::shockErrors(engine::lagMatrices(fit), engine::residualCovariance(fit), kLongest).value());
  count(sample, forecast.values, plain, kNormalDegrees, tallies[0]);
  count(sample, forecast.values, plain, forecast.degreesOfFreedom, tallies[1]);
  count(sample, forecast.values, forecast.standardErrors, forecast.degreesOfFreedom, tallies[2]);
}

// Three shares in percent, and the largest of their Monte Carlo errors.
void printShares(const Tally (&tallies)[3], double samples) {
  double largest = 0.0;
  for (const Tally& tally : tallies) {
    const double share = tally.covered / samples;
    largest = std::fmax(largest, std::sqrt((tally.squares / samples - share * share) / samples));
    std::printf(" %.1f", 100.0 * share);
  }
  std::printf(" ± %.1f |", 100.0 * largest);
}

void printDesign(const bench::Design& design, const Tallies& tallies, double samples) {
  std::printf("| %s |", design.name.c_str());
  for (const auto& rule : tallies) printShares(rule, samples);
  for (std::size_t c = 0; c < 3; ++c) std::printf(" %.2f", tallies[kRules - 1][c].width / tallies[0][c].width);
  std::printf(" |\n");
}

void measure(const bench::Design& design, std::uint64_t samples) {
  Tallies tallies{};
  for (std::uint64_t s = 0; s < samples; ++s) {
    engine::RandomStream random(20261121, s);
    countSample(design, bench::simulated(design, kLongest, random), tallies);
  }
  printDesign(design, tallies, static_cast<double>(samples));
}

std::vector<bench::Design> designs() {
  return {{"root ≤ .7", 0.7},
          {"root .9", 0.9},
          {"root .97", 0.97},
          {"root 1", 1.0},
          {"root .97, t(5) errors", 0.97, 60, 2, "CONSTANT", bench::Errors::heavyTails},
          {"root .97, p fitted 4", 0.97, 60, 4},
          {"root .97, TREND", 0.97, 60, 2, "TREND"},
          {"root ≤ .7, TREND", 0.7, 60, 2, "TREND"},
          {"root .97, SEASONAL", 0.97, 60, 2, "SEASONAL"},
          {"root .97, EXOGENOUS", 0.97, 60, 2, "EXOGENOUS"},
          {"root ≤ .7, EXOGENOUS", 0.7, 60, 2, "EXOGENOUS"},
          {"root .97, n = 30", 0.97, 30},
          {"root ≤ .7, n = 30", 0.7, 30},
          {"root .97, n = 120", 0.97, 120},
          {"root 1, n = 120", 1.0, 120}};
}

}  // namespace

int main(int argc, char** argv) {
  const std::uint64_t samples = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 10000;
  std::printf("| model | plain, normal | plain, t | engine | width, engine / plain |\n|---|---|---|---|---|\n");
  for (const bench::Design& design : designs()) measure(design, samples);
}
