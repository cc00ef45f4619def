// Unit-root tests against statsmodels 0.13.

#include "engine/diagnostics/stationarity.h"
#include "engine/diagnostics/unit_root_tests.h"
#include "tests/engine/dynamics_fixture.h"

namespace engine {
namespace {

constexpr UnitRootTerms kConstant = UnitRootTerms::constant;
constexpr UnitRootTerms kTrend = UnitRootTerms::constantAndTrend;

TEST(AugmentedDickeyFuller, AgreesWithStatsmodels) {
  const SeriesList level = levels();
  const SeriesList change = growth();
  const std::vector<double> start20(level[0].begin(), level[0].begin() + 20);
  const struct {
    const std::vector<double>& series;
    UnitRootTerms terms;
    double statistic, pValue;
    std::size_t lags, rows;
  } cases[] = {
      {level[0], kConstant, 1.7504627967647144, 0.9982455372335032, 12, 190},
      {level[0], kTrend, -1.2317718968009206, 0.9037875818651032, 12, 190},
      {level[1], kConstant, 1.549912338050964, 0.9976992503412904, 4, 198},
      {level[2], kConstant, -1.2572522246532603, 0.6484956579101143, 3, 199},
      {level[2], kTrend, -2.3007595535377687, 0.43352980301056293, 3, 199},
      {change[0], kConstant, -6.972871347216232, 8.5750958448986e-10, 1, 200},
      {change[0], kTrend, -7.185508898203368, 5.355073530363373e-09, 1, 200},
      // As many lags as so short a series allows.
      {start20, kConstant, -1.3095030398170735, 0.624813524426717, 8, 11},
      {start20, kTrend, -4.892522192432608, 0.0003214322860380631, 7, 12},
  };
  for (const auto& one : cases) {
    const AugmentedDickeyFuller seen = augmentedDickeyFuller(one.series, one.terms).value();
    EXPECT_TRUE(closeTo(seen.statistic, one.statistic, kReference));
    EXPECT_TRUE(closeTo(seen.pValue, one.pValue, kReference));
    EXPECT_EQ(seen.lags, one.lags);
    EXPECT_EQ(seen.rows, one.rows);
  }
}

TEST(Kpss, AgreesWithStatsmodels) {
  const SeriesList level = levels();
  const SeriesList change = growth();
  const std::vector<double> start12(level[0].begin(), level[0].begin() + 12);
  const std::vector<double> start30(level[0].begin(), level[0].begin() + 30);
  const struct {
    const std::vector<double>& series;
    UnitRootTerms terms;
    double statistic, pValue;
    std::size_t lags;
  } cases[] = {
      {level[0], kConstant, 2.06851473839311, 0.01, 9},
      {level[0], kTrend, 0.4962690590101727, 0.01, 9},
      {level[2], kTrend, 0.34706005977068244, 0.01, 9},
      {change[0], kConstant, 0.32359486745237315, 0.1, 6},
      {change[0], kTrend, 0.05154549540238941, 0.1, 6},
      {start12, kConstant, 0.5886559955098121, 0.023667636771835265, 1},
      {start30, kTrend, 0.203244815767299, 0.014783194087262875, 3},
  };
  for (const auto& one : cases) {
    const Kpss seen = kpss(one.series, one.terms).value();
    EXPECT_TRUE(closeTo(seen.statistic, one.statistic, kReference));
    EXPECT_TRUE(closeTo(seen.pValue, one.pValue, kReference));
    EXPECT_EQ(seen.lags, one.lags);
  }
}

TEST(UnitRootTests, UnitsAndLevelChangeNothing) {
  constexpr double kLevel = 4398046511104.0;  // 2^42: sums with these values are exact
  std::vector<double> series;
  for (const double value : growth()[1]) series.push_back(std::round(value * 1024.0) / 1024.0);
  const auto adf = augmentedDickeyFuller(series, kTrend).value();
  const Kpss level = kpss(series, kConstant).value();
  const auto expectSame = [&](double shift, double unit) {
    SCOPED_TRACE(testing::Message() << shift << " and times " << unit);
    std::vector<double> moved;
    for (const double value : series) moved.push_back((value + shift) * unit);
    EXPECT_TRUE(closeTo(augmentedDickeyFuller(moved, kTrend).value().statistic, adf.statistic, 1e-11));
    EXPECT_TRUE(closeTo(kpss(moved, kConstant).value().statistic, level.statistic, 1e-11));
  };
  expectSame(kLevel, 1.0);
  expectSame(-kLevel, 0x1p-1000);
  expectSame(0.0, 1e-290);
  expectSame(0.0, 1e290);
}

TEST(UnitRootTests, RefuseWhatDoesNotVaryOrIsTooShort) {
  EXPECT_FALSE(augmentedDickeyFuller(std::vector<double>(50, 3.0), kConstant));
  EXPECT_FALSE(augmentedDickeyFuller(trendColumn(50), kTrend));
  EXPECT_FALSE(kpss(std::vector<double>(50, 3.0), kConstant));
  EXPECT_FALSE(kpss(trendColumn(50), kTrend));
  std::vector<double> exact{1.0};  // its own past explains it without error
  while (exact.size() < 40) exact.push_back(0.75 * exact.back() + 1.0);
  EXPECT_FALSE(augmentedDickeyFuller(exact, kConstant));
  const std::vector<double> alternating = {1, -1, 1, -1, 1, -1, 1, -1};
  EXPECT_FALSE(augmentedDickeyFuller(alternating, kConstant));
  EXPECT_TRUE(std::isfinite(kpss(alternating, kConstant).value().statistic));
  for (std::size_t length = 0; length < 12; ++length) {
    const auto seen = augmentedDickeyFuller(noise(7, length), kTrend);
    EXPECT_EQ(seen.has_value(), length >= 6);
    EXPECT_TRUE(!seen || std::isfinite(seen->statistic)) << length;
  }
}

TEST(Stationarity, JoinsBothTestsAndTellsWhoseChangesAreInProportion) {
  const SeriesList level = levels();
  const auto verdict = [](const std::vector<double>& x) { return judgeStationarity(x, 0.05).value().verdict; };
  EXPECT_EQ(verdict(level[0]), Stationarity::unitRoot);
  EXPECT_EQ(verdict(growth()[0]), Stationarity::aroundLevel);
  std::vector<double> trending = noise(3, 200);
  for (std::size_t t = 0; t < trending.size(); ++t) trending[t] += 0.1 * double(t);
  EXPECT_EQ(verdict(trending), Stationarity::aroundTrend);
  EXPECT_FALSE(judgeStationarity(trendColumn(50), 0.05));
  // A random walk in logarithms and one in levels, the latter far from zero too, in any unit.
  std::vector<double> growing{100.0};
  std::vector<double> walking{100.0};
  for (const double step : noise(5, 300)) {
    growing.push_back(growing.back() * std::exp(0.01 + 0.02 * step));
    walking.push_back(walking.back() + 0.5 + 2.0 * step);
  }
  for (const double unit : {1e-6, 1.0, 1e9}) {
    EXPECT_TRUE(changesInProportion(scaled({growing}, unit)[0]));
    EXPECT_FALSE(changesInProportion(scaled({walking}, unit)[0]));
  }
  EXPECT_FALSE(changesInProportion(std::vector<double>{1.0, 2.0, 0.0, 3.0}));
}

TEST(MackinnonTail, EndsOfItsRangeAndCriticalValues) {
  EXPECT_EQ(mackinnonTail(-20, kConstant), 0.0);
  EXPECT_EQ(mackinnonTail(3, kConstant), 1.0);
  // The asymptotic 5 % points of MacKinnon (2010): -2.86154 and -3.41049.
  EXPECT_NEAR(mackinnonTail(-2.86154, kConstant), 0.05, 2e-4);
  EXPECT_NEAR(mackinnonTail(-3.41049, kTrend), 0.05, 2e-4);
}

}  // namespace
}  // namespace engine
