#include "bench/hostile_samples.h"

#include <cmath>

#include "bench/simulated_var.h"
#include "tests/algo/engine_run.h"
#include "tests/engine/numeric_support.h"

namespace bench {
namespace {

constexpr std::size_t kLength = 120;
constexpr std::int32_t kLag = 3;

std::vector<double> noise(std::uint64_t seed, std::size_t length = kLength) {
  return engine::noise(seed * 7919 + 17, length);
}

std::string text(double value) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%g", value);
  return buffer;
}

class Collection {
 public:
  Sample& add(const std::string& family, const std::string& name, std::size_t series = 3,
              std::size_t length = kLength) {
    seed_ += 10;
    Sample sample{family, name, {}, {}, kLag};
    for (std::size_t i = 0; i < series; ++i) sample.endogenous.push_back(noise(seed_ + i, length));
    samples_.push_back(std::move(sample));
    return samples_.back();
  }
  Sample& addSimulated(const std::string& family, const std::string& name, std::size_t length, std::size_t series,
                       std::int32_t lag) {
    samples_.push_back({family, name, simulatedVar(length, series, ++seed_), {}, lag});
    return samples_.back();
  }
  std::vector<double> series(std::size_t length = kLength) { return noise(++seed_ + 100000, length); }
  std::vector<Sample> take() { return std::move(samples_); }

