// Times of bootstrap and back-test, and of one fit to compare with: processor seconds of one thread, the least of five
// runs.
//
// Usage: dynamics_bench   prints NAME SECONDS lines

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <limits>

#include "bench/coverage_design.h"
#include "bench/simulated_var.h"
#include "engine/dynamics/backtest.h"
#include "engine/dynamics/bootstrap_bands.h"

namespace {

constexpr int kRuns = 5;

void report(const char* name, int repeats, const std::function<void()>& work) {
  double least = std::numeric_limits<double>::infinity();
  for (int run = 0; run < kRuns; ++run) {
    const std::clock_t start = std::clock();
    for (int i = 0; i < repeats; ++i) work();
    least = std::min(least, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / repeats);
  }
  std::printf("%-60s %.5f\n", name, least);
  std::fflush(stdout);
}

bench::Sample sampleOf(std::size_t length, std::size_t series) {
  bench::Sample sample;
  sample.observed = bench::simulatedVar(length, series, 1);
  return sample;
}

void bootstrap(const bench::Sample& sample, std::size_t lag, std::size_t replications, std::size_t horizon) {
  const engine::FittedVar fit = bench::fitted(sample, lag);
  const engine::VarSample data{sample.observed, sample.known};
  const engine::KnownTerms constant;
  const auto model = engine::correctedModel(fit, data, &constant).value();
  engine::BootstrapDraws draws(engine::resamplingPlan(fit, data, model).value(), {.replications = replications});
  draws.run();
  engine::responseBands(draws, {}, horizon, {}).value();
}

}  // namespace

int main() {
  const bench::Sample small = sampleOf(200, 3);
  const bench::Sample medium = sampleOf(400, 8);
  const bench::Sample large = sampleOf(2000, 8);
  report("bootstrap: 10,000 of K = 3, p = 4, T = 200, to horizon 20", 1, [&] { bootstrap(small, 4, 10000, 20); });
  report("bootstrap: 1,000 of K = 8, p = 4, T = 400, to horizon 40", 1, [&] { bootstrap(medium, 4, 1000, 40); });
  report("one fit: T = 2,000, K = 8, p = 8", 100, [&] { bench::fitted(large, 8); });
  const engine::FittedVar fit = bench::fitted(large, 8);
  const engine::VarSample data{large.observed, large.known};
  report("back-test: 200 origins of it, point forecasts", 10,
         [&] { engine::backtest(fit, data, {.origins = 200, .horizon = 4, .limits = false}); });
  report("back-test: 200 origins of it, with limits", 1,
         [&] { engine::backtest(fit, data, {.origins = 200, .horizon = 4}); });
}
