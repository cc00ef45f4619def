// Whole runs through the exported entry.

#include "procedures/varmodel/driver/varmodel_entry.h"

#include <cstdlib>

#include "tests/engine/numeric_support.h"
#include "tests/procedure/procedure_fixture.h"

namespace varmodel {
namespace {

using engine::noise;

constexpr const char* kSuccess = "VAR Model: Steps 1, 2, 3, 4, 5, and 6 completed successfully!";
const std::string kCommand =
    "VARMODEL /MODEL ENDOGENOUS=a b LAG=[BIC] MINLAG=1 MAXLAG=1 /METHOD TYPE=[OLS] "
    "/MODELSTATISTICS MODELFIT=[PARAMETERS] ";

class DriverTest : public ProcedureTest {
 protected:
  void SetUp() override {
    number("a", noise(1, 40));
    number("b", noise(2, 40));
    session.baseFolder = testing::TempDir();
  }
  bool succeeded() const { return !out.lines().empty() && out.lines().back() == kSuccess; }
  void run(const std::string& commandText) {
    session.commandText = commandText;
    VARMODEL();
  }
  // The lines of the driver itself.
  std::vector<std::string> failures() const {
    std::vector<std::string> lines = err.lines();
    std::erase_if(
        lines, [](const auto& line) { return !line.starts_with("varmodel_entry") && !line.starts_with("VARMODEL:"); });
    return lines;
  }
};

TEST_F(DriverTest, AFailedStepWritesItsLineAndNothingAfterItRuns) {
  const struct {
    std::string command;
    int step;
    bool output;
  } cases[] = {{"VARMODEL /MODEL ENDOGENOUS=a nosuch", 2, false},
               {"VARMODEL /MODEL ENDOGENOUS=a b MAXLAG=2", 3, false},
               {"VARMODEL /MODEL ENDOGENOUS=a b LAG=[BIC] MAXLAG=25 /METHOD TYPE=[OLS]", 4, false},
               {kCommand + "/SAVE FILE='alone.csv'", 6, true}};
  std::vector<std::string> expected;
  for (const auto& one : cases) {
    SCOPED_TRACE(one.command);
    session.document.SetNull();
    run(one.command);
    expected.push_back("varmodel_entry: Step" + std::to_string(one.step) + " Unknown error occurred.");
    EXPECT_EQ(failures(), expected);
    EXPECT_FALSE(succeeded());
    EXPECT_EQ(session.document.IsObject(), one.output);
  }
  run(kCommand);  // nothing is left of a failed run
  EXPECT_TRUE(succeeded());
  EXPECT_TRUE(session.document.IsObject());
  EXPECT_EQ(failures(), expected);
}

TEST_F(DriverTest, TheSummaryIsWrittenOnlyWhenTheEnvironmentAsksForIt) {
  run(kCommand);
  const std::size_t plain = out.lines().size();
  ::setenv("VARMODEL_SUMMARY", "0", 1);
  run(kCommand);
  EXPECT_EQ(out.lines().size(), 2 * plain);
  ::setenv("VARMODEL_SUMMARY", "1", 1);
  run(kCommand);
  ::unsetenv("VARMODEL_SUMMARY");
  EXPECT_GT(out.lines().size(), 3 * plain);
  EXPECT_TRUE(succeeded());
}

}  // namespace
}  // namespace varmodel
