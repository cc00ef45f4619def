// A run on a terminal: its progress is seen and gone at the end, and Ctrl-C ends it at once with nothing left behind.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "program.h"
#include "terminal.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr int interrupted = 130;
const std::string control_c = "\x03";

TEST(Interruption, EndsTheProgramAtOnceAndLeavesNothing) {
  Workspace space;
  space.file("kept.html", "old");
  Terminal terminal(space.folder(),
                    {"fit", "-", "--endogenous", "a", "b", "--html", "kept.html", "--json", "out.json"});
  ASSERT_TRUE(terminal.shows("VARMODEL"));
  for (int tries = 0; tries < 1000 && space.listing().size() < 2; ++tries) usleep(10'000);
  EXPECT_THAT(space.listing(), ElementsAre("kept.html", HasSubstr("varmodel-input-")));
  terminal.type(control_c);
  EXPECT_EQ(terminal.exitCode(), interrupted);
  EXPECT_THAT(terminal.shown(), HasSubstr("interrupted: nothing more is written."));
  EXPECT_THAT(space.listing(), ElementsAre("kept.html"));
  EXPECT_EQ(space.read("kept.html"), "old");
}

}  // namespace
