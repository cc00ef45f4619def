// How often the bands of responses and shares hold, by simulation: horizons 0 to 20, orthogonal shocks.
//
// Usage: band_coverage [SAMPLES] [PART PARTS]   prints the table of docs/accuracy.md, or a part of it

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "bench/coverage_design.h"
#include "engine/dynamics/bootstrap_bands.h"
#include "engine/dynamics/decompositions.h"
#include "engine/regression/inference.h"

namespace {

constexpr std::size_t kHorizon = 20;
constexpr std::array<std::size_t, 4> kShown = {0, 4, 12, 20};
const std::vector<double> kLevels = {95.0, 68.0};
constexpr double kNormalDegrees = 1e9;
constexpr std::size_t kReplications = 2000;      // of the default, whose bands of whole paths need as many
constexpr std::size_t kOtherReplications = 500;  // of its rivals

// The mean over the samples of a share of cells.
struct Mean {
  void add(double share) {
    sum += share;
    squares += share * share;
    ++count;
  }
  double percent() const { return 100.0 * sum / count; }
  double error() const { return 100.0 * std::sqrt((squares / count - std::pow(sum / count, 2)) / count); }
  double sum = 0.0;
  double squares = 0.0;
  double count = 0.0;
};

struct Coverage {
  std::array<Mean, kHorizon + 1> at95;
  std::array<Mean, kHorizon + 1> at68;
  Mean wholePath;
};

// Responses that are zero by the order of the shocks say nothing at horizon 0.
bool isTold(const engine::Matrix& truth, std::size_t i, std::size_t j, std::size_t h) {
  return h > 0 || j <= i || truth(i, j) != 0.0;
}

void count(const engine::Band& band, const engine::Responses& truth, std::array<Mean, kHorizon + 1>& tallies,
           Mean* wholePath) {
  const std::size_t k = truth[0].rows;
  engine::Matrix held(k, k);
  for (std::size_t h = 0; h <= kHorizon; ++h) {
    double covered = 0.0;
    double cells = 0.0;
    for (std::size_t i = 0; i < k; ++i) {
      for (std::size_t j = 0; j < k; ++j) {
        if (!isTold(truth[h], i, j, h)) continue;
        const bool inside = band.lower[h](i, j) <= truth[h](i, j) && truth[h](i, j) <= band.upper[h](i, j);
        covered += inside ? 1.0 : 0.0;
        cells += 1.0;
        if (!inside) held(i, j) = 1.0;
      }
    }
    tallies[h].add(covered / cells);
  }
  double failed = 0.0;
  for (const double value : held.values) failed += value;
  if (wholePath != nullptr) wholePath->add(1.0 - failed / static_cast<double>(k * k));
}

void countShares(const engine::Band& band, const std::vector<engine::Matrix>& truth, std::array<Mean, 4>& tallies) {
  for (std::size_t c = 0; c < kShown.size(); ++c) {
    const std::size_t h = std::max<std::size_t>(kShown[c], 1) - 1;
    double covered = 0.0;
    double cells = 0.0;
    for (std::size_t cell = 0; cell < truth[h].values.size(); ++cell) {
      const double share = truth[h].values[cell];
      if (share < 0.05 || share > 0.95) continue;
      covered += band.lower[h].values[cell] <= share && share <= band.upper[h].values[cell] ? 1.0 : 0.0;
      cells += 1.0;
    }
    if (cells > 0.0) tallies[c].add(covered / cells);
  }
}

engine::Band deltaBand(const engine::FittedVar& fit, double level) {
  const engine::Responses centre = engine::impulseResponses(fit, {}, kHorizon).value();
  const engine::Responses errors = engine::responseErrors(fit, {}, kHorizon).value();
  const double width = engine::studentLimit(level, kNormalDegrees);
  engine::Band band{level, centre, centre};
  for (std::size_t h = 0; h <= kHorizon; ++h) {
    for (std::size_t i = 0; i < centre[h].values.size(); ++i) {
      band.lower[h].values[i] -= width * errors[h].values[i];
      band.upper[h].values[i] += width * errors[h].values[i];
    }
  }
  return band;
}

struct Results {
  std::map<std::string, Coverage> byMethod;
  std::array<Mean, 4> shares;
  Mean simultaneous;
};

class Study {
 public:
  explicit Study(const bench::Design& design) : design_(design) {
    const bench::TrueModel model = bench::trueModel(design);
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < design.series; ++i) order.push_back(i);
    const auto phi = engine::movingAverage(model.lags, design.series, kHorizon + 1);
    truth_ = engine::responsesTo(phi, {engine::orderedCholesky(model.covariance, order).value()});
    shares_ = engine::varianceShares(truth_);
  }

