// Forecasts of transformed series in the unit of the data, and saved files that are joined to the data again.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "document.h"
#include "program.h"

namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;

class Levels : public testing::Test {
 protected:
  Levels() { space.example("us_macro_quarterly.csv"); }

  ProgramRun run(std::vector<std::string> words, const std::vector<std::string>& more) const {
    words.insert(words.end(), {"--dates", "year=year", "quarter=quarter", "--json", "out.json"});
    words.insert(words.end(), more.begin(), more.end());
    return space.run(words);
  }
  ProgramRun analyze(const std::vector<std::string>& more) const {
    const ProgramRun done = run({"analyze", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "tbilrate",
                                 "unemp", "--lag", "2", "--predict", "6", "--bands", "none", "--transform",
                                 "realgdp=dlog*100", "realcons=pct", "tbilrate=diff", "unemp=sdiff"},
                                more);
    EXPECT_EQ(done.exitCode, 0) << done.err;
    return done;
  }
  std::vector<std::vector<double>> cells(const std::string& table) const {
    return OutputDocument(space.read("out.json")).cells(table);
  }

  Workspace space;
};

TEST_F(Levels, GoOnFromTheLastValuesOfTheData) {
  const std::string shown = unwrapped(analyze({}).out);
  EXPECT_THAT(shown, AllOf(HasSubstr("Forecast of realgdp in levels for 2011Q1: 13"),
                           HasSubstr("Forecast in Levels - unemp"), HasSubstr("but for what is marked as in levels")));
  const std::vector<std::string> names{"realgdp", "realcons", "tbilrate", "unemp"};
  const std::vector<std::vector<double>> last{{12990.341}, {9256.0}, {0.12}, {6.9, 8.1, 9.2, 9.6}};  // of the file
  for (std::size_t i = 0; i < names.size(); ++i) {
    SCOPED_TRACE(names[i]);
    const auto changes = cells("Forecast - " + names[i]);
    const auto levels = cells("Forecast in Levels - " + names[i]);
    ASSERT_EQ(levels.size(), 6u);
    const auto step = [&](double y, double x) {
      return i == 0 ? x * std::exp(y / 100) : i == 1 ? x * (1 + y / 100) : x + y;
    };
    std::vector<double> path = last[i];
    for (std::size_t h = 0; h < 6; ++h) {
      path.push_back(step(changes[h][0], path[h]));
      EXPECT_NEAR(levels[h][0], path.back(), 1e-9 * std::fabs(path.back())) << h;
    }
    // Of the first period the limits are those of the change; ln(1 + y/100) has them by its linear part.
    const double tolerance = (i == 1 ? 1e-3 : 1e-9) * std::fabs(path.back());
    EXPECT_NEAR(levels[0][1], step(changes[0][2], last[i][0]), tolerance);
    EXPECT_NEAR(levels[0][2], step(changes[0][3], last[i][0]), tolerance);
    EXPECT_GT(levels[3][2] - levels[3][1], levels[0][2] - levels[0][1]);
  }
}

// Also where the series were multiplied because their unit is small.
TEST_F(Levels, StandBelowTheForecastsOfVarmodel) {
  const auto fit = [&](const std::string& factor) {
    const ProgramRun done =
        run({"fit", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "realinv", "--maxlag", "1",
             "--model-only", "--predict", "2", "--all"},
            {"--transform", "realgdp=dlog" + factor, "realcons=dlog" + factor, "realinv=dlog" + factor});
    EXPECT_EQ(done.exitCode, 0) << done.err;
    const std::string said = after(unwrapped(done.out), "Forecast of realgdp in levels: ");
    EXPECT_THAT(said, testing::ContainsRegex("^2009Q4 13[0-9]{3}\\.[0-9]+, 2010Q1 13[0-9]{3}\\.[0-9]+\\."));
    return said;
  };
  const std::string percent = fit("*100");
  const auto changes = cells("Forecast");
  const double level = 12990.341 * std::exp((changes[0][0] + changes[0][1]) / 100);
  EXPECT_NEAR(std::stod(after(percent, "2010Q1 ")), level, 0.06);
  EXPECT_EQ(fit(""), percent);
}

