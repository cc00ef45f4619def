// The whole program against numbers computed independently (orthogonal least squares), case by case.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <memory>
#include <sstream>

#include "document.h"
#include "program.h"

namespace {

// The levels are badly scaled (condition about 1e5): coefficients agree to 1e-6 and what does not divide by a
// near-singular quantity to 1e-9.
constexpr double coefficientTolerance = 1e-6;
constexpr double tolerance = 1e-9;

rapidjson::Document readReference(const std::string& name) {
  const std::string text = workbench::contents(VARMODEL_SOURCE_DIR "/tests/data/reference/" + name + ".json");
  rapidjson::Document document;
  document.Parse<rapidjson::kParseFullPrecisionFlag>(text.c_str());
  return document;
}

// Everything of one command, also where it chooses among lags.
std::string jobOf(const rapidjson::Value& wanted) {
  const auto list = [&](const char* name) {
    std::string words;
    for (const auto& word : wanted[name].GetArray()) words += std::string(" ") + word.GetString();
    return words;
  };
  const auto number = [&](const char* name) { return std::to_string(wanted[name].GetInt()); };
  const std::string exogenous = list("exogenous");
  return "command = '''\nVARMODEL PREDICT /MODEL ENDOGENOUS=" + list("endogenous") +
         (exogenous.empty() ? "" : " EXOGENOUS=" + exogenous) + " LAG=[" + list("lag") +
         "] MINLAG=" + number("minlag") + " MAXLAG=" + number("maxlag") +
         "\n/METHOD TYPE=[OLS]\n/MODELSTATISTICS MODELFIT=[DESCRIPTIVES GOODFIT PARAMETERS RES RESIDACF MSE RMSE MAE "
         "MAPE RSQUARE ARSQUARE CORRMATRIX EIGEN TNORM TAUTO FORECASTS]\n/AUXILIARY CILEVEL=" +
         number("cilevel") +
         "\n'''\n[data]\nsource = \"us_macro_quarterly.csv\"\n[dates]\nstart = { year = 1959, quarter = 1 }\n"
         "[predict]\nthru = " +
         std::to_string(203 + wanted["horizon"].GetInt()) + "\n";
}

void expectClose(double seen, double wanted, double allowed, const std::string& what) {
  EXPECT_LE(std::fabs(seen - wanted), allowed * std::fabs(wanted)) << what << ": " << seen << " for " << wanted;
}

class ReferenceTest : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    reference_ = readReference(GetParam());
    Workspace space;
    space.example("us_macro_quarterly.csv").file("job.toml", jobOf(reference_["case"]));
    const ProgramRun run = space.run({"run", "job.toml", "--json", "out.json"});
    ASSERT_EQ(run.exitCode, 0) << run.out << run.err;
    document_ = std::make_unique<OutputDocument>(space.read("out.json"));
  }

  const rapidjson::Value& expected() const { return reference_["expected"]; }
  void expectRow(const std::vector<double>& seen, const rapidjson::Value& wanted, const std::string& table) const {
    ASSERT_EQ(seen.size(), wanted.Size()) << table;
    for (rapidjson::SizeType i = 0; i < wanted.Size(); ++i) {
      expectClose(seen[i], wanted[i].GetDouble(), tolerance, table);
    }
  }
  void expectTable(const std::string& table, const char* key) const {
    const auto seen = document_->cells(table);
    ASSERT_GE(seen.size(), expected()[key].Size()) << table;
    for (rapidjson::SizeType row = 0; row < expected()[key].Size(); ++row) {
      expectRow(seen[row], expected()[key][row], table);
    }
  }

  rapidjson::Document reference_;
  std::unique_ptr<OutputDocument> document_;
};

TEST_P(ReferenceTest, ParametersAgree) {
  const char* columns[] = {"coef", "se", "t", "p", "lo", "hi"};
  for (rapidjson::SizeType equation = 0; equation < reference_["case"]["endogenous"].Size(); ++equation) {
    const std::string name = reference_["case"]["endogenous"][equation].GetString();
    const auto seen = document_->cells("VAR Model Parameters - " + name);
    ASSERT_EQ(seen.size(), expected()["coef"].Size());
    for (rapidjson::SizeType row = 0; row < seen.size(); ++row) {
      for (std::size_t i = 0; i < 6; ++i) {
        const double wanted = expected()[columns[i]][row][equation].GetDouble();
        expectClose(seen[row].at(i), wanted, coefficientTolerance, columns[i] + (" " + name));
      }
    }
  }
}

