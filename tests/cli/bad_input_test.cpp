// Every bad input gets a clear error, its exit code, and leaves no file behind.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <random>

#include "program.h"

namespace {

using testing::HasSubstr;

constexpr int procedureFailed = 1;
constexpr int usageFailed = 2;
constexpr int dataFailed = 3;

struct BadInput {
  const char* name;
  std::string model;  // what follows "/MODEL "; empty keeps a valid one
  std::string rest;   // what follows METHOD
  std::string toml;   // more of the job file
  int exitCode;
  std::vector<std::string> says;
  std::string source = "us_macro_quarterly.csv";
  std::string method = "/METHOD TYPE=[OLS]";
};

const std::string validModel = "ENDOGENOUS=realgdp realcons LAG=[BIC] MAXLAG=2";

std::string jobText(const BadInput& bad) {
  return "command = '''\nVARMODEL\n/MODEL " + (bad.model.empty() ? validModel : bad.model) + "\n" + bad.method + "\n" +
         bad.rest + "\n'''\n" + bad.toml + "\n[data]\nsource = \"" + bad.source + "\"\n";
}

std::vector<BadInput> commandInputs() {
  return {
      {"UnknownVariable",
       "ENDOGENOUS=realgdp realcns LAG=[BIC] MAXLAG=2",
       "",
       "",
       usageFailed,
       {"line 2, column 27", "realcns", "Did you mean \"realcons\"?", "^~~~~~~"}},
      {"SameVariableTwice", "ENDOGENOUS=realgdp realgdp LAG=[BIC] MAXLAG=2", "", "", usageFailed, {"realgdp", "twice"}},
      {"EndogenousAndExogenous",
       "ENDOGENOUS=realgdp realcons EXOGENOUS=realgdp LAG=[BIC] MAXLAG=2",
       "",
       "",
       usageFailed,
       {"realgdp"}},
      {"OneEndogenous",
       "ENDOGENOUS=realgdp LAG=[BIC] MAXLAG=2",
       "",
       "",
       procedureFailed,
       {"At least 2 endogenous variables are required for VAR model estimation"}},
      {"MaxlagZero", "ENDOGENOUS=realgdp realcons LAG=[BIC] MAXLAG=0", "", "", usageFailed, {"MAXLAG", "1", "25"}},
      {"MaxlagTooLarge", "ENDOGENOUS=realgdp realcons LAG=[BIC] MAXLAG=26", "", "", usageFailed, {"MAXLAG", "25"}},
      {"MaxlagFraction",
       "ENDOGENOUS=realgdp realcons LAG=[BIC] MAXLAG=3.5",
       "",
       "",
       procedureFailed,
       {"MAXLAG must be an integer."}},
      {"MaxlagText", "ENDOGENOUS=realgdp realcons LAG=[BIC] MAXLAG=\"x\"", "", "", usageFailed, {"MAXLAG", "number"}},
      {"MinlagAboveMaxlag",
       "ENDOGENOUS=realgdp realcons LAG=[BIC] MINLAG=5 MAXLAG=2",
       "",
       "",
       procedureFailed,
       {"MINLAG must not be greater than MAXLAG."}},
      {"UnknownKeyword", "ENDOGENOUS=realgdp realcons LAG=[BIK] MAXLAG=2", "", "", usageFailed, {"BIK", "BIC"}},
      {"UnknownParameter",
       "ENDOGENUS=realgdp realcons LAG=[BIC] MAXLAG=2",
       "",
       "",
       usageFailed,
       {"ENDOGENUS", "ENDOGENOUS"}},
      {"UnclosedBracket", "ENDOGENOUS=realgdp realcons LAG=[BIC MAXLAG=2", "", "", usageFailed, {"]"}},
      {"CilevelNegative", "", "/AUXILIARY CILEVEL=-1", "", usageFailed, {"CILEVEL", "100"}},
      {"CilevelTooLarge", "", "/AUXILIARY CILEVEL=101", "", usageFailed, {"CILEVEL", "100"}},
      {"UnknownSubcommand",
       "",
       "/MODELSTATISTIC MODELFIT=[PARAMETERS]",
       "",
       usageFailed,
       {"MODELSTATISTIC", "MODELSTATISTICS"}},
      {"SubcommandTwice", "", "/METHOD TYPE=[OLS]", "", usageFailed, {"METHOD", "twice"}},
      {"UnclosedQuote", "", "/SAVE FILE=\"out.csv PREDICTED", "", usageFailed, {"quote"}},
      {"MethodMissing", "", "", "", procedureFailed, {"METHOD"}, "us_macro_quarterly.csv", ""},
      {"EigenAlone",
       "",
       "/MODELSTATISTICS MODELFIT=[PARAMETERS EIGEN]",
       "",
       procedureFailed,
       {"CORRMATRIX is required when EIGEN is specified in MODELFIT."}},
      {"Weight", "", "", "weight = \"pop\"", procedureFailed, {"Remove Weight Variable", "'weight'"}},
      {"Split", "", "", "split = [\"quarter\"]", procedureFailed, {"Turn off split file", "'split'"}},
      {"OrdinalEndogenous",
       "",
       "",
       "variables.realcons.level = \"ordinal\"",
       procedureFailed,
       {"Only variables with a valid measurement scale are allowed. realcons does not meet this requirement."}},
      {"NoSuchFile",
       "",
       "",
       "",
       dataFailed,
       {"us_macro_quartery.csv", "us_macro_quarterly.csv"},
       "us_macro_quartery.csv"},
      {"UnreadableData", "", "", "", dataFailed, {"broken.parquet"}, "broken.parquet"},
      {"EmptyData", "", "", "", dataFailed, {"empty.csv"}, "empty.csv"},
      {"TextVariable", "ENDOGENOUS=x name LAG=[BIC] MAXLAG=1", "", "", procedureFailed, {"name", "text"}, "small.csv"},
      {"TooFewRows",
       "ENDOGENOUS=x y LAG=[BIC] MAXLAG=9",
       "",
       "",
       procedureFailed,
       {"Insufficient observations", "largest usable MAXLAG is"},
       "small.csv"},
      {"ConstantSeries",
       "ENDOGENOUS=x one LAG=[BIC] MAXLAG=1",
       "",
       "",
       procedureFailed,
       {"perfect multicollinearity"},
       "small.csv"},
      {"Collinear",
       "ENDOGENOUS=x y total LAG=[BIC] MAXLAG=1",
       "",
       "",
       procedureFailed,
       {"perfect multicollinearity"},
       "small.csv"},
      {"MissingInDifferentCases",
       "ENDOGENOUS=x holes EXOGENOUS=shifted LAG=[BIC] MAXLAG=1",
       "",
       "",
       procedureFailed,
       {"missing in different cases"},
       "small.csv"},
      {"UnknownJobKey", "", "", "wieght = \"pop\"", usageFailed, {"job.toml, line", "'wieght'", "weight"}},
      {"WrongTypeInJob", "", "", "weight = 3", usageFailed, {"job.toml, line", "'weight'", "text"}},
  };
}

// 24 rows of noise; `one` is constant, `total` is x + y, `holes` and `shifted` are missing in different cases.
std::string smallData() {
  std::string text = "x,y,one,total,name,holes,shifted\n";
  std::minstd_rand noise(7);
  const auto draw = [&noise] { return static_cast<int>(noise() % 1000); };
  for (int row = 0; row < 24; ++row) {
    const int x = draw();
    const int y = draw();
    const std::string holes = row == 5 ? "" : std::to_string(draw());
    const std::string shifted = row == 9 ? "" : std::to_string(draw());
    text += std::to_string(x) + "," + std::to_string(y) + ",1," + std::to_string(x + y) + ",n" + std::to_string(row) +
            "," + holes + "," + shifted + "\n";
  }
  return text;
}

void PrintTo(const BadInput& bad, std::ostream* out) {
  *out << bad.name;
}

class BadInputTest : public testing::TestWithParam<BadInput> {};

TEST_P(BadInputTest, SaysWhatToDoAndWritesNothing) {
  const BadInput bad = GetParam();
  Workspace space;
  space.example("us_macro_quarterly.csv").file("small.csv", smallData()).file("job.toml", jobText(bad));
  space.file("broken.parquet", "PAR1 this is not a parquet file").file("empty.csv", "x,y\n");
  const auto before = space.listing();
  const ProgramRun run = space.run({"run", "job.toml", "--json", "out.json"});
  EXPECT_EQ(run.exitCode, bad.exitCode) << run.out << run.err;
  for (const std::string& text : bad.says) EXPECT_THAT(run.err, HasSubstr(text));
  EXPECT_EQ(run.err.find("VARAlgo::"), std::string::npos) << run.err;
  EXPECT_EQ(space.listing(), before);
}

INSTANTIATE_TEST_SUITE_P(All, BadInputTest, testing::ValuesIn(commandInputs()),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(BadCommandLine, EndsWithUsage) {
  const Workspace space;
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                    {"frobnicate"},
                                                    {"run"},
                                                    {"run", "nowhere.toml"},
                                                    {"fit", "a.csv"},
                                                    {"run", "a.toml", "--jsn", "x"}}) {
    const ProgramRun run = space.run(arguments);
    EXPECT_EQ(run.exitCode, usageFailed) << run.out << run.err;
    EXPECT_FALSE(run.err.empty());
  }
}

}  // namespace
