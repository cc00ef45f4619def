#include "procedures/varmodel/algo/results_summary.h"

#include <algorithm>
#include <iomanip>
#include <string>
#include <string_view>
#include <utility>

#include "procedures/common/trace.h"

namespace varmodel {
namespace {

using Results = std::vector<EquationResult>;

constexpr int kNameWidth = 18;
constexpr std::size_t kMostAutocorrelations = 10;
constexpr double kSignificance = 0.05;

struct Heading {
  std::string_view text;
  int width;
};

void writeRule(std::ostream& out, char character, std::size_t length) {
  out << std::string(length, character) << '\n';
}

void writeNumber(std::ostream& out, double value, int width, int precision) {
  out << std::setw(width) << std::setprecision(precision) << value;
}

void writeHeadings(std::ostream& out, std::initializer_list<Heading> headings) {
  for (const Heading& heading : headings) out << std::setw(heading.width) << heading.text;
  out << '\n';
}

void writeName(std::ostream& out, const EquationResult& result) {
  out << std::setw(kNameWidth) << procedures::onOneLine(result.equationName);
}

void writeLagSelection(std::ostream& out, const VARAlgo& algo) {
  out << "\n[1] LAG ORDER SELECTION\n";
  writeRule(out, '-', 100);
  writeHeadings(out, {{"Lag", 8}, {"Log-Likelihood", 20}, {"AIC", 18}, {"BIC", 18}, {"HQIC", 18}});
  writeRule(out, '-', 100);
  for (std::size_t i = 0; i < algo.lagOrders.size(); ++i) {
    out << std::setw(8) << algo.lagOrders[i];
    writeNumber(out, algo.logLikelihoods[i], 20, 4);
    writeNumber(out, algo.aicValues[i], 18, 4);
    writeNumber(out, algo.bicValues[i], 18, 4);
    writeNumber(out, algo.hqicValues[i], 18, 4);
    out << '\n';
  }
  writeRule(out, '-', 100);
  out << "Selected Lags: AIC=" << algo.aicLag << ", BIC=" << algo.bicLag << ", HQIC=" << algo.hqicLag
      << " | Overall=" << algo.optimalLag << '\n';
}

void writeDescriptives(std::ostream& out, const Results& results) {
  out << "\n[2] DESCRIPTIVE STATISTICS\n";
  writeRule(out, '-', 100);
  writeHeadings(out, {{"Variable", 18}, {"N", 10}, {"Mean", 14}, {"Std Dev", 14}, {"Minimum", 14}, {"Maximum", 14}});
  for (const EquationResult& result : results) {
    writeName(out, result);
    out << std::setw(10) << result.descN;
    for (const double value : {result.descMean, result.descStdDev, result.descMinimum, result.descMaximum}) {
      writeNumber(out, value, 14, 2);
    }
    out << '\n';
  }
  writeRule(out, '-', 100);
}

void writeFit(std::ostream& out, const Results& results) {
  out << "\n[3] MODEL FIT SUMMARY (All Equations)\n";
  writeRule(out, '-', 120);
  writeHeadings(out, {{"Equation", 18},
                      {"Res.Variance", 14},
                      {"RSS", 12},
                      {"R²", 12},
                      {"Adj.R²", 12},
                      {"JB Stat", 14},
                      {"JB p-val", 12},
                      {"Normality", 12}});
  for (const EquationResult& result : results) {
    writeName(out, result);
    writeNumber(out, result.residualVariance, 14, 2);
    writeNumber(out, result.residualSSR, 12, 1);
    writeNumber(out, result.rSquare, 12, 4);
    writeNumber(out, result.adjustedRSquare, 12, 4);
    writeNumber(out, result.jarqueBeraStat, 14, 2);
    writeNumber(out, result.jarqueBeraPValue, 12, 4);
    out << std::setw(12) << (result.jarqueBeraPValue < kSignificance ? "Reject" : "OK") << '\n';
  }
  writeRule(out, '-', 120);
}

void writeErrors(std::ostream& out, const Results& results) {
  out << "\n[4] ERROR METRICS (All Equations)\n";
  writeRule(out, '-', 110);
  writeHeadings(out, {{"Equation", 18},
                      {"MSE", 14},
                      {"RMSE", 14},
                      {"MAE", 14},
                      {"MAPE(%)", 14},
                      {"LB Stat", 14},
                      {"LB p-val", 12},
                      {"AutoCorr", 12}});
  for (const EquationResult& result : results) {
    writeName(out, result);
    for (const double value : {result.meanSquaredError, result.rootMeanSquaredError, result.meanAbsoluteError,
                               result.meanAbsPercentError, result.ljungBoxStat}) {
      writeNumber(out, value, 14, 2);
    }
    writeNumber(out, result.ljungBoxPValue, 12, 4);
    out << std::setw(12) << (result.ljungBoxPValue < kSignificance ? "Yes" : "No") << '\n';
  }
  writeRule(out, '-', 110);
  out << "Note: LB=Ljung-Box test, AutoCorr=Autocorrelation detected\n";
}

// The first `count` values in fields of `width`, "-" for those that are not there.
void writeValues(std::ostream& out, const std::vector<double>& values, std::size_t count, int width) {
  for (std::size_t i = 0; i < count; ++i) {
    if (i < values.size()) {
      writeNumber(out, values[i], width, 4);
    } else {
      out << std::setw(width) << "-";
    }
  }
  out << '\n';
}

void writeAutocorrelations(std::ostream& out, const Results& results) {
  std::size_t lags = 0;
  for (const EquationResult& result : results) lags = std::max(lags, result.residualACF.size());
  lags = std::min(lags, kMostAutocorrelations);
  out << "\n[5] AUTOCORRELATION OF RESIDUALS (ACF)\n";
  writeRule(out, '-', 100);
  out << std::setw(kNameWidth) << "Equation";
  for (std::size_t k = 1; k <= lags; ++k) out << std::setw(10) << "Lag " + std::to_string(k);
  out << '\n';
  for (const EquationResult& result : results) {
    writeName(out, result);
    writeValues(out, result.residualACF, lags, 10);
  }
  writeRule(out, '-', 100);
  out << "Note: Values close to 0 indicate no autocorrelation. |ACF| > " << std::setprecision(1) << 0.2
      << " may indicate significant autocorrelation.\n";
}

void writeCorrelations(std::ostream& out, const Results& results) {
  out << "\n[6] CORRELATION MATRIX OF RESIDUALS\n";
  writeRule(out, '-', 100);
  out << std::setw(kNameWidth) << "";
  for (const EquationResult& result : results) out << std::setw(16) << procedures::onOneLine(result.equationName);
  out << '\n';
  for (std::size_t i = 0; i < results.size(); ++i) {
    const std::vector<std::vector<double>>& matrix = results[i].residualCorrelation;
    writeName(out, results[i]);
    writeValues(out, i < matrix.size() ? matrix[i] : std::vector<double>{}, results.size(), 16);
  }
  writeRule(out, '-', 100);
  out << "Note: Values range from -1 to 1. Values close to ±1 indicate strong correlation.\n";
}

void writeEigenvalues(std::ostream& out, const Results& results) {
  out << "\n[7] EIGENVALUES OF RESIDUAL CORRELATION MATRIX\n";
  writeRule(out, '-', 100);
  writeHeadings(out, {{"Eigenvalue #", 15}, {"Value", 16}});
  const std::vector<double>& eigenvalues = results.front().residualEigenvalues;
  for (std::size_t i = 0; i < eigenvalues.size(); ++i) {
    out << std::setw(15) << "λ" + std::to_string(i + 1);
    writeNumber(out, eigenvalues[i], 16, 6);
    out << '\n';
  }
  writeRule(out, '-', 100);
  out << "Note: Eigenvalues indicate the variance explained by each principal component.\n";
}

std::string_view significanceMark(double pValue) {
  if (pValue < 0.001) return "***";
  if (pValue < 0.01) return "**";
  return pValue < 0.05 ? "*" : "";
}

void writeCoefficients(std::ostream& out, const EquationResult& result, std::size_t section) {
  out << "\n[" << section << "] COEFFICIENTS: " << procedures::OneLine{result.equationName} << '\n';
  writeRule(out, '-', 100);
  writeHeadings(
      out, {{"Parameter", 12}, {"Coefficient", 16}, {"Std.Error", 14}, {"t-ratio", 12}, {"p-value", 12}, {"Sig", 6}});
  if (result.coefficients.empty()) return;
  const std::vector<double>& coefficients = result.coefficients.front();
  for (std::size_t j = 0; j < coefficients.size(); ++j) {
    const double pValue = result.pValues.front()[j];
    out << std::setw(12) << "beta[" + std::to_string(j) + "]";
    writeNumber(out, coefficients[j], 16, 6);
    writeNumber(out, result.standardErrors.front()[j], 14, 6);
    writeNumber(out, result.tStatistics.front()[j], 12, 3);
    writeNumber(out, pValue, 12, 4);
    out << std::setw(6) << significanceMark(pValue) << '\n';
  }
}

}  // namespace

void writeResultsSummary(const VARAlgo& algo, std::ostream& stream) {
  std::ostream out(stream.rdbuf());  // the same destination with a format state of its own
  out << std::fixed;
  const Results& results = algo.equationResults;
  if (results.empty()) {
    out << "No results to display.\n";
    return;
  }
  writeRule(out, '=', 120);
  out << "VAR MODEL RESULTS SUMMARY\n";
  writeRule(out, '=', 120);
  writeLagSelection(out, algo);
  writeDescriptives(out, results);
  writeFit(out, results);
  writeErrors(out, results);
  writeAutocorrelations(out, results);
  writeCorrelations(out, results);
  writeEigenvalues(out, results);
  for (std::size_t i = 0; i < results.size(); ++i) writeCoefficients(out, results[i], i + 8);
  out << "Significance: *** p<0.001, ** p<0.01, * p<0.05\n";
  writeRule(out, '=', 120);
  out << "END OF VAR MODEL RESULTS\n";
  writeRule(out, '=', 120);
}

}  // namespace varmodel
