// Decompositions of variances and of the data: what they add up to, whatever the order and the units.

#include <cmath>
#include <numeric>

#include "tests/vardynamics/run_fixture.h"

namespace vardynamics {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr double kSumTolerance = 1e-12;  // of the whole
constexpr double kRounding = 1e-9;
const std::string kModel = "VARDYNAMICS /MODEL ENDOGENOUS=a b c LAG=2 ";
const std::string kFew = " /BOOTSTRAP REPLICATIONS=200";

class DecompositionRun : public RunTest {
 protected:
  void SetUp() override {
    auto series = relatedSeries(120);
    std::vector<double> third = engine::noise(3, 120);
    for (std::size_t t = 0; t < 120; ++t) third[t] += 0.5 * series[1][t];
    columns({{"a", series[0]}, {"b", series[1]}, {"c", third}, {"x", engine::noise(4, 120)}});
  }

  std::vector<double> chartNumbers(const std::string& chart, const char* column) const {
    std::vector<double> values;
    for (const auto& value : item(chart)["columns"][column].GetArray()) {
      values.push_back(value.IsNumber() ? value.GetDouble() : std::nan(""));
    }
    return values;
  }
};

TEST_F(DecompositionRun, SharesOfOrthogonalShocksSumToTheWholeInTablesAndCharts) {
  ASSERT_TRUE(run(kModel + "/DECOMPOSITION TYPE=[VARIANCE] BANDS=NONE HORIZON=10 /PLOT TYPE=[VARIANCE]"))
      << firstError();
  EXPECT_THAT(rowLabels("Variance Decomposition - a"), ElementsAre("1", "4", "8", "10"));
  for (const std::string series : {"a", "b", "c"}) {
    for (const auto& row : cells("Variance Decomposition - " + series)) {
      ASSERT_EQ(row.size(), 4U);  // the standard error and three shares
      EXPECT_NEAR(row[1] + row[2] + row[3], 100.0, 100.0 * kSumTolerance);
    }
    const std::vector<double> drawn = chartNumbers("Variance Chart - " + series, "percent");  // all horizons
    ASSERT_EQ(drawn.size(), 30U);
    for (std::size_t h = 0; h < 10; ++h) EXPECT_NEAR(drawn[h] + drawn[10 + h] + drawn[20 + h], 100.0, 1e-10);
    EXPECT_EQ(drawn[9], cells("Variance Decomposition - " + series).back()[1]);
  }
  EXPECT_EQ(cells("Variance Decomposition - a")[0][1], 100.0);  // nothing else moves the first series at once
  EXPECT_THAT(itemNames(), ElementsAre("Model Summary", "Variance Decomposition - a", "Variance Chart - a",
                                       "Variance Decomposition - b", "Variance Chart - b", "Variance Decomposition - c",
                                       "Variance Chart - c", "Parameters - a", "Parameters - b", "Parameters - c",
                                       "Model Fit", "Residual Covariance", "Residual Correlation"));
}

TEST_F(DecompositionRun, BandsHoldTheShareAndWideLevelsHoldNarrowOnes) {
  ASSERT_TRUE(run(kModel + "/DECOMPOSITION TYPE=[VARIANCE GENERALIZED] HORIZON=5 /AUXILIARY CILEVEL=68 90" + kFew));
  for (const std::string table : {"Variance Decomposition - b", "Generalized Variance Decomposition - b",
                                  "Normalised Generalized Decomposition - b"}) {
    for (const auto& row : cells(table)) {
      ASSERT_EQ(row.size(), 16U);
      for (std::size_t shock = 0; shock < 3; ++shock) {
        const double* const cell = row.data() + 1 + 5 * shock;  // share, 68 %, 90 %
        EXPECT_TRUE(cell[3] <= cell[1] && cell[1] <= cell[2] && cell[2] <= cell[4]) << table;
        EXPECT_TRUE(cell[3] <= cell[0] + 10.0 && cell[0] <= cell[4] + 10.0) << table;
      }
    }
  }
  EXPECT_THAT(notes("Model Summary"), Contains(StartsWith("At 5 periods ")).Times(3));
  EXPECT_THAT(notes("Variance Decomposition - a"), Contains(StartsWith("Limits from 200 bootstrap draws")));
  const auto first = cells("Variance Decomposition - a");
  ASSERT_TRUE(run(kModel + "/DECOMPOSITION TYPE=[VARIANCE] HORIZON=5 /AUXILIARY CILEVEL=68 90 /BOOTSTRAP SEED=2 "
                           "REPLICATIONS=200"));
  EXPECT_NE(cells("Variance Decomposition - a")[1], first[1]);
}

// The order of the series and ORDER permuted together.
TEST_F(DecompositionRun, OnlyTheOrderOfTheShocksMatters) {
  const std::string rest = "LAG=2 /DECOMPOSITION BANDS=NONE ORDER=b c a";
  ASSERT_TRUE(run("VARDYNAMICS /MODEL ENDOGENOUS=a b c " + rest)) << firstError();
  const auto variance = cells("Variance Decomposition - a");
  const auto history = cells("Historical Decomposition");
  EXPECT_THAT(notes("Variance Decomposition - a"), Contains(HasSubstr("in the order b, c and a:")));
  ASSERT_TRUE(run("VARDYNAMICS /MODEL ENDOGENOUS=c a b " + rest));
  const auto seen = cells("Variance Decomposition - a");
  for (std::size_t h = 0; h < seen.size(); ++h) {
    EXPECT_NEAR(seen[h][2], variance[h][1], kRounding);  // shocks to a
    EXPECT_NEAR(seen[h][1], variance[h][3], kRounding);  // to c
  }
  EXPECT_NEAR(cells("Historical Decomposition").back()[1], history[6][0], kRounding);  // shocks to b in a
  EXPECT_EQ(cells("Variance Decomposition - b")[0][3], 100.0);                         // b comes first
}

TEST_F(DecompositionRun, GeneralizedSharesEqualOrthogonalOnesOfTheFirstShock) {
  ASSERT_TRUE(run(kModel + "/DECOMPOSITION TYPE=[VARIANCE GENERALIZED] BANDS=NONE ORDER=c a b"));
  for (const std::string series : {"a", "b", "c"}) {
    const auto orthogonal = cells("Variance Decomposition - " + series);
    const auto generalized = cells("Generalized Variance Decomposition - " + series);
    const auto normalised = cells("Normalised Generalized Decomposition - " + series);
    for (std::size_t h = 0; h < orthogonal.size(); ++h) {
      EXPECT_NEAR(generalized[h][3], orthogonal[h][3], kRounding);
      const double sum = generalized[h][1] + generalized[h][2] + generalized[h][3];
      for (std::size_t j = 1; j < 4; ++j) EXPECT_NEAR(normalised[h][j], 100.0 * generalized[h][j] / sum, kRounding);
    }
  }
}

TEST_F(DecompositionRun, PartsOfTheHistorySumToTheChangeOfTheData) {
  ASSERT_TRUE(
      run("VARDYNAMICS /MODEL ENDOGENOUS=a b c EXOGENOUS=x XLAGS=1 LAG=3 DETERMINISTIC=TREND SEASONAL=YES "
          "/DECOMPOSITION TYPE=[HISTORICAL] /PLOT TYPE=[HISTORICAL]"))
      << firstError();
  EXPECT_EQ(item("Historical Decomposition")["title"], "Historical Decomposition, 2000Q4 to 2029Q4");
  EXPECT_THAT(rowLabels("Historical Decomposition"),
              ElementsAre("Data, 2000Q4", "Data, 2029Q4", "Change", "Deterministic part", "x", "Initial conditions",
                          "Shocks to a", "Shocks to b", "Shocks to c"));
  const auto table = cells("Historical Decomposition");
  for (std::size_t i = 0; i < 3; ++i) {
    const std::vector<double>& data = session.dataset.columns[i].numbers;
    EXPECT_EQ(table[0][i], data[3]);
    EXPECT_EQ(table[1][i], data[119]);
    EXPECT_EQ(table[2][i], data[119] - data[3]);
    double sum = 0.0;
    double largest = 0.0;
    for (std::size_t part = 3; part < table.size(); ++part) {
      sum += table[part][i];
      largest = std::max(largest, std::fabs(table[part][i]));
    }
    EXPECT_NEAR(sum, table[2][i], kSumTolerance * largest);
  }
  const std::vector<double> bars = chartNumbers("Historical Chart - b", "part");
  const std::vector<double> line = chartNumbers("Historical Chart - b", "sum");
  ASSERT_EQ(bars.size(), 351U);  // three shocks in 117 rows
  for (std::size_t t = 0; t < 117; ++t) EXPECT_NEAR(line[t], bars[t] + bars[117 + t] + bars[234 + t], 1e-12);
}

TEST_F(DecompositionRun, SaysHowLongTheInitialConditionsMatter) {
  ASSERT_TRUE(run(kModel + "/DECOMPOSITION TYPE=[HISTORICAL]"));
  EXPECT_THAT(notes("Historical Decomposition"),
              Contains(StartsWith("The values before the first row matter until 200")));
  std::vector<double> walk = engine::noise(5, 60);
  std::partial_sum(walk.begin(), walk.end(), walk.begin());
  for (double& value : walk) value += 100.0;
  columns({{"a", walk}, {"b", engine::noise(6, 60)}, {"c", engine::noise(7, 60)}});
  ASSERT_TRUE(run(kModel + "/DECOMPOSITION TYPE=[HISTORICAL]"));
  EXPECT_THAT(notes("Historical Decomposition"), Contains(HasSubstr("still matter in the last one")));
}

// In any units: the same shares, to the last text.
TEST_F(DecompositionRun, SharesHaveNoUnits) {
  const std::string command = kModel + "/DECOMPOSITION TYPE=[VARIANCE GENERALIZED]" + kFew;
  ASSERT_TRUE(run(command));
  const auto plain = cells("Variance Decomposition - b");
  const auto said = notes("Variance Decomposition - a");
  for (std::size_t i = 0; i < 3; ++i) {
    for (double& value : session.dataset.columns[i].numbers)
      value *= std::pow(10.0, 8.0 * static_cast<double>(i) - 8.0);
  }
  ASSERT_TRUE(run(command)) << firstError();
  EXPECT_EQ(notes("Variance Decomposition - a"), said);
  const auto scaled = cells("Variance Decomposition - b");
  for (std::size_t h = 0; h < plain.size(); ++h) {
    for (std::size_t j = 1; j < plain[h].size(); ++j) EXPECT_NEAR(scaled[h][j], plain[h][j], 1e-8);
  }
}

}  // namespace
}  // namespace vardynamics
