// VARDYNAMICS through the whole program, against numbers computed independently.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <sstream>

#include "document.h"
#include "program.h"

namespace {

// Independent programs agree with one another to about this much on these well-scaled series.
constexpr double kTolerance = 1e-9;
// Their p-values are differences from 1.
constexpr double kProbabilityRounding = 1e-14;

const std::vector<std::string> kSeries = {"realgdp", "realcons", "realinv"};

rapidjson::Document reference(const std::string& name) {
  const std::string text = workbench::contents(VARMODEL_SOURCE_DIR "/tests/data/reference/dynamics/" + name + ".json");
  rapidjson::Document document;
  document.Parse<rapidjson::kParseFullPrecisionFlag>(text.c_str());
  EXPECT_TRUE(document.IsObject()) << name;
  return document;
}

std::string fullNumber(double value) {
  std::ostringstream text;
  text.precision(17);
  text << value;
  return text.str();
}

using Rows = std::vector<std::array<double, 3>>;

// The columns of kSeries in the example's data.
Rows levels() {
  std::istringstream file(workbench::contents(VARMODEL_SOURCE_DIR "/examples/us_macro_quarterly.csv"));
  std::string line;
  std::getline(file, line);
  Rows rows;
  for (std::string cell; std::getline(file, line);) {
    std::istringstream cells(line);
    for (int skipped = 0; skipped < 2; ++skipped) std::getline(cells, cell, ',');  // year, quarter
    for (double& value : rows.emplace_back()) {
      std::getline(cells, cell, ',');
      value = std::stod(cell);
    }
  }
  return rows;
}

Rows growth() {
  const Rows level = levels();
  Rows rows;
  for (std::size_t t = 1; t < level.size(); ++t) {
    auto& row = rows.emplace_back();
    for (std::size_t i = 0; i < row.size(); ++i) row[i] = 100.0 * (std::log(level[t][i]) - std::log(level[t - 1][i]));
  }
  return rows;
}

std::string csv(const Rows& rows) {
  std::string text = "realgdp,realcons,realinv\n";
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) text += (i == 0 ? "" : ",") + fullNumber(row[i]);
    text += '\n';
  }
  return text;
}

// Runs the subcommands after MODEL on the rows.
OutputDocument analyse(const std::string& data, const std::string& model, const std::string& subcommands) {
  Workspace space;
  space.file("data.csv", data);
  space.file("job.toml", "command = '''VARDYNAMICS /MODEL ENDOGENOUS=realgdp realcons realinv " + model + " " +
                             subcommands + "'''\n[data]\nsource = \"data.csv\"\n");
  const ProgramRun run = space.run({"run", "job.toml", "--json", "out.json"});
  EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
  return OutputDocument(space.read("out.json"));
}

void expectClose(double seen, double wanted, const std::string& what, double absolute = 0.0) {
  EXPECT_LE(std::fabs(seen - wanted), kTolerance * std::fabs(wanted) + absolute)
      << what << ": " << seen << " for " << wanted;
}

// Statistic, its degrees of freedom (the second may have been rounded) and the p-value.
void expectTest(const std::vector<double>& seen, const rapidjson::Value& wanted, const std::string& what) {
  expectClose(seen.front(), wanted["statistic"].GetDouble(), what);
  expectClose(seen.at(1), wanted["df"][0].GetDouble(), what + " df");
  expectClose(seen.back(), wanted["p"].GetDouble(), what + " p", kProbabilityRounding);
}

std::vector<double> part(const std::vector<double>& row, std::size_t first, std::size_t count) {
  return {row.begin() + static_cast<std::ptrdiff_t>(first), row.begin() + static_cast<std::ptrdiff_t>(first + count)};
}

class DynamicsReference : public testing::TestWithParam<int> {
 protected:
  std::string lag() const { return std::to_string(GetParam()); }
  rapidjson::Document expected_ = reference("us_dlog_lag" + lag());
};

