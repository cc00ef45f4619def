// Choosing the lag and fitting it, as each procedure does: medians of processor seconds of one thread.
//
// Usage: selection_bench [WORKLOAD ..]   prints a line a workload

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>

#include "bench/engine.h"
#include "bench/simulated_var.h"
#include "procedures/vardynamics/analysis/model.h"

namespace bench {
namespace {

constexpr int kRuns = 7;

double secondsOf(const std::function<void()>& work) {
  const std::clock_t start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

vardynamics::ModelSettings settingsOf(const Workload& workload) {
  vardynamics::ModelSettings settings;
  for (std::size_t i = 0; i < workload.series; ++i) settings.endogenous.names.push_back("y" + std::to_string(i));
  settings.maxLag = workload.maxLag;
  settings.criterion = vardynamics::Criterion::bic;
  return settings;
}

void compare(const Workload& workload) {
  const Series series = simulatedVar(workload.length, workload.series, 1);
  Engine engine(series, workload.maxLag);
  const vardynamics::ModelSettings settings = settingsOf(workload);
  const vardynamics::Sample sample{.cases = {0, workload.length - 1}, .endogenous = series};
  const int repeats = workload.length > 10000 ? 1 : 20;
  std::vector<double> varmodel;
  std::vector<double> vardynamics;
  for (int run = 0; run <= kRuns; ++run) {
    const double one = secondsOf([&] {
      for (int i = 0; i < repeats; ++i) engine.run();
    });
    const double other = secondsOf([&] {
      for (int i = 0; i < repeats; ++i) vardynamics::estimateModel({settings, sample, {}}, 95);
    });
    if (run == 0) continue;  // warm-up
    varmodel.push_back(one / repeats);
    vardynamics.push_back(other / repeats);
  }
  std::printf("%-4s T=%-7zu K=%-4zu P=%-3d VARMODEL %9.5f s  VARDYNAMICS %9.5f s  ratio %5.2f\n", workload.name.c_str(),
              workload.length, workload.series, workload.maxLag, median(varmodel), median(vardynamics),
              median(vardynamics) / median(varmodel));
  std::fflush(stdout);
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  for (const bench::Workload& workload : bench::workloads()) {
    const bool wanted =
        argc < 2 || std::any_of(argv + 1, argv + argc, [&](const char* name) { return name == workload.name; });
    if (wanted) bench::compare(workload);
  }
  return 0;
}