  void add(std::uint64_t number) {
    engine::RandomStream random(20261122, number);
    const bench::Sample sample = bench::simulated(design_, 1, random);
    const engine::FittedVar fit = bench::fitted(sample, design_.fittedLag);
    const engine::VarSample data{sample.observed, sample.known};
    const engine::KnownTerms constant;
    const auto corrected = engine::correctedModel(fit, data, &constant).value();
    const engine::CorrectedModel plain{engine::Matrix(design_.series, design_.series * fit.lag), 0.0, fit,
                                       engine::residualCovariance(fit)};
    Coverage& delta = results.byMethod["delta method"];
    count(deltaBand(fit, 95.0), truth_, delta.at95, &delta.wholePath);
    count(deltaBand(fit, 68.0), truth_, delta.at68, nullptr);
    bootstrap("uncorrected", engine::resamplingPlan(fit, data, plain).value(), engine::Resample::residual, number);
    bootstrap("WILD", engine::resamplingPlan(fit, data, corrected).value(), engine::Resample::wild, number);
    bootstrap("default", engine::resamplingPlan(fit, data, corrected).value(), engine::Resample::residual, number);
  }

  void print() const {
    for (const char* method : {"delta method", "uncorrected", "default", "WILD"}) {
      printRow(method, results.byMethod.at(method));
    }
    const Mean& path = results.simultaneous;
    std::printf("| | SIMULTANEOUS | | | %.0f ± %.1f |\n", path.percent(), path.error());
    std::printf("| | default, shares |");
    for (const Mean& mean : results.shares) std::printf(" %.0f", mean.percent());
    std::printf(" | | |\n");
    std::fflush(stdout);
  }

 private:
  void bootstrap(const std::string& method, engine::ResamplingPlan plan, engine::Resample resample,
                 std::uint64_t number) {
    const bool isDefault = method == "default";
    engine::BootstrapDraws draws(
        std::move(plan),
        {.replications = isDefault ? kReplications : kOtherReplications, .seed = 1000 + number, .resample = resample});
    draws.run();
    const auto bands = engine::responseBands(draws, {}, kHorizon, {.levels = kLevels}).value();
    Coverage& coverage = results.byMethod[method];
    count(bands[0], truth_, coverage.at95, &coverage.wholePath);
    count(bands[1], truth_, coverage.at68, nullptr);
    if (!isDefault) return;
    if (const auto path = engine::responseBands(draws, {}, kHorizon, {.simultaneous = true})) {
      std::array<Mean, kHorizon + 1> pointwise;
      count((*path)[0], truth_, pointwise, &results.simultaneous);
    }
    countShares(engine::shareBands(draws, engine::ShareType::orthogonal, {}, kHorizon, {}).value()[0], shares_,
                results.shares);
  }

  void printRow(const char* method, const Coverage& coverage) const {
    double error = 0.0;
    std::printf("| %s | %s |", method == std::string("delta method") ? design_.name.c_str() : "", method);
    for (const std::size_t h : kShown) {
      std::printf(" %.0f", coverage.at95[h].percent());
      error = std::fmax(error, coverage.at95[h].error());
    }
    std::printf(" ± %.1f |", error);
    for (const std::size_t h : kShown) std::printf(" %.0f", coverage.at68[h].percent());
    std::printf(" | %.0f |\n", coverage.wholePath.percent());
  }

  bench::Design design_;
  engine::Responses truth_;
  std::vector<engine::Matrix> shares_;
  Results results;
};

std::vector<bench::Design> designs() {
  std::vector<bench::Design> result;
  for (const bench::Errors errors : {bench::Errors::normal, bench::Errors::garch}) {
    for (const std::size_t series : {3u, 2u}) {
      for (const double root : {0.9, 0.97, 1.0}) {
        for (const std::size_t rows : {100u, 200u}) {
          char name[80];
          std::snprintf(name, sizeof name, "K = %zu, root %.4g, n = %zu%s", series, root, rows,
                        errors == bench::Errors::garch ? ", GARCH" : "");
          result.push_back({name, root, rows, 2, "CONSTANT", errors, series});
        }
      }
    }
  }
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  const std::uint64_t samples = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 300;
  const std::size_t part = argc > 3 ? std::strtoull(argv[2], nullptr, 10) : 0;
  const std::size_t parts = argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 1;
  const std::vector<bench::Design> all = designs();
  for (std::size_t d = part; d < all.size(); d += parts) {
    Study study(all[d]);
    for (std::uint64_t s = 0; s < samples; ++s) study.add(s);
    study.print();
  }
}