TEST_P(DynamicsReference, RootsTestsAndCausalityAgree) {
  const OutputDocument document = analyse(csv(growth()), "LAG=" + lag(), "/STABILITY /TESTS /CAUSALITY");
  const auto roots = document.cells("Roots");
  ASSERT_EQ(roots.size(), expected_["root_moduli"].Size());
  for (rapidjson::SizeType i = 0; i < roots.size(); ++i) {
    expectClose(roots[i][0], expected_["root_moduli"][i].GetDouble(), "root");
  }
  const auto covariance = document.cells("Residual Covariance");
  for (rapidjson::SizeType i = 0; i < 3; ++i) {
    for (rapidjson::SizeType j = 0; j < 3; ++j) {
      expectClose(covariance[i][j], expected_["sigma_df_adjusted"][i][j].GetDouble(), "covariance");
    }
  }
  expectTest(document.cells("Portmanteau Test")[0], expected_["portmanteau_adjusted_12"], "portmanteau");
  const auto lagrange = document.cells("LM Test");
  ASSERT_EQ(lagrange.size(), 4U);
  expectTest(part(lagrange[3], 0, 3), expected_["lm_breusch_godfrey_4"], "LM");
  expectClose(lagrange[3][3], expected_["lm_edgerton_shukur_4"]["statistic"].GetDouble(), "Rao's F");
  const auto normality = document.cells("Normality Tests");
  expectTest(normality[1], expected_["normality_skewness"], "skewness");
  expectTest(normality[2], expected_["normality_kurtosis"], "kurtosis");
  expectTest(normality[3], expected_["normality_joint"], "normality");
  const auto granger = document.cells("Granger Causality on All Others");
  const auto instantaneous = document.cells("Instantaneous Causality");
  for (std::size_t i = 0; i < kSeries.size(); ++i) {
    expectTest(granger[i], expected_["granger_cause_on_all_others"][kSeries[i].c_str()], "Granger " + kSeries[i]);
    expectTest(instantaneous[i], expected_["instantaneous"][kSeries[i].c_str()], "instantaneous " + kSeries[i]);
  }
}

TEST_P(DynamicsReference, ArchAndSelectionAgree) {
  const OutputDocument document =
      analyse(csv(growth()), "SELECT=AIC MINLAG=" + lag() + " MAXLAG=8", "/TESTS TYPE=[ARCH] LAGS=3");
  const auto criteria = document.cells("Lag Selection");  // from lag 0; the reference begins with lag 1
  ASSERT_EQ(criteria.size(), 9U);
  const double constant = 3.0 * (1.0 + std::log(2.0 * std::numbers::pi));  // which its log-determinant form leaves out
  const auto& wanted = expected_["selection_logdet_form_AIC_HQ_SC_FPE"];
  for (rapidjson::SizeType i = 0; i < 8; ++i) {
    const std::vector<double>& row = criteria[i + 1];
    expectClose(row[3] - constant, wanted[0][i].GetDouble(), "AIC", kTolerance);
    expectClose(row[4] - constant, wanted[2][i].GetDouble(), "BIC", kTolerance);
    expectClose(row[5] - constant, wanted[1][i].GetDouble(), "HQIC", kTolerance);
    expectClose(std::exp(row[6]), wanted[3][i].GetDouble(), "FPE");
  }
  const OutputDocument fixed = analyse(csv(growth()), "LAG=" + lag(), "/TESTS TYPE=[ARCH] LAGS=3");
  expectTest(fixed.cells("ARCH Test")[0], expected_["arch_multivariate_3"], "ARCH");
}

TEST_P(DynamicsReference, ForecastsAgree) {
  const OutputDocument document = analyse(csv(growth()), "LAG=" + lag(), "/FORECAST HORIZON=8 INTERVAL=NONE");
  const auto forecast = document.cells("Forecast");
  for (std::size_t i = 0; i < kSeries.size(); ++i) {
    const auto& wanted = expected_["forecast"][kSeries[i].c_str()];
    for (rapidjson::SizeType h = 0; h < 8; ++h)
      expectClose(forecast[h][i], wanted[h].GetDouble(), kSeries[i], kTolerance);
  }
}

TEST_P(DynamicsReference, VarianceSharesAgree) {
  const OutputDocument document =
      analyse(csv(growth()), "LAG=" + lag(), "/DECOMPOSITION TYPE=[VARIANCE] BANDS=NONE HORIZON=8");
  const std::array<rapidjson::SizeType, 3> printed = {1, 4, 8};
  for (const std::string& series : kSeries) {
    const auto seen = document.cells("Variance Decomposition - " + series);
    const auto& errors = expected_["forecast_se_without_estimation_uncertainty"][series.c_str()];
    const auto& shares = expected_["fevd_by_variable"][series.c_str()];
    for (std::size_t row = 0; row < printed.size(); ++row) {
      expectClose(seen[row][0], errors[printed[row] - 1].GetDouble(), "standard error");
      for (rapidjson::SizeType shock = 0; shock < 3; ++shock) {
        expectClose(seen[row][1 + shock] / 100.0, shares[printed[row] - 1][shock].GetDouble(), "share", kTolerance);
      }
    }
  }
}

