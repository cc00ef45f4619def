// Which file goes where: standard input and output as files, and files that must not be written over another.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document.h"
#include "program.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

enum ExitCode { success = 0, procedure = 1, usage = 2, data = 3, output = 4 };

// What a record tells of data and documents, without the command line.
std::string outcomeIn(const std::string& record) {
  const auto at = [&](const char* key) { return std::min(record.find(key), record.size()); };
  return record.substr(at("\"sha256\""), 75) + record.substr(at("\"documents\""));
}

class Streams : public testing::Test {
 protected:
  Streams() { space.example("us_macro_quarterly.csv").file("job.toml", job); }

  ProgramRun fit(const std::string& source, std::vector<std::string> options, const std::string& redirections = "") {
    options.insert(options.begin(),
                   {"fit", source, "--endogenous", "realgdp", "realcons", "--lag", "2", "--model-only"});
    return space.run(options, redirections);
  }

  const std::string input = "us_macro_quarterly.csv";
  const std::string job =
      "command = 'VARMODEL /MODEL ENDOGENOUS=realgdp realcons LAG=[BIC] MAXLAG=2 /METHOD TYPE=[OLS] "
      "/MODELSTATISTICS MODELFIT=[PARAMETERS]'\n[data]\nsource = 'us_macro_quarterly.csv'\n";
  Workspace space;
};

TEST_F(Streams, StandardOutputIsOneFileAndNothingElse) {
  ASSERT_EQ(fit(input, {"--json", "out.json"}).exitCode, success);
  const ProgramRun json = fit(input, {"--json", "-", "--html", "page.html", "--save", "out.csv"});
  EXPECT_EQ(outcomeIn(json.out), outcomeIn(space.read("out.json")));
  EXPECT_EQ(json.exitCode, success) << json.err;
  EXPECT_THAT(fit(input, {"--html", "-"}).out, StartsWith("<!DOCTYPE html>"));
  EXPECT_THAT(fit(input, {"--trace", "-"}).out, StartsWith("VARSubCommands::"));
}

TEST_F(Streams, StandardInputIsDataOrJob) {
  ASSERT_EQ(fit(input, {"--json", "out.json"}).exitCode, success);
  const std::string query = "SELECT * FROM source";
  EXPECT_EQ(outcomeIn(fit("-", {"--json", "-"}, "<" + input).out), outcomeIn(space.read("out.json")));
  EXPECT_EQ(outcomeIn(fit("-", {"--json", "-", "--query", query}, "<" + input).out), outcomeIn(space.read("out.json")));
  EXPECT_THAT(fit("-", {}, "</dev/null").err, HasSubstr("standard input: there are no cases in it."));
  EXPECT_EQ(fit("-", {}, "<&-").exitCode, data);

  EXPECT_EQ(space.run({"run", "-", "-q", "--json", "piped.json"}, "<job.toml").exitCode, success);
  ASSERT_EQ(space.run({"run", "job.toml", "-q", "--json", "out.json"}).exitCode, success);
  EXPECT_EQ(outcomeIn(space.read("piped.json")), outcomeIn(space.read("out.json")));
  space.file("twice.toml", job.substr(0, job.find("source")) + "source = '-'\n");
  const ProgramRun twice = space.run({"run", "-"}, "<twice.toml");
  EXPECT_EQ(twice.exitCode, usage);
  EXPECT_THAT(twice.err, HasSubstr("standard input, line 3: 'data.source' cannot be standard input"));
}

TEST_F(Streams, NoFileIsWrittenOverAnother) {
  struct Clash {
    std::vector<std::string> options;
    std::string redirections;
    ExitCode exitCode;
    std::string says;
  };
  const std::vector<Clash> clashes = {
      {{"--json", "a", "--html", "a"}, "", usage, "a is not written: --html is written to it. Choose another name."},
      {{"--json", "a", "--trace", "./b/../a"}, "", usage, "(as a)"},
      {{"--json", "a", "--html", "link"}, "", usage, "(as link)"},
      {{"--json", "name", "--html", "hard"}, "", usage, "(as hard)"},
      {{"--json", "-", "--html", "-"}, "", usage, "standard output is not written: --html is written to it"},
      {{"--json", "-", "--html", "a"}, ">a", usage, "(as a)"},
      {{"--json", "-", "--summary"}, "", usage, "Leave one of them out"},
      {{"--json", input}, "", usage, "this run reads it"},
      {{"--save", "a.csv", "--json", "a.csv"}, "", procedure, "a.csv is not written: --json is written to it"},
      {{"--save", "a.csv", "--html", "a.csv.meta.json"}, "", procedure, "a.csv.meta.json is not written: --html"},
  };
  space.file("name", "kept").link("a", "link").hardLink("name", "hard");
  const std::string series = space.read(input);
  const auto before = space.listing();
  for (const Clash& clash : clashes) {
    const ProgramRun run = fit(input, clash.options, clash.redirections);
    EXPECT_EQ(run.exitCode, clash.exitCode) << run.err;
    EXPECT_THAT(run.err, HasSubstr(clash.says));
    space.remove("a");
    EXPECT_EQ(space.listing(), before);
  }
  EXPECT_EQ(space.read("name"), "kept");
  EXPECT_EQ(fit("-", {"--json", input}, "<" + input).exitCode, usage);
  EXPECT_EQ(space.read(input), series);
  EXPECT_EQ(fit(input, {"--json", "/dev/null", "--html", "/dev/null"}).exitCode, success);
}

