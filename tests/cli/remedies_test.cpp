// What a run tells its user to do is done exactly as printed, and helps.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <regex>
#include <sstream>

#include "document.h"
#include "program.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

// The first line below the one that holds a text: what a hint prints to be copied.
std::string lineBelow(const std::string& text, const std::string& holds) {
  const auto at = text.find(holds);
  if (at == std::string::npos) return "no line holds: " + holds;
  const auto begin = text.find('\n', at) + 1;
  return text.substr(begin, text.find('\n', begin) + 1 - begin);
}

class Remedies : public testing::Test {
 protected:
  Remedies() { space.example("us_macro_quarterly.csv"); }

  // A job over the quarterly series; `data` are further lines of [data].
  ProgramRun runJob(const std::string& model, const std::string& rest, const std::string& data,
                    const std::vector<std::string>& options = {}) {
    head_ = "command = '''\nVARMODEL\n/MODEL " + model + "\n/METHOD TYPE=[OLS]\n" + rest + "\n'''\n[data]\n";
    data_ = "source = \"us_macro_quarterly.csv\"\n" + data;
    return runAgain("", options);
  }
  // The last job with one more line under [data].
  ProgramRun runAgain(const std::string& line, std::vector<std::string> options = {}) {
    space.file("job.toml", head_ + line + data_);
    options.insert(options.begin(), {"run", "job.toml", "--json", "out.json"});
    return space.run(options);
  }
  OutputDocument document() const { return OutputDocument(space.read("out.json")); }

  Workspace space;

 private:
  std::string head_;
  std::string data_;
};

const std::string all =
    "/MODELSTATISTICS MODELFIT=[DESCRIPTIVES PARAMETERS GOODFIT RES RSQUARE CORRMATRIX TAUTO TNORM]";

// Differences of logarithms: their unit is too small for the bound on the determinant.
std::string logDifferences(const std::string& names, const std::string& factor = "1.0") {
  std::string list;
  std::istringstream words(names);
  for (std::string name; words >> name;) {
    list += (list.empty() ? "" : ", ") + factor + " * (ln(" + name + ") - lag(ln(" + name +
            ")) OVER (ORDER BY year, quarter)) AS " + name;
  }
  return "query = \"SELECT " + list + " FROM source QUALIFY row_number() OVER (ORDER BY year, quarter) > 1\"\n";
}

void expectSameNumbers(const std::vector<std::vector<double>>& seen, const std::vector<std::vector<double>>& wanted) {
  ASSERT_EQ(seen.size(), wanted.size());
  for (std::size_t i = 0; i < seen.size(); ++i) {
    for (std::size_t j = 0; j < seen[i].size(); ++j) {
      EXPECT_NEAR(seen[i][j], wanted[i][j], 1e-9 * std::fabs(wanted[i][j])) << i << ", " << j;
    }
  }
}

TEST_F(Remedies, ScaleLineMakesSmallUnitsPassAndSaysWhatItChanged) {
  const std::string series = "realgdp realcons realinv";
  const std::string model = "ENDOGENOUS=" + series + " LAG=[BIC] MINLAG=1 MAXLAG=4";
  const ProgramRun refused = runJob(model, all, logDifferences(series));
  EXPECT_EQ(refused.exitCode, 1);
  const std::string line = lineBelow(refused.err, "give [data] in the job file this line:");
  EXPECT_THAT(refused.err, Not(HasSubstr("Rescale")));
  const ProgramRun mended = runAgain(line);
  EXPECT_EQ(mended.exitCode, 0) << mended.err << line;
  EXPECT_THAT(mended.out, testing::StartsWith("note: All endogenous series are multiplied by 100."));
  const OutputDocument scaled = document();
  // The least power of ten: a tenth of it leaves a residual variance below 1e-2.
  const auto covariance = scaled.cells("Covariance Matrix of Residuals");
  double least = covariance[0][0];
  for (std::size_t i = 0; i < covariance.size(); ++i) least = std::min(least, covariance[i][i]);
  EXPECT_GE(least, 1e-2);
  EXPECT_LT(least, 1.0);
  ASSERT_EQ(runJob(model, all, logDifferences(series, "100")).exitCode, 0);
  for (const std::string table : {"VAR Model Parameters - realinv", "Test for Residuals", "Descriptive Statistics"}) {
    expectSameNumbers(scaled.cells(table), document().cells(table));
  }
}

TEST_F(Remedies, FitTriesALargerUnitByItselfAndSavesInTheOwnOne) {
  const std::string query = "SELECT *, realgdp / 1e7 AS gdp, realcons / 1e7 AS cons FROM source";
  const auto fit = [&](const std::string& gdp, const std::string& cons, const std::string& file) {
    return space.run({"fit", "us_macro_quarterly.csv", "--query", query, "--endogenous", gdp, cons, "--minlag", "2",
                      "--maxlag", "2", "--save", file, "--json", "out.json", "--html", "out.html", "--model-only"});
  };
  const ProgramRun scaled = fit("gdp", "cons", "small.csv");
  EXPECT_EQ(scaled.exitCode, 0) << scaled.out << scaled.err;
  EXPECT_THAT(unwrapped(scaled.out), AllOf(HasSubstr("multiplied by 100000."), HasSubstr("in the unit of the data")));
  EXPECT_EQ(scaled.err.find("singular"), std::string::npos);
  EXPECT_THAT(space.read("out.html"), AllOf(HasSubstr("multiplied by 100000"), HasSubstr("Values are multiplied by")));
  const auto lags = document().cells("VAR Model Parameters - gdp");
  ASSERT_EQ(fit("realgdp", "realcons", "large.csv").exitCode, 0);
  const auto wanted = document().cells("VAR Model Parameters - realgdp");
  for (std::size_t row = 1; row < lags.size(); ++row) EXPECT_NEAR(lags[row][0], wanted[row][0], 1e-8);
  std::istringstream small(space.read("small.csv"));
  std::istringstream large(space.read("large.csv"));
  std::string one;
  std::string other;
  std::getline(small, one);
  std::getline(large, other);
  int rows = 0;
  for (; std::getline(small, one) && std::getline(large, other); ++rows) {
    EXPECT_NEAR(std::stod(one) * 1e7, std::stod(other), 1e-8 * std::fabs(std::stod(other)));
  }
  EXPECT_EQ(rows, 201);
}

