// Whole runs: examples, notes, saved files, exit codes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "document.h"
#include "program.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class Run : public testing::Test {
 protected:
  Run() { space.example("us_macro_quarterly.csv"); }

  // A run of the command with this model and these further subcommands, over the quarterly series.
  ProgramRun runJob(const std::string& model, const std::string& rest, const std::string& toml = "",
                    const std::vector<std::string>& options = {"--json", "out.json"}) {
    space.file("job.toml", "command = '''\nVARMODEL PREDICT\n/MODEL " + model + "\n/METHOD TYPE=[OLS]\n" + rest +
                               "\n'''\n[data]\nsource = \"us_macro_quarterly.csv\"\n" + toml);
    return runAgain(options);
  }
  ProgramRun runAgain(std::vector<std::string> options) {
    options.insert(options.begin(), {"run", "job.toml"});
    return space.run(options);
  }
  OutputDocument document() const { return OutputDocument(space.read("out.json")); }

  Workspace space;
};

const std::string oneLag = "ENDOGENOUS=realgdp realcons LAG=[BIC] MINLAG=2 MAXLAG=2";
const std::string parameters = "/MODELSTATISTICS MODELFIT=[PARAMETERS]";

TEST(Examples, RunFromTheirFolder) {
  for (const std::string name : {"us_macro", "monthly_rates", "daily_demand"}) {
    Workspace space;
    for (const char* file : {"us_macro_quarterly.csv", "monthly_rates.csv", "daily_demand.csv"}) space.example(file);
    const ProgramRun run = space.example(name + ".toml").run({"run", name + ".toml", "--json", "out.json"});
    EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, Not(HasSubstr("was requested but produced no output")));
    if (name != "monthly_rates") continue;
    // Its series end raggedly: forecasts begin after the last complete case.
    EXPECT_EQ(OutputDocument(space.read("out.json")).columnLabels("Forecast").at(0), "2023M11");
    EXPECT_THAT(run.out, AllOf(HasSubstr("240 read, 238 used, 2 dropped"), HasSubstr("2023M11, 2023M12")));
  }
}

TEST_F(Run, TakesFilesNamedInAnyScript) {
  space.file("Größe 東京.csv", space.read("us_macro_quarterly.csv"));
  space.file("Auftrag ü.toml", "command = '''\nVARMODEL\n/MODEL " + oneLag +
                                   "\n/METHOD TYPE=[OLS]\n/SAVE FILE=\"Spär ß.parquet\" PREDICTED\n'''\n[data]\n"
                                   "source = \"Größe 東京.csv\"\nquery = \"SELECT * FROM 'Größe 東京.csv'\"\n");
  const ProgramRun run = space.run({"run", "Auftrag ü.toml", "--json", "ö.json", "--html", "日本.html"});
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_THAT(space.listing(), ElementsAre("Auftrag ü.toml", "Größe 東京.csv", "Spär ß.parquet",
                                           "us_macro_quarterly.csv", "ö.json", "日本.html"));
}

TEST_F(Run, GapInsideTheSampleIsTold) {
  const ProgramRun run =
      runJob(oneLag, parameters,
             "query = \"SELECT * REPLACE (CASE WHEN year = 1980 THEN NULL ELSE realgdp END AS realgdp) FROM "
             "source\"\n[dates]\nvariables = { year = \"year\", quarter = \"quarter\" }");
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_THAT(run.out, AllOf(HasSubstr("4 dropped"), HasSubstr("1980Q1"), HasSubstr("lie inside the sample")));
}

