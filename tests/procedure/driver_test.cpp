// Whole runs through the exported entry.

#include "driver/varmodel_entry.h"

#include <cstdlib>

#include "tests/procedure/procedure_fixture.h"

namespace varmodel {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr const char* kSuccess = "VAR Model: Steps 1, 2, 3, 4, 5, and 6 completed successfully!";
const std::string kCommand =
    "VARMODEL /MODEL ENDOGENOUS=a b LAG=[BIC] MINLAG=1 MAXLAG=1 /METHOD TYPE=[OLS] "
    "/MODELSTATISTICS MODELFIT=[PARAMETERS] ";

class DriverTest : public ProcedureTest {
 protected:
  void SetUp() override {
    number("a", noise(40, 1));
    number("b", noise(40, 2));
    session.baseFolder = testing::TempDir();
  }
  std::vector<std::string> driverLines() const {
    std::vector<std::string> lines;
    for (const std::string& line : err.lines()) {
      if (line.starts_with("varmodel_entry") || line.starts_with("VARMODEL:")) lines.push_back(line);
    }
    return lines;
  }
  bool succeeded() const { return !out.lines().empty() && out.lines().back() == kSuccess; }
  bool hasOutput() const { return session.document.IsObject(); }
};

TEST_F(DriverTest, ARunWithoutSaveSucceedsAndSaysSoLast) {
  runProcedure(kCommand);
  EXPECT_TRUE(succeeded());
  EXPECT_TRUE(hasOutput());
  EXPECT_THAT(driverLines(), IsEmpty());
  EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(DriverTest, AFailedStepWritesItsLineAndNothingAfterItRuns) {
  const struct {
    std::string command;
    int step;
    bool output;
  } cases[] = {{"VARMODEL /MODEL ENDOGENOUS=a nosuch", 2, false},
               {"VARMODEL /MODEL ENDOGENOUS=a b MAXLAG=2", 3, false},
               {"VARMODEL /MODEL ENDOGENOUS=a b LAG=[BIC] MAXLAG=25 /METHOD TYPE=[OLS]", 4, false},
               {kCommand + "/SAVE FILE='alone.csv'", 6, true}};
  for (const auto& run : cases) {
    session.document.SetNull();
    StreamText freshOut(std::cout);
    StreamText freshErr(std::cerr);
    runProcedure(run.command);
    std::vector<std::string> lines;
    for (const std::string& line : freshErr.lines()) {
      if (line.starts_with("varmodel_entry")) lines.push_back(line);
    }
    EXPECT_THAT(lines,
                testing::ElementsAre("varmodel_entry: Step" + std::to_string(run.step) + " Unknown error occurred."))
        << run.command;
    EXPECT_THAT(freshOut.lines(), Not(Contains(kSuccess)));
    EXPECT_EQ(hasOutput(), run.output) << run.command;
  }
}

TEST_F(DriverTest, RunsShareNoState) {
  runProcedure("VARMODEL /MODEL ENDOGENOUS=a");
  EXPECT_FALSE(succeeded());
  runProcedure(kCommand);
  EXPECT_TRUE(succeeded());
}

TEST_F(DriverTest, TheSummaryIsWrittenOnlyWhenTheEnvironmentAsksForIt) {
  runProcedure(kCommand);
  const std::size_t plain = out.lines().size();
  ::setenv("VARMODEL_SUMMARY", "0", 1);
  runProcedure(kCommand);
  EXPECT_EQ(out.lines().size(), 2 * plain);
  ::setenv("VARMODEL_SUMMARY", "1", 1);
  runProcedure(kCommand);
  ::unsetenv("VARMODEL_SUMMARY");
  EXPECT_GT(out.lines().size(), 3 * plain);
  EXPECT_TRUE(succeeded());
}

}  // namespace
}  // namespace varmodel
