// Every call to the host fails once, in turn.

#include <gmock/gmock.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <sstream>
#include <streambuf>

#include "procedures/vardynamics/driver/vardynamics_entry.h"
#include "procedures/varmodel/driver/varmodel_entry.h"
#include "tests/recording/scene.h"

namespace recording {
namespace {

using Give = void (*)(Host&);

const std::string kSuccess = "success";
const std::string kGoesOn = " -> success\n";
const std::string kNotClosed = "! Error: VARSaveOutFile::close - Close the external output file failed";

std::string step(int number) {
  return " -> ! varmodel_entry: Step" + std::to_string(number) + " Unknown error occurred.\n";
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// The first line that an undisturbed run does not write and that tells of trouble, then the last line of the run.
std::string outcomeOf(const std::string& trace, const std::vector<std::string>& undisturbed) {
  const std::vector<std::string> lines = linesOf(trace);
  const auto tells = [&](const std::string& line) {
    const auto says = [&](const char* word) { return line.find(word) != std::string::npos; };
    const bool trouble = says("xception") || says("FAILURE") || says("Error:") || says("Unknown");
    return trouble && std::find(undisturbed.begin(), undisturbed.end(), line) == undisturbed.end();
  };
  const auto first = std::find_if(lines.begin(), lines.end(), tells);
  const std::string verdict = lines.back() == undisturbed.back() ? kSuccess : lines.back();
  if (first == lines.end()) return verdict;
  return *first == lines.back() ? verdict : *first + " -> " + verdict;
}

// Runs the procedure once for every call n, which throws, and returns the outcomes in order of n, equal neighbours
// once, without those of the driver's guard alone, whose text is checked. No exception leaves the procedure, and every
// object is destroyed, the youngest first; the output generator alone has an order of its own.
std::string outcomesOfFailures(Give give, void (*procedure)(), bool throwsNumber) {
  std::vector<std::string> undisturbed;
  std::vector<std::string> outcomes;
  const std::string guard =
      throwsNumber ? "! VARMODEL: Unknown exception occurred." : "! VARMODEL: Standard exception: host";
  std::size_t callCount = 1;
  for (std::size_t n = 0; n <= callCount; ++n) {
    Host host;
    give(host);
    host.failingCall = n;
    host.throwsNumber = throwsNumber;
    const std::string trace = traceOf(procedure);
    SCOPED_TRACE("call " + std::to_string(n) + ": " + host.failedOperation);
    EXPECT_THAT(host.living, testing::IsEmpty());
    EXPECT_THAT(host.destroyedOutOfOrder,
                testing::IsSubsetOf({"StatJSONGenerator", "ACAVarValidSpecs", "ParserMessage"}));
    if (n == 0) {
      undisturbed = linesOf(trace);
      callCount = host.callCount;
      continue;
    }
    const std::string outcome = outcomeOf(trace, undisturbed);
    EXPECT_TRUE(!outcome.starts_with("! VARMODEL: ") || outcome == guard) << outcome;
    if (outcomes.empty() || outcomes.back() != outcome) outcomes.push_back(outcome);
  }
  std::erase(outcomes, guard);
  std::string text;
  for (const std::string& outcome : outcomes) text += outcome + '\n';
  return text;
}

void giveWholeRun(Host& host) {
  giveQuarters(host, 1993, 2);
  giveEverything(host);
}
// Its labels come from DATE_, and its PREDICT date names no quarter.
void giveTextDates(Host& host) {
  giveWholeRun(host);
  host.dateVariables[1].predictThru = std::numeric_limits<double>::lowest();
  host.columns.push_back({.name = "DATE_", .texts = std::vector<std::string>(12, "1990 "), .width = 5});
}

TEST(HostFailure, AnExceptionNeverLeavesTheProcedureAndIsTold) {
  const std::string start = "! VARInputSettings::start - EXCEPTION: Standard exception caught: host" + step(3);
  const std::string global = "VARSubCommands::get_Subcommand_Global - Completed with status: FAILURE" + step(3);
  const std::string fetch = "! fetchDataFromActiveDataSet: Standard exception: host";
  const std::string history = "VARSubCommands::generateHistoricalDateLabels - Exception: host" + kGoesOn;
  const std::string forecast = "VARSubCommands::generateForecastDatesUsingTfo - Exception: host" + kGoesOn;
  const auto table = [](const std::string& routine, const std::string& what) {
    return "! Error: VAROutputGen::generate" + routine + " - " + what + " creation failed" + kGoesOn;
  };
  const auto chart = [](const std::string& routine, const std::string& variable) {
    return "! Error: VAROutputGen::generate" + routine + "Chart - Chart creation failed for variable '" + variable +
           "'" + kGoesOn;
  };
  const auto charts = [&](const std::string& routine) { return chart(routine, "a") + chart(routine, "b"); };
  EXPECT_EQ(outcomesOfFailures(giveWholeRun, VARMODEL, false),
            "! VARCommandDescriber: Standard exception: host" + step(1) + start + global + fetch + kGoesOn + history +
                global + forecast + history + start + fetch + step(3) + start + fetch + step(3) + start +
                table("DescriptiveStatistics", "Table") + table("ModelParameters", "Table") +
                table("ModelParameters", "Table") + table("LagOrderCriteria", "Table") +
                table("ResidualCorrelationMatrix", "Correlation table") +
                table("ResidualCovarianceMatrix", "Covariance table") + table("ModelFitStatistics", "Table") +
                table("ResidualDiagnostics", "Table") + table("ForecastTable", "Table") + charts("TimeSeries") +
                charts("ACF") + charts("ACF") + charts("Residuals") + chart("ResidualsCombined", "Residuals") +
                charts("FitValues") + charts("Forecast") + "! Error: VARSaveOutFile::run - host" + step(6) +
                kNotClosed + step(6));
  EXPECT_THAT(outcomesOfFailures(giveTextDates, VARMODEL, false), testing::HasSubstr(history));
}

TEST(HostFailure, WhatIsNoStandardExceptionNeitherLeavesIt) {
  const std::string start = "! VARInputSettings::start - EXCEPTION: Unknown exception occurred" + step(3);
  const std::string fetch = "! fetchDataFromActiveDataSet: Unknown exception occurred.";
  const std::string history = "VARSubCommands::generateHistoricalDateLabels - Unknown exception" + kGoesOn;
  EXPECT_EQ(outcomesOfFailures(giveWholeRun, VARMODEL, true),
            "! VARCommandDescriber: Unknown exception occurred." + step(1) + start + fetch + kGoesOn + history + start +
                "VARSubCommands::generateForecastDatesUsingTfo - Unknown exception" + kGoesOn + history + start +
                fetch + step(3) + start + fetch + step(3) + start + "! Error: VARSaveOutFile::run - Unknown exception" +
                step(6) + kNotClosed + step(6));
}

// Takes so many characters, then none.
class BreakingStream : public std::streambuf {
 public:
  BreakingStream(std::ostream& stream, int takes) : left(takes), stream_(stream), previous_(stream.rdbuf(this)) {
    stream.exceptions(std::ios::badbit | std::ios::failbit);
  }
  BreakingStream(const BreakingStream&) = delete;
  BreakingStream& operator=(const BreakingStream&) = delete;
  ~BreakingStream() override {
    stream_.exceptions(std::ios::goodbit);
    stream_.rdbuf(previous_);
    stream_.clear();
  }
  int left;

 private:
  int_type overflow(int_type character) override { return left-- > 0 ? character : traits_type::eof(); }

  std::ostream& stream_;
  std::streambuf* previous_;
};

TEST(HostFailure, AStreamThatThrowsLetsNothingOut) {
  for (void (*procedure)() : {VARMODEL, VARDYNAMICS}) {
    bool broken = true;
    for (int takes = 0; broken; takes += 61) {
      SCOPED_TRACE(takes);
      Host host;
      giveWholeRun(host);
      EXPECT_NO_THROW(traceOf([&] {
        BreakingStream stream(std::cerr, takes);
        procedure();
        broken = stream.left < 0;
      }));
      EXPECT_THAT(host.living, testing::IsEmpty());
    }
  }
}

}  // namespace
}  // namespace recording
