// The engine beside the OpenBLAS pipeline on the simulated workloads, and how its time grows.
//
//   engine_bench compare [WORKLOAD ..]   medians of both, their ratio, and how far coefficients and residuals differ
//   engine_bench grow                    CSV: what,value,seconds for MAXLAG 1..25 and T 1e4..1e6

#include <cblas.h>
#include <malloc.h>
#include <time.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "bench/engine.h"
#include "bench/openblas_pipeline.h"
#include "bench/simulated_var.h"
#include "engine/arithmetic/kernels.h"

namespace bench {
namespace {

// Processor time: both sides use one thread, and other programs on the machine
// do not count.
double secondsOf(const auto& work) {
  const auto now = [] {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
  };
  const double start = now();
  work();
  return now() - start;
}

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

double worstDifference(const varmodel::VARAlgo& algo, const std::vector<PipelineFit>& fits) {
  double worst = 0.0;
  for (const auto& [lag, coefficients] : algo.coefficientsByLag) {
    const PipelineFit& fit = fits[static_cast<std::size_t>(lag) - 1];
    std::size_t place = 0;
    for (const auto& equation : coefficients) {
      for (const double value : equation) worst = std::max(worst, std::abs(value - fit.coefficients[place++]));
    }
    place = 0;
    for (const auto& equation : algo.residualsByLag.at(lag)) {
      for (const double value : equation) worst = std::max(worst, std::abs(value - fit.residuals[place++]));
    }
  }
  return worst;
}

void compare(const Workload& workload) {
  const Series series = simulatedVar(workload.length, workload.series, 1);
  const auto lags = static_cast<std::size_t>(workload.maxLag);
  const std::size_t repetitions = workload.length * workload.series * lags > 2000000 ? 5 : 21;
  Engine engine(series, workload.maxLag);
  std::vector<PipelineFit> fits;
  std::vector<double> ours;
  std::vector<double> theirs;
  for (std::size_t r = 0; r <= repetitions; ++r) {
    const double engineTime = secondsOf([&] { engine.run(); });
    fits = {};
    const double pipelineTime = secondsOf([&] { fits = fitWithOpenBlas(series, lags); });
    if (r == 0) continue;  // warm-up
    ours.push_back(engineTime);
    theirs.push_back(pipelineTime);
  }
  std::printf("%-4s T=%-7zu K=%-4zu P=%-3d engine %9.5f s  OpenBLAS %9.5f s  ratio %5.2f  worst difference %.1e\n",
              workload.name.c_str(), workload.length, workload.series, workload.maxLag, median(ours), median(theirs),
              median(ours) / median(theirs), worstDifference(engine.algo(), fits));
}

double medianEngineTime(std::size_t length, std::size_t series, std::int32_t maxLag) {
  Engine engine(simulatedVar(length, series, 1), maxLag);
  std::vector<double> times;
  for (int r = 0; r < 3; ++r) times.push_back(secondsOf([&] { engine.run(); }));
  return median(times);
}

// The allocator keeps what a run returns, as it does for small runs anyway: else the kernel hands out every page of
// long series anew, which takes about as long as the engine's work and changes with the machine.
void keepMemory() {
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
}

void grow() {
  keepMemory();
  std::puts("what,value,seconds");
  for (const std::int32_t lag : {1, 2, 4, 6, 8, 10, 13, 16, 19, 22, 25}) {
    std::printf("P,%d,%.6f\n", lag, medianEngineTime(50000, 10, lag));
  }
  for (const std::size_t length : {10000u, 30000u, 100000u, 300000u, 1000000u}) {
    std::printf("T,%zu,%.6f\n", static_cast<std::size_t>(length), medianEngineTime(length, 5, 8));
  }
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  openblas_set_num_threads(1);
  const std::string mode = argc > 1 ? argv[1] : "compare";
  if (mode == "grow") {
    bench::grow();
    return 0;
  }
  std::printf("kernels: %s\n", engine::activeKernels().name);
  for (const bench::Workload& workload : bench::workloads()) {
    const bool wanted =
        argc < 3 || std::any_of(argv + 2, argv + argc, [&](const char* name) { return name == workload.name; });
    if (!wanted) continue;
    bench::compare(workload);
  }
  return 0;
}
