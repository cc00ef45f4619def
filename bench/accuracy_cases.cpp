// Prints data sets that are hard on least squares, and what the plain loops and the engine make of them, all numbers in
// hexadecimal: bench/accuracy.py counts the correct digits.

#include <cmath>
#include <cstdio>
#include <iostream>
#include <sstream>

#include "bench/simulated_var.h"
#include "tests/algo/engine_run.h"
#include "tests/engine/plain_least_squares.h"

namespace bench {
namespace {

using Series = std::vector<std::vector<double>>;

struct Case {
  const char* name;
  Series endogenous;
  Series exogenous;
  std::int32_t maxLag;
};

Series macro(std::initializer_list<const char*> names, double offset = 0.0) {
  Series result;
  for (const char* name : names) {
    result.push_back(varmodel::macroSeries().at(name));
    for (double& value : result.back()) value += offset;
  }
  return result;
}

std::vector<Case> cases() {
  const auto three = {"realgdp", "realcons", "realinv"};
  Series units = simulatedVar(300, 3, 5);
  for (double& value : units[0]) value *= 1e13;
  for (double& value : units[1]) value *= 1e-2;
  Series offset = simulatedVar(300, 3, 6);
  for (double& value : offset[1]) value = 1e8 + 1e4 * value;
  Series collinear = simulatedVar(300, 3, 7);
  for (std::size_t t = 0; t < collinear[1].size(); ++t) collinear[1][t] = collinear[0][t] + 1e-5 * collinear[1][t];
  Series outlier = simulatedVar(300, 3, 8);
  outlier[2][297] = 1e5;
  Series largeUnits = simulatedVar(3000, 6, 9);
  for (double& value : largeUnits[0]) value *= 1e13;
  for (double& value : largeUnits[1]) value *= 1e-2;
  Series largeOffset = simulatedVar(3000, 6, 10);
  for (double& value : largeOffset[1]) value = 1e8 + 1e4 * value;
  return {{"levels, lag 2", macro(three), {}, 2},
          {"levels, lags 1 to 8", macro(three), {}, 8},
          {"levels, exogenous", macro({"realgdp", "realcons"}), macro({"unemp"}), 3},
          {"simulated, stationary", simulatedVar(300, 4, 4), {}, 6},
          {"units 1e13 and 1e-2", units, {}, 4},
          {"one level of 1e8", offset, {}, 2},
          {"levels plus 1e5", macro(three, 1e5), {}, 4},
          {"nearly collinear", collinear, {}, 2},
          {"outlier near the end", outlier, {}, 4},
          {"large, stationary", simulatedVar(3000, 6, 11), {}, 4},
          {"large, units 1e13, 1e-2", largeUnits, {}, 4},
          {"large, one level of 1e8", largeOffset, {}, 3}};
}

void print(const char* what, const std::vector<double>& values) {
  std::printf("%s", what);
  for (const double value : values) std::printf(" %a", value);
  std::printf("\n");
}

void printPlain(const Case& one) {
  const auto lag = static_cast<std::size_t>(one.maxLag);
  const auto fit = varmodel::fitPlainly(varmodel::designMatrix(one.endogenous, one.exogenous, lag, lag),
                                        varmodel::targetMatrix(one.endogenous, lag));
  if (!fit) return;
  std::vector<double> coefficients;
  std::vector<double> errors;
  for (std::size_t i = 0; i < one.endogenous.size(); ++i) {
    for (const double value : varmodel::columnOf(fit->coefficients, i)) coefficients.push_back(value);
    for (const double value : varmodel::columnOf(fit->standardErrors, i)) errors.push_back(value);
  }
  print("plain_coefficients", coefficients);
  print("plain_errors", errors);
}

void printEngine(const Case& one) {
  varmodel::EngineRun run(one.endogenous, 1, one.maxLag);
  run.settings.exogenousSeries = one.exogenous;
  if (run.start() != 0) {
    for (const std::string& message : run.messages()) std::printf("refused %s\n", message.c_str());
    return;
  }
  std::vector<double> coefficients;
  std::vector<double> errors;
  for (const varmodel::EquationResult& result : run.results) {
    for (const double value : result.coefficients[0]) coefficients.push_back(value);
    for (const double value : result.standardErrors[0]) errors.push_back(value);
  }
  print("engine_coefficients", coefficients);
  print("engine_errors", errors);
}

}  // namespace
}  // namespace bench

int main() {
  for (const bench::Case& one : bench::cases()) {
    std::printf("case %d %s\n", one.maxLag, one.name);
    for (const auto& series : one.endogenous) bench::print("endogenous", series);
    for (const auto& series : one.exogenous) bench::print("exogenous", series);
    bench::printPlain(one);
    bench::printEngine(one);
  }
  return 0;
}
