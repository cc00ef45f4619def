// Jobs of several commands, and the two commands of `fit`.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document.h"
#include "program.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class SeveralCommands : public testing::Test {
 protected:
  SeveralCommands() { space.example("us_macro_quarterly.csv"); }

  ProgramRun run(const std::string& commands, std::vector<std::string> options = {}, const std::string& toml = "") {
    space.file("job.toml", "command = '''\n" + commands + "'''\n[data]\nsource = \"us_macro_quarterly.csv\"\n" + toml);
    options.insert(options.begin(), {"run", "job.toml"});
    return space.run(options);
  }

  Workspace space;
};

// Ends with a full stop on a word, a string, a bracket or a line of its own.
std::string command(const std::string& model, const std::string& rest = "", const std::string& stop = ".\n") {
  return "VARMODEL /MODEL ENDOGENOUS=" + model +
         " LAG=[BIC]\n/METHOD TYPE=[OLS]\n/MODELSTATISTICS MODELFIT=[PARAMETERS]" + rest + stop;
}
const std::string good = "realgdp realcons MINLAG=2 MAXLAG=2";
const std::string collinear = "realgdp realcons MINLAG=2 MAXLAG=2 EXOGENOUS=one";
const std::string one = "query = \"SELECT *, 1 AS one FROM source\"\n";

TEST_F(SeveralCommands, RunInOrderIntoOneOutputOneReportAndOneRecord) {
  const ProgramRun seen =
      run(command("realgdp realcons MINLAG=2 MAXLAG=2.5e0", "", " . # one. two.\n") +
              command("realgdp realinv MINLAG=1 MAXLAG=1", " /SAVE FILE=\"a.csv\" PREDICTED") + command(good, "", "\n"),
          {"--json", "out.json", "--html", "out.html"});
  EXPECT_EQ(seen.exitCode, 1) << seen.err;
  EXPECT_THAT(seen.err, AllOf(HasSubstr("error: command 1: MAXLAG must be an integer."), Not(HasSubstr("command 2"))));
  EXPECT_LT(seen.out.find("Command 2\n"), seen.out.find("Command 3\n"));
  EXPECT_LT(seen.out.find("VAR Model Parameters - realinv"), seen.out.find("Command 3\n"));
  const OutputDocument output(space.read("out.json"));
  const auto& documents = output.record()["documents"];
  ASSERT_EQ(documents.Size(), 2u);
  EXPECT_EQ(documents[0]["command"].GetInt(), 2);
  EXPECT_STREQ(documents[0]["items"][1].GetString(), "parameters:realinv");
  EXPECT_EQ(documents[1]["command"].GetInt(), 3);
  const auto& commands = output.record()["run"]["commands"];
  EXPECT_EQ(commands[0]["exitCode"].GetInt(), 1);
  EXPECT_STREQ(commands[1]["lists"]["SAVE FILE"][0].GetString(), "a.csv");
  EXPECT_THAT(std::string(commands[2]["text"].GetString()), testing::StartsWith("VARMODEL /MODEL"));
  EXPECT_THAT(space.read("out.html"),
              AllOf(HasSubstr("<section id=\"command-1\""), HasSubstr("<section id=\"command-3\""),
                    HasSubstr("command 1: MAXLAG must be an integer.")));
  EXPECT_THAT(space.listing(), testing::Contains("a.csv"));
}

TEST_F(SeveralCommands, NothingRunsWhenOneCannotBeParsed) {
  const ProgramRun seen =
      run(command(good, " /SAVE FILE=\"a.csv\" PREDICTED") + command("realgdp realcns"), {"--json", "out.json"});
  EXPECT_EQ(seen.exitCode, 2);
  EXPECT_THAT(seen.err, AllOf(HasSubstr("error: command 2: line 4, column 36: there is no variable \"realcns\""),
                              HasSubstr("VARMODEL /MODEL ENDOGENOUS=realgdp realcns")));
  EXPECT_EQ(seen.out, "");
  EXPECT_THAT(space.listing(), ElementsAre("job.toml", "us_macro_quarterly.csv"));
}

TEST_F(SeveralCommands, ExitWithTheCodeOfTheFirstThatFails) {
  const std::string noFolder = command(good, " /SAVE FILE=\"no/a.csv\" PREDICTED");
  EXPECT_EQ(run(noFolder + command(collinear) + command(good), {}, one).exitCode, 4);
  EXPECT_EQ(run(command(good) + command(collinear) + noFolder, {}, one).exitCode, 1);
  EXPECT_EQ(run(command(good) + command(good)).exitCode, 0);
}

TEST_F(SeveralCommands, DoNotSaveToOneFile) {
  const ProgramRun seen = run(command(good, " /SAVE FILE=\"a.csv\" PREDICTED") + command(good) +
                              command(good, " /SAVE FILE=\"./a.csv\" NRESIDUAL"));
  EXPECT_EQ(seen.exitCode, 2);
  EXPECT_THAT(seen.err, AllOf(HasSubstr("command 3: "), HasSubstr("command 1 saves to it")));
  EXPECT_THAT(space.listing(), ElementsAre("job.toml", "us_macro_quarterly.csv"));
}

