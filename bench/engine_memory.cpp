// engine_memory WORKLOAD: peak resident set of one run of the engine beside what such a run must hold. A program of its
// own, since loading OpenBLAS alone takes some 10 MB.

#include <sys/resource.h>

#include <cstdio>
#include <string>

#include "bench/engine.h"
#include "bench/simulated_var.h"

namespace bench {
namespace {

void measure(const Workload& workload) {
  Engine engine(simulatedVar(workload.length, workload.series, 1), workload.maxLag);
  engine.run();
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const double peak = static_cast<double>(usage.ru_maxrss) / 1024.0;
  const double cell = 8.0 * static_cast<double>(workload.series) / 1048576.0;
  const double data = cell * static_cast<double>(workload.length);
  const double rows = cell * static_cast<double>(workload.length - static_cast<std::size_t>(workload.maxLag));
  const double residuals = rows * workload.maxLag;
  std::printf(
      "%-4s peak %6.1f MB: data %5.1f, residuals of all lags %6.1f, fitted values and residuals of the results ",
      workload.name.c_str(), peak, data, residuals);
  std::printf("%5.1f, rest %5.1f\n", 2 * rows, peak - data - residuals - 2 * rows);
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  for (const bench::Workload& workload : bench::workloads()) {
    if (argc > 1 && workload.name == argv[1]) bench::measure(workload);
  }
  return 0;
}
