#include "workbench/commands/vardynamics/message_ids.h"

#include <array>

#include "workbench/commands/common/known_messages.h"

namespace workbench::vardynamics {

namespace {

// Every text says its remedy itself.
constexpr std::array<KnownMessage, 64> kMessages{{
    {"vardynamics.backtest-file",
     "SAVE writes BACKTEST to a file of its own, with one row for every origin and horizon. Leave out the others."},
    {"vardynamics.collinear",
     "The regressors of lag ^1 are collinear to rounding. Leave out a series, or use a smaller lag."},
    {"vardynamics.conditional-interval",
     "The limits of a forecast with CONDITIONAL=YES come from no draws. Give INTERVAL=ANALYTIC."},
    {"vardynamics.constant-regressor", "The regressor ^1 does not vary over the sample. Leave out its series."},
    {"vardynamics.cumulative",
     "CUMULATIVE names ^1, which is no endogenous series. Give some of ^2, or CUMULATIVE=ALL."},
    {"vardynamics.dependent-regressor",
     "The regressor ^1 is a linear combination of ^2. Leave out one of these series, or use a smaller lag."},
    {"vardynamics.dependent-residuals",
     "The residuals of ^1 are a linear combination of those of ^2. Leave out one of these series."},
    {"vardynamics.dependent-shocks",
     "The shocks cannot be told apart: the residuals are linearly dependent to rounding. Leave out a series."},
    {"vardynamics.exogenous-text", "EXOGENOUS lists no numeric variable. Give one, or leave it out."},
    {"vardynamics.far-horizon", "The forecast would have ^1 periods; at most ^2 are forecast. Give HORIZON=^2."},
    {"vardynamics.few-replications",
     "The ^1 replications are too few for limits at ^2 %: fewer than 5 lie beyond each. Give REPLICATIONS=^3."},
    {"vardynamics.few-replications-for-paths",
     "The ^1 replications do not suffice for bands that hold whole paths. Give REPLICATIONS=^2."},
    {"vardynamics.few-rows", "The sample has too few rows for lag ^1. Use a smaller lag."},
    {"vardynamics.high-level", "The level of ^1 needs more than ^2 replications. Give CILEVEL=99."},
    {"vardynamics.infinite", "The variable ^1 is infinite in row ^2. Correct the value."},
    {"vardynamics.lag-and-choice",
     "MODEL has LAG and ^1: LAG gives the lag order, ^1 belongs to its choice. Leave out one of the two."},
    {"vardynamics.lag-range", "MINLAG=^1 is greater than MAXLAG=^2. Give MINLAG=^2 or less."},
    {"vardynamics.lags-without-exogenous",
     "XLAGS counts lags of exogenous series, and MODEL has none. Leave out XLAGS, or give EXOGENOUS."},
    {"vardynamics.level", "CILEVEL is a percentage above 0 and below 100. Give CILEVEL=95."},
    {"vardynamics.memory-of-draws",
     "The ^1 replications with bands of this length need more than 4 GB. Give REPLICATIONS=^2."},
    {"vardynamics.no-draw",
     "No draw of the model can be fitted: lag ^1 leaves too few rows. Use a smaller lag, or give BANDS=NONE."},
    {"vardynamics.no-draws-of-model",
     "The model allows no draws: its regressors are linearly dependent to rounding. Leave out a series."},
    {"vardynamics.no-future-value",
     "The forecast of ^1 periods needs a value of ^2 in row ^3. Add it, or give HORIZON=^4."},
    {"vardynamics.no-level", "AUXILIARY has no level. Give CILEVEL=95."},
    {"vardynamics.no-limits",
     "The forecast has no limits: the residuals are linearly dependent to rounding. Leave out a series."},
    {"vardynamics.no-model", "VARDYNAMICS has no model. Give /MODEL ENDOGENOUS=a b."},
    {"vardynamics.no-row",
     "No row holds values of all variables of the model. Choose variables that are observed in the same periods."},
    {"vardynamics.no-save-file", "SAVE has no file that can be written. Give FILE='results.csv'."},
    {"vardynamics.no-season",
     "SEASONAL=YES needs dates with a cycle, such as quarters or months. Date the cases, or leave out SEASONAL."},
    {"vardynamics.no-shock", "IMPULSE has no shock that both TYPE and SHOCKS allow. Leave out SHOCKS, or name others."},
    {"vardynamics.not-computable",
     "The model cannot be computed: some values are too large or too small. Rescale the series that hold them."},
    {"vardynamics.nothing-to-save",
     "SAVE has nothing to save. Give FORECASTS, RESIDUALS, SHOCKS or several of them, or BACKTEST."},
    {"vardynamics.order", "ORDER names every endogenous series once. Give ORDER=^1, or these in another order."},
    {"vardynamics.perfect-fit",
     "The model predicts ^1 without error. Leave it out: it is known from the other series."},
    {"vardynamics.plot-of-nothing", "PLOT asks for ^1, and nothing makes it. Add ^2, or leave out the keyword."},
    {"vardynamics.range-of-numbers",
     "The numbers of the model leave the range of double precision. Give the series in units near one."},
    {"vardynamics.sample", "The sample cannot be analysed."},
    {"vardynamics.save-of-nothing", "SAVE asks for ^1, and nothing makes it. Add ^2, or leave out ^1."},
    {"vardynamics.shocks-without-exogenous",
     "IMPULSE asks for EXOGENOUS, and MODEL has no exogenous series. Leave out the keyword, or give EXOGENOUS=x."},
    {"vardynamics.short-for-augment", "The sample is too short for AUGMENT=^1 beside ^2 lags. Give AUGMENT=^3."},
    {"vardynamics.short-for-backtest", "The sample is too short for a back-test of ^1 periods. Give HORIZON=^2."},
    {"vardynamics.short-for-backtest-lag",
     "The sample is too short for a back-test of a model with lag ^1. Use a smaller lag, or leave out BACKTEST."},
    {"vardynamics.short-for-origins",
     "The sample is too short for a back-test from ^1 origins, ^2 rows apart, over ^3 periods. Give ORIGINS=^4."},
    {"vardynamics.simultaneous-bands",
     "IMPULSE with SIMULTANEOUS=YES takes its bands from draws. Give BANDS=BOOTSTRAP."},
    {"vardynamics.simultaneous-conditional",
     "SIMULTANEOUS=YES is not defined beside CONDITIONAL=YES. Leave out one of the two."},
    {"vardynamics.simultaneous-forecast",
     "FORECAST with SIMULTANEOUS=YES takes its limits from draws. Give INTERVAL=BOOTSTRAP."},
    {"vardynamics.split", "VARDYNAMICS analyses one series of cases. Turn off split file."},
    {"vardynamics.text-variable", "MODEL: a variable of ^1 cannot be analysed. Give numeric variables only."},
    {"vardynamics.two-endogenous", "ENDOGENOUS needs two series or more. Give them as in ENDOGENOUS=a b."},
    {"vardynamics.two-orders",
     "IMPULSE and DECOMPOSITION give two different orders. Give ORDER in one of them: it holds for both."},
    {"vardynamics.unknown-shock", "SHOCKS names ^1, which is no series of the model. Give some of ^2."},
    {"vardynamics.unread-dates", "The dates of the active dataset could not be read. Define them anew."},
    {"vardynamics.unread-variables",
     "The variables could not be read from the active dataset. Check that it has cases."},
    {"vardynamics.values-beyond-horizon",
     "CONDITIONAL=YES holds values that lie beyond the horizon of ^1. Give HORIZON=^2."},
    {"vardynamics.weight", "VARDYNAMICS counts every case once. Remove the weight variable."},
    {"vardynamics.whole-number", "Give ^1 a whole number."},
    {"vardynamics.no-value-to-hold",
     "CONDITIONAL=YES needs values to hold: rows after row ^1 with values of some endogenous series. Add them, or "
     "leave out CONDITIONAL."},
    {"vardynamics.no-lag-fits",
     "No lag can be fitted to ^1 rows with ^2 series and ^3 regressors beside their lags. Use fewer series or more "
     "rows."},
    {"vardynamics.gap",
     "No lag can cross a gap, and the sample has one. Incomplete rows: ^1; the first lacks ^2. Fill them, or analyse "
     "the rows ^3 alone, the longest part without a gap."},
    {"vardynamics.draws-for-paths",
     "The draws do not suffice for bands that hold whole paths of this length at this level. Give SIMULTANEOUS=NO."},
    {"vardynamics.no-future-values",
     "The forecast of ^1 periods needs values of ^2 from row ^3 on. Add rows with the values of the exogenous series "
     "after the sample, or leave out FORECAST."},
    {"vardynamics.early-origin",
     "The model cannot be fitted to the rows before ^1 alone: regressors or residuals are linearly dependent there. "
     "Give ORIGINS=^2."},
    {"vardynamics.no-origin",
     "The model cannot be fitted to the rows before ^1 alone: regressors or residuals are linearly dependent there. "
     "Leave out BACKTEST."},
    {"vardynamics.usable-lag",
     "The sample is too short for ^1=^2: with ^3 rows, ^4 series and ^5 regressors beside their lags the largest "
     "usable lag is ^6. Give ^1=^6."},
}};

}  // namespace

std::string messageId(std::string_view message) {
  const KnownMessage* known = findMessage(message, kMessages);
  return known == nullptr ? "" : std::string(known->id);
}

}  // namespace workbench::vardynamics