TEST_P(ReferenceTest, LagSelectionAgrees) {
  const rapidjson::Value& criteria = reference_["case"]["lag"];
  std::vector<std::string> keys = {"ll"};
  for (const auto& criterion : criteria.GetArray()) {
    std::string key = criterion.GetString();
    for (char& c : key) c = static_cast<char>(std::tolower(c));
    keys.push_back(key);
  }
  const auto seen = document_->cells("Goodness of Fit");
  ASSERT_EQ(seen.size(), expected()["ll"].Size());
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const rapidjson::Value& wanted = expected()[keys[i].c_str()];
    for (rapidjson::SizeType row = 0; row < wanted.Size(); ++row) {
      expectClose(seen[row].at(i), wanted[row].GetDouble(), tolerance, keys[i]);
    }
  }
  if (criteria.Size() == 3) {
    const auto lag = [&](const char* key) { return std::to_string(expected()[key].GetInt()); };
    EXPECT_EQ(document_->footnote("Goodness of Fit"), "Optimal lag:  " + lag("optimal") + " .AIC : Lag " +
                                                          lag("aicLag") + " , BIC : Lag " + lag("bicLag") +
                                                          " , HQIC : Lag " + lag("hqicLag"));
  }
}

TEST_P(ReferenceTest, DescriptivesAndDiagnosticsAgree) {
  expectTable("Descriptive Statistics", "desc");
  // A selected lag below MAXLAG leaves the error measures at 0; the reference has them so, too.
  expectTable("Model Fit Statistics", "fit");
  expectTable("Test for Residuals", "tests");
  expectTable("Covariance Matrix of Residuals", "cov");
  expectTable("Correlation Matrix of Residuals", "corr");
  const std::string footnote = document_->footnote("Covariance Matrix of Residuals");
  EXPECT_THAT(footnote, testing::StartsWith("Determinant of Residual Covariance matrix is "));
  // Printed with six decimals, which is more digits than the determinant has.
  expectClose(std::stod(footnote.substr(footnote.rfind(' '))), expected()["det"].GetDouble(), tolerance, "det");
  const bool maxlagSelected = expected()["optimal"].GetInt() == reference_["case"]["maxlag"].GetInt();
  EXPECT_EQ(maxlagSelected, document_->cells("Model Fit Statistics").at(0).at(3) > 0);
}

// The eigenvalues of a symmetric matrix with unit diagonal: their sum is K, the sum of their squares its squared norm.
TEST_P(ReferenceTest, EigenvaluesBelongToTheCorrelationMatrix) {
  const std::string text = document_->footnote("Correlation Matrix of Residuals");
  ASSERT_THAT(text, testing::StartsWith("Eigen Values of Residual Correlation Matrix  : "));
  std::istringstream list(text.substr(text.find(':') + 1));
  double sum = 0;
  double squares = 0;
  for (std::string one; std::getline(list, one, ',');) {
    sum += std::stod(one);
    squares += std::stod(one) * std::stod(one);
  }
  for (const auto& row : expected()["corr"].GetArray()) {
    for (const auto& cell : row.GetArray()) squares -= cell.GetDouble() * cell.GetDouble();
  }
  constexpr double sixDecimals = 1e-5;  // the footnote prints six decimals of each
  EXPECT_NEAR(sum, expected()["corr"].Size(), sixDecimals);
  EXPECT_NEAR(squares, 0, sixDecimals);
}

TEST_P(ReferenceTest, ForecastsAgreeAndAreDated) {
  expectTable("Forecast", "forecast");
  std::vector<std::string> wanted = {"2009Q4", "2010Q1", "2010Q2", "2010Q3", "2010Q4", "2011Q1", "2011Q2", "2011Q3"};
  wanted.resize(static_cast<std::size_t>(reference_["case"]["horizon"].GetInt()));
  EXPECT_EQ(document_->columnLabels("Forecast"), wanted);
}

INSTANTIATE_TEST_SUITE_P(All, ReferenceTest, testing::Values("levels_lag2", "levels_select_1_to_8", "levels_exogenous"),
                         [](const auto& one) { return std::string(one.param); });

}  // namespace