TEST_F(Remedies, MoreLagsThanTheSampleAllowsComeBeforeAnyScale) {
  const std::string series = "realgdp realcons realinv";
  const std::string few =
      "query = \"SELECT realgdp / 1e7 AS realgdp, realcons / 1e7 AS realcons, realinv / 1e7 AS "
      "realinv FROM source LIMIT 23\"\n";
  const ProgramRun refused = runJob("ENDOGENOUS=" + series + " MINLAG=5 MAXLAG=5", all, few);
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_THAT(refused.err, AllOf(HasSubstr("largest usable MAXLAG is 4"), Not(HasSubstr("scale ="))));
  std::smatch lag;
  ASSERT_TRUE(std::regex_search(refused.err, lag, std::regex("usable MAXLAG is (\\d+)")));
  const ProgramRun fewer = runJob("ENDOGENOUS=" + series + " MINLAG=1 MAXLAG=" + lag[1].str(), all, few);
  EXPECT_EQ(runAgain(lineBelow(fewer.err, "give [data] in the job file this line:")).exitCode, 0) << fewer.err;
}

const std::string holes =
    "query = \"SELECT * REPLACE (CASE WHEN year <> 1980 THEN realcons END AS realcons, CASE WHEN year > 1959 THEN "
    "realinv END AS realinv) FROM source\"\n";

TEST_F(Remedies, CompleteDropsRowsThatLackAVariableOfEitherListAndKeepsDates) {
  const std::string model = "ENDOGENOUS=realgdp realcons EXOGENOUS=realinv LAG=[BIC] MINLAG=2 MAXLAG=2";
  const ProgramRun refused =
      runJob(model, all + "\n/SERIESPLOT PLOT=[TIMESERIES]", holes + "[dates]\nstart = { year = 1959, quarter = 1 }\n");
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_THAT(refused.err, HasSubstr("missing in different cases"));
  const ProgramRun mended = runAgain(lineBelow(refused.err, "give [data] in the job file this line:"));
  EXPECT_EQ(mended.exitCode, 0) << mended.err;
  EXPECT_THAT(unwrapped(mended.out),
              AllOf(HasSubstr("203 read, 195 used, 8 dropped (realcons missing in 4, realinv missing in 4"),
                    HasSubstr("lie inside the sample")));
  const rapidjson::Value& dates = document().item("Time Series -realgdp")["columns"]["xdata"];
  EXPECT_STREQ(dates[0].GetString(), "1960Q1");
  EXPECT_STREQ(dates[80].GetString(), "1981Q1");
  EXPECT_STREQ(dates[dates.Size() - 1].GetString(), "2009Q3");
}

TEST_F(Remedies, FitCompletesOnItsOptionAndForecastsFromTheLastRow) {
  const std::string query = holes.substr(9, holes.size() - 11);
  std::vector<std::string> words = {"fit",
                                    "us_macro_quarterly.csv",
                                    "--query",
                                    query,
                                    "--endogenous",
                                    "realgdp",
                                    "realcons",
                                    "--exogenous",
                                    "realinv",
                                    "--maxlag",
                                    "2",
                                    "--start",
                                    "year=1959",
                                    "quarter=1",
                                    "--predict",
                                    "3",
                                    "--json",
                                    "out.json"};
  // First for VARMODEL, then for VARDYNAMICS, which crosses no gap.
  for (int refusals = 0; refusals < 2; ++refusals) {
    const ProgramRun refused = space.run(words);
    EXPECT_EQ(refused.exitCode, 1);
    std::smatch option;
    ASSERT_TRUE(std::regex_search(refused.err, option, std::regex("give (--[a-z-]+)\\."))) << refused.err;
    words.push_back(option[1]);
  }
  EXPECT_EQ(space.run(words).exitCode, 0);
  EXPECT_THAT(document().columnLabels("Forecast"), testing::ElementsAre("2009Q4", "2010Q1", "2010Q2"));
}

TEST_F(Remedies, StartBesideAQueryThatFiltersRowsGetsANote) {
  const std::string model = "ENDOGENOUS=realgdp realcons LAG=[BIC] MINLAG=2 MAXLAG=2";
  const std::string note = "The query returns 163 rows where the data file has 203";
  const auto query = [](const std::string& rest) { return "query = \"SELECT * FROM source " + rest + "\"\n"; };
  const auto seen = [&](const std::string& data) { return unwrapped(runJob(model, all, data).out); };
  const std::string start = "[dates]\nstart = { year = 1969, quarter = 1 }\n";
  EXPECT_THAT(seen(query("WHERE year >= 1969") + start), HasSubstr(note));
  EXPECT_THAT(seen(query("ORDER BY year, quarter") + start), Not(HasSubstr("The query returns")));
  EXPECT_THAT(seen(query("WHERE year >= 1969")), Not(HasSubstr("The query returns")));
}

}  // namespace