TEST_F(Levels, OfDrawnFuturesHavePercentilesNearTheirAnalyticLimits) {
  analyze({"--cilevel", "80"});
  const auto analytic = cells("Forecast in Levels - tbilrate");
  space.file("job.toml", R"(
command = '''VARDYNAMICS /MODEL ENDOGENOUS=realgdp realcons tbilrate unemp LAG=2
           /FORECAST HORIZON=6 INTERVAL=BOOTSTRAP /AUXILIARY CILEVEL=80'''
data.source = "us_macro_quarterly.csv"
dates.variables = { year = "year", quarter = "quarter" }
variables.realgdp.transform = "dlog*100"
variables.realcons.transform = "pct"
variables.tbilrate.transform = "diff"
variables.unemp.transform = "sdiff"
)");
  const ProgramRun done = space.run({"run", "job.toml", "--json", "out.json"});
  ASSERT_EQ(done.exitCode, 0) << done.err;
  const auto drawn = cells("Forecast in Levels - tbilrate");
  const auto changes = cells("Forecast - tbilrate");
  EXPECT_NEAR(drawn[0][1], 0.12 + changes[0][1], 1e-9);
  EXPECT_NEAR(drawn[0][2], 0.12 + changes[0][2], 1e-9);
  // Sums of shocks come nearer to a normal distribution than the shocks, whose tails are heavy.
  for (std::size_t h = 2; h < 6; ++h) {
    EXPECT_EQ(drawn[h][0], analytic[h][0]);
    EXPECT_NEAR((drawn[h][2] - drawn[h][1]) / (analytic[h][2] - analytic[h][1]), 1.0, 0.2) << h;
  }
}

// Known growth leads to a known level, and from there on.
TEST_F(Levels, OfHeldValuesAreKnown) {
  const ProgramRun done =
      run({"analyze", "us_macro_quarterly.csv", "--query",
           "SELECT year, quarter, realgdp, realcons FROM source UNION ALL VALUES (2009, 4, 13100.0, NULL), (2010, 1, "
           "13200.0, "
           "NULL) ORDER BY year, quarter",
           "--endogenous", "realgdp", "realcons", "--lag", "2", "--predict", "3", "--conditional", "--bands", "none"},
          {"--transform", "realgdp=dlog*100", "realcons=dlog*100"});
  ASSERT_EQ(done.exitCode, 0) << done.err;
  const auto held = cells("Forecast in Levels - realgdp");
  for (const std::size_t column : std::vector<std::size_t>{0, 1, 2}) {
    EXPECT_NEAR(held[0][column], 13100.0, 1e-4);
    EXPECT_NEAR(held[1][column], 13200.0, 1e-4);
  }
  EXPECT_GT(held[2][2] - held[2][1], 100.0);
  EXPECT_GT(cells("Forecast in Levels - realcons")[0][2] - cells("Forecast in Levels - realcons")[0][1], 50.0);
}

TEST_F(Levels, AndForecastsJoinTheDataByTheirDates) {
  analyze({"--save", "saved.csv"});
  const ProgramRun joined = space.run(
      {"describe", "us_macro_quarterly.csv", "--query",
       "SELECT year, s.realgdp_level, s.realgdp_level_upper95, s.realgdp_residual, s.row FROM source FULL JOIN "
       "read_csv('saved.csv') s USING (year, quarter) ORDER BY s.row"});
  // The first row has no growth rate, and the first four no seasonal difference: 199 - 2 residuals, 6 forecasts.
  EXPECT_THAT(joined.out,
              AllOf(HasSubstr("209 rows"), ContainsRegex("realgdp_level +number +6 +203"),
                    ContainsRegex("realgdp_level_upper95 +number +6 +203"),
                    ContainsRegex("realgdp_residual +number +197 +12"), ContainsRegex("row +number +205 +4 +5\n")))
      << joined.err;
}

TEST_F(Levels, SavedPredictedValuesTellTheirCasesWhereThatIsAsked) {
  const auto saved = [&](const std::string& file, const std::vector<std::string>& more) {
    std::vector<std::string> words{"--query",
                                   "SELECT year, quarter, unemp, CASE WHEN year <> 2002 OR quarter <> 3 THEN infl END "
                                   "AS infl FROM source",
                                   "--from",
                                   "2001Q3",
                                   "--model-only",
                                   "--save",
                                   file};
    words.insert(words.end(), more.begin(), more.end());
    const ProgramRun done =
        run({"fit", "us_macro_quarterly.csv", "--endogenous", "unemp", "infl", "--maxlag", "1"}, words);
    EXPECT_EQ(done.exitCode, 0) << done.err;
    return space.read(file);
  };
  std::istringstream without(saved("plain.csv", {}));
  std::istringstream with(saved("told.csv", {"--save-cases"}));
  std::vector<std::string> keys;
  for (std::string one, other; std::getline(with, one) && std::getline(without, other);) {
    EXPECT_TRUE(one.ends_with("," + other)) << one << "\n" << other;
    keys.push_back(one.substr(0, one.size() - other.size() - 1));
  }
  // 33 rows, of which the fifth was left out; the lag takes the first.
  ASSERT_EQ(keys.size(), 32u);
  EXPECT_EQ(keys[0], "row,year,quarter");
  EXPECT_EQ(keys[1], "2.0,2001.0,4.0");
  EXPECT_EQ(keys[4], "6.0,2002.0,4.0");
  EXPECT_EQ(keys[31], "33.0,2009.0,3.0");
}

}  // namespace