TEST_F(Streams, LostStandardOutputIsAnErrorAndKeepsTheFiles) {
  for (const char* lost : {">/dev/full", ">&-", ">&- 2>&- <&-"}) {
    const ProgramRun run = space.run({"run", "job.toml", "--json", "out.json", "--timings"}, lost);
    EXPECT_EQ(run.exitCode, output) << lost;
    EXPECT_THAT(space.read("out.json"), AllOf(StartsWith("{"), testing::EndsWith("}\n")));
    space.remove("out.json");
    EXPECT_EQ(fit(input, {}, lost).exitCode, output) << lost;
    EXPECT_EQ(fit(input, {"--json", "-"}, lost).exitCode, output) << lost;
    EXPECT_EQ(space.run({"--help"}, lost).exitCode, output) << lost;
  }
  EXPECT_THAT(space.run({"run", "job.toml"}, ">/dev/full").err,
              HasSubstr("standard output cannot be written. Send it"));
  EXPECT_THAT(fit(input, {"--json", "-"}, ">/dev/full").err, HasSubstr("No space left on device. Send it to"));
  EXPECT_THAT(space.listing(), ElementsAre("job.toml", input));
}

// In silence, as the system ends what writes to nobody.
TEST_F(Streams, AReaderThatGoesAwayLosesNoFile) {
  const std::vector<std::vector<std::string>> runs = {
      {"run", "job.toml", "--json", "out.json", "--html", "out.html"},
      {"run", "job.toml", "--html", "out.html", "--summary", "--json", "out.json"},
      {"run", "job.toml", "--trace", "-", "--json", "out.json", "--html", "out.html"},
      {"analyze", input, "--endogenous", "realgdp", "realcons", "--json", "out.json", "--html", "out.html"}};
  for (const auto& words : runs) {
    for (const char* reader : {"true", "head -n 1"}) {
      space.run(words, std::string(">&3"), std::string("mkfifo p; ") + reader + " <p >/dev/null & exec 3>p; sleep 0.2");
      EXPECT_THAT(space.read("out.json"), testing::EndsWith("}\n")) << words[0] << reader;
      EXPECT_THAT(space.read("out.html"), testing::HasSubstr("</html>")) << words[0] << reader;
      for (const char* name : {"out.json", "out.html", "p"}) space.remove(name);
    }
  }
}

TEST_F(Streams, AFailingFolderOfTemporaryFilesFailsNoRun) {
  for (const char* folder : {"/nowhere", "/proc", "/dev/null"}) {
    const std::string before = std::string("export TMPDIR=") + folder;
    const ProgramRun run = space.run({"run", "job.toml"}, "", before);
    EXPECT_EQ(run.exitCode, success) << run.err;
    EXPECT_EQ(run.out, space.run({"run", "job.toml"}).out);
    EXPECT_EQ(space.run({"fit", "-", "--endogenous", "realgdp", "realcons"}, "<" + input, before).exitCode, output);
  }
}

TEST_F(Streams, WhereOneFileCannotBeWrittenTheOthersAndTheScreenAre) {
  const ProgramRun run =
      space.run({"run", "job.toml", "--json", "no/out.json", "--html", "out.html", "--trace", "no/t"});
  EXPECT_EQ(run.exitCode, output);
  EXPECT_THAT(run.err, AllOf(HasSubstr("no/out.json cannot be written"), HasSubstr("no/t cannot be written")));
  EXPECT_THAT(run.out, HasSubstr("VAR Model Parameters - realgdp"));
  EXPECT_THAT(space.listing(), ElementsAre("job.toml", "out.html", input));
}

}  // namespace
