// Every call to the host fails once, in turn, during a run of VARDYNAMICS with everything that it writes.

#include <gmock/gmock.h>

#include "procedures/vardynamics/driver/vardynamics_entry.h"
#include "tests/recording/scene.h"

namespace recording {
namespace {

const std::string kSuccess = "VAR Dynamics: Steps 1, 2, 3, 4, 5, and 6 completed successfully!";

std::string lastLine(const std::string& trace) {
  const std::size_t end = trace.find_last_not_of('\n');
  const std::size_t start = trace.rfind('\n', end);
  return trace.substr(start + 1, end - start);
}

std::string step(int number) {
  return "! vardynamics_entry: Step" + std::to_string(number) + " failed.";
}

// The last line of a run whose call n failed, for each n; equal neighbours once. Nothing leaves the procedure, every
// object is destroyed, and a message or the trace has a reason.
std::vector<std::string> lastLines(void (*give)(Host&), bool throwsNumber) {
  std::vector<std::string> lines;
  std::size_t callCount = 1;
  for (std::size_t n = 0; n <= callCount; ++n) {
    Host host;
    give(host);
    host.failingCall = n;
    host.throwsNumber = throwsNumber;
    const std::string trace = traceOf(VARDYNAMICS);
    SCOPED_TRACE("call " + std::to_string(n) + ": " + host.failedOperation);
    EXPECT_THAT(host.living, testing::IsEmpty());
    if (n == 0) {
      callCount = host.callCount;
      continue;
    }
    const std::string line = lastLine(trace);
    EXPECT_TRUE(!host.messages.empty() || trace.find("xception") != std::string::npos) << trace;
    EXPECT_TRUE(host.savedCases.empty() || line == step(6)) << line;
    if (lines.empty() || lines.back() != line) lines.push_back(line);
  }
  return lines;
}

TEST(DynamicsFailure, AWholeRunSucceedsUndisturbed) {
  Host host;
  giveEverySubcommand(host);
  EXPECT_EQ(lastLine(traceOf(VARDYNAMICS)), kSuccess);
  EXPECT_THAT(host.messages, testing::IsEmpty());
  EXPECT_EQ(host.savedCases.size(), 14u);
}

// Before the first step and between the steps it is the driver's guard that tells.
TEST(DynamicsFailure, AnExceptionNeverLeavesTheProcedureAndIsTold) {
  const std::string guard = "! VARDYNAMICS: Standard exception: host";
  EXPECT_THAT(lastLines(giveEverySubcommand, false),
              testing::ElementsAre(guard, step(1), guard, step(2), step(3), step(5), step(6)));
}

TEST(DynamicsFailure, WhatIsNoStandardExceptionNeitherLeavesIt) {
  const std::string guard = "! VARDYNAMICS: Unknown exception occurred.";
  EXPECT_THAT(lastLines(giveEverySubcommand, true),
              testing::ElementsAre(guard, step(1), guard, step(2), step(3), step(5), step(6)));
}

}  // namespace
}  // namespace recording
