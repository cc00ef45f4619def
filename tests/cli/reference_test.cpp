// The whole program against numbers computed independently (orthogonal least squares), case by case.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <fstream>
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
  std::ifstream stream(std::string(VARMODEL_SOURCE_DIR) + "/tests/data/reference/" + name + ".json");
  std::ostringstream text;
  text << stream.rdbuf();
  rapidjson::Document document;
  document.Parse<rapidjson::kParseFullPrecisionFlag>(text.str().c_str());
  return document;
}

std::string words(const rapidjson::Value& list) {
  std::string text;
  for (const auto& word : list.GetArray()) text += std::string(" ") + word.GetString();
  return text;
}

std::string jobFor(const rapidjson::Value& wanted) {
  std::ostringstream job;
  job << "command = '''\nVARMODEL PREDICT\n/MODEL ENDOGENOUS=" << words(wanted["endogenous"]);
  if (!wanted["exogenous"].Empty()) job << " EXOGENOUS=" << words(wanted["exogenous"]);
  job << " LAG=[" << words(wanted["lag"]) << "] MINLAG=" << wanted["minlag"].GetInt()
      << " MAXLAG=" << wanted["maxlag"].GetInt() << "\n/METHOD TYPE=[OLS]\n/MODELSTATISTICS MODELFIT=[DESCRIPTIVES "
      << "GOODFIT PARAMETERS RES RESIDACF MSE RMSE MAE MAPE RSQUARE ARSQUARE CORRMATRIX EIGEN TNORM TAUTO FORECASTS]\n"
      << "/AUXILIARY CILEVEL=" << wanted["cilevel"].GetInt() << "\n'''\n[data]\nsource = \"us_macro_quarterly.csv\"\n"
      << "[dates]\nstart = { year = 1959, quarter = 1 }\n[predict]\nthru = " << 203 + wanted["horizon"].GetInt()
      << "\n";
  return job.str();
}

void expectClose(double seen, double wanted, double allowed, const std::string& what) {
  EXPECT_LE(std::fabs(seen - wanted), allowed * std::fabs(wanted)) << what << ": " << seen << " for " << wanted;
}

class ReferenceTest : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    reference_ = readReference(GetParam());
    Workspace space;
    space.example("us_macro_quarterly.csv").file("job.toml", jobFor(reference_["case"]));
    const ProgramRun run = space.run({"run", "job.toml", "--json", "out.json"});
    ASSERT_EQ(run.exitCode, 0) << run.out << run.err;
    document_ = std::make_unique<OutputDocument>(space.read("out.json"));
  }

  const rapidjson::Value& expected() const { return reference_["expected"]; }
  std::string name(rapidjson::SizeType equation) const {
    return reference_["case"]["endogenous"][equation].GetString();
  }
  rapidjson::SizeType equations() const { return reference_["case"]["endogenous"].Size(); }

  // Rows of a table against rows of the reference.
  void expectRows(const std::string& table, const char* key) const {
    for (rapidjson::SizeType row = 0; row < expected()[key].Size(); ++row) {
      const std::vector<double> seen = document_->row(table, row);
      ASSERT_EQ(seen.size(), expected()[key][row].Size()) << table;
      for (rapidjson::SizeType i = 0; i < expected()[key][row].Size(); ++i) {
        expectClose(seen[i], expected()[key][row][i].GetDouble(), tolerance, table);
      }
    }
  }

  rapidjson::Document reference_;
  std::unique_ptr<OutputDocument> document_;
};