TEST_F(Run, QuietRunsWarnOfWhatWasAskedAndKeepNotesInTheirFiles) {
  const std::string gap =
      "query = \"SELECT * REPLACE (CASE WHEN year = 1980 THEN NULL ELSE realgdp END AS realgdp) FROM source\"";
  const ProgramRun gaps = runJob(oneLag, parameters, gap, {"-q", "--json", "out.json"});
  EXPECT_EQ(gaps.out + gaps.err, "");
  EXPECT_THAT(space.read("out.json"), AllOf(HasSubstr("Rows: 203 read, 199 used"), HasSubstr("lie inside the sample")));
  const std::string tests = "/MODELSTATISTICS MODELFIT=[PARAMETERS TAUTO]";
  EXPECT_EQ(runJob(oneLag, tests, "", {"-q"}).err, "");
  EXPECT_THAT(runAgain({}).err, HasSubstr("The forecast table is not created"));
  // Asked for and missed is worth a warning.
  EXPECT_THAT(runJob(oneLag, tests, "[predict]\nthru = 200", {"-q"}).err, HasSubstr("forecast table is not created"));
}

TEST_F(Run, TargetBeforeTheLastCaseIsOneWarningAndNoFailure) {
  const ProgramRun run =
      runJob(oneLag, "/MODELSTATISTICS MODELFIT=[PARAMETERS FORECASTS]",
             "[dates]\nstart = { year = 1959, quarter = 1 }\n[predict]\nthru = { year = 2009, quarter = 2 }");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.err,
            "warning: The forecast table is not created because no forecasts could be calculated. PREDICT THRU date is "
            "before the last observed date.\nhint: Give a target after the last case.\n");
  EXPECT_THAT(run.out, HasSubstr("FORECASTS was requested but produced no output"));
}

TEST_F(Run, SelectedLagBelowMaxlagGetsANoteAndARemedyThatRuns) {
  const ProgramRun run = runJob("ENDOGENOUS=realgdp realcons realinv LAG=[BIC] MAXLAG=8",
                                "/MODELSTATISTICS MODELFIT=[PARAMETERS MSE]", "[predict]\nthru = 205");
  EXPECT_THAT(run.out, HasSubstr("The selected lag 2 is below MAXLAG 8"));
  const std::string before = "run this command:\n";
  const auto remedy = run.out.find(before);
  ASSERT_NE(remedy, std::string::npos);
  space.file("job.toml", "command = \"\"\"\n" + run.out.substr(remedy + before.size()) +
                             "\"\"\"\n[data]\nsource = \"us_macro_quarterly.csv\"\n[predict]\nthru = 205\n");
  const ProgramRun again = runAgain({"--json", "out.json"});
  EXPECT_EQ(again.exitCode, 0) << again.err;
  EXPECT_THAT(again.out, Not(HasSubstr("below MAXLAG")));
  EXPECT_GT(document().cells("Model Fit Statistics").at(0).at(0), 0);
}

// Published: 100 times the first differences of logs, VAR(2) with a constant.
TEST_F(Run, PublishedCheckAgreesAndItsUnscaledFormIsSingular) {
  const auto differences = [this](const std::string& factor) {
    std::string list;
    for (const std::string name : {"realgdp", "realcons", "realinv"}) {
      list += (list.empty() ? "" : ", ") + factor + " * (ln(" + name + ") - lag(ln(" + name +
              ")) OVER (ORDER BY year, quarter)) AS " + name;
    }
    return runJob("ENDOGENOUS=realgdp realcons realinv LAG=[BIC] MINLAG=2 MAXLAG=2",
                  "/MODELSTATISTICS MODELFIT=[PARAMETERS GOODFIT]",
                  "query = \"SELECT " + list + " FROM source QUALIFY row_number() OVER (ORDER BY year, quarter) > 1\"");
  };
  ASSERT_EQ(differences("100").exitCode, 0);
  constexpr double printed = 5e-7;  // the publication prints six to eight decimals
  EXPECT_NEAR(document().cells("Goodness of Fit").at(0).at(0), -800.531288, printed);
  const double wanted[] = {.15269723529,  -.279434735873, .675015751749, .033219450794,
                           .008221084913, .290457628129,  -.007320907532};
  const auto seen = document().cells("VAR Model Parameters - realgdp");
  for (std::size_t i = 0; i < 7; ++i) EXPECT_NEAR(seen.at(i).at(0), wanted[i], 1e-10);
  EXPECT_NEAR(document().cells("VAR Model Parameters - realinv").at(0).at(1), .58627442, 1e-8);

  const ProgramRun singular = differences("1");
  EXPECT_EQ(singular.exitCode, 1);
  EXPECT_THAT(singular.err, AllOf(HasSubstr("Covariance matrix is singular"), HasSubstr("  scale = 100\n")));
}

