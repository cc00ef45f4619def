// Whole runs: examples, notes, saved files, exit codes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <sstream>

#include "document.h"
#include "program.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

std::string job(const std::string& model, const std::string& rest, const std::string& toml = "") {
  return "command = '''\nVARMODEL PREDICT\n/MODEL " + model + "\n/METHOD TYPE=[OLS]\n" + rest +
         "\n'''\n[data]\nsource = \"us_macro_quarterly.csv\"\n" + toml;
}

const std::string oneLag = "ENDOGENOUS=realgdp realcons LAG=[BIC] MINLAG=2 MAXLAG=2";

TEST(Examples, RunFromTheirFolder) {
  for (const char* name : {"us_macro", "monthly_rates", "daily_demand"}) {
    Workspace space;
    for (const char* file : {"us_macro_quarterly.csv", "monthly_rates.csv", "daily_demand.csv"}) space.example(file);
    space.example(std::string(name) + ".toml");
    const ProgramRun run = space.run({"run", std::string(name) + ".toml", "--json", "out.json"});
    EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
    EXPECT_EQ(run.err, "");
    std::istringstream lines(run.out);
    for (std::string line; std::getline(lines, line);) {
      EXPECT_EQ(line.find("was requested but produced no output"), std::string::npos) << line;
    }
  }
}

TEST(Run, ForecastsOfARaggedEndBeginAfterTheLastCompleteCase) {
  Workspace space;
  space.example("monthly_rates.csv").example("monthly_rates.toml");
  const ProgramRun run = space.run({"run", "monthly_rates.toml", "--json", "out.json"});
  const OutputDocument document(space.read("out.json"));
  EXPECT_STREQ((*document.item("Forecast"))["columns"][0]["label"].GetString(), "2023M11");
  EXPECT_THAT(run.out, AllOf(HasSubstr("240 read, 238 used, 2 dropped"), HasSubstr("2023M11, 2023M12")));
}

TEST(Run, GapInsideTheSampleIsTold) {
  Workspace space;
  space.example("us_macro_quarterly.csv")
      .file("job.toml", job(oneLag, "/MODELSTATISTICS MODELFIT=[PARAMETERS]",
                            "query = \"SELECT * REPLACE (CASE WHEN year = 1980 THEN NULL ELSE realgdp END AS realgdp) "
                            "FROM source\"\n[dates]\nvariables = { year = \"year\", quarter = \"quarter\" }"));
  const ProgramRun run = space.run({"run", "job.toml"});
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_THAT(run.out, AllOf(HasSubstr("4 dropped"), HasSubstr("1980Q1"), HasSubstr("lie inside the sample")));
}

TEST(Run, TargetBeforeTheLastCaseIsOneWarningAndNoFailure) {
  Workspace space;
  space.example("us_macro_quarterly.csv")
      .file("job.toml", job(oneLag, "/MODELSTATISTICS MODELFIT=[PARAMETERS FORECASTS]",
                            "[dates]\nstart = { year = 1959, quarter = 1 }\n[predict]\nthru = { year = 2009, quarter = "
                            "2 }"));
  const ProgramRun run = space.run({"run", "job.toml"});
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.err,
            "warning: The forecast table is not created because no forecasts could be calculated. PREDICT THRU date is "
            "before the last observed date.\n");
  EXPECT_THAT(run.out, HasSubstr("FORECASTS was requested but produced no output"));
}

TEST(Run, SelectedLagBelowMaxlagGetsANoteAndARemedyThatRuns) {
  Workspace space;
  space.example("us_macro_quarterly.csv")
      .file("job.toml", job("ENDOGENOUS=realgdp realcons realinv LAG=[BIC] MAXLAG=8",
                            "/MODELSTATISTICS MODELFIT=[PARAMETERS MSE]", "[predict]\nthru = 205"));
  const ProgramRun run = space.run({"run", "job.toml"});
  EXPECT_THAT(run.out, HasSubstr("The selected lag 2 is below MAXLAG 8"));
  const std::string before = "run this command:\n";
  const auto remedy = run.out.find(before);
  ASSERT_NE(remedy, std::string::npos);
  space.file("remedy.toml", "command = \"\"\"\n" + run.out.substr(remedy + before.size()) +
                                "\"\"\"\n[data]\nsource = \"us_macro_quarterly.csv\"\n[predict]\nthru = 205\n");
  const ProgramRun again = space.run({"run", "remedy.toml", "--json", "out.json"});
  EXPECT_EQ(again.exitCode, 0) << again.err;
  EXPECT_THAT(again.out, Not(HasSubstr("below MAXLAG")));
  EXPECT_GT(OutputDocument(space.read("out.json")).row("Model Fit Statistics", 0)[0], 0);
}