 private:
  std::uint64_t seed_ = 0;
  std::vector<Sample> samples_;
};

void addOutliers(Collection& all) {
  for (const double size : {1e4, -1e8, 1e12, 1e16, -1e18, 1e20, 1e30, 1e100}) {
    for (const std::size_t row : {0u, 1u, 60u, 117u, 118u, 119u}) {
      all.add("outlier, endogenous", text(size) + " in row " + std::to_string(row)).endogenous[0][row] = size;
    }
    for (const std::size_t row : {3u, 60u, 119u}) {
      Sample& sample = all.add("outlier, exogenous", text(size) + " in row " + std::to_string(row));
      sample.exogenous = {all.series()};
      sample.exogenous[0][row] = size;
    }
  }
  Sample& twice = all.add("outlier, endogenous", "two series, far apart");
  twice.endogenous[0][30] = 1e10;
  twice.endogenous[1][80] = 1e14;
}

void addFillCodes(Collection& all) {
  for (const double code : {-9999.0, -1e8, 1e20, 1e30, 1.7e308}) {
    Sample& sample = all.add("fill codes in unused rows", text(code));
    sample.exogenous = {all.series(), all.series()};
    for (std::size_t row = 0; row < 3; ++row) sample.exogenous[1][row] = code;
  }
}

void scale(std::vector<double>& series, double factor) {
  for (double& value : series) value *= factor;
}

void addUnits(Collection& all) {
  for (const double unit : {1e-300, 1e-200, 1e-150, 1e-100, 1e-20, 1e20, 1e100, 1e150, 1e200, 1e300}) {
    Sample& sample = all.add("units, exogenous", text(unit));
    sample.exogenous = {all.series(), all.series()};
    scale(sample.exogenous[0], unit);
  }
  for (const double unit : {1e-300, 1e-160, 1e-3, 1e6, 1e20, 1e50, 1e100, 1e160, 1e300}) {
    Sample& sample = all.add("units, endogenous", text(unit));
    scale(sample.endogenous[1], unit);
  }
  Sample& apart = all.add("units, endogenous", "1e-100 and 1e100");
  scale(apart.endogenous[0], 1e-100);
  scale(apart.endogenous[1], 1e100);
}

void shift(std::vector<double>& series, double level) {
  for (double& value : series) value += level;
}

void addLevels(Collection& all) {
  for (const double level : {1e3, 1e5, 1e6, 1e7, 1e8, -1e9, 1e10, 1e12, 1e14}) {
    shift(all.add("levels", "one series at " + text(level)).endogenous[1], level);
    Sample& every = all.add("levels", "all series at " + text(level));
    for (auto& series : every.endogenous) shift(series, level);
    Sample& exogenous = all.add("levels", "exogenous at " + text(level));
    exogenous.exogenous = {all.series()};
    shift(exogenous.exogenous[0], level);
  }
  for (const double level : {3.7, 1e10}) {
    all.add("without spread", "exogenous " + text(level)).exogenous = {std::vector<double>(kLength, level)};
    all.add("without spread", "endogenous " + text(level)).endogenous[2].assign(kLength, level);
  }
  Sample& rounded = all.add("without spread", "0.1 + 0.2 or 0.3");
  rounded.exogenous = {std::vector<double>(kLength, 0.3)};
  for (std::size_t t = 0; t < kLength; t += 3) rounded.exogenous[0][t] = 0.1 + 0.2;
}

// a + share * b, value by value.
std::vector<double> near(const std::vector<double>& a, double share, const std::vector<double>& b) {
  std::vector<double> result = a;
  for (std::size_t t = 0; t < a.size(); ++t) result[t] += share * b[t];
  return result;
}

void addCollinear(Collection& all) {
  for (const double share : {1e-2, 1e-4, 1e-5, 1e-6, 3e-7, 1e-7, 3e-8, 1e-8, 1e-9, 1e-12}) {
    Sample& exogenous = all.add("nearly collinear", "exogenous pair " + text(share));
    exogenous.exogenous = {all.series()};
    exogenous.exogenous.push_back(near(exogenous.exogenous[0], share, all.series()));
    Sample& endogenous = all.add("nearly collinear", "endogenous pair " + text(share));
    endogenous.endogenous[1] = near(endogenous.endogenous[0], share, endogenous.endogenous[1]);
    scale(endogenous.endogenous[1], 1e3);
    Sample& total = all.add("nearly collinear", "total " + text(share));
    total.exogenous = {all.series(), all.series()};
    total.exogenous.push_back(near(near(total.exogenous[0], 1.0, total.exogenous[1]), share, all.series()));
    shift(total.exogenous[2], 100.0);
  }
}

void addExactlyCollinear(Collection& all) {
  Sample& total = all.add("exactly collinear", "total");
  total.endogenous[2] = near(total.endogenous[0], 1.0, total.endogenous[1]);
  Sample& copy = all.add("exactly collinear", "copy");
  copy.endogenous[2] = copy.endogenous[0];
  Sample& affine = all.add("exactly collinear", "affine copy");
  affine.endogenous[2] = affine.endogenous[0];
  scale(affine.endogenous[2], 1.8);
  shift(affine.endogenous[2], 32.0);
  for (const std::size_t count : {3u, 4u}) {
    Sample& seasons = all.add(count == 4 ? "exactly collinear" : "dummies", std::to_string(count) + " of 4 seasons");
    for (std::size_t season = 0; season < count; ++season) {
      seasons.exogenous.emplace_back(kLength);
      for (std::size_t t = season; t < kLength; t += 4) seasons.exogenous.back()[t] = 1.0;
    }
  }
  all.add("dummies", "one step").exogenous = {std::vector<double>(kLength)};
  Sample& step = all.add("dummies", "one impulse at a level of 1e6");
  step.exogenous = {std::vector<double>(kLength, 1e6)};
  step.exogenous[0][77] = 1e6 + 1;
}

void addTrends(Collection& all) {
  for (int seed = 0; seed < 5; ++seed) {
    Sample& walk = all.add("trends", "random walks " + std::to_string(seed));
    for (auto& series : walk.endogenous) {
      for (std::size_t t = 1; t < kLength; ++t) series[t] += series[t - 1];
    }
    Sample& twice = all.add("trends", "walks summed again " + std::to_string(seed));
    for (auto& series : twice.endogenous) {
      for (int pass = 0; pass < 2; ++pass) {
        for (std::size_t t = 1; t < kLength; ++t) series[t] += series[t - 1];
      }
    }
    Sample& growing = all.add("trends", "growing 5 % a period " + std::to_string(seed));
    for (auto& series : growing.endogenous) {
      for (std::size_t t = 0; t < kLength; ++t)
        series[t] = (100.0 + series[t]) * std::exp(0.05 * static_cast<double>(t));
    }
  }
  for (const int degree : {1, 2, 3, 5}) {
    Sample& sample = all.add("trends", "powers of the row up to " + std::to_string(degree));
    for (int power = 1; power <= degree; ++power) {
      sample.exogenous.emplace_back(kLength);
      for (std::size_t t = 0; t < kLength; ++t)
        sample.exogenous.back()[t] = std::pow(static_cast<double>(t + 1), power);
    }
  }
}

void addMacro(Collection& all) {
  for (const std::int32_t lag : {2, 8}) {
    for (const double level : {0.0, 1e5}) {
      Sample& sample = all.add("macro series in levels", "lag " + std::to_string(lag) + ", plus " + text(level), 0);
      sample.maxLag = lag;
      for (const char* name : {"realgdp", "realcons", "realinv"}) {
        sample.endogenous.push_back(varmodel::macroSeries().at(name));
        shift(sample.endogenous.back(), level);
      }
      if (lag == 2) sample.exogenous = {varmodel::macroSeries().at("unemp")};
    }
  }
}

// Large enough to be computed in doubles as long as these have the digits.
void addLong(Collection& all) {
  constexpr std::size_t kLong = 3000;
  for (int seed = 0; seed < 4; ++seed) {
    const std::string number = " " + std::to_string(seed);
    all.addSimulated("long series", "stationary" + number, kLong, 6, 4);
    Sample& units = all.addSimulated("long series", "units 1e13, 1e-2" + number, kLong, 6, 4);
    scale(units.endogenous[0], 1e13);
    scale(units.endogenous[1], 1e-2);
    Sample& level = all.addSimulated("long series", "one level of 1e8" + number, kLong, 6, 4);
    scale(level.endogenous[1], 1e4);
    shift(level.endogenous[1], 1e8);
    Sample& walk = all.addSimulated("long series", "random walks" + number, kLong, 6, 3);
    for (auto& series : walk.endogenous) {
      for (std::size_t t = 1; t < kLong; ++t) series[t] += series[t - 1] - 10.0;
    }
  }
  for (const double share : {0.1, 0.06, 0.04, 0.03, 0.02}) {
    Sample& pair = all.addSimulated("long series", "exogenous pair " + text(share), kLong, 6, 4);
    pair.exogenous = {all.series(kLong)};
    pair.exogenous.push_back(near(pair.exogenous[0], share, all.series(kLong)));
  }
  for (const double size : {1e6, 1e12, 1e20}) {
    for (const std::size_t row : {0u, 1500u, 2998u}) {
      Sample& sample =
          all.addSimulated("long series", "outlier " + text(size) + " in row " + std::to_string(row), kLong, 6, 4);
      sample.endogenous[2][row] = size;
    }
  }
}

}  // namespace

std::vector<Sample> hostileSamples() {
  Collection all;
  addOutliers(all);
  addFillCodes(all);
  addUnits(all);
  addLevels(all);
  addCollinear(all);
  addExactlyCollinear(all);
  addTrends(all);
  addMacro(all);
  addLong(all);
  return all.take();
}

}  // namespace bench
