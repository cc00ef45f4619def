// The back-test through the procedure: its forecasts are those of the procedure on the rows before, and its measures
// and tests follow from them by formulas written anew here.

#include <algorithm>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/students_t.hpp>
#include <cmath>
#include <fstream>
#include <map>
#include <numbers>

#include "tests/vardynamics/run_fixture.h"

namespace vardynamics {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

constexpr double kRefitTolerance = 1e-9;
constexpr double kRounding = 1e-10;
const std::string kModel = "VARDYNAMICS /MODEL ENDOGENOUS=a b LAG=1 ";

using Saved = std::map<std::string, std::vector<double>>;
using Errors = std::vector<double>;

Saved readSaved(const std::string& path) {
  std::ifstream file(path);
  const auto fields = [](const std::string& line) {
    std::vector<std::string> parts;
    std::istringstream stream(line);
    for (std::string part; std::getline(stream, part, ',');) parts.push_back(part);
    return parts;
  };
  std::string line;
  std::getline(file, line);
  const std::vector<std::string> names = fields(line);
  Saved saved;
  while (std::getline(file, line)) {
    const auto values = fields(line);
    for (std::size_t i = 0; i < names.size(); ++i) saved[names[i]].push_back(std::stod(values[i]));
  }
  return saved;
}

double mean(const Errors& values) {
  double sum = 0.0;
  for (const double value : values) sum += value;
  return sum / static_cast<double>(values.size());
}

double meanSquare(Errors values) {
  for (double& value : values) value *= value;
  return mean(values);
}

// Of the mean, with autocovariances up to `overlap` places.
double varianceOfMean(const Errors& values, std::size_t overlap) {
  const double center = mean(values);
  double sum = 0.0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    for (std::size_t j = 0; j < values.size(); ++j) {
      const std::size_t distance = i > j ? i - j : j - i;
      if (distance <= overlap) sum += (values[i] - center) * (values[j] - center);
    }
  }
  return sum / std::pow(static_cast<double>(values.size()), 2);
}

class BacktestRun : public RunTest {
 protected:
  void SetUp() override { fill(120); }

  // The rows first .. last - 1.
  void fill(std::size_t last, std::size_t first = 0) {
    series = relatedSeries(120);
    series.push_back(engine::noise(3, 120));
    const auto part = [&](std::size_t i) {
      return std::vector<double>(series[i].begin() + static_cast<std::ptrdiff_t>(first),
                                 series[i].begin() + static_cast<std::ptrdiff_t>(last));
    };
    columns({{"a", part(0)}, {"b", part(1)}, {"x", part(2)}});
  }

  Saved backtest(const std::string& command) {
    EXPECT_TRUE(run(command + " /SAVE FILE='backtest.csv' BACKTEST")) << firstError();
    return readSaved(folder.path() / "backtest.csv");
  }

  std::vector<std::vector<double>> series;
};

TEST_F(BacktestRun, EqualsForecastingFromTheRowsBefore) {
  for (const std::string deterministic : {"CONSTANT", "TREND"}) {
    const std::string model = kModel + "DETERMINISTIC=" + deterministic;
    fill(120);
    const Saved saved = backtest(model + " /BACKTEST ORIGINS=8 HORIZON=3 STEP=4 /AUXILIARY CILEVEL=80");
    ASSERT_EQ(saved.at("origin").size(), 24U);
    EXPECT_EQ(saved.at("origin").back(), 117.0);
    EXPECT_EQ(saved.at("row").back(), 120.0);
    EXPECT_EQ(saved.at("QUARTER_").back(), 4.0);
    for (const std::size_t at : {0U, 12U, 21U}) {
      const auto origin = static_cast<std::size_t>(saved.at("origin")[at]);
      fill(origin);
      ASSERT_TRUE(run(model + " /FORECAST HORIZON=3 /AUXILIARY CILEVEL=80"));
      const auto forecast = cells("Forecast - b");
      for (std::size_t h = 0; h < 3; ++h) {
        EXPECT_EQ(saved.at("horizon")[at + h], static_cast<double>(h + 1));
        EXPECT_EQ(saved.at("b_actual")[at + h], series[1][origin + h]);
        EXPECT_NEAR(saved.at("b_forecast")[at + h], forecast[h][0], kRefitTolerance);
        EXPECT_NEAR(saved.at("b_se")[at + h], forecast[h][1], kRefitTolerance);
        EXPECT_NEAR(saved.at("b_lower80")[at + h], forecast[h][2], kRefitTolerance);
        EXPECT_NEAR(saved.at("b_upper80")[at + h], forecast[h][3], kRefitTolerance);
      }
    }
  }
}