// Published: 100 times the first differences of logs, VAR(2) with a constant.
TEST(Run, PublishedCheckAgreesAndItsUnscaledFormIsSingular) {
  const auto query = [](const std::string& factor) {
    std::string list;
    for (const std::string name : {"realgdp", "realcons", "realinv"}) {
      list += (list.empty() ? "" : ", ") + factor + " * (ln(" + name + ") - lag(ln(" + name +
              ")) OVER (ORDER BY year, quarter)) AS " + name;
    }
    return "query = \"SELECT " + list + " FROM source QUALIFY row_number() OVER (ORDER BY year, quarter) > 1\"";
  };
  const std::string model = "ENDOGENOUS=realgdp realcons realinv LAG=[BIC] MINLAG=2 MAXLAG=2";
  const std::string tables = "/MODELSTATISTICS MODELFIT=[PARAMETERS GOODFIT]";
  Workspace space;
  space.example("us_macro_quarterly.csv")
      .file("percent.toml", job(model, tables, query("100")))
      .file("plain.toml", job(model, tables, query("1")));
  ASSERT_EQ(space.run({"run", "percent.toml", "--json", "out.json"}).exitCode, 0);
  const OutputDocument document(space.read("out.json"));
  constexpr double printed = 5e-7;  // the publication prints six to eight decimals
  EXPECT_NEAR(document.column("Goodness of Fit", 0)[0], -800.531288, printed);
  const double wanted[] = {.15269723529,  -.279434735873, .675015751749, .033219450794,
                           .008221084913, .290457628129,  -.007320907532};
  const auto seen = document.column("VAR Model Parameters - realgdp", 0);
  for (std::size_t i = 0; i < 7; ++i) EXPECT_NEAR(seen[i], wanted[i], 1e-10);
  EXPECT_NEAR(document.column("VAR Model Parameters - realinv", 1)[0], .58627442, 1e-8);

  const ProgramRun singular = space.run({"run", "plain.toml"});
  EXPECT_EQ(singular.exitCode, 1);
  EXPECT_THAT(singular.err, AllOf(HasSubstr("Covariance matrix is singular"), HasSubstr("Rescale the series")))
      << singular.err;
}

TEST(Run, SaveFailuresKeepTheOutputAndTheOldFile) {
  Workspace space;
  space.example("us_macro_quarterly.csv");
  space.file("folder.toml", job(oneLag, "/MODELSTATISTICS MODELFIT=[PARAMETERS]\n/SAVE FILE=\"no/out.csv\" PREDICTED"));
  space.file("input.toml", job(oneLag, "/SAVE FILE=\"us_macro_quarterly.csv\" PREDICTED"));
  space.file("nothing.toml", job(oneLag, "/SAVE FILE=\"out.csv\""));
  const std::string data = space.read("us_macro_quarterly.csv");
  const auto before = space.listing();
  const ProgramRun folder = space.run({"run", "folder.toml"});
  EXPECT_EQ(folder.exitCode, 4);
  EXPECT_THAT(folder.out, HasSubstr("VAR Model Parameters - realgdp"));
  EXPECT_THAT(folder.err, HasSubstr("Create its folder"));
  const ProgramRun input = space.run({"run", "input.toml"});
  EXPECT_NE(input.exitCode, 0);
  EXPECT_THAT(input.err, HasSubstr("Choose another name"));
  EXPECT_EQ(space.run({"run", "nothing.toml"}).exitCode, 4);
  EXPECT_EQ(space.read("us_macro_quarterly.csv"), data);
  EXPECT_EQ(space.listing(), before);
}

