// Every bad input gets a clear error, its exit code, and leaves no file behind.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "program.h"

namespace {

using testing::HasSubstr;

enum ExitCode { procedure = 1, usage = 2, data = 3 };

// A job that runs. Of the columns that its query adds, `one` is constant, `total` is a sum of two others, `holes` and
// `shifted` are missing in different cases.
const std::string goodJob = R"(command = '''
VARMODEL
/MODEL ENDOGENOUS=realgdp realcons LAG=[BIC] MAXLAG=2
/METHOD TYPE=[OLS]
'''
[data]
source = "us_macro_quarterly.csv"
query = """SELECT *, 1 AS one, realgdp + realcons AS total, 'n' || year AS name,
  CASE WHEN year <> 1980 THEN realcons END AS holes, CASE WHEN year <> 1981 THEN realinv END AS shifted FROM source"""
)";

struct BadInput {
  const char* name;
  std::string good;  // the part of the job that is replaced
  std::string bad;
  ExitCode exitCode;
  std::vector<std::string> says;
};

std::vector<BadInput> badInputs() {
  const std::string variables = "realgdp realcons";
  const std::string method = "/METHOD TYPE=[OLS]";
  const std::string source = goodJob.substr(goodJob.find("source ="));
  return {
      {"UnknownVariable",
       variables,
       "realgdp realcns",
       usage,
       {"line 2, column 27", "realcns", "Did you mean \"realcons\"?", "^~~~~~~"}},
      {"SameVariableTwice", variables, "realgdp realgdp", usage, {"realgdp", "twice"}},
      {"EndogenousAndExogenous", variables, variables + " EXOGENOUS=realgdp", usage, {"realgdp"}},
      {"OneEndogenous",
       variables,
       "realgdp",
       procedure,
       {"At least 2 endogenous variables are required for VAR model estimation"}},
      {"MaxlagZero", "MAXLAG=2", "MAXLAG=0", usage, {"MAXLAG", "1", "25"}},
      {"MaxlagTooLarge", "MAXLAG=2", "MAXLAG=26", usage, {"MAXLAG", "25"}},
      {"MaxlagFraction", "MAXLAG=2", "MAXLAG=3.5", procedure, {"MAXLAG must be an integer."}},
      {"MaxlagText", "MAXLAG=2", "MAXLAG=\"x\"", usage, {"MAXLAG", "number"}},
      {"MinlagAboveMaxlag", "MAXLAG=2", "MAXLAG=2 MINLAG=5", procedure, {"MINLAG must not be greater than MAXLAG."}},
      {"UnknownKeyword", "[BIC]", "[BIK]", usage, {"BIK", "BIC"}},
      {"UnknownParameter", "ENDOGENOUS", "ENDOGENUS", usage, {"ENDOGENUS", "ENDOGENOUS"}},
      {"UnclosedBracket", "[BIC]", "[BIC", usage, {"]"}},
      {"CilevelNegative", method, method + "\n/AUXILIARY CILEVEL=-1", usage, {"CILEVEL", "100"}},
      {"CilevelTooLarge", method, method + "\n/AUXILIARY CILEVEL=101", usage, {"CILEVEL", "100"}},
      {"UnknownSubcommand", "/METHOD", "/METHODS", usage, {"METHODS", "Did you mean \"METHOD\"?"}},
      {"SubcommandTwice", method, method + "\n" + method, usage, {"METHOD", "twice"}},
      {"UnclosedQuote", method, method + "\n/SAVE FILE=\"out.csv PREDICTED", usage, {"quote"}},
      {"MethodMissing", method, "", procedure, {"METHOD"}},
      {"EigenAlone",
       method,
       method + "\n/MODELSTATISTICS MODELFIT=[PARAMETERS EIGEN]",
       procedure,
       {"CORRMATRIX is required when EIGEN is specified in MODELFIT."}},
      {"Weight", "[data]", "weight = \"pop\"\n[data]", procedure, {"Remove Weight Variable", "'weight'"}},
      {"Split", "[data]", "split = [\"quarter\"]\n[data]", procedure, {"Turn off split file", "'split'"}},
      {"OrdinalEndogenous",
       "[data]",
       "variables.realcons.level = \"ordinal\"\n[data]",
       procedure,
       {"Only variables with a valid measurement scale are allowed. realcons does not meet this requirement."}},
      {"NoSuchFile",
       "quarterly",
       "quartery",
       data,
       {"us_macro_quartery.csv", "Did you mean \"us_macro_quarterly.csv\"?"}},
      {"UnreadableData", source, "source = \"broken.parquet\"", data, {"broken.parquet"}},
      {"EmptyData", source, "source = \"empty.csv\"", data, {"empty.csv", "no cases"}},
      {"TextVariable", variables, "realgdp name", procedure, {"name", "text"}},
      {"TooFewRows",
       "FROM source",
       "FROM source LIMIT 7",
       procedure,
       {"Insufficient observations", "largest usable MAXLAG is"}},
      {"ConstantSeries", variables, "realgdp one", procedure, {"perfect multicollinearity"}},
      {"Collinear", variables, "realgdp realcons total", procedure, {"perfect multicollinearity"}},
      {"MissingInDifferentCases",
       variables,
       "realgdp holes EXOGENOUS=shifted",
       procedure,
       {"missing in different cases"}},
      {"UnknownJobKey", "[data]", "wieght = \"pop\"\n[data]", usage, {"job.toml, line", "'wieght'", "weight"}},
      {"WrongTypeInJob", "[data]", "weight = 3\n[data]", usage, {"job.toml, line", "'weight'", "text"}},
  };
}

class BadInputTest : public testing::TestWithParam<BadInput> {};

TEST_P(BadInputTest, SaysWhatToDoAndWritesNothing) {
  const BadInput bad = GetParam();
  std::string job = goodJob;
  job.replace(job.find(bad.good), bad.good.size(), bad.bad);
  Workspace space;
  space.example("us_macro_quarterly.csv").file("job.toml", job);
  space.file("broken.parquet", "PAR1 this is not a parquet file").file("empty.csv", "x,y\n");
  const auto before = space.listing();
  const ProgramRun run = space.run({"run", "job.toml", "--json", "out.json"});
  EXPECT_EQ(run.exitCode, bad.exitCode) << run.out << run.err;
  for (const std::string& text : bad.says) EXPECT_THAT(run.err, HasSubstr(text));
  EXPECT_EQ(run.err.find("VARAlgo::"), std::string::npos) << run.err;
  EXPECT_EQ(space.listing(), before);
}

INSTANTIATE_TEST_SUITE_P(All, BadInputTest, testing::ValuesIn(badInputs()),
                         [](const auto& one) { return std::string(one.param.name); });

}  // namespace