TEST_F(Run, SaveFailuresKeepTheOutputAndTheOldFile) {
  const std::string data = space.read("us_macro_quarterly.csv");
  const ProgramRun folder = runJob(oneLag, parameters + "\n/SAVE FILE=\"no/out.csv\" PREDICTED", "", {});
  EXPECT_EQ(folder.exitCode, 4);
  EXPECT_THAT(folder.out, HasSubstr("VAR Model Parameters - realgdp"));
  EXPECT_THAT(folder.err, HasSubstr("Create its folder"));
  const ProgramRun input = runJob(oneLag, "/SAVE FILE=\"us_macro_quarterly.csv\" PREDICTED", "", {});
  EXPECT_NE(input.exitCode, 0);
  EXPECT_THAT(input.err, HasSubstr("Choose another name"));
  const ProgramRun nothing = runJob(oneLag, "/SAVE FILE=\"out.csv\"", "", {});
  EXPECT_EQ(nothing.exitCode, 4);
  EXPECT_THAT(nothing.err, HasSubstr("Add PREDICTED or NRESIDUAL"));
  EXPECT_EQ(space.read("us_macro_quarterly.csv"), data);
  EXPECT_THAT(space.listing(), ElementsAre("job.toml", "us_macro_quarterly.csv"));
}

TEST_F(Run, OutputFilesThatCannotBeWrittenAreExitCodeFour) {
  EXPECT_EQ(runJob(oneLag, parameters, "", {"--json", "/dev/full"}).exitCode, 4);
  EXPECT_EQ(runAgain({"--json", "nowhere/out.json"}).exitCode, 4);
  EXPECT_EQ(runAgain({"--json", "job.toml"}).exitCode, 2);
  EXPECT_THAT(space.read("job.toml"), HasSubstr("VARMODEL"));
}

TEST_F(Run, SavedFileHoldsTheDocumentsNumbers) {
  ASSERT_EQ(runJob(oneLag, "/SERIESPLOT PLOT=[RES]\n/SAVE FILE=\"out.csv\" PREDICTED=p NRESIDUAL=e").exitCode, 0);
  const OutputDocument output = document();
  const rapidjson::Value& residuals = output.item("Residuals -realcons")["columns"]["ydata"];
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

TEST_F(Run, SwitchesOfTheProgram) {
  EXPECT_THAT(runJob(oneLag, parameters, "", {"--summary"}).out, HasSubstr("VAR MODEL RESULTS SUMMARY"));
  EXPECT_THAT(runAgain({}).out, Not(HasSubstr("VAR MODEL RESULTS SUMMARY")));
  EXPECT_EQ(runAgain({"-q"}).out, "");
  const ProgramRun timed = runAgain({"-q", "--timings", "--trace", "trace.txt"});
  for (const std::string stage : {"load", "parse", "validate", "estimate", "output", "save", "render", "total"}) {
    EXPECT_THAT(timed.err, HasSubstr("timing " + stage + " "));
  }
  EXPECT_THAT(space.read("trace.txt"), HasSubstr("VARAlgo::start - Beginning algorithm execution"));
  EXPECT_THAT(runAgain({"-v"}).err, HasSubstr("VARAlgo::start"));
}

TEST_F(Run, PipedOutputHasNoColourAndFitsEightyColumns) {
  const ProgramRun run = space.example("us_macro.toml").run({"run", "us_macro.toml"});
  EXPECT_EQ(run.out.find('\x1b'), std::string::npos);
  std::istringstream lines(run.out.substr(0, run.out.find("note: To have everything")));
  for (std::string line; std::getline(lines, line);) {
    const auto characters = std::count_if(line.begin(), line.end(), [](char c) { return (c & 0xC0) != 0x80; });
    EXPECT_LE(characters, 80) << line;
  }
}

}  // namespace
