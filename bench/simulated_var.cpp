#include "bench/simulated_var.h"

namespace bench {
namespace {

class Uniform {
 public:
  explicit Uniform(std::uint64_t seed) : state_(seed) {}
  double next() {  // -1..1
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<double>(state_ >> 11) / 4503599627370496.0 - 1.0;
  }

 private:
  std::uint64_t state_;
};

constexpr std::size_t kWarmUp = 100;
constexpr double kLevel = 10.0;

}  // namespace

const std::vector<Workload>& workloads() {
  static const std::vector<Workload> list = {
      {"w1", 200, 3, 8}, {"w2", 2000, 8, 25}, {"w3", 100000, 20, 10}, {"w3x", 100000, 20, 25}, {"w4", 10000, 100, 10}};
  return list;
}

std::vector<std::vector<double>> simulatedVar(std::size_t length, std::size_t series, std::uint64_t seed) {
  Uniform uniform(seed);
  const double spread = 0.15 / static_cast<double>(series);
  std::vector<double> a1(series * series);
  std::vector<double> a2(series * series);
  for (std::size_t i = 0; i < series * series; ++i) {
    const bool diagonal = i % (series + 1) == 0;
    a1[i] = diagonal ? 0.4 : spread * uniform.next();
    a2[i] = diagonal ? 0.1 : spread * uniform.next();
  }
  std::vector<double> last(series), before(series), now(series);
  std::vector<std::vector<double>> result(series, std::vector<double>(length));
  for (std::size_t t = 0; t < kWarmUp + length; ++t) {
    for (std::size_t i = 0; i < series; ++i) {
      double sum = uniform.next() + uniform.next() + uniform.next() + uniform.next();
      for (std::size_t j = 0; j < series; ++j) sum += a1[i * series + j] * last[j] + a2[i * series + j] * before[j];
      now[i] = sum;
      if (t >= kWarmUp) result[i][t - kWarmUp] = kLevel + sum;
    }
    before.swap(last);
    last.swap(now);
  }
  return result;
}

}  // namespace bench
