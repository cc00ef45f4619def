// Jobs that nobody watches: what they print, how they end, and others that write the same files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <utility>

#include "program.h"

namespace {

using testing::HasSubstr;
using Words = std::vector<std::string>;

class Unattended : public testing::Test {
 protected:
  Unattended() { space.example("us_macro_quarterly.csv"); }

  Workspace space;
};

TEST_F(Unattended, ANightlyParquetJobIsSilentAndLeavesItsFiles) {
  ASSERT_EQ(space
                .run({"fit", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "--lag", "2", "--predict",
                      "4", "--save", "series.parquet", "-q"})
                .exitCode,
            0);
  space.file("nightly.toml", R"(command = '''VARDYNAMICS /MODEL ENDOGENOUS=realgdp_residual realcons_residual LAG=1
  /FORECAST HORIZON=4 /PLOT /SAVE FILE="nightly.csv" FORECASTS.
VARMODEL /MODEL ENDOGENOUS=realgdp_residual realcons_residual LAG=[BIC] /METHOD TYPE=[OLS]'''
[data]
source = "series.parquet"
complete = true
)");
  space.file("nightly.html", "of yesterday");
  const Words words = {"run", space.folder() + "/nightly.toml", "--html", space.folder() + "/nightly.html"};
  const ProgramRun shown = space.runUnattended(words);
  EXPECT_EQ(shown.err, "");
  EXPECT_THAT(shown.out, HasSubstr("dropped"));
  Words quiet = words;
  quiet.insert(quiet.end(), {"--quiet", "--json", space.folder() + "/nightly.json"});
  const ProgramRun run = space.runUnattended(quiet);
  EXPECT_EQ(std::pair(run.exitCode, run.out + run.err), std::pair(0, std::string()));
  for (const char* file : {"nightly.html", "nightly.json"}) EXPECT_THAT(space.read(file), HasSubstr("dropped")) << file;
  EXPECT_EQ(space.listing().size(), 7);  // two sources, job, report, record, saved file and its metadata
}

TEST_F(Unattended, EndsWithTheDocumentedCode) {
  const std::string job = "[data]\nsource = 'us_macro_quarterly.csv'\n";
  space.file("short.toml",
             "command = 'VARMODEL /MODEL ENDOGENOUS=realgdp realcons LAG=[BIC] MAXLAG=25 /METHOD TYPE=[OLS]'\n" + job +
                 "query = 'SELECT * FROM source LIMIT 20'\n");
  space.file("typo.toml", "comand = 'VARMODEL'\n" + job);
  const Words fit = {"fit", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "--lag", "1"};
  const auto with = [&](Words more) {
    more.insert(more.begin(), fit.begin(), fit.end());
    return more;
  };
  const std::vector<std::pair<Words, int>> cases = {
      {fit, 0},
      {{"describe", "us_macro_quarterly.csv"}, 0},
      {{"run", "short.toml"}, 1},
      {with({"--save", "there/is/none.csv"}), 4},
      {{"run", "typo.toml"}, 2},
      {{"check", "typo.toml"}, 2},
      {with({"--lagg", "2"}), 2},
      {with({"--html", "us_macro_quarterly.csv"}), 2},
      {{"run", "none.toml"}, 2},
      {{"describe", "none.csv"}, 3},
      {{"fit", "none.csv", "--endogenous", "a", "b"}, 3},
      {with({"--html", "there/is/none.html"}), 4},
  };
  for (const auto& [words, code] : cases) {
    const ProgramRun run = space.run(words);
    EXPECT_EQ(run.exitCode, code) << words.back() << run.err;
    EXPECT_EQ(run.err.empty(), code == 0) << words.back() << run.err;
  }
}

// Two runs of the same differ in no byte, so that each file can be told to be of one of them.
TEST_F(Unattended, FilesWrittenAtOnceAreEachTheWholeOfOneRun) {
  constexpr std::array kFiles = {"out.html", "out.json", "out.csv", "out.csv.meta.json"};
  std::vector<Words> programs;
  std::vector<std::vector<std::string>> expected(kFiles.size());
  for (const char* other : {"realcons", "realinv", "realgovt"}) {
    programs.push_back({"fit", "us_macro_quarterly.csv", "--endogenous", "realgdp", other, "--lag", "1", "--model-only",
                        "-q", "--html", "out.html", "--json", "out.json", "--save", "out.csv"});
    ASSERT_EQ(space.run(programs.back()).exitCode, 0);
    for (std::size_t i = 0; i < kFiles.size(); ++i) expected[i].push_back(space.read(kFiles[i]));
  }
  const auto files = space.listing();
  constexpr int kRounds = 4;
  for (int round = 0; round < kRounds; ++round) {
    ASSERT_TRUE(space.runAtOnce(programs));
    for (std::size_t i = 0; i < kFiles.size(); ++i)
      EXPECT_THAT(expected[i], testing::Contains(space.read(kFiles[i]))) << kFiles[i];
    const auto placeOf = [&](std::size_t i) {
      return std::ranges::find(expected[i], space.read(kFiles[i])) - expected[i].begin();
    };
    EXPECT_EQ(placeOf(2), placeOf(3)) << "cases and their metadata";
    EXPECT_EQ(space.listing(), files);
  }
}

}  // namespace
