#include <array>

#include "workbench/commands/common/known_messages.h"
#include "workbench/commands/varmodel/notes.h"

namespace workbench::varmodel {

namespace {

// A text that the program advises on by more than a sentence has no remedy here: hints.cpp.
constexpr std::array<KnownMessage, 32> kMessages{{
    {"varmodel.no-split", "Turn off split file", "Remove 'split' from the job file."},
    {"varmodel.no-weight", "Remove Weight Variable", "Remove 'weight' from the job file."},
    {"varmodel.no-model", "MODEL subcommand is required", "Add /MODEL ENDOGENOUS=a b."},
    {"varmodel.no-endogenous", "ENDOGENOUS parameter is required in MODEL subcommand", "Add ENDOGENOUS=a b to MODEL."},
    {"varmodel.two-endogenous", "At least 2 endogenous variables are required for VAR model estimation",
     "List two numeric variables or more, as in ENDOGENOUS=a b."},
    {"varmodel.no-exogenous", "At least one exogenous variable is required when EXOGENOUS parameter is specified.",
     "List a numeric variable, or leave EXOGENOUS out."},
    {"varmodel.measurement-level",
     "Only variables with a valid measurement scale are allowed. ^1 does not meet this requirement.",
     "Give the variable level = \"scale\" in the job file, or leave it out."},
    {"varmodel.whole-number", "^1 must be an integer.", "Give a whole number, without quotes or a decimal point."},
    {"varmodel.lag-range", "MINLAG must not be greater than MAXLAG.", "Give MINLAG the smaller of the two numbers."},
    {"varmodel.no-parameters", "PARAMETERS is required in MODELFIT.", "Add PARAMETERS to MODELFIT."},
    {"varmodel.eigen-needs-corrmatrix", "CORRMATRIX is required when EIGEN is specified in MODELFIT.",
     "The run stops here. Add CORRMATRIX to MODELFIT, or remove EIGEN."},
    {"varmodel.user-missing", "USERMISSING must be either EXCLUDE or INCLUDE.", "Give one of the two."},
    {"varmodel.no-save-file", "Subcommand SAVE: FILE parameter is required.",
     "Add a file, as in FILE=\"results.csv\"."},
    {"varmodel.bad-save-file", "Subcommand SAVE: FILE has a missing or invalid value.",
     "Give a file, as in FILE=\"results.csv\"."},
    {"varmodel.unread-variables", "The variables could not be read from the active dataset.",
     "Check that the data have rows with values of these variables."},
    {"varmodel.missing-cases",
     "Endogenous and exogenous variables are missing in different cases. Keep only the cases that are complete in "
     "both.",
     ""},
    {"varmodel.few-observations",
     "Insufficient observations: The number of effective observations must exceed the number of parameters", ""},
    {"varmodel.singular-regressors",
     "Regressor matrix is singular: The model cannot be estimated due to perfect multicollinearity",
     "Some series is constant, or one is a linear combination of others (a total beside its parts). Drop one of them, "
     "or use differences."},
    {"varmodel.singular-covariance", "Covariance matrix is singular", ""},
    {"varmodel.no-forecast-table", "The forecast table is not created because no forecasts could be calculated.",
     "Give a target after the last case."},
    {"varmodel.past-target",
     "The forecast table is not created because no forecasts could be calculated. PREDICT THRU date is before the last "
     "observed date.",
     "Give a target after the last case."},
    {"varmodel.unknown-target", "the PREDICT THRU date names no period of the active dataset",
     "Give a period of the cases' own unit."},
    {"varmodel.selected-lag",
     "The selected lag ^1 is below MAXLAG ^2: parameters, fitted values and saved predicted values are those of lag "
     "^2; residuals, their tests and covariance, and forecasts are those of lag ^1. R Square compares rows of "
     "different length, and MSE, RMSE, MAE and MAPE stay 0.",
     ""},
    {"varmodel.criteria-disagree", "The criteria disagree (^1): the largest log-likelihood decided for lag ^2.", ""},
    {"varmodel.exogenous-left-out",
     "The exogenous terms are not part of the forecasts: they are left out, as if every exogenous variable were 0 in "
     "the forecast periods.",
     ""},
    {"varmodel.no-acf-values", "No ^1 ACF values for variable '^2", ""},
    {"varmodel.no-forecast-values", "No forecast values for ^1", ""},
    {"varmodel.no-forecast-chart", "No forecast values for variable '^1', skipping forecast chart", ""},
    {"varmodel.no-predicted-values", "No predicted values for variable '^1", ""},
    {"varmodel.no-residuals", "No residuals available for variable '^1", ""},
    {"varmodel.no-combined-residuals", "No residuals for variable '^1' in combined chart", ""},
    {"varmodel.generic-labels", "Using generic period labels. forecastDates size: ^1, forecastHorizon: ^2", ""},
}};

}  // namespace

const KnownMessage* knownMessage(std::string_view message) {
  return findMessage(message, kMessages);
}

}  // namespace workbench::varmodel
