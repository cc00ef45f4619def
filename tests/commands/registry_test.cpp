// A further procedure needs its module and one registration.

#include "workbench/commands/registry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/document.h"
#include "tests/dataset/fault.h"
#include "tests/dataset/temp_folder.h"
#include "workbench/base/errors.h"
#include "workbench/cli/run.h"

namespace workbench {

namespace {

using testing::AllOf;
using testing::HasSubstr;

class CountCases final : public Command {
 public:
  std::string name() const override { return "COUNTCASES"; }
  std::string library() const override { return VARMODEL_BINARY_DIR "/tests/count_cases_procedure.so"; }
};

class Registry : public testing::Test {
 protected:
  static void SetUpTestSuite() { registerCommand(std::make_unique<CountCases>()); }

  int run(const std::string& command) const {
    Job job;
    job.command = command;
    job.data.query = "SELECT range AS x FROM range(7)";
    OutputOptions options;
    options.json = folder_ / "out.json";
    options.verbosity = Verbosity::quiet;
    return runJob(job, options);
  }

  TempFolder folder_;
};

TEST_F(Registry, RunsAFurtherProcedureThatIsRegistered) {
  ASSERT_EQ(run("countcases."), 0);
  const OutputDocument output(contents(folder_ / "out.json"));
  EXPECT_EQ(output.cells("Cases"), std::vector<std::vector<double>>{{7}});
}

TEST_F(Registry, AnErrorOfAProcedureThatNamesNoStepIsAFailure) {
  EXPECT_EQ(run("COUNTCASES /OF"), 1);
}

TEST_F(Registry, AnUnknownCommandIsRefusedWithTheOnesThereAre) {
  EXPECT_THAT(faultOf<UsageError>([&] { run("\n COUNTCASE"); }),
              AllOf(HasSubstr("line 2, column 2"), HasSubstr("Did you mean \"COUNTCASES\"?")));
  EXPECT_THAT(faultOf<UsageError>([&] { run("FREQUENCIES x"); }),
              HasSubstr("Commands: VARMODEL, VARDYNAMICS, COUNTCASES"));
  EXPECT_THAT(faultOf<UsageError>([&] { run("/MODEL"); }),
              HasSubstr("begins with its name: VARMODEL, VARDYNAMICS, COUNTCASES"));
}

}  // namespace

}  // namespace workbench