// Rows after the last complete one may hold what is known of the future.
TEST_F(SeveralCommands, SeeTheRowsUpToTheLastOneThatIsCompleteInTheirVariables) {
  const std::string rest =
      "[data]\nsource = \"us_macro_quarterly.csv\"\nquery = \"SELECT * REPLACE (CASE WHEN year < "
      "2009 THEN realgdp END AS realgdp) FROM source\"\n[dates]\nstart = { year = 1959, quarter = 1 "
      "}\n[predict]\nthru = { year = 2009, quarter = 4 }\n";
  const auto table = [](const std::string& model) {
    return "VARMODEL PREDICT /MODEL ENDOGENOUS=" + model +
           " MINLAG=1 MAXLAG=1 /METHOD TYPE=[OLS] /MODELSTATISTICS MODELFIT=[PARAMETERS FORECASTS].\n";
  };
  space.file("job.toml", "command = '''\n" + table("realgdp realcons EXOGENOUS=realinv") + table("realcons realinv") +
                             "'''\n" + rest);
  const ProgramRun seen = space.run({"run", "job.toml", "--json", "out.json"});
  EXPECT_EQ(seen.exitCode, 0) << seen.err;
  const OutputDocument output(space.read("out.json"));
  EXPECT_THAT(output.columnLabels("Forecast"), ElementsAre("2009Q4"));
  const auto& first = output.record()["documents"][0]["document"]["items"];
  EXPECT_EQ(first[first.Size() - 1]["columns"].Size(), 4u);
  EXPECT_THAT(unwrapped(seen.out), HasSubstr("command 1: Rows: 203 read, 200 used, 3 dropped (realgdp missing in 3"));
}

TEST_F(SeveralCommands, FitChoosesTheLagAndThenShowsEverythingForIt) {
  const ProgramRun seen = space.run({"fit",
                                     "us_macro_quarterly.csv",
                                     "--endogenous",
                                     "realgdp",
                                     "realcons",
                                     "--maxlag",
                                     "5",
                                     "--model-only",
                                     "--all",
                                     "--lag",
                                     "aic",
                                     "hqic",
                                     "--predict",
                                     "3",
                                     "--start",
                                     "year=1959",
                                     "quarter=1",
                                     "--save",
                                     "out.csv",
                                     "--json",
                                     "out.json",
                                     "--html",
                                     "out.html"});
  EXPECT_EQ(seen.exitCode, 0) << seen.err;
  EXPECT_THAT(
      seen.out,
      AllOf(testing::StartsWith("VARMODEL\n  /MODEL ENDOGENOUS=realgdp realcons LAG=[AIC HQIC] MAXLAG=5\n"),
            HasSubstr("VARMODEL PREDICT\n  /MODEL ENDOGENOUS=realgdp realcons LAG=[AIC HQIC] MINLAG=4 MAXLAG=4\n"),
            Not(HasSubstr("below MAXLAG"))));
  for (const std::string& once : {std::string("\nGoodness of Fit"), std::string("\nVAR Model Parameters - realgdp")}) {
    EXPECT_NE(seen.out.find(once), std::string::npos) << once;
    EXPECT_EQ(seen.out.find(once), seen.out.rfind(once)) << once;
  }
  const OutputDocument output(space.read("out.json"));
  EXPECT_EQ(output.record()["documents"].Size(), 2u);
  EXPECT_EQ(output.cells("Goodness of Fit").size(), 5u);
  EXPECT_EQ(output.cells("VAR Model Parameters - realgdp").size(), 9u);
  EXPECT_GT(output.cells("Model Fit Statistics").at(0).at(3), 0);
  EXPECT_THAT(output.columnLabels("Forecast"), ElementsAre("2009Q4", "2010Q1", "2010Q2"));
  EXPECT_TRUE(output.record()["run"]["commands"][0]["savedFiles"].Empty());
  EXPECT_THAT(space.listing(), testing::Contains("out.csv"));
  // One lag needs no choice.
  const ProgramRun single = space.run({"fit", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "--lag",
                                       "2", "--json", "out.json", "--model-only"});
  EXPECT_EQ(OutputDocument(space.read("out.json")).record()["documents"].Size(), 1u);
  EXPECT_THAT(single.out, AllOf(HasSubstr("Goodness of Fit"), Not(HasSubstr("Command 2"))));
}

TEST_F(SeveralCommands, FitChoosesTheLagInALargerUnitWhereItsOwnIsTooSmall) {
  const ProgramRun seen =
      space.run({"fit", "us_macro_quarterly.csv", "--query",
                 "SELECT ln(realgdp) AS gdp, ln(realcons) AS cons, ln(realinv) AS inv FROM source", "--endogenous",
                 "gdp", "cons", "inv", "--maxlag", "3", "--json", "out.json", "--model-only"});
  EXPECT_EQ(seen.exitCode, 0) << seen.err;
  const OutputDocument output(space.read("out.json"));
  ASSERT_EQ(output.record()["documents"].Size(), 2u);
  for (const auto& command : output.record()["run"]["commands"].GetArray())
    EXPECT_EQ(command["scale"].GetDouble(), 100.0);
  EXPECT_THAT(seen.out, HasSubstr("multiplied by 100."));
}

}  // namespace
