#include "workbench/cli/progress_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace workbench {
namespace {

TEST(ProgressLine, TellsTheShareDoneAndTheTimeLeftAtThePaceSoFar) {
  EXPECT_EQ(progressText(0.25, 10.0), "25 % done, about 30 s left");
  EXPECT_EQ(progressText(0.999, 50.0), "99 % done, about 1 s left");
  EXPECT_EQ(progressText(0.5, 600.0), "50 % done, about 10 min left");
  EXPECT_EQ(progressText(0.01, 3600.0), "1 % done, about 99 h left");
}

}  // namespace
}  // namespace workbench