TEST(Run, OutputFilesThatCannotBeWrittenAreExitCodeFour) {
  Workspace space;
  space.example("us_macro_quarterly.csv").file("job.toml", job(oneLag, "/MODELSTATISTICS MODELFIT=[PARAMETERS]"));
  EXPECT_EQ(space.run({"run", "job.toml", "--json", "/dev/full"}).exitCode, 4);
  EXPECT_EQ(space.run({"run", "job.toml", "--json", "nowhere/out.json"}).exitCode, 4);
  const ProgramRun input = space.run({"run", "job.toml", "--json", "job.toml"});
  EXPECT_EQ(input.exitCode, 2);
  EXPECT_THAT(space.read("job.toml"), HasSubstr("VARMODEL"));
}

TEST(Run, SavedFileHoldsTheDocumentsNumbers) {
  Workspace space;
  space.example("us_macro_quarterly.csv")
      .file("job.toml", job(oneLag, "/SERIESPLOT PLOT=[RES]\n/SAVE FILE=\"out.csv\" PREDICTED=p NRESIDUAL=e"));
  ASSERT_EQ(space.run({"run", "job.toml", "--json", "out.json"}).exitCode, 0);
  const OutputDocument document(space.read("out.json"));
  const rapidjson::Value& residuals = (*document.item("Residuals -realcons"))["columns"]["ydata"];
  std::istringstream lines(space.read("out.csv"));
  std::string line;
  std::getline(lines, line);
  EXPECT_EQ(line, "p1,e1,p2,e2");
  rapidjson::SizeType row = 0;
  for (; std::getline(lines, line); ++row) {
    ASSERT_EQ(std::strtod(line.substr(line.rfind(',') + 1).c_str(), nullptr), residuals[row].GetDouble());
  }
  EXPECT_EQ(row, 201u);
}

TEST(Run, SwitchesOfTheProgram) {
  Workspace space;
  space.example("us_macro_quarterly.csv").file("job.toml", job(oneLag, "/MODELSTATISTICS MODELFIT=[PARAMETERS]"));
  EXPECT_THAT(space.run({"run", "job.toml", "--summary"}).out, HasSubstr("VAR MODEL RESULTS SUMMARY"));
  EXPECT_THAT(space.run({"run", "job.toml"}).out, Not(HasSubstr("VAR MODEL RESULTS SUMMARY")));
  EXPECT_EQ(space.run({"run", "job.toml", "-q"}).out, "");
  const ProgramRun timed = space.run({"run", "job.toml", "-q", "--timings", "--trace", "trace.txt"});
  for (const char* stage : {"load", "parse", "validate", "estimate", "output", "save", "render", "total"}) {
    EXPECT_THAT(timed.err, HasSubstr(std::string("timing ") + stage + " "));
  }
  EXPECT_THAT(space.read("trace.txt"), HasSubstr("VARAlgo::start - Beginning algorithm execution"));
  EXPECT_THAT(space.run({"run", "job.toml", "-v"}).err, HasSubstr("VARAlgo::start"));
}

TEST(Run, PipedOutputHasNoColourAndFitsEightyColumns) {
  Workspace space;
  space.example("us_macro_quarterly.csv").example("us_macro.toml");
  const ProgramRun run = space.run({"run", "us_macro.toml"});
  EXPECT_EQ(run.out.find('\x1b'), std::string::npos);
  std::istringstream lines(run.out.substr(0, run.out.find("note: To have everything")));
  for (std::string line; std::getline(lines, line);) {
    const auto characters = std::count_if(line.begin(), line.end(), [](char c) { return (c & 0xC0) != 0x80; });
    EXPECT_LE(characters, 80) << line;
  }
}

TEST(Fit, ComposesPrintsAndRunsACommand) {
  Workspace space;
  space.example("us_macro_quarterly.csv");
  const ProgramRun run =
      space.run({"fit", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "--maxlag", "5", "--lag",
                 "aic", "hqic", "--predict", "3", "--start", "year=1959", "quarter=1", "--json", "out.json"});
  EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
  EXPECT_THAT(run.out, AllOf(HasSubstr("VARMODEL PREDICT\n"), HasSubstr("LAG=[AIC HQIC] MAXLAG=5")));
  const OutputDocument document(space.read("out.json"));
  EXPECT_STREQ((*document.item("Forecast"))["columns"][2]["label"].GetString(), "2010Q2");
  EXPECT_THAT(document.itemNames(), Contains("chart Residuals"));
  EXPECT_THAT(run.out, HasSubstr("To have everything for lag 4, give --minlag 4 --maxlag 4."));
}

}  // namespace