// One origin alone: its bias is its error.
TEST_F(BacktestRun, UsesObservedExogenousValuesAndWindowsOfOneLength) {
  const std::string model = kModel + "EXOGENOUS=x XLAGS=1 ";
  ASSERT_TRUE(run(model + "/BACKTEST ORIGINS=1 HORIZON=2")) << firstError();
  const auto seen = cells("Back-Test - a");
  EXPECT_THAT(notes("Back-Test - a"), Contains(StartsWith("The exogenous series have their observed values")));
  for (std::size_t t = 118; t < 120; ++t) session.dataset.columns[0].numbers[t] = std::nan("");
  ASSERT_TRUE(run(model + "/FORECAST HORIZON=2")) << firstError();
  for (std::size_t h = 0; h < 2; ++h) {
    EXPECT_NEAR(seen[h][2], series[0][118 + h] - cells("Forecast - a")[h][0], kRefitTolerance);
  }
  fill(120);
  const Saved rolling = backtest(kModel + "/BACKTEST ORIGINS=3 HORIZON=1 STEP=20 WINDOW=ROLLING");
  EXPECT_THAT(notes("Back-Test - a")[1], HasSubstr("fitted anew to the 78 rows before"));
  fill(99, 20);
  ASSERT_TRUE(run(kModel + "/FORECAST HORIZON=1"));
  EXPECT_NEAR(rolling.at("a_forecast")[1], cells("Forecast - a")[0][0], kRefitTolerance);
}

TEST_F(BacktestRun, MeasuresAndTestsFollowFromTheForecasts) {
  constexpr std::size_t kOrigins = 30;
  constexpr std::size_t kHorizon = 3;
  const Saved saved = backtest(kModel + "/BACKTEST ORIGINS=30 HORIZON=3 STEP=2");
  const auto accuracy = cells("Back-Test - b");
  const auto rivals = cells("Back-Test Against Rivals - b");
  EXPECT_EQ(rowLabels("Back-Test Against Rivals - b")[2], "No change, 3");
  EXPECT_EQ(rowLabels("Back-Test Against Rivals - b")[3], "Seasonal, 1");
  double scale = 0.0;  // mean absolute change over a year before the first origin, row 59
  for (std::size_t t = 4; t < 59; ++t) scale += std::fabs(series[1][t] - series[1][t - 4]) / 55.0;
  for (std::size_t h = 0; h < kHorizon; ++h) {
    Errors errors;
    Errors noChange;
    Errors gains;
    Errors absolute;
    double score = 0.0;
    double inside = 0.0;
    for (std::size_t o = 0; o < kOrigins; ++o) {
      const std::size_t row = o * kHorizon + h;
      const auto origin = static_cast<std::size_t>(saved.at("origin")[row]);
      const double actual = saved.at("b_actual")[row];
      errors.push_back(actual - saved.at("b_forecast")[row]);
      absolute.push_back(std::fabs(errors.back()));
      noChange.push_back(actual - series[1][origin - 1]);
      gains.push_back(noChange.back() * noChange.back() - errors.back() * errors.back());
      inside += actual >= saved.at("b_lower95")[row] && actual <= saved.at("b_upper95")[row] ? 1.0 : 0.0;
      const double spread = saved.at("b_se")[row];
      const double z = errors.back() / spread;
      const boost::math::normal_distribution<double> normal;
      score += spread * (z * (2.0 * cdf(normal, z) - 1.0) + 2.0 * pdf(normal, z) - std::numbers::inv_sqrtpi);
    }
    EXPECT_NEAR(accuracy[h][0], std::sqrt(meanSquare(errors)), kRounding);
    EXPECT_NEAR(accuracy[h][1], mean(absolute), kRounding);
    EXPECT_NEAR(accuracy[h][2], mean(errors), kRounding);
    EXPECT_NEAR(accuracy[h][3], mean(absolute) / scale, kRounding);
    EXPECT_NEAR(accuracy[h][4], score / kOrigins, kRounding);
    EXPECT_EQ(accuracy[h][5], inside);
    EXPECT_EQ(accuracy[h][6], 30.0);
    EXPECT_NEAR(rivals[h][0], std::sqrt(meanSquare(noChange)), kRounding);
    EXPECT_NEAR(rivals[h][3], 1.0 - meanSquare(errors) / meanSquare(noChange), kRounding);
    const std::size_t overlap = h / 2;  // origins two rows apart share shocks at horizon 3 alone
    const double steps = static_cast<double>(overlap + 1);
    const double factor = (kOrigins + 1.0 - 2.0 * steps + steps * (steps - 1.0) / kOrigins) / kOrigins;
    const double statistic = std::sqrt(factor / varianceOfMean(gains, overlap)) * mean(gains);
    EXPECT_NEAR(rivals[h][4], statistic, kRounding);
    const boost::math::students_t_distribution<double> student(kOrigins - 1.0);
    EXPECT_NEAR(rivals[h][5], 2.0 * cdf(student, -std::fabs(statistic)), kRounding);
    EXPECT_TRUE(std::isnan(rivals[h][6]));  // the model does not nest it
  }
}

