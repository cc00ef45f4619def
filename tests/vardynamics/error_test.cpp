// Every error names its place and its remedy, and the remedy works as it is printed.

#include <cmath>
#include <functional>
#include <regex>

#include "tests/vardynamics/run_fixture.h"

namespace vardynamics {
namespace {

using testing::HasSubstr;

const double kMissing = std::nan("");

using Data = std::vector<std::pair<std::string, std::vector<double>>>;

// 40 quarters of two related series, an exogenous one that goes on for two quarters, and columns that cause trouble.
Data goodData() {
  const auto series = relatedSeries(42);
  Data data = {{"a", series[0]}, {"b", series[1]}, {"x", engine::noise(3, 42)}, {"known", engine::noise(4, 42)}};
  for (std::size_t t = 40; t < 42; ++t) data[0].second[t] = data[1].second[t] = kMissing;
  std::vector<double> total;
  for (std::size_t t = 0; t < 42; ++t) total.push_back(data[2].second[t] + data[3].second[t]);
  data.emplace_back("total", total);
  data.emplace_back("two words", data[3].second);
  data.emplace_back("flat", std::vector<double>(42, 3.0));
  std::vector<double> twin;
  for (const double value : data[0].second) twin.push_back(2.0 * value);
  data.emplace_back("twin", twin);
  std::vector<double> late(42, 0.0);
  std::fill(late.begin() + 34, late.end(), 1.0);
  data.emplace_back("late", late);
  return data;
}

// "Give NAME=value." of a message, put into the command in place of NAME's value (or added to `home`).
std::string asPrinted(const std::string& message, const std::string& command) {
  static const std::regex remedy(R"(Give ([A-Z]+)=([^ ]+?)( or less)?\.(?= |$))");
  std::smatch found;
  EXPECT_TRUE(std::regex_search(message, found, remedy)) << message;
  const std::regex given("\\b" + found[1].str() + "=[^ ]+");
  EXPECT_TRUE(std::regex_search(command, given)) << command << " gives no " << found[1];
  return std::regex_replace(command, given, found[1].str() + "=" + found[2].str());
}

struct Fault {
  const char* name;
  std::string command;
  std::string says;
  std::string mended = {};  // the command that the remedy asks for; empty: "Give NAME=value."
  std::function<void(Data&)> spoil = [](Data&) {};
  std::function<void(Data&)> mend = [](Data&) {};
  int step = 3;
};

const std::string kModel = "VARDYNAMICS /MODEL ENDOGENOUS=a b ";

std::vector<Fault> faults() {
  return {
      {"NoModel", "VARDYNAMICS /STABILITY", "has no model. Give /MODEL ENDOGENOUS=a b.", kModel + "/STABILITY"},
      {"OneSeries", "VARDYNAMICS /MODEL ENDOGENOUS=a", "ENDOGENOUS needs two series or more.", kModel},
      {"LagBesideSelect", kModel + "LAG=2 SELECT=BIC", "MODEL has LAG and SELECT", kModel + "SELECT=BIC"},
      {"LagBesideMaxlag", kModel + "LAG=2 MAXLAG=4", "MODEL has LAG and MAXLAG", kModel + "LAG=2"},
      {"EmptyRange", kModel + "MINLAG=5 MAXLAG=2", "MINLAG=5 is greater than MAXLAG=2. Give MINLAG=2 or less."},
      {"Fraction", kModel + "LAG=1.5", "Give LAG a whole number.", kModel + "LAG=1"},
      {"LagsWithoutExogenous", kModel + "XLAGS=1", "Leave out XLAGS, or give EXOGENOUS.", kModel},
      {.name = "LagTooLarge",
       .command = kModel + "LAG=20",
       .says = "The sample is too short for LAG=20: with 40 rows, 2 series and 1 regressors",
       .step = 4},
      {.name = "MaxlagTooLarge", .command = kModel + "MAXLAG=30", .says = "too short for MAXLAG=30", .step = 4},
      {.name = "MinlagTooLarge", .command = kModel + "MINLAG=30", .says = "too short for MINLAG=30", .step = 4},
      {.name = "AugmentTooLarge",
       .command = kModel + "LAG=2 /CAUSALITY AUGMENT=30",
       .says = "The sample is too short for AUGMENT=30 beside 2 lags.",
       .step = 4},
      {.name = "NoLagAtAll",
       .command = kModel,
       .says = "No lag can be fitted to 4 rows with 2 series and 1 regressors",
       .mended = kModel,
       .spoil =
           [](Data& data) {
             for (auto& column : data) column.second.resize(4);
           },
       .mend = [](Data& data) { data = goodData(); },
       .step = 4},
      {.name = "Gap",
       .command = kModel,
       .says = "Incomplete rows: 11-12 (2002Q3-2002Q4); the first lacks b. Fill them, or analyse the rows 13-40 "
               "(2003Q1-2009Q4) alone",
       .mended = kModel,
       .spoil = [](Data& data) { data[1].second[10] = data[0].second[11] = kMissing; },
       .mend =
           [](Data& data) {
             for (auto& column : data) column.second.erase(column.second.begin(), column.second.begin() + 12);
           }},
      {.name = "NothingComplete",
       .command = kModel,
       .says = "No row holds values of all variables of the model.",
       .mended = "VARDYNAMICS /MODEL ENDOGENOUS=a x",
       .spoil = [](Data& data) { data[1].second.assign(42, kMissing); }},
      {.name = "Infinite",
       .command = kModel,
       .says = "The variable b is infinite in row 8 (2001Q4).",
       .mended = kModel,
       .spoil = [](Data& data) { data[1].second[7] = INFINITY; },
       .mend = [](Data& data) { data[1].second[7] = 1.0; }},
      {"FutureMissing", kModel + "EXOGENOUS=x /FORECAST HORIZON=3",
       "The forecast of 3 periods needs a value of x in row 43 (2010Q3). Add it, or give HORIZON=2.",
       kModel + "EXOGENOUS=x /FORECAST HORIZON=2"},
      {.name = "NoFutureAtAll",
       .command = kModel + "EXOGENOUS=x /FORECAST",
       .says = "needs values of x from row 41 (2010Q1) on.",
       .mended = kModel + "EXOGENOUS=x",
       .spoil = [](Data& data) { data[2].second[40] = data[2].second[41] = kMissing; }},
      {"NothingHeld", kModel + "/FORECAST CONDITIONAL=YES",
       "CONDITIONAL=YES needs values to hold: rows after row 40 (2009Q4)", kModel + "/FORECAST"},
      {.name = "HeldBeyondHorizon",
       .command = kModel + "/FORECAST CONDITIONAL=YES HORIZON=1",
       .says = "CONDITIONAL=YES holds values that lie beyond the horizon of 1. Give HORIZON=2.",
       .spoil = [](Data& data) { data[0].second[41] = 0.5; }},
      {.name = "Collinear",
       .command = kModel + "EXOGENOUS=x known total",
       .says = "The regressor total is a linear combination of x, known.",
       .mended = kModel + "EXOGENOUS=x known",
       .step = 4},
      {.name = "Flat",
       .command = kModel + "EXOGENOUS=flat",
       .says = "The regressor flat does not vary over the sample. Leave out its series.",
       .mended = kModel,
       .step = 4},
      {.name = "Twins",
       .command = "VARDYNAMICS /MODEL ENDOGENOUS=a b twin",
       .says = "The residuals of twin are a linear combination of those of a.",
       .mended = kModel,
       .step = 4},
      {.name = "LaggedTwins",
       .command = "VARDYNAMICS /MODEL ENDOGENOUS=a b twin LAG=2",
       .says = "The regressor twin(t-1) is a linear combination of a(t-1).",
       .mended = kModel,
       .step = 4},
      {.name = "TooManyOrigins",
       .command = kModel + "LAG=2 /BACKTEST ORIGINS=50 STEP=3",
       .says =
           "The sample is too short for a back-test from 50 origins, 3 rows apart, over 4 periods. Give ORIGINS=10.",
       .step = 4},
      {.name = "BacktestTooFar",
       .command = kModel + "LAG=2 /BACKTEST ORIGINS=1 HORIZON=40",
       .says = "too short for a back-test of 40 periods. Give HORIZON=31.",
       .step = 4},
      {.name = "NoBacktestAtAll",
       .command = kModel + "EXOGENOUS=x LAG=12 /BACKTEST",
       .says = "too short for a back-test of a model with lag 12. Use a smaller lag, or leave out BACKTEST.",
       .mended = kModel + "EXOGENOUS=x LAG=2 /BACKTEST",
       .step = 4},
      {.name = "CollinearBefore",
       .command = kModel + "LAG=1 EXOGENOUS=late /BACKTEST ORIGINS=10 HORIZON=1",
       .says = "The model cannot be fitted to the rows before 2008Q3 alone: regressors or residuals are linearly "
               "dependent there. Give ORIGINS=5.",
       .step = 4},
      {.name = "CollinearAtEveryOrigin",
       .command = kModel + "LAG=1 EXOGENOUS=late /BACKTEST ORIGINS=1 HORIZON=6",
       .says = "Leave out BACKTEST.",
       .mended = kModel + "LAG=1 EXOGENOUS=late",
       .step = 4},
      {"BacktestBesidePeriods", kModel + "/BACKTEST /SAVE FILE='r.csv' BACKTEST RESIDUALS",
       "SAVE writes BACKTEST to a file of its own", kModel + "/BACKTEST /SAVE FILE='r.csv' BACKTEST"},
      {"NothingToSave", kModel + "/SAVE FILE='r.csv'", "SAVE has nothing to save.",
       kModel + "/SAVE FILE='r.csv' RESIDUALS"},
      {"NoForecastToSave", kModel + "/SAVE FILE='r.csv' FORECASTS", "Add /FORECAST, or leave out FORECASTS.",
       kModel + "/FORECAST /SAVE FILE='r.csv' FORECASTS"},
      {"NoForecastToPlot", kModel + "/PLOT TYPE=[FORECAST]", "Add /FORECAST, or leave out the keyword.",
       kModel + "/FORECAST /PLOT TYPE=[FORECAST]"},
      {"ResponsesToPlot", kModel + "/PLOT TYPE=[IMPULSE]", "Add /IMPULSE, or leave out the keyword.",
       kModel + "/IMPULSE BANDS=NONE /PLOT TYPE=[IMPULSE]"},
      {"ConditionFromDraws",
       kModel + "/FORECAST CONDITIONAL=YES INTERVAL=BOOTSTRAP",
       "come from no draws. Give INTERVAL=ANALYTIC.",
       {},
       [](Data& data) { data[0].second[40] = 0.5; }},
      {"ConditionOfPaths", kModel + "/FORECAST CONDITIONAL=YES SIMULTANEOUS=YES", "Leave out one of the two.",
       kModel + "/FORECAST CONDITIONAL=YES", [](Data& data) { data[0].second[40] = 0.5; }},
      {"PathsWithoutDraws", kModel + "/FORECAST INTERVAL=ANALYTIC SIMULTANEOUS=YES", "Give INTERVAL=BOOTSTRAP."},
      {"PathsOfResponsesWithoutDraws", kModel + "/IMPULSE BANDS=ANALYTIC SIMULTANEOUS=YES", "Give BANDS=BOOTSTRAP."},
      {"OrderTooShort", kModel + "/IMPULSE ORDER=b", "ORDER names every endogenous series once. Give ORDER=b a, or",
       kModel + "/IMPULSE ORDER=b a"},
      {"OrderOfOthers", kModel + "EXOGENOUS=x /IMPULSE ORDER=b x", "Give ORDER=b a, or",
       kModel + "EXOGENOUS=x /IMPULSE ORDER=b a"},
      {"OrderOfBlanks", "VARDYNAMICS /MODEL ENDOGENOUS=a 'two words' /IMPULSE ORDER='two words'",
       "Give ORDER=\"two words\" a, or", "VARDYNAMICS /MODEL ENDOGENOUS=a 'two words' /IMPULSE ORDER=\"two words\" a"},
      {"TwoOrders", kModel + "/IMPULSE ORDER=a b /DECOMPOSITION ORDER=b a", "it holds for both.",
       kModel + "/IMPULSE ORDER=a b"},
      {"UnknownShock", kModel + "/IMPULSE SHOCKS=b x",
       "SHOCKS names x, which is no series of the model. Give some of a, b.", kModel + "/IMPULSE SHOCKS=b"},
      {"CumulatedExogenous", kModel + "EXOGENOUS=x /IMPULSE CUMULATIVE=x",
       "CUMULATIVE names x, which is no endogenous series. Give some of a, b, or CUMULATIVE=ALL.",
       kModel + "EXOGENOUS=x /IMPULSE CUMULATIVE=ALL"},
      {"NoExogenousShock", kModel + "/IMPULSE TYPE=[EXOGENOUS]", "or give EXOGENOUS=x.",
       kModel + "EXOGENOUS=x /IMPULSE TYPE=[EXOGENOUS]"},
      {"NoShockLeft", kModel + "EXOGENOUS=x /IMPULSE TYPE=[EXOGENOUS] SHOCKS=a", "Leave out SHOCKS, or name others.",
       kModel + "EXOGENOUS=x /IMPULSE TYPE=[EXOGENOUS]"},
      {.name = "TooFewReplications",
       .command = kModel + "/IMPULSE /BOOTSTRAP REPLICATIONS=199",
       .says =
           "The 199 replications are too few for limits at 95 %: fewer than 5 lie beyond each. Give REPLICATIONS=200.",
       .step = 4},
      {.name = "TooFewForPaths",
       .command =
           kModel + "/IMPULSE TYPE=[ORTHOGONAL] SIMULTANEOUS=YES /BOOTSTRAP REPLICATIONS=1000 /AUXILIARY CILEVEL=99",
       .says = "The 1000 replications do not suffice for bands that hold whole paths. Give REPLICATIONS=16900.",
       .step = 4},
      {.name = "LevelBeyondDraws",
       .command = kModel + "/IMPULSE /AUXILIARY CILEVEL=99.9999",
       .says = "The level of 99.9999 needs more than 1000000 replications. Give CILEVEL=99.",
       .step = 4},
      {.name = "UnknownFormat",
       .command = kModel + "/SAVE FILE='r.txt' RESIDUALS",
       .says = "no file that can be written"},
      {.name = "LevelOfHundred", .command = kModel + "/AUXILIARY CILEVEL=100", .says = "above 0 and below 100"},
      {"NoLevel", kModel + "/AUXILIARY", "AUXILIARY has no level. Give CILEVEL=95.", kModel + "/AUXILIARY CILEVEL=95"},
  };
}

class ErrorTest : public RunTest {};

TEST_F(ErrorTest, EveryErrorHasARemedyThatWorks) {
  for (const Fault& fault : faults()) {
    SCOPED_TRACE(fault.name);
    Data data = goodData();
    fault.spoil(data);
    columns(data);
    EXPECT_FALSE(run(fault.command));
    EXPECT_THAT(firstError(), HasSubstr(fault.says));
    EXPECT_THAT(failure, HasSubstr("vardynamics_entry: Step" + std::to_string(fault.step)));
    EXPECT_TRUE(session.document.IsNull());
    const std::string mended = fault.mended.empty() ? asPrinted(firstError(), fault.command) : fault.mended;
    fault.mend(data);
    columns(data);
    EXPECT_TRUE(run(mended)) << mended << ": " << firstError();
  }
}

TEST_F(ErrorTest, SeasonsNeedDates) {
  columns(goodData(), false);
  EXPECT_FALSE(run(kModel + "SEASONAL=YES"));
  EXPECT_THAT(firstError(), HasSubstr("Date the cases, or leave out SEASONAL."));
  EXPECT_TRUE(run(kModel));
  columns(goodData());
  EXPECT_TRUE(run(kModel + "SEASONAL=YES"));
}

TEST_F(ErrorTest, TheSessionMustBePlain) {
  columns(goodData());
  session.splitVariables = {"x"};
  EXPECT_FALSE(run(kModel));
  EXPECT_THAT(firstError(), HasSubstr("Turn off split file."));
  session.splitVariables.clear();
  session.weightColumn = 2;
  EXPECT_FALSE(run(kModel));
  EXPECT_THAT(firstError(), HasSubstr("Remove the weight variable."));
  session.weightColumn = -1;
  EXPECT_TRUE(run(kModel));
}

TEST_F(ErrorTest, BoundsAreTheParsers) {
  columns(goodData());
  for (const std::string bad :
       {"/FORECAST HORIZON=0", "/FORECAST HORIZON=1001", "/AUXILIARY CILEVEL=-1", "/TESTS LAGS=0",
        "/IMPULSE HORIZON=1001", "/IMPULSE ORDER=a nobody", "/DECOMPOSITION HORIZON=0", "/BACKTEST STEP=0",
        "/BOOTSTRAP REPLICATIONS=99", "/BOOTSTRAP REPLICATIONS=1000001", "/BOOTSTRAP SEED=-1"}) {
    EXPECT_FALSE(run(kModel + bad)) << bad;
    EXPECT_THAT(failure, HasSubstr("vardynamics_entry: Step2")) << bad;
  }
}

}  // namespace
}  // namespace vardynamics
