// What a run produces: which tables, on which rows, in which units.

#include <algorithm>
#include <cmath>
#include <map>

#include "tests/vardynamics/run_fixture.h"

namespace vardynamics {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const double kMissing = std::nan("");
const std::string kModel = "VARDYNAMICS /MODEL ENDOGENOUS=a b ";

class ProcedureRun : public RunTest {
 protected:
  void SetUp() override {
    const auto series = relatedSeries(120);
    columns({{"a", series[0]}, {"b", series[1]}, {"x", engine::noise(3, 120)}});
  }
};

TEST_F(ProcedureRun, WhatIsLeftOutProducesNothing) {
  ASSERT_TRUE(run(kModel)) << firstError();
  EXPECT_THAT(itemNames(), ElementsAre("Model Summary", "Lag Selection", "Parameters - a", "Parameters - b",
                                       "Model Fit", "Residual Covariance", "Residual Correlation"));
  ASSERT_TRUE(run(kModel + "LAG=1 /TESTS TYPE=[ARCH LM] /CAUSALITY TYPE=[INSTANTANEOUS] /STABILITY /FORECAST"));
  EXPECT_THAT(itemNames(), ElementsAre("Model Summary", "Forecast - a", "Forecast - b", "Roots", "LM Test", "ARCH Test",
                                       "Instantaneous Causality", "Parameters - a", "Parameters - b", "Model Fit",
                                       "Residual Covariance", "Residual Correlation"));
  ASSERT_TRUE(run(kModel + "/TESTS /CAUSALITY"));
  for (const std::string table :
       {"Portmanteau Test", "LM Test", "ARCH Test", "Normality Tests", "Residuals by Equation", "Unit Root Tests",
        "Granger Causality", "Granger Causality on All Others", "Instantaneous Causality"}) {
    EXPECT_THAT(itemNames(), Contains(table));
  }
}

TEST_F(ProcedureRun, TheHeadlineIsMadeOfTheNumbers) {
  ASSERT_TRUE(run(kModel + "LAG=1 /STABILITY /TESTS TYPE=[PORTMANTEAU] /CAUSALITY TYPE=[GRANGER] /FORECAST HORIZON=2"));
  EXPECT_THAT(
      notes("Model Summary"),
      ElementsAre("Sample: 2000Q1 to 2029Q4, 120 rows.", "Lag 1 was given.",
                  StartsWith("The model is stable: its largest root has modulus 0.618."),
                  StartsWith("No autocorrelation is left in the residuals up to lag 12 (portmanteau test, p = "),
                  StartsWith("a leads b (p = "), StartsWith("Forecast of a for 2030Q2: "),
                  StartsWith("Forecast of b for 2030Q2: "), "Verdicts are taken at the level of 5 %."));
  EXPECT_THAT(cells("Model Summary"), ElementsAre(ElementsAre(120), ElementsAre(0), ElementsAre(119), ElementsAre(1),
                                                  ElementsAre(2), ElementsAre(3), ElementsAre(116)));
  ASSERT_TRUE(run(kModel + "LAG=1 /CAUSALITY TYPE=[GRANGER] /AUXILIARY CILEVEL=80 99.9"));
  EXPECT_THAT(notes("Model Summary").back(), "Verdicts are taken at the level of 0.1 %.");
}

TEST_F(ProcedureRun, TheLagIsChosenAmongLagsOnTheSameRowsAndNeverZero) {
  const auto independent = engine::noiseSeries(2, 100);
  columns({{"a", independent[0]}, {"b", independent[1]}});
  ASSERT_TRUE(run(kModel + "SELECT=BIC"));
  EXPECT_THAT(rowLabels("Lag Selection"), testing::SizeIs(13));  // 0 .. min(12, 100 / 8)
  EXPECT_THAT(rowLabels("Lag Selection")[1], HasSubstr("BIC"));
  EXPECT_EQ(cells("Model Summary")[3][0], 1);
  EXPECT_EQ(cells("Model Summary")[2][0], 99);  // the fit itself uses all rows that lag 1 leaves
  ASSERT_TRUE(run(kModel + "SELECT=FPE MINLAG=3 MAXLAG=5"));
  EXPECT_GE(cells("Model Summary")[3][0], 3);
  EXPECT_THAT(notes("Lag Selection").back(), StartsWith("All lags on the same 95 rows"));
}

// Scaled data: the same tests, scaled forecasts.
TEST_F(ProcedureRun, UnitsChangeNothingButUnits) {
  constexpr double kUnitTolerance = 1e-12;
  const std::string command = kModel + "EXOGENOUS=x LAG=2 /STABILITY /TESTS /CAUSALITY /FORECAST HORIZON=4";
  auto series = relatedSeries(104);
  std::vector<double> x = engine::noise(3, 104);
  for (auto& one : series) one.resize(104, kMissing);
  for (std::size_t t = 100; t < 104; ++t) series[0][t] = series[1][t] = kMissing;
  columns({{"a", series[0]}, {"b", series[1]}, {"x", x}});
  ASSERT_TRUE(run(command)) << firstError();
  const std::vector<std::string> unitFree = {"Roots",
                                             "Portmanteau Test",
                                             "LM Test",
                                             "ARCH Test",
                                             "Normality Tests",
                                             "Residuals by Equation",
                                             "Unit Root Tests",
                                             "Granger Causality",
                                             "Granger Causality on All Others",
                                             "Instantaneous Causality",
                                             "Residual Correlation"};
  std::map<std::string, std::vector<std::vector<double>>> plain;
  for (const std::string& table : itemNames()) plain[table] = cells(table);
  for (const double factor : {1e-6, 1e6}) {
    auto scaled = series;
    for (auto& one : scaled) {
      for (double& value : one) value *= factor;
    }
    std::vector<double> scaledX = x;
    for (double& value : scaledX) value *= factor * factor;
    columns({{"a", scaled[0]}, {"b", scaled[1]}, {"x", scaledX}});
    ASSERT_TRUE(run(command)) << firstError();
    const auto expectScaled = [&](const std::string& table, double by) {
      const auto seen = cells(table);
      ASSERT_EQ(seen.size(), plain[table].size()) << table;
      for (std::size_t i = 0; i < seen.size(); ++i) {
        for (std::size_t j = 0; j < seen[i].size(); ++j) {
          if (std::isnan(plain[table][i][j])) {
            EXPECT_TRUE(std::isnan(seen[i][j])) << table;
          } else {
            EXPECT_NEAR(seen[i][j], by * plain[table][i][j],
                        kUnitTolerance * by * std::max(1.0, std::fabs(plain[table][i][j])))
                << table << " times " << factor;
          }
        }
      }
    };
    for (const std::string& table : unitFree) expectScaled(table, 1.0);
    expectScaled("Forecast - a", factor);
    expectScaled("Forecast - b", factor);
    expectScaled("Residual Covariance", factor * factor);
  }
}

TEST_F(ProcedureRun, IncompleteEndsAreLeftOutAndCounted) {
  auto series = relatedSeries(60);
  series[0][0] = series[1][1] = series[0][59] = kMissing;
  columns({{"a", series[0]}, {"b", series[1]}});
  ASSERT_TRUE(run(kModel + "LAG=1 /FORECAST"));
  EXPECT_EQ(notes("Model Summary")[0],
            "Sample: 2000Q3 to 2014Q3, 57 rows. Incomplete rows left out: 2 before the sample, 1 after it.");
  EXPECT_THAT(notes("Model Summary")[1], HasSubstr("CONDITIONAL=YES would hold them"));
  EXPECT_THAT(rowLabels("Forecast - a"), testing::SizeIs(8));  // two cycles
  EXPECT_EQ(rowLabels("Forecast - a").front(), "2014Q4");
  ASSERT_TRUE(run(kModel + "LAG=1 /FORECAST CONDITIONAL=YES HORIZON=3"));
  EXPECT_EQ(cells("Forecast - b")[0][0], series[1][59]);  // held
  EXPECT_EQ(cells("Forecast - b")[0][1], 0.0);
  EXPECT_EQ(cells("Condition")[0][1], 1.0);
}

TEST_F(ProcedureRun, TheHorizonFollowsTheFutureRows) {
  const auto series = relatedSeries(60);
  std::vector<double> a = series[0];
  std::vector<double> b = series[1];
  for (std::size_t t = 55; t < 60; ++t) a[t] = b[t] = kMissing;
  columns({{"a", a}, {"b", b}, {"x", engine::noise(3, 60)}});
  ASSERT_TRUE(run(kModel + "EXOGENOUS=x XLAGS=2 LAG=1 /FORECAST")) << firstError();
  EXPECT_THAT(rowLabels("Forecast - a"), ElementsAre("2013Q4", "2014Q1", "2014Q2", "2014Q3", "2014Q4"));
  EXPECT_EQ(cells("Model Summary")[2][0], 53);  // rows from max(p, q) on
  EXPECT_THAT(rowLabels("Parameters - a"), ElementsAre("Constant", "a(t-1)", "b(t-1)", "x", "x(t-1)", "x(t-2)"));
  ASSERT_TRUE(run(kModel + "LAG=1 DETERMINISTIC=TREND SEASONAL=YES /FORECAST HORIZON=1"));
  EXPECT_THAT(rowLabels("Parameters - a"),
              ElementsAre("Constant", "a(t-1)", "b(t-1)", "Trend", "Quarter 1", "Quarter 2", "Quarter 3"));
}

// 2004 and 2009 have 53 weeks.
TEST_F(ProcedureRun, TheWeek53CountsAsTheWeekBefore) {
  const auto series = relatedSeries(340);
  columns({{"a", series[0]}, {"b", series[1]}}, false);
  workbench::DatesRequest dates;
  dates.start = {{workbench::Unit::year, 2004}, {workbench::Unit::week, 1}};
  workbench::defineDates(session.dataset, dates, session.trends);
  ASSERT_TRUE(run(kModel + "LAG=1 SEASONAL=YES")) << firstError();
  EXPECT_THAT(notes("Model Summary"), Contains("Week 53 counts as week 52 among the seasons: 2 periods."));
  EXPECT_THAT(rowLabels("Parameters - a"), Contains("Week 51"));
  EXPECT_THAT(rowLabels("Parameters - a"), testing::SizeIs(1 + 2 + 51));
  ASSERT_TRUE(run(kModel + "LAG=1"));
  EXPECT_THAT(notes("Model Summary"), Not(Contains(HasSubstr("Week 53"))));
}

TEST_F(ProcedureRun, NestedLevelsGiveNestedLimits) {
  ASSERT_TRUE(run(kModel + "LAG=1 /FORECAST HORIZON=2 /AUXILIARY CILEVEL=95 68"));
  for (const auto& row : cells("Forecast - a")) {
    EXPECT_TRUE(row[4] < row[2] && row[2] < row[0] && row[0] < row[3] && row[3] < row[5]);
  }
}

// The order of the series changes no table but that order.
TEST_F(ProcedureRun, TheOrderOfTheSeriesDoesNotMatter) {
  constexpr double kRounding = 1e-11;
  const std::string rest = "LAG=2 /TESTS TYPE=[PORTMANTEAU LM ARCH] /FORECAST HORIZON=3";
  ASSERT_TRUE(run(kModel + rest));
  std::map<std::string, std::vector<std::vector<double>>> first;
  const std::vector<std::string> tables = {"Portmanteau Test", "LM Test", "Forecast - a", "Forecast - b"};
  for (const std::string& table : tables) first[table] = cells(table);
  ASSERT_TRUE(run("VARDYNAMICS /MODEL ENDOGENOUS=b a " + rest));
  for (const std::string& table : tables) {
    const auto seen = cells(table);
    for (std::size_t i = 0; i < seen.size(); ++i) {
      for (std::size_t j = 0; j < seen[i].size(); ++j) {
        EXPECT_NEAR(seen[i][j], first[table][i][j], kRounding * std::max(1.0, std::fabs(seen[i][j]))) << table;
      }
    }
  }
}

TEST_F(ProcedureRun, TestsThatCannotBeComputedSayWhy) {
  const auto series = relatedSeries(16);
  columns({{"a", series[0]}, {"b", series[1]}});
  ASSERT_TRUE(run(kModel + "LAG=2 /TESTS TYPE=[PORTMANTEAU LM ARCH] LAGS=2")) << firstError();
  EXPECT_THAT(notes("Portmanteau Test")[0],
              "The portmanteau test needs more lags than the model has: give LAGS=3 or more.");
  ASSERT_TRUE(run(kModel + "LAG=2 /TESTS TYPE=[PORTMANTEAU LM ARCH] LAGS=3"));
  EXPECT_THAT(notes("Portmanteau Test")[0], Not(HasSubstr("LAGS=")));
  EXPECT_THAT(notes("ARCH Test")[0], HasSubstr("too short for the joint ARCH test"));
  EXPECT_TRUE(std::isnan(cells("ARCH Test")[0][0]));
  ASSERT_TRUE(run(kModel + "LAG=2 /TESTS TYPE=[LM] LAGS=12"));
  EXPECT_THAT(notes("LM Test").back(), HasSubstr("too short for the LM test from lag"));
}

}  // namespace
}  // namespace vardynamics
