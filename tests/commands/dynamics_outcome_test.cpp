// How a run of VARDYNAMICS ended: only its own last line says that it succeeded.

#include <gtest/gtest.h>

#include "workbench/commands/vardynamics/vardynamics_command.h"

namespace workbench {
namespace {

TEST(DynamicsOutcome, ExitCodesFollowTheLastLine) {
  const std::string success = "VAR Dynamics: Steps 1, 2, 3, 4, 5, and 6 completed successfully!\n";
  const struct {
    std::string out, err;
    int exitCode;
  } cases[] = {
      {"VARDynamics::readCases - Completed with status: SUCCESS\n" + success, "", 0},
      {success + "more\n", "", 1},
      {"", "", 1},
      {"", "VARDYNAMICS: Standard exception: host\n", 1},
      {success, "vardynamics_entry: Step5 failed.\n", 1},
      {"", "VARDynamics: Standard exception: host\nvardynamics_entry: Step2 failed.\n", 2},
      {"", "vardynamics_entry: Step6 failed.\n", 4},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(VardynamicsCommand().outcome({}, {one.out, one.err}).exitCode(), one.exitCode) << one.out << one.err;
  }
  CallRecord record;
  record.messages.push_back({Message::Kind::error, "No row holds values."});
  EXPECT_EQ(VardynamicsCommand().outcome(record, {success, ""}).exitCode(), 1);
}

}  // namespace
}  // namespace workbench