TEST_P(ReferenceTest, ParametersAgree) {
  const std::pair<const char*, double> columns[] = {{"coef", coefficientTolerance}, {"se", coefficientTolerance},
                                                    {"t", coefficientTolerance},    {"p", coefficientTolerance},
                                                    {"lo", coefficientTolerance},   {"hi", coefficientTolerance}};
  for (rapidjson::SizeType equation = 0; equation < equations(); ++equation) {
    for (rapidjson::SizeType i = 0; i < 6; ++i) {
      const rapidjson::Value& wanted = expected()[columns[i].first];
      const auto seen = document_->column("VAR Model Parameters - " + name(equation), i);
      ASSERT_EQ(seen.size(), wanted.Size());
      for (rapidjson::SizeType row = 0; row < wanted.Size(); ++row) {
        expectClose(seen[row], wanted[row][equation].GetDouble(), columns[i].second,
                    std::string(columns[i].first) + " " + name(equation));
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
  std::string footnote = "Optimal lag:  " + std::to_string(expected()["optimal"].GetInt()) + " .";
  for (rapidjson::SizeType i = 0; i < keys.size(); ++i) {
    const auto seen = document_->column("Goodness of Fit", i);
    const rapidjson::Value& wanted = expected()[keys[i].c_str()];
    ASSERT_EQ(seen.size(), wanted.Size());
    for (rapidjson::SizeType row = 0; row < wanted.Size(); ++row) {
      expectClose(seen[row], wanted[row].GetDouble(), tolerance, keys[i]);
    }
  }
  if (criteria.Size() == 3) {
    footnote += "AIC : Lag " + std::to_string(expected()["aicLag"].GetInt()) + " , BIC : Lag " +
                std::to_string(expected()["bicLag"].GetInt()) + " , HQIC : Lag " +
                std::to_string(expected()["hqicLag"].GetInt());
    EXPECT_EQ(document_->footnote("Goodness of Fit"), footnote);
  }
}

TEST_P(ReferenceTest, DescriptivesAgree) {
  expectRows("Descriptive Statistics", "desc");
}

TEST_P(ReferenceTest, DiagnosticsOfTheSelectedLagAgree) {
  const bool maxlagSelected = expected()["optimal"].GetInt() == reference_["case"]["maxlag"].GetInt();
  // A selected lag below MAXLAG leaves the error measures at 0; the reference has them so, too.
  expectRows("Model Fit Statistics", "fit");
  expectRows("Test for Residuals", "tests");
  expectRows("Covariance Matrix of Residuals", "cov");
  expectRows("Correlation Matrix of Residuals", "corr");
  const std::string footnote = document_->footnote("Covariance Matrix of Residuals");
  EXPECT_THAT(footnote, testing::StartsWith("Determinant of Residual Covariance matrix is "));
  // Printed with six decimals, which is more digits than the determinant has.
  expectClose(std::stod(footnote.substr(footnote.rfind(' '))), expected()["det"].GetDouble(), tolerance, "det");
  EXPECT_EQ(maxlagSelected, document_->row("Model Fit Statistics", 0)[3] > 0);
}

// The eigenvalues of a symmetric matrix with unit diagonal: their sum is K, the sum of their squares its squared norm.
TEST_P(ReferenceTest, EigenvaluesBelongToTheCorrelationMatrix) {
  std::string text = document_->footnote("Correlation Matrix of Residuals");
  ASSERT_THAT(text, testing::StartsWith("Eigen Values of Residual Correlation Matrix  : "));
  std::istringstream list(text.substr(text.find(':') + 1));
  double sum = 0;
  double squares = 0;
  for (std::string one; std::getline(list, one, ',');) {
    sum += std::stod(one);
    squares += std::stod(one) * std::stod(one);
  }
  double norm = 0;
  for (const auto& row : expected()["corr"].GetArray()) {
    for (const auto& cell : row.GetArray()) norm += cell.GetDouble() * cell.GetDouble();
  }
  constexpr double sixDecimals = 1e-5;  // the footnote prints six decimals of each
  EXPECT_NEAR(sum, equations(), sixDecimals);
  EXPECT_NEAR(squares, norm, sixDecimals);
}

TEST_P(ReferenceTest, ForecastsAgreeAndAreDated) {
  expectRows("Forecast", "forecast");
  std::vector<std::string> labels;
  for (const auto& column : (*document_->item("Forecast"))["columns"].GetArray()) {
    labels.emplace_back(column["label"].GetString());
  }
  std::vector<std::string> wanted = {"2009Q4", "2010Q1", "2010Q2", "2010Q3", "2010Q4", "2011Q1", "2011Q2", "2011Q3"};
  wanted.resize(static_cast<std::size_t>(reference_["case"]["horizon"].GetInt()));
  EXPECT_EQ(labels, wanted);
}

INSTANTIATE_TEST_SUITE_P(All, ReferenceTest, testing::Values("levels_lag2", "levels_select_1_to_8", "levels_exogenous"),
                         [](const auto& one) { return std::string(one.param); });

}  // namespace
