// Counts the correct digits of the engine on hostile samples, against a solution with 200 decimal digits, and checks
// which samples it refuses. Exits with 1 when a refusal or a success is wrong, or coefficients have fewer than 11
// digits.
//
//   accuracy [-v]     one line a family, with -v one a sample

#include <cstdio>
#include <cstring>
#include <map>

#include "bench/engine.h"
#include "bench/hostile_samples.h"
#include "tests/engine/exact_fit.h"

namespace bench {
namespace {

constexpr double kGoal = 11.0;
constexpr double kMostDigits = 16.0;

// -log10 of the worst error, each relative to `scale(equation, j)`.
template <class Values, class Scale>
double digitsOf(const Values& values, const std::vector<std::vector<engine::Exact>>& truth, const Scale& scale) {
  double digits = kMostDigits;
  for (std::size_t i = 0; i < truth.size(); ++i) {
    for (std::size_t j = 0; j < truth[i].size(); ++j) {
      if (!std::isfinite(values[i][j])) return 0.0;
      const engine::Exact error = abs(engine::Exact(values[i][j]) - truth[i][j]) / scale(i, j);
      if (error > 1e-30) digits = std::min(digits, static_cast<double>(-log10(error)));
    }
  }
  return std::max(digits, 0.0);
}

// What a sample must come to: the reasons for which it must be refused, by their definitions.
enum class Verdict { accepted, collinear, covariance, range };

bool isOutOfRange(const engine::ExactFit& truth) {
  for (const auto* list : {&truth.coefficients, &truth.standardErrors}) {
    for (const auto& equation : *list) {
      for (const engine::Exact& value : equation) {
        if (value != 0 && (abs(value) > 1.797e308 || abs(value) < 2.3e-308)) return true;
      }
    }
  }
  return truth.determinant > 1.797e308;
}

Verdict expectedVerdict(const Sample& sample, const engine::ExactFit& truth) {
  const std::size_t regressors =
      1 + static_cast<std::size_t>(sample.maxLag) * sample.endogenous.size() + sample.exogenous.size();
  if (truth.condition < static_cast<double>(regressors) * 2.2e-16) return Verdict::collinear;
  if (isOutOfRange(truth)) return Verdict::range;
  return truth.determinant < 1e-12 ? Verdict::covariance : Verdict::accepted;
}

Verdict verdictOf(const std::vector<std::string>& messages) {
  if (messages.empty()) return Verdict::accepted;
  if (messages[0].find("multicollinearity") != std::string::npos) return Verdict::collinear;
  return messages[0].find("Covariance") != std::string::npos ? Verdict::covariance : Verdict::range;
}

struct Tally {
  int samples = 0;
  int refused = 0;
  double coefficients = kMostDigits;
  double standardErrors = kMostDigits;
  double residuals = kMostDigits;
};

constexpr const char* kVerdicts[] = {"accepted", "refused: collinear", "refused: covariance", "refused: range"};

// Returns false for a wrong verdict.
bool judge(const Sample& sample, bool verbose, Tally& tally) {
  const engine::ExactFit truth =
      engine::fitExactly(sample.endogenous, sample.exogenous, static_cast<std::size_t>(sample.maxLag));
  Engine engine(sample.endogenous, sample.maxLag, sample.exogenous);
  engine.run();
  const Verdict verdict = verdictOf(engine.messages());
  const Verdict expected = expectedVerdict(sample, truth);
  ++tally.samples;
  if (verdict != Verdict::accepted) ++tally.refused;
  if (verbose)
    std::printf("  %-24s %-28s %-20s condition %8.1e", sample.family.c_str(), sample.name.c_str(),
                kVerdicts[static_cast<int>(verdict)], static_cast<double>(truth.condition));
  if (verdict == Verdict::accepted && !truth.coefficients.empty()) {
    Series coefficients, errors;
    for (const auto& result : engine.results()) {
      coefficients.push_back(result.coefficients[0]);
      errors.push_back(result.standardErrors[0]);
    }
    const double ofCoefficients = digitsOf(coefficients, truth.coefficients,
                                           [&](std::size_t i, std::size_t j) { return abs(truth.coefficients[i][j]); });
    const double ofErrors = digitsOf(errors, truth.standardErrors,
                                     [&](std::size_t i, std::size_t j) { return truth.standardErrors[i][j]; });
    std::vector<engine::Exact> deviations;
    for (const auto& residuals : truth.residuals) {
      engine::Exact sum = 0;
      for (const engine::Exact& e : residuals) sum += e * e;
      deviations.push_back(sqrt(sum / residuals.size()));
    }
    const double ofResiduals = digitsOf(engine.algo().residualsByLag.at(sample.maxLag), truth.residuals,
                                        [&](std::size_t i, std::size_t) { return deviations[i]; });
    tally.coefficients = std::min(tally.coefficients, ofCoefficients);
    tally.standardErrors = std::min(tally.standardErrors, ofErrors);
    tally.residuals = std::min(tally.residuals, ofResiduals);
    if (verbose) std::printf("  digits %4.1f %4.1f %4.1f", ofCoefficients, ofErrors, ofResiduals);
  }
  if (verbose) std::printf("\n");
  if (verdict != expected) {
    std::printf("WRONG: %s, %s is %s, should be %s (condition %.2e)\n", sample.family.c_str(), sample.name.c_str(),
                kVerdicts[static_cast<int>(verdict)], kVerdicts[static_cast<int>(expected)],
                static_cast<double>(truth.condition));
  }
  return verdict == expected;
}

int judgeAll(bool verbose) {
  std::map<std::string, Tally> families;
  std::vector<std::string> order;
  Tally all;
  int wrong = 0;
  for (const Sample& sample : hostileSamples()) {
    if (!families.contains(sample.family)) order.push_back(sample.family);
    if (!judge(sample, verbose, families[sample.family])) ++wrong;
  }
  std::printf("%-28s %8s %8s   least digits of coefficients, standard errors, residuals\n", "", "samples", "refused");
  const auto print = [](const std::string& name, const Tally& tally) {
    std::printf("%-28s %8d %8d", name.c_str(), tally.samples, tally.refused);
    if (tally.samples > tally.refused)
      std::printf("   %12.1f %12.1f %12.1f", tally.coefficients, tally.standardErrors, tally.residuals);
    std::printf("\n");
  };
  for (const std::string& family : order) {
    const Tally& tally = families[family];
    print(family, tally);
    all.samples += tally.samples;
    all.refused += tally.refused;
    all.coefficients = std::min(all.coefficients, tally.coefficients);
    all.standardErrors = std::min(all.standardErrors, tally.standardErrors);
    all.residuals = std::min(all.residuals, tally.residuals);
  }
  print("all", all);
  std::printf("wrong verdicts: %d\n", wrong);
  return wrong > 0 || all.coefficients < kGoal ? 1 : 0;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  return bench::judgeAll(argc > 1 && std::strcmp(argv[1], "-v") == 0);
}