// b's own autoregression by hand, one step ahead.
TEST_F(BacktestRun, TheAutoregressionIsTestedByClarkAndWest) {
  const Saved saved = backtest(kModel + "/BACKTEST ORIGINS=25 HORIZON=1");
  const std::vector<double>& y = series[1];
  Errors own;
  Errors gains;
  for (std::size_t o = 0; o < 25; ++o) {
    const auto origin = static_cast<std::size_t>(saved.at("origin")[o]);
    const Errors past(y.begin(), y.begin() + static_cast<std::ptrdiff_t>(origin - 1));
    const Errors next(y.begin() + 1, y.begin() + static_cast<std::ptrdiff_t>(origin));
    double products = 0.0;
    double squares = 0.0;
    for (std::size_t t = 0; t < past.size(); ++t) {
      products += (past[t] - mean(past)) * (next[t] - mean(next));
      squares += std::pow(past[t] - mean(past), 2);
    }
    const double forecast = mean(next) + products / squares * (y[origin - 1] - mean(past));
    own.push_back(y[origin] - forecast);
    const double error = saved.at("b_actual")[o] - saved.at("b_forecast")[o];
    const double difference = forecast - saved.at("b_forecast")[o];
    gains.push_back(own.back() * own.back() - (error * error - difference * difference));
  }
  const auto row = cells("Back-Test Against Rivals - b").back();
  EXPECT_EQ(rowLabels("Back-Test Against Rivals - b").back(), "AR(1), 1");
  EXPECT_NEAR(row[0], std::sqrt(meanSquare(own)), kRounding);
  const double statistic = mean(gains) / std::sqrt(varianceOfMean(gains, 0));
  EXPECT_NEAR(row[6], statistic, kRounding);
  EXPECT_NEAR(row[7], 0.5 * std::erfc(statistic / std::numbers::sqrt2), kRounding);
}

TEST_F(BacktestRun, SaysWhetherTheModelBeatsItsRivals) {
  ASSERT_TRUE(run(kModel + "/BACKTEST HORIZON=2 /PLOT TYPE=[BACKTEST]"));
  EXPECT_EQ(cells("Back-Test - a")[0][6], 29.0);  // a quarter of 119 rows
  const auto firstOf = [&](const std::string& name) { return notes("Back-Test Against Rivals - " + name).front(); };
  EXPECT_THAT(firstOf("a"),
              MatchesRegex("Back-test of a: better than no change at horizon 2 \\(p = [0-9.]+\\); not better "
                           "than an AR\\(1\\) of the series alone at any horizon \\(p = [0-9.]+ or more\\)\\."));
  EXPECT_THAT(
      firstOf("b"),
      MatchesRegex("Back-test of b: neither better nor worse than no change at any horizon \\(p = [0-9.]+ or more\\); "
                   "better than an AR\\(1\\) of the series alone at horizon 1 \\(.*\\) and 2 \\(.*\\)\\."));
  EXPECT_THAT(notes("Model Summary"), Contains(firstOf("b")));
  EXPECT_THAT(notes("Back-Test - a")[0], StartsWith("The 95 % limits held "));
  EXPECT_THAT(
      notes("Back-Test - a")[1],
      StartsWith("Forecasts from 29 origins, 2022Q2 to 2029Q2, each by the model fitted anew to all rows before, "
                 "at first 89;"));
  EXPECT_THAT(itemNames(), Contains("Back-Test Chart - b"));
  const auto noise = engine::noiseSeries(2, 120);
  columns({{"a", noise[0]}, {"b", noise[1]}}, false);
  ASSERT_TRUE(run(kModel + "/BACKTEST HORIZON=10 ORIGINS=2"));
  EXPECT_THAT(rowLabels("Back-Test - a"), ElementsAre("1", "4", "8", "10"));
  EXPECT_THAT(rowLabels("Back-Test Against Rivals - a"), testing::SizeIs(8));  // no cycle, no seasonal rival
}

}  // namespace
}  // namespace vardynamics