// The first columns of the table of each shock: response and standard error of every series.
TEST_P(DynamicsReference, ResponsesAgree) {
  constexpr double kDeltaReference = 1e-7;  // what the reference's own arithmetic keeps
  const rapidjson::Document errors = reference("us_dlog_lag" + lag() + "_asymptotic");
  const OutputDocument document = analyse(csv(growth()), "LAG=" + lag(), "/IMPULSE HORIZON=8 BANDS=ANALYTIC");
  const std::array<std::array<const char*, 3>, 2> types = {
      {{"Orthogonal", "irf_orthogonal_by_impulse", "se_orthogonal"}, {"Reduced", "irf_unit_by_impulse", "se_unit"}}};
  for (const auto& [type, responses, standardErrors] : types) {
    for (rapidjson::SizeType shock = 0; shock < 3; ++shock) {
      const auto seen = document.cells(std::string(type) + " Responses - " + kSeries[shock]);
      ASSERT_EQ(seen.size(), 9U);
      for (rapidjson::SizeType h = 0; h < 9; ++h) {
        for (rapidjson::SizeType i = 0; i < 3; ++i) {
          const double wanted = expected_[responses][kSeries[shock].c_str()][h][i].GetDouble();
          const double error = errors[standardErrors][h][i][shock].GetDouble();
          expectClose(seen[h][4 * i], wanted, type, 1e-12);
          EXPECT_NEAR(seen[h][4 * i + 1], error, kDeltaReference);
          EXPECT_NEAR(seen[h][4 * i + 2], wanted - 1.959963984540054 * error, 2 * kDeltaReference);
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Lags, DynamicsReference, testing::Values(2, 4),
                         [](const auto& one) { return "Lag" + std::to_string(one.param); });

// Forecast, standard error and limits of each case of lag and deterministic terms.
void expectLimits(const std::string& name, const Rows& rows) {
  const rapidjson::Document expected = reference(name);
  for (const auto& one : expected["cases"].GetArray()) {
    const std::string model =
        "LAG=" + std::to_string(one["lag"].GetInt()) + " DETERMINISTIC=" + one["deterministic"].GetString();
    SCOPED_TRACE(name + " " + model);
    const OutputDocument document = analyse(csv(rows), model, "/FORECAST HORIZON=8");
    const std::array keys = {"forecast", "standard_error", "lower", "upper"};
    for (std::size_t i = 0; i < kSeries.size(); ++i) {
      const auto seen = document.cells("Forecast - " + kSeries[i]);
      for (rapidjson::SizeType h = 0; h < 8; ++h) {
        for (std::size_t column = 0; column < keys.size(); ++column) {
          const auto& wanted = one[keys[column]][h][static_cast<rapidjson::SizeType>(i)];
          // Limits near zero are differences of larger numbers.
          expectClose(seen[h][column], wanted.GetDouble(), keys[column], kTolerance * seen[h][1]);
        }
      }
    }
  }
}

TEST(DynamicsLimits, AgreeForEveryLagAndDeterministicTerm) {
  expectLimits("us_dlog_limits", growth());
}

TEST(DynamicsLimits, AgreeForSeriesWithTrends) {
  expectLimits("us_levels_limits", levels());
}

TEST(ConditionalForecast, AgreesForEveryCondition) {
  const rapidjson::Document expected = reference("us_dlog_conditional");
  for (const auto& one : expected["cases"].GetArray()) {
    std::vector<std::array<std::string, 3>> future(8);
    for (const auto& held : one["held"].GetArray()) {
      future[held["horizon"].GetUint() - 1][held["series"].GetUint()] = fullNumber(held["value"].GetDouble());
    }
    std::string data = csv(growth());
    for (const auto& row : future) data += row[0] + "," + row[1] + "," + row[2] + "\n";
    const auto horizon = one["conditional_mean"].Size();
    const OutputDocument document =
        analyse(data, "LAG=2", "/FORECAST CONDITIONAL=YES HORIZON=" + std::to_string(horizon));
    const auto unusual = document.cells("Condition")[0];
    expectClose(unusual[0], one["q"].GetDouble(), "q");
    expectClose(unusual[1], one["df"].GetDouble(), "df of q");
    expectClose(unusual[2], one["p"].GetDouble(), "p of q");
    for (std::size_t i = 0; i < kSeries.size(); ++i) {
      const auto seen = document.cells("Forecast - " + kSeries[i]);
      const auto series = static_cast<rapidjson::SizeType>(i);
      for (rapidjson::SizeType h = 0; h < horizon; ++h) {
        expectClose(seen[h][0], one["conditional_mean"][h][series].GetDouble(), "mean", kTolerance);
        expectClose(seen[h][1], one["conditional_standard_error"][h][series].GetDouble(), "standard error", 1e-7);
        expectClose(seen[h][4], one["unconditional"][h][series].GetDouble(), "unconditional", kTolerance);
      }
    }
  }
}

}  // namespace
