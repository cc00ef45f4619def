#include "tests/recording/scene.h"

#include <cmath>
#include <iostream>
#include <limits>
#include <streambuf>

#include "tests/recording/failing_allocation.h"

namespace recording {
namespace {

// Diverts a stream into a text that several streams share, each with a mark before its lines.
class MarkedStream : std::streambuf {
 public:
  MarkedStream(std::ostream& stream, std::string& text, const char* mark)
      : stream_(stream), text_(text), mark_(mark), previous_(stream.rdbuf(this)) {}
  MarkedStream(const MarkedStream&) = delete;
  MarkedStream& operator=(const MarkedStream&) = delete;
  ~MarkedStream() override { stream_.rdbuf(previous_); }

 private:
  int_type overflow(int_type character) override {
    const Spared spared;
    if (text_.empty() || text_.back() == '\n') text_ += mark_;
    text_ += traits_type::to_char_type(character);
    return character;
  }

  std::ostream& stream_;
  std::string& text_;
  const char* mark_;
  std::streambuf* previous_;
};

// Twelve quarters and two to come, of which the exogenous series is known.
void giveFuture(Host& host) {
  giveQuarters(host, 1993, 2);
  constexpr double kMissing = std::numeric_limits<double>::lowest();
  for (const double next : {13.0, 14.0}) {
    const double values[] = {kMissing, kMissing, next, 1993.0, next - 12.0};
    for (std::size_t column = 0; column < 5; ++column) host.columns[column].numbers.push_back(values[column]);
  }
}

}  // namespace

void giveQuarters(Host& host, double thruYear, double thruQuarter) {
  host.columns = {{.name = "a"}, {.name = "b"}, {.name = "x"}, {.name = "YEAR_"}, {.name = "QUARTER_"}};
  for (int t = 0; t < 12; ++t) {
    const double values[] = {std::sin(t * t), std::cos(3 * t * t) + 1, double(t % 5), 1990.0 + t / 4, 1.0 + t % 4};
    for (std::size_t column = 0; column < 5; ++column) host.columns[column].numbers.push_back(values[column]);
  }
  host.dateVariables = {{3, 2, thruYear}, {4, 3, thruQuarter}};
  host.predictSet = host.predictIsDate = true;
}

void giveModel(Host& host) {
  host.command = {{"MODEL", {{"ENDOGENOUS", {{"a", "b"}}}, {"LAG", {{"AIC"}}}, {"MAXLAG", {.number = 1}}}},
                  {"METHOD", {{"TYPE", {{"OLS"}}}}}};
}

void giveEverything(Host& host) {
  giveModel(host);
  host.command[""]["PREDICT"] = {};
  host.command["MODEL"]["EXOGENOUS"].words = {"x"};
  host.command["MODEL"]["MINLAG"].number = 1;
  host.command["MISSING"]["USERMISSING"].words = {"EXCLUDE"};
  host.command["MODELSTATISTICS"]["MODELFIT"].words = {
      "DESCRIPTIVES", "GOODFIT", "PARAMETERS", "RES",        "RESIDACF", "MSE",   "RMSE",  "MAE",
      "MAPE",         "RSQUARE", "ARSQUARE",   "CORRMATRIX", "EIGEN",    "TNORM", "TAUTO", "FORECASTS"};
  host.command["SERIESPLOT"]["PLOT"].words = {"TIMESERIES", "ACF", "RES", "RESCOMB", "RESACF", "FIT", "FORECAST"};
  host.command["SAVE"] = {{"FILE", {{"out"}, {}, true}}, {"PREDICTED", {}}, {"NRESIDUAL", {{"R"}}}};
  host.command["AUXILIARY"]["CILEVEL"].number = 90;
}

void giveEverySubcommand(Host& host) {
  giveFuture(host);
  host.command = {
      {"MODEL", {{"ENDOGENOUS", {{"a", "b"}}}, {"EXOGENOUS", {{"x"}}}, {"MAXLAG", {.number = 1}}}},
      {"STABILITY", {}},
      {"TESTS", {{"TYPE", {{"PORTMANTEAU", "LM", "ARCH", "NORMALITY", "UNITROOT"}}}, {"LAGS", {.number = 2}}}},
      {"CAUSALITY", {{"TYPE", {{"GRANGER", "INSTANTANEOUS"}}}, {"AUGMENT", {.number = 1}}}},
      {"FORECAST", {{"INTERVAL", {{"ANALYTIC"}}}}},
      {"IMPULSE", {{"HORIZON", {.number = 3}}, {"CUMULATIVE", {{"ALL"}}}, {"BANDS", {{"ANALYTIC"}}}}},
      {"DECOMPOSITION", {{"HORIZON", {.number = 3}}}},
      {"BOOTSTRAP", {{"REPLICATIONS", {.number = 100}}}},
      {"BACKTEST", {{"ORIGINS", {.number = 2}}, {"HORIZON", {.number = 2}}}},
      {"PLOT", {{"TYPE", {{"FORECAST", "ROOTS", "IMPULSE", "VARIANCE", "BACKTEST"}}}}},
      {"SAVE", {{"FILE", {{"out"}, {}, true}}, {"FORECASTS", {}}, {"RESIDUALS", {}}}},
      {"AUXILIARY", {{"CILEVEL", {.number = 90}}}},
      {"MISSING", {{"USERMISSING", {{"EXCLUDE"}}}}}};
}

std::string traceOf(const std::function<void()>& work) {
  std::string text;
  const MarkedStream out(std::cout, text, "");
  const MarkedStream err(std::cerr, text, "! ");
  work();
  return text;
}

}  // namespace recording
