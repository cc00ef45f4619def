// What the procedure writes to the two standard streams ("! " marks the error stream).

#include <gmock/gmock.h>

#include <cstdlib>
#include <functional>

#include "procedures/varmodel/driver/varmodel_entry.h"
#include "procedures/varmodel/syntax/command_describer.h"
#include "tests/recording/scene.h"

namespace recording {
namespace {

constexpr double kMissing = std::numeric_limits<double>::lowest();

// The part of a trace after the line that begins with `from` and before the one that begins with `to`.
std::string between(const std::string& trace, const std::string& from, const std::string& to) {
  const std::size_t start = trace.find('\n', trace.find('\n' + from) + 1);
  return trace.substr(start, trace.find('\n' + to, start) - start + 1);
}

TEST(Trace, AWholeRun) {
  Host host;
  giveQuarters(host, 1993, 2);
  giveEverything(host);
  EXPECT_EQ('\n' + traceOf(VARMODEL), R"(
! VARInputSettings::Constructor - Initializing input settings
! VARInputSettings::start - Beginning input settings preparation
! VARInputSettings::prepareInputSetting - Calling get_Subcommand_Global()
VARSubCommands::get_Subcommand_Global - Starting GLOBAL subcommand parsing
VARSubCommands::get_Subcommand_Global - PREDICT parameter found in global command
getPredictThruFromTrendsInfo - qHi=1, qHiDate=1, hiCase=0
VARSubCommands::fetchDataFromActiveDataSet - Starting data fetch for 2 variables
VARSubCommands::fetchDataFromActiveDataSet - Completed with status: SUCCESS
VARSubCommands::generateHistoricalDateLabels - DATE_ not found, using TfoDateHandler fallback
VARSubCommands::generateForecastDatesUsingTfo - Date validation:
  Last observed case offset: 11
  Target PREDICT THRU offset: 13
  Forecast periods to generate: 2
Forecast period 1: caseOffset=12, dateLabel='T12'
Forecast period 2: caseOffset=13, dateLabel='T13'
VARSubCommands::generateHistoricalDateLabels - DATE_ not found, using TfoDateHandler fallback
Generated 12 historical date labels
VARSubCommands::get_Subcommand_Global - Completed with status: SUCCESS
! VARInputSettings::prepareInputSetting - Calling get_SubCommand_Missing()
VARSubCommands::get_SubCommand_Missing - Starting MISSING subcommand parsing
VARSubCommands::get_SubCommand_Missing - Completed with status: SUCCESS
! VARInputSettings::prepareInputSetting - Calling get_SubCommand_Model()
VARSubCommands::get_SubCommand_Model - Starting MODEL subcommand parsing
VARSubCommands::fetchDataFromActiveDataSet - Starting data fetch for 2 variables
VARSubCommands::fetchDataFromActiveDataSet - Completed with status: SUCCESS
VARSubCommands::fetchDataFromActiveDataSet - Starting data fetch for 1 variables
VARSubCommands::fetchDataFromActiveDataSet - Completed with status: SUCCESS
VARSubCommands::fetchDataFromActiveDataSet - Starting data fetch for 3 variables
VARSubCommands::fetchDataFromActiveDataSet - Completed with status: SUCCESS
VARSubCommands::get_SubCommand_Model - Completed with status: SUCCESS
! VARInputSettings::prepareInputSetting - Calling get_SubCommand_Method()
VARSubCommands::get_SubCommand_Method - Starting METHOD subcommand parsing
VARSubCommands::get_SubCommand_Method - Completed with status: SUCCESS
! VARInputSettings::prepareInputSetting - Calling get_SubCommand_ModelStatistics()
VARSubCommands::get_SubCommand_ModelStatistics - Starting MODELSTATISTICS subcommand parsing
VARSubCommands::get_SubCommand_ModelStatistics - Completed with status: SUCCESS
! VARInputSettings::prepareInputSetting - Calling get_SubCommand_SeriesPlot()
VARSubCommands::get_SubCommand_SeriesPlot - Starting SERIESPLOT subcommand parsing
VARSubCommands::get_SubCommand_SeriesPlot - Completed with status: SUCCESS
! VARInputSettings::prepareInputSetting - Calling get_SubCommand_Save()
VARSubCommands::get_SubCommand_Save - Starting SAVE subcommand parsing
VARSubCommands::get_SubCommand_Save - Completed with status: SUCCESS
! VARInputSettings::prepareInputSetting - Calling get_SubCommand_Auxiliary()
VARSubCommands::get_SubCommand_Auxiliary - Starting AUXILIARY subcommand parsing
VARSubCommands::get_SubCommand_Auxiliary - Completed with status SUCCESS
! VARInputSettings::start - All subcommands processed successfully
! VARInputSettings::start - Completed successfully with status: SUCCESS
! VARAlgo::start - Beginning algorithm execution
! VARAlgo::computeDescriptiveStats - Computing descriptive statistics
! VARAlgo::computeDescriptiveStats - Computed statistics for 2 variables
! Warning: VARAlgo::computeForecasts - The exogenous terms are not part of the forecasts: they are left out, as if )"
                                      R"(every exogenous variable were 0 in the forecast periods.
! Forecast for a: -0.720992, 0.0344082
! Forecast for b: 1.85815, 1.01123
! Time series chart using date labels: T0 to T11
! Time series chart generated for variable 'a' with 12 observations
! Time series chart using date labels: T0 to T11
! Time series chart generated for variable 'b' with 12 observations
! ACF (endogenous) chart generated for variable 'a' with 1 lags
! ACF (endogenous) chart generated for variable 'b' with 1 lags
! ACF (residuals) chart generated for variable 'a' with 1 lags
! ACF (residuals) chart generated for variable 'b' with 1 lags
! Residuals chart generated for variable 'a' with 11 residuals
! Residuals chart generated for variable 'b' with 11 residuals
! Combined residuals chart generated with 22 data points across 2 variables
! Fit Values chart generated for variable 'a' with 11 observations
! Fit Values chart generated for variable 'b' with 11 observations
! Forecast chart generated for variable 'a' with 11 observed, 11 fitted, 2 forecast points
! Forecast chart generated for variable 'b' with 11 observed, 11 fitted, 2 forecast points
JSON ~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~
["Descriptive Statistics","VAR Model Parameters - a","VAR Model Parameters - b","Goodness of Fit",)"
                                      R"("Correlation Matrix of Residuals","Covariance Matrix of Residuals",)"
                                      R"("Model Fit Statistics","Test for Residuals","Forecast","Time Series -a",)"
                                      R"("Time Series -b","ACF -a","ACF -b","ACF Residuals -a","ACF Residuals -b",)"
                                      R"("Residuals -a","Residuals -b","Residuals","Fit Values -a","Fit Values -b",)"
                                      R"("Forecast -a","Forecast -b"]
VAR Model: Steps 1, 2, 3, 4, 5, and 6 completed successfully!
)");
  EXPECT_THAT(host.messages, testing::IsEmpty());
}

TEST(Trace, EveryFailedStepHasItsLineAndIsTheLast) {
  const std::string described =
      "! VARAlgo::computeDescriptiveStats - Computing descriptive statistics\n"
      "! VARAlgo::computeDescriptiveStats - Computed statistics for 2 variables\n";
  const auto handlerFails = [](const char* index) {
    return std::string("! VARInputSettings::start - ERROR: Failed at subcommand index: ") + index +
           "\n! VARInputSettings::start - EXCEPTION: Standard exception caught: Error encountered while syntax "
           "parsing.\n! VARInputSettings::start - Completed with status: FAILURE\n";
  };
  const struct {
    std::function<void(Host&)> spoil;
    const char* after;
    std::string lines;  // after the one that begins with that text, before the driver's
    int step;
    std::vector<std::string> messages = {};
  } cases[] = {
      {[](Host& host) { host.parserStatus = 2; }, "", "", 2},
      {[](Host& host) { host.parserStatus = -1; }, "", "", 2},
      {[](Host& host) { host.weightColumn = 0; },
       "VARSubCommands::get_Subcommand_Global - Completed with status: FAILURE",
       handlerFails("0"),
       3,
       {"error: Remove Weight Variable"}},
      {[](Host& host) { host.command.erase("METHOD"); },
       "VARSubCommands::get_SubCommand_Method - Completed with status: FAILURE", handlerFails("3"), 3},
      {[](Host& host) { host.command["AUXILIARY"]; },
       "VARSubCommands::get_SubCommand_Auxiliary - Completed with status FAILURE", handlerFails("7"), 3},
      {[](Host& host) { host.command["MODEL"]["MAXLAG"].number = 9; },  // leaves lag 1 as many rows as regressors: 3
       "! VARAlgo::start - Beginning",
       described,
       4,
       {"error: Insufficient observations: The number of effective observations must exceed the number of parameters"}},
      {[](Host& host) { host.columns[1].numbers = host.columns[0].numbers; },
       "! VARAlgo::start - Beginning",
       described,
       4,
       {"error: Regressor matrix is singular: The model cannot be estimated due to perfect multicollinearity"}},
      {[](Host& host) {
         for (double& value : host.columns[0].numbers) value *= 1e-6;
       },
       "! VARAlgo::start - Beginning",
       described,
       4,
       {"error: Covariance matrix is singular"}},
  };
  for (const auto& one : cases) {
    Host host;
    giveQuarters(host, kMissing, kMissing);
    host.predictSet = false;
    giveModel(host);
    one.spoil(host);
    const std::string trace = '\n' + traceOf(VARMODEL);
    const std::string last = "! varmodel_entry: Step" + std::to_string(one.step) + " Unknown error occurred.\n";
    SCOPED_TRACE(last + one.after);
    EXPECT_THAT(trace, testing::EndsWith('\n' + last));
    EXPECT_EQ(*one.after == '\0' ? trace.substr(0, trace.find(last)) : between(trace, one.after, last),
              '\n' + one.lines);
    EXPECT_EQ(host.messages, one.messages);
  }
}

TEST(Trace, ASavedFileThatIsRefusedFailsTheLastStep) {
  const std::string variable = "defineVariable - Variable refused: R1";
  const std::pair<const char*, std::string> cases[] = {{"MakeVariable", variable},
                                                       {"SetName", variable},
                                                       {"SetFormat", variable},
                                                       {"SetWriteFormat", variable},
                                                       {"SetMeasurementLevel", variable},
                                                       {"SetLabel", variable},
                                                       {"SetColumnValue", "writeCases - Case 1 was not written"},
                                                       {"AddCase", "writeCases - Case 1 was not written"},
                                                       {"Close", "close - Close the external output file failed"}};
  for (const auto& [operation, line] : cases) {
    Host host;
    giveQuarters(host, 1993, 1);
    giveModel(host);
    host.command["SAVE"] = {{"FILE", {{"out"}}}, {"NRESIDUAL", {{"R"}}}};
    host.refusedOperation = operation;
    EXPECT_THAT(traceOf(VARMODEL), testing::HasSubstr("\n[]\n! Error: VARSaveOutFile::" + line)) << operation;
  }
}

TEST(Trace, EveryWayToAskForForecasts) {
  const std::string history =
      "VARSubCommands::generateHistoricalDateLabels - DATE_ not found, using TfoDateHandler fallback\n";
  const std::string read =
      "VARSubCommands::fetchDataFromActiveDataSet - Starting data fetch for 2 variables\n"
      "VARSubCommands::fetchDataFromActiveDataSet - Completed with status: SUCCESS\n";
  const std::string noDates = "VARSubCommands::generateHistoricalDateLabels - No date data available\n";
  const std::string retried =
      "VARSubCommands::generateForecastDatesUsingTfo - SetIndexes failed, using KORVEL approach\n";
  const auto validation = [](const char* target) {
    return std::string("VARSubCommands::generateForecastDatesUsingTfo - Date validation:\n") +
           "  Last observed case offset: 11\n  Target PREDICT THRU offset: " + target + '\n';
  };
  const auto period = [](const char* number, const char* offset, const char* label) {
    return std::string("Forecast period ") + number + ": caseOffset=" + offset + ", dateLabel='" + label + "'\n";
  };
  const auto asked = [](const char* values) { return std::string("getPredictThruFromTrendsInfo - ") + values + '\n'; };
  const std::string labelled = history + "Generated 12 historical date labels\n";
  const std::string one = "  Forecast periods to generate: 1\n";
  const std::string dated = asked("qHi=1, qHiDate=1, hiCase=0") + read + history;
  const std::string noForecasts =
      "warning: The forecast table is not created because no forecasts could be calculated.";
  const struct {
    std::function<void(Host&)> ask;
    std::string trace;
    std::vector<std::string> warnings = {};
  } cases[] = {
      {[](Host& host) {
         host.predictSet = false;
         host.dateVariables.clear();
       },
       asked("qHi=0, qHiDate=1, hiCase=0") + "PREDICT THRU not specified - no forecasting will be performed\n"},
      {[](Host& host) {  // through the end
         host.predictIsDate = false;
       },
       asked("qHi=1, qHiDate=0, hiCase=0") + read + history +
           "PREDICT THRU END detected - using existing date variables without forecasting\nDate variables found: 2\n"
           "VARSubCommands::get_Subcommand_Global - PREDICT THRU END detected, skipping forecast date generation\n",
       {noForecasts}},
      {[](Host& host) {
         host.predictIsDate = false;
         host.predictCase = 13;
       },
       asked("qHi=1, qHiDate=0, hiCase=13") + validation("12") + one + period("1", "12", "13") + noDates +
           "Generated 0 historical date labels\n"},
      {[](Host& host) {  // the first case is a case number, not the end
         host.predictIsDate = false;
         host.predictCase = 1;
       },
       asked("qHi=1, qHiDate=0, hiCase=1") + validation("0") + noDates + "Generated 0 historical date labels\n",
       {noForecasts + " PREDICT THRU date is before the last observed date.", noForecasts}},
      {[](Host& host) { host.dateVariables[1].predictThru = 1; },
       dated + validation("12") + one + period("1", "12", "T12") + labelled},
      {[](Host& host) { host.dateVariables[0].predictThru = 1992, host.dateVariables[1].predictThru = 4; },
       dated + validation("11") + labelled,
       {noForecasts, noForecasts}},
      {[](Host& host) { host.dateVariables[1].predictThru = kMissing; },  // its origin, the first quarter
       dated + retried + validation("12") + one + period("1", "12", "T12") + labelled},
      {[](Host& host) { host.dateVariables[1].predictThru = -1; },  // not a number of the host's kind
       dated + retried + validation("12") + one + period("1", "12", "T12") + labelled},
      {[](Host& host) { host.dateVariables[1].predictThru = 4294967295.0; },
       dated + retried +
           "! Warning: VARSubCommands::generateForecastDatesUsingTfo - the PREDICT THRU date names no period of the "
           "active dataset\n" +
           labelled,
       {noForecasts}},
      {[](Host& host) {
         host.predictSet = false;
         host.columns.push_back({.name = "DATE_", .texts = std::vector<std::string>(12, "Q "), .width = 8});
       },
       asked("qHi=0, qHiDate=1, hiCase=0") + "PREDICT THRU not specified - no forecasting will be performed\n" + read +
           "VARSubCommands::generateHistoricalDateLabels - Found DATE_ variable at index 5, with width 8\n"},
  };
  for (const auto& way : cases) {
    Host host;
    giveQuarters(host, 1993, 1);
    giveModel(host);
    way.ask(host);
    const std::string trace = traceOf(VARMODEL);
    EXPECT_EQ(between(trace, "VARSubCommands::get_Subcommand_Global - Starting",
                      "VARSubCommands::get_Subcommand_Global - Completed"),
              '\n' + way.trace);
    EXPECT_EQ(host.messages, way.warnings) << way.trace;
    EXPECT_THAT(trace, testing::EndsWith("successfully!\n"));
  }
}

TEST(Trace, TheSummaryIsWrittenOnlyWhenTheEnvironmentAsksForIt) {
  for (const char* asked : {"", "0", "11", "1"}) {
    Host host;
    giveQuarters(host, 1993, 1);
    giveModel(host);
    ::setenv("VARMODEL_SUMMARY", asked, 1);
    const std::string trace = traceOf(VARMODEL);
    ::unsetenv("VARMODEL_SUMMARY");
    const std::string summary = between(trace, "! VARAlgo::computeDescriptiveStats - Computed", "JSON ~~~");
    EXPECT_EQ(summary.find("VAR MODEL RESULTS SUMMARY") != std::string::npos, asked == std::string("1")) << asked;
  }
}

}  // namespace
}  // namespace recording
