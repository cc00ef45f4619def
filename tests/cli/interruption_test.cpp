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
  for (int tries = 0; tries < 1000 && space.listing().size() < 2; ++tries) usleep(10'000);
  EXPECT_THAT(space.listing(), ElementsAre("kept.html", HasSubstr("varmodel-input-")));
  terminal.type(control_c);
  EXPECT_EQ(terminal.exitCode(), interrupted);
  EXPECT_THAT(terminal.shown(), HasSubstr("interrupted: nothing more is written."));
  EXPECT_THAT(space.listing(), ElementsAre("kept.html"));
  EXPECT_EQ(space.read("kept.html"), "old");
}

std::vector<std::string> longWork(const std::string& replications) {
  return {"analyze", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "--lag",
          "2",       "--replications",         replications};
}

TEST(Progress, IsSeenOnATerminalAndGoneAtTheEnd) {
  Workspace space;
  space.example("us_macro_quarterly.csv");
  Terminal terminal(space.folder(), longWork("60000"));
  EXPECT_TRUE(terminal.shows(" % done, about ")) << terminal.shown();
  EXPECT_EQ(terminal.exitCode(), 0);
  EXPECT_THAT(terminal.shown(), testing::ContainsRegex("left *\r *\rAt a Glance"));
  std::vector<std::string> piped = longWork("1000");
  EXPECT_EQ(space.run(piped).err, "");
}

TEST(Progress, EndsWhereItIsInterrupted) {
  Workspace space;
  space.example("us_macro_quarterly.csv");
  std::vector<std::string> words = longWork("300000");
  words.insert(words.end(), {"--jobs", "2", "--html", "out.html", "--save", "out.csv"});
  Terminal terminal(space.folder(), words);
  ASSERT_TRUE(terminal.shows(" % done, about ")) << terminal.shown();
  terminal.type(control_c);
  EXPECT_EQ(terminal.exitCode(), interrupted);
  EXPECT_THAT(terminal.shown(), testing::EndsWith("\rinterrupted: nothing more is written.\r\n"));
  EXPECT_THAT(space.listing(), ElementsAre("us_macro_quarterly.csv"));
}

TEST(Jobs, ChangeNoBit) {
  Workspace space;
  space.example("us_macro_quarterly.csv");
  std::vector<std::string> words = longWork("1000");
  words.insert(words.end(), {"-q", "--json", "out.json"});
  const auto documents = [&] {
    EXPECT_EQ(space.run(words).exitCode, 0);
    const std::string record = space.read("out.json");
    return record.substr(record.find("\"documents\""));
  };
  const std::string one = documents();
  words.insert(words.end(), {"--jobs", "3"});
  EXPECT_EQ(documents(), one);
}

}  // namespace
